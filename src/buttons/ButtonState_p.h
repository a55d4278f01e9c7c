#pragma once

#include <QAbstractButton>
#include <QPointer>
#include <QStyle>
#include <QWidget>

#include <array>

QT_BEGIN_NAMESPACE
class QResizeEvent;
QT_END_NAMESPACE

namespace Velmora {

/// The state word of a self-painted button, kept by hand, and the eight looks that it gives, as keys of the button's tables.
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

inline QStyle::State LookFor(QStyle::State flags)
{
    return LookFor(int(flags));
}

/// Sets or clears \a flag in \a state, which is an int or a QStyle::State.
template <typename State>
void SetFlag(State &state, QStyle::StateFlag flag, bool on)
{
    state = on ? state | flag : state & ~flag;
}

/// Sets or clears \a flag in the \a state of \a button, which repaints.
template <typename State>
void ShowFlag(QWidget &button, State &state, QStyle::StateFlag flag, bool on)
{
    SetFlag(state, flag, on);
    button.update();
}

/// For a change of the checked state: State_Selected follows in each of \a states. To be called by the paint too: a button that stops
/// being checkable, or is checked with its signals blocked, tells nobody.
template <typename... States>
void FollowChecked(const QAbstractButton &button, States &...states)
{
    (SetFlag(states, QStyle::State_Selected, button.isChecked()), ...);
}

/// Whether the cursor is in the rectangle of \a button, whatever Qt was told last.
bool IsUnderCursor(const QWidget &button);

/// For a change of the enabled state: the cursor over a disabled \a button forbids; it repaints.
void ShowEnabled(QWidget &button);

/// For a change of the enabled state: State_Enabled follows in each of \a states, the cursor forbids, \a button repaints. To be
/// called by the constructor too: a button made in a disabled parent is told before it can listen.
template <typename... States>
void FollowEnabled(QWidget &button, States &...states)
{
    (SetFlag(states, QStyle::State_Enabled, button.isEnabled()), ...);
    ShowEnabled(button);
}

/// For a menu that closes. The press that opened it is over: its release was the menu's. While a menu is open Qt tells nobody that the
/// cursor leaves, and afterwards it has forgotten whom it entered. \a button repaints.
template <typename State>
void EndPress(QWidget &button, State &state)
{
    SetFlag(state, QStyle::State_Sunken, false);
    if (!IsUnderCursor(button))
        SetFlag(state, QStyle::State_MouseOver, false);
    button.update();
}

/// Runs \a handle, Qt's handler of a press or of a timer. If \a mayOpenMenu, as by a left press or while \a button is down, it may open a
/// menu and then returns when that has closed, with the button up or even deleted.
template <typename State, typename Handle>
void HandlePress(QAbstractButton &button, State &state, bool mayOpenMenu, const Handle &handle)
{
    const QPointer<QAbstractButton> alive(&button);
    handle();
    if (mayOpenMenu && alive && !button.isDown())
        EndPress(button, state);
}

/// For a resize of a \a button whose size hint depends on its height: announces the hint if that changed.
void AnnounceHeight(QWidget &button, const QResizeEvent &event);

} // namespace ButtonState

} // namespace Velmora
