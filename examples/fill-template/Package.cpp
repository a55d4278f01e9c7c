#include "Package.h"

#include "Failure.h"

#include <QDirIterator>
#include <QFile>
#include <QtEndian>

#include <zlib.h>

namespace FillTemplate {

namespace {

constexpr int kEndSize = 22;
constexpr int kRecordSize = 46;
constexpr int kLongestComment = 0xffff;

quint32 Number(const QByteArray &bytes, int offset, int size)
{
    const char *at = bytes.constData() + offset;
    return size == 2 ? qFromLittleEndian<quint16>(at) : qFromLittleEndian<quint32>(at);
}

/// Size and checksum of a file, read piece by piece.
ArchivedFile FileOnDisk(const QString &path)
{
    QFile file(path);
    ArchivedFile found;
    found.size = -1;
    if (!file.open(QIODevice::ReadOnly))
        return found;
    found.size = file.size();
    uLong checksum = crc32(0, nullptr, 0);
    while (!file.atEnd()) {
        const QByteArray piece = file.read(1 << 20);
        if (piece.isEmpty())
            break;
        checksum = crc32(checksum, reinterpret_cast<const Bytef *>(piece.constData()), uInt(piece.size()));
    }
    found.checksum = quint32(checksum);
    return found;
}

} // namespace

QMap<QString, ArchivedFile> ArchivedFiles(const QString &archivePath)
{
    const Failure damaged{LoadFailed, QStringLiteral("%1 is no sound archive").arg(archivePath)};
    QFile file(archivePath);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure{MissingFile, QStringLiteral("%1: %2").arg(archivePath, file.errorString())};
    file.seek(qMax<qint64>(0, file.size() - kEndSize - kLongestComment));
    const QByteArray tail = file.readAll();
    const int end = int(tail.lastIndexOf(QByteArrayLiteral("PK\x05\x06")));
    if (end < 0 || end + kEndSize > tail.size())
        throw damaged;
    file.seek(Number(tail, end + 16, 4));
    const QByteArray directory = file.read(qMin<qint64>(Number(tail, end + 12, 4), file.size())); // what a file claims is not allocated

    QMap<QString, ArchivedFile> files;
    const int count = int(Number(tail, end + 10, 2));
    int record = 0;
    for (int i = 0; i < count; ++i) {
        if (record + kRecordSize > directory.size())
            throw damaged;
        const QByteArray name = directory.mid(record + kRecordSize, int(Number(directory, record + 28, 2)));
        const bool isUnix = Number(directory, record + 4, 2) >> 8 == 3;
        const quint32 kind = Number(directory, record + 38, 4) >> 28;
        const bool isFile = !name.endsWith('/') && !(isUnix && kind != 0 && kind != 8); // 8: a regular file, in the mode's upper bits
        if (isFile)
            files.insert(QString::fromUtf8(name), {qint64(Number(directory, record + 24, 4)), Number(directory, record + 16, 4)});
        record += kRecordSize + int(name.size()) + int(Number(directory, record + 30, 2)) + int(Number(directory, record + 32, 2));
    }
    return files;
}

void RequireSameFiles(const QString &folder, const QString &archivePath)
{
    QMap<QString, ArchivedFile> files = ArchivedFiles(archivePath);
    QDirIterator entry(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (entry.hasNext()) {
        const QString path = entry.next().mid(folder.size() + 1);
        const auto file = files.find(path);
        if (file == files.end())
            throw Failure{OutputFailed, QStringLiteral("%1 is missing in %2").arg(path, archivePath)};
        const ArchivedFile found = FileOnDisk(entry.filePath());
        if (found.size != file->size || found.checksum != file->checksum)
            throw Failure{OutputFailed, QStringLiteral("%1 of %2 could not be unpacked whole; is the disk full?").arg(path, archivePath)};
        files.erase(file);
    }
    if (!files.isEmpty())
        throw Failure{OutputFailed, QStringLiteral("%1 of %2 could not be unpacked; is the disk full?").arg(files.firstKey(), archivePath)};
}

} // namespace FillTemplate
