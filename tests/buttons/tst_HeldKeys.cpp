#include "ButtonLooks.h"
#include "support/Cues.h"
#include "support/TestMain.h"

#include <Velmora/QcAction.h>
#include <Velmora/QcCheckBox.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcGhostButton.h>
#include <Velmora/QcHighlightButton.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcMenuToolButton.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcRadioButton.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcSwitchButton.h>
#include <Velmora/QcTertiaryButton.h>
#include <Velmora/QcTextButton.h>
#include <Velmora/QcTextLinkButton.h>
#include <Velmora/QcToolColorButton.h>

#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QTextEdit>

#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// Makes a control and gives the button of it that takes the keyboard.
using Maker = std::function<QAbstractButton *(QWidget *)>;

template <typename Button>
QAbstractButton *Make(QWidget *parent)
{
    auto *button = new Button(parent);
    if constexpr (!std::is_same_v<Button, QcMenuToolButton> && !std::is_same_v<Button, QcSwitchButton>)
        button->setText(QStringLiteral("Text"));
    if constexpr (std::is_base_of_v<QToolButton, Button> || std::is_same_v<Button, QcIconButton>)
        button->SetIconPath(QStringLiteral(":/images/close.svg"));
    if constexpr (!std::is_same_v<Button, QcSwitchButton>)
        button->resize(button->sizeHint().expandedTo(QSize(24, 24)));
    return button;
}

QAbstractButton *MakeMainHalf(QWidget *parent)
{
    return (new QcCombinedToolButton(parent))->findChildren<QAbstractButton *>().constFirst(); // owned by its parent
}

QAbstractButton *MakeArrowHalf(QWidget *parent)
{
    return (new QcCombinedToolButton(parent))->findChildren<QAbstractButton *>().constLast(); // owned by its parent
}

void AddMakers()
{
    QTest::addColumn<Maker>("make");
    QTest::newRow("plain") << Maker([](QWidget *parent) {
        auto *button = static_cast<QcButton *>(Make<QcButton>(parent));
        button->SetBackgroundColorParams(QStyle::State_Enabled, QStringLiteral("brand/brand"));
        button->SetBackgroundColorParams(QStyle::State_Enabled | QStyle::State_Sunken, QStringLiteral("brand/brand_press"));
        return button;
    });
    QTest::newRow("primary") << Maker(Make<QcPrimaryButton>);
    QTest::newRow("secondary") << Maker(Make<QcSecondaryButton>);
    QTest::newRow("tertiary") << Maker(Make<QcTertiaryButton>);
    QTest::newRow("ghost") << Maker(Make<QcGhostButton>);
    QTest::newRow("highlight") << Maker(Make<QcHighlightButton>);
    QTest::newRow("icon") << Maker(Make<QcIconButton>);
    QTest::newRow("text") << Maker(Make<QcTextButton>);
    QTest::newRow("link") << Maker(Make<QcTextLinkButton>);
    QTest::newRow("switch") << Maker(Make<QcSwitchButton>);
    QTest::newRow("tool") << Maker(Make<QcToolButton>);
    QTest::newRow("tool of a colour") << Maker(Make<QcToolColorButton>);
    QTest::newRow("main half") << Maker(MakeMainHalf);
    QTest::newRow("arrow half") << Maker(MakeArrowHalf);
    QTest::newRow("menu text") << Maker(Make<QcMenuTextButton>);
    QTest::newRow("menu tool") << Maker(Make<QcMenuToolButton>);
    QTest::newRow("check box") << Maker(Make<QcCheckBox>);
    QTest::newRow("radio button") << Maker(Make<QcRadioButton>);
}

/// A control in an active window beside an edit. Its button has the keyboard.
class Stage
{
public:
    explicit Stage(const Maker &make)
        : button(make(&window))
        , painter(qobject_cast<QcCombinedToolButton *>(button->parentWidget()) ? button->parentWidget() : button)
        , edit(&window)
        , clicks(button, &QAbstractButton::clicked)
    {
        painter->move(10, 10);
        edit.move(10, 100);
        button->setFocusPolicy(Qt::StrongFocus);
        window.setGeometry(kWindowPlace);
        window.show();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("the window is not active");
        button->setFocus();
        DrainEvents();
    }

    QImage Picture() { return Render(*painter); }

    QWidget window;
    QAbstractButton *const button;
    QWidget *const painter;
    QLineEdit edit;
    QSignalSpy clicks;
};

void Repeat(QWidget &receiver, Qt::Key key)
{
    QKeyEvent repeat(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&receiver, &repeat);
}

