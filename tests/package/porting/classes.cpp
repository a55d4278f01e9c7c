#include "Ported.h"

#include <Velmora/KeyboardCues.h>
#include <Velmora/QCSlider.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcDialog.h>
#include <Velmora/QcDoubleSpinBox.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcLineEdit.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcMenuToolButton.h>
#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcProgressDialog.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcSpinBox.h>
#include <Velmora/QcStackedWidget.h>
#include <Velmora/QcWindow.h>

#include <QApplication>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocument>
#include <QVBoxLayout>

namespace {

using namespace Velmora;

/// Whether \a look has another colour than that of its upper left corner.
bool Inked(const QImage &look)
{
    QImage ground = look;
    ground.fill(look.pixelColor(0, 0));
    return look != ground;
}

void CheckValues()
{
    QcSelector selector;
    const int width = selector.sizeHint().width();
    selector.addItem(QString(100, QLatin1Char('m')));
    Check(selector.sizeHint().width() == width, "items count for nothing in a selector's width");
    QCSlider slider;
    slider.setOrientation(Qt::Horizontal);
    slider.resize(200, 30);
    slider.setValue(20);
    Check(Ignores(slider, [&] { slider.setTickPosition(QSlider::TicksBothSides); }), "a slider has no ticks");
    const QImage usual = Shot(slider);
    slider.setInvertedAppearance(true);
    const QImage inverted = Shot(slider);
    Check(inverted.pixelColor(20, 15) == usual.pixelColor(20, 15) && inverted.pixelColor(120, 15) == usual.pixelColor(120, 15),
          "inverted it is filled from the left all the same");
    Check(inverted.pixelColor(153, 15) == usual.pixelColor(42, 15) && usual.pixelColor(153, 15) != usual.pixelColor(42, 15),
          "but its handle stands at the other side");
    QcSpinBox number;
    number.resize(100, 28);
    Check(Ignores(number, [&] { number.setButtonSymbols(QAbstractSpinBox::NoButtons); }), "a spin box paints no arrows");
    QcDoubleSpinBox decimal;
    QDoubleSpinBox plain;
    for (QWidget *box : {static_cast<QWidget *>(&decimal), static_cast<QWidget *>(&plain)}) {
        box->resize(100, 28);
        box->setFocusPolicy(Qt::NoFocus); // which one of them would show
    }
    Check(Shot(decimal) == Shot(plain), "one for decimals looks like Qt's");
    decimal.bSetBorder(true);
    Check(Shot(decimal) != Shot(plain), "until it has its border");
}

void CheckTexts()
{
    QWidget window;
    window.resize(200, 200);
    auto *column = new QVBoxLayout(&window);
    auto *text = new QcMultiLineText;
    text->setText(QStringLiteral("some words that need more than the one line that they get here"));
    column->addWidget(text);
    auto *label = new QcLabel;
    label->setType(QcLabel::Body);
    label->setText(QStringLiteral("label"));
    column->addWidget(label);
    column->addStretch();
    Shot(window);
    Check(text->height() == 0, "a text of many lines has no height in a layout");
    text->setHeightAdaptive(true);
    text->setText(text->property("text").toString());
    Drain();
    Check(text->height() > 30, "until it adapts its height");
    const auto font = [text] { return text->findChild<QTextDocument *>()->defaultFont(); };
    text->setFont(12);
    Check(font().pixelSize() == 12 && font().family() != label->font().family(), "a number is the size of its font alone");
    text->setFont(label->font());
    Check(font() == label->font(), "a label's font brings the letters too");
    text->setText(QString(200, QLatin1Char('m')));
    Drain();
    Check(text->height() > 60, "it wraps within words");
    text->setText(QStringLiteral("a<b>c</b>"));
    Check(text->findChild<QTextDocument *>()->toPlainText() == QStringLiteral("ac"), "and reads HTML");
    text->setText(QStringLiteral("a<b>c</b>").toHtmlEscaped());
    Check(text->findChild<QTextDocument *>()->toPlainText() == QStringLiteral("a<b>c</b>"), "unless that is escaped");
}

void CheckLabelOfRow()
{
    QWidget window;
    auto *form = new QFormLayout(&window);
    form->addRow(QStringLiteral("&Name"), new QcLineEditFrame);
    Check(qstrcmp(form->itemAt(0, QFormLayout::LabelRole)->widget()->metaObject()->className(), "QLabel") == 0, "a row's label is plain");
    auto *label = new QcLabel;
    label->setType(QcLabel::Body);
    label->setText(QStringLiteral("&Mail"));
    auto *mail = new QcLineEditFrame;
    form->addRow(label, mail);
    label->setBuddy(mail);
    window.show();
    Check(QTest::qWaitForWindowActive(&window), "a form shows");
    QTest::keyClick(&window, Qt::Key_M, Qt::AltModifier);
    Check(QApplication::focusWidget() == mail->getLineEdit(), "the key of a buddy works");
    const auto widthOf = [label](const QString &text) {
        label->setText(text);
        return label->sizeHint().width();
    };
    Check(widthOf(QStringLiteral("&Mail")) > widthOf(QStringLiteral("Mail")), "its mark shows");
    SetKeyboardCuesEnabled(true);
    Check(widthOf(QStringLiteral("&Mail")) == widthOf(QStringLiteral("Mail")), "unless keyboard cues are on");
    label->setBuddy(nullptr);
    Check(widthOf(QStringLiteral("&Mail")) > widthOf(QStringLiteral("Mail")), "without a buddy it is a character");
    SetKeyboardCuesEnabled(false);
}

void CheckButtonsOfMenus()
{
    QWidget window;
    window.resize(300, 100);
    QcPrimaryButton button(&window);
    button.setText(QStringLiteral("button"));
    button.adjustSize();
    const int text = button.fontMetrics().horizontalAdvance(button.text());
    Check(button.sizeHint().width() == text + 8, "a button is as wide as its text and 4 pixels at each side");
    button.setHorizontalMargin(20);
    Check(button.sizeHint().width() == text + 40, "or as its margins say");
    QMenu menu;
    menu.addAction(QStringLiteral("item"));
    button.setMenu(&menu);
    QSignalSpy shown(&menu, &QMenu::aboutToShow);
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, &QMenu::close, Qt::QueuedConnection);
    Shot(window);
    QTest::mouseClick(&button, Qt::LeftButton);
    Check(shown.count() == 1, "it opens its menu");
    QcMenuTextButton arrowed(&window);
    arrowed.setText(QStringLiteral("menu"));
    arrowed.setMenu(&menu);
    arrowed.resize(100, 24);
    const QImage look = Shot(arrowed);
    arrowed.setText(QString());
    Check(Shot(arrowed).copy(80, 0, 20, 24) == look.copy(80, 0, 20, 24) && Inked(look.copy(80, 0, 20, 24)),
          "one for menus paints an arrow");
    QcStackedWidget stack;
    auto *page = new QWidget;
    page->setMinimumSize(500, 500);
    const QSize least = stack.minimumSizeHint();
    stack.addWidget(page);
    Check(stack.minimumSizeHint() == least && stack.minimumWidth() < 500, "no size of a page reaches a stack");
}

