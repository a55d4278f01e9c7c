#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>

#include <optional>

namespace VelmoraTest {

/// One entry of an archive to be made. What is left unset is filled in truthfully; what is set is written as it stands, true or not.
struct ArchiveEntry
{
    QByteArray name;
    QByteArray data;
    quint16 method = 8;
    quint16 flags = 0;
    quint16 madeBy = (3 << 8) | 20; ///< Unix
    quint16 needs = 20;
    quint32 attributes = 0100644U << 16;

    std::optional<QByteArray> stored; ///< the bytes that lie in the archive
    std::optional<quint32> size;
    std::optional<quint32> storedSize;
    std::optional<quint32> checksum;
    std::optional<quint32> offset;
    std::optional<QByteArray> localName;
    std::optional<quint16> localMethod;
    QByteArray localExtra;

    static ArchiveEntry Directory(const QByteArray &name);
    static ArchiveEntry Link(const QByteArray &name, const QByteArray &target);
};

struct ArchiveShape
{
    QByteArray prefix; ///< offsets count from its begin
    QByteArray comment;
    QByteArray trailer;
    std::optional<quint16> count;
    std::optional<quint32> directoryOffset;
    std::optional<quint32> directorySize;
};

QByteArray MakeArchive(const QList<ArchiveEntry> &entries, const ArchiveShape &shape = {});
/// From name and data, in the map's order.
QByteArray MakeArchive(const QMap<QByteArray, QByteArray> &parts);

/// The names of an archive that the library wrote, in the directory's order.
QList<QByteArray> ArchiveNames(const QByteArray &archive);
/// The entries of any bytes, as far as they are an archive, each with at most \a mostBytes of data.
QList<ArchiveEntry> ReadEntries(const QByteArray &archive, int mostBytes);
/// Its files; directories are left out.
QMap<QByteArray, QByteArray> ReadArchive(const QByteArray &archive);

QByteArray Deflated(const QByteArray &data);
/// Bytes that cannot be deflated, always the same.
QByteArray Noise(int size);

} // namespace VelmoraTest
