#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include "buttons/ButtonLooks.h"

#include <Velmora/QcMenu.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcMenuToolButton.h>

#include <QAccessible>
#include <QEnterEvent>
#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QWindow>

#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// An opaque colour for each look, so that the look can be read from the background.
QColor ColorOf(const Look &look)
{
    return QColor::fromHsv(int(&look - kLooks) * 40, 255, 200);
}

/// What the text button and the tool button have in common, though only by name.
struct Kind
{
    const char *name;
    QAbstractButton *(*make)(QWidget *parent);
    void (*setMenu)(QAbstractButton *button, QMenu *menu);
    QMenu *(*menu)(const QAbstractButton *button);
};

template <typename Button>
QAbstractButton *Make(QWidget *parent)
{
    auto *button = new Button(parent);
    for (const Look &look : kLooks)
        button->SetBackgroundColorParams(QStyle::State(look.key), ColorOf(look).name());
    return button;
}

QAbstractButton *MakeText(QWidget *parent)
{
    QAbstractButton *button = Make<QcMenuTextButton>(parent);
    button->setFixedSize(80, 24);
    return button;
}

QAbstractButton *MakeTool(QWidget *parent)
{
    QAbstractButton *button = Make<QcMenuToolButton>(parent);
    static_cast<QToolButton *>(button)->setPopupMode(QToolButton::InstantPopup); // a press opens the menu, as of a push button
    return button;
}

template <typename Button>
void SetMenu(QAbstractButton *button, QMenu *menu)
{
    static_cast<Button *>(button)->setMenu(menu);
}

template <typename Button>
QMenu *MenuOf(const QAbstractButton *button)
{
    return static_cast<const Button *>(button)->menu();
}

constexpr Kind kKinds[] = {
    {"QcMenuTextButton", MakeText, SetMenu<QcMenuTextButton>, MenuOf<QcMenuTextButton>},
    {"QcMenuToolButton", MakeTool, SetMenu<QcMenuToolButton>, MenuOf<QcMenuToolButton>},
};

constexpr const Look &kNormal = kLooks[1];
constexpr const Look &kHover = kLooks[2];
constexpr const Look &kPressed = kLooks[3];
constexpr const Look &kCheckedNormal = kLooks[5];
constexpr const Look &kCheckedPressed = kLooks[7];

std::unique_ptr<QMenu> MakeMenu()
{
    auto menu = std::make_unique<QMenu>();
    menu->addAction(QStringLiteral("First"));
    menu->addAction(QStringLiteral("Second"));
    return menu;
}

} // namespace

