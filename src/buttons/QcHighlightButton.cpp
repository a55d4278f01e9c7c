#include <Velmora/QcHighlightButton.h>

#include "buttons/ButtonTables_p.h"

namespace Velmora {

namespace {

constexpr ButtonTables kTables = {
    kSoftBackground,
    kNoTokens,
    DisabledAndOther("text/text_disabled", "text/text_primary"),
    DisabledAndOther("text/text_disabled", "text/text_primary"),
};

} // namespace

QcHighlightButton::QcHighlightButton(QWidget *parent)
    : QcButton(parent)
{
    setMinimumHeight(24);
}

void QcHighlightButton::UpdateUiParams()
{
    static const FilledTables tables(kTables);
    InstallTables(*this, tables);
}

} // namespace Velmora
