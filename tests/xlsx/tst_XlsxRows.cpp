#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/Book.h"
#include "xlsx/CpuClock.h"

using namespace Velmora;
using namespace VelmoraTest;

namespace {

using Rows = QVector<QVariantList>;

const QByteArray kSheet1 = QByteArrayLiteral("xl/worksheets/sheet1.xml");
const QByteArray kSheet2 = QByteArrayLiteral("xl/worksheets/sheet2.xml");
const QByteArray kMargins = QByteArrayLiteral("<pageMargins left=\"0.7\"/>");

/// An invoice: headers in row 4, the row of items A5:C5 with their sum in D5, totals below.
const QByteArray kInvoice =
    QByteArrayLiteral("<row r=\"4\"><c r=\"A4\" t=\"inlineStr\"><is><t>Item</t></is></c></row>"
                      "<row r=\"5\" ht=\"22\" customHeight=\"1\"><c r=\"A5\" s=\"0\"/><c r=\"B5\"><v>1</v></c><c r=\"C5\"><v>2</v></c>"
                      "<c r=\"D5\"><f>B5*C5</f><v>2</v></c></row>"
                      "<row r=\"6\"><c r=\"D6\"><f>SUM(D5:D5)</f><v>2</v></c></row>"
                      "<row r=\"8\"><c r=\"A8\"><v>8</v></c><c r=\"D8\"><f>D6*2+A8+$A$4</f><v>12</v></c></row>");

Template Invoice(const QByteArray &sheetData = kInvoice, const QByteArray &afterSheetData = kMargins)
{
    Template invoice;
    invoice.Sheet(1, sheetData, afterSheetData);
    invoice.Name("Items", "Sheet1!$A$5:$C$5");
    return invoice;
}

/// \a count rows of a text and two numbers.
Rows Entries(int count)
{
    Rows rows;
    for (int i = 1; i <= count; ++i)
        rows.append({QStringLiteral("item %1").arg(i), i, 1.5});
    return rows;
}

using Parts = QMap<QByteArray, QByteArray>;

Parts Repeated(const Template &book, const Rows &rows, const char *name = "Items")
{
    XlsxTemplate workbook;
    if (!workbook.load(book.Archive()) || !workbook.setRows(QString::fromLatin1(name), rows))
        return {{"error", workbook.errorString().toUtf8()}};
    return SavedParts(workbook);
}

/// What stands behind the sheet's data once \a count rows were put in.
QByteArray Behind(const QByteArray &afterSheetData, int count)
{
    const Parts parts = Repeated(Invoice(kInvoice, afterSheetData), Entries(count));
    return Between(parts.value(kSheet1), "</sheetData>", "</worksheet>") + parts.value("error");
}

/// The formulas of a sheet as "D5=B5*C5", those without a result with a question mark.
QByteArray FormulasOf(const QByteArray &sheet)
{
    QByteArray told;
    const QByteArray data = SheetDataOf(sheet);
    for (auto at = data.indexOf("<c "); at >= 0; at = data.indexOf("<c ", at + 1)) {
        const auto next = data.indexOf("<c ", at + 1);
        const QByteArray cell = data.mid(at, next < 0 ? -1 : next - at);
        if (!cell.contains("</f>"))
            continue;
        const QByteArray tag = Between(cell, "<f", "</f>");
        told += (told.isEmpty() ? "" : " ") + Between(cell, "r=\"", "\"") + '=' + tag.mid(tag.indexOf('>') + 1)
            + (cell.contains("<v>") ? "" : "?");
    }
    return told;
}

QByteArray NamesOf(const Parts &parts)
{
    return Between(parts.value("xl/workbook.xml"), "<definedNames>", "</definedNames>") + parts.value("error");
}

/// Why \a book refuses ten rows; that it saves byte for byte what it was is looked at too.
QString Refusal(const Template &book, const Rows &rows = Entries(10), const char *name = "Items")
{
    XlsxTemplate workbook;
    if (!workbook.load(book.Archive()))
        return workbook.errorString();
    if (workbook.setRows(QString::fromLatin1(name), rows))
        return QStringLiteral("done");
    const QString reason = workbook.errorString();
    return SavedParts(workbook) == book.parts ? reason : QStringLiteral("changed, and ") + reason;
}

} // namespace

