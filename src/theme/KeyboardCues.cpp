#include <Velmora/KeyboardCues.h>

#include "theme/FocusRing_p.h"
#include "theme/KeyboardCues_p.h"

namespace Velmora {

namespace {

bool isEnabledNow = false;

} // namespace

KeyboardCuesNotifier *KeyboardCuesNotifier::GetInstance()
{
    static KeyboardCuesNotifier instance;
    return &instance;
}

void SetKeyboardCuesEnabled(bool enabled)
{
    if (enabled == isEnabledNow)
        return;
    isEnabledNow = enabled;
    FollowKeyboardCues();
    Q_EMIT KeyboardCuesNotifier::GetInstance()->Changed(enabled);
}

bool KeyboardCuesEnabled()
{
    return isEnabledNow;
}

} // namespace Velmora
