#include "buttons/Indicator_p.h"

#include "buttons/ButtonState_p.h"
#include "core/ApplicationEvents_p.h"
#include "theme/Mnemonics_p.h"
#include "theme/ThemedPixmap_p.h"

#include <Velmora/ImageParams.h>

#include <QAbstractButton>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>

#include <algorithm>
#include <utility>

namespace Velmora {

namespace {

const IndicatorColors &ColorsFor(const IndicatorTable &table, int flags)
{
    const auto *const look = std::find(ButtonState::kAll.begin(), ButtonState::kAll.end(), int(ButtonState::LookFor(flags)));
    return table.colors.at(std::size_t(look - ButtonState::kAll.begin()));
}

} // namespace

OutsidePress::OutsidePress(QAbstractButton &button, HitTest hits)
    : m_button(button)
    , m_hits(std::move(hits))
{
    button.installEventFilter(this);
}

bool OutsidePress::eventFilter(QObject *watched, QEvent *event)
{
    const bool isMove = event->type() == QEvent::MouseMove && watched == &m_button;
    const bool isPress = event->type() == QEvent::MouseButtonPress;
    if (!isMove && !isPress && event->type() != QEvent::MouseButtonRelease)
        return false;
    const auto &mouse = static_cast<const QMouseEvent &>(*event);
    // Another press of the same button: of the release nobody heard.
    const bool isStillHeld = (mouse.buttons() & Qt::LeftButton) && !(isPress && mouse.button() == Qt::LeftButton);
    if (isMove)
        SetHeld(isStillHeld && (m_isHeld || m_button.isDown()) && !m_hits(mouse.pos()));
    else
        SetHeld(isStillHeld && m_isHeld);
    return false;
}

void OutsidePress::SetHeld(bool isHeld)
{
    if (isHeld == m_isHeld)
        return;
    m_isHeld = isHeld;
    if (isHeld)
        WatchApplicationEvents(this, {QEvent::MouseButtonPress, QEvent::MouseButtonRelease});
    else
        UnwatchApplicationEvents(this);
    m_button.update();
}

void PaintIndicator(QAbstractButton &button, const IndicatorParts &parts, const IndicatorTable &table, const QStyleOptionButton &option,
                    bool isHovered)
{
    int flags = int(option.state & QStyle::State_Sunken);
    if (button.isEnabled())
        flags |= QStyle::State_Enabled;
    if (isHovered)
        flags |= QStyle::State_MouseOver;
    const QRect rect = button.style()->subElementRect(parts.indicator, &option, &button);
    const IndicatorColors &colors = ColorsFor(table, flags);

    ImageParams params;
    params.path = QString::fromLatin1(table.image);
    params.size = rect.size();
    const auto substitute = [&params](const QString &placeholder, const char *code) {
        if (code)
            params.mulColor.insert(placeholder, ColorParams(code));
    };
    substitute(QStringLiteral("#FF0000"), colors.red);
    substitute(QStringLiteral("#00FF00"), colors.green);
    substitute(QStringLiteral("#0000FF"), colors.blue);
    QPainter painter(&button);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    DrawPixmap(painter, rect, PixmapFor(painter, params));
}

void PaintLabel(QAbstractButton &button, const IndicatorParts &parts, const QStyleOptionButton &option, QPainter &painter)
{
    QStyleOptionButton label = option;
    const QRect contents = button.style()->subElementRect(parts.contents, &option, &button);
    // The style mirrors the contents of a right-to-left widget; the end of the line is then at the left.
    QRect rect = QStyle::visualRect(option.direction, option.rect, contents);
    rect.setRight(button.width());
    label.rect = QStyle::visualRect(option.direction, option.rect, rect);
    label.text = ElidedMarked(QFontMetrics(button.font()), option.text, label.rect.width());
    button.style()->drawControl(parts.label, &label, &painter, &button);
}

} // namespace Velmora
