#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/Book.h"
#include "xlsx/XlsxFiles.h"

#include <QTemporaryDir>

using namespace Velmora;
using namespace VelmoraTest;

Q_DECLARE_METATYPE(Velmora::XlsxTemplate::Kind)

namespace {

using Kind = XlsxTemplate::Kind;
using Error = XlsxTemplate::Error;

const QByteArray kSheet1 = QByteArrayLiteral("xl/worksheets/sheet1.xml");
const QByteArray kMain = QByteArrayLiteral("http://schemas.openxmlformats.org/spreadsheetml/2006/main");
const QByteArray kOffice = QByteArrayLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships");

QString Q(const char *text)
{
    return QString::fromUtf8(text);
}

QVariantList Row(const QVariantList &values)
{
    return values;
}

/// Two sheets, three rows and a merged cell in the first, names of every kind.
Template Names()
{
    Template source;
    source.Sheet(
        1,
        "<row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t>Head</t></is></c><c r=\"B1\" t=\"inlineStr\"><is><t> Price </t></is></c></row>"
        "<row r=\"2\"><c r=\"A2\"><v>1</v></c><c r=\"B2\"><f>Z99*2</f><v>2</v></c></row><row r=\"3\"><c r=\"B3\" "
        "t=\"b\"><v>1</v></c></row>",
        "<mergeCells count=\"1\"><mergeCell ref=\"D1:E2\"/></mergeCells><pageMargins left=\"0.7\"/>");
    source.Sheet(2, "<row r=\"1\"><c r=\"A1\"><v>5</v></c></row>", "<pageMargins left=\"0.7\"/>", "It's Dave's &amp; Co");
    source.Name("Cell", "Sheet1!$A$2").Name("Range", "Sheet1!$A$2:$B$9").Name("Places", "Sheet1!$A$3,'It''s Dave''s &amp; Co'!$A$1:$B$1");
    source.Name("Merged", "Sheet1!$D$1:$E$2").Name("Hidden", "Sheet1!$E$2").Name("Over", "Sheet1!$D$1:$F$2");
    source.Name("Far", "Sheet1!$XFD$1048576").Name("Relative", "Sheet1!A2").Name("Lower", "sheet1!$a$2");
    source.Name("Constant", "0.19").Name("Text", "\"x\"").Name("Other", "[1]Sheet1!$A$1").Name("Broken", "Sheet1!#REF!");
    source.Name("Formula", "SUM(Sheet1!$A$1:$A$9)").Name("NoSheet", "Gone!$A$1").Name("_xlnm.Print_Area", "Sheet1!$A$1:$B$9");
    source.Name("Column", "Sheet1!$A:$A").Name("All", "Sheet1!$A:$XFD");
    return source;
}

} // namespace

/// Names of every kind, in workbooks of every make; ranges; files that are no workbooks.
class tst_XlsxTemplateNames : public TestCase
{
    Q_OBJECT

    XlsxTemplate m_workbook;

    bool Load(const Template &source) { return m_workbook.load(source.Archive()); }
    QByteArray Data(const QByteArray &part = kSheet1) { return SheetDataOf(SavedParts(m_workbook).value(part)); }

private Q_SLOTS:
    void a_name_has_a_kind_data()
    {
        QTest::addColumn<XlsxTemplate::Kind>("kind");
        QTest::addColumn<QString>("reason");
        QTest::newRow("Cell") << Kind::Cell << QString();
        QTest::newRow("CELL") << Kind::Cell << QString();
        QTest::newRow("Relative") << Kind::Cell << QString();
        QTest::newRow("Lower") << Kind::Cell << QString();
        QTest::newRow("Far") << Kind::Cell << QString();
        QTest::newRow("Merged") << Kind::Cell << QString();
        QTest::newRow("Range") << Kind::Range << QString();
        QTest::newRow("Over") << Kind::Range << QString();
        QTest::newRow("Column") << Kind::Range << QString();
        QTest::newRow("Places") << Kind::Places << QString();
        QTest::newRow("Constant") << Kind::Unusable << "constant";
        QTest::newRow("Text") << Kind::Unusable << "constant";
        QTest::newRow("Other") << Kind::Unusable << "another workbook";
        QTest::newRow("Broken") << Kind::Unusable << "#REF!";
        QTest::newRow("Formula") << Kind::Unusable << "formula";
        QTest::newRow("NoSheet") << Kind::Unusable << "sheet";
        QTest::newRow("Unknown") << Kind::None << QString();
        QTest::newRow("_xlnm.Print_Area") << Kind::None << QString();
    }
    void a_name_has_a_kind()
    {
        QFETCH(XlsxTemplate::Kind, kind);
        QFETCH(QString, reason);
        QVERIFY(Load(Names()));
        const QString name = Q(QTest::currentDataTag());
        QCOMPARE(m_workbook.kindOf(name), kind);
        QVERIFY(m_workbook.unusableReason(name).contains(reason));
        QCOMPARE(m_workbook.unusableReason(name).isEmpty(), reason.isEmpty());
        const bool isUsable = kind != Kind::Unusable && kind != Kind::None;
        QCOMPARE(m_workbook.setValue(name, 1), isUsable);
        QCOMPARE(m_workbook.error(), isUsable ? Error::None : kind == Kind::None ? Error::UnknownName : Error::UnusableName);
        QCOMPARE(m_workbook.errorString().isEmpty(), isUsable);
        if (!isUsable) {
            QVERIFY(m_workbook.errorString().contains(name));
            QCOMPARE(SavedParts(m_workbook), Names().parts);
        }
    }

