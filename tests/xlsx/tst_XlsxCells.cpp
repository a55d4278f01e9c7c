#include "xlsx/XlsxTestCase.h"

#include <QDate>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

#include <pugixml.hpp>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kA = QStringLiteral("A");

/// A row with one cell at A1, whose attributes besides r are \a attributes.
QByteArray CellA1(const QByteArray &attributes, const QByteArray &content)
{
    return "<row r=\"1\"><c r=\"A1\" " + attributes + ">" + content + "</c></row>";
}

Template OneCell(const QByteArray &attributes, const QByteArray &content)
{
    Template source;
    source.Strings(
        {"<si><t>first</t></si>", "<si><t>second &amp; more</t></si>", "<si><r><t>rich</t></r></si>", "<si><t>  </t></si>", "<si/>"});
    source.Sheet(1, CellA1(attributes, content)).Name("A", "Sheet1!$A$1");
    return source;
}

} // namespace

class tst_XlsxCells : public XlsxTestCase
{
    Q_OBJECT

    /// The children of sheetData after \a value was set to the name of \a source, whose name is A.
    QByteArray Saved(const Template &source, const QVariant &value)
    {
        const QByteArray saved = XlsxTestCase::Saved(
            source, [&value](XlsxOperator &op) { op.setCellsValue(kA, value); }, "<sheetData>", "</sheetData>");
        const QStringList faults = PackageFaults(Output());
        return faults.isEmpty() ? saved : faults.join(QLatin1Char('\n')).toUtf8();
    }

private Q_SLOTS:
    // --- Reading ---

    void each_kind_of_cell_reads_as_its_type_data()
    {
        QTest::addColumn<QByteArray>("attributes");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QVariant>("value");
        const auto row = [](const char *title, const char *attributes, const char *content, const QVariant &value) {
            QTest::newRow(title) << QByteArray(attributes) << QByteArray(content) << value;
        };
        row("integer", "", "<v>12</v>", 12LL);
        row("negative", "s=\"3\"", "<v>-7</v>", -7LL);
        row("a point makes a double", "", "<v>12.0</v>", 12.0);
        row("double with exponent", "", "<v>1.5E3</v>", 1500.0);
        row("exponent without a point", "", "<v>1E3</v>", 0LL);
        row("beyond 64 bits", "", "<v>99999999999999999999</v>", 0LL);
        row("largest", "", "<v>9223372036854775807</v>", 9223372036854775807LL);
        row("no number", "", "<v>twelve</v>", 0LL);
        row("no double", "", "<v>a.b</v>", 0.0);
        row("no value", "", "", QVariant());
        row("empty value", "", "<v></v>", QVariant());
        row("formula without a value", "", "<f>A2</f>", QVariant());
        row("formula with a value", "", "<f>A2</f><v>3</v>", 3LL);
        row("string", "t=\"s\"", "<v>0</v>", QStringLiteral("first"));
        row("string with an entity is raw", "t=\"s\"", "<v>1</v>", QStringLiteral("second &amp; more"));
        row("rich text", "t=\"s\"", "<v>2</v>", QString(QLatin1String("")));
        row("blanks", "t=\"s\"", "<v>3</v>", QStringLiteral("  "));
        row("string without text", "t=\"s\"", "<v>4</v>", QString(QLatin1String("")));
        row("no index", "t=\"s\"", "<v></v>", QStringLiteral("first"));
        row("malformed index", "t=\"s\"", "<v>x</v>", QStringLiteral("first"));
        row("string without an index", "t=\"s\"", "", QVariant());
        row("index beyond the table", "t=\"s\"", "<v>5</v>", QVariant());
        row("negative index", "t=\"s\"", "<v>-1</v>", QVariant());
        row("largest index", "t=\"s\"", "<v>2147483647</v>", QVariant());
        row("formula string", "t=\"str\"", "<v>text</v>", QVariant());
        row("boolean", "t=\"b\"", "<v>1</v>", QVariant());
        row("error", "t=\"e\"", "<v>#REF!</v>", QVariant());
        row("inline string", "t=\"inlineStr\"", "<is><t>text</t></is>", QVariant());
        row("number by name", "t=\"n\"", "<v>1</v>", QVariant());
        row("empty type", "t=\"\"", "<v>1</v>", QVariant());
    }
    void each_kind_of_cell_reads_as_its_type()
    {
        QFETCH(QByteArray, attributes);
        QFETCH(QByteArray, content);
        QFETCH(QVariant, value);
        XlsxOperator op;
        QVERIFY(Load(op, OneCell(attributes, content)));
        const QVariant read = op.getCellValue(kA);
        QCOMPARE(read.userType(), value.userType());
        QCOMPARE(read, value);
    }

