#pragma once

#include <QWidget>

namespace Velmora {

/// Whether \a widget is \a outer or lies in it, through windows too: QWidget::isAncestorOf() ends at the first.
inline bool LiesIn(const QWidget *widget, const QWidget *outer)
{
    while (widget && widget != outer)
        widget = widget->parentWidget();
    return widget;
}

} // namespace Velmora
