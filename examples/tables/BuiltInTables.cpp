#include "BuiltInTables.h"

#include <Velmora/QcStyleManager.h>

namespace Examples {

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

} // namespace Examples
