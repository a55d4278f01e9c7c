#include <Velmora/QcMaskFrame.h>

#include "core/InstallAccessible_p.h"
#include "windows/Veil_p.h"

namespace Velmora {

QcMaskFrame::QcMaskFrame(QWidget *parent)
    : QFrame(parent, Qt::WindowFlags())
{
    setAttribute(Qt::WA_AlwaysStackOnTop);
    InstallAccessible<VeilAccessible, QcMaskFrame>();
    SetUpVeil(*this);
}

void QcMaskFrame::paintEvent(QPaintEvent * /*event*/)
{
    PaintVeil(*this);
}

} // namespace Velmora
