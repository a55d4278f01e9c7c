#include "support/TestMain.h"

#include <Velmora/QcPrimaryButton.h>

#include <QDialog>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <QWindow>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

QcApplication *TheApplication()
{
    return qobject_cast<QcApplication *>(qApp);
}

/// Counts presses and keys; lets keys go on to its parent.
class Target : public QWidget
{
public:
    using QWidget::QWidget;

    int presses = 0;
    int keys = 0;
    std::function<void()> onKey;

protected:
    void mousePressEvent(QMouseEvent *) override { ++presses; }
    void mouseDoubleClickEvent(QMouseEvent *) override { ++presses; }
    void keyPressEvent(QKeyEvent *event) override
    {
        event->ignore();
        if (event->key() == Qt::Key_Shift)
            return; // comes before the key that it modifies
        ++keys;
        if (onKey)
            onKey();
    }
};

/// A window with a child at a known place.
struct Window
{
    explicit Window(const QPoint &position)
    {
        window.setGeometry(QRect(position, QSize(300, 200)));
        child.setGeometry(20, 30, 100, 50);
        child.setFocusPolicy(Qt::StrongFocus);
        window.show();
    }
    void Activate()
    {
        window.activateWindow();
        child.setFocus();
    }
    QPoint Centre() const { return child.mapToGlobal(child.rect().center()); }

    QWidget window;
    Target child{&window};
};

/// The key as the platform delivers it, through the window's platform object.
void PressWhatsThis(QWidget &window)
{
    QTest::keyClick(window.windowHandle(), Qt::Key_F1, Qt::ShiftModifier);
}

void SendMouse(QObject &target, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, QPointF(5, 5), QCursor::pos(), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &event);
}

QString Address(const QObject &object)
{
    return QString::number(reinterpret_cast<quintptr>(&object), 16);
}

QString Pair(const QPoint &point)
{
    return QStringLiteral("{%1, %2}").arg(point.x()).arg(point.y());
}

} // namespace

class tst_QcApplication : public TestCase
{
    Q_OBJECT

private:
    void SetUp() override { QCursor::setPos(0, 0); }
    void TearDown() override
    {
        TheApplication()->setDebugTipEnabled(false);
        const auto widgets = QApplication::topLevelWidgets();
        for (QWidget *widget : widgets) {
            if (widget->inherits("QTipLabel"))
                delete widget; // it would stay for a while
        }
    }

private Q_SLOTS:
    void it_adds_nothing_to_the_meta_object_but_its_name()
    {
        const QMetaObject &metaObject = QcApplication::staticMetaObject;
        QCOMPARE(QString::fromLatin1(metaObject.className()), QStringLiteral("Velmora::QcApplication"));
        QCOMPARE(metaObject.superClass(), &QApplication::staticMetaObject);
        QCOMPARE(metaObject.methodOffset(), metaObject.methodCount());
        QCOMPARE(metaObject.propertyOffset(), metaObject.propertyCount());
        QCOMPARE(metaObject.enumeratorOffset(), metaObject.enumeratorCount());
    }

    // --- Activation ---

    void a_left_press_on_a_child_activates_its_window_and_reaches_the_child()
    {
        Window first(QPoint(50, 50));
        Window second(QPoint(450, 50));
        second.Activate();
        QTRY_VERIFY(second.window.isActiveWindow());

        QTest::mousePress(first.window.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(40, 50));
        QTRY_VERIFY(first.window.isActiveWindow());
        QCOMPARE(first.child.presses, 1);
        QCOMPARE(second.child.presses, 0);
        QTest::mouseRelease(first.window.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(40, 50));
    }

    void a_left_press_activates_while_other_buttons_are_down()
    {
        Window first(QPoint(50, 50));
        Window second(QPoint(450, 50));
        second.Activate();
        QTRY_VERIFY(second.window.isActiveWindow());
        SendMouse(first.child, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton | Qt::RightButton);
        QTRY_VERIFY(first.window.isActiveWindow());
    }

