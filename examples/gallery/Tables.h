#pragma once

#include "BuiltInTables.h"

#include <QColor>
#include <QString>
#include <QStringList>

namespace Gallery {

using Examples::ApplyTable;
using Examples::kTables;
using Examples::LastTable;
using Examples::Table;
using Examples::TableName;
using Examples::TableNamed;
using Examples::TablePath;

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
