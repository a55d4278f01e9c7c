#pragma once

#include "support/TestCase.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <functional>
#include <memory>

Q_DECLARE_METATYPE(std::function<void(QWidget &)>)

namespace VelmoraTest {

/// What Qt says when a window that has been on the screen becomes a child of one that is.
inline const QString kBecomesChild = QStringLiteral(".*Attempt to set a screen on a child window\\.");

/// Hides \a dialog and lets go of its window on the offscreen platform, which cannot make it a child and says so.
inline void ForgetNativeWindow(QWidget &dialog)
{
    dialog.show(); // so that it is the same whichever test came before
    dialog.hide();
    if (dialog.windowHandle())
        dialog.windowHandle()->destroy();
}

/// How the parent of a dialog of the whole program may go.
inline void AddDeaths()
{
    using Death = std::function<void(QWidget & dialog)>;
    QTest::addColumn<Death>("dieWithParent"); // gives the dialog a parent, shows it and lets the parent die
    QTest::addColumn<bool>("isParentShown");
    QTest::newRow("a parent") << Death([](QWidget &dialog) {
        QWidget parent;
        parent.show();
        static_cast<QWidget &>(dialog).setParent(&parent);
        dialog.show();
    }) << true;
    QTest::newRow("a parent inside of another") << Death([](QWidget &dialog) {
        QWidget window;
        auto *parent = new QWidget(&window);
        window.show();
        static_cast<QWidget &>(dialog).setParent(parent);
        dialog.show();
    }) << true;
    QTest::newRow("the second of two parents") << Death([](QWidget &dialog) {
        QWidget first;
        {
            QWidget second;
            static_cast<QWidget &>(dialog).setParent(&first);
            static_cast<QWidget &>(dialog).setParent(&second);
            dialog.show();
        }
    }) << false;
    QTest::newRow("a parent that brought it by its layout, with its signals blocked") << Death([](QWidget &dialog) {
        QWidget parent;
        auto *layout = new QVBoxLayout(&parent);
        layout->addWidget(&dialog);
        parent.show();
        parent.blockSignals(true);
    }) << false;
    QTest::newRow("a parent that never showed") << Death([](QWidget &dialog) {
        QWidget parent;
        static_cast<QWidget &>(dialog).setParent(&parent);
        dialog.show();
    }) << false;
}

/// That \a dialog, whose parent dies in the way of the present row, is left behind: a window without a parent, hidden.
inline void CheckOutlivesItsParent(QWidget &dialog, LogGuard &log)
{
    QFETCH(std::function<void(QWidget &)>, dieWithParent);
    QFETCH(bool, isParentShown);
    ForgetNativeWindow(dialog);
    if (isParentShown)
        log.ExpectMatch(QtWarningMsg, kBecomesChild);
    const QPointer<QWidget> alive(&dialog);
    dieWithParent(dialog);
    DrainEvents();
    QVERIFY(alive);
    QVERIFY(!dialog.parent());
    QVERIFY(dialog.isHidden());
    QVERIFY(dialog.isWindow());
}

/// That a parent which \a dialog has left does not take it out of the next one.
inline void CheckStaysWithItsNextParent(QWidget &dialog)
{
    QWidget next;
    {
        QWidget first;
        dialog.setParent(&first);
        dialog.setParent(&next);
    }
    QCOMPARE(dialog.parentWidget(), &next);
    dialog.setParent(nullptr);
}

/// That \a dialog, when it runs in front of a window that dies, ends rejected.
inline void CheckEndsRejectedWithItsParent(QDialog &dialog)
{
    auto parent = std::make_unique<QWidget>();
    parent->show();
    static_cast<QWidget &>(dialog).setParent(parent.get(), dialog.windowFlags());
    QTimer::singleShot(0, &dialog, [&parent] { parent.reset(); });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(dialog.isHidden());
}

inline void CheckEscapeHidesAndTells(QDialog &dialog)
{
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    const QSignalSpy rejected(&dialog, &QDialog::rejected);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(dialog.isHidden());
    QCOMPARE(rejected.count(), 1);
}

/// Runs the main loop until the program ends by itself; false if it does not.
inline bool EndsAfter(const std::function<void()> &act)
{
    bool isEndedByUs = false;
    QTimer::singleShot(0, qApp, act);
    QTimer limit; // goes with what it captures
    QObject::connect(&limit, &QTimer::timeout, [&isEndedByUs] {
        isEndedByUs = true;
        QCoreApplication::quit();
    });
    limit.start(50); // Qt ends it by an event posted in the same turn
    QApplication::exec();
    return !isEndedByUs;
}

/// That a main window which closes ends the program although \a dialog is in sight, and that \a dialog, closed before the first window
/// shows, does not.
inline void CheckLeavesTheProgramsEndToWindows(QWidget &dialog)
{
    dialog.show();
    QVERIFY(!EndsAfter([&dialog] { dialog.close(); }));
    QWidget window;
    window.show();
    dialog.show();
    QVERIFY(EndsAfter([&window] { window.close(); }));
    dialog.hide();
}

} // namespace VelmoraTest
