#pragma once

#include <Velmora/ImageParams.h>
#include <Velmora/QtCompatibility.h>
#include <Velmora/VelmoraExport.h>

#include <QHash>
#include <QSlider>
#include <QString>
#include <QStyle>

namespace Velmora {

/// A slider with a thin groove, filled up to its value, and a round handle that grows under the mouse and while pressed.
///
/// Mouse, wheel and keys, values and their signals are those of QSlider; tick marks and a focus are not shown. The fill begins at the left,
/// or at the bottom of a vertical slider, whether or not the appearance is inverted; a right-to-left slider is mirrored. Where along the
/// groove the handle stands is the style's choice, at the beginning of the place that it gives: the last pixels stay free.
///
/// A slider looks enabled until it is first disabled or enabled after its construction, even as a child of a disabled widget. Disabled
/// under the mouse or while held, it looks so again once enabled; hiding it ends both looks. A change of the colour table shows at the next
/// paint, as when the surface below repaints: the slider asks for none itself.
///
/// A range wider than an int is painted as any other. The mouse fares there as with a QSlider, in which Qt divides by zero if the range
/// spans exactly 2^31.
///
/// A handler of its signals may delete the slider by deleteLater(): Qt touches the slider once more.
class VELMORA_EXPORT QCSlider : public QSlider
{
    Q_OBJECT

public:
    /// A horizontal slider.
    explicit QCSlider(QWidget *parent = nullptr);
    explicit QCSlider(Qt::Orientation orientation, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void enterEvent(EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void initColorParams();
    void drawGrooveRect(QRect &rect, QPainter &painter, const QString &code);
    void drawActiveRect(QRect &rect, QPainter &painter, const QString &code);
    void drawHandle(QPainter &painter, const ImageParams &params);
    void SetState(QStyle::State flags, bool isOn);
    bool IsMirrored() const;
    double FilledPart() const;

    QStyle::State m_state = QStyle::State_Enabled;
    QHash<int, QString> m_grooveColorParams;
    QHash<int, QString> m_activeColorParams;
    QHash<int, ImageParams> m_handleImageParams;
};

} // namespace Velmora
