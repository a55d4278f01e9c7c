#include "TabStage.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QSignalSpy>

#include <memory>
#include <vector>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// A row of tabs in a window, 600 by 30 pixels unless resized.
class RowStage
{
public:
    explicit RowStage(int tabs = 0)
        : row(*new QcDockAreaTabBar(&window)) // the window's child
    {
        row.setGeometry(0, 0, 600, 30);
        for (int i = 0; i < tabs; ++i)
            row.addTab(QString::number(i));
    }

    bool Show() { return ShowActive(window); }

    QList<int> Widths()
    {
        QList<int> widths;
        for (int i = 0; row.getTab(i); ++i)
            widths.append(row.getTab(i)->width());
        return widths;
    }

    /// The tabs after which a line is painted.
    QList<int> Lines()
    {
        QList<int> lines;
        for (int i = 0; row.getTab(i); ++i) {
            QcDockAreaTabBarButton &tab = *row.getTab(i);
            const QImage image = Render(tab, Qt::black);
            const int x = row.isRightToLeft() ? 0 : tab.width() - 1;
            if (PixelAt(image, QPointF(x + 0.5, 15)) == Over(QColor(255, 255, 255, 92), Qt::black))
                lines.append(i);
        }
        return lines;
    }

    void Send(int tab, QEvent::Type type, const QPoint &at, Qt::MouseButton button = Qt::LeftButton)
    {
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, at, QCursor::pos(), isMove ? Qt::NoButton : button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
        QCoreApplication::sendEvent(row.getTab(tab), &event);
    }

    QWidget window;
    QcDockAreaTabBar &row;
};

} // namespace

