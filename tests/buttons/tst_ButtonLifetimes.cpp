#include "support/TestMain.h"

#include "buttons/ButtonLooks.h"

#include <Velmora/QcButton.h>
#include <Velmora/QcCheckBox.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcMenuToolButton.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcRadioButton.h>
#include <Velmora/QcSwitchButton.h>
#include <Velmora/QcToolButton.h>
#include <Velmora/QcToolColorButton.h>

#include <QAction>
#include <QLayout>
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

template <typename Button>
QWidget *Make(QWidget *parent)
{
    return new Button(parent);
}

/// A button, or half of one, that goes with the whole.
struct Kind
{
    const char *name;
    QWidget *(*make)(QWidget *parent);
    int half;                 ///< of a combined button; -1 for a button by itself
    bool hasMenu;             ///< that the host can give it
    bool survivesAboutToShow; ///< As Qt's push buttons do and its tool buttons do not.
};

constexpr Kind kKinds[] = {
    {"QcButton", Make<QcButton>, -1, true, true},
    {"QcPrimaryButton", Make<QcPrimaryButton>, -1, true, true},
    {"QcSwitchButton", Make<QcSwitchButton>, -1, true, true},
    {"QcToolButton", Make<QcToolButton>, -1, true, false},
    {"QcToolColorButton", Make<QcToolColorButton>, -1, true, false},
    {"QcMenuTextButton", Make<QcMenuTextButton>, -1, true, true},
    {"QcMenuToolButton", Make<QcMenuToolButton>, -1, true, false},
    {"QcCheckBox", Make<QcCheckBox>, -1, false, false},
    {"QcRadioButton", Make<QcRadioButton>, -1, false, false},
    {"main half", Make<QcCombinedToolButton>, 0, false, false},
    {"arrow half", Make<QcCombinedToolButton>, 1, true, false},
};

enum class Signal { Pressed, Released, Clicked };
constexpr const char *kSignals[] = {"pressed", "released", "clicked"};

enum class Way { Mouse, Space, Click, SetChecked };
constexpr const char *kWays[] = {"the mouse", "Space", "click()", "setChecked()"};

/// When of a menu the button is deleted.
enum class Moment { AboutToShow, Open, Chosen, AboutToHide };
constexpr const char *kMoments[] = {"about to show", "open", "an entry is chosen", "about to hide"};

} // namespace

