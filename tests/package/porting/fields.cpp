#include "Ported.h"

#include "AgeDialog.h"
#include "NamePage.h"

#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcSpinBox.h>

#include <QApplication>
#include <QLocale>
#include <QRegularExpressionValidator>
#include <QTest>
#include <QWizard>

namespace {

using namespace Velmora;

/// Types \a text into \a field in place of what it has, and presses Enter.
void Enter(QcLineEditFrame *field, const QString &text)
{
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
    CheckAge();
    CheckWizard();
}
