#include "WidgetBenchmarks.h"

#include <Velmora/QcScrollBar.h>

#include <QScrollArea>
#include <QScrollBar>

#include <benchmark/benchmark.h>

namespace Bench {

namespace {

void Follow(Velmora::QcScrollBar &bar, QScrollBar *original)
{
    bar.SetOriginalScrollBar(original);
}

/// Plain Qt's: a bar in a stylesheet that lies on the area and follows the hidden one.
void Follow(QScrollBar &bar, QScrollBar *original)
{
    bar.setStyleSheet(QStringLiteral("QScrollBar { background: transparent; }"
                                     "QScrollBar::handle { background: #888888; border-radius: 2px; margin-left: 6px; }"
                                     "QScrollBar::handle:hover { border-radius: 4px; margin-left: 2px; }"
                                     "QScrollBar::add-line, QScrollBar::sub-line { height: 0px; }"));
    QObject::connect(original, &QScrollBar::rangeChanged, &bar, [&bar, original](int minimum, int maximum) {
        bar.setRange(minimum, maximum);
        bar.setPageStep(original->pageStep());
        bar.setValue(original->value());
        bar.setGeometry(original->parentWidget()->width() - 12, 0, 10, original->parentWidget()->height());
        bar.setVisible(maximum > 0);
    });
    QObject::connect(original, &QScrollBar::valueChanged, &bar, &QScrollBar::setValue);
    QObject::connect(&bar, &QScrollBar::valueChanged, original, &QScrollBar::setValue);
}

/// N changes of the range that the bar follows, of which the last is painted.
template <typename Bar>
void ChangeRange(benchmark::State &state)
{
    QScrollArea area;
    area.resize(400, 300);
    area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *bar = new Bar(Qt::Vertical, &area);
    QScrollBar *original = area.verticalScrollBar();
    Follow(*bar, original);
    area.show();
    Settle();
    for (auto _ : state) {
        for (int i = 1; i <= state.range(0); ++i)
            original->setRange(0, i);
        Settle();
    }
}

} // namespace

void RegisterScrollBarBenchmarks()
{
    benchmark::RegisterBenchmark("ChangeRange/velmora", ChangeRange<Velmora::QcScrollBar>)->Arg(1000)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("ChangeRange/plain", ChangeRange<QScrollBar>)->Arg(1000)->Unit(benchmark::kMicrosecond);
}

} // namespace Bench
