#include "theme/FileManager_p.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QPointer>
#include <QTimer>
#include <QUrl>

namespace Velmora {

namespace {

/// Long enough for a file manager that the bus has to start first: what was asked of it cannot be taken back, and giving up
/// too early would show the folder twice.
constexpr std::chrono::milliseconds kPatience = std::chrono::seconds(10);

/// Everything but letters, digits, "-._~" and the slashes in percent codes. (QUrl leaves some characters as they are that a
/// strict reader refuses.)
QByteArray FileUri(const QString &absolutePath)
{
    return QByteArrayLiteral("file://") + QUrl::toPercentEncoding(absolutePath, QByteArrayLiteral("/"));
}

/// Mutes the default category's warnings, in which QDesktopServices and the platform plugin tell that they could not open an
/// URL. What others warn of in these milliseconds is lost, too; a host's URL handler that runs an event loop gets its
/// warnings back with the loop's first turn.
class MutedWarnings : public QObject
{
public:
    MutedWarnings()
        : m_category(QLoggingCategory::defaultCategory())
        , m_hasMuted(m_category->isWarningEnabled())
    {
        m_category->setEnabled(QtWarningMsg, false);
        QMetaObject::invokeMethod(
            this, [this] { End(); }, Qt::QueuedConnection);
    }
    ~MutedWarnings() override { End(); }

private:
    void End()
    {
        if (m_hasMuted)
            m_category->setEnabled(QtWarningMsg, true);
        m_hasMuted = false;
    }

    QLoggingCategory *m_category;
    bool m_hasMuted;
};

void OpenFolder(const QUrl &folder)
{
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return;
    const MutedWarnings muted;
    QDesktopServices::openUrl(folder);
}

/// One call of Show(): ends with the service's answer or, failing that, with the fallback.
class ShowRequest : public QObject
{
public:
    ShowRequest(const QFileInfo &path, std::chrono::milliseconds patience, QObject *parent)
        : QObject(parent)
    {
        const bool isFolder = path.isDir();
        m_method = isFolder ? QStringLiteral("ShowFolders") : QStringLiteral("ShowItems");
        m_uri = QString::fromLatin1(FileUri(path.filePath()));
        m_folder = QUrl::fromEncoded(FileUri(isFolder ? path.filePath() : path.path()));
        QTimer::singleShot(patience, this, [this] { End(false); });
    }

    void Ask(const QDBusConnection &bus)
    {
        if (!bus.isConnected()) {
            End(false);
            return;
        }
        const QString service = QStringLiteral("org.freedesktop.FileManager1");
        QDBusMessage call = QDBusMessage::createMethodCall(service, QStringLiteral("/org/freedesktop/FileManager1"), service, m_method);
        call << QStringList(m_uri) << QString(); // no startup id
        auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] { End(!watcher->isError()); });
    }

private:
    void End(bool shown)
    {
        if (m_ended)
            return;
        m_ended = true;
        deleteLater();
        if (!shown)
            OpenFolder(m_folder);
    }

    QString m_method;
    QString m_uri;
    QUrl m_folder;
    bool m_ended = false; // an URL handler may run an event loop, and the answer or the timer come in there
};

FileManager *&ApplicationsFileManager()
{
    static FileManager *fileManager = nullptr;
    return fileManager;
}

} // namespace

FileManager::FileManager(std::chrono::milliseconds patience)
    : m_patience(patience)
{
    m_connecting.setMaxThreadCount(1);
    m_connecting.setExpiryTimeout(0);
}

FileManager::~FileManager()
{
    m_connecting.clear();
    m_connecting.waitForDone();
}

FileManager *FileManager::OfApplication()
{
    FileManager *&fileManager = ApplicationsFileManager();
    if (!fileManager && QCoreApplication::instance()) {
        fileManager = new FileManager(kPatience);
        // A post routine, since it runs while the application object is still whole: connecting must end before that goes.
        qAddPostRoutine([] {
            delete ApplicationsFileManager();
            ApplicationsFileManager() = nullptr;
        });
    }
    return fileManager;
}

void FileManager::Show(const QString &path)
{
    if (path.contains(QChar::Null)) // no file has such a name, and Qt warns of it
        return;
    const QFileInfo absolute(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    if (!absolute.filePath().startsWith(QLatin1Char('/'))) // an empty path, or one inside a resource bundle
        return;

    const QPointer<ShowRequest> request = new ShowRequest(absolute, m_patience, this);
    m_connecting.start([this, request] {
        const QDBusConnection bus = QDBusConnection::sessionBus();
        const auto ask = [request, bus] {
            if (request)
                request->Ask(bus);
        };
        QMetaObject::invokeMethod(this, ask, Qt::QueuedConnection);
    });
}

} // namespace Velmora
