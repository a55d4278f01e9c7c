#pragma once

#include <QFontMetrics>
#include <QString>
#include <QStringView>

namespace Velmora {

/// \a text on one line, line breaks as spaces, and no more of it than can be seen: measuring and eliding a megabyte takes a tenth of a
/// second.
inline QString OneLine(QStringView text)
{
    constexpr qsizetype kShownCharacters = 4096;
    QString line = text.left(qMin(kShownCharacters, text.size())).toString();
    for (QChar &character : line) {
        const bool isBreak = character == QLatin1Char('\n') || character == QLatin1Char('\r') || character == QChar::LineSeparator
            || character == QChar::ParagraphSeparator;
        if (isBreak)
            character = QLatin1Char(' ');
    }
    return line;
}

/// \a text on one line, elided to \a width pixels at a cost that does not grow with its length. Eliding alone keeps line breaks.
inline QString ElidedLine(const QFontMetrics &metrics, const QString &text, int width)
{
    return metrics.elidedText(OneLine(text), Qt::ElideRight, width);
}

} // namespace Velmora
