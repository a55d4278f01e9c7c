#include "support/TestMain.h"
#include "xlsx/Book.h"
#include "xlsx/Office.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

using namespace Velmora;
using namespace VelmoraTest;

/// Values of every type in a template of a real program, as two of them read it.
class tst_XlsxTemplateOffice : public TestCase
{
    Q_OBJECT

    QTemporaryDir m_folder;
    QString m_template;
    QString m_filled;

private Q_SLOTS:
    void initTestCase()
    {
        const QString image = m_folder.filePath(QStringLiteral("old.png"));
        QImage pixels(16, 12, QImage::Format_RGB32);
        pixels.fill(Qt::blue);
        pixels.save(image);
        m_template = m_folder.filePath(QStringLiteral("template.xlsx"));
        m_filled = m_folder.filePath(QStringLiteral("filled.xlsx"));
        Office({QStringLiteral(OFFICE_WRITER), m_template, image});
    }

    void what_the_program_wrote_is_read()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(m_template));
        QCOMPARE(workbook.value(QStringLiteral("Title")), QVariant(QStringLiteral("old title")));
        QCOMPARE(workbook.value(QStringLiteral("Count")), QVariant(1LL));
        QCOMPARE(workbook.value(QStringLiteral("Choice")), QVariant(QStringLiteral("yes")));
        QCOMPARE(workbook.value(QStringLiteral("Far")), QVariant(QVariantList()));
        QCOMPARE(workbook.kindOf(QStringLiteral("Far")), XlsxTemplate::Kind::Range);
    }

    void values_of_every_type_are_what_other_programs_read()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(m_template));
        VERIFY_DONE(workbook, setValue(QStringLiteral("Title"), QString::fromUtf8("= \"R&D\" <b>\tline\nnext \xc3\xa4\xf0\x9f\x98\x80 ")));
        VERIFY_DONE(workbook, setValue(QStringLiteral("Count"), 0.1 + 0.2));
        const QDate day(2026, 11, 22);
        VERIFY_DONE(
            workbook,
            setValues(QStringLiteral("Far"), QVector<QVariantList>{{day, QDateTime(day, QTime(13, 14, 15))}, {QTime(6, 7, 8), true}}));
        VERIFY_DONE(workbook, save(m_filled));
        QCOMPARE(PackageFaults(ReadArchive(workbook.save())), QStringList());

        const QJsonObject cells = QJsonDocument::fromJson(Office({QStringLiteral("look"), m_filled})).object().value("cells").toObject();
        const QJsonObject data = cells.value("Data").toObject();
        QCOMPARE(data.value("A1").toString(), QString::fromUtf8("= \"R&D\" <b>\tline\nnext \xc3\xa4\xf0\x9f\x98\x80 "));
        QCOMPARE(data.value("B1").toDouble(), 0.1 + 0.2);
        QCOMPARE(data.value("B2").toDouble(), 2.5);
        const QJsonObject mine = cells.value("My Sheet").toObject();
        QCOMPARE(mine.value("B3").toString(), QStringLiteral("2026-11-22 00:00:00"));
        QCOMPARE(mine.value("C3").toString(), QStringLiteral("2026-11-22 13:14:15"));
        QCOMPARE(mine.value("B4").toString(), QStringLiteral("06:07:08"));
        QCOMPARE(mine.value("C4"), QJsonValue(true));

        const QByteArray sheets = Office({QStringLiteral("sheets"), m_filled});
        QVERIFY2(sheets.startsWith("\"= \"\"R&D\"\" <b>\tline\nnext \xc3\xa4\xf0\x9f\x98\x80 \",0.3\n"), sheets);
        QVERIFY2(sheets.contains(",11/22/2026,11/22/2026 13:14"), sheets);
        QVERIFY2(sheets.contains(",06:07:08 AM,TRUE\n"), sheets);
    }

    void characters_that_xml_has_no_room_for_are_read_by_libreoffice()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(m_template));
        VERIFY_DONE(workbook, setValue(QStringLiteral("Title"), QStringLiteral("a\u0007b_x0041_c\rd")));
        VERIFY_DONE(workbook, save(m_filled));
        const QByteArray sheets = Office({QStringLiteral("sheets"), m_filled});
        QVERIFY2(sheets.startsWith("\"a\u0007b_x0041_c\nd\","), sheets);
    }

    void a_new_formula_is_computed_by_libreoffice()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(m_template));
        VERIFY_DONE(workbook, setFormula(QStringLiteral("Title"), QStringLiteral("=IF(B1<20,\"less & more\",SUM(B1:B3))")));
        VERIFY_DONE(workbook, setValue(QStringLiteral("Count"), 7));
        VERIFY_DONE(workbook, setFormula(QStringLiteral("Choice"), QStringLiteral("SUM(B1:B3)")));
        VERIFY_DONE(workbook, save(m_filled));
        const QByteArray sheets = Office({QStringLiteral("sheets"), m_filled});
        QVERIFY2(sheets.startsWith("less & more,7\n"), sheets);
        QVERIFY2(sheets.contains("\n12.5,3\n"), sheets);
    }
};

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    tst_XlsxTemplateOffice test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_XlsxTemplateOffice.moc"
