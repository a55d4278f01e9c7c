#pragma once

#include <QCursor>
#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace VelmoraTest {

/// Keeps from a shown window that the mouse has left or entered it while the cursor rests in it. The offscreen platform of Qt 6 tells
/// that when another window opens or closes; X11 does not.
class KeepsHover : public QObject
{
public:
    explicit KeepsHover(QWidget &window)
        : QObject(&window)
    {
        window.windowHandle()->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Enter && event->type() != QEvent::Leave)
            return false;
        const bool wasInside = m_isInside;
        m_isInside = static_cast<QWindow *>(watched)->geometry().contains(QCursor::pos());
        return wasInside == m_isInside;
    }

private:
    bool m_isInside = false;
};

} // namespace VelmoraTest
