#pragma once

#include <Velmora/ContextConsumer.h>
#include <Velmora/QcButton.h>
#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// Filled in the brand colour, for the main action.
/// A checked button looks like an unchecked one, and a checked disabled one keeps the full brand colour.
/// As a ContextConsumer it reads the named values that its ancestors offer; it uses none itself.
class VELMORA_EXPORT QcPrimaryButton : public QcButton, public ContextConsumer
{
    Q_OBJECT

public:
    explicit QcPrimaryButton(QWidget *parent = nullptr);

private:
    void UpdateUiParams() override;
};

} // namespace Velmora
