#pragma once

#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// Whether what the kit has no control for takes its colours from the colour table too: group boxes, tab widgets, tables and trees,
/// headers, tool tips, message boxes, file dialogs, wizards, tool bars, main windows, and any other plain Qt widget.
///
/// Off at first. While on, and once a table is loaded, the application's palette is the table's, and follows each change of it in the
/// call that changes it. A palette or stylesheet that a host gives a widget wins over it. Palettes of the application, and those that
/// classes of widgets have at first, wait until this is switched off, which brings back what would be without it; one that a class gets
/// meanwhile lasts until the next change of the table. The kit's own controls look as they do without.
///
/// It may be switched at any time, before the application object is made too, then with effect from QcApplication::Initialize() on.
/// Main thread.
VELMORA_EXPORT void SetPlainWidgetsFollowTable(bool follow);
/// Off until SetPlainWidgetsFollowTable() says otherwise.
VELMORA_EXPORT bool PlainWidgetsFollowTable();

} // namespace Velmora
