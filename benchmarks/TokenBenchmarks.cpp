#include "Scenes.h"

#include <Velmora/QcStyleManager.h>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

using namespace Bench;
using namespace Velmora;

/// N lookups by records that are there already.
void LookUpRecord(benchmark::State &state)
{
    std::vector<ColorParams> records;
    const QStringList tokens = TableColors(Table::Light).keys();
    for (const QString &token : tokens)
        records.emplace_back(token);
    QcStyleManager *manager = QcStyleManager::GetInstance();
    for (auto _ : state) {
        for (std::size_t i = 0; i < std::size_t(state.range(0)); ++i)
            benchmark::DoNotOptimize(manager->GetColor(records[i % records.size()]));
    }
}

/// N lookups from texts, as the controls keep their colour codes.
void LookUpCode(benchmark::State &state)
{
    const QStringList tokens = TableColors(Table::Light).keys();
    QcStyleManager *manager = QcStyleManager::GetInstance();
    for (auto _ : state) {
        for (int i = 0; i < state.range(0); ++i)
            benchmark::DoNotOptimize(manager->GetColor(ColorParams(tokens[i % tokens.size()])));
    }
}

void LookUpInHash(benchmark::State &state)
{
    const QHash<QString, QColor> colors = TableColors(Table::Light);
    const QStringList tokens = colors.keys();
    for (auto _ : state) {
        for (int i = 0; i < state.range(0); ++i)
            benchmark::DoNotOptimize(colors.value(tokens[i % tokens.size()]));
    }
}

QString SheetWith(int rules, int codesInEach)
{
    QString sheet;
    for (int i = 0; i < rules; ++i) {
        sheet += QStringLiteral("QWidget#m_widget%1 {\n    padding: 0px 4px;\n    font-size: 12px;\n").arg(i);
        for (int k = 0; k < codesInEach; ++k)
            sheet += QStringLiteral("    color: ${text/text_primary, 0.5};\n");
        sheet += QStringLiteral("}\n");
    }
    return sheet;
}

void ResolveText(benchmark::State &state)
{
    const QString sheet = SheetWith(int(state.range(0)), 0) + QStringLiteral("QLabel { color: ${text/text_primary}; }");
    for (auto _ : state)
        benchmark::DoNotOptimize(QcStyleManager::GetInstance()->ReplaceStyleSheetColorCodes(sheet));
}

void ResolveCodes(benchmark::State &state)
{
    const QString sheet = SheetWith(1, int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(QcStyleManager::GetInstance()->ReplaceStyleSheetColorCodes(sheet));
}

void Lookups(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(1000)->Arg(4000)->Arg(16000)->Unit(benchmark::kMicrosecond);
}

void Lengths(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(100)->Arg(400)->Arg(1600)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(LookUpRecord)->Apply(Lookups)->Name("LookUp/record");
BENCHMARK(LookUpCode)->Apply(Lookups)->Name("LookUp/code");
BENCHMARK(LookUpInHash)->Apply(Lookups)->Name("LookUp/hash");
BENCHMARK(ResolveText)->Apply(Lengths)->Name("Resolve/text");
BENCHMARK(ResolveCodes)->Apply(Lengths)->Name("Resolve/codes");

} // namespace
