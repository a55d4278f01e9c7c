#include "FakeFileManager.h"
#include "PrivateBus.h"
#include "TestFiles.h"
#include "support/TestMain.h"

#include <Velmora/FileAndDesktop.h>

#include "theme/FileManager_p.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDebug>
#include <QDesktopServices>
#include <QDir>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QPointer>
#include <QProcess>
#include <QScopeGuard>
#include <QUrl>

#include <cstdio>
#include <functional>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Velmora;
using VelmoraTest::FakeFileManager;
using VelmoraTest::PrivateBus;

namespace {

/// True when every openDir() so far has come to its end, one way or the other.
bool NothingPending()
{
    const FileManager *fileManager = FileManager::OfApplication();
    return !fileManager || fileManager->children().isEmpty();
}

/// The host's handler of file URLs: what QDesktopServices was asked to open.
class UrlHandler : public QObject
{
    Q_OBJECT

public:
    explicit UrlHandler(std::function<void(const QUrl &)> onOpen)
        : m_onOpen(std::move(onOpen))
    {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "Open");
    }
    ~UrlHandler() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

public Q_SLOTS:
    void Open(const QUrl &url) { m_onOpen(url); }

private:
    std::function<void(const QUrl &)> m_onOpen;
};

void Say(const QString &line)
{
    std::fprintf(stdout, "%s\n", qPrintable(line));
    std::fflush(stdout);
}

// --- The processes of the test's own: a host that calls openDir(), and a file manager that the bus starts ---

/// A host program in a process of its own. It tells when openDir() has returned, each URL that QDesktopServices is asked to open,
/// and its end.
template <typename Application>
int RunHost(int argc, char **argv, const QStringList &options)
{
    const auto open = [argv] {
        openDir(QFile::decodeName(argv[2]));
        Say(QStringLiteral("returned"));
    };
    if (options.contains(QLatin1String("before the application")))
        open();
    {
        Application application(argc, argv);
        std::unique_ptr<UrlHandler> handler;
        if (options.contains(QLatin1String("handler")))
            handler = std::make_unique<UrlHandler>([](const QUrl &url) { Say(QStringLiteral("opened ") + url.toString()); });
        if (!options.contains(QLatin1String("before the application")))
            open();
        if (!options.contains(QLatin1String("leave at once")))
            while (!NothingPending())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    if (options.contains(QLatin1String("again"))) {
        Application application(argc, argv);
        open();
        while (!NothingPending())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    Say(QStringLiteral("done"));
    return 0;
}

/// Writes the call that it gets to the file named by the second argument. Ends with its caller, at the latest with the bus.
int RunActivatedFileManager(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    FakeFileManager fileManager;
    QDBusConnection bus = QDBusConnection::sessionBus();
    QObject::connect(&fileManager, &FakeFileManager::Called, &application, [&fileManager, &application, bus, argv](const QString &caller) {
        QFile file(QFile::decodeName(argv[2]));
        if (file.open(QIODevice::WriteOnly))
            file.write(fileManager.Calls().join(QString()).toUtf8());
        auto *watcher = new QDBusServiceWatcher(caller, bus, QDBusServiceWatcher::WatchForUnregistration, &application);
        QObject::connect(watcher, &QDBusServiceWatcher::serviceUnregistered, &application, &QCoreApplication::quit);
    });
    bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"), QStringLiteral("org.freedesktop.DBus.Local"),
                QStringLiteral("Disconnected"), &application, SLOT(quit()));
    return fileManager.Start(bus) ? application.exec() : 1;
}

class Host : public QProcess
{
public:
    Host() { m_environment.remove(QStringLiteral("DISPLAY")); }

    void SetVariable(const QString &name, const QString &value) { m_environment.insert(name, value); }
    void RemoveVariable(const QString &name) { m_environment.remove(name); }
    void Open(const QString &kind, const QString &path, const QStringList &options = {})
    {
        setProcessEnvironment(m_environment);
        start(QCoreApplication::applicationFilePath(), QStringList{kind, path} + options);
    }
    bool HasEnded() const { return state() == NotRunning; }
    /// All that it said so far.
    QString Output()
    {
        m_output += readAllStandardOutput();
        return QString::fromUtf8(m_output);
    }
    /// Empty if it ended well and logged nothing.
    QString Faults()
    {
        QString faults = QString::fromUtf8(readAllStandardError());
        if (exitStatus() != NormalExit || exitCode() != 0)
            faults += QStringLiteral("exit code %1").arg(exitCode());
        return faults;
    }

private:
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    QByteArray m_output;
};

/// A bus that takes connections and never says a word.
class MuteBus
{
public:
    explicit MuteBus(const QString &path)
        : m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, QFile::encodeName(path).constData(), sizeof address.sun_path);
        m_listens = bind(m_socket, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0 && listen(m_socket, 5) == 0;
    }
    ~MuteBus() { HangUp(); }

    bool Listens() const { return m_listens; }
    void HangUp()
    {
        if (m_socket >= 0)
            close(m_socket);
        m_socket = -1;
    }

private:
    MuteBus(const MuteBus &) = delete;
    MuteBus &operator=(const MuteBus &) = delete;

    int m_socket;
    bool m_listens = false;
};

