#include "support/KeepsHover.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include "buttons/ButtonLooks.h"

#include <Velmora/QcButton.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcGhostButton.h>
#include <Velmora/QcHighlightButton.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcMenuToolButton.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcSwitchButton.h>
#include <Velmora/QcTertiaryButton.h>
#include <Velmora/QcTextButton.h>
#include <Velmora/QcTextLinkButton.h>
#include <Velmora/QcToolButton.h>
#include <Velmora/QcToolColorButton.h>

#include <QEnterEvent>
#include <QLayout>
#include <QMenu>
#include <QPaintEvent>
#include <QPointer>
#include <QSignalBlocker>
#include <QWindow>

#include <functional>
#include <memory>
#include <type_traits>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// An opaque colour for each look, so that the look can be read from the background.
QColor ColorOf(const Look &look)
{
    return QColor::fromHsv(int(&look - kLooks) * 40, 255, 200);
}

constexpr const Look &kDisabled = kLooks[0];
constexpr const Look &kNormal = kLooks[1];
constexpr const Look &kHover = kLooks[2];
constexpr const Look &kPressed = kLooks[3];
constexpr const Look &kCheckedNormal = kLooks[5];

QAbstractButton *HalfOf(const QWidget &combined, int index)
{
    return qobject_cast<QAbstractButton *>(combined.layout()->itemAt(index)->widget());
}

QAbstractButton *Itself(const QWidget &widget)
{
    return qobject_cast<QAbstractButton *>(const_cast<QWidget *>(&widget));
}

QAbstractButton *MainHalf(const QWidget &widget)
{
    return HalfOf(widget, 0);
}

QAbstractButton *ArrowHalf(const QWidget &widget)
{
    return HalfOf(widget, 1);
}

template <typename Button>
QWidget *Make(QWidget *parent)
{
    return new Button(parent);
}

template <typename Button>
void Dress(QWidget &widget)
{
    auto &button = static_cast<Button &>(widget);
    button.SetBorderRadius(0); // so that a corner shows the background
    for (const Look &look : kLooks) {
        button.SetBackgroundColorParams(QStyle::State(look.key), ColorOf(look).name());
        if constexpr (std::is_base_of_v<QcButton, Button>)
            button.SetBorderColorParams(QStyle::State(look.key), QString());
    }
}

/// One of the buttons that paint themselves. Of a combined one either half is a button.
struct Kind
{
    const char *name;
    QWidget *(*make)(QWidget *parent);
    void (*dress)(QWidget &widget);
    QAbstractButton *(*button)(const QWidget &widget);
};

template <typename Button>
constexpr Kind KindOf(const char *name)
{
    return {name, Make<Button>, Dress<Button>, Itself};
}

constexpr Kind kKinds[] = {
    KindOf<QcButton>("QcButton"),
    KindOf<QcPrimaryButton>("QcPrimaryButton"),
    KindOf<QcSecondaryButton>("QcSecondaryButton"),
    KindOf<QcTertiaryButton>("QcTertiaryButton"),
    KindOf<QcGhostButton>("QcGhostButton"),
    KindOf<QcHighlightButton>("QcHighlightButton"),
    KindOf<QcIconButton>("QcIconButton"),
    KindOf<QcTextButton>("QcTextButton"),
    KindOf<QcTextLinkButton>("QcTextLinkButton"),
    KindOf<QcSwitchButton>("QcSwitchButton"),
    KindOf<QcToolButton>("QcToolButton"),
    KindOf<QcToolColorButton>("QcToolColorButton"),
    KindOf<QcMenuTextButton>("QcMenuTextButton"),
    KindOf<QcMenuToolButton>("QcMenuToolButton"),
    {"QcCombinedToolButton, main", Make<QcCombinedToolButton>, Dress<QcCombinedToolButton>, MainHalf},
    {"QcCombinedToolButton, arrow", Make<QcCombinedToolButton>, Dress<QcCombinedToolButton>, ArrowHalf},
};
constexpr int kArrowKind = 15; // which is not checked, nor looks pressed

