#include "theme/ColorTable_p.h"

#include <QByteArray>
#include <QFile>
#include <QSettings>
#include <QStringList>
#include <QTemporaryFile>

namespace Velmora {

namespace {

QColor ParseColor(const QStringList &parts)
{
    QColor color;
    color.setNamedColor(parts.value(0));
    // An alpha that is no number reads as 0, so that the mistake shows as a missing colour.
    SetAlphaQuietly(color, parts.size() == 2 ? parts.at(1).toDouble() : 1.0);
    return color;
}

bool IsNameless(const QString &key)
{
    // QSettings drops slashes at the ends of a key and complains when nothing is left.
    return key.count(QLatin1Char('/')) == key.size();
}

QHash<QString, QColor> ReadSettings(const QString &path)
{
    // QSettings of Qt 5 reads keys as Latin-1 and leaves the bytes of a byte-order mark on a first key that stands in no section; that of
    // Qt 6 leaves the blanks behind them.
    const QString mark = QStringLiteral("\u00EF\u00BB\u00BF");

    QHash<QString, QColor> table;
    const QSettings settings(path, QSettings::IniFormat);
    const QStringList keys = settings.allKeys();
    table.reserve(keys.size());
    QString markedKey;
    for (const QString &key : keys) {
        if (IsNameless(key))
            continue;
        if (key.startsWith(mark) || key.at(0).isSpace())
            markedKey = key;
        else
            table.insert(key, ParseColor(settings.value(key).toStringList()));
    }
    // A later line of the same token wins, as it does without a mark.
    const QString firstToken = markedKey.mid(markedKey.startsWith(mark) ? mark.size() : 0).trimmed();
    if (!firstToken.isEmpty() && !table.contains(firstToken))
        table.insert(firstToken, ParseColor(settings.value(markedKey).toStringList()));
    return table;
}

/// The offset of the first sign with which QSettings begins a serialised object ("@Variant(...)") or an escape; -1 if there is none.
QByteArray::size_type FindObjectSign(const QByteArray &text)
{
    const auto at = text.indexOf('@');
    const auto backslash = text.indexOf('\\');
    return at < 0 || backslash < 0 ? qMax(at, backslash) : qMin(at, backslash);
}

/// \a text without its comments, every line end a line feed. To QSettings a ";" in quotes begins no comment, and a quote in a
/// comment opens nothing.
QByteArray WithoutComments(const QByteArray &text)
{
    QByteArray result;
    result.reserve(text.size());
    bool inComment = false;
    bool inQuotes = false;
    bool isEscaped = false;
    for (const char c : text) {
        const bool endsLine = c == '\n' || c == '\r';
        inComment = !endsLine && (inComment || (c == ';' && !inQuotes && !isEscaped));
        if (inComment)
            continue;
        if (c == '"' && !isEscaped)
            inQuotes = !inQuotes;
        isEscaped = c == '\\' && !isEscaped;
        result += endsLine ? '\n' : c;
    }
    return result;
}

/// \a text with the value cut off each line on which an object might begin. No colour is written so, and reading such an object
/// may exhaust stack and memory.
QByteArray WithoutObjects(const QByteArray &text)
{
    QByteArray result;
    result.reserve(text.size());
    for (QByteArray line : WithoutComments(text).split('\n')) {
        const auto sign = FindObjectSign(line);
        if (sign >= 0)
            line.truncate(line.left(sign).lastIndexOf('=') + 1);
        result += line;
        result += '\n';
    }
    return result;
}

} // namespace

QHash<QString, QColor> ReadColorTable(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray text = file.readAll();
    if (FindObjectSign(text) < 0)
        return ReadSettings(path);
    QTemporaryFile copy;
    if (!copy.open() || copy.write(WithoutObjects(text)) < 0 || !copy.flush())
        return {};
    return ReadSettings(copy.fileName());
}

void SetAlphaQuietly(QColor &color, double alpha)
{
    color.setAlphaF(decltype(color.alphaF())(alpha > 0.0 ? qMin(alpha, 1.0) : 0.0));
}

} // namespace Velmora
