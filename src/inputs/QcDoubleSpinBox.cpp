#include <Velmora/QcDoubleSpinBox.h>
#include <Velmora/QcStyleManager.h>

#include "inputs/InnerEdit_p.h"
#include "inputs/SpinBoxAccessible_p.h"

namespace Velmora {

QcDoubleSpinBox::QcDoubleSpinBox(QWidget *parent)
    : QDoubleSpinBox(parent)
{
    InstallSpinBoxAccessibility();
    setLineEdit(InnerEdit::InPlaceOf(*lineEdit(), this));
}

void QcDoubleSpinBox::bSetBorder(bool isBordered)
{
    m_isBordered = isBordered;
    const QString path = isBordered ? QStringLiteral(":/qss/DoubleSpinBox.qss") : QStringLiteral(":/qss/NoBorderDoubleSpinBox.qss");
    QcStyleManager::GetInstance()->RegisterQss(this, path);
}

} // namespace Velmora
