#pragma once

#include "Failure.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryFile>

#include <memory>

namespace FillTemplate {

/// A file that takes another's place only when it is whole: it is written beside it under a name of its own, and renamed over it.
class OutputFile
{
public:
    /// Makes the file beside \a path. If that is impossible, or \a path is no regular file, a Failure.
    explicit OutputFile(const QString &path);

    /// Where to write. The file vanishes again unless it is committed.
    QString WorkPath() const;
    /// Renames it over the path that was given. Both before and after, that path holds a whole file, or none.
    void Commit();

private:
    QString m_path;
    std::unique_ptr<QTemporaryFile> m_file;
};

/// Writes the file, replacing what is there. Empty, or why it is not whole now.
QString WriteFault(const QString &path, const QByteArray &content);

/// Says that what was written for \a path does not read back, because of \a failure.
Failure NotReadBack(const QString &path, const Failure &failure);

} // namespace FillTemplate
