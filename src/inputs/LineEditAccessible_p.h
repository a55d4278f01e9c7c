#pragma once

namespace Velmora {

/// Makes Qt describe our line edits to assistive technology through interfaces of our own: the edit inside a frame takes its
/// name from the frame, which is all that a host sees, and tells its unit and its warning. To be called for each edit: Qt forgets it with
/// the application object, and ignores a repetition.
void InstallLineEditAccessibility();

/// The same for the edit that Qt gives an editable selector, which is named by the selector. To be called for each selector.
void InstallSelectorEditAccessibility();

} // namespace Velmora
