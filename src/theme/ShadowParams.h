#pragma once

#include <Velmora/RadiusParams.h>
#include <Velmora/VelmoraExport.h>

#include <QList>
#include <QMargins>

namespace Velmora {

/// A drawn drop shadow around a panel. See DrawShadow().
struct VELMORA_EXPORT ShadowParams
{
    /// How far the shadow reaches out from the panel, side by side, in pixels.
    QMargins margins;
    /// Corner radii of the panel.
    RadiusParams radius;
    /// Alpha at the panel's edge, from 0.0 to 1.0.
    double maxOpacity = 0.0;
    /// Alphas from the panel's edge outward, one a pixel of the shadow's width.
    QList<double> alphaFList;

    /// Fills alphaFList from maxOpacity and the largest of margins: linear, from full strength at the panel's
    /// edge, not reaching zero. With no margin of at least 1 the list ends up empty.
    void MaxOpacityToAlphaFList();
};

} // namespace Velmora
