#include "Ported.h"

#include "Shell.h"

#include <Velmora/QcDialog.h>
#include <Velmora/QcLabel.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMenuBar>
#include <QSizeGrip>
#include <QStatusBar>
#include <QTest>

namespace {

using namespace Velmora;

/// A main window that keeps open what is not saved.
class Notes : public QMainWindow
{
public:
    bool isSaved = false;

protected:
    void closeEvent(QCloseEvent *event) override { event->setAccepted(isSaved); }
};

QString RowOf(const QWidget &window)
{
    return window.findChild<QcLabel *>(QStringLiteral("m_titleLabel"))->text();
}

void CheckTitles()
{
    QcWindow window;
    Check(window.windowTitle() == QStringLiteral("window") && RowOf(window) == QStringLiteral("TextLabel"),
          "a window has titles of its own at first");
    window.setWindowTitle(QStringLiteral("given"));
    Check(RowOf(window) == QStringLiteral("TextLabel"), "the row does not follow the window's title");
    const QcDialog dialog;
    Check(dialog.windowTitle() == QStringLiteral("dialog") && RowOf(dialog) == QStringLiteral("TextLabel"), "so has a dialog");
    for (const char *name : {"m_okButton", "m_cancelButton"})
        Check(dialog.findChild<QAbstractButton *>(QLatin1String(name))->text() == QStringLiteral("PushButton"), "and so have its buttons");
}

void CheckSizes()
{
    QcWindow window;
    window.show();
    Check(window.size() == QSize(600, 400) && window.getContentFrame()->size() == QSize(600, 360),
          "a title row takes 40 pixels of the window");
    QcDialog dialog;
    dialog.show();
    Check(dialog.size() == QSize(600, 400) && dialog.getContentFrame()->size() == QSize(580, 340),
          "of a dialog its shadow takes 10 at each side");
}

void CheckGeometry()
{
    QMainWindow old;
    old.setGeometry(120, 80, 500, 300);
    old.show();
    QcWindow window;
    Check(window.restoreGeometry(old.saveGeometry()) && window.geometry() == old.geometry(), "a window reads what the plain one saved");
    window.showMaximized();
    const QByteArray saved = window.saveGeometry();
    QcWindow next;
    Check(next.restoreGeometry(saved), "and what it saved itself");
    next.show();
    Drain();
    Check(next.isMaximized(), "maximised");
    next.showNormal();
    Check(QTest::qWaitFor([&] { return next.geometry() == old.geometry(); }), "with the place from before");
}

void CheckFlags()
{
    QcWindow window;
    window.setWindowFlag(Qt::WindowStaysOnTopHint);
    Check(window.windowFlags().testFlag(Qt::FramelessWindowHint), "one flag more leaves the window without a frame");
    window.setWindowFlags(Qt::Window | Qt::WindowStaysOnTopHint);
    Check(!window.windowFlags().testFlag(Qt::FramelessWindowHint), "other flags bring the frame back");
}

void CheckShell()
{
    auto *notes = new Notes;
    notes->setWindowTitle(QStringLiteral("Notes"));
    Shell shell(notes);
    int quits = 0;
    QAction *quit = notes->menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Quit"), &shell, [&] { ++quits; });
    quit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    auto *text = new QWidget;
    text->setFocusPolicy(Qt::StrongFocus);
    notes->setCentralWidget(text);
    notes->statusBar();
    shell.show();
    Check(QTest::qWaitForWindowActive(&shell) && notes->isVisible() && !notes->isWindow(), "the main window shows inside of the shell");
    const auto *grip = notes->findChild<QSizeGrip *>();
    Check(grip && grip->isVisible(), "with a grip");
    text->setFocus();
    QTest::keyClick(text, Qt::Key_Q, Qt::ControlModifier);
    Check(quits == 1, "its shortcuts work");
    notes->setWindowTitle(QStringLiteral("Other notes"));
    Check(shell.windowTitle() == QStringLiteral("Other notes") && RowOf(shell) == QStringLiteral("Other notes"),
          "its title is the shell's");
    notes->setWindowTitle(QStringLiteral("Notes[*]"));
    Check(RowOf(shell) == QStringLiteral("Notes") && !shell.isWindowModified(), "the mark of changes shows in no row without changes");
    notes->setWindowModified(true);
    Check(RowOf(shell) == QStringLiteral("Notes*") && shell.isWindowModified(), "and with them as a star");
    notes->setWindowTitle(QStringLiteral("More[*] notes"));
    Check(RowOf(shell) == QStringLiteral("More* notes") && shell.windowTitle() == QStringLiteral("More[*] notes"), "under any title");
    notes->setWindowModified(false);
    Check(RowOf(shell) == QStringLiteral("More notes") && !shell.isWindowModified(), "until all is saved");
    Check(!shell.close() && shell.isVisible(), "it may refuse to be closed");
    notes->isSaved = true;
    Check(shell.close() && !shell.isVisible(), "or agree");
    shell.show();
    Check(notes->isVisible(), "and is there when the shell shows again");
    notes->close();
    Check(!notes->isVisible() && shell.isVisible(), "closed by itself it would only be hidden");
}

} // namespace

void CheckWindows()
{
    CheckTitles();
    CheckSizes();
    CheckGeometry();
    CheckFlags();
    CheckShell();
}