/// Handlers that delete the button whose signal they receive.
class TestButtonLifetimes : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_handler_may_delete_the_button_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("signal");
        QTest::addColumn<int>("way");
        for (int kind = 0; kind < int(std::size(kKinds)); ++kind) {
            for (const Signal signal : {Signal::Pressed, Signal::Released, Signal::Clicked}) {
                for (const Way way : {Way::Mouse, Way::Space, Way::Click})
                    QTest::addRow("%s: %s by %s", kKinds[kind].name, kSignals[int(signal)], kWays[int(way)])
                        << kind << int(signal) << int(way);
            }
        }
    }

    void a_handler_may_delete_the_button()
    {
        QFETCH(int, kind);
        QFETCH(int, signal);
        QFETCH(int, way);
        MakeButton(kKinds[kind]);
        m_button->setCheckable(true);
        const auto die = [this] { delete m_widget; };
        switch (Signal(signal)) {
        case Signal::Pressed:
            connect(m_button, &QAbstractButton::pressed, this, die);
            break;
        case Signal::Released:
            connect(m_button, &QAbstractButton::released, this, die);
            break;
        case Signal::Clicked:
            connect(m_button, &QAbstractButton::clicked, this, die);
            break;
        }
        Use(Way(way));
        QVERIFY(!m_widget);
        DrainEvents();
    }

    void a_handler_of_a_toggle_may_ask_for_the_deletion_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("way");
        for (int kind = 0; kind < int(std::size(kKinds)); ++kind) {
            for (const Way way : {Way::Mouse, Way::Space, Way::Click, Way::SetChecked})
                QTest::addRow("%s: %s", kKinds[kind].name, kWays[int(way)]) << kind << int(way);
        }
    }

    void a_handler_of_a_toggle_may_ask_for_the_deletion()
    {
        QFETCH(int, kind);
        QFETCH(int, way);
        MakeButton(kKinds[kind]);
        m_button->setCheckable(true);
        connect(m_button, &QAbstractButton::toggled, m_widget, &QObject::deleteLater);
        Use(Way(way));
        DrainEvents();
        QVERIFY(!m_widget);
    }

    void a_menu_may_delete_the_button_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("moment");
        QTest::addColumn<int>("way");
        for (int kind = 0; kind < int(std::size(kKinds)); ++kind) {
            if (!kKinds[kind].hasMenu)
                continue;
            for (const Moment moment : {Moment::AboutToShow, Moment::Open, Moment::Chosen, Moment::AboutToHide}) {
                if (moment == Moment::AboutToShow && !kKinds[kind].survivesAboutToShow)
                    continue;
                for (const Way way : {Way::Mouse, Way::Space, Way::Click})
                    QTest::addRow("%s: %s, opened by %s", kKinds[kind].name, kMoments[int(moment)], kWays[int(way)])
                        << kind << int(moment) << int(way);
            }
        }
    }

    void a_menu_may_delete_the_button()
    {
        QFETCH(int, kind);
        QFETCH(int, moment);
        QFETCH(int, way);
        MakeButton(kKinds[kind]);
        QMenu menu;
        QAction *entry = menu.addAction(QStringLiteral("Entry"));
        SetMenu(&menu);
        const auto die = [this] { delete m_widget; };
        const auto use = [&] {
            if (Moment(moment) == Moment::Open)
                die();
            if (Moment(moment) == Moment::Chosen)
                QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier, menu.actionGeometry(entry).center());
            menu.close();
        };
        if (Moment(moment) == Moment::AboutToShow)
            connect(&menu, &QMenu::aboutToShow, this, die);
        if (Moment(moment) == Moment::Chosen)
            connect(entry, &QAction::triggered, this, die);
        if (Moment(moment) == Moment::AboutToHide)
            connect(&menu, &QMenu::aboutToHide, this, die);
        connect(&menu, &QMenu::aboutToShow, this, use, Qt::QueuedConnection);
        Use(Way(way));
        DrainEvents();
        QVERIFY(!m_widget);
        QVERIFY(!menu.isVisible());
    }

    void a_menu_about_to_show_may_ask_for_the_deletion_data()
    {
        QTest::addColumn<int>("kind");
        for (int kind = 0; kind < int(std::size(kKinds)); ++kind) {
            if (kKinds[kind].hasMenu)
                QTest::newRow(kKinds[kind].name) << kind;
        }
    }

    void a_menu_about_to_show_may_ask_for_the_deletion()
    {
        QFETCH(int, kind);
        MakeButton(kKinds[kind]);
        QMenu menu;
        menu.addAction(QStringLiteral("Entry"));
        SetMenu(&menu);
        connect(&menu, &QMenu::aboutToShow, m_widget, &QObject::deleteLater);
        connect(&menu, &QMenu::aboutToShow, &menu, &QMenu::close, Qt::QueuedConnection);
        Use(Way::Mouse);
        DrainEvents();
        QVERIFY(!m_widget);
    }

    void the_current_action_may_delete_the_combined_button_data()
    {
        QTest::addColumn<int>("way");
        QTest::addColumn<bool>("isCheckable");
        for (const Way way : {Way::Mouse, Way::Space, Way::Click}) {
            QTest::addRow("%s", kWays[int(way)]) << int(way) << false;
            QTest::addRow("%s, toggled", kWays[int(way)]) << int(way) << true;
        }
    }

    void the_current_action_may_delete_the_combined_button()
    {
        QFETCH(int, way);
        QFETCH(bool, isCheckable);
        MakeButton(kKinds[9]);
        QAction action(QStringLiteral("Action"));
        action.setCheckable(isCheckable);
        static_cast<QcCombinedToolButton *>(m_widget.data())->SetCurrentAction(&action);
        const auto die = [this] { delete m_widget; };
        connect(&action, &QAction::triggered, this, die);
        connect(&action, &QAction::toggled, this, die);
        Use(Way(way));
        QVERIFY(!m_widget);
    }

    void the_current_action_may_delete_itself()
    {
        MakeButton(kKinds[9]);
        auto *combined = static_cast<QcCombinedToolButton *>(m_widget.data());
        QPointer<QAction> action = new QAction(QStringLiteral("Action"), m_window.get());
        combined->SetCurrentAction(action);
        connect(action, &QAction::triggered, this, [&action] { delete action; });
        Use(Way::Mouse);
        QVERIFY(!action);
        Use(Way::Mouse); // triggers nothing more
    }

protected:
    void SetUp() override
    {
        MoveCursorAway();
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(kWindowPlace);
    }

    void TearDown() override { m_window.reset(); }

private:
    void MakeButton(const Kind &kind)
    {
        m_widget = kind.make(m_window.get());
        m_widget->move(10, 10);
        m_widget->setMinimumSize(28, 14);
        QWidget *button = kind.half < 0 ? m_widget.data() : m_widget->layout()->itemAt(kind.half)->widget();
        m_button = qobject_cast<QAbstractButton *>(button);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        DrainEvents();
        m_button->setFocus();
    }

    void SetMenu(QMenu *menu)
    {
        if (auto *tool = qobject_cast<QToolButton *>(m_widget))
            tool->setPopupMode(QToolButton::InstantPopup);
        if (auto *combined = qobject_cast<QcCombinedToolButton *>(m_widget))
            combined->setMenu(menu);
        else if (auto *menuTool = qobject_cast<QcMenuToolButton *>(m_widget))
            menuTool->setMenu(menu);
        else if (auto *menuText = qobject_cast<QcMenuTextButton *>(m_widget))
            menuText->setMenu(menu);
        else if (auto *tool = qobject_cast<QToolButton *>(m_widget))
            tool->setMenu(menu);
        else
            qobject_cast<QPushButton *>(m_widget)->setMenu(menu);
    }

    void Use(Way way)
    {
        QWindow *window = m_window->windowHandle();
        const QPoint place = m_button->mapTo(m_window.get(), QPoint(5, m_button->height() / 2));
        switch (way) {
        case Way::Mouse:
            QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, place); // returns after its menu
            QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, place);
            break;
        case Way::Space:
            QTest::keyPress(window, Qt::Key_Space);
            QTest::keyRelease(window, Qt::Key_Space);
            break;
        case Way::Click:
            m_button->click();
            break;
        case Way::SetChecked:
            m_button->setChecked(true);
            break;
        }
    }

    std::unique_ptr<QWidget> m_window;
    QPointer<QWidget> m_widget;
    QPointer<QAbstractButton> m_button;
};

VELMORA_TEST_MAIN(TestButtonLifetimes)

#include "tst_ButtonLifetimes.moc"
