#include <Velmora/XlsxTemplate.h>

#include "xlsx/Book.h"
#include "xlsx/XlsxTestCase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

using namespace VelmoraTest;
using Velmora::XlsxTemplate;

namespace {

constexpr rlim_t kNoLimit = RLIM_INFINITY;
int failureOfSync = 0; // that the next one has

} // namespace

/// In place of the system's, in this program: a disk that is full only when it is to keep what it took.
extern "C" __attribute__((visibility("default"))) int fsync(int /*file*/)
{
    errno = failureOfSync;
    return failureOfSync == 0 ? 0 : -1;
}

/// Where the file system refuses, the old file stays, nothing is left behind, and the reason has words.
class tst_XlsxTemplateFiles : public XlsxTestCase
{
    Q_OBJECT

protected:
    void SetUp() override
    {
        XlsxTestCase::SetUp();
        Template source;
        source.Name("Name", "Sheet1!$A$1");
        source.parts["xl/media/image1.png"] = Noise(40000);
        QVERIFY(m_large.load(source.Archive()));
        source.parts.remove("xl/media/image1.png");
        QVERIFY(m_small.load(source.Archive()));
        WriteFile(OutputPath(), "old");
        OpenToAll(OutputPath());
        OpenToAll(QFileInfo(OutputPath()).path());
    }
    void TearDown() override
    {
        failureOfSync = 0;
        XlsxTestCase::TearDown();
    }

