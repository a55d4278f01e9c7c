#pragma once

#include <QEvent>
#include <QObject>

namespace VelmoraTest {

/// Counts the events of one type that an object receives, as QEvent::Paint for "repaints" and QEvent::LayoutRequest
/// of a parent without a layout for "announces a new size hint".
class EventCounter : public QObject
{
public:
    EventCounter(QObject &watched, QEvent::Type type)
        : m_type(type)
    {
        watched.installEventFilter(this);
    }

    /// How many since the last call.
    int Take()
    {
        const int count = m_count;
        m_count = 0;
        return count;
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == m_type)
            ++m_count;
        return false;
    }

private:
    const QEvent::Type m_type;
    int m_count = 0;
};

} // namespace VelmoraTest
