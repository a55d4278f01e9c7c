#include "theme/Mnemonics_p.h"

#include <Velmora/KeyboardCues.h>

#include <QFontMetrics>
#include <QPainter>
#include <QRect>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>

namespace Velmora {

namespace {

constexpr QLatin1Char kMark('&');

bool HasMarks(const QString &text)
{
    return KeyboardCuesEnabled() && text.contains(kMark);
}

/// Takes the next letter of \a text, from \a place on; a mark goes with the letter behind it, and one behind which there is none is lost.
/// A mark behind a mark is a letter like any other.
bool TakeLetter(const QString &text, int &place, QChar &letter, bool &isMarked)
{
    isMarked = place < text.size() && text.at(place) == kMark;
    place += isMarked ? 1 : 0;
    if (place >= text.size())
        return false;
    letter = text.at(place++);
    return true;
}

/// The beginning of the shown text, \a shown, as its marks are written in \a text. What is not of it, as an ellipsis, follows unmarked.
QString WithMarks(const QString &shown, const QString &text)
{
    QString marked;
    int place = 0;
    QChar letter;
    bool isMarked = false;
    bool isOfText = true;
    for (const QChar character : shown) {
        isOfText = isOfText && TakeLetter(text, place, letter, isMarked) && letter == character;
        if (isOfText && isMarked)
            marked += kMark;
        marked += character;
    }
    return marked;
}

} // namespace

QString WithoutMarks(const QString &text)
{
    QString plain;
    plain.reserve(text.size());
    int place = 0;
    QChar letter;
    bool isMarked = false;
    while (TakeLetter(text, place, letter, isMarked))
        plain += letter;
    return plain;
}

QString ShownText(const QString &text)
{
    return HasMarks(text) ? WithoutMarks(text) : text;
}

QString ElidedMarked(const QFontMetrics &metrics, const QString &text, int width)
{
    // Qt's own elision of marked texts counts the mark in front of a blank.
    const QString elided = metrics.elidedText(ShownText(text), Qt::ElideRight, width);
    return HasMarks(text) ? WithMarks(elided, text) : elided;
}

void DrawMarked(QPainter &painter, const QRect &rect, int flags, const QString &text, const QStyle *style, const QWidget *widget)
{
    if (HasMarks(text)) {
        QStyleOption option;
        option.initFrom(widget);
        const bool underlines = style->styleHint(QStyle::SH_UnderlineShortcut, &option, widget);
        flags |= underlines ? Qt::TextShowMnemonic : Qt::TextShowMnemonic | Qt::TextHideMnemonic;
    }
    painter.drawText(rect, flags, text);
}

} // namespace Velmora
