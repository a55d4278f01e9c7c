#include "xlsx/CellReference_p.h"

#include <QString>

#include <algorithm>
#include <utility>

namespace Velmora {

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

std::string_view Trimmed(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

QString ToQString(std::string_view text)
{
    return QString::fromUtf8(text.data(), int(text.size()));
}

/// One corner: a column, a row, or both; 0 stands for none.
struct Corner
{
    int row = 0;
    int column = 0;
};

/// Takes a row's number from the begin of \a text; 0 if none is there.
int TakeRow(std::string_view &text)
{
    int row = 0;
    std::size_t count = 0;
    for (; count < text.size() && IsDigit(text[count]); ++count) {
        row = row * 10 + (text[count] - '0');
        if (row > kLastRow || (count == 0 && row == 0))
            return 0;
    }
    text.remove_prefix(count);
    return row;
}

int TakeColumn(std::string_view &text)
{
    std::size_t count = 0;
    while (count < text.size() && IsLetter(text[count]))
        ++count;
    const int column = ColumnNumber(text.substr(0, count));
    text.remove_prefix(count);
    return column;
}

bool TakeDollar(std::string_view &text)
{
    const bool isThere = !text.empty() && text.front() == '$';
    text.remove_prefix(isThere ? 1 : 0);
    return isThere;
}

/// Reads a corner from the begin of \a text.
std::optional<Corner> TakeCorner(std::string_view &text)
{
    Corner corner;
    bool hasDollar = TakeDollar(text);
    if (!text.empty() && IsLetter(text.front())) {
        corner.column = TakeColumn(text);
        if (corner.column == 0)
            return std::nullopt;
        hasDollar = TakeDollar(text);
    }
    if (!text.empty() && IsDigit(text.front())) {
        corner.row = TakeRow(text);
        if (corner.row == 0)
            return std::nullopt;
    } else if (hasDollar) {
        return std::nullopt;
    }
    if (corner.row == 0 && corner.column == 0)
        return std::nullopt;
    return corner;
}

CellRange RangeBetween(Corner one, Corner other)
{
    if (one.row > other.row)
        std::swap(one.row, other.row);
    if (one.column > other.column)
        std::swap(one.column, other.column);
    CellRange range{one.row, other.row, one.column, other.column};
    if (range.firstRow == 0)
        range.firstRow = 1, range.lastRow = kLastRow;
    if (range.firstColumn == 0)
        range.firstColumn = 1, range.lastColumn = kLastColumn;
    return range;
}

/// Takes the name of a sheet and its exclamation mark from the begin of \a text, empty if there is none.
std::optional<std::string> TakeSheet(std::string_view &text)
{
    std::string sheet;
    std::size_t at = 0;
    if (!text.empty() && text.front() == '\'') {
        for (at = 1; at < text.size(); ++at) {
            if (text[at] == '\'') {
                ++at;
                if (at >= text.size() || text[at] != '\'')
                    break;
            }
            sheet += text[at];
        }
        if (at >= text.size() || text[at] != '!' || sheet.empty())
            return std::nullopt;
    } else {
        at = text.find('!');
        if (at == std::string_view::npos)
            return std::string();
        sheet = text.substr(0, at);
        if (sheet.empty() || sheet.find_first_of(" '\"(){},;+-*/^&=<>%#") != std::string::npos)
            return std::nullopt;
    }
    if (sheet.find_first_of("[]:") != std::string::npos) // another workbook, or a run of sheets
        return std::nullopt;
    text.remove_prefix(at + 1);
    return sheet;
}

/// The text without what stands in quotation marks and in the apostrophes of sheet names.
std::string WithoutQuoted(std::string_view text, bool withSheetNames)
{
    std::string bare;
    char quote = 0;
    for (const char c : text) {
        if (quote) {
            if (c == quote)
                quote = 0;
            else if (quote == '\'' && withSheetNames)
                bare += c;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else {
            bare += c;
        }
    }
    return bare;
}

bool IsNumber(std::string_view text)
{
    while (!text.empty() && (text.front() == '-' || text.front() == '+' || text.front() == ' '))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == '%' || text.back() == ' '))
        text.remove_suffix(1);
    if (text.empty() || (!IsDigit(text.front()) && text.front() != '.'))
        return false;
    bool isNumber = false;
    ToQString(text).toDouble(&isNumber);
    return isNumber;
}

bool IsOneString(std::string_view text)
{
    if (text.size() < 2 || text.front() != '"' || text.back() != '"')
        return false;
    text = text.substr(1, text.size() - 2);
    for (std::size_t at = text.find('"'); at != std::string_view::npos; at = text.find('"', at + 2)) {
        if (at + 1 >= text.size() || text[at + 1] != '"')
            return false;
    }
    return true;
}

bool IsConstant(std::string_view text)
{
    if (text.empty() || IsNumber(text) || IsOneString(text))
        return true;
    const auto is = [text](const char *other) { return IsSameName(text, other); };
    if (is("TRUE") || is("FALSE") || is("#N/A") || is("#VALUE!") || is("#NAME?") || is("#DIV/0!") || is("#NUM!") || is("#NULL!"))
        return true;
    return text.front() == '{' && text.back() == '}';
}

std::optional<std::vector<SheetRange>> ParsePlaces(std::string_view text)
{
    if (text.size() > 2 && text.front() == '(' && text.back() == ')')
        text = text.substr(1, text.size() - 2);
    std::vector<SheetRange> places;
    bool isInQuotes = false;
    std::size_t begin = 0;
    for (std::size_t at = 0; at <= text.size(); ++at) {
        if (at < text.size() && text[at] == '\'')
            isInQuotes = !isInQuotes;
        if (at < text.size() && (text[at] != ',' || isInQuotes))
            continue;
        std::optional<SheetRange> place = ParseSheetRange(Trimmed(text.substr(begin, at - begin)));
        if (!place)
            return std::nullopt;
        places.push_back(std::move(*place));
        begin = at + 1;
    }
    return places;
}

std::string RangeTextWith(const CellRange &range, const char *dollar)
{
    const auto row = [dollar](int number) { return dollar + std::to_string(number); };
    const auto column = [dollar](int number) { return dollar + ColumnName(number); };
    if (range.HasWholeColumns())
        return column(range.firstColumn) + ':' + column(range.lastColumn);
    if (range.HasWholeRows())
        return row(range.firstRow) + ':' + row(range.lastRow);
    const std::string first = column(range.firstColumn) + row(range.firstRow);
    return range.IsCell() ? first : first + ':' + column(range.lastColumn) + row(range.lastRow);
}

} // namespace

