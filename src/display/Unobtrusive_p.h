#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// For windows that come by themselves: who types into another one goes on typing, and left behind in sight \a window does not keep
/// the program running. On Wayland it stands where it was put, too.
void MakeUnobtrusive(QWidget &window);

/// True on Wayland, where the compositor places windows, and no program hears where they are. What a program says of its windows' places
/// holds between a window and its popups only, which are placed once, when they show.
bool CompositorPlacesWindows();

/// On Wayland: has \a window, which has a parent, stand where it was put beside that, as a popup, which gets no keys.
void StandWherePut(QWidget &window);

/// On Wayland: has \a window, when it shows next, stay in front of the window of \a owner. If it is a tool tip, it stands where it was put
/// beside that; otherwise most compositors centre it there.
void BelongTo(QWidget &window, const QWidget &owner);

} // namespace Velmora
