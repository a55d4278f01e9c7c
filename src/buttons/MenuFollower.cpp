#include "buttons/MenuFollower_p.h"

#include "buttons/ButtonState_p.h"

#include <QAbstractButton>
#include <QMenu>

namespace Velmora {

MenuFollower::MenuFollower(QAbstractButton &button, QStyle::State &state)
    : m_button(button)
    , m_state(state)
{
}

void MenuFollower::Follow(QMenu *menu)
{
    if (!menu || m_isOpen.contains(menu))
        return;
    m_isOpen.insert(menu, false);
    const auto follow = [this, menu](bool isOpen) {
        m_isOpen[menu] = isOpen;
        Show(isOpen);
    };
    connect(menu, &QMenu::aboutToHide, this, [follow] { follow(false); });
    connect(menu, &QMenu::aboutToShow, this, [follow] { follow(true); });
    // A menu that dies open does not say that it hides.
    connect(menu, &QObject::destroyed, this, [this, menu] {
        if (m_isOpen.take(menu))
            Show(false);
    });
}

void MenuFollower::Show(bool isOpen)
{
    m_button.setChecked(isOpen); // does nothing on a button that is not checkable, hence the flags
    ButtonState::SetFlag(m_state, QStyle::State_Selected, isOpen);
    if (isOpen)
        ButtonState::ShowFlag(m_button, m_state, QStyle::State_Sunken, true);
    else
        ButtonState::EndPress(m_button, m_state);
}

} // namespace Velmora
