#pragma once

#include <QPointer>
#include <QSize>
#include <QStyledItemDelegate>

namespace Velmora {

class QcSelector;

/// Paints the rows in a selector's popup: the tick of the current one, icon and text.
class QcSelectorViewItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit QcSelectorViewItemDelegate(QcSelector *selector);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    void PaintTick(QPainter &painter, const QRect &place) const;

    QPointer<QcSelector> m_selector;
    int m_leftMargin = 4;
    int m_rightMargin = 8;
    QSize m_iconSize{24, 24};
};

} // namespace Velmora
