#include "xlsx/XlsxTestCase.h"

using namespace Velmora;
using namespace VelmoraTest;

using DropDownInfo = XlsxOperator::DropDownInfo;

namespace {

const QString kA = QStringLiteral("A");
const QByteArray kMargins = QByteArrayLiteral("<pageMargins left=\"0.7\"/>");

QByteArray Validation(const QByteArray &attributes, const QByteArray &content)
{
    return "<dataValidations count=\"1\"><dataValidation " + attributes + ">" + content + "</dataValidation></dataValidations>";
}

/// One name, A, for B3, which holds 7.
Template WithList(const QByteArray &afterSheetData)
{
    Template source;
    source.Sheet(1, "<row r=\"3\"><c r=\"B3\"><v>7</v></c></row>", afterSheetData).Name("A", "Sheet1!$B$3");
    return source;
}

QByteArray Made(const QByteArray &position, const QByteArray &list)
{
    return "<dataValidation type=\"list\" allowBlank=\"1\" showInputMessage=\"1\" showErrorMessage=\"1\" sqref=\"" + position
        + "\"><formula1>\"" + list + "\"</formula1></dataValidation>";
}

} // namespace

class tst_XlsxLists : public XlsxTestCase
{
    Q_OBJECT

    /// What follows the sheet's data after the list was set.
    QByteArray Saved(const Template &source, const DropDownInfo &info)
    {
        return XlsxTestCase::Saved(
            source, [&info](XlsxOperator &op) { op.setCellsDropDownInfo(kA, info); }, "</sheetData>", "</worksheet>");
    }

private Q_SLOTS:
    void options_are_read_from_the_list_of_the_cell_data()
    {
        QTest::addColumn<QByteArray>("attributes");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("isList");
        QTest::addColumn<QStringList>("options");
        const auto row = [](const char *title, const char *attributes, const char *content, const QStringList &options) {
            QTest::newRow(title) << QByteArray(attributes) << QByteArray(content) << true << options;
        };
        const auto plain = [](const char *title, const char *attributes, const char *content) {
            QTest::newRow(title) << QByteArray(attributes) << QByteArray(content) << false << QStringList();
        };
        const char *const list = "type=\"list\" sqref=\"B3\"";
        row("two", list, "<formula1>\"a,b\"</formula1>", {QStringLiteral("a"), QStringLiteral("b")});
        row("range", list, "<formula1>Sheet2!$A$1:$A$3</formula1>", {QStringLiteral("Sheet2!$A$1:$A$3")});
        row("quotes anywhere", list, "<formula1>a\"b\",\"\"</formula1>", {QStringLiteral("ab"), QString()});
        row("blanks stay", list, "<formula1>\" a , b\"</formula1>", {QStringLiteral(" a "), QStringLiteral(" b")});
        row("entity", list, "<formula1>\"a&amp;b\"</formula1>", {QStringLiteral("a&b")});
        row("empty", list, "<formula1>\"\"</formula1>", {QString()});
        row("empty element", list, "<formula1/>", {QString()});
        row("no list in it", list, "<formula2>\"a,b\"</formula2>", {});
        row("first of two", "type=\"list\" sqref=\"B3\"><formula1>1</formula1></dataValidation><dataValidation type=\"list\" sqref=\"B3\"",
            "<formula1>2</formula1>", {QStringLiteral("1")});
        plain("another type", "type=\"whole\" sqref=\"B3\"", "<formula1>1</formula1>");
        plain("no type", "sqref=\"B3\"", "<formula1>1</formula1>");
        plain("another case", "type=\"List\" sqref=\"B3\"", "<formula1>1</formula1>");
        plain("several cells", "type=\"list\" sqref=\"B3:B9\"", "<formula1>1</formula1>");
        plain("list of cells", "type=\"list\" sqref=\"B3 B4\"", "<formula1>1</formula1>");
        plain("another cell", "type=\"list\" sqref=\"B33\"", "<formula1>1</formula1>");
    }
    void options_are_read_from_the_list_of_the_cell()
    {
        QFETCH(QByteArray, attributes);
        QFETCH(QByteArray, content);
        QFETCH(bool, isList);
        QFETCH(QStringList, options);
        XlsxOperator op;
        QVERIFY(Load(op, WithList(Validation(attributes, content) + kMargins)));
        const QVariant value = op.getCellValue(kA);
        QCOMPARE(value.canConvert<DropDownInfo>(), isList);
        DropDownInfo info{1, {QStringLiteral("as it was")}};
        op.getCellDropDownInfo(kA, info);
        if (isList) {
            QCOMPARE(info.value, QVariant(7LL));
            QCOMPARE(info.options, options);
        } else {
            QCOMPARE(value, QVariant(7LL));
            QCOMPARE(info.value, QVariant(1));
            QCOMPARE(info.options, QStringList(QStringLiteral("as it was")));
        }
    }

