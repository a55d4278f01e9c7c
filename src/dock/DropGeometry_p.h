#pragma once

#include <Velmora/DockPosition.h>

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace Velmora {

// Where a dragged panel may go and what it would take: pure arithmetic, in the pixels of the virtual desktop.

/// True for the four edges of a whole container.
bool IsOuter(DockPosition position);

/// The side that an outer position stands for; every other one as it is.
DockPosition WithoutOuter(DockPosition position);

/// The places that a panel may take at an area: all nine; not the centre where its type may not join; the centre alone where the area
/// is empty and lies in no nested container, since nothing of it could be left over.
QList<DockPosition> OfferedPositions(bool takesType, bool isNested, bool isEmpty);

/// What a panel would take that is dropped at \a position: of \a area, or of \a outer for the outer positions. Null for no position.
QRect MaskRect(DockPosition position, const QRect &area, const QRect &outer);

/// The top left corner of an indicator of \a size in the middle of \a area; it may overhang.
QPoint IndicatorTopLeft(const QRect &area, const QSize &size);

/// The offered place that an arrow key leads to from \a place across the indicator's cross: the nearest one on that side; \a place if there
/// is none. \a across and \a down are the arrow's direction, -1, 0 or 1 each.
DockPosition PlaceBeside(DockPosition place, int across, int down, const QList<DockPosition> &offered);

/// Of the \a entries that \a isHit answers true for the inner-most one: the first, unless a later one lies inside of it. Null if there is
/// none. \a isAncestor says whether its first argument holds its second. Nulls are passed over.
template <typename T, typename IsHit, typename IsAncestor>
T *InnerMost(const QList<T *> &entries, IsHit isHit, IsAncestor isAncestor)
{
    T *best = nullptr;
    for (T *entry : entries)
        if (entry && isHit(entry) && (!best || isAncestor(best, entry)))
            best = entry;
    return best;
}

/// The same for the outer-most one: the first, unless a later one holds it.
template <typename T, typename IsHit, typename IsAncestor>
T *OuterMost(const QList<T *> &entries, IsHit isHit, IsAncestor isAncestor)
{
    return InnerMost(entries, isHit, [&isAncestor](T *best, T *entry) { return isAncestor(entry, best); });
}

} // namespace Velmora
