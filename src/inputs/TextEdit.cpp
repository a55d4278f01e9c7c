#include "inputs/TextEdit_p.h"

#include "display/HtmlBomb_p.h"
#include "inputs/TextEditAccessible_p.h"

#include <QMimeData>
#include <QTextDocument>

namespace Velmora {

TextEdit::TextEdit(QWidget *frame)
    : QTextEdit(frame)
    , m_frame(frame)
{
    InstallTextEditAccessibility();
}

void TextEdit::SetLimit(int limit)
{
    m_limit = limit;
}

/// As much of a plain \a text as changes what is left of it within the limit: the rest is not laid out for nothing, since Qt may take
/// minutes for a megabyte.
QString TextEdit::WhatCounts(const QString &text) const
{
    if (m_limit < 0)
        return text;
    const qint64 enough = 2 * (qint64(m_limit) + 2); // of "\r\n" one unit is left, and the one behind the limit may be half a character
    return enough < text.size() ? text.left(int(enough)) : text;
}

void TextEdit::SetTextOrHtml(const QString &text)
{
    if (Qt::mightBeRichText(text) && !IsHtmlBomb(text))
        setHtml(text);
    else
        setPlainText(WhatCounts(text));
}

void TextEdit::insertFromMimeData(const QMimeData *source)
{
    if (acceptRichText() || !source->hasText()) { // a host's wish
        QTextEdit::insertFromMimeData(source);
        return;
    }
    QMimeData plain;
    plain.setText(WhatCounts(source->text()));
    QTextEdit::insertFromMimeData(&plain);
}

int TextLength(const QTextEdit *edit)
{
    return edit ? edit->document()->characterCount() - 1 : 0; // a document counts the end of its last paragraph too
}

QString FirstUnits(const QString &text, int count)
{
    const bool splits = 0 < count && count < text.size() && text.at(count - 1).isHighSurrogate() && text.at(count).isLowSurrogate();
    return text.left(splits ? count - 1 : count);
}

} // namespace Velmora
