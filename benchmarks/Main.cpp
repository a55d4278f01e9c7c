#include "WidgetBenchmarks.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>

#include <QStyleFactory>
#include <QtGlobal>

#include <benchmark/benchmark.h>

namespace {

/// Start-up facts of the library are no part of the results, nor is what the offscreen platform lacks.
void DropChatter(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
{
    if (type != QtInfoMsg && type != QtDebugMsg && !text.startsWith(QLatin1String("This plugin does not support")))
        qt_message_output(type, QMessageLogContext(), text);
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "96");

    Bench::RegisterButtonBenchmarks();
    Bench::RegisterControlBenchmarks();
    Bench::RegisterDockBenchmarks();
    Bench::RegisterFeedbackBenchmarks();
    Bench::RegisterPlainBenchmarks();
    Bench::RegisterScrollBarBenchmarks();
    Bench::RegisterSelectorBenchmarks();
    Bench::RegisterStackBenchmarks();
    Bench::RegisterTextEditBenchmarks();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;

    qInstallMessageHandler(DropChatter);
    Velmora::QcApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion"))); // the same style under every contender
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(Bench::TablePath(Bench::Table::Light));
    application.Initialize();
    Bench::RememberApplicationStyleSheet();

    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
