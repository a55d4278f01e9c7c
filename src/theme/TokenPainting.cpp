#include "theme/TokenPainting_p.h"

#include <Velmora/QcStyleManager.h>

#include <QPainter>
#include <QPen>

namespace Velmora {

QColor TokenColor(const QString &code)
{
    return QcStyleManager::GetInstance()->GetColor(ColorParams(code));
}

void FillRounded(QPainter &painter, const QRectF &rect, double radius, const QString &code)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(TokenColor(code), Qt::SolidPattern));
    painter.drawRoundedRect(rect, radius, radius, Qt::AbsoluteSize);
}

void OutlineRounded(QPainter &painter, const QRectF &rect, double radius, const QString &code)
{
    painter.setBrush(Qt::NoBrush);
    SetBorderPen(painter, code);
    painter.drawRoundedRect(rect, radius, radius, Qt::AbsoluteSize);
}

void SetBorderPen(QPainter &painter, const QString &code)
{
    painter.setPen(QPen(QBrush(TokenColor(code), Qt::SolidPattern), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
}

} // namespace Velmora
