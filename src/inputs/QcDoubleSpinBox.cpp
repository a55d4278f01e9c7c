#include <Velmora/QcDoubleSpinBox.h>
#include <Velmora/QcStyleManager.h>

namespace Velmora {

QcDoubleSpinBox::QcDoubleSpinBox(QWidget *parent)
    : QDoubleSpinBox(parent)
{
}

void QcDoubleSpinBox::bSetBorder(bool isBordered)
{
    m_isBordered = isBordered;
    const QString path = isBordered ? QStringLiteral(":/qss/DoubleSpinBox.qss") : QStringLiteral(":/qss/NoBorderDoubleSpinBox.qss");
    QcStyleManager::GetInstance()->RegisterQss(this, path);
}

} // namespace Velmora
