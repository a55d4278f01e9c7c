#include "TestFiles.h"
#include "support/TestMain.h"
#include "theme/ImageCache_p.h"

#include <QElapsedTimer>
#include <QFileInfo>

using namespace Velmora;
using VelmoraTest::Table;
using VelmoraTest::UseTable;

namespace {

ImageParams Request(const QString &path)
{
    ImageParams params;
    params.path = path;
    params.size = QSize(16, 16);
    params.color = "brand/brand";
    params.mulColor = {{QStringLiteral("#000000"), "tip/info"}, {QStringLiteral("#FFFFFF"), "tip/danger,0.5"}};
    return params;
}

} // namespace

class tst_ImageCache : public VelmoraTest::TestCase
{
    Q_OBJECT

private:
    VelmoraTest::TestFiles m_files;
    int m_renders = 0;

    void SetUp() override
    {
        UseTable(Table::Light);
        ImageCache::Clear();
        m_renders = 0;
    }

    ImageCache::Render Render()
    {
        return [this](const ImageParams &params) {
            ++m_renders;
            QImage image(params.size, QImage::Format_ARGB32);
            image.fill(QColor(m_renders % 256, 0, 0));
            return image;
        };
    }
    QImage Image(const ImageParams &params) { return ImageCache::Image(params, Render()); }
    QPixmap Pixmap(const ImageParams &params) { return ImageCache::Pixmap(params, Render()); }

    /// Writes until the file system's clock has gone on, so that the file looks changed for sure.
    void Rewrite(const QString &name, const QByteArray &content)
    {
        const QString path = m_files.Path(name);
        const auto before = QFileInfo(path).metadataChangeTime();
        QTRY_VERIFY(m_files.Write(name, content) == path && QFileInfo(path).metadataChangeTime() != before);
    }

private Q_SLOTS:
    void the_same_request_is_rendered_once()
    {
        const ImageParams params = Request(m_files.Write(QStringLiteral("a.svg"), "<svg/>"));
        const QImage image = Image(params);
        QCOMPARE(Image(params), image);
        QCOMPARE(Image(params).cacheKey(), image.cacheKey());
        QCOMPARE(Image(Request(params.path)).cacheKey(), image.cacheKey()); // equal, not the same record
        QCOMPARE(m_renders, 1);
    }

    void image_and_pixmap_of_a_request_share_one_rendering()
    {
        const ImageParams params = Request(m_files.Write(QStringLiteral("a.svg"), "<svg/>"));
        const QImage image = Image(params);
        const QPixmap pixmap = Pixmap(params);
        QCOMPARE(Pixmap(params).cacheKey(), pixmap.cacheKey());
        QCOMPARE(pixmap.toImage().convertToFormat(image.format()), image);
        QCOMPARE(m_renders, 1);

        ImageParams other = params;
        other.size = QSize(8, 8);
        const QPixmap first = Pixmap(other);
        QCOMPARE(Image(other).size(), QSize(8, 8));
        QCOMPARE(Pixmap(other).cacheKey(), first.cacheKey());
        QCOMPARE(m_renders, 2);
    }

    void every_field_tells_requests_apart()
    {
        const ImageParams params = Request(m_files.Write(QStringLiteral("a.svg"), "<svg/>"));
        QVector<ImageParams> others(12, params);
        others[0].path = m_files.Write(QStringLiteral("b.svg"), "<svg/>");
        others[1].size = QSize(16, 17);
        others[2].size = QSize(17, 16);
        others[3].color = "brand/brand_bg";
        others[4].color.alpha = 0.5;
        others[5].color = ColorParams();
        others[6].mulColor.clear();
        others[7].mulColor.remove(QStringLiteral("#000000"));
        others[8].mulColor[QStringLiteral("#000000")] = "tip/danger";
        others[9].mulColor[QStringLiteral("#000000")].alpha = 0.5;
        others[10].mulColor.insert(QStringLiteral("#ffffff"), "tip/info");
        others[11].mulColor = {{QStringLiteral("#000000"), "tip/danger,0.5"}, {QStringLiteral("#FFFFFF"), "tip/info"}};

        Image(params);
        for (int i = 0; i < others.size(); ++i) {
            Image(others.at(i));
            QCOMPARE(m_renders, i + 2);
        }
        for (const ImageParams &other : qAsConst(others))
            Image(other);
        Image(params);
        QCOMPARE(m_renders, others.size() + 1);
    }

    void an_alpha_that_is_no_number_is_found_again()
    {
        ImageParams params = Request(m_files.Write(QStringLiteral("a.svg"), "<svg/>"));
        params.color = "brand/brand,nan";
        Image(params);
        Image(params);
        QCOMPARE(m_renders, 1);
    }

