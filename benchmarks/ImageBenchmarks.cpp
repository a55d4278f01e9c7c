#include "Scenes.h"

#include <Velmora/QcStyleManager.h>

#include <QFile>
#include <QIcon>
#include <QPixmapCache>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using namespace Bench;
using namespace Velmora;

constexpr int kPixels = 24;

/// One SVG, in the library's resources or copied to the disk.
class Source
{
public:
    explicit Source(bool onDisk)
        : m_path(QStringLiteral(":/images/success.svg")) // the median of the built-in icons by size
    {
        if (!onDisk)
            return;
        const QString copy = m_folder.filePath(QStringLiteral("icon.svg"));
        QFile::copy(m_path, copy);
        m_path = copy;
    }

    ImageParams Request() const
    {
        ImageParams params;
        params.path = m_path;
        params.size = QSize(kPixels, kPixels);
        params.color = ColorParams("text/text_primary");
        return params;
    }
    QString Path() const { return m_path; }

private:
    QTemporaryDir m_folder;
    QString m_path;
};

/// A first request each time: changing the table makes all kept images void.
void GetFirst(benchmark::State &state, bool onDisk)
{
    const Source source(onDisk);
    const ImageParams request = source.Request();
    QcStyleManager *manager = QcStyleManager::GetInstance();
    for (auto _ : state) {
        state.PauseTiming();
        Q_EMIT manager->SignalColorChanged();
        state.ResumeTiming();
        benchmark::DoNotOptimize(manager->GetPixmap(request));
    }
}

void GetRepeated(benchmark::State &state, bool onDisk)
{
    const Source source(onDisk);
    const ImageParams request = source.Request();
    for (auto _ : state) {
        for (int i = 0; i < state.range(0); ++i)
            benchmark::DoNotOptimize(QcStyleManager::GetInstance()->GetPixmap(request));
    }
}

/// N requests that differ, all kept.
void GetManyKept(benchmark::State &state)
{
    ImageParams request = Source(false).Request();
    QcStyleManager *manager = QcStyleManager::GetInstance();
    const auto ask = [&](int i) {
        request.color.alpha = i / 1e6;
        return manager->GetPixmap(request);
    };
    for (int i = 0; i < state.range(0); ++i)
        ask(i);
    for (auto _ : state) {
        for (int i = 0; i < state.range(0); ++i)
            benchmark::DoNotOptimize(ask(i));
    }
}

void IconFirst(benchmark::State &state, bool onDisk)
{
    const Source source(onDisk);
    for (auto _ : state) {
        QPixmapCache::clear();
        benchmark::DoNotOptimize(QIcon(source.Path()).pixmap(kPixels, kPixels));
    }
}

void IconRepeated(benchmark::State &state, bool onDisk)
{
    const Source source(onDisk);
    const QIcon icon(source.Path());
    for (auto _ : state) {
        for (int i = 0; i < state.range(0); ++i)
            benchmark::DoNotOptimize(icon.pixmap(kPixels, kPixels));
    }
}

void Requests(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(1000)->Arg(4000)->Arg(16000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(GetFirst, resource, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(GetFirst, disk, true)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(IconFirst, resource, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(IconFirst, disk, true)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(GetRepeated, resource, false)->Apply(Requests);
BENCHMARK_CAPTURE(GetRepeated, disk, true)->Apply(Requests);
BENCHMARK_CAPTURE(IconRepeated, resource, false)->Apply(Requests);
BENCHMARK_CAPTURE(IconRepeated, disk, true)->Apply(Requests);
BENCHMARK(GetManyKept)->Arg(250)->Arg(1000)->Arg(4000)->Unit(benchmark::kMicrosecond);

} // namespace
