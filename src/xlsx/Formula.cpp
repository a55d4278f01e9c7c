#include "xlsx/Formula_p.h"

#include <algorithm>
#include <cstring>

namespace Velmora {

namespace {

using Kind = FormulaToken::Kind;

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

bool IsWordCharacter(char c)
{
    return IsLetter(c) || IsDigit(c) || c == '_' || c == '.' || c == '$' || c == '?' || c == '\\' || (c & 0x80);
}

/// Reads one corner that is \a word as a whole.
bool ReadCorner(std::string_view word, ReferenceCorner &corner)
{
    corner = ReferenceCorner();
    std::size_t at = 0;
    bool hasDollar = !word.empty() && word[0] == '$';
    at += hasDollar ? 1 : 0;
    const std::size_t lettersBegin = at;
    while (at < word.size() && IsLetter(word[at]) && at - lettersBegin < 4)
        ++at;
    if (at > lettersBegin) {
        corner.column = ColumnNumber(word.substr(lettersBegin, at - lettersBegin));
        corner.isColumnFixed = hasDollar;
        if (corner.column == 0)
            return false;
        hasDollar = at < word.size() && word[at] == '$';
        at += hasDollar ? 1 : 0;
    }
    const std::size_t digitsBegin = at;
    for (; at < word.size() && IsDigit(word[at]) && corner.row <= kLastRow; ++at)
        corner.row = corner.row * 10 + (word[at] - '0');
    corner.isRowFixed = hasDollar;
    const bool hasRow = at > digitsBegin;
    if (at < word.size() || corner.row > kLastRow || (hasRow && word[digitsBegin] == '0') || (hasDollar && !hasRow))
        return false;
    return hasRow || corner.column > 0;
}

bool IsOneOf(std::string_view name, std::initializer_list<const char *> others)
{
    return std::any_of(others.begin(), others.end(), [name](const char *other) { return IsSameName(name, other); });
}

void AppendCorner(std::string &text, const ReferenceCorner &corner)
{
    if (corner.column > 0) {
        text += corner.isColumnFixed ? "$" : "";
        text += ColumnName(corner.column);
    }
    if (corner.row > 0) {
        text += corner.isRowFixed ? "$" : "";
        text += std::to_string(corner.row);
    }
}

void AppendRange(std::string &text, const FormulaToken &token)
{
    text += token.prefix;
    AppendCorner(text, token.first);
    if (token.hasColon) {
        text += ':';
        AppendCorner(text, token.last);
    }
}

} // namespace

CellRange FormulaToken::Range() const
{
    CellRange range{std::min(first.row, last.row), std::max(first.row, last.row), std::min(first.column, last.column),
                    std::max(first.column, last.column)};
    if (range.firstRow == 0)
        range.firstRow = 1, range.lastRow = kLastRow;
    if (range.firstColumn == 0)
        range.firstColumn = 1, range.lastColumn = kLastColumn;
    return range;
}

// --- FormulaReader ---

FormulaReader::FormulaReader(std::string_view formula)
    : m_text(formula)
{
}

std::size_t FormulaReader::WordEnd(std::size_t begin)
{
    if (begin < m_wordBegin || begin >= m_wordEnd) {
        m_wordBegin = m_wordEnd = begin;
        while (IsWordCharacter(At(m_wordEnd)))
            ++m_wordEnd;
    }
    return m_wordEnd;
}

/// Behind the closing quote, or the end of the text if it is missing; a doubled one does not close.
std::size_t FormulaReader::QuotedEnd(std::size_t begin, char quote) const
{
    for (std::size_t at = begin + 1; at < m_text.size(); ++at) {
        if (m_text[at] != quote)
            continue;
        if (At(at + 1) != quote)
            return at + 1;
        ++at;
    }
    return m_text.size();
}

/// Brackets lie in one another; an apostrophe takes the next character's meaning away.
std::size_t FormulaReader::BracketEnd(std::size_t begin) const
{
    int depth = 0;
    for (std::size_t at = begin; at < m_text.size(); ++at) {
        if (m_text[at] == '\'')
            ++at;
        else if (m_text[at] == '[')
            ++depth;
        else if (m_text[at] == ']' && --depth == 0)
            return at + 1;
    }
    return m_text.size();
}

std::size_t FormulaReader::ArrayEnd(std::size_t begin) const
{
    for (std::size_t at = begin; at < m_text.size(); ++at) {
        if (m_text[at] == '"')
            at = QuotedEnd(at, '"') - 1;
        else if (m_text[at] == '}')
            return at + 1;
    }
    return m_text.size();
}

/// The end of an error, \a begin itself if none is there.
std::size_t FormulaReader::ErrorEnd(std::size_t begin)
{
    static const char *const errors[] = {"#REF!",   "#N/A",   "#VALUE!", "#NAME?",    "#DIV/0!",   "#NUM!",  "#NULL!",   "#GETTING_DATA",
                                         "#SPILL!", "#CALC!", "#FIELD!", "#BLOCKED!", "#CONNECT!", "#BUSY!", "#UNKNOWN!"};
    for (const char *error : errors) {
        const std::size_t size = std::strlen(error);
        if (!IsSameName(m_text.substr(begin, size), error))
            continue;
        // Of a sheet that is gone the cell may still be told.
        FormulaToken lost;
        std::size_t end = 0;
        return error == errors[0] && ReadRange(begin + size, lost, end) ? end : begin + size;
    }
    return begin;
}

std::size_t FormulaReader::NumberEnd(std::size_t begin) const
{
    std::size_t at = begin;
    while (IsDigit(At(at)) || At(at) == '.')
        ++at;
    if (At(at) == 'E' || At(at) == 'e') {
        const std::size_t sign = At(at + 1) == '+' || At(at + 1) == '-' ? 1 : 0;
        if (IsDigit(At(at + 1 + sign))) {
            at += 1 + sign;
            while (IsDigit(At(at)))
                ++at;
        }
    }
    return at;
}

/// Behind the exclamation mark of the sheet, the run of sheets or the other workbook at \a begin; \a begin itself if none is there.
std::size_t FormulaReader::PrefixEnd(std::size_t begin)
{
    std::size_t at = begin;
    if (At(at) == '\'') {
        at = QuotedEnd(at, '\'');
        return At(at) == '!' && at > begin + 2 ? at + 1 : begin;
    }
    const bool hasBook = At(at) == '[';
    if (hasBook)
        at = BracketEnd(at);
    if (IsWordCharacter(At(at)))
        at = WordEnd(at);
    else if (!hasBook)
        return begin;
    if (At(at) == ':' && IsWordCharacter(At(at + 1))) {
        // A run of sheets, Jan:Mar!A1, if the first can be none of a range's corners: A1:Mar!B2.
        ReferenceCorner corner;
        if (hasBook || !ReadCorner(m_text.substr(begin, at - begin), corner) || corner.row == 0)
            at = WordEnd(at + 1);
    }
    return At(at) == '!' ? at + 1 : begin;
}

bool FormulaReader::ReadRange(std::size_t begin, FormulaToken &token, std::size_t &end)
{
    const auto isSomethingElse = [this](std::size_t at) { return At(at) == '(' || At(at) == '!' || At(at) == '['; };
    end = WordEnd(begin);
    if (isSomethingElse(end) || !ReadCorner(m_text.substr(begin, end - begin), token.first))
        return false;
    token.last = token.first;
    token.hasColon = false;
    const bool isCell = token.first.row > 0 && token.first.column > 0;
    if (At(end) == ':' && IsWordCharacter(At(end + 1))) {
        const std::size_t lastEnd = WordEnd(end + 1);
        ReferenceCorner last;
        if (!isSomethingElse(lastEnd) && ReadCorner(m_text.substr(end + 1, lastEnd - end - 1), last)
            && (last.row == 0) == (token.first.row == 0) && (last.column == 0) == (token.first.column == 0)) {
            token.last = last;
            token.hasColon = true;
            end = lastEnd;
        }
    }
    token.kind = Kind::Range;
    return isCell || token.hasColon;
}

/// Reads what stands behind a prefix and returns its end.
std::size_t FormulaReader::ReadPrefixed(std::size_t begin, std::size_t bodyBegin, FormulaToken &token)
{
    token.prefix = m_text.substr(begin, bodyBegin - begin);
    std::size_t end = ErrorEnd(bodyBegin);
    if (end > bodyBegin) {
        token.kind = Kind::Error;
        return end;
    }
    if (!IsWordCharacter(At(bodyBegin)))
        return bodyBegin;
    if (!ReadRange(bodyBegin, token, end)) {
        end = WordEnd(bodyBegin);
        token.kind = At(end) == '(' ? Kind::Function : Kind::Name;
    }
    return end;
}

std::size_t FormulaReader::ReadWord(std::size_t begin, FormulaToken &token)
{
    std::size_t end = 0;
    if (ReadRange(begin, token, end))
        return end;
    if (IsDigit(At(begin)) || (At(begin) == '.' && IsDigit(At(begin + 1)))) {
        token.kind = Kind::Constant;
        return NumberEnd(begin);
    }
    end = WordEnd(begin);
    const std::string_view word = m_text.substr(begin, end - begin);
    if (At(end) == '(') {
        token.kind = Kind::Function;
    } else if (At(end) == '[') {
        token.kind = Kind::Table;
        end = BracketEnd(end);
    } else {
        token.kind = IsOneOf(word, {"TRUE", "FALSE"}) ? Kind::Constant : Kind::Name;
    }
    return end;
}

bool FormulaReader::Next(FormulaToken &token)
{
    const std::size_t begin = m_position;
    if (begin >= m_text.size())
        return false;
    token = FormulaToken();
    const char c = m_text[begin];
    std::size_t end = begin + 1;
    if (IsBlank(c)) {
        token.kind = Kind::Blank;
        while (IsBlank(At(end)))
            ++end;
    } else if (c == '"') {
        token.kind = Kind::Constant;
        end = QuotedEnd(begin, '"');
    } else if (c == '{') {
        token.kind = Kind::Constant;
        end = ArrayEnd(begin);
    } else if (c == '#') {
        end = ErrorEnd(begin);
        if (end > begin)
            token.kind = Kind::Error;
        else
            ++end; // what a formula spills
    } else if (c == '\'' || c == '[' || IsWordCharacter(c)) {
        const std::size_t prefixEnd = PrefixEnd(begin);
        if (prefixEnd > begin) {
            end = ReadPrefixed(begin, prefixEnd, token);
        } else if (c == '\'') {
            end = QuotedEnd(begin, '\'');
        } else if (c == '[') {
            token.kind = Kind::Table;
            end = BracketEnd(begin);
        } else {
            end = ReadWord(begin, token);
        }
    }
    token.text = m_text.substr(begin, end - begin);
    m_position = end;
    return true;
}

// --- Sheets ---

SheetPrefix ReadSheetPrefix(std::string_view prefix)
{
    SheetPrefix read;
    if (prefix.empty())
        return read;
    prefix.remove_suffix(1); // the exclamation mark
    if (prefix.size() >= 2 && prefix.front() == '\'') {
        prefix = prefix.substr(1, prefix.size() - 2);
        for (std::size_t at = 0; at < prefix.size(); ++at) {
            read.first += prefix[at];
            if (prefix[at] == '\'')
                ++at; // its double
        }
    } else {
        read.first = prefix;
    }
    read.isExternal = read.first.find('[') != std::string::npos;
    const std::size_t colon = read.isExternal ? std::string::npos : read.first.find(':');
    if (colon != std::string::npos) {
        read.last = read.first.substr(colon + 1);
        read.first.resize(colon);
    }
    return read;
}

// --- References ---

namespace {

bool IsVolatile(std::string_view function)
{
    return IsOneOf(function, {"INDIRECT", "OFFSET", "NOW", "TODAY", "RAND", "RANDBETWEEN", "CELL", "INFO", "_xlfn.RANDARRAY", "RANDARRAY"});
}

/// These take cells from behind the end of a range that is smaller than the other one.
bool TakesMoreThanItNames(std::string_view function)
{
    return IsOneOf(function, {"SUMIF", "AVERAGEIF"});
}

/// Makes every range as large as the largest.
void Enlarge(std::vector<FormulaUse> &uses)
{
    int rows = 0;
    int columns = 0;
    for (const FormulaUse &use : uses) {
        if (use.kind == FormulaUse::Kind::Range) {
            rows = std::max(rows, use.range.RowCount());
            columns = std::max(columns, use.range.ColumnCount());
        }
    }
    for (FormulaUse &use : uses) {
        if (use.kind == FormulaUse::Kind::Range) {
            use.range.lastRow = std::min(kLastRow, std::max(use.range.lastRow, use.range.firstRow + rows - 1));
            use.range.lastColumn = std::min(kLastColumn, std::max(use.range.lastColumn, use.range.firstColumn + columns - 1));
        }
    }
}

CellRange Bounding(const CellRange &one, const CellRange &other)
{
    return {std::min(one.firstRow, other.firstRow), std::max(one.lastRow, other.lastRow), std::min(one.firstColumn, other.firstColumn),
            std::max(one.lastColumn, other.lastColumn)};
}

/// Gathers the uses of a formula token by token, and joins what a colon between two ranges makes of them.
class UseCollector
{
public:
    void Take(const FormulaToken &token)
    {
        if (token.kind == Kind::Blank)
            return;
        const bool isBehindColon = m_isColonOpen;
        m_isColonOpen = false;
        if (token.kind == Kind::Range) {
            TakeRange(token, isBehindColon);
            return;
        }
        if (isBehindColon || (token.Is(':') && !m_isRangeLast))
            Add(FormulaUse::Kind::Everything, token);
        else if (token.Is(':'))
            m_isColonOpen = true;
        m_isRangeLast = false;
        if (token.kind == Kind::Name) {
            Add(FormulaUse::Kind::Name, token);
        } else if (token.kind == Kind::Table) {
            Add(FormulaUse::Kind::Table, token);
        } else if (token.kind == Kind::Function) {
            if (IsVolatile(token.text))
                Add(FormulaUse::Kind::Everything, token);
            m_takesMore = m_takesMore || TakesMoreThanItNames(token.text);
        }
    }
    std::vector<FormulaUse> Taken()
    {
        if (m_takesMore)
            Enlarge(m_uses);
        return std::move(m_uses);
    }

private:
    void TakeRange(const FormulaToken &token, bool isBehindColon)
    {
        m_isRangeLast = true;
        const SheetPrefix sheet = ReadSheetPrefix(token.prefix);
        if (sheet.isExternal)
            m_isRangeLast = false;
        else if (isBehindColon)
            m_uses.back().range = Bounding(m_uses.back().range, token.Range());
        else
            m_uses.push_back({FormulaUse::Kind::Range, sheet, token.Range(), {}});
    }
    void Add(FormulaUse::Kind kind, const FormulaToken &token)
    {
        FormulaUse use{kind, ReadSheetPrefix(token.prefix), {}, token.text.substr(token.prefix.size())};
        if (kind == FormulaUse::Kind::Table)
            use.name = use.name.substr(0, use.name.find('['));
        if (!use.sheet.isExternal)
            m_uses.push_back(std::move(use));
    }

