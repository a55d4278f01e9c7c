#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// Shows the placeholder text of \a edit in the colour of help texts, from the first show on and after each change of the
/// colour table.
void FollowPlaceholderToken(QWidget *edit);

/// Shows the placeholder text of \a edit in the colour that a stylesheet gives texts, with Qt 6 too, which takes half of it.
void KeepPlaceholderUnfaded(QWidget *edit);

} // namespace Velmora
