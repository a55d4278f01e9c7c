#include <Velmora/MultiLineTextElide.h>

#include <QAbstractTextDocumentLayout>
#include <QString>
#include <QTextCursor>
#include <QTextDocument>

#include <memory>

namespace Velmora {

namespace {

const QString kSuffix = QStringLiteral("...");

// As many characters as are taken away one by one. Where the suffix wraps, a few make room for it; only text that takes no
// room, such as blanks at a line's end, needs more.
constexpr int kSingleSteps = 64;

/// Whether \a document has at most \a maxLines lines, as a cursor walks them down. Looks no further than it must.
bool FitsLines(QTextDocument &document, int maxLines)
{
    Q_EMIT document.documentLayout()->update(QRectF(0, 0, 0, 1000000000.0));
    if (maxLines < 1)
        return false;
    QTextCursor cursor(&document);
    for (int lines = 1; cursor.movePosition(QTextCursor::Down);) {
        if (++lines > maxLines)
            return false;
    }
    return true;
}

/// Where the suffix begins.
int SuffixPosition(QTextDocument &document)
{
    QTextCursor cursor(&document);
    cursor.movePosition(QTextCursor::End);
    return int(cursor.position() - kSuffix.size());
}

/// Removes what lies between \a from and the suffix.
void RemoveBeforeSuffix(QTextDocument &document, int from)
{
    QTextCursor cursor(&document);
    cursor.setPosition(SuffixPosition(document));
    cursor.setPosition(from, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

/// Removes the character in front of the suffix, with its combining marks. False if nothing can go.
bool RemoveCharacterBeforeSuffix(QTextDocument &document)
{
    const int position = SuffixPosition(document);
    if (position <= 0)
        return false;
    const int before = document.characterCount();
    QTextCursor cursor(&document);
    cursor.setPosition(position);
    cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    return document.characterCount() < before; // the end of a table cell stays
}

/// The end of the character that \a position lies in, or \a position itself between two characters.
int CharacterEnd(QTextDocument &document, int position)
{
    QTextCursor cursor(&document);
    cursor.setPosition(position);
    cursor.movePosition(QTextCursor::PreviousCharacter);
    cursor.movePosition(QTextCursor::NextCharacter);
    return cursor.position();
}

/// Whether \a document would fit without the text between \a from and the suffix.
bool FitsWithout(const QTextDocument &document, int from, int maxLines)
{
    const std::unique_ptr<QTextDocument> trial(document.clone());
    RemoveBeforeSuffix(*trial, from);
    return FitsLines(*trial, maxLines);
}

/// Removes as little in front of the suffix as makes \a document fit, in a few halvings instead of one layout a character:
/// the less text there is, the fewer lines it takes.
void BisectBeforeSuffix(QTextDocument &document, int maxLines)
{
    int fits = 0; // or nothing does
    for (int tooLong = SuffixPosition(document); tooLong - fits > 1;) {
        const int middle = CharacterEnd(document, fits + (tooLong - fits) / 2);
        if (middle >= tooLong || middle <= fits)
            break; // one character lies between them
        (FitsWithout(document, middle, maxLines) ? fits : tooLong) = middle;
    }
    RemoveBeforeSuffix(document, fits);
}

} // namespace

void multiLineTextElide(QTextDocument *document, int maxLines)
{
    if (!document || FitsLines(*document, maxLines))
        return;
    QTextCursor cursor(document);
    for (int line = 1; line < maxLines; ++line)
        cursor.movePosition(QTextCursor::Down);
    cursor.movePosition(QTextCursor::EndOfLine);
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.insertText(kSuffix);

    for (int step = 0; step < kSingleSteps; ++step) {
        if (FitsLines(*document, maxLines) || !RemoveCharacterBeforeSuffix(*document))
            return;
    }
    if (!FitsLines(*document, maxLines) && SuffixPosition(*document) > 0)
        BisectBeforeSuffix(*document, maxLines);
}

} // namespace Velmora
