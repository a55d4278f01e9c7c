#include "inputs/LineText_p.h"

#include "display/TextPieces_p.h"

#include <QLineEdit>
#include <QPointer>
#include <QTextDocument>
#include <QTextLayout>
#include <QValidator>

namespace Velmora {

namespace {

/// Makes a part of \a text of whatever numbers a client asks for.
void Bound(int &start, int &end, const QString &text)
{
    start = qBound(0, start, int(text.size()));
    end = qBound(start, end, int(text.size()));
}

} // namespace

QString LineText::ReadableText() const
{
    const QString shown = Edit()->displayText();
    return Edit()->echoMode() == QLineEdit::Normal ? shown : QString(shown.size(), QLatin1Char('*'));
}

int LineText::characterCount() const
{
    return int(ReadableText().size());
}

QString LineText::text(int start, int end) const
{
    const QString text = ReadableText();
    Bound(start, end, text);
    return text.mid(start, end - start);
}

int LineText::cursorPosition() const
{
    return Edit()->cursorPosition();
}

void LineText::setCursorPosition(int position)
{
    Edit()->setCursorPosition(position);
}

void LineText::scrollToSubstring(int start, int end)
{
    Edit()->setCursorPosition(end);
    Edit()->repaint(); // which scrolls to the caret
    Edit()->setCursorPosition(start);
}

// --- Pieces ---

/// What can be read, to be taken apart.
std::unique_ptr<QTextDocument> LineText::Document() const
{
    return std::make_unique<QTextDocument>(ReadableText());
}

/// Clients ask for the end of the text by -1.
int LineText::PlaceOf(int offset) const
{
    return offset < 0 ? characterCount() : offset;
}

QString LineText::textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const
{
    return TextPieces(Document().get()).Before(PlaceOf(offset), type, start, end);
}

QString LineText::textAtOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const
{
    return TextPieces(Document().get()).At(PlaceOf(offset), type, start, end);
}

QString LineText::textAfterOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const
{
    return TextPieces(Document().get()).After(PlaceOf(offset), type, start, end);
}

// --- Selection ---

int LineText::selectionCount() const
{
    return Edit()->hasSelectedText() ? 1 : 0;
}

void LineText::selection(int index, int *start, int *end) const
{
    const bool isSelected = index == 0 && Edit()->hasSelectedText();
    *start = isSelected ? Edit()->selectionStart() : 0;
    *end = isSelected ? Edit()->selectionEnd() : 0;
}

void LineText::removeSelection(int index)
{
    if (index == 0)
        Edit()->deselect();
}

void LineText::setSelection(int index, int start, int end)
{
    if (index != 0)
        return;
    Bound(start, end, Edit()->text());
    Edit()->setSelection(start, end - start);
}

// --- Places on the screen ---

QRect LineText::characterRect(int offset) const
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
    const int other = qRound(origin + line.cursorToX(offset + 1));
    const QPoint topLeft(qMin(one, other), caret.top());
    return QRect(Edit()->mapToGlobal(topLeft), QSize(qAbs(one - other), caret.height()));
}

int LineText::offsetAtPoint(const QPoint &point) const
{
    return Edit()->cursorPositionAt(Edit()->mapFromGlobal(point));
}

// --- Editing ---

void LineText::replaceText(int start, int end, const QString &text)
{
    const QString old = Edit()->text();
    Bound(start, end, old);
    SetWholeText(old.left(start) + text + old.mid(end));
}

void LineText::SetWholeText(const QString &text)
{
    const QPointer<QLineEdit> edit = Edit(); // a validator of the host may delete it, and this with it
    if (IsAcceptable(text) && edit)
        edit->setText(text);
}

bool LineText::IsAcceptable(QString text) const
{
    if (Edit()->isReadOnly())
        return false;
    int position = 0;
    const QValidator *validator = Edit()->validator();
    return !validator || validator->validate(text, position) == QValidator::Acceptable;
}

} // namespace Velmora
