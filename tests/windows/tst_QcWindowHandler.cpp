#include "support/EventCounter.h"
#include "support/TestMain.h"

#include "windows/QcWindowHandler_p.h"

#include <QCursor>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QWindow>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr int kBorder = 8;
constexpr int kWidth = 200;
constexpr int kHeight = 150;

// A window system that takes notes. What it is asked for is counted in whole, since the calls are plain functions.
struct FakeSystem
{
    QVector<WId> styled;
    QVector<WId> refreshed;
    NativeFrame::Message message = {0, 0};
} fakeSystem;

const NativeFrame kFakeFrame = {
    [](const void *) { return fakeSystem.message; },
    [](WId window) { fakeSystem.styled.append(window); },
    [] {
        return NativeFrame::Edges{-7, -30, 8, 9};
    },
    [](WId window) { fakeSystem.refreshed.append(window); },
};

constexpr unsigned int kCalcSize = 0x0083;
constexpr unsigned int kHitTest = 0x0084;

/// A frameless window with a handler of a border of 8 pixels, active, at (100, 100).
class Stage
{
public:
    explicit Stage(const NativeFrame *native = nullptr)
        : handler(new QcWindowHandler(&window, native))
    {
        window.setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
        window.setGeometry(100, 100, kWidth, kHeight);
        handler->setWidget(&window);
        handler->setBorderWidth(kBorder);
    }

    bool Show()
    {
        window.show();
        return QTest::qWaitForWindowActive(&window);
    }

    /// Moves the mouse to a place of the window, which tells its native window.
    Qt::CursorShape CursorAt(int x, int y)
    {
        QCursor::setPos(window.mapToGlobal(QPoint(x, y)));
        DrainEvents();
        QMouseEvent move(QEvent::MouseMove, QPointF(x, y), QCursor::pos(), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.windowHandle(), &move);
        return window.cursor().shape();
    }

    QWidget window;
    QcWindowHandler *handler;
};

void MoveOver(QWidget &window)
{
    QMouseEvent move(QEvent::MouseMove, QPointF(10, 75), QCursor::pos(), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.windowHandle(), &move);
}

/// Counts the presses and moves over windows that it is asked about.
class CountingHandler : public QcWindowHandler
{
public:
    using QcWindowHandler::QcWindowHandler;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        m_count += watched->isWindowType() && (event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonPress);
        return QcWindowHandler::eventFilter(watched, event);
    }

    /// How many of one press and one move over \a window.
    int CountOver(QWidget &window)
    {
        m_count = 0;
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseMove}) {
            QMouseEvent event(type, QPointF(50, 50), QCursor::pos(), Qt::RightButton, Qt::RightButton, Qt::NoModifier);
            QCoreApplication::sendEvent(window.windowHandle(), &event);
        }
        return m_count;
    }

private:
    int m_count = 0;
};

} // namespace

