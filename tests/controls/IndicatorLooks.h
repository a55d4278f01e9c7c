#pragma once

#include "controls/ButtonLooks.h"
#include "support/Pixels.h"
#include "support/Tokens.h"

#include <QAbstractButton>
#include <QCursor>

namespace VelmoraTest {

/// Four times the images' own size, so that each of their shapes covers whole pixels. For the stylesheet of the window.
constexpr char kLargeIndicators[] = "QCheckBox::indicator, QRadioButton::indicator { width: 56px; height: 56px; }";
/// A button that shows such an indicator at (0, 2).
constexpr QRect kIndicatorButton(10, 10, 120, 60);

/// The point of a large indicator that lies at \a x, \a y of its image of 14 by 14.
inline QPointF AtImage(double x, double y)
{
    return QPointF(4 * x, 2 + 4 * y);
}

/// What a user does to see a row of the tables, and the row.
struct IndicatorRow
{
    const char *name;
    Qt::CheckState check;
    int look; ///< index into kLooks: disabled, normal, hover, pressed
    const char *fill;
    const char *line;
    const char *inner; ///< null where the image has no third colour
};

inline QColor Painted(Table table, const char *code, const QColor &below)
{
    const QString text = QString::fromLatin1(code);
    return Over(text.contains(QLatin1Char('/')) ? TokenOf(table, text) : QColor(text), below);
}

inline void MoveCursorToIndicator(const QWidget &button)
{
    QCursor::setPos(button.mapToGlobal(AtImage(7, 7).toPoint()));
    DrainEvents();
}

inline void BringIndicatorTo(QAbstractButton &button, const Look &look)
{
    button.setEnabled(look.isEnabled);
    MoveCursorAway();
    if (look.isHovered)
        MoveCursorToIndicator(button);
    button.setDown(look.isPressed);
}

} // namespace VelmoraTest