    std::vector<FormulaUse> m_uses;
    bool m_isRangeLast = false;
    bool m_isColonOpen = false;
    bool m_takesMore = false;
};

} // namespace

std::vector<FormulaUse> References(std::string_view formula)
{
    FormulaReader reader(formula);
    FormulaToken token;
    UseCollector collector;
    while (reader.Next(token))
        collector.Take(token);
    return collector.Taken();
}

// --- RowMove ---

int RowMove::Moved(int row) const
{
    if (row > last)
        return row + Shift();
    return row < first + count ? row : 0;
}

std::optional<CellRange> RowMove::Moved(const CellRange &range, bool grows) const
{
    if (range.HasWholeColumns())
        return range;
    CellRange moved = range;
    if (range.firstRow > last)
        moved.firstRow += Shift();
    else if (range.firstRow >= first + count)
        moved.firstRow = first + count; // the rows from here on go away
    if (range.lastRow > last || (range.lastRow == last && grows))
        moved.lastRow = std::min(kLastRow, range.lastRow + Shift());
    else if (range.lastRow >= first + count)
        moved.lastRow = first + count - 1;
    if (moved.firstRow > moved.lastRow)
        return std::nullopt;
    return moved;
}

// --- MovedByRows ---

namespace {

bool IsTotal(std::string_view function)
{
    return IsOneOf(function, {"SUM", "SUBTOTAL", "AGGREGATE", "SUMPRODUCT", "PRODUCT", "AVERAGE", "COUNT", "COUNTA", "MIN", "MAX"});
}

/// Rewrites a formula token by token, one behind the reader: whether a cell is a whole argument shows at the token behind it.
class RowMover
{
public:
    RowMover(std::string_view formula, std::string_view ownSheet, const RowMove &move, Growth growth)
        : m_formula(formula)
        , m_ownSheet(ownSheet)
        , m_move(move)
        , m_growth(growth)
    {
    }

