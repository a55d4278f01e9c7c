#include "WidgetBenchmarks.h"

#include <Velmora/QcSelector.h>

#include <QAbstractItemView>
#include <QComboBox>

#include <benchmark/benchmark.h>

namespace {

using namespace Bench;

template <typename Box>
std::unique_ptr<Box> ShowBox(int count)
{
    auto box = std::make_unique<Box>();
    // Plain Qt would lay out a list of all rows at once.
    if (std::is_same_v<Box, QComboBox>)
        box->setStyleSheet(QStringLiteral("QComboBox { combobox-popup: 0; }"));
    for (int i = 0; i < count; ++i)
        box->addItem(QStringLiteral("Item %1").arg(i));
    box->resize(200, 28);
    box->show();
    Settle();
    return box;
}

/// N items, one by one.
template <typename Box>
void AddItems(benchmark::State &state)
{
    const auto box = ShowBox<Box>(0);
    for (auto _ : state) {
        for (int i = 0; i < state.range(0); ++i)
            box->addItem(QStringLiteral("Item"));
        state.PauseTiming();
        box->clear();
        Settle();
        state.ResumeTiming();
    }
}

/// The list of N items, opened and closed again.
template <typename Box>
void OpenList(benchmark::State &state)
{
    const auto box = ShowBox<Box>(int(state.range(0)));
    for (auto _ : state) {
        box->showPopup();
        Settle();
        box->hidePopup();
        Settle();
        // Or the rows keep their places.
        state.PauseTiming();
        box->removeItem(0);
        box->addItem(QStringLiteral("Item"));
        state.ResumeTiming();
    }
}

template <typename Box>
void Register(const char *suffix)
{
    const std::string name(suffix);
    for (const int count : {750, 3000, 12000})
        benchmark::RegisterBenchmark(("AddItems/" + name).c_str(), AddItems<Box>)->Arg(count)->Unit(benchmark::kMillisecond);
    for (const int count : {100, 10000})
        benchmark::RegisterBenchmark(("OpenList/" + name).c_str(), OpenList<Box>)->Arg(count)->Unit(benchmark::kMillisecond);
}

} // namespace

namespace Bench {

void RegisterSelectorBenchmarks()
{
    Register<Velmora::QcSelector>("velmora");
    Register<QComboBox>("plain");
}

} // namespace Bench