class TestQcWindowHandler : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_cursor_tells_the_edges_data()
    {
        QTest::addColumn<QPoint>("at");
        QTest::addColumn<Qt::CursorShape>("shape");
        const int right = kWidth - 1;
        const int bottom = kHeight - 1;
        QTest::newRow("top left") << QPoint(0, 0) << Qt::SizeFDiagCursor;
        QTest::newRow("top right") << QPoint(right, 0) << Qt::SizeBDiagCursor;
        QTest::newRow("bottom left") << QPoint(0, bottom) << Qt::SizeBDiagCursor;
        QTest::newRow("bottom right") << QPoint(right, bottom) << Qt::SizeFDiagCursor;
        QTest::newRow("top left, last pixel") << QPoint(kBorder - 1, kBorder - 1) << Qt::SizeFDiagCursor;
        QTest::newRow("left") << QPoint(0, 75) << Qt::SizeHorCursor;
        QTest::newRow("left, last column") << QPoint(kBorder - 1, 75) << Qt::SizeHorCursor;
        QTest::newRow("beside the left") << QPoint(kBorder, 75) << Qt::ArrowCursor;
        QTest::newRow("right") << QPoint(right, 75) << Qt::SizeHorCursor;
        QTest::newRow("right, first column") << QPoint(kWidth - kBorder + 1, 75) << Qt::SizeHorCursor;
        QTest::newRow("beside the right") << QPoint(kWidth - kBorder, 75) << Qt::ArrowCursor;
        QTest::newRow("top") << QPoint(100, 0) << Qt::SizeVerCursor;
        QTest::newRow("beside the top") << QPoint(100, kBorder) << Qt::ArrowCursor;
        QTest::newRow("bottom") << QPoint(100, bottom) << Qt::SizeVerCursor;
        QTest::newRow("bottom, first row") << QPoint(100, kHeight - kBorder + 1) << Qt::SizeVerCursor;
        QTest::newRow("beside the bottom") << QPoint(100, kHeight - kBorder) << Qt::ArrowCursor;
        QTest::newRow("inside") << QPoint(100, 75) << Qt::ArrowCursor;
    }

    void the_cursor_tells_the_edges()
    {
        QFETCH(QPoint, at);
        QFETCH(Qt::CursorShape, shape);
        Stage stage;
        QVERIFY(stage.Show());
        QCOMPARE(stage.CursorAt(at.x(), at.y()), shape);
        QCOMPARE(stage.CursorAt(100, 75), Qt::ArrowCursor); // and goes with them
    }

    void corners_win_in_a_window_smaller_than_its_border()
    {
        Stage stage;
        stage.window.resize(10, 10);
        stage.handler->setBorderWidth(20);
        QVERIFY(stage.Show());
        QCOMPARE(stage.CursorAt(5, 5), Qt::SizeFDiagCursor); // top left is asked for first
    }

    void no_border_no_edges()
    {
        for (const int border : {0, -3}) {
            Stage stage;
            stage.handler->setBorderWidth(border);
            QVERIFY(stage.Show());
            QCOMPARE(stage.CursorAt(0, 0), Qt::ArrowCursor);
        }
    }

    void a_maximised_window_has_no_edges()
    {
        Stage stage;
        QVERIFY(stage.Show());
        stage.window.showMaximized();
        DrainEvents();
        QCOMPARE(stage.CursorAt(0, 75), Qt::ArrowCursor);
        stage.window.showNormal();
        DrainEvents();
        QCOMPARE(stage.CursorAt(0, 75), Qt::SizeHorCursor);
    }

    void an_inactive_window_has_no_edges()
    {
        Stage stage;
        QVERIFY(stage.Show());
        QCOMPARE(stage.CursorAt(0, 75), Qt::SizeHorCursor);
        QWidget other;
        other.setGeometry(400, 400, 50, 50);
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QCOMPARE(stage.window.cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(stage.CursorAt(0, 75), Qt::ArrowCursor);
    }

    void a_move_over_a_window_unsets_the_cursor_of_a_host()
    {
        Stage stage;
        stage.handler->setBorderWidth(0);
        stage.window.setCursor(Qt::WaitCursor);
        QVERIFY(stage.Show());
        QCOMPARE(stage.CursorAt(50, 50), Qt::ArrowCursor);
    }

    void a_press_finds_the_cursor_of_where_it_is_after_a_move_that_nobody_saw()
    {
        Stage stage;
        QVERIFY(stage.Show());
        QCOMPARE(stage.CursorAt(0, 75), Qt::SizeHorCursor);
        {
            // As for a pointer that left the band within one of the window system's steps.
            struct Deaf : QObject
            {
                bool eventFilter(QObject *, QEvent *event) override { return event->type() == QEvent::MouseMove; }
            } deaf;
            qApp->installEventFilter(&deaf);
            QCursor::setPos(stage.window.mapToGlobal(QPoint(100, 75)));
            QCoreApplication::processEvents();
        }
        QCOMPARE(stage.window.cursor().shape(), Qt::SizeHorCursor);
        QTest::mousePress(stage.window.windowHandle(), Qt::LeftButton, {}, QPoint(100, 75));
        QCOMPARE(stage.window.cursor().shape(), Qt::ArrowCursor);
        QTest::mouseRelease(stage.window.windowHandle(), Qt::LeftButton, {}, QPoint(100, 75));
    }

    void a_window_that_keeps_its_size_from_now_on_has_its_own_cursor()
    {
        Stage stage;
        QVERIFY(stage.Show());
        QCOMPARE(stage.CursorAt(0, 75), Qt::SizeHorCursor);
        stage.handler->setBorderWidth(0);
        QCOMPARE(stage.window.cursor().shape(), Qt::ArrowCursor);
        stage.window.setCursor(Qt::WaitCursor);
        stage.handler->setBorderWidth(0); // there is nothing to take back
        QCOMPARE(stage.window.cursor().shape(), Qt::WaitCursor);
    }

    void a_widget_inside_takes_its_parents_cursor_again()
    {
        QWidget parent;
        parent.setCursor(Qt::CrossCursor);
        parent.resize(100, 100);
        auto *panel = new QWidget(&parent);
        panel->setGeometry(0, 0, 50, 50);
        panel->setCursor(Qt::ArrowCursor);
        QcWindowHandler handler(&parent);
        handler.setWidget(panel);
        parent.show();
        QVERIFY(QTest::qWaitForWindowActive(&parent));
        QMouseEvent move(QEvent::MouseMove, QPointF(10, 10), QCursor::pos(), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(parent.windowHandle(), &move);
        QCOMPARE(panel->cursor().shape(), Qt::CrossCursor);
    }

    void moves_of_a_widget_leave_the_cursor()
    {
        Stage stage;
        stage.handler->setBorderWidth(0);
        stage.window.setCursor(Qt::WaitCursor);
        QVERIFY(stage.Show());
        QMouseEvent move(QEvent::MouseMove, QPointF(50, 50), QCursor::pos(), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&stage.window, &move);
        QCOMPARE(stage.window.cursor().shape(), Qt::WaitCursor);
    }

    void a_handler_is_asked_about_windows_only_while_it_has_an_edge_or_a_cursor()
    {
        QWidget window(nullptr, Qt::Window | Qt::FramelessWindowHint);
        window.setGeometry(100, 100, kWidth, kHeight);
        auto *title = new QWidget(&window);
        title->setGeometry(0, 0, kWidth, 40);
        CountingHandler handler(nullptr);
        handler.setWidget(&window);
        handler.setTitleBar(title);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QCursor::setPos(window.mapToGlobal(QPoint(50, 50)));
        DrainEvents();
        QCOMPARE(handler.CountOver(window), 0);

        window.setCursor(Qt::WaitCursor);
        QCOMPARE(handler.CountOver(window), 2);
        QCOMPARE(window.cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(handler.CountOver(window), 0); // nothing is left to take back

        handler.setBorderWidth(kBorder);
        QCOMPARE(handler.CountOver(window), 2);
        QWidget other;
        other.setGeometry(400, 400, 50, 50);
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QCOMPARE(handler.CountOver(other), 0); // the edges of an inactive window do nothing
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QCOMPARE(handler.CountOver(other), 2);
        handler.setBorderWidth(0);
        QCOMPARE(handler.CountOver(window), 0);
    }

    void a_widget_that_becomes_a_window_has_edges()
    {
        QWidget parent;
        parent.setGeometry(400, 400, 300, 200);
        auto *panel = new QWidget(&parent); // the parent's
        panel->resize(kWidth, kHeight);
        QcWindowHandler handler(nullptr);
        handler.setWidget(panel);
        parent.show();
        QVERIFY(QTest::qWaitForWindowActive(&parent));

        panel->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
        handler.setBorderWidth(kBorder);
        panel->move(100, 100);
        panel->show();
        QVERIFY(QTest::qWaitForWindowActive(panel));
        QCursor::setPos(panel->mapToGlobal(QPoint(0, 75)));
        DrainEvents();
        QMouseEvent move(QEvent::MouseMove, QPointF(0, 75), QCursor::pos(), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(panel->windowHandle(), &move);
        QCOMPARE(panel->cursor().shape(), Qt::SizeHorCursor);
    }

    void a_widget_shown_in_an_active_window_has_edges()
    {
        QWidget parent;
        parent.setGeometry(100, 100, 300, 200);
        auto *panel = new QWidget(&parent); // the parent's
        panel->resize(kWidth, kHeight);
        panel->hide();
        QcWindowHandler handler(nullptr);
        handler.setWidget(panel);
        handler.setBorderWidth(kBorder);
        parent.show();
        QVERIFY(QTest::qWaitForWindowActive(&parent)); // which a hidden widget is not told
        panel->show();
        QCursor::setPos(panel->mapToGlobal(QPoint(0, 75)));
        DrainEvents();
        MoveOver(parent);
        QCOMPARE(panel->cursor().shape(), Qt::SizeHorCursor);
    }

    void a_window_that_becomes_a_widget_takes_its_parents_cursor()
    {
        QWidget parent;
        parent.setGeometry(100, 100, 300, 200);
        parent.setCursor(Qt::CrossCursor);
        auto *panel = new QWidget;         // the parent's below
        panel->setCursor(Qt::ArrowCursor); // what every window has
        QcWindowHandler handler(nullptr);
        handler.setWidget(panel);
        panel->setParent(&parent);
        parent.show();
        QVERIFY(QTest::qWaitForWindowActive(&parent));
        QCOMPARE(panel->cursor().shape(), Qt::ArrowCursor);
        MoveOver(parent);
        QCOMPARE(panel->cursor().shape(), Qt::CrossCursor);
    }

    void another_widget_takes_the_place_of_the_first()
    {
        Stage stage;
        QVERIFY(stage.Show());
        QCOMPARE(stage.CursorAt(0, 75), Qt::SizeHorCursor);
        stage.window.unsetCursor();
        QWidget other;
        stage.handler->setWidget(&other);
        QCOMPARE(stage.CursorAt(0, 75), Qt::ArrowCursor);
    }

    void events_are_never_consumed()
    {
        Stage stage(&kFakeFrame);
        stage.handler->setTitleBar(&stage.window);
        QVERIFY(stage.Show());
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::Show, QEvent::WindowDeactivate,
                                        QEvent::WindowStateChange, QEvent::Paint}) {
            QEvent event(type);
            QVERIFY(!stage.handler->eventFilter(&stage.window, &event));
            QVERIFY(!stage.handler->eventFilter(stage.window.windowHandle(), &event));
        }
    }

    void without_a_widget_nothing_happens()
    {
        QWidget title;
        title.resize(100, 40);
        QcWindowHandler handler(nullptr, &kFakeFrame);
        handler.setTitleBar(&title);
        handler.setBorderWidth(kBorder);
        handler.setNativeFrame(true);
        title.show();
        QVERIFY(QTest::qWaitForWindowActive(&title));
        QTest::mouseClick(title.windowHandle(), Qt::LeftButton, {}, QPoint(1, 1));
        QTest::mouseMove(title.windowHandle(), QPoint(1, 1));
        DrainEvents();
        NativeResult result = 5;
        QVERIFY(!handler.nativeEventFilter("windows_generic_MSG", nullptr, &result));
        QCOMPARE(result, NativeResult(5));
    }

    void a_widget_or_title_that_died_is_forgotten()
    {
        QWidget other;
        other.resize(100, 100);
        auto window = std::make_unique<QWidget>();
        auto title = std::make_unique<QWidget>();
        QcWindowHandler handler(nullptr);
        handler.setWidget(window.get());
        handler.setTitleBar(title.get());
        handler.setBorderWidth(kBorder);
        window->show();
        window->setCursor(Qt::WaitCursor); // is watched for
        title.reset();
        window.reset();
        other.show();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QTest::mouseClick(other.windowHandle(), Qt::LeftButton, {}, QPoint(1, 1));
        QTest::mouseMove(other.windowHandle(), QPoint(2, 2));
        DrainEvents();
        QCOMPARE(other.cursor().shape(), Qt::ArrowCursor);
    }

    void a_title_bar_outlives_its_handler()
    {
        QWidget window;
        window.resize(100, 100);
        auto *title = new QWidget(&window); // the window's
        title->resize(100, 40);
        {
            QcWindowHandler handler(nullptr);
            handler.setWidget(&window);
            handler.setTitleBar(title);
        }
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        EventCounter presses(*title, QEvent::MouseButtonPress);
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(10, 10));
        QCOMPARE(presses.Take(), 1);
    }

    // --- The native layer ---

    void this_platform_has_no_native_layer()
    {
#ifndef Q_OS_WIN
        QVERIFY(!SystemNativeFrame());
        Stage stage(SystemNativeFrame());
        stage.window.setContentsMargins(1, 2, 3, 4);
        stage.handler->setNativeFrame(true);
        QVERIFY(stage.Show());
        stage.window.showMaximized();
        DrainEvents();
        QCOMPARE(stage.window.contentsMargins(), QMargins(1, 2, 3, 4));
        NativeResult result = 5;
        QVERIFY(!stage.handler->nativeEventFilter("windows_generic_MSG", nullptr, &result));
        QCOMPARE(result, NativeResult(5));
#endif
    }

    void it_is_off_at_first()
    {
        Stage stage(&kFakeFrame);
        stage.window.setContentsMargins(1, 2, 3, 4);
        QVERIFY(stage.Show());
        stage.handler->applyNativeStyle();
        QVERIFY(fakeSystem.styled.isEmpty());
        stage.window.showMaximized();
        DrainEvents();
        QCOMPARE(stage.window.contentsMargins(), QMargins(1, 2, 3, 4));
        Q_EMIT stage.window.windowHandle()->screenChanged(nullptr);
        QVERIFY(fakeSystem.refreshed.isEmpty());
        fakeSystem.message = {stage.window.winId(), kCalcSize};
        NativeResult result = 5;
        QVERIFY(!stage.handler->nativeEventFilter("windows_generic_MSG", nullptr, &result));
        QCOMPARE(result, NativeResult(5));
    }

    void the_style_follows_widget_and_flag()
    {
        Stage stage(&kFakeFrame);
        const QVector<WId> once = {stage.window.winId()};
        stage.handler->setNativeFrame(true);
        QCOMPARE(fakeSystem.styled, once);
        stage.handler->setWidget(&stage.window);
        QCOMPARE(fakeSystem.styled.size(), 2);
        stage.handler->applyNativeStyle();
        QCOMPARE(fakeSystem.styled.size(), 3);
        stage.handler->setWidget(nullptr);
        stage.handler->setNativeFrame(true);
        stage.handler->setNativeFrame(false);
        stage.handler->setWidget(&stage.window);
        QCOMPARE(fakeSystem.styled.size(), 3);
    }

    void only_the_frames_size_of_the_own_visible_window_is_answered()
    {
        Stage stage(&kFakeFrame);
        stage.handler->setNativeFrame(true);
        fakeSystem.message = {stage.window.winId(), kCalcSize};
        const auto answers = [&stage](const char *type) {
            NativeResult result = 5;
            const bool answered = stage.handler->nativeEventFilter(type, nullptr, &result);
            return answered && result == 0;
        };
        QVERIFY(!answers("windows_generic_MSG")); // hidden
        QVERIFY(stage.Show());
        QVERIFY(answers("windows_generic_MSG"));
        QVERIFY(!answers("xcb_generic_event_t"));
        QVERIFY(!answers("windows_generic_MSG_2"));
        fakeSystem.message.id = kHitTest;
        QVERIFY(!answers("windows_generic_MSG"));
        fakeSystem.message = {stage.window.winId() + 1, kCalcSize};
        QVERIFY(!answers("windows_generic_MSG"));
        stage.handler->setNativeFrame(false);
        fakeSystem.message = {stage.window.winId(), kCalcSize};
        QVERIFY(!answers("windows_generic_MSG"));
    }

    void a_maximised_window_is_inset_by_the_frame()
    {
        Stage stage(&kFakeFrame);
        stage.handler->setNativeFrame(true);
        QVERIFY(stage.Show());
        stage.window.showMaximized();
        DrainEvents();
        QCOMPARE(stage.window.contentsMargins(), QMargins(7, 9, 8, 9));
        stage.window.showNormal();
        DrainEvents();
        QCOMPARE(stage.window.contentsMargins(), QMargins());
    }

    void a_new_screen_refreshes_the_frame_once()
    {
        Stage stage(&kFakeFrame);
        stage.handler->setNativeFrame(true);
        QVERIFY(stage.Show());
        stage.window.hide();
        QVERIFY(stage.Show()); // not connected twice
        Q_EMIT stage.window.windowHandle()->screenChanged(nullptr);
        QCOMPARE(fakeSystem.refreshed, QVector<WId>({stage.window.winId()}));
    }

    void the_first_show_decides_about_screens()
    {
        Stage stage(&kFakeFrame);
        QVERIFY(stage.Show());
        stage.handler->setNativeFrame(true);
        stage.window.hide();
        QVERIFY(stage.Show());
        Q_EMIT stage.window.windowHandle()->screenChanged(nullptr);
        QVERIFY(fakeSystem.refreshed.isEmpty());
    }

protected:
    void SetUp() override
    {
        fakeSystem = FakeSystem();
    }
};

VELMORA_TEST_MAIN(TestQcWindowHandler)

#include "tst_QcWindowHandler.moc"
