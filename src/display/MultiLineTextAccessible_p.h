#pragma once

namespace Velmora {

/// Lets assistive technology see each QcMultiLineText as a static text whose name is the whole text, where the screen may show
/// a part of it. A name set by the host comes first. Its children are the links that show. Called for each control: Qt forgets it with the
/// application object.
void InstallTextAccessibility();

} // namespace Velmora
