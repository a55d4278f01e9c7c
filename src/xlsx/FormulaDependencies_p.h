#pragma once

#include "xlsx/Formula_p.h"
#include "xlsx/RangeIndex_p.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Velmora {

/// Which formulas of a workbook may have another result once some of its cells have changed. Where that cannot be told, or only at a
/// great cost, they may.
class FormulaDependencies
{
public:
    explicit FormulaDependencies(const std::vector<std::string> &sheetNames);

    // Names and tables first.
    void AddName(std::string_view name, int localSheet, std::string_view text);
    void AddTable(std::string_view name, int sheet, const CellRange &range);
    /// The cells that a formula fills: one, or those of an array formula. Formulas are counted from 0 in the order of their adding.
    void AddFormula(int sheet, const CellRange &cells, std::string_view text);
    /// A formula of which it cannot be told what it uses.
    void AddVolatileFormula(int sheet, const CellRange &cells);
    /// What shows cells beside formulas, and has none of its own. Counted with the formulas.
    void AddView(std::string_view text);

    void AddChange(int sheet, const CellRange &cells);
    /// By the number of the formula; to be called once.
    std::vector<bool> Stale();

private:
    struct Node ///< a formula, a view or a name
    {
        int sheet = -1; ///< of a formula
        CellRange cells;
        int name = -1; ///< the number of the name
        bool isStale = false;
    };
    struct Name
    {
        int node;
        std::string text;
        std::vector<int> users; ///< nodes
    };
    struct Cells
    {
        int sheet;
        CellRange range;
    };
    using Numbers = std::unordered_map<std::string, int>; ///< by folded name

    void AddUses(int node, std::string_view text);
    void AddRanges(int node, const FormulaUse &use);
    bool AddName(int node, const FormulaUse &use);
    bool AddTable(int node, const FormulaUse &use);
    void AddRange(int node, int sheet, const CellRange &range);
    void SetStale(int node);
    bool Follow();
    int SheetIndex(const std::string &name) const;

    std::vector<Node> m_nodes;
    std::vector<int> m_formulas; ///< their nodes
    std::vector<Name> m_names;
    std::vector<Numbers> m_nameNumbers; ///< those of each sheet, then those of the workbook
    std::vector<Cells> m_tables;
    Numbers m_tableNumbers;
    Numbers m_sheetNumbers;
    std::vector<RangeIndex> m_used; ///< by sheet: what is used, with the node that does
    std::vector<int> m_volatile;    ///< nodes
    std::vector<Cells> m_changes;   ///< to be followed
    std::size_t m_useCount = 0;
};

} // namespace Velmora
