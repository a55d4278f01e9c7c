#pragma once

namespace Velmora {

/// Makes Qt describe our buttons to assistive technology through an interface of our own: Qt's would leave an icon-only
/// button without a name, one of a group's tool buttons without its role, and a reader without answer while a click opens a dialog.
/// To be called for each button that derives from none of ours: Qt forgets it with the application object, and ignores a repetition.
void InstallButtonAccessibility();

} // namespace Velmora
