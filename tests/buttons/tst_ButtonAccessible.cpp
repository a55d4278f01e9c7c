#include "support/AccessibleEvents.h"
#include "support/TestMain.h"

#include <Velmora/QcArrowTipGlobal.h>
#include <Velmora/QcCheckBox.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcGhostButton.h>
#include <Velmora/QcHighlightButton.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcMenuToolButton.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcRadioButton.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcSwitchButton.h>
#include <Velmora/QcTertiaryButton.h>
#include <Velmora/QcTextButton.h>
#include <Velmora/QcTextLinkButton.h>
#include <Velmora/QcToolButton.h>
#include <Velmora/QcToolColorButton.h>

#include <QAccessible>
#include <QActionGroup>
#include <QButtonGroup>
#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

class HostButton : public QcPrimaryButton
{
    Q_OBJECT

public:
    using QcPrimaryButton::QcPrimaryButton;
};

QAccessibleInterface *Of(QObject &object)
{
    return QAccessible::queryAccessibleInterface(&object);
}

QString NameOf(QObject &object)
{
    return Of(object)->text(QAccessible::Name);
}

// --- Every class of button, beside what plain Qt has for it ---

struct Kind
{
    const char *name;
    QAbstractButton *(*make)(QWidget *parent);
    QAbstractButton *(*makePlain)(QWidget *parent);
};

template <typename Button>
QAbstractButton *Make(QWidget *parent)
{
    return new Button(parent);
}

template <int index>
QAbstractButton *MakeHalf(QWidget *parent)
{
    return (new QcCombinedToolButton(parent))->findChildren<QcToolButton *>().at(index);
}

constexpr Kind kKinds[] = {
    {"QcButton", Make<QcButton>, Make<QPushButton>},
    {"QcPrimaryButton", Make<QcPrimaryButton>, Make<QPushButton>},
    {"QcSecondaryButton", Make<QcSecondaryButton>, Make<QPushButton>},
    {"QcTertiaryButton", Make<QcTertiaryButton>, Make<QPushButton>},
    {"QcGhostButton", Make<QcGhostButton>, Make<QPushButton>},
    {"QcHighlightButton", Make<QcHighlightButton>, Make<QPushButton>},
    {"QcIconButton", Make<QcIconButton>, Make<QPushButton>},
    {"QcTextButton", Make<QcTextButton>, Make<QPushButton>},
    {"QcTextLinkButton", Make<QcTextLinkButton>, Make<QPushButton>},
    {"QcMenuTextButton", Make<QcMenuTextButton>, Make<QPushButton>},
    {"QcSwitchButton", Make<QcSwitchButton>, Make<QPushButton>},
    {"QcToolButton", Make<QcToolButton>, Make<QToolButton>},
    {"QcToolColorButton", Make<QcToolColorButton>, Make<QToolButton>},
    {"QcMenuToolButton", Make<QcMenuToolButton>, Make<QToolButton>},
    {"main half", MakeHalf<0>, Make<QToolButton>},
    {"arrow half", MakeHalf<1>, Make<QToolButton>},
    {"QcCheckBox", Make<QcCheckBox>, Make<QCheckBox>},
    {"QcRadioButton", Make<QcRadioButton>, Make<QRadioButton>},
};

void AddKinds()
{
    QTest::addColumn<int>("kind");
    for (const Kind &kind : kKinds)
        QTest::newRow(kind.name) << int(&kind - kKinds);
}

/// A way of being a button, and the role that it gives; NoRole is the one of plain Qt.
struct Setting
{
    const char *name;
    bool isCheckable;
    bool isAutoExclusive;
    enum { NoGroup, LooseGroup, ExclusiveGroup } group;
    bool hasMenu;
    QAccessible::Role role;
};

