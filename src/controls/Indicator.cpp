#include "controls/Indicator_p.h"

#include "controls/ButtonState_p.h"

#include <Velmora/ImageParams.h>
#include <Velmora/QcStyleManager.h>

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace Velmora {

namespace {

const IndicatorColors &ColorsFor(const IndicatorTable &table, int flags)
{
    const auto *const look = std::find(ButtonState::kAll.begin(), ButtonState::kAll.end(), int(ButtonState::LookFor(flags)));
    return table.colors.at(std::size_t(look - ButtonState::kAll.begin()));
}

} // namespace

void PaintIndicator(QWidget &widget, const QRect &rect, const IndicatorTable &table, const QStyleOptionButton &option, bool isHovered)
{
    int flags = option.state & QStyle::State_Sunken;
    if (widget.isEnabled())
        flags |= QStyle::State_Enabled;
    if (isHovered)
        flags |= QStyle::State_MouseOver;
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
    const QImage image = QcStyleManager::GetInstance()->GetImage(params);
    if (image.isNull())
        return;
    QPainter painter(&widget);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect, image);
}

QStyleOptionButton LabelOption(const QWidget &widget, const QStyleOptionButton &option, const QRect &contents)
{
    QStyleOptionButton label = option;
    // The style mirrors the contents of a right-to-left widget; the end of the line is then at the left.
    QRect rect = QStyle::visualRect(option.direction, option.rect, contents);
    rect.setRight(widget.width());
    label.rect = QStyle::visualRect(option.direction, option.rect, rect);
    label.text = QFontMetrics(widget.font()).elidedText(option.text, Qt::ElideRight, label.rect.width());
    return label;
}

} // namespace Velmora
