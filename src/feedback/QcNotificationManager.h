#pragma once

#include <Velmora/VelmoraExport.h>

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>

QT_BEGIN_NAMESPACE
class QRect;
class QVariant;
QT_END_NAMESPACE

namespace Velmora {

class QcNotification;

/// Shows messages on the program's one notification card. See QcNotification for how long they stay. Main thread only.
class VELMORA_EXPORT QcNotificationManager : public QObject
{
    Q_OBJECT

public:
    /// What the text button does by itself.
    enum PredefinedOperationType : int {
        OpenDirectory = 0, ///< shows a folder by openDir(); the argument is its path
    };
    Q_ENUM(PredefinedOperationType)

    /// The one instance, made at its first use.
    static QcNotificationManager *getInstance();

    /// Shows a message 100 milliseconds later, on the card that is there or a new one, in front of \a parent and in its upper right
    /// corner, or in that of \a rect, in pixels of the screen, if it is not null and the card hidden. The card is a child of \a parent, and
    /// goes with it; the messages in sight move to another parent with the next one. The card itself, and what lies on it, stands for its
    /// parent.
    ///
    /// A click of the button captioned \a operationText calls \a callback, which must not be empty: see
    /// QcNotificationPage::setOperationButtonClickCallback(). A null \a parent gives a warning and no card, and so do, at the end of the
    /// 100 milliseconds, a parent and a card that have died meanwhile.
    void showNotification(const QString &title, const QString &content, const QString &operationText, std::function<void()> &&callback,
                          QWidget *parent, const QRect &rect);
    /// The same with a button that does \a type with \a argument. Any other type shows nothing.
    void showNotification(const QString &title, const QString &content, const QString &operationText, PredefinedOperationType type,
                          const QVariant &argument, QWidget *parent, const QRect &rect);
    /// Does nothing: each message names its parent.
    void setNotificationParent(QWidget *parent);

private:
    QcNotificationManager() = default;
    QcNotification *Card() const;

    QPointer<QWidget> m_notification;
};

} // namespace Velmora
