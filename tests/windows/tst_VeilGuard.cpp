#include "support/AccessibleEvents.h"
#include "support/EventCounter.h"
#include "support/TestMain.h"

#include <Velmora/QcDialog.h>
#include <Velmora/QcMaskFrame.h>
#include <Velmora/QcMaskWindow.h>
#include <Velmora/Veils.h>

#include <QAction>
#include <QDialog>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QSignalSpy>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// A dialog with three buttons side by side, and above them a veil that lies over the left two.
struct Stage
{
    Stage()
        : veil(new QcMaskFrame(&window))
    {
        window.setGeometry(0, 0, 300, 100);
        for (int i = 0; i < 3; ++i) {
            buttons[i] = new QPushButton(&window);
            buttons[i]->setGeometry(100 * i + 10, 10, 80, 30);
            buttons[i]->setAutoDefault(false);
        }
        veil->setGeometry(0, 0, 200, 100);
        veil->raise();
        veil->hide();
        window.show();
    }

    bool IsActive() { return QTest::qWaitForWindowActive(&window); }
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget()->window()->windowHandle(), key, modifiers);
    }

    QDialog window;
    QPushButton *buttons[3];
    QcMaskFrame *veil;
};

} // namespace

class TestVeilGuard : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_is_off_until_a_host_asks()
    {
        QVERIFY(!VeilsStopKeyboard());
        Stage stage;
        QVERIFY(stage.IsActive());
        stage.buttons[0]->setFocus();
        stage.veil->show();
        QVERIFY(stage.buttons[0]->hasFocus());
        SetVeilsStopKeyboard(true); // one that is shown stays as it was
        Stage::Key(Qt::Key_Tab);
        QVERIFY(stage.buttons[1]->hasFocus());
        QVERIFY(!QAccessible::queryAccessibleInterface(stage.veil)->state().modal);
    }

    void tab_passes_by_what_lies_under_a_veil()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        QVERIFY(stage.IsActive());
        stage.veil->show();
        stage.buttons[2]->setFocus();
        EventCounter told(*stage.buttons[0], QEvent::FocusIn);
        EventCounter left(*stage.buttons[0], QEvent::FocusOut);
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            Stage::Key(key);
            QVERIFY(stage.buttons[2]->hasFocus() || stage.veil->hasFocus());
        }
        QCOMPARE(told.Take(), 0); // it never knew
        QCOMPARE(left.Take(), 0);
        stage.veil->hide();
        stage.buttons[2]->setFocus();
        Stage::Key(Qt::Key_Tab);
        QVERIFY(stage.buttons[0]->hasFocus());
        QCOMPARE(told.Take(), 1);
    }

    void the_keyboard_goes_to_what_stands_on_the_veil_and_comes_back()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        auto *first = new QPushButton(stage.veil);
        auto *second = new QPushButton(stage.veil);
        auto *page = new QWidget(stage.veil); // that passes the keyboard on
        page->setFocusPolicy(Qt::StrongFocus);
        page->setFocusProxy(first);
        QVERIFY(stage.IsActive());
        stage.buttons[1]->setFocus();
        stage.buttons[2]->setEnabled(false);
        stage.veil->show();
        QVERIFY(first->hasFocus());
        Stage::Key(Qt::Key_Tab);
        QVERIFY(second->hasFocus());
        Stage::Key(Qt::Key_Tab);
        QVERIFY(first->hasFocus());
        Stage::Key(Qt::Key_Backtab);
        QVERIFY(second->hasFocus());
        stage.buttons[0]->setFocus(); // by the program
        QVERIFY(first->hasFocus());
        stage.veil->hide();
        QVERIFY(stage.buttons[1]->hasFocus());
    }

    void a_veil_without_controls_has_the_keyboard_itself_and_hands_no_key_down()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        stage.veil->setGeometry(stage.window.rect());
        stage.buttons[0]->setDefault(true);
        QVERIFY(stage.IsActive());
        stage.buttons[0]->setFocus();
        QSignalSpy clicks(stage.buttons[0], &QPushButton::clicked);
        EventCounter presses(stage.window, QEvent::KeyPress);
        EventCounter releases(stage.window, QEvent::KeyRelease);
        EventCounter overrides(stage.window, QEvent::ShortcutOverride);
        stage.veil->show();
        QVERIFY(stage.veil->hasFocus());
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape})
            Stage::Key(key);
        QVERIFY(stage.veil->hasFocus());
        QCOMPARE(clicks.count(), 0);
        QCOMPARE(presses.Take() + releases.Take() + overrides.Take(), 0);
        QVERIFY(stage.window.isVisible());
        delete stage.veil;
        QVERIFY(stage.buttons[0]->hasFocus());
        Stage::Key(Qt::Key_Return);
        QCOMPARE(clicks.count(), 1);
    }

    void shortcuts_do_not_reach_what_lies_under_a_veil()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        stage.buttons[0]->setText(QStringLiteral("&Under"));
        stage.buttons[2]->setText(QStringLiteral("&Beside"));
        auto *action = new QAction(&stage.window);
        action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_A));
        stage.buttons[1]->addAction(action);
        QShortcut ofWindow(QKeySequence(Qt::CTRL | Qt::Key_W), &stage.window);
        QSignalSpy under(stage.buttons[0], &QPushButton::clicked);
        QSignalSpy beside(stage.buttons[2], &QPushButton::clicked);
        QSignalSpy triggered(action, &QAction::triggered);
        QSignalSpy activated(&ofWindow, &QShortcut::activated);
        QVERIFY(stage.IsActive());
        const auto pressAll = [&] {
            Stage::Key(Qt::Key_U, Qt::AltModifier);
            Stage::Key(Qt::Key_B, Qt::AltModifier);
            Stage::Key(Qt::Key_A, Qt::ControlModifier);
            Stage::Key(Qt::Key_W, Qt::ControlModifier);
            QTRY_VERIFY(!stage.buttons[2]->isDown());
        };
        stage.veil->show();
        QCOMPARE(Counts(pressAll, under, beside, triggered, activated), (QVector<int>{0, 1, 0, 1})); // the window is not covered
        stage.veil->setGeometry(stage.window.rect());
        QCOMPARE(Counts(pressAll, under, beside, triggered, activated), (QVector<int>{0, 1, 0, 1}));
        stage.veil->hide();
        QCOMPARE(Counts(pressAll, under, beside, triggered, activated), (QVector<int>{1, 2, 1, 2}));
    }

    void a_shortcut_of_a_menu_counts_as_that_of_what_the_menu_is_of()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        QMenu menu(stage.buttons[1]);
        stage.buttons[1]->addAction(menu.menuAction());
        QAction *action = menu.addAction(QStringLiteral("Item"));
        action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_M));
        QSignalSpy triggered(action, &QAction::triggered);
        QVERIFY(stage.IsActive());
        stage.buttons[2]->setFocus();
        stage.veil->show();
        Stage::Key(Qt::Key_M, Qt::ControlModifier);
        QCOMPARE(triggered.count(), 0);
        stage.veil->hide();
        Stage::Key(Qt::Key_M, Qt::ControlModifier);
        QCOMPARE(triggered.count(), 1);
    }

    void a_shortcut_that_something_free_has_too_is_run()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        auto *action = new QAction(&stage.window);
        action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_A));
        stage.buttons[1]->addAction(action);
        stage.buttons[2]->addAction(action);
        QSignalSpy triggered(action, &QAction::triggered);
        QVERIFY(stage.IsActive());
        stage.buttons[2]->setFocus();
        stage.veil->show();
        Stage::Key(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(triggered.count(), 1);
    }

    void what_reaches_out_of_the_window_or_was_scrolled_away_lies_under_a_veil_too()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        stage.buttons[0]->move(-20, 10);
        QScrollArea area(&stage.window);
        area.setGeometry(100, 40, 100, 60);
        area.setFocusPolicy(Qt::NoFocus);
        auto *page = new QWidget;
        page->resize(80, 600);
        auto *away = new QPushButton(page);
        away->move(0, 500);
        area.setWidget(page);
        stage.veil->raise();
        QVERIFY(stage.IsActive());
        stage.buttons[2]->setFocus();
        stage.veil->show();
        for (QWidget *under : {static_cast<QWidget *>(stage.buttons[0]), static_cast<QWidget *>(away)}) {
            stage.buttons[2]->setFocus();
            under->setFocus();
            QVERIFY(!under->hasFocus());
        }
    }

    void what_was_scrolled_away_beside_a_veil_on_the_same_page_is_free()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        QScrollArea area(&stage.window);
        area.setGeometry(0, 0, 200, 100);
        auto *page = new QWidget;
        page->resize(180, 600);
        auto *under = new QPushButton(page);
        auto *away = new QPushButton(page);
        away->move(0, 500);
        auto *veil = new QcMaskFrame(page);
        veil->setGeometry(0, 0, 180, 200); // over all that shows of the page
        area.setWidget(page);
        area.show();
        QVERIFY(stage.IsActive());
        stage.buttons[2]->setFocus();
        under->setFocus();
        QVERIFY(!under->hasFocus());
        away->setFocus();
        QVERIFY(away->hasFocus());
    }

    void a_veil_that_grows_takes_the_keyboard_from_what_it_comes_over()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        QVERIFY(stage.IsActive());
        stage.buttons[2]->setFocus();
        stage.veil->show();
        QVERIFY(stage.buttons[2]->hasFocus());
        stage.veil->setGeometry(stage.window.rect());
        QVERIFY(stage.veil->hasFocus());
    }

    void a_veil_that_moves_takes_the_keyboard_from_what_it_comes_over()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        QVERIFY(stage.IsActive());
        stage.buttons[2]->setFocus();
        stage.veil->show();
        stage.veil->move(100, 0);
        QVERIFY(stage.veil->hasFocus());
        stage.buttons[0]->setFocus();
        QVERIFY(stage.buttons[0]->hasFocus());
    }

    void a_veil_that_hears_twice_that_it_is_shown_goes_at_once()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        QVERIFY(stage.IsActive());
        stage.veil->show();
        QShowEvent again; // as when a window comes back from the task bar
        QCoreApplication::sendEvent(stage.veil, &again);
        stage.veil->hide();
        QVERIFY(!QAccessible::queryAccessibleInterface(stage.veil)->state().modal);
        stage.buttons[0]->setFocus();
        QVERIFY(stage.buttons[0]->hasFocus());
    }

    void the_keyboard_stays_where_the_program_or_the_user_has_put_it_meanwhile()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        QVERIFY(stage.IsActive());
        stage.buttons[0]->setFocus();
        stage.veil->show();
        stage.buttons[2]->setFocus();
        stage.veil->hide();
        QVERIFY(stage.buttons[2]->hasFocus());
        stage.buttons[0]->setFocus();
        stage.veil->show();
        stage.buttons[0]->hide();
        stage.veil->hide();
        QVERIFY(stage.window.focusWidget() != stage.buttons[0]);
    }

    void the_keyboard_comes_back_to_what_had_it_last()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        QVERIFY(stage.IsActive());
        stage.buttons[0]->setFocus();
        stage.veil->show();
        stage.buttons[2]->setFocus();
        stage.veil->setGeometry(stage.window.rect());
        QVERIFY(stage.veil->hasFocus());
        stage.veil->hide();
        QVERIFY(stage.buttons[2]->hasFocus());
    }

    void what_was_hidden_under_a_veil_gets_no_keyboard()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        auto *page = new QWidget(&stage.window);
        page->setGeometry(0, 40, 200, 60);
        auto *onPage = new QPushButton(page);
        page->show();
        stage.veil->raise();
        QVERIFY(stage.IsActive());
        onPage->setFocus();
        stage.veil->show();
        page->hide();
        stage.veil->hide();
        QVERIFY(!onPage->hasFocus());
        stage.buttons[2]->setFocus();
        page->show();
        QVERIFY(stage.buttons[2]->hasFocus());
    }

    void what_is_above_a_veil_is_reached()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        QVERIFY(stage.IsActive());
        stage.buttons[0]->raise();
        stage.buttons[0]->setFocus();
        stage.veil->show();
        QVERIFY(stage.buttons[0]->hasFocus());
    }

    void two_veils_lie_over_each_other()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        QVERIFY(stage.IsActive());
        stage.buttons[0]->setFocus();
        stage.veil->show();
        QcMaskFrame upper(&stage.window);
        upper.setGeometry(stage.window.rect());
        upper.show();
        QVERIFY(upper.hasFocus());
        stage.veil->setFocus();
        QVERIFY(upper.hasFocus());
        stage.buttons[2]->setFocus();
        QVERIFY(upper.hasFocus());
        upper.hide();
        QVERIFY(!stage.buttons[0]->hasFocus());
        stage.veil->hide();
        QVERIFY(stage.buttons[0]->hasFocus());
    }

    void the_uppermost_of_veils_has_the_keyboard_in_whatever_order_they_came()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        QVERIFY(stage.IsActive());
        stage.buttons[0]->setFocus();
        QcMaskFrame upper(&stage.window);
        auto *button = new QPushButton(&upper);
        auto *lower = new QPushButton(stage.veil);
        upper.setGeometry(stage.window.rect());
        upper.show();
        QVERIFY(button->hasFocus());
        stage.veil->show();
        QVERIFY(button->hasFocus());
        for (QWidget *under :
             {static_cast<QWidget *>(stage.buttons[0]), static_cast<QWidget *>(stage.veil), static_cast<QWidget *>(lower)}) {
            under->setFocus();
            QVERIFY(button->hasFocus());
        }
        upper.hide();
        QVERIFY(lower->hasFocus());
        stage.veil->hide();
        QVERIFY(stage.buttons[0]->hasFocus());
    }

    void a_veil_over_another_one_keeps_the_keyboard_from_the_window_below_both()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        QVERIFY(stage.IsActive());
        stage.buttons[0]->setFocus();
        QcMaskWindow lower(&stage.window);
        QcMaskWindow upper(&lower);
        for (QWidget *veil : {&lower, &upper}) {
            veil->setGeometry(stage.window.geometry());
            veil->show();
            QTRY_VERIFY(veil->hasFocus());
        }
        EventCounter told(*stage.buttons[0], QEvent::FocusIn);
        stage.window.activateWindow();
        stage.buttons[0]->setFocus();
        DrainEvents();
        QTRY_VERIFY(upper.hasFocus());
        QCOMPARE(told.Take(), 0);
    }

    void a_veil_as_a_window_covers_its_parents_window()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        QVERIFY(stage.IsActive());
        stage.buttons[0]->setFocus();
        QcMaskWindow veil(&stage.window);
        veil.setGeometry(stage.window.geometry());
        veil.show();
        QTRY_VERIFY(veil.hasFocus());
        EventCounter told(*stage.buttons[0], QEvent::FocusIn);
        stage.window.activateWindow();
        DrainEvents();
        QTRY_VERIFY(veil.hasFocus());
        QCOMPARE(told.Take(), 0);
        veil.hide();
        stage.window.activateWindow();
        QTRY_VERIFY(stage.buttons[0]->hasFocus());
    }

    void assistive_technology_hears_that_a_veil_is_modal()
    {
        SetVeilsStopKeyboard(true);
        Stage stage;
        stage.window.setWindowTitle(QStringLiteral("Letters"));
        stage.veil->setGeometry(stage.window.rect());
        QVERIFY(stage.IsActive());
        stage.buttons[0]->setFocus();
        const QAccessibleInterface *veil = QAccessible::queryAccessibleInterface(stage.veil);
        QVERIFY(!veil->state().modal);
        AccessibleEvents told(*stage.veil);
        stage.veil->show();
        QVERIFY(veil->state().modal);
        QVERIFY(veil->state().focused);
        QCOMPARE(veil->role(), QAccessible::LayeredPane);
        QCOMPARE(veil->text(QAccessible::Name), QStringLiteral("Letters"));
        stage.veil->setAccessibleName(QStringLiteral("Busy"));
        QCOMPARE(veil->text(QAccessible::Name), QStringLiteral("Busy"));
        QVERIFY(told.Take().contains(QStringLiteral("Focus")));
        stage.buttons[2]->setFocus();
        DrainEvents();
        QCOMPARE(told.Focused(), stage.veil); // the last word, behind Qt's of the button
        stage.veil->hide();
        QVERIFY(!veil->state().modal);
    }

    void assistive_technology_hears_that_a_dialog_is_modal()
    {
        QcDialog dialog;
        const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&dialog);
        QCOMPARE(accessible->role(), QAccessible::Dialog);
        dialog.show();
        QVERIFY(!accessible->state().modal);
        dialog.hide();
        dialog.setModal(true);
        QVERIFY(!accessible->state().modal);
        dialog.show();
        QVERIFY(accessible->state().modal);
    }

protected:
    void TearDown() override { SetVeilsStopKeyboard(false); }

private:
    template <typename Press, typename... Spies>
    static QVector<int> Counts(const Press &press, Spies &...spies)
    {
        press();
        return {int(spies.count())...};
    }
};

VELMORA_TEST_MAIN(TestVeilGuard)

#include "tst_VeilGuard.moc"
