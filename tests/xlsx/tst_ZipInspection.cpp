#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/Archive.h"
#include "xlsx/ZipInspection_p.h"

#include <QIODevice>

#include <algorithm>
#include <cstring>

#include <zlib.h>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr qint64 kMiB = 1024 * 1024;

/// Bytes with runs of zeros between them that are kept nowhere, so that an archive may be of any size.
class SparseDevice : public QIODevice
{
public:
    void Append(const QByteArray &bytes)
    {
        m_pieces.append({m_size, bytes});
        m_size += bytes.size();
    }
    void AppendZeros(qint64 count) { m_size += count; }

    qint64 size() const override { return m_size; }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        const qint64 begin = pos();
        const qint64 count = std::min(maxSize, m_size - begin);
        std::memset(data, 0, std::size_t(count));
        for (const Piece &piece : m_pieces) {
            const qint64 from = std::max(begin, piece.offset);
            const qint64 to = std::min(begin + count, piece.offset + piece.bytes.size());
            if (from < to)
                std::memcpy(data + (from - begin), piece.bytes.constData() + (from - piece.offset), std::size_t(to - from));
        }
        return count;
    }
    qint64 writeData(const char * /*data*/, qint64 /*size*/) override { return -1; }

private:
    struct Piece
    {
        qint64 offset;
        QByteArray bytes;
    };
    QList<Piece> m_pieces;
    qint64 m_size = 0;
};

quint32 ChecksumOfZeros(qint64 count)
{
    const QByteArray zeros(int(kMiB), '\0');
    uLong checksum = crc32(0, nullptr, 0);
    for (; count > 0; count -= kMiB)
        checksum = crc32(checksum, reinterpret_cast<const Bytef *>(zeros.constData()), uInt(std::min(count, kMiB)));
    return quint32(checksum);
}

/// A stored entry of zeros, which are not in it: they lie behind its header.
ArchiveEntry StoredZeros(const QByteArray &name, qint64 count)
{
    ArchiveEntry entry;
    entry.name = name;
    entry.method = 0;
    entry.stored = QByteArray();
    entry.size = entry.storedSize = quint32(count);
    entry.checksum = ChecksumOfZeros(count);
    return entry;
}

/// A deflated entry of zeros. Their stream is lengthened, as a writer may that flushes now and then, to \a storedSize bytes, unless
/// that is 0.
ArchiveEntry DeflatedZeros(const QByteArray &name, qint64 count, int storedSize = 0)
{
    ArchiveEntry entry;
    entry.name = name;
    entry.data = QByteArray(int(count), '\0');
    entry.stored = Deflated(entry.data);
    const QByteArray emptyBlock("\0\0\0\xff\xff", 5);
    if (storedSize > 0)
        entry.stored->prepend(emptyBlock.repeated((storedSize - entry.stored->size()) / emptyBlock.size()));
    return entry;
}

/// An archive whose entries' missing stored bytes, and \a gap bytes in front of its directory, are zeros.
void Write(SparseDevice &device, QList<ArchiveEntry> entries, qint64 gap = 0)
{
    QList<QByteArray> heads;
    QList<qint64> missing;
    qint64 offset = 0;
    for (ArchiveEntry &entry : entries) {
        const QByteArray whole = MakeArchive({entry});
        heads.append(whole.left(whole.indexOf("PK\x01\x02")));
        missing.append(entry.storedSize ? *entry.storedSize - entry.stored->size() : 0);
        entry.offset = quint32(offset);
        offset += heads.last().size() + missing.last();
    }
    ArchiveShape shape;
    shape.directoryOffset = quint32(offset + gap);
    const QByteArray whole = MakeArchive(entries, shape);
    for (int i = 0; i < entries.size(); ++i) {
        device.Append(heads.at(i));
        device.AppendZeros(missing.at(i));
    }
    device.AppendZeros(gap);
    device.Append(whole.mid(whole.indexOf("PK\x01\x02")));
    device.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

} // namespace

/// Each limit, with the last archive that keeps it and the first that does not.
class tst_ZipInspection : public TestCase
{
    Q_OBJECT

    /// What is wrong with the archive, or an empty text.
    static QString ReasonAgainst(const QList<ArchiveEntry> &entries, qint64 gap = 0)
    {
        SparseDevice device;
        Write(device, entries, gap);
        const ZipInspection inspection = InspectZip(device);
        if (inspection.verdict == ZipInspection::Sound && inspection.entries.size() == entries.size())
            return QString();
        return inspection.verdict == ZipInspection::Refused ? inspection.reason : QStringLiteral("no archive");
    }
    /// The size of the archive of these entries.
    static qint64 SizeOf(const QList<ArchiveEntry> &entries)
    {
        SparseDevice device;
        Write(device, entries);
        return device.size();
    }

private Q_SLOTS:
    void an_entry_holds_up_to_512_mib()
    {
        QCOMPARE(ReasonAgainst({StoredZeros("a", 512 * kMiB)}), QString());
        QCOMPARE(ReasonAgainst({StoredZeros("a", 512 * kMiB + 1)}), QStringLiteral("an entry is too large"));
    }

