#include <Velmora/QcIconButton.h>

#include "TabStage.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <QDialog>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPainter>
#include <QSignalSpy>
#include <QToolTip>

#include <ctime>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// Blocks, whose colour is the text's wherever one looks.
QString Blocks(int count)
{
    return QString(count, QChar(0x2588));
}

class TabPart
{
public:
    TabPart() { tab.setGeometry(0, 0, 200, 30); }

    QLabel *Label() const { return PartOf<QLabel>(tab, "m_textLabel"); }
    QcIconButton *Close() const { return PartOf<QcIconButton>(tab, "m_closeButton"); }

    QcDockAreaTabBarButton tab;
};

} // namespace

class TestQcDockAreaTabBarButton : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void is_built_of_named_parts()
    {
        const TabPart part;
        QVERIFY(part.tab.isCheckable());
        QVERIFY(part.tab.isFlat());
        QCOMPARE(part.tab.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(part.tab.sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(part.tab.layout()->contentsMargins(), QMargins(8, 0, 28, 0));
        QCOMPARE(part.tab.layout()->spacing(), 0);
        QCOMPARE(part.tab.layout()->count(), 1);
        QCOMPARE(part.tab.getTabIndex(), -1);
        QCOMPARE(part.Close()->maximumSize(), QSize(24, 24));
        QVERIFY(part.Close()->isHidden());
    }

    void the_close_button_shows_its_icon()
    {
        const TabPart part;
        DrainEvents();
        const QImage picture = PictureOf(QStringLiteral(":/images/dock/tab_close.svg"));
        QVERIFY(picture != PictureOf(QString()));
        QCOMPARE(Render(*part.Close()), picture);
    }

    void the_title_is_that_of_the_label()
    {
        TabPart part;
        part.tab.setText(QStringLiteral("<b>Map</b>"));
        QCOMPARE(part.Label()->text(), QStringLiteral("<b>Map</b>"));
        QCOMPARE(part.Label()->textFormat(), Qt::PlainText);
        QCOMPARE(part.tab.QAbstractButton::text(), QString());
        part.tab.setTabIndex(4);
        QCOMPARE(part.tab.getTabIndex(), 4);
    }

    void the_close_button_shows_while_the_tab_is_checked()
    {
        TabPart part;
        part.tab.show();
        part.tab.setChecked(true);
        QVERIFY(part.Close()->isVisible());
        QCOMPARE(part.Close()->geometry(), QRect(200 - 4 - 24, 3, 24, 24));
        const QSignalSpy clicks(&part.tab, &QcDockAreaTabBarButton::signalCloseButtonClicked);
        part.Close()->click();
        QCOMPARE(clicks.count(), 1);
        part.tab.setChecked(false);
        QVERIFY(!part.Close()->isVisible());
    }

    void the_close_button_stays_at_the_right_from_right_to_left()
    {
        QWidget row;
        row.setLayoutDirection(Qt::RightToLeft);
        auto *tab = new QcDockAreaTabBarButton(&row);
        tab->setGeometry(0, 0, 200, 30);
        tab->setChecked(true);
        row.show();
        QCOMPARE(PartOf(*tab, "m_closeButton")->x(), 200 - 4 - 24);
        QCOMPARE(PartOf(*tab, "m_textLabel")->geometry(), QRect(8, 0, 164, 30));
    }

    void a_checked_tab_is_filled_and_an_unchecked_one_is_not()
    {
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            TabPart part;
            part.tab.show();
            COMPARE_COLOR(PixelAt(Render(part.tab, Qt::green), QPointF(3.5, 15.5)), QColor(Qt::green));
            part.tab.setChecked(true);
            const QColor ground = TokenOf(table, QStringLiteral("bg/bg_primary"));
            COMPARE_COLOR(PixelAt(Render(part.tab, Qt::green), QPointF(3.5, 15.5)), Over(ground, Qt::green));
        }
        UseTable(Table::Light);
    }

    void a_title_has_the_colour_of_its_state_and_fades_out_at_its_end()
    {
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            for (const bool isChecked : {false, true}) {
                TabPart part;
                part.tab.setText(Blocks(60));
                part.tab.setChecked(isChecked);
                part.tab.show();
                const QString ink = isChecked ? QStringLiteral("text/text_caption") : QStringLiteral("text/text_secondary");
                const QString ground = isChecked ? QStringLiteral("bg/bg_primary") : QStringLiteral("bg/bg_unselected");
                const QColor under = isChecked ? Over(TokenOf(table, ground), Qt::green) : QColor(Qt::green);
                const QImage image = Render(part.tab, Qt::green);
                const QColor text = Over(TokenOf(table, ink), under);
                COMPARE_COLOR(MainInk(Part(image, QRectF(20, 10, 60, 10)), under), text);
                // The label ends at 172. Its last 16 pixels fade into the tab's ground.
                QColor opaque = TokenOf(table, ground);
                opaque.setAlpha(255);
                QVERIFY(IsBetween(PixelAt(image, QPointF(164.5, 15.5)), text, opaque));
                QVERIFY(VelmoraTest::Close(PixelAt(image, QPointF(171.5, 15.5)), opaque, 12));
                COMPARE_COLOR(PixelAt(image, QPointF(173.5, 5.5)), under);
            }
        }
        UseTable(Table::Light);
    }

    void a_title_is_painted_in_its_font_from_the_left_and_amid_its_height_data()
    {
        QTest::addColumn<QString>("title");
        QTest::newRow("from left to right") << QStringLiteral("Quite bold");
        QTest::newRow("from right to left") << QString::fromUtf8("שלום");
    }
    void a_title_is_painted_in_its_font_from_the_left_and_amid_its_height()
    {
        QFETCH(QString, title);
        TabPart part;
        part.tab.setText(title);
        part.tab.show();
        QFont font;
        font.setFamilies({QStringLiteral("Roboto"), QStringLiteral("Microsoft YaHei UI")});
        font.setWeight(QFont::Bold);
        font.setPixelSize(14);
        QImage expected = Canvas(*part.Label());
        {
            QPainter painter(&expected);
            painter.setFont(font);
            painter.setPen(TokenOf(Table::Light, QStringLiteral("text/text_secondary")));
            painter.drawText(QRect(0, 0, 164, 30), Qt::AlignLeft | Qt::AlignVCenter, title);
        }
        QVERIFY(!InkBox(expected, Qt::white).isEmpty());
        const QRectF unfaded(0, 0, 164 - 16, 30);
        QCOMPARE(Part(Render(*part.Label()), unfaded), Part(expected, unfaded));
    }

    void a_line_parts_a_tab_from_the_next()
    {
        TabPart part;
        part.tab.show();
        QCOMPARE(PixelAt(Render(part.tab, Qt::black), QPointF(199.5, 15)), QColor(Qt::black));
        part.tab.setDrawLine(true);
        const QImage image = Render(part.tab, Qt::black);
        COMPARE_COLOR(PixelAt(image, QPointF(199.5, 15)), Over(QColor(255, 255, 255, 92), Qt::black));
        // From 7 pixels above the middle to 7 below, both ends included.
        COMPARE_COLOR(PixelAt(image, QPointF(199.5, 8.5)), Over(QColor(255, 255, 255, 92), Qt::black));
        COMPARE_COLOR(PixelAt(image, QPointF(199.5, 22.5)), Over(QColor(255, 255, 255, 92), Qt::black));
        COMPARE_COLOR(PixelAt(image, QPointF(199.5, 7.2)), QColor(Qt::black));
        COMPARE_COLOR(PixelAt(image, QPointF(199.5, 23.8)), QColor(Qt::black));
        COMPARE_COLOR(PixelAt(image, QPointF(198.2, 15)), QColor(Qt::black));
    }

    void what_has_changed_is_painted_anew_and_nothing_else()
    {
        TabPart part;
        part.tab.show();
        DrainEvents();
        EventCounter titles(*part.Label(), QEvent::Paint);
        EventCounter tabs(part.tab, QEvent::Paint);
        part.tab.setDrawLine(true);
        DrainEvents();
        QCOMPARE(tabs.Take(), 1);
        part.tab.setText(QStringLiteral("Map"));
        DrainEvents();
        QCOMPARE(tabs.Take(), 1);
        titles.Take();
        part.tab.setChecked(true);
        DrainEvents();
        QCOMPARE(titles.Take(), 1); // in another colour
        tabs.Take();
        part.tab.setDrawLine(true);
        part.tab.setText(QStringLiteral("Map"));
        DrainEvents();
        QCOMPARE(tabs.Take(), 0);
    }

    void enter_in_a_dialog_selects_no_tab()
    {
        QDialog dialog;
        auto *edit = new QLineEdit(&dialog);
        auto *tab = new QcDockAreaTabBarButton(&dialog);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_Return);
        QVERIFY(!tab->isChecked());
    }

    void the_tab_with_the_focus_has_a_ring()
    {
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            TabPart part;
            part.tab.setChecked(true);
            part.tab.show();
            QVERIFY(QTest::qWaitForWindowActive(&part.tab));
            part.tab.clearFocus();
            const QColor ring = Over(TokenOf(table, QStringLiteral("brand/brand")), TokenOf(table, QStringLiteral("bg/bg_primary")));
            const QImage plain = Render(part.tab);
            part.tab.setFocus(Qt::TabFocusReason);
            const QImage focused = Render(part.tab);
            for (const QPointF &edge : {QPointF(100.5, 0.5), QPointF(100.5, 29.5), QPointF(0.5, 15.5), QPointF(199.5, 15.5)}) {
                QVERIFY(!VelmoraTest::Close(PixelAt(plain, edge), ring));
                COMPARE_COLOR(PixelAt(focused, edge), ring);
            }
            COMPARE_COLOR(PixelAt(focused, QPointF(3.5, 3.5)), PixelAt(plain, QPointF(3.5, 3.5)));
        }
        UseTable(Table::Light);
    }

    void a_click_leaves_the_focus_where_it_was()
    {
        TabPart part;
        QCOMPARE(part.tab.focusPolicy(), Qt::NoFocus);
        part.tab.setChecked(true);
        QCOMPARE(part.tab.focusPolicy(), Qt::TabFocus);
        QCOMPARE(part.Close()->focusPolicy(), Qt::TabFocus);
    }

    void a_title_that_fades_is_told_in_a_tip()
    {
        TabPart part;
        part.tab.show();
        part.tab.setText(QStringLiteral("A & <b> title that is much longer than its tab is wide"));
        Help(part.tab);
        QCOMPARE(QToolTip::text(), QStringLiteral("A &amp; &lt;b&gt; title that is much longer than its tab is wide"));
        part.tab.setText(QStringLiteral("Short"));
        Help(part.tab);
        QTRY_COMPARE(QToolTip::text(), QString());
        part.tab.setToolTip(QStringLiteral("The host's"));
        Help(part.tab);
        QTRY_COMPARE(QToolTip::text(), QStringLiteral("The host's"));
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
        DrainEvents();
    }

    void an_enormous_title_is_painted_in_no_time()
    {
        TabPart part;
        part.tab.show();
        part.tab.setText(QString(4000000, QLatin1Char('x')));
        const std::clock_t start = std::clock(); // of this program alone, however busy the machine is
        Render(*part.Label());
        QVERIFY(std::clock() - start < CLOCKS_PER_SEC / 2);
    }

private:
    static void Help(QWidget &widget)
    {
        QHelpEvent help(QEvent::ToolTip, QPoint(20, 15), widget.mapToGlobal(QPoint(20, 15)));
        QCoreApplication::sendEvent(&widget, &help);
    }
};

VELMORA_TEST_MAIN(TestQcDockAreaTabBarButton)
#include "tst_QcDockAreaTabBarButton.moc"
