#pragma once

#include <QByteArray>

#include <optional>

namespace Velmora {

/// What an image says of itself in its first bytes.
struct ImageHeader
{
    const char *extension;
    const char *contentType;
    double width; ///< in a unit of its own, the same for both
    double height;
};

/// PNG, JPEG, GIF, BMP, TIFF, EMF and placeable WMF, known by what they hold, not by a name. Nothing for any other image, and for one
/// without a size.
std::optional<ImageHeader> ReadImageHeader(const QByteArray &image);
bool IsSvg(const QByteArray &image);

} // namespace Velmora
