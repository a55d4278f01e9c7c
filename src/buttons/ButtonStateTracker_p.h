#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QStyle>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QMenu;
class QResizeEvent;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// A reference to a state word, which one class keeps as a number and the others as flags.
class StateWord
{
public:
    StateWord(int &word) // NOLINT(google-explicit-constructor)
        : m_number(&word)
    {
    }
    StateWord(QStyle::State &word) // NOLINT(google-explicit-constructor)
        : m_flags(&word)
    {
    }

    int Flags() const { return m_number ? *m_number : int(*m_flags); }
    void Set(QStyle::StateFlag flag, bool on)
    {
        if (m_number)
            *m_number = on ? *m_number | flag : *m_number & ~flag;
        else
            m_flags->setFlag(flag, on);
    }

private:
    int *m_number = nullptr;
    QStyle::State *m_flags = nullptr;
};

/// Knows the state word of a self-painted button, and all that changes it. The button's event handlers forward to it, and its paint asks
/// it for the look.
///
/// While the button is hovered or pressed the tracker minds the popups that open: Qt tells nobody that the cursor leaves meanwhile, and the
/// release that ends the press is the popup's. When it has closed, the press is over, and so is the hover unless the cursor is still there.
///
/// To be owned by the button and to go before the rest of it: a menu that is the button's child dies after the button's own
/// destructor, and must then not reach it.
class ButtonStateTracker : public QObject
{
    Q_OBJECT

public:
    /// \a state is the state word of \a button, which repaints for each change.
    ButtonStateTracker(QAbstractButton &button, StateWord state);
    /// For \a half of a control that paints it, as checked as \a checked is.
    ButtonStateTracker(QAbstractButton &half, const QAbstractButton &checked, QWidget &painter, StateWord state);

    /// The state word, but for a change of the check that nobody told: of a button that stopped being checkable, or was checked with its
    /// signals blocked. While keyboard cues are on, a button that a key holds down is sunken too.
    QStyle::State Flags() const;
    QStyle::State Look() const;

    void Enter();
    void Leave();
    void Press();
    void Release();
    /// Ends hover and press, without a repaint, unless the cursor is in the rectangle of the button.
    void DropUnlessUnderCursor();
    /// From now on the button itself, while hovered or pressed, watches the application for what makes it drop a stale state: a press
    /// anywhere, and the application going to the background.
    void LetButtonWatchPresses();

    void ShowChecked(bool isChecked);
    /// State_Enabled as the button is enabled. To be called by the constructor too: a button made in a disabled parent is told before it
    /// can listen.
    void FollowEnabled();
    /// For a button whose size hint depends on its height: announces the hint if that changed.
    void FollowResize(const QResizeEvent &event);
    /// From now on the button looks pressed and checked while \a menu is open, wherever it is opened. Null and a menu already followed
    /// change nothing.
    void FollowMenu(QMenu *menu);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void SetFlag(QStyle::StateFlag flag, bool on);
    void ShowFlag(QStyle::StateFlag flag, bool on);
    void WatchWhileTouched();
    void ShowMenuOpen(bool isOpen);
    bool IsUnderCursor() const;
    bool IsHeldByKey() const;

    QAbstractButton &m_button;
    const QAbstractButton &m_checked;
    QWidget &m_painter;
    StateWord m_state;
    bool m_wasChecked = false; ///< when State_Selected was set or cleared last
    bool m_isTouched = false;  ///< hovered or pressed
    bool m_buttonWatchesPresses = false;
    QPointer<QWidget> m_popup;                ///< that opened while the button was hovered or pressed
    QHash<const QObject *, bool> m_openMenus; ///< each menu that is followed, and whether it is open
};

/// For a change of the enabled state: the cursor over a disabled \a widget forbids.
void ForbidCursorIfDisabled(QWidget &widget);

} // namespace Velmora
