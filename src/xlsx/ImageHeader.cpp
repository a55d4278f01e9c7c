#include "xlsx/ImageHeader_p.h"

#include <QtEndian>

#include <cstdlib>

namespace Velmora {

namespace {

struct Size
{
    double width = 0;
    double height = 0;
};

/// Numbers at places of an image; 0 behind its end.
class Bytes
{
public:
    Bytes(const QByteArray &image, bool isBigEndian)
        : m_image(image)
        , m_isBigEndian(isBigEndian)
    {
    }

    quint8 U8(qint64 at) const { return Has(at, 1) ? quint8(m_image.at(int(at))) : 0; }
    quint16 U16(qint64 at) const { return Number<quint16>(at); }
    quint32 U32(qint64 at) const { return Number<quint32>(at); }
    bool Has(qint64 at, qint64 size) const { return at >= 0 && at + size <= m_image.size(); }
    bool Has(qint64 at, const char *text) const { return Has(at, qint64(qstrlen(text))) && qstrncmp(Data(at), text, qstrlen(text)) == 0; }

private:
    const char *Data(qint64 at) const { return m_image.constData() + at; }
    template <typename Type>
    Type Number(qint64 at) const
    {
        if (!Has(at, sizeof(Type)))
            return 0;
        return m_isBigEndian ? qFromBigEndian<Type>(Data(at)) : qFromLittleEndian<Type>(Data(at));
    }

    const QByteArray &m_image;
    bool m_isBigEndian;
};

/// What is shown of pixels that are not square.
Size Shown(Size pixels, double pixelsPerUnitAcross, double pixelsPerUnitDown)
{
    if (pixelsPerUnitAcross > 0 && pixelsPerUnitDown > 0)
        return {pixels.width / pixelsPerUnitAcross, pixels.height / pixelsPerUnitDown};
    return pixels;
}

Size SizeOfPng(const QByteArray &image)
{
    const Bytes bytes(image, true);
    if (!bytes.Has(12, "IHDR"))
        return {};
    const Size pixels{double(bytes.U32(16)), double(bytes.U32(20))};
    // The chunks in front of the pixels may say how large one is.
    for (qint64 chunk = 8; bytes.Has(chunk, 8) && !bytes.Has(chunk + 4, "IDAT"); chunk += 12 + qint64(bytes.U32(chunk))) {
        if (bytes.Has(chunk + 4, "pHYs"))
            return Shown(pixels, bytes.U32(chunk + 8), bytes.U32(chunk + 12));
    }
    return pixels;
}

Size SizeOfJpeg(const QByteArray &image)
{
    const Bytes bytes(image, true);
    double across = 0;
    double down = 0;
    qint64 at = 2;
    while (bytes.U8(at) == 0xff) {
        const quint8 marker = bytes.U8(at + 1);
        if (marker == 0xff) { // filling
            ++at;
            continue;
        }
        if (marker == 0xe0 && bytes.Has(at + 4, "JFIF")) {
            across = bytes.U16(at + 12);
            down = bytes.U16(at + 14);
        }
        const bool beginsFrame = marker >= 0xc0 && marker <= 0xcf && marker != 0xc4 && marker != 0xc8 && marker != 0xcc;
        if (beginsFrame)
            return Shown({double(bytes.U16(at + 7)), double(bytes.U16(at + 5))}, across, down);
        at += 2 + qint64(bytes.U16(at + 2));
    }
    return {};
}

Size SizeOfGif(const QByteArray &image)
{
    const Bytes bytes(image, false);
    return {double(bytes.U16(6)), double(bytes.U16(8))};
}

Size SizeOfBmp(const QByteArray &image)
{
    const Bytes bytes(image, false);
    if (bytes.U32(14) == 12)
        return {double(bytes.U16(18)), double(bytes.U16(20))};
    // One that is stored from its top has a negative height.
    return {double(qint32(bytes.U32(18))), std::abs(double(qint32(bytes.U32(22))))};
}

Size SizeOfTiff(const QByteArray &image)
{
    const Bytes bytes(image, image.startsWith('M'));
    constexpr quint16 kWidth = 256, kHeight = 257, kShort = 3;
    const qint64 directory = bytes.U32(4);
    Size size;
    for (int i = 0; i < bytes.U16(directory); ++i) {
        const qint64 field = directory + 2 + 12 * i;
        const double value = bytes.U16(field + 2) == kShort ? bytes.U16(field + 8) : bytes.U32(field + 8);
        if (bytes.U16(field) == kWidth)
            size.width = value;
        else if (bytes.U16(field) == kHeight)
            size.height = value;
    }
    return size;
}

Size SizeOfEmf(const QByteArray &image)
{
    const Bytes bytes(image, false);
    const auto number = [&bytes](int at) { return double(qint32(bytes.U32(at))); };
    return {number(32) - number(24), number(36) - number(28)};
}

Size SizeOfWmf(const QByteArray &image)
{
    const Bytes bytes(image, false);
    const auto number = [&bytes](int at) { return double(qint16(bytes.U16(at))); };
    return {std::abs(number(10) - number(6)), std::abs(number(12) - number(8))};
}

} // namespace

std::optional<ImageHeader> ReadImageHeader(const QByteArray &image)
{
    const auto header = [](const char *extension, const char *contentType, Size size) -> std::optional<ImageHeader> {
        if (size.width <= 0 || size.height <= 0)
            return std::nullopt;
        return ImageHeader{extension, contentType, size.width, size.height};
    };
    if (image.startsWith("\x89PNG\r\n\x1a\n"))
        return header("png", "image/png", SizeOfPng(image));
    if (image.startsWith("\xff\xd8\xff"))
        return header("jpeg", "image/jpeg", SizeOfJpeg(image));
    if (image.startsWith("GIF87a") || image.startsWith("GIF89a"))
        return header("gif", "image/gif", SizeOfGif(image));
    if (image.startsWith("BM"))
        return header("bmp", "image/bmp", SizeOfBmp(image));
    if (image.startsWith(QByteArray("II*\0", 4)) || image.startsWith(QByteArray("MM\0*", 4)))
        return header("tiff", "image/tiff", SizeOfTiff(image));
    if (image.startsWith(QByteArray("\1\0\0\0", 4)) && image.mid(40, 4) == " EMF")
        return header("emf", "image/x-emf", SizeOfEmf(image));
    if (image.startsWith("\xd7\xcd\xc6\x9a"))
        return header("wmf", "image/x-wmf", SizeOfWmf(image));
    return std::nullopt;
}

bool IsSvg(const QByteArray &image)
{
    return image.left(4096).contains("<svg");
}

} // namespace Velmora
