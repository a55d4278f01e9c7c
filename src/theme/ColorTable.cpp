#include "theme/ColorTable_p.h"

#include <QSettings>
#include <QStringList>

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

} // namespace

QHash<QString, QColor> ReadColorTable(const QString &path)
{
    // QSettings reads keys as Latin-1 and leaves the bytes of a byte-order mark on a first key that stands in no section.
    const QString mark = QStringLiteral("\u00EF\u00BB\u00BF");

    QHash<QString, QColor> table;
    const QSettings settings(path, QSettings::IniFormat);
    const QStringList keys = settings.allKeys();
    table.reserve(keys.size());
    QString markedKey;
    for (const QString &key : keys) {
        if (key.startsWith(mark))
            markedKey = key;
        else
            table.insert(key, ParseColor(settings.value(key).toStringList()));
    }
    // A later line of the same token wins, as it does without a mark.
    const QString firstToken = markedKey.mid(mark.size());
    if (!firstToken.isEmpty() && !table.contains(firstToken))
        table.insert(firstToken, ParseColor(settings.value(markedKey).toStringList()));
    return table;
}

void SetAlphaQuietly(QColor &color, double alpha)
{
    color.setAlphaF(alpha > 0.0 ? qMin(alpha, 1.0) : 0.0);
}

} // namespace Velmora
