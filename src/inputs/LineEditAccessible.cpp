#include "inputs/LineEditAccessible_p.h"

#include <Velmora/QcArrowTip.h>
#include <Velmora/QcLineEdit.h>
#include <Velmora/QcLineEditFrame.h>

#include "core/InstallAccessible_p.h"

#include <QAccessibleWidget>
#include <QTextLayout>
#include <QValidator>

namespace Velmora {

namespace {

/// An editable line. Its text is what the screen shows, which for a password is not the password.
class LineEditAccessible : public QAccessibleWidget, public QAccessibleTextInterface, public QAccessibleEditableTextInterface
{
public:
    explicit LineEditAccessible(QcLineEdit *edit)
        : QAccessibleWidget(edit, QAccessible::EditableText)
    {
        addControllingSignal(QStringLiteral("textChanged(const QString&)"));
        addControllingSignal(QStringLiteral("returnPressed()"));
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface *>(this);
        if (type == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override
    {
        switch (kind) {
        case QAccessible::Name:
            return Name();
        case QAccessible::Description: {
            const QString warning = Warning();
            return warning.isEmpty() ? QAccessibleWidget::text(kind) : warning;
        }
        case QAccessible::Value:
            return edit()->displayText();
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    void setText(QAccessible::Text kind, const QString &text) override
    {
        if (kind != QAccessible::Value)
            QAccessibleWidget::setText(kind, text);
        else if (IsAcceptable(text))
            edit()->setText(text);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = true;
        state.selectableText = true;
        state.readOnly = edit()->isReadOnly();
        state.passwordEdit = edit()->echoMode() != QLineEdit::Normal;
        state.selected = edit()->hasSelectedText();
        state.hasPopup = edit()->contextMenuPolicy() != Qt::NoContextMenu && edit()->contextMenuPolicy() != Qt::PreventContextMenu;
        return state;
    }

    // --- Text ---

    int characterCount() const override { return edit()->displayText().size(); }
    QString text(int start, int end) const override { return edit()->displayText().mid(start, end - start); }
    int cursorPosition() const override { return edit()->cursorPosition(); }
    void setCursorPosition(int position) override { edit()->setCursorPosition(position); }
    void scrollToSubstring(int start, int end) override
    {
        edit()->setCursorPosition(end);
        edit()->setCursorPosition(start);
    }

    int selectionCount() const override { return edit()->hasSelectedText() ? 1 : 0; }
    void selection(int index, int *start, int *end) const override
    {
        const bool isSelected = index == 0 && edit()->hasSelectedText();
        *start = isSelected ? edit()->selectionStart() : 0;
        *end = isSelected ? edit()->selectionEnd() : 0;
    }
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int index) override
    {
        if (index == 0)
            edit()->deselect();
    }
    void setSelection(int index, int start, int end) override
    {
        if (index == 0)
            edit()->setSelection(start, end - start);
    }

    QRect characterRect(int offset) const override
    {
        const QString shown = edit()->displayText();
        if (offset < 0 || offset > shown.size())
            return QRect();
        // Laid out again, since Qt tells only where the caret is: the distance from it is the same on the screen.
        QTextLayout layout(shown, edit()->font());
        QTextOption option;
        option.setTextDirection(edit()->layoutDirection());
        layout.setTextOption(option);
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        const QRect caret = edit()->inputMethodQuery(Qt::ImCursorRectangle).toRect();
        const qreal origin = caret.center().x() - line.cursorToX(edit()->cursorPosition());
        const qreal one = line.cursorToX(offset);
        const qreal other = line.cursorToX(qMin(offset + 1, shown.size()));
        const QPoint topLeft(qRound(origin + qMin(one, other)), caret.top());
        return QRect(edit()->mapToGlobal(topLeft), QSize(qRound(qAbs(one - other)), caret.height()));
    }

    int offsetAtPoint(const QPoint &point) const override { return edit()->cursorPositionAt(edit()->mapFromGlobal(point)); }

    QString attributes(int /*offset*/, int *start, int *end) const override
    {
        *start = *end = 0; // none: the text is plain
        return QString();
    }

    // --- Editing ---

    void insertText(int offset, const QString &text) override { replaceText(offset, offset, text); }
    void deleteText(int start, int end) override { replaceText(start, end, QString()); }
    void replaceText(int start, int end, const QString &text) override
    {
        const QString old = edit()->text();
        start = qBound(0, start, old.size());
        end = qBound(start, end, old.size());
        setText(QAccessible::Value, old.left(start) + text + old.mid(end));
    }

private:
    QcLineEdit *edit() const { return static_cast<QcLineEdit *>(widget()); }
    QcLineEditFrame *Frame() const { return qobject_cast<QcLineEditFrame *>(edit()->parentWidget()); }

    /// The edit's own name or buddy, else those of its frame, else the placeholder.
    QString Name() const
    {
        QString name = QAccessibleWidget::text(QAccessible::Name);
        if (name.isEmpty() && Frame())
            name = QAccessible::queryAccessibleInterface(Frame())->text(QAccessible::Name);
        return name.isEmpty() ? edit()->placeholderText() : name;
    }

    /// The text of the frame's warning, if it is given.
    QString Warning() const
    {
        if (!Frame() || !Frame()->getWarning())
            return QString();
        auto *tip = Frame()->findChild<QcArrowTip *>(QString(), Qt::FindDirectChildrenOnly);
        return tip ? QAccessible::queryAccessibleInterface(tip)->text(QAccessible::Name) : QString();
    }

    bool IsAcceptable(QString text) const
    {
        if (edit()->isReadOnly())
            return false;
        int position = 0;
        const QValidator *validator = edit()->validator();
        return !validator || validator->validate(text, position) == QValidator::Acceptable;
    }
};

} // namespace

void InstallLineEditAccessibility()
{
    InstallAccessible<LineEditAccessible, QcLineEdit>();
    InstallAccessible<GroupAccessible, QcLineEditFrame>();
}

} // namespace Velmora
