#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/SquareIcon.h"
#include "support/TestMain.h"

#include "buttons/ControlTest.h"

#include <Velmora/QcToolButton.h>

#include <QAccessible>
#include <QAction>
#include <QMenu>
#include <QMetaMethod>
#include <QPainter>
#include <QPointer>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QStyle::State kNormal = QStyle::State_Enabled;
const QStyle::State kHover = QStyle::State_Enabled | QStyle::State_MouseOver;
const QString kPlainIcon = QStringLiteral("icon/icon_toolbar");

/// A button as a host derives it.
class HostButton : public QcToolButton
{
public:
    using QcToolButton::GetIconPath;
    using QcToolButton::GetState;
    using QcToolButton::QcToolButton;
    using QcToolButton::UpdateUiParams;
};

} // namespace

class TestQcToolButton : public ControlTest<HostButton>
{
    Q_OBJECT

private Q_SLOTS:
    // --- Construction ---

    void a_new_button_has_its_fixed_height_and_state()
    {
        HostButton button;
        QCOMPARE(button.minimumHeight(), 24);
        QCOMPARE(button.maximumHeight(), 24);
        QCOMPARE(button.GetState(), QStyle::State(QStyle::State_Enabled));
        QCOMPARE(button.GetIconPath(), QString());
        QVERIFY(!button.isCheckable());
        QVERIFY(button.styleSheet().contains(QStringLiteral("Velmora--QcToolButton")));
        QVERIFY(button.styleSheet().contains(QStringLiteral("Velmora--QcToolButton::menu-indicator")));
    }

    void the_size_hint_is_that_of_a_tool_button()
    {
        m_control->setIconSize(QSize(20, 20));
        const QSize small = m_control->sizeHint();
        m_control->setIconSize(QSize(60, 20));
        QCOMPARE(m_control->sizeHint().width(), small.width() + 40);
    }

    void the_tables_are_there_at_once()
    {
        QcToolButton button;
        button.resize(40, 24);
        button.SetIconPath(m_icon.Path());
        button.setIconSize(QSize(16, 16));
        COMPARE_COLOR(PixelAt(Render(button), QPointF(20, 12)), Painted(Table::Light, kPlainIcon, Qt::white));
    }

    void the_corner_radius_is_two_at_first()
    {
        m_control->SetIconPath(QString());
        m_control->SetBackgroundColorParams(kNormal, QStringLiteral("#000000"));
        const auto rounded = [this](int radius) {
            QImage image = Canvas(*m_control);
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(Qt::black);
            painter.drawRoundedRect(m_control->rect(), radius, radius, Qt::AbsoluteSize);
            return image;
        };
        QCOMPARE(Render(*m_control), rounded(2));
        m_control->SetBorderRadius(9);
        QCOMPARE(Render(*m_control), rounded(9));
    }

    // --- The tables ---

