#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

namespace Gallery {

/// The two built-in colour tables.
enum class Table { Light, Dark };

QString TablePath(Table table);
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
/// Gives the palette the table's colours, for what Qt paints by itself: tool tips, selections, and the text of a QcButton
/// whose state names no text colour.
void ApplyPalette();

} // namespace Gallery
