#pragma once

#include <QString>
#include <QStringRef>

namespace Velmora {

/// \a text on one line, line breaks as spaces, and no more of it than can be seen: measuring and eliding a megabyte takes a tenth of a
/// second.
inline QString OneLine(const QStringRef &text)
{
    constexpr int kShownCharacters = 4096;
    QString line = text.left(kShownCharacters).toString();
    for (QChar &character : line) {
        const bool isBreak = character == QLatin1Char('\n') || character == QLatin1Char('\r') || character == QChar::LineSeparator
            || character == QChar::ParagraphSeparator;
        if (isBreak)
            character = QLatin1Char(' ');
    }
    return line;
}

} // namespace Velmora
