#pragma once

#include <Velmora/VelmoraExport.h>

#include <QString>

QT_BEGIN_NAMESPACE
class QScreen;
QT_END_NAMESPACE

namespace Velmora {

/// The text of a file or resource, read as UTF-8. A file that is missing, cannot be opened or cannot be read gives one
/// warning and an empty string. Does not throw.
VELMORA_EXPORT QString GetFileContent(const QString &path);

/// True if a file, folder or resource of that path exists. Logs nothing.
VELMORA_EXPORT bool IsFileExists(const QString &path);

/// On Windows, the system's short form of a path of 260 or more characters; the path as given if it is shorter, if
/// the system knows no short form, and on every other platform.
VELMORA_EXPORT QString longPathToShortPath(const QString &path);

/// Shows a folder, or a file selected in its folder, in the desktop's file manager. Returns at once and reports nothing.
///
/// On Linux this asks the desktop's file manager service over the session bus (org.freedesktop.FileManager1) and, where
/// there is none, opens the folder through QDesktopServices. Main thread.
VELMORA_EXPORT void openDir(const QString &path);

/// The screen that holds the mouse cursor, or null if the cursor is on none. Main thread.
VELMORA_EXPORT QScreen *getScreenUnderMouse();

} // namespace Velmora
