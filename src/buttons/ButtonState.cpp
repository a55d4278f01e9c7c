#include "buttons/ButtonState_p.h"

#include <QCursor>
#include <QResizeEvent>

namespace Velmora {

namespace ButtonState {

bool IsUnderCursor(const QWidget &button)
{
    return button.rect().contains(button.mapFromGlobal(QCursor::pos()));
}

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
