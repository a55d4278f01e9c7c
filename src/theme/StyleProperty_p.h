#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// Sets the dynamic property \a name, which the stylesheet of \a widget asks for, and has the style look at the widget again.
/// Nothing happens, and the answer is false, if the property was \a on already. A property never set is neither on nor off.
///
/// The host hears of the change in an event and may delete \a widget there.
bool SetStyleProperty(QWidget *widget, const char *name, bool on);

} // namespace Velmora
