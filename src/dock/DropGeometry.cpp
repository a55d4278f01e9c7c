#include "dock/DropGeometry_p.h"

#include <limits>

namespace Velmora {

bool IsOuter(DockPosition position)
{
    return position >= OuterLeft && position <= OuterBottom;
}

DockPosition WithoutOuter(DockPosition position)
{
    switch (position) {
    case OuterLeft:
        return Left;
    case OuterRight:
        return Right;
    case OuterTop:
        return Top;
    case OuterBottom:
        return Bottom;
    default:
        return position;
    }
}

QList<DockPosition> OfferedPositions(bool takesType, bool isNested, bool isEmpty)
{
    if (isEmpty && !isNested)
        return {Center};
    QList<DockPosition> positions = {Center, Left, Right, Top, Bottom, OuterLeft, OuterRight, OuterTop, OuterBottom};
    if (!takesType)
        positions.removeFirst();
    return positions;
}

QRect MaskRect(DockPosition position, const QRect &area, const QRect &outer)
{
    const QRect &whole = IsOuter(position) ? outer : area;
    const int halfWidth = whole.width() / 2;
    const int halfHeight = whole.height() / 2;
    const QSize upright(halfWidth, whole.height());
    const QSize flat(whole.width(), halfHeight);
    switch (position) {
    case Left:
    case OuterLeft:
        return {whole.topLeft(), upright};
    case Right:
        return {whole.topLeft() + QPoint(halfWidth, 0), upright};
    case OuterRight: // to the last pixel, unlike the right half of an area of odd width
        return {whole.topLeft() + QPoint(whole.width() - halfWidth, 0), upright};
    case Top:
    case OuterTop:
        return {whole.topLeft(), flat};
    case Bottom:
        return {whole.topLeft() + QPoint(0, halfHeight), flat};
    case OuterBottom:
        return {whole.topLeft() + QPoint(0, whole.height() - halfHeight), flat};
    case Center:
        return whole;
    case NoPosition:
        break;
    }
    return {};
}

QPoint IndicatorTopLeft(const QRect &area, const QSize &size)
{
    return area.topLeft() + QPoint((area.width() - size.width()) / 2, (area.height() - size.height()) / 2);
}

DockPosition PlaceBeside(DockPosition place, int across, int down, const QList<DockPosition> &offered)
{
    const auto onCross = [](DockPosition position) { // in columns and rows from its middle
        switch (position) {
        case Left:
            return QPoint(-1, 0);
        case Right:
            return QPoint(1, 0);
        case Top:
            return QPoint(0, -1);
        case Bottom:
            return QPoint(0, 1);
        case OuterLeft:
            return QPoint(-2, 0);
        case OuterRight:
            return QPoint(2, 0);
        case OuterTop:
            return QPoint(0, -2);
        case OuterBottom:
            return QPoint(0, 2);
        default:
            return QPoint(0, 0);
        }
    };
    DockPosition nearest = place;
    int nearestAway = std::numeric_limits<int>::max();
    for (const DockPosition position : offered) {
        const QPoint way = onCross(position) - onCross(place);
        const int ahead = way.x() * across + way.y() * down;
        const int away = ahead + 2 * (way.manhattanLength() - ahead); // straight on before aside
        if (ahead > 0 && away < nearestAway) {
            nearest = position;
            nearestAway = away;
        }
    }
    return nearest;
}

} // namespace Velmora
