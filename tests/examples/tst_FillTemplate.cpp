#include "FillTemplateProgram.h"

#include "xlsx/Archive.h"
#include "xlsx/XlsxTestCase.h"

#include <Velmora/XlsxTemplate.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <csignal>

using namespace VelmoraTest;
using Velmora::XlsxTemplate;

namespace {

const QByteArray kDrawingRels = QByteArrayLiteral("xl/drawings/_rels/drawing1.xml.rels");

QByteArray ImageFile(const char *format, Qt::GlobalColor color)
{
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(color);
    QByteArray content;
    QBuffer buffer(&content);
    image.save(&buffer, format);
    return content;
}

QByteArray ListOf(const QByteArray &position)
{
    return "<dataValidations><dataValidation type=\"list\" sqref=\"" + position
        + "\"><formula1>\"Yes,No\"</formula1></dataValidation></dataValidations><pageMargins left=\"0.7\"/>";
}

/// Numbers, texts, a list, a picture and names that span cells.
Template Order()
{
    Template source;
    source.Strings({"<si><t>Widget</t></si>", "<si><t>R&amp;D</t></si>", "<si><t>5 pieces</t></si>"});
    source.Sheet(1,
                 "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\"><v>12</v></c></row>"
                 "<row r=\"2\"><c r=\"A2\" t=\"s\"><v>1</v></c><c r=\"B2\" t=\"s\"><v>2</v></c></row>"
                 "<row r=\"3\"><c r=\"A3\"><v>1.5</v></c></row>",
                 ListOf("B2"), "Order");
    source.Sheet(2, "<row r=\"1\"><c r=\"A1\"><v>7</v></c></row>", "<pageMargins left=\"0.7\"/>", "My notes");
    source.Name("_xlnm.Print_Area", "Order!$A$1:$B$3").Name("Amount", "Order!$B$1").Name("Amount.2", "Order!$A$3");
    source.Name("Choice", "Order!$B$2").Name("Note", "'My notes'!$A$1").Name("Text", "Order!$A$2");
    source.Drawing(1, {{"Logo", "rId1"}, {"Seal", "rId1"}}, Relationship("rId1", "image", "../media/image1.png"));
    source.parts["xl/worksheets/_rels/sheet1.xml.rels"] = Relationships(Relationship("rId1", "drawing", "../drawings/drawing1.xml"));
    source.parts["xl/media/image1.png"] = ImageFile("PNG", Qt::white);
    QByteArray &types = source.parts["[Content_Types].xml"];
    types.replace("<Override PartName=\"/xl/workbook.xml\"", "<Default Extension=\"png\" ContentType=\"image/png\"/>$&");
    types.replace("$&", "<Override PartName=\"/xl/workbook.xml\"");
    return source;
}

} // namespace

class tst_FillTemplate : public XlsxTestCase
{
    Q_OBJECT

private:
    void SetUp() override
    {
        XlsxTestCase::SetUp();
        WriteFile(TemplatePath(), Order().Archive());
    }

    QString ValuesPath() const { return Path(QStringLiteral("values.json")); }
    int Fill(const QByteArray &values)
    {
        WriteFile(ValuesPath(), values);
        FillTemplateProgram program({QStringLiteral("fill"), TemplatePath(), ValuesPath(), OutputPath()});
        const int status = program.Run();
        m_errors = program.Errors();
        return status;
    }
    int Run(const QStringList &arguments)
    {
        FillTemplateProgram program(arguments);
        const int status = program.Run();
        m_output = program.Output();
        m_errors = program.Errors();
        return status;
    }
    int PrepareTemplate(const Template &source)
    {
        WriteFile(TemplatePath(), source.Archive());
        return Run({QStringLiteral("prepare"), TemplatePath(), OutputPath()});
    }
    /// The value of an element of the output, as the library reads it.
    QVariant Value(const QString &name)
    {
        Velmora::XlsxOperator op;
        op.setOldXlsxAbsolutePath(OutputPath());
        op.setExtractDirAbsolutePath(WorkPath());
        return op.load() ? op.getCellValue(name) : QVariant();
    }
    XlsxTemplate OpenedOutput()
    {
        XlsxTemplate output;
        if (!output.load(OutputPath()))
            qWarning("%s", qUtf8Printable(output.errorString()));
        return output;
    }
    /// What lies beside the output, hidden files included.
    QStringList Files() const { return QDir(Path(QString())).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name); }

    QByteArray m_output;
    QByteArray m_errors;

