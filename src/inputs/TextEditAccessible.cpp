#include "inputs/TextEditAccessible_p.h"

#include <Velmora/QcTextEditFrame.h>
#include <Velmora/QcTextEditLimiter.h>

#include "core/InstallAccessible_p.h"
#include "display/TextPieces_p.h"
#include "inputs/EditText_p.h"
#include "inputs/FramedEditAccessible_p.h"
#include "inputs/TextEdit_p.h"

#include <QTextCursor>

namespace Velmora {

namespace {

/// An editable text of many lines. Lines are those of the screen.
class TextEditAccessible : public FramedEditAccessible, public EditText
{
public:
    explicit TextEditAccessible(TextEdit *edit)
        : FramedEditAccessible(edit)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        void *text = TextInterface(type);
        return text ? text : QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override
    {
        switch (kind) {
        case QAccessible::Name:
            return NameOr(Edit()->placeholderText());
        case QAccessible::Description:
            return OwnOrFrames(kind);
        case QAccessible::Value:
            return Edit()->toPlainText();
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    void setText(QAccessible::Text kind, const QString &text) override
    {
        if (kind == QAccessible::Value)
            replaceText(0, characterCount(), text);
        else
            QAccessibleWidget::setText(kind, text);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = true;
        state.multiLine = true;
        state.selectableText = true;
        state.readOnly = Edit()->isReadOnly();
        return state;
    }

    // --- Text ---

    int characterCount() const override { return Pieces().Length(); }
    QString text(int start, int end) const override { return Pieces().Text(start, end); }
    int cursorPosition() const override { return Edit()->textCursor().position(); }
    void setCursorPosition(int position) override { setSelection(0, position, position); }
    void scrollToSubstring(int start, int end) override
    {
        setCursorPosition(end);
        setCursorPosition(start);
    }

    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override
    {
        return Pieces().Before(offset, type, start, end);
    }
    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override
    {
        return Pieces().At(offset, type, start, end);
    }
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override
    {
        return Pieces().After(offset, type, start, end);
    }

    int selectionCount() const override { return Edit()->textCursor().hasSelection() ? 1 : 0; }
    void selection(int index, int *start, int *end) const override
    {
        const QTextCursor cursor = Edit()->textCursor();
        const bool isSelected = index == 0 && cursor.hasSelection();
        *start = isSelected ? cursor.selectionStart() : 0;
        *end = isSelected ? cursor.selectionEnd() : 0;
    }
    void removeSelection(int index) override
    {
        if (index == 0)
            setCursorPosition(cursorPosition());
    }
    void setSelection(int index, int start, int end) override
    {
        if (index == 0)
            Edit()->setTextCursor(Selecting(start, end));
    }

    QRect characterRect(int offset) const override
    {
        if (offset < 0 || offset > characterCount())
            return QRect();
        const QRect one = Edit()->cursorRect(Selecting(offset, offset));
        const QRect other = Edit()->cursorRect(Selecting(offset, offset + 1));
        const bool isInLine = one.top() == other.top(); // a line's last character ends nowhere in it
        const QPoint topLeft(isInLine ? qMin(one.left(), other.left()) : one.left(), one.top());
        const QSize size(isInLine ? qAbs(one.left() - other.left()) : 0, one.height());
        return QRect(Edit()->viewport()->mapToGlobal(topLeft), size);
    }

    int offsetAtPoint(const QPoint &point) const override
    {
        return Edit()->cursorForPosition(Edit()->viewport()->mapFromGlobal(point)).position();
    }

    // --- Editing ---

    void replaceText(int start, int end, const QString &text) override
    {
        if (!Edit()->isReadOnly())
            Selecting(start, end).insertText(text);
    }

private:
    TextEdit *Edit() const { return static_cast<TextEdit *>(widget()); }
    QWidget *Frame() const override { return Edit()->Frame(); }
    TextPieces Pieces() const { return TextPieces(Edit()->document()); }
    QTextCursor Selecting(int start, int end) const { return Pieces().Selecting(start, end); }
};

} // namespace

void InstallTextEditAccessibility()
{
    InstallAccessible<TextEditAccessible, TextEdit>();
    InstallAccessible<GroupAccessible, QcTextEditFrame>();
    InstallAccessible<GroupAccessible, QcTextEditLimiter>();
}

} // namespace Velmora
