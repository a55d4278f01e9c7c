#include <Velmora/PaintingHelpers.h>

#include "theme/ColorTable_p.h"

#include <QLinearGradient>
#include <QMargins>
#include <QPainter>
#include <QRadialGradient>
#include <QRect>

#include <algorithm>
#include <cmath>

namespace Velmora {

namespace {

/// More stops than any screen has pixels only cost time, which grows with their square.
constexpr float kLongestGradient = 16384.0f;

int LargestOf(const QMargins &margins)
{
    return std::max({margins.left(), margins.top(), margins.right(), margins.bottom()});
}

/// What the shadow covers, the panel included: whole pixels, right and bottom being the last ones.
/// As real numbers, since the sums of a host's extreme values need not fit into int.
struct Extent
{
    Extent(const QRect &panel, const QMargins &margins)
        : left(double(panel.left()) - margins.left())
        , top(double(panel.top()) - margins.top())
        , right(double(panel.right()) + margins.right())
        , bottom(double(panel.bottom()) + margins.bottom())
    {
    }

    double Width() const { return right - left + 1; }
    double Height() const { return bottom - top + 1; }

    double left;
    double top;
    double right;
    double bottom;
};

void DrawEdge(QPainter &painter, const QRectF &strip, const QPointF &from, const QPointF &to, const QList<double> &alphas)
{
    if (!strip.isValid())
        return;
    QLinearGradient gradient;
    SetLinearGradient(gradient, {from, to}, alphas);
    painter.setBrush(gradient);
    painter.drawRects(&strip, 1);
}

/// The four straight strips, each with its gradient running from the panel outward. The width \a m is common to all sides.
void DrawEdges(QPainter &painter, const Extent &outer, double m, const RadiusParams &radius, const QList<double> &alphas)
{
    const auto &[topLeft, topRight, bottomRight, bottomLeft] = radius;

    const QRectF leftStrip(outer.left, outer.top + m + topLeft, m, outer.Height() - 2 * m - topLeft - bottomLeft);
    DrawEdge(painter, leftStrip, {leftStrip.right(), 0}, {leftStrip.left(), 0}, alphas);

    const QRectF topStrip(outer.left + m + topLeft, outer.top, outer.Width() - 2 * m - topLeft - topRight, m);
    DrawEdge(painter, topStrip, {0, topStrip.bottom()}, {0, topStrip.top()}, alphas);

    const QRectF rightStrip(outer.right - m + 1, outer.top + m + topRight, m, outer.Height() - 2 * m - topRight - bottomRight);
    DrawEdge(painter, rightStrip, {rightStrip.left(), 0}, {rightStrip.right(), 0}, alphas);

    const QRectF bottomStrip(outer.left + m + bottomLeft, outer.bottom - m + 1, outer.Width() - 2 * m - bottomLeft - bottomRight, m);
    DrawEdge(painter, bottomStrip, {0, bottomStrip.top()}, {0, bottomStrip.bottom()}, alphas);
}

/// The square of whole pixels around one corner's circle of radius \a rho, with its upper left at (\a x, \a y), both
/// truncated. Null for a corner that cannot be drawn: no circle at all, or beyond what a painter reaches.
QRect CornerBox(double x, double y, double rho)
{
    constexpr double kReach = 1 << 24;
    const bool isDrawable = rho > 0 && rho < kReach && std::abs(x) < kReach && std::abs(y) < kReach; // false for NaN
    return isDrawable ? QRect(int(x), int(y), int(2 * rho), int(2 * rho)) : QRect();
}

/// QRect::center() rounds down; one more is the true centre of a square of even size.
QPointF TrueCenter(const QRect &box)
{
    return QPointF(box.center()) + QPointF(1.0, 1.0);
}

/// One corner's ring sector: from \a start along the outside, then by \a turn back along the panel's own corner.
struct RingSector
{
    QPointF start;
    qreal outerAngle;
    QPointF turn;
    qreal innerAngle;
};

void DrawCorner(QPainter &painter, const QRect &box, int m, double radius, const RingSector &sector, const QList<double> &alphas)
{
    QPainterPath path;
    path.moveTo(sector.start);
    path.arcTo(QRectF(box), sector.outerAngle, -90);
    path.lineTo(sector.turn);
    path.arcTo(QRectF(box.adjusted(m, m, -m, -m)), sector.innerAngle, 90);
    path.lineTo(sector.start);

    QRadialGradient gradient;
    SetRadialGradient(gradient, TrueCenter(box), radius, m + radius, alphas);
    painter.setBrush(gradient);
    painter.drawPath(path);
}

void DrawCorners(QPainter &painter, const Extent &outer, int m, const RadiusParams &radius, const QList<double> &alphas)
{
    if (const QRect box = CornerBox(outer.left, outer.top, m + radius.topLeft); !box.isNull()) {
        const QPointF c = TrueCenter(box);
        DrawCorner(painter, box, m, radius.topLeft, {QPointF(box.left(), c.y()), 180, QPointF(c.x(), box.top() + m), 90}, alphas);
    }
    double rho = m + radius.topRight;
    if (const QRect box = CornerBox(outer.right + 1 - 2 * rho, outer.top, rho); !box.isNull()) {
        const QPointF c = TrueCenter(box);
        DrawCorner(painter, box, m, radius.topRight, {QPointF(c.x(), box.top()), 90, QPointF(box.right() - m + 1, c.y()), 0}, alphas);
    }
    rho = m + radius.bottomRight;
    if (const QRect box = CornerBox(outer.right + 1 - 2 * rho, outer.bottom - 2 * rho + 1, rho); !box.isNull()) {
        const QPointF c = TrueCenter(box);
        DrawCorner(painter, box, m, radius.bottomRight, {QPointF(box.right(), c.y()), 0, QPointF(c.x(), box.bottom() - m + 1), -90},
                   alphas);
    }
    rho = m + radius.bottomLeft;
    if (const QRect box = CornerBox(outer.left, outer.bottom + 1 - 2 * rho, rho); !box.isNull()) {
        const QPointF c = TrueCenter(box);
        DrawCorner(painter, box, m, radius.bottomLeft, {QPointF(c.x(), box.bottom()), -90, QPointF(box.left() + m, c.y()), -180}, alphas);
    }
}

} // namespace

void DrawShadow(QPainter &painter, const QRect &rect, ShadowParams &params)
{
    if (params.alphaFList.isEmpty())
        params.MaxOpacityToAlphaFList();
    DrawShadow(painter, rect, params.margins, params.radius, params.alphaFList);
}

void DrawShadow(QPainter &painter, const QRect &rect, const QMargins &margins, const RadiusParams &radius, const QList<double> &alphas)
{
    const int m = LargestOf(margins);
    if (m < 1 || alphas.isEmpty())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    const Extent outer(rect, margins);
    DrawEdges(painter, outer, m, radius, alphas);
    DrawCorners(painter, outer, m, radius, alphas);
    painter.restore();
}

void SetLinearGradient(QLinearGradient &gradient, const QPair<QPointF, QPointF> &points, const QList<double> &alphas)
{
    gradient.setStart(points.first);
    gradient.setFinalStop(points.second);
    if (alphas.isEmpty())
        return;

    auto length = float(std::abs(points.first.x() - points.second.x()));
    if (length == 0.0f)
        length = float(std::abs(points.first.y() - points.second.y()));
    const float steps = std::min(length, kLongestGradient) + 1.0f;
    const double step = 1.0 / double(steps);

    QColor color(Qt::black);
    double position = 0.0;
    for (int i = 0; steps > float(i); ++i) {
        SetAlphaQuietly(color, alphas.at(std::min(i, int(alphas.size()) - 1)));
        position = std::min(position + step, 1.0);
        gradient.setColorAt(position, color);
    }
}

void SetRadialGradient(QRadialGradient &gradient, const QPointF &center, double innerRadius, double radius, const QList<double> &alphas)
{
    gradient.setCenter(center);
    gradient.setFocalPoint(center);
    gradient.setRadius(radius);
    if (alphas.isEmpty())
        return;

    // Unlike the straight edge, the ring's first stop lies exactly on its inner radius.
    const double step = 1.0 / radius;
    double position = innerRadius / radius;
    QColor color(Qt::black);
    for (const double alpha : alphas) {
        SetAlphaQuietly(color, alpha);
        if (position >= 0.0 && position <= 1.0) // a negative or oversized inner radius begins outside of the gradient
            gradient.setColorAt(position, color);
        position = std::min(position + step, 1.0);
    }
}

QPainterPath GetRoundedRectFPath(const QRectF &rect, const RadiusParams &radius)
{
    const auto &[r0, r1, r2, r3] = radius;
    QPainterPath path;
    path.moveTo(rect.left(), rect.top() + r0);
    path.arcTo(QRectF(rect.left(), rect.top(), 2 * r0, 2 * r0), -180, -90);
    path.lineTo(rect.right() - r1, rect.top());
    path.arcTo(QRectF(rect.right() - 2 * r1, rect.top(), 2 * r1, 2 * r1), 90, -90);
    path.lineTo(rect.right(), rect.bottom() - r2);
    path.arcTo(QRectF(rect.right() - 2 * r2, rect.bottom() - 2 * r2, 2 * r2, 2 * r2), 0, -90);
    path.lineTo(rect.left() + r3, rect.bottom());
    path.arcTo(QRectF(rect.left(), rect.bottom() - 2 * r3, 2 * r3, 2 * r3), -90, -90);
    path.lineTo(rect.left(), rect.top() + r0);
    return path;
}

} // namespace Velmora
