#include "support/TestMain.h"

#include <Velmora/QcIconButton.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcPrimaryButton.h>

#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <algorithm>

#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>

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

QList<QAccessible::State> changes; // the new states that were announced, of any object

/// Qt tells nobody of changes until assistive technology is there; this says that it is.
void SetAssisted(bool on)
{
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(on);
}

void NoteStateChange(QAccessibleEvent *event)
{
    if (event->type() == QAccessible::StateChanged)
        changes.append(static_cast<QAccessibleStateChangeEvent *>(event)->changedStates());
}

} // namespace

class TestButtonAccessible : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
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

    void a_group_or_a_buddy_names_only_what_has_no_name()
    {
        QGroupBox group(QStringLiteral("Group"));
        auto *button = new QcPrimaryButton(&group);
        button->setText(QStringLiteral("Save"));
        QCOMPARE(NameOf(*button), QStringLiteral("Save"));
        button->setText(QString());
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

    void states_are_told()
    {
        QcPrimaryButton button;
        QCOMPARE(Of(button)->role(), QAccessible::Button);
        QVERIFY(Of(button)->state().focusable);
        QVERIFY(!Of(button)->state().checkable);
        QVERIFY(!Of(button)->state().checked);
        QVERIFY(!Of(button)->state().pressed);
        QVERIFY(!Of(button)->state().disabled);
        button.setCheckable(true);
        button.setChecked(true);
        QCOMPARE(Of(button)->role(), QAccessible::Button);
        QVERIFY(Of(button)->state().checkable);
        QVERIFY(Of(button)->state().checked);
        button.setDown(true);
        QVERIFY(Of(button)->state().pressed);
        button.setDefault(true);
        QVERIFY(Of(button)->state().defaultButton);
        button.setEnabled(false);
        QVERIFY(Of(button)->state().disabled);
        button.setFocusPolicy(Qt::NoFocus);
        QVERIFY(!Of(button)->state().focusable);
    }

    void pressing_is_an_action()
    {
        QcPrimaryButton button;
        QSignalSpy clicks(&button, &QAbstractButton::clicked);
        QAccessibleActionInterface *actions = Of(button)->actionInterface();
        QVERIFY(actions);
        QCOMPARE(actions->actionNames(),
                 (QStringList{QAccessibleActionInterface::pressAction(), QAccessibleActionInterface::setFocusAction()}));
        actions->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(clicks.count(), 1);
        actions->doAction(QAccessibleActionInterface::toggleAction()); // which a plain button does not offer
        QCOMPARE(clicks.count(), 1);
        button.setEnabled(false);
        QCOMPARE(actions->actionNames(), QStringList());
        actions->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(clicks.count(), 1);
    }

    void toggling_is_an_action_of_a_checkable_button_and_is_announced()
    {
        QcPrimaryButton button;
        button.setCheckable(true);
        button.show();
        QVERIFY(QTest::qWaitForWindowExposed(&button));
        QAccessibleActionInterface *actions = Of(button)->actionInterface();
        QCOMPARE(actions->actionNames().value(0), QAccessibleActionInterface::toggleAction());
        changes.clear();
        SetAssisted(true);
        const auto previous = QAccessible::installUpdateHandler(NoteStateChange);
        actions->doAction(QAccessibleActionInterface::toggleAction());
        QAccessible::installUpdateHandler(previous);
        SetAssisted(false);
        QVERIFY(button.isChecked());
        QVERIFY(std::any_of(changes.cbegin(), changes.cend(), [](const QAccessible::State &state) { return bool(state.checked); }));
        actions->doAction(QAccessibleActionInterface::pressAction()); // a press toggles it too
        QVERIFY(!button.isChecked());
    }

    void showing_its_menu_is_the_action_of_a_button_that_has_one()
    {
        QcPrimaryButton button;
        QMenu menu;
        menu.addAction(QStringLiteral("Open"));
        button.setMenu(&menu);
        button.show();
        QVERIFY(QTest::qWaitForWindowExposed(&button));
        QCOMPARE(Of(button)->role(), QAccessible::ButtonMenu);
        QVERIFY(Of(button)->state().hasPopup);
        QAccessibleActionInterface *actions = Of(button)->actionInterface();
        QCOMPARE(actions->actionNames().value(0), QAccessibleActionInterface::showMenuAction());
        QSignalSpy shown(&menu, &QMenu::aboutToShow);
        connect(&menu, &QMenu::aboutToShow, &menu, &QMenu::close, Qt::QueuedConnection);
        actions->doAction(QAccessibleActionInterface::showMenuAction());
        QCOMPARE(shown.count(), 1);
        actions->doAction(QAccessibleActionInterface::pressAction()); // a press shows it too
        QCOMPARE(shown.count(), 2);
        button.setEnabled(false);
        actions->doAction(QAccessibleActionInterface::showMenuAction());
        QCOMPARE(shown.count(), 2);
        QVERIFY(!menu.isVisible());
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