    void a_name_tells_where_it_stands()
    {
        QVERIFY(Load(Names()));
        QCOMPARE(m_workbook.reference("Range"), Q("Sheet1!$A$2:$B$9"));
        QCOMPARE(m_workbook.reference("places"), Q("Sheet1!$A$3,'It''s Dave''s & Co'!$A$1:$B$1"));
        QCOMPARE(m_workbook.reference("Broken"), Q("Sheet1!#REF!"));
        QCOMPARE(m_workbook.reference("Unknown"), QString());
    }

    void names_are_listed_in_the_workbooks_order()
    {
        QVERIFY(Load(Names()));
        QCOMPARE(m_workbook.names().mid(0, 4), (QStringList{"Cell", "Range", "Places", "Merged"}));
        QVERIFY(m_workbook.names().contains("Constant"));
        QVERIFY(!m_workbook.names().contains("_xlnm.Print_Area"));
    }

    void a_value_goes_to_all_places_on_all_sheets()
    {
        QVERIFY(Load(Names()));
        QCOMPARE(m_workbook.value("Places"), QVariant());
        VERIFY_DONE(m_workbook, setValue("Places", "x"));
        const auto parts = SavedParts(m_workbook);
        const auto cell = [](const QByteArray &at) { return "<c r=\"" + at + "\" t=\"inlineStr\"><is><t>x</t></is></c>"; };
        QVERIFY(parts.value(kSheet1).contains("<row r=\"3\">" + cell("A3") + "<c r=\"B3\""));
        QCOMPARE(SheetDataOf(parts.value("xl/worksheets/sheet2.xml")), "<row r=\"1\">" + cell("A1") + cell("B1") + "</row>");
    }

    void names_of_a_sheet_stand_beside_those_of_the_workbook()
    {
        Template source = Names();
        source.parts["xl/workbook.xml"].replace("</definedNames>",
                                                "<definedName name=\"Cell\" localSheetId=\"0\">Sheet1!$B$3</definedName>"
                                                "<definedName name=\"Cell\" localSheetId=\"1\">'It''s Dave''s &amp; Co'!$A$1</definedName>"
                                                "<definedName name=\"Cell\" localSheetId=\"7\">Sheet1!$A$1</definedName></definedNames>");
        QVERIFY(Load(source));
        const QString quoted = Q("'It''s Dave''s & Co'!Cell");
        QVERIFY(m_workbook.names().contains("Sheet1!Cell"));
        QVERIFY(m_workbook.names().contains(quoted));
        QCOMPARE(m_workbook.value("Cell"), QVariant(1LL));
        QCOMPARE(m_workbook.value("Sheet1!Cell"), QVariant(true));
        QCOMPARE(m_workbook.value(quoted), QVariant(5LL));
        VERIFY_DONE(m_workbook, setValue(quoted, 6));
        QCOMPARE(m_workbook.value("Cell"), QVariant(1LL));
        QCOMPARE(Data("xl/worksheets/sheet2.xml"), QByteArray("<row r=\"1\"><c r=\"A1\"><v>6</v></c></row>"));
    }

    void a_merged_cell_takes_a_value_in_its_first()
    {
        QVERIFY(Load(Names()));
        VERIFY_DONE(m_workbook, setValue("Merged", 3));
        QVERIFY(Data().contains("<c r=\"D1\"><v>3</v></c>"));
        QVERIFY(!Data().contains("<c r=\"E1\""));
        QCOMPARE(m_workbook.value("Merged"), QVariant(3LL));
        // Of a range, only what shows.
        VERIFY_DONE(m_workbook, setValue("Over", 4));
        QVERIFY(Data().contains("<c r=\"D1\"><v>4</v></c><c r=\"F1\"><v>4</v></c></row>"));
        QVERIFY(!Data().contains("<c r=\"D2\""));
        // What is under another cell is refused.
        QVERIFY(!m_workbook.setValue("Hidden", 5));
        QCOMPARE(m_workbook.error(), Error::ObstacleError);
        QVERIFY2(m_workbook.errorString().startsWith("Sheet1!E2: ") && m_workbook.errorString().contains("D1:E2"),
                 qPrintable(m_workbook.errorString()));
        QVERIFY(!m_workbook.setValues("Over", {Row({1}), Row({2})}));
        VERIFY_DONE(m_workbook, setValues("Over", {Row({1, QVariant(), 2}), Row({QVariant(), QVariant(), 3})}));
    }

