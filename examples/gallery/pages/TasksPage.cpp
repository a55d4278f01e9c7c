#include "Kit.h"
#include "Page.h"
#include "Tables.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcTertiaryButton.h>

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPainter>
#include <QTableWidget>
#include <QThreadPool>
#include <QTimer>
#include <QVBoxLayout>

#include <functional>
#include <memory>

using namespace Gallery;
using Velmora::QcApplication;
using TaskInfo = Velmora::QcTaskDispatcher::MainThreadTaskInfo;

namespace {

enum Road { Posted, Paced, Merged };

struct RoadInfo
{
    const char *title;
    const char *text;
    const char *call;
    const char *token;
};

constexpr RoadInfo kRoads[] = {
    {"Posted", "Runs on the next turns of the main loop, in order.", "PostTaskToMainThread", "brand/brand"},
    {"Paced", "Runs one by one, five seconds apart.", "ScheduleTaskToMainThread", "tip/success"},
    {"Merged", "Of a burst within five seconds, only the last runs.", "MergeTaskToMainThread", "tip/warning"},
};

constexpr qint64 kShownMs = 20000;
constexpr int kLogRows = 200;
constexpr int kWaiting = -1;
constexpr int kReplaced = -2;

// One task from hand-in to run.
struct Entry
{
    Road road;
    qint64 handedIn;
    qint64 ran = kWaiting;
    bool fromWorker;
    QString what;
};

class TasksPage : public PageWidget
{
public:
    TasksPage()
    {
        m_clock.start();
        AddRoads();
        AddTimeline();
        AddLog();
        // The picture moves only while something waits or is still in sight.
        m_ticker.setInterval(50);
        connect(&m_ticker, &QTimer::timeout, this, [this] {
            m_timeline->update();
            if (m_clock.elapsed() > m_lastChange + kShownMs && m_waitingPaced == 0 && m_waitingMerged < 0)
                m_ticker.stop();
        });
    }

    ~TasksPage() override
    {
        m_pool.waitForDone(); // the workers hand in tasks that point here
    }

protected:
    void showEvent(QShowEvent *event) override
    {
        PageWidget::showEvent(event);
        if (!m_entries.isEmpty())
            return;
        // Something to look at from the start.
        FromWorker(Posted, 3);
        HandIn(Paced, false);
        HandIn(Paced, false);
        FromWorker(Merged, 20);
    }

private:
    // --- What the user presses ---

    void AddRoads()
    {
        auto *card =
            AddSection(QStringLiteral("Three roads to the main thread"),
                       QStringLiteral("Every task runs on the main thread, out of its event loop, whichever thread handed it in."));
        QHBoxLayout *row = card->AddRow(4 * kGrid);
        for (int i = 0; i < 3; ++i) {
            const Road road = Road(i);
            auto *column = new QVBoxLayout;
            column->setSpacing(kGrid);
            column->addWidget(MakeLabel(QLatin1String(kRoads[i].title), QcLabel::Caption));
            column->addWidget(MakeElidingLabel(QLatin1String(kRoads[i].text), QcLabel::BodySecondary));
            column->addWidget(MakeElidingLabel(QLatin1String(kRoads[i].call), QcLabel::Hint));
            column->addSpacing(kGrid / 2);
            auto *buttons = new QHBoxLayout;
            buttons->setSpacing(kGrid);
            auto *one = new Velmora::QcPrimaryButton;
            one->setText(QStringLiteral("Hand in one"));
            connect(one, &QPushButton::clicked, this, [this, road] { HandIn(road, false); });
            auto *many = new Velmora::QcTertiaryButton;
            const int count = road == Paced ? 3 : road == Merged ? 100 : 10;
            many->setText(QStringLiteral("%1 from a worker").arg(count));
            connect(many, &QPushButton::clicked, this, [this, road, count] { FromWorker(road, count); });
            for (Velmora::QcButton *button : {static_cast<Velmora::QcButton *>(one), static_cast<Velmora::QcButton *>(many)}) {
                button->setHorizontalMargin(2 * kGrid);
                buttons->addWidget(button);
            }
            buttons->addStretch();
            column->addLayout(buttons);
            m_counts[i] = MakeElidingLabel(QString(), QcLabel::BodySecondary);
            column->addSpacing(kGrid / 2);
            column->addWidget(m_counts[i]);
            row->addLayout(column, 1);
            ShowCounts(road);
        }
    }

