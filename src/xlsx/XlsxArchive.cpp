#include "xlsx/XlsxArchive_p.h"

#include "xlsx/ZipInspection_p.h"

#include <QBuffer>

#include <algorithm>
#include <memory>

#include <zip.h>

namespace Velmora {

namespace {

/// The first day that an archive can tell: entries that are made have this time, so that equal workbooks have equal bytes.
constexpr zip_uint16_t kFirstTime = 0;
constexpr zip_uint16_t kFirstDay = (1 << 5) | 1;
/// Of deflate: libzip's own choice takes eight times as long for a hundredth of the size.
constexpr zip_uint32_t kLevel = 6;

struct DiscardArchive
{
    void operator()(zip_t *archive) const { zip_discard(archive); }
};
struct FreeSource
{
    void operator()(zip_source_t *source) const { zip_source_free(source); }
};
using Archive = std::unique_ptr<zip_t, DiscardArchive>;
using Source = std::unique_ptr<zip_source_t, FreeSource>;

Source SourceOf(const QByteArray &bytes)
{
    return Source(zip_source_buffer_create(bytes.constData(), zip_uint64_t(bytes.size()), 0, nullptr));
}

/// An archive takes over the source that it is opened from.
Archive OpenArchive(zip_source_t *source, int flags)
{
    zip_source_keep(source);
    Archive archive(zip_open_from_source(source, flags, nullptr));
    if (!archive)
        zip_source_free(source);
    return archive;
}

/// Takes over \a source; a null one fails.
bool Add(zip_t *archive, const QByteArray &name, Source source)
{
    const zip_flags_t encoding = QString::fromUtf8(name).toUtf8() == name ? ZIP_FL_ENC_UTF_8 : ZIP_FL_ENC_CP437;
    if (!source || zip_file_add(archive, name.constData(), source.get(), encoding) < 0)
        return false;
    source.release();
    return true;
}

bool AddNew(zip_t *archive, const QByteArray &name, const QByteArray &data)
{
    const zip_int64_t index = zip_get_num_entries(archive, 0);
    return Add(archive, name, Source(zip_source_buffer(archive, data.constData(), zip_uint64_t(data.size()), 0)))
        && zip_set_file_compression(archive, zip_uint64_t(index), ZIP_CM_DEFLATE, kLevel) == 0
        && zip_file_set_dostime(archive, zip_uint64_t(index), kFirstTime, kFirstDay, 0) == 0;
}

/// Compressed, as it is.
bool AddCopy(zip_t *archive, const QByteArray &name, zip_t *from, int index)
{
    if (name.endsWith('/'))
        return zip_dir_add(archive, name.constData(), ZIP_FL_ENC_GUESS) >= 0;
    return Add(archive, name, Source(zip_source_zip(archive, from, zip_uint64_t(index), ZIP_FL_COMPRESSED, 0, -1)));
}

bool ReadAll(zip_source_t *source, QByteArray &bytes)
{
    zip_stat_t stat;
    if (zip_source_stat(source, &stat) != 0 || !(stat.valid & ZIP_STAT_SIZE) || stat.size > ZipLimits::kArchiveBytes)
        return false;
    bytes = QByteArray(int(stat.size), Qt::Uninitialized);
    if (zip_source_open(source) != 0)
        return false;
    const zip_int64_t read = zip_source_read(source, bytes.data(), stat.size);
    zip_source_close(source);
    return read == zip_int64_t(stat.size);
}

/// What a file that is no archive is, in a user's words.
TemplateFault FaultOfOtherFile(const QByteArray &bytes)
{
    const auto fault = [](const QString &text) { return TemplateFault{XlsxTemplate::Error::FormatError, text}; };
    if (bytes.isEmpty())
        return fault(QCoreApplication::translate("XlsxTemplate", "The file is empty."));
    if (bytes.startsWith("PK"))
        return fault(QCoreApplication::translate("XlsxTemplate", "The file is damaged: its end is missing."));
    if (bytes.startsWith("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1")) {
        // The old binary format and encrypted workbooks are both compound files, in which names are UTF-16.
        const QString encrypted = QStringLiteral("EncryptedPackage");
        const QByteArray name(reinterpret_cast<const char *>(encrypted.utf16()), 2 * encrypted.size());
        return fault(
            bytes.contains(name)
                ? QCoreApplication::translate("XlsxTemplate", "The workbook is protected by a password. Save it without one.")
                : QCoreApplication::translate("XlsxTemplate", "This is a workbook in the old binary format (.xls). Save it as .xlsx."));
    }
    if (bytes.left(1024).contains('\0'))
        return fault(QCoreApplication::translate("XlsxTemplate", "This is not a workbook (.xlsx)."));
    return fault(
        QCoreApplication::translate("XlsxTemplate", "This is a text file, such as comma-separated values, not a workbook (.xlsx)."));
}

} // namespace

struct XlsxArchive::Reader
{
    Source source;
    Archive archive;

