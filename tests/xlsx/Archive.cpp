#include "xlsx/Archive.h"

#include <QtEndian>

#include <algorithm>

#include <zlib.h>

namespace VelmoraTest {

namespace {

void Put16(QByteArray &out, quint32 value)
{
    char bytes[2];
    qToLittleEndian(quint16(value), bytes);
    out.append(bytes, 2);
}

void Put32(QByteArray &out, quint32 value)
{
    char bytes[4];
    qToLittleEndian(value, bytes);
    out.append(bytes, 4);
}

quint16 Get16(const QByteArray &bytes, int offset)
{
    return qFromLittleEndian<quint16>(bytes.constData() + offset);
}

quint32 Get32(const QByteArray &bytes, int offset)
{
    return qFromLittleEndian<quint32>(bytes.constData() + offset);
}

quint32 Checksum(const QByteArray &data)
{
    return quint32(crc32(0, reinterpret_cast<const Bytef *>(data.constData()), uInt(data.size())));
}

QByteArray Inflated(const QByteArray &stored, int size)
{
    QByteArray data(size + 1, Qt::Uninitialized);
    z_stream stream = {};
    inflateInit2(&stream, -MAX_WBITS);
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(stored.constData()));
    stream.avail_in = uInt(stored.size());
    stream.next_out = reinterpret_cast<Bytef *>(data.data());
    stream.avail_out = uInt(data.size());
    inflate(&stream, Z_FINISH);
    data.truncate(int(stream.total_out));
    inflateEnd(&stream);
    return data;
}

} // namespace

QByteArray Deflated(const QByteArray &data)
{
    z_stream stream = {};
    deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    QByteArray out(int(deflateBound(&stream, uLong(data.size()))), Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(data.constData()));
    stream.avail_in = uInt(data.size());
    stream.next_out = reinterpret_cast<Bytef *>(out.data());
    stream.avail_out = uInt(out.size());
    deflate(&stream, Z_FINISH);
    out.truncate(int(stream.total_out));
    deflateEnd(&stream);
    return out;
}

QByteArray Noise(int size)
{
    QByteArray noise(size, Qt::Uninitialized);
    quint32 state = 1;
    for (char &c : noise)
        c = char((state = state * 1664525 + 1013904223) >> 24);
    return noise;
}

ArchiveEntry ArchiveEntry::Directory(const QByteArray &name)
{
    ArchiveEntry entry;
    entry.name = name;
    entry.method = 0;
    entry.attributes = 0040755U << 16;
    return entry;
}

ArchiveEntry ArchiveEntry::Link(const QByteArray &name, const QByteArray &target)
{
    ArchiveEntry entry;
    entry.name = name;
    entry.data = target;
    entry.method = 0;
    entry.attributes = 0120777U << 16;
    return entry;
}

QByteArray MakeArchive(const QList<ArchiveEntry> &entries, const ArchiveShape &shape)
{
    QByteArray out = shape.prefix;
    QByteArray directory;
    for (const ArchiveEntry &entry : entries) {
        const quint32 offset = quint32(out.size());
        const QByteArray stored = entry.stored.value_or(entry.method == 8 ? Deflated(entry.data) : entry.data);
        const quint32 size = entry.size.value_or(quint32(entry.data.size()));
        const quint32 storedSize = entry.storedSize.value_or(quint32(stored.size()));
        const quint32 checksum = entry.checksum.value_or(Checksum(entry.data));
        const QByteArray localName = entry.localName.value_or(entry.name);
        const bool hasDescriptor = entry.flags & 8;

        Put32(out, 0x04034b50);
        Put16(out, entry.needs);
        Put16(out, entry.flags);
        Put16(out, entry.localMethod.value_or(entry.method));
        Put32(out, 0x58210000); // a day in 2024
        Put32(out, hasDescriptor ? 0 : checksum);
        Put32(out, hasDescriptor ? 0 : storedSize);
        Put32(out, hasDescriptor ? 0 : size);
        Put16(out, quint32(localName.size()));
        Put16(out, quint32(entry.localExtra.size()));
        out += localName + entry.localExtra + stored;
        if (hasDescriptor) {
            Put32(out, 0x08074b50);
            Put32(out, checksum);
            Put32(out, storedSize);
            Put32(out, size);
        }

        Put32(directory, 0x02014b50);
        Put16(directory, entry.madeBy);
        Put16(directory, entry.needs);
        Put16(directory, entry.flags);
        Put16(directory, entry.method);
        Put32(directory, 0x58210000);
        Put32(directory, checksum);
        Put32(directory, storedSize);
        Put32(directory, size);
        Put16(directory, quint32(entry.name.size()));
        for (int i = 0; i < 4; ++i)
            Put16(directory, 0);
        Put32(directory, entry.attributes);
        Put32(directory, entry.offset.value_or(offset));
        directory += entry.name;
    }
    const quint32 directoryOffset = shape.directoryOffset.value_or(quint32(out.size()));
    out += directory;
    Put32(out, 0x06054b50);
    Put32(out, 0);
    Put16(out, shape.count.value_or(quint16(entries.size())));
    Put16(out, shape.count.value_or(quint16(entries.size())));
    Put32(out, shape.directorySize.value_or(quint32(directory.size())));
    Put32(out, directoryOffset);
    Put16(out, quint32(shape.comment.size()));
    return out + shape.comment + shape.trailer;
}

