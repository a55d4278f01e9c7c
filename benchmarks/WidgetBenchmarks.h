#pragma once

#include "Scenes.h"

#include <functional>
#include <memory>

namespace Bench {

using SceneMaker = std::function<std::unique_ptr<Scene>()>;

/// Registers the render() of one widget into an image as "PaintOne/\a name".
void RegisterPaint(const QString &name, const SceneMaker &makeScene);
/// Registers the way from N constructors to the first paint of the last widget as "ConstructAndShow/\a name/N", for
/// N = \a smallest, 4N and 16N.
void RegisterShow(const QString &name, int smallest, const SceneMaker &makeScene);
/// Registers a theme switch of N widgets on show, from the call to the last paint, as "SwitchTheme/\a name/N".
void RegisterSwitch(const QString &name, int smallest, const SceneMaker &makeScene);
/// Registers an event of each of some types that reaches another widget while N are on show, as "PressElsewhere/\a name/N",
/// "MoveElsewhere", "ResizeElsewhere" and "OtherEvent".
void RegisterEvents(const QString &name, int smallest, const SceneMaker &makeScene);
/// Registers a resize of a window around N widgets that keep their places, as "ResizeAround/\a name/N".
void RegisterResize(const QString &name, int smallest, const SceneMaker &makeScene);

/// Register what each file measures.
void RegisterButtonBenchmarks();
void RegisterControlBenchmarks();
void RegisterFeedbackBenchmarks();
void RegisterSelectorBenchmarks();
void RegisterStackBenchmarks();
void RegisterTextEditBenchmarks();

} // namespace Bench