constexpr Setting kSettings[] = {
    {"plain", false, false, Setting::NoGroup, false, QAccessible::NoRole},
    {"exclusive, not checkable", false, true, Setting::ExclusiveGroup, false, QAccessible::NoRole},
    {"checkable", true, false, Setting::NoGroup, false, QAccessible::NoRole},
    {"checkable in a loose group", true, false, Setting::LooseGroup, false, QAccessible::NoRole},
    // Of these two plain Qt says check box, of all or of tool buttons.
    {"one of a group", true, false, Setting::ExclusiveGroup, false, QAccessible::RadioButton},
    {"one of its siblings", true, true, Setting::NoGroup, false, QAccessible::RadioButton},
    {"with a menu", false, false, Setting::NoGroup, true, QAccessible::ButtonMenu},
    {"checkable with a menu", true, false, Setting::NoGroup, true, QAccessible::ButtonMenu},
};

bool TakesMenus(const QAbstractButton &button)
{
    return qobject_cast<const QPushButton *>(&button) || qobject_cast<const QToolButton *>(&button);
}

void SetMenu(QAbstractButton &button, QMenu *menu)
{
    if (auto *pushButton = qobject_cast<QPushButton *>(&button))
        pushButton->setMenu(menu);
    else if (auto *toolButton = qobject_cast<QToolButton *>(&button))
        toolButton->setMenu(menu);
}

void Apply(const Setting &setting, QAbstractButton &button, QMenu &menu, QButtonGroup &group)
{
    button.setCheckable(setting.isCheckable);
    if (setting.isAutoExclusive)
        button.setAutoExclusive(true); // which radio buttons are
    group.setExclusive(setting.group == Setting::ExclusiveGroup);
    if (setting.group != Setting::NoGroup)
        group.addButton(&button);
    if (setting.hasMenu)
        SetMenu(button, &menu);
}

/// A window whose keyboard is elsewhere, with one button in it.
struct Shown
{
    explicit Shown(QAbstractButton *(*make)(QWidget *))
    {
        (new QLineEdit(&window))->setFocus();
        button = make(&window);
        window.show();
    }

    QWidget window;
    QPointer<QAbstractButton> button;
};

QStringList ToldStates(QAbstractButton &button)
{
    const QAccessible::State state = Of(button)->state();
    QStringList told;
    if (state.focusable)
        told << QStringLiteral("focusable");
    if (state.checkable)
        told << QStringLiteral("checkable");
    if (state.checked)
        told << QStringLiteral("checked");
    if (state.pressed)
        told << QStringLiteral("pressed");
    if (state.disabled)
        told << QStringLiteral("disabled");
    return told;
}

/// What is told when each thing that a button can be told changes.
QStringList ToldOfEachChange(QAbstractButton &button)
{
    button.setCheckable(true);
    AccessibleEvents events(button);
    QStringList told;
    const auto change = [&](const QString &name, const std::function<void()> &act) {
        act();
        told << name + QLatin1Char(':') << events.Take();
    };
    change(QStringLiteral("check"), [&] { button.setChecked(true); });
    change(QStringLiteral("check again"), [&] { button.setChecked(true); });
    button.setAutoExclusive(false); // or a radio button stays checked
    change(QStringLiteral("uncheck"), [&] { button.setChecked(false); });
    change(QStringLiteral("click"), [&] { button.click(); });
    change(QStringLiteral("disable"), [&] { button.setEnabled(false); });
    change(QStringLiteral("enable"), [&] { button.setEnabled(true); });
    change(QStringLiteral("text"), [&] { button.setText(QStringLiteral("Text")); });
    change(QStringLiteral("name"), [&] { button.setAccessibleName(QStringLiteral("Name")); });
    change(QStringLiteral("description"), [&] { button.setAccessibleDescription(QStringLiteral("Description")); });
    if (auto *pushButton = qobject_cast<QPushButton *>(&button))
        change(QStringLiteral("default"), [&] { pushButton->setDefault(true); });
    return told;
}

} // namespace

