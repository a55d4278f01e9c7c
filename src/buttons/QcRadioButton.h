#pragma once

#include <Velmora/QtCompatibility.h>
#include <Velmora/VelmoraExport.h>

#include <QPointer>
#include <QRadioButton>

#include <memory>

QT_BEGIN_NAMESPACE
class QStyleOptionButton;
QT_END_NAMESPACE

namespace Velmora {

class OutsidePress;

/// A radio button with a themed indicator, which another widget may trigger.
///
/// A text too long for the widget is elided at its end. The indicator shows a hover while the cursor is over the area that
/// a click selects, which may be smaller than the widget. A press shows until the release, wherever the mouse is dragged.
/// The text is 12 pixels high and keeps its colour while disabled. A change of the colour table shows at the next paint, as
/// when the surface below repaints: the button asks for none itself.
///
/// A handler of its signals may delete the button, but of toggled() only by deleteLater(): Qt touches the button once more.
class VELMORA_EXPORT QcRadioButton : public QRadioButton
{
    Q_OBJECT

public:
    explicit QcRadioButton(QWidget *parent = nullptr);
    ~QcRadioButton() override;

    /// Lets \a trigger, such as a picture that illustrates the choice, select the button: each release of a mouse button
    /// over it clicks, and goes no further. It takes the place of the last trigger; null takes it away. Not owned: either
    /// of the two may be destroyed first.
    void setTriggerWidget(QWidget *trigger);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void DrawIndicator(const QStyleOptionButton &option);
    void DrawText(const QStyleOptionButton &option);

    QPointer<QWidget> m_triggerWidget;
    std::unique_ptr<OutsidePress> m_outsidePress;
};

} // namespace Velmora
