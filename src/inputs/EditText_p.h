#pragma once

#include <QAccessible>

namespace Velmora {

/// How assistive technology reads and edits a plain text with one selection.
class EditText : public QAccessibleTextInterface, public QAccessibleEditableTextInterface
{
public:
    void addSelection(int start, int end) override { setSelection(0, start, end); }

    QString attributes(int /*offset*/, int *start, int *end) const override
    {
        *start = *end = 0; // none
        return QString();
    }

    void insertText(int offset, const QString &text) override { replaceText(offset, offset, text); }
    void deleteText(int start, int end) override { replaceText(start, end, QString()); }

protected:
    /// Its two interfaces by their type; null for any other.
    void *TextInterface(QAccessible::InterfaceType type)
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface *>(this);
        return type == QAccessible::EditableTextInterface ? static_cast<QAccessibleEditableTextInterface *>(this) : nullptr;
    }
};

} // namespace Velmora
