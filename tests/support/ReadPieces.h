#pragma once

#include <QAccessible>

#include <csignal>
#include <cstdlib>
#include <unistd.h>

namespace VelmoraTest {

/// Asks \a text for its pieces of each kind around each place of it and beyond its ends, and tells of the first that is not what its
/// bounds say. What takes half a minute for it ends the program: Qt's own search for a word never ends at the end of a text.
inline QString FaultOfPieces(const QAccessibleTextInterface &text)
{
    constexpr unsigned kPatience = 30;
    std::signal(SIGALRM, [](int) { std::abort(); });
    alarm(kPatience);
    const int count = text.characterCount();
    QString fault;
    const auto check = [&](const char *which, int offset, int type, const QString &piece, int start, int end) {
        if (fault.isEmpty() && (start < 0 || end > count || start > end || piece != text.text(start, end)))
            fault = QStringLiteral("%1 %2, type %3: \"%4\", %5 to %6 of %7")
                        .arg(QLatin1String(which))
                        .arg(offset)
                        .arg(type)
                        .arg(piece)
                        .arg(start)
                        .arg(end)
                        .arg(count);
    };
    for (int offset = -1; offset <= count + 2; ++offset) {
        for (const auto type : {QAccessible::CharBoundary, QAccessible::WordBoundary, QAccessible::SentenceBoundary,
                                QAccessible::ParagraphBoundary, QAccessible::LineBoundary, QAccessible::NoBoundary}) {
            int start = -1;
            int end = -1;
            const QString at = text.textAtOffset(offset, type, &start, &end);
            check("at", offset, type, at, start, end);
            const QString before = text.textBeforeOffset(offset, type, &start, &end);
            check("before", offset, type, before, start, end);
            const QString after = text.textAfterOffset(offset, type, &start, &end);
            check("after", offset, type, after, start, end);
        }
    }
    alarm(0);
    return fault;
}

} // namespace VelmoraTest