    void other_presses_activate_nothing_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("button");
        QTest::addColumn<Qt::MouseButtons>("buttons");
        QTest::addColumn<int>("presses");
        QTest::newRow("right") << int(QEvent::MouseButtonPress) << int(Qt::RightButton) << Qt::MouseButtons(Qt::RightButton) << 1;
        QTest::newRow("right while left is down")
            << int(QEvent::MouseButtonPress) << int(Qt::RightButton) << (Qt::RightButton | Qt::LeftButton) << 1;
        QTest::newRow("middle") << int(QEvent::MouseButtonPress) << int(Qt::MiddleButton) << Qt::MouseButtons(Qt::MiddleButton) << 1;
        QTest::newRow("left double click") << int(QEvent::MouseButtonDblClick) << int(Qt::LeftButton) << Qt::MouseButtons(Qt::LeftButton)
                                           << 1;
        QTest::newRow("left release") << int(QEvent::MouseButtonRelease) << int(Qt::LeftButton) << Qt::MouseButtons() << 0;
    }

    void other_presses_activate_nothing()
    {
        QFETCH(int, type);
        QFETCH(int, button);
        QFETCH(Qt::MouseButtons, buttons);
        QFETCH(int, presses);
        Window first(QPoint(50, 50));
        Window second(QPoint(450, 50));
        second.Activate();
        QTRY_VERIFY(second.window.isActiveWindow());
        SendMouse(first.child, QEvent::Type(type), Qt::MouseButton(button), buttons);
        DrainEvents();
        QVERIFY(second.window.isActiveWindow());
        QCOMPARE(first.child.presses, presses);
    }

    void a_press_on_what_is_no_widget_activates_nothing()
    {
        Window first(QPoint(50, 50));
        Window second(QPoint(450, 50));
        second.Activate();
        QTRY_VERIFY(second.window.isActiveWindow());
        QObject object;
        SendMouse(object, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
        QWindow bareWindow;
        SendMouse(bareWindow, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
        DrainEvents();
        QVERIFY(second.window.isActiveWindow());
    }

    void uninitialize_leaves_the_filter_and_the_tasks_at_work()
    {
        TheApplication()->UnInitialize();
        Window first(QPoint(50, 50));
        Window second(QPoint(450, 50));
        second.Activate();
        QTRY_VERIFY(second.window.isActiveWindow());
        SendMouse(first.child, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
        QTRY_VERIFY(first.window.isActiveWindow());

        int runs = 0;
        auto record = std::make_shared<QcTaskDispatcher::MainThreadTaskInfo>();
        record->task = [&runs] { ++runs; };
        TheApplication()->PostTaskToMainThread(record);
        DrainEvents();
        QCOMPARE(runs, 1);
    }

    // --- The debug tip ---

    void the_tip_tells_all_of_each_widget_the_deepest_first()
    {
        Window window(QPoint(50, 60));
        window.window.setObjectName(QStringLiteral("the window"));
        window.window.setMinimumSize(111, 77);
        QcPrimaryButton button(&window.child);
        button.setObjectName(QStringLiteral("%1 %4 %8"));
        button.setMinimumSize(31, 13);
        button.setGeometry(7, 9, 60, 20);
        button.show();
        window.Activate();
        QTRY_VERIFY(window.window.isActiveWindow());
        TheApplication()->setDebugTipEnabled(true);
        QCursor::setPos(button.mapToGlobal(QPoint(10, 10)));
        PressWhatsThis(window.window);

        const QStringList lines = {
            QStringLiteral("pointer: ") + Address(button)
                + QStringLiteral(
                    "; class_name: Velmora::QcPrimaryButton; object_name: %1 %4 %8; relative_pos: {7, 9}; global_pos: {77, 99}; "
                    "size: {60, 20}; minimumWidth: 31; minimumHeight: 13"),
            QStringLiteral("pointer: ") + Address(window.child)
                + QStringLiteral("; class_name: QWidget; object_name: ; relative_pos: {20, 30}; global_pos: {70, 90}; "
                                 "size: {100, 50}; minimumWidth: 0; minimumHeight: 0"),
            QStringLiteral("pointer: ") + Address(window.window)
                + QStringLiteral("; class_name: QWidget; object_name: the window; relative_pos: ")
                + Pair(window.window.frameGeometry().topLeft())
                + QStringLiteral("; global_pos: {50, 60}; size: {300, 200}; minimumWidth: 111; minimumHeight: 77"),
        };
        QVERIFY(QToolTip::isVisible());
        QCOMPARE(QToolTip::text(), lines.join(QLatin1Char('\n')));
    }

    void a_windows_own_tip_is_one_line()
    {
        Window window(QPoint(50, 50));
        window.Activate();
        QTRY_VERIFY(window.window.isActiveWindow());
        TheApplication()->setDebugTipEnabled(true);
        QCursor::setPos(window.window.mapToGlobal(QPoint(250, 150)));
        PressWhatsThis(window.window);
        QVERIFY(QToolTip::text().startsWith(QStringLiteral("pointer: ") + Address(window.window)));
        QVERIFY(QToolTip::text().endsWith(QStringLiteral("; minimumWidth: 0; minimumHeight: 0")));
        QVERIFY(!QToolTip::text().contains(QLatin1Char('\n')));
    }

    void the_walk_goes_through_dialogs()
    {
        Window window(QPoint(50, 50));
        QDialog dialog(&window.window);
        dialog.setModal(true);
        dialog.setGeometry(400, 100, 200, 150);
        Target inDialog(&dialog);
        inDialog.setGeometry(10, 10, 50, 50);
        dialog.show();
        QTRY_VERIFY(dialog.isActiveWindow());
        TheApplication()->setDebugTipEnabled(true);
        QCursor::setPos(inDialog.mapToGlobal(QPoint(20, 20)));
        PressWhatsThis(dialog);

        const QStringList lines = QToolTip::text().split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 3);
        QVERIFY(lines.at(0).startsWith(QStringLiteral("pointer: %1; class_name: QWidget; ").arg(Address(inDialog))));
        QVERIFY(lines.at(1).startsWith(QStringLiteral("pointer: %1; class_name: QDialog; ").arg(Address(dialog))));
        QVERIFY(lines.at(2).startsWith(QStringLiteral("pointer: %1; class_name: QWidget; ").arg(Address(window.window))));
    }

    void the_widget_under_the_cursor_counts_not_that_with_the_focus()
    {
        Window first(QPoint(50, 50));
        Window second(QPoint(450, 50));
        second.Activate();
        QTRY_VERIFY(second.window.isActiveWindow());
        TheApplication()->setDebugTipEnabled(true);
        QCursor::setPos(first.Centre());
        PressWhatsThis(second.window);
        QVERIFY(QToolTip::text().startsWith(QStringLiteral("pointer: ") + Address(first.child)));
        QCOMPARE(second.child.keys, 1);
    }

    void the_tip_is_made_once_a_press()
    {
        Window window(QPoint(50, 50));
        window.Activate();
        QTRY_VERIFY(window.window.isActiveWindow());
        TheApplication()->setDebugTipEnabled(true);
        QCursor::setPos(window.Centre());
        window.child.setObjectName(QStringLiteral("at the press"));
        // The press goes to the child and then to its parent; a tip made for the parent's turn would show the later name.
        window.child.onKey = [&window] { window.child.setObjectName(QStringLiteral("later")); };
        PressWhatsThis(window.window);
        QCOMPARE(window.child.keys, 1);
        QCOMPARE(window.child.objectName(), QStringLiteral("later"));
        QVERIFY(QToolTip::text().contains(QStringLiteral("; object_name: at the press; ")));
    }

    void a_key_that_reaches_a_widget_by_itself_makes_no_tip()
    {
        Window window(QPoint(50, 50));
        window.Activate();
        QTRY_VERIFY(window.window.isActiveWindow());
        TheApplication()->setDebugTipEnabled(true);
        QCursor::setPos(window.Centre());
        QKeyEvent event(QEvent::KeyPress, Qt::Key_F1, Qt::ShiftModifier);
        QCoreApplication::sendEvent(&window.child, &event);
        QCOMPARE(window.child.keys, 1);
        QVERIFY(!QToolTip::isVisible());
    }

    void other_keys_and_releases_make_no_tip()
    {
        Window window(QPoint(50, 50));
        window.Activate();
        QTRY_VERIFY(window.window.isActiveWindow());
        TheApplication()->setDebugTipEnabled(true);
        QCursor::setPos(window.Centre());
        QTest::keyClick(window.window.windowHandle(), Qt::Key_F1);
        QTest::keyClick(window.window.windowHandle(), Qt::Key_F2, Qt::ShiftModifier);
        QTest::keyRelease(window.window.windowHandle(), Qt::Key_F1, Qt::ShiftModifier);
        QCOMPARE(window.child.keys, 2);
        QVERIFY(!QToolTip::isVisible());
    }

    void over_no_widget_there_is_no_tip_and_the_key_arrives()
    {
        Window window(QPoint(50, 50));
        window.Activate();
        QTRY_VERIFY(window.window.isActiveWindow());
        TheApplication()->setDebugTipEnabled(true);
        QCursor::setPos(600, 500);
        QVERIFY(!QApplication::widgetAt(QCursor::pos()));
        PressWhatsThis(window.window);
        QCOMPARE(window.child.keys, 1);
        QVERIFY(!QToolTip::isVisible());
    }

    void the_tip_can_be_switched_off()
    {
        Window window(QPoint(50, 50));
        window.Activate();
        QTRY_VERIFY(window.window.isActiveWindow());
        QCursor::setPos(window.Centre());
        TheApplication()->setDebugTipEnabled(true);
        QVERIFY(!QToolTip::isVisible()); // the switch itself shows nothing
        TheApplication()->setDebugTipEnabled(false);
        PressWhatsThis(window.window);
        QCOMPARE(window.child.keys, 1);
        QVERIFY(!QToolTip::isVisible());
    }
};

VELMORA_TEST_MAIN(tst_QcApplication)
#include "tst_QcApplication.moc"
