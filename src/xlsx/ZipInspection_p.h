#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace Velmora {

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
    QVector<QByteArray> names; ///< of a sound archive's entries, as stored, in the directory's order
};

/// Reads directory, local headers and data of the ZIP archive in \a device (PKWARE's APPNOTE 6.3, without ZIP64), inflating each
/// entry once without keeping it. Sound is only what QZipReader reads as it stands: it takes sizes on trust, a deflated entry of
/// another size for a reason to allocate twice as much, and what it does not know for an empty file.
/// \a device is open for reading and random access.
ZipInspection InspectZip(QIODevice &device);

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
