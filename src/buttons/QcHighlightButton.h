#pragma once

#include <Velmora/QcButton.h>
#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// As QcGhostButton, with primary text.
class VELMORA_EXPORT QcHighlightButton : public QcButton
{
    Q_OBJECT

public:
    explicit QcHighlightButton(QWidget *parent = nullptr);

private:
    void UpdateUiParams() override;
};

} // namespace Velmora