    void a_range_is_read_as_rows()
    {
        QVERIFY(Load(Names()));
        const QVariantList rows = m_workbook.value("Range").toList();
        QCOMPARE(rows, (QVariantList{QVariant(QVariantList{1LL, 2LL}), QVariant(QVariantList{QVariant(), true})}));
        QVERIFY(m_workbook.hasFormula("Range"));
        QVERIFY(!m_workbook.hasFormula("Cell"));
        QCOMPARE(m_workbook.value("Column").toList().size(), 2);
        QCOMPARE(m_workbook.value("All").toList().size(), 3);
        QCOMPARE(m_workbook.columnNames("Range"), (QStringList{"Head", "Price"}));
        QCOMPARE(m_workbook.columnNames("Column"), QStringList());
    }

    void a_range_is_filled_row_by_row()
    {
        QVERIFY(Load(Names()));
        XlsxTemplate::Fitted fitted;
        const QVariant keep = QVariant::fromValue(XlsxTemplate::Keep());
        VERIFY_DONE(m_workbook, setValues("Range", {Row({7, keep, "left out"}), Row({"x"}), Row({QVariant(), 0.5})}, &fitted));
        QCOMPARE(fitted.rows, 3);
        QCOMPARE(fitted.columns, 2);
        QCOMPARE(Data().mid(Data().indexOf("<row r=\"2\">")),
                 QByteArray("<row r=\"2\"><c r=\"A2\"><v>7</v></c><c r=\"B2\"><f>Z99*2</f><v>2</v></c></row>"
                            "<row r=\"3\"><c r=\"A3\" t=\"inlineStr\"><is><t>x</t></is></c><c r=\"B3\" t=\"b\"><v>1</v></c></row>"
                            "<row r=\"4\"><c r=\"B4\"><v>0.5</v></c></row>"));
        const QVector<QVariantList> many(20, Row({1}));
        VERIFY_DONE(m_workbook, setValues("Range", many, &fitted));
        QCOMPARE(fitted.rows, 8);
        QCOMPARE(fitted.columns, 1);
        // One value that is none, and nothing changes.
        const auto before = SavedParts(m_workbook);
        QVERIFY(!m_workbook.setValues("Range", {Row({9}), Row({QVariant(QVariantList())})}, &fitted));
        QVERIFY2(m_workbook.errorString().startsWith("Sheet1!A3: "), qPrintable(m_workbook.errorString()));
        QCOMPARE(fitted.rows, 0);
        QCOMPARE(SavedParts(m_workbook), before);
        QVERIFY(!m_workbook.setValues("Places", {Row({1})}));
        QCOMPARE(m_workbook.error(), Error::UnusableName);
    }

    void a_range_is_emptied_and_keeps_its_formats()
    {
        Template source = Names();
        source.parts[kSheet1].replace("<c r=\"B3\" t=\"b\"", "<c r=\"B3\" s=\"1\" t=\"b\"");
        QVERIFY(Load(source));
        VERIFY_DONE(m_workbook, clear("All"));
        QCOMPARE(Data(),
                 QByteArray("<row r=\"1\"><c r=\"A1\"/><c r=\"B1\"/></row><row r=\"2\"><c r=\"A2\"/><c r=\"B2\"/></row>"
                            "<row r=\"3\"><c r=\"B3\" s=\"1\"/></row>"));
        QVERIFY(Load(source));
        VERIFY_DONE(m_workbook, setValue("Range", QVariant()));
        QVERIFY(Data().contains("Price"));
        QVERIFY(!Data().contains("Z99*2"));
    }

    void more_cells_than_a_column_has_are_refused()
    {
        QVERIFY(Load(Names()));
        QVERIFY(!m_workbook.setValue("All", 1));
        QCOMPARE(m_workbook.error(), Error::LimitError);
        QCOMPARE(SavedParts(m_workbook), Names().parts);
    }

    void rows_and_cells_may_lack_their_places()
    {
        Template source;
        source.Sheet(1,
                     "<row><c><v>1</v></c><c t=\"str\"><v>b</v></c></row><row r=\"4\"><c "
                     "r=\"C4\"><v>3</v></c><c><v>4</v></c></row><row><c/><c><v>5</v></c></row>");
        source.Name("B1", "Sheet1!$B$1")
            .Name("D4", "Sheet1!$D$4")
            .Name("B5", "Sheet1!$B$5")
            .Name("B2", "Sheet1!$B$2")
            .Name("C1", "Sheet1!$C$1");
        QVERIFY(Load(source));
        QCOMPARE(m_workbook.value("B1"), QVariant("b"));
        QCOMPARE(m_workbook.value("D4"), QVariant(4LL));
        QCOMPARE(m_workbook.value("B5"), QVariant(5LL));
        for (const char *name : {"B1", "D4", "B5", "B2", "C1"})
            VERIFY_DONE(m_workbook, setValue(Q(name), 9));
        QCOMPARE(Data(),
                 QByteArray("<row><c><v>1</v></c><c><v>9</v></c><c r=\"C1\"><v>9</v></c></row><row r=\"2\"><c r=\"B2\"><v>9</v></c></row>"
                            "<row r=\"4\"><c r=\"C4\"><v>3</v></c><c><v>9</v></c></row><row><c/><c><v>9</v></c></row>"));
    }

