#pragma once

#include <QWidget>

#include <memory>

namespace VelmoraTest {

/// What the form every_control.ui describes, made by the code that a host would write.
std::unique_ptr<QWidget> EveryControlByHand();
/// Likewise designed_window.ui and designed_dialog.ui.
std::unique_ptr<QWidget> WindowByHand();
std::unique_ptr<QWidget> DialogByHand();

} // namespace VelmoraTest
