#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/Book.h"

#include <QDate>
#include <QJsonValue>

Q_DECLARE_METATYPE(Velmora::XlsxTemplate::Kind)

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QByteArray kSheet = QByteArrayLiteral("xl/worksheets/sheet1.xml");
const QString kName = QStringLiteral("Name");
const QByteArray kMargins = QByteArrayLiteral("<pageMargins left=\"0.7\"/>");

QByteArray Validation(const QByteArray &places, const QByteArray &source, const QByteArray &attributes = QByteArray())
{
    return "<dataValidation type=\"list\" " + attributes + "sqref=\"" + places + "\"><formula1>" + source + "</formula1></dataValidation>";
}

QByteArray Validations(int count, const QByteArray &validations)
{
    return "<dataValidations count=\"" + QByteArray::number(count) + "\">" + validations + "</dataValidations>";
}

/// As Excel writes a list that it could not have before 2010.
QByteArray Extension(const QByteArray &places, const QByteArray &source)
{
    return "<extLst><ext xmlns:x14=\"urn:x14\" uri=\"{CCE6A557-97BC-4b89-ADB6-D9C93CAAB3DF}\"><x14:dataValidations "
           "xmlns:xm=\"urn:xm\" count=\"1\"><x14:dataValidation type=\"list\" allowBlank=\"1\"><x14:formula1><xm:f>"
        + source + "</xm:f></x14:formula1><xm:sqref>" + places + "</xm:sqref></x14:dataValidation></x14:dataValidations></ext></extLst>";
}

/// Sheet1 with this behind its cells, a sheet Lists with colours, and a name.
Template Book(const QByteArray &behind, const QByteArray &reference = "Sheet1!$B$2")
{
    Template source;
    source.Sheet(1, "<row r=\"2\"><c r=\"B2\" s=\"0\"/></row>", behind);
    source.Sheet(2,
                 "<row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t>Red</t></is></c><c r=\"B1\"><v>12</v></c></row>"
                 "<row r=\"2\"><c r=\"A2\" t=\"inlineStr\"><is><t>Green</t></is></c><c r=\"B2\"><v>0.5</v></c></row>"
                 "<row r=\"4\"><c r=\"A4\" t=\"inlineStr\"><is><t>Blue</t></is></c><c r=\"B4\" t=\"b\"><v>1</v></c></row>",
                 kMargins, "My Lists");
    source.Name("Name", reference).Name("Colours", "'My Lists'!$A$1:$A$4").Name("Numbers", "'My Lists'!$B$1:$B$9");
    return source;
}

bool Load(XlsxTemplate &workbook, const QByteArray &behind, const QByteArray &reference = "Sheet1!$B$2")
{
    return workbook.load(Book(behind, reference).Archive());
}

/// What stands behind the cells of the sheet once the name has these options.
QByteArray BehindCells(const QByteArray &behind, const QStringList &options, const QByteArray &reference = "Sheet1!$B$2")
{
    XlsxTemplate workbook;
    if (!Load(workbook, behind, reference) || !workbook.setOptions(kName, options))
        return workbook.errorString().toUtf8();
    return Between(SavedParts(workbook).value(kSheet), "</sheetData>", "</worksheet>");
}

const QStringList kNew{QStringLiteral("x"), QStringLiteral("y")};
const QByteArray kNewSource = QByteArrayLiteral("\"x,y\"");
const QByteArray kUsual = QByteArrayLiteral("allowBlank=\"1\" showInputMessage=\"1\" showErrorMessage=\"1\" ");

} // namespace