    std::optional<std::string> Run()
    {
        FormulaReader reader(m_formula);
        FormulaToken token;
        while (reader.Next(token)) {
            if (token.kind == Kind::Blank)
                continue;
            Settle(token.Is(',') || token.Is(')'));
            if (token.Is('('))
                m_functions.push_back(m_function);
            else if (token.Is(')') && !m_functions.empty())
                m_functions.pop_back();
            m_function = token.kind == Kind::Function ? token.text : std::string_view();
            if (token.kind == Kind::Range && IsMoved(token.prefix))
                Await(token);
            else
                m_beginsArgument = token.Is('(') || token.Is(',');
        }
        Settle(false);
        if (m_copied == 0)
            return std::nullopt;
        m_text += m_formula.substr(m_copied);
        return std::move(m_text);
    }

private:
    bool IsMoved(std::string_view prefix) const
    {
        if (prefix.empty())
            return IsSameName(m_ownSheet, m_move.sheet);
        const SheetPrefix sheet = ReadSheetPrefix(prefix);
        return !sheet.isExternal && sheet.last.empty() && IsSameName(sheet.first, m_move.sheet);
    }
    void Await(const FormulaToken &token)
    {
        m_awaited = token;
        m_isAwaited = true;
        m_canBeWhole = m_beginsArgument;
        m_beginsArgument = false;
    }
    bool Grows(bool isWholeArgument) const
    {
        const FormulaToken &range = m_awaited;
        switch (m_growth) {
        case Growth::None:
            return false;
        case Growth::Fixed:
            return range.hasColon && range.first.isRowFixed && range.last.isRowFixed;
        case Growth::Ranges:
            return range.hasColon || (isWholeArgument && !m_functions.empty() && IsTotal(m_functions.back()));
        case Growth::All:
            break;
        }
        return true;
    }
    /// Writes the range that waits for what stands behind it.
    void Settle(bool endsArgument)
    {
        if (!m_isAwaited)
            return;
        m_isAwaited = false;
        const bool isWhole = m_canBeWhole && endsArgument;
        FormulaToken &token = m_awaited;
        const CellRange before = token.Range();
        if (before.HasWholeColumns())
            return;
        const std::optional<CellRange> after = m_move.Moved(before, Grows(isWhole));
        if (after == before)
            return;
        const std::size_t begin = std::size_t(token.text.data() - m_formula.data());
        m_text += m_formula.substr(m_copied, begin - m_copied);
        m_copied = begin + token.text.size();
        if (!after && isWhole && !m_functions.empty() && IsSameName(m_functions.back(), "SUM")) {
            m_text += '0';
        } else if (!after) {
            m_text += token.prefix;
            m_text += "#REF!";
        } else {
            const bool isUpward = token.first.row > token.last.row;
            (isUpward ? token.last : token.first).row = after->firstRow;
            (isUpward ? token.first : token.last).row = after->lastRow;
            token.last.column = token.hasColon ? token.last.column : token.first.column;
            token.hasColon = token.hasColon || after->RowCount() > 1;
            AppendRange(m_text, token);
        }
    }