    void each_cell_of_the_tables_is_painted_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < 8; ++i)
            QTest::newRow(kLooks[i].name) << i;
    }

    void each_cell_of_the_tables_is_painted()
    {
        QFETCH(int, index);
        BringTo(*m_control, kLooks[index]);
        for (const Table table : {Table::Dark, Table::Light}) {
            UseTable(table);
            const QColor canvas = table == Table::Light ? Qt::white : Qt::black;
            const QColor fill = Painted(table, QLatin1String(kToolBackgrounds[index]), canvas);
            const QImage image = Render(*m_control, canvas);
            COMPARE_COLOR(PixelAt(image, QPointF(2, 12)), fill);
            COMPARE_COLOR(PixelAt(image, QPointF(20, 12)), Painted(table, QLatin1String(kToolIcons[index]), fill));
        }
    }

    void each_look_takes_its_own_entries_data() { each_cell_of_the_tables_is_painted_data(); }

    void each_look_takes_its_own_entries()
    {
        QFETCH(int, index);
        const Look &look = kLooks[index];
        ImageParams blue;
        blue.color = ColorParams("#0000FF");
        m_control->SetBackgroundColorParams(QStyle::State(look.key), QStringLiteral("#00FF00"));
        m_control->SetIconParam(QStyle::State(look.key), blue);
        BringTo(*m_control, look);
        const QImage image = Render(*m_control);
        COMPARE_COLOR(PixelAt(image, QPointF(2, 12)), QColor(Qt::green));
        COMPARE_COLOR(PixelAt(image, QPointF(20, 12)), QColor(Qt::blue));
        m_control->SetBackgroundColorParams(QStyle::State(look.key), QString());
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(2, 12)), QColor(Qt::white)); // no fallback to another state
    }

    void entries_of_other_combinations_are_never_used()
    {
        const QImage before = Render(*m_control);
        ImageParams red;
        red.path = m_icon.Path();
        red.color = ColorParams("#FF0000");
        for (const int key : {0x2000, 4, 0x2004, 0x2005, 0xA000, 0x8004, 0xA004, 0xA005, 2}) {
            m_control->SetIconParam(QStyle::State(key), red);
            m_control->SetBackgroundColorParams(QStyle::State(key), QStringLiteral("#FF0000"));
        }
        QCOMPARE(Render(*m_control), before);
        for (const Look &look : kLooks) {
            BringTo(*m_control, look);
            const QImage image = Render(*m_control);
            QVERIFY2(!Close(PixelAt(image, QPointF(2, 12)), Qt::red), look.name);
            QVERIFY2(!Close(PixelAt(image, QPointF(20, 12)), Qt::red), look.name);
            LetGo(*m_control);
        }
    }

    void a_fresh_table_undoes_what_the_host_set_but_the_path()
    {
        MoveCursorOver(*m_control);
        const QImage before = Render(*m_control);
        ImageParams red;
        red.path = QStringLiteral(":/images/none.svg");
        m_control->SetIconParam(kHover, red);
        m_control->SetBackgroundColorParams(kHover, QStringLiteral("#FF0000"));
        m_control->SetBorderRadius(9);
        QVERIFY(Render(*m_control) != before);
        m_control->UpdateUiParams();
        QCOMPARE(Render(*m_control), before);
        QCOMPARE(m_control->GetIconPath(), m_icon.Path());
    }

    // --- The icon ---

    void the_icon_is_centred_at_icon_size_data()
    {
        QTest::addColumn<QSize>("button");
        QTest::addColumn<QSize>("icon");
        QTest::addColumn<QPoint>("place");
        QTest::newRow("even") << QSize(40, 24) << QSize(16, 16) << QPoint(12, 4);
        QTest::newRow("odd") << QSize(41, 25) << QSize(16, 16) << QPoint(12, 4);
        QTest::newRow("not square") << QSize(40, 24) << QSize(30, 10) << QPoint(5, 7);
        QTest::newRow("wider than the button") << QSize(41, 24) << QSize(60, 10) << QPoint(-9, 7); // towards zero
    }

    void the_icon_is_centred_at_icon_size()
    {
        QFETCH(QSize, button);
        QFETCH(QSize, icon);
        QFETCH(QPoint, place);
        m_control->setFixedSize(button);
        m_control->setIconSize(icon);
        ImageParams params;
        params.size = QSize(3, 3); // which plays no part
        m_control->SetIconParam(kNormal, params);
        QPixmap red(icon);
        red.fill(Qt::red);
        QImage expected = Canvas(*m_control);
        QPainter painter(&expected);
        painter.drawPixmap(place, red);
        QVERIFY(painter.end());
        QCOMPARE(Render(*m_control), expected);
    }

    void the_record_s_path_comes_before_the_common_one_in_its_state_only()
    {
        const VelmoraTest::SquareIcon other(QStringLiteral("#00FF00"));
        ImageParams params;
        params.path = other.Path();
        m_control->SetIconParam(kNormal, params);
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(20, 12)), QColor(Qt::green)); // as the file draws it: no colour, no recolouring
        MoveCursorOver(*m_control);
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(20, 12)),
                      Painted(Table::Light, kPlainIcon, Painted(Table::Light, QLatin1String(kToolBackgrounds[2]), Qt::white)));
    }

    void a_missing_icon_paints_none_and_says_nothing()
    {
        m_control->SetIconPath(QStringLiteral(":/images/none.svg"));
        QVERIFY(InkBox(Render(*m_control), Qt::white, 0).isNull());
        m_control->SetIconPath(QString());
        QVERIFY(InkBox(Render(*m_control), Qt::white, 0).isNull());
        m_control->SetIconPath(m_icon.Path());
        m_control->setIconSize(QSize(0, 16));
        QVERIFY(InkBox(Render(*m_control), Qt::white, 0).isNull());
    }

    void text_menu_arrow_and_focus_are_not_painted()
    {
        const QImage before = Render(*m_control);
        m_control->setText(QStringLiteral("Text"));
        m_control->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        QMenu menu;
        m_control->setMenu(&menu);
        m_control->setPopupMode(QToolButton::MenuButtonPopup);
        m_control->setArrowType(Qt::DownArrow);
        m_control->setFocus(Qt::TabFocusReason);
        QVERIFY(m_control->hasFocus());
        QCOMPARE(Render(*m_control), before);
    }

    // --- What repaints, what announces a size ---

    void setters_repaint_and_announce_the_size_data()
    {
        QTest::addColumn<int>("setter");
        QTest::addColumn<bool>("announces");
        QTest::newRow("background") << 0 << false;
        QTest::newRow("icon of a state") << 1 << true;
        QTest::newRow("icon") << 2 << true;
        QTest::newRow("radius") << 3 << false;
        QTest::newRow("tables") << 4 << true;
    }

    void setters_repaint_and_announce_the_size()
    {
        QFETCH(int, setter);
        QFETCH(bool, announces);
        const std::function<void()> setters[] = {
            [this] { m_control->SetBackgroundColorParams(kNormal, QString()); },
            [this] { m_control->SetIconParam(kNormal, ImageParams()); },
            [this] { m_control->SetIconPath(QString()); },
            [this] { m_control->SetBorderRadius(2); },
            [this] { m_control->UpdateUiParams(); },
        };
        EventCounter paints(*m_control, QEvent::Paint);
        EventCounter requests(*m_window, QEvent::LayoutRequest);
        setters[setter]();
        DrainEvents();
        QCOMPARE(paints.Take(), 1);
        QCOMPARE(requests.Take() > 0, announces);
    }

    void another_height_announces_the_size_and_another_width_does_not()
    {
        EventCounter requests(*m_window, QEvent::LayoutRequest);
        m_control->resize(m_control->width() + 20, 24);
        DrainEvents();
        QCOMPARE(requests.Take(), 0);
        m_control->setMaximumHeight(100);
        DrainEvents();
        requests.Take();
        m_control->resize(m_control->width(), 60);
        DrainEvents();
        QVERIFY(requests.Take() > 0);
    }

    void a_theme_change_repaints_once_and_keeps_the_tables()
    {
        m_control->SetBackgroundColorParams(kNormal, QStringLiteral("brand/brand"));
        DrainEvents();
        EventCounter paints(*m_control, QEvent::Paint);
        UseTable(Table::Dark);
        QCOMPARE(paints.Take(), 1);
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(2, 12)), Over(TokenOf(Table::Dark, QStringLiteral("brand/brand"))));
    }

    // --- States ---

    void hover_and_press_come_and_go()
    {
        MoveCursorOver(*m_control);
        QCOMPARE(int(m_control->GetState()), 0x2001);
        for (const Qt::MouseButton mouse : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            EventCounter paints(*m_control, QEvent::Paint);
            QTest::mousePress(m_control, mouse);
            QCOMPARE(int(m_control->GetState()), 0x2005); // whichever button it is
            DrainEvents();
            QVERIFY(paints.Take() > 0);
            QTest::mouseRelease(m_control, mouse);
            QCOMPARE(int(m_control->GetState()), 0x2001);
            DrainEvents();
            QVERIFY(paints.Take() > 0);
        }
        MoveCursorAway();
        QCOMPARE(int(m_control->GetState()), 1);
    }

    void a_press_dragged_off_looks_pressed_until_its_release()
    {
        QSignalSpy clicks(m_control, &QAbstractButton::clicked);
        MoveCursorOver(*m_control);
        QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, m_control->geometry().center());
        QTest::mouseMove(m_window->windowHandle(), QPoint(200, 150));
        DrainEvents();
        QVERIFY(m_control->GetState() & QStyle::State_Sunken);
        QVERIFY(!m_control->isDown());
        QTest::mouseRelease(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
        MoveCursorAway();
        QCOMPARE(int(m_control->GetState()), 1);
        QCOMPARE(clicks.count(), 0);
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, m_control->geometry().center());
        QCOMPARE(clicks.count(), 1);
    }

    void a_press_that_opens_a_menu_ends_with_the_menu_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("x");
        QTest::addColumn<bool>("isCursorAway");
        for (const bool isAway : {false, true}) {
            const char *const end = isAway ? "cursor away" : "cursor over it";
            QTest::addRow("at once, %s", end) << int(QToolButton::InstantPopup) << 5 << isAway;
            QTest::addRow("at the arrow, %s", end) << int(QToolButton::MenuButtonPopup) << 37 << isAway;
            QTest::addRow("after a while, %s", end) << int(QToolButton::DelayedPopup) << 5 << isAway;
        }
    }

    void a_press_that_opens_a_menu_ends_with_the_menu()
    {
        QFETCH(int, mode);
        QFETCH(int, x);
        QFETCH(bool, isCursorAway);
        QMenu menu;
        menu.addAction(QStringLiteral("Entry"));
        m_control->setMenu(&menu);
        m_control->setPopupMode(QToolButton::ToolButtonPopupMode(mode));
        MoveCursorOver(*m_control);
        bool hasOpened = false;
        const auto useMenu = [&] {
            hasOpened = menu.isVisible();
            QCOMPARE(int(m_control->GetState()), 0x2005);
            QTest::mouseRelease(menu.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(-5, -5)); // which the menu takes
            if (isCursorAway)
                MoveCursorAway();
            QTest::keyClick(&menu, Qt::Key_Escape);
        };
        connect(&menu, &QMenu::aboutToShow, &menu, useMenu, Qt::QueuedConnection);
        const QPoint place = m_control->mapTo(m_window.get(), QPoint(x, 12));
        QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
        QTRY_VERIFY(hasOpened);
        DrainEvents();
        QVERIFY(!m_control->isDown());
        QCOMPARE(int(m_control->GetState()), isCursorAway ? 1 : 0x2001);
    }

    void a_menu_may_delete_the_button_that_opened_it_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("at once") << int(QToolButton::InstantPopup);
        QTest::newRow("after a while") << int(QToolButton::DelayedPopup);
    }

    void a_menu_may_delete_the_button_that_opened_it()
    {
        QFETCH(int, mode);
        const QPointer<QcToolButton> button = m_control;
        QMenu menu;
        menu.addAction(QStringLiteral("Entry"));
        m_control->setMenu(&menu);
        m_control->setPopupMode(QToolButton::ToolButtonPopupMode(mode));
        const auto useMenu = [&] {
            delete m_control;
            m_control = nullptr;
            menu.close();
        };
        connect(&menu, &QMenu::aboutToShow, &menu, useMenu, Qt::QueuedConnection);
        const QPoint place = m_control->geometry().center();
        QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
        QTRY_VERIFY(!button);
        DrainEvents();
        QTest::mouseRelease(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    }

    void a_button_disabled_while_hovered_keeps_its_hover_unseen()
    {
        MoveCursorOver(*m_control);
        m_control->setEnabled(false);
        QCOMPARE(int(m_control->GetState()), 0x2000);
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(2, 12)), QColor(Qt::white));
        m_control->setEnabled(true);
        QCOMPARE(int(m_control->GetState()), 0x2001);
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(2, 12)), Painted(Table::Light, QLatin1String(kToolBackgrounds[2]), Qt::white));
    }

    void a_disabled_button_shows_the_forbidden_cursor()
    {
        QVERIFY(!m_control->testAttribute(Qt::WA_SetCursor));
        m_control->setEnabled(false);
        QCOMPARE(m_control->cursor().shape(), Qt::ForbiddenCursor);
        EventCounter paints(*m_control, QEvent::Paint);
        m_control->setEnabled(true);
        QVERIFY(!m_control->testAttribute(Qt::WA_SetCursor)); // the inherited one again
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        m_window->setCursor(Qt::CrossCursor);
        QCOMPARE(m_control->cursor().shape(), Qt::CrossCursor);
        m_window->setEnabled(false); // with its window as well
        QCOMPARE(m_control->cursor().shape(), Qt::ForbiddenCursor);
        QCOMPARE(int(m_control->GetState()), 0);
        m_window->setEnabled(true);
        QCOMPARE(m_control->cursor().shape(), Qt::CrossCursor);
    }

    void one_made_in_a_disabled_parent_starts_disabled()
    {
        m_window->setEnabled(false);
        HostButton button(m_window.get());
        QCOMPARE(int(button.GetState()), 0);
        QCOMPARE(button.cursor().shape(), Qt::ForbiddenCursor);
        m_window->setEnabled(true);
        QCOMPARE(int(button.GetState()), 1);
        QVERIFY(!button.testAttribute(Qt::WA_SetCursor));
    }

    void toggling_shows_also_while_disabled()
    {
        m_control->setCheckable(true);
        m_control->setEnabled(false);
        EventCounter paints(*m_control, QEvent::Paint);
        m_control->setChecked(true);
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        QCOMPARE(int(m_control->GetState()), 0x8000);
        m_control->setEnabled(true);
        QCOMPARE(int(m_control->GetState()), 0x8001);
        m_control->setChecked(false);
        QCOMPARE(int(m_control->GetState()), 1);
    }

    void a_button_that_cannot_be_checked_never_looks_checked()
    {
        m_control->setChecked(true);
        QCOMPARE(int(m_control->GetState()), 1);
        Q_EMIT m_control->toggled(true); // the button is asked, not the signal
        QCOMPARE(int(m_control->GetState()), 1);
        m_control->setCheckable(true);
        m_control->setChecked(true);
        Q_EMIT m_control->toggled(false);
        QCOMPARE(int(m_control->GetState()), 0x8001);
    }

    void a_change_that_no_signal_tells_shows_in_the_next_paint()
    {
        const auto fill = [this] { return PixelAt(Render(*m_control), QPointF(2, 12)); };
        const QColor checked = Painted(Table::Light, QLatin1String(kToolBackgrounds[5]), Qt::white);
        m_control->setCheckable(true);
        m_control->setChecked(true);
        COMPARE_COLOR(fill(), checked);
        m_control->setCheckable(false); // which unchecks it
        COMPARE_COLOR(fill(), QColor(Qt::white));
        m_control->setCheckable(true);
        const QSignalBlocker blocker(m_control);
        m_control->setChecked(true);
        COMPARE_COLOR(fill(), checked);
        QCOMPARE(int(m_control->GetState()), 0x8001);
    }

    void the_slot_is_private_and_the_class_known_by_name()
    {
        const QMetaObject &meta = QcToolButton::staticMetaObject;
        QCOMPARE(meta.className(), "Velmora::QcToolButton");
        QCOMPARE(meta.method(meta.indexOfSlot("OnToggled(bool)")).access(), QMetaMethod::Private);
    }

    // --- Keyboard, assistive technology, ownership ---

    void tab_reaches_it_and_space_presses_it_without_a_pressed_look()
    {
        m_elsewhere->setFocus();
        QTest::keyClick(m_window.get(), Qt::Key_Tab);
        QVERIFY(m_control->hasFocus());
        QSignalSpy clicks(m_control, &QAbstractButton::clicked);
        QTest::keyPress(m_control, Qt::Key_Space);
        QVERIFY(m_control->isDown());
        QCOMPARE(int(m_control->GetState()), 1); // the look follows the mouse
        QTest::keyRelease(m_control, Qt::Key_Space);
        QCOMPARE(clicks.count(), 1);
    }

    void it_is_described_by_its_text_its_action_or_its_tool_tip()
    {
        QAccessibleInterface *described = QAccessible::queryAccessibleInterface(m_control);
        QVERIFY(described);
        QCOMPARE(described->role(), QAccessible::Button);
        QCOMPARE(described->text(QAccessible::Name), QString());
        m_control->setToolTip(QStringLiteral("Cuts"));
        QCOMPARE(described->text(QAccessible::Name), QStringLiteral("Cuts"));
        m_control->setText(QStringLiteral("&Cut"));
        QCOMPARE(described->text(QAccessible::Name), QStringLiteral("Cut"));
        QAction action(QStringLiteral("Find && &replace..."));
        m_control->setDefaultAction(&action);
        QCOMPARE(described->text(QAccessible::Name), QStringLiteral("Find & replace"));
        m_control->setAccessibleName(QStringLiteral("Host's"));
        QCOMPARE(described->text(QAccessible::Name), QStringLiteral("Host's"));
        QVERIFY(!described->state().checkable);
        action.setCheckable(true);
        action.setChecked(true);
        QVERIFY(described->state().checked);
        QCOMPARE(int(m_control->GetState()), 0x8001);
    }

    void its_menu_is_an_action_beside_the_click_or_the_click_itself()
    {
        QAccessibleInterface *described = QAccessible::queryAccessibleInterface(m_control);
        QAccessibleActionInterface *actions = described->actionInterface();
        const QString press = QAccessibleActionInterface::pressAction();
        const QString showMenu = QAccessibleActionInterface::showMenuAction();
        const QString setFocus = QAccessibleActionInterface::setFocusAction();
        QCOMPARE(actions->actionNames(), (QStringList{press, setFocus}));
        QMenu menu;
        menu.addAction(QStringLiteral("Entry"));
        m_control->setMenu(&menu);
        QCOMPARE(described->role(), QAccessible::ButtonMenu);
        QVERIFY(described->state().hasPopup);
        QCOMPARE(actions->actionNames(), (QStringList{press, showMenu, setFocus}));
        QSignalSpy clicks(m_control, &QAbstractButton::clicked);
        actions->doAction(press);
        QTRY_COMPARE(clicks.count(), 1);
        QSignalSpy shown(&menu, &QMenu::aboutToShow);
        connect(&menu, &QMenu::aboutToShow, &menu, &QMenu::close, Qt::QueuedConnection);
        actions->doAction(showMenu);
        QTRY_COMPARE(shown.count(), 1);
        m_control->setPopupMode(QToolButton::InstantPopup);
        QCOMPARE(actions->actionNames(), (QStringList{showMenu, setFocus}));
        actions->doAction(press);
        QTRY_COMPARE(shown.count(), 2);
        m_control->setEnabled(false);
        actions->doAction(showMenu);
        DrainEvents();
        QCOMPARE(shown.count(), 2);
        QCOMPARE(clicks.count(), 1);
    }

    void menu_and_action_may_die_first()
    {
        auto menu = std::make_unique<QMenu>();
        m_control->setMenu(menu.get());
        menu.reset();
        QCOMPARE(m_control->menu(), nullptr);
        auto action = std::make_unique<QAction>(QStringLiteral("Action"));
        m_control->setDefaultAction(action.get());
        action.reset();
        QCOMPARE(m_control->defaultAction(), nullptr);
        QTest::mouseClick(m_control, Qt::LeftButton);
        m_control->setMenu(nullptr);
        QCOMPARE(QAccessible::queryAccessibleInterface(m_control)->role(), QAccessible::Button);
    }

    void a_click_may_delete_the_button()
    {
        const QPointer<QcToolButton> button = m_control;
        connect(m_control, &QAbstractButton::clicked, m_control, [this] { delete m_control; });
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, m_control->geometry().center());
        QVERIFY(!button);
        m_control = nullptr;
    }

protected:
    void Prepare() override
    {
        m_elsewhere = new QToolButton(m_window.get());
        m_elsewhere->setGeometry(10, 150, 40, 20);
        m_control->setGeometry(10, 10, 40, 24);
        m_control->setIconSize(QSize(16, 16));
        m_control->SetIconPath(m_icon.Path());
    }

private:
    const VelmoraTest::SquareIcon m_icon{QStringLiteral("#FF0000")};
    QWidget *m_elsewhere = nullptr;
};

VELMORA_TEST_MAIN(TestQcToolButton)

#include "tst_QcToolButton.moc"
