#include "display/TextLayout_p.h"

#include <QAbstractTextDocumentLayout>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextLayout>

namespace Velmora {

bool MayFit(const QTextDocument &document, qint64 width)
{
    return document.characterCount() <= width * document.blockCount(); // a character takes at least a pixel
}

qreal UnwrappedWidth(QTextDocument &document)
{
    const QSignalBlocker quiet(document.documentLayout()); // the layout comes back as it was
    const qreal width = document.textWidth();
    document.setTextWidth(-1);
    const qreal unwrapped = document.idealWidth();
    document.setTextWidth(width);
    return unwrapped;
}

void LayOut(QTextDocument &document, int width)
{
    const qreal unwrapped = MayFit(document, width) ? UnwrappedWidth(document) : 0;
    const qreal textWidth = int(unwrapped) == width ? unwrapped : width;
    if (document.textWidth() != textWidth)
        document.setTextWidth(textWidth); // which lays all of it out, also for the same width
}

int CountLines(QTextDocument &document)
{
    document.documentLayout()->documentSize(); // Qt lays out lazily
    int count = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        count += block.layout()->lineCount();
    return count;
}

QVector<TextLink> LinksOf(const QTextDocument &document)
{
    QVector<TextLink> links;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const QString href = fragment.charFormat().anchorHref();
            if (href.isEmpty())
                continue;
            const int end = fragment.position() + fragment.length();
            const bool goesOn = !links.isEmpty() && links.constLast().end == fragment.position() && links.constLast().href == href;
            if (goesOn)
                links.last().end = end;
            else
                links.append({fragment.position(), end, href});
        }
    }
    return links;
}

QTextCursor SelectionOf(QTextDocument &document, const TextLink &link)
{
    QTextCursor selection(&document);
    selection.setPosition(link.begin);
    selection.setPosition(link.end, QTextCursor::KeepAnchor);
    return selection;
}

QRectF RectOf(const QTextDocument &document, int begin, int end)
{
    const QTextBlock block = document.findBlock(begin);
    const QPointF origin = document.documentLayout()->blockBoundingRect(block).topLeft(); // which lays out what is not yet
    const int first = begin - block.position();
    const int last = end - block.position();
    QRectF rect;
    for (int i = 0; i < block.layout()->lineCount(); ++i) {
        const QTextLine line = block.layout()->lineAt(i);
        const int from = qMax(first, line.textStart());
        const int to = qMin(last, line.textStart() + line.textLength());
        if (from < to)
            rect |= QRectF(QPointF(line.cursorToX(from), line.y()), QPointF(line.cursorToX(to), line.y() + line.height())).normalized();
    }
    return rect.translated(origin);
}

} // namespace Velmora