    void asking_for_an_unknown_name_makes_it_an_element()
    {
        XlsxOperator op;
        DropDownInfo info{1, {}};
        op.getCellDropDownInfo(kA, info);
        QCOMPARE(info.value, QVariant(1));
        QHash<QString, QVariant> elements;
        op.getElementsNameToValueHash(elements);
        QVERIFY(elements.contains(kA));
    }

    void the_first_position_decides()
    {
        Template source = WithList(Validation("type=\"list\" sqref=\"B3\"", "<formula1>a</formula1>") + kMargins);
        source.Name("Last", "Sheet1!$A$1,Sheet1!$B$3").Name("First", "Sheet1!$B$3,Sheet1!$A$1");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QVERIFY(!op.getCellValue(QStringLiteral("Last")).canConvert<DropDownInfo>());
        QVERIFY(op.getCellValue(QStringLiteral("First")).canConvert<DropDownInfo>());
    }

    void a_list_is_written_where_it_belongs_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QByteArray>("after");
        const QStringList two{QStringLiteral("a"), QStringLiteral("b")};
        const QByteArray made = Made("B3", "a,b");
        QTest::newRow("new, before the margins") << QByteArray("<x/>" + kMargins + "<y/>") << two
                                                 << QByteArray("<x/><dataValidations>" + made + "</dataValidations>" + kMargins + "<y/>");
        QTest::newRow("last of those that are there")
            << QByteArray(kMargins + Validation("type=\"whole\" sqref=\"B3\"", "<formula1>1</formula1>") + "<y/>") << two
            << QByteArray(
                   kMargins
                   + "<dataValidations count=\"1\"><dataValidation type=\"whole\" sqref=\"B3\"><formula1>1</formula1></dataValidation>"
                   + made + "</dataValidations><y/>");
        QTest::newRow("no margins") << QByteArray("<x/>") << two << QByteArray("<x/>");
        QTest::newRow("in place of its own")
            << QByteArray(Validation("type=\"list\" sqref=\"B3\" prompt=\"p\"", "<formula1>1</formula1><formula2>2</formula2>") + kMargins)
            << two
            << QByteArray("<dataValidations count=\"1\"><dataValidation type=\"list\" sqref=\"B3\" "
                          "prompt=\"p\"><formula1>\"a,b\"</formula1><formula2>2</formula2></dataValidation></dataValidations>"
                          + kMargins);
        QTest::newRow("own one without a list")
            << QByteArray(Validation("type=\"list\" sqref=\"B3\"", "") + kMargins) << two
            << QByteArray("<dataValidations count=\"1\"><dataValidation type=\"list\" sqref=\"B3\"/></dataValidations>" + kMargins);
        QTest::newRow("beside one of several cells")
            << QByteArray(Validation("type=\"list\" sqref=\"B3:B9\"", "<formula1>1</formula1>") + kMargins) << two
            << QByteArray(
                   "<dataValidations count=\"1\"><dataValidation type=\"list\" sqref=\"B3:B9\"><formula1>1</formula1></dataValidation>"
                   + made + "</dataValidations>" + kMargins);
        QTest::newRow("no options") << kMargins << QStringList()
                                    << QByteArray("<dataValidations>" + Made("B3", "") + "</dataValidations>" + kMargins);
        QTest::newRow("escaped") << kMargins << QStringList{QStringLiteral("%1 \u00e4<&"), QStringLiteral("%2")}
                                 << QByteArray("<dataValidations>" + Made("B3", "%1 \xc3\xa4&lt;&amp;,%2") + "</dataValidations>"
                                               + kMargins);
    }
    void a_list_is_written_where_it_belongs()
    {
        QFETCH(QByteArray, before);
        QFETCH(QStringList, options);
        QFETCH(QByteArray, after);
        QCOMPARE(Saved(WithList(before), {5, options}), after);
        QCOMPARE(OutputBetween(kSheet1, "<sheetData>", "</sheetData>"), QByteArray("<row r=\"3\"><c r=\"B3\"><v>5</v></c></row>"));
    }

    void options_read_back_as_the_text_form_allows()
    {
        Saved(WithList(kMargins), {5, {}});
        XlsxOperator none;
        QVERIFY(Load(none, FileContent(OutputPath())));
        QCOMPARE(none.getCellValue(kA).value<DropDownInfo>().options, QStringList{QString()});

        Saved(WithList(kMargins), {QStringLiteral("1 x"), {QStringLiteral("a,b"), QStringLiteral("\"c\"")}});
        XlsxOperator odd;
        QVERIFY(Load(odd, FileContent(OutputPath())));
        QCOMPARE(odd.getCellValue(kA).value<DropDownInfo>().options,
                 (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
        QCOMPARE(odd.getCellValue(kA).value<DropDownInfo>().value, QVariant(QStringLiteral("1 x")));
    }

    void a_second_save_finds_the_list()
    {
        XlsxOperator op;
        QVERIFY(Load(op, WithList(kMargins)));
        op.setCellsDropDownInfo(kA, {1, {QStringLiteral("a")}});
        QVERIFY(op.save());
        op.setCellsDropDownInfo(kA, {1, {QStringLiteral("b")}});
        QVERIFY(op.save());
        QCOMPARE(OutputBetween(kSheet1, "</sheetData>", "</worksheet>"),
                 "<dataValidations>" + Made("B3", "b") + "</dataValidations>" + kMargins);
    }

    void every_position_gets_a_list()
    {
        Template source;
        source.Name("A", "Sheet1!$A$1:$B$1,Sheet1!$C$2");
        QCOMPARE(Saved(source, {1, {QStringLiteral("x")}}),
                 "<dataValidations>" + Made("A1", "x") + Made("B1", "x") + Made("C2", "x") + "</dataValidations>" + kMargins);
    }

    void a_plain_value_leaves_the_list_alone()
    {
        const QByteArray after = Validation("type=\"list\" sqref=\"B3\"", "<formula1>a</formula1>") + kMargins;
        XlsxOperator op;
        QVERIFY(Load(op, WithList(after)));
        op.setCellsValue(kA, 9);
        QVERIFY(op.save());
        QCOMPARE(OutputBetween(kSheet1, "</sheetData>", "</worksheet>"), after);
        QVERIFY(Output().value(kSheet1).contains("<v>9</v>"));
    }

    void an_untouched_list_is_written_as_it_was_read()
    {
        XlsxOperator op;
        QVERIFY(Load(op, WithList(Validation("type=\"list\" sqref=\"B3\"", "<formula1>$A$1:$A$3</formula1>") + kMargins)));
        QVERIFY(op.save());
        // A reference comes back as an entry of that text.
        QVERIFY(Output().value(kSheet1).contains("<formula1>\"$A$1:$A$3\"</formula1>"));
    }

    void a_name_gets_a_position_and_a_list()
    {
        XlsxOperator op;
        QVERIFY(Load(op, Template()));
        QVERIFY(op.setCellsDropDownInfo(QStringLiteral("Sheet1"), 4, QStringLiteral("C"), kA,
                                        {QStringLiteral("1 x"), {QStringLiteral("1 x"), QStringLiteral("y")}}));
        QVERIFY(op.save());
        QVERIFY(Output().value(kWorkbook).contains("<definedName name=\"A\">Sheet1!$C$4</definedName>"));
        QCOMPARE(OutputBetween(kSheet1, "<sheetData>", "</worksheet>"),
                 "<row r=\"4\"><c r=\"C4\" t=\"s\"><v>0</v></c></row></sheetData><dataValidations>" + Made("C4", "1 x,y")
                     + "</dataValidations>" + kMargins);
    }

    void an_unknown_sheet_is_reported()
    {
        XlsxOperator op;
        QVERIFY(Load(op, Template()));
        ExpectWarning(QStringLiteral("XlsxOperator::setCellValue:  sheetName is error"));
        QVERIFY(!op.setCellsDropDownInfo(QStringLiteral("None"), 4, QStringLiteral("C"), kA, {}));
        QHash<QString, QVariant> elements;
        op.getElementsNameToValueHash(elements);
        QVERIFY(elements.isEmpty());
    }

    void a_sheet_that_is_not_there_is_reported_for_each_position()
    {
        const auto expect = [this] {
            for (const char *position : {"A1", "A2"})
                ExpectWarning(QStringLiteral("XlsxOperator::getDataValidationNodeFromSheetDocument:  pSheetDocument is nullptr,  \"%1\"")
                                  .arg(QLatin1String(position)));
        };
        XlsxOperator op;
        expect();
        QVERIFY(Load(op, Template().Name("A", "None!$A$1:$A$2")));
        QVERIFY(op.save());
        op.setCellsDropDownInfo(kA, {QStringLiteral("1 x"), {}});
        expect();
        QVERIFY(op.save());
        // Nothing is written for a cell that is nowhere.
        QVERIFY(!Output().value(kSharedStrings).contains("1 x"));
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxLists)
#include "tst_XlsxLists.moc"
