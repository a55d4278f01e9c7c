#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

using namespace VelmoraTest;

namespace {

struct Run
{
    int exitCode = -1;
    QString out;
    QString log;
};

// As on a machine without a display, where nobody chose a platform either.
Run RunGallery(const QStringList &arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1String(name));
    // A message may span lines, so that its end is marked.
    environment.insert(QStringLiteral("QT_MESSAGE_PATTERN"), QStringLiteral("[%{type}] %{message}[end]"));
    environment.insert(QStringLiteral("VELMORA_THEME_CHECKS"), QStringLiteral("1")); // a token that a table lacks is a complaint
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(GALLERY_PROGRAM), arguments);
    Run run;
    if (process.waitForFinished(240000) && process.exitStatus() == QProcess::NormalExit)
        run.exitCode = process.exitCode();
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.log = QString::fromUtf8(process.readAllStandardError());
    return run;
}

// What the log holds besides the start-up facts, what a busy machine says of tasks over a tenth of a second, and what the
// offscreen platform says of windows.
QStringList Complaints(QString log)
{
    static const QRegularExpression expected(
        QStringLiteral("\\[\\w+\\] (QcStyleManager::LoadFont|QcTaskDispatcher::ExecuteTask: |This plugin does not support ).*?\\[end\\]\n"),
        QRegularExpression::DotMatchesEverythingOption);
    return log.remove(expected).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

// True if so many different colours stand on every fourth pixel of every fourth row: a blank picture has one.
bool HasContent(const QImage &image)
{
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); y += 4) {
        for (int x = 0; x < image.width(); x += 4)
            colors.insert(image.pixel(x, y));
    }
    return colors.size() >= 16;
}

class tst_Gallery : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_page_renders_in_every_table();
    void one_page_renders_alone();
    void a_language_from_right_to_left_mirrors_a_page();
    void list_names_the_pages();
    void wrong_calls_fail_data();
    void wrong_calls_fail();
};

void tst_Gallery::every_page_renders_in_every_table()
{
    const QString folder = QStringLiteral(GALLERY_PICTURES);
    QDir(folder).removeRecursively();
    const QStringList pages = RunGallery({QStringLiteral("--list")}).out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QVERIFY(pages.size() >= 9);

    const Run run = RunGallery({QStringLiteral("--render"), folder});
    QCOMPARE(Complaints(run.log), QStringList());
    QCOMPARE(run.exitCode, 0);
    for (const QString &page : pages) {
        for (const QString &table :
             {QStringLiteral("light"), QStringLiteral("dark"), QStringLiteral("contrast-light"), QStringLiteral("contrast-dark")}) {
            const QString file = QStringLiteral("%1/%2-%3.png").arg(folder, page, table);
            const QImage image(file);
            QVERIFY2(run.out.contains(file), qPrintable(file));
            QVERIFY2(image.width() >= 1280 && image.height() >= 800, qPrintable(file));
            QVERIFY2(HasContent(image), qPrintable(file));
            // The ground at the right edge, where no page paints: bright in light tables, dark in the others.
            const int ground = qGray(image.pixel(image.width() - 4, 400));
            QVERIFY2(table.endsWith(QLatin1String("light")) ? ground > 200 : ground < 60, qPrintable(file));
        }
    }
    QCOMPARE(QDir(folder).entryList(QDir::Files).size(), 4 * pages.size());
}

void tst_Gallery::one_page_renders_alone()
{
    QTemporaryDir folder;
    const Run run = RunGallery({QStringLiteral("--render"), folder.path(), QStringLiteral("--page"), QStringLiteral("labels")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files, QDir::Name),
             QStringList({QStringLiteral("labels-contrast-dark.png"), QStringLiteral("labels-contrast-light.png"),
                          QStringLiteral("labels-dark.png"), QStringLiteral("labels-light.png")}));
}

void tst_Gallery::a_language_from_right_to_left_mirrors_a_page()
{
    // The ground at both edges: that of the list of pages, and that of the page.
    const auto grounds = [](const QString &language) {
        QTemporaryDir folder;
        const Run run = RunGallery({QStringLiteral("--render"), folder.path(), QStringLiteral("--page"), QStringLiteral("windows"),
                                    QStringLiteral("--language"), language});
        const QImage image(folder.filePath(QStringLiteral("windows-light.png")));
        const bool isFine = run.exitCode == 0 && Complaints(run.log).isEmpty();
        return isFine ? QVector<QRgb>{image.pixel(6, 400), image.pixel(image.width() - 7, 400)} : QVector<QRgb>{0, 0};
    };
    const QVector<QRgb> german = grounds(QStringLiteral("de"));
    const QVector<QRgb> arabic = grounds(QStringLiteral("ar"));
    QVERIFY(german.at(0) != german.at(1));
    QCOMPARE(arabic, QVector<QRgb>({german.at(1), german.at(0)}));
}

void tst_Gallery::list_names_the_pages()
{
    const Run run = RunGallery({QStringLiteral("--list")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out.split(QLatin1Char('\n')).first(), QStringLiteral("colours"));
    QCOMPARE(Complaints(run.log), QStringList());
}

void tst_Gallery::wrong_calls_fail_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    QTest::newRow("unknown page") << QStringList(
        {QStringLiteral("--render"), QStringLiteral("x"), QStringLiteral("--page"), QStringLiteral("nosuch")})
                                  << QStringLiteral("no page \"nosuch\"");
    QTest::newRow("unknown table") << QStringList(
        {QStringLiteral("--render"), QStringLiteral("x"), QStringLiteral("--table"), QStringLiteral("blue")})
                                   << QStringLiteral("the table is light, dark, contrast-light or contrast-dark, not \"blue\"");
    QTest::newRow("unknown language") << QStringList(
        {QStringLiteral("--render"), QStringLiteral("x"), QStringLiteral("--language"), QStringLiteral("tlh")})
                                      << QStringLiteral("the language is one of ar, de, en, es, fr, ja, ru, zh_CN, not \"tlh\"");
    QTest::newRow("a file in the folder's place")
        << QStringList({QStringLiteral("--render"), QStringLiteral(GALLERY_PROGRAM)}) << QStringLiteral("cannot make the folder");
    QTest::newRow("a window without a display") << QStringList() << QStringLiteral("there is no display");
}

void tst_Gallery::wrong_calls_fail()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    const Run run = RunGallery(arguments);
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.log.contains(message), qPrintable(run.log));
}

} // namespace

VELMORA_BARE_TEST_MAIN(tst_Gallery)

#include "tst_Gallery.moc"