class TestOpenDir : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void folder_is_shown();
    void file_is_selected();
    void missing_path_takes_the_branch_of_files();
    void link_to_a_folder_is_a_folder();
    void trailing_slash_changes_nothing();
    void root_folder_is_shown();
    void relative_path_starts_at_the_current_directory();
    void uri_is_percent_encoded_data();
    void uri_is_percent_encoded();
    void nothing_to_show_is_silent_data();
    void nothing_to_show_is_silent();
    void calls_keep_their_order();

    void absent_service_opens_the_folder_data();
    void absent_service_opens_the_folder();
    void error_reply_opens_the_folder();
    void odd_characters_reach_the_url_handler_whole();
    void silent_service_holds_up_nobody();
    void silent_service_ends_in_the_folder_once();
    void answer_while_the_url_handler_waits_changes_nothing_data();
    void answer_while_the_url_handler_waits_changes_nothing();
    void url_handler_that_waits_keeps_its_warnings();
    void failed_fallback_is_silent_and_mutes_nothing_else();
    void what_the_host_logs_and_what_not_stays_its_own_data();
    void what_the_host_logs_and_what_not_stays_its_own();

    void service_is_started_by_the_bus();
    void without_a_bus_the_folder_is_opened_data();
    void without_a_bus_the_folder_is_opened();
    void without_bus_and_url_handler_it_is_silent();
    void bus_that_never_answers_holds_up_nobody();
    void application_without_windows_reaches_the_service();
    void application_without_windows_and_bus_is_silent();
    void without_an_application_it_is_silent();
    void application_may_end_before_the_answer();
    void second_application_object_shows_folders_too();

protected:
    void SetUp() override;
    void TearDown() override;

private:
    QString Folder() const { return m_files.Path(QString()); }
    QString Uri(const QString &encodedName) const { return QStringLiteral("file://%1/%2").arg(Folder(), encodedName); }
    void StopFileManager();

    VelmoraTest::TestFiles m_files;
    QDBusConnection m_bus{QString()};
    std::unique_ptr<FakeFileManager> m_fileManager;
    std::unique_ptr<UrlHandler> m_urlHandler;
    QList<QUrl> m_opened;
    std::function<void()> m_onOpen;
};

void TestOpenDir::initTestCase()
{
    m_bus = QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("file manager"));
    QVERIFY(m_bus.isConnected());
    QVERIFY(QDir(Folder()).mkdir(QStringLiteral("folder")));
    m_files.Write(QStringLiteral("file.txt"), "text");
}

void TestOpenDir::cleanupTestCase()
{
    QDBusConnection::disconnectFromBus(QStringLiteral("file manager"));
}

