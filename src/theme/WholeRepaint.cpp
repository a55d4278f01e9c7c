#include "theme/WholeRepaint_p.h"

#include <private/qwidget_p.h>

namespace Velmora {

void RequestWholeRepaint(QWidget *window)
{
    // Not update(), which leaves out opaque children, and after which Qt still joins the rectangles of the others.
    QWidgetPrivate::get(window)->invalidateBackingStore(window->rect());
}

} // namespace Velmora
