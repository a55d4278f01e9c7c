#include "TestFiles.h"
#include "support/TestMain.h"

#include <Velmora/FileAndDesktop.h>

#include "theme/WindowsShell_p.h"

#include <QCursor>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QScopeGuard>
#include <QScreen>

#include <cstdio>
#include <string>
#include <vector>

#include <sys/resource.h>

using namespace Velmora;

namespace {

/// What stands in for the system's short path function: the results of its calls in their order, and what was asked.
struct FakeSystem
{
    struct Result
    {
        unsigned long value;
        std::wstring text;
    };
    std::vector<Result> results;
    std::vector<std::wstring> paths;
    std::vector<unsigned long> sizes;

    WindowsShell::ShortPathFunction Function()
    {
        return [this](const wchar_t *longPath, wchar_t *buffer, unsigned long size) {
            const Result result = results.at(paths.size());
            paths.emplace_back(longPath);
            sizes.push_back(size);
            if (buffer)
                result.text.copy(buffer, size);
            return result.value;
        };
    }
};

/// A file of 1.5 GB that takes no room, read where no such block can be had.
int ReadBeyondMemory(const QString &path)
{
#ifndef __SANITIZE_ADDRESS__ // which reserves address space without end; its own limit is set from outside
    rlimit limit;
    getrlimit(RLIMIT_AS, &limit);
    limit.rlim_cur = 1024L * 1024 * 1024;
    setrlimit(RLIMIT_AS, &limit);
#endif
    static QByteArray lines;
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &line) {
        lines += (type == QtWarningMsg ? "warning: " : "other: ") + line.toUtf8() + '\n';
    });
    const QString content = GetFileContent(path);
    std::fprintf(stdout, "%scharacters: %d\n", lines.constData(), int(content.size()));
    return 0;
}

class TestFileAndDesktop : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void content_of_a_file();
    void content_of_a_resource_is_that_of_the_file_behind_it();
    void content_keeps_line_ends_as_they_are();
    void content_is_read_as_utf8_data();
    void content_is_read_as_utf8();
    void empty_file_is_silent();
    void missing_file_is_reported_data();
    void missing_file_is_reported();
    void folder_is_reported_as_not_to_be_opened();
    void file_without_permission_is_reported_as_not_to_be_opened();
    void file_larger_than_memory_is_reported_and_throws_nothing();

    void existence_data();
    void existence();

    void long_paths_stay_as_they_are_on_this_platform();
    void path_of_259_characters_does_not_ask_the_system();
    void path_of_260_characters_is_shortened();
    void short_form_ends_at_its_terminator();
    void long_path_without_short_form_stays_data();
    void long_path_without_short_form_stays();
    void explorer_shows_a_folder_and_selects_anything_else();

    void screen_under_mouse_data();
    void screen_under_mouse();

private:
    QString Write(const QByteArray &content) const { return m_files.Write(QStringLiteral("content"), content); }
    QString Folder() const { return m_files.Path(QString()); }

    VelmoraTest::TestFiles m_files;
};

void TestFileAndDesktop::content_of_a_file()
{
    QCOMPARE(GetFileContent(Write("a line\nand another")), QStringLiteral("a line\nand another"));
}

void TestFileAndDesktop::content_of_a_resource_is_that_of_the_file_behind_it()
{
    QFile resource(QStringLiteral(":/colors/blue_light.ini"));
    QVERIFY(resource.open(QIODevice::ReadOnly));
    const QString content = GetFileContent(resource.fileName());
    QVERIFY(content.contains(QLatin1String("text/")));
    QCOMPARE(content, QString::fromUtf8(resource.readAll()));
}

void TestFileAndDesktop::content_keeps_line_ends_as_they_are()
{
    QCOMPARE(GetFileContent(Write("one\r\ntwo\rthree\n")), QStringLiteral("one\r\ntwo\rthree\n"));
}

