#include <Velmora/FileAndDesktop.h>
#include <Velmora/QcNotification.h>
#include <Velmora/QcNotificationManager.h>

#include "core/LiesIn_p.h"

#include <QDebug>
#include <QRect>
#include <QTimer>
#include <QVariant>

#include <utility>

namespace Velmora {

namespace {

constexpr int kDelay = 100; // milliseconds
constexpr Qt::WindowFlags kFlags = Qt::Tool | Qt::FramelessWindowHint;

/// \a widget, or, if it is \a card or on it, what that belongs to: a callback that asks for the active window may get the card.
QWidget *OutsideOf(const QWidget *card, QWidget *widget)
{
    return card && LiesIn(widget, card) ? card->parentWidget() : widget;
}

} // namespace

QcNotificationManager *QcNotificationManager::getInstance()
{
    static QcNotificationManager manager;
    return &manager;
}

void QcNotificationManager::showNotification(const QString &title, const QString &content, const QString &operationText,
                                             std::function<void()> &&callback, QWidget *parent, const QRect &rect)
{
    parent = OutsideOf(Card(), parent);
    if (!parent) {
        qWarning() << "QcNotificationManager::showNotification: parent null";
        return;
    }
    const QPointer<QWidget> parentAlive(parent);
    if (!Card()) {
        m_notification = new QcNotification(nullptr); // its parent's from here on
        m_notification->hide();
    }
    // In one step, as it is no child of its parent's window in between. With all unchanged a card in sight stays there.
    if (m_notification->parentWidget() != parent)
        m_notification->setParent(parent, kFlags);
    else
        m_notification->setWindowFlags(kFlags);

    QTimer::singleShot(kDelay, this, [this, parentAlive, title, content, operationText, rect, callback = std::move(callback)]() mutable {
        if (!parentAlive) {
            qWarning() << "QcNotificationManager::showNotification: parent null";
            return;
        }
        if (!Card()) {
            qWarning() << "QcNotificationManager::showNotification: m_notification null";
            return;
        }
        Card()->showNotification(title, content, operationText, std::move(callback), rect);
    });
}

void QcNotificationManager::showNotification(const QString &title, const QString &content, const QString &operationText,
                                             PredefinedOperationType type, const QVariant &argument, QWidget *parent, const QRect &rect)
{
    if (type != OpenDirectory)
        return;
    showNotification(
        title, content, operationText, [path = argument.toString()] { openDir(path); }, parent, rect);
}

/// Null also for a card that is dying: hosts hear of its end before the pointer is cleared.
QcNotification *QcNotificationManager::Card() const
{
    return qobject_cast<QcNotification *>(m_notification.data());
}

void QcNotificationManager::setNotificationParent(QWidget * /*parent*/) {}

} // namespace Velmora
