#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// For windows that come by themselves: who types into another one goes on typing, and left behind in sight \a window does not keep
/// the program running. On Wayland it stands where it was put, too.
void MakeUnobtrusive(QWidget &window);

/// True on Wayland, where a window stands where it was put before it showed.
bool IsPlacedBeforeShown();

} // namespace Velmora