    void a_cell_that_is_not_there_reads_invalid()
    {
        XlsxOperator op;
        QVERIFY(Load(op, Template().Name("A", "Sheet1!$A$1")));
        QVERIFY(!op.getCellValue(kA).isValid());
        QHash<QString, QVariant> elements{{QStringLiteral("old"), 1}};
        op.getElementsNameToValueHash(elements);
        QCOMPARE(elements.keys(), QStringList(kA));
    }

    void only_the_first_position_is_read()
    {
        Template source;
        source.Sheet(1, "<row r=\"1\"><c r=\"A1\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row>").Name("A", "Sheet1!$B$1,Sheet1!$A$1");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(op.getCellValue(kA), QVariant(2LL));
    }

    void asking_for_an_unknown_name_makes_it_an_element()
    {
        XlsxOperator op;
        QVERIFY(!op.getCellValue(QStringLiteral("unknown")).isValid());
        QHash<QString, QVariant> elements;
        op.getElementsNameToValueHash(elements);
        QCOMPARE(elements, (QHash<QString, QVariant>{{QStringLiteral("unknown"), QVariant()}}));
    }

    // --- Writing ---

    void each_type_is_written_its_way_data()
    {
        QTest::addColumn<QByteArray>("attributes");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QByteArray>("saved");
        const auto row = [](const char *title, const char *attributes, const char *content, const QVariant &value, const char *saved) {
            QTest::newRow(title) << QByteArray(attributes) << QByteArray(content) << value << QByteArray(saved);
        };
        row("int over a string", "t=\"s\" s=\"1\"", "<v>0</v>", 5, "<c r=\"A1\" s=\"1\"><v>5</v></c>");
        row("uint", "", "<v>1</v>", 4000000000U, "<c r=\"A1\"><v>4000000000</v></c>");
        row("longlong", "", "<v>1</v>", -9000000000LL, "<c r=\"A1\"><v>-9000000000</v></c>");
        row("ulonglong", "", "<v>1</v>", 9000000000ULL, "<c r=\"A1\"><v>9000000000</v></c>");
        row("double is rounded", "", "<v>1</v>", 1.5, "<c r=\"A1\"><v>2</v></c>");
        row("negative double is rounded", "", "<v>1</v>", -1.6, "<c r=\"A1\"><v>-2</v></c>");
        row("number keeps a formula", "", "<f>B1</f><v>1</v>", 3, "<c r=\"A1\"><f>B1</f><v>3</v></c>");
        row("number makes a value", "", "<f>B1</f>", 3, "<c r=\"A1\"><f>B1</f><v>3</v></c>");
        row("number into an empty value", "", "<v/>", 3, "<c r=\"A1\"><v>3</v></c>");
        row("formula", "", "<v>1</v>", QStringLiteral("Total"), "<c r=\"A1\"><v>1</v><f>Total</f></c>");
        row("formula over a string", "t=\"s\"", "<v>0</v>", QStringLiteral("SUM(A1:A3)"),
            "<c r=\"A1\" t=\"s\"><v>0</v><f>SUM(A1:A3)</f></c>");
        row("formula over a formula", "", "<f>B1</f><v>1</v>", QStringLiteral("C1"), "<c r=\"A1\"><f>C1</f><v>1</v></c>");
        row("formula is escaped", "", "", QStringLiteral("A<B"), "<c r=\"A1\"><f>A&lt;B</f></c>");
        row("string", "", "<v>1</v>", QStringLiteral("50 kg"), "<c r=\"A1\" t=\"s\"><v>5</v></c>");
        row("string over another type", "t=\"str\"", "<v>x</v>", QStringLiteral("50 kg"), "<c r=\"A1\" t=\"s\"><v>5</v></c>");
        row("string makes a value", "", "", QStringLiteral("50 kg"), "<c r=\"A1\" t=\"s\"><v>5</v></c>");
        row("string keeps a formula", "", "<f>B1</f>", QStringLiteral("50 kg"), "<c r=\"A1\" t=\"s\"><f>B1</f><v>5</v></c>");
        row("blanks are found", "", "", QStringLiteral("  "), "<c r=\"A1\" t=\"s\"><v>3</v></c>");
        row("empty string is that of the first item without text", "", "", QString(QLatin1String("")), "<c r=\"A1\" t=\"s\"><v>2</v></c>");
        row("null string", "", "", QString(), "<c r=\"A1\" t=\"s\"><v>2</v></c>");
        row("text of an entity is not the entity", "", "", QStringLiteral("\u00e4&"), "<c r=\"A1\" t=\"s\"><v>5</v></c>");
        row("raw form of an entity is found", "", "", QStringLiteral(" &amp;"), "<c r=\"A1\" t=\"s\"><v>5</v></c>");
        row("bool", "t=\"b\"", "<v>1</v>", false, "<c r=\"A1\" t=\"b\"><v>1</v></c>");
        row("date", "", "<v>1</v>", QDate(2024, 1, 1), "<c r=\"A1\"><v>1</v></c>");
        row("nothing", "", "<v>1</v>", QVariant(), "<c r=\"A1\"><v>1</v></c>");
        row("float", "", "<v>1</v>", QVariant::fromValue(2.0F), "<c r=\"A1\"><v>1</v></c>");
        row("bytes", "", "<v>1</v>", QByteArray("5"), "<c r=\"A1\"><v>1</v></c>");
    }
    void each_type_is_written_its_way()
    {
        QFETCH(QByteArray, attributes);
        QFETCH(QByteArray, content);
        QFETCH(QVariant, value);
        QFETCH(QByteArray, saved);
        QCOMPARE(Saved(OneCell(attributes, content), value), "<row r=\"1\">" + saved + "</row>");
    }