void TestFileAndDesktop::content_is_read_as_utf8_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("content");
    QTest::newRow("beyond Latin-1") << QByteArray("gr\xC3\xBC\xC3\x9F \xE2\x82\xAC \xF0\x9F\x98\x80")
                                    << QString::fromUtf16(u"gr\u00FC\u00DF \u20AC \U0001F600");
    QTest::newRow("byte-order mark goes") << QByteArray("\xEF\xBB\xBFtext") << QStringLiteral("text");
    QTest::newRow("only a byte-order mark") << QByteArray("\xEF\xBB\xBF") << QString();
    QTest::newRow("byte-order mark inside stays") << QByteArray("a\xEF\xBB\xBF") << QString::fromUtf16(u"a\uFEFF");
    QTest::newRow("invalid byte") << QByteArray("a\xFF"
                                                "b")
                                  << QString::fromUtf16(u"a\uFFFDb");
    QTest::newRow("cut short") << QByteArray("a\xC3") << QString::fromUtf16(u"a\uFFFD");
    QTest::newRow("ends at a zero byte") << QByteArray("a\0b", 3) << QStringLiteral("a");
}

void TestFileAndDesktop::content_is_read_as_utf8()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, content);
    QCOMPARE(GetFileContent(Write(bytes)), content);
}

void TestFileAndDesktop::empty_file_is_silent()
{
    QCOMPARE(GetFileContent(Write(QByteArray())), QString());
}

void TestFileAndDesktop::missing_file_is_reported_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("warning");
    const QString missing = m_files.Path(QStringLiteral("no such file"));
    QTest::newRow("file") << missing << QStringLiteral("GetFileContent: file not exist: \"%1\"").arg(missing);
    QTest::newRow("resource") << QStringLiteral(":/qss/NoSuch.qss")
                              << QStringLiteral("GetFileContent: file not exist: \":/qss/NoSuch.qss\"");
    QTest::newRow("quote, as QDebug prints it")
        << QStringLiteral("/no/such\"file") << QStringLiteral("GetFileContent: file not exist: \"/no/such\\\"file\"");
    QTest::newRow("no path") << QString() << QStringLiteral("GetFileContent: file not exist: \"\"");
}

void TestFileAndDesktop::missing_file_is_reported()
{
    QFETCH(QString, path);
    QFETCH(QString, warning);
    ExpectWarning(warning);
    QCOMPARE(GetFileContent(path), QString());
}

void TestFileAndDesktop::folder_is_reported_as_not_to_be_opened()
{
    ExpectWarning(QStringLiteral("GetFileContent: file open failed: \"%1\"").arg(Folder()));
    QCOMPARE(GetFileContent(Folder()), QString());
}

void TestFileAndDesktop::file_without_permission_is_reported_as_not_to_be_opened()
{
    const QString path = Write("secret");
    const VelmoraTest::LockedFile locked(path);
    ExpectWarning(QStringLiteral("GetFileContent: file open failed: \"%1\"").arg(path));
    QCOMPARE(GetFileContent(path), QString());
}

void TestFileAndDesktop::file_larger_than_memory_is_reported_and_throws_nothing()
{
    const QString path = m_files.Path(QStringLiteral("huge"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(1536LL * 1024 * 1024));
    file.close();

    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ASAN_OPTIONS"),
                       environment.value(QStringLiteral("ASAN_OPTIONS"))
                           + QStringLiteral(":allocator_may_return_null=1:max_allocation_size_mb=512"));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--read-beyond-memory"), path});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()),
             QStringLiteral("warning: GetFileContent: readAll failed: \"%1\" std::bad_alloc\ncharacters: 0\n").arg(path));
}

void TestFileAndDesktop::existence_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("exists");
    QTest::newRow("file") << Write("x") << true;
    QTest::newRow("folder") << Folder() << true;
    QTest::newRow("resource") << QStringLiteral(":/colors/blue_dark.ini") << true;
    QTest::newRow("missing") << m_files.Path(QStringLiteral("no such file")) << false;
    QTest::newRow("missing resource") << QStringLiteral(":/colors/no_such.ini") << false;
    QTest::newRow("no path") << QString() << false;
}

void TestFileAndDesktop::existence()
{
    QFETCH(QString, path);
    QFETCH(bool, exists);
    QCOMPARE(IsFileExists(path), exists);
}

void TestFileAndDesktop::long_paths_stay_as_they_are_on_this_platform()
{
    for (const int size : {0, 259, 260, 5000}) {
        const QString path = QStringLiteral("C:/").leftJustified(size, QLatin1Char('x'), true);
        QCOMPARE(longPathToShortPath(path), path);
    }
}