/// How a press comes to open a menu that takes the release.
enum class Opening { ByButton, ByPressedAndExec, ByPressedAndPopup, ByRightPress };

/// What of a widget has been painted.
class PaintedRegion : public QObject
{
public:
    explicit PaintedRegion(QWidget &widget) { widget.installEventFilter(this); }

    QRegion region;

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
};

} // namespace

/// The rules of state that hold for all buttons that paint themselves alike.
class TestButtonStates : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // --- The check ---

    void a_check_with_blocked_signals_shows_data() { AddKinds(kArrowKind); }
    void a_check_with_blocked_signals_shows()
    {
        MakeButton();
        m_button->setCheckable(true);
        DrainEvents();
        PaintedRegion painted(*m_widget);
        const QSignalBlocker blocker(m_button);
        for (const bool isChecked : {true, false, true}) {
            painted.region = QRegion();
            m_button->setChecked(isChecked);
            DrainEvents();
            QCOMPARE(painted.region.boundingRect(), m_widget->rect()); // on the screen too, all of it
            QVERIFY(Shows(isChecked ? kCheckedNormal : kNormal));
        }
    }

    void a_click_with_blocked_signals_shows_data() { AddKinds(kArrowKind); }
    void a_click_with_blocked_signals_shows()
    {
        MakeButton();
        m_button->setCheckable(true);
        const QSignalBlocker blocker(m_button);
        m_button->click();
        QVERIFY(Shows(kCheckedNormal));
    }

    void a_button_that_stops_being_checkable_looks_unchecked_data() { AddKinds(kArrowKind); }
    void a_button_that_stops_being_checkable_looks_unchecked()
    {
        MakeButton();
        m_button->setCheckable(true);
        m_button->setChecked(true);
        QVERIFY(Shows(kCheckedNormal));
        m_button->setCheckable(false);
        QVERIFY(Shows(kNormal));
        m_button->setCheckable(true); // unchecked
        QVERIFY(Shows(kNormal));
        m_button->setChecked(true);
        QVERIFY(Shows(kCheckedNormal));
    }

    // --- Presses and menus ---

    void a_press_whose_release_a_menu_took_ends_with_the_menu_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("opening");
        for (int i = 0; i < kArrowKind; ++i) {
            QTest::addRow("%s, its own", kKinds[i].name) << i << int(Opening::ByButton);
            QTest::addRow("%s, run by a handler", kKinds[i].name) << i << int(Opening::ByPressedAndExec);
            QTest::addRow("%s, shown by a handler", kKinds[i].name) << i << int(Opening::ByPressedAndPopup);
            QTest::addRow("%s, a right press", kKinds[i].name) << i << int(Opening::ByRightPress);
        }
    }

    void a_press_whose_release_a_menu_took_ends_with_the_menu()
    {
        QFETCH(int, opening);
        MakeButton();
        QMenu menu;
        menu.addAction(QStringLiteral("Entry"));
        Prepare(menu, Opening(opening));
        const Qt::MouseButton mouse = Opening(opening) == Opening::ByRightPress ? Qt::RightButton : Qt::LeftButton;
        MoveCursorOver(*m_button);
        bool wasPressed = false;
        bool wasPressedAfterTheRelease = false;
        const auto useMenu = [&] {
            wasPressed = menu.isVisible() && Shows(kPressed);
            QTest::mouseRelease(menu.windowHandle(), mouse, Qt::NoModifier, QPoint(-5, -5)); // which the menu takes
            wasPressedAfterTheRelease = Shows(kPressed);
            MoveCursorAway();
            menu.close();
        };
        connect(&menu, &QMenu::aboutToShow, &menu, useMenu, Qt::QueuedConnection);
        QTest::mousePress(m_window->windowHandle(), mouse, Qt::NoModifier, Centre()); // a right one asks for a context menu as well
        DrainEvents();
        QVERIFY(wasPressed);
        QVERIFY(wasPressedAfterTheRelease);
        DrainEvents();
        QVERIFY(Shows(kNormal));
    }

    void a_submenu_that_closes_leaves_the_press_of_the_open_menu_data() { AddKinds(kArrowKind); }
    void a_submenu_that_closes_leaves_the_press_of_the_open_menu()
    {
        MakeButton();
        QMenu menu;
        QMenu *submenu = menu.addMenu(QStringLiteral("More"));
        submenu->addAction(QStringLiteral("Entry"));
        MoveCursorOver(*m_button);
        QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, Centre());
        QVERIFY(Shows(kPressed));
        menu.popup(QPoint(400, 400));
        submenu->popup(QPoint(420, 420));
        submenu->hide();
        QVERIFY(Shows(kPressed));
        menu.hide();
        QVERIFY(Shows(kHover));
    }

    void a_tip_that_goes_leaves_the_press_data() { AddKinds(kArrowKind); }
    void a_tip_that_goes_leaves_the_press()
    {
        MakeButton();
        QWidget tip(nullptr, Qt::Tool); // it takes no mouse, so the button hears of its own release
        tip.setAttribute(Qt::WA_ShowWithoutActivating);
        tip.setGeometry(400, 400, 20, 20);
        MoveCursorOver(*m_button);
        tip.show();
        QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, Centre());
        tip.hide();
        QVERIFY(Shows(kPressed));
    }

    void a_press_after_the_menu_is_a_press_again_data() { AddKinds(kArrowKind); }
    void a_press_after_the_menu_is_a_press_again()
    {
        MakeButton();
        MoveCursorOver(*m_button);
        for (int i = 0; i < 2; ++i) {
            QMenu menu;
            menu.addAction(QStringLiteral("Entry"));
            m_button->setCheckable(false);
            QTest::mousePress(m_button, Qt::LeftButton);
            QVERIFY(Shows(kPressed));
            menu.popup(QPoint(400, 400));
            menu.hide();
            QVERIFY(Shows(kHover));
        }
    }

    // --- Hover and menus ---

    void a_menu_that_closes_ends_the_hover_that_the_cursor_has_left_data() { AddKinds(); }
    void a_menu_that_closes_ends_the_hover_that_the_cursor_has_left()
    {
        MakeButton();
        QMenu menu;
        menu.addAction(QStringLiteral("Entry"));
        for (const bool isLeft : {false, true}) {
            MoveCursorOver(*m_button);
            QVERIFY(Shows(kHover));
            menu.popup(QPoint(400, 400));
            if (isLeft)
                LeaveUntold();
            QVERIFY(Shows(kHover));
            menu.close();
            QVERIFY(Shows(isLeft ? kNormal : kHover));
        }
    }

    void a_popup_that_closes_repaints_data() { AddKinds(); }
    void a_popup_that_closes_repaints()
    {
        MakeButton();
        QWidget popup(nullptr, Qt::Popup);
        popup.setAttribute(Qt::WA_DontShowOnScreen);
        QWidget elsewhere(m_window.get());
        elsewhere.setGeometry(200, 150, 10, 10);
        elsewhere.setFocusPolicy(Qt::StrongFocus);
        elsewhere.show();
        elsewhere.setFocus(); // Qt repaints a button to which a popup returns the focus
        LeaveUntold();
        popup.show();
        DrainEvents();
        QVERIFY(Shows(kHover));
        PaintedRegion painted(*m_widget);
        popup.hide();
        DrainEvents();
        QCOMPARE(painted.region.boundingRect(), m_widget->rect());
        QVERIFY(Shows(kNormal));
    }

    void a_menu_that_dies_open_ends_the_hover_too_data() { AddKinds(); }
    void a_menu_that_dies_open_ends_the_hover_too()
    {
        MakeButton();
        auto menu = std::make_unique<QMenu>();
        menu->addAction(QStringLiteral("Entry"));
        MoveCursorOver(*m_button);
        menu->popup(QPoint(400, 400));
        LeaveUntold();
        QVERIFY(Shows(kHover));
        menu.reset();
        QVERIFY(Shows(kNormal));
    }

    void a_menu_outlives_the_button_that_was_hovered_data() { AddKinds(); }
    void a_menu_outlives_the_button_that_was_hovered()
    {
        MakeButton();
        QMenu menu;
        menu.addAction(QStringLiteral("Entry"));
        MoveCursorOver(*m_button);
        menu.popup(QPoint(400, 400));
        delete m_widget;
        menu.close(); // reaches nobody
        QVERIFY(!m_button);
    }

    // --- The enabled state ---

    void one_made_in_a_disabled_parent_starts_disabled_data() { AddKinds(); }
    void one_made_in_a_disabled_parent_starts_disabled()
    {
        m_window->setEnabled(false);
        MakeButton();
        QVERIFY(Shows(kDisabled));
        QCOMPARE(m_widget->cursor().shape(), Qt::ForbiddenCursor);
        m_window->setEnabled(true);
        QVERIFY(Shows(kNormal));
        QVERIFY(!m_widget->testAttribute(Qt::WA_SetCursor));
    }

    void one_that_a_disabled_parent_takes_in_is_disabled_data() { AddKinds(); }
    void one_that_a_disabled_parent_takes_in_is_disabled()
    {
        MakeButton();
        QWidget disabled;
        disabled.setEnabled(false);
        m_widget->setParent(&disabled);
        QVERIFY(Shows(kDisabled));
        m_widget->setParent(m_window.get());
        QVERIFY(Shows(kNormal));
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
        if (m_button)
            LetGo(*m_button);
        m_window.reset();
    }