    void what_makes_a_text_a_formula_is_one_pattern()
    {
        const QRegularExpression pattern(QStringLiteral("^[A-Za-z]+(\\([^\\)]*\\)|[A-Za-z0-9_]+)?(.*)$"));
        const QStringList letters{QStringLiteral("a"), QStringLiteral("Z"),  QStringLiteral("0"),
                                  QStringLiteral("_"), QStringLiteral("("),  QStringLiteral(")"),
                                  QStringLiteral(" "), QStringLiteral("\n"), QStringLiteral("\u00e9")};
        // Every text of up to three of these, and some longer ones.
        QStringList texts{QString()};
        auto begin = texts.size() - 1;
        for (int length = 1; length <= 3; ++length) {
            const auto end = texts.size();
            for (; begin < end; ++begin) {
                for (const QString &letter : letters)
                    texts.append(texts.at(begin) + letter);
            }
        }
        texts << QStringLiteral("=SUM(A1)") << QStringLiteral("SUM(\n)\n") << QStringLiteral("SUM(\n))\nx") << QStringLiteral("LOG10(\n)")
              << QStringLiteral("a\r\nb") << QStringLiteral("a\rb") << QStringLiteral("a\u2028b") << QStringLiteral("a\vb")
              << QStringLiteral("a\fb") << QStringLiteral("\u0410") << QStringLiteral("SUM((\n)\n") << QStringLiteral("a") + QChar(0xd800);

        QByteArray names;
        for (int i = 0; i < texts.size(); ++i)
            names += "<definedName name=\"N" + QByteArray::number(i) + "\">Sheet1!$A$" + QByteArray::number(i + 1) + "</definedName>";
        Template source;
        source.parts[kWorkbook].replace("<calcPr", "<definedNames>" + names + "</definedNames><calcPr");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        for (int i = 0; i < texts.size(); ++i)
            op.setCellsValue(QStringLiteral("N%1").arg(i), texts.at(i));
        QVERIFY(op.save());

        pugi::xml_document sheet;
        const QByteArray content = Output().value(kSheet1);
        QVERIFY(sheet.load_buffer(content.constData(), std::size_t(content.size())));
        int formulas = 0;
        pugi::xml_node row = sheet.child("worksheet").child("sheetData").first_child();
        for (int i = 0; i < texts.size(); ++i, row = row.next_sibling()) {
            const bool isFormula = bool(row.child("c").child("f"));
            QVERIFY2(isFormula == pattern.match(texts.at(i)).hasMatch(), qPrintable(texts.at(i)));
            formulas += isFormula;
        }
        QVERIFY(formulas > 50 && formulas < texts.size() - 50);
    }

