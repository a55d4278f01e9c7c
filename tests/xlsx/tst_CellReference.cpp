#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/CellReference_p.h"

using namespace Velmora;
using namespace VelmoraTest;

namespace {

std::string Told(const std::optional<CellRange> &range)
{
    return range ? std::to_string(range->firstRow) + '-' + std::to_string(range->lastRow) + ' ' + std::to_string(range->firstColumn) + '-'
            + std::to_string(range->lastColumn)
                 : "none";
}

std::string Told(const std::optional<SheetRange> &range)
{
    return range ? '[' + range->sheet + "] " + Told(std::optional<CellRange>(range->range)) : "none";
}

std::string Told(const NameMeaning &meaning)
{
    switch (meaning.kind) {
    case NameMeaning::Kind::Constant:
        return "constant";
    case NameMeaning::Kind::External:
        return "external";
    case NameMeaning::Kind::Broken:
        return "broken";
    case NameMeaning::Kind::Formula:
        return "formula";
    case NameMeaning::Kind::Places:
        break;
    }
    std::string told;
    for (const SheetRange &place : meaning.places)
        told += (told.empty() ? "" : "; ") + place.sheet + '|' + RangeText(place.range);
    return told;
}

} // namespace

class tst_CellReference : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void columns_have_letters_and_numbers()
    {
        const std::pair<int, const char *> columns[] = {{1, "A"},   {2, "B"},    {26, "Z"},    {27, "AA"},    {52, "AZ"},
                                                        {53, "BA"}, {702, "ZZ"}, {703, "AAA"}, {16384, "XFD"}};
        for (const auto &[number, letters] : columns) {
            QCOMPARE(ColumnName(number), std::string(letters));
            QCOMPARE(ColumnNumber(letters), number);
        }
        for (int column = 1; column <= kLastColumn; ++column)
            QCOMPARE(ColumnNumber(ColumnName(column)), column);
        QCOMPARE(ColumnNumber("xfd"), 16384);
        for (const char *none : {"", "XFE", "ZZZ", "AAAA", "A1", "1", "$A", "\xc3\x84"})
            QCOMPARE(ColumnNumber(none), 0);
        for (int none : {-1, 0, 16385})
            QCOMPARE(ColumnName(none), std::string());
    }

    void ranges_are_read_whatever_their_writing()
    {
        const std::pair<const char *, const char *> ranges[] = {
            {"A1", "1-1 1-1"},
            {"$A$1", "1-1 1-1"},
            {"a$1", "1-1 1-1"},
            {"$xfd1048576", "1048576-1048576 16384-16384"},
            {"A1:C3", "1-3 1-3"},
            {"$C3:A$1", "1-3 1-3"},
            {"A3:C1", "1-3 1-3"},
            {"B:B", "1-1048576 2-2"},
            {"$D:$B", "1-1048576 2-4"},
            {"3:3", "3-3 1-16384"},
            {"$7:$5", "5-7 1-16384"},
            {"A1:A1", "1-1 1-1"},
            {"", "none"},
            {"A", "none"},
            {"1", "none"},
            {"A0", "none"},
            {"A01", "none"},
            {"A1048577", "none"},
            {"XFE1", "none"},
            {"$", "none"},
            {"A$", "none"},
            {"$A1$", "none"},
            {"$$A1", "none"},
            {"A1:", "none"},
            {":A1", "none"},
            {"A1:B", "none"},
            {"A:3", "none"},
            {"A1:3", "none"},
            {"A1:B2:C3", "none"},
            {"A1 ", "none"},
            {" A1", "none"},
            {"A1#", "none"},
            {"A-1", "none"},
            {"A99999999999999999999", "none"},
            {"1A", "none"},
            {"Sheet1!A1", "none"},
            {"A1,B2", "none"},
            {"LOG10", "10-10 8509-8509"},
        };
        for (const auto &[text, told] : ranges)
            QVERIFY2(Told(ParseRange(text)) == told, (text + std::string(": ") + Told(ParseRange(text))).c_str());
    }

    void ranges_are_written_as_they_are_read()
    {
        for (const char *text : {"A1", "B2:C3", "A:A", "B:XFD", "1:1", "3:7", "XFD1048576", "A2:XFC1048576"})
            QCOMPARE(RangeText(*ParseRange(text)), std::string(text));
        for (const char *text : {"$A$1", "$B$2:$C$3", "$A:$A", "$3:$7"})
            QCOMPARE(AbsoluteRangeText(*ParseRange(text)), std::string(text));
        QCOMPARE(RangesText(*ParseRanges("  A1 b2:c3\n\t5:5 ")), std::string("A1 B2:C3 5:5"));
        QCOMPARE(ParseRanges("")->size(), std::size_t(0));
        QVERIFY(!ParseRanges("A1 nowhere"));
    }

    void ranges_know_what_lies_in_them()
    {
        const CellRange range = *ParseRange("B2:C4");
        QCOMPARE(range.RowCount(), 3);
        QCOMPARE(range.ColumnCount(), 2);
        QVERIFY(range.Contains(2, 2) && range.Contains(4, 3));
        QVERIFY(!range.Contains(1, 2) && !range.Contains(5, 2) && !range.Contains(2, 1) && !range.Contains(2, 4));
        for (const char *meeting : {"A1:B2", "C4", "1:2", "B:B", "A1:XFD1048576"})
            QVERIFY2(range.Intersects(*ParseRange(meeting)) && ParseRange(meeting)->Intersects(range), meeting);
        for (const char *apart : {"A1", "D1:D9", "1:1", "5:9", "A:A"})
            QVERIFY2(!range.Intersects(*ParseRange(apart)), apart);
    }

    void sheets_stand_in_front_of_ranges()
    {
        const std::pair<const char *, const char *> references[] = {
            {"Sheet1!$A$1", "[Sheet1] 1-1 1-1"},
            {"A1:B2", "[] 1-2 1-2"},
            {"'My Sheet'!A1", "[My Sheet] 1-1 1-1"},
            {"'It''s'!A:A", "[It's] 1-1048576 1-1"},
            {"''''!A1", "['] 1-1 1-1"},
            {"'a!b'!A1", "[a!b] 1-1 1-1"},
            {"\xc3\x9c"
             "bersicht!A1",
             "[\xc3\x9c"
             "bersicht] 1-1 1-1"},
            {"''!A1", "none"},
            {"'open!A1", "none"},
            {"'My Sheet'A1", "none"},
            {"!A1", "none"},
            {"My Sheet!A1", "none"},
            {"Sheet1!", "none"},
            {"Sheet1!Name", "none"},
            {"[1]Sheet1!A1", "none"},
            {"'[Book.xlsx]My Sheet'!A1", "none"},
            {"Sheet1:Sheet3!A1", "none"},
            {"'", "none"},
        };
        for (const auto &[text, told] : references)
            QVERIFY2(Told(ParseSheetRange(text)) == told, (text + std::string(": ") + Told(ParseSheetRange(text))).c_str());
    }

    void sheet_names_get_apostrophes_where_they_need_them()
    {
        const std::pair<const char *, const char *> names[] = {
            {"Sheet1", "Sheet1"},
            {"_a.b", "_a.b"},
            {"My Sheet", "'My Sheet'"},
            {"It's", "'It''s'"},
            {"Hidden-Settings", "'Hidden-Settings'"},
            {"2024", "'2024'"},
            {"A1", "'A1'"},
            {"R1C1", "'R1C1'"},
            {"rc", "'rc'"},
            {"TRUE", "'TRUE'"},
            {"ABCD1", "ABCD1"},
            {"\xc3\x9c"
             "bersicht",
             "\xc3\x9c"
             "bersicht"},
            {"a!b", "'a!b'"},
            {".a", "'.a'"},
        };
        for (const auto &[name, quoted] : names) {
            QCOMPARE(QuotedSheetName(name), std::string(quoted));
            const std::optional<SheetRange> read = ParseSheetRange(QuotedSheetName(name) + "!B2");
            QVERIFY2(read && read->sheet == name, name);
        }
    }

    void names_are_the_same_in_any_case()
    {
        QVERIFY(IsSameName("Sheet1", "sHEET1"));
        QVERIFY(IsSameName("\xc3\x9c"
                           "ber",
                           "\xc3\xbc"
                           "BER"));
        QVERIFY(!IsSameName("Sheet1", "Sheet2"));
        QVERIFY(!IsSameName("Sheet1", "Sheet"));
        QVERIFY(!IsSameName("@", "`"));
    }

    void names_stand_for_places_or_for_something_else()
    {
        const std::pair<const char *, const char *> names[] = {
            {"Sheet1!$A$1", "Sheet1|A1"},
            {"=Sheet1!$A$1", "Sheet1|A1"},
            {" Sheet1!$A$1 ", "Sheet1|A1"},
            {"'It''s'!$B$2:$C$3", "It's|B2:C3"},
            {"Sheet1!$A$1,Sheet2!$B$2", "Sheet1|A1; Sheet2|B2"},
            {"Sheet1!$A$1, 'a,b'!$B:$B", "Sheet1|A1; a,b|B:B"},
            {"(Sheet1!$A$1,Sheet1!$C$1)", "Sheet1|A1; Sheet1|C1"},
            {"$A$1", "|A1"},
            {"12.5", "constant"},
            {"-12.5E+3", "constant"},
            {"19%", "constant"},
            {"\"a \"\"text\"\"\"", "constant"},
            {"\"Sheet1!#REF!\"", "constant"},
            {"TRUE", "constant"},
            {"#N/A", "constant"},
            {"{1,2;3,4}", "constant"},
            {"", "constant"},
            {"[1]Sheet1!$A$1", "external"},
            {"'[1]My Sheet'!$A$1", "external"},
            {"'/home/me/[Book.xlsx]My Sheet'!$A$1:$B$2", "external"},
            {"[1]!Name", "external"},
            {"#REF!", "broken"},
            {"Sheet1!#REF!", "broken"},
            {"#REF!$A$1", "broken"},
            {"SUM(Sheet1!#REF!)", "broken"},
            {"Sheet1!$A$1,#REF!", "broken"},
            {"OFFSET(Sheet1!$A$1,0,0,COUNTA(Sheet1!$A:$A),1)", "formula"},
            {"Sheet1!$A$1+1", "formula"},
            {"\"a\"&\"b\"", "formula"},
            {"OtherName", "formula"},
            {"Table1[Price]", "formula"},
            {"Sheet1:Sheet3!$A$1", "formula"},
            {"Sheet1!$A$1 Sheet1!$A:$A", "formula"},
            {"Sheet1!$A$1,", "formula"},
            {"Sheet1!$A$1:INDEX(Sheet1!$A:$A,9)", "formula"},
        };
        for (const auto &[text, told] : names)
            QVERIFY2(Told(MeaningOfName(text)) == told, (text + std::string(": ") + Told(MeaningOfName(text))).c_str());
    }
};

VELMORA_BARE_TEST_MAIN(tst_CellReference)
#include "tst_CellReference.moc"
