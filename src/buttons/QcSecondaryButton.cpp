#include <Velmora/QcSecondaryButton.h>

#include "buttons/ButtonTables_p.h"

namespace Velmora {

namespace {

constexpr StateTokens kText = {"brand/brand_disable", "brand/brand", "brand/brand_hover", "brand/brand_press",
                               "brand/brand",         "brand/brand", "brand/brand_hover", "brand/brand_press"};

constexpr ButtonTables kTables = {
    AllStates("transparent"),
    // Unlike the text, the border takes the hover colour as soon as the button is checked.
    {"brand/brand_disable", "brand/brand", "brand/brand_hover", "brand/brand_press", "brand/brand", "brand/brand_hover",
     "${brand/brand_hover}", "brand/brand_press"},
    kText,
    kText,
};

} // namespace

QcSecondaryButton::QcSecondaryButton(QWidget *parent)
    : QcButton(parent)
{
    setMinimumHeight(24);
}

void QcSecondaryButton::UpdateUiParams()
{
    static const FilledTables tables(kTables);
    InstallTables(*this, tables);
}

} // namespace Velmora