/// A dialog with an edit, its default button and another one.
template <typename Button = QcPrimaryButton>
class DialogStage
{
public:
    DialogStage()
        : edit(&dialog)
        , button(&dialog)
        , other(&dialog)
        , clicks(&button, &QAbstractButton::clicked)
    {
        button.setText(QStringLiteral("OK"));
        button.setDefault(true);
        button.move(10, 50);
        other.move(10, 90);
        other.setText(QStringLiteral("Other"));
        dialog.setGeometry(kWindowPlace);
    }

    bool Show()
    {
        dialog.show();
        const bool isActive = QTest::qWaitForWindowActive(&dialog);
        edit.setFocus();
        DrainEvents();
        return isActive;
    }

    QImage Picture() { return Render(button); }

    QDialog dialog;
    QLineEdit edit;
    Button button;
    QcSecondaryButton other;
    QSignalSpy clicks;
};

} // namespace

Q_DECLARE_METATYPE(Maker)
Q_DECLARE_METATYPE(Qt::Key)

class TestHeldKeys : public TestCase
{
    Q_OBJECT

protected:
    void SetUp() override { MoveCursorAway(); }

private Q_SLOTS:
    // --- Space ---

    void space_shows_the_press_until_it_clicks_data() { AddMakers(); }
    void space_shows_the_press_until_it_clicks()
    {
        QFETCH(Maker, make);
        const Cues cues;
        Stage stage(make);
        const QImage before = stage.Picture();
        QTest::keyPress(stage.button, Qt::Key_Space);
        const QImage held = stage.Picture();
        QVERIFY(held != before);
        for (int i = 0; i < 3; ++i)
            Repeat(*stage.button, Qt::Key_Space);
        QCOMPARE(stage.clicks.count(), 0);
        QCOMPARE(stage.Picture(), held);
        QTest::keyRelease(stage.button, Qt::Key_Space);
        QCOMPARE(stage.clicks.count(), 1);
        stage.button->setChecked(false);
        DrainEvents();
        if (stage.button->isChecked())
            return; // a radio button stays so
        QCOMPARE(stage.Picture(), before);
    }

    void space_shows_what_the_mouse_does_data() { AddMakers(); }
    void space_shows_what_the_mouse_does()
    {
        QFETCH(Maker, make);
        const Cues cues;
        Stage stage(make);
        QTest::keyPress(stage.button, Qt::Key_Space);
        const QImage held = stage.Picture();
        QTest::keyClick(stage.button, Qt::Key_Escape);
        MoveCursorOver(*stage.button);
        QTest::mousePress(stage.button, Qt::LeftButton);
        const bool isArrow = stage.painter != stage.button && stage.button->width() < 32;
        if (!isArrow) // which has no press by the mouse
            QCOMPARE(stage.Picture(), held);
        LetGo(*stage.button);
    }

    void escape_takes_the_press_back_data() { AddMakers(); }
    void escape_takes_the_press_back()
    {
        QFETCH(Maker, make);
        const Cues cues;
        Stage stage(make);
        const QImage before = stage.Picture();
        QTest::keyPress(stage.button, Qt::Key_Space);
        QTest::keyClick(stage.button, Qt::Key_Escape);
        QCOMPARE(stage.Picture(), before);
        QTest::keyRelease(stage.button, Qt::Key_Space);
        QCOMPARE(stage.clicks.count(), 0);
    }

    void the_press_goes_with_the_focus_data() { AddMakers(); }
    void the_press_goes_with_the_focus()
    {
        QFETCH(Maker, make);
        const Cues cues;
        Stage stage(make);
        const QImage before = stage.Picture();
        QTest::keyPress(stage.button, Qt::Key_Space);
        stage.edit.setFocus();
        QCOMPARE(stage.Picture(), before);
        QTest::keyRelease(&stage.edit, Qt::Key_Space);
        QCOMPARE(stage.clicks.count(), 0);
    }

    void without_cues_space_shows_nothing_data() { AddMakers(); }
    void without_cues_space_shows_nothing()
    {
        QFETCH(Maker, make);
        Stage stage(make);
        if (qobject_cast<QCheckBox *>(stage.button) || qobject_cast<QRadioButton *>(stage.button))
            return; // which have always shown it
        const QImage before = stage.Picture();
        QTest::keyPress(stage.button, Qt::Key_Space);
        QCOMPARE(stage.Picture(), before);
        QTest::keyClick(stage.button, Qt::Key_Escape);
        QTest::keyRelease(stage.button, Qt::Key_Space);
    }