/// What holds for both buttons with a menu.
class TestMenuButtons : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // --- The mouse ---

    void hover_and_press_come_and_go_data() { AddKinds(); }
    void hover_and_press_come_and_go()
    {
        MakeButton();
        EventCounter paints(*m_button, QEvent::Paint);
        QVERIFY(Shows(kNormal));
        MoveCursorOver(*m_button);
        QVERIFY(Shows(kHover));
        QVERIFY(paints.Take() > 0);
        for (const Qt::MouseButton mouse : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            QTest::mousePress(Window(), mouse, Qt::NoModifier, Centre());
            QVERIFY(Shows(kPressed)); // whichever button it is
            DrainEvents();
            QVERIFY(paints.Take() > 0);
            QTest::mouseRelease(Window(), mouse, Qt::NoModifier, Centre());
            m_button->setChecked(false); // the click of a checkable button toggled it
            QVERIFY(Shows(kHover));
            DrainEvents();
            QVERIFY(paints.Take() > 0);
        }
        MoveCursorAway();
        QVERIFY(Shows(kNormal));
        QVERIFY(paints.Take() > 0);
    }

    void a_press_dragged_off_ends_with_the_release_data() { AddKinds(); }
    void a_press_dragged_off_ends_with_the_release()
    {
        MakeButton();
        QSignalSpy clicks(m_button, &QAbstractButton::clicked);
        MoveCursorOver(*m_button);
        QTest::mousePress(Window(), Qt::LeftButton, Qt::NoModifier, Centre());
        QVERIFY(Shows(kPressed));
        const QPoint outside(150, 150);
        QTest::mouseMove(Window(), outside);
        QVERIFY(!m_button->isDown());
        QVERIFY(Shows(kPressed)); // the look ends with the release
        QTest::mouseRelease(Window(), Qt::LeftButton, Qt::NoModifier, outside);
        QTest::mouseMove(Window(), outside + QPoint(1, 1));
        DrainEvents();
        QVERIFY(Shows(kNormal));
        QCOMPARE(clicks.count(), 0);
    }

    void a_button_disabled_under_the_cursor_is_hovered_when_enabled_again_data() { AddKinds(); }
    void a_button_disabled_under_the_cursor_is_hovered_when_enabled_again()
    {
        MakeButton();
        MoveCursorOver(*m_button);
        QVERIFY(Shows(kHover));
        EventCounter paints(*m_button, QEvent::Paint);
        m_button->setEnabled(false);
        QVERIFY(Shows(kLooks[0]));
        QCOMPARE(m_button->cursor().shape(), Qt::ForbiddenCursor);
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        m_button->setEnabled(true);
        QVERIFY(Shows(kHover));
        QVERIFY(!m_button->testAttribute(Qt::WA_SetCursor));
        m_window->setEnabled(false); // with its window as well
        QVERIFY(Shows(kLooks[0]));
        QCOMPARE(m_button->cursor().shape(), Qt::ForbiddenCursor);
        m_window->setEnabled(true);
        QVERIFY(Shows(kHover));
    }

    void a_button_made_in_a_disabled_window_is_disabled_data() { AddKinds(); }
    void a_button_made_in_a_disabled_window_is_disabled()
    {
        m_window->setEnabled(false);
        MakeButton();
        QVERIFY(Shows(kLooks[0]));
        QCOMPARE(m_button->cursor().shape(), Qt::ForbiddenCursor);
        m_window->setEnabled(true);
        QVERIFY(Shows(kNormal));
    }

    void checked_looks_follow_toggling_data() { AddKinds(); }
    void checked_looks_follow_toggling()
    {
        MakeButton();
        m_button->setCheckable(true);
        EventCounter paints(*m_button, QEvent::Paint);
        m_button->setChecked(true);
        QVERIFY(Shows(kCheckedNormal));
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        MoveCursorOver(*m_button);
        QVERIFY(Shows(kLooks[6]));
        m_button->setEnabled(false);
        QVERIFY(Shows(kLooks[4]));
        m_button->setChecked(false);
        QVERIFY(Shows(kLooks[0]));
        m_button->setEnabled(true);
        m_button->setCheckable(false);
        m_button->setChecked(true);
        QVERIFY(Shows(kHover)); // what cannot be checked never looks so
    }

    void a_change_of_table_repaints_once_and_keeps_what_the_host_set_data() { AddKinds(); }
    void a_change_of_table_repaints_once_and_keeps_what_the_host_set()
    {
        MakeButton();
        EventCounter paints(*m_button, QEvent::Paint);
        UseTable(Table::Dark);
        DrainEvents();
        QCOMPARE(paints.Take(), 1);
        QVERIFY(Shows(kNormal));
    }

    void the_slot_is_private_and_the_class_known_by_name_data() { AddKinds(); }
    void the_slot_is_private_and_the_class_known_by_name()
    {
        MakeButton();
        const QMetaObject &meta = *m_button->metaObject();
        QCOMPARE(meta.className(), (QByteArray("Velmora::") + m_kind->name).constData());
        QCOMPARE(meta.method(meta.indexOfSlot("OnToggled(bool)")).access(), QMetaMethod::Private);
    }

    // --- The menu ---

    void an_open_menu_looks_pressed_and_checked_data() { AddKinds(); }
    void an_open_menu_looks_pressed_and_checked()
    {
        MakeButton();
        const auto menu = MakeMenu();
        SetMenu(menu.get());
        EventCounter paints(*m_button, QEvent::Paint);
        MoveCursorOver(*m_button);
        QVERIFY(ClickOpens(*menu, [&] {
            QVERIFY(Shows(kCheckedPressed));
            DrainEvents();
            QVERIFY(paints.Take() > 0);
            QCOMPARE(m_button->isChecked(), m_button->isCheckable());
        }));
        QVERIFY(Shows(kHover)); // the cursor is still there
        QVERIFY(!m_button->isChecked());
        QVERIFY(!m_button->isDown());
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        QVERIFY(ClickOpens(*menu)); // and once more
        QVERIFY(Shows(kHover));
    }

    void the_hover_is_gone_when_the_cursor_left_with_the_menu_open_data() { AddKinds(); }
    void the_hover_is_gone_when_the_cursor_left_with_the_menu_open()
    {
        MakeButton();
        const auto menu = MakeMenu();
        SetMenu(menu.get());
        MoveCursorOver(*m_button);
        QVERIFY(ClickOpens(*menu, [&] {
            MoveCursorAway(); // as to an entry of the menu; Qt keeps this to itself while a menu is open
            QVERIFY(Shows(kCheckedPressed));
        }));
        QVERIFY(Shows(kNormal));
    }

    void a_press_beside_the_menu_closes_it_data() { AddKinds(); }
    void a_press_beside_the_menu_closes_it()
    {
        MakeButton();
        const auto menu = MakeMenu();
        SetMenu(menu.get());
        QVERIFY(ClickOpens(*menu, [&] {
            QTest::mouseClick(menu.get(), Qt::LeftButton, Qt::NoModifier, QPoint(-50, 100));
            QVERIFY(!menu->isVisible());
        }));
        MoveCursorAway();
        QVERIFY(Shows(kNormal));
    }

    void a_menu_opened_elsewhere_shows_on_its_button_data() { AddKinds(); }
    void a_menu_opened_elsewhere_shows_on_its_button()
    {
        MakeButton();
        const auto menu = MakeMenu();
        SetMenu(menu.get());
        menu->popup(QPoint(400, 400));
        QVERIFY(Shows(kCheckedPressed));
        menu->close();
        QVERIFY(Shows(kNormal));
    }

    void a_menu_that_closes_unchecks_its_button_data() { AddKinds(); }
    void a_menu_that_closes_unchecks_its_button()
    {
        MakeButton();
        const auto menu = MakeMenu();
        SetMenu(menu.get());
        m_button->setCheckable(true);
        m_button->setChecked(true);
        QSignalSpy toggles(m_button, &QAbstractButton::toggled);
        menu->popup(QPoint(400, 400));
        QVERIFY(Shows(kCheckedPressed));
        QCOMPARE(toggles.count(), 0);
        menu->close();
        QVERIFY(!m_button->isChecked());
        QVERIFY(Shows(kNormal));
        QCOMPARE(toggles.count(), 1);
    }

    void a_menu_that_only_says_so_shows_on_its_button_and_leaves_the_hover_data() { AddKinds(); }
    void a_menu_that_only_says_so_shows_on_its_button_and_leaves_the_hover()
    {
        MakeButton();
        const auto menu = MakeMenu();
        SetMenu(menu.get());
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        QCoreApplication::sendEvent(m_button, &enter); // hovered, with the cursor elsewhere
        EventCounter paints(*m_button, QEvent::Paint);
        Q_EMIT menu->aboutToShow();
        QVERIFY(Shows(kCheckedPressed));
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        Q_EMIT menu->aboutToHide();
        QVERIFY(Shows(kHover));
        QVERIFY(!m_button->isChecked());
        DrainEvents();
        QVERIFY(paints.Take() > 0);
    }

    void no_menu_is_a_plain_button_again_and_says_nothing_data() { AddKinds(); }
    void no_menu_is_a_plain_button_again_and_says_nothing()
    {
        MakeButton();
        SetMenu(nullptr);
        QVERIFY(!Menu());
        const auto menu = MakeMenu();
        SetMenu(menu.get());
        QCOMPARE(Menu(), menu.get());
        SetMenu(nullptr);
        QVERIFY(!Menu());
        QVERIFY(!ClickOpens(*menu));
        m_button->setChecked(false);
        MoveCursorAway();
        QVERIFY(Shows(kNormal));
    }

    void taking_the_menu_away_while_it_is_open_ends_the_look_with_the_menu_data() { AddKinds(); }
    void taking_the_menu_away_while_it_is_open_ends_the_look_with_the_menu()
    {
        MakeButton();
        const auto menu = MakeMenu();
        SetMenu(menu.get());
        menu->popup(QPoint(400, 400));
        SetMenu(nullptr);
        QVERIFY(Shows(kCheckedPressed));
        menu->close();
        QVERIFY(Shows(kNormal));
    }

    void a_second_menu_opens_and_the_first_still_shows_data() { AddKinds(); }
    void a_second_menu_opens_and_the_first_still_shows()
    {
        MakeButton();
        const auto first = MakeMenu();
        const auto second = MakeMenu();
        SetMenu(first.get());
        SetMenu(second.get());
        QCOMPARE(Menu(), second.get());
        QVERIFY(ClickOpens(*second, [&] {
            QVERIFY(Shows(kCheckedPressed));
            QVERIFY(!first->isVisible());
        }));
        MoveCursorAway();
        QVERIFY(Shows(kNormal));
        first->popup(QPoint(400, 400));
        QVERIFY(Shows(kCheckedPressed));
        first->close();
        QVERIFY(Shows(kNormal));
    }

    void a_menu_set_again_and_again_is_followed_once_data() { AddKinds(); }
    void a_menu_set_again_and_again_is_followed_once()
    {
        MakeButton();
        const auto first = MakeMenu();
        const auto second = MakeMenu();
        for (int i = 0; i < 100; ++i) {
            SetMenu(first.get());
            SetMenu(second.get());
        }
        m_button->setCheckable(true);
        QSignalSpy toggles(m_button, &QAbstractButton::toggled);
        first->popup(QPoint(400, 400));
        first->close();
        QCOMPARE(toggles.count(), 2);
        QVERIFY(Shows(kNormal));
    }

    // --- What the host deletes first ---

    void a_menu_may_die_while_it_is_closed_data() { AddKinds(); }
    void a_menu_may_die_while_it_is_closed()
    {
        MakeButton();
        auto menu = MakeMenu();
        SetMenu(menu.get());
        m_button->setCheckable(true);
        m_button->setChecked(true);
        menu.reset();
        QVERIFY(!Menu());
        QVERIFY(Shows(kCheckedNormal)); // no other look, and still checked
        const auto next = MakeMenu();
        SetMenu(next.get());
        QVERIFY(ClickOpens(*next));
    }

    void a_menu_at_a_dead_one_s_address_is_followed_data() { AddKinds(); }
    void a_menu_at_a_dead_one_s_address_is_followed()
    {
        MakeButton();
        alignas(QMenu) unsigned char storage[sizeof(QMenu)];
        for (int i = 0; i < 2; ++i) {
            auto *menu = new (storage) QMenu;
            menu->addAction(QStringLiteral("First"));
            SetMenu(menu);
            menu->popup(QPoint(400, 400));
            const bool showed = Shows(kCheckedPressed);
            menu->close();
            menu->~QMenu();
            QVERIFY(showed);
            QVERIFY(Shows(kNormal));
        }
    }

    void a_menu_may_die_while_it_is_open_data() { AddKinds(); }
    void a_menu_may_die_while_it_is_open()
    {
        MakeButton();
        QPointer<QMenu> menu = MakeMenu().release();
        SetMenu(menu);
        if (qobject_cast<QToolButton *>(m_button)) { // what Qt's tool button says of it
            for (int i = 0; i < 2; ++i)
                ExpectWarning(QStringLiteral("QObject::disconnect: Unexpected nullptr parameter"));
        }
        QVERIFY(ClickOpens(*menu, [&] {
            QVERIFY(Shows(kCheckedPressed));
            delete menu;
            QVERIFY(!Shows(kCheckedPressed)); // it had no time to say that it closed
        }));
        QVERIFY(!menu);
        QVERIFY(!Menu());
        QVERIFY(!m_button->isChecked());
        MoveCursorAway();
        QVERIFY(Shows(kNormal));
    }

    void another_menu_that_dies_leaves_the_open_one_shown_data() { AddKinds(); }
    void another_menu_that_dies_leaves_the_open_one_shown()
    {
        MakeButton();
        auto old = MakeMenu();
        const auto menu = MakeMenu();
        SetMenu(old.get());
        SetMenu(menu.get());
        QVERIFY(ClickOpens(*menu, [&] {
            old.reset();
            QVERIFY(Shows(kCheckedPressed));
        }));
    }

    void a_menu_outlives_its_button_data() { AddKinds(); }
    void a_menu_outlives_its_button()
    {
        MakeButton();
        const auto menu = MakeMenu();
        SetMenu(menu.get());
        menu->popup(QPoint(400, 400));
        delete m_button;
        QVERIFY(menu->isVisible());
        menu->close(); // reaches nobody
        menu->popup(QPoint(400, 400));
        QVERIFY(menu->isVisible());
        menu->close();
    }

    void a_menu_owned_by_its_button_dies_with_it_even_while_open_data() { AddKinds(); }
    void a_menu_owned_by_its_button_dies_with_it_even_while_open()
    {
        MakeButton();
        auto *menu = new QMenu(m_button);
        menu->addAction(QStringLiteral("First"));
        SetMenu(menu);
        menu->popup(QPoint(400, 400));
        QVERIFY(Shows(kCheckedPressed));
        delete m_button;
    }

    void an_entry_may_delete_the_button_data() { AddKinds(); }
    void an_entry_may_delete_the_button()
    {
        MakeButton();
        const auto menu = MakeMenu();
        SetMenu(menu.get());
        connect(menu->actions().first(), &QAction::triggered, m_button, [this] { delete m_button; });
        QVERIFY(ClickOpens(*menu, [&] {
            QTest::keyClick(menu.get(), Qt::Key_Down);
            QTest::keyClick(menu.get(), Qt::Key_Return);
        }));
        QVERIFY(!m_button);
    }

    // --- Keyboard and assistive technology ---

    void keys_open_the_menu_choose_and_close_data() { AddKinds(); }
    void keys_open_the_menu_choose_and_close()
    {
        MakeButton();
        const auto menu = MakeMenu();
        SetMenu(menu.get());
        m_button->setFocus();
        QSignalSpy chosen(menu->actions().last(), &QAction::triggered);
        const auto pressSpace = [this] { QTest::keyClick(Window(), Qt::Key_Space); };
        QVERIFY(Opens(*menu, pressSpace, [&] {
            QVERIFY(Shows(kCheckedPressed));
            QTest::keyClick(menu.get(), Qt::Key_Down);
            QTest::keyClick(menu.get(), Qt::Key_Down);
            QTest::keyClick(menu.get(), Qt::Key_Return);
            QVERIFY(!menu->isVisible());
        }));
        QCOMPARE(chosen.count(), 1);
        QVERIFY(Shows(kNormal));
        QVERIFY(Opens(*menu, pressSpace, [&] {
            QTest::keyClick(menu.get(), Qt::Key_Escape);
            QVERIFY(!menu->isVisible());
        }));
        QCOMPARE(chosen.count(), 1);
        QVERIFY(Shows(kNormal));
        QCOMPARE(m_window->focusWidget(), m_button.data());
    }

    void a_menu_of_the_kit_opens_and_closes_like_any_other_data() { AddKinds(); }
    void a_menu_of_the_kit_opens_and_closes_like_any_other()
    {
        MakeButton();
        QcMenu menu;
        menu.addQcAction(QStringLiteral("First"));
        QSignalSpy chosen(menu.addQcAction(QStringLiteral("Second")), &QAction::triggered);
        SetMenu(&menu);
        QVERIFY(ClickOpens(menu, [&] {
            QVERIFY(Shows(kCheckedPressed));
            QCOMPARE(menu.pos(), m_button->mapToGlobal(QPoint(0, m_button->height())));
            QTest::keyClick(&menu, Qt::Key_Escape);
            QVERIFY(!menu.isVisible());
        }));
        QVERIFY(Shows(kNormal));
        m_button->setFocus();
        QVERIFY(Opens(
            menu, [this] { QTest::keyClick(Window(), Qt::Key_Space); },
            [&] {
                QTest::keyClick(&menu, Qt::Key_Down);
                QTest::keyClick(&menu, Qt::Key_Down);
                QTest::keyClick(&menu, Qt::Key_Return);
            }));
        QCOMPARE(chosen.count(), 1);
        QVERIFY(Shows(kNormal));
    }

    void the_shortcut_opens_the_menu_data() { AddKinds(); }
    void the_shortcut_opens_the_menu()
    {
        MakeButton();
        const auto menu = MakeMenu();
        SetMenu(menu.get());
        m_button->setShortcut(Qt::ALT | Qt::Key_S);
        QVERIFY(Opens(*menu, [this] { QTest::keyClick(Window(), Qt::Key_S, Qt::AltModifier); }));
    }

    void assistive_technology_hears_a_menu_button_data() { AddKinds(); }
    void assistive_technology_hears_a_menu_button()
    {
        MakeButton();
        QAccessibleInterface *described = QAccessible::queryAccessibleInterface(m_button);
        QVERIFY(described);
        QCOMPARE(described->role(), m_button->isCheckable() ? QAccessible::CheckBox : QAccessible::Button);
        const auto menu = MakeMenu();
        SetMenu(menu.get());
        QCOMPARE(described->role(), QAccessible::ButtonMenu);
        QVERIFY(described->state().hasPopup);
        m_button->setToolTip(QStringLiteral("Tip"));
        QCOMPARE(described->text(QAccessible::Name), QStringLiteral("Tip"));
        m_button->setText(QStringLiteral("&Insert"));
        QCOMPARE(described->text(QAccessible::Name), QStringLiteral("Insert"));
        QAccessibleActionInterface *actions = described->actionInterface();
        QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::showMenuAction()));
        QVERIFY(Opens(
            *menu, [&] { actions->doAction(QAccessibleActionInterface::showMenuAction()); }, [&] { QVERIFY(Shows(kCheckedPressed)); }));
    }

