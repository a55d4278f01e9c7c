#pragma once

namespace Velmora {

/// Makes Qt describe our buttons to assistive technology through an interface of our own: Qt's would leave an icon-only
/// button without a name. To be called for each button: Qt forgets it with the application object, and ignores a repetition.
void InstallButtonAccessibility();

} // namespace Velmora