    void an_arrow_that_space_presses_keeps_its_picture()
    {
        const Cues cues;
        Stage stage(MakeArrowHalf);
        QTest::keyPress(stage.button, Qt::Key_Space);
        const QRect half = stage.button->geometry();
        const QColor ground = PixelAt(stage.Picture(), half.topLeft() + QPointF(3, 3));
        QVERIFY(!InkBox(Part(stage.Picture(), half.adjusted(2, 2, -2, -2)), ground).isEmpty());
        QTest::keyClick(stage.button, Qt::Key_Escape);
    }

    void the_mouse_shows_no_press_on_an_arrow_half()
    {
        const Cues cues;
        Stage stage(MakeArrowHalf);
        MoveCursorOver(*stage.button);
        const QImage hovered = stage.Picture();
        const QPoint centre = stage.button->mapTo(&stage.window, stage.button->rect().center());
        QTest::mousePress(stage.window.windowHandle(), Qt::LeftButton, Qt::NoModifier, centre);
        QVERIFY(stage.button->isDown());
        QCOMPARE(stage.Picture(), hovered);
        QTest::mouseRelease(stage.window.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
    }

    void what_a_host_sets_down_looks_so()
    {
        Stage stage(Make<QcPrimaryButton>);
        const QImage before = stage.Picture();
        stage.button->setDown(true);
        QCOMPARE(stage.Picture(), before);
        const Cues cues;
        QVERIFY(stage.Picture() != before);
        stage.button->setDown(false);
        QCOMPARE(stage.Picture(), before);
    }

    void a_switch_while_space_is_held_follows()
    {
        Stage stage(Make<QcPrimaryButton>);
        const QImage before = stage.Picture();
        QTest::keyPress(stage.button, Qt::Key_Space);
        {
            const Cues cues;
            QVERIFY(stage.Picture() != before);
        }
        QCOMPARE(stage.Picture(), before);
        QTest::keyClick(stage.button, Qt::Key_Escape);
    }

    // --- Enter ---

    void enter_shows_the_press_of_the_default_button_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Return") << Qt::Key_Return;
        QTest::newRow("Enter") << Qt::Key_Enter;
    }

    void enter_shows_the_press_of_the_default_button()
    {
        QFETCH(Qt::Key, key);
        const Cues cues;
        DialogStage<> stage;
        QVERIFY(stage.Show());
        const QImage before = stage.Picture();
        const QImage other = Render(stage.other);
        QTest::keyPress(&stage.edit, key); // which leaves it to the dialog
        QCOMPARE(stage.clicks.count(), 1);
        QVERIFY(stage.Picture() != before);
        QCOMPARE(Render(stage.other), other);
        QTest::keyRelease(&stage.edit, key);
        QCOMPARE(stage.Picture(), before);
        QCOMPARE(stage.clicks.count(), 1);
    }

    void enter_shows_the_press_of_the_button_that_has_the_focus()
    {
        const Cues cues;
        DialogStage<> stage;
        QVERIFY(stage.Show());
        stage.other.setFocus();
        const QImage before = Render(stage.other);
        QTest::keyPress(&stage.other, Qt::Key_Return);
        QVERIFY(Render(stage.other) != before);
        QTest::keyRelease(&stage.other, Qt::Key_Return);
        QCOMPARE(Render(stage.other), before);
        QCOMPARE(stage.clicks.count(), 0);
    }

    void enter_shows_the_press_of_a_menu_button()
    {
        const Cues cues;
        DialogStage<QcMenuTextButton> stage;
        QVERIFY(stage.Show());
        const QImage before = stage.Picture();
        QTest::keyPress(&stage.edit, Qt::Key_Return);
        QVERIFY(stage.Picture() != before);
        QTest::keyRelease(&stage.edit, Qt::Key_Return);
        QCOMPARE(stage.Picture(), before);
    }

    void enter_shows_nothing_where_it_does_nothing()
    {
        const Cues cues;
        Stage stage(Make<QcPrimaryButton>); // in no dialog
        const QImage before = stage.Picture();
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(stage.button, &press);
        QCOMPARE(stage.clicks.count(), 0);
        QCOMPARE(stage.Picture(), before);

        DialogStage<> dialog;
        QVERIFY(dialog.Show());
        const QImage idle = dialog.Picture();
        QKeyEvent control(QEvent::KeyPress, Qt::Key_Return, Qt::ControlModifier);
        QCoreApplication::sendEvent(&dialog.edit, &control);
        QCOMPARE(dialog.clicks.count(), 0);
        QCOMPARE(dialog.Picture(), idle);
    }

    void a_held_enter_clicks_once_data()
    {
        QTest::addColumn<bool>("isOnButton");
        QTest::newRow("in an edit") << false;
        QTest::newRow("on the button") << true;
    }

