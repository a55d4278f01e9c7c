#pragma once

#include <QList>
#include <QString>

namespace VelmoraDesigner {

/// A built-in colour table.
struct Table
{
    QString title; ///< of a menu's item
    QString path;
};

QList<Table> BuiltInTables();

/// The table at \a path in place of the present one, read anew if it is that. False, and nothing changes, if it has no colours.
bool ChooseTable(const QString &path);
/// The one that was chosen last here.
QString ChosenTable();

/// Serves a plain application object, and gives it a table if it has none. Where the program does both there is nothing to do.
void ServeWithTable();

/// A colour of the chosen table.
struct Token
{
    QString code;
    QString use; ///< what the table says of it
};

/// In the order of the table as it was read when it was chosen.
QList<Token> TokensOfChosenTable();

} // namespace VelmoraDesigner
