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
/// Whether widgets hear of a new palette of the application in the next turn of the event loop, and windows alone do.
constexpr bool kTellsWindowsOfPaletteLater = true;

inline void SetResolveMask(QFont &font, uint mask)
{
    font.setResolveMask(mask);
}

/// Gives \a font the family \a names, families separated by commas. Qt 5 takes the string apart when it looks for a font, and keeps the
/// families that the application's font may have; Qt 6 would look for one family of that name, and then take any.
inline void SetFamily(QFont &font, const QString &names)
{
    QStringList families(names);
    for (const QString &name : names.split(QLatin1Char(',')))
        families.append(name.trimmed());
    font.setFamilies(families + font.families());
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

/// Gives \a widget another parent, and makes it a window. Qt 6.4 takes the focus away when the parent has changed, and leaves the old
/// ancestors with a pointer to what had it, which they follow when it has died.
inline void MakeWindow(QWidget &widget, QWidget *parent, Qt::WindowFlags flags)
{
    if (widget.testAttribute(Qt::WA_WState_Created) && !widget.isHidden()) { // as setParent() does it
        widget.hide();
        widget.setAttribute(Qt::WA_WState_ExplicitShowHide, false);
    }
    if (QWidget *focus = widget.focusWidget())
        focus->clearFocus();
    widget.setParent(parent, flags);
}

#else

constexpr bool kSheetsFadePlaceholders = false;
constexpr bool kTellsWindowsOfPaletteLater = false;

inline void SetResolveMask(QFont &font, uint mask)
{
    font.resolve(mask);
}

inline void SetFamily(QFont &font, const QString &names)
{
    font.setFamily(names);
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

inline void MakeWindow(QWidget &widget, QWidget *parent, Qt::WindowFlags flags)
{
    widget.setParent(parent, flags);
}

#endif

} // namespace Velmora
