#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace Velmora {

/// The colour that \a code stands for now.
QColor TokenColor(const QString &code);

/// Fills \a rect, its corners rounded by \a radius pixels, in the colour of \a code. Leaves the painter without a pen.
void FillRounded(QPainter &painter, const QRectF &rect, double radius, const QString &code);

/// Outlines \a rect one pixel wide, its corners rounded by \a radius pixels, in the colour of \a code. Leaves the painter without a brush.
void OutlineRounded(QPainter &painter, const QRectF &rect, double radius, const QString &code);

/// The pen of every border: one pixel wide, in the colour of \a code.
void SetBorderPen(QPainter &painter, const QString &code);

} // namespace Velmora
