#include <Velmora/QcTextButton.h>

#include "controls/ButtonTables_p.h"

namespace Velmora {

namespace {

constexpr ButtonTables kTables = {
    AllStates("transparent"),
    AllStates("transparent"),
    kLinkText,
    kLinkText,
};

} // namespace

QcTextButton::QcTextButton(QWidget *parent)
    : QcButton(parent)
{
    setMinimumHeight(24);
}

void QcTextButton::UpdateUiParams()
{
    InstallTables(*this, kTables);
}

} // namespace Velmora