private Q_SLOTS:
    // --- list ---

    void list_prints_each_element_with_kind_place_value_and_options()
    {
        QCOMPARE(Run({QStringLiteral("list"), TemplatePath()}), 0);
        QCOMPARE(QString::fromUtf8(m_output),
                 QStringLiteral("NAME      KIND     PLACE            VALUE          OPTIONS\n"
                                "Amount    cell     Order!$B$1       12\n"
                                "Amount.2  cell     Order!$A$3       1.5\n"
                                "Choice    list     Order!$B$2       5 pieces       Yes,No\n"
                                "Logo      picture  Order!$B$2       PNG, %1 bytes\n"
                                "Note      cell     'My notes'!$A$1  7\n"
                                "Seal      picture  Order!$B$2       PNG, %1 bytes\n"
                                "Text      cell     Order!$A$2       R&D\n")
                     .arg(ImageFile("PNG", Qt::white).size()));
        QCOMPARE(m_errors, QByteArray());
    }

    void list_prints_json()
    {
        QCOMPARE(Run({QStringLiteral("list"), QStringLiteral("--json"), QStringLiteral("--filter"), QStringLiteral("^(Choice|Amount)$"),
                      TemplatePath()}),
                 0);
        const QJsonArray elements = QJsonDocument::fromJson(m_output).array();
        QCOMPARE(elements.size(), 2);
        QCOMPARE(elements.at(0).toObject(),
                 (QJsonObject{{QStringLiteral("name"), QStringLiteral("Amount")},
                              {QStringLiteral("kind"), QStringLiteral("cell")},
                              {QStringLiteral("place"), QStringLiteral("Order!$B$1")},
                              {QStringLiteral("value"), 12}}));
        QCOMPARE(elements.at(1).toObject().value(QStringLiteral("options")).toArray(),
                 (QJsonArray{QStringLiteral("Yes"), QStringLiteral("No")}));
    }

    void list_tells_formulas_dates_ranges_and_what_cannot_be_set()
    {
        Template source = Order();
        source.Sheet(2, "<row r=\"1\"><c r=\"A1\"><v>7</v></c><c r=\"B1\"><f>A1*2</f><v>14</v></c></row>", QByteArray(), "My notes");
        source.Name("Twice", "'My notes'!$B$1")
            .Name("All", "Order!$A$2:$B$3")
            .Name("Rate", "0.19")
            .Name("Order.Both", "Order!$A$1,Order!$A$3");
        WriteFile(TemplatePath(), source.Archive());
        QCOMPARE(Run({QStringLiteral("list"), QStringLiteral("--filter=^(Twice|All|Rate|Order.Both)$"), TemplatePath()}), 0);
        const QList<QByteArray> lines = m_output.split('\n');
        QVERIFY2(lines.at(1).startsWith("All         range           Order!$A$2:$B$3        [[\"R&D\",\"5 pieces\"],[1.5,null]]"),
                 m_output.constData());
        QVERIFY2(lines.at(2).startsWith("Order.Both  places          Order!$A$1,Order!$A$3  Widget"), m_output.constData());
        QVERIFY2(lines.at(3).startsWith("Rate        unusable        0.19                   The name stands for a constant"),
                 m_output.constData());
        QVERIFY2(lines.at(4).startsWith("Twice       cell (formula)  'My notes'!$B$1        14"), m_output.constData());

        QCOMPARE(Run({QStringLiteral("list"), QStringLiteral("--json"), QStringLiteral("--filter=^(Twice|All|Rate)$"), TemplatePath()}), 0);
        const QJsonArray elements = QJsonDocument::fromJson(m_output).array();
        QCOMPARE(elements.at(0).toObject().value(QStringLiteral("columns")).toArray(),
                 (QJsonArray{QStringLiteral("Widget"), QStringLiteral("12")}));
        QCOMPARE(elements.at(0).toObject().value(QStringLiteral("value")).toArray().at(1).toArray().at(0), QJsonValue(1.5));
        QVERIFY(elements.at(1).toObject().value(QStringLiteral("reason")).toString().contains(QLatin1String("constant")));
        QCOMPARE(elements.at(2).toObject().value(QStringLiteral("formula")), QJsonValue(true));
    }

    void what_a_template_holds_does_not_steer_the_terminal()
    {
        Template source = Order();
        source.Name("Evil&#x9b;31m", "Order!$B$1\x1b[2J");
        WriteFile(TemplatePath(), source.Archive());
        QCOMPARE(Run({QStringLiteral("list"), TemplatePath()}), 0);
        QVERIFY(m_output.contains("Evil\\u009b31m"));
        QVERIFY(!m_output.contains('\x1b'));
    }

    void a_list_that_cannot_be_printed_is_an_error()
    {
        FillTemplateProgram program({QStringLiteral("list"), TemplatePath()});
        program.setStandardOutputFile(QStringLiteral("/dev/full"));
        QCOMPARE(program.Run(), 9);
    }

    // --- fill ---

    void fill_sets_numbers_texts_formulas_lists_and_pictures()
    {
        WriteFile(Path(QStringLiteral("my logo \u00fc.PNG")), ImageFile("PNG", Qt::red));
        QCOMPARE(Fill("{\"Amount\": 99, \"Text\": \"3 < 4 & \xc3\xa4\", \"Note\": {\"formula\": \"SUM(1,2)\"},"
                      "\"Choice\": {\"value\": \"2 pieces\", \"options\": [\"1 piece\", \"2 pieces\"]},"
                      "\"Logo\": {\"picture\": \"my logo \xc3\xbc.PNG\"}}"),
                 0);
        QCOMPARE(m_errors, QByteArray());
        QCOMPARE(PackageFaults(Output()), QStringList());
        XlsxTemplate output = OpenedOutput();
        QCOMPARE(output.value(QStringLiteral("Amount")), QVariant(99LL));
        QCOMPARE(output.value(QStringLiteral("Text")), QVariant(QStringLiteral("3 < 4 & \u00e4")));
        QVERIFY(Output().value("xl/worksheets/sheet2.xml").contains("<f>SUM(1,2)</f>"));
        QCOMPARE(output.value(QStringLiteral("Choice")), QVariant(QStringLiteral("2 pieces")));
        QCOMPARE(output.options(QStringLiteral("Choice")), QStringList({QStringLiteral("1 piece"), QStringLiteral("2 pieces")}));
        QCOMPARE(output.value(QStringLiteral("Logo")).toByteArray(), ImageFile("PNG", Qt::red));
        // The other picture shows what it showed.
        QCOMPARE(output.value(QStringLiteral("Seal")).toByteArray(), ImageFile("PNG", Qt::white));
    }

    void a_value_arrives_as_it_is_written_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QByteArray>("cell"); // behind its reference
        const auto row = [](const char *json, const char *cell) { QTest::newRow(json) << QByteArray(json) << QByteArray(cell); };
        row("12", "><v>12</v>");
        row("12.5", "><v>12.5</v>");
        row("-0.1", "><v>-0.1</v>");
        row("1e300", "><v>1e+300</v>");
        row("9007199254740993", "><v>9007199254740993</v>");
        row("-9223372036854775808", "><v>-9223372036854775808</v>");
        row("18446744073709551615", "><v>18446744073709551615</v>");
        row("true", " t=\"b\"><v>1</v>");
        row("false", " t=\"b\"><v>0</v>");
        row("{\"value\": \"Total\"}", " t=\"inlineStr\"><is><t>Total</t></is>");
        row("\"=A1\"", " t=\"inlineStr\"><is><t>=A1</t></is>");
        row("\" two\\nlines\"", " t=\"inlineStr\"><is><t xml:space=\"preserve\"> two\nlines</t></is>");
        row("\"\\ud83d\\ude00\\u0001\"", " t=\"inlineStr\"><is><t>\xf0\x9f\x98\x80_x0001_</t></is>");
        row("{\"formula\": \"=A1*2\"}", "><f>A1*2</f>");
        row("{\"date\": \"2026-11-22\"}", " s=\"1\"><v>46348</v>");
        row("{\"date\": \"2026-11-22T18:00:00\"}", " s=\"1\"><v>46348.75</v>");
        row("{\"time\": \"06:00\"}", " s=\"1\"><v>0.25</v>");
        row("null", "/>");
    }

    void a_value_arrives_as_it_is_written()
    {
        QFETCH(QByteArray, json);
        QFETCH(QByteArray, cell);
        QVERIFY2(Fill("{\"Amount\": " + json + "}") == 0, m_errors.constData());
        const QByteArray sheet = Output().value(kSheet1);
        QVERIFY2(sheet.contains("<c r=\"B1\"" + cell + (cell == "/>" ? "" : "</c>")), sheet.constData());
    }

    void a_picture_keeps_its_proportions_or_fills_its_frame()
    {
        QImage wide(40, 4, QImage::Format_RGB32);
        wide.fill(Qt::red);
        QVERIFY(wide.save(Path(QStringLiteral("wide.png"))));
        const auto drawing = [this](const char *fit) {
            return Fill(QByteArray("{\"Logo\": {\"picture\": \"wide.png\"") + fit + "}}") == 0 ? Output().value("xl/drawings/drawing1.xml")
                                                                                               : QByteArray("failed");
        };
        const QByteArray stretched = drawing(", \"fit\": \"stretch\"");
        const QByteArray kept = drawing(", \"fit\": \"keep\"");
        QVERIFY(stretched != "failed" && kept != "failed");
        QVERIFY(stretched != kept);
        QCOMPARE(drawing(""), kept);
    }

    // --- Rows ---

    /// A line of items, headers above, a total below; a range beside.
    static Template Invoice()
    {
        Template source;
        source.Sheet(
            1,
            "<row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t>Item</t></is></c><c r=\"B1\" t=\"inlineStr\"><is><t>Unit price</t></is></c>"
            "<c r=\"C1\" t=\"inlineStr\"><is><t>Due</t></is></c></row>"
            "<row r=\"2\"><c r=\"A2\"/><c r=\"B2\"/><c r=\"C2\"><v>1</v></c></row>"
            "<row r=\"3\"><c r=\"B3\"><f>SUM(B2:B2)</f><v>0</v></c></row>");
        source.Name("Items", "Sheet1!$A$2:$C$2").Name("Range", "Sheet1!$E$1:$F$2").Name("Total", "Sheet1!$B$3");
        return source;
    }
    QVariant FilledItems(const QByteArray &values)
    {
        WriteFile(TemplatePath(), Invoice().Archive());
        return Fill(values) == 0 ? OpenedOutput().value(QStringLiteral("Items")) : QVariant(m_errors);
    }
    static QVariant Rows(const QVector<QVariantList> &rows)
    {
        QVariantList list;
        for (const QVariantList &row : rows)
            list.append(QVariant(row));
        return list;
    }

    void objects_repeat_a_row_by_the_texts_above_it()
    {
        const QVariant items = FilledItems("{\"Items\": [{\"unit price\": 12.5, \"Item\": \"Chair\"},"
                                           "{\"Item\": \"Desk\", \"Due\": {\"date\": \"2026-11-22\"}, \"Unit price\": 300},"
                                           "{\"Item\": null}]}");
        QCOMPARE(items,
                 Rows({{QStringLiteral("Chair"), 12.5, 1LL},
                       {QStringLiteral("Desk"), 300LL, QDate(2026, 11, 22)},
                       {QVariant(), QVariant(), 1LL}}));
        QVERIFY(Output().value(kSheet1).contains("<c r=\"B5\"><f>SUM(B2:B4)</f></c>"));
    }

    void arrays_repeat_a_row_when_rows_are_asked_for()
    {
        QCOMPARE(FilledItems("{\"Items\": {\"rows\": [[\"Chair\", 1, 2], [\"Desk\", 3, 4]]}}"),
                 Rows({{QStringLiteral("Chair"), 1LL, 2LL}, {QStringLiteral("Desk"), 3LL, 4LL}}));
    }

    void no_objects_take_the_row_away()
    {
        WriteFile(TemplatePath(), Invoice().Archive());
        QCOMPARE(Fill("{\"Items\": []}"), 0);
        QVERIFY(Output().value(kSheet1).contains("r=\"B2\"><f>"));
    }

    void arrays_fill_a_range()
    {
        WriteFile(TemplatePath(), Invoice().Archive());
        QCOMPARE(Fill("{\"Range\": [[1, \"a\"], [null, true]]}"), 0);
        QCOMPARE(OpenedOutput().value(QStringLiteral("Range")), Rows({{1LL, QStringLiteral("a")}, {QVariant(), true}}));
    }

    void a_file_of_comma_separated_values_becomes_rows_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("header") << QByteArray("Item,Unit price,Due\nChair,12.5,2026-11-22\n\"Desk, large\",007,\n");
        QTest::newRow("header in another order") << QByteArray("due,ITEM,Unit price\n2026-11-22,Chair,12.5\n,\"Desk, large\",007\n");
        QTest::newRow("no header") << QByteArray("Chair,12.5,2026-11-22\n\"Desk, large\",007,");
        QTest::newRow("byte order mark and carriage returns")
            << QByteArray("\xef\xbb\xbf\"Item\",Unit price,Due\r\nChair,12.5,2026-11-22\r\n\r\n\"Desk, large\",\"007\",\r\n");
    }

    void a_file_of_comma_separated_values_becomes_rows()
    {
        QFETCH(QByteArray, file);
        WriteFile(Path(QStringLiteral("items.csv")), file);
        QCOMPARE(FilledItems("{\"Items\": {\"csv\": \"items.csv\"}}"),
                 Rows({{QStringLiteral("Chair"), 12.5, QDate(2026, 11, 22)},
                       {QStringLiteral("Desk, large"), QStringLiteral("007"), QVariant()}}));
    }

    void a_file_need_not_have_all_columns()
    {
        WriteFile(Path(QStringLiteral("items.csv")), "Unit price,Item\n12.5,Chair\n300,Desk\n");
        QCOMPARE(FilledItems("{\"Items\": {\"csv\": \"items.csv\"}}"),
                 Rows({{QStringLiteral("Chair"), 12.5, 1LL}, {QStringLiteral("Desk"), 300LL, 1LL}}));
    }

    void quoted_cells_are_texts_with_their_quotes_and_line_ends()
    {
        WriteFile(Path(QStringLiteral("items.csv")), "\"12\",\"a\"\"b\r\nc\",TRUE\n");
        QCOMPARE(FilledItems("{\"Items\": {\"csv\": \"items.csv\"}}"), Rows({{QStringLiteral("12"), QStringLiteral("a\"b\r\nc"), true}}));
    }

    void wrong_rows_are_told_data()
    {
        QTest::addColumn<QByteArray>("values");
        QTest::addColumn<QByteArray>("message");
        const auto row = [](const char *tag, const QByteArray &values, const QByteArray &message) {
            QTest::newRow(tag) << values << message;
        };
        row("no such column", "{\"Items\": [{\"Itm\": 1}]}", "Items: there is no column Itm, only Item, Unit price, Due");
        row("a column twice", "{\"Items\": [{\"Item\": 1, \"item\": 2}]}", "Items: the column item is there twice");
        row("another column twice", "{\"Items\": [{\"Item\": 1}, {\"Due\": 1, \"due \": 2}]}",
            "Items, row 2: the column due  is there twice");
        row("columns without names", "{\"Range\": [{\"Item\": 1}]}", "Range: there are no texts above to name columns");
        row("too many values", "{\"Items\": {\"rows\": [[1, 2, 3, 4]]}}", "Items: Row 1: There are 4 values");
        row("a flat array", "{\"Range\": [1, 2]}", "Range, row 1: rows are an array of arrays");
        row("a mixed array", "{\"Items\": [{\"Item\": 1}, [1]]}", "Items, row 2: rows are all arrays or all objects");
        row("an array in a row", "{\"Range\": [[[1]]]}", "Range, row 1: a cell of a row takes one value");
        row("an object in a row", "{\"Range\": [[{\"formula\": \"A1\"}]]}", "Range, row 1: a cell of a row takes a number");
        row("more than fits", "{\"Range\": [[1, 2, 3]]}", "Range: these are 1 x 3 values, of which 1 x 2 fit");
        row("rows for a single value", "{\"Items\": {\"rows\": 1}}", "Items: rows are an array of arrays");
        row("an open quote", "{\"Items\": {\"csv\": \"open.csv\"}}", "open.csv, line 2: a double quote is opened and not closed");
        row("a quote in a cell", "{\"Items\": {\"csv\": \"within.csv\"}}", "within.csv, line 1: a double quote stands in a cell");
        row("semicolons", "{\"Items\": {\"csv\": \"semicolons.csv\"}}", "by semicolons or tabs");
        row("another encoding", "{\"Items\": {\"csv\": \"latin1.csv\"}}", "latin1.csv, line 1: the text is not in UTF-8");
    }

    void wrong_rows_are_told()
    {
        QFETCH(QByteArray, values);
        QFETCH(QByteArray, message);
        WriteFile(TemplatePath(), Invoice().Archive());
        WriteFile(Path(QStringLiteral("open.csv")), "1,2\n\"3,\n4\n");
        WriteFile(Path(QStringLiteral("within.csv")), "1,2 \"3\"\n");
        WriteFile(Path(QStringLiteral("semicolons.csv")), "Item;Price\n1;2\n");
        WriteFile(Path(QStringLiteral("latin1.csv")), "\xe4\n");
        QCOMPARE(Fill(values), 8);
        QVERIFY2(m_errors.contains(message), m_errors.constData());
        QVERIFY(!QFile::exists(OutputPath()));
    }

    // --- Progress ---

    void what_takes_longer_than_a_second_is_told_unless_quiet_data()
    {
        QTest::addColumn<bool>("isQuiet");
        QTest::newRow("told") << false;
        QTest::newRow("quiet") << true;
    }

    void what_takes_longer_than_a_second_is_told_unless_quiet()
    {
        QFETCH(bool, isQuiet);
        // The values are long in coming.
        FillTemplateProgram program(QStringList{QStringLiteral("fill")} + (isQuiet ? QStringList(QStringLiteral("--quiet")) : QStringList())
                                    + QStringList{TemplatePath(), QStringLiteral("-"), OutputPath()});
        program.setReadChannel(QProcess::StandardError);
        program.start();
        QVERIFY(program.waitForStarted());
        QCOMPARE(program.waitForReadyRead(isQuiet ? 1500 : 30000), !isQuiet);
        program.write("{\"Amount\": 3}");
        program.closeWriteChannel();
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitCode(), 0);
        QCOMPARE(program.readAllStandardError().startsWith("fill-template: reading -\n"), !isQuiet);
        QCOMPARE(OpenedOutput().value(QStringLiteral("Amount")), QVariant(3LL));
    }

    void what_no_value_names_stays_as_it_was()
    {
        QCOMPARE(Fill("{\"Amount\": 1}"), 0);
        const QMap<QByteArray, QByteArray> before = Order().parts;
        QMap<QByteArray, QByteArray> after = Output();
        QCOMPARE(after.value(kSheet1), QByteArray(before.value(kSheet1)).replace("<v>12</v>", "<v>1</v>"));
        for (const QByteArray &part : {kSheet1, kWorkbook}) // which says that all is to be computed
            after[part] = before.value(part);
        QCOMPARE(after, before);
    }

    void options_alone_leave_the_content_of_the_cell()
    {
        QCOMPARE(Fill("{\"Choice\": {\"options\": [\"a\"]}, \"Text\": {\"options\": [\"b\", \"c\"]}}"), 0);
        const XlsxTemplate output = OpenedOutput();
        QCOMPARE(output.value(QStringLiteral("Choice")), QVariant(QStringLiteral("5 pieces")));
        QCOMPARE(output.options(QStringLiteral("Choice")), QStringList(QStringLiteral("a")));
        QCOMPARE(output.value(QStringLiteral("Text")), QVariant(QStringLiteral("R&D")));
        QCOMPARE(output.options(QStringLiteral("Text")), QStringList({QStringLiteral("b"), QStringLiteral("c")}));
    }

    void a_value_that_is_not_in_the_list_is_refused_unless_allowed()
    {
        QCOMPARE(Fill("{\"Choice\": \"8 pieces\"}"), 8);
        QVERIFY2(m_errors.contains("Choice: Order!B2"), m_errors.constData());
        QCOMPARE(Run({QStringLiteral("fill"), QStringLiteral("--allow-unlisted"), TemplatePath(), ValuesPath(), OutputPath()}), 0);
        const XlsxTemplate output = OpenedOutput();
        QCOMPARE(output.value(QStringLiteral("Choice")), QVariant(QStringLiteral("8 pieces")));
        QCOMPARE(output.options(QStringLiteral("Choice")), QStringList({QStringLiteral("Yes"), QStringLiteral("No")}));
    }

    void fill_leaves_out_the_names_in_which_the_filter_does_not_match()
    {
        WriteFile(ValuesPath(), "{\"Amount\": 1, \"Nobody\": 2}");
        QCOMPARE(Run({QStringLiteral("fill"), QStringLiteral("--filter=^A"), TemplatePath(), ValuesPath(), OutputPath()}), 0);
        QCOMPARE(Value(QStringLiteral("Amount")), QVariant(1LL));
    }

    void thousands_of_names_are_filled_in_one_run()
    {
        Template source;
        QByteArray names;
        QJsonObject values;
        for (int i = 0; i < 5000; ++i) {
            const QString name = QStringLiteral("A_rather_long_name_of_row_%1").arg(i * 7919 % 100003);
            names += "<definedName name=\"" + name.toUtf8() + "\">Sheet1!$A$" + QByteArray::number(i + 1) + "</definedName>";
            values.insert(name, i);
        }
        source.parts[kWorkbook].replace("</sheets>", "</sheets><definedNames>" + names + "</definedNames>");
        WriteFile(TemplatePath(), source.Archive());
        QCOMPARE(Fill(QJsonDocument(values).toJson()), 0);
        QCOMPARE(Value(values.keys().last()), QVariant(qlonglong(values.value(values.keys().last()).toInt())));
    }

    void odd_names_are_matched_exactly()
    {
        Template source;
        const QStringList names = {QStringLiteral("a.b"),        QStringLiteral("axb"),        QStringLiteral("a"),
                                   QStringLiteral("x|y"),        QStringLiteral("it's"),       QStringLiteral("\u00e4"),
                                   QStringLiteral("\U0001f600"), QStringLiteral("\U0001f601"), QStringLiteral("a\n")};
        for (int i = 0; i < names.size(); ++i)
            source.Name(names.at(i).toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("&#10;")).toUtf8(),
                        "Sheet1!$A$" + QByteArray::number(i + 1));
        WriteFile(TemplatePath(), source.Archive());
        for (const QString &name : names) {
            QCOMPARE(Fill(QJsonDocument(QJsonObject{{name, 4}}).toJson()), 0);
            QCOMPARE(Value(name), QVariant(4LL));
            QCOMPARE(Output().value(kSheet1).count("<c "), 1);
        }
        QJsonObject all;
        for (const QString &name : names)
            all.insert(name, 5);
        QCOMPARE(Fill(QJsonDocument(all).toJson()), 0);
        QCOMPARE(Output().value(kSheet1).count("<v>5</v>"), names.size());
    }

    // --- Errors ---

    void each_error_has_its_status_and_leaves_the_output_data()
    {
        QTest::addColumn<QByteArray>("values");
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("message");
        const auto row = [](const char *tag, const QByteArray &values, int status, const QByteArray &message) {
            QTest::newRow(tag) << values << status << message;
        };
        row("no JSON", "{", 6, "holds no JSON object");
        row("an array", "[1]", 6, "holds no JSON object");
        row("unknown names", "{\"Zero\": 1, \"Nobody\": 2, \"Amount\": 3}", 7, "has no element named Nobody, Zero");
        row("a cut object", "{\"Amount\": 1", 6, "values.json holds no JSON object: line 1, column 13: the file ends in the middle");
        row("a comma too many", "{\n\"Amount\": 1,\n}", 6, "line 3, column 1: there is a comma too many");
        row("a name twice", "{\"Amount\": 1, \"Amount\": 2}", 6, "this object has Amount twice");
        row("single quotes", "{\"Amount\": 'a'}", 6, "texts stand in double quotes");
        row("a number of another language", "{\"Amount\": 1,5}", 6, "line 1, column 14: a name in double quotes is missing");
        row("zeros in front", "{\"Amount\": 007}", 6, "a value is missing here");
        row("a huge number", "{\"Amount\": 1e400}", 6, "the number is too large");
        row("an endless depth", QByteArray("{\"Amount\": ") + QByteArray(100000, '['), 6, "nested too deeply");
        row("another encoding", "{\"Amount\": \"\xe4\"}", 6, "not in UTF-8");
        row("something behind", "{} {}", 6, "something stands behind");
        row("an array as value", "{\"Amount\": [1]}", 8, "Amount, row 1: rows are an array of arrays");
        row("an unknown key", "{\"Amount\": {\"valu\": 1}}", 8, "Amount: an object with valu is no value");
        row("an empty object", "{\"Amount\": {}}", 8, "Amount: an object with nothing in it");
        row("no date", "{\"Amount\": {\"date\": \"22.11.2026\"}}", 8, "Amount: 22.11.2026 is no date");
        row("a day that there is not", "{\"Amount\": {\"date\": \"2026-02-30\"}}", 8, "Amount: 2026-02-30 is no date");
        row("a time zone", "{\"Amount\": {\"date\": \"2026-11-22T10:00:00Z\"}}", 8, "without a time zone");
        row("no time", "{\"Amount\": {\"time\": \"25:00\"}}", 8, "Amount: 25:00 is no time");
        row("an empty formula", "{\"Amount\": {\"formula\": \"\"}}", 8, "Amount: The formula is empty");
        row("a number as formula", "{\"Amount\": {\"formula\": 1}}", 8, "Amount: a formula is a text");
        row("a constant", "{\"Rate\": 1}", 8, "Rate: The name stands for a constant");
        row("a formula's name", "{\"Sum\": 1}", 8, "Sum: The name stands for a formula");
        row("a name that leads nowhere", "{\"Elsewhere\": 1}", 8, "Elsewhere: The name leads to a sheet that there is not");
        row("no options", "{\"Choice\": {\"options\": []}}", 8, "Choice: options are");
        row("a comma", "{\"Choice\": {\"options\": [\"a,b\"]}}", 8, "Choice: ");
        row("a number as option", "{\"Choice\": {\"options\": [1]}}", 8, "Choice: an option is");
        row("a cell's value for a picture", "{\"Logo\": 1}", 8, "Logo is a picture");
        row("a picture as plain text", "{\"Logo\": \"logo.png\"}", 8, "Logo is a picture and takes {\"picture\": FILE}");
        row("a picture for a cell", "{\"Amount\": {\"picture\": \"template.xlsx\"}}", 8, "Amount is a cell");
        row("no image", "{\"Logo\": {\"picture\": \"template.xlsx\"}}", 8, "Logo: This is no image");
        row("no picture's path", "{\"Logo\": {\"picture\": 1}}", 8, "Logo: a picture is the path");
        row("a missing picture", "{\"Logo\": {\"picture\": \"nowhere.png\"}}", 3, "nowhere.png is no file");
        row("a folder as picture", "{\"Logo\": {\"picture\": \".\"}}", 3, "is no file");
    }

    void each_error_has_its_status_and_leaves_the_output()
    {
        QFETCH(QByteArray, values);
        QFETCH(int, status);
        QFETCH(QByteArray, message);
        WriteFile(TemplatePath(),
                  Order().Name("Rate", "0.19").Name("Sum", "SUM(Order!$A$1:$A$3)").Name("Elsewhere", "Gone!$A$1").Archive());
        WriteFile(OutputPath(), "old");
        const QStringList before = Files() + QStringList(QStringLiteral("values.json"));
        QCOMPARE(Fill(values), status);
        QVERIFY2(m_errors.contains(message), m_errors.constData());
        QVERIFY(m_errors.startsWith("fill-template: "));
        QCOMPARE(FileContent(OutputPath()), QByteArrayLiteral("old"));
        QCOMPARE(Files(), before);
    }

    void wrong_usage_is_told_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("nothing") << QStringList();
        QTest::newRow("unknown command") << QStringList{QStringLiteral("empty"), QStringLiteral("a")};
        QTest::newRow("unknown option") << QStringList{QStringLiteral("list"), QStringLiteral("--xml"), QStringLiteral("a")};
        QTest::newRow("too few") << QStringList{QStringLiteral("fill"), QStringLiteral("a"), QStringLiteral("b")};
        QTest::newRow("too many") << QStringList{QStringLiteral("list"), QStringLiteral("a"), QStringLiteral("b")};
        QTest::newRow("empty path") << QStringList{QStringLiteral("list"), QString()};
        QTest::newRow("json") << QStringList{QStringLiteral("prepare"), QStringLiteral("--json"), QStringLiteral("a"), QStringLiteral("b")};
        QTest::newRow("quiet list") << QStringList{QStringLiteral("list"), QStringLiteral("--quiet"), QStringLiteral("a")};
        QTest::newRow("filter of prepare") << QStringList{QStringLiteral("prepare"), QStringLiteral("--filter=a"), QStringLiteral("a"),
                                                          QStringLiteral("b")};
        QTest::newRow("no filter") << QStringList{QStringLiteral("list"), QStringLiteral("a"), QStringLiteral("--filter")};
        QTest::newRow("invalid filter") << QStringList{QStringLiteral("list"), QStringLiteral("--filter"), QStringLiteral("("),
                                                       QStringLiteral("a")};
    }

    void wrong_usage_is_told()
    {
        QFETCH(QStringList, arguments);
        QCOMPARE(Run(arguments), 2);
        QVERIFY(m_errors.contains("see fill-template --help"));
        QCOMPARE(m_output, QByteArray());
    }

    void help_is_printed()
    {
        QCOMPARE(Run({QStringLiteral("--help")}), 0);
        QVERIFY(m_output.startsWith("Usage: fill-template list"));
    }

    void missing_files_and_failed_loads_have_a_status_of_their_own()
    {
        WriteFile(ValuesPath(), "{}");
        const QString nowhere = Path(QStringLiteral("nowhere.xlsx"));
        QCOMPARE(Run({QStringLiteral("list"), nowhere}), 3);
        QCOMPARE(Run({QStringLiteral("prepare"), nowhere, OutputPath()}), 3);
        QCOMPARE(Run({QStringLiteral("fill"), nowhere, ValuesPath(), OutputPath()}), 3);
        QCOMPARE(Run({QStringLiteral("fill"), TemplatePath(), nowhere, OutputPath()}), 3);
        WriteFile(TemplatePath(), "no archive");
        QCOMPARE(Run({QStringLiteral("list"), TemplatePath()}), 4);
        QVERIFY2(m_errors.contains("This is a text file"), m_errors.constData());
        QCOMPARE(Run({QStringLiteral("prepare"), TemplatePath(), OutputPath()}), 4);
        QCOMPARE(Run({QStringLiteral("fill"), TemplatePath(), ValuesPath(), OutputPath()}), 4);
        Template cut = Order();
        cut.parts[kSheet1].chop(20);
        WriteFile(TemplatePath(), cut.Archive());
        QCOMPARE(Run({QStringLiteral("list"), TemplatePath()}), 4);
        QVERIFY(!QFile::exists(OutputPath()));
    }

    void other_files_are_told_apart_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("message");
        const QByteArray compound = QByteArrayLiteral("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1");
        const QByteArray name(reinterpret_cast<const char *>(u"EncryptedPackage"), 32);
        QTest::newRow("old binary workbook") << compound + QByteArray(600, '\0') << QByteArray("in the old binary format");
        QTest::newRow("password") << compound + QByteArray(600, '\0') + name << QByteArray("protected by a password");
        QTest::newRow("comma-separated values") << QByteArray("a,b\n1,2\n") << QByteArray("comma-separated values");
        QTest::newRow("cut archive") << Order().Archive().chopped(30) << QByteArray("its end is missing");
        QTest::newRow("OpenDocument") << MakeArchive(
            QMap<QByteArray, QByteArray>{{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"}, {"content.xml", "<a/>"}})
                                      << QByteArray("OpenDocument");
        QTest::newRow("empty") << QByteArray() << QByteArray("is empty");
    }

    void other_files_are_told_apart()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, message);
        WriteFile(TemplatePath(), file);
        WriteFile(ValuesPath(), "{}");
        QCOMPARE(Run({QStringLiteral("list"), TemplatePath()}), 4);
        QVERIFY2(m_errors.contains(message), m_errors.constData());
        QVERIFY(m_errors.startsWith("fill-template: " + TemplatePath().toUtf8() + ": "));
        QCOMPARE(Run({QStringLiteral("fill"), TemplatePath(), ValuesPath(), OutputPath()}), 4);
        QVERIFY2(m_errors.contains(message), m_errors.constData());
    }

    // --- The output is whole ---

    void the_output_may_be_the_input_and_keeps_its_permissions()
    {
        QFile(TemplatePath()).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
        WriteFile(ValuesPath(), "{\"Amount\": 1}");
        QCOMPARE(Run({QStringLiteral("fill"), TemplatePath(), ValuesPath(), TemplatePath()}), 0);
        QVERIFY(ReadArchive(FileContent(TemplatePath())).value(kSheet1).contains("<v>1</v>"));
        QCOMPARE(QFile::permissions(TemplatePath()) & QFile::Permissions(0x0fff), QFile::ReadUser | QFile::WriteUser | QFile::ReadGroup);
    }

    void paths_may_hold_blanks_and_any_letter()
    {
        const QString folder = Path(QStringLiteral("\u00e4 b \u4e2d"));
        QDir().mkpath(folder);
        const QString source = folder + QStringLiteral("/t \u00f6.xlsx");
        const QString output = folder + QStringLiteral("/o \u00fc.xlsx");
        WriteFile(source, Order().Archive());
        WriteFile(folder + QStringLiteral("/v.json"), "{\"Amount\": 1}");
        QCOMPARE(Run({QStringLiteral("fill"), source, folder + QStringLiteral("/v.json"), output}), 0);
        QVERIFY(ReadArchive(FileContent(output)).value(kSheet1).contains("<v>1</v>"));
        QCOMPARE(Run({QStringLiteral("prepare"), source, output}), 0);
        QCOMPARE(FileContent(output), FileContent(source));
    }

    void a_link_to_the_output_stays_a_link()
    {
        WriteFile(Path(QStringLiteral("real.xlsx")), "old");
        QFile::link(QStringLiteral("real.xlsx"), OutputPath());
        QCOMPARE(Fill("{\"Amount\": 1}"), 0);
        QVERIFY(QFileInfo(OutputPath()).isSymLink());
        QVERIFY(FileContent(Path(QStringLiteral("real.xlsx"))).startsWith("PK"));
    }

    void what_is_no_regular_file_is_not_replaced()
    {
        WriteFile(ValuesPath(), "{}");
        QCOMPARE(Run({QStringLiteral("fill"), TemplatePath(), ValuesPath(), QStringLiteral("/dev/full")}), 9);
        QVERIFY(!QFileInfo(QStringLiteral("/dev/full")).isFile());
        QDir().mkpath(OutputPath());
        QCOMPARE(Run({QStringLiteral("fill"), TemplatePath(), ValuesPath(), OutputPath()}), 9);
        QCOMPARE(Run({QStringLiteral("prepare"), TemplatePath(), OutputPath()}), 9);
        QCOMPARE(Run({QStringLiteral("prepare"), TemplatePath(), Path(QStringLiteral("no/such/folder.xlsx"))}), 9);
    }

    void a_read_only_file_is_not_replaced()
    {
        WriteFile(ValuesPath(), "{\"Amount\": 1}");
        WriteFile(OutputPath(), "old");
        QVERIFY(QFile::setPermissions(OutputPath(), QFile::ReadOwner | QFile::ReadUser));
        for (const QStringList &arguments : {QStringList{QStringLiteral("fill"), TemplatePath(), ValuesPath(), OutputPath()},
                                             {QStringLiteral("prepare"), TemplatePath(), OutputPath()}}) {
            QCOMPARE(Run(arguments), 9);
            QVERIFY2(m_errors.contains(OutputPath().toUtf8()) && m_errors.contains("read-only"), m_errors.constData());
        }
        QCOMPARE(FileContent(OutputPath()), QByteArrayLiteral("old"));
    }

    void a_read_only_folder_keeps_its_file()
    {
        const QString folder = Path(QStringLiteral("closed"));
        const QString output = folder + QStringLiteral("/output.xlsx");
        WriteFile(output, "old");
        WriteFile(ValuesPath(), "{\"Amount\": 1}");
        QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
        const int filled = Run({QStringLiteral("fill"), TemplatePath(), ValuesPath(), output});
        const QByteArray reason = m_errors;
        const int prepared = Run({QStringLiteral("prepare"), TemplatePath(), output});
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QCOMPARE(filled, 9);
        QVERIFY2(reason.contains(output.toUtf8()) && reason.contains("Permission denied"), reason.constData());
        QCOMPARE(prepared, 9);
        QCOMPARE(FileContent(output), QByteArrayLiteral("old"));
        QCOMPARE(QDir(folder).entryList(QDir::Files | QDir::Hidden), QStringList(QStringLiteral("output.xlsx")));
    }

    void a_full_disk_leaves_the_output_as_it_was()
    {
        Template source = Order();
        QByteArray noise;
        for (quint32 i = 0, x = 1; i < 30000; ++i)
            noise.append(char((x = x * 1664525U + 1013904223U) >> 24));
        source.parts["xl/media/image1.png"] = noise;
        WriteFile(TemplatePath(), source.Archive());
        WriteFile(ValuesPath(), "{\"Amount\": 1, \"Text\": \"2\"}");
        int succeeded = 0;
        for (qint64 limit = 0; limit <= 65536; limit += limit < 2048 ? 128 : 2048) {
            WriteFile(OutputPath(), "old");
            const QStringList before = Files();
            FillTemplateProgram program({QStringLiteral("fill"), TemplatePath(), ValuesPath(), OutputPath()});
            program.LimitFileSize(limit);
            const int status = program.Run();
            QCOMPARE(Files(), before);
            if (status == 0) {
                ++succeeded;
                QCOMPARE(PackageFaults(Output()), QStringList());
                QCOMPARE(Output().value("xl/media/image1.png"), noise);
            } else {
                QVERIFY2(status == 9, program.Errors().constData());
                QCOMPARE(FileContent(OutputPath()), QByteArrayLiteral("old"));
            }
        }
        QVERIFY(succeeded > 5);
    }

    void a_full_disk_is_told_as_such()
    {
        Template source = Order();
        for (const char *part : {"xl/media/image1.png", "xl/media/image2.png", "xl/media/image3.png"}) {
            QByteArray noise;
            for (quint32 i = 0, x = quint32(part[14]); i < 5000; ++i)
                noise.append(char((x = x * 1664525U + 1013904223U) >> 24));
            source.parts[part] = noise;
        }
        WriteFile(TemplatePath(), source.Archive());
        WriteFile(ValuesPath(), "{\"Amount\": 1}");
        const auto errorsOf = [](const QStringList &arguments, qint64 limit) {
            FillTemplateProgram program(arguments);
            program.LimitFileSize(limit);
            return program.Run() == 9 ? program.Errors() : QByteArray("another status");
        };
        const QStringList fill{QStringLiteral("fill"), TemplatePath(), ValuesPath(), OutputPath()};
        const QStringList prepare{QStringLiteral("prepare"), TemplatePath(), OutputPath()};
        // The output is cut, an unpacked part, the copy of an archive whose parts fit.
        for (const QByteArray &errors : {errorsOf(fill, 100), errorsOf(fill, 4999), errorsOf(prepare, 4999), errorsOf(prepare, 8000)})
            QVERIFY2(errors.contains("is the disk full?"), errors.constData());
    }

    void the_output_is_the_old_or_the_new_package_whenever_the_program_is_killed()
    {
        WriteFile(ValuesPath(), "{\"Amount\": 1}");
        WriteFile(OutputPath(), "old");
        for (int i = 0; i < 25; ++i) {
            FillTemplateProgram program({QStringLiteral("fill"), TemplatePath(), ValuesPath(), OutputPath()});
            program.start();
            QVERIFY(program.waitForStarted());
            program.waitForFinished(i * 3);
            if (program.state() != QProcess::NotRunning)
                program.kill();
            program.waitForFinished();
            const QByteArray content = FileContent(OutputPath());
            QVERIFY(content == "old" || PackageFaults(ReadArchive(content)).isEmpty());
        }
    }

    // --- prepare ---

    /// Sheets 2 and 10, whose relationships come after the styles'; drawings 3, 5 and 7, of which 5 has no relationships.
    static Template OutOfOrder()
    {
        Template source;
        source.parts.remove(kSheet1);
        const QByteArray head = "<worksheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
                                "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"><sheetData><row r=\"1\">"
                                "<c r=\"A1\"><v>";
        const QByteArray foot = "</v></c></row></sheetData><!-- kept --><pageMargins left=\"0.7\"/><drawing r:id=\"rId1\"/></worksheet>";
        source.parts["xl/worksheets/sheet2.xml"] = head + "2" + foot;
        source.parts["xl/worksheets/sheet10.xml"] = head + "10" + foot;
        source.parts["xl/worksheets/_rels/sheet2.xml.rels"] = Relationships(Relationship("rId1", "drawing", "../drawings/drawing7.xml"));
        source.parts["xl/worksheets/_rels/sheet10.xml.rels"] = Relationships(Relationship("rId1", "drawing", "/xl/drawings/drawing3.xml"));
        Template drawings;
        drawings.Drawing(3, {{"Three", "rId1"}}, Relationship("rId1", "image", "../media/a.png"));
        drawings.Drawing(5, {}, QByteArray());
        drawings.Drawing(7, {{"Seven", "rId1"}}, Relationship("rId1", "image", "../media/b.png"));
        for (const QByteArray number : {"3", "5", "7"}) {
            source.parts["xl/drawings/drawing" + number + ".xml"] = drawings.parts["xl/drawings/drawing" + number + ".xml"];
            if (number != "5")
                source.parts["xl/drawings/_rels/drawing" + number + ".xml.rels"] =
                    drawings.parts["xl/drawings/_rels/drawing" + number + ".xml.rels"];
        }
        source.parts["xl/media/a.png"] = ImageFile("PNG", Qt::white);
        source.parts["xl/media/b.png"] = ImageFile("PNG", Qt::black);
        source.parts["xl/pivotCache/pivotCacheDefinition1.xml"] = "<pivotCacheDefinition/>";
        source.parts["xl/_rels/workbook.xml.rels"] = Relationships(
            Relationship("rId1", "styles", "styles.xml")
            + Relationship("rId2", "pivotCacheDefinition", "pivotCache/pivotCacheDefinition1.xml")
            + Relationship("rId4", "worksheet", "worksheets/sheet2.xml") + Relationship("rId3", "worksheet", "/xl/worksheets/sheet10.xml"));
        source.parts[kWorkbook] =
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<workbook xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
            "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"><!-- kept --><sheets>"
            "<sheet name=\"Ten\" sheetId=\"3\" r:id=\"rId3\"/><sheet name=\"Two\" sheetId=\"4\" r:id=\"rId4\"/></sheets><definedNames>"
            "<definedName name=\"OnTwo\">Two!$A$1</definedName><definedName name=\"OnTen\">Ten!$A$1</definedName></definedNames>"
            "<pivotCaches><pivotCache cacheId=\"1\" r:id=\"rId2\"/></pivotCaches></workbook>";
        QByteArray types = source.parts["[Content_Types].xml"];
        types.replace("</Types>",
                      "<Default Extension=\"png\" ContentType=\"image/png\"/>"
                      "<Override PartName=\"/xl/worksheets/sheet10.xml\" ContentType=\"ten\"/>"
                      "<Override PartName=\"/xl/drawings/drawing3.xml\" ContentType=\"three\"/>"
                      "<Override PartName=\"/xl/drawings/drawing7.xml\" ContentType=\"seven\"/></Types>");
        source.parts["[Content_Types].xml"] = types.replace("/xl/worksheets/sheet1.xml", "/xl/worksheets/sheet2.xml");
        return source;
    }

    void list_and_fill_take_a_template_whatever_its_numbers()
    {
        WriteFile(TemplatePath(), OutOfOrder().Archive());
        QCOMPARE(Run({QStringLiteral("list"), TemplatePath()}), 0);
        QVERIFY2(m_output.contains("OnTen  cell     Ten!$A$1  10"), m_output.constData());
        QCOMPARE(Fill("{\"OnTen\": 1}"), 0);
        QVERIFY(Output().value("xl/worksheets/sheet10.xml").contains("<v>1</v>"));
        QVERIFY(Output().value("xl/worksheets/sheet2.xml").contains("<v>2</v>"));
    }

    void prepare_numbers_all_parts_and_says_what_it_did()
    {
        const Template source = OutOfOrder();
        QCOMPARE(PackageFaults(source.parts), QStringList());
        QCOMPARE(PrepareTemplate(source), 0);
        const QByteArray said = ("worksheet relationship rId4 becomes rId1\n"
                                 "worksheet relationship rId3 becomes rId2\n"
                                 "relationship rId1 of the workbook becomes rId3\n"
                                 "relationship rId2 of the workbook becomes rId4\n"
                                 "xl/drawings/_rels/drawing3.xml.rels becomes xl/drawings/_rels/drawing1.xml.rels\n"
                                 "xl/drawings/_rels/drawing7.xml.rels becomes xl/drawings/_rels/drawing2.xml.rels\n"
                                 "xl/drawings/drawing3.xml becomes xl/drawings/drawing1.xml\n"
                                 "xl/drawings/drawing5.xml becomes xl/drawings/drawing3.xml\n"
                                 "xl/drawings/drawing7.xml becomes xl/drawings/drawing2.xml\n"
                                 "xl/worksheets/_rels/sheet10.xml.rels becomes xl/worksheets/_rels/sheet2.xml.rels\n"
                                 "xl/worksheets/_rels/sheet2.xml.rels becomes xl/worksheets/_rels/sheet1.xml.rels\n"
                                 "xl/worksheets/sheet10.xml becomes xl/worksheets/sheet2.xml\n"
                                 "xl/worksheets/sheet2.xml becomes xl/worksheets/sheet1.xml\n"
                                 "only XlsxOperator needs this: list and fill take any workbook\n");
        QCOMPARE(m_output.split('\n'), said.split('\n'));
        const QMap<QByteArray, QByteArray> parts = Output();
        QCOMPARE(PackageFaults(parts), QStringList());
        // What is renamed is not rewritten, and what is neither is untouched.
        QCOMPARE(parts.value("xl/worksheets/sheet1.xml"), source.parts.value("xl/worksheets/sheet2.xml"));
        QCOMPARE(parts.value("xl/worksheets/sheet2.xml"), source.parts.value("xl/worksheets/sheet10.xml"));
        QCOMPARE(parts.value("xl/drawings/drawing3.xml"), source.parts.value("xl/drawings/drawing5.xml"));
        QCOMPARE(parts.value(kDrawingRels), source.parts.value("xl/drawings/_rels/drawing3.xml.rels"));
        QCOMPARE(parts.value("xl/styles.xml"), source.parts.value("xl/styles.xml"));
        QVERIFY(parts.value("[Content_Types].xml").contains("PartName=\"/xl/drawings/drawing2.xml\" ContentType=\"seven\""));
        QVERIFY(parts.value(kWorkbook).contains("<!-- kept -->"));
        QVERIFY(parts.value(kWorkbook).contains("<pivotCache cacheId=\"1\" r:id=\"rId4\"/>"));
        QVERIFY(parts.value("xl/worksheets/_rels/sheet2.xml.rels").contains("Target=\"/xl/drawings/drawing1.xml\""));
        // Now each name leads to its own sheet, and each picture to its own image.
        QCOMPARE(Value(QStringLiteral("OnTwo")), QVariant(2LL));
        QCOMPARE(Value(QStringLiteral("OnTen")), QVariant(10LL));
        QCOMPARE(Value(QStringLiteral("Seven")).value<Velmora::XlsxOperator::PictureInfo>().filePath, QStringLiteral("../media/b.png"));
    }

    void prepare_of_a_prepared_template_is_a_copy()
    {
        QCOMPARE(PrepareTemplate(OutOfOrder()), 0);
        const QString again = Path(QStringLiteral("again.xlsx"));
        QCOMPARE(Run({QStringLiteral("prepare"), OutputPath(), again}), 0);
        QVERIFY(m_output.startsWith("nothing to do"));
        QCOMPARE(FileContent(again), FileContent(OutputPath()));
    }

    void prepare_may_write_over_its_input()
    {
        WriteFile(TemplatePath(), OutOfOrder().Archive());
        QCOMPARE(Run({QStringLiteral("prepare"), TemplatePath(), TemplatePath()}), 0);
        QCOMPARE(Run({QStringLiteral("list"), TemplatePath()}), 0);
    }

    void prepare_refuses_what_numbers_do_not_mend_data()
    {
        QTest::addColumn<QByteArray>("part");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("relationships of no drawing") << QByteArray("xl/drawings/_rels/drawing9.xml.rels") << Relationships(QByteArray());
        QTest::newRow("no sheet") << QByteArray("xl/worksheets/sheet1.bin") << QByteArray("1");
        QTest::newRow("another prefix") << kWorkbook
                                        << QByteArray(
                                               "<workbook xmlns:q=\"q\"><sheets><sheet name=\"Two\" q:id=\"rId4\"/></sheets></workbook>");
        QTest::newRow("a worksheet elsewhere") << QByteArray("xl/_rels/workbook.xml.rels")
                                               << Relationships(Relationship("rId1", "worksheet", "styles.xml"));
        QTest::newRow("two of one worksheet") << QByteArray("xl/_rels/workbook.xml.rels")
                                              << Relationships(Relationship("rId1", "worksheet", "worksheets/sheet2.xml")
                                                               + Relationship("rId2", "worksheet", "worksheets/sheet2.xml"));
    }

    void prepare_refuses_what_numbers_do_not_mend()
    {
        QFETCH(QByteArray, part);
        QFETCH(QByteArray, content);
        Template source = OutOfOrder();
        source.parts[part] = content;
        QCOMPARE(PrepareTemplate(source), 10);
        QVERIFY2(m_errors.contains("the template cannot be prepared: "), m_errors.constData());
        QVERIFY(!QFile::exists(OutputPath()));
    }

    // --- languages ---

    void a_fault_of_the_workbook_is_told_in_the_language_of_the_user_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::newRow("de_AT.UTF-8") << QStringLiteral("Die Datei ist leer.");
        QTest::newRow("zh_CN.UTF-8") << QStringLiteral("文件为空。");
        for (const char *english : {"en_GB.UTF-8", "it_IT.UTF-8", "zh_TW.UTF-8", "C.UTF-8"})
            QTest::newRow(english) << QStringLiteral("The file is empty.");
    }

    void a_fault_of_the_workbook_is_told_in_the_language_of_the_user()
    {
        QFETCH(QString, fault);
        WriteFile(TemplatePath(), QByteArray());
        FillTemplateProgram program({QStringLiteral("list"), TemplatePath()});
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("LC_ALL"));
        environment.insert(QStringLiteral("LANG"), QLatin1String(QTest::currentDataTag()));
        program.setProcessEnvironment(environment);
        QVERIFY(program.Run() != 0);
        QVERIFY2(QString::fromUtf8(program.Errors()).contains(fault), program.Errors().constData());
    }
};

VELMORA_TEST_MAIN(tst_FillTemplate)

#include "tst_FillTemplate.moc"
