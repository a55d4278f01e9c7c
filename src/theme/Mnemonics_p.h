#pragma once

#include <QString>

QT_BEGIN_NAMESPACE
class QFontMetrics;
class QPainter;
class QRect;
class QStyle;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

// The & of a text that names a key. Without keyboard cues a text is shown as it stands, marks and all.

/// \a text as it is spoken, with cues or without: "&Save" as "Save", "A && B" as "A & B".
QString WithoutMarks(const QString &text);

/// \a text as it is read and measured: with cues without its marks.
QString ShownText(const QString &text);

/// \a text with its end elided to \a width pixels, and the marks of the letters that are left: for DrawMarked() and for styles.
QString ElidedMarked(const QFontMetrics &metrics, const QString &text, int width);

/// Draws \a text as QPainter::drawText() does, its marked letters underlined as \a style has it for \a widget: always, or only when the
/// user reaches for Alt. A style of the second kind repaints its widgets by itself.
void DrawMarked(QPainter &painter, const QRect &rect, int flags, const QString &text, const QStyle *style, const QWidget *widget);

} // namespace Velmora