void TestOpenDir::SetUp()
{
    m_opened.clear();
    m_onOpen = nullptr;
    m_urlHandler = std::make_unique<UrlHandler>([this](const QUrl &url) {
        m_opened.append(url);
        if (m_onOpen)
            m_onOpen();
    });
    m_fileManager = std::make_unique<FakeFileManager>();
    QVERIFY(m_fileManager->Start(m_bus));
}

void TestOpenDir::TearDown()
{
    StopFileManager();
    m_urlHandler.reset();
    QTRY_VERIFY(NothingPending());
}

void TestOpenDir::StopFileManager()
{
    if (!m_fileManager)
        return;
    m_fileManager->AnswerHeldCalls(m_bus);
    m_fileManager->Stop(m_bus);
    m_fileManager.reset();
}

void TestOpenDir::folder_is_shown()
{
    openDir(m_files.Path(QStringLiteral("folder")));
    QTRY_VERIFY(NothingPending());
    QCOMPARE(m_fileManager->Calls(), QStringList(QStringLiteral("ShowFolders %1 []").arg(Uri(QStringLiteral("folder")))));
    QVERIFY(m_opened.isEmpty());
}

void TestOpenDir::file_is_selected()
{
    openDir(m_files.Path(QStringLiteral("file.txt")));
    QTRY_VERIFY(NothingPending());
    QCOMPARE(m_fileManager->Calls(), QStringList(QStringLiteral("ShowItems %1 []").arg(Uri(QStringLiteral("file.txt")))));
    QVERIFY(m_opened.isEmpty());
}

void TestOpenDir::missing_path_takes_the_branch_of_files()
{
    openDir(m_files.Path(QStringLiteral("no such folder")));
    QTRY_VERIFY(NothingPending());
    QCOMPARE(m_fileManager->Calls(), QStringList(QStringLiteral("ShowItems %1 []").arg(Uri(QStringLiteral("no%20such%20folder")))));
    QVERIFY(m_opened.isEmpty());
}

void TestOpenDir::link_to_a_folder_is_a_folder()
{
    const QString link = m_files.Path(QStringLiteral("link"));
    QVERIFY(QFile::link(m_files.Path(QStringLiteral("folder")), link));
    openDir(link);
    QTRY_VERIFY(NothingPending());
    QCOMPARE(m_fileManager->Calls(), QStringList(QStringLiteral("ShowFolders %1 []").arg(Uri(QStringLiteral("link")))));
}

void TestOpenDir::trailing_slash_changes_nothing()
{
    openDir(m_files.Path(QStringLiteral("folder/")));
    openDir(m_files.Path(QStringLiteral("no such folder/")));
    QTRY_VERIFY(NothingPending());
    QCOMPARE(m_fileManager->Calls(),
             (QStringList{QStringLiteral("ShowFolders %1 []").arg(Uri(QStringLiteral("folder"))),
                          QStringLiteral("ShowItems %1 []").arg(Uri(QStringLiteral("no%20such%20folder")))}));
}

void TestOpenDir::root_folder_is_shown()
{
    openDir(QStringLiteral("/"));
    QTRY_VERIFY(NothingPending());
    QCOMPARE(m_fileManager->Calls(), QStringList(QStringLiteral("ShowFolders file:/// []")));
}

void TestOpenDir::relative_path_starts_at_the_current_directory()
{
    const auto back = qScopeGuard([before = QDir::currentPath()] { QDir::setCurrent(before); });
    QVERIFY(QDir::setCurrent(Folder()));
    openDir(QStringLiteral("folder/../file.txt"));
    openDir(QStringLiteral("."));
    QVERIFY(QDir::setCurrent(QStringLiteral("/")));
    QTRY_VERIFY(NothingPending());
    QCOMPARE(m_fileManager->Calls(),
             (QStringList{QStringLiteral("ShowItems %1 []").arg(Uri(QStringLiteral("file.txt"))),
                          QStringLiteral("ShowFolders file://%1 []").arg(Folder())}));
}

