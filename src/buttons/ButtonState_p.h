#pragma once

#include <QStyle>

#include <array>

namespace Velmora {

/// The eight looks of a self-painted button, as keys of its tables.
namespace ButtonState {

constexpr int kDisabled = QStyle::State_None;
constexpr int kNormal = QStyle::State_Enabled;
constexpr int kHover = QStyle::State_Enabled | QStyle::State_MouseOver;
constexpr int kPressed = QStyle::State_Enabled | QStyle::State_Sunken;
constexpr int kCheckedDisabled = QStyle::State_Selected;
constexpr int kCheckedNormal = QStyle::State_Selected | QStyle::State_Enabled;
constexpr int kCheckedHover = QStyle::State_Selected | QStyle::State_Enabled | QStyle::State_MouseOver;
constexpr int kCheckedPressed = QStyle::State_Selected | QStyle::State_Enabled | QStyle::State_Sunken;

/// All of them, in the order in which state tables list them.
constexpr std::array<int, 8> kAll = {kDisabled,        kNormal,        kHover,        kPressed,
                                     kCheckedDisabled, kCheckedNormal, kCheckedHover, kCheckedPressed};

/// The look for any combination of the four state flags: disabled before pressed, pressed before hover.
inline QStyle::State LookFor(int flags)
{
    const int selected = flags & QStyle::State_Selected;
    if (!(flags & QStyle::State_Enabled))
        return QStyle::State(selected);
    if (flags & QStyle::State_Sunken)
        return QStyle::State(selected | kPressed);
    if (flags & QStyle::State_MouseOver)
        return QStyle::State(selected | kHover);
    return QStyle::State(selected | kNormal);
}

} // namespace ButtonState

} // namespace Velmora
