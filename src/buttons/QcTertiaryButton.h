#pragma once

#include <Velmora/QcButton.h>
#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// Outlined in a neutral colour.
class VELMORA_EXPORT QcTertiaryButton : public QcButton
{
    Q_OBJECT

public:
    explicit QcTertiaryButton(QWidget *parent = nullptr);

private:
    void UpdateUiParams() override;
};

} // namespace Velmora
