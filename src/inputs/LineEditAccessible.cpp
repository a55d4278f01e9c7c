#include "inputs/LineEditAccessible_p.h"

#include <Velmora/QcArrowTip.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcLineEdit.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcSelector.h>

#include "core/InstallAccessible_p.h"
#include "display/TextPieces_p.h"
#include "inputs/FramedEditAccessible_p.h"

#include <QPointer>
#include <QTextDocument>
#include <QTextLayout>
#include <QValidator>

#include <memory>

namespace Velmora {

namespace {

/// An editable line. Its text is what the screen shows; a password is never read, not even where the screen shows it for as long
/// as somebody types.
class LineEditAccessible : public FramedEditAccessible
{
public:
    explicit LineEditAccessible(QLineEdit *edit)
        : FramedEditAccessible(edit)
    {
        addControllingSignal(QStringLiteral("textChanged(const QString&)"));
        addControllingSignal(QStringLiteral("returnPressed()"));
    }

    QString text(QAccessible::Text kind) const override
    {
        switch (kind) {
        case QAccessible::Name:
            return NameOr(Edit()->placeholderText());
        case QAccessible::Description:
            return Description();
        case QAccessible::Value:
            return ReadableText();
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    void setText(QAccessible::Text kind, const QString &text) override
    {
        if (kind != QAccessible::Value) {
            QAccessibleWidget::setText(kind, text);
            return;
        }
        const QPointer<QLineEdit> edit = Edit(); // a validator of the host may delete it, and this with it
        if (IsAcceptable(text) && edit)
            edit->setText(text);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = true;
        state.selectableText = true;
        state.readOnly = Edit()->isReadOnly();
        state.passwordEdit = Edit()->echoMode() != QLineEdit::Normal;
        state.selected = Edit()->hasSelectedText();
        state.hasPopup = Edit()->contextMenuPolicy() != Qt::NoContextMenu && Edit()->contextMenuPolicy() != Qt::PreventContextMenu;
        return state;
    }

    // --- Text ---

    int characterCount() const override { return int(ReadableText().size()); }
    QString text(int start, int end) const override
    {
        const QString text = ReadableText();
        Bound(start, end, text);
        return text.mid(start, end - start);
    }
    int cursorPosition() const override { return Edit()->cursorPosition(); }
    void setCursorPosition(int position) override { Edit()->setCursorPosition(position); }
    void scrollToSubstring(int start, int end) override
    {
        Edit()->setCursorPosition(end);
        Edit()->repaint(); // which scrolls to the caret
        Edit()->setCursorPosition(start);
    }

    // Qt's own search for the end of a piece never ends where the text ends with one, as at a caret behind a word.
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override
    {
        return TextPieces(Document().get()).Before(PlaceOf(offset), type, start, end);
    }
    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override
    {
        return TextPieces(Document().get()).At(PlaceOf(offset), type, start, end);
    }
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override
    {
        return TextPieces(Document().get()).After(PlaceOf(offset), type, start, end);
    }

    int selectionCount() const override { return Edit()->hasSelectedText() ? 1 : 0; }
    void selection(int index, int *start, int *end) const override
    {
        const bool isSelected = index == 0 && Edit()->hasSelectedText();
        *start = isSelected ? Edit()->selectionStart() : 0;
        *end = isSelected ? Edit()->selectionEnd() : 0;
    }
    void removeSelection(int index) override
    {
        if (index == 0)
            Edit()->deselect();
    }
    void setSelection(int index, int start, int end) override
    {
        if (index != 0)
            return;
        Bound(start, end, Edit()->text());
        Edit()->setSelection(start, end - start);
    }

    QRect characterRect(int offset) const override
    {
        const QString shown = Edit()->displayText();
        if (offset < 0 || offset > shown.size())
            return QRect();
        // Laid out again, since Qt tells only where the caret is: the distance from it is the same on the screen.
        QTextLayout layout(shown, Edit()->font());
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        const QRect caret = Edit()->inputMethodQuery(Qt::ImCursorRectangle).toRect();
        const qreal origin = caret.center().x() - line.cursorToX(Edit()->cursorPosition());
        // Each edge rounded by itself, so that neighbours meet.
        const int one = qRound(origin + line.cursorToX(offset));
        const int other = qRound(origin + line.cursorToX(int(qMin(offset + 1, shown.size()))));
        const QPoint topLeft(qMin(one, other), caret.top());
        return QRect(Edit()->mapToGlobal(topLeft), QSize(qAbs(one - other), caret.height()));
    }

    int offsetAtPoint(const QPoint &point) const override { return Edit()->cursorPositionAt(Edit()->mapFromGlobal(point)); }

    // --- Editing ---

    void replaceText(int start, int end, const QString &text) override
    {
        const QString old = Edit()->text();
        Bound(start, end, old);
        setText(QAccessible::Value, old.left(start) + text + old.mid(end));
    }

private:
    QLineEdit *Edit() const { return static_cast<QLineEdit *>(widget()); }
    QWidget *Frame() const override
    {
        return qobject_cast<QcSelector *>(Edit()->parentWidget()) ? Edit()->parentWidget() : LineEditFrame();
    }
    QcLineEditFrame *LineEditFrame() const { return qobject_cast<QcLineEditFrame *>(Edit()->parentWidget()); }

    /// What can be read, to be taken apart.
    std::unique_ptr<QTextDocument> Document() const { return std::make_unique<QTextDocument>(ReadableText()); }
    /// Clients ask for the end of the text by -1.
    int PlaceOf(int offset) const { return offset < 0 ? characterCount() : offset; }

    /// Makes a part of \a text of whatever numbers a client asks for.
    static void Bound(int &start, int &end, const QString &text)
    {
        start = qBound(0, start, int(text.size()));
        end = qBound(start, end, int(text.size()));
    }

    /// The unit first, since it belongs to the value just read; then the warning, which is more urgent than any other description.
    QString Description() const
    {
        const QString warning = Warning();
        QStringList parts{Unit(), warning.isEmpty() ? OwnOrFrames(QAccessible::Description) : warning};
        parts.removeAll(QString());
        return parts.join(QStringLiteral(", "));
    }

    /// The unit shown behind the text.
    QString Unit() const
    {
        const auto *label = LineEditFrame() ? LineEditFrame()->findChild<QcLabel *>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
        return label && !label->isHidden() ? label->text() : QString();
    }

    /// The text of the frame's warning, if it is given.
    QString Warning() const
    {
        if (!LineEditFrame() || !LineEditFrame()->getWarning())
            return QString();
        auto *tip = LineEditFrame()->findChild<QcArrowTip *>(QString(), Qt::FindDirectChildrenOnly);
        return tip ? QAccessible::queryAccessibleInterface(tip)->text(QAccessible::Name) : QString();
    }

    QString ReadableText() const
    {
        const QString shown = Edit()->displayText();
        return Edit()->echoMode() == QLineEdit::Normal ? shown : QString(shown.size(), QLatin1Char('*'));
    }

    bool IsAcceptable(QString text) const
    {
        if (Edit()->isReadOnly())
            return false;
        int position = 0;
        const QValidator *validator = Edit()->validator();
        return !validator || validator->validate(text, position) == QValidator::Acceptable;
    }
};

/// Qt's own line edit, where a selector shows it.
QAccessibleInterface *DescribeEditOfSelector(const QString &className, QObject *object)
{
    const bool isAsked = className == QLatin1String(QLineEdit::staticMetaObject.className());
    auto *edit = isAsked ? qobject_cast<QLineEdit *>(object) : nullptr;
    return edit && qobject_cast<QcSelector *>(edit->parentWidget()) ? new LineEditAccessible(edit) : nullptr; // owned by Qt's cache
}

} // namespace

void InstallLineEditAccessibility()
{
    InstallAccessible<LineEditAccessible, QcLineEdit>();
    InstallAccessible<GroupAccessible, QcLineEditFrame>();
}

void InstallSelectorEditAccessibility()
{
    QAccessible::installFactory(DescribeEditOfSelector);
}

} // namespace Velmora