void CheckFieldsInside()
{
    QcLineEditFrame field;
    field.getLineEdit()->setInputMask(QStringLiteral("99-99"));
    field.show();
    Check(QTest::qWaitForWindowActive(&field), "a field shows");
    field.setFocus();
    field.getLineEdit()->home(false);
    QSignalSpy entered(field.getLineEdit(), &QLineEdit::returnPressed);
    QTest::keyClicks(field.getLineEdit(), QStringLiteral("1234"));
    Check(field.getText() == QStringLiteral("12-34"), "an input mask is the edit's");
    QTest::keyClick(field.getLineEdit(), Qt::Key_Return);
    Check(entered.count() == 1, "and its Enter");
    const QString sheet = qApp->styleSheet();
    qApp->setStyleSheet(sheet + QStringLiteral("QSpinBox { border: 3px solid red; }"));
    QcSpinBox number;
    Check(Shot(number).pixelColor(30, 1) != QColor(Qt::red), "a spin box has the kit's border, not the application's");
    qApp->setStyleSheet(sheet);
}

void CheckToolButtons()
{
    QWidget window;
    window.resize(200, 100);
    QMenu menu;
    QAction *first = menu.addAction(QStringLiteral("First"));
    QAction *second = menu.addAction(QStringLiteral("Second"));
    QcCombinedToolButton combined(&window);
    combined.setMenu(&menu);
    combined.SetCurrentAction(first);
    Shot(window);
    QSignalSpy firsts(first, &QAction::triggered);
    QSignalSpy seconds(second, &QAction::triggered);
    QTest::mouseClick(combined.childAt(38, 16), Qt::LeftButton);
    QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier, menu.actionGeometry(second).center());
    QTest::mouseClick(combined.childAt(5, 16), Qt::LeftButton);
    Check(firsts.isEmpty() && seconds.count() == 2, "the menu chooses what a click does");

    QcMenuToolButton toggling(&window);
    toggling.setGeometry(100, 0, 44, 32);
    toggling.setMenu(&menu);
    QSignalSpy shown(&menu, &QMenu::aboutToShow);
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, &QMenu::close, Qt::QueuedConnection);
    Shot(window);
    QTest::mouseClick(&toggling, Qt::LeftButton);
    Check(toggling.isChecked() && shown.isEmpty(), "another one toggles at a click");
    toggling.setPopupMode(QToolButton::InstantPopup);
    QTest::mouseClick(&toggling, Qt::LeftButton);
    Check(shown.count() == 1, "and opens its menu where a program asks for that");
}

