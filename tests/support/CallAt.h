#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>

#include <functional>
#include <utility>

namespace VelmoraTest {

/// Calls a function at the first event of a type that an object receives, as a host's event filter or handler does.
class CallAt : public QObject
{
public:
    CallAt(QObject &watched, QEvent::Type type, std::function<void()> function)
        : m_type(type)
        , m_function(std::move(function))
    {
        watched.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const QPointer<QObject> living(watched);
        if (event->type() == m_type && m_function)
            std::exchange(m_function, nullptr)();
        return !living; // nobody is left to get the event
    }

private:
    const QEvent::Type m_type;
    std::function<void()> m_function;
};

} // namespace VelmoraTest
