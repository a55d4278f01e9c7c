#include "FeedbackWindow.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/QcDockMask.h>

#include <QTest>

using namespace Velmora;
using namespace VelmoraTest;

class TestQcDockMask : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_is_a_frameless_window_above_all_others_that_shows_what_lies_below()
    {
        QcDockMask mask;
        QCOMPARE(int(mask.windowFlags()), 0x80D);
        QVERIFY(mask.testAttribute(Qt::WA_TranslucentBackground));
        QCOMPARE(mask.windowOpacity(), 1.0);
        QVERIFY(mask.isHidden());
    }

    void it_tints_all_of_itself_in_both_tables()
    {
        QcDockMask mask;
        mask.resize(40, 30);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QColor expected = Over(TokenOf(table, QStringLiteral("brand/brand_bg")));
            const QImage picture = Render(mask);
            COMPARE_COLOR(PixelAt(picture, QPointF(0.5, 0.5)), expected);
            COMPARE_COLOR(PixelAt(picture, QPointF(39.5, 29.5)), expected);
            COMPARE_COLOR(PixelAt(picture, QPointF(20, 15)), expected);
        }
        UseTable(Table::Light);
    }

    void one_on_the_screen_follows_the_colour_table()
    {
        QcDockMask mask;
        mask.resize(40, 30);
        mask.show();
        DrainEvents();
        QVERIFY(FollowsColourTable(mask));
    }

    void it_takes_no_focus()
    {
        QcDockMask mask;
        QVERIFY(LeavesFocusWhenShown(mask));
    }
};

VELMORA_TEST_MAIN(TestQcDockMask)
#include "tst_QcDockMask.moc"
