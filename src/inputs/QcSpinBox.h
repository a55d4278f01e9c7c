#pragma once

#include <Velmora/VelmoraExport.h>

#include <QSpinBox>

namespace Velmora {

/// A spin box for whole numbers in theme colours. Everything else, from numbers in the widget's locale to what a range out of order does,
/// is QSpinBox's.
///
/// The theme shows no arrows, whatever the palette: Qt paints none beside a border of a stylesheet that says nothing of them. Where they
/// would be a click steps all the same, until setButtonSymbols(NoButtons) gives their room to the number.
class VELMORA_EXPORT QcSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit QcSpinBox(QWidget *parent = nullptr);
};

} // namespace Velmora
