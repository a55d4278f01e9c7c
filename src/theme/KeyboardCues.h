#pragma once

#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// Whether the program shows what a user without a mouse needs to see: where the keyboard's focus is, and which keys a text names.
/// Off at first, and then nothing is drawn or watched. It may be switched at any time, before the application object is made too, and
/// what is shown follows. Main thread.
///
/// A letter behind an & in a text of a button, of a menu's item, of a tab or of a label with a buddy is then shown underlined, as the style
/// has it, and the & is neither painted nor counted in sizes; && is one &. A button that Space or Enter holds down looks pressed, and a
/// held Enter clicks once. Hover tips show for the keyboard's focus too. All widgets hear of a switch as of a change of style
/// (QEvent::StyleChange).
VELMORA_EXPORT void SetKeyboardCuesEnabled(bool enabled);
/// Off until SetKeyboardCuesEnabled() says otherwise.
VELMORA_EXPORT bool KeyboardCuesEnabled();

} // namespace Velmora
