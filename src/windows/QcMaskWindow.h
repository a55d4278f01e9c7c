#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFrame>

QT_BEGIN_NAMESPACE
class QPaintEvent;
QT_END_NAMESPACE

namespace Velmora {

/// A veil as a window of its own, also with a parent, in the colour table's overlay colour, with an empty horizontal layout.
///
/// The host places, sizes, shows and deletes it. With SetVeilsStopKeyboard() the keyboard does not reach what it covers of its parent's
/// window.
class VELMORA_EXPORT QcMaskWindow : public QFrame
{
    Q_OBJECT

public:
    explicit QcMaskWindow(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace Velmora
