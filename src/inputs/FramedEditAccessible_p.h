#pragma once

#include <QAccessibleWidget>

namespace Velmora {

/// An edit inside a frame, which is all that a host sees and names.
class FramedEditAccessible : public QAccessibleWidget
{
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
