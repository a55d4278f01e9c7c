#pragma once

#include <QMetaObject>
#include <QWidget>

namespace Velmora {

/// Tells a widget that its parent dies, while it can still leave it. For widgets that belong to the program rather than to the
/// window that they are shown in.
class ParentWatch
{
public:
    /// Has \a rescue called when the present parent of \a widget dies. To be called for each change of parent.
    template <typename Rescue>
    void Follow(QWidget &widget, const Rescue &rescue)
    {
        QObject::disconnect(m_connection);
        // Qt says it before the children go, and with their signals blocked too.
        if (widget.parentWidget())
            m_connection = QObject::connect(widget.parentWidget(), &QObject::destroyed, &widget, rescue);
    }

private:
    QMetaObject::Connection m_connection;
};

} // namespace Velmora
