#pragma once

#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// Has the kit's controls painted, and follow the colour table, in a program whose application object is a plain QApplication that is not
/// ours to choose: Qt Designer, a loader of forms, the program that loads a plug-in. Call it before the first control is made, and choose
/// a table as ever.
///
/// Returns true if it began to serve the application object; false, and does nothing, if that is a QcApplication, is served already, or
/// is no QApplication. It does nothing to the rest of the program: unlike QcApplication::Initialize() it neither appends to the
/// application's stylesheet nor brings windows to the front, and keyboard cues stay off. A program of one's own makes a QcApplication.
/// Main thread.
VELMORA_EXPORT bool ServePlainApplication();

} // namespace Velmora
