#include "TestFiles.h"
#include "support/Pixels.h"
#include "support/TestMain.h"
#include "theme/ThemedPixmap_p.h"

#include <QPainter>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

ImageParams Glyph(const QSize &size)
{
    ImageParams params;
    params.path = QStringLiteral(":/images/close.svg");
    params.size = size;
    params.color = ColorParams("brand/brand");
    return params;
}

QImage Device(qreal ratio)
{
    QImage image(120, 120, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    return image;
}

QPixmap Public(const ImageParams &params, const QSize &size)
{
    ImageParams request = params;
    request.size = size;
    return QcStyleManager::GetInstance()->GetPixmap(request);
}

} // namespace

class TestThemedPixmap : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void at_ratio_1_it_is_the_public_picture_and_no_other_is_kept()
    {
        QImage device = Device(1.0);
        const QPainter painter(&device);
        const ImageParams params = Glyph(QSize(15, 16));
        const ThemedPixmap picture = PixmapFor(painter, params);
        QCOMPARE(picture.size, params.size);
        QCOMPARE(picture.pixmap.cacheKey(), Public(params, params.size).cacheKey());
        QCOMPARE(PixmapFor(painter, params, picture.pixmap).pixmap.cacheKey(), picture.pixmap.cacheKey());
        QCOMPARE(PixmapWithin(painter, params, QSize(16, 16)).pixmap.cacheKey(), picture.pixmap.cacheKey());
    }

    void at_other_ratios_it_is_the_public_picture_of_as_many_pixels_from_the_one_cache_data()
    {
        QTest::addColumn<double>("ratio");
        QTest::addColumn<QSize>("pixels");
        QTest::newRow("1.25") << 1.25 << QSize(19, 20);
        QTest::newRow("1.5") << 1.5 << QSize(23, 24); // a half counts as a whole
        QTest::newRow("2") << 2.0 << QSize(30, 32);
    }

    void at_other_ratios_it_is_the_public_picture_of_as_many_pixels_from_the_one_cache()
    {
        QFETCH(double, ratio);
        QFETCH(QSize, pixels);
        QImage device = Device(ratio);
        const QPainter painter(&device);
        const ImageParams params = Glyph(QSize(15, 16));
        const ThemedPixmap picture = PixmapFor(painter, params);
        QCOMPARE(picture.size, params.size);
        QCOMPARE(picture.pixmap.size(), pixels);
        QCOMPARE(picture.pixmap.devicePixelRatioF(), 1.0);
        const qint64 key = picture.pixmap.cacheKey();
        QCOMPARE(Public(params, pixels).cacheKey(), key);
        QCOMPARE(PixmapFor(painter, params, Public(params, params.size)).pixmap.cacheKey(), key);
        QCOMPARE(PixmapFor(painter, params).pixmap.cacheKey(), key); // nothing is copied or rendered for a second paint
    }

    void a_picture_too_large_is_made_smaller_in_proportion()
    {
        const ImageParams params = Glyph(QSize(12, 32));
        QImage single = Device(1.0);
        const ThemedPixmap small = PixmapWithin(QPainter(&single), params, QSize(20, 24));
        QCOMPARE(small.size, QSize(9, 24));
        QCOMPARE(small.pixmap.toImage(),
                 Public(params, params.size).scaled(9, 24, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).toImage());
        QImage twice = Device(2.0);
        const ThemedPixmap sharp = PixmapWithin(QPainter(&twice), params, QSize(20, 24));
        QCOMPARE(sharp.size, QSize(9, 24));
        QCOMPARE(sharp.pixmap.cacheKey(), Public(params, QSize(18, 48)).cacheKey());
    }

    void a_raster_image_keeps_the_pixels_of_its_file_and_is_stretched()
    {
        QPixmap file(24, 24);
        file.fill(Qt::red);
        ImageParams params;
        params.path = m_files.Path(QStringLiteral("square.png"));
        params.size = QSize(16, 16); // in as many pixels at 1.5 as the file has
        QVERIFY(file.save(params.path));
        QImage device = Device(1.5);
        QPainter painter(&device);
        const ThemedPixmap picture = PixmapFor(painter, params);
        QCOMPARE(picture.size, QSize(24, 24));
        QCOMPARE(picture.pixmap.cacheKey(), Public(params, params.size).cacheKey());
        DrawPixmap(painter, QRect(QPoint(10, 10), picture.size), picture);
        painter.end();
        QCOMPARE(InkBox(device, Qt::white), QRectF(10, 10, 24, 24));
    }

    void a_picture_lies_on_whole_pixels_wherever_it_stands_data()
    {
        QTest::addColumn<double>("ratio");
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<QPoint>("pixel");
        QTest::newRow("on a pixel") << 1.5 << QPoint(2, 4) << QPoint(3, 6);
        QTest::newRow("between two") << 1.5 << QPoint(3, 5) << QPoint(5, 8);
        QTest::newRow("nearer to the one before") << 1.25 << QPoint(1, 5) << QPoint(1, 6);
        QTest::newRow("over the edge") << 1.5 << QPoint(-1, -3) << QPoint(-1, -4);
        QTest::newRow("on twice as many") << 2.0 << QPoint(3, 5) << QPoint(6, 10);
    }

    void a_picture_lies_on_whole_pixels_wherever_it_stands()
    {
        QFETCH(double, ratio);
        QFETCH(QPoint, place);
        QFETCH(QPoint, pixel);
        const ImageParams params = Glyph(QSize(16, 16));
        QImage device = Device(ratio);
        QPainter painter(&device);
        painter.translate(1, 1);
        const QTransform before = painter.transform();
        const ThemedPixmap picture = PixmapFor(painter, params);
        DrawPixmap(painter, QRect(place - QPoint(1, 1), picture.size), picture);
        QCOMPARE(painter.transform(), before);
        painter.end();
        QImage expected = Device(1.0);
        QPainter(&expected).drawPixmap(pixel, Public(params, (QSizeF(16, 16) * ratio).toSize()));
        expected.setDevicePixelRatio(ratio);
        QCOMPARE(device, expected);
    }

    void a_painter_that_is_turned_or_scaled_transforms_the_picture()
    {
        const ImageParams params = Glyph(QSize(16, 16));
        for (const QTransform &transform : {QTransform().scale(2, 2), QTransform().translate(40, 0).rotate(30)}) {
            for (const qreal ratio : {1.0, 1.5}) {
                QImage device = Device(ratio);
                QPainter painter(&device);
                painter.setTransform(transform);
                const ThemedPixmap picture = PixmapFor(painter, params);
                DrawPixmap(painter, QRect(3, 5, 16, 16), picture);
                painter.end();
                QImage expected = Device(ratio);
                QPainter plain(&expected);
                plain.setTransform(transform);
                plain.drawPixmap(QRect(3, 5, 16, 16), picture.pixmap);
                plain.end();
                QCOMPARE(device, expected);
            }
        }
    }

    void no_picture_paints_nothing()
    {
        QImage device = Device(1.5);
        QPainter painter(&device);
        ImageParams missing = Glyph(QSize(16, 16));
        missing.path = QStringLiteral(":/images/none.svg");
        for (const ImageParams &params : {missing, Glyph(QSize()), Glyph(QSize(0, 0)), Glyph(QSize(-4, 16))}) {
            const ThemedPixmap picture = PixmapFor(painter, params);
            QVERIFY(picture.pixmap.isNull());
            QVERIFY(PixmapWithin(painter, params, QSize(8, -8)).pixmap.isNull());
            DrawPixmap(painter, QRect(0, 0, 16, 16), picture);
        }
        painter.end();
        QCOMPARE(device, Device(1.5));
    }

    void a_painter_without_a_device_harms_nothing()
    {
        QPainter painter;
        const ThemedPixmap picture = PixmapFor(painter, Glyph(QSize(16, 16)));
        QCOMPARE(picture.pixmap.size(), QSize(16, 16));
    }

private:
    TestFiles m_files;
};

VELMORA_TEST_MAIN(TestThemedPixmap)
#include "tst_ThemedPixmap.moc"
