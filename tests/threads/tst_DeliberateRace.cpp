// Three races on purpose. If the thread sanitizer, with all that is set up around it, misses one, the other tests prove nothing.
#include <Velmora/QcApplication.h>

#include <cstring>
#include <memory>
#include <thread>

namespace {

int shared = 0;

Q_NEVER_INLINE void Touch()
{
    ++shared;
}

/// Two threads without anything between them.
void RaceBare()
{
    std::thread first(Touch);
    std::thread second(Touch);
    first.join();
    second.join();
}

/// A worker that goes on with what a task touches, or with the record itself, after it handed the task to the main thread.
void RacePosted(bool onRecord)
{
    std::thread worker([onRecord] {
        auto record = std::make_shared<Velmora::QcTaskDispatcher::MainThreadTaskInfo>();
        record->task = [] {
            Touch();
            QCoreApplication::quit();
        };
        qobject_cast<Velmora::QcApplication *>(qApp)->PostTaskToMainThread(record);
        if (onRecord)
            record->rearmSchedule = true;
        else
            Touch();
    });
    QCoreApplication::exec();
    worker.join();
}

} // namespace

int main(int argc, char **argv)
{
    const Velmora::QcApplication application(argc, argv);
    const char *where = argc > 1 ? argv[1] : "";
    if (std::strcmp(where, "posted") == 0)
        RacePosted(false);
    else if (std::strcmp(where, "record") == 0)
        RacePosted(true);
    else
        RaceBare();
    return 0;
}
