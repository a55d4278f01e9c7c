#pragma once

#include <Velmora/QcArrowTip.h>

namespace Velmora {

/// The tip of an input's warning. A form has hundreds of inputs and few warnings, so its contents come with its first text.
class WarningTip : public QcArrowTip
{
public:
    explicit WarningTip(QWidget *parent)
        : QcArrowTip(parent, Contents::WhenNeeded)
    {
    }
};

} // namespace Velmora