void TestOpenDir::uri_is_percent_encoded_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("encoded");
    const auto row = [](const char *tag, const char16_t *name, const char *encoded) {
        QTest::newRow(tag) << QString::fromUtf16(name) << QString::fromLatin1(encoded);
    };
    row("plain", u"aZ09-._~", "aZ09-._~");
    row("blanks", u" a  b ", "%20a%20%20b%20");
    row("umlauts", u"gr\u00FC\u00DFe", "gr%C3%BC%C3%9Fe");
    row("beyond the first plane", u"\U0001F600", "%F0%9F%98%80");
    row("fragment", u"a#b", "a%23b");
    row("query", u"a?b", "a%3Fb");
    row("percent", u"100%", "100%25");
    row("looks encoded", u"%41", "%2541");
    row("double quotes", u"\"a\"", "%22a%22");
    row("single quotes", u"it's", "it%27s");
    row("brackets", u"[1](2){3}<4>", "%5B1%5D%282%29%7B3%7D%3C4%3E");
    row("separators", u"a:b;c,d&e=f+g", "a%3Ab%3Bc%2Cd%26e%3Df%2Bg");
    row("backslash", u"a\\b", "a%5Cb");
    row("line break", u"a\nb", "a%0Ab");
    row("double dot inside", u"a..b", "a..b");
}

void TestOpenDir::uri_is_percent_encoded()
{
    QFETCH(QString, name);
    QFETCH(QString, encoded);
    const QString path = m_files.Write(name, "text");
    openDir(path);
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir(Folder()).mkdir(name));
    openDir(path);
    QVERIFY(QDir(Folder()).rmdir(name));
    QTRY_VERIFY(NothingPending());
    QCOMPARE(m_fileManager->Calls(),
             (QStringList{QStringLiteral("ShowItems %1 []").arg(Uri(encoded)), QStringLiteral("ShowFolders %1 []").arg(Uri(encoded))}));
    QVERIFY(m_opened.isEmpty());
}

void TestOpenDir::nothing_to_show_is_silent_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no path") << QString();
    QTest::newRow("empty path") << QStringLiteral("");
    QTest::newRow("file of a resource") << QStringLiteral(":/colors/blue_light.ini");
    QTest::newRow("folder of a resource") << QStringLiteral(":/colors");
    QTest::newRow("zero character") << QStringLiteral("/tmp/a") + QChar(QChar::Null) + QStringLiteral("b");
}

void TestOpenDir::nothing_to_show_is_silent()
{
    QFETCH(QString, path);
    openDir(path);
    VelmoraTest::DrainEvents();
    QTRY_VERIFY(NothingPending());
    QVERIFY(m_fileManager->Calls().isEmpty());
    QVERIFY(m_opened.isEmpty());
}

void TestOpenDir::calls_keep_their_order()
{
    QStringList expected;
    for (int i = 0; i < 50; ++i) {
        const QString name = QStringLiteral("missing%1").arg(i);
        openDir(m_files.Path(name));
        expected.append(QStringLiteral("ShowItems %1 []").arg(Uri(name)));
    }
    QTRY_VERIFY(NothingPending());
    QCOMPARE(m_fileManager->Calls(), expected);
}

void TestOpenDir::absent_service_opens_the_folder_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("opened");
    const QString folder = m_files.Path(QStringLiteral("folder"));
    QTest::newRow("folder") << folder << folder;
    QTest::newRow("file") << m_files.Path(QStringLiteral("file.txt")) << Folder();
    QTest::newRow("missing") << m_files.Path(QStringLiteral("no such file")) << Folder();
    QTest::newRow("directly below the root") << QStringLiteral("/no such file") << QStringLiteral("/");
}

