#include "display/TextPieces_p.h"

#include <QTextDocument>

namespace Velmora {

TextPieces::TextPieces(QTextDocument *document)
    : m_document(document)
{
}

int TextPieces::Length() const
{
    return m_document->characterCount() - 1; // the last paragraph's end is no text
}

QString TextPieces::Text(int start, int end) const
{
    QString text = Selecting(start, end).selectedText();
    for (const QChar::SpecialCharacter lineEnd : {QChar::ParagraphSeparator, QChar::LineSeparator})
        text.replace(QChar(lineEnd), QLatin1Char('\n'));
    return text;
}

QTextCursor TextPieces::Selecting(int start, int end) const
{
    QTextCursor cursor(m_document);
    cursor.setPosition(qBound(0, start, Length()));
    cursor.setPosition(qBound(0, end, Length()), QTextCursor::KeepAnchor);
    return cursor;
}

QString TextPieces::At(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const
{
    return Piece(Around(offset, type), start, end);
}

QString TextPieces::Before(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const
{
    const int before = Around(offset, type).first - 1;
    return Piece(before < 0 ? qMakePair(0, 0) : Around(before, type), start, end);
}

QString TextPieces::After(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const
{
    const QPair<int, int> piece = Around(offset, type);
    for (int after = piece.second; after <= Length(); ++after) {
        if (Around(after, type) != piece) // the place at its end may still be of it
            return Piece(Around(after, type), start, end);
    }
    return Piece(qMakePair(Length(), Length()), start, end);
}

QPair<int, int> TextPieces::Around(int offset, QAccessible::TextBoundaryType type) const
{
    return QAccessible::qAccessibleTextBoundaryHelper(Selecting(offset, offset), type);
}

QString TextPieces::Piece(const QPair<int, int> &bounds, int *start, int *end) const
{
    *start = bounds.first;
    *end = bounds.second;
    return Text(*start, *end);
}

} // namespace Velmora
