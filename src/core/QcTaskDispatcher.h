#pragma once

#include <Velmora/VelmoraExport.h>

#include <QObject>
#include <QPointer>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>

QT_BEGIN_NAMESPACE
class QThread;
QT_END_NAMESPACE

namespace Velmora {

/// Hands work to the main thread: at once, paced, or merged. Owned by QcApplication, whose
/// PostTaskToMainThread(), ScheduleTaskToMainThread() and MergeTaskToMainThread() are the way in.
///
/// It lives on a thread of its own that keeps the queue, the map and their timers and runs no task: every task
/// runs on the main thread, out of its event loop. Each structure belongs to one thread and every access from
/// elsewhere is a queued call, so there is no lock. Tasks not yet run when it is destroyed are dropped.
class QcTaskDispatcher : public QObject
{
    Q_OBJECT

public:
    /// One piece of work. Its fields must not change once the record has been handed in. A record that was scheduled or
    /// merged may be freed on the dispatcher's thread, and with it what its function captured.
    struct VELMORA_EXPORT MainThreadTaskInfo
    {
        /// The work. If empty, only the follow-up below takes place. What it throws is not caught.
        std::function<void()> task;
        /// Names the work in the warning that a run of more than 100 ms gives.
        std::string name;
        /// With checkOwner, the work is skipped silently once this object is gone.
        QPointer<QObject> owner;
        bool checkOwner = false;
        /// When done, arm the next step of the schedule queue. Set it on every record handed to
        /// ScheduleTaskToMainThread(): the queue stands still behind a record that does not.
        bool rearmSchedule = false;
        /// When done, and if not empty and rearmSchedule is false, arm the merge timer of this key.
        std::string rearmMergeKey;
    };
    using Task = std::shared_ptr<MainThreadTaskInfo>;

    explicit QcTaskDispatcher(QObject *parent = nullptr);
    /// Ends the thread and waits for it without a limit.
    ~QcTaskDispatcher() override;

    /// Runs \a task on a coming turn of the main loop; posts of one thread keep their order. A null is ignored.
    void PostTask(const Task &task);
    /// Appends \a task to the paced queue. A timer of 5000 ms begins when a record comes into an empty queue, and at the end of
    /// each run with rearmSchedule; each timer that ends runs one record. Records that wait together therefore run 5000 ms
    /// after the end of the one before. One that comes while the queue is empty but such a timer runs begins another: it runs
    /// when the first of them ends, and the next record may run sooner after it. The timers are coarse, within 5 %.
    void ScheduleTask(const Task &task);
    /// Keeps \a task as the latest of \a key. A timer of 5000 ms, within 5 %, begins with the first call of the key and at the end
    /// of each run with that rearmMergeKey; when one ends, the latest task runs, and the next call is a first one again.
    /// Keys are compared byte by byte.
    void MergeTask(const Task &task, const std::string &key);

private:
    void ExecuteTask(const Task &task);
    void ArmScheduleTimer();
    void PopScheduledTask();
    void ArmMergeTimer(const std::string &key);

    QThread *m_workerThread;
    std::deque<Task> m_scheduledTasks;
    int m_scheduleIntervalMs = 5000;
    std::unordered_map<std::string, Task> m_mergedTasks;
    int m_mergeIntervalMs = 5000;
};

} // namespace Velmora
