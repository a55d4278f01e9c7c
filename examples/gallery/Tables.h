#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace Gallery {

/// The built-in colour tables.
enum class Table { Light, Dark, ContrastLight, ContrastDark };
constexpr std::array<Table, 4> kTables = {Table::Light, Table::Dark, Table::ContrastLight, Table::ContrastDark};

QString TablePath(Table table);
/// The name of a table on the command line and in the names of pictures: "light", "contrast-dark".
QString TableName(Table table);
std::optional<Table> TableNamed(const QString &name);
/// Makes a built-in table the program's, and remembers which one it was.
void ApplyTable(Table table);
/// The built-in table that was applied last. Another file may have been loaded since.
Table LastTable();
/// The tokens of an INI file as QSettings reads them, in the order in which the file tells them.
QStringList TokensOf(const QString &path);
/// The colour of a token in the active table.
QColor TokenColor(const QString &token);
/// A colour as a table writes it: "#336FFF", or "#0670F9, 0.4" with an alpha.
QString ColorText(const QColor &color);
/// Gives the palette the table's colours, for what the kit's controls take from it: selections, and the text of a QcButton whose state
/// names no text colour.
void ApplyPalette();

} // namespace Gallery