    void columns_stand_in_the_order_of_columns()
    {
        Template source;
        source.Sheet(1, "<row r=\"1\"><c r=\"B1\"/><c r=\"AA1\"/></row>", "<pageMargins/>");
        source.parts[kSheet1].replace("<sheetData>", "<cols><col min=\"24\" max=\"30\" style=\"1\"/></cols><sheetData>");
        source.Name("Z", "Sheet1!$Z$1").Name("AB", "Sheet1!$AB$1").Name("XFD", "Sheet1!$XFD$1").Name("Styled", "Sheet1!$C$1");
        QVERIFY(Load(source));
        for (const char *name : {"XFD", "AB", "Z"})
            VERIFY_DONE(m_workbook, setValue(Q(name), 1));
        QCOMPARE(Data(),
                 QByteArray("<row r=\"1\"><c r=\"B1\"/><c r=\"Z1\" s=\"1\"><v>1</v></c><c r=\"AA1\"/><c r=\"AB1\" s=\"1\"><v>1</v></c>"
                            "<c r=\"XFD1\"><v>1</v></c></row>"));
        // The row's style comes before the column's.
        source.Sheet(1, "<row r=\"1\" s=\"2\" customFormat=\"1\"/>");
        QVERIFY(Load(source));
        VERIFY_DONE(m_workbook, setValue("Styled", 1));
        QCOMPARE(Data(), QByteArray("<row r=\"1\" s=\"2\" customFormat=\"1\"><c r=\"C1\" s=\"2\"><v>1</v></c></row>"));
    }

    void parts_are_found_by_relationships_whatever_their_names()
    {
        Template source;
        const QByteArray types = "<?xml version=\"1.0\"?><Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
                                 "<Default Extension=\"RELS\" ContentType=\"Application/vnd.openxmlformats-package.relationships+XML\"/>"
                                 "<Default Extension=\"xml\" ContentType=\"application/xml\"/><Override PartName=\"/Book/Main.XML\" "
                                 "ContentType=\"application/vnd.openxmlformats-officedocument.SpreadsheetML.sheet.main+xml\"/></Types>";
        const QByteArray sheet = "<x:worksheet xmlns:x=\"" + kMain
            + "\"><x:sheetData><x:row r=\"1\"><x:c r=\"A1\" t=\"s\"><x:v>0</x:v></x:c></x:row></x:sheetData></x:worksheet>";
        source.parts = {
            {"[Content_Types].xml", types},
            {"_rels/.rels", Relationships(Relationship("a", "officeDocument", "/Book/Main.XML"))},
            {"Book/Main.XML",
             "<x:workbook xmlns:x=\"" + kMain + "\" xmlns:q=\"" + kOffice
                 + "\"><x:sheets><x:sheet name=\"Eins\" sheetId=\"4\" q:id=\"z9\"/></x:sheets><x:definedNames><x:definedName "
                   "name=\"N\">Eins!$A$1</x:definedName><x:definedName name=\"M\">Eins!$B$2</x:definedName></x:definedNames></x:workbook>"},
            {"book/_rels/main.xml.rels",
             Relationships(Relationship("z9", "worksheet", "../data/the%20sheet.bin")
                           + Relationship("z1", "sharedStrings", "/data/Strings.xml"))},
            {"data/the sheet.bin", sheet},
            {"data/strings.xml", "<x:sst xmlns:x=\"" + kMain + "\"><x:si><x:t> s </x:t></x:si></x:sst>"},
        };
        QVERIFY2(Load(source), qPrintable(m_workbook.errorString()));
        QCOMPARE(m_workbook.value("N"), QVariant(" s "));
        VERIFY_DONE(m_workbook, setValue("N", "t"));
        VERIFY_DONE(m_workbook, setValue("M", 2));
        const auto parts = SavedParts(m_workbook);
        QCOMPARE(parts.value("data/the sheet.bin"),
                 QByteArray(sheet)
                     .replace(" t=\"s\"><x:v>0</x:v></x:c>", " t=\"inlineStr\"><x:is><x:t>t</x:t></x:is></x:c>")
                     .replace("</x:row>", "</x:row><x:row r=\"2\"><x:c r=\"B2\"><x:v>2</x:v></x:c></x:row>"));
        QVERIFY(parts.value("Book/Main.XML").endsWith("</x:definedNames><x:calcPr fullCalcOnLoad=\"1\"/></x:workbook>"));
    }