    void a_long_text_of_many_lines_is_told_at_once()
    {
        const QString text = QString(2000000, QLatin1Char('a')) + QStringLiteral("\n\n");
        QCOMPARE(Saved(OneCell("", ""), text), QByteArray("<row r=\"1\"><c r=\"A1\" t=\"s\"><v>5</v></c></row>"));
    }

    void every_position_gets_the_value()
    {
        Template source = OneCell("", "<v>1</v>");
        source.Name("N", "Sheet1!$A$1:$C$1");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        op.setCellsValue(kA, 7);
        op.setCellsValue(QStringLiteral("N"), 7);
        QVERIFY(op.save());
        QCOMPARE(OutputBetween(kSheet1, "<sheetData>", "</sheetData>"),
                 QByteArray("<row r=\"1\"><c r=\"A1\"><v>7</v></c><c r=\"B1\"><v>7</v></c><c r=\"C1\"><v>7</v></c></row>"));
    }

    void a_repeated_string_is_one_item_and_the_table_keeps_its_attributes()
    {
        Template source;
        source.parts["xl/sharedStrings.xml"] = "<sst count=\"9\" uniqueCount=\"9\"><si><t>0 a</t></si></sst>";
        source.Name("A", "Sheet1!$A$1").Name("B", "Sheet1!$B$1").Name("C", "Sheet1!$C$1");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        op.setCellsValue(kA, QStringLiteral("1 \u00e4"));
        op.setCellsValue(QStringLiteral("B"), QStringLiteral("1 \u00e4"));
        op.setCellsValue(QStringLiteral("C"), QStringLiteral("0 a"));
        QVERIFY(op.save());
        QVERIFY(op.save());
        QCOMPARE(
            Output().value(kSharedStrings),
            QByteArray("<?xml version=\"1.0\"?><sst count=\"9\" uniqueCount=\"9\"><si><t>0 a</t></si><si><t>1 \xc3\xa4</t></si></sst>"));
        QCOMPARE(
            OutputBetween(kSheet1, "<sheetData>", "</sheetData>"),
            QByteArray(
                "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>1</v></c><c r=\"B1\" t=\"s\"><v>1</v></c><c r=\"C1\" t=\"s\"><v>0</v></c></row>"));
    }

    void entities_of_strings_gain_a_level_with_each_load_and_save()
    {
        XlsxOperator op;
        QVERIFY(Load(op, OneCell("t=\"s\"", "<v>1</v>")));
        QVERIFY(op.save());
        QVERIFY(op.save());
        QVERIFY(Output().value(kSharedStrings).contains("<t>second &amp;amp; more</t>"));
        // The same text, set by the host, is another one.
        op.setCellsValue(kA, QStringLiteral("2 & more"));
        QVERIFY(op.save());
        QVERIFY(Output().value(kSharedStrings).endsWith("<si><t>2 &amp; more</t></si></sst>"));

        XlsxOperator again;
        QVERIFY(Load(again, FileContent(OutputPath())));
        QCOMPARE(again.getCellValue(kA), QVariant(QStringLiteral("2 &amp; more")));
    }

    void line_ends_and_cdata_of_strings_stay_raw()
    {
        Template source = OneCell("t=\"s\"", "<v>0</v>");
        source.parts["xl/sharedStrings.xml"] = "<sst><si><t>0 a\r\nb</t></si><si><t><![CDATA[x]]></t></si></sst>";
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(op.getCellValue(kA), QVariant(QStringLiteral("0 a\r\nb")));
    }

    // --- New rows and cells ---

