#pragma once

#include <QString>

namespace Gallery {

/// Renders every page, or the one named, in all tables to PNG files in \a folder, at the page's full height.
/// Returns a program's exit code: 0, or 1 after a message if a page or file failed.
int RenderPages(const QString &folder, const QString &onlyPage);

} // namespace Gallery