void TestOpenDir::absent_service_opens_the_folder()
{
    QFETCH(QString, path);
    QFETCH(QString, opened);
    StopFileManager();
    openDir(path);
    QVERIFY(m_opened.isEmpty()); // not in the caller's turn
    QTRY_VERIFY(NothingPending());
    QCOMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(opened)});
}

void TestOpenDir::error_reply_opens_the_folder()
{
    m_fileManager->SetAnswer(FakeFileManager::Answer::Error);
    openDir(m_files.Path(QStringLiteral("file.txt")));
    QTRY_VERIFY(NothingPending());
    QCOMPARE(m_fileManager->Calls().size(), 1);
    QCOMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(Folder())});
}

void TestOpenDir::odd_characters_reach_the_url_handler_whole()
{
    StopFileManager();
    const QString name = QString::fromUtf16(u"50% gr\u00FC\u00DFe #1? \"[%41]\"");
    QVERIFY(QDir(Folder()).mkdir(name));
    openDir(m_files.Path(name));
    QTRY_COMPARE(m_opened.size(), 1);
    QCOMPARE(m_opened.first().toLocalFile(), m_files.Path(name));
}

void TestOpenDir::silent_service_holds_up_nobody()
{
    m_fileManager->SetAnswer(FakeFileManager::Answer::Held);
    openDir(m_files.Path(QStringLiteral("file.txt")));
    QTRY_COMPARE(m_fileManager->Calls().size(), 1);
    VelmoraTest::DrainEvents();
    QVERIFY(!NothingPending()); // waits, while this thread goes on
    QVERIFY(m_opened.isEmpty());

    m_fileManager->AnswerHeldCalls(m_bus);
    QTRY_VERIFY(NothingPending());
    QVERIFY(m_opened.isEmpty());
}

void TestOpenDir::silent_service_ends_in_the_folder_once()
{
    m_fileManager->SetAnswer(FakeFileManager::Answer::Held);
    FileManager impatient(std::chrono::milliseconds(200));
    impatient.Show(m_files.Path(QStringLiteral("file.txt")));
    QTRY_COMPARE(m_fileManager->Calls().size(), 1);
    QVERIFY(m_opened.isEmpty());
    QTRY_VERIFY(impatient.children().isEmpty());
    QCOMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(Folder())});

    m_fileManager->AnswerHeldCalls(m_bus); // too late
    VelmoraTest::DrainEvents();
    QCOMPARE(m_opened.size(), 1);
}

void TestOpenDir::answer_while_the_url_handler_waits_changes_nothing_data()
{
    QTest::addColumn<bool>("isError");
    QTest::newRow("shown") << false;
    QTest::newRow("error") << true;
}

void TestOpenDir::answer_while_the_url_handler_waits_changes_nothing()
{
    QFETCH(bool, isError);
    m_fileManager->SetAnswer(FakeFileManager::Answer::Held);
    FileManager impatient(std::chrono::milliseconds(200));
    m_onOpen = [this, isError] {
        m_onOpen = nullptr;
        if (isError)
            m_fileManager->FailHeldCalls(m_bus);
        else
            m_fileManager->AnswerHeldCalls(m_bus);
        m_fileManager->SetAnswer(FakeFileManager::Answer::Done);
        openDir(m_files.Path(QStringLiteral("folder")));
        QTRY_COMPARE(m_fileManager->Calls().size(), 2); // the bus keeps the order: the late answer came before
        QTRY_VERIFY(NothingPending());
    };
    impatient.Show(m_files.Path(QStringLiteral("file.txt")));
    QTRY_VERIFY(impatient.children().isEmpty());
    QCOMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(Folder())});
}

void TestOpenDir::url_handler_that_waits_keeps_its_warnings()
{
    StopFileManager();
    m_onOpen = [this] {
        VelmoraTest::DrainEvents();
        ExpectWarning(QStringLiteral("which program?"));
        qWarning("which program?");
    };
    openDir(m_files.Path(QStringLiteral("folder")));
    QTRY_VERIFY(NothingPending());
    QCOMPARE(m_opened.size(), 1);
}

