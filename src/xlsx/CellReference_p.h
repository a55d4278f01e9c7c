#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Velmora {

// Places of a workbook as its parts write them. All texts are UTF-8.

constexpr int kLastRow = 1048576;
constexpr int kLastColumn = 16384;

/// A rectangle of cells, counted from 1. Whole columns reach from row 1 to kLastRow, whole rows from column 1 to kLastColumn.
struct CellRange
{
    int firstRow = 0;
    int lastRow = 0;
    int firstColumn = 0;
    int lastColumn = 0;

    bool IsCell() const { return firstRow == lastRow && firstColumn == lastColumn; }
    bool HasWholeColumns() const { return firstRow == 1 && lastRow == kLastRow; }
    bool HasWholeRows() const { return firstColumn == 1 && lastColumn == kLastColumn; }
    int RowCount() const { return lastRow - firstRow + 1; }
    int ColumnCount() const { return lastColumn - firstColumn + 1; }
    bool Contains(int row, int column) const { return row >= firstRow && row <= lastRow && column >= firstColumn && column <= lastColumn; }
    bool Intersects(const CellRange &other) const
    {
        return firstRow <= other.lastRow && other.firstRow <= lastRow && firstColumn <= other.lastColumn && other.firstColumn <= lastColumn;
    }
    bool operator==(const CellRange &other) const
    {
        return firstRow == other.firstRow && lastRow == other.lastRow && firstColumn == other.firstColumn && lastColumn == other.lastColumn;
    }
    bool operator!=(const CellRange &other) const { return !(*this == other); }
};

/// "A" for 1, "XFD" for 16384; empty for a number outside.
std::string ColumnName(int column);
/// 0 if \a letters, of either case, are no column.
int ColumnNumber(std::string_view letters);

/// Reads A1, $A$1, A1:C3, C3:A1, $A:$C or 3:3, of either case and whole; nothing else. What a reference says of its absoluteness is
/// not kept.
std::optional<CellRange> ParseRange(std::string_view text);
/// Reads blank-separated ranges, as merged cells, validations and formats have them. Nothing if one of them is none.
std::optional<std::vector<CellRange>> ParseRanges(std::string_view text);

/// "A1", "A1:C3", "A:C" or "1:3".
std::string RangeText(const CellRange &range);
/// "$A$1", "$A$1:$C$3", "$A:$C" or "$1:$3".
std::string AbsoluteRangeText(const CellRange &range);
/// Blank-separated.
std::string RangesText(const std::vector<CellRange> &ranges);

/// As it stands in front of an exclamation mark: in apostrophes where it needs them, its own apostrophes doubled.
std::string QuotedSheetName(std::string_view name);
/// Sheets, names and tables are found without regard to case.
bool IsSameName(std::string_view one, std::string_view other);

/// A range of one sheet; the name is empty if the reference has none.
struct SheetRange
{
    std::string sheet;
    CellRange range;

    bool operator==(const SheetRange &other) const { return sheet == other.sheet && range == other.range; }
};

/// Reads Sheet1!$A$1:$B$2 or 'It''s'!$A$1, whole.
std::optional<SheetRange> ParseSheetRange(std::string_view text);

/// What a defined name stands for.
struct NameMeaning
{
    enum class Kind {
        Places,   ///< one range, or several separated by commas
        Constant, ///< a number, a text, a truth value, an error other than #REF!, an array of them
        External, ///< a place in another workbook
        Broken,   ///< #REF!
        Formula   ///< anything else, another name too
    };
    Kind kind = Kind::Formula;
    std::vector<SheetRange> places;
};
NameMeaning MeaningOfName(std::string_view text);

} // namespace Velmora
