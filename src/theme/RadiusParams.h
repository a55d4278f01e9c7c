#pragma once

#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// Four corner radii in pixels, clockwise from the top left.
struct VELMORA_EXPORT RadiusParams
{
    double topLeft = 0.0;
    double topRight = 0.0;
    double bottomRight = 0.0;
    double bottomLeft = 0.0;
};

} // namespace Velmora
