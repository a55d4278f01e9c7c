#include "controls/ButtonState_p.h"

#include <QResizeEvent>

namespace Velmora {

namespace ButtonState {

void ShowEnabled(QWidget &button)
{
    if (button.isEnabled())
        button.unsetCursor();
    else
        button.setCursor(Qt::ForbiddenCursor);
    button.update();
}

void AnnounceHeight(QWidget &button, const QResizeEvent &event)
{
    if (event.oldSize().height() != event.size().height())
        button.updateGeometry();
}

} // namespace ButtonState

} // namespace Velmora
