#pragma once

#include "theme/ThemedPixmap_p.h"

#include <QColor>
#include <QRect>
#include <QSize>
#include <QString>

QT_BEGIN_NAMESPACE
class QPainter;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// Fills \a rect, its corners rounded by \a radius pixels, in the colour of \a code; an empty code paints nothing.
void PaintBackground(QPainter &painter, const QRect &rect, int radius, const QString &code);

/// Outlines \a rect one pixel wide, likewise. The line is centred on the outer edge: half of it is clipped.
void PaintBorder(QPainter &painter, const QRect &rect, int radius, const QString &code);

/// The colour of a text in \a code; an empty code takes the button-text colour of the palette of \a button.
QColor CaptionColor(const QWidget &button, const QString &code);

/// The icon of a look at \a size, whatever size its \a record asks for. A record without a path lends its colours to \a path.
ThemedPixmap IconPixmap(const QPainter &painter, ImageParams record, const QString &path, const QSize &size);

/// Draws \a icon in the middle of \a rect. A null one draws nothing.
void DrawCentred(QPainter &painter, const QRect &rect, const ThemedPixmap &icon);

} // namespace Velmora
