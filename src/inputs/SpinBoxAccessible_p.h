#pragma once

namespace Velmora {

/// Makes Qt describe our spin boxes to assistive technology through an interface of our own: of Qt's no word could be read at the end of
/// the text. To be called for each spin box: Qt forgets it with the application object, and ignores a repetition.
void InstallSpinBoxAccessibility();

} // namespace Velmora
