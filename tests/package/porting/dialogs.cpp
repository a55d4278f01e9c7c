#include "Ported.h"

#include "askSave.h"
#include "bottom_row.h"

#include <Velmora/KeyboardCues.h>

#include <QApplication>
#include <QFocusFrame>
#include <QIntValidator>
#include <QLineEdit>
#include <QShortcut>
#include <QTest>
#include <QTimer>

namespace {

using namespace Velmora;

bool HasKeyboard(const QWidget &window)
{
    return QTest::qWaitFor([&window] { return QApplication::focusWidget() && QApplication::focusWidget()->window() == &window; });
}

void CheckBeginning()
{
    QcDialog dialog;
    dialog.setBottomFrameVisible(true);
    dialog.show();
    Check(QTest::qWaitForWindowActive(&dialog) && dialog.size() == QSize(600, 400), "a dialog has a size of its own at first");
    Check(QApplication::focusWidget() == okOf(dialog), "the keyboard begins on OK");
}

void CheckOk()
{
    QcDialog dialog;
    dialog.setBottomFrameVisible(true);
    auto *field = new QcLineEditFrame(dialog.getContentFrame());
    field->setValidator(new QIntValidator(1, 120, field));
    require(dialog, field);
    field->setFocus();
    dialog.show();
    Check(QTest::qWaitForWindowActive(&dialog), "a dialog shows");
    Check(!okOf(dialog)->isEnabled(), "OK waits for a field that is required");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    Check(dialog.isVisible(), "and so does Enter");
    field->setText(QStringLiteral("130"));
    Check(!okOf(dialog)->isEnabled(), "what the validator refuses is no text");
    field->setText(QStringLiteral("30"));
    Check(okOf(dialog)->isEnabled(), "what it takes is one");
}

void CheckDefault()
{
    QcDialog dialog;
    dialog.setBottomFrameVisible(true);
    auto *field = new QcLineEditFrame(dialog.getContentFrame());
    preferCancel(dialog);
    dialog.show();
    Check(QTest::qWaitForWindowActive(&dialog) && QApplication::focusWidget()->objectName() == QStringLiteral("m_cancelButton"),
          "the keyboard can begin on Cancel");
    field->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    Check(!dialog.isVisible() && dialog.result() == QDialog::Rejected, "Enter cancels from everywhere else, too");
}

void CheckThirdButton()
{
    QcDialog dialog;
    dialog.setBottomFrameVisible(true);
    int helped = 0;
    auto *field = new QcLineEditFrame(dialog.getContentFrame());
    QPushButton *help = addButton(dialog, QStringLiteral("Help"));
    QObject::connect(help, &QAbstractButton::clicked, &dialog, [&helped] { ++helped; });
    dialog.show();
    Check(QTest::qWaitForWindowActive(&dialog), "a dialog shows");
    help->click();
    Check(helped == 1 && dialog.isVisible(), "a third button leaves the dialog open");
    Check(help->mapTo(&dialog, QPoint()).x() < 40 && help->height() == okOf(dialog)->height(), "and stands at the left of the row");
    Check(QApplication::focusWidget() == okOf(dialog), "without the keyboard");
    field->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    Check(helped == 1 && dialog.result() == QDialog::Accepted, "and without Enter");
}

void CheckEnter()
{
    for (const bool isDefault : {false, true}) {
        QcDialog dialog;
        dialog.setBottomFrameVisible(true);
        auto *field = new QLineEdit(dialog.getContentFrame());
        auto *browse = new QPushButton(dialog.getContentFrame());
        int browsed = 0;
        QObject::connect(browse, &QAbstractButton::clicked, &dialog, [&browsed] { ++browsed; });
        if (isDefault)
            okOf(dialog)->setDefault(true);
        field->setFocus();
        dialog.show();
        Check(HasKeyboard(dialog), "a dialog shows");
        QTest::keyClick(field, Qt::Key_Return);
        Check(browsed == int(!isDefault) && dialog.isVisible() != isDefault,
              "Enter presses the button behind the field, or the default one");
    }
}

void CheckSave()
{
    const auto answer = [](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget window;
        window.show();
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &window, [&] {
            QWidget *dialog = QApplication::activeWindow();
            if (!qobject_cast<QcDialog *>(dialog) || !QApplication::focusWidget())
                return;
            timer.stop();
            QTest::keyClick(dialog->windowHandle(), key, modifiers);
        });
        timer.start(5);
        return askSave(&window, QStringLiteral("notes.txt"));
    };
    Check(answer(Qt::Key_Return) == QMessageBox::Save, "Enter saves");
    Check(answer(Qt::Key_D, Qt::AltModifier) == QMessageBox::Discard, "Alt+D discards");
    Check(answer(Qt::Key_Escape) == QMessageBox::Cancel, "Escape cancels");
}

void CheckRing()
{
    SetKeyboardCuesEnabled(true);
    QWidget window;
    window.setFocusPolicy(Qt::StrongFocus);
    window.show();
    QcDialog dialog(&window);
    (new QcLineEditFrame(dialog.getContentFrame()))->setFocus();
    QShortcut shortcut(QKeySequence(Qt::Key_F2), &window);
    QObject::connect(&shortcut, &QShortcut::activated, &dialog, &QDialog::open);
    const auto showsRing = [&dialog] {
        Check(HasKeyboard(dialog), "a dialog gets the keyboard");
        Drain();
        const auto *ring = dialog.findChild<QFocusFrame *>();
        return ring && ring->isVisible();
    };
    Check(HasKeyboard(window), "a window has the keyboard");
    QTest::mouseClick(&window, Qt::LeftButton);
    dialog.open();
    Check(!showsRing(), "a dialog that the mouse has opened shows no ring");
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Tab);
    Check(showsRing(), "before the first Tab");
    dialog.close();
    window.activateWindow(); // as a window manager does
    Check(HasKeyboard(window), "which gives the keyboard back");
    QTest::mouseClick(&window, Qt::LeftButton);
    QTest::keyClick(window.windowHandle(), Qt::Key_F2);
    Check(showsRing(), "one that a key has opened shows it at once");
    SetKeyboardCuesEnabled(false);
}

} // namespace

void CheckDialogs()
{
    CheckBeginning();
    CheckOk();
    CheckDefault();
    CheckThirdButton();
    CheckEnter();
    CheckSave();
    CheckRing();
}
