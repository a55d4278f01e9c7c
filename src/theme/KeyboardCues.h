#pragma once

#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// Whether the program shows what a user without a mouse needs to see: where the keyboard's focus is, and which keys a text names.
/// Off at first, and then nothing is drawn or watched. It may be switched at any time, before the application object is made too, and
/// what is shown follows. Main thread.
VELMORA_EXPORT void SetKeyboardCuesEnabled(bool enabled);
/// Off until SetKeyboardCuesEnabled() says otherwise.
VELMORA_EXPORT bool KeyboardCuesEnabled();

} // namespace Velmora
