#pragma once

#include <QObject>
#include <QStyle>

#include <array>
#include <functional>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QPainter;
class QPoint;
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

/// The press of a button that the mouse was dragged off: Qt no longer counts the button as down, while it looks pressed until the release,
/// wherever that happens.
///
/// To be owned by the button.
class OutsidePress : public QObject
{
    Q_OBJECT

public:
    /// Whether a place of the button is in the area that a press hits.
    using HitTest = std::function<bool(const QPoint &)>;

    OutsidePress(QAbstractButton &button, HitTest hits);

    bool IsHeld() const { return m_isHeld; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void SetHeld(bool isHeld);

    QAbstractButton &m_button;
    HitTest m_hits;
    bool m_isHeld = false;
};

/// Paints the indicator of \a button in the look that \a option and \a isHovered give: disabled before pressed, pressed before
/// hovered.
void PaintIndicator(QAbstractButton &button, const IndicatorParts &parts, const IndicatorTable &table, const QStyleOptionButton &option,
                    bool isHovered);

/// Paints the label of \a button: beside the indicator, up to the end of the widget, its text elided to that. In the font that
/// \a painter has, while the text is measured in that of the button.
void PaintLabel(QAbstractButton &button, const IndicatorParts &parts, const QStyleOptionButton &option, QPainter &painter);

} // namespace Velmora
