#pragma once

#include "xlsx/CellReference_p.h"
#include "xlsx/RangeIndex_p.h"
#include "xlsx/XmlPart_p.h"

#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Velmora {

class TemplateSheet;

/// The formulas of a sheet that belong to more than one cell: shared ones, array formulas, data tables. Found in one walk, at the first
/// question.
class CellFormulas
{
public:
    explicit CellFormulas(TemplateSheet &sheet);

    /// The range of the array formula or data table that a cell is one of several of; null if there is none.
    const CellRange *GroupAt(int row, int column) const;
    /// Takes the formula out of a cell. If others share it, the next of them has it from now on.
    void RemoveFrom(pugi::xml_node cell, int row, int column);

private:
    using Position = std::pair<int, int>; ///< row, column
    using Cells = std::map<Position, pugi::xml_node>;

    void PassOn(const pugi::xml_node &formula, Position from, Cells &cells);

    TemplateSheet &m_sheet;
    std::unordered_map<std::string, Cells> m_shared; ///< by the number that they share
    std::vector<CellRange> m_groups;
    RangeIndex m_groupIndex;
};

} // namespace Velmora
