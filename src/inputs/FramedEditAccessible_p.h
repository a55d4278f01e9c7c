#pragma once

#include <QAccessibleWidget>

namespace Velmora {

/// An edit inside a frame, which is all that a host sees and names. Its text is plain, with one selection.
class FramedEditAccessible : public QAccessibleWidget, public QAccessibleTextInterface, public QAccessibleEditableTextInterface
{
public:
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface *>(this);
        if (type == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    void addSelection(int start, int end) override { setSelection(0, start, end); }

    QString attributes(int /*offset*/, int *start, int *end) const override
    {
        *start = *end = 0; // none
        return QString();
    }

    void insertText(int offset, const QString &text) override { replaceText(offset, offset, text); }
    void deleteText(int start, int end) override { replaceText(start, end, QString()); }

protected:
    explicit FramedEditAccessible(QWidget *edit)
        : QAccessibleWidget(edit, QAccessible::EditableText)
    {
    }

    /// The frame, null for an edit outside of one.
    virtual QWidget *Frame() const = 0;

    /// The edit's own name (or buddy) or description, else that of its frame.
    QString OwnOrFrames(QAccessible::Text kind) const
    {
        const QString own = QAccessibleWidget::text(kind);
        return own.isEmpty() && Frame() ? QAccessible::queryAccessibleInterface(Frame())->text(kind) : own;
    }

    /// The name, for which \a placeholder stands in if there is none.
    QString NameOr(const QString &placeholder) const
    {
        const QString name = OwnOrFrames(QAccessible::Name);
        return name.isEmpty() ? placeholder : name;
    }
};

} // namespace Velmora
