#include <Velmora/QCSlider.h>

#include "theme/FocusShape_p.h"
#include "theme/ThemedPixmap_p.h"
#include "theme/TokenPainting_p.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionSlider>

#include <limits>

namespace Velmora {

namespace {

constexpr int kGrooveMargin = 5;
constexpr int kGrooveThickness = 4;
constexpr double kGrooveRadius = 2.0;

struct HandleLook
{
    int state;
    int size;
    const char *disc;
    const char *ring;
};

constexpr HandleLook kHandles[] = {
    {QStyle::State_None, 10, "brand/brand_disable", "border/border_disable"},
    {QStyle::State_Enabled, 10, "brand/brand", "border/border_normal"},
    {QStyle::State_MouseOver, 12, "brand/brand_hover", "border/border_normal"},
    {QStyle::State_Sunken, 12, "brand/brand_press", "border/border_normal"},
};

QHash<int, ImageParams> HandleImages()
{
    QHash<int, ImageParams> images;
    for (const HandleLook &look : kHandles) {
        ImageParams image;
        image.path = QStringLiteral(":/images/slider/slider_handle.svg");
        image.size = QSize(look.size, look.size);
        image.mulColor.insert(QStringLiteral("#005CD1"), ColorParams(look.disc));
        image.mulColor.insert(QStringLiteral("#FFFFFF"), ColorParams(look.ring));
        images.insert(look.state, image);
    }
    return images;
}

/// Makes of a range wider than an int one that the style can divide by, and whose places are the same.
void NarrowRange(QStyleOptionSlider &option)
{
    if (double(option.maximum) - option.minimum <= std::numeric_limits<int>::max())
        return;
    option.minimum /= 2;
    option.maximum /= 2;
    option.sliderPosition /= 2;
    option.sliderValue /= 2;
}

/// A rectangle of nothing, as in a slider smaller than its margins, paints nothing.
void FillBar(QPainter &painter, const QRect &rect, const QString &code)
{
    if (!rect.isEmpty())
        FillRounded(painter, rect, kGrooveRadius, code);
}

} // namespace

QCSlider::QCSlider(QWidget *parent)
    : QCSlider(Qt::Horizontal, parent)
{
}

QCSlider::QCSlider(Qt::Orientation orientation, QWidget *parent)
    : QSlider(orientation, parent)
{
    InstallFocusShape<QCSlider>([](const QCSlider &slider) {
        return FocusShape{slider.rect(), qMin(slider.width(), slider.height()) / 2};
    });
    initColorParams();
}

void QCSlider::initColorParams()
{
    // Made once and shared.
    static const QHash<int, QString> groove = {{QStyle::State_None, QStringLiteral("border/border_secondary_disabled")},
                                               {QStyle::State_Enabled, QStringLiteral("border/border_secondary")}};
    static const QHash<int, QString> active = {{QStyle::State_None, QStringLiteral("brand/brand_disable")},
                                               {QStyle::State_Enabled, QStringLiteral("brand/brand")}};
    static const QHash<int, ImageParams> handles = HandleImages();
    m_grooveColorParams = groove;
    m_activeColorParams = active;
    m_handleImageParams = handles;
}

void QCSlider::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int bar = int(m_state & QStyle::State_Enabled);
    int handle = bar;
    if (bar && (m_state & QStyle::State_Sunken))
        handle = QStyle::State_Sunken;
    else if (bar && (m_state & QStyle::State_MouseOver))
        handle = QStyle::State_MouseOver;
    QRect rect;
    drawGrooveRect(rect, painter, m_grooveColorParams.value(bar));
    drawActiveRect(rect, painter, m_activeColorParams.value(bar));
    drawHandle(painter, m_handleImageParams.value(handle));
}

void QCSlider::drawGrooveRect(QRect &rect, QPainter &painter, const QString &code)
{
    const int thickness = kGrooveThickness;
    if (orientation() == Qt::Horizontal)
        rect.setRect(kGrooveMargin, height() / 2 - thickness / 2, width() - 2 * kGrooveMargin, thickness);
    else
        rect.setRect(width() / 2 - thickness / 2, kGrooveMargin, thickness, height() - 2 * kGrooveMargin);
    FillBar(painter, rect, code);
}

void QCSlider::drawActiveRect(QRect &rect, QPainter &painter, const QString &code)
{
    if (orientation() == Qt::Vertical) {
        rect.setTop(int(rect.bottom() - rect.height() * FilledPart()));
    } else {
        const int length = int(rect.width() * FilledPart());
        if (IsMirrored())
            rect.setLeft(rect.right() + 1 - length);
        else
            rect.setWidth(length);
    }
    FillBar(painter, rect, code);
}

void QCSlider::drawHandle(QPainter &painter, const ImageParams &params)
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    NarrowRange(option);
    QRect rect = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    if (orientation() == Qt::Horizontal) {
        rect.setY(height() / 2 - params.size.height() / 2);
        if (IsMirrored())
            rect.setX(rect.right() + 1 - params.size.width());
    } else {
        rect.setX(width() / 2 - params.size.width() / 2);
    }
    rect.setSize(params.size);
    DrawPixmap(painter, rect, PixmapFor(painter, params));
}

/// Upright all the same: a vertical slider has no reading direction.
bool QCSlider::IsMirrored() const
{
    return orientation() == Qt::Horizontal && isRightToLeft();
}

/// From 0 to 1. A range of one value is filled nowhere.
double QCSlider::FilledPart() const
{
    const double span = double(maximum()) - minimum(); // may be more than an int holds
    return span > 0 ? (double(value()) - minimum()) / span : 0.0;
}

void QCSlider::SetState(QStyle::State flags, bool isOn)
{
    m_state = isOn ? m_state | flags : m_state & ~flags;
    update();
}

void QCSlider::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        SetState(QStyle::State_Enabled, isEnabled());
    QSlider::changeEvent(event);
}

void QCSlider::enterEvent(EnterEvent *event)
{
    SetState(QStyle::State_MouseOver, true);
    QSlider::enterEvent(event);
}

void QCSlider::leaveEvent(QEvent *event)
{
    SetState(QStyle::State_MouseOver, false);
    QSlider::leaveEvent(event);
}

void QCSlider::mousePressEvent(QMouseEvent *event)
{
    SetState(QStyle::State_Sunken, true);
    QSlider::mousePressEvent(event);
}

void QCSlider::mouseReleaseEvent(QMouseEvent *event)
{
    SetState(QStyle::State_Sunken, false);
    QSlider::mouseReleaseEvent(event);
}

/// Neither a leave nor a release comes to a hidden widget.
void QCSlider::hideEvent(QHideEvent *event)
{
    SetState(QStyle::State_MouseOver | QStyle::State_Sunken, false);
    QSlider::hideEvent(event);
}

} // namespace Velmora
