#include <Velmora/PostOwnedTask.h>
#include <Velmora/QcApplication.h>

#include <QCoreApplication>
#include <QMetaObject>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

using TaskInfo = Velmora::QcTaskDispatcher::MainThreadTaskInfo;

void RunUntil(const long &ran, long count)
{
    while (ran < count)
        QCoreApplication::processEvents();
}

/// N posts, up to the last run; \a post is handed the counter that each run raises.
template <typename Post>
void PostAndRun(benchmark::State &state, const Post &post)
{
    long ran = 0;
    long expected = 0;
    for (auto _ : state) {
        expected += state.range(0);
        for (int i = 0; i < state.range(0); ++i)
            post(ran);
        RunUntil(ran, expected);
    }
}

void PostBare(benchmark::State &state)
{
    PostAndRun(state, [](long &ran) {
        QMetaObject::invokeMethod(
            qApp, [&ran] { ++ran; }, Qt::QueuedConnection);
    });
}

void PostTask(benchmark::State &state)
{
    auto *application = static_cast<Velmora::QcApplication *>(qApp);
    PostAndRun(state, [application](long &ran) {
        auto info = std::make_shared<TaskInfo>();
        info->task = [&ran] { ++ran; };
        application->PostTaskToMainThread(info);
    });
}

void PostOwned(benchmark::State &state)
{
    QObject owner;
    PostAndRun(state, [&owner](long &ran) {
        Velmora::PostOwnedTask(
            &owner, [&ran] { ++ran; }, std::string());
    });
}

void Tasks(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(1000)->Arg(4000)->Arg(16000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(PostTask)->Apply(Tasks)->Name("Post/task");
BENCHMARK(PostOwned)->Apply(Tasks)->Name("Post/owned");
BENCHMARK(PostBare)->Apply(Tasks)->Name("Post/bare");

} // namespace
