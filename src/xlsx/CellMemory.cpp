#include "xlsx/CellMemory_p.h"

#include "xlsx/MemoryBudget_p.h"

namespace Velmora {

namespace {

// The nodes of pugixml, with what their names are written as.
constexpr qint64 kElement = 80;
constexpr qint64 kText = 72;
constexpr qint64 kAttribute = 72;
/// With its place and its type.
constexpr qint64 kCell = kElement + 2 * kAttribute;
/// A row's place in the index, and among what changed.
constexpr qint64 kRowInIndex = 100;

qint64 OfText(std::string_view text)
{
    return text.empty() ? 0 : kText + MemoryBudget::OfText(text);
}

qint64 OfAttribute(std::string_view value)
{
    return kAttribute + MemoryBudget::OfText(value);
}

bool IsContent(const pugi::xml_node &node)
{
    return IsElement(node, "v") || IsElement(node, "is") || IsElement(node, "f");
}

} // namespace

qint64 MemoryOfContent(const CellContent &content)
{
    switch (content.kind) {
    case CellContent::Kind::Nothing:
        return 0;
    case CellContent::Kind::Number:
    case CellContent::Kind::Truth:
        return kElement + OfText(content.text);
    case CellContent::Kind::Text:
        break;
    }
    return 2 * kElement + (content.KeepsItsBlanks() ? OfAttribute("preserve") : 0) + OfText(content.text);
}

qint64 MemoryOfFormula(const std::string &formula)
{
    return kElement + OfText(formula);
}

qint64 MemoryOfElement(const pugi::xml_node &element)
{
    qint64 bytes = kElement + OfText(OwnText(element));
    for (const pugi::xml_attribute &attribute : element.attributes())
        bytes += OfAttribute(attribute.value());
    for (const pugi::xml_node &child : element.children())
        bytes += child.type() == pugi::node_element ? MemoryOfElement(child) : 0; // a part is not that deep
    return bytes;
}

qint64 MemoryOfRow(const pugi::xml_node &row)
{
    return kRowInIndex + MemoryOfElement(row);
}

qint64 MemoryOfContentIn(const pugi::xml_node &cell)
{
    qint64 bytes = 0;
    for (const pugi::xml_node &node : cell.children())
        bytes += IsContent(node) ? MemoryOfElement(node) : 0;
    return bytes;
}

qint64 MemoryMadeIn(const pugi::xml_node &cell)
{
    qint64 bytes = 0;
    for (const pugi::xml_node &node : cell.children())
        bytes += IsContent(node) && node.offset_debug() < 0 ? MemoryOfElement(node) : 0;
    return bytes;
}

void PlannedCells::AddRow(TemplateSheet &sheet, int row)
{
    if ((m_lastSheet == &sheet && m_lastRow == row) || sheet.FindRow(row))
        return;
    m_bytes += kElement + kAttribute + kRowInIndex;
    m_lastSheet = &sheet;
    m_lastRow = row;
}

TemplateFault PlannedCells::Put(int index, int row, int column, qint64 content)
{
    TemplateFault fault;
    TemplateSheet *sheet = m_context.workbook.Sheet(index, fault);
    if (!sheet)
        return fault;
    const pugi::xml_node cell = sheet->FindCell(row, column);
    m_bytes += content - MemoryMadeIn(cell);
    if (!cell && content > 0) {
        m_bytes += kCell;
        AddRow(*sheet, row);
    }
    return Fault();
}

TemplateFault PlannedCells::PutInCopy(int index, int row, int column, qint64 content)
{
    TemplateFault fault;
    TemplateSheet *sheet = m_context.workbook.Sheet(index, fault);
    if (!sheet)
        return fault;
    const pugi::xml_node cell = sheet->FindCell(row, column);
    m_bytes += content - MemoryOfContentIn(cell);
    if (!cell && content > 0)
        m_bytes += kCell;
    return Fault();
}

} // namespace Velmora
