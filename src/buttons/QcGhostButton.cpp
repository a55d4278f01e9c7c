#include <Velmora/QcGhostButton.h>

#include "buttons/ButtonTables_p.h"

namespace Velmora {

namespace {

constexpr ButtonTables kTables = {
    kSoftBackground,
    kNoTokens,
    DisabledAndOther("text/text_disabled", "text/text_secondary"),
    DisabledAndOther("text/text_disabled", "text/text_secondary"),
};

} // namespace

QcGhostButton::QcGhostButton(QWidget *parent)
    : QcButton(parent)
{
    setMinimumHeight(24);
}

void QcGhostButton::UpdateUiParams()
{
    static const FilledTables tables(kTables);
    InstallTables(*this, tables);
}

} // namespace Velmora
