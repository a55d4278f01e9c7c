#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// Asks for one repaint of all that \a window shows, opaque children included. What its widgets ask for until then is part of it,
/// and costs nothing: Qt would join N rectangles at a cost that grows faster than N.
void RequestWholeRepaint(QWidget *window);

} // namespace Velmora
