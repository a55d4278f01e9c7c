#include "windows/Veil_p.h"

#include <Velmora/QcStyleManager.h>

#include "theme/TokenPainting_p.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPainter>

namespace Velmora {

void SetUpVeil(QFrame &veil)
{
    veil.setAttribute(Qt::WA_TranslucentBackground);
    auto *row = new QHBoxLayout(&veil);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    QcStyleManager::GetInstance()->RegisterColorHandler(&veil, [&veil] { veil.update(); });
}

void PaintVeil(QWidget &veil)
{
    QPainter painter(&veil);
    painter.fillRect(veil.rect(), TokenColor(QStringLiteral("overlay/overlay_primary")));
}

} // namespace Velmora