    std::string_view m_formula;
    std::string_view m_ownSheet;
    const RowMove &m_move;
    Growth m_growth;
    std::string m_text;
    std::size_t m_copied = 0;                  // of the formula; nothing is changed before the first is moved
    std::vector<std::string_view> m_functions; // of the open parentheses
    std::string_view m_function;               // that of the parenthesis to come
    FormulaToken m_awaited;
    bool m_isAwaited = false;
    bool m_canBeWhole = false;
    bool m_beginsArgument = false;
};

} // namespace

std::optional<std::string> MovedByRows(std::string_view formula, std::string_view ownSheet, const RowMove &move, Growth growth)
{
    return RowMover(formula, ownSheet, move, growth).Run();
}

// --- Translated ---

namespace {

/// False if the corner leaves the sheet.
bool Translate(ReferenceCorner &corner, int rows, int columns)
{
    if (corner.row > 0 && !corner.isRowFixed) {
        corner.row += rows;
        if (corner.row < 1 || corner.row > kLastRow)
            return false;
    }
    if (corner.column > 0 && !corner.isColumnFixed) {
        corner.column += columns;
        if (corner.column < 1 || corner.column > kLastColumn)
            return false;
    }
    return true;
}

} // namespace

std::string Translated(std::string_view formula, int rows, int columns)
{
    std::string text;
    text.reserve(formula.size() + 8);
    FormulaReader reader(formula);
    FormulaToken token;
    while (reader.Next(token)) {
        if (token.kind != Kind::Range) {
            text += token.text;
        } else if (Translate(token.first, rows, columns) && Translate(token.last, rows, columns)) {
            AppendRange(text, token);
        } else {
            text += token.prefix;
            text += "#REF!";
        }
    }
    return text;
}

} // namespace Velmora
