#pragma once

#include <Velmora/RadiusParams.h>
#include <Velmora/ShadowParams.h>
#include <Velmora/VelmoraExport.h>

#include <QList>
#include <QPainterPath>
#include <QPair>
#include <QPointF>
#include <QRectF>

QT_BEGIN_NAMESPACE
class QLinearGradient;
class QMargins;
class QPainter;
class QRadialGradient;
class QRect;
QT_END_NAMESPACE

namespace Velmora {

/// Draws a black shadow around the panel \a rect, outside it; the painter's state is restored.
///
/// An empty \a params.alphaFList is filled first and stays filled: clear it after a change of margins or opacity.
VELMORA_EXPORT void DrawShadow(QPainter &painter, const QRect &rect, ShadowParams &params);

/// The same from plain values. The largest of \a margins is the width of all eight pieces; each margin by
/// itself only says where its side begins. With no margin of at least 1 or with no \a alphas nothing is drawn.
VELMORA_EXPORT void DrawShadow(QPainter &painter, const QRect &rect, const QMargins &margins, const RadiusParams &radius,
                               const QList<double> &alphas);

/// Sets up an edge gradient from the first to the second of \a points: black, one stop a pixel, the first stop one
/// step in, 16,384 pixels at most; the last of \a alphas repeats. With no \a alphas it gets no stops.
VELMORA_EXPORT void SetLinearGradient(QLinearGradient &gradient, const QPair<QPointF, QPointF> &points, const QList<double> &alphas);

/// Sets up a corner gradient around \a center: black, one stop a pixel from \a innerRadius outward, positions
/// being fractions of \a radius. Entries beyond the outer edge stack up on it, the last one winning.
VELMORA_EXPORT void SetRadialGradient(QRadialGradient &gradient, const QPointF &center, double innerRadius, double radius,
                                      const QList<double> &alphas);

/// A rectangle with four separate corner radii, clockwise from the left edge, in real coordinates.
VELMORA_EXPORT QPainterPath GetRoundedRectFPath(const QRectF &rect, const RadiusParams &radius);

} // namespace Velmora
