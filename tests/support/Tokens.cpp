#include "support/Tokens.h"
#include "support/ColorValue.h"

#include "support/TestCase.h"

#include <Velmora/QcStyleManager.h>

#include <QFile>
#include <QHash>
#include <QRegularExpression>

namespace VelmoraTest {

namespace {

struct Reading
{
    QStringList tokens;
    QHash<QString, QColor> colors;
};

Reading ReadTable(Table table)
{
    static const QRegularExpression line(QStringLiteral("^([^;=\\s]+)\\s*=\\s*(#[0-9A-Fa-f]{6})(?:\\s*,\\s*([0-9.]+))?"),
                                         QRegularExpression::MultilineOption);
    QFile file(TablePath(table));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no colour table");
    Reading reading;
    const QString text = QString::fromUtf8(file.readAll());
    for (auto match = line.globalMatch(text); match.hasNext();) {
        const auto entry = match.next();
        QColor color(entry.captured(2));
        if (!entry.captured(3).isEmpty())
            color.setAlphaF(ColorValue(entry.captured(3).toDouble()));
        reading.tokens.append(entry.captured(1));
        reading.colors.insert(entry.captured(1), color);
    }
    return reading;
}

const Reading &ReadingOf(Table table)
{
    static const Reading light = ReadTable(Table::Light);
    static const Reading dark = ReadTable(Table::Dark);
    return table == Table::Light ? light : dark;
}

} // namespace

QString TablePath(Table table)
{
    return table == Table::Light ? QStringLiteral(":/colors/blue_light.ini") : QStringLiteral(":/colors/blue_dark.ini");
}

void UseTable(Table table)
{
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(TablePath(table));
    if (QCoreApplication::instance())
        DrainEvents();
}

QColor TokenOf(Table table, const QString &token)
{
    const QHash<QString, QColor> &colors = ReadingOf(table).colors;
    if (!colors.contains(token))
        qWarning("no such token: %s", qPrintable(token));
    return colors.value(token);
}

QStringList TokensOf(Table table)
{
    return ReadingOf(table).tokens;
}

} // namespace VelmoraTest