    void tables_are_names_of_their_data_rows()
    {
        Template source = Names();
        source.parts["xl/worksheets/_rels/sheet1.xml.rels"] = Relationships(Relationship("rId1", "table", "../tables/table1.xml"));
        source.parts["xl/tables/table1.xml"] = "<table xmlns=\"" + kMain
            + "\" id=\"1\" name=\"T\" displayName=\"Items\" ref=\"A1:B3\" totalsRowCount=\"1\"><tableColumns count=\"2\"><tableColumn "
              "id=\"1\" name=\"Head\"/>"
              "<tableColumn id=\"2\" name=\"Unit_x000a_price\"/></tableColumns></table>";
        QVERIFY(Load(source));
        QCOMPARE(m_workbook.names().last(), QString("Items"));
        QCOMPARE(m_workbook.kindOf("Items"), Kind::Range);
        QCOMPARE(m_workbook.columnNames("items"), (QStringList{"Head", "Unit\nprice"}));
        QCOMPARE(m_workbook.value("Items"), QVariant(QVariantList{QVariant(QVariantList{1LL, 2LL})}));
        VERIFY_DONE(m_workbook, setValues("Items", {Row({4, 5})}));
        QVERIFY(Data().contains("<c r=\"A2\"><v>4</v></c><c r=\"B2\"><v>5</v></c>"));
        // Its headers are not for filling in.
        source.Name("Header", "Sheet1!$B$1").Name("Both", "Sheet1!$B$1:$B$2");
        QVERIFY(Load(source));
        for (const char *name : {"Header", "Both"}) {
            QVERIFY(!m_workbook.setValue(Q(name), "x"));
            QVERIFY(!m_workbook.clear(Q(name)));
            QCOMPARE(m_workbook.error(), Error::ObstacleError);
            QVERIFY2(m_workbook.errorString().startsWith("Sheet1!B1: ") && m_workbook.errorString().contains("Items"),
                     qPrintable(m_workbook.errorString()));
        }
    }

    void a_shared_formula_passes_on_when_its_cell_gets_a_value()
    {
        Template source;
        source.Sheet(1,
                     "<row r=\"1\"><c r=\"A1\"><f t=\"shared\" ref=\"A1:A3\" si=\"0\">B1&amp;$C$1</f><v>1</v></c></row>"
                     "<row r=\"2\"><c r=\"A2\"><f t=\"shared\" si=\"0\"/><v>2</v></c></row><row r=\"3\"><c r=\"A3\"><f t=\"shared\" "
                     "si=\"0\"/><v>3</v></c></row>");
        source.Name("First", "Sheet1!$A$1").Name("Second", "Sheet1!$A$2").Name("Third", "Sheet1!$A$3");
        QVERIFY(Load(source));
        VERIFY_DONE(m_workbook, setValue("First", 5));
        QVERIFY2(Data().contains("<c r=\"A1\"><v>5</v></c>") && Data().contains("<f t=\"shared\" si=\"0\" ref=\"A2:A3\">B2&amp;$C$1</f>")
                     && Data().contains("<c r=\"A3\"><f t=\"shared\" si=\"0\"/>"),
                 Data().constData());
        VERIFY_DONE(m_workbook, setValue("Third", 6));
        QVERIFY2(Data().contains("<f t=\"shared\" si=\"0\" ref=\"A2:A3\">B2&amp;$C$1</f>") && Data().contains("<c r=\"A3\"><v>6</v></c>"),
                 Data().constData());
        VERIFY_DONE(m_workbook, setValue("Second", 7));
        QVERIFY(!Data().contains("shared"));
    }

    void a_cell_of_an_array_formula_or_a_data_table_is_refused()
    {
        Template source;
        source.Sheet(
            1,
            "<row r=\"1\"><c r=\"A1\"><f t=\"array\" ref=\"A1:A2\">B1:B2</f><v>1</v></c><c r=\"C1\"><f t=\"array\" "
            "ref=\"C1\">SUM(B1:B2)</f></c></row>"
            "<row r=\"2\"><c r=\"A2\"><v>2</v></c></row><row r=\"3\"><c r=\"A3\"><f t=\"dataTable\" ref=\"A3:B4\" dt2D=\"1\"/></c></row>");
        source.Name("Alone", "Sheet1!$C$1").Name("Second", "Sheet1!$A$2").Name("Table", "Sheet1!$B$4").Name("Range", "Sheet1!$A$1:$A$9");
        const QByteArray archive = source.Archive();
        QVERIFY(m_workbook.load(archive));
        for (const auto &call :
             {std::pair<const char *, const char *>("Second", "Sheet1!A2: "), {"Table", "Sheet1!B4: "}, {"Range", "Sheet1!A1: "}}) {
            QVERIFY(!m_workbook.setValue(Q(call.first), 1));
            QCOMPARE(m_workbook.error(), Error::ObstacleError);
            QVERIFY2(m_workbook.errorString().startsWith(Q(call.second)), qPrintable(m_workbook.errorString()));
            QVERIFY(!m_workbook.setFormula(Q(call.first), "1"));
        }
        QVERIFY(!m_workbook.clear("Range"));
        QCOMPARE(SavedParts(m_workbook), ReadArchive(archive));
        VERIFY_DONE(m_workbook, setValue("Alone", 1));
    }