void TestOpenDir::failed_fallback_is_silent_and_mutes_nothing_else()
{
    StopFileManager();
    m_urlHandler.reset(); // the offscreen platform opens nothing, and says so
    const QString folder = m_files.Path(QStringLiteral("folder"));
    openDir(folder);
    QTRY_VERIFY(NothingPending());

    ExpectWarning(
        QStringLiteral("This plugin does not support QPlatformServices::openDocument() for '%1'.").arg(Uri(QStringLiteral("folder"))));
    QVERIFY(!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)));
}

void TestOpenDir::what_the_host_logs_and_what_not_stays_its_own_data()
{
    QTest::addColumn<bool>("hostHears");
    QTest::newRow("warnings on") << true;
    QTest::newRow("warnings off") << false;
}

void TestOpenDir::what_the_host_logs_and_what_not_stays_its_own()
{
    QFETCH(bool, hostHears);
    QLoggingCategory *category = QLoggingCategory::defaultCategory();
    category->setEnabled(QtWarningMsg, hostHears);
    category->setEnabled(QtDebugMsg, false);
    const auto restore = qScopeGuard([category] {
        category->setEnabled(QtWarningMsg, true);
        category->setEnabled(QtDebugMsg, true);
    });
    StopFileManager();
    openDir(m_files.Path(QStringLiteral("folder")));
    QTRY_COMPARE(m_opened.size(), 1);
    QTRY_VERIFY(NothingPending());
    VelmoraTest::DrainEvents();
    QCOMPARE(category->isWarningEnabled(), hostHears);
    QVERIFY(!category->isDebugEnabled());
    QVERIFY(category->isCriticalEnabled());
}

void TestOpenDir::service_is_started_by_the_bus()
{
    const QString calls = m_files.Path(QStringLiteral("calls"));
    const PrivateBus bus(QStringLiteral("%1 --activated-file-manager %2").arg(QCoreApplication::applicationFilePath(), calls));
    Host host;
    host.SetVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus.Address());
    host.Open(QStringLiteral("--widgets-host"), Folder(), {QStringLiteral("handler")});
    QTRY_VERIFY(host.HasEnded());
    QCOMPARE(host.Faults(), QString());
    QCOMPARE(host.Output(), QStringLiteral("returned\ndone\n"));
    QCOMPARE(GetFileContent(calls), QStringLiteral("ShowFolders file://%1 []").arg(Folder()));
}

void TestOpenDir::without_a_bus_the_folder_is_opened_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("gone") << QStringLiteral("unix:path=%1").arg(m_files.Path(QStringLiteral("no such bus")));
    QTest::newRow("no address at all") << QString();
    QTest::newRow("rubbish for an address") << QStringLiteral("rubbish");
}

void TestOpenDir::without_a_bus_the_folder_is_opened()
{
    QFETCH(QString, address);
    Host host;
    if (address.isEmpty())
        host.RemoveVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    else
        host.SetVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
    host.Open(QStringLiteral("--widgets-host"), m_files.Path(QStringLiteral("file.txt")), {QStringLiteral("handler")});
    QTRY_VERIFY(host.HasEnded());
    QCOMPARE(host.Faults(), QString());
    QCOMPARE(host.Output(), QStringLiteral("returned\nopened file://%1\ndone\n").arg(Folder()));
}

void TestOpenDir::without_bus_and_url_handler_it_is_silent()
{
    Host host;
    host.SetVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("disabled:"));
    host.Open(QStringLiteral("--widgets-host"), Folder());
    QTRY_VERIFY(host.HasEnded());
    QCOMPARE(host.Faults(), QString());
    QCOMPARE(host.Output(), QStringLiteral("returned\ndone\n"));
}

