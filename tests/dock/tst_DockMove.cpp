#include "dock/DockMove_p.h"
#include "dock/DockTestCase.h"
#include "dock/DragStage.h"

#include "support/AccessibleEvents.h"
#include "support/CallAt.h"
#include "support/Cues.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/QcDockAreaTabBarButton.h>
#include <Velmora/QcMenu.h>

#include <QAccessible>
#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

QMenu *OpenMenu()
{
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

QStringList ItemsOf(const QMenu &menu)
{
    QStringList items;
    const auto actions = menu.actions();
    for (const QAction *action : actions)
        items.append(action->isSeparator() ? QStringLiteral("-")
                                           : action->text() + (action->isEnabled() ? QString() : QStringLiteral(" (off)")));
    return items;
}

QAction *ItemOf(const QMenu &menu, const QString &text)
{
    const auto actions = menu.actions();
    for (QAction *action : actions)
        if (action->text() == text)
            return action;
    return nullptr;
}

/// Chooses an item as its user does.
void Choose(QMenu &menu, const QString &text)
{
    menu.setActiveAction(ItemOf(menu, text));
    QTest::keyClick(&menu, Qt::Key_Return);
    DrainEvents();
}

QString SpokenChoice()
{
    const auto labels = DragStage::Indicator()->findChildren<QLabel *>();
    for (QLabel *label : labels)
        if (label->accessibleName().contains(QLatin1String(" of "), Qt::CaseSensitive)
            && label->accessibleName().contains(QLatin1Char(',')))
            return label->accessibleName();
    return {};
}

struct Edit : QLineEdit
{
    using QLineEdit::QLineEdit;
    int keys = 0;
    void keyPressEvent(QKeyEvent *event) override
    {
        ++keys;
        QLineEdit::keyPressEvent(event);
    }
};

} // namespace

