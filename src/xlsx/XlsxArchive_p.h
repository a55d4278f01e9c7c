#pragma once

#include "xlsx/TemplateFault_p.h"

#include <QByteArray>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Velmora {

/// A ZIP archive in memory, read and written by libzip once it was looked through and found to keep within the limits.
class XlsxArchive
{
public:
    struct Entry
    {
        std::string name;
        qint64 size = 0; ///< unpacked
    };
    /// What is to differ in an archive that is written. Entries are named by their indices.
    struct Changes
    {
        std::map<int, QByteArray> replaced;
        std::vector<int> removed;
        std::map<std::string, QByteArray> added;
    };

    TemplateFault Open(const QByteArray &bytes);
    const std::vector<Entry> &Entries() const { return m_entries; }
    /// Inflates an entry; false if its data are damaged.
    bool Read(int index, QByteArray &data) const;
    /// The archive's bytes, changed. What stays is copied compressed, in its order; \a changes must live until this returns.
    TemplateFault Written(const Changes &changes, QByteArray &bytes) const;

private:
    struct Reader;

    QByteArray m_bytes;
    std::vector<Entry> m_entries;
    std::shared_ptr<Reader> m_reader;
};

} // namespace Velmora
