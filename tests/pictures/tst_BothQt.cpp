#include "support/TestCase.h"
#include "support/TestMain.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <iterator>

using namespace VelmoraTest;

namespace {

/// What two rasterisers make of the same curve.
constexpr int kCurves = 8;
/// What they make of glyphs and underlines that lie between two pixels.
constexpr int kTexts = 64;

/// By how much a channel of \a pixel lies beyond what that of \a picture is around a place. A channel is the place of its bits.
int BeyondChannel(QRgb pixel, int channel, const QImage &picture, const QRect &around)
{
    int least = 255;
    int most = 0;
    for (int y = around.top(); y <= around.bottom(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        for (int x = around.left(); x <= around.right(); ++x) {
            const int value = line[x] >> channel & 0xff;
            least = std::min(least, value);
            most = std::max(most, value);
        }
    }
    const int value = pixel >> channel & 0xff;
    return std::max({0, least - value, value - most});
}

/// The most that a pixel of \a picture lies beyond the pixels of \a other which are \a reach away from its place or less.
int Beyond(const QImage &picture, const QImage &other, int reach)
{
    int most = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const QRect around = QRect(x - reach, y - reach, 2 * reach + 1, 2 * reach + 1) & other.rect();
            for (const int channel : {0, 8, 16})
                most = std::max(most, BeyondChannel(line[x], channel, other, around));
        }
    }
    return most;
}

} // namespace

/// Each control as it is drawn with Qt 5 and with Qt 6, by a program of each.
class tst_BothQt : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void controls_without_a_text_look_the_same();
    void texts_of_controls_lie_a_pixel_apart_at_most();

private:
    void Draw(const QString &program, const QTemporaryDir &folder);
    /// The pictures of those names that differ.
    QStringList Different(const QStringList &names, int reach, int tolerance) const;

    QTemporaryDir m_withQt5;
    QTemporaryDir m_withQt6;
    QStringList m_names;
};

void tst_BothQt::Draw(const QString &program, const QTemporaryDir &folder)
{
    QVERIFY2(QFile::exists(program), qPrintable(program + QStringLiteral(" is to be built first")));
    QProcess process;
    process.start(program, {folder.path()});
    QVERIFY(process.waitForFinished(60000));
    QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0, process.readAllStandardError().constData());
}

void tst_BothQt::initTestCase()
{
    Draw(QStringLiteral(DRAWS_WITH_QT5), m_withQt5);
    if (!QTest::currentTestFailed())
        Draw(QStringLiteral(DRAWS_WITH_QT6), m_withQt6);
    m_names = QDir(m_withQt6.path()).entryList(QDir::Files, QDir::Name);
    QVERIFY(m_names.size() > 500);
    QCOMPARE(QDir(m_withQt5.path()).entryList(QDir::Files, QDir::Name), m_names);
}

QStringList tst_BothQt::Different(const QStringList &names, int reach, int tolerance) const
{
    QStringList different;
    for (const QString &name : names) {
        const QImage one = QImage(m_withQt5.filePath(name)).convertToFormat(QImage::Format_RGB32);
        const QImage other = QImage(m_withQt6.filePath(name)).convertToFormat(QImage::Format_RGB32);
        if (one.size() != other.size())
            different.append(QStringLiteral("%1: %2 px wide and %3 high, and %4 and %5")
                                 .arg(name)
                                 .arg(one.width())
                                 .arg(one.height())
                                 .arg(other.width())
                                 .arg(other.height()));
        else if (const int beyond = std::max(Beyond(one, other, reach), Beyond(other, one, reach)); beyond > tolerance)
            different.append(QStringLiteral("%1: by %2").arg(name).arg(beyond));
    }
    return different;
}

void tst_BothQt::controls_without_a_text_look_the_same()
{
    QStringList names;
    std::copy_if(m_names.cbegin(), m_names.cend(), std::back_inserter(names),
                 [](const QString &name) { return !name.contains(QLatin1String("-text")); });
    QVERIFY(names.size() > 300);
    const QStringList different = Different(names, 0, kCurves);
    QVERIFY2(different.isEmpty(), qPrintable(different.join(QLatin1Char('\n'))));
}

void tst_BothQt::texts_of_controls_lie_a_pixel_apart_at_most()
{
    const QStringList names = m_names.filter(QStringLiteral("-text"));
    QVERIFY(names.size() > 200);
    const QStringList different = Different(names, 1, kTexts);
    QVERIFY2(different.isEmpty(), qPrintable(different.join(QLatin1Char('\n'))));
}

VELMORA_BARE_TEST_MAIN(tst_BothQt)
#include "tst_BothQt.moc"
