#include "Scenes.h"

#include <Velmora/QcMenu.h>

#include <QImage>

#include <benchmark/benchmark.h>

namespace {

using namespace Bench;

constexpr int kPaintedItems = 20;

const QString kSheet = QStringLiteral("QMenu { padding: 1px; border: 1px solid #cccccc; background: #ffffff; }"
                                      "QMenu::item { padding: 4px 24px 4px 12px; color: #222222; }"
                                      "QMenu::item:selected { background: #dddddd; }");

void Dress(Velmora::QcMenu & /*menu*/) {}
void Dress(QMenu &menu)
{
    menu.setStyleSheet(kSheet);
}

template <typename Menu>
void Fill(Menu &menu, int count)
{
    Dress(menu);
    for (int i = 0; i < count; ++i)
        menu.addAction(QStringLiteral("Item %1").arg(i));
}

/// From the constructor to the first picture and the end.
template <typename Menu>
void OpenMenu(benchmark::State &state)
{
    for (auto _ : state) {
        Menu menu;
        Fill(menu, int(state.range(0)));
        menu.popup(QPoint(0, 0));
        Settle();
        menu.grab();
        menu.close();
    }
}

/// The panel and twenty items.
template <typename Menu>
void PaintMenu(benchmark::State &state)
{
    Menu menu;
    Fill(menu, kPaintedItems);
    menu.popup(QPoint(0, 0));
    Settle();
    QImage image(menu.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        menu.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
}

BENCHMARK_TEMPLATE(OpenMenu, Velmora::QcMenu)->Name("OpenMenu/velmora")->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(OpenMenu, QMenu)->Name("OpenMenu/plain")->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(PaintMenu, Velmora::QcMenu)->Name("PaintMenu/velmora")->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(PaintMenu, QMenu)->Name("PaintMenu/plain")->Unit(benchmark::kMicrosecond);

} // namespace
