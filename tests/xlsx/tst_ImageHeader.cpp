#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/ImageHeader_p.h"

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QtEndian>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

QByteArray Written(const char *format, int width, int height, int dotsPerMeterX = 0, int dotsPerMeterY = 0)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    if (dotsPerMeterX > 0) {
        image.setDotsPerMeterX(dotsPerMeterX);
        image.setDotsPerMeterY(dotsPerMeterY);
    }
    QByteArray bytes;
    QBuffer device(&bytes);
    device.open(QIODevice::WriteOnly);
    image.save(&device, format);
    return bytes;
}

QByteArray Little16(int value)
{
    QByteArray bytes(2, '\0');
    qToLittleEndian(qint16(value), bytes.data());
    return bytes;
}

QByteArray Little32(qint32 value)
{
    QByteArray bytes(4, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

QByteArray Gif(int width, int height)
{
    return "GIF89a" + Little16(width) + Little16(height) + QByteArray(3, '\0') + ';';
}

QByteArray Bmp(qint32 width, qint32 height)
{
    return "BM" + QByteArray(12, '\0') + Little32(40) + Little32(width) + Little32(height);
}

QByteArray LittleTiff(int width, qint32 height)
{
    return QByteArray("II*\0", 4) + Little32(8) + Little16(2) + Little16(256) + Little16(3) + Little32(1) + Little16(width) + Little16(0)
        + Little16(257) + Little16(4) + Little32(1) + Little32(height);
}

QByteArray Emf(qint32 left, qint32 top, qint32 right, qint32 bottom)
{
    return Little32(1) + Little32(108) + QByteArray(16, '\0') + Little32(left) + Little32(top) + Little32(right) + Little32(bottom)
        + " EMF";
}

QByteArray Wmf(int left, int top, int right, int bottom)
{
    return "\xd7\xcd\xc6\x9a" + Little16(0) + Little16(left) + Little16(top) + Little16(right) + Little16(bottom);
}

} // namespace

class tst_ImageHeader : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void kind_and_proportions_are_read_data()
    {
        QTest::addColumn<QByteArray>("image");
        QTest::addColumn<QByteArray>("extension");
        QTest::addColumn<double>("proportion");
        QTest::newRow("PNG") << Written("PNG", 40, 30) << QByteArray("png") << 40.0 / 30;
        QTest::newRow("PNG of oblong pixels") << Written("PNG", 40, 30, 4000, 2000) << QByteArray("png") << 20.0 / 30;
        QTest::newRow("JPEG") << Written("JPEG", 7, 300) << QByteArray("jpeg") << 7.0 / 300;
        QTest::newRow("JPEG of oblong pixels") << Written("JPEG", 50, 50, 4000, 2000) << QByteArray("jpeg") << 0.5;
        QTest::newRow("GIF") << Gif(300, 1) << QByteArray("gif") << 300.0;
        QTest::newRow("BMP of Qt") << Written("BMP", 12, 16) << QByteArray("bmp") << 0.75;
        QTest::newRow("BMP stored from its top") << Bmp(12, -16) << QByteArray("bmp") << 0.75;
        QTest::newRow("BMP of OS/2") << "BM" + QByteArray(12, '\0') + Little32(12) + Little16(12) + Little16(16) << QByteArray("bmp")
                                     << 0.75;
        QTest::newRow("TIFF") << LittleTiff(12, 16) << QByteArray("tiff") << 0.75;
        QTest::newRow("TIFF of the other order")
            << QByteArray("MM\0*\0\0\0\x08\0\x02\x01\0\0\x03\0\0\0\x01\0\x0c\0\0\x01\x01\0\x03\0\0\0\x01\0\x10\0\0", 34)
            << QByteArray("tiff") << 0.75;
        QTest::newRow("EMF") << Emf(-600, 0, 600, 1600) << QByteArray("emf") << 0.75;
        QTest::newRow("WMF") << Wmf(-6, -16, 6, 0) << QByteArray("wmf") << 0.75;
    }
    void kind_and_proportions_are_read()
    {
        QFETCH(QByteArray, image);
        QFETCH(QByteArray, extension);
        QFETCH(double, proportion);
        const auto header = ReadImageHeader(image);
        QVERIFY(header);
        QCOMPARE(QByteArray(header->extension), extension);
        QVERIFY2(qAbs(header->width / header->height / proportion - 1) < 0.01, QByteArray::number(header->width / header->height));
    }

    void what_is_no_image_is_none_data()
    {
        QTest::addColumn<QByteArray>("image");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("text") << QByteArray("logo.png");
        QTest::newRow("WebP") << QByteArray("RIFF\x20\0\0\0WEBPVP8 ", 16);
        QTest::newRow("PNG without a size") << QByteArray("\x89PNG\r\n\x1a\n");
        QTest::newRow("PNG of no width") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\0\0\0\0\x01", 24);
        QTest::newRow("GIF of no height") << Gif(5, 0);
        QTest::newRow("JPEG without a frame") << QByteArray("\xff\xd8\xff\xe0\0\x10JFIF\0", 11);
        QTest::newRow("JPEG whose segments have no length") << QByteArray("\xff\xd8\xff\xe0\0\0\0\0", 8);
        QTest::newRow("TIFF that leads out of itself") << QByteArray("II*\0\xff\xff\xff\xff", 8);
        QTest::newRow("WMF without a place") << QByteArray("\1\0\x09\0\0\3", 6);
        QTest::newRow("SVG") << QByteArray("<svg viewBox=\"0 0 4 3\"/>");
    }
    void what_is_no_image_is_none()
    {
        QFETCH(QByteArray, image);
        QVERIFY(!ReadImageHeader(image));
    }

    void an_image_may_be_cut_or_damaged_anywhere()
    {
        for (const QByteArray &image : {Written("PNG", 40, 30, 4000, 2000), Written("JPEG", 7, 300), LittleTiff(12, 16), Gif(3, 1)}) {
            for (int i = 0; i < qMin(image.size(), 300); ++i) {
                ReadImageHeader(image.left(i));
                for (const char byte : {'\0', '\xff', '\x7f'}) {
                    QByteArray damaged = image;
                    damaged[i] = byte;
                    const auto header = ReadImageHeader(damaged);
                    QVERIFY(!header || (header->width > 0 && header->height > 0));
                }
            }
        }
    }

    void svg_is_known_behind_its_declaration()
    {
        QVERIFY(IsSvg("<?xml version=\"1.0\"?><!-- made by hand --><svg xmlns=\"http://www.w3.org/2000/svg\"/>"));
        QVERIFY(!IsSvg("<html/>"));
    }
};

VELMORA_BARE_TEST_MAIN(tst_ImageHeader)
#include "tst_ImageHeader.moc"