    void the_rows_of_a_sheet_may_be_in_any_order()
    {
        Template source;
        source.Sheet(1,
                     "<row r=\"3\"><c r=\"B3\"><v>3</v></c><c r=\"A3\"><v>2</v></c><c r=\"A3\"><v>9</v></c></row><row r=\"1\"><c "
                     "r=\"A1\"><v>1</v></c></row><row r=\"3\"/>");
        source.Name("A1", "Sheet1!$A$1").Name("A2", "Sheet1!$A$2").Name("A3", "Sheet1!$A$3").Name("B3", "Sheet1!$B$3");
        QVERIFY(Load(source));
        QCOMPARE(m_workbook.value("A3"), QVariant(2LL));
        for (const char *name : {"B3", "A3", "A2", "A1"})
            VERIFY_DONE(m_workbook, setValue(Q(name), 7));
        for (const char *name : {"B3", "A3", "A2", "A1"})
            QCOMPARE(m_workbook.value(Q(name)), QVariant(7LL));
        QCOMPARE(Data().count("<c "), 5);
    }

    // --- Files ---

    void what_is_no_workbook_is_named_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("part");
        const QByteArray good = Names().Archive();
        const QByteArray ole = QByteArray::fromHex("d0cf11e0a1b11ae1") + QByteArray(600, '\0');
        const QString encrypted = "EncryptedPackage";
        Template plain = Names();
        const auto with = [](QMap<QByteArray, QByteArray> parts, const QByteArray &name, const QByteArray &bytes) {
            parts[name] = bytes;
            return MakeArchive(parts);
        };
        QTest::newRow("empty") << QByteArray() << "empty";
        QTest::newRow("cut") << good.left(good.size() / 2) << "end is missing";
        QTest::newRow("password") << ole + QByteArray(reinterpret_cast<const char *>(encrypted.utf16()), 32) << "password";
        QTest::newRow("old") << ole << ".xls";
        QTest::newRow("csv") << QByteArray("a;b\n1;2\n") << "text file";
        QTest::newRow("binary") << QByteArray("\x7f"
                                              "ELF\0\0\0",
                                              7)
                                << "not a workbook";
        QTest::newRow("OpenDocument") << MakeArchive(
            QMap<QByteArray, QByteArray>{{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"}, {"content.xml", "<a/>"}})
                                      << "OpenDocument";
        QTest::newRow("other archive") << MakeArchive(QMap<QByteArray, QByteArray>{{"a.txt", "a"}}) << "not a workbook";
        QTest::newRow("xlsb") << with(plain.parts, "[Content_Types].xml",
                                      QByteArray(plain.parts["[Content_Types].xml"])
                                          .replace("application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml",
                                                   "application/vnd.ms-excel.sheet.binary.macroEnabled.main"))
                              << ".xlsb";
        QTest::newRow("text document") << with(
            plain.parts, "[Content_Types].xml",
            QByteArray(plain.parts["[Content_Types].xml"]).replace("spreadsheetml.sheet.main", "wordprocessingml.document.main"))
                                       << "another kind";
        QTest::newRow("not well-formed") << with(plain.parts, "xl/workbook.xml", "<workbook><sheets>") << "xl/workbook.xml";
        QTest::newRow("other root") << with(plain.parts, "xl/workbook.xml", "<book/>") << "another kind";
        auto without = plain.parts;
        without.remove("xl/workbook.xml");
        QTest::newRow("missing part") << MakeArchive(without) << "missing: xl/workbook.xml";
        QByteArray flipped = good;
        flipped[good.indexOf("xl/workbook.xml") + 30] = char(~flipped.at(good.indexOf("xl/workbook.xml") + 30));
        QTest::newRow("damaged data") << flipped << "damaged: xl/workbook.xml";
    }
    void what_is_no_workbook_is_named()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, part);
        QVERIFY(Load(Names()));
        QVERIFY(!m_workbook.load(bytes));
        QCOMPARE(m_workbook.error(), Error::FormatError);
        QVERIFY2(m_workbook.errorString().contains(part), qPrintable(m_workbook.errorString()));
        QCOMPARE(m_workbook.names(), QStringList()); // nor the one before
    }

    void a_damaged_sheet_is_told_where_it_is_needed()
    {
        Template source = Names();
        source.parts["xl/worksheets/sheet2.xml"] = "<worksheet><sheetData>";
        QVERIFY(Load(source));
        VERIFY_DONE(m_workbook, setValue("Cell", 1));
        QVERIFY(!m_workbook.setValue("Places", 2));
        QCOMPARE(m_workbook.error(), Error::FormatError);
        QVERIFY(m_workbook.errorString().contains("xl/worksheets/sheet2.xml"));
        QVERIFY(!SavedParts(m_workbook).value(kSheet1).contains("<c r=\"A3\""));
    }

