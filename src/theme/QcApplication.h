#pragma once

#include <Velmora/QcTaskDispatcher.h>
#include <Velmora/VelmoraExport.h>

#include <QApplication>

#include <memory>
#include <string>

namespace Velmora {

/// The application object of a program that uses this library.
///
/// Order of a host's calls: construct it, choose a colour table with QcStyleManager::SetColorFilePath(), call
/// Initialize(), create controls, run exec(). It brings a window to the front when the left mouse button is pressed
/// in it, and hands work to the main thread. The kit's controls need it: with a plain QApplication they stay unpainted, after one
/// warning, unless ServePlainApplication() is called.
class VELMORA_EXPORT QcApplication : public QApplication
{
    Q_OBJECT

public:
    QcApplication(int &argc, char **argv);
    /// Stops the dispatcher's thread and waits for it; tasks not yet run are dropped. Threads that
    /// hand in tasks must have stopped doing so by then.
    ~QcApplication() override;

    /// Starts the theme engine and then watches the application's events. The colour table comes first, because
    /// the global stylesheet is resolved only here. Call it once: a second call loads the fonts again, and widgets then follow
    /// each change of the table twice.
    void Initialize();
    /// Does nothing; it pairs with Initialize().
    void UnInitialize();
    /// A debugging aid, off at first: the platform's "What's This" key (Shift+F1) shows the chain of widgets under the cursor.
    void setDebugTipEnabled(bool enabled);

    /// From any thread: runs \a task on a coming turn of the main loop. A null is ignored.
    void PostTaskToMainThread(const std::shared_ptr<QcTaskDispatcher::MainThreadTaskInfo> &task);
    /// From any thread: runs \a task in its turn of the paced queue, about 5000 ms after it came or after the end of the one before
    /// it. Set its rearmSchedule: without it the queue stands still behind it. See QcTaskDispatcher::ScheduleTask().
    void ScheduleTaskToMainThread(const std::shared_ptr<QcTaskDispatcher::MainThreadTaskInfo> &task);
    /// From any thread: of all tasks that come with one \a key within about 5000 ms of the first, runs the last.
    void MergeTaskToMainThread(const std::shared_ptr<QcTaskDispatcher::MainThreadTaskInfo> &task, const std::string &key);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_debugTipEnabled = false;
    QcTaskDispatcher m_taskDispatcher;
};

} // namespace Velmora
