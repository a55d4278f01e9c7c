#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFrame>

QT_BEGIN_NAMESPACE
class QPaintEvent;
QT_END_NAMESPACE

namespace Velmora {

/// A veil inside a window, in the colour table's overlay colour, with an empty horizontal layout.
///
/// The host places, sizes, shows and deletes it. It stops the mouse, and the keyboard too
/// with SetVeilsStopKeyboard(): without, that still reaches what lies under it.
class VELMORA_EXPORT QcMaskFrame : public QFrame
{
    Q_OBJECT

public:
    explicit QcMaskFrame(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace Velmora
