#include <Velmora/QcMaskWindow.h>

#include "windows/Veil_p.h"

namespace Velmora {

QcMaskWindow::QcMaskWindow(QWidget *parent)
    : QFrame(parent, Qt::WindowFlags())
{
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    SetUpVeil(*this);
}

void QcMaskWindow::paintEvent(QPaintEvent * /*event*/)
{
    PaintVeil(*this);
}

} // namespace Velmora
