#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

namespace Gallery {

/// Lets the cells of a table be edited in a line edit of the kit.
class CellDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CellDelegate(QObject *parent = nullptr);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    mutable QPersistentModelIndex m_edited;
};

} // namespace Gallery
