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

    void more_than_a_thousand_tags_in_each_other_are_not_read_data()
    {
        QTest::addColumn<QString>("unit");
        QTest::addColumn<bool>("nests");
        QTest::newRow("lists") << QStringLiteral("<ul>") << true;
        QTest::newRow("items that nobody closes") << QStringLiteral("<li>a") << true;
        QTest::newRow("capitals and attributes") << QStringLiteral("<DIV class=\"a b\" hidden title = 'x'>") << true;
        QTest::newRow("quotations") << QStringLiteral("<blockquote>a") << true;
        QTest::newRow("spans") << QStringLiteral("<span style='color:red'>a") << true;
        QTest::newRow("unknown") << QStringLiteral("<x:y>") << true;
        QTest::newRow("closed by another name") << QStringLiteral("<ul></ol>") << true;
        QTest::newRow("closed within quotes") << QStringLiteral("<ul title=\"</ul>\">") << true;
        QTest::newRow("closed behind a quote within a word") << QStringLiteral("<ul a'><div b'>") << true;
        QTest::newRow("closed within a comment") << QStringLiteral("<ul><!-- </ul> -->") << true;
        QTest::newRow("closed within a comment with one dash") << QStringLiteral("<ul><!-x> </ul> -->") << true;
        QTest::newRow("closed behind a separator") << QStringLiteral("<ul><\u2029/ul>") << true;
        QTest::newRow("behind blanks") << QStringLiteral("< \n\u00A0ul>") << true;
        QTest::newRow("no name behind the slash") << QStringLiteral("<b>a</ b>") << true;
        QTest::newRow("a slash in an attribute") << QStringLiteral("<div title=a/b/>") << false;
        QTest::newRow("paragraphs that nobody closes") << QStringLiteral("<p class=a>a") << false;
        QTest::newRow("closed items") << QStringLiteral("<li>a</li>") << false;
        QTest::newRow("closed behind blanks") << QStringLiteral("<b>a< \n/b >") << false;
        QTest::newRow("closed lists") << QStringLiteral("<UL><li>a<li>b</li></li></ul>") << false;
        QTest::newRow("closed at once") << QStringLiteral("<div/><span class=\"a\" />") << false;
        QTest::newRow("breaks, lines, images") << QStringLiteral("a<br>b<hr><img src='x>'><meta>") << false;
        QTest::newRow("in comments") << QStringLiteral("<!-- <ul> -->") << false;
        QTest::newRow("declarations") << QStringLiteral("<!ul>") << false;
        QTest::newRow("no names") << QStringLiteral("<>< >") << false;
    }

    void more_than_a_thousand_tags_in_each_other_are_not_read()
    {
        QFETCH(QString, unit);
        QFETCH(bool, nests);
        QVERIFY(!IsHtmlBomb(unit.repeated(500)));
        QCOMPARE(IsHtmlBomb(unit.repeated(1001)), nests);
    }

    void the_thousandth_tag_is_read_and_the_next_one_not()
    {
        QVERIFY(!IsHtmlBomb(QStringLiteral("<b>").repeated(1000)));
        QVERIFY(IsHtmlBomb(QStringLiteral("<b>").repeated(1001)));
    }

    void a_comment_that_nobody_closes_hides_the_rest()
    {
        QVERIFY(!IsHtmlBomb(QStringLiteral("<!--") + QStringLiteral("<ul>").repeated(2000)));
    }

    /// Of a copied piece Qt reads nothing that comes before its mark.
    void what_lies_before_a_piece_hides_none_of_it()
    {
        QVERIFY(
            IsHtmlBomb(QStringLiteral("<b title='<!--StartFragment-->") + QStringLiteral("<ul>").repeated(2000) + QStringLiteral("'>")));
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
