#pragma once

#include <QString>

#include <functional>

/// What is said to Windows about paths. Compiled on every platform, the system's own function handed in, so that it is tested everywhere.
namespace Velmora::WindowsShell {

/// The shape of GetShortPathNameW: fills the buffer of that many characters and returns how many it wrote, the terminator not
/// counted; returns the size needed if the buffer is null or too small, and 0 if there is no such path.
using ShortPathFunction = std::function<unsigned long(const wchar_t *longPath, wchar_t *buffer, unsigned long size)>;

/// The system's short form of a path of 260 or more characters, or \a path itself if it is shorter or the system knows none.
QString ShortPath(const QString &path, const ShortPathFunction &systemShortPath);

/// The arguments with which "explorer" shows a folder, or the folder of an item with that item selected.
QString ExplorerArguments(const QString &nativePath, bool isFolder);

} // namespace Velmora::WindowsShell
