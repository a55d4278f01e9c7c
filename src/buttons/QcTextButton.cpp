#include <Velmora/QcTextButton.h>

#include "buttons/ButtonTables_p.h"

namespace Velmora {

QcTextButton::QcTextButton(QWidget *parent)
    : QcButton(parent)
{
    setMinimumHeight(24);
}

void QcTextButton::UpdateUiParams()
{
    InstallTables(*this, kLinkTables);
}

} // namespace Velmora
