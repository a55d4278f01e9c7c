#pragma once

#include "Kit.h"

#include <QObject>
#include <QStyle>
#include <QVector>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QGridLayout;
QT_END_NAMESPACE

namespace Gallery {

/// The eight states of a button, in the order of a state matrix.
constexpr int kButtonStates[] = {
    QStyle::State_None,
    QStyle::State_Enabled,
    QStyle::State_Enabled | QStyle::State_MouseOver,
    QStyle::State_Enabled | QStyle::State_Sunken,
    QStyle::State_Selected,
    QStyle::State_Selected | QStyle::State_Enabled,
    QStyle::State_Selected | QStyle::State_Enabled | QStyle::State_MouseOver,
    QStyle::State_Selected | QStyle::State_Enabled | QStyle::State_Sunken,
};
constexpr const char *kButtonStateNames[] = {"Disabled", "Normal", "Hover", "Pressed", "Disabled", "Normal", "Hover", "Pressed"};

/// A matrix with headings for them: names go into column 0, states into 1 to 8, from row 3 on.
QGridLayout *MakeStateGrid();

/// Real buttons, each held in one state.
///
/// Enabled and checked are set by the button's own calls. Hover and pressed are brought about as the mouse does it, by an enter
/// and a press event; they go straight to the button's event(), past the application's filters, because a press that the
/// application sees ends the hover of every other button. The user's own presses do just that, so after each one
/// the states are brought about anew. The real mouse cannot reach these buttons.
class StateHolder : public QObject
{
public:
    using QObject::QObject;

    /// Holds \a button in \a state, a combination of State_Enabled, State_MouseOver, State_Sunken and State_Selected.
    void Add(QAbstractButton *button, int state);
    /// Watches the user's presses. They are filtered for the whole program, so call it only while the buttons are visible.
    void Start();
    void Stop();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Held
    {
        QAbstractButton *button;
        int state;
    };

    void HoldAll();
    static void Hold(QObject *button, int state);

    QVector<Held> m_held;
    bool m_queued = false;
};

/// A page with buttons held in their states while it shows.
class StatesPage : public PageWidget
{
protected:
    StatesPage();

    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

    StateHolder *m_holder;
};

} // namespace Gallery
