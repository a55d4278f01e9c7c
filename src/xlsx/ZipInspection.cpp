#include "xlsx/ZipInspection_p.h"

#include <QByteArray>
#include <QDir>
#include <QIODevice>
#include <QSet>
#include <QtEndian>

#include <zlib.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace Velmora {

namespace {

constexpr quint32 kEndSignature = 0x06054b50;
constexpr quint32 kCentralSignature = 0x02014b50;
constexpr quint32 kLocalSignature = 0x04034b50;
constexpr int kEndSize = 22;
constexpr int kCentralSize = 46;
constexpr int kLocalSize = 30;
constexpr int kLongestComment = 65535;
constexpr quint8 kNewestVersion = 45; // ZIP64, which writers of streams announce and need not use
constexpr quint16 kEncrypted = 0x0001;
constexpr quint16 kStored = 0;
constexpr quint16 kDeflated = 8;

quint16 U16(const QByteArray &bytes, int offset)
{
    return qFromLittleEndian<quint16>(bytes.constData() + offset);
}

quint32 U32(const QByteArray &bytes, int offset)
{
    return qFromLittleEndian<quint32>(bytes.constData() + offset);
}

QByteArray ReadAt(QIODevice &device, qint64 offset, qint64 size)
{
    if (offset < 0 || offset > device.size() || !device.seek(offset)) // a buffer warns of what is beyond its end
        return QByteArray();
    QByteArray bytes = device.read(size);
    return bytes.size() == size ? bytes : QByteArray();
}

/// Offset of the end-of-directory record, or -1. The last one counts, as it does for every reader.
qint64 FindEndRecord(QIODevice &device, QByteArray &record)
{
    const qint64 tailSize = std::min<qint64>(device.size(), kEndSize + kLongestComment);
    const QByteArray tail = ReadAt(device, device.size() - tailSize, tailSize);
    for (int i = int(tail.size() - kEndSize); i >= 0; --i) {
        if (U32(tail, i) == kEndSignature) {
            record = tail.mid(i, kEndSize);
            return device.size() - tailSize + i;
        }
    }
    return -1;
}

/// A name that stays below the directory it is unpacked into, on every system.
bool IsSafeName(const QByteArray &name)
{
    if (name.isEmpty() || name.startsWith('/') || name.contains('\0'))
        return false;
    const QList<QByteArray> parts = name.split('/');
    return std::none_of(parts.cbegin(), parts.cend(), [](const QByteArray &part) {
        const bool isDrive = part.size() >= 2 && part.at(1) == ':';
        return isDrive || part == "..";
    });
}

/// The systems whose file attributes QZipReader understands. It makes nothing of an entry of another one.
bool IsKnownSystem(int versionMadeBy)
{
    constexpr int kFat = 0, kUnix = 3, kHpfs = 6, kNtfs = 11, kVfat = 14;
    const int system = versionMadeBy >> 8;
    return system == kFat || system == kUnix || system == kHpfs || system == kNtfs || system == kVfat;
}

/// Reads the entry's data in \a device and hands them on in pieces; true if they end where both sizes say and have the checksum.
template <typename Take>
bool ReadData(QIODevice &device, const ZipEntry &entry, const Take &take)
{
    constexpr qint64 kChunk = 65536;
    // A deflated nothing is two bytes. Some writers leave them out.
    if (entry.size == 0 && entry.compressedSize == 0)
        return entry.checksum == 0;
    if (!device.seek(entry.dataOffset))
        return false;
    z_stream stream = {};
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK)
        return false;
    QByteArray input;
    QByteArray output(int(kChunk), Qt::Uninitialized);
    qint64 unread = entry.compressedSize;
    qint64 produced = 0;
    uLong checksum = crc32(0, nullptr, 0);
    bool ended = false;
    while (!ended && produced <= entry.size) {
        if (stream.avail_in == 0 && unread > 0) {
            input = device.read(std::min(kChunk, unread));
            if (input.isEmpty())
                break;
            unread -= input.size();
            stream.next_in = reinterpret_cast<Bytef *>(input.data());
            stream.avail_in = uInt(input.size());
        }
        if (entry.method == kStored) {
            checksum = crc32(checksum, stream.next_in, stream.avail_in);
            take(reinterpret_cast<const char *>(stream.next_in), int(stream.avail_in));
            produced += stream.avail_in;
            stream.avail_in = 0;
            ended = unread == 0;
            continue;
        }
        stream.next_out = reinterpret_cast<Bytef *>(output.data());
        stream.avail_out = uInt(output.size());
        const int state = inflate(&stream, Z_NO_FLUSH);
        const uInt made = uInt(output.size()) - stream.avail_out;
        checksum = crc32(checksum, reinterpret_cast<const Bytef *>(output.constData()), made);
        take(output.constData(), int(made));
        produced += made;
        ended = state == Z_STREAM_END;
        if (state != Z_OK)
            break;
    }
    inflateEnd(&stream);
    return ended && unread == 0 && stream.avail_in == 0 && produced == entry.size && checksum == entry.checksum;
}

