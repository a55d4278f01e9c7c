#include "Tables.h"

#include <Velmora/FileAndDesktop.h>
#include <Velmora/QcStyleManager.h>

#include <QApplication>
#include <QHash>
#include <QPalette>
#include <QSettings>

#include <algorithm>

namespace Gallery {

namespace {

Table g_lastTable = Table::Light;

} // namespace

QString TablePath(Table table)
{
    switch (table) {
    case Table::Light:
        return QStringLiteral(":/colors/blue_light.ini");
    case Table::Dark:
        return QStringLiteral(":/colors/blue_dark.ini");
    case Table::ContrastLight:
        return QStringLiteral(":/colors/contrast_light.ini");
    case Table::ContrastDark:
        break;
    }
    return QStringLiteral(":/colors/contrast_dark.ini");
}

QString TableName(Table table)
{
    static const QString names[] = {QStringLiteral("light"), QStringLiteral("dark"), QStringLiteral("contrast-light"),
                                    QStringLiteral("contrast-dark")};
    return names[int(table)];
}

std::optional<Table> TableNamed(const QString &name)
{
    for (const Table table : kTables) {
        if (TableName(table) == name)
            return table;
    }
    return std::nullopt;
}

void ApplyTable(Table table)
{
    g_lastTable = table;
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(TablePath(table));
}

Table LastTable()
{
    return g_lastTable;
}

QStringList TokensOf(const QString &path)
{
    QStringList tokens = QSettings(path, QSettings::IniFormat).allKeys();
    // QSettings sorts by name; the file's own order says more: ranks and states stand as they are meant.
    const QStringList lines = Velmora::GetFileContent(path).split(QLatin1Char('\n'));
    QHash<QString, int> places;
    for (int i = 0; i < lines.size(); ++i)
        places.insert(lines.at(i).section(QLatin1Char('='), 0, 0).trimmed(), i);
    std::stable_sort(tokens.begin(), tokens.end(),
                     [&places](const QString &a, const QString &b) { return places.value(a) < places.value(b); });
    return tokens;
}

QColor TokenColor(const QString &token)
{
    return Velmora::QcStyleManager::GetInstance()->GetColor(token);
}

QString ColorText(const QColor &color)
{
    if (!color.isValid())
        return QStringLiteral("invalid");
    const QString rgb = color.name(QColor::HexRgb).toUpper();
    return color.alpha() == 255 ? rgb : QStringLiteral("%1, %2").arg(rgb, QString::number(color.alphaF(), 'g', 2));
}

void ApplyPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, TokenColor(QStringLiteral("bg/bg_bottom")));
    palette.setColor(QPalette::Base, TokenColor(QStringLiteral("bg/bg_box")));
    palette.setColor(QPalette::Button, TokenColor(QStringLiteral("bg/bg_float")));
    palette.setColor(QPalette::Highlight, TokenColor(QStringLiteral("brand/brand")));
    palette.setColor(QPalette::HighlightedText, TokenColor(QStringLiteral("text/text_button")));
    palette.setColor(QPalette::PlaceholderText, TokenColor(QStringLiteral("text/text_tertairy")));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, TokenColor(QStringLiteral("text/text_primary")));
        palette.setColor(QPalette::Disabled, role, TokenColor(QStringLiteral("text/text_disabled")));
    }
    QApplication::setPalette(palette);
}

} // namespace Gallery
