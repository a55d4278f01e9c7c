#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/Book.h"

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QByteArray kSheet1 = QByteArrayLiteral("xl/worksheets/sheet1.xml");
const QString kName = QStringLiteral("Name");

QByteArray Repeated(const QByteArray &text, int count)
{
    return text.repeated(count);
}

Template WithSheet(const QByteArray &sheetData)
{
    Template source;
    source.Sheet(1, sheetData);
    source.Name("Name", "Sheet1!$A$1").Name("Range", "Sheet1!$A:$C");
    return source;
}

} // namespace

/// Packages that no program writes: they are refused, or read in no more time and memory than others of their size.
class tst_XlsxTemplateOdd : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void parts_that_no_program_writes_are_refused_data()
    {
        QTest::addColumn<QByteArray>("data");
        QByteArray attributes;
        for (int i = 0; i < 1001; ++i)
            attributes += " a" + QByteArray::number(i) + "=\"\"";
        QTest::newRow("deep") << "<row r=\"1\"><c r=\"A1\"><v>" + Repeated("<x>", 200000) + Repeated("</x>", 200000) + "</v></c></row>";
        QTest::newRow("deep beside") << "<row r=\"1\"/>" + Repeated("<x>", 300) + Repeated("</x>", 300);
        QTest::newRow("attributes") << "<row r=\"1\"><c r=\"A1\"" + attributes + "/></row>";
        QTest::newRow("children") << "<row r=\"1\"><c r=\"A1\">" + Repeated("<v/>", 1001) + "</c></row>";
        // Of many names, so that it does not pack so well as to be refused for that.
        QByteArray small = Noise(50000000);
        for (int i = 0; i + 5 <= small.size(); i += 5) {
            small[i] = '<';
            small[i + 1] = char('a' + (small.at(i + 1) & 15));
            small[i + 2] = char('a' + (small.at(i + 2) & 15));
            small[i + 3] = '/';
            small[i + 4] = '>';
        }
        QTest::newRow("small elements") << small;
    }
    void parts_that_no_program_writes_are_refused()
    {
        QFETCH(QByteArray, data);
        Template source = WithSheet(data);
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        QVERIFY(!workbook.setValue(kName, 1));
        QVERIFY(workbook.error() == XlsxTemplate::Error::FormatError || workbook.error() == XlsxTemplate::Error::LimitError);
        QVERIFY(workbook.errorString().contains(QString::fromLatin1(kSheet1)));
    }

    void parts_as_odd_as_they_may_be_are_read()
    {
        const Template source =
            WithSheet("<row r=\"1\"><c r=\"A1\">" + Repeated("<v/>", 999) + "</c></row>" + Repeated("<x>", 200) + Repeated("</x>", 200));
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        VERIFY_DONE(workbook, setValue(kName, 1));
        QVERIFY(!workbook.save().isEmpty());
    }

    void one_long_text_in_many_cells_is_not_read_as_a_range()
    {
        QByteArray rows;
        for (int row = 1; row <= 3000; ++row)
            rows += "<row r=\"" + QByteArray::number(row) + "\"><c t=\"s\"><v>0</v></c></row>";
        Template source = WithSheet(rows);
        source.Strings({"<si><t>" + QByteArray(32767, 'x') + "</t></si>"});
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        QCOMPARE(workbook.value(kName).toString().size(), 32767);
        QCOMPARE(workbook.value(QStringLiteral("Range")), QVariant());
        const QString once = workbook.value(kName).toString();
        QVERIFY(workbook.value(kName).toString().constData() == once.constData()); // nor is it read for each name
    }

    void cells_in_any_order_are_found_in_time()
    {
        QByteArray places;
        for (int row = 1; row <= 20000; ++row)
            places += (row > 1 ? ",Sheet1!$B$" : "Sheet1!$B$") + QByteArray::number(row % 2 ? row : 1048577 - row);
        Template source;
        source.Sheet(1, "<row r=\"5\">" + Repeated("<c/>", 16000) + "</row><row r=\"6\">" + Repeated("<c/>", 16000) + "</row>");
        source.Name("Many", places);
        QByteArray again = "Sheet1!$A$5";
        for (int i = 0; i < 20000; ++i)
            again += i % 2 ? ",Sheet1!$XA$5" : ",Sheet1!$XB$6";
        source.Name("Again", again);
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        VERIFY_DONE(workbook, setValue(QStringLiteral("Many"), 1));
        VERIFY_DONE(workbook, setValue(QStringLiteral("Again"), 2));
        QCOMPARE(SheetDataOf(SavedParts(workbook).value(kSheet1)).count("<row "), 20001);
    }

    void merged_cells_in_masses_are_found_in_time()
    {
        QByteArray merges = "<mergeCells>";
        for (int row = 1; row <= 40000; ++row)
            merges += "<mergeCell ref=\"A" + QByteArray::number(row) + ":B" + QByteArray::number(row) + "\"/>";
        Template source;
        source.Sheet(1, QByteArray(), merges + "</mergeCells>");
        source.Name("Range", "Sheet1!$A$1:$C$40000");
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        VERIFY_DONE(workbook, setValue(QStringLiteral("Range"), 1));
        QCOMPARE(SheetDataOf(SavedParts(workbook).value(kSheet1)).count("<c "), 80000);
    }

    void an_archive_with_two_directories_is_refused()
    {
        // The comment holds an end record of its own, which leads to other entries.
        Template other = WithSheet("<row r=\"1\"><c r=\"A1\"><v>666</v></c></row>");
        ArchiveShape shape;
        const QByteArray first = WithSheet("<row r=\"1\"/>").Archive();
        shape.comment = first.right(22);
        XlsxTemplate workbook;
        QList<ArchiveEntry> entries;
        for (auto part = other.parts.cbegin(); part != other.parts.cend(); ++part) {
            ArchiveEntry entry;
            entry.name = part.key();
            entry.data = part.value();
            entries.append(entry);
        }
        QVERIFY(!workbook.load(MakeArchive(entries, shape)));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::FormatError);
    }

    void damage_at_any_place_ends_in_a_message_or_a_workbook()
    {
        Template source = WithSheet("<row r=\"1\"><c r=\"A1\"><f>B1</f><v>1</v></c></row>");
        source.Strings({"<si><t>x</t></si>"});
        const QByteArray archive = source.Archive();
        for (int at = 0; at < archive.size(); at += 3) {
            QByteArray damaged = archive;
            damaged[at] = char(damaged.at(at) ^ 0x55);
            XlsxTemplate workbook;
            const bool isLoaded = workbook.load(damaged);
            QCOMPARE(workbook.errorString().isEmpty(), isLoaded);
            if (!isLoaded)
                continue;
            for (const QString &name : workbook.names())
                workbook.setValue(name, QStringLiteral("x"));
            const bool isSaved = !workbook.save().isEmpty();
            QCOMPARE(workbook.errorString().isEmpty(), isSaved);
        }
        for (int size = 0; size < archive.size(); size += 7) {
            XlsxTemplate workbook;
            QVERIFY(!workbook.load(archive.left(size)));
        }
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxTemplateOdd)
#include "tst_XlsxTemplateOdd.moc"
