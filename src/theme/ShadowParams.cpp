#include <Velmora/ShadowParams.h>

#include <algorithm>

namespace Velmora {

void ShadowParams::MaxOpacityToAlphaFList()
{
    alphaFList.clear();
    const int steps = std::max({margins.left(), margins.top(), margins.right(), margins.bottom()});
    if (steps < 1)
        return;
    alphaFList.reserve(steps);
    for (int i = 0; i < steps; ++i)
        alphaFList.append((1.0 - double(i) / steps) * maxOpacity);
}

} // namespace Velmora