    void FromWorker(Road road, int count)
    {
        m_pool.start([this, road, count] {
            for (int i = 0; i < count; ++i)
                HandIn(road, true);
        });
    }

    // Called on the main thread or a worker: the application's three operations take tasks from any.
    void HandIn(Road road, bool fromWorker)
    {
        const qint64 handedIn = m_clock.elapsed();
        auto *app = static_cast<QcApplication *>(QCoreApplication::instance());
        // The log is the main thread's, so that too is told by a post; posts of a thread keep their order.
        app->PostTaskToMainThread(MakeTask([this, road, handedIn, fromWorker] { NoteHandedIn(road, handedIn, fromWorker); }));
        const auto task = MakeTask([this, road, handedIn, fromWorker] { NoteRun(road, handedIn, fromWorker); });
        switch (road) {
        case Posted:
            app->PostTaskToMainThread(task);
            break;
        case Paced:
            task->rearmSchedule = true; // without it the queue would stand still behind this task
            app->ScheduleTaskToMainThread(task);
            break;
        case Merged:
            app->MergeTaskToMainThread(task, "gallery.tasks");
            break;
        }
    }

    std::shared_ptr<TaskInfo> MakeTask(const std::function<void()> &work)
    {
        auto task = std::make_shared<TaskInfo>();
        task->task = work;
        task->name = "gallery tasks page";
        task->owner = this;
        task->checkOwner = true; // dropped with the page
        return task;
    }

    // --- What became of it ---

    void NoteHandedIn(Road road, qint64 at, bool fromWorker)
    {
        if (road == Merged && m_waitingMerged >= 0)
            m_entries[m_waitingMerged].ran = kReplaced;
        Entry entry;
        entry.road = road;
        entry.handedIn = at;
        entry.fromWorker = fromWorker;
        m_entries.append(entry);
        if (road == Merged)
            m_waitingMerged = int(m_entries.size() - 1);
        if (road == Paced)
            ++m_waitingPaced;
        ++m_handedIn[road];
        Changed(road);
    }

    void NoteRun(Road road, qint64 handedIn, bool fromWorker)
    {
        const qint64 now = m_clock.elapsed();
        for (Entry &entry : m_entries) {
            if (entry.road == road && entry.handedIn == handedIn && entry.ran == kWaiting) {
                entry.ran = now;
                break;
            }
        }
        if (road == Merged)
            m_waitingMerged = -1;
        if (road == Paced)
            --m_waitingPaced;
        ++m_run[road];
        Changed(road);
        AddLogRow(road, handedIn, now, fromWorker);
    }

    void Changed(Road road)
    {
        m_lastChange = m_clock.elapsed();
        m_ticker.start();
        ShowCounts(road);
    }

    void ShowCounts(Road road)
    {
        const int waiting = road == Paced ? m_waitingPaced : road == Merged && m_waitingMerged >= 0 ? 1 : 0;
        QString text = QStringLiteral("%1 handed in   \u00b7   %2 run").arg(m_handedIn[road]).arg(m_run[road]);
        if (waiting > 0)
            text += QStringLiteral("   \u00b7   %1 waiting").arg(waiting);
        m_counts[road]->setText(text);
    }

    // --- The picture ---

    void AddTimeline()
    {
        Card *card = AddSection(QStringLiteral("The last twenty seconds"),
                                QStringLiteral("A ring is a task handed in, a disc its run. A faint ring was replaced by a later one."));
        m_timeline = new Canvas([this](QPainter &painter, const QRect &rect) { PaintTimeline(painter, rect); });
        m_timeline->setFixedHeight(18 * kGrid);
        card->Body()->addWidget(m_timeline);
    }

