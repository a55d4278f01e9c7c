#pragma once

#include <QString>

namespace Gallery {

/// Makes a small spreadsheet template at \a path: five named cells, one of them with a list, and a named picture. \a folder is a
/// folder for its parts, which stay behind. False if it cannot be written.
bool MakeSampleTemplate(const QString &path, const QString &folder);

} // namespace Gallery
