#include "support/AccessibleEvents.h"
#include "support/TestMain.h"

#include <Velmora/QcMenu.h>

#include <QAccessible>
#include <QSignalSpy>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

/// A menu to assistive technology.
class TestMenuAccessible : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_menu_is_a_popup_menu_of_items()
    {
        QAccessibleInterface *menu = QAccessible::queryAccessibleInterface(m_menu.get());
        QVERIFY(menu);
        QCOMPARE(menu->role(), QAccessible::PopupMenu);
        QCOMPARE(menu->text(QAccessible::Name), QStringLiteral("File"));
        QCOMPARE(menu->childCount(), 0);
        m_menu->addQcAction(QStringLiteral("Open"));
        m_menu->addSeparator();
        QCOMPARE(menu->childCount(), 2);
        QCOMPARE(menu->child(0)->role(), QAccessible::MenuItem);
        QCOMPARE(menu->child(1)->role(), QAccessible::Separator);
    }

    void a_menu_is_named_by_the_host_else_by_its_title()
    {
        QAccessibleInterface *menu = QAccessible::queryAccessibleInterface(m_menu.get());
        m_menu->setTitle(QStringLiteral("&Edit"));
        QCOMPARE(menu->text(QAccessible::Name), QStringLiteral("Edit"));
        m_menu->setAccessibleName(QStringLiteral("Changes"));
        QCOMPARE(menu->text(QAccessible::Name), QStringLiteral("Changes"));
    }

    void an_item_is_named_by_its_label_without_ampersand_and_shortcut()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("Save && &close"));
        QCOMPARE(Item(action)->text(QAccessible::Name), QStringLiteral("Save & close"));
        action->setText(QStringLiteral("&Open\tCtrl+O"));
        QCOMPARE(Item(action)->text(QAccessible::Name), QStringLiteral("Open"));
    }

    void a_shortcut_is_told_as_the_key_of_its_item()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("Open"));
        action->setShortcut(Qt::CTRL | Qt::Key_O);
        QCOMPARE(Item(action)->text(QAccessible::Accelerator), QStringLiteral("Ctrl+O"));
        const QString press = QAccessibleActionInterface::pressAction();
        QCOMPARE(Item(action)->actionInterface()->keyBindingsForAction(press), QStringList(QStringLiteral("Ctrl+O")));
        QcAction *written = m_menu->addQcAction(QStringLiteral("Close\tF4"));
        QCOMPARE(Item(written)->text(QAccessible::Accelerator), QStringLiteral("F4"));
    }

    void an_item_tells_whether_it_is_checked_and_enabled()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("Grid"));
        QVERIFY(!Item(action)->state().checkable);
        action->setCheckable(true);
        QVERIFY(Item(action)->state().checkable);
        QVERIFY(!Item(action)->state().checked);
        action->setChecked(true);
        QVERIFY(Item(action)->state().checked);
        QVERIFY(!Item(action)->state().disabled);
        action->setEnabled(false);
        QVERIFY(Item(action)->state().disabled);
    }

    void an_item_tells_whether_it_can_be_seen_and_reached()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("Grid"));
        QcAction *hidden = m_menu->addQcAction(QStringLiteral("Hidden"));
        hidden->setVisible(false);
        action->setWhatsThis(QStringLiteral("Shows lines"));
        QCOMPARE(Item(action)->text(QAccessible::Description), QStringLiteral("Shows lines"));
        m_menu->popup(QPoint(0, 0));
        DrainEvents();
        QVERIFY(!Item(action)->state().invisible);
        QVERIFY(!Item(action)->state().offscreen);
        QVERIFY(Item(action)->state().focusable);
        QVERIFY(Item(hidden)->state().invisible);
        m_menu->setActiveAction(action);
        QVERIFY(Item(action)->state().focused);
        action->setEnabled(false);
        QVERIFY(!Item(action)->state().focusable);
        QVERIFY(!Item(action)->state().focused);
        action->setEnabled(true);
        m_menu->setEnabled(false);
        QVERIFY(Item(action)->state().disabled);
    }

    void an_item_that_was_scrolled_away_tells_so()
    {
        for (int i = 0; i < 200; ++i)
            m_menu->addQcAction(QString::number(i));
        m_menu->popup(QPoint(0, 0));
        DrainEvents();
        QAction *last = m_menu->actions().constLast();
        QVERIFY(Item(last)->state().offscreen);
        QVERIFY(Item(last)->rect().isEmpty());
        QVERIFY(!Item(m_menu->actions().constFirst())->state().offscreen);
    }

    void what_is_no_child_has_no_place_among_the_children()
    {
        auto *submenu = new QcMenu(QStringLiteral("Recent"), m_menu.get());
        QcAction *action = m_menu->addQcMenu(submenu);
        QAccessibleInterface *menu = QAccessible::queryAccessibleInterface(m_menu.get());
        QCOMPARE(menu->indexOfChild(menu), -1);
        QCOMPARE(Item(action)->indexOfChild(menu), -1);
        QCOMPARE(Item(action)->indexOfChild(QAccessible::queryAccessibleInterface(submenu)), 0);
    }

    void an_item_with_a_submenu_tells_so_and_has_it_as_child()
    {
        QcAction *plain = m_menu->addQcAction(QStringLiteral("Open"));
        auto *submenu = new QcMenu(QStringLiteral("Recent"), m_menu.get());
        QcAction *action = m_menu->addQcMenu(submenu);
        QVERIFY(!Item(plain)->state().hasPopup);
        QVERIFY(Item(action)->state().hasPopup);
        QCOMPARE(Item(action)->childCount(), 1);
        QCOMPARE(Item(action)->child(0)->object(), submenu);
        QCOMPARE(QAccessible::queryAccessibleInterface(submenu)->role(), QAccessible::PopupMenu);
    }

    void a_submenu_belongs_to_its_item()
    {
        auto *submenu = new QcMenu(QStringLiteral("Recent"), m_menu.get());
        QcAction *action = m_menu->addQcMenu(submenu);
        QAccessibleInterface *parent = QAccessible::queryAccessibleInterface(submenu)->parent();
        QVERIFY(parent);
        QCOMPARE(parent->object(), action);
        QCOMPARE(parent->parent()->object(), m_menu.get());
    }

    void menus_in_each_other_make_a_tree_all_the_same_data()
    {
        QTest::addColumn<bool>("isPlain");
        QTest::newRow("ours") << false;
        QTest::newRow("plain") << true;
    }
    void menus_in_each_other_make_a_tree_all_the_same()
    {
        QFETCH(bool, isPlain);
        const std::unique_ptr<QMenu> other(isPlain ? new QMenu(QStringLiteral("View")) : new QcMenu(QStringLiteral("View")));
        QcMenu inner(QStringLiteral("Recent"));
        m_menu->addQcMenu(other.get());
        other->addMenu(m_menu.get());
        m_menu->addMenu(m_menu.get());
        other->addMenu(&inner);
        for (QMenu *menu : {static_cast<QMenu *>(m_menu.get()), static_cast<QMenu *>(&inner), other.get()})
            QVERIFY(IsInTree(QAccessible::queryAccessibleInterface(menu)));
        QVERIFY(HasEnd(QAccessible::queryAccessibleInterface(m_menu.get())));
        QCOMPARE(QAccessible::queryAccessibleInterface(&inner)->parent()->parent()->object(), other.get());
    }

    void a_submenu_of_two_items_is_the_child_of_the_one_it_belongs_to()
    {
        QcMenu other(QStringLiteral("View"));
        QcMenu submenu(QStringLiteral("Recent"));
        QcAction *first = m_menu->addQcMenu(&submenu);
        other.addAction(first);
        QcAction *second = m_menu->addQcMenu(&submenu); // the one that speaks for it from now on
        QCOMPARE(Item(first)->childCount(), 0);
        QCOMPARE(Item(second)->childCount(), 1);
        QCOMPARE(QAccessible::queryAccessibleInterface(&submenu)->parent(), Item(second));
        QAccessibleInterface *theirs = QAccessible::queryAccessibleInterface(&other)->child(0);
        QCOMPARE(theirs->childCount(), 0);
        QVERIFY(theirs->state().hasPopup);
    }

    void the_item_that_the_keyboard_moves_to_is_told_and_has_the_focus()
    {
        QcAction *first = m_menu->addQcAction(QStringLiteral("First"));
        QcAction *second = m_menu->addQcAction(QStringLiteral("Second"));
        QVERIFY(Item(first)->state().invisible);
        m_menu->popup(QPoint(0, 0));
        DrainEvents();
        QVERIFY(!Item(first)->state().invisible);
        AccessibleEvents events(*m_menu);
        QTest::keyClick(m_menu.get(), Qt::Key_Down);
        QVERIFY(events.Take().contains(QStringLiteral("Focus of child 0")));
        QTest::keyClick(m_menu.get(), Qt::Key_Down);
        QVERIFY(events.Take().contains(QStringLiteral("Focus of child 1")));
        QVERIFY(!Item(first)->state().focused && !Item(first)->state().hotTracked);
        QVERIFY(Item(second)->state().focused && Item(second)->state().hotTracked);
    }

    void an_item_is_found_where_it_is_on_the_screen()
    {
        m_menu->addQcAction(QStringLiteral("First"));
        QcAction *second = m_menu->addQcAction(QStringLiteral("Second"));
        m_menu->popup(QPoint(40, 50));
        DrainEvents();
        const QRect place = Item(second)->rect();
        QCOMPARE(place, m_menu->actionGeometry(second).translated(m_menu->pos()));
        QAccessibleInterface *menu = QAccessible::queryAccessibleInterface(m_menu.get());
        QAccessibleInterface *found = menu->childAt(place.center().x(), place.center().y());
        QVERIFY(found);
        QCOMPARE(found->object(), second);
        QCOMPARE(menu->indexOfChild(found), 1);
        QVERIFY(!menu->childAt(1000, 1000));
    }

    void an_item_stays_the_same_and_goes_with_its_action_or_menu()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("Open"));
        QAccessibleInterface *item = Item(action);
        QCOMPARE(Item(action), item);
        QVERIFY(item->isValid());
        const QAccessible::Id itemId = QAccessible::uniqueId(item);
        delete action;
        QVERIFY(!QAccessible::accessibleInterface(itemId));
        QVERIFY(!QAccessible::queryAccessibleInterface(m_menu.get())->child(0));
        QcAction *other = m_menu->addQcAction(QStringLiteral("Other")); // perhaps at the same address
        QCOMPARE(Item(other)->text(QAccessible::Name), QStringLiteral("Other"));
        QAction outliving(QStringLiteral("Outliving"), nullptr);
        m_menu->addAction(&outliving);
        const QAccessible::Id ids[] = {QAccessible::uniqueId(Item(other)), QAccessible::uniqueId(Item(&outliving))};
        m_menu.reset();
        for (const QAccessible::Id id : ids)
            QVERIFY(!QAccessible::accessibleInterface(id));
    }

    void an_action_of_two_menus_is_an_item_of_each()
    {
        QcMenu other;
        QcAction *action = m_menu->addQcAction(QStringLiteral("Open"));
        other.addAction(action);
        QAccessibleInterface *theirs = QAccessible::queryAccessibleInterface(&other)->child(0);
        QVERIFY(theirs != Item(action));
        QCOMPARE(theirs->parent()->object(), &other);
        QCOMPARE(Item(action)->parent()->object(), m_menu.get());
        const QAccessible::Id id = QAccessible::uniqueId(theirs);
        const QAccessible::Id ours = QAccessible::uniqueId(Item(action));
        delete action;
        for (const QAccessible::Id item : {id, ours}) {
            QAccessibleInterface *left = QAccessible::accessibleInterface(item);
            QVERIFY(!left || !left->isValid());
        }
    }

    void a_separator_and_a_disabled_item_can_do_nothing()
    {
        QAction *separator = m_menu->addSeparator();
        QcAction *action = m_menu->addQcAction(QStringLiteral("Open"));
        action->setEnabled(false);
        for (QAction *idle : {separator, static_cast<QAction *>(action)}) {
            QVERIFY(Item(idle)->actionInterface()->actionNames().isEmpty());
            QSignalSpy chosen(idle, &QAction::triggered);
            Item(idle)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
            DrainEvents();
            QCOMPARE(chosen.count(), 0);
        }
    }

    void a_submenu_can_be_opened()
    {
        auto *submenu = new QcMenu(QStringLiteral("Recent"), m_menu.get());
        submenu->addQcAction(QStringLiteral("One"));
        QcAction *action = m_menu->addQcMenu(submenu);
        m_menu->popup(QPoint(0, 0));
        DrainEvents();
        Item(action)->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
        QTRY_VERIFY(submenu->isVisible());
        QVERIFY(Item(action)->state().expanded);
    }

    void an_item_can_be_chosen()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("Open"));
        int chosen = 0;
        connect(action, &QAction::triggered, this, [&] { ++chosen; });
        QAccessibleActionInterface *actions = Item(action)->actionInterface();
        QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
        actions->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(chosen, 0); // assistive technology waits for its call to return
        DrainEvents();
        QCOMPARE(chosen, 1);
        actions->doAction(QAccessibleActionInterface::pressAction());
        delete action;
        DrainEvents();
        QCOMPARE(chosen, 1);
    }

protected:
    void SetUp() override { m_menu = std::make_unique<QcMenu>(QStringLiteral("File")); }
    void TearDown() override { m_menu.reset(); }

private:
    static constexpr int kDeep = 50;

    /// Whether the way up from \a described comes to an end.
    static bool IsInTree(const QAccessibleInterface *described)
    {
        for (int steps = 0; described && steps < kDeep; ++steps)
            described = described->parent();
        return !described;
    }

    /// Whether all ways down from \a described come to an end.
    static bool HasEnd(const QAccessibleInterface *described, int depth = 0)
    {
        bool hasEnd = depth < kDeep;
        for (int i = 0; hasEnd && i < described->childCount(); ++i)
            hasEnd = HasEnd(described->child(i), depth + 1);
        return hasEnd;
    }

    QAccessibleInterface *Item(QAction *action) const
    {
        return QAccessible::queryAccessibleInterface(m_menu.get())->child(int(m_menu->actions().indexOf(action)));
    }

    std::unique_ptr<QcMenu> m_menu;
};

VELMORA_TEST_MAIN(TestMenuAccessible)

#include "tst_MenuAccessible.moc"
