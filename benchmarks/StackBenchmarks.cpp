#include "WidgetBenchmarks.h"

#include <Velmora/QcStackedWidget.h>

#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <benchmark/benchmark.h>

namespace {

using namespace Bench;

/// A stack on show with \a count pages, all of them laid out, of which the first shows.
template <typename Stack>
std::unique_ptr<Stack> ShowStack(int count)
{
    auto stack = std::make_unique<Stack>();
    stack->resize(400, 300);
    for (int i = 0; i < count; ++i) {
        auto *page = new QWidget;
        auto *layout = new QVBoxLayout(page);
        for (int row = 0; row < 4; ++row)
            layout->addWidget(new QLabel(QStringLiteral("Row %1 of page %2").arg(row).arg(i)));
        stack->addWidget(page);
    }
    stack->show();
    for (int i = count - 1; i >= 0; --i)
        stack->setCurrentIndex(i); // a page never shown has no layout to keep up
    Settle();
    return stack;
}

/// One resize of the stack, to the last event that follows.
template <typename Stack>
void ResizeStack(benchmark::State &state)
{
    const auto stack = ShowStack<Stack>(int(state.range(0)));
    int width = 400;
    for (auto _ : state) {
        width = width == 400 ? 401 : 400;
        stack->resize(width, 300);
        Settle();
    }
}

/// A longer or shorter text on the page that shows, to the last event that follows.
template <typename Stack>
void RelayOutPage(benchmark::State &state)
{
    const auto stack = ShowStack<Stack>(int(state.range(0)));
    auto *label = stack->currentWidget()->template findChild<QLabel *>();
    bool isLong = false;
    for (auto _ : state) {
        isLong = !isLong;
        label->setText(isLong ? QStringLiteral("A text of some length") : QStringLiteral("Short"));
        Settle();
    }
}

/// N changes of the page, of which the last is painted.
template <typename Stack>
void SwitchPages(benchmark::State &state)
{
    constexpr int pages = 10;
    const auto stack = ShowStack<Stack>(pages);
    for (auto _ : state) {
        for (int i = 0; i < state.range(0); ++i)
            stack->setCurrentIndex((i + 1) % pages);
        Settle();
    }
}

template <typename Stack>
void Register(const char *suffix)
{
    const std::string name(suffix);
    const auto addPages = [](const std::string &metric, void (*run)(benchmark::State &)) {
        benchmark::RegisterBenchmark(metric.c_str(), run)->Arg(100)->Arg(400)->Arg(1600)->Repetitions(kFewRepetitions);
    };
    addPages("ResizeStack/" + name, ResizeStack<Stack>);
    addPages("RelayOutPage/" + name, RelayOutPage<Stack>);
    benchmark::RegisterBenchmark(("SwitchPages/" + name).c_str(), SwitchPages<Stack>)->Arg(1000)->Unit(benchmark::kMillisecond);
}

} // namespace

namespace Bench {

void RegisterStackBenchmarks()
{
    Register<Velmora::QcStackedWidget>("velmora");
    Register<QStackedWidget>("plain");
}

} // namespace Bench
