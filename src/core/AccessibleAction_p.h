#pragma once

#include <QtGlobal>

#include <functional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// Lets the event loop do \a action, one of \a widget's for assistive technology, which waits for its call to return: the action may
/// open a dialog. It is not done if the widget died meanwhile, was disabled, or lies behind a modal window, as after the same
/// action a moment before.
void DoActionLater(QWidget &widget, const std::function<void()> &action);

} // namespace Velmora
