#pragma once

#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// Whether a veil, a QcMaskFrame or QcMaskWindow, keeps the keyboard out of what lies under it, as it does the mouse. Off at first. What
/// holds as a veil is shown holds until it is hidden, so that a host can leave one out. Main thread.
///
/// All that the veil covers wholly lies under it: of its window what was stacked below it, of a QcMaskWindow's parent's window all.
/// While it is shown, Tab passes that by, keys, shortcuts and setFocus() do not reach it, and the veil has the keyboard, or the first
/// control on it that Tab reaches; assistive technology hears that it is modal. As it goes, what had the keyboard gets it back.
VELMORA_EXPORT void SetVeilsStopKeyboard(bool enabled);
/// Off until SetVeilsStopKeyboard() says otherwise.
VELMORA_EXPORT bool VeilsStopKeyboard();

} // namespace Velmora
