#pragma once

#include <QStyle>

#include <array>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QMouseEvent;
class QPainter;
class QStyleOptionButton;
QT_END_NAMESPACE

namespace Velmora {

/// What the placeholder colours of an indicator's image stand for in one state. A null leaves its placeholder alone.
struct IndicatorColors
{
    const char *red;
    const char *green;
    const char *blue;
};

/// An indicator's image and its colours while disabled, normal, hovered and pressed: the unchecked four of the eight looks.
struct IndicatorTable
{
    const char *image;
    std::array<IndicatorColors, 4> colors;
};

/// The style's names for the parts of a button with an indicator.
struct IndicatorParts
{
    QStyle::SubElement indicator;
    QStyle::SubElement contents;
    QStyle::ControlElement label;
};

/// To be told of each mouse move of \a button before Qt handles it: notes whether the press is dragged off the area that it hit.
void FollowPress(QAbstractButton &button, const QMouseEvent &move, bool isInHitArea);

/// Makes \a option sunken while the mouse holds \a button, also where the cursor was dragged off and Qt no longer counts it
/// as down: the pressed look lasts until the release.
void KeepPressed(QAbstractButton &button, QStyleOptionButton &option);

/// Paints the indicator of \a button in the look that \a option and \a isHovered give: disabled before pressed, pressed before
/// hovered.
void PaintIndicator(QAbstractButton &button, const IndicatorParts &parts, const IndicatorTable &table, const QStyleOptionButton &option,
                    bool isHovered);

/// Paints the label of \a button: beside the indicator, up to the end of the widget, its text elided to that. In the font that
/// \a painter has, while the text is measured in that of the button.
void PaintLabel(QAbstractButton &button, const IndicatorParts &parts, const QStyleOptionButton &option, QPainter &painter);

} // namespace Velmora
