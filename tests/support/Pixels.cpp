#include "support/Pixels.h"
#include "support/ColorValue.h"

#include <Velmora/QcStyleManager.h>

#include <QHash>
#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace VelmoraTest {

namespace {

QImage CanvasAt(const QWidget &widget, qreal ratio, const QColor &background)
{
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(background);
    return image;
}

} // namespace

QImage Canvas(const QWidget &widget, const QColor &background)
{
    return CanvasAt(widget, widget.devicePixelRatioF(), background);
}

QImage Render(QWidget &widget, const QColor &background)
{
    return RenderAt(widget, widget.devicePixelRatioF(), background);
}

QImage RenderAt(QWidget &widget, qreal ratio, const QColor &background)
{
    QImage image = CanvasAt(widget, ratio, background);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

QColor PixelAt(const QImage &image, const QPointF &logical)
{
    const QPointF device = logical * image.devicePixelRatio();
    return image.pixelColor(int(std::floor(device.x())), int(std::floor(device.y())));
}

QColor Over(const QColor &top, const QColor &bottom)
{
    const double alpha = top.alphaF();
    const auto mix = [alpha](double a, double b) { return a * alpha + b * (1.0 - alpha); };
    return QColor::fromRgbF(ColorValue(mix(top.redF(), bottom.redF())), ColorValue(mix(top.greenF(), bottom.greenF())),
                            ColorValue(mix(top.blueF(), bottom.blueF())));
}

bool Close(const QColor &a, const QColor &b, int tolerance)
{
    return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance
        && std::abs(a.blue() - b.blue()) <= tolerance && std::abs(a.alpha() - b.alpha()) <= tolerance;
}

bool IsBetween(const QColor &color, const QColor &one, const QColor &other)
{
    const auto fits = [](int value, int a, int b) { return qMin(a, b) - 2 <= value && value <= qMax(a, b) + 2; };
    return fits(color.red(), one.red(), other.red()) && fits(color.green(), one.green(), other.green())
        && fits(color.blue(), one.blue(), other.blue());
}

QImage Part(const QImage &image, const QRectF &logical)
{
    const qreal ratio = image.devicePixelRatio();
    return image.copy(QRectF(logical.topLeft() * ratio, logical.size() * ratio).toRect());
}

void LayOnPixels(QPainter &painter, const QPoint &corner, const QPixmap &pixmap)
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    painter.drawPixmap(int(std::floor(corner.x() * ratio + 0.5)), int(std::floor(corner.y() * ratio + 0.5)), pixmap);
    painter.restore();
}

void PaintCrisply(QPainter &painter, const QRect &place, Velmora::ImageParams params)
{
    params.size = (QSizeF(place.size()) * painter.device()->devicePixelRatioF()).toSize();
    LayOnPixels(painter, place.topLeft(), Velmora::QcStyleManager::GetInstance()->GetPixmap(params));
}

double LineCoverage(const QImage &image)
{
    return std::min(1.0, 0.5 * image.devicePixelRatio());
}

QRectF InkBox(const QImage &image, const QColor &background, int tolerance)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (!Close(image.pixelColor(x, y), background, tolerance))
                box |= QRect(x, y, 1, 1);
        }
    }
    const qreal ratio = image.devicePixelRatio();
    return QRectF(box.x() / ratio, box.y() / ratio, box.width() / ratio, box.height() / ratio);
}

QColor InkColor(const QImage &image, const QColor &background)
{
    const auto distance = [&background](const QColor &color) {
        return std::abs(color.red() - background.red()) + std::abs(color.green() - background.green())
            + std::abs(color.blue() - background.blue());
    };
    QColor ink = background;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (distance(color) > distance(ink))
                ink = color;
        }
    }
    return ink;
}

QColor MainInk(const QImage &image, const QColor &background)
{
    QHash<QRgb, int> counts;
    QRgb commonest = background.rgb();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (!Close(QColor(pixel), background) && ++counts[pixel] > counts.value(commonest))
                commonest = pixel;
        }
    }
    return QColor(commonest);
}

} // namespace VelmoraTest
