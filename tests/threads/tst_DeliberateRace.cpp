// Two races on purpose. If the thread sanitizer, with all that is set up around it, misses one, the other tests prove nothing.
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

/// A worker that goes on with what it has handed to the main thread.
void RacePosted(Velmora::QcApplication &app)
{
    std::thread worker([&app] {
        auto task = std::make_shared<Velmora::QcTaskDispatcher::MainThreadTaskInfo>();
        task->task = [] {
            Touch();
            QCoreApplication::quit();
        };
        app.PostTaskToMainThread(task);
        Touch();
    });
    app.exec();
    worker.join();
}

} // namespace

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "posted") == 0)
        RacePosted(app);
    else
        RaceBare();
    return 0;
}
