#pragma once

#include "xlsx/CellReference_p.h"
#include "xlsx/XmlPart_p.h"

#include <map>
#include <string>
#include <unordered_map>

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

    /// To be told after rows or cells were put in, taken out or renumbered by hand: they are looked through anew.
    void ForgetRows();

    /// What is merged with others, in document order. To be asked anew after ForgetRows().
    const std::vector<CellRange> &MergedCells();

private:
    static int NumberOfRow(const pugi::xml_node &row, int next);
    static int ColumnOfCell(const pugi::xml_node &cell, int next);
    std::map<int, pugi::xml_node> &Rows();

    std::string m_name;
    std::string m_partName;
    XmlPart &m_part;
    pugi::xml_node m_sheetData;
    std::map<int, pugi::xml_node> m_rows;
    bool m_rowsAreKnown = false;
    std::vector<CellRange> m_mergedCells;
    bool m_mergedCellsAreKnown = false;
};

} // namespace Velmora
