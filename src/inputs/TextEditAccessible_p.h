#pragma once

namespace Velmora {

/// Makes Qt describe our text edits to assistive technology as it describes its own, but named by their frames, which are all that a
/// host sees. To be called for each edit: Qt forgets it with the application object, and ignores a repetition.
void InstallTextEditAccessibility();

} // namespace Velmora