QByteArray MakeArchive(const QMap<QByteArray, QByteArray> &parts)
{
    QList<ArchiveEntry> entries;
    for (auto part = parts.cbegin(); part != parts.cend(); ++part) {
        ArchiveEntry entry;
        entry.name = part.key();
        entry.data = part.value();
        entries.append(entry);
    }
    return MakeArchive(entries);
}

namespace {

template <typename Visit>
void ForEachRecord(const QByteArray &archive, const Visit &visit)
{
    const int end = int(archive.lastIndexOf(QByteArrayLiteral("PK\x05\x06")));
    if (end < 0)
        return;
    const int count = Get16(archive, end + 10);
    int record = int(Get32(archive, end + 16));
    for (int i = 0; i < count; ++i) {
        const int nameSize = Get16(archive, record + 28);
        visit(record, archive.mid(record + 46, nameSize));
        record += 46 + nameSize + Get16(archive, record + 30) + Get16(archive, record + 32);
    }
}

} // namespace

QList<QByteArray> ArchiveNames(const QByteArray &archive)
{
    QList<QByteArray> names;
    ForEachRecord(archive, [&names](int, const QByteArray &name) { names.append(name); });
    return names;
}

QList<ArchiveEntry> ReadEntries(const QByteArray &archive, int mostBytes)
{
    QList<ArchiveEntry> entries;
    const int end = int(archive.lastIndexOf(QByteArrayLiteral("PK\x05\x06")));
    if (end < 0 || end + 22 > archive.size())
        return entries;
    int record = int(Get32(archive, end + 16));
    while (record >= 0 && record <= end - 46 && Get32(archive, record) == 0x02014b50) {
        const int nameSize = Get16(archive, record + 28);
        const int local = int(Get32(archive, record + 42));
        if (local < 0 || local > end - 30)
            break;
        ArchiveEntry entry;
        entry.name = archive.mid(record + 46, nameSize);
        entry.attributes = Get32(archive, record + 38);
        const int begin = local + 30 + Get16(archive, local + 26) + Get16(archive, local + 28);
        const QByteArray stored = archive.mid(begin, int(Get32(archive, record + 20) & 0xffffff));
        const int size = int(std::min<quint32>(Get32(archive, record + 24), quint32(mostBytes)));
        entry.data = Get16(archive, record + 10) == 8 ? Inflated(stored, size) : stored.left(size);
        entries.append(entry);
        record += 46 + nameSize + Get16(archive, record + 30) + Get16(archive, record + 32);
    }
    return entries;
}

QMap<QByteArray, QByteArray> ReadArchive(const QByteArray &archive)
{
    QMap<QByteArray, QByteArray> parts;
    ForEachRecord(archive, [&](int record, const QByteArray &name) {
        if (name.endsWith('/'))
            return;
        const int local = int(Get32(archive, record + 42));
        const int begin = local + 30 + Get16(archive, local + 26) + Get16(archive, local + 28);
        const QByteArray stored = archive.mid(begin, int(Get32(archive, record + 20)));
        const QByteArray data = Get16(archive, record + 10) == 8 ? Inflated(stored, int(Get32(archive, record + 24))) : stored;
        parts.insert(name, Checksum(data) == Get32(archive, record + 16) ? data : QByteArrayLiteral("damaged"));
    });
    return parts;
}

} // namespace VelmoraTest
