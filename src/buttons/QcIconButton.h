#pragma once

#include <Velmora/QcButton.h>
#include <Velmora/VelmoraExport.h>

namespace Velmora {

/// A square, icon-only push button: 24 by 24 pixels, filled while checked.
///
/// The icon given with SetIconPath() is recoloured per state and drawn across the whole square. A text is drawn too, in the
/// palette's button-text colour, since this variant has no text colours of its own. Give it a tool tip: it also names
/// the button to screen readers.
class VELMORA_EXPORT QcIconButton : public QcButton
{
    Q_OBJECT

public:
    explicit QcIconButton(QWidget *parent = nullptr);

private:
    void UpdateUiParams() override;
};

} // namespace Velmora
