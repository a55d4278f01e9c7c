#pragma once

#include "xlsx/CellReference_p.h"
#include "xlsx/RangeIndex_p.h"
#include "xlsx/XmlPart_p.h"

#include <string>
#include <vector>

namespace Velmora {

class TemplateSheet;

/// The validations of a sheet, of which those are lists whose cells take their value from one. They stand in the sheet, or, if they were
/// made by later editions of the format, in its extensions.
class CellLists
{
public:
    explicit CellLists(TemplateSheet &sheet);

    /// What the cell's list takes its entries from, as it reads in that cell: "a,b" in quotes, a range, a name. Empty if there is none.
    std::string SourceAt(int row, int column) const;
    /// True if an empty text counts as a choice.
    bool TakesNothingAt(int row, int column) const;
    /// True if one list serves all cells of the range.
    bool Covers(const CellRange &range) const;
    /// Gives the cells one list, and no other validation. One that serves none but these cells is changed, else a new one made like the
    /// first of theirs. A new object is needed then.
    void SetSource(const std::vector<CellRange> &ranges, const std::string &source);

private:
    struct Validation
    {
        pugi::xml_node node;
        bool isList = false;
        bool isExtension = false;
        std::vector<CellRange> ranges;
    };

    void Add(const pugi::xml_node &container, bool isExtension);
    const Validation *ListAt(int row, int column) const;
    void SetRanges(const Validation &validation, const std::vector<CellRange> &ranges);
    void TakeOut(const Validation &validation);
    void Make(const Validation *model, const std::vector<CellRange> &ranges, const std::string &source);

    TemplateSheet &m_sheet;
    std::vector<Validation> m_validations;
    RangeIndex m_index;
};

} // namespace Velmora
