#pragma once

#include <QRectF>
#include <QString>
#include <QTextCursor>
#include <QVector>
#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QTextDocument;
QT_END_NAMESPACE

namespace Velmora {

/// Whether \a document could be no wider than \a width pixels, told by its length: where it is not, it need not be measured.
bool MayFit(const QTextDocument &document, qint64 width);

/// The width of \a document in lines as long as its paragraphs, whatever width it is laid out in.
qreal UnwrappedWidth(QTextDocument &document);

/// Lays \a document out in \a width pixels and, where that is its ideal width, in the fraction of a pixel that this leaves out:
/// for want of it the last letter would wrap.
void LayOut(QTextDocument &document, int width);

/// How many lines \a document is laid out in.
int CountLines(QTextDocument &document);

/// The characters of a document from begin to before end, which lead to one address. Lighter than a cursor, since a text may have
/// thousands of links and who reads the screen asks for them again and again.
struct TextLink
{
    int begin;
    int end;
    QString href;
};

/// The links of \a document in their order.
QVector<TextLink> LinksOf(const QTextDocument &document);

/// The characters of \a link, one of \a document's.
QTextCursor SelectionOf(QTextDocument &document, const TextLink &link);

/// Where the characters from \a begin to before \a end, of one paragraph of \a document, are drawn.
QRectF RectOf(const QTextDocument &document, int begin, int end);

} // namespace Velmora
