#include "support/AccessibleEvents.h"
#include "support/Cues.h"
#include "support/EventCounter.h"
#include "support/KeepsHover.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/QcArrowTipGlobal.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcMultiLineText.h>

#include <QApplication>
#include <QCursor>
#include <QEventLoop>
#include <QLabel>
#include <QPushButton>
#include <QTextDocument>
#include <QTimer>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

QcArrowTip *SharedTip()
{
    QcArrowTip *tip = nullptr;
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        auto *candidate = qobject_cast<QcArrowTip *>(widget);
        if (candidate && !candidate->parentWidget()) // which that of a line edit's warning has
            tip = candidate;
    }
    return tip;
}

QString TextOf(const QcArrowTip &tip)
{
    return tip.findChild<QTextDocument *>()->toPlainText();
}

/// A window with two widgets to hover over, far from where their tips come to lie. In the corner of the screen and
/// not far from it, since at any other place the offscreen platform, when it scales, tells the window a wrong position of the cursor.
struct Stage
{
    Stage()
        : first(new QWidget(&window))
        , second(new QWidget(&window))
    {
        window.setGeometry(0, 0, 400, 300);
        first->setGeometry(50, 100, 60, 30);
        second->setGeometry(160, 100, 60, 30);
        window.show();
        new KeepsHover(window); // owned by it
        DrainEvents();
        Hover(QPoint(5, 295));
    }

    void Hover(const QPoint &position) { QCursor::setPos(window.mapToGlobal(position)); }
    void Hover(const QWidget &widget) { Hover(widget.geometry().center()); }

    QWidget window;
    QWidget *first;
    QWidget *second;
};

/// A window whose three buttons Tab reaches one after the other; the first two have tips. No events are processed while one shows:
/// the offscreen platform would activate it.
struct KeyboardStage
{
    KeyboardStage()
        : first(new QPushButton(&window))
        , second(new QPushButton(&window))
        , third(new QPushButton(&window))
    {
        window.setGeometry(0, 0, 400, 300);
        first->setGeometry(50, 100, 60, 30);
        second->setGeometry(160, 100, 60, 30);
        third->setGeometry(270, 100, 60, 30);
        QcArrowTipGlobal::instance()->registerWidget(first, QStringLiteral("One"));
        QcArrowTipGlobal::instance()->registerWidget(second, QStringLiteral("Two"));
        third->setFocus();
        QCursor::setPos(window.mapToGlobal(QPoint(5, 295))); // first: the window may hear at once what the cursor is over
        window.show();
    }

    bool IsActive() { return QTest::qWaitForWindowActive(&window); }
    void Tab() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); }

    QWidget window;
    QPushButton *first;
    QPushButton *second;
    QPushButton *third;
};

} // namespace

