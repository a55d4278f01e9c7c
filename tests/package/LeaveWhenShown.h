// Compiled into a program that would run until its user leaves it: quits once its window was painted.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace LeaveWhenShown {

class Watcher : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType() && static_cast<QWidget *>(watched)->isWindow())
            QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        return false;
    }
};

inline void Start()
{
    qApp->installEventFilter(new Watcher(qApp));
    QTimer::singleShot(10000, qApp, [] { QCoreApplication::exit(1); });
}

Q_COREAPP_STARTUP_FUNCTION(Start)

} // namespace LeaveWhenShown
