#pragma once

namespace Velmora {

class QcDockContainer;

/// To be called when \a root shows: once its window has come to the screen, the panels that float under it come before it. They were there
/// first, and a window manager puts each newcomer in front.
void BringFloatsAbove(QcDockContainer &root);

} // namespace Velmora
