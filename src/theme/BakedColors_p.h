#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QPalette;
QT_END_NAMESPACE

namespace Velmora {

/// Qt takes the colour of a link in a label, and the ground of an MDI area, from the application's palette once, and keeps it. Those of
/// plain widgets that are of \a before become those of \a after.
void ReplaceBakedColors(const QPalette &before, const QPalette &after);

} // namespace Velmora
