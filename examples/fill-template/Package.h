#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace FillTemplate {

/// What an archive says of its files, by their path in it.
struct ArchivedFile
{
    qint64 size = 0;
    quint32 checksum = 0; ///< CRC-32
};
/// The directory of an archive that the library has accepted. One that cannot be read is a Failure.
QMap<QString, ArchivedFile> ArchivedFiles(const QString &archivePath);

/// Throws a Failure unless the files below \a folder are exactly those of the archive: a folder on a full disk holds cut files,
/// of which unpacking does not tell, and packing leaves out what it cannot read.
void RequireSameFiles(const QString &folder, const QString &archivePath);

} // namespace FillTemplate
