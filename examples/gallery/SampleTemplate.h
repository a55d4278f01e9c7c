#pragma once

#include <QString>

namespace Gallery {

/// Makes the template of an invoice at \a path: named cells, one of them with a list and one with a formula, a named row and a named
/// picture. \a folder is a folder for its parts, which stay behind. False if it cannot be written.
bool MakeSampleTemplate(const QString &path, const QString &folder);

} // namespace Gallery