std::string ColumnName(int column)
{
    std::string name;
    if (column > kLastColumn)
        return name;
    for (; column > 0; column = (column - 1) / 26)
        name.insert(name.begin(), char('A' + (column - 1) % 26));
    return name;
}

int ColumnNumber(std::string_view letters)
{
    if (letters.size() > 3)
        return 0;
    int column = 0;
    for (const char c : letters) {
        if (!IsLetter(c))
            return 0;
        column = column * 26 + ((c & ~0x20) - 'A' + 1);
    }
    return column <= kLastColumn ? column : 0;
}

std::optional<CellRange> ParseRange(std::string_view text)
{
    const std::optional<Corner> first = TakeCorner(text);
    if (!first)
        return std::nullopt;
    std::optional<Corner> last = first;
    if (!text.empty()) {
        if (text.front() != ':')
            return std::nullopt;
        text.remove_prefix(1);
        last = TakeCorner(text);
        if (!last || !text.empty() || (first->row == 0) != (last->row == 0) || (first->column == 0) != (last->column == 0))
            return std::nullopt;
    } else if (first->row == 0 || first->column == 0) {
        return std::nullopt;
    }
    return RangeBetween(*first, *last);
}

std::optional<std::vector<CellRange>> ParseRanges(std::string_view text)
{
    std::vector<CellRange> ranges;
    for (text = Trimmed(text); !text.empty(); text = Trimmed(text)) {
        const std::size_t end = std::min(text.find_first_of(" \t\r\n"), text.size());
        const std::optional<CellRange> range = ParseRange(text.substr(0, end));
        if (!range)
            return std::nullopt;
        ranges.push_back(*range);
        text.remove_prefix(end);
    }
    return ranges;
}