class TestButtonAccessible : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QcArrowTipGlobal::instance(); } // the shared tip outlives each test

    void a_button_is_named_by_its_text_without_mnemonic_marks_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("name");
        QTest::newRow("plain") << QStringLiteral("Save") << QStringLiteral("Save");
        QTest::newRow("mnemonic") << QStringLiteral("&Save as") << QStringLiteral("Save as");
        QTest::newRow("inner mnemonic") << QStringLiteral("Save &as") << QStringLiteral("Save as");
        QTest::newRow("ampersand") << QStringLiteral("Find && replace") << QStringLiteral("Find & replace");
        QTest::newRow("last") << QStringLiteral("A &") << QStringLiteral("A &");
    }

    void a_button_is_named_by_its_text_without_mnemonic_marks()
    {
        QFETCH(QString, text);
        QFETCH(QString, name);
        QcPrimaryButton button;
        button.setText(text);
        button.setToolTip(QStringLiteral("tip"));
        button.setWindowTitle(QStringLiteral("title"));
        QCOMPARE(NameOf(button), name);
        QCOMPARE(Of(button)->text(QAccessible::Description), QStringLiteral("tip"));
    }

    void an_icon_only_button_is_named_by_its_tool_tip()
    {
        QcIconButton button;
        button.SetIconPath(QStringLiteral(":/images/close.svg"));
        QCOMPARE(NameOf(button), QString());
        button.setToolTip(QStringLiteral("Close & forget"));
        QCOMPARE(NameOf(button), QStringLiteral("Close & forget"));
        button.setAccessibleName(QStringLiteral("Close"));
        QCOMPARE(NameOf(button), QStringLiteral("Close"));
    }

    void an_icon_only_button_without_a_tool_tip_is_named_by_its_hover_tip()
    {
        QcIconButton button;
        QcArrowTipGlobal::instance()->registerWidget(&button, QStringLiteral("Close"));
        QCOMPARE(NameOf(button), QStringLiteral("Close"));
        button.setText(QStringLiteral("Text"));
        QCOMPARE(NameOf(button), QStringLiteral("Text"));
        QCOMPARE(Of(button)->text(QAccessible::Description), QStringLiteral("Close"));
    }

    void both_halves_of_a_combined_button_have_its_hover_tip()
    {
        QcCombinedToolButton combined;
        QcArrowTipGlobal::instance()->registerWidget(&combined, QStringLiteral("Draws a shape"));
        for (QcToolButton *half : combined.findChildren<QcToolButton *>()) {
            QCOMPARE(Of(*half)->text(QAccessible::Description), QStringLiteral("Draws a shape"));
            QCOMPARE(NameOf(*half), QStringLiteral("Draws a shape"));
            half->setAccessibleDescription(QStringLiteral("Own"));
            QCOMPARE(Of(*half)->text(QAccessible::Description), QStringLiteral("Own"));
        }
    }

    void a_group_or_a_buddy_names_only_what_has_no_name()
    {
        QGroupBox group(QStringLiteral("Group"));
        auto *button = new QcPrimaryButton(&group);
        button->setText(QStringLiteral("Save"));
        QCOMPARE(NameOf(*button), QStringLiteral("Save"));
        button->setText(QString());
        QCOMPARE(NameOf(*button), QStringLiteral("Group"));
        auto *label = new QLabel(QStringLiteral("&Buddy"), &group);
        label->setBuddy(button);
        QCOMPARE(NameOf(*button), QStringLiteral("Buddy"));
    }

    void a_derived_button_of_the_host_is_described_alike()
    {
        HostButton button;
        button.setText(QStringLiteral("&Own"));
        QVERIFY(Of(button) && Of(button)->isValid());
        QCOMPARE(Of(button)->object(), &button);
        QCOMPARE(Of(button)->role(), QAccessible::Button);
        QCOMPARE(NameOf(button), QStringLiteral("Own"));
    }

    void roles_are_those_of_plain_qt_and_one_of_several_is_a_radio_button_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("setting");
        for (const Kind &kind : kKinds) {
            const std::unique_ptr<QAbstractButton> plain(kind.makePlain(nullptr));
            for (const Setting &setting : kSettings) {
                if (TakesMenus(*plain) || !setting.hasMenu)
                    QTest::addRow("%s, %s", kind.name, setting.name) << int(&kind - kKinds) << int(&setting - kSettings);
            }
        }
    }

    void roles_are_those_of_plain_qt_and_one_of_several_is_a_radio_button()
    {
        QFETCH(int, kind);
        QFETCH(int, setting);
        const Setting &given = kSettings[setting];
        QWidget window;
        QMenu menu;
        QButtonGroup ours;
        QButtonGroup theirs;
        QAbstractButton *button = kKinds[kind].make(&window);
        QAbstractButton *plain = kKinds[kind].makePlain(&window);
        Apply(given, *button, menu, ours);
        Apply(given, *plain, menu, theirs);
        QCOMPARE(Of(*button)->role(), given.role == QAccessible::NoRole ? Of(*plain)->role() : given.role);
    }

    void the_button_of_one_of_several_actions_is_a_radio_button()
    {
        QActionGroup group(nullptr);
        QAction *action = group.addAction(QStringLiteral("Left"));
        action->setCheckable(true);
        QcToolButton button;
        button.setDefaultAction(action);
        QCOMPARE(Of(button)->role(), QAccessible::RadioButton);
        group.setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional); // it can be unchecked
        QCOMPARE(Of(button)->role(), QAccessible::CheckBox);
        group.setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
        QCOMPARE(Of(button)->role(), QAccessible::CheckBox);
    }

    void states_are_those_of_plain_qt_data() { AddKinds(); }
    void states_are_those_of_plain_qt()
    {
        QFETCH(int, kind);
        Shown ours(kKinds[kind].make);
        Shown plain(kKinds[kind].makePlain);
        const std::function<void(QAbstractButton &)> changes[] = {
            [](QAbstractButton &button) { button.setCheckable(false); },
            [](QAbstractButton &button) { button.setCheckable(true); },
            [](QAbstractButton &button) { button.setChecked(true); },
            [](QAbstractButton &button) { button.setDown(true); },
            [](QAbstractButton &button) { button.setEnabled(false); },
            [](QAbstractButton &button) { button.setFocusPolicy(Qt::NoFocus); },
        };
        QStringList seen;
        for (const auto &change : changes) {
            change(*ours.button);
            change(*plain.button);
            QCOMPARE(ToldStates(*ours.button), ToldStates(*plain.button));
            seen << ToldStates(*ours.button).join(QLatin1Char(' '));
        }
        QCOMPARE(seen.at(3), QStringLiteral("focusable checkable checked pressed"));
        QCOMPARE(seen.last(), QStringLiteral("checkable checked disabled"));
    }

    void a_default_button_is_told()
    {
        QcPrimaryButton button;
        QVERIFY(!Of(button)->state().defaultButton);
        button.setDefault(true);
        QVERIFY(Of(button)->state().defaultButton);
    }

    void a_third_state_of_a_check_box_is_told_as_of_plain_qt()
    {
        QcCheckBox box;
        QCheckBox plain;
        for (const Qt::CheckState checked : {Qt::PartiallyChecked, Qt::Checked, Qt::Unchecked}) {
            for (QCheckBox *each : {static_cast<QCheckBox *>(&box), &plain}) {
                each->setTristate();
                each->setCheckState(checked);
            }
            QCOMPARE(Of(box)->state().checkStateMixed, checked == Qt::PartiallyChecked);
            QCOMPARE(Of(box)->state().checkStateMixed, Of(plain)->state().checkStateMixed);
            QCOMPARE(Of(box)->state().checked, Of(plain)->state().checked);
        }
    }

    void every_change_is_announced_as_plain_qt_announces_it_data() { AddKinds(); }
    void every_change_is_announced_as_plain_qt_announces_it()
    {
        QFETCH(int, kind);
        Shown plain(kKinds[kind].makePlain);
        QVERIFY(QTest::qWaitForWindowActive(&plain.window));
        const QStringList expected = ToldOfEachChange(*plain.button);
        QVERIFY(expected.contains(QStringLiteral("StateChanged checked")));
        Shown ours(kKinds[kind].make);
        QVERIFY(QTest::qWaitForWindowActive(&ours.window));
        QCOMPARE(ToldOfEachChange(*ours.button), expected);
    }

    void a_click_is_an_action_that_returns_before_its_handlers_run_data() { AddKinds(); }
    void a_click_is_an_action_that_returns_before_its_handlers_run()
    {
        QFETCH(int, kind);
        const Shown ours(kKinds[kind].make);
        QSignalSpy clicks(ours.button, &QAbstractButton::clicked);
        QAccessibleActionInterface *actions = Of(*ours.button)->actionInterface();
        QVERIFY(actions);
        ours.button->setCheckable(false);
        QCOMPARE(actions->actionNames().value(0), QAccessibleActionInterface::pressAction());
        actions->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(clicks.count(), 0);
        DrainEvents();
        QCOMPARE(clicks.count(), 1);

        ours.button->setCheckable(true);
        QCOMPARE(actions->actionNames().value(0), QAccessibleActionInterface::toggleAction());
        actions->doAction(QAccessibleActionInterface::toggleAction());
        QVERIFY(!ours.button->isChecked());
        DrainEvents();
        QVERIFY(ours.button->isChecked());
        QCOMPARE(clicks.count(), 2);
    }

    void no_action_touches_a_button_that_was_disabled_or_died_since_data() { AddKinds(); }
    void no_action_touches_a_button_that_was_disabled_or_died_since()
    {
        QFETCH(int, kind);
        const Shown ours(kKinds[kind].make);
        ours.button->setCheckable(false);
        QSignalSpy clicks(ours.button, &QAbstractButton::clicked);
        Of(*ours.button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        ours.button->setEnabled(false);
        DrainEvents();
        ours.button->setEnabled(true);
        DrainEvents();
        QCOMPARE(clicks.count(), 0);
        Of(*ours.button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        qDeleteAll(
            ours.window.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)); // the button, or the whole that it is half of
        DrainEvents();
        QVERIFY(!ours.button);
        QCOMPARE(clicks.count(), 0);
    }

    void a_press_repeated_before_its_dialog_shows_opens_one_dialog()
    {
        QcPrimaryButton button;
        button.show();
        QVERIFY(QTest::qWaitForWindowExposed(&button));
        int opened = 0;
        connect(&button, &QAbstractButton::clicked, &button, [&] {
            ++opened;
            QDialog dialog(&button);
            QTimer::singleShot(0, &dialog, &QDialog::reject); // behind what is posted by now
            dialog.exec();
        });
        for (int i = 0; i < 2; ++i)
            Of(button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        DrainEvents();
        QCOMPARE(opened, 1);
        Of(button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        DrainEvents();
        QCOMPARE(opened, 2);
    }

    void only_offered_actions_do_something()
    {
        QcPrimaryButton button;
        QSignalSpy clicks(&button, &QAbstractButton::clicked);
        QAccessibleActionInterface *actions = Of(button)->actionInterface();
        QCOMPARE(actions->actionNames(),
                 (QStringList{QAccessibleActionInterface::pressAction(), QAccessibleActionInterface::setFocusAction()}));
        actions->doAction(QAccessibleActionInterface::toggleAction());
        actions->doAction(QAccessibleActionInterface::showMenuAction());
        DrainEvents();
        QCOMPARE(clicks.count(), 0);
        button.setEnabled(false);
        QCOMPARE(actions->actionNames(), QStringList());
        actions->doAction(QAccessibleActionInterface::pressAction());
        DrainEvents();
        QCOMPARE(clicks.count(), 0);
    }

    void a_press_toggles_a_checkable_button()
    {
        QcPrimaryButton button;
        button.setCheckable(true);
        Of(button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        DrainEvents();
        QVERIFY(button.isChecked());
    }

    void showing_its_menu_is_the_action_of_a_button_that_has_one_and_returns_before_the_menu_shows()
    {
        QcPrimaryButton button;
        QMenu menu;
        menu.addAction(QStringLiteral("Open"));
        button.setMenu(&menu);
        button.show();
        QVERIFY(QTest::qWaitForWindowExposed(&button));
        QVERIFY(Of(button)->state().hasPopup);
        QAccessibleActionInterface *actions = Of(button)->actionInterface();
        QCOMPARE(actions->actionNames().value(0), QAccessibleActionInterface::showMenuAction());
        QSignalSpy shown(&menu, &QMenu::aboutToShow);
        connect(&menu, &QMenu::aboutToShow, &menu, &QMenu::close, Qt::QueuedConnection);
        actions->doAction(QAccessibleActionInterface::showMenuAction());
        QCOMPARE(shown.count(), 0);
        QTRY_COMPARE(shown.count(), 1);
        actions->doAction(QAccessibleActionInterface::pressAction()); // a press shows it too
        QTRY_COMPARE(shown.count(), 2);
        QTRY_VERIFY(!menu.isVisible());
        actions->doAction(QAccessibleActionInterface::showMenuAction());
        button.setEnabled(false);
        DrainEvents();
        QCOMPARE(shown.count(), 2);
        actions->doAction(QAccessibleActionInterface::showMenuAction());
        DrainEvents();
        QCOMPARE(shown.count(), 2);
    }

    void focus_is_an_action()
    {
        QWidget window;
        auto *first = new QcPrimaryButton(&window);
        auto *second = new QcPrimaryButton(&window);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        first->setFocus();
        Of(*second)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
        QVERIFY(second->hasFocus());
        QVERIFY(Of(*second)->state().focused);
    }

    void the_shortcut_is_told()
    {
        QcPrimaryButton button;
        const QString press = QAccessibleActionInterface::pressAction();
        QCOMPARE(Of(button)->actionInterface()->keyBindingsForAction(press), QStringList());
        button.setText(QStringLiteral("&Save"));
        QCOMPARE(Of(button)->actionInterface()->keyBindingsForAction(press), QStringList(QStringLiteral("Alt+S")));
        QCOMPARE(Of(button)->actionInterface()->keyBindingsForAction(QAccessibleActionInterface::setFocusAction()), QStringList());
        QCOMPARE(Of(button)->text(QAccessible::Accelerator), QStringLiteral("Alt+S"));
    }

    void a_label_is_static_text()
    {
        QcLabel label;
        label.setText(QStringLiteral("Some text"));
        QCOMPARE(Of(label)->role(), QAccessible::StaticText);
        QCOMPARE(NameOf(label), QStringLiteral("Some text"));
    }

    void tab_reaches_each_button_and_space_presses_it()
    {
        QWidget window;
        QVBoxLayout layout(&window);
        QcPrimaryButton first;
        QcIconButton second;
        layout.addWidget(&first);
        layout.addWidget(&second);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        first.setFocus();
        QTest::keyClick(&window, Qt::Key_Tab);
        QVERIFY(second.hasFocus());
        QSignalSpy clicks(&second, &QAbstractButton::clicked);
        QTest::keyClick(window.windowHandle(), Qt::Key_Space);
        QCOMPARE(clicks.count(), 1);
        QTest::keyClick(&window, Qt::Key_Backtab);
        QVERIFY(first.hasFocus());
    }
};

VELMORA_TEST_MAIN(TestButtonAccessible)

#include "tst_ButtonAccessible.moc"
