#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/CpuClock.h"
#include "xlsx/Formula_p.h"

#include <map>
#include <random>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

using Kind = FormulaToken::Kind;

/// The tokens in bars, each with a letter for its kind; operators and blanks stand alone.
std::string Told(std::string_view formula)
{
    const std::map<Kind, std::string> letters = {{Kind::Range, "r"},    {Kind::Name, "n"},  {Kind::Function, "f"}, {Kind::Table, "t"},
                                                 {Kind::Constant, "c"}, {Kind::Error, "e"}, {Kind::Blank, ""},     {Kind::Other, ""}};
    FormulaReader reader(formula);
    FormulaToken token;
    std::string told;
    while (reader.Next(token)) {
        const std::string letter = letters.at(token.kind);
        told += letter.empty() ? std::string(token.text) : letter + '|' + std::string(token.text) + '|';
    }
    return told;
}

std::string Joined(std::string_view formula)
{
    FormulaReader reader(formula);
    FormulaToken token;
    std::string joined;
    while (reader.Next(token))
        joined += token.text;
    return joined;
}

std::string UsesOf(std::string_view formula)
{
    std::string told;
    for (const FormulaUse &use : References(formula)) {
        told += told.empty() ? "" : " ";
        told += use.sheet.first + (use.sheet.last.empty() ? "" : ":" + use.sheet.last) + (use.sheet.first.empty() ? "" : "!");
        switch (use.kind) {
        case FormulaUse::Kind::Range:
            told += RangeText(use.range);
            break;
        case FormulaUse::Kind::Name:
            told += "n:" + std::string(use.name);
            break;
        case FormulaUse::Kind::Table:
            told += "t:" + std::string(use.name);
            break;
        case FormulaUse::Kind::Everything:
            told += "*";
            break;
        }
    }
    return told;
}

/// Rows of a table in a test: what goes in and what comes out.
using Row = std::pair<const char *, const char *>;

template <std::size_t count, typename Function>
void CompareAll(const Row (&rows)[count], Function function)
{
    for (const auto &[in, out] : rows) {
        const std::string got = function(in);
        QVERIFY2(got == out, (std::string(in) + " gives " + got + ", not " + out).c_str());
    }
}

const char *const kPieces[] = {"A1",
                               "$B$2",
                               "C$7",
                               "D5",
                               "D5:D5",
                               "$A$1:D9",
                               "A:A",
                               "$3:$9",
                               "Sheet1!E6",
                               "'My Sheet'!F7:G12",
                               "Sheet1!A4:A5",
                               "Sheet1:Sheet3!A9",
                               "[1]Sheet1!B8",
                               "Name",
                               "Table1[[#This Row],[x]]",
                               "12.5",
                               "\"D9\"",
                               "{1,2;\"D9\",4}",
                               "#N/A",
                               "TRUE",
                               "Sheet2!Name",
                               "LOG10(D9)",
                               "SUM(D5:D5,A9)",
                               "IF(A7>B7,C7,\"\")",
                               "1E+5",
                               "D9#"};

std::string MadeFormula(std::mt19937 &random)
{
    static const char *const operators[] = {"+", "-", "*", "&", "^", "<>", " ", ", "};
    const auto piece = [&random] { return std::string(kPieces[random() % std::size(kPieces)]); };
    std::string formula = piece();
    for (int count = int(random() % 6); count > 0; --count) {
        formula += operators[random() % std::size(operators)] + piece();
        if (random() % 4 == 0)
            formula = "MAX(" + formula + ")";
    }
    return formula;
}

} // namespace