/// What is wrong with what the directory says of an entry, or an empty text.
QString FaultOfRecord(const ZipEntry &entry)
{
    if (entry.name.contains('\\'))
        return QStringLiteral("an entry's name has backslashes for slashes");
    if (!IsSafeName(entry.name))
        return QStringLiteral("an entry's name leads out of the directory");
    if (entry.flags & kEncrypted)
        return QStringLiteral("an entry is encrypted");
    // Some writers put their system into the high byte, as they do for the version that made the entry.
    if (quint8(entry.versionNeeded) > kNewestVersion || !IsKnownSystem(entry.versionMadeBy))
        return QStringLiteral("an entry is of an unknown kind");
    if (entry.method != kStored && entry.method != kDeflated)
        return QStringLiteral("an entry is compressed by an unknown method");
    if (entry.size > ZipLimits::kEntryBytes)
        return QStringLiteral("an entry is too large");
    if (entry.size > ZipLimits::kRatioFloorBytes && entry.size / ZipLimits::kRatio > entry.compressedSize)
        return QStringLiteral("an entry expands too much");
    return QString();
}

/// What is wrong with the entry itself, or an empty text. Finds its data.
QString FaultOfEntry(QIODevice &device, ZipEntry &entry, qint64 directoryOffset, ZipData data)
{
    const QByteArray local = ReadAt(device, entry.localOffset, kLocalSize);
    if (local.isEmpty() || U32(local, 0) != kLocalSignature)
        return QStringLiteral("an entry has no header");
    const int nameSize = U16(local, 26);
    // By the header's method the data are unpacked, by the directory's they were inspected.
    if (U16(local, 8) != entry.method || nameSize != entry.name.size() || device.read(nameSize) != entry.name)
        return QStringLiteral("an entry's header contradicts the directory");
    entry.dataOffset = entry.localOffset + kLocalSize + nameSize + U16(local, 28);
    if (entry.dataOffset + entry.compressedSize > directoryOffset)
        return QStringLiteral("an entry reaches into the directory");
    // A directory's data are not unpacked.
    if (data == ZipData::Inflated && !entry.name.endsWith('/') && !ReadData(device, entry, [](const char *, int) {}))
        return QStringLiteral("an entry's data are damaged or not of the size that they claim");
    return QString();
}

/// Names that are one file, also where the locale lacks their letters, would hide each other's data.
bool HaveDuplicates(const QVector<ZipEntry> &entries)
{
    QSet<QString> paths;
    QSet<QString> keys;
    for (const ZipEntry &entry : entries) {
        paths.insert(QDir::cleanPath(QString::fromUtf8(entry.name)));
        keys.insert(QString::fromLocal8Bit(entry.name));
    }
    return paths.size() < entries.size() || keys.size() < entries.size();
}

