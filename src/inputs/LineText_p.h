#pragma once

#include "inputs/EditText_p.h"

#include <memory>

QT_BEGIN_NAMESPACE
class QLineEdit;
class QTextDocument;
QT_END_NAMESPACE

namespace Velmora {

/// The text of a line edit for assistive technology. It is what the screen shows; a password is never read, not even where the screen
/// shows it for as long as somebody types.
class LineText : public EditText
{
public:
    int characterCount() const override;
    QString text(int start, int end) const override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    void scrollToSubstring(int start, int end) override;

    // Qt's own search for the end of a piece never ends where the text ends with one, as at a caret behind a word.
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override;

    int selectionCount() const override;
    void selection(int index, int *start, int *end) const override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;

    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &point) const override;

    void replaceText(int start, int end, const QString &text) override;

protected:
    virtual QLineEdit *Edit() const = 0;

    QString ReadableText() const;
    /// Unless a user could not have made it \a text.
    void SetWholeText(const QString &text);

private:
    std::unique_ptr<QTextDocument> Document() const;
    int PlaceOf(int offset) const;
    bool IsAcceptable(QString text) const;
};

} // namespace Velmora
