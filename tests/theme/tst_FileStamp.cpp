#include "support/TestMain.h"
#include "theme/FileStamp_p.h"

#include "TestFiles.h"

#include <Velmora/FileAndDesktop.h>

#include <QDir>
#include <QProcess>
#include <QResource>

#include <algorithm>

using namespace Velmora;
using namespace VelmoraTest;

class tst_FileStamp : public TestCase
{
    Q_OBJECT

private:
    TestFiles m_files;

    /// A resource bundle with \a content as ":/stamped/file.txt".
    QByteArray Bundle(const QByteArray &content)
    {
        m_files.Write(QStringLiteral("file.txt"), content);
        const QString list =
            m_files.Write(QStringLiteral("list.qrc"), R"(<RCC><qresource prefix="/stamped"><file>file.txt</file></qresource></RCC>)");
        const QString bundle = m_files.Path(QStringLiteral("bundle.rcc"));
        QProcess rcc;
        // Without times, so that only the content tells one bundle from the other.
        rcc.start(
            QStringLiteral(VELMORA_RCC),
            {QStringLiteral("--binary"), QStringLiteral("--format-version"), QStringLiteral("1"), QStringLiteral("-o"), bundle, list});
        if (!rcc.waitForFinished() || rcc.exitCode() != 0)
            qFatal("rcc: %s", rcc.readAllStandardError().constData());
        QFile file(bundle);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private Q_SLOTS:
    void it_exists_exactly_if_the_file_does_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("file") << m_files.Write(QStringLiteral("there.txt"), "there");
        QTest::newRow("folder") << QDir::tempPath();
        QTest::newRow("missing file") << m_files.Path(QStringLiteral("missing.txt"));
        QTest::newRow("file as a folder") << m_files.Path(QStringLiteral("there.txt/there.txt"));
        QTest::newRow("empty path") << QString();
        QTest::newRow("resource") << QStringLiteral(":/images/close.svg");
        QTest::newRow("unclean resource path") << QStringLiteral(":/images//close.svg");
        QTest::newRow("resource folder") << QStringLiteral(":/images");
        QTest::newRow("missing resource") << QStringLiteral(":/images/missing.svg");
        QTest::newRow("resource root") << QStringLiteral(":/");
        QTest::newRow("colon alone") << QStringLiteral(":");
        QDir::addSearchPath(QStringLiteral("stamped"), m_files.Path(QString()));
        QTest::newRow("search path") << QStringLiteral("stamped:there.txt");
        QTest::newRow("missing in the search path") << QStringLiteral("stamped:missing.txt");
    }
    void it_exists_exactly_if_the_file_does()
    {
        QFETCH(const QString, path);
        QCOMPARE(FileStamp::Of(path).exists, IsFileExists(path));
    }

    void it_stays_while_the_file_does_data() { it_exists_exactly_if_the_file_does_data(); }
    void it_stays_while_the_file_does()
    {
        QFETCH(const QString, path);
        QVERIFY(FileStamp::Of(path) == FileStamp::Of(path));
    }

    void a_file_that_changes_its_size_changes_its_stamp()
    {
        const QString path = m_files.Write(QStringLiteral("changing.txt"), "one");
        const FileStamp before = FileStamp::Of(path);
        m_files.Write(QStringLiteral("changing.txt"), "three");
        QVERIFY(!(FileStamp::Of(path) == before));
    }

    void a_file_that_was_written_again_changes_its_stamp()
    {
        const QString path = m_files.Write(QStringLiteral("changing.txt"), "one");
        const FileStamp before = FileStamp::Of(path);
        // The clock of a file system moves in steps of some milliseconds.
        QTRY_VERIFY((m_files.Write(QStringLiteral("changing.txt"), "two"), !(FileStamp::Of(path) == before)));
    }

    void a_file_that_goes_and_comes_is_seen()
    {
        const QString path = m_files.Write(QStringLiteral("going.txt"), "here");
        QVERIFY(FileStamp::Of(path).exists);
        QVERIFY(QFile::remove(path));
        QVERIFY(!FileStamp::Of(path).exists);
        m_files.Write(QStringLiteral("going.txt"), "here");
        QVERIFY(FileStamp::Of(path).exists);
    }

    void a_bundle_loaded_anew_at_the_same_address_is_seen()
    {
        const QString path = QStringLiteral(":/stamped/file.txt");
        QByteArray memory = Bundle("one");
        const QByteArray other = Bundle("two");
        QCOMPARE(memory.size(), other.size());
        const auto *data = reinterpret_cast<const uchar *>(memory.constData());

        QVERIFY(QResource::registerResource(data));
        const FileStamp before = FileStamp::Of(path);
        QVERIFY(before.exists);
        QVERIFY(QResource::unregisterResource(data));
        QVERIFY(!FileStamp::Of(path).exists);

        std::copy(other.cbegin(), other.cend(), memory.data());
        QVERIFY(QResource::registerResource(data));
        QVERIFY(!(FileStamp::Of(path) == before));
        QVERIFY(QResource::unregisterResource(data));
    }
};

VELMORA_TEST_MAIN(tst_FileStamp)
#include "tst_FileStamp.moc"