    void PaintTimeline(QPainter &painter, const QRect &rect)
    {
        constexpr int kNames = 9 * kGrid;
        constexpr int kLane = 5 * kGrid;
        const qint64 now = m_clock.elapsed();
        const qint64 from = qMax<qint64>(0, now - kShownMs);
        const double perMs = double(rect.width() - kNames - 2 * kGrid) / double(kShownMs);
        const auto x = [&](qint64 at) { return kNames + double(at - from) * perMs; };

        painter.setPen(TokenColor(QStringLiteral("text/text_tertairy")));
        for (qint64 second = (from + 4999) / 5000 * 5; second * 1000 <= from + kShownMs; second += 5) {
            const double at = x(second * 1000);
            painter.setPen(QPen(TokenColor(QStringLiteral("table/table_divider")), 1.0));
            painter.drawLine(QPointF(at, 0), QPointF(at, 3 * kLane));
            painter.setPen(TokenColor(QStringLiteral("text/text_tertairy")));
            painter.drawText(QRectF(at - 20, 3 * kLane + 4, 40, 16), Qt::AlignCenter, QStringLiteral("%1 s").arg(second));
        }
        for (int lane = 0; lane < 3; ++lane) {
            painter.setPen(TokenColor(QStringLiteral("text/text_secondary")));
            painter.drawText(QRect(0, lane * kLane, kNames, kLane), Qt::AlignLeft | Qt::AlignVCenter, QLatin1String(kRoads[lane].title));
        }
        for (const Entry &entry : qAsConst(m_entries)) {
            const qint64 end = entry.ran == kWaiting ? now : entry.ran == kReplaced ? entry.handedIn : entry.ran;
            if (end < from)
                continue;
            const double y = entry.road * kLane + kLane / 2.0;
            QColor color = TokenColor(QLatin1String(kRoads[entry.road].token));
            if (entry.ran == kReplaced)
                color.setAlphaF(0.35F);
            const double start = qMax(x(entry.handedIn), double(kNames));
            painter.setPen(QPen(color, 2.0, entry.ran == kWaiting ? Qt::DotLine : Qt::SolidLine));
            painter.setBrush(Qt::NoBrush);
            painter.drawLine(QPointF(start, y), QPointF(x(end), y));
            painter.setPen(QPen(color, 2.0));
            painter.setBrush(TokenColor(QStringLiteral("bg/bg_box")));
            if (entry.handedIn >= from)
                painter.drawEllipse(QPointF(start, y), 4, 4);
            if (entry.ran >= 0) {
                painter.setPen(Qt::NoPen);
                painter.setBrush(color);
                painter.drawEllipse(QPointF(x(end), y), 5, 5);
            }
        }
    }

    // --- The log ---

    void AddLog()
    {
        Card *card = AddSection(QStringLiteral("What ran when"));
        card->Body()->setContentsMargins(2 * kGrid, kGrid, 2 * kGrid, 2 * kGrid);
        m_log = new QTableWidget(0, 4);
        m_log->setObjectName(QStringLiteral("taskLog"));
        m_log->setAccessibleName(QStringLiteral("Log of tasks"));
        m_log->setHorizontalHeaderLabels(
            {QStringLiteral("Ran at"), QStringLiteral("Road"), QStringLiteral("Handed in by"), QStringLiteral("Waited")});
        m_log->setFixedHeight(30 * kGrid);
        StyleTable(m_log);
        m_log->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
        card->Body()->addWidget(m_log);
    }

    void AddLogRow(Road road, qint64 handedIn, qint64 ran, bool fromWorker)
    {
        m_log->insertRow(0);
        const QString texts[] = {
            QStringLiteral("%1 s").arg(double(ran) / 1000.0, 0, 'f', 3),
            QLatin1String(kRoads[road].title),
            fromWorker ? QStringLiteral("a worker thread") : QStringLiteral("the main thread"),
            QStringLiteral("%1 ms").arg(ran - handedIn),
        };
        for (int column = 0; column < 4; ++column)
            m_log->setItem(0, column, new QTableWidgetItem(texts[column]));
        if (m_log->rowCount() > kLogRows)
            m_log->removeRow(kLogRows);
    }

    QElapsedTimer m_clock;
    QThreadPool m_pool;
    QTimer m_ticker;
    QVector<Entry> m_entries;
    int m_handedIn[3] = {};
    int m_run[3] = {};
    int m_waitingPaced = 0;
    int m_waitingMerged = -1; // index of the entry
    qint64 m_lastChange = 0;
    QcLabel *m_counts[3] = {};
    Canvas *m_timeline = nullptr;
    QTableWidget *m_log = nullptr;
};

const PageRegistrar registrar({QStringLiteral("tasks"), QStringLiteral("Tools"), QStringLiteral("Tasks"),
                               QStringLiteral("Work handed to the main thread from any thread: at once, paced, or merged."), 900,
                               [] { return new TasksPage; }});

} // namespace
