#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/Book.h"
#include "xlsx/CpuClock.h"

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QByteArray kSheet1 = QByteArrayLiteral("xl/worksheets/sheet1.xml");
const QByteArray kSheet2 = QByteArrayLiteral("xl/worksheets/sheet2.xml");

/// A cell with a formula and its result.
QByteArray Cell(const QByteArray &place, const QByteArray &formula)
{
    return "<c r=\"" + place + "\"><f>" + formula + "</f><v>7</v></c>";
}

QByteArray Row(int number, const QByteArray &cells)
{
    return "<row r=\"" + QByteArray::number(number) + "\">" + cells + "</row>";
}

/// A1 is the cell that changes.
Template Book(const QByteArray &cells)
{
    Template book;
    book.Sheet(1, Row(1, "<c r=\"A1\"><v>1</v></c>") + cells);
    book.Name("Input", "Sheet1!$A$1");
    return book;
}

QMap<QByteArray, QByteArray> Changed(const Template &book)
{
    XlsxTemplate workbook;
    if (!workbook.load(book.Archive()) || !workbook.setValue(QStringLiteral("Input"), 2))
        return {{"error", workbook.errorString().toUtf8()}};
    return SavedParts(workbook);
}

QByteArray Reference(const QByteArray &cells, const QByteArray &kind = "num", const QByteArray &value = "7")
{
    return "<c:" + kind + "Ref><c:f>" + cells + "</c:f><c:" + kind + "Cache><c:pt idx=\"0\"><c:v>" + value + "</c:v></c:pt></c:" + kind
        + "Cache></c:" + kind + "Ref>";
}

/// The same without what it held.
QByteArray Empty(const QByteArray &cells, const QByteArray &kind = "num")
{
    return "<c:" + kind + "Ref><c:f>" + cells + "</c:f></c:" + kind + "Ref>";
}

QByteArray ChartName(int number)
{
    return "xl/charts/chart" + QByteArray::number(number) + ".xml";
}

/// Charts in the first sheet, with blanks that no program writes.
void AddCharts(Template &book, const QList<QByteArray> &contents)
{
    AddPartOfSheet(book, "xl/drawings/drawing1.xml", "drawing", "<wsDr/>");
    for (int i = 1; i <= contents.size(); ++i) {
        AddPart(book, ChartName(i), "application/chart+xml", "<c:chart xmlns:c='c' >" + contents.at(i - 1) + "</c:chart >");
        Relate(book, "xl/drawings/_rels/drawing1.xml.rels", Relationship("rId" + QByteArray::number(i), "chart", "/" + ChartName(i)));
    }
}

/// What is in that chart once A1 changed.
QByteArray ChartOf(const QMap<QByteArray, QByteArray> &parts, int number)
{
    return Between(parts.value(ChartName(number)), "<c:chart xmlns:c='c' >", "</c:chart >") + parts.value("error");
}

/// The cells that still have a result once A1 changed.
QByteArray Kept(const QByteArray &sheet)
{
    QByteArray kept;
    const QByteArray data = SheetDataOf(sheet);
    for (auto at = data.indexOf("<c "); at >= 0;) {
        const auto next = data.indexOf("<c ", at + 1);
        const QByteArray cell = data.mid(at, next < 0 ? -1 : next - at);
        if (cell.contains("<v>") && !cell.startsWith("<c r=\"A1\">"))
            kept += (kept.isEmpty() ? "" : " ") + Between(cell, "r=\"", "\"");
        at = next;
    }
    return kept;
}

} // namespace

