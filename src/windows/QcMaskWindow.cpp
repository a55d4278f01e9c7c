#include <Velmora/QcMaskWindow.h>

#include "core/InstallAccessible_p.h"
#include "display/Unobtrusive_p.h"
#include "windows/Veil_p.h"

namespace Velmora {

QcMaskWindow::QcMaskWindow(QWidget *parent)
    : QFrame(parent, Qt::WindowFlags())
{
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    InstallAccessible<VeilAccessible, QcMaskWindow>();
    SetUpVeil(*this);
    StandWherePut(*this);
}

void QcMaskWindow::paintEvent(QPaintEvent * /*event*/)
{
    PaintVeil(*this);
}

} // namespace Velmora