protected:
    void SetUp() override
    {
        MoveCursorAway();
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(kWindowPlace);
    }

    void TearDown() override
    {
        m_window.reset();
        UseTable(Table::Light);
        MoveCursorAway();
    }

private:
    static void AddKinds()
    {
        QTest::addColumn<int>("kind");
        for (int i = 0; i < 2; ++i)
            QTest::newRow(kKinds[i].name) << i;
    }

    void MakeButton()
    {
        QFETCH(int, kind);
        m_kind = &kKinds[kind];
        m_button = m_kind->make(m_window.get());
        m_button->move(10, 10);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        DrainEvents();
    }

    void SetMenu(QMenu *menu) { m_kind->setMenu(m_button, menu); }
    QMenu *Menu() const { return m_kind->menu(m_button); }
    QWindow *Window() const { return m_window->windowHandle(); }
    QPoint Centre() const { return m_button->geometry().center(); }

    bool Shows(const Look &look) { return Close(PixelAt(Render(*m_button), QPointF(2, m_button->height() - 4)), ColorOf(look)); }

    /// Calls \a open, which may not return before \a menu has closed, and \a meanwhile while it is open; then closes it. Returns
    /// whether the menu did open.
    static bool Opens(
        QMenu &menu, const std::function<void()> &open, const std::function<void()> &meanwhile = [] {})
    {
        bool didOpen = false;
        const QPointer<QMenu> alive(&menu);
        QObject context;
        connect(
            &menu, &QMenu::aboutToShow, &context,
            [&] {
                didOpen = menu.isVisible();
                meanwhile();
                if (alive)
                    alive->close();
            },
            Qt::QueuedConnection);
        open();
        DrainEvents();
        return didOpen;
    }

    /// The same, opened by a click. The menu stays when the mouse is released.
    bool ClickOpens(
        QMenu &menu, const std::function<void()> &meanwhile = [] {}) const
    {
        const QPoint centre = Centre();
        bool isReleased = false;
        const auto release = [&] {
            QTest::mouseRelease(Window(), Qt::LeftButton, Qt::NoModifier, centre);
            isReleased = true;
        };
        const bool didOpen = Opens(
            menu, [&] { QTest::mousePress(Window(), Qt::LeftButton, Qt::NoModifier, centre); },
            [&] {
                release();
                meanwhile();
            });
        if (!isReleased)
            release();
        return didOpen;
    }

    const Kind *m_kind = nullptr;
    std::unique_ptr<QWidget> m_window;
    QPointer<QAbstractButton> m_button;
};

VELMORA_TEST_MAIN(TestMenuButtons)

#include "tst_MenuButtons.moc"
