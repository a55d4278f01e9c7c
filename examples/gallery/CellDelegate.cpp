#include "CellDelegate.h"

#include "Kit.h"

#include <Velmora/QcLineEdit.h>

#include <QEvent>

namespace Gallery {

CellDelegate::CellDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
    // The view lets go of the field before it takes the focus from it, which in Qt 6 must not close the field once more.
    connect(this, &QAbstractItemDelegate::closeEditor, this,
            [this](QWidget *field) { static_cast<Field *>(field)->getLineEdit()->removeEventFilter(this); });
}

QWidget *CellDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/, const QModelIndex &index) const
{
    auto *field = new Field(parent);
    field->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    field->getLineEdit()->installEventFilter(const_cast<CellDelegate *>(this)); // which has the keyboard
    m_edited = index;
    return field;
}

void CellDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    m_edited = QModelIndex();
    QStyledItemDelegate::destroyEditor(editor, index);
}

void CellDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    static_cast<Field *>(editor)->setText(index.data(Qt::EditRole).toString());
}

void CellDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    model->setData(index, static_cast<Field *>(editor)->getText());
}

void CellDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex & /*index*/) const
{
    QRect place(0, 0, option.rect.width(), editor->height());
    place.moveCenter(option.rect.center());
    editor->setGeometry(place);
}

bool CellDelegate::eventFilter(QObject *watched, QEvent *event)
{
    auto *edit = qobject_cast<Velmora::QcLineEdit *>(watched);
    if (!edit && event->type() == QEvent::KeyPress && static_cast<Field *>(watched)->getLineEdit()->hasFocus())
        return false; // served where it came from
    return QStyledItemDelegate::eventFilter(edit ? edit->parent() : watched, event);
}

void CellDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (index == m_edited)
        option->text.clear(); // it would show through the field
}

} // namespace Gallery