/// Rows that are repeated, and everything that has to move with them.
class tst_XlsxRows : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_row_is_repeated_for_each_entry()
    {
        const Parts parts = Repeated(Invoice(), Entries(3));
        QCOMPARE(PackageFaults(parts), QStringList());
        const auto row = [](const QByteArray &number, const QByteArray &item) {
            return "<row r=\"" + number + "\" ht=\"22\" customHeight=\"1\"><c r=\"A" + number + "\" s=\"0\" t=\"inlineStr\"><is><t>item "
                + item + "</t></is></c><c r=\"B" + number + "\"><v>" + item + "</v></c><c r=\"C" + number + "\"><v>1.5</v></c><c r=\"D"
                + number + "\"><f>B" + number + "*C" + number + "</f></c></row>";
        };
        QCOMPARE(SheetDataOf(parts.value(kSheet1)),
                 "<row r=\"4\"><c r=\"A4\" t=\"inlineStr\"><is><t>Item</t></is></c></row>" + row("5", "1") + row("6", "2") + row("7", "3")
                     + "<row r=\"8\"><c r=\"D8\"><f>SUM(D5:D7)</f></c></row><row r=\"10\"><c r=\"A10\"><v>8</v></c><c "
                       "r=\"D10\"><f>D8*2+A10+$A$4</f></c></row>");
        QCOMPARE(NamesOf(parts), QByteArray("<definedName name=\"Items\">Sheet1!$A$5:$C$7</definedName>"));
        QVERIFY(parts.value("xl/workbook.xml").contains("fullCalcOnLoad=\"1\""));
    }

    void one_entry_moves_nothing()
    {
        const Template invoice = Invoice();
        const Parts parts = Repeated(invoice, Entries(1));
        QCOMPARE(FormulasOf(parts.value(kSheet1)), QByteArray("D5=B5*C5? D6=SUM(D5:D5)? D8=D6*2+A8+$A$4?"));
        QByteArray workbook = parts.value("xl/workbook.xml");
        QCOMPARE(workbook.replace(" fullCalcOnLoad=\"1\"", ""), invoice.parts.value("xl/workbook.xml"));
    }

    void no_entry_takes_the_row_away()
    {
        const Parts parts = Repeated(Invoice().Name("Gone", "Sheet1!$D$5").Name("Below", "Sheet1!$D$8"), {});
        QCOMPARE(SheetDataOf(parts.value(kSheet1)),
                 QByteArray("<row r=\"4\"><c r=\"A4\" t=\"inlineStr\"><is><t>Item</t></is></c></row><row r=\"5\"><c "
                            "r=\"D5\"><f>SUM(0)</f></c></row><row r=\"7\"><c r=\"A7\"><v>8</v></c><c "
                            "r=\"D7\"><f>D5*2+A7+$A$4</f></c></row>"));
        QCOMPARE(NamesOf(parts),
                 QByteArray("<definedName name=\"Items\">Sheet1!#REF!</definedName><definedName "
                            "name=\"Gone\">Sheet1!#REF!</definedName><definedName name=\"Below\">Sheet1!$D$7</definedName>"));
    }

    void without_its_row_a_name_says_that_it_leads_nowhere()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(Invoice().Archive()));
        VERIFY_DONE(workbook, setRows(QStringLiteral("Items"), Rows()));
        QCOMPARE(int(workbook.kindOf(QStringLiteral("Items"))), int(XlsxTemplate::Kind::Unusable));
        QVERIFY(!workbook.setRows(QStringLiteral("Items"), Entries(2)));
        QCOMPARE(workbook.errorString(), QStringLiteral("Items: The name leads nowhere: its cells were deleted (#REF!)."));
        XlsxTemplate again;
        VERIFY_DONE(again, load(workbook.save()));
        QCOMPARE(again.reference(QStringLiteral("Items")), QStringLiteral("Sheet1!#REF!"));
    }

    void rows_may_be_set_again()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(Invoice().Archive()));
        VERIFY_DONE(workbook, setRows(QStringLiteral("Items"), Entries(20)));
        QCOMPARE(workbook.value(QStringLiteral("Items")).toList().size(), 20);
        VERIFY_DONE(workbook, setRows(QStringLiteral("Items"), Entries(2)));
        XlsxTemplate again;
        VERIFY_DONE(again, load(workbook.save()));
        VERIFY_DONE(again, setRows(QStringLiteral("Items"), Entries(3)));
        const Parts parts = SavedParts(again);
        QCOMPARE(parts.value(kSheet1), Repeated(Invoice(), Entries(3)).value(kSheet1));
        QCOMPARE(NamesOf(parts), QByteArray("<definedName name=\"Items\">Sheet1!$A$5:$C$7</definedName>"));
    }

    void two_names_may_share_their_row()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(Invoice().Name("Notes", "Sheet1!$F$5:$G$5").Archive()));
        VERIFY_DONE(workbook, setRows(QStringLiteral("Items"), Entries(3)));
        VERIFY_DONE(workbook, setRows(QStringLiteral("Notes"), QVector<QVariantList>{{1, 2}, {3, 4}, {5, 6}}));
        QByteArray data = SheetDataOf(SavedParts(workbook).value(kSheet1));
        for (const char *cell : {"<t>item 2</t>", "<c r=\"F5\"><v>1</v>", "<c r=\"G6\"><v>4</v>", "<c r=\"F7\"><v>5</v>"})
            QVERIFY2(data.contains(cell), data);
        // One more is like the last.
        VERIFY_DONE(workbook, setRows(QStringLiteral("Notes"), QVector<QVariantList>{{}, {}, {}, {7}}));
        data = SheetDataOf(SavedParts(workbook).value(kSheet1));
        QVERIFY2(data.contains("<c r=\"C8\"><v>1.5</v></c><c r=\"D8\"><f>B8*C8</f></c><c r=\"F8\"><v>7</v></c><c r=\"G8\"><v>6</v></c>"),
                 data);
        QVERIFY2(data.contains("<row r=\"9\"><c r=\"D9\"><f>SUM(D5:D8)</f>"), data);
    }

    void cells_under_merged_ones_may_be_left_empty()
    {
        const Template book = Invoice(kInvoice, "<mergeCells count=\"1\"><mergeCell ref=\"A5:B5\"/></mergeCells>");
        const Parts parts = Repeated(book, {{1, QVariant(), 3}, {4, QVariant(), 6}});
        QVERIFY2(parts.value(kSheet1).contains("<c r=\"A6\" s=\"0\"><v>4</v></c><c r=\"B6\"/><c r=\"C6\"><v>6</v></c>"),
                 parts.value("error"));
    }

    void short_rows_and_kept_cells_leave_the_template_as_it_is()
    {
        const QVariant keep = QVariant::fromValue(XlsxTemplate::Keep());
        const Parts parts = Repeated(Invoice(), {{QStringLiteral("a")}, {keep, 7, keep}, {QVariant(), QVariant(), 3}});
        const QByteArray data = SheetDataOf(parts.value(kSheet1));
        QVERIFY(data.contains("<t>a</t></is></c><c r=\"B5\"><v>1</v></c><c r=\"C5\"><v>2</v></c>"));
        QVERIFY(data.contains("<c r=\"A6\" s=\"0\"/><c r=\"B6\"><v>7</v></c><c r=\"C6\"><v>2</v></c>"));
        QVERIFY(data.contains("<c r=\"A7\" s=\"0\"/><c r=\"B7\"/><c r=\"C7\"><v>3</v></c>"));
    }

    void a_whole_row_may_have_the_name()
    {
        Template book;
        book.Sheet(1, kInvoice);
        book.Name("Items", "Sheet1!$5:$5");
        const Parts parts = Repeated(book, Entries(2));
        QCOMPARE(NamesOf(parts), QByteArray("<definedName name=\"Items\">Sheet1!$5:$6</definedName>"));
        QVERIFY(SheetDataOf(parts.value(kSheet1)).contains("<c r=\"C6\"><v>1.5</v></c>"));
    }

    void a_cell_may_have_the_name_of_a_row()
    {
        Template book;
        book.Sheet(1, kInvoice);
        book.Name("Items", "Sheet1!$A$5");
        const Parts parts = Repeated(book, {{1}, {2}});
        QCOMPARE(NamesOf(parts), QByteArray("<definedName name=\"Items\">Sheet1!$A$5:$A$6</definedName>"));
    }

    void a_row_that_is_not_there_yet_is_made()
    {
        Template book;
        book.Sheet(1, "<row r=\"9\"><c r=\"A9\"><v>9</v></c></row>");
        book.Name("Items", "Sheet1!$A$5:$B$5");
        QCOMPARE(SheetDataOf(Repeated(book, {{1}, {2, 3}}).value(kSheet1)),
                 QByteArray("<row r=\"5\"><c r=\"A5\"><v>1</v></c></row><row r=\"6\"><c r=\"A6\"><v>2</v></c><c "
                            "r=\"B6\"><v>3</v></c></row><row r=\"10\"><c r=\"A10\"><v>9</v></c></row>"));
    }

    void rows_and_cells_without_numbers_are_moved()
    {
        Template book;
        book.Sheet(1, "<row><c><v>1</v></c></row><row><c><v>2</v></c><c><f>A2</f></c></row><row><c><v>3</v></c><c><f>B2+A3</f></c></row>");
        book.Name("Items", "Sheet1!$A$2");
        QCOMPARE(SheetDataOf(Repeated(book, {{7}, {8}}).value(kSheet1)),
                 QByteArray("<row><c><v>1</v></c></row><row r=\"2\"><c><v>7</v></c><c><f>A2</f></c></row><row r=\"3\"><c "
                            "r=\"A3\"><v>8</v></c><c r=\"B3\"><f>A3</f></c></row><row r=\"4\"><c><v>3</v></c><c><f>B2+A4</f></c></row>"));
    }

    void elements_with_a_prefix_are_moved()
    {
        Template book = Invoice();
        QByteArray &sheet = book.parts[kSheet1];
        sheet.replace("</", "<!")
            .replace("<?", "?!")
            .replace("<", "<x:")
            .replace("<x:!", "</x:")
            .replace("?!", "<?")
            .replace("xmlns=", "xmlns:x=");
        QByteArray saved = Repeated(book, Entries(2)).value(kSheet1);
        QVERIFY(saved.contains("<x:row r=\"7\"><x:c r=\"D7\"><x:f>SUM(D5:D6)</x:f></x:c></x:row>"));
    }

    void formulas_of_all_sheets_follow()
    {
        Template book = Invoice();
        book.Sheet(2,
                   "<row r=\"1\"><c r=\"A1\"><f>Sheet1!D6</f><v>2</v></c><c r=\"B1\"><f>SUM(Sheet1!$D$5:$D$5,Sheet1!A8)</f><v>2</v></c>"
                   "<c r=\"C1\"><f>D6+A4</f><v>0</v></c><c r=\"D1\"><f>'Sheet1'!A4</f><v>5</v></c></row>");
        book.Name("Items", "Sheet1!$A$5:$C$5");
        const Parts parts = Repeated(book, Entries(10));
        QCOMPARE(FormulasOf(parts.value(kSheet2)),
                 QByteArray("A1=Sheet1!D15? B1=SUM(Sheet1!$D$5:$D$14,Sheet1!A17)? C1=D6+A4 D1='Sheet1'!A4"));
    }

    void a_sum_of_the_row_grows_however_it_is_written()
    {
        const auto total = [](const QByteArray &formula) {
            const Parts parts =
                Repeated(Invoice("<row r=\"5\"><c r=\"D5\"><v>1</v></c></row><row r=\"6\"><c r=\"D6\"><f>" + formula + "</f></c></row>"),
                         Entries(10));
            return FormulasOf(parts.value(kSheet1));
        };
        QCOMPARE(total("SUM(D5:D5)"), QByteArray("D15=SUM(D5:D14)?"));
        QCOMPARE(total("SUM(D5)"), QByteArray("D15=SUM(D5:D14)?"));
        QCOMPARE(total("SUM(D4:D5)"), QByteArray("D15=SUM(D4:D14)?"));
        QCOMPARE(total("SUBTOTAL(9,$D$5:$D$5)"), QByteArray("D15=SUBTOTAL(9,$D$5:$D$14)?"));
        QCOMPARE(total("SUMPRODUCT(B5:B5,C5:C5)"), QByteArray("D15=SUMPRODUCT(B5:B14,C5:C14)?"));
        QCOMPARE(total("D5*2"), QByteArray("D15=D5*2?"));
    }

    void formulas_of_the_row_mean_their_own_row_in_each_copy()
    {
        const QByteArray row = "<row r=\"5\"><c r=\"D5\"><f>B5*C5+$C5</f></c><c r=\"E5\"><f>E4+D5</f></c><c r=\"F5\"><f>SUM(D$5:D5)</f></c>"
                               "<c r=\"G5\"><f>D5/SUM(D$5:D$5)</f></c><c r=\"H5\"><f>D5*$B$9+B9</f></c></row>";
        const Parts parts = Repeated(Invoice(row), Entries(3));
        QCOMPARE(FormulasOf(parts.value(kSheet1)),
                 QByteArray("D5=B5*C5+$C5? E5=E4+D5? F5=SUM(D$5:D5)? G5=D5/SUM(D$5:D$7)? H5=D5*$B$11+B11? "
                            "D6=B6*C6+$C6? E6=E5+D6? F6=SUM(D$5:D6)? G6=D6/SUM(D$5:D$7)? H6=D6*$B$11+B12? "
                            "D7=B7*C7+$C7? E7=E6+D7? F7=SUM(D$5:D7)? G7=D7/SUM(D$5:D$7)? H7=D7*$B$11+B13?"));
    }

    void shared_formulas_become_formulas_of_their_own()
    {
        const QByteArray rows = "<row r=\"4\"><c r=\"D4\"><f t=\"shared\" ref=\"D4:D7\" si=\"0\">B4+B$9</f><v>1</v></c></row>"
                                "<row r=\"5\"><c r=\"D5\"><f t=\"shared\" si=\"0\"/><v>2</v></c></row>"
                                "<row r=\"6\"><c r=\"D6\"><f t=\"shared\" si=\"0\"/><v>3</v></c></row>";
        Template book = Invoice(rows);
        book.Sheet(2,
                   "<row r=\"1\"><c r=\"A1\"><f t=\"shared\" ref=\"A1:A2\" si=\"0\">Sheet1!B5</f><v>1</v></c></row><row r=\"2\"><c "
                   "r=\"A2\"><f t=\"shared\" si=\"0\"/><v>1</v></c><c r=\"B2\"><f t=\"shared\" ref=\"B2:B3\" si=\"1\">A2</f></c></row>");
        book.Name("Items", "Sheet1!$A$5:$C$5");
        const Parts parts = Repeated(book, Entries(3));
        QVERIFY(!parts.value(kSheet1).contains("shared"));
        QCOMPARE(FormulasOf(parts.value(kSheet1)), QByteArray("D4=B4+B$11? D5=B5+B$11? D6=B6+B$11? D7=B7+B$11? D8=B8+B$11?"));
        QCOMPARE(FormulasOf(parts.value(kSheet2)), QByteArray("A1=Sheet1!B5? A2=Sheet1!B8? B2=A2?"));
        QVERIFY(parts.value(kSheet2).contains("<f t=\"shared\" ref=\"B2:B3\" si=\"1\">A2</f>")); // not concerned
    }

    void array_formulas_below_are_moved()
    {
        const QByteArray below = "<row r=\"5\"/><row r=\"7\"><c r=\"B7\"><f t=\"array\" ref=\"B7:B8\">A7:A8*D5</f><v>1</v></c></row><row "
                                 "r=\"8\"><c r=\"B8\"><v>2</v></c></row>";
        const QByteArray data = SheetDataOf(Repeated(Invoice(below), Entries(3)).value(kSheet1));
        QVERIFY2(data.contains(
                     "<row r=\"9\"><c r=\"B9\"><f t=\"array\" ref=\"B9:B10\">A9:A10*D5</f></c></row><row r=\"10\"><c r=\"B10\"/></row>"),
                 data);
    }

    void an_array_formula_of_one_cell_is_repeated()
    {
        const QByteArray row = "<row r=\"5\"><c r=\"D5\"><f t=\"array\" ref=\"D5\">SUM(A5:B5*2)</f></c></row>";
        const QByteArray data = SheetDataOf(Repeated(Invoice(row), Entries(2)).value(kSheet1));
        QVERIFY2(data.contains("<f t=\"array\" ref=\"D6\">SUM(A6:B6*2)</f>"), data);
    }

    void only_results_that_may_be_stale_go()
    {
        const QByteArray rows =
            "<row r=\"1\"><c r=\"A1\"><v>1</v></c><c r=\"B1\"><f>A1+1</f><v>2</v></c></row><row r=\"5\"/><row r=\"6\"><c "
            "r=\"B6\"><f>$A$1+1</f><v>2</v></c><c r=\"C6\"><f>ROW()</f><v>6</v></c><c r=\"D6\"><f>B5</f><v>1</v></c></row>";
        const Parts parts = Repeated(Invoice(rows), Entries(3));
        QCOMPARE(FormulasOf(parts.value(kSheet1)), QByteArray("B1=A1+1 B8=$A$1+1 C8=ROW()? D8=B5?"));
    }

    void a_result_goes_though_its_name_has_lost_the_rows()
    {
        Template book = Invoice();
        book.Name("Sum", "SUM(Sheet1!$D$5:$D$5)").Name("Twice", "2*Sum");
        book.Sheet(
            2,
            "<row r=\"1\"><c r=\"A1\"><f>Sum</f><v>2</v></c><c r=\"B1\"><f>Twice</f><v>4</v></c><c r=\"C1\"><f>1+1</f><v>2</v></c></row>");
        QCOMPARE(FormulasOf(Repeated(book, Entries(0)).value("xl/worksheets/sheet2.xml")), QByteArray("A1=Sum? B1=Twice? C1=1+1"));
    }

    void merged_cells_are_repeated_and_moved()
    {
        QCOMPARE(Behind("<mergeCells count=\"5\"><mergeCell ref=\"A1:B2\"/><mergeCell ref=\"D5:E5\"/><mergeCell ref=\"H5:I5\"/><mergeCell "
                        "ref=\"G4:G6\"/><mergeCell ref=\"A8:D9\"/></mergeCells>",
                        3),
                 QByteArray("<mergeCells count=\"9\"><mergeCell ref=\"A1:B2\"/><mergeCell ref=\"D5:E5\"/><mergeCell ref=\"H5:I5\"/>"
                            "<mergeCell ref=\"G4:G8\"/><mergeCell ref=\"A10:D11\"/><mergeCell ref=\"D6:E6\"/>"
                            "<mergeCell ref=\"D7:E7\"/><mergeCell ref=\"H6:I6\"/><mergeCell ref=\"H7:I7\"/></mergeCells>"));
        QCOMPARE(Behind("<mergeCells count=\"1\"><mergeCell ref=\"D5:E5\"/></mergeCells>", 0), QByteArray());
        QCOMPARE(Behind("<mergeCells count=\"1\"><mergeCell ref=\"G5:G6\"/></mergeCells>", 0), QByteArray());
    }

    void validations_are_repeated_and_moved()
    {
        QCOMPARE(Behind("<dataValidations count=\"3\"><dataValidation type=\"list\" sqref=\"A5\"><formula1>$H$8:$H$9</formula1>"
                        "</dataValidation><dataValidation type=\"custom\" sqref=\"B8 B4\"><formula1>B8&gt;D6</formula1></dataValidation>"
                        "<dataValidation type=\"whole\" sqref=\"C1:C9\"><formula1>0</formula1></dataValidation></dataValidations>",
                        10),
                 QByteArray("<dataValidations count=\"3\"><dataValidation type=\"list\" sqref=\"A5:A14\"><formula1>$H$17:$H$18</formula1>"
                            "</dataValidation><dataValidation type=\"custom\" sqref=\"B17 B4\"><formula1>B17&gt;D15</formula1>"
                            "</dataValidation><dataValidation type=\"whole\" sqref=\"C1:C18\"><formula1>0</formula1></dataValidation>"
                            "</dataValidations>"));
        QCOMPARE(Behind("<dataValidations count=\"2\"><dataValidation sqref=\"A5\"/><dataValidation sqref=\"A6\"/></dataValidations>", 0),
                 QByteArray("<dataValidations count=\"1\"><dataValidation sqref=\"A5\"/></dataValidations>"));
        QCOMPARE(Behind("<dataValidations count=\"1\"><dataValidation sqref=\"A5\"/></dataValidations>", 0), QByteArray());
    }

    void conditional_formats_are_repeated_and_moved()
    {
        QCOMPARE(Behind("<conditionalFormatting sqref=\"A5:D5 F1\"><cfRule type=\"expression\"><formula>$D5&gt;$D$8</formula></cfRule>"
                        "</conditionalFormatting><conditionalFormatting sqref=\"D8\"><cfRule><colorScale><cfvo type=\"formula\" "
                        "val=\"$A$8*2\"/><cfvo type=\"num\" val=\"8\"/></colorScale></cfRule></conditionalFormatting>",
                        3),
                 QByteArray("<conditionalFormatting sqref=\"A5:D7 F1\"><cfRule type=\"expression\"><formula>$D5&gt;$D$10</formula></cfRule>"
                            "</conditionalFormatting><conditionalFormatting sqref=\"D10\"><cfRule><colorScale><cfvo type=\"formula\" "
                            "val=\"$A$10*2\"/><cfvo type=\"num\" val=\"8\"/></colorScale></cfRule></conditionalFormatting>"));
    }

    void later_editions_of_validations_formats_and_sparklines_are_moved()
    {
        const QByteArray names = " xmlns:x14=\"http://schemas.microsoft.com/office/spreadsheetml/2009/9/main\" "
                                 "xmlns:xm=\"http://schemas.microsoft.com/office/excel/2006/main\"";
        const auto extensions = [&names](const QByteArray &content) {
            return "<extLst><ext uri=\"{1}\"" + names + ">" + content + "</ext></extLst>";
        };
        const auto validation = [](const QByteArray &source, const QByteArray &cells) {
            return "<x14:dataValidations count=\"1\"><x14:dataValidation type=\"list\"><x14:formula1><xm:f>" + source
                + "</xm:f></x14:formula1><xm:sqref>" + cells + "</xm:sqref></x14:dataValidation></x14:dataValidations>";
        };
        QCOMPARE(Behind(extensions(validation("Sheet1!$H$8:$H$9", "A5 B9")), 3), extensions(validation("Sheet1!$H$10:$H$11", "A5:A7 B11")));
        QCOMPARE(Behind(extensions(validation("Sheet1!$H$8:$H$9", "A5")), 0), QByteArray());
        const auto format = [](const QByteArray &bound, const QByteArray &cells) {
            return "<x14:conditionalFormattings><x14:conditionalFormatting><x14:cfRule type=\"dataBar\"><x14:dataBar><x14:cfvo "
                   "type=\"formula\"><xm:f>"
                + bound + "</xm:f></x14:cfvo></x14:dataBar></x14:cfRule><xm:sqref>" + cells
                + "</xm:sqref></x14:conditionalFormatting></x14:conditionalFormattings>";
        };
        QCOMPARE(Behind(extensions(format("$A$8", "C5")), 3), extensions(format("$A$10", "C5:C7")));
        const auto sparklines = [](const QList<QPair<QByteArray, QByteArray>> &lines) {
            QByteArray content;
            for (const auto &line : lines)
                content += "<x14:sparkline><xm:f>" + line.first + "</xm:f><xm:sqref>" + line.second + "</xm:sqref></x14:sparkline>";
            return "<x14:sparklineGroups><x14:sparklineGroup><x14:sparklines>" + content
                + "</x14:sparklines></x14:sparklineGroup></x14:sparklineGroups>";
        };
        QCOMPARE(Behind(extensions(sparklines({{"Sheet1!A5:C5", "E5"}, {"Sheet1!D5:D5", "F9"}})), 3),
                 extensions(sparklines({{"Sheet1!A5:C5", "E5"}, {"Sheet1!A6:C6", "E6"}, {"Sheet1!A7:C7", "E7"}, {"Sheet1!D5:D7", "F11"}})));
    }

    void links_filters_breaks_and_what_else_is_placed_by_rows_is_moved()
    {
        QCOMPARE(Behind("<hyperlinks><hyperlink ref=\"A5\" location=\"Sheet1!A8\"/><hyperlink ref=\"B8\"/></hyperlinks>", 3),
                 QByteArray("<hyperlinks><hyperlink ref=\"A5:A7\" location=\"Sheet1!A10\"/><hyperlink ref=\"B10\"/></hyperlinks>"));
        QCOMPARE(Behind("<autoFilter ref=\"A4:D5\"><sortState ref=\"A5:D5\"><sortCondition ref=\"B5:B5\"/></sortState></autoFilter>", 3),
                 QByteArray("<autoFilter ref=\"A4:D7\"><sortState ref=\"A5:D7\"><sortCondition ref=\"B5:B7\"/></sortState></autoFilter>"));
        QCOMPARE(
            Behind("<rowBreaks count=\"3\" manualBreakCount=\"3\"><brk id=\"4\" max=\"16383\"/><brk id=\"5\"/><brk id=\"8\"/></rowBreaks>"
                   "<colBreaks count=\"1\"><brk id=\"8\"/></colBreaks>",
                   3),
            QByteArray("<rowBreaks count=\"3\" manualBreakCount=\"3\"><brk id=\"4\" max=\"16383\"/><brk id=\"7\"/><brk "
                       "id=\"10\"/></rowBreaks><colBreaks count=\"1\"><brk id=\"8\"/></colBreaks>"));
        QCOMPARE(Behind("<ignoredErrors><ignoredError sqref=\"B5 B8\" numberStoredAsText=\"1\"/></ignoredErrors>", 3),
                 QByteArray("<ignoredErrors><ignoredError sqref=\"B5:B7 B10\" numberStoredAsText=\"1\"/></ignoredErrors>"));
        const auto control = [](const QByteArray &moves, const QByteArray &cell, int row) {
            return "<controls><control><controlPr linkedCell=\"" + cell + "\"><anchor" + moves + "><from><row>" + QByteArray::number(row)
                + "</row></from></anchor></controlPr></control></controls>";
        };
        QCOMPARE(Behind(control(" moveWithCells=\"1\"", "$D$8", 7), 3), control(" moveWithCells=\"1\"", "$D$10", 9));
        QCOMPARE(Behind(control("", "$D$8", 7), 3), control("", "$D$10", 7));
        QCOMPARE(Behind("<protectedRanges><protectedRange name=\"p\" sqref=\"A5:C5\"/></protectedRanges>", 0), QByteArray());
        Template book = Invoice();
        book.parts[kSheet1].replace("<sheetData>",
                                    "<dimension ref=\"A4:D8\"/><sheetViews><sheetView><pane ySplit=\"4\" "
                                    "topLeftCell=\"A5\"/><selection activeCell=\"D8\" sqref=\"D8\"/></sheetView></sheetViews>"
                                    "<sheetData>");
        const QByteArray sheet = Repeated(book, Entries(3)).value(kSheet1);
        QVERIFY(sheet.contains("<dimension ref=\"A4:D10\"/><sheetViews><sheetView><pane ySplit=\"4\" topLeftCell=\"A5\"/><selection "
                               "activeCell=\"D10\" sqref=\"D10\"/>"));
    }

    void what_the_other_sheets_say_of_the_rows_is_moved()
    {
        Template book = Invoice();
        book.Sheet(2, "<row r=\"9\"><c r=\"A9\"><v>9</v></c></row>",
                   "<mergeCells count=\"1\"><mergeCell ref=\"A8:B9\"/></mergeCells><conditionalFormatting sqref=\"A9\"><cfRule "
                   "type=\"expression\"><formula>Sheet1!$D$6&gt;A9</formula></cfRule></conditionalFormatting><dataValidations "
                   "count=\"1\"><dataValidation type=\"list\" sqref=\"A9\"><formula1>Sheet1!$A$5:$A$5</formula1></dataValidation>"
                   "</dataValidations><hyperlinks><hyperlink ref=\"A9\" location=\"'Sheet1'!D8\"/></hyperlinks>");
        book.Name("Items", "Sheet1!$A$5:$C$5");
        QCOMPARE(Between(Repeated(book, Entries(3)).value(kSheet2), "</sheetData>", "</worksheet>"),
                 QByteArray("<mergeCells count=\"1\"><mergeCell ref=\"A8:B9\"/></mergeCells><conditionalFormatting sqref=\"A9\"><cfRule "
                            "type=\"expression\"><formula>Sheet1!$D$8&gt;A9</formula></cfRule></conditionalFormatting><dataValidations "
                            "count=\"1\"><dataValidation type=\"list\" sqref=\"A9\"><formula1>Sheet1!$A$5:$A$7</formula1></dataValidation>"
                            "</dataValidations><hyperlinks><hyperlink ref=\"A9\" location=\"'Sheet1'!D10\"/></hyperlinks>"));
    }

    void sheets_that_are_not_concerned_stay_byte_for_byte()
    {
        Template book = Invoice();
        book.Sheet(2, "  <row r=\"9\" ><c r=\"A9\"><f>1 + A1 </f><v>9</v></c></row>\n");
        book.Name("Items", "Sheet1!$A$5:$C$5");
        QCOMPARE(Repeated(book, Entries(30)).value(kSheet2), book.parts.value(kSheet2));
    }

    void names_follow()
    {
        const auto name = [](const QByteArray &key, const QByteArray &text, const QByteArray &more = QByteArray()) {
            return "<definedName name=\"" + key + "\"" + more + ">" + text + "</definedName>";
        };
        Template book = Invoice();
        QByteArray &workbook = book.parts["xl/workbook.xml"];
        workbook.replace("</definedNames>",
                         name("Total", "Sheet1!$D$6") + name("Sums", "Sheet1!$D$5:$D$5") + name("First", "Sheet1!$A$5")
                             + name("Rate", "0.2") + name("Calc", "SUM(Sheet1!$D$5)*Sheet1!$A$8")
                             + name("_xlnm.Print_Area", "Sheet1!$A$1:$D$8", " localSheetId=\"0\"")
                             + name("_xlnm.Print_Titles", "Sheet1!$4:$5", " localSheetId=\"0\"")
                             + name("_xlnm._FilterDatabase", "Sheet1!$A$4:$D$5", " localSheetId=\"0\" hidden=\"1\"") + "</definedNames>");
        QCOMPARE(NamesOf(Repeated(book, Entries(3))),
                 name("Items", "Sheet1!$A$5:$C$7") + name("Total", "Sheet1!$D$8") + name("Sums", "Sheet1!$D$5:$D$7")
                     + name("First", "Sheet1!$A$5") + name("Rate", "0.2") + name("Calc", "SUM(Sheet1!$D$5:$D$7)*Sheet1!$A$10")
                     + name("_xlnm.Print_Area", "Sheet1!$A$1:$D$10", " localSheetId=\"0\"")
                     + name("_xlnm.Print_Titles", "Sheet1!$4:$5", " localSheetId=\"0\"")
                     + name("_xlnm._FilterDatabase", "Sheet1!$A$4:$D$7", " localSheetId=\"0\" hidden=\"1\""));
    }

    void a_print_area_goes_with_its_last_row()
    {
        Template book = Invoice();
        book.parts["xl/workbook.xml"].replace(
            "</definedNames>", "<definedName name=\"_xlnm.Print_Area\" localSheetId=\"0\">Sheet1!$A$5:$D$5</definedName></definedNames>");
        QCOMPARE(NamesOf(Repeated(book, {})), QByteArray("<definedName name=\"Items\">Sheet1!#REF!</definedName>"));
    }

    void names_are_known_at_their_new_places()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(Invoice().Name("Eight", "Sheet1!$A$8").Archive()));
        VERIFY_DONE(workbook, setRows(QStringLiteral("Items"), Entries(10)));
        QCOMPARE(workbook.value(QStringLiteral("Eight")).toInt(), 8);
        VERIFY_DONE(workbook, setValue(QStringLiteral("Eight"), 88));
        QVERIFY(SheetDataOf(SavedParts(workbook).value(kSheet1)).contains("<c r=\"A17\"><v>88</v></c>"));
    }

    void the_data_row_of_a_table_is_repeated()
    {
        const auto table = [](const QByteArray &ref, const QByteArray &filter) {
            return "<table id=\"1\" name=\"Things\" displayName=\"Things\" ref=\"" + ref + "\" totalsRowCount=\"1\"><autoFilter ref=\""
                + filter
                + "\"/><tableColumns count=\"2\"><tableColumn id=\"1\" name=\"a\"/><tableColumn id=\"2\" "
                  "name=\"b\"><calculatedColumnFormula>Things[[#This Row],[a]]*2</calculatedColumnFormula></tableColumn></tableColumns>"
                  "</table>";
        };
        const QByteArray rows = "<row r=\"2\"><c r=\"B2\" t=\"inlineStr\"><is><t>a</t></is></c></row>"
                                "<row r=\"3\"><c r=\"B3\"><v>1</v></c><c r=\"C3\"><f>Things[[#This Row],[a]]*2</f><v>2</v></c></row>"
                                "<row r=\"4\"><c r=\"B4\"><v>2</v></c><c r=\"C4\"><f>Things[[#This Row],[a]]*2</f><v>4</v></c></row>"
                                "<row r=\"5\"><c r=\"C5\"><f>SUBTOTAL(109,Things[b])</f><v>6</v></c></row>";
        Template book;
        book.Sheet(1, rows);
        AddPartOfSheet(book, "xl/tables/table1.xml", "table", table("B2:C5", "B2:C4"));
        const auto tableOf = [](const Parts &parts) {
            const QByteArray part = parts.value("xl/tables/table1.xml");
            return part.mid(part.indexOf("<table"));
        };
        Parts parts = Repeated(book, {{10}, {20}, {30}}, "Things");
        QCOMPARE(tableOf(parts), table("B2:C6", "B2:C5"));
        QCOMPARE(FormulasOf(parts.value(kSheet1)),
                 QByteArray("C3=Things[[#This Row],[a]]*2? C4=Things[[#This Row],[a]]*2? C5=Things[[#This Row],[a]]*2? "
                            "C6=SUBTOTAL(109,Things[b])?"));
        parts = Repeated(book, {{10}}, "Things");
        QCOMPARE(tableOf(parts), table("B2:C4", "B2:C3"));
        // A table is never without a row.
        parts = Repeated(book, {}, "Things");
        QCOMPARE(tableOf(parts), table("B2:C4", "B2:C3"));
        QVERIFY(SheetDataOf(parts.value(kSheet1)).contains("<row r=\"3\"><c r=\"B3\"/><c r=\"C3\"><f>"));
    }

    void a_table_of_a_damaged_sheet_is_refused()
    {
        Template book;
        book.Sheet(1, kInvoice);
        AddPartOfSheet(book, "xl/tables/table1.xml", "table", "<table displayName=\"Things\" ref=\"A4:B5\"/>");
        book.parts[kSheet1].chop(1);
        for (const Rows &rows : {Rows(), Entries(1), Entries(2)}) {
            XlsxTemplate workbook;
            VERIFY_DONE(workbook, load(book.Archive()));
            QVERIFY(!workbook.setRows(QStringLiteral("Things"), rows));
            QCOMPARE(workbook.error(), XlsxTemplate::Error::FormatError);
        }
    }

    void a_table_below_moves_and_one_around_grows()
    {
        const auto book = [](const QByteArray &ref) {
            Template made = Invoice();
            AddPartOfSheet(made, "xl/tables/table1.xml", "table",
                           "<table displayName=\"T\" ref=\"" + ref + "\"><autoFilter ref=\"" + ref + "\"/></table>");
            return made;
        };
        const auto refOf = [](const Parts &parts) {
            return Between(parts.value("xl/tables/table1.xml"), "autoFilter ref=\"", "\"") + parts.value("error");
        };
        QCOMPARE(refOf(Repeated(book("A10:B12"), Entries(3))), QByteArray("A12:B14"));
        QCOMPARE(refOf(Repeated(book("A4:D5"), Entries(3))), QByteArray("A4:D7"));
        QCOMPARE(refOf(Repeated(book("A1:D3"), Entries(3))), QByteArray("A1:D3"));
    }

    void pictures_and_charts_move_with_their_rows()
    {
        const auto anchor = [](const QByteArray &edits, int from, int to) {
            return "<xdr:twoCellAnchor" + edits + "><xdr:from><xdr:col>1</xdr:col><xdr:row>" + QByteArray::number(from)
                + "</xdr:row><xdr:rowOff>5</xdr:rowOff></xdr:from><xdr:to><xdr:col>2</xdr:col><xdr:row>" + QByteArray::number(to)
                + "</xdr:row><xdr:rowOff>5</xdr:rowOff></xdr:to></xdr:twoCellAnchor>";
        };
        const auto one = [](int row) {
            return "<xdr:oneCellAnchor><xdr:from><xdr:row>" + QByteArray::number(row) + "</xdr:row></xdr:from></xdr:oneCellAnchor>";
        };
        const QByteArray link = "<xdr:sp textlink=\"Sheet1!$D$6\"/>";
        Template book = Invoice();
        const auto drawing = [](const QByteArray &content) {
            return "<xdr:wsDr xmlns:xdr=\"http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing\">" + content + "</xdr:wsDr>";
        };
        const QByteArray absolute = " editAs=\"absolute\"";
        const QByteArray fixed = " editAs=\"oneCell\"";
        AddPartOfSheet(book, "xl/drawings/drawing1.xml", "drawing",
                       drawing(anchor("", 0, 2) + anchor("", 3, 4) + anchor("", 4, 5) + anchor("", 3, 7) + anchor(fixed, 3, 7)
                               + anchor(fixed, 6, 7) + anchor(absolute, 6, 7) + one(4) + one(5) + link));
        const QByteArray moved = Repeated(book, Entries(3)).value("xl/drawings/drawing1.xml");
        QCOMPARE(moved.mid(moved.indexOf("<xdr:wsDr")),
                 drawing(anchor("", 0, 2) + anchor("", 3, 4) + anchor("", 4, 7) + anchor("", 3, 9) + anchor(fixed, 3, 7)
                         + anchor(fixed, 8, 9) + anchor(absolute, 6, 7) + one(4) + one(7) + QByteArray(link).replace("$D$6", "$D$8")));
    }

    void charts_show_all_rows()
    {
        Template book = Invoice();
        AddPartOfSheet(book, "xl/drawings/drawing1.xml", "drawing", "<wsDr/>");
        const auto chart = [](const QByteArray &title, const QByteArray &categories, const QByteArray &values) {
            return "<c:chart xmlns:c=\"c\"><c:ser><c:tx><c:strRef><c:f>" + title
                + "</c:f><c:strCache/></c:strRef></c:tx><c:cat><c:strRef><c:f>" + categories
                + "</c:f></c:strRef></c:cat><c:val><c:numRef><c:f>" + values + "</c:f></c:numRef></c:val></c:ser></c:chart>";
        };
        AddPart(
            book, "xl/charts/chart1.xml", "application/chart+xml",
            chart("Sheet1!$A$5", "Sheet1!$A$5:$A$5", "Sheet1!$D$5").replace("$D$5</c:f>", "$D$5</c:f><c:numCache><c:pt/></c:numCache>"));
        Relate(book, "xl/drawings/_rels/drawing1.xml.rels", Relationship("rId1", "chart", "../charts/chart1.xml"));
        const QByteArray moved = Repeated(book, Entries(3)).value("xl/charts/chart1.xml");
        QCOMPARE(moved.mid(moved.indexOf("<c:chart")),
                 chart("Sheet1!$A$5", "Sheet1!$A$5:$A$7", "Sheet1!$D$5:$D$7").replace("<c:strCache/>", "")); // the first item's name
    }

    void a_chart_that_is_a_sheet_shows_all_rows()
    {
        Template book = Invoice();
        book.parts["xl/workbook.xml"].replace("</sheets>", "<sheet name=\"Chart\" sheetId=\"9\" r:id=\"rId9\"/></sheets>");
        Relate(book, "xl/_rels/workbook.xml.rels", Relationship("rId9", "chartsheet", "chartsheets/sheet1.xml"));
        AddPart(book, "xl/chartsheets/sheet1.xml", "application/chartsheet+xml", "<chartsheet location=\"here\"><f/></chartsheet>");
        Relate(book, "xl/chartsheets/_rels/sheet1.xml.rels", Relationship("rId1", "drawing", "../drawings/drawing9.xml"));
        AddPart(book, "xl/drawings/drawing9.xml", "application/drawing+xml", "<wsDr/>");
        Relate(book, "xl/drawings/_rels/drawing9.xml.rels", Relationship("rId1", "chart", "../charts/chart9.xml"));
        AddPart(book, "xl/charts/chart9.xml", "application/chart+xml", "<chart><val><numRef><f>Sheet1!$D$5</f></numRef></val></chart>");
        const Parts parts = Repeated(book, Entries(3));
        QVERIFY2(parts.value("xl/charts/chart9.xml").endsWith("<f>Sheet1!$D$5:$D$7</f></numRef></val></chart>"), parts.value("error"));
        QCOMPARE(parts.value("xl/drawings/drawing9.xml"), book.parts.value("xl/drawings/drawing9.xml"));
    }

    void comments_move_with_their_frames()
    {
        const auto comments = [](const QList<QByteArray> &cells) {
            QByteArray content;
            for (const QByteArray &cell : cells)
                content += "<comment ref=\"" + cell + "\"><text><t>of " + "it</t></text></comment>";
            return "<comments><commentList>" + content + "</commentList></comments>";
        };
        const auto shape = [](int row, int top, int bottom) {
            return "<v:shape><x:ClientData ObjectType=\"Note\"><x:Anchor>1, 15, " + QByteArray::number(top) + ", 2, 3, 15, "
                + QByteArray::number(bottom) + ", 4</x:Anchor><x:Row>" + QByteArray::number(row)
                + "</x:Row><x:Column>0</x:Column></x:ClientData></v:shape>";
        };
        const auto shapes = [](const QByteArray &content) {
            return "<xml xmlns:v=\"urn:schemas-microsoft-com:vml\" xmlns:x=\"urn:schemas-microsoft-com:office:excel\">" + content
                + "</xml>";
        };
        Template book = Invoice();
        AddPartOfSheet(book, "xl/comments1.xml", "comments", comments({"A4", "A5", "A8"}));
        AddPartOfSheet(book, "xl/drawings/vmlDrawing1.vml", "vmlDrawing", shapes(shape(3, 2, 4) + shape(4, 3, 7) + shape(7, 6, 9)));
        const auto bodyOf = [](const Parts &parts, const char *part, const char *root) {
            return parts.value(part).mid(parts.value(part).indexOf(root)) + parts.value("error");
        };
        Parts parts = Repeated(book, Entries(3));
        QCOMPARE(bodyOf(parts, "xl/comments1.xml", "<comments"), comments({"A4", "A5", "A10"}));
        QCOMPARE(bodyOf(parts, "xl/drawings/vmlDrawing1.vml", "<xml "), shapes(shape(3, 2, 4) + shape(4, 3, 9) + shape(9, 8, 11)));
        parts = Repeated(book, {});
        QCOMPARE(bodyOf(parts, "xl/comments1.xml", "<comments"), comments({"A4", "A7"}));
        QCOMPARE(bodyOf(parts, "xl/drawings/vmlDrawing1.vml", "<xml "), shapes(shape(3, 2, 4) + shape(6, 5, 8)));
    }

    void the_source_of_a_pivot_table_grows()
    {
        Template book = Invoice();
        AddPart(book, "xl/pivotCache/pivotCacheDefinition1.xml", "application/pivot+xml",
                "<pivotCacheDefinition><cacheSource type=\"worksheet\"><worksheetSource ref=\"A4:D5\" sheet=\"Sheet1\"/></cacheSource>"
                "</pivotCacheDefinition>");
        Relate(book, "xl/_rels/workbook.xml.rels", Relationship("rId90", "pivotCacheDefinition", "pivotCache/pivotCacheDefinition1.xml"));
        const QByteArray moved = Repeated(book, Entries(3)).value("xl/pivotCache/pivotCacheDefinition1.xml");
        QVERIFY2(moved.contains("refreshOnLoad=\"1\"") && moved.contains("ref=\"A4:D7\""), moved);
    }

    void a_data_table_whose_input_goes_says_that_it_has_gone()
    {
        const auto table = [](const QByteArray &ref, const QByteArray &input) {
            return "<f t=\"dataTable\" ref=\"" + ref + "\" dt2D=\"0\" dtr=\"0\" r1=\"" + input + "\"";
        };
        const auto invoice = [&table](const QByteArray &input) {
            return Invoice(kInvoice + "<row r=\"9\"><c r=\"F9\">" + table("F9:F10", input) + "/><v>7</v></c></row>");
        };
        const QByteArray gone = Repeated(invoice("A5"), {}).value(kSheet1);
        QVERIFY2(gone.contains(table("F8:F9", "A5") + " del1=\"1\""), gone);
        const QByteArray moved = Repeated(invoice("A8"), Entries(2)).value(kSheet1);
        QVERIFY2(moved.contains(table("F10:F11", "A9") + "/>"), moved);
    }

    void what_cannot_be_moved_is_refused_by_its_name()
    {
        Template pivot = Invoice();
        AddPartOfSheet(pivot, "xl/pivotTables/pivotTable1.xml", "pivotTable",
                       "<pivotTableDefinition name=\"Pivot\"><location ref=\"F6:G9\"/></pivotTableDefinition>");
        QCOMPARE(Refusal(pivot), QStringLiteral("The pivot table Pivot (Sheet1!F6:G9) would have to move with the rows, and cannot."));
        Template above = Invoice();
        AddPartOfSheet(above, "xl/pivotTables/pivotTable1.xml", "pivotTable",
                       "<pivotTableDefinition name=\"Pivot\"><location ref=\"F1:G4\"/></pivotTableDefinition>");
        QCOMPARE(Refusal(above), QStringLiteral("done"));

        const auto array = [](const QByteArray &type, const QByteArray &ref) {
            return Refusal(Invoice("<row r=\"5\"><c r=\"F5\"><f t=\"" + type + "\" ref=\"" + ref + "\">A1:A9</f></c></row>"));
        };
        QCOMPARE(array("array", "F5:F6"), QStringLiteral("The array formula in Sheet1!F5:F6 reaches over the row that is to be repeated."));
        QCOMPARE(array("dataTable", "F5:G5"), QStringLiteral("The data table Sheet1!F5:G5 reaches over the row that is to be repeated."));
        QCOMPARE(array("array", "F5:G5"), QStringLiteral("done"));

        const auto shared = [](const QByteArray &text) {
            return Refusal(Invoice("<row r=\"5\"><c r=\"F5\"><f t=\"shared\" si=\"0\">" + text
                                   + "</f></c></row><row r=\"6\"><c r=\"F6\"><f "
                                     "t=\"shared\" si=\"0\"/></c></row>"));
        };
        const QString reason = QStringLiteral("The formula in Sheet1!F6 is shared with another cell, and missing there, or too long.");
        QCOMPARE(shared("1"), QStringLiteral("done"));
        QCOMPARE(shared(QByteArray(70000, '1')), reason);
        QCOMPARE(shared(""), QString(reason).replace(QStringLiteral("F6"), QStringLiteral("F5")));

        const auto merge = [](const QByteArray &ref) {
            return Refusal(Invoice(kInvoice, "<mergeCells count=\"1\"><mergeCell ref=\"" + ref + "\"/></mergeCells>"));
        };
        QCOMPARE(merge("C5:C6"), QStringLiteral("The merged cells Sheet1!C5:C6 reach over more than the row that is to be repeated."));
        QCOMPARE(merge("B4:B9"), QStringLiteral("Row 1: Sheet1!B5: It does not show, as a part of merged cells (B4:B9)."));
        QCOMPARE(merge("F4:F9"), QStringLiteral("done"));

        const auto table = [](const QByteArray &ref) {
            Template book = Invoice();
            AddPartOfSheet(book, "xl/tables/table1.xml", "table", "<table displayName=\"Beside\" ref=\"" + ref + "\"/>");
            return Refusal(book);
        };
        QCOMPARE(table("F4:G9"), QStringLiteral("The table Beside (Sheet1!F4:G9) stands across the row that is to be repeated."));
        QCOMPARE(table("F5:G9"), QStringLiteral("The table Beside (Sheet1!F5:G9) stands across the row that is to be repeated."));
        QCOMPARE(table("A5:D9"), QStringLiteral("Row 1: Sheet1!A5: It is the header of a column of the table Beside."));
        QCOMPARE(table("F6:G9"), QStringLiteral("done"));
    }

    void what_would_leave_the_sheet_is_refused()
    {
        const QByteArray last = "<row r=\"5\"/><row r=\"1048576\"><c r=\"A1048576\"><v>1</v></c></row>";
        QCOMPARE(Refusal(Invoice(last)),
                 QStringLiteral("Sheet1 has no room for 10 rows: it ends with row 1048576, and row 1048576 would have to move down."));
        QCOMPARE(Refusal(Invoice(last), Entries(1)), QStringLiteral("done"));
        QCOMPARE(Refusal(Invoice("<row r=\"5\"/><row r=\"1048576\" ht=\"20\"/>")), QStringLiteral("done")); // an empty row
    }

    void what_would_take_too_much_memory_is_refused()
    {
        QByteArray cells;
        for (int i = 0; i < 16000; ++i)
            cells += "<c><v>1</v></c>";
        QCOMPARE(Refusal(Invoice("<row r=\"5\">" + cells + "</row>"), Entries(100000)),
                 QStringLiteral("Row 5 of Sheet1 is too large to be repeated 99999 times."));
    }

    void values_that_do_not_fit_are_refused()
    {
        QCOMPARE(Refusal(Invoice(), {{1}, {1, 2, 3, 4}}), QStringLiteral("Row 2: There are 4 values, but Items has 3 columns."));
        const QString tooLong = Refusal(Invoice(), {{1}, {QString(40000, QLatin1Char('x'))}});
        QVERIFY2(tooLong.startsWith(QStringLiteral("Row 2: Sheet1!A5: ")), qPrintable(tooLong));
        Template columns;
        columns.Sheet(1, kInvoice);
        columns.Name("Items", "Sheet1!$A:$C").Name("Two", "Sheet1!$A$5,Sheet1!$A$7");
        QCOMPARE(Refusal(columns), QStringLiteral("Items is not the name of a row, nor of a table."));
        QCOMPARE(Refusal(columns, Entries(2), "Two"), QStringLiteral("Two is not the name of a row, nor of a table."));
    }

    void what_was_set_before_moves_too()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(Invoice().Name("Eight", "Sheet1!$A$8").Name("Four", "Sheet1!$A$4").Archive()));
        VERIFY_DONE(workbook, setValue(QStringLiteral("Eight"), 88));
        VERIFY_DONE(workbook, setFormula(QStringLiteral("Four"), QStringLiteral("=SUM(D5:D5)+A8")));
        VERIFY_DONE(workbook, setRows(QStringLiteral("Items"), Entries(3)));
        const QByteArray data = SheetDataOf(SavedParts(workbook).value(kSheet1));
        QVERIFY(data.contains("<c r=\"A10\"><v>88</v></c>"));
        QVERIFY(data.contains("<c r=\"A4\"><f>SUM(D5:D7)+A10</f></c>"));
    }

    void ten_thousand_rows_take_less_than_a_second()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(Invoice(kInvoice, "<mergeCells count=\"1\"><mergeCell ref=\"E5:F5\"/></mergeCells>").Archive()));
        const Rows rows = Entries(10000);
        const CpuClock clock;
        VERIFY_DONE(workbook, setRows(QStringLiteral("Items"), rows));
        QVERIFY2(clock.IsWithin(1000), QByteArray::number(clock.Milliseconds()));
        QVERIFY(SheetDataOf(SavedParts(workbook).value(kSheet1)).contains("<f>SUM(D5:D10004)</f>"));
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxRows)
#include "tst_XlsxRows.moc"
