#include <Velmora/QcToolColorButton.h>

#include "buttons/ButtonState_p.h"

namespace Velmora {

QcToolColorButton::QcToolColorButton(QWidget *parent)
    : QcToolButton(parent)
{
}

void QcToolColorButton::setChangeColor(const QString &iconColor, const QString &iconDisableColor)
{
    m_iconColor = iconColor;
    m_iconDisableColor = iconDisableColor;
    UpdateUiParams();
}

void QcToolColorButton::UpdateUiParams()
{
    QcToolButton::UpdateUiParams();
    for (const int state : ButtonState::kAll) {
        ImageParams icon;
        icon.color = ColorParams(state == ButtonState::kDisabled ? m_iconDisableColor : m_iconColor);
        SetIconParam(QStyle::State(state), icon);
    }
}

} // namespace Velmora