/// Cells whose value is picked from a list.
class tst_XlsxTemplateLists : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_entries_of_a_list_are_told_data()
    {
        QTest::addColumn<QByteArray>("behind");
        QTest::addColumn<QStringList>("options");
        const auto typed = [](const QByteArray &source) { return Validations(1, Validation("B2", source)) + kMargins; };
        const QStringList colours{QStringLiteral("Red"), QStringLiteral("Green"), QStringLiteral("Blue")};
        QTest::newRow("typed") << typed("\"yes,no\"") << QStringList{QStringLiteral("yes"), QStringLiteral("no")};
        QTest::newRow("typed, with blanks") << typed("\"yes, no \"") << QStringList{QStringLiteral("yes"), QStringLiteral("no")};
        QTest::newRow("typed, with quotes") << typed("\"3\"\",R&amp;D\"") << QStringList{QStringLiteral("3\""), QStringLiteral("R&D")};
        QTest::newRow("a range of another sheet") << typed("'My Lists'!$A$1:$A$4") << colours;
        QTest::newRow("a name") << typed("Colours") << colours;
        QTest::newRow("a name in other case, behind an equals sign") << typed("=COLOURS") << colours;
        QTest::newRow("numbers and truth") << typed("Numbers")
                                           << QStringList{QStringLiteral("12"), QStringLiteral("0.5"), QStringLiteral("TRUE")};
        QTest::newRow("a whole column") << typed("'My Lists'!$A:$A") << colours;
        QTest::newRow("a range of its sheet") << typed("$D$1:$D$5") << QStringList();
        QTest::newRow("a text that is a name") << typed("INDIRECT(\"Colours\")") << colours;
        QTest::newRow("a text that is a range") << typed("INDIRECT(\"'My Lists'!$A$1:$A$4\")") << colours;
        QTest::newRow("a text that is computed") << typed("INDIRECT(\"Col\"&amp;\"ours\")") << QStringList();
        QTest::newRow("what stands in another cell") << typed("INDIRECT($A$1)") << QStringList();
        QTest::newRow("in an extension") << kMargins + Extension("B1:B9", "'My Lists'!$A$1:$A$4") << colours;
        QTest::newRow("a formula") << typed("OFFSET($A$1,0,0,3)") << QStringList();
        QTest::newRow("a sheet that is not there") << typed("Gone!$A$1:$A$4") << QStringList();
        QTest::newRow("no list, but numbers") << QByteArray(
            "<dataValidations count=\"1\"><dataValidation type=\"whole\" sqref=\"B2\"><formula1>1</formula1>"
            "</dataValidation></dataValidations>")
                                              << QStringList();
        QTest::newRow("of other cells") << Validations(1, Validation("B3:B9 A1", "\"a\"")) << QStringList();
    }
    void the_entries_of_a_list_are_told()
    {
        QFETCH(QByteArray, behind);
        QFETCH(QStringList, options);
        XlsxTemplate workbook;
        QVERIFY(Load(workbook, behind));
        QCOMPARE(workbook.options(kName), options);
    }

    void the_column_of_a_table_is_a_list_data()
    {
        QTest::addColumn<QByteArray>("list");
        QTest::addColumn<QStringList>("options");
        const QStringList colours{QStringLiteral("Red"), QStringLiteral("Green")};
        QTest::newRow("by a text") << QByteArray("INDIRECT(\"Paints[Colour]\")") << colours;
        QTest::newRow("by a text, in lower case") << QByteArray("indirect(\"paints[Colour]\")") << colours;
        QTest::newRow("by itself") << QByteArray("Paints[Colour]") << colours;
        QTest::newRow("by a name") << QByteArray("PaintColours") << colours;
        QTest::newRow("the whole table, of one column") << QByteArray("INDIRECT(\"Paints\")") << colours;
        QTest::newRow("no such column") << QByteArray("INDIRECT(\"Paints[Color]\")") << QStringList();
        QTest::newRow("no such table") << QByteArray("INDIRECT(\"Paint[Colour]\")") << QStringList();
    }
    void the_column_of_a_table_is_a_list()
    {
        QFETCH(QByteArray, list);
        QFETCH(QStringList, options);
        Template source = Book(Validations(1, Validation("B2", list)));
        source.Name("PaintColours", "Paints[Colour]");
        source.parts["xl/tables/table1.xml"] =
            "<table id=\"1\" name=\"Paints\" displayName=\"Paints\" ref=\"A1:A2\" headerRowCount=\"0\"><tableColumns count=\"1\">"
            "<tableColumn id=\"1\" name=\"Colour\"/></tableColumns></table>";
        source.parts["xl/worksheets/_rels/sheet2.xml.rels"] = Relationships(Relationship("rId1", "table", "../tables/table1.xml"));
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        QCOMPARE(workbook.options(kName), options);
        workbook.setValue(kName, QStringLiteral("Black"));
        QCOMPARE(workbook.error(), options.isEmpty() ? XlsxTemplate::Error::None : XlsxTemplate::Error::ValueError);
    }

    void a_relative_source_moves_along_with_its_cell()
    {
        XlsxTemplate workbook;
        QVERIFY(Load(workbook, Validations(1, Validation("B1:B9", "'My Lists'!A1"))));
        QCOMPARE(workbook.options(kName), QStringList(QStringLiteral("Green")));
    }

    void a_local_name_comes_before_that_of_the_workbook()
    {
        Template source = Book(Validations(1, Validation("B2", "Colours")));
        source.parts["xl/workbook.xml"].replace(
            "</definedNames>", "<definedName name=\"Colours\" localSheetId=\"0\">'My Lists'!$A$2</definedName></definedNames>");
        XlsxTemplate workbook;
        QVERIFY(workbook.load(source.Archive()));
        QCOMPARE(workbook.options(kName), QStringList(QStringLiteral("Green")));
    }

    void names_that_mean_each_other_end()
    {
        Template source = Book(Validations(1, Validation("B2", "One")));
        source.Name("One", "Two").Name("Two", "One").Name("Three", "Colours");
        XlsxTemplate workbook;
        QVERIFY(workbook.load(source.Archive()));
        QCOMPARE(workbook.options(kName), QStringList());
        source.Sheet(1, "", Validations(1, Validation("B2", "Three")));
        QVERIFY(workbook.load(source.Archive()));
        QCOMPARE(workbook.options(kName).size(), 3);
    }

    void a_name_is_a_list_if_all_of_its_cells_are_of_one_data()
    {
        using Kind = XlsxTemplate::Kind;
        QTest::addColumn<QByteArray>("reference");
        QTest::addColumn<Kind>("kind");
        QTest::newRow("one of its cells") << QByteArray("Sheet1!$B$2") << Kind::List;
        QTest::newRow("all of its cells") << QByteArray("Sheet1!$B$2:$B$4") << Kind::List;
        QTest::newRow("both of its ranges") << QByteArray("Sheet1!$B$3,Sheet1!$D$1") << Kind::List;
        QTest::newRow("across both ranges") << QByteArray("Sheet1!$B$4:$B$6") << Kind::List;
        QTest::newRow("a row that begins in it") << QByteArray("Sheet1!$B$2:$D$2") << Kind::Range;
        QTest::newRow("one beside it") << QByteArray("Sheet1!$B$2,Sheet1!$C$9") << Kind::Places;
        QTest::newRow("a cell of another sheet") << QByteArray("'My Lists'!$B$2") << Kind::Cell;
    }
    void a_name_is_a_list_if_all_of_its_cells_are_of_one()
    {
        QFETCH(QByteArray, reference);
        QFETCH(XlsxTemplate::Kind, kind);
        XlsxTemplate workbook;
        QVERIFY(Load(workbook, Validations(1, Validation("B1:B4 D1 B5:B8", "\"a,b\"")), reference));
        QCOMPARE(workbook.kindOf(kName), kind);
    }

    void only_values_of_the_list_are_taken_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("isTaken");
        const QByteArray typed = "\"yes,1.50,TRUE\"";
        QTest::newRow("typed") << typed << QVariant("yes") << true;
        QTest::newRow("typed in other case") << typed << QVariant("Yes") << false;
        QTest::newRow("not typed") << typed << QVariant("no") << false;
        QTest::newRow("a typed number") << typed << QVariant(1.5) << true;
        QTest::newRow("a typed number as text") << typed << QVariant("1.50") << true;
        QTest::newRow("another number") << typed << QVariant(1.51) << false;
        QTest::newRow("a typed truth") << typed << QVariant(true) << true;
        QTest::newRow("another truth") << typed << QVariant(false) << false;
        QTest::newRow("an empty text") << typed << QVariant(QString()) << false;
        QTest::newRow("nothing") << typed << QVariant() << true;
        QTest::newRow("of cells, in other case") << QByteArray("Colours") << QVariant("RED") << true;
        QTest::newRow("not in cells") << QByteArray("Colours") << QVariant("Black") << false;
        QTest::newRow("a number of cells") << QByteArray("Numbers") << QVariant(12.0) << true;
        QTest::newRow("a number of cells as text") << QByteArray("Numbers") << QVariant("0.5") << true;
        QTest::newRow("a formula tells nothing") << QByteArray("OFFSET($A$1,0,0,3)") << QVariant("anything") << true;
        QTest::newRow("empty cells tell nothing") << QByteArray("$D$1:$D$5") << QVariant("anything") << true;
        QTest::newRow("of another workbook") << QByteArray("[1]Sheet1!$A$1:$A$3") << QVariant("anything") << true;
    }
    void only_values_of_the_list_are_taken()
    {
        QFETCH(QByteArray, source);
        QFETCH(QVariant, value);
        QFETCH(bool, isTaken);
        XlsxTemplate workbook;
        QVERIFY(Load(workbook, Validations(1, Validation("B2", source))));
        QCOMPARE(workbook.setValue(kName, value), isTaken);
        QCOMPARE(workbook.error(), isTaken ? XlsxTemplate::Error::None : XlsxTemplate::Error::ValueError);
        workbook.setValuesOutsideListsAllowed(true);
        VERIFY_DONE(workbook, setValue(kName, value));
        if (value.isValid())
            QCOMPARE(workbook.value(kName), value);
    }

    void a_refusal_names_cell_value_and_list()
    {
        XlsxTemplate workbook;
        QVERIFY(Load(workbook, Validations(1, Validation("A1:B2", "\"yes,no\""))));
        QVERIFY(!workbook.setValue(kName, QStringLiteral("perhaps")));
        QCOMPARE(workbook.errorString(), QStringLiteral("Sheet1!B2: perhaps is not in the list of the cell: yes, no"));
        QVERIFY(!workbook.value(kName).isValid());
    }

    void one_value_outside_a_list_keeps_all_of_them_out()
    {
        XlsxTemplate workbook;
        QVERIFY(Load(workbook, Validations(1, Validation("B3", "\"yes,no\"")), "Sheet1!$B$2:$B$4"));
        QVERIFY(!workbook.setValues(kName, {{1}, {2}, {3}}));
        QVERIFY(workbook.errorString().startsWith(QStringLiteral("Sheet1!B3")));
        QCOMPARE(SavedParts(workbook), Book(Validations(1, Validation("B3", "\"yes,no\"")), "Sheet1!$B$2:$B$4").parts);
        VERIFY_DONE(workbook, setValues(kName, {{1}, {"no"}, {3}}));
    }

    void an_empty_text_is_taken_where_blanks_are_allowed()
    {
        XlsxTemplate workbook;
        QVERIFY(Load(workbook, Validations(1, Validation("B2", "\"yes\"", "allowBlank=\"1\" "))));
        VERIFY_DONE(workbook, setValue(kName, QString()));
    }

    void nothing_empties_a_cell_whatever_its_list()
    {
        for (const QVariant &nothing : {QVariant(), QVariant::fromValue(nullptr), QVariant(QJsonValue())}) {
            XlsxTemplate workbook;
            QVERIFY(Load(workbook, Validations(1, Validation("B2", "\"yes\""))));
            VERIFY_DONE(workbook, setValue(kName, nothing));
        }
    }

    void entries_change_with_the_cells_that_they_stand_in()
    {
        Template source = Book(Validations(1, Validation("B2", "Colours")));
        source.Name("First", "'My Lists'!$A$1");
        XlsxTemplate workbook;
        QVERIFY(workbook.load(source.Archive()));
        QVERIFY(!workbook.setValue(kName, QStringLiteral("Pink")));
        VERIFY_DONE(workbook, setValue(QStringLiteral("First"), QStringLiteral("Pink")));
        VERIFY_DONE(workbook, setValue(kName, QStringLiteral("Pink")));
        QVERIFY(!workbook.setValue(kName, QStringLiteral("Red")));
    }

    void dates_of_a_list_are_compared_by_day()
    {
        Template source = Book(Validations(1, Validation("B2", "'My Lists'!$C$1:$C$2")));
        source.parts["xl/worksheets/sheet2.xml"].replace("<c r=\"B1\">", "<c r=\"C1\" t=\"d\"><v>2026-11-22</v></c><c r=\"B1\">");
        XlsxTemplate workbook;
        QVERIFY(workbook.load(source.Archive()));
        QCOMPARE(workbook.options(kName), QStringList(QStringLiteral("2026-11-22")));
        QVERIFY(!workbook.setValue(kName, QDate(2026, 11, 23)));
        VERIFY_DONE(workbook, setValue(kName, QDate(2026, 11, 22)));
    }

    void a_new_list_goes_where_the_format_wants_it_data()
    {
        QTest::addColumn<QByteArray>("behind");
        QTest::addColumn<QByteArray>("result");
        const QByteArray made = Validations(1, Validation("B2", kNewSource, kUsual));
        QTest::newRow("margins") << kMargins << made + kMargins;
        QTest::newRow("nothing behind") << QByteArray() << made;
        QTest::newRow("between") << QByteArray(
            "<mergeCells count=\"1\"><mergeCell ref=\"D1:D2\"/></mergeCells><conditionalFormatting sqref=\"A1\"/>"
            "<hyperlinks><hyperlink ref=\"A1\"/></hyperlinks>")
                                 << "<mergeCells count=\"1\"><mergeCell ref=\"D1:D2\"/></mergeCells><conditionalFormatting sqref=\"A1\"/>"
                + made + "<hyperlinks><hyperlink ref=\"A1\"/></hyperlinks>";
        QTest::newRow("beside another") << Validations(1, Validation("C2", "\"a\"")) + kMargins
                                        << Validations(2, Validation("C2", "\"a\"") + Validation("B2", kNewSource, kUsual)) + kMargins;
        QTest::newRow("in place of a rule")
            << "<dataValidations count=\"1\"><dataValidation type=\"whole\" sqref=\"B2\"><formula1>1</formula1></dataValidation>"
               "</dataValidations>"
                + kMargins
            << made + kMargins;
        QTest::newRow("in place of its own") << Validations(1, Validation("B2", "\"a,b\"", "promptTitle=\"Pick\" ")) + kMargins
                                             << Validations(1, Validation("B2", kNewSource, "promptTitle=\"Pick\" ")) + kMargins;
        QTest::newRow("out of a larger one") << Validations(1, Validation("B1:B9", "Colours", "prompt=\"Pick\" ")) + kMargins
                                             << Validations(2,
                                                            Validation("B1 B3:B9", "Colours", "prompt=\"Pick\" ")
                                                                + "<dataValidation type=\"list\" prompt=\"Pick\" sqref=\"B2\"><formula1>"
                                                                + kNewSource + "</formula1></dataValidation>")
                + kMargins;
        QTest::newRow("in place of an extension's") << kMargins + Extension("B2", "Colours") << kMargins + Extension("B2", kNewSource);
        QTest::newRow("out of an extension's") << kMargins + Extension("A2:B2", "Colours")
                                               << Validations(1,
                                                              "<dataValidation type=\"list\" allowBlank=\"1\" sqref=\"B2\"><formula1>"
                                                                  + kNewSource + "</formula1></dataValidation>")
                + kMargins + Extension("A2", "Colours");
    }
    void a_new_list_goes_where_the_format_wants_it()
    {
        QFETCH(QByteArray, behind);
        QFETCH(QByteArray, result);
        QCOMPARE(BehindCells(behind, kNew), result);
    }

    void a_list_over_several_cells_keeps_one_validation()
    {
        QCOMPARE(BehindCells(Validations(1, Validation("B2:B9", "\"a,b\"")), kNew, "Sheet1!$B$2:$B$9"),
                 Validations(1, Validation("B2:B9", kNewSource)));
        QCOMPARE(BehindCells(kMargins, kNew, "Sheet1!$B$2:$B$9,Sheet1!$D$4"),
                 Validations(1, Validation("B2:B9 D4", kNewSource, kUsual)) + kMargins);
        // What it takes in goes, an emptied extension too.
        QCOMPARE(BehindCells(Validations(3, Validation("B2", "\"a\"") + Validation("B3", "\"b\"") + Validation("B4:B12", "\"c\""))
                                 + Extension("B9", "Colours"),
                             kNew, "Sheet1!$B$2:$B$9"),
                 Validations(2, Validation("B2:B9", kNewSource) + Validation("B10:B12", "\"c\"")));
    }

    void several_sheets_get_a_list_each()
    {
        XlsxTemplate workbook;
        QVERIFY(Load(workbook, kMargins, "Sheet1!$B$2,'My Lists'!$D$1"));
        VERIFY_DONE(workbook, setOptions(kName, kNew));
        QCOMPARE(workbook.options(kName), kNew);
        const auto parts = SavedParts(workbook);
        QCOMPARE(Between(parts.value(kSheet), "</sheetData>", "<page"), Validations(1, Validation("B2", kNewSource, kUsual)));
        QCOMPARE(Between(parts.value("xl/worksheets/sheet2.xml"), "</sheetData>", "<page"),
                 Validations(1, Validation("D1", kNewSource, kUsual)));
        QCOMPARE(parts.value("xl/workbook.xml"), Book(kMargins, "Sheet1!$B$2,'My Lists'!$D$1").parts.value("xl/workbook.xml"));
    }

    void a_new_list_counts_at_once()
    {
        XlsxTemplate workbook;
        QVERIFY(Load(workbook, Validations(1, Validation("B2", "\"a,b\""))));
        QVERIFY(!workbook.setValue(kName, QStringLiteral("x")));
        VERIFY_DONE(workbook, setOptions(kName, kNew));
        VERIFY_DONE(workbook, setValue(kName, QStringLiteral("x")));
        QVERIFY(!workbook.setValue(kName, QStringLiteral("a")));
        QCOMPARE(workbook.kindOf(kName), XlsxTemplate::Kind::List);
    }

    void options_read_back_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::newRow("quotes") << QStringList{QStringLiteral("3\""), QStringLiteral("\"\""), QStringLiteral("a\"b")};
        QTest::newRow("markup") << QStringList{QStringLiteral("R&D"), QStringLiteral("<b>")};
        QTest::newRow("other letters") << QStringList{QString::fromUtf8("\xc3\xa4"), QString::fromUtf8("\xf0\x9f\x98\x80")};
        QTest::newRow("as many letters as a list holds") << QStringList{QString(200, QLatin1Char('x')), QString(54, QLatin1Char('y'))};
    }
    void options_read_back()
    {
        QFETCH(QStringList, options);
        XlsxTemplate workbook;
        QVERIFY(Load(workbook, kMargins));
        VERIFY_DONE(workbook, setOptions(kName, options));
        XlsxTemplate again;
        VERIFY_DONE(again, load(workbook.save()));
        QCOMPARE(again.options(kName), options);
        for (const QString &option : options)
            VERIFY_DONE(again, setValue(kName, option));
    }

    void options_that_no_list_holds_are_refused_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << QStringList() << QStringLiteral("no entries");
        QTest::newRow("a comma") << QStringList{QStringLiteral("a"), QStringLiteral("b,c")} << QStringLiteral("comma: b,c");
        QTest::newRow("an empty one") << QStringList{QStringLiteral("a"), QString()} << QStringLiteral("empty");
        QTest::newRow("a blank in front") << QStringList{QStringLiteral(" a")} << QStringLiteral("\" a\"");
        QTest::newRow("a line end") << QStringList{QStringLiteral("a\nb")} << QStringLiteral("line ends");
        QTest::newRow("no character of XML") << QStringList{QString(QChar(0xffff))} << QStringLiteral("control characters");
        QTest::newRow("too many letters") << QStringList{QString(200, QLatin1Char('x')), QString(55, QLatin1Char('y'))}
                                          << QStringLiteral("256 characters");
    }
    void options_that_no_list_holds_are_refused()
    {
        QFETCH(QStringList, options);
        QFETCH(QString, text);
        XlsxTemplate workbook;
        QVERIFY(Load(workbook, kMargins));
        QVERIFY(!workbook.setOptions(kName, options));
        QVERIFY2(workbook.errorString().contains(text), qPrintable(workbook.errorString()));
        QCOMPARE(SavedParts(workbook), Book(kMargins).parts);
    }

    void a_document_with_prefixes_gets_a_list_with_them()
    {
        Template source = Book(kMargins);
        source.parts[kSheet] = "<x:worksheet xmlns:x=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><x:sheetData/>"
                               "<x:pageMargins left=\"1\"/></x:worksheet>";
        XlsxTemplate workbook;
        QVERIFY(workbook.load(source.Archive()));
        VERIFY_DONE(workbook, setOptions(kName, kNew));
        QCOMPARE(Between(SavedParts(workbook).value(kSheet), "<x:sheetData/>", "<x:page"),
                 "<x:dataValidations count=\"1\"><x:dataValidation type=\"list\" " + kUsual
                     + "sqref=\"B2\"><x:formula1>\"x,y\"</x:formula1></x:dataValidation></x:dataValidations>");
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxTemplateLists)
#include "tst_XlsxTemplateLists.moc"
