#pragma once

#include <Velmora/QcButton.h>
#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// An on-off switch, 28 by 14 pixels: a checkable button whose icon is the whole control. It shows a change at once.
class VELMORA_EXPORT QcSwitchButton : public QcButton
{
    Q_OBJECT

public:
    explicit QcSwitchButton(QWidget *parent = nullptr);

protected:
    void resizeEvent(QResizeEvent *event) override;
};

} // namespace Velmora
