#include "core/AccessibleAction_p.h"

#include <QMetaObject>
#include <QWidget>
#include <QWindow>

#include <private/qguiapplication_p.h>

namespace Velmora {

void DoActionLater(QWidget &widget, const std::function<void()> &action)
{
    const auto doIfUsable = [target = &widget, action] {
        QWindow *window = target->window()->windowHandle();
        const bool isBlocked = window && QGuiApplicationPrivate::instance()->isWindowBlocked(window);
        if (target->isEnabled() && !isBlocked)
            action();
    };
    QMetaObject::invokeMethod(&widget, doIfUsable, Qt::QueuedConnection);
}

} // namespace Velmora
