#include "WidgetBenchmarks.h"

#include <Velmora/QcFrame.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcWindow.h>

#include <QApplication>
#include <QEventLoop>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <QWindow>

#include <benchmark/benchmark.h>

namespace {

using namespace Bench;

/// Takes every mouse event, so that none goes on to a parent.
class Target : public QWidget
{
protected:
    bool event(QEvent *event) override { return event->type() == QEvent::MouseButtonPress || QWidget::event(event); }
};

/// A press on some widget while N others are on show elsewhere; a right one, since a left one also activates the window.
void PressElsewhere(benchmark::State &state, const SceneMaker &makeScene)
{
    const auto scene = makeScene();
    const auto window = ShowWindow(*scene, int(state.range(0)));
    Target target;
    for (auto _ : state) {
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), Qt::RightButton, Qt::RightButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&target, &press);
    }
}

/// A move over some window while N others are on show elsewhere. What a window does of its own is the same at every N.
void MoveElsewhere(benchmark::State &state, const SceneMaker &makeScene)
{
    const auto scene = makeScene();
    const auto window = ShowWindow(*scene, int(state.range(0)));
    QWidget target;
    target.show();
    Settle();
    for (auto _ : state) {
        QMouseEvent move(QEvent::MouseMove, QPointF(1, 1), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target.windowHandle(), &move);
    }
}

/// An event that no widget asked for, while N are on show.
void OtherEvent(benchmark::State &state, const SceneMaker &makeScene)
{
    const auto scene = makeScene();
    const auto window = ShowWindow(*scene, int(state.range(0)));
    QObject target;
    for (auto _ : state) {
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(&target, &event);
    }
}

/// A window that changes its size while N widgets lie in it, in a part that keeps its own, until what they put off is done.
void ResizeAround(benchmark::State &state, const SceneMaker &makeScene)
{
    constexpr int kLongerThanAnyDelay = 3; // milliseconds, which cost no CPU time
    const auto scene = makeScene();
    QWidget window;
    window.resize(400, 300);
    MakeWindow(*scene, int(state.range(0))).release()->setParent(&window);
    window.show();
    Settle();
    for (auto _ : state) {
        window.resize(400, window.height() == 300 ? 301 : 300);
        QEventLoop loop;
        QTimer::singleShot(kLongerThanAnyDelay, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

SceneMaker Buttons(Kind kind)
{
    return [kind] { return MakeScene(kind); };
}

class LineEditScene : public VelmoraScene
{
public:
    std::unique_ptr<QWidget> MakeWidget(int /*index*/) override { return std::make_unique<Velmora::QcLineEditFrame>(); }
};

class PlainLineEditScene : public Scene
{
public:
    std::unique_ptr<QWidget> MakeWidget(int /*index*/) override { return std::make_unique<QLineEdit>(); }
    void SwitchTheme() override {}
};

class WindowScene : public VelmoraScene
{
public:
    std::unique_ptr<QWidget> MakeWidget(int /*index*/) override
    {
        auto window = std::make_unique<Counted<Velmora::QcWindow>>();
        window->setFixedSize(60, 40);
        return window;
    }
};

template <typename AnyScene>
SceneMaker SceneOf()
{
    return [] { return std::make_unique<AnyScene>(); };
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

BENCHMARK_CAPTURE(PressElsewhere, velmora, Buttons(Kind::Velmora))->Apply(Widgets);
BENCHMARK_CAPTURE(PressElsewhere, palette, Buttons(Kind::Palette))->Apply(Widgets);
BENCHMARK_CAPTURE(PressElsewhere, windows, SceneOf<WindowScene>())->Apply(Widgets);
BENCHMARK_CAPTURE(MoveElsewhere, velmora, Buttons(Kind::Velmora))->Apply(Widgets);
BENCHMARK_CAPTURE(MoveElsewhere, palette, Buttons(Kind::Palette))->Apply(Widgets);
BENCHMARK_CAPTURE(MoveElsewhere, windows, SceneOf<WindowScene>())->Apply(Widgets);
BENCHMARK_CAPTURE(OtherEvent, velmora, Buttons(Kind::Velmora))->Apply(Widgets);
BENCHMARK_CAPTURE(OtherEvent, palette, Buttons(Kind::Palette))->Apply(Widgets);
BENCHMARK_CAPTURE(OtherEvent, windows, SceneOf<WindowScene>())->Apply(Widgets);

void FewResizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(100)->Arg(400)->Arg(1600)->Iterations(20)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(ResizeAround, line_edit, SceneOf<LineEditScene>())->Apply(FewResizes);
BENCHMARK_CAPTURE(ResizeAround, plain, SceneOf<PlainLineEditScene>())->Apply(FewResizes);

BENCHMARK_TEMPLATE(ComeAndGo, Velmora::QcPrimaryButton)->Apply(Widgets)->Name("ComeAndGoButton/velmora");
BENCHMARK_TEMPLATE(ComeAndGo, QPushButton)->Apply(Widgets)->Name("ComeAndGoButton/plain");
BENCHMARK_TEMPLATE(ComeAndGo, Velmora::QcFrame)->Apply(Widgets)->Name("ComeAndGoFrame/velmora");
BENCHMARK_TEMPLATE(ComeAndGo, QFrame)->Apply(Widgets)->Name("ComeAndGoFrame/plain");
BENCHMARK_TEMPLATE(ComeAndGo, Velmora::QcLabel)->Apply(Widgets)->Name("ComeAndGoLabel/velmora");
BENCHMARK_TEMPLATE(ComeAndGo, QLabel)->Apply(Widgets)->Name("ComeAndGoLabel/plain");
BENCHMARK_TEMPLATE(MakeAndDelete, Velmora::QcPrimaryButton)->Apply(Widgets)->Name("MakeAndDeleteButton/velmora");
BENCHMARK_TEMPLATE(MakeAndDelete, QPushButton)->Apply(Widgets)->Name("MakeAndDeleteButton/plain");

} // namespace
