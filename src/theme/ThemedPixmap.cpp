#include "theme/ThemedPixmap_p.h"

#include "theme/SvgRecoloring_p.h"

#include <Velmora/ImageParams.h>
#include <Velmora/QcStyleManager.h>

#include <QPaintEngine>
#include <QPainter>
#include <QTransform>

#include <cmath>

namespace Velmora {

namespace {

/// QPainter::device() would be the widget, and its ratio that of the screen, even while the widget is rendered into an image.
qreal DeviceRatio(const QPainter &painter)
{
    const QPaintEngine *engine = painter.paintEngine(); // none if the painter could not begin
    return engine ? engine->paintDevice()->devicePixelRatioF() : 1.0;
}

QSize Pixels(const QSize &size, qreal ratio)
{
    return (QSizeF(size) * ratio).toSize();
}

QSize Bounded(const QSize &size, const QSize &bounds)
{
    const bool fits = size.width() <= bounds.width() && size.height() <= bounds.height();
    return fits ? size : size.scaled(bounds, Qt::KeepAspectRatio);
}

ThemedPixmap AsRequested(const ImageParams &params)
{
    const QPixmap pixmap = QcStyleManager::GetInstance()->GetPixmap(params);
    return {pixmap, pixmap.size()};
}

ThemedPixmap Rendered(const ImageParams &params, const QSize &size, qreal ratio)
{
    ImageParams request = params;
    request.size = Pixels(size, ratio);
    return {QcStyleManager::GetInstance()->GetPixmap(request), size};
}

bool CoversPixelForPixel(const QTransform &toDevice, const QSize &size, const QSize &pixels)
{
    return toDevice.type() == QTransform::TxScale
        && QSizeF(size.width() * toDevice.m11(), size.height() * toDevice.m22()).toSize() == pixels;
}

bool NeedsRendering(const ImageParams &params, qreal ratio)
{
    return ratio > 1.0 && IsSvg(params.path);
}

} // namespace

ThemedPixmap PixmapFor(const QPainter &painter, const ImageParams &params)
{
    const qreal ratio = DeviceRatio(painter);
    return NeedsRendering(params, ratio) ? Rendered(params, params.size, ratio) : AsRequested(params);
}

ThemedPixmap PixmapFor(const QPainter &painter, const ImageParams &params, const QPixmap &plain)
{
    const qreal ratio = DeviceRatio(painter);
    return NeedsRendering(params, ratio) ? Rendered(params, params.size, ratio) : ThemedPixmap{plain, plain.size()};
}

ThemedPixmap PixmapWithin(const QPainter &painter, const ImageParams &params, const QSize &bounds)
{
    const qreal ratio = DeviceRatio(painter);
    if (NeedsRendering(params, ratio))
        return Rendered(params, Bounded(params.size, bounds), ratio);
    const ThemedPixmap picture = AsRequested(params);
    const QSize size = Bounded(picture.size, bounds);
    if (picture.pixmap.isNull() || size == picture.size)
        return picture;
    return {picture.pixmap.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), size};
}

void DrawPixmap(QPainter &painter, const QRect &rect, const ThemedPixmap &picture)
{
    if (!CoversPixelForPixel(painter.deviceTransform(), rect.size(), picture.pixmap.size())) {
        painter.drawPixmap(rect, picture.pixmap);
        return;
    }
    const QTransform toDevice = painter.deviceTransform();
    const QPointF corner = toDevice.map(QPointF(rect.topLeft()));
    const QTransform toPixels = QTransform::fromTranslate(std::floor(corner.x() + 0.5), std::floor(corner.y() + 0.5));
    const QTransform world = painter.worldTransform();
    painter.setWorldTransform(toPixels * toDevice.inverted() * world);
    painter.drawPixmap(0, 0, picture.pixmap);
    painter.setWorldTransform(world);
}

} // namespace Velmora
