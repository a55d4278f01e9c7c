#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// Shows the placeholder text of \a edit in the colour of help texts, from the first show on and after each change of the
/// colour table.
void FollowPlaceholderToken(QWidget *edit);

} // namespace Velmora
