#pragma once

#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// Whether faults of a program's theme are told, each once, as a warning: what paints black without a word otherwise.
///
/// - "Theme check: :/colors/blue_light.ini has no token "brand/bran"": a code that the table lacks, and that is no colour's name of Qt, was
///   asked for by GetColor(), a stylesheet or an image.
/// - "Theme check: Velmora::QcFrame "sidebar" is painted before a colour table is loaded": so is a control of the kit, or a widget that is
///   registered with the theme engine. Load the table before a window shows.
///
/// Off at first, unless the environment has VELMORA_THEME_CHECKS when QcApplication is made. It is for developers: while it is on,
/// unknown names cost a little more, and so do paint events until a table is loaded. Off and on again, it tells anew. Main thread.
VELMORA_EXPORT void SetThemeChecksEnabled(bool enabled);
VELMORA_EXPORT bool ThemeChecksEnabled();

} // namespace Velmora