    static void OpenToAll(const QString &path) { QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x7777))); }
    static void CloseToWriters(const QString &path) { QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x5555))); }

    /// Why \a workbook is not saved at \a path by somebody who is not root and writes files of at most \a fileBytes; "saved" if it is.
    static QString Refusal(XlsxTemplate &workbook, const QString &path, rlim_t fileBytes = kNoLimit)
    {
        int ends[2];
        if (pipe(ends) != 0)
            return QStringLiteral("no pipe");
        const int answer = InChild(fileBytes, [&] {
            if (workbook.save(path))
                return true;
            const QByteArray reason = workbook.errorString().toUtf8();
            return workbook.error() != XlsxTemplate::Error::FileError || write(ends[1], reason.constData(), size_t(reason.size())) <= 0;
        });
        close(ends[1]);
        QFile reader;
        if (!reader.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle) || answer < 0)
            return QStringLiteral("ended");
        return answer == 1 ? QStringLiteral("saved") : QString::fromUtf8(reader.readAll());
    }
    QStringList Entries() const
    {
        return QDir(QFileInfo(OutputPath()).path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    XlsxTemplate m_small;
    XlsxTemplate m_large;

private Q_SLOTS:
    void a_full_disk_keeps_the_old_file_and_is_told_data()
    {
        QTest::addColumn<bool>("isLarge");
        QTest::addColumn<int>("missing"); // bytes; all of them below 0
        QTest::newRow("small, nothing fits") << false << -1;
        QTest::newRow("small, the last byte does not fit") << false << 1;
        QTest::newRow("large, nothing fits") << true << -1;
        QTest::newRow("large, half of it fits") << true << 20000;
        QTest::newRow("large, the last byte does not fit") << true << 1;
    }
    void a_full_disk_keeps_the_old_file_and_is_told()
    {
        QFETCH(bool, isLarge);
        QFETCH(int, missing);
        XlsxTemplate &workbook = isLarge ? m_large : m_small;
        const auto size = workbook.save().size();
        const QStringList before = Entries();
        QCOMPARE(Refusal(workbook, OutputPath(), rlim_t(missing < 0 ? 0 : size - missing)),
                 OutputPath() + QStringLiteral(": ") + qt_error_string(EFBIG));
        QCOMPARE(FileContent(OutputPath()), QByteArray("old"));
        QCOMPARE(Entries(), before);
        QCOMPARE(Refusal(workbook, OutputPath(), rlim_t(size)), QStringLiteral("saved"));
        QCOMPARE(FileContent(OutputPath()), workbook.save());
        QCOMPARE(Entries(), before);
    }

    void a_disk_that_tells_late_that_it_is_full_keeps_the_old_file()
    {
        const QStringList before = Entries();
        for (const int failure : {ENOSPC, EDQUOT, EIO}) {
            failureOfSync = failure;
            QVERIFY(!m_small.save(OutputPath()));
            QCOMPARE(m_small.errorString(), OutputPath() + QStringLiteral(": ") + qt_error_string(failure));
        }
        QCOMPARE(FileContent(OutputPath()), QByteArray("old"));
        QCOMPARE(Entries(), before);
        failureOfSync = EINVAL; // a file system that has nothing to do
        VERIFY_DONE(m_small, save(OutputPath()));
        QCOMPARE(FileContent(OutputPath()), m_small.save());
    }

    void a_folder_is_refused_as_such()
    {
        const QString path = QFileInfo(OutputPath()).path();
        QVERIFY(!m_small.save(path));
        QCOMPARE(m_small.errorString(), path + QStringLiteral(": It is a folder."));
    }

    void a_device_or_a_pipe_is_not_replaced()
    {
        const QString path = Path(QStringLiteral("pipe"));
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0666), 0);
        OpenToAll(path);
        QCOMPARE(Refusal(m_small, path), path + QStringLiteral(": It is no regular file."));
        struct stat status = {};
        QCOMPARE(stat(QFile::encodeName(path).constData(), &status), 0);
        QVERIFY(S_ISFIFO(status.st_mode));
        QCOMPARE(Refusal(m_small, QStringLiteral("/dev/full")), QStringLiteral("/dev/full: It is no regular file."));
    }

    void a_read_only_folder_keeps_its_file()
    {
        const QString folder = Path(QStringLiteral("closed"));
        const QString path = folder + QStringLiteral("/output.xlsx");
        WriteFile(path, "old");
        OpenToAll(path);
        CloseToWriters(folder);
        for (const QString &file : {path, folder + QStringLiteral("/new.xlsx")})
            QCOMPARE(Refusal(m_small, file), file + QStringLiteral(": ") + qt_error_string(EACCES));
        OpenToAll(folder);
        QCOMPARE(FileContent(path), QByteArray("old"));
        QCOMPARE(QDir(folder).entryList(QDir::Files | QDir::Hidden), QStringList("output.xlsx"));
    }

    void a_read_only_file_stays()
    {
        CloseToWriters(OutputPath());
        const QString reason = Refusal(m_small, OutputPath());
        QVERIFY2(reason.startsWith(OutputPath()) && reason.contains(QLatin1String("not writable")), qPrintable(reason));
        QCOMPARE(FileContent(OutputPath()), QByteArray("old"));
    }

    void a_folder_that_has_gone_is_told()
    {
        const QString path = Path(QStringLiteral("gone/output.xlsx"));
        QCOMPARE(Refusal(m_small, path), path + QStringLiteral(": ") + qt_error_string(ENOENT));
    }

    void a_file_without_a_name_is_refused()
    {
        QVERIFY(!m_small.save(QString()));
        QCOMPARE(m_small.errorString(), QStringLiteral("The file has no name."));
    }

    void a_link_stays_and_what_it_leads_to_is_replaced()
    {
        const QString link = Path(QStringLiteral("link.xlsx"));
        QVERIFY(QFile::link(OutputPath(), link));
        VERIFY_DONE(m_small, save(link));
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(FileContent(OutputPath()), m_small.save());
    }

    void what_was_refused_can_be_saved_elsewhere()
    {
        QVERIFY(!m_small.save(Path(QStringLiteral("gone/output.xlsx"))));
        VERIFY_DONE(m_small, save(OutputPath()));
        XlsxTemplate again;
        VERIFY_DONE(again, load(OutputPath()));
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxTemplateFiles)
#include "tst_XlsxTemplateFiles.moc"
