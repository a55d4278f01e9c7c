#include "theme/BakedColors_p.h"

#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QVector>

namespace Velmora {

namespace {

void RecolorLinks(QTextDocument &document, const QColor &before, const QColor &after)
{
    QVector<QTextCursor> links;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextCharFormat format = at.fragment().charFormat();
            if (!format.isAnchor() || format.foreground().color() != before)
                continue;
            QTextCursor link(&document);
            link.setPosition(at.fragment().position());
            link.setPosition(at.fragment().position() + at.fragment().length(), QTextCursor::KeepAnchor);
            links.append(link);
        }
    }
    QTextCharFormat format;
    format.setForeground(after);
    for (QTextCursor &link : links)
        link.mergeCharFormat(format);
}

} // namespace

void ReplaceBakedColors(const QPalette &before, const QPalette &after)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (qstrcmp(widget->metaObject()->className(), "Velmora::QcLabel") == 0)
            continue; // the kit's keep theirs
        if (auto *area = qobject_cast<QMdiArea *>(widget)) {
            if (area->background() == before.dark())
                area->setBackground(after.dark());
        } else if (auto *label = qobject_cast<QLabel *>(widget)) {
            if (auto *document = label->findChild<QTextDocument *>())
                RecolorLinks(*document, before.color(QPalette::Link), after.color(QPalette::Link));
        }
    }
}

} // namespace Velmora
