#include <Velmora/QcSpinBox.h>
#include <Velmora/QcStyleManager.h>

#include "inputs/InnerEdit_p.h"

namespace Velmora {

QcSpinBox::QcSpinBox(QWidget *parent)
    : QSpinBox(parent)
{
    setLineEdit(InnerEdit::InPlaceOf(*lineEdit(), this));
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/DoubleSpinBox.qss"));
}

} // namespace Velmora