/// A result that may not be right any more is not in the file; any other is.
class tst_XlsxStaleResults : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void results_that_depend_on_a_changed_cell_go()
    {
        const QByteArray cells = Row(2, Cell("A2", "A1*2") + Cell("B2", "B1*2") + Cell("C2", "SUM(A1:A9)") + Cell("D2", "D2+1"))
            + Row(3, Cell("A3", "A2+1") + Cell("B3", "\"A1\"") + Cell("C3", "NOW()") + Cell("D3", "SUM(B:B)"));
        const auto parts = Changed(Book(cells));
        QCOMPARE(Kept(parts.value(kSheet1)), QByteArray("B2 D2 B3 D3"));
        QVERIFY(parts.value("xl/workbook.xml").contains("fullCalcOnLoad=\"1\""));
    }

    void nothing_goes_if_nothing_changed()
    {
        const Template book = Book(Row(2, Cell("A2", "A1*2")));
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(book.Archive()));
        QCOMPARE(SavedParts(workbook), book.parts);
    }

    void what_stays_is_not_written_anew()
    {
        const QByteArray others = "<row r=\"3\" >  <c  r='A3'><f >1+1</f><v>2</v></c>\n</row>";
        const QByteArray saved = Changed(Book(Row(2, Cell("A2", "A1*2")) + others)).value(kSheet1);
        QCOMPARE(SheetDataOf(saved), Row(1, "<c r=\"A1\"><v>2</v></c>") + Row(2, "<c r=\"A2\"><f>A1*2</f></c>") + others);
    }

    void the_type_of_a_result_goes_with_it()
    {
        const QByteArray cells = Row(2,
                                     "<c r=\"A2\" s=\"0\" t=\"str\"><f>A1&amp;\"x\"</f><v>1x</v></c><c r=\"B2\" t=\"e\"><f "
                                     "ca=\"1\">1/A1</f><v>#DIV/0!</v></c>");
        const QByteArray saved = Changed(Book(cells)).value(kSheet1);
        QCOMPARE(SheetDataOf(saved),
                 Row(1, "<c r=\"A1\"><v>2</v></c>")
                     + Row(2, "<c r=\"A2\" s=\"0\"><f>A1&amp;\"x\"</f></c><c r=\"B2\"><f ca=\"1\">1/A1</f></c>"));
    }

    void other_sheets_names_and_tables_are_followed()
    {
        Template book = Book(Row(2, Cell("A2", "Sheet2!A1")));
        book.Sheet(2, Row(1, Cell("A1", "Input+1") + Cell("B1", "Other+1") + Cell("C1", "Sheet1!B9") + Cell("D1", "SUM(Things[x])")));
        book.Name("Other", "Sheet1!$B$1");
        book.parts["xl/worksheets/_rels/sheet1.xml.rels"] = Relationships(Relationship("rId1", "table", "../tables/table1.xml"));
        book.parts["xl/tables/table1.xml"] = "<table displayName=\"Things\" name=\"Things\" ref=\"A1:A1\" headerRowCount=\"0\"/>";
        const auto parts = Changed(book);
        QCOMPARE(Kept(parts.value(kSheet1)), QByteArray());
        QCOMPARE(Kept(parts.value(kSheet2)), QByteArray("B1 C1"));
    }

    void shared_formulas_are_each_their_own()
    {
        const QByteArray cells = Row(2, "<c r=\"B2\"><f t=\"shared\" ref=\"B2:B4\" si=\"0\">A2+C2</f><v>7</v></c>")
            + Row(3, "<c r=\"B3\"><f t=\"shared\" si=\"0\"/><v>7</v></c><c r=\"C3\"><f>A1</f><v>7</v></c>")
            + Row(4, "<c r=\"B4\"><f t=\"shared\" si=\"0\"/><v>7</v></c><c r=\"C4\"><f t=\"shared\" si=\"9\"/><v>7</v></c>");
        // B4 adds up C4, of which it cannot be told what it is.
        QCOMPARE(Kept(Changed(Book(cells)).value(kSheet1)), QByteArray("B2"));
    }

    void an_array_formula_loses_the_results_in_all_its_cells()
    {
        const QByteArray cells = Row(2, "<c r=\"B2\"><f t=\"array\" ref=\"B2:C3\">A1:A2*2</f><v>7</v></c><c r=\"C2\"><v>7</v></c>")
            + Row(3, "<c r=\"B3\" t=\"str\"><v>7</v></c><c r=\"C3\"><v>7</v></c><c r=\"D3\"><v>7</v></c>")
            + Row(4,
                  Cell("B4", "C3") + Cell("C4", "D3")
                      + "<c r=\"D4\"><f t=\"array\" ref=\"D4:E4\">D3:E3</f><v>7</v></c><c r=\"E4\"><v>7</v></c>");
        QCOMPARE(Kept(Changed(Book(cells)).value(kSheet1)), QByteArray("D3 C4 D4 E4"));
    }

    void a_data_table_is_computed_anew_whatever_changed()
    {
        const QByteArray cells =
            Row(2, "<c r=\"B2\"><f t=\"dataTable\" ref=\"B2:C2\" dt2D=\"0\" r1=\"Z9\"/><v>7</v></c><c r=\"C2\"><v>7</v></c>")
            + Row(3, Cell("B3", "C2"));
        QCOMPARE(Kept(Changed(Book(cells)).value(kSheet1)), QByteArray());
    }

    void a_sheet_that_is_listed_but_not_there_is_passed_over()
    {
        Template book = Book(Row(2, Cell("A2", "A1*2")));
        book.parts["xl/workbook.xml"].replace("</sheets>", "<sheet name=\"Gone\" sheetId=\"9\" r:id=\"rId9\"/></sheets>");
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(book.Archive()));
        VERIFY_DONE(workbook, setRows(QStringLiteral("Input"), QVector<QVariantList>{{1}, {2}}));
        QCOMPARE(SheetDataOf(SavedParts(workbook).value(kSheet1)),
                 Row(1, "<c r=\"A1\"><v>1</v></c>") + Row(2, "<c r=\"A2\"><v>2</v></c>") + Row(3, "<c r=\"A3\"><f>A1*2</f></c>"));
    }

    void a_new_formula_is_followed()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(Book(Row(2, Cell("A2", "A1*2") + Cell("B2", "C1"))).Archive()));
        VERIFY_DONE(workbook, setFormula(QStringLiteral("Input"), QStringLiteral("=C1")));
        QCOMPARE(Kept(SavedParts(workbook).value(kSheet1)), QByteArray("B2"));
    }

    void each_saving_looks_at_what_changed_since()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(Book(Row(2, Cell("A2", "A1*2") + Cell("B2", "C1"))).Name("Third", "Sheet1!$C$1").Archive()));
        VERIFY_DONE(workbook, setValue(QStringLiteral("Input"), 2));
        QCOMPARE(Kept(SavedParts(workbook).value(kSheet1)), QByteArray("B2"));
        VERIFY_DONE(workbook, setValue(QStringLiteral("Third"), 2));
        QCOMPARE(Kept(SavedParts(workbook).value(kSheet1)), QByteArray("C1"));
    }

    void a_chart_does_not_show_what_its_cells_were()
    {
        Template book = Book(Row(2, Cell("A2", "A1*2") + Cell("B2", "B1*2")));
        book.Name("Shown", "Sheet1!$A$1:$A$9");
        const QByteArray other =
            "<c:val>" + Reference("Sheet1!$B$2:$B$9") + Reference("Sheet2!$A$1") + Reference("[1]Sheet1!$A$1") + "</c:val>";
        const QByteArray levels =
            "<c:multiLvlStrRef><c:f>Sheet1!$A$1:$B$2</c:f><c:multiLvlStrCache><c:lvl/><c:lvl/></c:multiLvlStrCache></c:multiLvlStrRef>";
        AddCharts(book,
                  {"<c:tx>" + Reference("Sheet1!$A$1", "str") + "</c:tx><c:cat>" + levels + "</c:cat>" + other, //
                   "<c:val>" + Reference("Sheet1!$A$2") + "</c:val>",                                           //
                   "<c:val>" + Reference("[0]!Shown") + Reference("(Sheet1!$C$3,Sheet1!$A$1)") + "</c:val>",    //
                   other,                                                                                       //
                   "<c:strDim><c:f>Shown</c:f><c:lvl/><c:lvl/></c:strDim>"});
        const auto parts = Changed(book);
        QCOMPARE(ChartOf(parts, 1),
                 "<c:tx>" + Empty("Sheet1!$A$1", "str") + "</c:tx><c:cat>" + Empty("Sheet1!$A$1:$B$2", "multiLvlStr") + "</c:cat>" + other);
        QCOMPARE(ChartOf(parts, 2), "<c:val>" + Empty("Sheet1!$A$2") + "</c:val>"); // a stale formula
        QCOMPARE(ChartOf(parts, 3), "<c:val>" + Empty("[0]!Shown") + Empty("(Sheet1!$C$3,Sheet1!$A$1)") + "</c:val>");
        QCOMPARE(parts.value(ChartName(4)), book.parts.value(ChartName(4)));
        QCOMPARE(ChartOf(parts, 5), QByteArray("<c:strDim><c:f>Shown</c:f></c:strDim>"));
    }

    void the_title_of_a_chart_is_what_its_cell_holds()
    {
        Template book = Book(Row(2, Cell("A2", "A1*2")));
        book.Name("Title", "Sheet1!$C$3");
        const auto title = [](const QByteArray &reference) { return "<c:title><c:tx>" + reference + "</c:tx></c:title>"; };
        AddCharts(book,
                  {title(Reference("Sheet1!$A$1", "str")), title(Reference("Sheet1!$C$3", "str")), title(Reference("Sheet1!$A$2", "str"))});
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(book.Archive()));
        VERIFY_DONE(workbook, setValue(QStringLiteral("Input"), 2.5));
        VERIFY_DONE(workbook, setValue(QStringLiteral("Title"), QStringLiteral("R&D")));
        const auto parts = SavedParts(workbook);
        QCOMPARE(ChartOf(parts, 1), title(Reference("Sheet1!$A$1", "str", "2.5")));
        QCOMPARE(ChartOf(parts, 2), title(Reference("Sheet1!$C$3", "str", "R&amp;D")));
        QCOMPARE(ChartOf(parts, 3), title(Empty("Sheet1!$A$2", "str"))); // is not known before it is computed
    }

    void charts_that_cannot_be_read_do_not_keep_from_saving()
    {
        Template book = Book(QByteArray());
        AddCharts(book, {Reference("Sheet1!$A$1")});
        book.parts[ChartName(1)].chop(4);
        QCOMPARE(Changed(book).value(ChartName(1)), book.parts.value(ChartName(1)));
    }

    void a_pivot_table_of_a_changed_cell_is_made_anew_when_opened_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<bool>("isMadeAnew");
        QTest::newRow("cells") << QByteArray("ref=\"A1:C9\" sheet=\"Sheet1\"") << true;
        QTest::newRow("other cells") << QByteArray("ref=\"B1:C9\" sheet=\"Sheet1\"") << false;
        QTest::newRow("a name") << QByteArray("name=\"Input\"") << true;
        QTest::newRow("another workbook") << QByteArray("ref=\"A1:C9\" sheet=\"Sheet1\" r:id=\"rId1\"") << false;
    }
    void a_pivot_table_of_a_changed_cell_is_made_anew_when_opened()
    {
        QFETCH(QByteArray, source);
        QFETCH(bool, isMadeAnew);
        Template book = Book(QByteArray());
        const QByteArray part = "xl/pivotCache/pivotCacheDefinition1.xml";
        AddPart(book, part, "application/pivot+xml",
                "<pivotCacheDefinition xmlns:r='r'><cacheSource><worksheetSource " + source + "/></cacheSource></pivotCacheDefinition>");
        Relate(book, "xl/_rels/workbook.xml.rels", Relationship("rIdP", "pivotCacheDefinition", "/" + part));
        const QByteArray saved = Changed(book).value(part);
        QCOMPARE(saved.contains("refreshOnLoad=\"1\""), isMadeAnew);
        QVERIFY(isMadeAnew || saved == book.parts.value(part));
    }

    void a_part_in_another_encoding_is_looked_through()
    {
        Template book = Book(QByteArray());
        book.Sheet(2, Row(1, Cell("A1", "Sheet1!A1")));
        QByteArray wide("\xff\xfe");
        const QByteArray narrow = QByteArray(book.parts[kSheet2]).replace("UTF-8", "UTF-16");
        for (const char c : narrow)
            wide.append(c).append('\0');
        book.parts[kSheet2] = wide;
        QCOMPARE(Kept(Changed(book).value(kSheet2)), QByteArray());
    }

    void a_chain_of_100000_formulas_takes_less_than_two_seconds_data()
    {
        QTest::addColumn<bool>("isForward");
        QTest::newRow("forward") << true;
        QTest::newRow("backward") << false;
    }
    void a_chain_of_100000_formulas_takes_less_than_two_seconds()
    {
        QFETCH(bool, isForward);
        QByteArray rows;
        const int last = 100001;
        for (int row = 2; row <= last; ++row) {
            const int used = isForward ? row - 1 : row + 1;
            const QByteArray source = used > last ? QByteArray("A1") : (used == 1 ? "A" : "B") + QByteArray::number(used);
            rows += Row(row, Cell("B" + QByteArray::number(row), source + "+1"));
        }
        const Template book = Book(rows);
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(book.Archive()));
        const CpuClock clock;
        VERIFY_DONE(workbook, setValue(QStringLiteral("Input"), 2));
        const QByteArray saved = workbook.save();
        QVERIFY2(clock.IsWithin(2000), QByteArray::number(clock.Milliseconds()));
        QCOMPARE(ReadArchive(saved).value(kSheet1).count("<v>"), 1);
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxStaleResults)
#include "tst_XlsxStaleResults.moc"
