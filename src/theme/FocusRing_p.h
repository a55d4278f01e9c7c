#pragma once

#include <QFocusFrame>
#include <QPointer>

#include <vector>

QT_BEGIN_NAMESPACE
class QApplication;
QT_END_NAMESPACE

namespace Velmora {

struct FocusShape;

/// The ring itself, over all that its window shows. Of Qt's class for such a thing, which neither the mouse nor a layout finds, nor
/// assistive technology.
class FocusRingOverlay : public QFocusFrame
{
    Q_OBJECT

public:
    explicit FocusRingOverlay(QWidget &ground);

    /// Goes round \a shape, given in the ground's coordinates, as far as it lies in \a room.
    void Surround(const FocusShape &shape, const QRect &room);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void Rise();

    QRect m_rect; // on the ground
    int m_radius = 0;
    bool m_isWithin = false;
};

/// Shows where the keyboard's focus is, once the user has moved it or opened its window by the keyboard and until the next press of the
/// mouse, and brings that into sight where it scrolls. While it shows nothing it watches what moves the focus, and nothing else.
class FocusRing : public QObject
{
    Q_OBJECT

public:
    explicit FocusRing(QApplication *application);

    /// Takes all back that it put into the program's windows. The destructor does not: it runs when the application may be gone.
    void Stop();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void FollowReason(Qt::FocusReason reason);
    void FollowKey(int key);
    void UpdateLater();
    void Update();
    void Hide();
    void Follow(QWidget *control);

    bool m_isNavigating = false; // by the keyboard
    bool m_isKeyLast = false;    // what the user pressed last
    bool m_isArriving = false;   // by the key that moved the focus just now
    bool m_isUpdatePending = false;
    QPointer<QObject> m_opened;                // the window that a key has opened, until a press of the mouse
    std::vector<QPointer<QWidget>> m_followed; // the control with the ring, and all that it lies in
    QPointer<FocusRingOverlay> m_overlay;      // in the window that has the focus, or had it last
};

/// Makes the ring if the cues are on and there is an application that can have one; takes it away if they are off.
void FollowKeyboardCues();

} // namespace Velmora
