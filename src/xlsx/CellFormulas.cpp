#include "xlsx/CellFormulas_p.h"

#include "xlsx/Formula_p.h"
#include "xlsx/TemplateSheet_p.h"

#include <algorithm>

namespace Velmora {

namespace {

bool IsShared(const pugi::xml_node &formula)
{
    return std::strcmp(AttributeOf(formula, "t").value(), "shared") == 0;
}

bool IsOfAGroup(const pugi::xml_node &formula)
{
    const char *type = AttributeOf(formula, "t").value();
    return std::strcmp(type, "array") == 0 || std::strcmp(type, "dataTable") == 0;
}

} // namespace

CellFormulas::CellFormulas(TemplateSheet &sheet)
    : m_sheet(sheet)
{
    sheet.ForEachCell([this](const pugi::xml_node &cell, int row, int column) {
        const pugi::xml_node formula = ChildOf(cell, "f");
        if (!formula)
            return;
        if (IsShared(formula)) {
            m_shared[AttributeOf(formula, "si").value()].emplace(Position(row, column), cell);
        } else if (IsOfAGroup(formula)) {
            const auto range = ParseRange(AttributeOf(formula, "ref").value());
            if (range && !range->IsCell()) {
                m_groupIndex.Add(*range, int(m_groups.size()));
                m_groups.push_back(*range);
            }
        }
    });
    m_groupIndex.Build();
}

const CellRange *CellFormulas::GroupAt(int row, int column) const
{
    const CellRange *found = nullptr;
    m_groupIndex.ForEachMeeting({row, row, column, column}, [&](int group) { found = &m_groups[std::size_t(group)]; });
    return found;
}

void CellFormulas::RemoveFrom(pugi::xml_node cell, int row, int column)
{
    const pugi::xml_node formula = ChildOf(cell, "f");
    if (!formula)
        return;
    if (IsShared(formula)) {
        const auto shared = m_shared.find(AttributeOf(formula, "si").value());
        if (shared != m_shared.end()) {
            shared->second.erase({row, column});
            if (!OwnText(formula).empty() && !shared->second.empty())
                PassOn(formula, {row, column}, shared->second);
        }
    }
    cell.remove_child(formula);
}

void CellFormulas::PassOn(const pugi::xml_node &formula, Position from, Cells &cells)
{
    // Only cells that have no text of their own take it from here.
    const auto heir = std::find_if(cells.begin(), cells.end(), [](const auto &cell) { return OwnText(ChildOf(cell.second, "f")).empty(); });
    if (heir == cells.end())
        return;
    const auto [position, cell] = *heir;
    CellRange range{position.first, position.first, position.second, position.second};
    for (const auto &[at, other] : cells) {
        range.firstRow = std::min(range.firstRow, at.first);
        range.lastRow = std::max(range.lastRow, at.first);
        range.firstColumn = std::min(range.firstColumn, at.second);
        range.lastColumn = std::max(range.lastColumn, at.second);
    }
    pugi::xml_node theirs = ChildOf(cell, "f");
    SetAttribute(theirs, "ref", RangeText(range).c_str());
    SetOwnText(theirs, Translated(OwnText(formula), position.first - from.first, position.second - from.second));
    m_sheet.CellChanged(cell);
}

} // namespace Velmora
