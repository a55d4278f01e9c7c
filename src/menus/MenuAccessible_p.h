#pragma once

namespace Velmora {

/// Makes Qt describe our menus to assistive technology through an interface of our own, which tells of each item what Qt's leaves out: that
/// it opens a menu, and a name without its shortcut. To be called by each menu: Qt forgets it with the application object, and ignores a
/// repetition.
void InstallMenuAccessibility();

} // namespace Velmora
