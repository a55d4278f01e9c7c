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

/// The table at \a path in place of the present one.
void ChooseTable(const QString &path);
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

/// In the order of the table.
QList<Token> TokensOfChosenTable();

} // namespace VelmoraDesigner
