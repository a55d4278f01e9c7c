#include "windows/Veil_p.h"

#include <Velmora/QcStyleManager.h>

#include "theme/TokenPainting_p.h"
#include "windows/VeilGuard_p.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPainter>

namespace Velmora {

VeilAccessible::VeilAccessible(QWidget *veil)
    : QAccessibleWidget(veil, QAccessible::LayeredPane)
{
}

QString VeilAccessible::text(QAccessible::Text kind) const
{
    const QString own = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && own.isEmpty() ? widget()->window()->windowTitle() : own;
}

QAccessible::State VeilAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.modal = VeilGuard::Guards(*widget());
    return state;
}

void SetUpVeil(QFrame &veil)
{
    veil.setAttribute(Qt::WA_TranslucentBackground);
    auto *row = new QHBoxLayout(&veil);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    new VeilGuard(veil); // its child
    QcStyleManager::GetInstance()->RegisterColorHandler(&veil, [&veil] { veil.update(); });
}

void PaintVeil(QWidget &veil)
{
    QPainter painter(&veil);
    painter.fillRect(veil.rect(), TokenColor(QStringLiteral("overlay/overlay_primary")));
}

} // namespace Velmora