class TestQcDockAreaTabBar : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void is_a_row_without_gaps_that_ends_in_free_room()
    {
        RowStage stage(2);
        auto *layout = qobject_cast<QHBoxLayout *>(stage.row.layout());
        QVERIFY(layout);
        QCOMPARE(layout->spacing(), 0);
        QCOMPARE(layout->contentsMargins(), QMargins());
        QCOMPARE(layout->count(), 3);
        QCOMPARE(layout->itemAt(0)->widget(), stage.row.getTab(0));
        QCOMPARE(layout->itemAt(1)->widget(), stage.row.getTab(1));
        QVERIFY(layout->itemAt(2)->spacerItem());
    }

    void one_tab_is_current_at_a_time()
    {
        RowStage stage(3);
        stage.row.getTab(2)->setChecked(true);
        QCOMPARE(stage.row.currentIndex(), 2);
        QVERIFY(!stage.row.getTab(0)->isChecked());
        stage.row.getTab(2)->setChecked(false); // one stays
        QVERIFY(stage.row.getTab(2)->isChecked());
    }

    void the_first_tab_is_current_and_the_others_are_not()
    {
        RowStage stage;
        const QSignalSpy changes(&stage.row, &QcDockAreaTabBar::signalCurrentChanged);
        QCOMPARE(stage.row.currentIndex(), -1);
        stage.row.addTab(QStringLiteral("A"));
        QCOMPARE(stage.row.currentIndex(), 0);
        stage.row.addTab(QStringLiteral("B"));
        QCOMPARE(stage.row.currentIndex(), 0);
        QCOMPARE(changes.count(), 0);
        QCOMPARE(stage.row.getTab(1)->getTabIndex(), 1);
        QVERIFY(!stage.row.getTab(2));
        QVERIFY(!stage.row.getTab(-1));
    }

    void an_unknown_index_selects_nothing_data()
    {
        QTest::addColumn<int>("index");
        QTest::newRow("negative") << -1;
        QTest::newRow("one too many") << 3;
        QTest::newRow("far") << 1000000;
        QTest::newRow("the current one") << 1;
    }
    void an_unknown_index_selects_nothing()
    {
        QFETCH(int, index);
        RowStage stage(3);
        stage.row.setCurrentIndex(1);
        const QSignalSpy changes(&stage.row, &QcDockAreaTabBar::signalCurrentChanged);
        stage.row.setCurrentIndex(index);
        QCOMPARE(stage.row.currentIndex(), 1);
        QCOMPARE(changes.count(), 0);
    }

    void a_selection_is_told_once_with_its_index()
    {
        RowStage stage(3);
        QSignalSpy changes(&stage.row, &QcDockAreaTabBar::signalCurrentChanged);
        stage.row.setCurrentIndex(2);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(changes.takeFirst().constFirst().toInt(), 2);
    }

    void removing_a_tab_renumbers_those_behind_it_and_does_not_delete_it()
    {
        RowStage stage(4);
        stage.row.setCurrentIndex(2);
        const QPointer<QcDockAreaTabBarButton> tab = stage.row.getTab(1);
        const QcDockAreaTabBarButton *current = stage.row.getTab(2);
        const QSignalSpy changes(&stage.row, &QcDockAreaTabBar::signalCurrentChanged);
        stage.row.removeTab(1);
        DrainEvents();
        QVERIFY(tab);
        QCOMPARE(stage.row.currentIndex(), 1);
        QCOMPARE(stage.row.getTab(1), current);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(stage.row.getTab(i)->getTabIndex(), i);
        QVERIFY(!stage.row.getTab(3));
        QCOMPARE(changes.count(), 0);
        delete tab;
        stage.row.removeTab(7);
        QVERIFY(stage.row.getTab(2));
    }

    void a_removed_tab_says_nothing_to_its_row_any_more()
    {
        RowStage stage(2);
        QcDockAreaTabBarButton *tab = stage.row.getTab(0);
        stage.row.removeTab(0);
        const QSignalSpy closes(&stage.row, &QcDockAreaTabBar::signalCloseTab);
        Q_EMIT tab->signalCloseButtonClicked();
        QCOMPARE(closes.count(), 0);
        delete tab;
    }

    void removing_the_only_tab_leaves_none_current()
    {
        RowStage stage(1);
        QcDockAreaTabBarButton *tab = stage.row.getTab(0);
        stage.row.removeTab(0);
        QCOMPARE(stage.row.currentIndex(), -1);
        delete tab;
    }

    void tabs_share_the_width_up_to_200_pixels_each()
    {
        RowStage stage(1);
        QVERIFY(stage.Show());
        QCOMPARE(stage.Widths(), QList<int>({200}));
        for (int i = 1; i < 6; ++i)
            stage.row.addTab(QString::number(i));
        DrainEvents();
        QCOMPARE(stage.Widths(), QList<int>({100, 100, 100, 100, 100, 100}));
        stage.row.addTab(QStringLiteral("6"));
        DrainEvents();
        QCOMPARE(stage.Widths(), QList<int>({85, 85, 85, 85, 85, 85, 85})); // cut to whole pixels
    }

    void tabs_follow_the_width_of_the_row_on_the_next_turn()
    {
        RowStage stage(6);
        QVERIFY(stage.Show());
        stage.row.resize(300, 30);
        QCOMPARE(stage.row.getTab(0)->minimumWidth(), 100);
        QTRY_COMPARE(stage.row.getTab(0)->minimumWidth(), 50);
    }

    void a_row_may_go_before_its_tabs_have_followed()
    {
        auto *row = new QcDockAreaTabBar;
        row->addTab(QStringLiteral("A"));
        row->show();
        row->resize(300, 30);
        delete row;
        DrainEvents();
    }

    void many_resizes_in_a_turn_are_followed_once()
    {
        RowStage stage(2);
        QVERIFY(stage.Show());
        struct Watch : QObject
        {
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                // How QTimer::singleShot(0) comes back.
                calls += event->type() == QEvent::MetaCall && watched->inherits("QSingleShotTimer");
                metaCalls += event->type() == QEvent::MetaCall && watched == row;
                return false;
            }
            QObject *row = nullptr;
            int calls = 0;
            int metaCalls = 0;
        } watch;
        watch.row = &stage.row;
        qApp->installEventFilter(&watch);
        for (int width = 200; width < 300; ++width)
            stage.row.resize(width, 30);
        DrainEvents();
        QCOMPARE(watch.calls + watch.metaCalls, 1);
        QCOMPARE(stage.Widths(), QList<int>({149, 149}));
    }

    void lines_stand_between_tabs_but_not_beside_the_current_one_data()
    {
        QTest::addColumn<int>("current");
        QTest::addColumn<QList<int>>("lines");
        QTest::newRow("first") << 0 << QList<int>({1, 2});
        QTest::newRow("second") << 1 << QList<int>({2});
        QTest::newRow("third") << 2 << QList<int>({0});
        QTest::newRow("last") << 3 << QList<int>({0, 1});
    }
    void lines_stand_between_tabs_but_not_beside_the_current_one()
    {
        QFETCH(int, current);
        QFETCH(QList<int>, lines);
        RowStage stage(4);
        stage.row.setCurrentIndex(current);
        QVERIFY(stage.Show());
        QCOMPARE(stage.Lines(), lines);
        stage.row.setLayoutDirection(Qt::RightToLeft); // the next tab is at the left then, and so is the line
        DrainEvents();
        QCOMPARE(stage.Lines(), lines);
    }

    void no_line_stays_at_the_end_of_a_row_that_has_lost_its_last_tab()
    {
        RowStage stage(4);
        stage.row.setCurrentIndex(0);
        QVERIFY(stage.Show());
        QcDockAreaTabBarButton *last = stage.row.getTab(3);
        stage.row.removeTab(3);
        delete last;
        QCOMPARE(stage.Lines(), QList<int>({1}));
        stage.row.addTab(QStringLiteral("new"));
        DrainEvents();
        QCOMPARE(stage.Lines(), QList<int>({1, 2}));
    }

    // --- The mouse ---

    void a_left_press_selects_and_another_does_not()
    {
        RowStage stage(3);
        stage.Send(1, QEvent::MouseButtonPress, QPoint(5, 5), Qt::RightButton);
        QCOMPARE(stage.row.currentIndex(), 0);
        stage.Send(1, QEvent::MouseButtonPress, QPoint(5, 5));
        QCOMPARE(stage.row.currentIndex(), 1);
    }

    void a_drag_begins_beyond_the_start_distance()
    {
        const int distance = QApplication::startDragDistance();
        RowStage stage(2);
        const QSignalSpy starts(&stage.row, &QcDockAreaTabBar::signalTabDragStart);
        const QSignalSpy steps(&stage.row, &QcDockAreaTabBar::signalTabDraging);
        const QSignalSpy ends(&stage.row, &QcDockAreaTabBar::signalTabDragFinished);
        stage.Send(0, QEvent::MouseButtonPress, QPoint(5, 5));
        stage.Send(0, QEvent::MouseMove, QPoint(5 + distance, 5));
        QCOMPARE(starts.count(), 0);
        stage.Send(0, QEvent::MouseMove, QPoint(5 + distance - 3, 5 + 4)); // in any direction, both counted together
        QCOMPARE(starts.count(), 1);
        QCOMPARE(steps.count(), 0);
        stage.Send(0, QEvent::MouseMove, QPoint(6, 6));
        QCOMPARE(starts.count(), 1);
        QCOMPARE(steps.count(), 1);
        stage.Send(0, QEvent::MouseButtonRelease, QPoint(6, 6));
        QCOMPARE(ends.count(), 1);
        stage.Send(0, QEvent::MouseButtonRelease, QPoint(6, 6));
        QCOMPARE(ends.count(), 1);
    }

    void a_press_begins_anew_where_a_release_was_lost()
    {
        RowStage stage(2);
        const QSignalSpy starts(&stage.row, &QcDockAreaTabBar::signalTabDragStart);
        const QSignalSpy steps(&stage.row, &QcDockAreaTabBar::signalTabDraging);
        for (int i = 1; i <= 2; ++i) {
            stage.Send(0, QEvent::MouseButtonPress, QPoint(5, 5));
            stage.Send(0, QEvent::MouseMove, QPoint(90, 5));
            QCOMPARE(starts.count(), i);
            QCOMPARE(steps.count(), 0);
        }
    }

    void a_move_without_the_left_button_drags_nothing()
    {
        RowStage stage(2);
        const QSignalSpy starts(&stage.row, &QcDockAreaTabBar::signalTabDragStart);
        stage.Send(0, QEvent::MouseButtonPress, QPoint(5, 5));
        stage.Send(0, QEvent::MouseMove, QPoint(90, 90), Qt::RightButton);
        QCOMPARE(starts.count(), 0);
    }

    void the_close_button_of_a_tab_is_told_by_the_row()
    {
        RowStage stage(2);
        const QSignalSpy closes(&stage.row, &QcDockAreaTabBar::signalCloseTab);
        PartOf<QAbstractButton>(*stage.row.getTab(0), "m_closeButton")->click();
        QCOMPARE(closes.count(), 1);
    }

    // --- Lifetimes ---

    void a_row_may_die_in_each_of_its_signals_data()
    {
        QTest::addColumn<QString>("what");
        for (const char *what : {"select", "press", "start", "step", "end", "remove"})
            QTest::newRow(what) << QString::fromLatin1(what);
    }
    void a_row_may_die_in_each_of_its_signals()
    {
        QFETCH(QString, what);
        auto *row = new QcDockAreaTabBar;
        const QPointer<QcDockAreaTabBar> guard = row;
        row->addTab(QStringLiteral("A"));
        row->addTab(QStringLiteral("B"));
        const QPointer<QcDockAreaTabBarButton> tab = row->getTab(1);
        tab->setParent(nullptr); // so that the events outlive the row
        const auto die = [row] { delete row; };
        const auto send = [&tab](QEvent::Type type, int x) {
            QMouseEvent event(type, QPoint(x, 5), QCursor::pos(), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(tab, &event);
        };
        if (what == QLatin1String("select") || what == QLatin1String("press") || what == QLatin1String("remove"))
            connect(row, &QcDockAreaTabBar::signalCurrentChanged, row, die);
        else if (what == QLatin1String("start"))
            connect(row, &QcDockAreaTabBar::signalTabDragStart, row, die);
        else if (what == QLatin1String("step"))
            connect(row, &QcDockAreaTabBar::signalTabDraging, row, die);
        else
            connect(row, &QcDockAreaTabBar::signalTabDragFinished, row, die);
        if (what == QLatin1String("select")) {
            row->setCurrentIndex(1);
        } else if (what == QLatin1String("remove")) {
            QcDockAreaTabBarButton *first = row->getTab(0);
            first->setParent(nullptr);
            row->removeTab(0);
            delete first;
        } else {
            send(QEvent::MouseButtonPress, 5);
            if (guard)
                send(QEvent::MouseMove, 50);
            if (guard)
                send(QEvent::MouseMove, 60);
            if (guard)
                send(QEvent::MouseButtonRelease, 60);
        }
        QVERIFY(!guard);
        delete tab;
    }

    // --- Cost ---

    void a_removal_resizes_no_tab_whose_width_stays()
    {
        RowStage stage(100); // 6 pixels each
        QVERIFY(stage.Show());
        stage.row.setCurrentIndex(10);
        DrainEvents();
        QSignalSpy changes(&stage.row, &QcDockAreaTabBar::signalCurrentChanged);
        std::vector<std::unique_ptr<EventCounter>> resizes;
        for (int i = 0; i < 99; ++i)
            resizes.push_back(std::make_unique<EventCounter>(*stage.row.getTab(i), QEvent::Resize));
        QcDockAreaTabBarButton *last = stage.row.getTab(99);
        stage.row.removeTab(99); // 600 / 99 is 6 too
        delete last;
        DrainEvents();
        int count = 0;
        for (const auto &counter : resizes)
            count += counter->Take();
        QCOMPARE(count, 0);
        QCOMPARE(changes.count(), 0);
    }
};

VELMORA_TEST_MAIN(TestQcDockAreaTabBar)
#include "tst_QcDockAreaTabBar.moc"
