#include <Velmora/QcRadioButton.h>

#include "buttons/ButtonAccessible_p.h"
#include "buttons/Indicator_p.h"
#include "theme/TokenPainting_p.h"

#include <QCursor>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QStyleOptionButton>

namespace Velmora {

namespace {

constexpr IndicatorParts kParts = {QStyle::SE_RadioButtonIndicator, QStyle::SE_RadioButtonContents, QStyle::CE_RadioButtonLabel};

constexpr int kFontPixels = 12;

// Red is the disc, green the ring around it, blue the dot.
constexpr IndicatorTable kUnchecked = {
    ":/images/radio/radio_uncheck.svg",
    {{
        {"transparent", "border/border_secondary_disabled", nullptr},
        {"transparent", "border/border_primary", nullptr},
        {"brand/brand_secondary_hover", "border/border_primary", nullptr},
        {"brand/brand_secondary_press", "border/border_primary", nullptr},
    }},
};

constexpr IndicatorTable kChecked = {
    ":/images/radio/radio_check.svg",
    {{
        {"transparent", "border/border_secondary_disabled", "brand/brand_disable"},
        {"transparent", "border/border_primary", "brand/brand"},
        {"brand/brand_secondary_hover", "border/border_primary", "brand/brand"},
        {"brand/brand_secondary_press", "border/border_primary", "brand/brand"},
    }},
};

/// Made from the surface, it has a text that stands out from it, in the same colour while disabled. Kept for the next of the same
/// surface, since Qt derives a dozen colours.
const QPalette &PaletteOn(const QColor &surface)
{
    static QColor color;
    static QPalette palette;
    if (color != surface) {
        color = surface;
        palette = QPalette(surface);
    }
    return palette;
}

} // namespace

QcRadioButton::QcRadioButton(QWidget *parent)
    : QRadioButton(parent)
    , m_outsidePress(std::make_unique<OutsidePress>(*this, [this](const QPoint &place) { return hitButton(place); }))
{
    InstallButtonAccessibility();
    setAttribute(Qt::WA_MouseTracking);
}

QcRadioButton::~QcRadioButton()
{
    setTriggerWidget(nullptr);
}

void QcRadioButton::setTriggerWidget(QWidget *trigger)
{
    if (m_triggerWidget)
        m_triggerWidget->removeEventFilter(this);
    m_triggerWidget = trigger;
    if (m_triggerWidget)
        m_triggerWidget->installEventFilter(this);
}

bool QcRadioButton::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_triggerWidget && event->type() == QEvent::MouseButtonRelease) {
        click();
        return true; // and nothing more: a receiver of the click may have deleted the button
    }
    return QRadioButton::eventFilter(watched, event);
}

void QcRadioButton::paintEvent(QPaintEvent * /*event*/)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    if (m_outsidePress->IsHeld())
        option.state |= QStyle::State_Sunken;
    DrawIndicator(option);
    DrawText(option);
}

void QcRadioButton::DrawIndicator(const QStyleOptionButton &option)
{
    const QPoint cursor = mapFromGlobal(QCursor::pos());
    // Qt lays the text out to tell where a press counts: not asked for the many that the cursor is far from.
    const bool isHovered = rect().contains(cursor) && hitButton(cursor);
    PaintIndicator(*this, kParts, isChecked() ? kChecked : kUnchecked, option, isHovered);
}

void QcRadioButton::DrawText(const QStyleOptionButton &option)
{
    QStyleOptionButton label = option;
    label.palette = PaletteOn(TokenColor(QStringLiteral("bg/bg_secondary")));
    QFont font(QStringLiteral("Open Sans"));
    font.setPixelSize(kFontPixels);
    QPainter painter(this);
    painter.setFont(font);
    PaintLabel(*this, kParts, label, painter);
}

// The look depends on where in the widget the cursor is.

void QcRadioButton::enterEvent(EnterEvent *event)
{
    update();
    QRadioButton::enterEvent(event);
}

void QcRadioButton::leaveEvent(QEvent *event)
{
    update();
    QRadioButton::leaveEvent(event);
}

void QcRadioButton::mouseMoveEvent(QMouseEvent *event)
{
    update();
    QRadioButton::mouseMoveEvent(event);
}

} // namespace Velmora