void TestFileAndDesktop::path_of_259_characters_does_not_ask_the_system()
{
    FakeSystem system;
    const QString path(259, QLatin1Char('x'));
    QCOMPARE(WindowsShell::ShortPath(path, system.Function()), path);
    QVERIFY(system.paths.empty());
}

void TestFileAndDesktop::path_of_260_characters_is_shortened()
{
    FakeSystem system;
    system.results = {{15, {}}, {14, L"\\\\?\\C:\\LONG~1"}};
    const QString path(260, QLatin1Char('x'));
    QCOMPARE(WindowsShell::ShortPath(path, system.Function()), QStringLiteral("\\\\?\\C:\\LONG~1"));
    const std::wstring asked = (QStringLiteral("\\\\?\\") + path).toStdWString();
    QCOMPARE(system.paths, (std::vector<std::wstring>{asked, asked}));
    QCOMPARE(system.sizes, (std::vector<unsigned long>{0, 15}));
}

void TestFileAndDesktop::short_form_ends_at_its_terminator()
{
    FakeSystem system;
    system.results = {{20, {}}, {8, std::wstring(L"\\\\?\\C:\\A\0rubbish", 16)}};
    QCOMPARE(WindowsShell::ShortPath(QString(300, QLatin1Char('x')), system.Function()), QStringLiteral("\\\\?\\C:\\A"));
}

void TestFileAndDesktop::long_path_without_short_form_stays_data()
{
    QTest::addColumn<int>("needed");
    QTest::addColumn<int>("written");
    QTest::newRow("does not exist") << 0 << 0;
    QTest::newRow("gone after the first call") << 15 << 0;
    QTest::newRow("longer after the first call") << 15 << 22;
}

void TestFileAndDesktop::long_path_without_short_form_stays()
{
    QFETCH(int, needed);
    QFETCH(int, written);
    FakeSystem system;
    system.results = {{static_cast<unsigned long>(needed), {}}, {static_cast<unsigned long>(written), L"rubbish"}};
    const QString path = QStringLiteral("C:/folder/").leftJustified(300, QLatin1Char('x'));
    QCOMPARE(WindowsShell::ShortPath(path, system.Function()), path);
}

void TestFileAndDesktop::explorer_shows_a_folder_and_selects_anything_else()
{
    QCOMPARE(WindowsShell::ExplorerArguments(QStringLiteral("C:\\a folder"), true), QStringLiteral("\"C:\\a folder\""));
    QCOMPARE(WindowsShell::ExplorerArguments(QStringLiteral("C:\\a file"), false), QStringLiteral(" /select,\"C:\\a file\""));
}

void TestFileAndDesktop::screen_under_mouse_data()
{
    QTest::addColumn<QPoint>("cursor");
    QTest::addColumn<bool>("onScreen");
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QTest::newRow("inside") << screen.center() << true;
    QTest::newRow("top left pixel") << screen.topLeft() << true;
    QTest::newRow("bottom right pixel") << screen.bottomRight() << true;
    QTest::newRow("past the left border") << screen.topLeft() - QPoint(1, 0) << false;
    QTest::newRow("past the top border") << screen.topLeft() - QPoint(0, 1) << false;
    QTest::newRow("past the right border") << screen.bottomRight() + QPoint(1, 0) << false;
    QTest::newRow("past the bottom border") << screen.bottomRight() + QPoint(0, 1) << false;
}

void TestFileAndDesktop::screen_under_mouse()
{
    QFETCH(QPoint, cursor);
    QFETCH(bool, onScreen);
    const auto back = qScopeGuard([before = QCursor::pos()] { QCursor::setPos(before); });
    QCursor::setPos(cursor);
    QCOMPARE(QCursor::pos(), cursor);
    QCOMPARE(getScreenUnderMouse(), onScreen ? QGuiApplication::primaryScreen() : nullptr);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc == 3 && qstrcmp(argv[1], "--read-beyond-memory") == 0)
        return ReadBeyondMemory(QFile::decodeName(argv[2]));
    return VelmoraTest::RunInApplication<TestFileAndDesktop>(argc, argv);
}

#include "tst_FileAndDesktop.moc"
