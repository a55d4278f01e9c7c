#include "DockTestCase.h"
#include "DragStage.h"

#include "support/AccessibleEvents.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"
#include "support/Tokens.h"

#include <Velmora/QcSplitter.h>

#include <QAccessible>
#include <QSplitter>
#include <QSplitterHandle>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// Two panes, each at least 50 pixels wide, with the handle in the middle.
struct Panes
{
    explicit Panes(Qt::Orientation orientation = Qt::Horizontal)
        : splitter(orientation, &window)
    {
        for (const char *title : {"Files", "Output"}) {
            auto *pane = new QWidget; // the splitter takes it
            pane->setFocusPolicy(Qt::StrongFocus);
            pane->setMinimumSize(50, 50);
            pane->setWindowTitle(QLatin1String(title));
            splitter.addWidget(pane);
        }
        splitter.setHandleWidth(4);
        splitter.setChildrenCollapsible(false);
        splitter.setGeometry(0, 0, 404, 404);
        splitter.setSizes({200, 200});
        window.setGeometry(0, 0, 404, 404);
        window.show();
        window.activateWindow();
        DrainEvents();
    }

    QSplitterHandle *Handle() const { return splitter.handle(1); }

    QWidget window;
    QcSplitter splitter;
};

} // namespace

class tst_QcSplitter : public DockTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_splitter_lies_as_it_was_told()
    {
        const QcSplitter plain(nullptr);
        QCOMPARE(plain.orientation(), Qt::Horizontal);
        const QcSplitter vertical(Qt::Vertical, nullptr);
        QCOMPARE(vertical.orientation(), Qt::Vertical);
        const Panes panes(Qt::Vertical);
        QCOMPARE(panes.Handle()->orientation(), Qt::Vertical);
    }

    void a_pane_may_be_any_widget()
    {
        QcSplitter splitter(nullptr);
        auto *pane = new QWidget(&splitter);
        QCOMPARE(splitter.indexOf(pane), 0);
    }

    void the_handle_shows_only_under_the_mouse()
    {
        for (Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const Panes panes;
            QSplitterHandle *handle = panes.Handle();
            QCursor::setPos(panes.window.mapToGlobal(QPoint(20, 20)));
            DrainEvents();
            QCOMPARE(PixelAt(Render(*handle, Qt::magenta), QPointF(2, 100)), QColor(Qt::magenta));
            QCursor::setPos(handle->mapToGlobal(QPoint(2, 100)));
            DrainEvents();
            QVERIFY(Close(PixelAt(Render(*handle, Qt::magenta), QPointF(2, 100)), TokenOf(table, QStringLiteral("brand/brand"))));
            QCursor::setPos(panes.window.mapToGlobal(QPoint(20, 20)));
            DrainEvents();
            QCOMPARE(PixelAt(Render(*handle, Qt::magenta), QPointF(2, 100)), QColor(Qt::magenta));
        }
        UseTable(Table::Light);
    }

    void the_mouse_repaints_the_handle_as_it_comes_and_goes()
    {
        const Panes panes;
        QCursor::setPos(panes.window.mapToGlobal(QPoint(20, 20)));
        DrainEvents();
        EventCounter paints(*panes.Handle(), QEvent::Paint);
        QCursor::setPos(panes.Handle()->mapToGlobal(QPoint(2, 100)));
        DrainEvents();
        QCOMPARE(paints.Take(), 1);
        QCursor::setPos(panes.window.mapToGlobal(QPoint(20, 20)));
        DrainEvents();
        QCOMPARE(paints.Take(), 1);
    }

    void the_focus_is_seen_and_a_click_does_not_take_it()
    {
        const Panes panes;
        QTRY_VERIFY(panes.window.isActiveWindow());
        panes.splitter.widget(1)->setFocus();
        QTest::mouseClick(panes.Handle(), Qt::LeftButton);
        QVERIFY(panes.splitter.widget(1)->hasFocus());
        QCursor::setPos(panes.window.mapToGlobal(QPoint(20, 20)));
        DrainEvents();
        QTest::keyClick(panes.window.windowHandle(), Qt::Key_Tab);
        QVERIFY(panes.Handle()->hasFocus());
        QVERIFY(Close(PixelAt(Render(*panes.Handle()), QPointF(2, 100)), TokenOf(Table::Light, QStringLiteral("brand/brand"))));
    }

    void arrows_home_and_end_move_it()
    {
        const Panes panes;
        const auto press = [&panes](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
            QTest::keyClick(panes.Handle(), key, modifiers);
            return panes.splitter.sizes();
        };
        QCOMPARE(press(Qt::Key_Left), (QList<int>{192, 208}));
        QCOMPARE(press(Qt::Key_Right, Qt::ShiftModifier), (QList<int>{193, 207}));
        QCOMPARE(press(Qt::Key_Home), (QList<int>{50, 350}));
        QCOMPARE(press(Qt::Key_Left), (QList<int>{50, 350}));
        QCOMPARE(press(Qt::Key_End), (QList<int>{350, 50}));
        QCOMPARE(press(Qt::Key_Up), (QList<int>{350, 50})); // across
        QCOMPARE(press(Qt::Key_Left, Qt::ControlModifier), (QList<int>{350, 50}));
        QCOMPARE(press(Qt::Key_Left), (QList<int>{342, 58}));
        QCOMPARE(press(Qt::Key_Left, Qt::KeypadModifier), (QList<int>{334, 66}));
    }

    void a_vertical_one_goes_up_and_down()
    {
        const Panes panes(Qt::Vertical);
        QTest::keyClick(panes.Handle(), Qt::Key_Up);
        QCOMPARE(panes.splitter.sizes(), (QList<int>{192, 208}));
        QTest::keyClick(panes.Handle(), Qt::Key_Left);
        QCOMPARE(panes.splitter.sizes(), (QList<int>{192, 208}));
        QTest::keyClick(panes.Handle(), Qt::Key_Down);
        QCOMPARE(panes.splitter.sizes(), (QList<int>{200, 200}));
    }

    void arrows_go_by_the_screen_from_right_to_left_too()
    {
        Panes panes;
        panes.splitter.setLayoutDirection(Qt::RightToLeft);
        DrainEvents();
        const int before = panes.Handle()->x();
        QTest::keyClick(panes.Handle(), Qt::Key_Left);
        QCOMPARE(panes.Handle()->x(), before - 8);
        QTest::keyClick(panes.Handle(), Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(panes.Handle()->x(), before - 7);
    }

    void a_reader_hears_what_lies_on_both_sides()
    {
        const Panes panes;
        QAccessibleInterface *handle = QAccessible::queryAccessibleInterface(panes.Handle());
        QCOMPARE(handle->role(), QAccessible::Splitter);
        QCOMPARE(handle->text(QAccessible::Name), QStringLiteral("Between Files and Output"));
        panes.Handle()->setAccessibleName(QStringLiteral("Mine"));
        QCOMPARE(handle->text(QAccessible::Name), QStringLiteral("Mine"));
        QAccessibleValueInterface *value = handle->valueInterface();
        QVERIFY(value);
        QCOMPARE(value->currentValue().toInt(), 200);
        QCOMPARE(value->minimumValue().toInt(), 50);
        QCOMPARE(value->maximumValue().toInt(), 350);
        value->setCurrentValue(120);
        QCOMPARE(panes.splitter.sizes(), (QList<int>{120, 280}));
        AccessibleEvents events(*panes.Handle());
        QTest::keyClick(panes.Handle(), Qt::Key_Right);
        QVERIFY(!events.Take().filter(QStringLiteral("ValueChanged")).isEmpty());
        value->setCurrentValue(-7);
        QCOMPARE(panes.splitter.sizes(), (QList<int>{50, 350}));
    }

    void between_areas_it_is_called_by_the_panels_shown()
    {
        QcDockContainer root(nullptr);
        root.addWidget(NewPanel(1, QStringLiteral("Files")), nullptr, Center);
        root.addWidget(NewPanel(2, QStringLiteral("Editor")), nullptr, Right);
        QcDockArea *right = root.getDockAreaList().at(1);
        root.addWidget(NewPanel(3, QStringLiteral("Output")), right, Bottom); // in a wrapper now
        auto *splitter = root.findChild<QSplitter *>(QString(), Qt::FindDirectChildrenOnly);
        const auto name = [&splitter] { return QAccessible::queryAccessibleInterface(splitter->handle(1))->text(QAccessible::Name); };
        QCOMPARE(name(), QStringLiteral("Between Files and Editor"));
        root.addWidget(NewPanel(4, QStringLiteral("Outline")), nullptr, Center);
        QCOMPARE(name(), QStringLiteral("Between Outline and Editor"));

        QcDockContainer untold(nullptr);
        untold.addWidget(NewPanel(1, QStringLiteral("Files")), nullptr, Left); // beside an empty area
        splitter = untold.findChild<QSplitter *>(QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(name(), QString());
    }
};

VELMORA_TEST_MAIN(tst_QcSplitter)
#include "tst_QcSplitter.moc"
