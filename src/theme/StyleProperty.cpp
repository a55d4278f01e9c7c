#include "theme/StyleProperty_p.h"

#include <QPointer>
#include <QStyle>
#include <QVariant>
#include <QWidget>

namespace Velmora {

bool SetStyleProperty(QWidget *widget, const char *name, bool on)
{
    if (widget->property(name) == QVariant(on))
        return false;
    const QPointer<QWidget> guard(widget);
    widget->setProperty(name, on);
    if (guard)
        widget->style()->polish(widget);
    if (guard)
        widget->update(); // polishing repaints only what gets another palette or font
    return true;
}

} // namespace Velmora
