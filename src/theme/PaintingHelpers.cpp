#include <Velmora/PaintingHelpers.h>

#include <QLinearGradient>
#include <QMargins>
#include <QPainter>
#include <QRadialGradient>
#include <QRect>

#include <algorithm>
#include <cmath>

namespace Velmora {

namespace {

int LargestOf(const QMargins &margins)
{
    return std::max({margins.left(), margins.top(), margins.right(), margins.bottom()});
}

void DrawEdge(QPainter &painter, const QRectF &strip, const QPointF &from, const QPointF &to, const QList<double> &alphas)
{
    if (!strip.isValid())
        return;
    QLinearGradient gradient;
    SetLinearGradient(gradient, {from, to}, alphas);
    painter.setBrush(gradient);
    painter.drawRects(&strip, 1);
}

/// The four straight strips, each with its gradient running from the panel outward. \a width is common to all sides.
void DrawEdges(QPainter &painter, const QRect &outer, int width, const RadiusParams &radius, const QList<double> &alphas)
{
    const int m = width;
    const int left = outer.left();
    const int top = outer.top();
    const int right = outer.right();
    const int bottom = outer.bottom();
    const auto &[topLeft, topRight, bottomRight, bottomLeft] = radius;

    const QRectF leftStrip(left, top + m + topLeft, m, outer.height() - 2 * m - topLeft - bottomLeft);
    DrawEdge(painter, leftStrip, {leftStrip.right(), 0}, {leftStrip.left(), 0}, alphas);

    const QRectF topStrip(left + m + topLeft, top, outer.width() - 2 * m - topLeft - topRight, m);
    DrawEdge(painter, topStrip, {0, topStrip.bottom()}, {0, topStrip.top()}, alphas);

    const QRectF rightStrip(right - m + 1, top + m + topRight, m, outer.height() - 2 * m - topRight - bottomRight);
    DrawEdge(painter, rightStrip, {rightStrip.left(), 0}, {rightStrip.right(), 0}, alphas);

    const QRectF bottomStrip(left + m + bottomLeft, bottom - m + 1, outer.width() - 2 * m - bottomLeft - bottomRight, m);
    DrawEdge(painter, bottomStrip, {0, bottomStrip.top()}, {0, bottomStrip.bottom()}, alphas);
}

/// One corner's ring sector: from \a start along the outside, then by \a turn back along the panel's own corner.
struct RingSector
{
    QPointF start;
    qreal outerAngle;
    QPointF turn;
    qreal innerAngle;
};

void DrawCorner(QPainter &painter, const QRect &box, int width, double innerRadius, const QPointF &center, const RingSector &sector,
                const QList<double> &alphas)
{
    QPainterPath path;
    path.moveTo(sector.start);
    path.arcTo(QRectF(box), sector.outerAngle, -90);
    path.lineTo(sector.turn);
    path.arcTo(QRectF(box.adjusted(width, width, -width, -width)), sector.innerAngle, 90);
    path.lineTo(sector.start);

    QRadialGradient gradient;
    SetRadialGradient(gradient, center, innerRadius, width + innerRadius, alphas);
    painter.setBrush(gradient);
    painter.drawPath(path);
}

/// QRect::center() rounds down; one more is the true centre of a square of even size.
QPointF TrueCenter(const QRect &box)
{
    return QPointF(box.center()) + QPointF(1.0, 1.0);
}

QRect CornerBox(double x, double y, double outerRadius)
{
    const int diameter = int(2 * outerRadius);
    return QRect(int(x), int(y), diameter, diameter);
}

void DrawCorners(QPainter &painter, const QRect &outer, int width, const RadiusParams &radius, const QList<double> &alphas)
{
    const int m = width;
    {
        const QRect box = CornerBox(outer.left(), outer.top(), m + radius.topLeft);
        const QPointF c = TrueCenter(box);
        DrawCorner(painter, box, m, radius.topLeft, c, {QPointF(box.left(), c.y()), 180, QPointF(c.x(), box.top() + m), 90}, alphas);
    }
    {
        const double rho = m + radius.topRight;
        const QRect box = CornerBox(outer.right() + 1 - 2 * rho, outer.top(), rho);
        const QPointF c = TrueCenter(box);
        DrawCorner(painter, box, m, radius.topRight, c, {QPointF(c.x(), box.top()), 90, QPointF(box.right() - m + 1, c.y()), 0}, alphas);
    }
    {
        const double rho = m + radius.bottomRight;
        const QRect box = CornerBox(outer.right() + 1 - 2 * rho, outer.bottom() - 2 * rho + 1, rho);
        const QPointF c = TrueCenter(box);
        DrawCorner(painter, box, m, radius.bottomRight, c, {QPointF(box.right(), c.y()), 0, QPointF(c.x(), box.bottom() - m + 1), -90},
                   alphas);
    }
    {
        const double rho = m + radius.bottomLeft;
        const QRect box = CornerBox(outer.left(), outer.bottom() + 1 - 2 * rho, rho);
        const QPointF c = TrueCenter(box);
        DrawCorner(painter, box, m, radius.bottomLeft, c, {QPointF(c.x(), box.bottom()), -90, QPointF(box.left() + m, c.y()), -180},
                   alphas);
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
    if (alphas.isEmpty())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    const int width = LargestOf(margins);
    const QRect outer = rect.marginsAdded(margins);
    DrawEdges(painter, outer, width, radius, alphas);
    DrawCorners(painter, outer, width, radius, alphas);
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
    const float steps = length + 1.0f;
    const double step = 1.0 / double(steps);

    QColor color(Qt::black);
    double position = 0.0;
    for (int i = 0; steps > float(i); ++i) {
        color.setAlphaF(alphas.at(std::min(i, alphas.size() - 1)));
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
        color.setAlphaF(alpha);
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
