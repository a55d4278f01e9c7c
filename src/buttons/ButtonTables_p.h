#pragma once

#include "buttons/ButtonState_p.h"

#include <Velmora/ImageParams.h>

#include <QHash>
#include <QSize>
#include <QString>
#include <QStyle>

#include <array>

namespace Velmora {

class QcButton;

/// Colour codes for the eight looks: disabled, normal, hover, pressed, then the same four checked. A null sets no entry.
using StateTokens = std::array<const char *, 8>;

using CodeTable = QHash<QStyle::State, QString>;
using IconTable = QHash<QStyle::State, ImageParams>;

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

/// \a tokens without an entry for a button that is checked and disabled.
constexpr StateTokens WithoutCheckedDisabled(StateTokens tokens)
{
    tokens[4] = nullptr;
    return tokens;
}

/// A soft fill under the cursor, checked or not.
constexpr StateTokens kSoftBackground = {
    "transparent", "transparent", "bg/bg_transluent_strong_hover", "bg/bg_transluent_strong_press",
    "transparent", "transparent", "bg/bg_transluent_strong_hover", "bg/bg_transluent_strong_press",
};

/// A soft fill under the cursor, a stronger one whenever checked: the ground of icons in a toolbar.
constexpr StateTokens kToolBackground = {
    "transparent",
    "transparent",
    "bg/bg_transluent_strong_hover",
    "bg/bg_transluent_strong_press",
    "bg/bg_transluent_strong_active",
    "bg/bg_transluent_strong_active",
    "bg/bg_transluent_strong_active",
    "bg/bg_transluent_strong_active",
};

constexpr StateTokens kToolIcon = DisabledAndOther("icon/icon_toolbar_disable", "icon/icon_toolbar");

/// The arrow beside such an icon. Checked and disabled there is none.
constexpr StateTokens kToolArrow = WithoutCheckedDisabled(kToolIcon);

/// The image of the arrow that announces a menu.
constexpr const char *kMenuArrow = ":/images/arrow_down_2.svg";

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

/// A table of \a tokens, and one of an icon in each of them. Without a path they colour the icon that the button has in all states.
CodeTable CodesOf(const StateTokens &tokens);
IconTable IconsOf(const StateTokens &tokens, const char *path = "", const QSize &size = QSize());

/// What all tool buttons have in common.
const CodeTable &ToolBackgrounds();
const IconTable &ToolIcons();

/// Enters \a entries into \a table. An empty one shares them: a thousand buttons then have one table, until a host changes an entry.
template <typename Value>
void Enter(QHash<QStyle::State, Value> &table, const QHash<QStyle::State, Value> &entries)
{
    if (table.isEmpty()) {
        table = entries;
        return;
    }
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
        table.insert(entry.key(), entry.value());
}

/// The tables of a variant, filled once for all its buttons.
struct FilledTables
{
    explicit FilledTables(const ButtonTables &tables);

    CodeTable background;
    CodeTable border;
    CodeTable text;
    IconTable icon;
};

/// Enters \a tables into \a button.
void InstallTables(QcButton &button, const FilledTables &tables);

} // namespace Velmora
