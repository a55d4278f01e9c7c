#pragma once

namespace Velmora {

/// Makes Qt describe panels, their tabs and the rows of tabs as what they are to assistive technology. To be called by the constructor
/// of each: Qt forgets it with the application object, and ignores a repetition.
void InstallDockAccessibility();

} // namespace Velmora
