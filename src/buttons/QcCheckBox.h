#pragma once

#include <Velmora/QtCompatibility.h>
#include <Velmora/VelmoraExport.h>

#include <QCheckBox>

#include <memory>

QT_BEGIN_NAMESPACE
class QStyleOptionButton;
QT_END_NAMESPACE

namespace Velmora {

class OutsidePress;

/// A check box with a themed indicator, in three states if the host asks for them as of any QCheckBox.
///
/// A text too long for the widget is elided at its end. The indicator shows a hover while the cursor is over the area that
/// a click toggles, which may be smaller than the widget. A press shows until the release, wherever the mouse is dragged.
///
/// A handler of its signals may delete the box, but of toggled() and stateChanged() only by deleteLater(): Qt touches the box once more.
class VELMORA_EXPORT QcCheckBox : public QCheckBox
{
    Q_OBJECT

public:
    explicit QcCheckBox(QWidget *parent = nullptr);
    ~QcCheckBox() override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void DrawIndicator(const QStyleOptionButton &option);
    void DrawText(const QStyleOptionButton &option);

    std::unique_ptr<OutsidePress> m_outsidePress;
};

} // namespace Velmora
