#pragma once

#include <QObject>
#include <QVector>

QT_BEGIN_NAMESPACE
class QAbstractButton;
QT_END_NAMESPACE

namespace Gallery {

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

} // namespace Gallery
