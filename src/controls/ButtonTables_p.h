#pragma once

#include <array>

namespace Velmora {

class QcButton;

/// Colour codes for the eight looks: disabled, normal, hover, pressed, then the same four checked. A null sets no entry.
using StateTokens = std::array<const char *, 8>;

constexpr StateTokens kNoTokens = {};

/// The same code in all eight looks.
constexpr StateTokens AllStates(const char *code)
{
    return {code, code, code, code, code, code, code, code};
}

/// One code while disabled and unchecked, another in the seven other looks.
constexpr StateTokens DisabledAndOther(const char *disabled, const char *other)
{
    return {disabled, other, other, other, other, other, other, other};
}

/// A soft fill under the cursor, checked or not.
constexpr StateTokens kSoftBackground = {
    "transparent", "transparent", "bg/bg_transluent_strong_hover", "bg/bg_transluent_strong_press",
    "transparent", "transparent", "bg/bg_transluent_strong_hover", "bg/bg_transluent_strong_press",
};

constexpr StateTokens kLinkText = {
    "link/link_disable", "link/link", "link/link_hover", "link/link_press", "link/link", "link/link", "link/link_hover", "link/link_press",
};

/// All that tells one variant of the push button from another.
struct ButtonTables
{
    StateTokens background;
    StateTokens border;
    StateTokens text;
    StateTokens icon;
};

/// A text that looks like a link: nothing behind or around it.
constexpr ButtonTables kLinkTables = {AllStates("transparent"), AllStates("transparent"), kLinkText, kLinkText};

/// Enters \a tables into \a button.
void InstallTables(QcButton &button, const ButtonTables &tables);

} // namespace Velmora
