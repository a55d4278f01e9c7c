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

/// Shows a folder, or the folder of a file with that file selected, in the desktop's file manager. A path that does not exist is
/// treated like a file. Returns without waiting for the file manager, and reports nothing, failures included. Main thread.
///
/// - Windows: runs "explorer", with the short form of an over-long path.
/// - Linux: asks the desktop's file manager service, org.freedesktop.FileManager1 on the session bus. If there is no bus or no
///   service, or it answers with an error or not within ten seconds, opens the folder through QDesktopServices, hence through
///   the host's handler of "file" URLs if there is one. This goes on in the event loop, and needs an application object. An empty
///   path and a path of a resource show nothing.
VELMORA_EXPORT void openDir(const QString &path);

/// The screen that holds the mouse cursor, or null if the cursor is on none. Main thread.
VELMORA_EXPORT QScreen *getScreenUnderMouse();

} // namespace Velmora
