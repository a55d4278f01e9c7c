#pragma once

#include <Velmora/VelmoraExport.h>

#include <QDoubleSpinBox>

namespace Velmora {

/// A spin box for numbers with decimals, in theme colours once bSetBorder() was called; from then on without arrows, as QcSpinBox says.
/// Everything else is QDoubleSpinBox's.
class VELMORA_EXPORT QcDoubleSpinBox : public QDoubleSpinBox
{
    Q_OBJECT
    Q_PROPERTY(bool bordered MEMBER m_isBordered WRITE bSetBorder) // false, too, before the first call

public:
    /// Looks like any QDoubleSpinBox until bSetBorder(). A palette that the application gets later does not reach it: Qt lets a spin box
    /// under a stylesheet of the application keep the one it has.
    explicit QcDoubleSpinBox(QWidget *parent = nullptr);

    /// Puts on the theme's look. It has a border; \a isBordered says whether the border stays, on a filled ground, while the spin box
    /// is disabled, or goes, the number in the colour that it has while enabled.
    ///
    /// To be called once: a second call adds its rules to the first one's, which hold where it says nothing, and each call takes longer
    /// than the last.
    void bSetBorder(bool isBordered);

private:
    bool m_isBordered = false;
};

} // namespace Velmora
