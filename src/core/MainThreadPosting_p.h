#pragma once

namespace Velmora {

class QcTaskDispatcher;

/// Says through which dispatcher PostOwnedTask() posts; null while there is none, which is how a program starts.
///
/// The application object fills it in for as long as it lives, or who serves a plain one, since core knows no application object.
void SetPostingDispatcher(QcTaskDispatcher *dispatcher);
bool HasPostingDispatcher();

} // namespace Velmora
