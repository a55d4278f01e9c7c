#pragma once

#include "xlsx/XlsxPackage_p.h"

#include <string>
#include <vector>

namespace Velmora {

/// The texts that cells refer to by number. Read only: new texts stand in their cells, which leaves this part as it is.
class SharedStrings
{
public:
    /// \a part is empty if the workbook has none.
    void SetPart(XlsxPackage &package, const std::string &part);
    /// As it reads, without phonetic hints, of all its runs; empty beyond the table.
    std::string TextAt(std::size_t index, TemplateFault &fault);

private:
    XlsxPackage *m_package = nullptr;
    std::string m_partName;
    bool m_isRead = false;
    TemplateFault m_fault;
    std::vector<pugi::xml_node> m_items;
};

/// The text of an element of shared or inline strings: its runs, joined, without phonetic hints.
std::string TextOfStringItem(const pugi::xml_node &item);

} // namespace Velmora
