#pragma once

#include <QString>
#include <QtGlobal>

namespace Velmora {

/// What a file is like now, cheap enough to be taken at every paint: it tells one state of a file from the next.
struct FileStamp
{
    bool exists = false;
    qint64 size = 0;
    qint64 version = 0;   ///< changes with the content: a file's time of change, a resource's hash
    quint64 identity = 0; ///< a file's number on its device: another file of that name has another, however quickly it came

    /// The stamp of the file, resource or folder at \a path, in one look at it. It exists exactly if IsFileExists() says so.
    static FileStamp Of(const QString &path);

    bool operator==(const FileStamp &other) const
    {
        return exists == other.exists && size == other.size && version == other.version && identity == other.identity;
    }
};

} // namespace Velmora
