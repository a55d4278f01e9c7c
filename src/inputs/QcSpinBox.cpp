#include <Velmora/QcSpinBox.h>
#include <Velmora/QcStyleManager.h>

namespace Velmora {

QcSpinBox::QcSpinBox(QWidget *parent)
    : QSpinBox(parent)
{
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/DoubleSpinBox.qss"));
}

} // namespace Velmora
