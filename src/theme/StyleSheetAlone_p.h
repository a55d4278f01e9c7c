#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QString;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// QWidget::setStyleSheet(), without styling parts that were never styled for a show.
///
/// Qt styles a part at once if it has a stylesheet of its own, and parses the sheets of all its parents for that; then again when the
/// widget gets its place and when it shows. Other parts wait for these, and so do all of them here.
void SetStyleSheetAlone(QWidget *widget, const QString &styleSheet);

} // namespace Velmora
