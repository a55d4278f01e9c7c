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
    static const FilledTables tables(kLinkTables);
    InstallTables(*this, tables);
}

} // namespace Velmora