class TestQcArrowTipGlobal : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QcArrowTipGlobal::instance(); } // the shared tip lives to the end of the process

    void an_info_has_defaults()
    {
        const TipInfo info;
        QVERIFY(info.text.isEmpty());
        QCOMPARE(info.maxWidth, 100);
        QCOMPARE(info.textColorParams, QStringLiteral("text/text_primary"));
        QCOMPARE(info.direction, QcArrowTip::Bottom);
    }

    void one_tip_is_shared()
    {
        QCOMPARE(QcArrowTipGlobal::instance(), QcArrowTipGlobal::instance());
        QVERIFY(SharedTip());
        QVERIFY(!SharedTip()->parentWidget());
        QVERIFY(!SharedTip()->isVisible());
    }

    void a_tip_is_read_as_the_description_of_its_widget_for_as_long_as_it_is_registered()
    {
        QWidget widget;
        AccessibleEvents events(widget);
        const auto description = [&] { return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Description); };
        QcArrowTipGlobal *tips = QcArrowTipGlobal::instance();
        tips->registerWidget(&widget, QStringLiteral("Saves <b>all</b> files"));
        QCOMPARE(description(), QStringLiteral("Saves all files"));
        QCOMPARE(events.Take(), QStringList(QStringLiteral("DescriptionChanged")));
        tips->registerWidget(&widget, QStringLiteral("Saves all files"));
        QCOMPARE(events.Take(), QStringList());
        tips->registerWidget(&widget, QStringLiteral("Saves one file"));
        QCOMPARE(description(), QStringLiteral("Saves one file"));
        widget.setAccessibleDescription(QString()); // a host that clears it gets it anew
        tips->registerWidget(&widget, TipInfo{QStringLiteral("Saves no file")});
        QCOMPARE(description(), QStringLiteral("Saves no file"));
        tips->unregisterWidget(&widget);
        QCOMPARE(description(), QString());
        tips->registerWidget(&widget, QStringLiteral("Again"));
        tips->registerWidget(&widget, QString());
        QCOMPARE(description(), QString());
        tips->unregisterWidget(&widget);
    }

    void a_description_of_the_hosts_own_stays()
    {
        QWidget before;
        QWidget after;
        QWidget same;
        QcArrowTipGlobal *tips = QcArrowTipGlobal::instance();
        const QString own = QStringLiteral("Own");
        before.setAccessibleDescription(own);
        same.setAccessibleDescription(own);
        tips->registerWidget(&before, QStringLiteral("Tip"));
        tips->registerWidget(&same, own);
        tips->registerWidget(&after, QStringLiteral("Tip"));
        after.setAccessibleDescription(own);
        tips->registerWidget(&after, QStringLiteral("Another tip"));
        for (QWidget *widget : {&before, &after, &same}) {
            QCOMPARE(widget->accessibleDescription(), own);
            tips->unregisterWidget(widget);
            QCOMPARE(widget->accessibleDescription(), own);
        }
    }

    void it_shows_while_the_mouse_is_over_a_registered_widget()
    {
        Stage stage;
        QcArrowTipGlobal::instance()->registerWidget(stage.first, QStringLiteral("One"));
        TipInfo info;
        info.text = QStringLiteral("A second tip whose text is a long one");
        info.maxWidth = 150;
        info.direction = QcArrowTip::Top;
        QcArrowTipGlobal::instance()->registerWidget(stage.second, info);
        QVERIFY(!SharedTip()->isVisible());

        stage.Hover(*stage.first);
        QTRY_VERIFY(SharedTip()->isVisible());
        QCOMPARE(TextOf(*SharedTip()), QStringLiteral("One"));
        QTRY_COMPARE(SharedTip()->geometry().bottom() + 1 + 8, stage.first->mapToGlobal(QPoint(0, 0)).y());
        stage.Hover(QPoint(5, 295));
        QTRY_VERIFY(!SharedTip()->isVisible());

        stage.Hover(*stage.second);
        QTRY_VERIFY(SharedTip()->isVisible());
        QCOMPARE(TextOf(*SharedTip()), info.text);
        QTRY_COMPARE(SharedTip()->width(), 178);
        QTRY_COMPARE(SharedTip()->y(), stage.second->mapToGlobal(QPoint(0, 30 + 8)).y());
        stage.Hover(*stage.first);
        QTRY_COMPARE(TextOf(*SharedTip()), QStringLiteral("One"));
        QVERIFY(SharedTip()->isVisible());
    }

    void its_text_has_the_colour_of_the_info()
    {
        Stage stage;
        TipInfo info;
        info.text = QString(4, QChar(0x2588));
        info.textColorParams = QStringLiteral("tip/danger");
        QcArrowTipGlobal::instance()->registerWidget(stage.first, info);
        info.textColorParams = QStringLiteral("brand/brand");
        QcArrowTipGlobal::instance()->registerWidget(stage.second, info);
        const auto colorOver = [&stage](const QWidget &widget) {
            stage.Hover(QPoint(5, 295));
            DrainEvents();
            stage.Hover(widget);
            DrainEvents();
            const QImage bubble = Part(Render(*SharedTip()), QRectF(QPointF(8, 8), QSizeF(SharedTip()->size() - QSize(16, 16))));
            return MainInk(bubble, TokenOf(Table::Light, QStringLiteral("base/neutral/neutral_invert")));
        };
        COMPARE_COLOR(colorOver(*stage.first), TokenOf(Table::Light, QStringLiteral("tip/danger")));
        COMPARE_COLOR(colorOver(*stage.second), TokenOf(Table::Light, QStringLiteral("brand/brand")));
    }

    void registering_again_replaces_the_info()
    {
        Stage stage;
        QcArrowTipGlobal::instance()->registerWidget(stage.first, QStringLiteral("One"));
        QcArrowTipGlobal::instance()->registerWidget(stage.first, QStringLiteral("Two"));
        stage.Hover(*stage.first);
        QTRY_VERIFY(SharedTip()->isVisible());
        QCOMPARE(TextOf(*SharedTip()), QStringLiteral("Two"));

        QcArrowTipGlobal::instance()->unregisterWidget(stage.first); // once is enough after registering twice
        stage.Hover(QPoint(5, 295));
        DrainEvents();
        QVERIFY(SharedTip()->isVisible()); // no longer its widget
        stage.Hover(*stage.first);
        DrainEvents();
        QCOMPARE(TextOf(*SharedTip()), QStringLiteral("Two"));
    }

    void an_unregistered_widget_has_no_tip()
    {
        Stage stage;
        QcArrowTipGlobal::instance()->registerWidget(stage.first, QStringLiteral("One"));
        QcArrowTipGlobal::instance()->unregisterWidget(stage.first);
        QcArrowTipGlobal::instance()->unregisterWidget(stage.second); // never was
        stage.Hover(*stage.first);
        DrainEvents();
        QVERIFY(!SharedTip()->isVisible());
    }

    void null_is_ignored()
    {
        QcArrowTipGlobal::instance()->registerWidget(nullptr, QStringLiteral("One"));
        QcArrowTipGlobal::instance()->registerWidget(nullptr, TipInfo());
        QcArrowTipGlobal::instance()->unregisterWidget(nullptr);
        Stage stage;
        stage.Hover(*stage.first);
        DrainEvents();
        QVERIFY(!SharedTip()->isVisible());
    }

    void a_widget_that_dies_under_the_mouse_leaves_the_tip_until_another_is_left()
    {
        Stage stage;
        QcArrowTipGlobal::instance()->registerWidget(stage.first, QStringLiteral("One"));
        QcArrowTipGlobal::instance()->registerWidget(stage.second, QStringLiteral("Two"));
        stage.Hover(*stage.first);
        QTRY_VERIFY(SharedTip()->isVisible());
        delete stage.first;
        DrainEvents();
        QVERIFY(SharedTip()->isVisible());
        stage.Hover(*stage.second);
        QTRY_COMPARE(TextOf(*SharedTip()), QStringLiteral("Two"));
        stage.Hover(QPoint(5, 295));
        QTRY_VERIFY(!SharedTip()->isVisible());
    }

    void a_tip_whose_widget_died_points_at_nothing()
    {
        Stage stage;
        QcArrowTipGlobal::instance()->registerWidget(stage.first, QStringLiteral("One"));
        stage.Hover(*stage.first);
        QTRY_VERIFY(SharedTip()->isVisible());
        delete stage.first;
        DrainEvents();
        SharedTip()->move(7, 7);
        stage.window.move(110, 110);
        SharedTip()->resize(SharedTip()->size() + QSize(1, 1)); // asks for a placement
        QEventLoop placed;
        QTimer::singleShot(2, &placed, &QEventLoop::quit); // timers run in the order of their ends
        placed.exec();
        QCOMPARE(SharedTip()->pos(), QPoint(7, 7));
    }

    void many_widgets_may_die_registered()
    {
        for (int round = 0; round < 3; ++round) {
            QWidget window;
            for (int i = 0; i < 200; ++i)
                QcArrowTipGlobal::instance()->registerWidget(new QWidget(&window), QString::number(i));
        }
        Stage stage; // whose widgets may have the addresses of dead ones
        stage.Hover(*stage.first);
        DrainEvents();
        QVERIFY(!SharedTip()->isVisible());
    }

    void it_shows_for_what_tab_reaches_with_keyboard_cues()
    {
        const Cues cues;
        KeyboardStage stage;
        QVERIFY(stage.IsActive());
        QVERIFY(!SharedTip()->isVisible());
        stage.Tab();
        QVERIFY(SharedTip()->isVisible());
        QCOMPARE(TextOf(*SharedTip()), QStringLiteral("One"));
        stage.Tab();
        QVERIFY(SharedTip()->isVisible());
        QCOMPARE(TextOf(*SharedTip()), QStringLiteral("Two"));
        stage.Tab();
        QVERIFY(stage.third->hasFocus());
        QVERIFY(!SharedTip()->isVisible());
        QTest::keyClick(stage.third, Qt::Key_Backtab);
        QVERIFY(SharedTip()->isVisible());
        QCOMPARE(TextOf(*SharedTip()), QStringLiteral("Two"));
        SetKeyboardCuesEnabled(false);
        QVERIFY(!SharedTip()->isVisible());
    }

    void it_shows_for_what_a_key_of_a_label_reaches()
    {
        const Cues cues;
        KeyboardStage stage;
        QLabel label(QStringLiteral("&Next"), &stage.window);
        label.setBuddy(stage.second);
        label.show();
        QVERIFY(stage.IsActive());
        QTest::keyClick(&stage.window, Qt::Key_N, Qt::AltModifier);
        QVERIFY(stage.second->hasFocus());
        QVERIFY(SharedTip()->isVisible());
        QCOMPARE(TextOf(*SharedTip()), QStringLiteral("Two"));
    }

    void without_keyboard_cues_it_shows_for_the_mouse_alone()
    {
        KeyboardStage stage;
        QVERIFY(stage.IsActive());
        for (QPushButton *button : {stage.first, stage.second, stage.third}) {
            stage.Tab();
            QVERIFY(button->hasFocus());
            QVERIFY(!SharedTip()->isVisible());
        }
    }

    void it_shows_for_the_edit_in_a_registered_frame()
    {
        const Cues cues;
        KeyboardStage stage;
        auto *frame = new QcLineEditFrame(&stage.window);
        frame->setGeometry(50, 200, 200, 32);
        QcArrowTipGlobal::instance()->registerWidget(frame, QStringLiteral("Four"));
        frame->show();
        QVERIFY(stage.IsActive());
        stage.third->setFocus();
        stage.Tab();
        QVERIFY(frame->isAncestorOf(QApplication::focusWidget()));
        QVERIFY(SharedTip()->isVisible());
        QCOMPARE(TextOf(*SharedTip()), QStringLiteral("Four"));
    }

    void escape_takes_it_away_and_does_what_it_does()
    {
        const Cues cues;
        KeyboardStage stage;
        EventCounter keys(*stage.first, QEvent::KeyPress);
        QVERIFY(stage.IsActive());
        stage.Tab();
        QVERIFY(SharedTip()->isVisible());
        QTest::keyClick(stage.first, Qt::Key_A);
        QVERIFY(SharedTip()->isVisible());
        QTest::keyClick(stage.first, Qt::Key_Escape);
        QVERIFY(!SharedTip()->isVisible());
        QCOMPARE(keys.Take(), 2);
        QVERIFY(stage.first->hasFocus());
    }

    void a_press_of_the_mouse_takes_it_away()
    {
        const Cues cues;
        KeyboardStage stage;
        QVERIFY(stage.IsActive());
        stage.Tab();
        QVERIFY(SharedTip()->isVisible());
        QTest::mousePress(&stage.window, Qt::LeftButton, Qt::NoModifier, QPoint(5, 290));
        QVERIFY(!SharedTip()->isVisible());
        QTest::mouseRelease(&stage.window, Qt::LeftButton, Qt::NoModifier, QPoint(5, 290));
        stage.second->setFocus(Qt::MouseFocusReason);
        QVERIFY(!SharedTip()->isVisible());
        stage.first->setFocus(); // by the program
        QVERIFY(!SharedTip()->isVisible());
    }

    void the_mouse_leaves_the_tip_of_the_keyboard_alone()
    {
        const Cues cues;
        KeyboardStage stage;
        QVERIFY(stage.IsActive());
        stage.Tab();
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(stage.second, &leave);
        QVERIFY(SharedTip()->isVisible());
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QApplication::sendEvent(stage.second, &enter);
        QCOMPARE(TextOf(*SharedTip()), QStringLiteral("Two"));
        QApplication::sendEvent(stage.second, &leave);
        QVERIFY(!SharedTip()->isVisible());
    }

    void it_goes_with_what_had_the_keyboard()
    {
        const Cues cues;
        KeyboardStage stage;
        QVERIFY(stage.IsActive());
        stage.Tab();
        QVERIFY(SharedTip()->isVisible());
        delete stage.first;
        QVERIFY(!SharedTip()->isVisible());
    }

    void a_host_may_delete_the_tip() // the last test, since it leaves none
    {
        Stage stage;
        QcArrowTipGlobal::instance()->registerWidget(stage.first, QStringLiteral("One"));
        stage.Hover(*stage.first);
        QTRY_VERIFY(SharedTip()->isVisible());
        delete SharedTip();
        stage.Hover(QPoint(5, 295));
        DrainEvents();
        QVERIFY(!SharedTip());
        stage.Hover(*stage.first);
        QTRY_VERIFY(SharedTip());
        QTRY_VERIFY(SharedTip()->isVisible());
        QCOMPARE(TextOf(*SharedTip()), QStringLiteral("One"));
        delete SharedTip();
    }

    void a_host_may_delete_the_tip_while_it_takes_its_text() // leaves none either
    {
        Stage stage;
        QcArrowTipGlobal::instance()->registerWidget(stage.first, QStringLiteral("One"));
        QcArrowTipGlobal::instance()->registerWidget(stage.second, QStringLiteral("One<br>Two"));
        stage.Hover(*stage.first);
        QTRY_VERIFY(SharedTip());
        stage.Hover(QPoint(5, 295));
        QTRY_VERIFY(!SharedTip()->isVisible());
        connect(SharedTip()->findChild<QcMultiLineText *>(), &QcMultiLineText::signalHeightChanged, this, [] { delete SharedTip(); });
        stage.Hover(*stage.second);
        DrainEvents();
        QVERIFY(!SharedTip());
        stage.Hover(*stage.first);
        QTRY_VERIFY(SharedTip());
        QCOMPARE(TextOf(*SharedTip()), QStringLiteral("One"));
        delete SharedTip();
    }

protected:
    void TearDown() override
    {
        if (SharedTip())
            SharedTip()->hide();
    }
};

VELMORA_TEST_MAIN(TestQcArrowTipGlobal)

#include "tst_QcArrowTipGlobal.moc"
