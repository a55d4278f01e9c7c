#include <Velmora/QcIconButton.h>

#include "buttons/ButtonTables_p.h"

namespace Velmora {

namespace {

constexpr ButtonTables kTables = {
    kToolBackground,
    kNoTokens,
    kNoTokens,
    {"text/text_disabled", "icon/icon_secondary", "icon/icon_secondary", "icon/icon_secondary", "icon/icon_primary", "icon/icon_primary",
     "icon/icon_primary", "icon/icon_primary"},
};

} // namespace

QcIconButton::QcIconButton(QWidget *parent)
    : QcButton(parent)
{
    setFixedSize(24, 24);
}

void QcIconButton::UpdateUiParams()
{
    static const FilledTables tables(kTables);
    InstallTables(*this, tables);
}

} // namespace Velmora
