#include <Velmora/QcTertiaryButton.h>

#include "buttons/ButtonTables_p.h"

namespace Velmora {

namespace {

constexpr ButtonTables kTables = {
    AllStates("transparent"),
    // The border takes the hover colour as soon as the button is checked.
    {"border/border_secondary_disabled", "border/border_secondary", "border/border_secondary_hover", "border/border_secondary_press",
     "border/border_secondary", "border/border_secondary_hover", "border/border_secondary_hover", "border/border_secondary_press"},
    DisabledAndOther("text/text_disabled", "text/text_primary"),
    DisabledAndOther("text/text_disabled", "text/text_primary"),
};

} // namespace

QcTertiaryButton::QcTertiaryButton(QWidget *parent)
    : QcButton(parent)
{
    setMinimumHeight(24);
}

void QcTertiaryButton::UpdateUiParams()
{
    static const FilledTables tables(kTables);
    InstallTables(*this, tables);
}

} // namespace Velmora
