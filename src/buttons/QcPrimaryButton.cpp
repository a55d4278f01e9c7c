#include <Velmora/QcPrimaryButton.h>

#include "buttons/ButtonTables_p.h"

namespace Velmora {

namespace {

constexpr ButtonTables kTables = {
    {"brand/brand_disable", "brand/brand", "brand/brand_hover", "brand/brand_press", "brand/brand", "brand/brand", "brand/brand_hover",
     "brand/brand_press"},
    kNoTokens,
    DisabledAndOther("text/text_disabled", "text/text_button"),
    DisabledAndOther("text/text_disabled", "text/text_button"),
};

} // namespace

QcPrimaryButton::QcPrimaryButton(QWidget *parent)
    : QcButton(parent)
{
    setMinimumHeight(24);
}

void QcPrimaryButton::UpdateUiParams()
{
    static const FilledTables tables(kTables);
    InstallTables(*this, tables);
}

} // namespace Velmora
