#pragma once

#include <Velmora/ContextConsumer.h>
#include <Velmora/QcButton.h>
#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// Outlined in the brand colour.
/// As a ContextConsumer it reads the named values that its ancestors offer; it uses none itself.
class VELMORA_EXPORT QcSecondaryButton : public QcButton, public ContextConsumer
{
    Q_OBJECT

public:
    explicit QcSecondaryButton(QWidget *parent = nullptr);

private:
    void UpdateUiParams() override;
};

} // namespace Velmora