    void all_entries_hold_up_to_1_gib()
    {
        const QList<ArchiveEntry> most{StoredZeros("a", 512 * kMiB), StoredZeros("b", 512 * kMiB)};
        QCOMPARE(ReasonAgainst(most), QString());
        QCOMPARE(ReasonAgainst(most + QList<ArchiveEntry>{StoredZeros("c", 1)}), QStringLiteral("the entries are too large in all"));
    }

    void an_archive_has_less_than_2_gib()
    {
        const QList<ArchiveEntry> entries{StoredZeros("a", 1)};
        const qint64 gap = 2048 * kMiB - 1 - SizeOf(entries);
        QCOMPARE(ReasonAgainst(entries, gap), QString());
        QCOMPARE(ReasonAgainst(entries, gap + 1), QStringLiteral("it is too large"));
    }

    void an_archive_has_up_to_4096_entries()
    {
        QList<ArchiveEntry> entries;
        for (int i = 0; i < 4096; ++i)
            entries.append(StoredZeros(QByteArray::number(i), 0));
        QCOMPARE(ReasonAgainst(entries), QString());
        QCOMPARE(ReasonAgainst(entries + QList<ArchiveEntry>{StoredZeros("last", 0)}), QStringLiteral("too many entries"));
    }

    void an_entry_of_up_to_8_mib_expands_as_it_likes()
    {
        QCOMPARE(ReasonAgainst({DeflatedZeros("a", 8 * kMiB)}), QString());
        QCOMPARE(ReasonAgainst({DeflatedZeros("a", 8 * kMiB + 1)}), QStringLiteral("an entry expands too much"));
    }

    void a_larger_entry_expands_300_times()
    {
        // Zeros that make up 300 times the stream, which is lengthened by five bytes at a time.
        int storedSize = 30000;
        while ((storedSize - DeflatedZeros("a", 300 * storedSize + 299).stored->size()) % 5 != 0)
            ++storedSize;
        ArchiveEntry entry = DeflatedZeros("a", 300 * storedSize + 299, storedSize);
        QCOMPARE(entry.stored->size(), storedSize);
        QCOMPARE(ReasonAgainst({entry}), QString());
        entry.size = quint32(300 * (storedSize + 1));
        QCOMPARE(ReasonAgainst({entry}), QStringLiteral("an entry expands too much"));
    }

    void entries_of_up_to_8_mib_in_all_expand_as_they_like()
    {
        const QList<ArchiveEntry> entries{DeflatedZeros("a", 4 * kMiB), DeflatedZeros("b", 4 * kMiB)};
        QCOMPARE(ReasonAgainst(entries), QString());
        QCOMPARE(ReasonAgainst(entries + QList<ArchiveEntry>{StoredZeros("c", 1)}), QStringLiteral("the entries expand too much in all"));
    }

    void more_entries_expand_300_times_in_all()
    {
        const QList<ArchiveEntry> entries{DeflatedZeros("a", 6 * kMiB), DeflatedZeros("b", 6 * kMiB)};
        const qint64 smallest = 12 * kMiB / 300;
        const qint64 gap = smallest - SizeOf(entries);
        QVERIFY(gap > 0);
        QCOMPARE(ReasonAgainst(entries, gap), QString());
        QCOMPARE(ReasonAgainst(entries, gap - 1), QStringLiteral("the entries expand too much in all"));
    }

    void an_entry_needs_version_45_at_most_whatever_the_system_beside_it()
    {
        ArchiveEntry entry = StoredZeros("a", 1);
        for (const int system : {0, 3, 255}) {
            entry.needs = quint16((system << 8) | 45);
            QCOMPARE(ReasonAgainst({entry}), QString());
        }
        entry.needs = 46;
        QCOMPARE(ReasonAgainst({entry}), QStringLiteral("an entry is of an unknown kind"));
    }

    void an_archive_ends_with_a_comment_of_up_to_65535_bytes()
    {
        const auto verdict = [](int trailer) {
            ArchiveShape shape;
            shape.trailer = QByteArray(trailer, 'c');
            SparseDevice device;
            device.Append(MakeArchive({StoredZeros("a", 0)}, shape));
            device.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
            return InspectZip(device).verdict;
        };
        QCOMPARE(verdict(65535), ZipInspection::Sound);
        QCOMPARE(verdict(65536), ZipInspection::NoArchive);
    }

    void data_reach_up_to_the_directory()
    {
        ArchiveEntry entry = StoredZeros("a", 100);
        SparseDevice device;
        Write(device, {entry});
        QCOMPARE(InspectZip(device).verdict, ZipInspection::Sound);
        entry.stored = QByteArray(99, '\0'); // one is missing in front of the directory
        SparseDevice shorter;
        shorter.Append(MakeArchive({entry}));
        shorter.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        QCOMPARE(InspectZip(shorter).reason, QStringLiteral("an entry reaches into the directory"));
    }
};

VELMORA_BARE_TEST_MAIN(tst_ZipInspection)
#include "tst_ZipInspection.moc"
