#pragma once

namespace Velmora {

/// Where a panel goes. The first four are sides of a target, the outer ones edges of a whole container.
enum DockPosition : int {
    Left = 0,
    Right = 1,
    Top = 2,
    Bottom = 3,
    /// Joins the target as a tab.
    Center = 4,
    OuterLeft = 5,
    OuterRight = 6,
    OuterTop = 7,
    OuterBottom = 8,
    /// Nowhere.
    NoPosition = 9
};

} // namespace Velmora
