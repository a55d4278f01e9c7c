#include <Velmora/QcCheckBox.h>
#include <Velmora/QcStyleManager.h>

#include "buttons/ButtonAccessible_p.h"
#include "buttons/Indicator_p.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

namespace Velmora {

namespace {

constexpr IndicatorParts kParts = {QStyle::SE_CheckBoxIndicator, QStyle::SE_CheckBoxContents, QStyle::CE_CheckBoxLabel};

// Red is the fill, green the outline or the tick, blue the inner square.
constexpr IndicatorTable kChecked = {
    ":/images/checkbox/checkbox_checked.svg",
    {{
        {"brand/brand_disable", "#FFFFFF", nullptr},
        {"brand/brand", "#FFFFFF", nullptr},
        {"brand/brand_hover", "#FFFFFF", nullptr},
        {"brand/brand_press", "#FFFFFF", nullptr},
    }},
};

constexpr IndicatorTable kUnchecked = {
    ":/images/checkbox/checkbox_unchecked.svg",
    {{
        {"transparent", "border/border_secondary_disabled", nullptr},
        {"transparent", "border/border_primary", nullptr},
        {"brand/brand_bg", "brand/brand_hover", nullptr},
        {"brand/brand_bg", "brand/brand_press", nullptr},
    }},
};

constexpr IndicatorTable kPartiallyChecked = {
    ":/images/checkbox/checkbox_half_checked.svg",
    {{
        {"transparent", "border/border_secondary_disabled", "brand/brand_disable"},
        {"transparent", "border/border_primary", "brand/brand"},
        {"brand/brand_bg", "brand/brand_hover", "brand/brand"},
        {"brand/brand_bg", "brand/brand_press", "brand/brand"},
    }},
};

const IndicatorTable &TableFor(Qt::CheckState state)
{
    switch (state) {
    case Qt::Checked:
        return kChecked;
    case Qt::PartiallyChecked:
        return kPartiallyChecked;
    case Qt::Unchecked:
        break;
    }
    return kUnchecked;
}

} // namespace

QcCheckBox::QcCheckBox(QWidget *parent)
    : QCheckBox(parent)
    , m_outsidePress(std::make_unique<OutsidePress>(*this, [this](const QPoint &place) { return hitButton(place); }))
{
    InstallButtonAccessibility();
    setAttribute(Qt::WA_MouseTracking);
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/CheckBox.qss"));
}

QcCheckBox::~QcCheckBox() = default;

void QcCheckBox::paintEvent(QPaintEvent * /*event*/)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    if (m_outsidePress->IsHeld())
        option.state |= QStyle::State_Sunken;
    DrawIndicator(option);
    DrawText(option);
}

void QcCheckBox::DrawIndicator(const QStyleOptionButton &option)
{
    const QPoint cursor = mapFromGlobal(QCursor::pos());
    // Qt lays the text out to tell where a press counts: not asked for the many that the cursor is far from.
    const bool isHovered = rect().contains(cursor) && hitButton(cursor);
    PaintIndicator(*this, kParts, TableFor(checkState()), option, isHovered);
}

void QcCheckBox::DrawText(const QStyleOptionButton &option)
{
    QPainter painter(this);
    PaintLabel(*this, kParts, option, painter);
}

// The look depends on where in the widget the cursor is.

void QcCheckBox::enterEvent(EnterEvent *event)
{
    update();
    QCheckBox::enterEvent(event);
}

void QcCheckBox::leaveEvent(QEvent *event)
{
    update();
    QCheckBox::leaveEvent(event);
}

void QcCheckBox::mouseMoveEvent(QMouseEvent *event)
{
    update();
    QCheckBox::mouseMoveEvent(event);
}

} // namespace Velmora
