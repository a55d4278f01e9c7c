#include <Velmora/QcDockMask.h>

#include "theme/TokenPainting_p.h"

#include <Velmora/QcStyleManager.h>

#include <QPainter>

namespace Velmora {

QcDockMask::QcDockMask(QWidget *parent)
    : QFrame(parent)
{
    setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowOpacity(1.0);
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
}

QcDockMask::~QcDockMask() = default;

void QcDockMask::paintEvent(QPaintEvent * /*event*/)
{
    QPainter(this).fillRect(rect(), TokenColor(QStringLiteral("brand/brand_bg")));
}

} // namespace Velmora
