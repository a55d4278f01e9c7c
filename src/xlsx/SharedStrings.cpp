#include "xlsx/SharedStrings_p.h"

namespace Velmora {

namespace {

/// The text of a <t>: blanks at its ends count only where they are said to, but programs keep them all the same.
void AppendText(const pugi::xml_node &parent, std::string &text)
{
    for (pugi::xml_node child = parent.first_child(); child; child = child.next_sibling()) {
        if (IsElement(child, "t"))
            text += OwnText(child);
    }
}

} // namespace

std::string TextOfStringItem(const pugi::xml_node &item)
{
    std::string text;
    AppendText(item, text);
    for (pugi::xml_node run = ChildOf(item, "r"); run; run = NextOfItsName(run))
        AppendText(run, text);
    return text;
}

void SharedStrings::SetPart(XlsxPackage &package, const std::string &part)
{
    m_package = &package;
    m_partName = part;
}

std::string SharedStrings::TextAt(std::size_t index, TemplateFault &fault)
{
    if (!m_isRead) {
        m_isRead = true;
        const XmlPart *part = m_partName.empty() ? nullptr : m_package->Parsed(m_partName, m_fault);
        if (part) {
            for (pugi::xml_node item = ChildOf(part->Root(), "si"); item; item = NextOfItsName(item))
                m_items.push_back(item);
        }
    }
    if (m_fault)
        fault = m_fault;
    return index < m_items.size() ? TextOfStringItem(m_items[index]) : std::string();
}

} // namespace Velmora
