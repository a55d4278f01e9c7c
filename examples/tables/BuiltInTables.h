#pragma once

#include <QString>

#include <array>
#include <optional>

namespace Examples {

/// The built-in colour tables.
enum class Table { Light, Dark, ContrastLight, ContrastDark };
constexpr std::array<Table, 4> kTables = {Table::Light, Table::Dark, Table::ContrastLight, Table::ContrastDark};

QString TablePath(Table table);
/// The name of a table on the command line, in files of settings and in the names of pictures: "light", "contrast-dark".
QString TableName(Table table);
std::optional<Table> TableNamed(const QString &name);
/// Makes a built-in table the program's, and remembers which one it was.
void ApplyTable(Table table);
/// The built-in table that was applied last. Another file may have been loaded since.
Table LastTable();

} // namespace Examples
