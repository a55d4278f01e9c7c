#pragma once

#include <QRect>
#include <QString>
#include <QStyle>
#include <QStyleOptionButton>

#include <array>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QWidget;
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

/// Paints the indicator into \a rect of \a widget, in the look that \a option and \a isHovered give: disabled before pressed,
/// pressed before hovered.
void PaintIndicator(QWidget &widget, const QRect &rect, const IndicatorTable &table, const QStyleOptionButton &option, bool isHovered);

/// \a option for the label alone: in \a contents, stretched to the end of \a widget, its text elided to that.
QStyleOptionButton LabelOption(const QWidget &widget, const QStyleOptionButton &option, const QRect &contents);

} // namespace Velmora
