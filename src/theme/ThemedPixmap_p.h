#pragma once

#include <QPixmap>
#include <QSize>

QT_BEGIN_NAMESPACE
class QPainter;
class QRect;
QT_END_NAMESPACE

namespace Velmora {

struct ImageParams;

/// A themed picture in the pixels of the device that shows it, so that an icon is as sharp as the text beside it.
///
/// Sizes and places are logical, as all of a painter's are. On a device of ratio 1 the picture is the one of
/// QcStyleManager::GetPixmap(). On others an SVG is rendered as large as it is shown, rounded to whole pixels. A raster image
/// keeps the pixels of its file and is stretched.
struct ThemedPixmap
{
    QPixmap pixmap; ///< Its own ratio is 1. Null if there is no picture.
    QSize size;     ///< The logical size.
};

/// The picture that \a params asks for, for the device on which \a painter really paints: also where a widget is rendered into
/// an image of another ratio than its screen's.
ThemedPixmap PixmapFor(const QPainter &painter, const ImageParams &params);

/// The same for a caller that has at hand what QcStyleManager::GetPixmap() gave for \a params.
ThemedPixmap PixmapFor(const QPainter &painter, const ImageParams &params, const QPixmap &plain);

/// PixmapFor(), made smaller in proportion if it is larger than \a bounds, as a QIcon does.
ThemedPixmap PixmapWithin(const QPainter &painter, const ImageParams &params, const QSize &bounds);

/// Draws \a picture over \a rect. One that has just the pixels which \a rect covers is laid on them unchanged: where a corner of \a rect
/// lies between two pixels of the device, as every other place does at ratio 1.5, the picture moves right or down by that half.
/// It does not grow or shrink there, so that equal icons look alike. Any other one is stretched.
void DrawPixmap(QPainter &painter, const QRect &rect, const ThemedPixmap &picture);

} // namespace Velmora
