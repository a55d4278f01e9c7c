#pragma once

#include <QColor>
#include <QHash>
#include <QString>

namespace Velmora {

/// Reads the colour table file at \a path; what cannot be read gives no entries, a malformed colour an invalid one.
QHash<QString, QColor> ReadColorTable(const QString &path);

/// Sets the alpha of \a color, limited to the range from 0 to 1 (not a number counts as 0), as QColor would, but without its warning.
void SetAlphaQuietly(QColor &color, double alpha);

} // namespace Velmora