void CheckEnter()
{
    enum class Behind { Nothing, Shown, Hidden };
    for (const Behind behind : {Behind::Nothing, Behind::Shown, Behind::Hidden}) {
        QcDialog dialog;
        dialog.setBottomFrameVisible(true);
        auto *column = new QVBoxLayout(dialog.getContentFrame());
        auto *before = new QPushButton(QStringLiteral("before"));
        auto *field = new QcLineEditFrame;
        column->addWidget(before);
        column->addWidget(field);
        if (behind != Behind::Nothing) {
            auto *button = new QPushButton(QStringLiteral("behind"));
            column->addWidget(button);
            button->setVisible(behind == Behind::Shown);
        }
        field->setFocus();
        dialog.show();
        Check(QTest::qWaitForWindowActive(&dialog), "a dialog shows");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        Check((dialog.result() == QDialog::Accepted) == (behind == Behind::Nothing),
              "Enter in a field presses OK if no other button lies behind it");
    }
}

void CheckProgress()
{
    auto *progress = QcProgressDialog::getInstance();
    Check(progress == QcProgressDialog::getInstance(), "there is one progress dialog in the program");
    progress->setRange(0, 10);
    progress->show();
    Check(QTest::qWaitForWindowActive(progress) && !progress->isModal(), "it is not modal");
    for (const QAbstractButton *button : progress->findChildren<QAbstractButton *>())
        Check(!button->isVisible(), "and has no button");
    bool isHandled = false;
    QMetaObject::invokeMethod(
        progress, [&] { isHandled = true; }, Qt::QueuedConnection);
    progress->setValue(5);
    Check(!isHandled, "no events are handled in setValue");
    QTest::keyClick(progress, Qt::Key_Escape);
    Check(!progress->isVisible() && progress->result() == QDialog::Rejected, "Escape cancels");
}

void CheckWindowsOfAnyKind()
{
    QcWindow window;
    Check(window.layout() && !window.getContentFrame()->layout(), "a window has a layout, its content none");
    QWidget one;
    QWidget other;
    for (QWidget *plain : {&one, &other}) {
        plain->show();
        Check(QTest::qWaitForWindowActive(plain), "a window shows");
    }
    QTest::mousePress(&one, Qt::LeftButton);
    Check(QTest::qWaitForWindowActive(&one), "a press of the mouse brings it to the front");
    QTest::mouseRelease(&one, Qt::LeftButton);
}

} // namespace

void CheckClasses()
{
    CheckValues();
    CheckTexts();
    CheckLabelOfRow();
    CheckButtonsOfMenus();
    CheckFieldsInside();
    CheckToolButtons();
    CheckEnter();
    CheckProgress();
    CheckWindowsOfAnyKind();
}
