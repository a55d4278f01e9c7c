#include "Scenes.h"

#include <QImage>

#include <benchmark/benchmark.h>

namespace {

using namespace Bench;

constexpr int kSmall = 250; // so that four times as many are the 1,000 that the aims speak of

/// Until the first paint of the last button.
void ConstructAndShow(benchmark::State &state, Kind kind)
{
    const auto scene = MakeScene(kind);
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
void SwitchTheme(benchmark::State &state, Kind kind)
{
    const auto scene = MakeScene(kind);
    const int count = int(state.range(0));
    const auto window = MakeWindow(*scene, count);
    Counters::Reset();
    window->show();
    RunUntilPainted(count);
    Settle();

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
    state.counters["paints_per_button"] = double(Counters::Get().paints) / changes;
    state.counters["style_changes_per_button"] = double(Counters::Get().styleChanges) / changes;

    Counters::Reset();
    Settle();
    state.counters["paints_when_idle"] = double(Counters::Get().paints);
}

/// One render() of one button into an image.
void PaintOne(benchmark::State &state, Kind kind)
{
    const auto scene = MakeScene(kind);
    const auto window = MakeWindow(*scene, 1);
    Counters::Reset();
    window->show();
    RunUntilPainted(1);
    Settle();
    QWidget *button = window->findChildren<QWidget *>().constFirst();
    QImage image(button->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    for (auto _ : state)
        button->render(&image);
}

void Widgets(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(kSmall)->Arg(4 * kSmall)->Arg(16 * kSmall)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(PaintOne, velmora, Kind::Velmora);
BENCHMARK_CAPTURE(PaintOne, bare_painter, Kind::BarePainter);
BENCHMARK_CAPTURE(PaintOne, application_sheet, Kind::ApplicationSheet);
BENCHMARK_CAPTURE(PaintOne, sheet_on_each, Kind::SheetOnEach);
BENCHMARK_CAPTURE(PaintOne, palette, Kind::Palette);

BENCHMARK_CAPTURE(ConstructAndShow, velmora, Kind::Velmora)->Apply(Widgets);
BENCHMARK_CAPTURE(ConstructAndShow, bare_painter, Kind::BarePainter)->Apply(Widgets);
BENCHMARK_CAPTURE(ConstructAndShow, application_sheet, Kind::ApplicationSheet)->Apply(Widgets);
BENCHMARK_CAPTURE(ConstructAndShow, sheet_on_each, Kind::SheetOnEach)->Apply(Widgets);
BENCHMARK_CAPTURE(ConstructAndShow, palette, Kind::Palette)->Apply(Widgets);

BENCHMARK_CAPTURE(SwitchTheme, velmora, Kind::Velmora)->Apply(Widgets);
BENCHMARK_CAPTURE(SwitchTheme, bare_painter, Kind::BarePainter)->Apply(Widgets);
BENCHMARK_CAPTURE(SwitchTheme, application_sheet, Kind::ApplicationSheet)->Apply(Widgets);
BENCHMARK_CAPTURE(SwitchTheme, sheet_on_each, Kind::SheetOnEach)->Apply(Widgets);
BENCHMARK_CAPTURE(SwitchTheme, palette, Kind::Palette)->Apply(Widgets);

} // namespace
