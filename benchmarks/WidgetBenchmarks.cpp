#include "WidgetBenchmarks.h"

#include <QImage>

#include <benchmark/benchmark.h>

namespace Bench {

namespace {

/// From N constructors to the first paint of the last widget.
void ConstructAndShow(benchmark::State &state, const SceneMaker &makeScene)
{
    const auto scene = makeScene();
    const int count = int(state.range(0));
    for (auto _ : state) {
        Counters::Reset();
        auto window = MakeWindow(*scene, count);
        window->show();
        RunUntilPainted(count);

        state.PauseTiming();
        window.reset();
        Settle();
        state.ResumeTiming();
    }
}

/// From the call to the last paint.
void SwitchTheme(benchmark::State &state, const SceneMaker &makeScene)
{
    const auto scene = makeScene();
    const int count = int(state.range(0));
    const auto window = ShowWindow(*scene, count);

    for (int table = 0; table < 2; ++table) { // what other benchmarks left in the caches is not ours to clear
        Counters::Reset();
        scene->SwitchTheme();
        RunUntilPainted(count);
    }

    Counters::Reset();
    long expected = 0;
    for (auto _ : state) {
        expected += count;
        scene->SwitchTheme();
        RunUntilPainted(expected);
    }
    const double changes = double(state.iterations()) * count;
    state.counters["paints_per_widget"] = double(Counters::Get().paints) / changes;
    state.counters["style_changes_per_widget"] = double(Counters::Get().styleChanges) / changes;

    Counters::Reset();
    Settle();
    state.counters["paints_when_idle"] = double(Counters::Get().paints);
}

/// One render() of one widget into an image.
void PaintOne(benchmark::State &state, const SceneMaker &makeScene)
{
    const auto scene = makeScene();
    const auto window = ShowWindow(*scene, 1);
    QWidget *widget = window->findChildren<QWidget *>().constFirst();
    QImage image(widget->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    for (auto _ : state)
        widget->render(&image);
}

using Run = void (*)(benchmark::State &, const SceneMaker &);

benchmark::internal::Benchmark *Register(const char *metric, Run run, const QString &name, const SceneMaker &makeScene)
{
    const QString fullName = QLatin1String(metric) + QLatin1Char('/') + name;
    return benchmark::RegisterBenchmark(fullName.toUtf8().constData(),
                                        [run, makeScene](benchmark::State &state) { run(state, makeScene); });
}

void RegisterMany(const char *metric, Run run, const QString &name, int smallest, const SceneMaker &makeScene)
{
    for (const int count : {smallest, 4 * smallest, 16 * smallest}) {
        auto *benchmark = Register(metric, run, name, makeScene)->Arg(count)->Unit(benchmark::kMillisecond);
        if (count > 4 * smallest)
            benchmark->Repetitions(kFewRepetitions);
    }
}

} // namespace

void RegisterPaint(const QString &name, const SceneMaker &makeScene)
{
    Register("PaintOne", PaintOne, name, makeScene);
}

void RegisterShow(const QString &name, int smallest, const SceneMaker &makeScene)
{
    RegisterMany("ConstructAndShow", ConstructAndShow, name, smallest, makeScene);
}

void RegisterSwitch(const QString &name, int smallest, const SceneMaker &makeScene)
{
    RegisterMany("SwitchTheme", SwitchTheme, name, smallest, makeScene);
}

} // namespace Bench
