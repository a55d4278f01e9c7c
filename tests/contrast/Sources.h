#pragma once

#include <QString>
#include <QStringList>

namespace VelmoraTest {

/// The text of a file, without the comments if it is C++.
QString CodeOf(const QString &path);
/// Below \a folder, relative to it and sorted: the C++ files.
QStringList SourcesBelow(const QString &folder);
/// The tokens that stand as literals in \a text, with or without "${", blanks or an alpha.
QStringList TokensIn(const QString &text);

/// The colours that stand as literals in \a text, "#RRGGBB" with or without an alpha, and those of Qt's that are seen (Qt::red).
QStringList ColorsIn(const QString &text);

} // namespace VelmoraTest
