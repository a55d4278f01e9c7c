#pragma once

#include <QtGlobal>

#include <functional>

QT_BEGIN_NAMESPACE
class QObject;
class QString;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// QWidget::setStyleSheet(), without styling parts that were never styled for a show.
///
/// Qt styles a part at once if it has a stylesheet of its own, and parses the sheets of all its parents for that; then again when the
/// widget gets its place and when it shows. Other parts wait for these, and so do all of them here.
void SetStyleSheetAlone(QWidget *widget, const QString &styleSheet);

/// Has \a function run when SetStyleSheetAlone(), which is at work, is done, if \a owner still lives; false, and nothing more, if it is
/// not.
///
/// For what puts right a palette that Qt sets: with each sheet it sets that of a part four times.
bool CallWhenStyled(QObject *owner, std::function<void()> function);

} // namespace Velmora