void TestOpenDir::bus_that_never_answers_holds_up_nobody()
{
    const QString socket = m_files.Path(QStringLiteral("mute"));
    MuteBus bus(socket);
    QVERIFY(bus.Listens());
    Host host;
    host.SetVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=") + socket);
    host.Open(QStringLiteral("--widgets-host"), Folder(), {QStringLiteral("handler")});
    QTRY_COMPARE(host.Output(), QStringLiteral("returned\n"));
    bus.HangUp();
    QTRY_VERIFY(host.HasEnded());
    QCOMPARE(host.Faults(), QString());
    QCOMPARE(host.Output(), QStringLiteral("returned\nopened file://%1\ndone\n").arg(Folder()));
}

void TestOpenDir::application_without_windows_reaches_the_service()
{
    Host host;
    host.Open(QStringLiteral("--core-host"), Folder());
    QTRY_VERIFY(host.HasEnded());
    QCOMPARE(host.Faults(), QString());
    QCOMPARE(host.Output(), QStringLiteral("returned\ndone\n"));
    QCOMPARE(m_fileManager->Calls(), QStringList(QStringLiteral("ShowFolders file://%1 []").arg(Folder())));
}

void TestOpenDir::application_without_windows_and_bus_is_silent()
{
    Host host;
    host.SetVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("disabled:"));
    host.Open(QStringLiteral("--core-host"), Folder());
    QTRY_VERIFY(host.HasEnded());
    QCOMPARE(host.Faults(), QString());
    QCOMPARE(host.Output(), QStringLiteral("returned\ndone\n"));
}

void TestOpenDir::without_an_application_it_is_silent()
{
    Host host;
    host.Open(QStringLiteral("--widgets-host"), Folder(), {QStringLiteral("handler"), QStringLiteral("before the application")});
    QTRY_VERIFY(host.HasEnded());
    QCOMPARE(host.Faults(), QString());
    QCOMPARE(host.Output(), QStringLiteral("returned\ndone\n"));
    QVERIFY(m_fileManager->Calls().isEmpty());
}

void TestOpenDir::application_may_end_before_the_answer()
{
    m_fileManager->SetAnswer(FakeFileManager::Answer::Held);
    Host host;
    host.Open(QStringLiteral("--widgets-host"), Folder(), {QStringLiteral("handler"), QStringLiteral("leave at once")});
    QTRY_VERIFY(host.HasEnded());
    QCOMPARE(host.Faults(), QString());
    QCOMPARE(host.Output(), QStringLiteral("returned\ndone\n"));
}

void TestOpenDir::second_application_object_shows_folders_too()
{
    Host host;
    host.Open(QStringLiteral("--widgets-host"), Folder(), {QStringLiteral("again")});
    QTRY_VERIFY(host.HasEnded());
    QCOMPARE(host.Faults(), QString());
    QCOMPARE(host.Output(), QStringLiteral("returned\nreturned\ndone\n"));
    const QString call = QStringLiteral("ShowFolders file://%1 []").arg(Folder());
    QCOMPARE(m_fileManager->Calls(), (QStringList{call, call}));
}

} // namespace

int main(int argc, char **argv)
{
    const QByteArray mode = argc > 2 ? argv[1] : "";
    QStringList options;
    for (int i = 3; i < argc; ++i)
        options.append(QString::fromUtf8(argv[i]));
    if (mode == "--widgets-host")
        return RunHost<QApplication>(argc, argv, options);
    if (mode == "--core-host")
        return RunHost<QCoreApplication>(argc, argv, options);
    if (mode == "--activated-file-manager")
        return RunActivatedFileManager(argc, argv);

    // Before anything can connect to the bus of whoever runs the tests.
    const PrivateBus bus;
    if (bus.Address().isEmpty())
        qFatal("dbus-daemon does not start (Debian package: dbus)");
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.Address().toUtf8());
    return VelmoraTest::RunInApplication<TestOpenDir>(argc, argv);
}

#include "tst_FileAndDesktopOpenDir.moc"