    void rows_and_cells_are_made_in_their_order_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("position");
        QTest::addColumn<QByteArray>("after");
        const auto row = [](const char *title, const char *before, const char *position, const char *after) {
            QTest::newRow(title) << QByteArray(before) << QByteArray(position) << QByteArray(after);
        };
        row("first row", "", "$B$3", "<row r=\"3\"><c r=\"B3\"><v>5</v></c></row>");
        row("last row", "<row r=\"9\"/>", "$B$10", "<row r=\"9\"/><row r=\"10\"><c r=\"B10\"><v>5</v></c></row>");
        row("row between", "<row r=\"2\"/><row r=\"10\"/>", "$B$9",
            "<row r=\"2\"/><row r=\"9\"><c r=\"B9\"><v>5</v></c></row><row r=\"10\"/>");
        row("row before all", "<row r=\"2\"/>", "$B$1", "<row r=\"1\"><c r=\"B1\"><v>5</v></c></row><row r=\"2\"/>");
        row("first greater row of unordered ones", "<row r=\"5\"/><row r=\"3\"/><row r=\"8\"/><row r=\"4\"/><row r=\"9\"/>", "$B$6",
            "<row r=\"5\"/><row r=\"3\"/><row r=\"6\"><c r=\"B6\"><v>5</v></c></row><row r=\"8\"/><row r=\"4\"/><row r=\"9\"/>");
        row("no greater row, and the last child counts", "<row r=\"5\"/><other r=\"9\"/>", "$B$6", "<row r=\"5\"/><other r=\"9\"/>");
        row("other children only", "<other r=\"9\"/>", "$B$6", "<other r=\"9\"/><row r=\"6\"><c r=\"B6\"><v>5</v></c></row>");
        row("rows without a number", "<row/><row r=\"7\"/>", "$B$6", "<row/><row r=\"6\"><c r=\"B6\"><v>5</v></c></row><row r=\"7\"/>");
        row("first cell", "<row r=\"3\" ht=\"5\"/>", "$B$3", "<row r=\"3\" ht=\"5\"><c r=\"B3\"><v>5</v></c></row>");
        row("last cell", "<row r=\"3\"><c r=\"A3\"/></row>", "$B$3", "<row r=\"3\"><c r=\"A3\"/><c r=\"B3\"><v>5</v></c></row>");
        row("cell between", "<row r=\"3\"><c r=\"A3\"/><c r=\"C3\"/></row>", "$B$3",
            "<row r=\"3\"><c r=\"A3\"/><c r=\"B3\"><v>5</v></c><c r=\"C3\"/></row>");
        row("two letters go by text", "<row r=\"3\"><c r=\"A3\"/><c r=\"B3\"/></row>", "$AA$3",
            "<row r=\"3\"><c r=\"A3\"/><c r=\"AA3\"><v>5</v></c><c r=\"B3\"/></row>");
        row("behind two letters goes by text", "<row r=\"3\"><c r=\"A3\"/><c r=\"AB3\"/></row>", "$B$3",
            "<row r=\"3\"><c r=\"A3\"/><c r=\"AB3\"/><c r=\"B3\"><v>5</v></c></row>");
        row("first greater cell of unordered ones", "<row r=\"3\"><c r=\"D3\"/><c r=\"B3\"/><c r=\"F3\"/></row>", "$E$3",
            "<row r=\"3\"><c r=\"D3\"/><c r=\"B3\"/><c r=\"E3\"><v>5</v></c><c r=\"F3\"/></row>");
        row("no greater cell, and the last child counts", "<row r=\"3\"><c r=\"A3\"/><other r=\"Z\"/></row>", "$B$3",
            "<row r=\"3\"><c r=\"A3\"/><other r=\"Z\"/></row>");
        row("case counts", "<row r=\"3\"><c r=\"b3\"/></row>", "$B$3", "<row r=\"3\"><c r=\"B3\"><v>5</v></c><c r=\"b3\"/></row>");
        row("beyond ZZ", "", "$AAA$1", "<row r=\"1\"><c r=\"AAA1\"><v>5</v></c></row>");
        row("last row of all", "", "$A$2147483647", "<row r=\"2147483647\"><c r=\"A2147483647\"><v>5</v></c></row>");
    }
    void rows_and_cells_are_made_in_their_order()
    {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, position);
        QFETCH(QByteArray, after);
        XlsxOperator op;
        QVERIFY(Load(op, Template().Sheet(1, before).Name("A", "Sheet1!" + position)));
        op.setCellsValue(kA, 5);
        QVERIFY(op.save());
        QCOMPARE(OutputBetween(kSheet1, "<sheetData", "</sheetData>"), ">" + after);
    }

    void a_cell_made_for_a_formula_has_its_empty_value_first()
    {
        QCOMPARE(Saved(Template().Name("A", "Sheet1!$A$1"), QStringLiteral("B1")),
                 QByteArray("<row r=\"1\"><c r=\"A1\"><v/><f>B1</f></c></row>"));
    }

    void a_value_of_no_written_type_makes_the_cell_all_the_same()
    {
        QCOMPARE(Saved(Template().Name("A", "Sheet1!$A$1"), true), QByteArray("<row r=\"1\"><c r=\"A1\"><v/></c></row>"));
    }

    void many_cells_in_any_order_end_in_order_data()
    {
        QTest::addColumn<int>("rowStep");
        QTest::addColumn<int>("columnCount");
        // Rows are looked through, and all cells indexed, depending on their length.
        QTest::newRow("short rows") << 1 << 40;
        QTest::newRow("rows that grow long") << 1 << 200;
        QTest::newRow("rows that grow very long") << 8 << 700;
    }
    void many_cells_in_any_order_end_in_order()
    {
        QFETCH(int, rowStep);
        QFETCH(int, columnCount);
        constexpr int kRows = 40;
        QList<QByteArray> columns;
        for (int i = 0; i < columnCount; ++i)
            columns.append(i < 26 ? QByteArray(1, char('A' + i)) : QByteArray(1, char('A' + i / 26 - 1)) + char('A' + i % 26));

        // Every fourth row is there, with some of its cells, in order; the cells' order is that of their references as text.
        QMap<int, QMap<QByteArray, QByteArray>> cells;
        QByteArray sheetData;
        for (int row = 4; row <= kRows; row += 4) {
            const QByteArray number = QByteArray::number(row);
            for (int i = 0; i < columnCount; i += 4 + row % 3)
                cells[row].insert(columns.at(i) + number, "<c r=\"" + columns.at(i) + number + "\"/>");
            sheetData += "<row r=\"" + number + "\">" + cells[row].values().join() + "</row>";
        }
        Template source;
        source.Sheet(1, sheetData);
        XlsxOperator op;
        QVERIFY(Load(op, source));

        // All of one name, because names are saved in an order that differs from run to run.
        quint32 state = 7;
        for (int i = 0; i < 3000; ++i) {
            state = state * 1664525 + 1013904223;
            const int row = rowStep * (1 + int(state >> 20) % (kRows / rowStep));
            const QByteArray column = columns.at(int(state >> 8) % columns.size());
            QVERIFY(op.setCellValue(QStringLiteral("Sheet1"), row, QString::fromLatin1(column), kA, 5));
            cells[row].insert(column + QByteArray::number(row), "<c r=\"" + column + QByteArray::number(row) + "\"><v>5</v></c>");
        }
        QVERIFY(op.save());
        QByteArray expected;
        for (auto row = cells.cbegin(); row != cells.cend(); ++row)
            expected += "<row r=\"" + QByteArray::number(row.key()) + "\">" + row.value().values().join() + "</row>";
        QVERIFY(OutputBetween(kSheet1, "<sheetData>", "</sheetData>") == expected);
    }

    // --- A position of the host's choice ---

    void a_name_gets_a_position_and_a_value()
    {
        XlsxOperator op;
        QVERIFY(Load(op, Template().Sheet(2, "", "<pageMargins/>", "My Sheet")));
        QVERIFY(op.setCellValue(QStringLiteral("My Sheet"), 3, QStringLiteral("B"), kA, 5));
        QVERIFY(op.setCellValue(QStringLiteral("My Sheet"), 4, QStringLiteral("B"), kA, 6));
        QCOMPARE(op.getCellValue(kA), QVariant(6));
        QVERIFY(op.save());
        QCOMPARE(OutputBetween("xl/worksheets/sheet2.xml", "<sheetData>", "</sheetData>"),
                 QByteArray("<row r=\"3\"><c r=\"B3\"><v>6</v></c></row><row r=\"4\"><c r=\"B4\"><v>6</v></c></row>"));
    }

    void an_unknown_sheet_is_reported_and_nothing_stored()
    {
        XlsxOperator op;
        QVERIFY(Load(op, Template()));
        for (const QString &sheet :
             {QStringLiteral("Sheet2"), QStringLiteral("sheet1"), QStringLiteral("'Sheet1'"), QStringLiteral("' or '1'='1"), QString()}) {
            ExpectWarning(QStringLiteral("XlsxOperator::setCellValue:  sheetName is error"));
            QVERIFY(!op.setCellValue(sheet, 1, kA, kA, 5));
        }
        QHash<QString, QVariant> elements;
        op.getElementsNameToValueHash(elements);
        QVERIFY(elements.isEmpty());
        QVERIFY(op.save());
        QVERIFY(!Output().value(kWorkbook).contains("definedName"));
    }

    void before_load_there_is_no_sheet()
    {
        XlsxOperator op;
        ExpectWarning(QStringLiteral("XlsxOperator::setCellValue:  sheetName is error"));
        QVERIFY(!op.setCellValue(QStringLiteral("Sheet1"), 1, kA, kA, 5));
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxCells)
#include "tst_XlsxCells.moc"
