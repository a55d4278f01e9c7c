#include "buttons/ButtonPainting_p.h"

#include "theme/TokenPainting_p.h"

#include <Velmora/ImageParams.h>

#include <QPainter>
#include <QPalette>
#include <QWidget>

namespace Velmora {

void PaintBackground(QPainter &painter, const QRect &rect, int radius, const QString &code)
{
    if (!code.isEmpty())
        FillRounded(painter, rect, radius, code);
}

void PaintBorder(QPainter &painter, const QRect &rect, int radius, const QString &code)
{
    if (!code.isEmpty())
        OutlineRounded(painter, rect, radius, code);
}

QColor CaptionColor(const QWidget &button, const QString &code)
{
    return code.isEmpty() ? button.palette().color(QPalette::ButtonText) : TokenColor(code);
}

ThemedPixmap IconPixmap(const QPainter &painter, ImageParams record, const QString &path, const QSize &size)
{
    if (record.path.isEmpty())
        record.path = path;
    record.size = size;
    return PixmapFor(painter, record);
}

void DrawCentred(QPainter &painter, const QRect &rect, const ThemedPixmap &icon)
{
    // Whole pixels, rounded towards zero: an icon between two of them would blur.
    const QPoint offset((rect.width() - icon.size.width()) / 2, (rect.height() - icon.size.height()) / 2);
    DrawPixmap(painter, QRect(rect.topLeft() + offset, icon.size), icon);
}

} // namespace Velmora
