#include <Velmora/QcTextLinkButton.h>

#include "buttons/ButtonTables_p.h"

namespace Velmora {

QcTextLinkButton::QcTextLinkButton(QWidget *parent)
    : QcButton(parent)
{
    setMinimumHeight(24);
}

void QcTextLinkButton::UpdateUiParams()
{
    QFont underlined = font();
    underlined.setUnderline(true);
    setFont(underlined);
    static const FilledTables tables(kLinkTables);
    InstallTables(*this, tables);
}

} // namespace Velmora
