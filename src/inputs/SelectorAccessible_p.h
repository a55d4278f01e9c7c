#pragma once

namespace Velmora {

/// Makes Qt describe selectors to assistive technology through an interface of our own: on Linux that of a combo box calls itself by its
/// text, whatever label or name it has, and does not tell whether its list is open. To be called for each selector: Qt
/// forgets it with the application object, and ignores a repetition.
void InstallSelectorAccessibility();

} // namespace Velmora