private:
    static void AddKinds(int count = int(std::size(kKinds)))
    {
        QTest::addColumn<int>("kind");
        for (int i = 0; i < count; ++i)
            QTest::newRow(kKinds[i].name) << i;
    }

    void MakeButton()
    {
        QFETCH(int, kind);
        m_widget = kKinds[kind].make(m_window.get());
        m_button = kKinds[kind].button(*m_widget);
        m_widget->setMinimumSize(28, 14);
        m_widget->move(10, 10);
        m_window->show();
        new KeepsHover(*m_window); // owned by it
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        DrainEvents();
        kKinds[kind].dress(*m_widget); // now that the variants have filled their tables
        DrainEvents();
    }

    void Prepare(QMenu &menu, Opening opening)
    {
        switch (opening) {
        case Opening::ByButton:
            // As a host does that knows the button by its base class.
            if (auto *pushButton = qobject_cast<QPushButton *>(m_button))
                pushButton->setMenu(&menu);
            else if (auto *toolButton = qobject_cast<QToolButton *>(m_button)) {
                toolButton->setPopupMode(QToolButton::InstantPopup);
                toolButton->setMenu(&menu);
            }
            break;
        case Opening::ByPressedAndExec:
            connect(m_button, &QAbstractButton::pressed, &menu, [&menu] { menu.exec(QPoint(400, 400)); });
            break;
        case Opening::ByPressedAndPopup:
            connect(m_button, &QAbstractButton::pressed, &menu, [&menu] { menu.popup(QPoint(400, 400)); });
            break;
        case Opening::ByRightPress:
            m_button->setContextMenuPolicy(Qt::CustomContextMenu);
            connect(m_button, &QWidget::customContextMenuRequested, &menu, [&menu] { menu.exec(QPoint(400, 400)); });
            break;
        }
    }

    /// Takes the cursor away without a leave event, as it goes on X11 while a menu is open.
    void LeaveUntold()
    {
        MoveCursorAway();
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        QCoreApplication::sendEvent(m_button, &enter);
        DrainEvents();
    }

    QPoint Centre() const { return m_button->mapTo(m_window.get(), m_button->rect().center()); }

    /// Whether the button's corner shows the background of \a look.
    bool Shows(const Look &look)
    {
        const QPoint corner = m_button->mapTo(m_widget, QPoint(0, 0));
        return Close(PixelAt(Render(*m_widget), corner), ColorOf(look));
    }

    std::unique_ptr<QWidget> m_window;
    QPointer<QWidget> m_widget;
    QPointer<QAbstractButton> m_button; // the widget itself, or the half that is tested
};

VELMORA_TEST_MAIN(TestButtonStates)

#include "tst_ButtonStates.moc"
