#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

namespace VelmoraTest {

enum class Table {
    Light,
    Dark,
};

/// Resource path of a built-in colour table.
QString TablePath(Table table);
/// Makes it the active table and lets every widget follow.
void UseTable(Table table);
/// The value of \a token read from the table's file by a reader of our own, so that it checks the engine's.
/// Fails loudly (an invalid colour and a warning) for a token that the file does not hold.
QColor TokenOf(Table table, const QString &token);
/// All tokens of the file, in its order.
QStringList TokensOf(Table table);

} // namespace VelmoraTest
