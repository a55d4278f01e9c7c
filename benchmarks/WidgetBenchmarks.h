#pragma once

#include "Scenes.h"

#include <functional>
#include <memory>

namespace Bench {

/// How often a benchmark is repeated whose set-up costs far more than what it measures, whatever the command line says of the others.
constexpr int kFewRepetitions = 3;

using SceneMaker = std::function<std::unique_ptr<Scene>()>;

/// Registers the render() of one widget into an image as "PaintOne/\a name".
void RegisterPaint(const QString &name, const SceneMaker &makeScene);
/// Registers the way from N constructors to the first paint of the last widget as "ConstructAndShow/\a name/N", for
/// N = \a smallest, 4N and 16N.
void RegisterShow(const QString &name, int smallest, const SceneMaker &makeScene);
/// Registers a theme switch of N widgets on show, from the call to the last paint, as "SwitchTheme/\a name/N".
void RegisterSwitch(const QString &name, int smallest, const SceneMaker &makeScene);
/// Registers events of some types that reach another widget while N are on show, as "Elsewhere/\a name/N" with the counters "press",
/// "move", "resize" and "other" in nanoseconds.
void RegisterEvents(const QString &name, int smallest, const SceneMaker &makeScene);
/// Registers a resize of a window around N widgets that keep their places, as "ResizeAround/\a name/N".
void RegisterResize(const QString &name, int smallest, const SceneMaker &makeScene);

/// Register what each file measures.
void RegisterButtonBenchmarks();
void RegisterControlBenchmarks();
void RegisterDockBenchmarks();
void RegisterFeedbackBenchmarks();
void RegisterPlainBenchmarks();
void RegisterScrollBarBenchmarks();
void RegisterSelectorBenchmarks();
void RegisterStackBenchmarks();
void RegisterTextEditBenchmarks();

} // namespace Bench
