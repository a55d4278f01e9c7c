#pragma once

#include <QHoverEvent>

namespace Gallery {

/// The mouse came from \a before, in coordinates of the widget.
inline QHoverEvent HoverEventAt(QEvent::Type type, const QPointF &position, const QPointF &before)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0) // wants a place on the screen too
    return QHoverEvent(type, position, position, before);
#else
    return QHoverEvent(type, position, before);
#endif
}

} // namespace Gallery
