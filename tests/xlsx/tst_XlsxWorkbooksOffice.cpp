#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/Book.h"
#include "xlsx/Office.h"
#include "xlsx/XlsxFiles.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

using Parts = QMap<QByteArray, QByteArray>;

QString Name(const char *name)
{
    return QString::fromLatin1(name);
}

QVector<QVariantList> Rows(int count)
{
    QVector<QVariantList> rows;
    for (int i = 1; i <= count; ++i)
        rows.append({QStringLiteral("item %1").arg(i), i, 10 * i});
    return rows;
}

QByteArray Filled(const QByteArray &workbook, int count)
{
    XlsxTemplate filled;
    const bool isFilled = filled.load(workbook) && filled.setValue(Name("Title"), QStringLiteral("=no formula"))
        && filled.setValue(Name("Factor"), 3) && filled.setRows(Name("Items"), Rows(count));
    const QByteArray saved = isFilled ? filled.save() : QByteArray();
    return saved.isEmpty() ? filled.errorString().toUtf8() : saved;
}

/// What a sheet shows in its first columns.
QByteArray Shown(const QJsonValue &lines, int columns)
{
    QByteArray shown;
    for (const QJsonValue &line : lines.toArray())
        shown += line.toString().toUtf8().split(',').mid(0, columns).join(',') + '\n';
    return shown;
}

} // namespace

/// Workbooks of real programs, each with something that such workbooks have, filled in and looked at by these programs.
class tst_XlsxWorkbooksOffice : public TestCase
{
    Q_OBJECT

    QTemporaryDir m_folder;
    QStringList m_names;
    QJsonObject m_read; ///< by workbook

    QString Path(const QString &workbook) const { return m_folder.filePath(workbook + QLatin1String(".xlsx")); }
    QString PathOfFilled(const QString &workbook) const { return m_folder.filePath("filled/" + workbook + QLatin1String(".xlsx")); }
    void ForEachWorkbook() const
    {
        QTest::addColumn<QString>("workbook");
        for (const QString &name : m_names)
            QTest::newRow(qPrintable(name)) << name;
    }

private Q_SLOTS:
    void initTestCase()
    {
        Office({QStringLiteral("make"), m_folder.path()});
        QDir folder(m_folder.path());
        folder.mkdir(QStringLiteral("filled"));
        for (const QFileInfo &file : folder.entryInfoList({QStringLiteral("*.xlsx")}, QDir::Files, QDir::Name)) {
            m_names.append(file.completeBaseName());
            WriteFile(PathOfFilled(m_names.last()), Filled(FileContent(file.filePath()), 3));
        }
        QCOMPARE(m_names.size(), 18);
        m_read = QJsonDocument::fromJson(Office({QStringLiteral("read"), m_folder.filePath(QStringLiteral("filled"))})).object();
    }

    void the_programs_show_what_was_put_in_and_the_right_totals_data() { ForEachWorkbook(); }
    void the_programs_show_what_was_put_in_and_the_right_totals()
    {
        QFETCH(QString, workbook);
        const QJsonObject sheets = m_read.value(workbook).toObject();
        const QString first = sheets.contains(QStringLiteral("Data")) ? QStringLiteral("Data") : QStringLiteral("It's a sheet");
        QCOMPARE(Shown(sheets.value(first), 4),
                 QByteArray("=no formula,,,\nFactor,3,,\n,,,\nItem,Count,Price,Sum\nitem 1,1,10,10\nitem 2,2,20,40\nitem 3,3,30,90\n"
                            ",,Total,140\n,,All,420\nThank you,,,\n"));
        QVERIFY(Shown(sheets.value(QStringLiteral("Sums")), 1).startsWith("420\n140\n4\n3\n"));
    }

    void the_package_stays_sound_and_whole_data() { ForEachWorkbook(); }
    void the_package_stays_sound_and_whole()
    {
        QFETCH(QString, workbook);
        const Parts before = ReadArchive(FileContent(Path(workbook)));
        const Parts after = ReadArchive(FileContent(PathOfFilled(workbook)));
        QCOMPARE(PackageFaults(after), QStringList());
        for (auto part = before.cbegin(); part != before.cend(); ++part) {
            QCOMPARE(after.contains(part.key()), !part.key().startsWith("_xmlsignatures/"));
            // What neither holds cells nor names them stays as it is.
            const bool mayChange = part.key().startsWith("xl/w") || part.key().contains("harts/") || part.key().contains("rawing")
                || part.key().contains("omments") || part.key().endsWith(".rels") || part.key() == "[Content_Types].xml";
            QVERIFY2(mayChange || !after.contains(part.key()) || after.value(part.key()) == part.value(), part.key());
        }
    }

    void a_filled_workbook_filled_again_is_as_if_filled_once_data() { ForEachWorkbook(); }
    void a_filled_workbook_filled_again_is_as_if_filled_once()
    {
        QFETCH(QString, workbook);
        const QByteArray content = FileContent(Path(workbook));
        QCOMPARE(ReadArchive(Filled(Filled(content, 5), 2)), ReadArchive(Filled(content, 2)));
    }

    void charts_hold_nothing_of_what_their_cells_were()
    {
        for (const char *writer : {"openpyxl", "libreoffice"}) {
            const Parts parts = ReadArchive(FileContent(PathOfFilled(Name("charts-") + Name(writer))));
            int count = 0;
            for (auto part = parts.cbegin(); part != parts.cend(); ++part) {
                if (!part.key().startsWith("xl/charts/chart"))
                    continue;
                ++count;
                QVERIFY2(part.value().contains("$D$5:$D$7") && part.value().contains("$A$5:$A$7") && !part.value().contains(">thing<")
                             && !part.value().contains("numCache"),
                         part.key());
            }
            QCOMPARE(count, 2);
        }
    }

    void charts_print_what_their_cells_hold()
    {
        Office({QStringLiteral("print"), m_folder.filePath(QStringLiteral("filled"))});
        for (const char *writer : {"openpyxl", "libreoffice"}) {
            QProcess text;
            text.start(QStringLiteral("pdftotext"),
                       {m_folder.filePath(QStringLiteral("filled/charts-") + Name(writer) + QLatin1String(".pdf")), QStringLiteral("-")});
            QVERIFY(text.waitForFinished());
            // In a cell, and beside a bar and a slice.
            const QByteArray printed = text.readAllStandardOutput();
            QVERIFY2(printed.count("item 3") == 3 && !printed.contains("thing"), printed);
        }
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxWorkbooksOffice)
#include "tst_XlsxWorkbooksOffice.moc"