    void a_damaged_sheet_is_told_where_it_is_read()
    {
        Template source = Names();
        source.parts["xl/worksheets/sheet2.xml"] = "<worksheet><sheetData>";
        QVERIFY(Load(source));
        const QString reason = "A part of the workbook is damaged: xl/worksheets/sheet2.xml.";
        QCOMPARE(m_workbook.kindOf("Places"), Kind::Unusable);
        QCOMPARE(m_workbook.unusableReason("Places"), reason);
        QCOMPARE(m_workbook.error(), Error::None); // asking what a name is does not fail
        QVERIFY(!m_workbook.hasFormula("Places"));
        QCOMPARE(m_workbook.error(), Error::FormatError);
        QCOMPARE(m_workbook.errorString(), reason);
        QVERIFY(!m_workbook.hasFormula("Cell"));
        QCOMPARE(m_workbook.error(), Error::None);
    }

    void what_cannot_be_read_is_told()
    {
        Template source;
        source.Sheet(
            1,
            "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" s=\"0\"><v>1</v></c><c r=\"C1\" t=\"inlineStr\"><is><t>"
                + QByteArray(1024 * 1024 + 1, 'x') + "</t></is></c></row>",
            "<dataValidations count=\"1\"><dataValidation type=\"list\" sqref=\"D1\"><formula1>$A$1:$A$1</formula1></dataValidation>"
            "</dataValidations>");
        source.Name("Shared", "Sheet1!$A$1").Name("Styled", "Sheet1!$B$1").Name("Long", "Sheet1!$C$1").Name("All", "Sheet1!$A$1:$C$1");
        source.Name("List", "Sheet1!$D$1").Name("Below", "Sheet1!$A$2:$A$3");
        source.Strings({});
        source.parts["xl/sharedStrings.xml"] = "<sst><si>";
        source.parts["xl/styles.xml"] = "<styleSheet>";
        QVERIFY(Load(source));
        const auto failure = [this](const QString &name) {
            return m_workbook.value(name).isValid() ? QString("none") : m_workbook.errorString();
        };
        QCOMPARE(failure("Shared"), QString("Sheet1!A1: A part of the workbook is damaged: xl/sharedStrings.xml."));
        QCOMPARE(failure("Styled"), QString("Sheet1!B1: A part of the workbook is damaged: xl/styles.xml."));
        QCOMPARE(failure("Long"), QString("Sheet1!C1: A text of 1048577 bytes is too long to be read."));
        QCOMPARE(m_workbook.error(), Error::LimitError);
        QCOMPARE(failure("All"), QString("Sheet1!A1: A part of the workbook is damaged: xl/sharedStrings.xml."));
        QCOMPARE(m_workbook.options("List"), QStringList());
        QCOMPARE(m_workbook.error(), Error::FormatError);
        QCOMPARE(m_workbook.columnNames("Below"), QStringList());
        QCOMPARE(m_workbook.error(), Error::FormatError);
        QCOMPARE(failure("Nmae"), QString("There is no name Nmae in the workbook."));
        QCOMPARE(m_workbook.error(), Error::UnknownName);
    }

    void a_text_longer_than_the_format_allows_is_read()
    {
        Template source;
        source.Sheet(1, "<row r=\"1\"><c r=\"A1\" t=\"str\"><v>" + QByteArray(1024 * 1024, 'x') + "</v></c></row>");
        source.Name("Long", "Sheet1!$A$1");
        QVERIFY(Load(source));
        QCOMPARE(m_workbook.value("Long").toString().size(), 1024 * 1024);
        QCOMPARE(m_workbook.error(), Error::None);
    }

    void a_name_in_a_chart_sheet_is_unusable()
    {
        Template source = Names();
        source.parts["xl/_rels/workbook.xml.rels"].replace("relationships/worksheet\" Target=\"worksheets/sheet2",
                                                           "relationships/chartsheet\" Target=\"worksheets/sheet2");
        QVERIFY(Load(source));
        QCOMPARE(m_workbook.kindOf("Places"), Kind::Unusable);
        QVERIFY(!m_workbook.setValue("Places", 2));
    }

