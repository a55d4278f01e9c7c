#pragma once

#include <QPoint>
#include <QRect>
#include <QVector>

namespace Velmora {

/// True where windows are placed and moved by a window manager.
bool HasWindowManager();

/// The places of all screens that windows may use.
QVector<QRect> ScreenRects();

/// Where a window at \a window has its top left corner: as it is while some screen shows a part of it, otherwise inside of the nearest
/// one, at its top left if it is too large for that.
QPoint OntoScreens(const QRect &window, const QVector<QRect> &screens);

} // namespace Velmora
