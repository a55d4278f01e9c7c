#include "WidgetBenchmarks.h"

#include <Velmora/QcFrame.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcPrimaryButton.h>

#include <QApplication>
#include <QEventLoop>
#include <QFrame>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QResizeEvent>
#include <QTimer>
#include <QWindow>

#include <benchmark/benchmark.h>

#include <ctime>

namespace {

using namespace Bench;

constexpr int kEvents = 20000;

/// The processor time in nanoseconds of an event that \a receiver gets.
template <typename Event, typename... Arguments>
double TimeOfEvent(QObject *receiver, const Arguments &...arguments)
{
    const std::clock_t begin = std::clock();
    for (int i = 0; i < kEvents; ++i) {
        Event event(arguments...);
        QCoreApplication::sendEvent(receiver, &event);
    }
    return double(std::clock() - begin) / CLOCKS_PER_SEC * 1e9 / kEvents;
}

/// Events that reach another widget, or the window under it as the mouse's events do, while N of \a makeScene are on show. Each
/// type is a counter, so that the N are made once for all of them.
void Elsewhere(benchmark::State &state, const SceneMaker &makeScene)
{
    const auto scene = makeScene();
    const auto window = ShowWindow(*scene, int(state.range(0)));
    QWidget target;
    target.show();
    Settle();
    QObject *system = target.windowHandle();
    const QPointF place(1, 1);
    for (auto _ : state) {
        // A right one, since a left one also activates the window.
        state.counters["press"] =
            TimeOfEvent<QMouseEvent>(system, QEvent::MouseButtonPress, place, Qt::RightButton, Qt::RightButton, Qt::NoModifier);
        state.counters["move"] = TimeOfEvent<QMouseEvent>(system, QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        state.counters["resize"] = TimeOfEvent<QResizeEvent>(&target, QSize(11, 10), QSize(10, 10));
        state.counters["other"] = TimeOfEvent<QEvent>(&target, QEvent::User); // no widget asks for it
    }
}

/// A window that changes its size while N widgets lie in it, in a part that keeps its own, until what they put off is done.
void ResizeAround(benchmark::State &state, const SceneMaker &makeScene)
{
    constexpr int kWidth = 100; // less than the widgets take at any N: as much is painted
    constexpr int kHeight = 60;
    constexpr int kLongerThanAnyDelay = 3; // milliseconds, which cost no CPU time
    const auto scene = makeScene();
    QWidget window;
    window.resize(kWidth, kHeight);
    MakeWindow(*scene, int(state.range(0))).release()->setParent(&window);
    window.show();
    Settle();
    for (auto _ : state) {
        window.resize(kWidth, window.height() == kHeight ? kHeight + 1 : kHeight);
        QEventLoop loop;
        QTimer::singleShot(kLongerThanAnyDelay, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

/// N widgets that come and go one by one, ten in each turn of the loop: what a dead widget leaves behind must not slow
/// down the next one.
template <typename Widget>
void ComeAndGo(benchmark::State &state)
{
    constexpr int inOneTurn = 10;
    for (auto _ : state) {
        for (int i = 0; i < state.range(0); ++i) {
            {
                Widget widget;
                benchmark::DoNotOptimize(&widget);
            }
            if (i % inOneTurn == 0)
                QCoreApplication::processEvents();
        }
        Settle();
    }
}

/// N widgets that live together and die together.
template <typename Widget>
void MakeAndDelete(benchmark::State &state)
{
    for (auto _ : state) {
        QWidget parent;
        for (int i = 0; i < state.range(0); ++i)
            new Widget(&parent);
        Settle(); // what is posted to a widget costs its destructor a look through all that is posted to anyone
    }
}

void Widgets(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(250)->Arg(1000)->Arg(4000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_TEMPLATE(ComeAndGo, Velmora::QcPrimaryButton)->Apply(Widgets)->Name("ComeAndGoButton/velmora");
BENCHMARK_TEMPLATE(ComeAndGo, QPushButton)->Apply(Widgets)->Name("ComeAndGoButton/plain");
BENCHMARK_TEMPLATE(ComeAndGo, Velmora::QcFrame)->Apply(Widgets)->Name("ComeAndGoFrame/velmora");
BENCHMARK_TEMPLATE(ComeAndGo, QFrame)->Apply(Widgets)->Name("ComeAndGoFrame/plain");
BENCHMARK_TEMPLATE(ComeAndGo, Velmora::QcLabel)->Apply(Widgets)->Name("ComeAndGoLabel/velmora");
BENCHMARK_TEMPLATE(ComeAndGo, QLabel)->Apply(Widgets)->Name("ComeAndGoLabel/plain");
BENCHMARK_TEMPLATE(MakeAndDelete, Velmora::QcPrimaryButton)->Apply(Widgets)->Name("MakeAndDeleteButton/velmora");
BENCHMARK_TEMPLATE(MakeAndDelete, QPushButton)->Apply(Widgets)->Name("MakeAndDeleteButton/plain");

using Run = void (*)(benchmark::State &, const SceneMaker &);

benchmark::internal::Benchmark *Register(const char *metric, Run run, const QString &name, int smallest, const SceneMaker &makeScene)
{
    const QString fullName = QLatin1String(metric) + QLatin1Char('/') + name;
    auto *benchmark =
        benchmark::RegisterBenchmark(fullName.toUtf8().constData(), [run, makeScene](benchmark::State &state) { run(state, makeScene); });
    return benchmark->Arg(smallest)->Arg(4 * smallest)->Arg(16 * smallest)->Unit(benchmark::kMicrosecond)->Repetitions(kFewRepetitions);
}

} // namespace

void Bench::RegisterEvents(const QString &name, int smallest, const SceneMaker &makeScene)
{
    Register("Elsewhere", Elsewhere, name, smallest, makeScene)->Iterations(1);
}

void Bench::RegisterResize(const QString &name, int smallest, const SceneMaker &makeScene)
{
    Register("ResizeAround", ResizeAround, name, smallest, makeScene)->Iterations(20);
}