class TestDockMove : public DragTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_panel_can_float_move_and_close_by_its_menu()
    {
        NeighbourStage stage;
        QcDockWidget *third = stage.Add(3, stage.right, Center);
        OpenDockMenu(stage.right);
        QVERIFY(OpenMenu());
        QCOMPARE(ItemsOf(*OpenMenu()),
                 QStringList({QStringLiteral("Float"), QStringLiteral("Move to"), QStringLiteral("Close"), QStringLiteral("-"),
                              QStringLiteral("Type 2"), QStringLiteral("Type 3 (off)")}));
        const QMenu *moves = ItemOf(*OpenMenu(), QStringLiteral("Move to"))->menu();
        QCOMPARE(ItemsOf(*moves), QStringList({QStringLiteral("Type 1"), QStringLiteral("Type 3")}));
        Choose(*OpenMenu(), QStringLiteral("Type 2"));
        QVERIFY(stage.right->isVisible());

        OpenDockMenu(stage.left);
        QCOMPARE(ItemsOf(*OpenMenu()), QStringList({QStringLiteral("Float"), QStringLiteral("Move to"), QStringLiteral("Close")}));
        QCOMPARE(ItemsOf(*ItemOf(*OpenMenu(), QStringLiteral("Move to"))->menu()), QStringList({QStringLiteral("Type 2")}));
        OpenMenu()->close();
        Q_UNUSED(third)
    }

    void the_menu_opens_by_its_keys_on_a_tab_a_title_row_and_in_the_contents()
    {
        DragStage stage;
        QcDockWidget *left = stage.Add(1);
        auto *edit = new Edit(stage.Add(2, left, Center)->getContentWidget());
        edit->show();
        stage.window.activateWindow();
        QTRY_VERIFY(stage.window.isActiveWindow());

        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_F10, Qt::AltModifier);
        QVERIFY(!OpenMenu());
        QTest::keyClick(edit, Qt::Key_F10, Qt::AltModifier | Qt::ShiftModifier);
        QVERIFY(OpenMenu());
        OpenMenu()->close();

        auto *tab = stage.root->findChild<QcDockAreaTabBarButton *>();
        tab->setFocus();
        QTest::keyClick(tab, Qt::Key_F10, Qt::AltModifier | Qt::ShiftModifier);
        QVERIFY(OpenMenu());
        OpenMenu()->close();

        QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(1, 1), tab->mapToGlobal(QPoint(1, 1)));
        QCoreApplication::sendEvent(tab, &byKey);
        QVERIFY(OpenMenu());
        OpenMenu()->close();
        QContextMenuEvent byMouse(QContextMenuEvent::Mouse, QPoint(1, 1), tab->mapToGlobal(QPoint(1, 1)));
        QCoreApplication::sendEvent(tab, &byMouse);
        QVERIFY(!OpenMenu());

        // A content's own menu is the content's.
        QWidget plain(edit->parentWidget());
        plain.setFocusPolicy(Qt::StrongFocus);
        plain.show();
        plain.setFocus();
        stage.window.activateWindow();
        QTRY_VERIFY(plain.hasFocus());
        QCoreApplication::sendEvent(&plain, &byKey);
        QVERIFY(!OpenMenu());

        QcDockWidget *floating = stage.Float(3);
        QTest::keyClick(floating, Qt::Key_F10, Qt::AltModifier | Qt::ShiftModifier);
        QVERIFY(OpenMenu());
        OpenMenu()->close();
        QCoreApplication::sendEvent(floating, &byKey);
        QVERIFY(OpenMenu());
        OpenMenu()->close();
        DrainEvents();
    }

    void floating_one_of_several_leaves_the_others_where_they_are()
    {
        DragStage stage;
        QcDockWidget *left = stage.Add(1);
        QcDockWidget *second = stage.Add(2, left, Center);
        QcDockWidget *third = stage.Add(3, left, Center);
        const QPoint corner = third->mapToGlobal(QPoint(0, 0));
        OpenDockMenu(third);
        Choose(*OpenMenu(), QStringLiteral("Float"));
        QVERIFY(third->isFloating());
        QVERIFY(third->isVisible());
        QCOMPARE(third->pos(), corner);
        QCOMPARE(third->property("window"), QVariant(true));
        QCOMPARE(AreaOf(*left)->count(), 2);
        QCOMPARE(AreaOf(*second), AreaOf(*left));
        VERIFY_SETTLED();

        OpenDockMenu(third);
        QVERIFY(!ItemOf(*OpenMenu(), QStringLiteral("Float"))->isEnabled());
        OpenMenu()->close();
    }

    void a_panel_closes_by_its_menu_if_its_title_row_lets_it()
    {
        DragStage stage;
        QcDockWidget *left = stage.Add(1);
        const QPointer<QcDockWidget> right = stage.Add(2, left, Right);
        left->getContentWidget()->setProperty("dock_widget_close_forbidden", false);
        left->setContentWidget(left->getContentWidget()); // is read anew
        OpenDockMenu(left);
        QVERIFY(!ItemOf(*OpenMenu(), QStringLiteral("Close"))->isEnabled());
        OpenMenu()->close();
        OpenDockMenu(right);
        Choose(*OpenMenu(), QStringLiteral("Close"));
        QTRY_VERIFY(!right);
        VERIFY_SETTLED();
    }

    void a_close_button_that_stays_disabled_says_so_in_the_menu_too()
    {
        DragStage stage;
        QcDockWidget *panel = stage.Add(1);
        panel->getContentWidget()->setProperty("dock_widget_close_forbidden", true);
        panel->setContentWidget(panel->getContentWidget());
        panel->setContentWidget(new QWidget);
        OpenDockMenu(panel);
        QVERIFY(!ItemOf(*OpenMenu(), QStringLiteral("Close"))->isEnabled());
        OpenMenu()->close();
    }

    void a_menu_goes_with_its_panel()
    {
        DragStage stage;
        QcDockWidget *panel = stage.Add(1);
        OpenDockMenu(panel);
        const QPointer<QWidget> menu = OpenMenu();
        delete panel;
        QVERIFY(!menu);
        QVERIFY(!OpenMenu());
        VERIFY_SETTLED();
    }

    void what_a_menu_names_may_be_gone_when_it_is_chosen_data()
    {
        QTest::addColumn<QString>("item");
        QTest::newRow("a tab") << QStringLiteral("Type 1");
        QTest::newRow("an area to move to") << QStringLiteral("Type 3");
    }
    void what_a_menu_names_may_be_gone_when_it_is_chosen()
    {
        QFETCH(QString, item);
        DragStage stage;
        QcDockWidget *first = stage.Add(1);
        QcDockWidget *second = stage.Add(2, first, Center);
        QcDockWidget *third = stage.Add(3, first, Right);
        OpenDockMenu(second);
        QMenu *menu = OpenMenu();
        QMenu *moves = ItemOf(*menu, QStringLiteral("Move to"))->menu();
        QAction *chosen = ItemOf(item == QLatin1String("Type 1") ? *menu : *moves, item);
        delete AreaOf(*third);
        delete first;
        chosen->trigger();
        menu->close();
        QVERIFY(second->isVisible());
        QVERIFY(!DragStage::Indicator()->isVisible());
        VERIFY_SETTLED();
    }

    void a_panel_may_die_of_the_look_of_a_window()
    {
        DragStage stage;
        stage.Add(1);
        const QPointer<QcDockWidget> panel = stage.Add(2);
        OpenDockMenu(panel);
        const CallAt listener(*panel, QEvent::DynamicPropertyChange, [panel] { delete panel; });
        ItemOf(*OpenMenu(), QStringLiteral("Float"))->trigger();
        QVERIFY(!panel);
        VERIFY_SETTLED();
    }

    void an_ampersand_in_a_title_is_read_as_it_stands()
    {
        NeighbourStage stage;
        stage.right->getContentWidget()->setWindowTitle(QStringLiteral("Find & replace"));
        OpenDockMenu(stage.left);
        QCOMPARE(ItemsOf(*ItemOf(*OpenMenu(), QStringLiteral("Move to"))->menu()), QStringList({QStringLiteral("Find && replace")}));
        OpenMenu()->close();
    }

    void with_keyboard_cues_a_title_gives_its_item_the_key_of_its_tab()
    {
        DragStage stage;
        QcDockWidget *left = stage.Add(1);
        QcDockWidget *right = stage.Add(2, left, Right);
        right->getContentWidget()->setWindowTitle(QStringLiteral("&Find"));
        const Cues cues;
        OpenDockMenu(left);
        QCOMPARE(ItemsOf(*ItemOf(*OpenMenu(), QStringLiteral("Move to"))->menu()), QStringList({QStringLiteral("&Find")}));
        OpenMenu()->close();
    }

    void arrows_choose_a_place_and_return_drops_there_data()
    {
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<int>("place");
        QTest::newRow("centre") << QList<int>() << int(Center);
        QTest::newRow("left") << QList<int>{Qt::Key_Left} << int(Left);
        QTest::newRow("outer left") << QList<int>{Qt::Key_Left, Qt::Key_Left, Qt::Key_Left} << int(OuterLeft);
        QTest::newRow("right") << QList<int>{Qt::Key_Right} << int(Right);
        QTest::newRow("outer right") << QList<int>{Qt::Key_Right, Qt::Key_Right} << int(OuterRight);
        QTest::newRow("top") << QList<int>{Qt::Key_Left, Qt::Key_Up} << int(Top);
        QTest::newRow("outer top") << QList<int>{Qt::Key_Up, Qt::Key_Up} << int(OuterTop);
        QTest::newRow("bottom") << QList<int>{Qt::Key_Down} << int(Bottom);
        QTest::newRow("outer bottom") << QList<int>{Qt::Key_Backtab} << int(OuterBottom);
        QTest::newRow("round") << QList<int>{Qt::Key_Backtab, Qt::Key_Tab, Qt::Key_Tab} << int(Left);
    }

    void arrows_choose_a_place_and_return_drops_there()
    {
        QFETCH(QList<int>, keys);
        QFETCH(int, place);
        NeighbourStage stage;
        QcDockWidget *moved = stage.Float(3);
        BeginDockMove(moved, AreaOf(*stage.left));
        QVERIFY(stage.Indicator()->isVisible());
        for (const int key : keys)
            QTest::keyClick(&stage.window, static_cast<Qt::Key>(key));
        const QRect promised = stage.Mask()->geometry();
        QVERIFY(stage.Mask()->isVisible());
        QTest::keyClick(&stage.window, Qt::Key_Return);
        DrainEvents();
        QVERIFY(stage.IsFeedbackHidden());
        QVERIFY(!moved->isFloating());
        QCOMPARE(moved->property("window"), QVariant(false));
        const QRect area = GlobalRect(*AreaOf(*moved));
        QVERIFY((area.center() - promised.center()).manhattanLength() < 8);
        QVERIFY(qAbs(area.width() - promised.width()) < 8 && qAbs(area.height() - promised.height()) < 8);
        QCOMPARE(AreaOf(*moved) == AreaOf(*stage.left), place == Center);
        VERIFY_SETTLED();
    }

    void a_docked_panel_moves_too_and_what_it_left_empty_goes()
    {
        NeighbourStage stage;
        BeginDockMove(stage.left, AreaOf(*stage.right));
        QTest::keyClick(&stage.window, Qt::Key_Return);
        DrainEvents();
        QCOMPARE(AreaOf(*stage.left), AreaOf(*stage.right));
        QCOMPARE(stage.root->getDockAreaList().size(), 1);
        VERIFY_SETTLED();
    }

    void a_place_that_is_not_offered_is_passed_over()
    {
        const TypeGroups groups({{1}, {3}});
        DragStage stage;
        QcDockWidget *left = stage.Add(1);
        QcDockWidget *moved = stage.Float(3);
        BeginDockMove(moved, AreaOf(*left));
        QCOMPARE(SpokenChoice(), QStringLiteral("Left of Type 1, 1 of 8"));
        QTest::keyClick(&stage.window, Qt::Key_Right);
        QCOMPARE(SpokenChoice(), QStringLiteral("Right of Type 1, 2 of 8"));
        QTest::keyClick(&stage.window, Qt::Key_Escape);
    }

    void a_tab_may_leave_its_own_area_for_a_side_but_not_for_the_centre()
    {
        DragStage stage;
        QcDockWidget *first = stage.Add(1);
        QcDockWidget *second = stage.Add(2, first, Center);
        BeginDockMove(second, AreaOf(*second));
        QCOMPARE(SpokenChoice(), QStringLiteral("Left of Type 2, 1 of 8"));
        QTest::keyClick(&stage.window, Qt::Key_Return);
        DrainEvents();
        QVERIFY(AreaOf(*first) != AreaOf(*second));
        QVERIFY(GlobalRect(*second).right() < GlobalRect(*first).left());
        VERIFY_SETTLED();
    }

    void the_chosen_place_looks_hovered_wherever_the_cursor_is_and_is_spoken()
    {
        DragStage stage;
        QcDockWidget *left = stage.Add(1);
        QcDockWidget *moved = stage.Float(3);
        stage.Step(moved, MiddleOf(*left));
        stage.Drop(moved);
        QVERIFY(!moved->isFloating());
        QcDockWidget *other = stage.Float(4);
        QCursor::setPos(MiddleOf(*stage.Label(Center)));

        BeginDockMove(other, AreaOf(*left));
        QLabel *right = stage.Label(Right);
        AccessibleEvents told(*right);
        const QImage normal = right->grab().toImage();
        QTest::keyClick(&stage.window, Qt::Key_Right);
        QCOMPARE(told.Take().last(), QStringLiteral("Focus"));
        QVERIFY(right->grab().toImage() != normal);
        QCOMPARE(QAccessible::queryAccessibleInterface(right)->text(QAccessible::Name), QStringLiteral("Right of Type 3, 3 of 9"));
        QTest::keyClick(&stage.window, Qt::Key_Escape);
        QCOMPARE(right->accessibleName(), QStringLiteral("Right"));
    }

    void the_chosen_place_has_a_ring_and_loses_it_to_the_next_one()
    {
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            DragStage stage;
            QcDockWidget *left = stage.Add(1);
            BeginDockMove(stage.Float(3), AreaOf(*left));
            const QColor ring = TokenOf(table, QStringLiteral("brand/brand"));
            const auto beside = [](DockPosition position) { // one pixel off the label
                const QRectF label = DragStage::Label(position)->geometry();
                return PixelAt(Render(*DragStage::Indicator()), QPointF(label.left() - 1.5, label.center().y()));
            };
            COMPARE_COLOR(beside(Center), Over(ring));
            QTest::keyClick(&stage.window, Qt::Key_Left);
            COMPARE_COLOR(beside(Left), Over(ring));
            QVERIFY(beside(Center) != Over(ring));
            QTest::keyClick(&stage.window, Qt::Key_Escape);
            QVERIFY(beside(Left) != Over(ring));
        }
        UseTable(Table::Light);
    }

    void a_drag_by_the_mouse_puts_no_ring_around_its_target()
    {
        ResidentStage stage;
        stage.StepOverResident();
        const QRectF label = stage.Label(Center)->geometry();
        const QColor beside = PixelAt(Render(*stage.Indicator()), QPointF(label.left() - 1.5, label.center().y()));
        QVERIFY(beside != Over(TokenOf(Table::Light, QStringLiteral("brand/brand"))));
        stage.Drop(stage.dragged);
    }

    void escape_leaves_all_as_it_was()
    {
        NeighbourStage stage;
        BeginDockMove(stage.left, AreaOf(*stage.right));
        QTest::keyClick(&stage.window, Qt::Key_Down);
        QTest::keyClick(&stage.window, Qt::Key_Escape);
        DrainEvents();
        QVERIFY(stage.IsFeedbackHidden());
        QVERIFY(AreaOf(*stage.left) != AreaOf(*stage.right));
        QCOMPARE(stage.root->getDockAreaList().size(), 2);
        QCOMPARE(stage.Offered(), QList<int>());
        VERIFY_SETTLED();
    }

    void a_press_of_the_mouse_another_window_and_another_move_end_it()
    {
        NeighbourStage stage;
        BeginDockMove(stage.left, AreaOf(*stage.right));
        QTest::mouseClick(&stage.window, Qt::RightButton);
        QVERIFY(stage.Indicator()->isHidden());

        stage.window.activateWindow();
        QTRY_VERIFY(stage.window.isActiveWindow());
        BeginDockMove(stage.left, AreaOf(*stage.right));
        QWidget other;
        other.show();
        other.activateWindow();
        QTRY_VERIFY(stage.Indicator()->isHidden());

        BeginDockMove(stage.left, AreaOf(*stage.right));
        BeginDockMove(stage.right, AreaOf(*stage.left));
        QTest::keyClick(&stage.window, Qt::Key_Escape);
        QVERIFY(stage.Indicator()->isHidden());
    }

    void a_window_that_learns_that_it_is_active_no_more_as_the_indicator_shows_ends_it()
    {
        NeighbourStage stage;
        const CallAt listener(*stage.Indicator(), QEvent::Show, [&stage] {
            QEvent deactivate(QEvent::WindowDeactivate);
            QCoreApplication::sendEvent(&stage.window, &deactivate);
        });
        BeginDockMove(stage.left, AreaOf(*stage.right));
        QVERIFY(stage.IsFeedbackHidden());
        VERIFY_SETTLED();
    }

    void no_key_reaches_the_contents_meanwhile()
    {
        NeighbourStage stage;
        auto *edit = new Edit(&stage.window);
        edit->show();
        edit->setFocus();
        QShortcut shortcut(Qt::CTRL | Qt::Key_S, &stage.window);
        QSignalSpy activated(&shortcut, &QShortcut::activated);
        stage.window.activateWindow();
        QTRY_VERIFY(edit->hasFocus());
        BeginDockMove(stage.left, AreaOf(*stage.right));
        QTest::keyClick(edit, Qt::Key_A);
        QTest::keyClick(edit, Qt::Key_S, Qt::ControlModifier);
        QTest::keyClick(edit, Qt::Key_Escape);
        QCOMPARE(edit->keys, 0);
        QCOMPARE(activated.count(), 0);
        QTest::keyClick(edit, Qt::Key_A);
        QCOMPARE(edit->keys, 1);
    }

    void it_ends_with_its_panel_or_its_area()
    {
        NeighbourStage stage;
        stage.Add(4, stage.right, Right); // so that the area of the others goes with them
        auto *edit = new Edit(&stage.window);
        edit->show();
        BeginDockMove(stage.left, AreaOf(*stage.right));
        QTest::keyClick(edit, Qt::Key_A);
        QCOMPARE(edit->keys, 0);
        delete stage.left;
        QVERIFY(stage.Indicator()->isHidden());
        QTest::keyClick(edit, Qt::Key_A);
        QCOMPARE(edit->keys, 1);

        QcDockWidget *moved = stage.Float(3);
        BeginDockMove(moved, AreaOf(*stage.right));
        delete stage.right;
        DrainEvents();
        QVERIFY(stage.Indicator()->isHidden());
        QTest::keyClick(&stage.window, Qt::Key_Return);
        QVERIFY(moved->isFloating());
    }

    void it_ends_when_its_area_is_taken_out_of_the_tree()
    {
        DragStage stage;
        QcDockWidget *left = stage.Add(1);
        const QPointer<QcDockArea> area = AreaOf(*stage.Add(2, left, Right));
        BeginDockMove(stage.Float(3), area);
        area->setParent(nullptr);
        QTest::keyClick(&stage.window, Qt::Key_Left);
        QVERIFY(stage.IsFeedbackHidden());
        delete area;
    }

    void a_panel_is_moved_to_areas_in_sight_only()
    {
        DragStage stage;
        QcDockWidget *left = stage.Add(1);
        DragStage other(QRect(1100, 100, 300, 300));
        other.Add(2);
        QCOMPARE(AreasToMoveTo(left), other.root->getDockAreaList());
        other.window.hide();
        QCOMPARE(AreasToMoveTo(left), QList<QcDockArea *>());
    }

    void a_panel_cannot_be_moved_into_itself()
    {
        DragStage stage;
        QcDockWidget *left = stage.Add(1);
        QcDockWidget *moved = stage.Float(3);
        auto *inner = new QcDockContainer(moved);
        moved->setContentWidget(inner);
        DrainEvents();
        QCOMPARE(AreasToMoveTo(moved), QList<QcDockArea *>({AreaOf(*left)}));
        QCOMPARE(AreasToMoveTo(left), inner->getDockAreaList());
    }
};

VELMORA_TEST_MAIN(TestDockMove)
#include "tst_DockMove.moc"
