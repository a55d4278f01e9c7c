#pragma once

#include <Velmora/QcButton.h>
#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// A text in the link colours.
class VELMORA_EXPORT QcTextButton : public QcButton
{
    Q_OBJECT

public:
    explicit QcTextButton(QWidget *parent = nullptr);

private:
    void UpdateUiParams() override;
};

} // namespace Velmora