bool Overlap(const QVector<ZipEntry> &entries)
{
    std::vector<std::pair<qint64, qint64>> ranges;
    ranges.reserve(std::size_t(entries.size()));
    for (const ZipEntry &entry : entries)
        ranges.emplace_back(entry.localOffset, entry.dataOffset + entry.compressedSize);
    std::sort(ranges.begin(), ranges.end());
    for (std::size_t i = 1; i < ranges.size(); ++i) {
        if (ranges[i].first < ranges[i - 1].second)
            return true;
    }
    return false;
}

/// Reads the record at \a offset of \a directory and moves \a offset behind it; false if it is none.
bool ReadRecord(const QByteArray &directory, int &offset, ZipEntry &entry)
{
    if (offset + kCentralSize > directory.size() || U32(directory, offset) != kCentralSignature)
        return false;
    const int nameSize = U16(directory, offset + 28);
    const int recordSize = kCentralSize + nameSize + U16(directory, offset + 30) + U16(directory, offset + 32);
    if (offset + recordSize > directory.size())
        return false;
    entry.versionMadeBy = U16(directory, offset + 4);
    entry.versionNeeded = U16(directory, offset + 6);
    entry.flags = U16(directory, offset + 8);
    entry.method = U16(directory, offset + 10);
    entry.checksum = U32(directory, offset + 16);
    entry.compressedSize = U32(directory, offset + 20);
    entry.size = U32(directory, offset + 24);
    entry.localOffset = U32(directory, offset + 42);
    entry.name = directory.mid(offset + kCentralSize, nameSize);
    offset += recordSize;
    return true;
}

ZipInspection Refuse(const QString &reason)
{
    return {ZipInspection::Refused, reason, {}};
}

} // namespace

ZipInspection InspectZip(QIODevice &device, ZipData data)
{
    QByteArray end;
    const qint64 endOffset = FindEndRecord(device, end);
    // An archive begins with an entry; QZipReader, too, sees none in what begins otherwise.
    const QByteArray begin = ReadAt(device, 0, 4);
    if (endOffset < 0 || begin.isEmpty() || U32(begin, 0) != kLocalSignature)
        return {};

    const int count = U16(end, 10);
    const qint64 directorySize = U32(end, 12);
    const qint64 directoryOffset = U32(end, 16);
    if (device.size() > ZipLimits::kArchiveBytes)
        return Refuse(QStringLiteral("it is too large"));
    if (count != U16(end, 8) || directoryOffset + directorySize > endOffset)
        return Refuse(QStringLiteral("the directory is damaged"));
    if (count > ZipLimits::kEntries)
        return Refuse(QStringLiteral("too many entries"));

    const QByteArray directory = ReadAt(device, directoryOffset, directorySize);
    QVector<ZipEntry> entries(count);
    qint64 total = 0;
    int offset = 0;
    for (ZipEntry &entry : entries) {
        if (!ReadRecord(directory, offset, entry))
            return Refuse(QStringLiteral("the directory is damaged"));
        const QString fault = FaultOfRecord(entry);
        if (!fault.isEmpty())
            return Refuse(fault);
        total += entry.size;
    }
    // More records than were counted would be left out without a word.
    if (offset != directorySize)
        return Refuse(QStringLiteral("the directory is damaged"));
    if (total > ZipLimits::kTotalBytes)
        return Refuse(QStringLiteral("the entries are too large in all"));
    if (total > ZipLimits::kRatioFloorBytes && total / ZipLimits::kRatio > device.size())
        return Refuse(QStringLiteral("the entries expand too much in all"));
    if (HaveDuplicates(entries))
        return Refuse(QStringLiteral("two entries have one name"));

    for (ZipEntry &entry : entries) {
        const QString fault = FaultOfEntry(device, entry, directoryOffset, data);
        if (!fault.isEmpty())
            return Refuse(fault);
    }
    if (Overlap(entries))
        return Refuse(QStringLiteral("two entries overlap"));
    return {ZipInspection::Sound, QString(), entries};
}

void UnpackZipEntry(QIODevice &device, const ZipEntry &entry, QIODevice &target)
{
    ReadData(device, entry, [&target](const char *bytes, int size) { target.write(bytes, size); });
}

} // namespace Velmora