    void a_file_is_read_and_written_whole_or_not_at_all()
    {
        const QTemporaryDir dir;
        const QString path = dir.filePath("a.xlsx");
        QVERIFY(!m_workbook.load(path));
        QCOMPARE(m_workbook.error(), Error::FileError);
        QVERIFY(m_workbook.errorString().contains(path));
        WriteFile(path, Names().Archive());
        VERIFY_DONE(m_workbook, load(path));
        VERIFY_DONE(m_workbook, setValue("Cell", 8));
        VERIFY_DONE(m_workbook, save(path)); // over itself
        VERIFY_DONE(m_workbook, setValue("Cell", 9));
        XlsxTemplate again;
        VERIFY_DONE(again, load(path));
        QCOMPARE(again.value("Cell"), QVariant(8LL));
        QVERIFY(!m_workbook.save(dir.filePath("none/b.xlsx")));
        QCOMPARE(m_workbook.error(), Error::FileError);
        QVERIFY(m_workbook.errorString().contains("none/b.xlsx"));
        QVERIFY(!m_workbook.save(dir.path())); // a directory
        VERIFY_DONE(m_workbook, save(path));
        VERIFY_DONE(again, load(path));
        QCOMPARE(again.value("Cell"), QVariant(9LL));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList("a.xlsx"));
    }

    void a_file_without_a_name_is_refused_in_words()
    {
        QVERIFY(!m_workbook.load(QString())); // and nothing is logged
        QCOMPARE(m_workbook.error(), Error::FileError);
        QCOMPARE(m_workbook.errorString(), QString("The file has no name."));
    }

    void a_whole_row_has_only_the_columns_that_have_names()
    {
        Template source;
        source.Sheet(1,
                     "<row r=\"1\"><c r=\"A1\" t=\"str\"><v>Item</v></c><c r=\"C1\" t=\"str\"><v>Price</v></c></row>"
                     "<row r=\"2\"><c r=\"D2\"><v>7</v></c></row>");
        source.Name("Row", "Sheet1!$2:$2");
        QVERIFY(Load(source));
        QCOMPARE(m_workbook.columnNames("Row"), (QStringList{"Item", "", "Price"}));
        QVERIFY(!m_workbook.setRows("Row", QVector<QVariantHash>{{{"Prize", 1}}}));
        QCOMPARE(m_workbook.errorString(), QString("There is no column Prize; there are Item, Price."));
        VERIFY_DONE(m_workbook, setRows("Row", QVector<QVariantHash>{{{"Price", 2.5}}}));
        const QVariantList row{QVariant(), QVariant(), 2.5, 7LL};
        QCOMPARE(m_workbook.value("Row"), QVariant(QVariantList{QVariant(row)}));
    }

    void a_sheet_may_have_an_apostrophe()
    {
        Template source;
        source.Sheet(1, "<row r=\"2\"><c r=\"A2\"><v>1</v></c></row><row r=\"3\"><c r=\"A3\"><f>SUM('It''s mine'!A2:A2)</f></c></row>",
                     "<pageMargins left=\"0.7\"/>", "It's mine");
        source.Name("Row", "'It''s mine'!$A$2");
        source.parts["xl/workbook.xml"].replace(
            "</definedNames>", "<definedName name=\"Total\" localSheetId=\"0\">'It''s mine'!$A$3</definedName></definedNames>");
        QVERIFY(Load(source));
        QCOMPARE(m_workbook.names(), (QStringList{"Row", "'It''s mine'!Total"}));
        QVERIFY(m_workbook.hasFormula("'it''s MINE'!total"));
        VERIFY_DONE(m_workbook, setRows("Row", QVector<QVariantList>{{4}, {5}}));
        QCOMPARE(m_workbook.reference("'It''s mine'!Total"), QString("'It''s mine'!$A$4"));
        QVERIFY(SavedParts(m_workbook).value(kSheet1).contains("<f>SUM('It''s mine'!A2:A3)</f>"));
        QVERIFY(!m_workbook.setValue("Row", qInf()));
    }

    void a_template_may_be_saved_filled_in_and_loaded_again_and_again()
    {
        QVERIFY(Load(Names()));
        for (int i = 0; i < 3000; ++i) { // more often than changes are kept one by one
            VERIFY_DONE(m_workbook, setValue("Cell", i));
            VERIFY_DONE(m_workbook, setValue("Places", -i));
        }
        const QByteArray first = m_workbook.save();
        QCOMPARE(m_workbook.save(), first);
        VERIFY_DONE(m_workbook, setValue("CELL", 7));
        VERIFY_DONE(m_workbook, load(m_workbook.save()));
        QCOMPARE(m_workbook.value("cell"), QVariant(7LL));
        QCOMPARE(m_workbook.value("Places"), QVariant(-2999LL));
        QVERIFY(!m_workbook.load(QByteArray("no workbook")));
        QVERIFY(!m_workbook.value("Cell").isValid());
        QCOMPARE(m_workbook.error(), Error::NotLoaded);
        QVERIFY(m_workbook.save().isEmpty());
        QVERIFY(Load(Names()));
    }

    void a_workbook_can_be_moved()
    {
        QVERIFY(Load(Names()));
        XlsxTemplate other = std::move(m_workbook);
        VERIFY_DONE(other, setValue("Cell", 3));
        QCOMPARE(m_workbook.names(), QStringList());
        QVERIFY(!m_workbook.setValue("Cell", 3));
        m_workbook = std::move(other);
        QCOMPARE(m_workbook.value("Cell"), QVariant(3LL));
        QVERIFY(other.load(Names().Archive()));
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxTemplateNames)
#include "tst_XlsxTemplateNames.moc"
