#include <Velmora/QcSwitchButton.h>

#include "buttons/ButtonState_p.h"
#include "theme/FocusShape_p.h"

namespace Velmora {

namespace {

struct SwitchLook
{
    int state;
    const char *image;
    const char *track; ///< null where the image has the colours of its own
};

constexpr SwitchLook kLooks[] = {
    {ButtonState::kDisabled, ":/images/switch/switch_off_dis.svg", "base/gray/gray-30"},
    {ButtonState::kPressed, ":/images/switch/switch_off_pre.svg", "base/gray/gray-70"},
    {ButtonState::kHover, ":/images/switch/switch_off_hov.svg", "base/gray/gray-60"},
    {ButtonState::kNormal, ":/images/switch/switch_off_nor.svg", "base/gray/gray-50"},
    {ButtonState::kCheckedDisabled, ":/images/switch/switch_on_dis.svg", nullptr},
    {ButtonState::kCheckedPressed, ":/images/switch/switch_on_pre.svg", nullptr},
    {ButtonState::kCheckedHover, ":/images/switch/switch_on_hov.svg", nullptr},
    {ButtonState::kCheckedNormal, ":/images/switch/switch_on_nor.svg", nullptr},
};

} // namespace

QcSwitchButton::QcSwitchButton(QWidget *parent)
    : QcButton(parent)
{
    InstallFocusShape<QcSwitchButton>([](const QcSwitchButton &button) { return FocusShape{button.rect(), button.height() / 2}; });
    setCheckable(true);
    setFixedSize(28, 14);
    setIconSize(size());
    for (const SwitchLook &look : kLooks) {
        ImageParams icon;
        icon.path = QString::fromLatin1(look.image);
        icon.size = iconSize();
        if (look.track) {
            ColorParams track(look.track);
            track.alpha = 1.0;
            icon.mulColor.insert(QStringLiteral("#CCCCCC"), track);
        }
        SetIconParam(QStyle::State(look.state), icon);
    }
}

void QcSwitchButton::resizeEvent(QResizeEvent *event)
{
    if (!size().isEmpty())
        setIconSize(size());
    QcButton::resizeEvent(event);
}

} // namespace Velmora
