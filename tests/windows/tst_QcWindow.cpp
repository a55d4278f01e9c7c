#include "support/ColorValue.h"
#include "support/TestMain.h"
#include "windows/TitleRowChecks.h"

#include <Velmora/QcWindow.h>

#include <QFontMetrics>
#include <QPointer>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWindow>

#include <functional>

using namespace Velmora;
using namespace VelmoraTest;

class TestQcWindow : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_windows_content_fills_what_lies_under_its_title()
    {
        QcWindow window;
        QVERIFY(!window.getContentWidget());
        auto *content = new QWidget;
        QVERIFY(QMetaObject::invokeMethod(&window, "setContentWidget", Q_ARG(QWidget *, content)));
        window.show();
        DrainEvents();
        QCOMPARE(window.getContentWidget(), content);
        QCOMPARE(content->parentWidget(), window.getContentFrame());
        QCOMPARE(content->size(), window.getContentFrame()->size());
        QVERIFY(content->isVisible());
    }

    void a_new_window()
    {
        QcWindow window(nullptr);
        QCOMPARE(int(window.windowFlags()), 0x801);
        QCOMPARE(window.objectName(), QStringLiteral("QcWindow"));
        QCOMPARE(window.windowTitle(), QStringLiteral("window"));
        QCOMPARE(window.size(), QSize(600, 400));
        window.show();
        CheckTitleRow(window, QMargins(12, 0, 8, 0), "m_maxRestoreButton");

        QLayout *column = window.layout();
        QCOMPARE(column->objectName(), QStringLiteral("verticalLayout"));
        QCOMPARE(column->spacing(), 0);
        QCOMPARE(column->contentsMargins(), QMargins());
        QCOMPARE(column->itemAt(0)->widget(), window.getTitleFrame());
        QCOMPARE(column->itemAt(1)->widget(), window.getContentFrame());
        QCOMPARE(column->count(), 2);

        const QFrame *content = window.getContentFrame();
        QCOMPARE(content->objectName(), QStringLiteral("m_contentFrame"));
        QCOMPARE(content->geometry(), QRect(0, 40, 600, 360));
        QCOMPARE(content->sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding));
        QCOMPARE(content->frameShape(), QFrame::NoFrame);
        QCOMPARE(content->frameShadow(), QFrame::Raised);
        QVERIFY(!content->layout());

        QVERIFY(Child<QcIconButton>(window, "m_maxRestoreButton")->isCheckable());
        QVERIFY(!Child<QcIconButton>(window, "m_minButton")->isCheckable());
        QVERIFY(!Child<QcIconButton>(window, "m_closeButton")->isCheckable());
    }

    void its_texts_follow_the_language_and_those_of_its_host_stay()
    {
        CheckLanguageChange<QcWindow>("QcWindow", QStringLiteral("window"), "m_maxRestoreButton");
    }

    void a_window_with_a_parent_is_a_window_still()
    {
        QWidget parent;
        QcWindow window(&parent);
        QVERIFY(window.isWindow());
    }

    void the_title_stands_in_the_row_only()
    {
        QcWindow window(nullptr);
        window.setTitle(QStringLiteral("Letters"));
        QCOMPARE(Child<QcLabel>(window, "m_titleLabel")->text(), QStringLiteral("Letters"));
        QCOMPARE(window.windowTitle(), QStringLiteral("window"));
        window.setWindowTitle(QStringLiteral("Post"));
        QCOMPARE(Child<QcLabel>(window, "m_titleLabel")->text(), QStringLiteral("Letters"));
    }

    void a_long_title_gives_way_to_the_buttons()
    {
        QcWindow window(nullptr);
        window.setTitle(QString(500, QLatin1Char('W')));
        window.setMinimumSize(300, 100);
        window.resize(300, 100);
        window.show();
        DrainEvents();
        const QWidget *close = Child<QcIconButton>(window, "m_closeButton");
        QCOMPARE(window.width(), 300);
        // Text does not widen a window that the host made narrow, and close stays at its right end.
        QCOMPARE(close->mapTo(&window, QPoint(24, 0)).x(), window.width() - 8);
    }

    void a_long_title_asks_for_its_width()
    {
        QcWindow window(nullptr);
        window.setTitle(QString(50, QLatin1Char('W')));
        const QFontMetrics metrics(Child<QcLabel>(window, "m_titleLabel")->font());
        QVERIFY(window.minimumSizeHint().width() >= 50 * metrics.horizontalAdvance(QLatin1Char('W')));
    }

    void buttons_can_be_hidden()
    {
        QcWindow window(nullptr);
        window.show();
        const auto isShown = [&window](const char *name) { return Child<QcIconButton>(window, name)->isVisible(); };
        window.setMinButtonVisible(false);
        QVERIFY(!isShown("m_minButton") && isShown("m_maxRestoreButton") && isShown("m_closeButton"));
        window.setMaxRestoreButtonVisible(false);
        QVERIFY(!isShown("m_maxRestoreButton") && isShown("m_closeButton"));
        window.setCloseButtonVisible(false);
        QVERIFY(!isShown("m_closeButton"));
        window.setMinButtonVisible(true);
        window.setMaxRestoreButtonVisible(true);
        window.setCloseButtonVisible(true);
        QVERIFY(isShown("m_minButton") && isShown("m_maxRestoreButton") && isShown("m_closeButton"));
    }

    void minimise_and_maximise_by_their_buttons()
    {
        QcWindow window(nullptr);
        window.show();
        QTest::mouseClick(Child<QcIconButton>(window, "m_maxRestoreButton"), Qt::LeftButton);
        QVERIFY(window.isMaximized());
        QTest::mouseClick(Child<QcIconButton>(window, "m_maxRestoreButton"), Qt::LeftButton);
        QVERIFY(!window.isMaximized());
        QTest::mouseClick(Child<QcIconButton>(window, "m_minButton"), Qt::LeftButton);
        QVERIFY(window.isMinimized());
    }

    void a_double_click_on_row_or_title_maximises_and_restores()
    {
        QcWindow window(nullptr);
        window.show();
        auto *button = Child<QcIconButton>(window, "m_maxRestoreButton");
        QTest::mouseDClick(window.getTitleFrame(), Qt::LeftButton);
        QVERIFY(window.isMaximized() && button->isChecked());
        CheckIcon(*button, QStringLiteral(":/images/max.svg")); // the same in both states
        QTest::mouseDClick(Child<QcLabel>(window, "m_titleLabel"), Qt::LeftButton);
        QVERIFY(!window.isMaximized() && !button->isChecked());
        QTest::mouseDClick(window.getContentFrame(), Qt::LeftButton);
        QVERIFY(!window.isMaximized());
    }

    void its_button_follows_the_window_system()
    {
        QcWindow window(nullptr);
        window.show();
        auto *button = Child<QcIconButton>(window, "m_maxRestoreButton");
        window.windowHandle()->setWindowStates(Qt::WindowMaximized); // as the window system tells it
        QTRY_VERIFY(window.isMaximized());
        QTRY_VERIFY(button->isChecked());
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!window.isMaximized() && !button->isChecked());

        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(window.isMaximized());
        window.windowHandle()->setWindowStates(Qt::WindowNoState);
        QTRY_VERIFY(!window.isMaximized());
        QTRY_VERIFY(!button->isChecked());
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(window.isMaximized() && button->isChecked());
    }

    void its_button_follows_a_restored_geometry()
    {
        QByteArray geometry;
        {
            QcWindow window(nullptr);
            window.showMaximized();
            geometry = window.saveGeometry();
        }
        QcWindow window(nullptr);
        QVERIFY(window.restoreGeometry(geometry));
        DrainEvents();
        QVERIFY(!window.isVisible());
        window.show();
        auto *button = Child<QcIconButton>(window, "m_maxRestoreButton");
        QTRY_VERIFY(button->isChecked());
        QVERIFY(window.isMaximized());
        QTest::mouseDClick(window.getTitleFrame(), Qt::LeftButton);
        QVERIFY(!window.isMaximized() && !button->isChecked());
    }

    void a_click_in_the_turn_of_a_change_does_something()
    {
        QcWindow window(nullptr);
        auto *button = Child<QcIconButton>(window, "m_maxRestoreButton");
        window.showMaximized();
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!window.isMaximized() && !button->isChecked());
        DrainEvents();
        QVERIFY(!window.isMaximized() && !button->isChecked());
    }

    void a_minimised_window_stays_so_and_its_button_checked_while_it_is_maximised()
    {
        QcWindow window(nullptr);
        window.showMaximized();
        window.showMinimized();
        DrainEvents();
        QVERIFY(window.isMinimized());
        QVERIFY(Child<QcIconButton>(window, "m_maxRestoreButton")->isChecked());
    }

    void a_full_screen_becomes_maximised_by_a_click()
    {
        QcWindow window(nullptr);
        auto *button = Child<QcIconButton>(window, "m_maxRestoreButton");
        window.showMaximized();
        DrainEvents();
        window.showFullScreen();
        DrainEvents();
        QVERIFY(window.isFullScreen() && !button->isChecked());
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(window.isMaximized() && !window.isFullScreen());
    }

    void a_host_may_delete_a_window_later_whose_button_toggles()
    {
        const std::function<void(QcWindow &)> roads[] = {
            [](QcWindow &window) { QTest::mouseClick(Child<QcIconButton>(window, "m_maxRestoreButton"), Qt::LeftButton); },
            [](QcWindow &window) { QTest::mouseDClick(window.getTitleFrame(), Qt::LeftButton); },
            [](QcWindow &window) { window.showMaximized(); },
        };
        for (const auto &maximise : roads) {
            const QPointer<QcWindow> window = new QcWindow(nullptr); // deleted by its button
            connect(Child<QcIconButton>(*window, "m_maxRestoreButton"), &QAbstractButton::toggled, window, &QObject::deleteLater);
            window->show();
            maximise(*window);
            QVERIFY(window);
            QVERIFY(window->isMaximized());
            QTRY_VERIFY(!window);
        }
    }

    void a_host_may_delete_the_title_row()
    {
        QcWindow window(nullptr);
        window.show();
        delete window.getTitleFrame();
        window.showMaximized();
        const BracketTranslator translator("QcWindow");
        DrainEvents();
        QVERIFY(window.isMaximized());
        QCOMPARE(window.windowTitle(), QStringLiteral("[window]"));
    }

    void without_its_filter_a_double_click_does_nothing()
    {
        QcWindow window(nullptr);
        window.show();
        window.removeEventFilter();
        QTest::mouseDClick(window.getTitleFrame(), Qt::LeftButton);
        QVERIFY(!window.isMaximized());
        QVERIFY(!Child<QcIconButton>(window, "m_maxRestoreButton")->isChecked());
    }

    void a_press_that_a_title_button_does_not_take_stays_there()
    {
        QcWindow window(nullptr);
        window.show();
        QWidget *frame = window.getTitleFrame();
        const auto pressesOnRow = [&](QWidget *target, Qt::MouseButton button) {
            PressCounter counter(frame);
            QTest::mouseClick(target, button);
            return counter.presses;
        };
        for (const char *name : {"m_minButton", "m_maxRestoreButton", "m_closeButton"}) {
            for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton})
                QCOMPARE(pressesOnRow(Child<QcIconButton>(window, name), button), 0);
        }
        QCOMPARE(pressesOnRow(Child<QcLabel>(window, "m_titleLabel"), Qt::RightButton), 1);
    }

    void closing_by_button_or_call_says_so_first()
    {
        QcWindow window(nullptr);
        QSignalSpy spy(&window, &QcWindow::signalClose);
        bool wasVisible = false;
        connect(&window, &QcWindow::signalClose, this, [&] { wasVisible = window.isVisible(); });
        window.show();
        QTest::mouseClick(Child<QcIconButton>(window, "m_closeButton"), Qt::LeftButton);
        QVERIFY(!window.isVisible());
        QCOMPARE(spy.count(), 1);
        QVERIFY(wasVisible);
        window.show();
        window.close();
        QCOMPARE(spy.count(), 2);
        window.show();
        window.hide();
        QCOMPARE(spy.count(), 2);
    }

    void a_host_may_delete_a_window_that_closes() { CheckDeletionWhenItCloses<QcWindow>(); }

    void shows_centred_on_the_window_of_a_reference()
    {
        QWidget host;
        host.setGeometry(101, 53, 401, 303);
        QWidget inner(&host);
        inner.setGeometry(300, 200, 50, 50);
        host.show();
        QcWindow window(nullptr);
        window.resize(200, 100);
        window.showToCenter(&inner);
        QVERIFY(window.isVisible());
        QCOMPARE(window.pos(), QPoint(101 + 100, 53 + 101));

        // Larger than the reference: integer division goes towards zero.
        window.resize(602, 404);
        window.showToCenter(&host);
        QCOMPARE(window.pos(), QPoint(101 - 100, 53 - 50));
    }

    void a_window_smaller_than_its_least_size_is_centred_as_it_will_be()
    {
        QWidget host;
        host.setGeometry(101, 53, 401, 303);
        host.show();
        QcWindow window(nullptr);
        auto *column = new QVBoxLayout(window.getContentFrame());
        auto *content = new QWidget;
        content->setMinimumSize(300, 200);
        column->addWidget(content);
        window.resize(10, 10);
        window.showToCenter(&host);
        DrainEvents();
        QVERIFY(window.width() >= 300 && window.height() >= 240);
        QCOMPARE(window.pos(), QPoint(101 + (401 - window.width()) / 2, 53 + (303 - window.height()) / 2));

        // One in sight keeps the size that its user gave it.
        window.resize(500, 400);
        window.showToCenter(&host);
        QCOMPARE(window.size(), QSize(500, 400));
    }

    void shows_nothing_without_a_reference()
    {
        QcWindow window(nullptr);
        const QPoint before = window.pos();
        window.showToCenter(nullptr);
        QVERIFY(!window.isVisible());
        QCOMPARE(window.pos(), before);
    }

    void paints_its_ground_and_a_line_under_the_title()
    {
        QcWindow window(nullptr);
        window.setTitle(QString());
        window.show();
        for (const Table table : {Table::Dark, Table::Light}) {
            UseTable(table);
            const QImage image = Render(window);
            const QColor ground = Over(TokenOf(table, QStringLiteral("bg/bg_box")));
            COMPARE_COLOR(PixelAt(image, QPointF(0, 0)), ground);
            COMPARE_COLOR(PixelAt(image, QPointF(300, 20)), ground);
            COMPARE_COLOR(PixelAt(image, QPointF(300, 200)), ground);
            COMPARE_COLOR(PixelAt(image, QPointF(599, 399)), ground);
            QColor line = TokenOf(table, QStringLiteral("border/border_tertairy"));
            QVERIFY(!Close(Over(line, ground), ground, 1));
            line.setAlphaF(ColorValue(line.alphaF() * 0.5)); // the line is centred on the pixels' edge, in the title row's last row
            if (image.devicePixelRatio() == 1.0)
                COMPARE_COLOR(PixelAt(image, QPointF(300, 39)), Over(line, ground));
        }
    }

    void its_edges_have_no_cursor_of_their_own()
    {
        QcWindow window(nullptr);
        window.move(100, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QCursor::setPos(window.mapToGlobal(QPoint(0, 0)));
        QTest::mouseMove(window.windowHandle(), QPoint(0, 0));
        DrainEvents();
        QCOMPARE(window.cursor().shape(), Qt::ArrowCursor);
    }

    void right_to_left_turns_the_row_around()
    {
        QcWindow window(nullptr);
        window.setLayoutDirection(Qt::RightToLeft);
        window.show();
        DrainEvents();
        QVERIFY(Child<QcIconButton>(window, "m_closeButton")->x() < Child<QcIconButton>(window, "m_minButton")->x());
        QVERIFY(Child<QcIconButton>(window, "m_minButton")->x() < Child<QcLabel>(window, "m_titleLabel")->x());
    }

    void the_focus_goes_to_the_content()
    {
        QcWindow window(nullptr);
        auto *column = new QVBoxLayout(window.getContentFrame());
        auto *button = new QPushButton;
        column->addWidget(button);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&window, Qt::Key_Tab);
        QVERIFY(button->hasFocus());
        QTest::keyClick(button, Qt::Key_Tab);
        QVERIFY(button->hasFocus());
    }

protected:
    void TearDown() override { UseTable(Table::Light); }

private:
    class PressCounter : public QObject
    {
    public:
        explicit PressCounter(QObject *watched) { watched->installEventFilter(this); }
        int presses = 0;

    protected:
        bool eventFilter(QObject * /*watched*/, QEvent *event) override
        {
            presses += event->type() == QEvent::MouseButtonPress;
            return false;
        }
    };
};

VELMORA_TEST_MAIN(TestQcWindow)

#include "tst_QcWindow.moc"