    void a_held_enter_clicks_once()
    {
        QFETCH(bool, isOnButton);
        const auto clicksOf = [&](DialogStage<> &stage) {
            QWidget &receiver = isOnButton ? static_cast<QWidget &>(stage.button) : stage.edit;
            receiver.setFocus();
            QTest::keyPress(&receiver, Qt::Key_Return);
            for (int i = 0; i < 3; ++i)
                Repeat(receiver, Qt::Key_Return);
            QTest::keyRelease(&receiver, Qt::Key_Return);
            return stage.clicks.count();
        };
        DialogStage<> without;
        QVERIFY(without.Show());
        const QImage before = without.Picture();
        QCOMPARE(clicksOf(without), 4); // as Qt has it
        QCOMPARE(without.Picture(), before);
        without.dialog.hide();
        const Cues cues;
        DialogStage<> with;
        QVERIFY(with.Show());
        QCOMPARE(clicksOf(with), 1);
        QCOMPARE(clicksOf(with), 2); // with the next press
    }

    void an_enter_that_closed_its_dialog_presses_nothing_behind_it()
    {
        const Cues cues;
        DialogStage<> behind;
        QVERIFY(behind.Show());
        DialogStage<> front;
        QVERIFY(front.Show());
        connect(&front.button, &QAbstractButton::clicked, &front.dialog, &QDialog::accept);
        QTest::keyPress(&front.edit, Qt::Key_Return);
        QVERIFY(!front.dialog.isVisible());
        Repeat(behind.edit, Qt::Key_Return);
        Repeat(behind.button, Qt::Key_Return);
        QCOMPARE(behind.clicks.count(), 0);
        QTest::keyRelease(&behind.edit, Qt::Key_Return);
        QTest::keyPress(&behind.edit, Qt::Key_Return);
        QCOMPARE(behind.clicks.count(), 1);
        QTest::keyRelease(&behind.edit, Qt::Key_Return);
    }

    void an_enter_that_pressed_nothing_goes_on_in_a_text()
    {
        const Cues cues;
        Stage stage(Make<QcPrimaryButton>);
        QTextEdit text(&stage.window);
        text.show();
        text.setFocus();
        QTest::keyPress(&text, Qt::Key_Return);
        for (int i = 0; i < 3; ++i) {
            QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
            QCoreApplication::sendEvent(&text, &repeat);
        }
        QTest::keyRelease(&text, Qt::Key_Return);
        QCOMPARE(text.document()->blockCount(), 5);
    }

    void the_press_by_enter_goes_with_the_focus()
    {
        const Cues cues;
        DialogStage<> stage;
        QVERIFY(stage.Show());
        const QImage before = stage.Picture();
        QTest::keyPress(&stage.edit, Qt::Key_Return);
        QVERIFY(stage.Picture() != before);
        stage.other.setFocus();
        QCOMPARE(stage.Picture(), before);
        QTest::keyRelease(&stage.other, Qt::Key_Return);
    }

    void the_press_by_enter_ends_with_the_cues()
    {
        DialogStage<> stage;
        QVERIFY(stage.Show());
        const QImage before = stage.Picture();
        {
            const Cues cues;
            QTest::keyPress(&stage.edit, Qt::Key_Return);
        }
        const Cues cues;
        QCOMPARE(stage.Picture(), before);
        QTest::keyRelease(&stage.edit, Qt::Key_Return);
    }

    void a_click_by_enter_may_delete_the_button()
    {
        const Cues cues;
        QDialog dialog;
        QLineEdit edit(&dialog);
        const QPointer<QcPrimaryButton> button(new QcPrimaryButton(&dialog));
        button->setDefault(true);
        connect(button, &QAbstractButton::clicked, &dialog, [&] { delete button; });
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        edit.setFocus();
        QTest::keyPress(&edit, Qt::Key_Return);
        QVERIFY(!button);
        QTest::keyRelease(&edit, Qt::Key_Return);
    }

    void a_mnemonic_shows_the_press_of_its_click()
    {
        const Cues cues;
        Stage stage(Make<QcPrimaryButton>);
        static_cast<QcPrimaryButton *>(stage.button)->setText(QStringLiteral("&Text"));
        const QImage before = stage.Picture();
        QTest::keyClick(&stage.window, Qt::Key_T, Qt::AltModifier);
        QVERIFY(stage.Picture() != before);
        QTRY_COMPARE(stage.clicks.count(), 1);
        QCOMPARE(stage.Picture(), before);
    }
};

VELMORA_TEST_MAIN(TestHeldKeys)

#include "tst_HeldKeys.moc"
