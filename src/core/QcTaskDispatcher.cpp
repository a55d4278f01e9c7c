#include <Velmora/QcTaskDispatcher.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDebug>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>

#ifdef Q_OS_LINUX
#include <ctime>
#endif

namespace Velmora {

namespace {

constexpr qint64 kSlowTaskMs = 100;

/// False if \a timer is surely far from a slow task's time, by a clock that costs a quarter of the timer's own.
bool MayBeSlow(const QElapsedTimer &timer)
{
#ifdef Q_OS_LINUX
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now); // the timer's clock at the last tick, some milliseconds ago
    const qint64 atLeast = qint64(now.tv_sec) * 1000 + now.tv_nsec / 1'000'000 - timer.msecsSinceReference();
    return atLeast > kSlowTaskMs / 2;
#else
    Q_UNUSED(timer)
    return true;
#endif
}

} // namespace

QcTaskDispatcher::QcTaskDispatcher(QObject *parent)
    : QObject(parent)
    , m_workerThread(new QThread(this))
{
    moveToThread(m_workerThread);
    m_workerThread->start(QThread::InheritPriority);
}

QcTaskDispatcher::~QcTaskDispatcher()
{
    m_workerThread->quit();
    m_workerThread->wait(QDeadlineTimer(QDeadlineTimer::Forever));
}

void QcTaskDispatcher::PostTask(const Task &task)
{
    // Guarded, because code that runs while the application object goes (a post routine, a window's last events) may
    // handle posted events once more, when this has gone already. The record is captured by a name of its own: a plain
    // capture of a constant is constant too, and Qt would count it up and down at each move.
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [dispatcher = QPointer<QcTaskDispatcher>(this), task = task] {
            if (dispatcher)
                dispatcher->ExecuteTask(task);
        },
        Qt::QueuedConnection);
}

void QcTaskDispatcher::ScheduleTask(const Task &task)
{
    QMetaObject::invokeMethod(
        this,
        [this, task] {
            if (m_scheduledTasks.empty())
                ArmScheduleTimer();
            m_scheduledTasks.push_back(task);
        },
        Qt::QueuedConnection);
}

void QcTaskDispatcher::MergeTask(const Task &task, const std::string &key)
{
    QMetaObject::invokeMethod(
        this,
        [this, task, key] {
            if (m_mergedTasks.find(key) == m_mergedTasks.end())
                ArmMergeTimer(key);
            m_mergedTasks[key] = task;
        },
        Qt::QueuedConnection);
}

/// Main thread.
void QcTaskDispatcher::ExecuteTask(const Task &task)
{
    if (!task)
        return;

    if (task->task && !(task->checkOwner && task->owner.isNull())) {
        QElapsedTimer timer;
        timer.start();
        task->task();
        const qint64 elapsed = MayBeSlow(timer) ? timer.elapsed() : 0;
        if (elapsed > kSlowTaskMs)
            qWarning().noquote().nospace() << "QcTaskDispatcher::ExecuteTask: " << QString::fromStdString(task->name)
                                           << " elapsed: " << elapsed;
    }

    if (task->rearmSchedule) {
        ArmScheduleTimer();
    } else if (!task->rearmMergeKey.empty()) {
        QMetaObject::invokeMethod(
            this, [this, key = task->rearmMergeKey] { ArmMergeTimer(key); }, Qt::QueuedConnection);
    }
}

/// Any thread. The timer is made where it fires: one made here for another thread would be nobody's child, lost if the
/// dispatcher goes first, and Qt would drop it at the end of the main loop.
void QcTaskDispatcher::ArmScheduleTimer()
{
    QMetaObject::invokeMethod(
        this, [this] { QTimer::singleShot(m_scheduleIntervalMs, this, &QcTaskDispatcher::PopScheduledTask); }, Qt::QueuedConnection);
}

/// Dispatcher's thread.
void QcTaskDispatcher::PopScheduledTask()
{
    if (m_scheduledTasks.empty())
        return;
    PostTask(m_scheduledTasks.front());
    m_scheduledTasks.pop_front();
}

/// Dispatcher's thread.
void QcTaskDispatcher::ArmMergeTimer(const std::string &key)
{
    QTimer::singleShot(m_mergeIntervalMs, this, [this, key] {
        const auto found = m_mergedTasks.find(key);
        if (found == m_mergedTasks.end())
            return;
        PostTask(found->second);
        m_mergedTasks.erase(found);
    });
}

} // namespace Velmora
