#include "buttons/Indicator_p.h"

#include "buttons/ButtonState_p.h"
#include "theme/ThemedPixmap_p.h"

#include <Velmora/ImageParams.h>

#include <QAbstractButton>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QVariant>

#include <algorithm>

namespace Velmora {

namespace {

/// The property of a button whose press was dragged off it.
constexpr char kDraggedOff[] = "_velmora_draggedOff";

const IndicatorColors &ColorsFor(const IndicatorTable &table, int flags)
{
    const auto *const look = std::find(ButtonState::kAll.begin(), ButtonState::kAll.end(), int(ButtonState::LookFor(flags)));
    return table.colors.at(std::size_t(look - ButtonState::kAll.begin()));
}

} // namespace

void FollowPress(QAbstractButton &button, const QMouseEvent &move, bool isInHitArea)
{
    const bool wasHeld = button.isDown() || button.property(kDraggedOff).toBool();
    const bool isDraggedOff = wasHeld && !isInHitArea && (move.buttons() & Qt::LeftButton);
    button.setProperty(kDraggedOff, isDraggedOff ? QVariant(true) : QVariant());
}

void KeepPressed(QAbstractButton &button, QStyleOptionButton &option)
{
    if (!button.property(kDraggedOff).toBool())
        return;
    if (QGuiApplication::mouseButtons() & Qt::LeftButton)
        option.state |= QStyle::State_Sunken;
    else
        button.setProperty(kDraggedOff, QVariant()); // released somewhere else, for which Qt repaints the button
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
    label.text = QFontMetrics(button.font()).elidedText(option.text, Qt::ElideRight, label.rect.width());
    button.style()->drawControl(parts.label, &label, &painter, &button);
}

} // namespace Velmora
