#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QFrame;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// Makes \a veil translucent, gives it an empty row to lay out what stands on it, and has it follow the colour table.
void SetUpVeil(QFrame &veil);

/// Fills \a veil with the table's overlay colour, which is translucent. For use in its paint event.
void PaintVeil(QWidget &veil);

} // namespace Velmora