std::string RangeText(const CellRange &range)
{
    return RangeTextWith(range, "");
}

std::string AbsoluteRangeText(const CellRange &range)
{
    return RangeTextWith(range, "$");
}

std::string RangesText(const std::vector<CellRange> &ranges)
{
    std::string text;
    for (const CellRange &range : ranges) {
        if (!text.empty())
            text += ' ';
        text += RangeText(range);
    }
    return text;
}

std::string QuotedSheetName(std::string_view name)
{
    const QString text = ToQString(name);
    const auto isPlain = [](QChar c) { return c.isLetterOrNumber() || c == QLatin1Char('_') || c == QLatin1Char('.') || c.isSurrogate(); };
    // Apostrophes are always allowed: a name that may be read as a cell, a row and column or a truth value gets them, too.
    const auto looksLikeRowAndColumn = [](std::string_view part) {
        return !part.empty()
            && std::all_of(part.begin(), part.end(), [](char c) { return IsDigit(c) || c == 'R' || c == 'r' || c == 'C' || c == 'c'; });
    };
    const bool isBare = !text.isEmpty() && std::all_of(text.begin(), text.end(), isPlain) && !text.at(0).isNumber()
        && text.at(0) != QLatin1Char('.') && !ParseRange(name) && !looksLikeRowAndColumn(name) && !IsSameName(name, "TRUE")
        && !IsSameName(name, "FALSE");
    if (isBare)
        return std::string(name);
    std::string quoted = "'";
    for (const char c : name)
        quoted.append(c == '\'' ? 2 : 1, c);
    return quoted + '\'';
}

bool IsSameName(std::string_view one, std::string_view other)
{
    const auto isAscii = [](std::string_view text) { return std::all_of(text.begin(), text.end(), [](char c) { return c > 0; }); };
    if (isAscii(one) && isAscii(other)) {
        const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c | 0x20) : c; };
        return one.size() == other.size()
            && std::equal(one.begin(), one.end(), other.begin(), [lower](char a, char b) { return lower(a) == lower(b); });
    }
    return ToQString(one).compare(ToQString(other), Qt::CaseInsensitive) == 0;
}

std::optional<SheetRange> ParseSheetRange(std::string_view text)
{
    std::optional<std::string> sheet = TakeSheet(text);
    const std::optional<CellRange> range = sheet ? ParseRange(text) : std::nullopt;
    if (!range)
        return std::nullopt;
    return SheetRange{std::move(*sheet), *range};
}

NameMeaning MeaningOfName(std::string_view text)
{
    text = Trimmed(text);
    if (!text.empty() && text.front() == '=')
        text = Trimmed(text.substr(1));
    NameMeaning meaning;
    std::optional<std::vector<SheetRange>> places = ParsePlaces(text);
    if (places) {
        meaning.kind = NameMeaning::Kind::Places;
        meaning.places = std::move(*places);
    } else if (IsConstant(text)) {
        meaning.kind = NameMeaning::Kind::Constant;
    } else if (ToQString(WithoutQuoted(text, false)).contains(QLatin1String("#REF!"), Qt::CaseInsensitive)) {
        meaning.kind = NameMeaning::Kind::Broken;
    } else {
        // A bracket at the begin of a reference holds a workbook; one behind a name holds the column of a table.
        const std::string bare = WithoutQuoted(text, true);
        const std::size_t bracket = bare.find('[');
        const bool isExternal = bracket != std::string::npos && bare.find('!', bracket) != std::string::npos
            && bare.find_first_of("(+*&,<>") == std::string::npos;
        meaning.kind = isExternal ? NameMeaning::Kind::External : NameMeaning::Kind::Formula;
    }
    return meaning;
}

} // namespace Velmora
