#pragma once

#include "xlsx/CellReference_p.h"
#include "xlsx/RangeIndex_p.h"
#include "xlsx/XmlPart_p.h"

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Velmora {

/// A parsed worksheet: its rows and cells by number, whether or not they say which they are.
class TemplateSheet
{
public:
    TemplateSheet(std::string name, std::string partName, XmlPart &part);

    const std::string &Name() const { return m_name; }
    const std::string &PartName() const { return m_partName; }
    XmlPart &Part() const { return m_part; }
    pugi::xml_node Worksheet() const { return m_part.Root(); }
    pugi::xml_node SheetData() const { return m_sheetData; }

    /// Empty if there is none. Looking from left to right and down is fastest.
    pugi::xml_node FindRow(int row);
    pugi::xml_node FindCell(int row, int column);
    /// An existing cell, or a new one with the style of its row, or else its column. Rows and cells stay in order.
    pugi::xml_node MakeCell(int row, int column);
    /// To be told after each change in a cell.
    void CellChanged(const pugi::xml_node &cell) { m_part.Changed(cell); }

    /// Calls visit(node, row) for each row in document order.
    template <typename Visit>
    void ForEachRow(const Visit &visit) const
    {
        int number = 0;
        for (pugi::xml_node row = ChildOf(m_sheetData, "row"); row; row = NextOfItsName(row)) {
            number = NumberOfRow(row, number + 1);
            visit(row, number);
        }
    }
    /// Calls visit(node, column) for each cell of a row in document order.
    template <typename Visit>
    static void ForEachCellOf(const pugi::xml_node &row, const Visit &visit)
    {
        int column = 0;
        for (pugi::xml_node cell = ChildOf(row, "c"); cell; cell = NextOfItsName(cell)) {
            column = ColumnOfCell(cell, column + 1);
            visit(cell, column);
        }
    }
    /// Calls visit(node, row, column) for each cell in document order.
    template <typename Visit>
    void ForEachCell(const Visit &visit) const
    {
        ForEachRow([&visit](const pugi::xml_node &node, int row) {
            ForEachCellOf(node, [&visit, row](const pugi::xml_node &cell, int column) { visit(cell, row, column); });
        });
    }

    /// Calls visit(node, row, column) for each cell of the range, until it returns false. Of two rows of one number the first counts.
    template <typename Visit>
    void ForEachCellIn(const CellRange &range, const Visit &visit)
    {
        const std::map<int, pugi::xml_node> &rows = TheIndex().rows;
        for (auto row = rows.lower_bound(range.firstRow); row != rows.end() && row->first <= range.lastRow; ++row) {
            int column = 0;
            for (pugi::xml_node cell = ChildOf(row->second, "c"); cell; cell = NextOfItsName(cell)) {
                column = ColumnOfCell(cell, column + 1);
                if (range.Contains(row->first, column) && !visit(cell, row->first, column))
                    return;
            }
        }
    }

    /// To be told after rows, cells or merged cells were put in, taken out or renumbered by hand: they are looked through anew.
    void ForgetRows() { m_index.reset(); }

    /// What is merged, in document order.
    const std::vector<CellRange> &MergedCells();
    /// The merged cells that a cell is one of, or null.
    const CellRange *MergeAt(int row, int column);

private:
    using Cells = std::vector<std::pair<int, pugi::xml_node>>; ///< of a row by column

    /// What the sheet says of itself, found when asked for.
    struct Index
    {
        std::map<int, pugi::xml_node> rows;
        std::vector<CellRange> merges;
        RangeIndex mergeIndex;
        std::vector<std::pair<CellRange, std::string>> columnStyles;
        CellRange dimension;
        pugi::xml_node dimensionNode;
        Cells cells; ///< of the row that was asked for last
        int rowOfCells = 0;
        std::unordered_map<int, Cells> longRows;
    };

    static int NumberOfRow(const pugi::xml_node &row, int next);
    static int ColumnOfCell(const pugi::xml_node &cell, int next);
    Index &TheIndex();
    void ReadMerges(Index &index) const;
    void ReadColumns(Index &index) const;
    Cells &CellsOf(int number, const pugi::xml_node &row);
    pugi::xml_node MakeRow(int row);
    std::string StyleOfNewCell(const pugi::xml_node &row, int column);
    void WidenDimension(int row, int column);

    std::string m_name;
    std::string m_partName;
    XmlPart &m_part;
    pugi::xml_node m_sheetData;
    std::unique_ptr<Index> m_index;
};

} // namespace Velmora
