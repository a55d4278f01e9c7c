#include "Ported.h"

#include "AgeDialog.h"
#include "NamePage.h"
#include "line_up.h"

#include <Velmora/PlainWidgets.h>
#include <Velmora/QcGhostButton.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcSpinBox.h>

#include <QApplication>
#include <QLocale>
#include <QRegularExpressionValidator>
#include <QTest>
#include <QToolButton>
#include <QWizard>

namespace {

using namespace Velmora;

/// Types \a text into \a field in place of what it has, and presses Enter.
void Enter(QcLineEditFrame *field, const QString &text)
{
    Check(QTest::qWaitForWindowActive(field->window()), "a field is in a window that has the keyboard");
    field->setFocus();
    field->getLineEdit()->selectAll();
    QTest::keyClicks(QApplication::focusWidget(), text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
}

void CheckFonts()
{
    QcLineEditFrame field;
    field.setText(QStringLiteral("text"));
    Check(Ignores(field,
                  [&] {
                      field.setFont(Large());
                      field.getLineEdit()->setFont(Large());
                  }),
          "a font does not reach a field");
    QcSelector selector;
    selector.addItem(QStringLiteral("item"));
    Check(Ignores(selector, [&] { selector.setFont(Large()); }) && selector.height() == 28, "nor a selector, of 28 pixels");
    QcSpinBox number;
    Check(Ignores(number, [&] { number.setFont(Large()); }), "nor a spin box");
}

void CheckNumbers()
{
    QcDialog dialog;
    dialog.setBottomFrameVisible(true);
    auto *number = new QcLineEditFrame;
    number->setValidator(0, 5000, 0);
    number->setText(QStringLiteral("7"));
    (new QVBoxLayout(dialog.getContentFrame()))->addWidget(number);
    dialog.show();
    Check(QTest::qWaitForWindowActive(&dialog), "a dialog shows");
    Enter(number, QStringLiteral("99999"));
    Check(!dialog.isVisible() && number->valueInt() == 7, "Enter closes the dialog with the last number accepted");
    dialog.show();
    QIntValidator years(1900, 2100);
    number->setValidator(&years);
    Enter(number, QStringLiteral("1987"));
    Check(number->getText() == QStringLiteral("1,987"), "a year is written as a number");
    dialog.show();
    QRegularExpressionValidator digits(QRegularExpression(QStringLiteral("\\d{4}")));
    number->setValidator(&digits);
    Enter(number, QStringLiteral("1987"));
    Check(number->getText() == QStringLiteral("1987"), "and not under another validator");
}

void CheckClearing()
{
    QcLineEditFrame field;
    field.setText(QStringLiteral("text"));
    field.getLineEdit()->setClearButtonEnabled(true);
    field.resize(200, 24);
    Shot(field);
    auto *clear = field.getLineEdit()->findChild<QToolButton *>();
    Check(clear && clear->isVisible(), "a field shows Qt's clear button");
    const QImage light = clear->icon().pixmap(16, 16).toImage();
    UseTable("blue_dark");
    Check(!light.isNull() && clear->icon().pixmap(16, 16).toImage() == light, "which is the same in every table");
    UseTable("blue_light");
    clear->click();
    Check(field.getText().isEmpty(), "and clears");

    field.setText(QStringLiteral("text"));
    field.setButtonIconPath(QStringLiteral(":/images/close.svg"));
    QObject::connect(&field, &QcLineEditFrame::signalButtonClicked, &field, &QcLineEditFrame::clear);
    QTest::mouseClick(field.findChild<QcGhostButton *>(), Qt::LeftButton);
    Check(field.getText().isEmpty(), "the kit's does, too");
}

/// The ground of what is selected in \a field.
QColor SelectionIn(QWidget &field)
{
    Shot(field);
    auto *edit = qobject_cast<QLineEdit *>(field.focusProxy() ? field.focusProxy() : &field);
    edit = edit ? edit : field.findChild<QLineEdit *>();
    field.activateWindow();
    Check(QTest::qWaitForWindowActive(&field), "a field shows");
    edit->setFocus();
    edit->selectAll();
    Drain();
    const QImage look = edit->grab().toImage();
    return look.pixelColor(look.width() / 4, look.height() / 2 - 6);
}

void CheckSelection()
{
    const QString text = QStringLiteral("          ").repeated(4);
    const QColor before = QApplication::palette().color(QPalette::Highlight);
    SetPlainWidgetsFollowTable(true);
    const QColor wanted = QcStyleManager::GetInstance()->GetColor("brand/brand_press");
    QcLineEditFrame field;
    QLineEdit plain;
    QcSpinBox number;
    field.setText(text);
    plain.setText(text);
    number.setPrefix(text);
    Check(before != wanted && SelectionIn(field) == before && SelectionIn(number) == before,
          "what is selected in fields and spin boxes has the colour of the application's own palette");
    Check(SelectionIn(plain) == wanted, "in plain widgets that of the table");
    lineUp(&field);
    lineUp(&number);
    Check(SelectionIn(field) == wanted && SelectionIn(number) == wanted, "and then in all of them");
    SetPlainWidgetsFollowTable(false);
}

void CheckAge()
{
    AgeDialog dialog;
    dialog.show();
    Check(QTest::qWaitForWindowActive(&dialog), "the dialog shows");
    Check(dialog.field()->isAncestorOf(QApplication::focusWidget()), "its field has the keyboard");
    Enter(dialog.field(), QStringLiteral("300"));
    Check(dialog.isVisible() && dialog.field()->getWarning() && dialog.field()->getText() == QStringLiteral("300"),
          "a wrong age stays to be mended");
    Enter(dialog.field(), QStringLiteral("30"));
    Check(!dialog.isVisible() && dialog.result() == QDialog::Accepted && !dialog.field()->getWarning(), "a right one is taken");
}

void CheckWizard()
{
    QWizard wizard;
    auto *page = new NamePage;
    wizard.addPage(page);
    wizard.addPage(new QWizardPage);
    wizard.show();
    Check(!wizard.button(QWizard::NextButton)->isEnabled(), "without a name there is no next page");
    page->findChild<QcLineEditFrame *>()->setText(QStringLiteral("Ada"));
    Check(wizard.button(QWizard::NextButton)->isEnabled() && wizard.field(QStringLiteral("name")) == QStringLiteral("Ada"),
          "with one there is");
}

} // namespace

void CheckFields()
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    CheckFonts();
    CheckNumbers();
    CheckClearing();
    CheckSelection();
    CheckAge();
    CheckWizard();
}