    /// True if libzip sees the entries that were looked through: an archive may hold more than one directory.
    bool Has(const QVector<ZipEntry> &entries) const
    {
        if (zip_get_num_entries(archive.get(), 0) != entries.size())
            return false;
        for (int i = 0; i < entries.size(); ++i) {
            zip_stat_t stat;
            if (zip_stat_index(archive.get(), zip_uint64_t(i), ZIP_FL_ENC_RAW, &stat) != 0 || entries.at(i).name != stat.name
                || qint64(stat.size) != entries.at(i).size)
                return false;
        }
        return true;
    }
};

TemplateFault XlsxArchive::Open(const QByteArray &bytes)
{
    const auto refuse = [](const QString &reason) {
        return TemplateFault{XlsxTemplate::Error::FormatError,
                             QCoreApplication::translate("XlsxTemplate", "The file is not read: %1.").arg(reason)};
    };
    QBuffer device;
    device.setData(bytes);
    device.open(QIODevice::ReadOnly);
    const ZipInspection inspection = InspectZip(device, ZipData::Unread);
    if (inspection.verdict == ZipInspection::NoArchive)
        return FaultOfOtherFile(bytes);
    if (inspection.verdict == ZipInspection::Refused)
        return refuse(inspection.reason);

    m_bytes = bytes;
    m_reader = std::make_shared<Reader>();
    m_reader->source = SourceOf(m_bytes);
    m_reader->archive = OpenArchive(m_reader->source.get(), ZIP_RDONLY);
    if (!m_reader->archive || !m_reader->Has(inspection.entries))
        return refuse(QStringLiteral("the directory is damaged"));
    m_entries.clear();
    for (const ZipEntry &entry : inspection.entries)
        m_entries.push_back({entry.name.toStdString(), entry.size});
    return {};
}

bool XlsxArchive::Read(int index, QByteArray &data) const
{
    using File = std::unique_ptr<zip_file_t, int (*)(zip_file_t *)>;
    const File file(zip_fopen_index(m_reader->archive.get(), zip_uint64_t(index), 0), zip_fclose);
    if (!file)
        return false;
    const qint64 size = m_entries[std::size_t(index)].size;
    data = QByteArray(int(size), Qt::Uninitialized);
    qint64 read = 0;
    while (read < size) {
        const zip_int64_t piece = zip_fread(file.get(), data.data() + read, zip_uint64_t(size - read));
        if (piece <= 0)
            return false;
        read += piece;
    }
    // At the end, and not before, libzip compares the checksum.
    char more = 0;
    return zip_fread(file.get(), &more, 1) == 0;
}

TemplateFault XlsxArchive::Written(const Changes &changes, QByteArray &bytes) const
{
    const TemplateFault fault{XlsxTemplate::Error::LimitError,
                              QCoreApplication::translate("XlsxTemplate", "The workbook cannot be packed: it is too large, or damaged.")};
    const Source target(zip_source_buffer_create(nullptr, 0, 0, nullptr));
    Archive archive = target ? OpenArchive(target.get(), ZIP_TRUNCATE) : nullptr;
    if (!archive)
        return fault;
    for (int index = 0; index < int(m_entries.size()); ++index) {
        const QByteArray name = QByteArray::fromStdString(m_entries[std::size_t(index)].name);
        if (std::find(changes.removed.begin(), changes.removed.end(), index) != changes.removed.end())
            continue;
        const auto replaced = changes.replaced.find(index);
        if (replaced == changes.replaced.end() ? !AddCopy(archive.get(), name, m_reader->archive.get(), index)
                                               : !AddNew(archive.get(), name, replaced->second))
            return fault;
    }
    for (const auto &[name, data] : changes.added) {
        if (!AddNew(archive.get(), QByteArray::fromStdString(name), data))
            return fault;
    }
    if (zip_close(archive.get()) != 0)
        return fault;
    archive.release(); // is gone with its closing
    return ReadAll(target.get(), bytes) ? TemplateFault() : fault;
}

} // namespace Velmora
