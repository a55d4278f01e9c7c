#pragma once

namespace Velmora {

/// Makes Qt describe our buttons to assistive technology through an interface of our own: Qt's would leave an icon-only
/// button without a name. Takes effect once; later calls do nothing.
void InstallButtonAccessibility();

} // namespace Velmora
