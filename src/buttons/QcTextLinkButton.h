#pragma once

#include <Velmora/QcButton.h>
#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// As QcTextButton, underlined from the first turn of the main loop on.
class VELMORA_EXPORT QcTextLinkButton : public QcButton
{
    Q_OBJECT

public:
    explicit QcTextLinkButton(QWidget *parent = nullptr);

private:
    void UpdateUiParams() override;
};

} // namespace Velmora