    void a_change_of_the_table_forgets_everything()
    {
        const ImageParams params = Request(m_files.Write(QStringLiteral("a.svg"), "<svg/>"));
        Image(params);
        Pixmap(params);
        UseTable(Table::Dark);
        Image(params);
        Pixmap(params);
        QCOMPARE(m_renders, 2);
    }

    void the_signal_alone_does_too()
    {
        const ImageParams params = Request(m_files.Write(QStringLiteral("a.svg"), "<svg/>"));
        Image(params);
        Q_EMIT QcStyleManager::GetInstance()->SignalColorChanged();
        Image(params);
        QCOMPARE(m_renders, 2);
    }

    void a_file_that_changed_is_rendered_again()
    {
        const ImageParams params = Request(m_files.Write(QStringLiteral("a.svg"), "<svg/>"));
        Image(params);
        Rewrite(QStringLiteral("a.svg"), "<svg />");
        Image(params);
        QCOMPARE(m_renders, 2);
        Rewrite(QStringLiteral("a.svg"), "<svg\t/>"); // of the same size
        Pixmap(params);
        Image(params);
        QCOMPARE(m_renders, 3);
    }

    void a_file_that_went_and_came_back_is_rendered_again()
    {
        const ImageParams params = Request(m_files.Write(QStringLiteral("a.svg"), "<svg/>"));
        Image(params);
        QVERIFY(QFile::remove(params.path));
        QVERIFY(QcStyleManager::GetInstance()->GetImage(params).isNull());
        QVERIFY(QcStyleManager::GetInstance()->GetPixmap(params).isNull());
        Rewrite(QStringLiteral("a.svg"), "<svg  />");
        Image(params);
        QCOMPARE(m_renders, 2);
    }

    void resources_are_kept_too()
    {
        const ImageParams params = Request(QStringLiteral(":/images/close.svg"));
        Image(params);
        Pixmap(params);
        QCOMPARE(m_renders, 1);
    }

    // 32 mebibytes, in which an image counts twice, for its pixmap too, and a kibibyte beside.
    void memory_is_bounded_and_the_longest_unused_goes_first()
    {
        constexpr int kMostKept = 32 * 1024 / (2 * 256 + 1);
        ImageParams params = Request(m_files.Write(QStringLiteral("a.svg"), "<svg/>"));
        params.size = QSize(256, 256); // 256 kibibytes
        const auto isKept = [&](int number) {
            const int before = m_renders;
            params.color = QStringLiteral("#%1").arg(number, 6, 16, QLatin1Char('0'));
            Image(params);
            return m_renders == before;
        };
        for (int i = 0; i < kMostKept; ++i)
            QVERIFY(!isKept(i));
        for (int i = 0; i < kMostKept; ++i)
            QVERIFY2(isKept(i), qPrintable(QString::number(i)));
        QVERIFY(isKept(0)); // so that the next is the longest unused
        QVERIFY(!isKept(kMostKept));
        QVERIFY(isKept(0));
        for (int i = 2; i <= kMostKept; ++i)
            QVERIFY2(isKept(i), qPrintable(QString::number(i)));
        QVERIFY(!isKept(1));
    }

    void an_image_beyond_the_bound_is_given_and_not_kept_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("isKept");
        QTest::newRow("as large as all") << QSize(32767, 128) << true; // 16 mebibytes but for 512 bytes
        QTest::newRow("one pixel wider") << QSize(32768, 128) << false;
        QTest::newRow("much larger") << QSize(4000, 4000) << false;
    }

    void an_image_beyond_the_bound_is_given_and_not_kept()
    {
        QFETCH(QSize, size);
        QFETCH(bool, isKept);
        ImageParams params = Request(m_files.Write(QStringLiteral("a.svg"), "<svg/>"));
        params.size = size;
        QCOMPARE(Image(params).size(), size);
        QCOMPARE(Pixmap(params).size(), size);
        QCOMPARE(m_renders, isKept ? 1 : 2);
    }

    void what_a_caller_draws_on_an_image_stays_with_the_caller()
    {
        const ImageParams params = Request(m_files.Write(QStringLiteral("a.svg"), "<svg/>"));
        QImage mine = Image(params);
        mine.fill(Qt::green);
        QVERIFY(Image(params) != mine);
        QCOMPARE(m_renders, 1);
    }

    void the_manager_asks_the_cache()
    {
        const ImageParams params = Request(QStringLiteral(":/images/close.svg"));
        const QImage image = QcStyleManager::GetInstance()->GetImage(params);
        QCOMPARE(Image(params).cacheKey(), image.cacheKey());
        QCOMPARE(m_renders, 0);
        QCOMPARE(QcStyleManager::GetInstance()->GetPixmap(params).cacheKey(), Pixmap(params).cacheKey());
        QCOMPARE(m_renders, 0);
    }
};

VELMORA_TEST_MAIN(tst_ImageCache)
#include "tst_ImageCache.moc"