class tst_Formula : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void formulas_fall_into_tokens()
    {
        const Row rows[] = {
            {"", ""},
            {"A1", "r|A1|"},
            {"$A$1", "r|$A$1|"},
            {"a1:b2", "r|a1:b2|"},
            {"A1 : B2", "r|A1| : r|B2|"},
            {"A:A", "r|A:A|"},
            {"$3:3", "r|$3:3|"},
            {"A1:B", "r|A1|:n|B|"},
            {"A1:B2:C3", "r|A1:B2|:r|C3|"},
            {"A1+B2", "r|A1|+r|B2|"},
            {"-A1%", "-r|A1|%"},
            {"A1#", "r|A1|#"},
            {"@A1", "@r|A1|"},
            {"A1 B2", "r|A1| r|B2|"},
            {"(A1,B2)", "(r|A1|,r|B2|)"},
            {"1", "c|1|"},
            {"1.5", "c|1.5|"},
            {".5", "c|.5|"},
            {"1E5", "c|1E5|"},
            {"1e-5+1E+2", "c|1e-5|+c|1E+2|"},
            {"1+E5", "c|1|+r|E5|"},
            {"10%", "c|10|%"},
            {"TRUE", "c|TRUE|"},
            {"false", "c|false|"},
            {"TRUE()", "f|TRUE|()"},
            {"\"A1\"", "c|\"A1\"|"},
            {"\"a \"\"A1\"\" b\"&A1", "c|\"a \"\"A1\"\" b\"|&r|A1|"},
            {"\"open A1", "c|\"open A1|"},
            {"\"it's\"&A1&\"it's\"", "c|\"it's\"|&r|A1|&c|\"it's\"|"},
            {"{1,2;\"}\",A1}", "c|{1,2;\"}\",A1}|"},
            {"{1,2", "c|{1,2|"},
            {"#REF!", "e|#REF!|"},
            {"#N/A+#DIV/0!", "e|#N/A|+e|#DIV/0!|"},
            {"#ref!", "e|#ref!|"},
            {"Sheet1!#REF!", "e|Sheet1!#REF!|"},
            {"#REF!$A$1", "e|#REF!$A$1|"},
            {"#REF!A1:B2+C3", "e|#REF!A1:B2|+r|C3|"},
            {"#REF!#REF!", "e|#REF!|e|#REF!|"},
            {"#SPILL!", "e|#SPILL!|"},
            {"#", "#"},
            {"SUM(A1)", "f|SUM|(r|A1|)"},
            {"LOG10(A1)", "f|LOG10|(r|A1|)"},
            {"LOG10", "r|LOG10|"},
            {"TAXES2024*A1", "n|TAXES2024|*r|A1|"},
            {"TAX2024", "r|TAX2024|"},
            {"XFD1", "r|XFD1|"},
            {"XFE1", "n|XFE1|"},
            {"A1048576", "r|A1048576|"},
            {"A1048577", "n|A1048577|"},
            {"A0", "n|A0|"},
            {"A01", "n|A01|"},
            {"R1C1", "n|R1C1|"},
            {"RC", "n|RC|"},
            {"R2", "r|R2|"},
            {"_A1", "n|_A1|"},
            {"A1_", "n|A1_|"},
            {"A1.B", "n|A1.B|"},
            {"my.name", "n|my.name|"},
            {"\\x", "n|\\x|"},
            {"\xc3\x9c"
             "ber1",
             "n|\xc3\x9c"
             "ber1|"},
            {"_xlfn.XLOOKUP(A1,B:B,C:C)", "f|_xlfn.XLOOKUP|(r|A1|,r|B:B|,r|C:C|)"},
            {"ATAN2(A1,B1)", "f|ATAN2|(r|A1|,r|B1|)"},
            {"Sheet1!A1", "r|Sheet1!A1|"},
            {"Sheet1!$A$1:$B$2", "r|Sheet1!$A$1:$B$2|"},
            {"Sheet1!A1:Sheet1!B2", "r|Sheet1!A1|:r|Sheet1!B2|"},
            {"'My Sheet'!A1", "r|'My Sheet'!A1|"},
            {"'It''s'!A:A", "r|'It''s'!A:A|"},
            {"'It''s!A1", "'It''s!A1"},
            {"'a'A1", "'a'r|A1|"},
            {"''!A1", "''!r|A1|"},
            {"2024!A1", "r|2024!A1|"},
            {"A1!B2", "r|A1!B2|"},
            {"\xc3\x9c"
             "bersicht!A1",
             "r|\xc3\x9c"
             "bersicht!A1|"},
            {"Sheet1:Sheet3!A1", "r|Sheet1:Sheet3!A1|"},
            {"'Sheet 1:Sheet 3'!A1:B2", "r|'Sheet 1:Sheet 3'!A1:B2|"},
            {"Jan:Mar!A1", "r|Jan:Mar!A1|"},
            {"A1:Sheet2!B2", "r|A1|:r|Sheet2!B2|"},
            {"[1]Sheet1!A1", "r|[1]Sheet1!A1|"},
            {"[1]Sheet1:Sheet3!A1", "r|[1]Sheet1:Sheet3!A1|"},
            {"'[1]My Sheet'!A1", "r|'[1]My Sheet'!A1|"},
            {"'/a/[Book.xlsx]S'!A1", "r|'/a/[Book.xlsx]S'!A1|"},
            {"[1]!Name", "n|[1]!Name|"},
            {"[Book.xlsx]Sheet1!Name", "n|[Book.xlsx]Sheet1!Name|"},
            {"Sheet1!Name", "n|Sheet1!Name|"},
            {"Sheet1!Name*2", "n|Sheet1!Name|*c|2|"},
            {"Module!Macro(A1)", "f|Module!Macro|(r|A1|)"},
            {"Sheet1!", "Sheet1!"},
            {"!A1", "!r|A1|"},
            {"Table1[Price]", "t|Table1[Price]|"},
            {"Table1[]", "t|Table1[]|"},
            {"SUM(Table1[[#All],[a b]:[c]])", "f|SUM|(t|Table1[[#All],[a b]:[c]]|)"},
            {"Table1[[#This Row],[Price]]*2", "t|Table1[[#This Row],[Price]]|*c|2|"},
            {"[@Price]*[@[a b]]", "t|[@Price]|*t|[@[a b]]|"},
            {"Table1['[x']]+A1", "t|Table1['[x']]|+r|A1|"},
            {"A1[x]", "t|A1[x]|"},
            {"Table1[open", "t|Table1[open|"},
            {"[open", "t|[open|"},
            {"A1:INDEX(A:A,5)", "r|A1|:f|INDEX|(r|A:A|,c|5|)"},
            {"INDEX(A:A,5):A9", "f|INDEX|(r|A:A|,c|5|):r|A9|"},
            {"IF(A1=\"\",\"\",B1)", "f|IF|(r|A1|=c|\"\"|,c|\"\"|,r|B1|)"},
            {"A1>=B1<>C1", "r|A1|>=r|B1|<>r|C1|"},
            {"1:1", "r|1:1|"},
            {"1:A", "c|1|:n|A|"},
            {"1.1:2", "c|1.1|:c|2|"},
            {"SUM(1:3,A:B)", "f|SUM|(r|1:3|,r|A:B|)"},
            {"$", "n|$|"},
            {"$A", "n|$A|"},
            {"A$", "n|A$|"},
            {"A$$1", "n|A$$1|"},
            {")(", ")("},
            {"LET(x,A1,x+1)", "f|LET|(n|x|,r|A1|,n|x|+c|1|)"},
            {"\n A1\t", "\n r|A1|\t"},
        };
        CompareAll(rows, [](const char *formula) { return Told(formula); });
    }

    void tokens_joined_are_the_text()
    {
        std::mt19937 random(7);
        for (int i = 0; i < 2000; ++i) {
            const std::string formula = MadeFormula(random);
            QCOMPARE(Joined(formula), formula);
            // Cut and damaged ones, too.
            std::string damaged = formula.substr(random() % formula.size());
            damaged[random() % damaged.size()] = "'\"[]{}()!:#$,\x80\0A1 "[random() % 19];
            QCOMPARE(Joined(damaged), damaged);
            QCOMPARE(Translated(damaged, 0, 0).empty(), damaged.empty());
        }
    }

    void sheets_are_read_from_their_prefix()
    {
        const auto told = [](const char *prefix) {
            const SheetPrefix read = ReadSheetPrefix(prefix);
            return (read.isExternal ? "external " : "") + read.first + (read.last.empty() ? "" : " to " + read.last);
        };
        const Row rows[] = {
            {"", ""},
            {"Sheet1!", "Sheet1"},
            {"'My Sheet'!", "My Sheet"},
            {"'It''s'!", "It's"},
            {"'''a'''!", "'a'"},
            {"Sheet1:Sheet3!", "Sheet1 to Sheet3"},
            {"'Sheet 1:Sheet 3'!", "Sheet 1 to Sheet 3"},
            {"[1]Sheet1!", "external [1]Sheet1"},
            {"'C:\\[b.xlsx]S'!", "external C:\\[b.xlsx]S"},
        };
        CompareAll(rows, told);
    }

    void formulas_tell_what_they_use()
    {
        const Row rows[] = {
            {"1+2", ""},
            {"\"A1\"&\"B2\"", ""},
            {"A1+B2:C3", "A1 B2:C3"},
            {"$C$3:A1", "A1:C3"},
            {"Sheet1!A1*'My Sheet'!B:B", "Sheet1!A1 My Sheet!B:B"},
            {"Sheet1:Sheet3!A1", "Sheet1:Sheet3!A1"},
            {"[1]Sheet1!A1+[1]!Name", ""},
            {"Name+Sheet2!Other", "n:Name Sheet2!n:Other"},
            {"SUM(Table1[Price])*[@Count]", "t:Table1 t:"},
            {"LOG10(A1)", "A1"},
            {"A1:Sheet1!B2", "A1:B2"},
            {"Sheet1!B2 : Sheet1!A1", "Sheet1!A1:B2"},
            {"A1:B2:D9", "A1:D9"},
            {"A1:INDEX(B:B,2)", "A1 * B:B"},
            {"INDEX(B:B,2):A1", "B:B * A1"},
            {"A1:Name", "A1 * n:Name"},
            {"INDIRECT(\"A1\")", "*"},
            {"OFFSET(A1,1,1)", "* A1"},
            {"NOW()", "*"},
            {"SUMIF(A1:A9,1,C1)", "A1:A9 C1:C9"},
            {"SUMIFS(A1:A9,B1:B9,1)", "A1:A9 B1:B9"},
            {"#REF!+Sheet1!#REF!", ""},
            {"A1#", "A1"},
            {"TRUE", ""},
            {"{1,2}", ""},
        };
        CompareAll(rows, [](const char *formula) { return UsesOf(formula); });
    }

    void references_follow_the_rows_that_come()
    {
        // Row 5 becomes the rows 5 to 14.
        const RowMove move{"Data", 5, 5, 10};
        const Row rows[] = {
            {"A4", "A4"},
            {"A5", "A5"},
            {"A6", "A15"},
            {"$A$6", "$A$15"},
            {"A$6+$A6", "A$15+$A15"},
            {"A1:A4", "A1:A4"},
            {"A1:A6", "A1:A15"},
            {"A6:A1", "A15:A1"},
            {"A6:A9", "A15:A18"},
            {"D5:D5", "D5:D14"},
            {"$D$5:$D$5", "$D$5:$D$14"},
            {"D1:D5", "D1:D14"},
            {"D5:D9", "D5:D18"},
            {"5:5", "5:14"},
            {"6:$7", "15:$16"},
            {"A:A", "A:A"},
            {"A6:A1048576", "A15:A1048576"},
            {"SUM(D5:D5)", "SUM(D5:D14)"},
            {"SUM(D5)", "SUM(D5:D14)"},
            {"SUM( $D$5 )", "SUM( $D$5:$D$14 )"},
            {"SUM(D5,E9)", "SUM(D5:D14,E18)"},
            {"SUM(E9,D5)", "SUM(E18,D5:D14)"},
            {"SUM(D5*2)", "SUM(D5*2)"},
            {"SUM(-D5)", "SUM(-D5)"},
            {"SUM(D5 E5)", "SUM(D5 E5)"},
            {"SUM((D5))", "SUM((D5))"},
            {"SUM(ROUND(D5,2))", "SUM(ROUND(D5,2))"},
            {"ROUND(SUM(D5),2)*D5", "ROUND(SUM(D5:D14),2)*D5"},
            {"SUBTOTAL(109,D5)", "SUBTOTAL(109,D5:D14)"},
            {"SUMPRODUCT(C5,D5)", "SUMPRODUCT(C5:C14,D5:D14)"},
            {"sum(d5)", "sum(D5:D14)"},
            {"D5", "D5"},
            {"D5*D6", "D5*D15"},
            {"IF(D5>D6,\"D6\",D7)", "IF(D5>D15,\"D6\",D16)"},
            {"Data!A6", "Data!A15"},
            {"data!A6", "data!A15"},
            {"'Data'!A6:B7", "'Data'!A15:B16"},
            {"Other!A6", "Other!A6"},
            {"Other!A6+A6", "Other!A6+A15"},
            {"Data:Other!A6", "Data:Other!A6"},
            {"[1]Data!A6", "[1]Data!A6"},
            {"'[1]Data'!A6", "'[1]Data'!A6"},
            {"LOG10(A6)", "LOG10(A15)"},
            {"LOG10+1", "LOG19+1"},
            {"TAXES2024", "TAXES2024"},
            {"Table1[[#This Row],[A6]]", "Table1[[#This Row],[A6]]"},
            {"{\"A6\"}", "{\"A6\"}"},
            {"#REF!A6", "#REF!A6"},
            {"A6#", "A15#"},
            {"A6:INDEX(A:A,6)", "A15:INDEX(A:A,6)"},
            {"VLOOKUP(A6,$F$1:$G$20,2,0)", "VLOOKUP(A15,$F$1:$G$29,2,0)"},
            {"A6 ,A7", "A15 ,A16"},
        };
        CompareAll(rows, [&move](const char *formula) { return MovedByRows(formula, "Data", move, Growth::Ranges).value_or(formula); });
        QVERIFY(!MovedByRows("A1+Other!A6+\"A6\"", "Data", move, Growth::Ranges)); // unchanged
        QCOMPARE(*MovedByRows("Data!A6+A6", "Other", move, Growth::Ranges), std::string("Data!A15+A6"));
        QCOMPARE(*MovedByRows("'It''s'!A6", "Other", {"It's", 5, 5, 10}, Growth::Ranges), std::string("'It''s'!A15"));
    }

    void growth_is_as_asked()
    {
        const RowMove move{"Data", 5, 5, 10};
        struct Case
        {
            const char *formula;
            const char *none;
            const char *fixed;
            const char *ranges;
            const char *all;
        };
        const Case cases[] = {
            {"D5", "D5", "D5", "D5", "D5:D14"},
            {"$D$5", "$D$5", "$D$5", "$D$5", "$D$5:$D$14"},
            {"D5:D5", "D5:D5", "D5:D5", "D5:D14", "D5:D14"},
            {"D$5:D5", "D$5:D5", "D$5:D5", "D$5:D14", "D$5:D14"},
            {"D$5:D$5", "D$5:D$5", "D$5:D$14", "D$5:D$14", "D$5:D$14"},
            {"SUM(D5)", "SUM(D5)", "SUM(D5)", "SUM(D5:D14)", "SUM(D5:D14)"},
            {"D4:D6", "D4:D15", "D4:D15", "D4:D15", "D4:D15"},
            {"A1:B5", "A1:B5", "A1:B5", "A1:B14", "A1:B14"},
        };
        for (const Case &row : cases) {
            const auto moved = [&](Growth growth) { return MovedByRows(row.formula, "Data", move, growth).value_or(row.formula); };
            QCOMPARE(moved(Growth::None), std::string(row.none));
            QCOMPARE(moved(Growth::Fixed), std::string(row.fixed));
            QCOMPARE(moved(Growth::Ranges), std::string(row.ranges));
            QCOMPARE(moved(Growth::All), std::string(row.all));
        }
    }

    void references_follow_the_rows_that_go()
    {
        // Row 5 goes.
        const RowMove none{"Data", 5, 5, 0};
        const Row rows[] = {
            {"A4", "A4"},
            {"A5", "#REF!"},
            {"$A$5+A6", "#REF!+A5"},
            {"A6", "A5"},
            {"A5:A6", "A5:A5"},
            {"A4:A5", "A4:A4"},
            {"A4:A6", "A4:A5"},
            {"A6:A4", "A5:A4"},
            {"A5:B5", "#REF!"},
            {"Data!A5", "Data!#REF!"},
            {"SUM(D5:D5)", "SUM(0)"},
            {"SUM(D5,D6)", "SUM(0,D5)"},
            {"SUM(D5*2)", "SUM(#REF!*2)"},
            {"COUNT(D5:D5)", "COUNT(#REF!)"},
            {"5:5", "#REF!"},
            {"4:6", "4:5"},
            {"A:A", "A:A"},
            {"A6:A1048576", "A5:A1048575"},
        };
        CompareAll(rows, [&none](const char *formula) { return MovedByRows(formula, "Data", none, Growth::Ranges).value_or(formula); });
        // Of the rows 5 to 8 two stay.
        const RowMove two{"Data", 5, 8, 2};
        const Row partial[] = {
            {"A5+A6", "A5+A6"}, {"A7", "#REF!"},    {"A9", "A7"},       {"A5:A8", "A5:A6"}, {"A5:A7", "A5:A6"},
            {"A7:A8", "#REF!"}, {"A6:A9", "A6:A7"}, {"A8:A9", "A7:A7"}, {"A1:A9", "A1:A7"}, {"A1:A5", "A1:A5"},
        };
        CompareAll(partial, [&two](const char *formula) { return MovedByRows(formula, "Data", two, Growth::Ranges).value_or(formula); });
    }

    void rows_know_where_they_go()
    {
        const RowMove more{"Data", 5, 6, 10};
        QCOMPARE(more.Shift(), 8);
        for (const auto &[row, moved] : {std::pair<int, int>{1, 1}, {4, 4}, {5, 5}, {6, 6}, {7, 15}, {100, 108}})
            QCOMPARE(more.Moved(row), moved);
        const RowMove fewer{"Data", 5, 8, 1};
        for (const auto &[row, moved] : {std::pair<int, int>{4, 4}, {5, 5}, {6, 0}, {8, 0}, {9, 6}})
            QCOMPARE(fewer.Moved(row), moved);
        QVERIFY(!fewer.Moved(CellRange{6, 8, 1, 1}));
    }

    void moving_down_and_back_is_nothing()
    {
        std::mt19937 random(11);
        for (int i = 0; i < 5000; ++i) {
            const std::string formula = MadeFormula(random);
            const int first = 1 + int(random() % 12);
            const int last = first + int(random() % 3);
            const int more = 1 + int(random() % 100);
            const int length = last - first + 1;
            const RowMove down{"Sheet1", first, last, length + more};
            const RowMove back{"Sheet1", first, last + more, length};
            for (const Growth growth : {Growth::None, Growth::Fixed}) {
                const std::string moved = MovedByRows(formula, "sheet1", down, growth).value_or(formula);
                const std::string returned = MovedByRows(moved, "sheet1", back, growth).value_or(moved);
                QVERIFY2(returned == formula, (formula + " became " + moved + " and " + returned).c_str());
            }
            QCOMPARE(MovedByRows(formula, "sheet1", {"Sheet1", first, last, length}, Growth::Ranges).value_or(formula), formula);
        }
    }

    void shared_formulas_are_translated()
    {
        const Row rows[] = {
            {"A1", "C4"},
            {"$A1", "$A4"},
            {"A$1", "C$1"},
            {"$A$1", "$A$1"},
            {"A1:B2", "C4:D5"},
            {"$A$1:B2", "$A$1:D5"},
            {"A:A", "C:C"},
            {"$A:B", "$A:D"},
            {"3:3", "6:6"},
            {"$3:4", "$3:7"},
            {"Sheet1!A1", "Sheet1!C4"},
            {"'My Sheet'!A1", "'My Sheet'!C4"},
            {"Sheet1:Sheet3!A1", "Sheet1:Sheet3!C4"},
            {"[1]Sheet1!A1", "[1]Sheet1!C4"},
            {"XFD1", "#REF!"},
            {"A1048576", "#REF!"},
            {"Sheet1!XFD1", "Sheet1!#REF!"},
            {"A1048574+A1", "#REF!+C4"},
            {"LOG10(A1)", "LOG10(C4)"},
            {"\"A1\"&A1", "\"A1\"&C4"},
            {"{1,2}", "{1,2}"},
            {"Table1[[#This Row],[A1]]", "Table1[[#This Row],[A1]]"},
            {"Name*2", "Name*2"},
            {"#REF!A1", "#REF!A1"},
            {"IF(A1 = 0, \"\", $B$1 / A1)", "IF(C4 = 0, \"\", $B$1 / C4)"},
        };
        CompareAll(rows, [](const char *formula) { return Translated(formula, 3, 2); });
        QCOMPARE(Translated("D4+$A$1", -3, -2), std::string("B1+$A$1"));
        QCOMPARE(Translated("C4", -4, 0), std::string("#REF!"));
        QCOMPARE(Translated("C4", 0, -3), std::string("#REF!"));
    }

    void translation_there_and_back_is_nothing()
    {
        std::mt19937 random(13);
        for (int i = 0; i < 2000; ++i) {
            const std::string formula = MadeFormula(random);
            const int rows = int(random() % 1000);
            const int columns = int(random() % 1000);
            QCOMPARE(Translated(Translated(formula, rows, columns), -rows, -columns), formula);
        }
    }

    void hostile_formulas_take_no_longer_than_others()
    {
        const char *const pieces[] = {"'",     "\"",  "[",       "]",       "{",      "}",    "(",   ")",   "!",       "#",
                                      "#REF!", "A1:", "1.",      "1:",      "1$",     "1e",   "a'",  "a:",  "a!",      "[1]",
                                      "'a'!",  "$",   "\x80",    "A1:A1:",  "[[",     "a[",   "''",  "{\"", "#REF!A1", ",",
                                      "SUM(",  "A1",  "SUM(A6,", "Sheet1:", "_xlfn.", "1.1:", "A1!", ".1",  "[a]b"};
        for (const char *piece : pieces) {
            std::string formula;
            while (formula.size() < 250000)
                formula += piece;
            const CpuClock clock;
            QCOMPARE(Joined(formula).size(), formula.size());
            References(formula);
            MovedByRows(formula, "Sheet1", {"Sheet1", 5, 5, 10}, Growth::Ranges);
            Translated(formula, 1, 1);
            QVERIFY2(clock.IsWithin(2000), (std::string(piece) + " took " + std::to_string(clock.Milliseconds()) + " ms").c_str());
        }
    }
};

VELMORA_BARE_TEST_MAIN(tst_Formula)
#include "tst_Formula.moc"
