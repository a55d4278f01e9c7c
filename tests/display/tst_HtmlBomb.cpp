#include "support/TestMain.h"

#include "display/HtmlBomb_p.h"

using namespace Velmora;
using namespace VelmoraTest;

class TestHtmlBomb : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tables_inside_of_each_other_and_very_wide_cells_are_not_read_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isBomb");
        QTest::newRow("nothing") << QString() << false;
        QTest::newRow("letters") << QString(1 << 20, QLatin1Char('<')) << false;
        QTest::newRow("no tags") << QStringLiteral("table ").repeated(20) << false;
        QTest::newRow("8 tables") << QStringLiteral("<table><tr><td>").repeated(8) << false;
        QTest::newRow("9 tables") << QStringLiteral("<table><tr><td>").repeated(9) << true;
        QTest::newRow("9 closed tables") << QStringLiteral("<table><tr><td>x</table>").repeated(9) << true;
        QTest::newRow("capitals") << QStringLiteral("<TaBlE>").repeated(9) << true;
        QTest::newRow("behind blanks") << QStringLiteral("< \n\u00A0table>").repeated(9) << true;
        QTest::newRow("in quotes") << QStringLiteral("<\"table\">").repeated(9) << true;
        QTest::newRow("by entities") << QStringLiteral("<t&#97;ble>").repeated(9) << true;
        QTest::newRow("many other tags") << QStringLiteral("<p>a &amp; b</p><b>c</b>").repeated(50) << false;
        QTest::newRow("a wide cell") << QStringLiteral("<table><td colspan=\"100\">") << true;
        QTest::newRow("a narrow cell") << QStringLiteral("<table><td colspan=\"99\">") << false;
        QTest::newRow("a wide cell of no table") << QStringLiteral("<b>colspan=100</b>") << false;
    }

    void tables_inside_of_each_other_and_very_wide_cells_are_not_read()
    {
        QFETCH(QString, text);
        QFETCH(bool, isBomb);
        QCOMPARE(IsHtmlBomb(text), isBomb);
    }
};

VELMORA_TEST_MAIN(TestHtmlBomb)

#include "tst_HtmlBomb.moc"
