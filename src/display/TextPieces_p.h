#pragma once

#include <QAccessible>
#include <QPair>
#include <QTextCursor>

QT_BEGIN_NAMESPACE
class QTextDocument;
QT_END_NAMESPACE

namespace Velmora {

/// The text of a document as assistive technology reads it, piece by piece. Lines are those of the screen; positions are the document's.
class TextPieces
{
public:
    explicit TextPieces(QTextDocument *document);

    int Length() const;
    QString Text(int start, int end) const;
    /// As much of it as there is.
    QTextCursor Selecting(int start, int end) const;

    /// The piece of \a type around the place before character \a offset, that before it, and that behind it, with their bounds.
    QString At(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const;
    QString Before(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const;
    QString After(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const;

private:
    QPair<int, int> Around(int offset, QAccessible::TextBoundaryType type) const;
    QString Piece(const QPair<int, int> &bounds, int *start, int *end) const;

    QTextDocument *m_document;
};

} // namespace Velmora
