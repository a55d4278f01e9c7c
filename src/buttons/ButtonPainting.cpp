#include "buttons/ButtonPainting_p.h"

#include "theme/TokenPainting_p.h"

#include <Velmora/ImageParams.h>
#include <Velmora/QcStyleManager.h>

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

QPixmap IconPixmap(ImageParams record, const QString &path, const QSize &size)
{
    if (record.path.isEmpty())
        record.path = path;
    record.size = size;
    return QcStyleManager::GetInstance()->GetPixmap(record);
}

void DrawCentred(QPainter &painter, const QRect &rect, const QPixmap &pixmap)
{
    // Whole pixels, rounded towards zero: an icon between two of them would blur.
    const QPoint offset((rect.width() - pixmap.width()) / 2, (rect.height() - pixmap.height()) / 2);
    painter.drawPixmap(rect.topLeft() + offset, pixmap);
}

} // namespace Velmora
