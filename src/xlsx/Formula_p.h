#pragma once

#include "xlsx/CellReference_p.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Velmora {

// Formulas as parts store them: A1 references, English functions, commas, no leading "=". Every function here takes time linear in
// the text, whatever it holds.

/// One end of a reference as it is written; 0 stands for a row or column that it does not name.
struct ReferenceCorner
{
    int row = 0;
    int column = 0;
    bool isRowFixed = false; ///< behind a dollar sign
    bool isColumnFixed = false;
};

struct FormulaToken
{
    enum class Kind {
        Range,    ///< cells, or whole columns or rows, with what stands in front of them
        Name,     ///< of a place or a formula, a variable too
        Function, ///< its name, without the parenthesis
        Table,    ///< Table1[[#All],[Price]], or [@Price] within a table
        Constant, ///< a number, a text, a truth value, an array
        Error,    ///< #N/A and the like; a reference that is lost, with all that belongs to it
        Blank,
        Other, ///< an operator, a parenthesis, a separator, or what makes no sense; one byte but for broken quotes
    };
    Kind kind = Kind::Other;
    std::string_view text;
    std::string_view prefix; ///< of a range, name or function: the sheet, with its exclamation mark
    ReferenceCorner first;   ///< of a range
    ReferenceCorner last;    ///< the same as first if the range is written as one cell
    bool hasColon = false;   ///< the range is written with two corners

    bool Is(char c) const { return text.size() == 1 && text.front() == c; }
    CellRange Range() const;
};

/// The tokens of a formula one after the other: joined, they are its text.
class FormulaReader
{
public:
    explicit FormulaReader(std::string_view formula);

    /// False at the end.
    bool Next(FormulaToken &token);

private:
    char At(std::size_t position) const { return position < m_text.size() ? m_text[position] : '\0'; }
    std::size_t WordEnd(std::size_t begin);
    std::size_t QuotedEnd(std::size_t begin, char quote) const;
    std::size_t BracketEnd(std::size_t begin) const;
    std::size_t ArrayEnd(std::size_t begin) const;
    std::size_t ErrorEnd(std::size_t begin);
    std::size_t NumberEnd(std::size_t begin) const;
    std::size_t PrefixEnd(std::size_t begin);
    bool ReadRange(std::size_t begin, FormulaToken &token, std::size_t &end);
    std::size_t ReadPrefixed(std::size_t begin, std::size_t bodyBegin, FormulaToken &token);
    std::size_t ReadWord(std::size_t begin, FormulaToken &token);

    std::string_view m_text;
    std::size_t m_position = 0;
    std::size_t m_wordBegin = 0; // the word looked at last, so that none is measured twice
    std::size_t m_wordEnd = 0;
};

/// Which sheets the text in front of an exclamation mark names.
struct SheetPrefix
{
    std::string first; ///< empty: the formula's own
    std::string last;  ///< of a run of sheets, else empty
    bool isExternal = false;
};
SheetPrefix ReadSheetPrefix(std::string_view prefix);

/// What a formula takes its result from.
struct FormulaUse
{
    enum class Kind {
        Range,
        Name,
        Table,      ///< the name is empty for the table in which the formula stands
        Everything, ///< cannot be told: a volatile function, or a range between what is calculated
    };
    Kind kind = Kind::Everything;
    SheetPrefix sheet;
    CellRange range;
    std::string_view name; ///< in the formula's text
};
/// Places in other workbooks are left out: they do not change.
std::vector<FormulaUse> References(std::string_view formula);

/// The rows first to last become so many as count says: rows come behind them, like the last, or the last of them go. What is below
/// moves.
struct RowMove
{
    std::string sheet;
    int first = 0;
    int last = 0;
    int count = 0;

    int Shift() const { return count - (last - first + 1); }
    /// Where a row goes; 0 if it is one of those that go away.
    int Moved(int row) const;
    /// Where a range goes, nothing if all of it goes away. One that ends at the last of the rows grows with them if \a grows.
    std::optional<CellRange> Moved(const CellRange &range, bool grows = true) const;
};

/// Which references to the last of the rows grow with them.
enum class Growth {
    None,
    Fixed,  ///< ranges with both rows behind dollar signs: those of formulas in the rows themselves, which else mean their own row
    Ranges, ///< ranges written with two corners, and single cells that are an argument of SUM, COUNT or the like
    All,    ///< single cells as well
};

/// The formula after the move, nothing if it stays as it is. Without a sheet a reference means \a ownSheet. What is lost becomes
/// #REF!, as spreadsheet programs do it, but an argument of SUM becomes 0: the total over no entry. References to a run of sheets
/// stay, as they do in these programs.
std::optional<std::string> MovedByRows(std::string_view formula, std::string_view ownSheet, const RowMove &move, Growth growth);

/// The formula as it reads \a rows and \a columns further on: relative references move along, and those that leave the sheet become
/// #REF!.
std::string Translated(std::string_view formula, int rows, int columns);

} // namespace Velmora
