#include "buttons/ButtonStateTracker_p.h"

#include "buttons/ButtonState_p.h"
#include "buttons/HeldEnter_p.h"
#include "core/ApplicationEvents_p.h"

#include <Velmora/KeyboardCues.h>

#include <QAbstractButton>
#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QResizeEvent>

namespace Velmora {

ButtonStateTracker::ButtonStateTracker(QAbstractButton &button, StateWord state)
    : ButtonStateTracker(button, button, button, state)
{
}

ButtonStateTracker::ButtonStateTracker(QAbstractButton &half, const QAbstractButton &checked, QWidget &painter, StateWord state)
    : m_button(half)
    , m_checked(checked)
    , m_painter(painter)
    , m_state(state)
{
    FollowEnabled();
    HeldEnter::Watch();
}

QStyle::State ButtonStateTracker::Flags() const
{
    QStyle::State flags(QFlag(m_state.Flags()));
    if (m_checked.isChecked() != m_wasChecked)
        flags.setFlag(QStyle::State_Selected, m_checked.isChecked());
    if (IsHeldByKey())
        flags |= QStyle::State_Sunken;
    return flags;
}

QStyle::State ButtonStateTracker::Look() const
{
    return ButtonState::LookFor(Flags());
}

// --- The keyboard ---

bool ButtonStateTracker::IsHeldByKey() const
{
    if (!KeyboardCuesEnabled())
        return false;
    // What the mouse does to the look is told by its events. Without it, Qt counts a button as down while Space is held, until the focus
    // goes or Escape comes, and for a moment when its mnemonic clicks it.
    return (m_button.isDown() && QGuiApplication::mouseButtons() == Qt::NoButton) || HeldEnter::Presses(m_button);
}

// --- The mouse ---

void ButtonStateTracker::Enter()
{
    ShowFlag(QStyle::State_MouseOver, true);
}

void ButtonStateTracker::Leave()
{
    ShowFlag(QStyle::State_MouseOver, false);
}

void ButtonStateTracker::Press()
{
    ShowFlag(QStyle::State_Sunken, true);
}

void ButtonStateTracker::Release()
{
    ShowFlag(QStyle::State_Sunken, false);
}

void ButtonStateTracker::DropUnlessUnderCursor()
{
    // Most buttons have nothing to drop, and asking for the cursor costs more than all the rest.
    if (!m_isTouched || IsUnderCursor())
        return;
    SetFlag(QStyle::State_MouseOver, false);
    SetFlag(QStyle::State_Sunken, false);
}

void ButtonStateTracker::LetButtonWatchPresses()
{
    m_buttonWatchesPresses = true;
}

void ButtonStateTracker::WatchWhileTouched()
{
    const bool isTouched = m_state.Flags() & (QStyle::State_MouseOver | QStyle::State_Sunken);
    if (isTouched == m_isTouched)
        return;
    m_isTouched = isTouched;
    if (isTouched) {
        WatchApplicationEvents(this, {QEvent::Show});
        if (m_buttonWatchesPresses)
            WatchApplicationEvents(&m_button, {QEvent::MouseButtonPress, QEvent::ApplicationDeactivate});
    } else {
        UnwatchApplicationEvents(this);
        UnwatchApplicationEvents(&m_button);
    }
}

bool ButtonStateTracker::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show && !m_popup && watched->isWidgetType()) {
        auto *widget = static_cast<QWidget *>(watched);
        if (widget->windowType() == Qt::Popup) {
            m_popup = widget;
            widget->installEventFilter(this);
        }
    } else if (event->type() == QEvent::Hide && watched == m_popup) {
        watched->removeEventFilter(this);
        m_popup.clear();
        SetFlag(QStyle::State_Sunken, false);
        DropUnlessUnderCursor();
        m_painter.update();
    }
    return false;
}

bool ButtonStateTracker::IsUnderCursor() const
{
    return m_button.rect().contains(m_button.mapFromGlobal(QCursor::pos()));
}

// --- Check, enabled state, size ---

void ButtonStateTracker::ShowChecked(bool isChecked)
{
    m_wasChecked = m_checked.isChecked();
    ShowFlag(QStyle::State_Selected, isChecked);
}

void ButtonStateTracker::FollowEnabled()
{
    ShowFlag(QStyle::State_Enabled, m_button.isEnabled());
    if (&m_button == &m_painter)
        ForbidCursorIfDisabled(m_button);
}

void ButtonStateTracker::FollowResize(const QResizeEvent &event)
{
    if (event.oldSize().height() != event.size().height())
        m_button.updateGeometry();
}

void ForbidCursorIfDisabled(QWidget &widget)
{
    if (widget.isEnabled())
        widget.unsetCursor();
    else
        widget.setCursor(Qt::ForbiddenCursor);
}

// --- Menus ---

void ButtonStateTracker::FollowMenu(QMenu *menu)
{
    if (!menu || m_openMenus.contains(menu))
        return;
    m_openMenus.insert(menu, false);
    const auto follow = [this, menu](bool isOpen) {
        m_openMenus[menu] = isOpen;
        ShowMenuOpen(isOpen);
    };
    connect(menu, &QMenu::aboutToHide, this, [follow] { follow(false); });
    connect(menu, &QMenu::aboutToShow, this, [follow] { follow(true); });
    // A menu that dies open does not say that it hides. It is forgotten: another may come to live at its address.
    connect(menu, &QObject::destroyed, this, [this, menu] {
        if (m_openMenus.take(menu))
            ShowMenuOpen(false);
    });
}

void ButtonStateTracker::ShowMenuOpen(bool isOpen)
{
    const QPointer<ButtonStateTracker> alive(this);
    m_button.setChecked(isOpen); // does nothing on a button that is not checkable, hence the flags
    if (!alive)
        return;
    SetFlag(QStyle::State_Sunken, isOpen);
    ShowChecked(isOpen);
}

// --- The state word ---

void ButtonStateTracker::SetFlag(QStyle::StateFlag flag, bool on)
{
    m_state.Set(flag, on);
    WatchWhileTouched();
}

void ButtonStateTracker::ShowFlag(QStyle::StateFlag flag, bool on)
{
    SetFlag(flag, on);
    m_painter.update();
}

} // namespace Velmora
