#pragma once

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QRect>

QT_BEGIN_NAMESPACE
class QPainter;
class QPixmap;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {
struct ImageParams;
}

namespace VelmoraTest {

/// An image as large as \a widget, filled with \a background, at the scale factor of the run.
QImage Canvas(const QWidget &widget, const QColor &background = Qt::white);

/// \a widget with its children, painted over \a background at the scale factor of the run.
QImage Render(QWidget &widget, const QColor &background = Qt::white);

/// The same on a device of \a ratio, whatever the scale factor of the run.
QImage RenderAt(QWidget &widget, qreal ratio, const QColor &background = Qt::white);

/// The pixel of \a image at a logical position, whatever its scale factor.
QColor PixelAt(const QImage &image, const QPointF &logical);

/// \a top painted over the opaque \a bottom.
QColor Over(const QColor &top, const QColor &bottom = Qt::white);

/// True if no channel differs by more than \a tolerance of 255.
bool Close(const QColor &a, const QColor &b, int tolerance = 2);

/// True if each channel lies between those of \a one and \a other, or nearly so.
bool IsBetween(const QColor &color, const QColor &one, const QColor &other);

/// A logical rectangle of \a image.
QImage Part(const QImage &image, const QRectF &logical);

/// Lays \a pixmap on the image that \a painter paints on, pixel for pixel, from the whole pixel nearest to the logical \a corner.
void LayOnPixels(QPainter &painter, const QPoint &corner, const QPixmap &pixmap);

/// Paints what \a params asks for, rendered in as many pixels as \a place has on that image, whatever size it names.
void PaintCrisply(QPainter &painter, const QRect &place, Velmora::ImageParams params);

/// How much of its outermost pixels a line of width 1 covers that runs along the image's edge: half of it is clipped, so
/// that the answer depends on the scale factor.
double LineCoverage(const QImage &image);

/// The smallest logical rectangle that holds every pixel unlike \a background by more than \a tolerance.
QRectF InkBox(const QImage &image, const QColor &background, int tolerance = 8);

/// The pixel of \a image that differs most from \a background: the colour of a text or icon whose strokes are wide enough
/// to cover a pixel whole. Enlarge the font for that.
QColor InkColor(const QImage &image, const QColor &background);

/// The commonest colour of \a image beside \a background: that of a text of full blocks (U+2588), whatever its size, and
/// whatever lies beside it or at its seams.
QColor MainInk(const QImage &image, const QColor &background);

} // namespace VelmoraTest

/// Compares two colours channel by channel, within two steps, and prints both on failure.
#define COMPARE_COLOR(actual, expected) \
    QVERIFY2(VelmoraTest::Close((actual), (expected)), \
             qPrintable(QStringLiteral("%1 is not %2").arg((actual).name(QColor::HexArgb), (expected).name(QColor::HexArgb))))
