#pragma once

#include <Velmora/QcButton.h>
#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// No border, a soft fill under the cursor, secondary text.
class VELMORA_EXPORT QcGhostButton : public QcButton
{
    Q_OBJECT

public:
    explicit QcGhostButton(QWidget *parent = nullptr);

private:
    void UpdateUiParams() override;
};

} // namespace Velmora
