#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace Velmora {

/// A file or directory in an archive, and where its data lie.
struct ZipEntry
{
    QByteArray name; ///< as stored
    quint16 versionMadeBy = 0;
    quint16 versionNeeded = 0;
    quint16 flags = 0;
    quint16 method = 0;
    quint32 checksum = 0;
    qint64 compressedSize = 0;
    qint64 size = 0;
    qint64 localOffset = 0;
    qint64 dataOffset = 0; ///< found in the local header
};

/// What an archive is found to be before it is handed to a reader that trusts it.
struct ZipInspection
{
    enum Verdict {
        NoArchive, ///< no end-of-directory record: nothing to read in it
        Sound,     ///< directory, headers and data agree and keep within the limits
        Refused,   ///< reason says why
    };

    Verdict verdict = NoArchive;
    QString reason;
    QVector<ZipEntry> entries; ///< of a sound archive, in the directory's order
};

enum class ZipData {
    Inflated, ///< each entry's once, without keeping them, to see whether they are sound
    Unread,   ///< for a reader that keeps to the sizes and sees to the checksums itself
};

/// Reads directory, local headers and data of the ZIP archive in \a device (PKWARE's APPNOTE 6.3, without ZIP64). \a device is open for
/// reading and random access.
ZipInspection InspectZip(QIODevice &device, ZipData data = ZipData::Inflated);

/// Writes the data of an \a entry of the sound archive in \a device to \a target, in pieces. QZipReader holds them twice, and has none for
/// some entries that others read: it takes a system in the high byte of the version needed for a newer version, and never ends with a
/// deflated entry of no bytes at all.
void UnpackZipEntry(QIODevice &device, const ZipEntry &entry, QIODevice &target);

namespace ZipLimits {

constexpr qint64 kArchiveBytes = 0x7fffffff; ///< QZipReader counts in int
constexpr int kEntries = 4096;
constexpr qint64 kEntryBytes = 512LL * 1024 * 1024;
constexpr qint64 kTotalBytes = 1024LL * 1024 * 1024;
/// What is small may expand as it likes: honest entries of repeated text exceed every ratio.
constexpr qint64 kRatioFloorBytes = 8LL * 1024 * 1024;
constexpr qint64 kRatio = 300;

} // namespace ZipLimits

} // namespace Velmora
