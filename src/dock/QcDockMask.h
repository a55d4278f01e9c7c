#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFrame>

namespace Velmora {

/// Tints the part of the screen that a dragged panel would take if it were dropped now. QcDockDragController places and shows it.
///
/// A window above all others, with neither frame nor focus, filled with "brand/brand_bg".
class VELMORA_EXPORT QcDockMask : public QFrame
{
    Q_OBJECT

public:
    explicit QcDockMask(QWidget *parent = nullptr);
    ~QcDockMask() override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace Velmora
