#include "StateHolder.h"

#include <Velmora/PostOwnedTask.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMouseEvent>
#include <QStyle>

namespace Gallery {

void StateHolder::Add(QAbstractButton *button, int state)
{
    button->setAttribute(Qt::WA_TransparentForMouseEvents);
    button->setFocusPolicy(Qt::NoFocus);
    button->setCheckable(true);
    button->setChecked(state & QStyle::State_Selected);
    button->setEnabled(state & QStyle::State_Enabled);
    m_held.append({button, state});
    Hold(button, state);
}

void StateHolder::Start()
{
    HoldAll();
    qApp->installEventFilter(this);
}

void StateHolder::Stop()
{
    qApp->removeEventFilter(this);
}

void StateHolder::HoldAll()
{
    m_queued = false;
    for (const Held &held : qAsConst(m_held))
        Hold(held.button, held.state);
}

bool StateHolder::eventFilter(QObject *watched, QEvent *event)
{
    const bool resets = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::ApplicationDeactivate;
    if (resets && !m_queued) {
        m_queued = true;
        Velmora::PostOwnedTask(
            this, [this] { HoldAll(); }, "StateHolder::HoldAll");
    }
    return QObject::eventFilter(watched, event);
}

void StateHolder::Hold(QObject *button, int state)
{
    if (state & QStyle::State_MouseOver) {
        QEvent enter(QEvent::Enter);
        button->event(&enter);
    }
    if (state & QStyle::State_Sunken) {
        // The right button: it looks pressed all the same and clicks nothing.
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), Qt::RightButton, Qt::RightButton, Qt::NoModifier);
        button->event(&press);
    }
}

} // namespace Gallery
