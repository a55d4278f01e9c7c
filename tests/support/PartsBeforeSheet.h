#pragma once

#include <QChildEvent>
#include <QCoreApplication>
#include <QObject>
#include <QWidget>

namespace VelmoraTest {

/// Counts, while it lives, the child widgets that come to any widget of class \a parentClass, before and after its stylesheet.
class PartsBeforeSheet : public QObject
{
public:
    explicit PartsBeforeSheet(const char *parentClass)
        : m_parentClass(parentClass)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    int Before() const { return m_before; }
    int After() const { return m_after; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::ChildAdded && watched->inherits(m_parentClass)
            && static_cast<QChildEvent *>(event)->child()->isWidgetType()) {
            const bool hasSheet = !static_cast<QWidget *>(watched)->styleSheet().isEmpty();
            ++(hasSheet ? m_after : m_before);
        }
        return false;
    }

private:
    const char *m_parentClass;
    int m_before = 0;
    int m_after = 0;
};

} // namespace VelmoraTest
