#pragma once

#include <QObject>
#include <QThreadPool>

#include <chrono>

namespace Velmora {

/// Shows files and folders through the desktop's file manager service, org.freedesktop.FileManager1 on the session bus, and
/// where that does not answer opens the folder through QDesktopServices. Nothing is reported, and no call waits.
///
/// Connecting to the session bus is the one step that Qt offers only as a blocking call. It runs in a thread of its own,
/// which ends when the connection stands or has failed; all else happens on the thread of this object. (A bus that takes connections
/// and then hangs holds up the end of the process, here as in every program that uses Qt's D-Bus module: the attempt has no limit.)
class FileManager : public QObject
{
    Q_OBJECT

public:
    /// \a patience is the longest time from a request to the fallback.
    explicit FileManager(std::chrono::milliseconds patience);
    ~FileManager() override;

    /// The one of the application object, gone with it; null if there is no application object.
    static FileManager *OfApplication();

    /// Shows the folder \a path, or any other path selected in its folder. Relative paths start at the current directory.
    void Show(const QString &path);

private:
    std::chrono::milliseconds m_patience;
    QThreadPool m_connecting;
};

} // namespace Velmora
