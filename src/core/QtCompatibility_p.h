#pragma once

#include <Velmora/QtCompatibility.h>

#include <QAction>
#include <QFont>
#include <QHoverEvent>
#include <QList>
#include <QPalette>
#include <QWidget>

namespace Velmora {

// What Qt 6 calls by another name, and what it gives as objects of more kinds.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)

/// Whether placeholders get half of the colour that a stylesheet gives texts.
constexpr bool kSheetsFadePlaceholders = true;

inline void SetResolveMask(QFont &font, uint mask)
{
    font.setResolveMask(mask);
}

inline auto ResolveMaskOf(const QPalette &palette)
{
    return palette.resolveMask();
}

inline QList<QWidget *> WidgetsWith(const QAction &action)
{
    QList<QWidget *> widgets;
    const QList<QObject *> objects = action.associatedObjects();
    for (QObject *object : objects) {
        if (auto *widget = qobject_cast<QWidget *>(object))
            widgets.append(widget);
    }
    return widgets;
}

/// The mouse came from \a before, in coordinates of the widget.
inline QHoverEvent HoverEventAt(QEvent::Type type, const QPointF &position, const QPointF &before)
{
    return QHoverEvent(type, position, position, before);
}

#else

constexpr bool kSheetsFadePlaceholders = false;

inline void SetResolveMask(QFont &font, uint mask)
{
    font.resolve(mask);
}

inline auto ResolveMaskOf(const QPalette &palette)
{
    return palette.resolve();
}

inline QList<QWidget *> WidgetsWith(const QAction &action)
{
    return action.associatedWidgets();
}

inline QHoverEvent HoverEventAt(QEvent::Type type, const QPointF &position, const QPointF &before)
{
    return QHoverEvent(type, position, before);
}

#endif

} // namespace Velmora
