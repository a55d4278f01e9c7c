#include "theme/BakedColors_p.h"

#include "theme/PlainPalette_p.h"
#include "theme/TokenPainting_p.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QLabel>
#include <QMdiArea>
#include <QRgba64>
#include <QTextBlock>
#include <QTextCharFormat>
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

void RecolorWeekend(QCalendarWidget &calendar, const QColor &before, const QColor &after)
{
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
        QTextCharFormat format = calendar.weekdayTextFormat(day);
        if (format.foreground().color() != before)
            continue;
        format.setForeground(after);
        calendar.setWeekdayTextFormat(day, format);
    }
}

/// The red of the table, with so much of the text's colour that it can be read like that; Qt's own if the table has none.
QColor WeekendColor(const QColor &text)
{
    constexpr double kShare = 0.6;
    const QColor red = TokenColor(QStringLiteral("tip/danger"));
    if (!red.isValid())
        return Qt::red;
    const auto mixed = [](int one, int other) { return qRound(kShare * one + (1 - kShare) * other); };
    return QColor(mixed(red.red(), text.red()), mixed(red.green(), text.green()), mixed(red.blue(), text.blue()));
}

} // namespace

BakedColors QtsBakedColors(const QPalette &palette)
{
    return {palette.color(QPalette::Link), palette.dark(), Qt::red};
}

BakedColors TablesBakedColors(const QPalette &palette)
{
    return {palette.color(QPalette::Link), palette.dark(), Marked(WeekendColor(palette.color(QPalette::Text)))};
}

void ReplaceBakedColors(const BakedColors &before, const BakedColors &after)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets)
        ReplaceBakedColors(*widget, before, after);
}

void ReplaceBakedColors(QWidget &widget, const BakedColors &before, const BakedColors &after)
{
    if (auto *area = qobject_cast<QMdiArea *>(&widget)) {
        if (area->background() == before.ground)
            area->setBackground(after.ground);
    } else if (auto *calendar = qobject_cast<QCalendarWidget *>(&widget)) {
        RecolorWeekend(*calendar, before.weekend, after.weekend);
    } else if (auto *label = qobject_cast<QLabel *>(&widget)) {
        if (qstrcmp(label->metaObject()->className(), "Velmora::QcLabel") == 0)
            return; // the kit's keep theirs
        if (auto *document = label->findChild<QTextDocument *>())
            RecolorLinks(*document, before.link, after.link);
    }
}

// Colours have sixteen bits a channel, of which texts, tables and screens use the upper eight.
QColor Marked(const QColor &color)
{
    QRgba64 channels = color.rgba64();
    channels.setBlue(channels.blue() ^ 1);
    return QColor(channels);
}

void KeepOwnLinks(QTextDocument &document)
{
    const QColor shown = QApplication::palette().color(QPalette::Link);
    const QColor own = OwnPalette().color(QPalette::Link);
    if (own != shown)
        RecolorLinks(document, shown, own);
}

} // namespace Velmora
