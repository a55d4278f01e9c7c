#include "xlsx/ZipInspection_p.h"

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>

#include <zlib.h>

#include <algorithm>

namespace Velmora {

namespace {

constexpr quint32 kEndSignature = 0x06054b50;
constexpr quint32 kCentralSignature = 0x02014b50;
constexpr quint32 kLocalSignature = 0x04034b50;
constexpr int kEndSize = 22;
constexpr int kCentralSize = 46;
constexpr int kLocalSize = 30;
constexpr int kLongestComment = 65535;
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
    if (offset < 0 || !device.seek(offset))
        return QByteArray();
    QByteArray bytes = device.read(size);
    return bytes.size() == size ? bytes : QByteArray();
}

/// Offset of the end-of-directory record, or -1. The last one counts, as it does for every reader.
qint64 FindEndRecord(QIODevice &device, QByteArray &record)
{
    const qint64 tailSize = std::min<qint64>(device.size(), kEndSize + kLongestComment);
    const QByteArray tail = ReadAt(device, device.size() - tailSize, tailSize);
    for (int i = tail.size() - kEndSize; i >= 0; --i) {
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
    if (name.isEmpty() || name.startsWith('/') || name.contains('\\') || name.contains('\0'))
        return false;
    if (name.size() >= 2 && name.at(1) == ':')
        return false;
    const QList<QByteArray> parts = name.split('/');
    return !parts.contains("..");
}

struct Entry
{
    quint16 flags = 0;
    quint16 method = 0;
    qint64 compressedSize = 0;
    qint64 size = 0;
    qint64 localOffset = 0;
};

/// Inflates the entry's data in \a device without keeping it; true if it ends where both sizes say.
bool InflatesToItsSize(QIODevice &device, const Entry &entry)
{
    z_stream stream = {};
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK)
        return false;
    constexpr qint64 kChunk = 64 * 1024;
    QByteArray input;
    QByteArray output(int(kChunk), Qt::Uninitialized);
    qint64 unread = entry.compressedSize;
    qint64 produced = 0;
    int state = Z_OK;
    while (state == Z_OK && produced <= entry.size) {
        if (stream.avail_in == 0 && unread > 0) {
            input = device.read(std::min(kChunk, unread));
            if (input.isEmpty())
                break;
            unread -= input.size();
            stream.next_in = reinterpret_cast<Bytef *>(input.data());
            stream.avail_in = uInt(input.size());
        }
        stream.next_out = reinterpret_cast<Bytef *>(output.data());
        stream.avail_out = uInt(output.size());
        state = inflate(&stream, Z_NO_FLUSH);
        produced += output.size() - qint64(stream.avail_out);
    }
    const bool complete = state == Z_STREAM_END && unread == 0 && stream.avail_in == 0 && produced == entry.size;
    inflateEnd(&stream);
    return complete;
}

/// What is wrong with one entry of the directory, or an empty text.
QString FaultOf(QIODevice &device, const Entry &entry, const QByteArray &name, qint64 directoryOffset)
{
    if (!IsSafeName(name))
        return QStringLiteral("an entry's name leads out of the directory");
    if (entry.flags & kEncrypted)
        return QStringLiteral("an entry is encrypted");
    if (entry.method != kStored && entry.method != kDeflated)
        return QStringLiteral("an entry is compressed by an unknown method");
    if (entry.size > ZipLimits::kEntryBytes)
        return QStringLiteral("an entry is too large");
    if (entry.size > ZipLimits::kRatioFloorBytes && entry.size / ZipLimits::kRatio > entry.compressedSize)
        return QStringLiteral("an entry expands too much");

    const QByteArray local = ReadAt(device, entry.localOffset, kLocalSize);
    if (local.isEmpty() || U32(local, 0) != kLocalSignature)
        return QStringLiteral("an entry has no header");
    const qint64 dataOffset = entry.localOffset + kLocalSize + U16(local, 26) + U16(local, 28);
    if (dataOffset + entry.compressedSize > directoryOffset)
        return QStringLiteral("an entry reaches into the directory");
    if (entry.method == kStored)
        return entry.compressedSize == entry.size ? QString() : QStringLiteral("a stored entry has two sizes");
    if (!device.seek(dataOffset) || !InflatesToItsSize(device, entry))
        return QStringLiteral("an entry's data are damaged or not of the size that they claim");
    return QString();
}

ZipInspection Refuse(const QString &reason)
{
    return {ZipInspection::Refused, reason, {}};
}

} // namespace

ZipInspection InspectZip(QIODevice &device)
{
    QByteArray end;
    const qint64 endOffset = FindEndRecord(device, end);
    if (endOffset < 0)
        return {};

    const int count = U16(end, 10);
    const qint64 directorySize = U32(end, 12);
    const qint64 directoryOffset = U32(end, 16);
    if (count != U16(end, 8) || directoryOffset + directorySize > endOffset)
        return Refuse(QStringLiteral("the directory is damaged"));
    if (count > ZipLimits::kEntries)
        return Refuse(QStringLiteral("too many entries"));

    const QByteArray directory = directorySize == 0 ? QByteArray() : ReadAt(device, directoryOffset, directorySize);
    ZipInspection inspection;
    qint64 total = 0;
    int offset = 0;
    for (int i = 0; i < count; ++i) {
        if (offset + kCentralSize > directory.size() || U32(directory, offset) != kCentralSignature)
            return Refuse(QStringLiteral("the directory is damaged"));
        const int nameSize = U16(directory, offset + 28);
        const int recordSize = kCentralSize + nameSize + U16(directory, offset + 30) + U16(directory, offset + 32);
        if (offset + recordSize > directory.size())
            return Refuse(QStringLiteral("the directory is damaged"));

        Entry entry;
        entry.flags = U16(directory, offset + 8);
        entry.method = U16(directory, offset + 10);
        entry.compressedSize = U32(directory, offset + 20);
        entry.size = U32(directory, offset + 24);
        entry.localOffset = U32(directory, offset + 42);
        total += entry.size;
        if (total > ZipLimits::kTotalBytes)
            return Refuse(QStringLiteral("the entries are too large in all"));
        const QByteArray name = directory.mid(offset + kCentralSize, nameSize);
        const QString fault = FaultOf(device, entry, name, directoryOffset);
        if (!fault.isEmpty())
            return Refuse(fault);
        inspection.names.append(name);
        offset += recordSize;
    }
    inspection.verdict = ZipInspection::Sound;
    return inspection;
}

} // namespace Velmora
