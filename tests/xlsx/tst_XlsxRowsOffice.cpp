#include "support/TestMain.h"
#include "xlsx/Book.h"
#include "xlsx/Office.h"
#include "xlsx/XlsxFiles.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

using namespace Velmora;
using namespace VelmoraTest;

/// An invoice of a real program, filled in, and looked at by two of them: the totals are those of what was put in.
class tst_XlsxRowsOffice : public TestCase
{
    Q_OBJECT

    QTemporaryDir m_folder;
    QString m_template;
    QString m_filled;

    QByteArray Sheets() const { return Office({QStringLiteral("sheets"), m_filled}); }
    /// The rows that both programs' invoices show, then what the other sheet makes of them.
    static QByteArray Shown(const QByteArray &items, const QByteArray &net, const QByteArray &tax, const QByteArray &total,
                            const QByteArray &sums)
    {
        return "Invoice,,,\n,,,\n,,,\nItem,Count,Price,Sum\n" + items + ",,Net," + net + "\n,,Tax," + tax + "\n,,Total," + total
            + "\n,,,\nThank you,,,\n" + sums;
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_template = m_folder.filePath(QStringLiteral("invoice.xlsx"));
        m_filled = m_folder.filePath(QStringLiteral("filled.xlsx"));
        Office({QStringLiteral("invoice-") + QStringLiteral(OFFICE_WRITER), m_template});
    }

    void a_filled_invoice_shows_the_right_totals()
    {
        XlsxTemplate invoice;
        VERIFY_DONE(invoice, load(m_template));
        VERIFY_DONE(invoice,
                    setRows(QStringLiteral("Items"),
                            QVector<QVariantList>{{QStringLiteral("Pencils"), 10, 1.5},
                                                  {QStringLiteral("Paper"), 2, 12.25},
                                                  {QStringLiteral("=not a formula"), 1, 100}}));
        VERIFY_DONE(invoice, save(m_filled));
        QCOMPARE(PackageFaults(ReadArchive(FileContent(m_filled))), QStringList());
        QCOMPARE(
            Sheets(),
            Shown("Pencils,10,1.5,15\nPaper,2,12.25,24.5\n=not a formula,1,100,100\n", "139.5", "27.9", "167.4", "167.4\n139.5\n3\n279\n"));
        const QByteArray printed = Office({QStringLiteral("text"), m_filled});
        for (const char *line : {"Paper 2 12.25 24.5\n", "Net 139.5\n", "Total 167.4\nThank you\n", "279\n"})
            QVERIFY2(printed.contains(line), printed);

        const QJsonObject looked = QJsonDocument::fromJson(Office({QStringLiteral("look"), m_filled})).object();
        const QJsonObject cells = looked.value(QStringLiteral("cells")).toObject().value(QStringLiteral("Invoice")).toObject();
        QCOMPARE(cells.value(QStringLiteral("A6")).toString(), QStringLiteral("Paper"));
        QCOMPARE(cells.value(QStringLiteral("D8")).toString(), QStringLiteral("=SUM(D5:D7)"));
        QCOMPARE(cells.value(QStringLiteral("A12")).toString(), QStringLiteral("Thank you"));
    }

    void an_invoice_without_items_has_a_total_of_nothing()
    {
        XlsxTemplate invoice;
        VERIFY_DONE(invoice, load(m_template));
        VERIFY_DONE(invoice, setRows(QStringLiteral("Items"), QVector<QVariantList>()));
        VERIFY_DONE(invoice, save(m_filled));
        // To count what is lost is to count nothing, and a sum over it has become 0.
        QCOMPARE(Sheets(), Shown(QByteArray(), "0", "0", "0", "0\n0\n0\n0\n"));
    }

    void no_stale_result_is_shown()
    {
        XlsxTemplate invoice;
        VERIFY_DONE(invoice, load(m_template));
        VERIFY_DONE(invoice, setValue(QStringLiteral("Price"), 1000));
        VERIFY_DONE(invoice, save(m_filled));
        QCOMPARE(Sheets(), Shown("thing,1,1000,1000\n", "1000", "200", "1200", "1200\n1000\n1\n2000\n"));
    }

    void a_filled_invoice_can_be_filled_again()
    {
        XlsxTemplate first;
        VERIFY_DONE(first, load(m_template));
        QVector<QVariantList> rows;
        for (int i = 0; i < 50; ++i)
            rows.append({QStringLiteral("x"), 1, i});
        VERIFY_DONE(first, setRows(QStringLiteral("Items"), rows));
        VERIFY_DONE(first, save(m_filled));
        XlsxTemplate second;
        VERIFY_DONE(second, load(m_filled));
        VERIFY_DONE(second, setRows(QStringLiteral("Items"), QVector<QVariantList>{{QStringLiteral("only"), 2, 5}}));
        VERIFY_DONE(second, save(m_filled));
        QCOMPARE(Sheets(), Shown("only,2,5,10\n", "10", "2", "12", "12\n10\n1\n20\n"));
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxRowsOffice)
#include "tst_XlsxRowsOffice.moc"
