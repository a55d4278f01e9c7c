#include "inputs/QcSelectorViewItemDelegate_p.h"

#include <Velmora/ImageParams.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcStyleManager.h>

#include "display/OneLine_p.h"
#include "theme/ThemedPixmap_p.h"
#include "theme/TokenPainting_p.h"

#include <QPainter>
#include <QStyle>

namespace Velmora {

namespace {

constexpr int kRowHeight = 28;
constexpr int kTextPixels = 12;

/// As QComboBox::itemIcon() reads it.
QIcon IconOf(const QModelIndex &index)
{
    const QVariant decoration = index.data(Qt::DecorationRole);
    return decoration.userType() == QMetaType::QPixmap ? QIcon(decoration.value<QPixmap>()) : decoration.value<QIcon>();
}

} // namespace

QcSelectorViewItemDelegate::QcSelectorViewItemDelegate(QcSelector *selector)
    : QStyledItemDelegate(selector)
    , m_selector(selector)
{
}

QSize QcSelectorViewItemDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(kRowHeight);
    return size;
}

void QcSelectorViewItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (!m_selector) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    painter->save();
    if (option.state & QStyle::State_MouseOver)
        painter->fillRect(option.rect, TokenColor(QStringLiteral("bg/bg_transluent_subtle_hover")));

    const auto mirrored = [&option](const QRect &place) { return QStyle::visualRect(option.direction, option.rect, place); };
    const int iconTop = option.rect.top() + (option.rect.height() - m_iconSize.height()) / 2;
    int textOffset = m_leftMargin + m_iconSize.width();
    if (index.row() == m_selector->currentIndex())
        PaintTick(*painter, mirrored(QRect(QPoint(m_leftMargin, iconTop), m_iconSize)));
    const QIcon icon = IconOf(index);
    if (!icon.isNull())
        icon.paint(painter, mirrored(QRect(QPoint(textOffset, iconTop), m_iconSize)), Qt::AlignCenter, QIcon::Normal, QIcon::Off);

    if (m_selector->hasItemsWithIcons())
        textOffset += m_iconSize.width();
    const QRect textPlace = option.rect.adjusted(textOffset, 0, -m_rightMargin, 0);
    QFont font = QcStyleManager::GetDefaultFont();
    font.setPixelSize(kTextPixels);
    painter->setFont(font);
    painter->setPen(TokenColor(QStringLiteral("text/text_primary")));
    const QString text = index.data(Qt::DisplayRole).toString();
    painter->setLayoutDirection(option.direction); // else it has that of the application
    painter->drawText(mirrored(textPlace), Qt::AlignLeft | Qt::AlignVCenter, ElidedLine(painter->fontMetrics(), text, textPlace.width()));
    painter->restore();
}

void QcSelectorViewItemDelegate::PaintTick(QPainter &painter, const QRect &place) const
{
    ImageParams tick;
    tick.path = QStringLiteral(":/images/select.svg");
    tick.size = m_iconSize;
    tick.color = QStringLiteral("text/text_primary");
    DrawPixmap(painter, place, PixmapFor(painter, tick));
}

} // namespace Velmora
