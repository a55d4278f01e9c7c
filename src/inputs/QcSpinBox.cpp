#include <Velmora/QcSpinBox.h>
#include <Velmora/QcStyleManager.h>

#include "inputs/InnerEdit_p.h"
#include "inputs/SpinBoxAccessible_p.h"

namespace Velmora {

QcSpinBox::QcSpinBox(QWidget *parent)
    : QSpinBox(parent)
{
    InstallSpinBoxAccessibility();
    setLineEdit(InnerEdit::InPlaceOf(*lineEdit(), this));
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/DoubleSpinBox.qss"));
}

} // namespace Velmora
