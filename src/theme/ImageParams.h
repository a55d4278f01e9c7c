#pragma once

#include <Velmora/ColorParams.h>
#include <Velmora/VelmoraExport.h>

#include <QHash>
#include <QSize>
#include <QString>

namespace Velmora {

/// A request for an image: which file, how large, in which colours. See QcStyleManager::GetImage().
struct VELMORA_EXPORT ImageParams
{
    /// File or resource path. Only the exact suffix "svg" is recoloured and scaled.
    QString path;
    /// Size in pixels of an SVG's image; the aspect ratio is not kept. An empty or invalid size gives no image.
    QSize size;
    /// The one colour that every fill and stroke of an SVG takes. An empty code means none.
    ColorParams color;
    /// From a colour text as it stands in the SVG, such as "#000000" (compared exactly), to the colour in its place.
    /// Used only while color is empty.
    QHash<QString, ColorParams> mulColor;
};

} // namespace Velmora
