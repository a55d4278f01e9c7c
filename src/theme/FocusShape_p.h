#pragma once

#include <QRect>

#include <functional>

QT_BEGIN_NAMESPACE
class QWidget;
struct QMetaObject;
QT_END_NAMESPACE

namespace Velmora {

/// What of a widget the ring of the keyboard's focus goes round.
struct FocusShape
{
    QRect rect;                  ///< in the widget's coordinates; where it is empty there is no ring
    int radius = 0;              ///< of its corners
    bool isRingWithin = false;   ///< although there may be room around it
    bool isFrameOfProxy = false; ///< what the user sees of the widget to which it passes its focus
};

using FocusShapeFunction = std::function<FocusShape(const QWidget &)>;

/// Has \a function tell the shape of widgets of a class, and of those derived from it that have none of their own.
void RegisterFocusShape(const QMetaObject &widgetClass, const FocusShapeFunction &function);

/// The same, by a function that takes a \a Widget. To be called by its constructor: the first call counts.
template <typename Widget>
void InstallFocusShape(FocusShape (*function)(const Widget &))
{
    static const bool isInstalled = [function] {
        RegisterFocusShape(Widget::staticMetaObject,
                           [function](const QWidget &widget) { return function(static_cast<const Widget &>(widget)); });
        return true;
    }();
    Q_UNUSED(isInstalled)
}

/// The widget in which a user sees that \a focus has the keyboard: itself, or the frame around it.
QWidget *FocusedControl(QWidget &focus);

/// The shape of \a control. A class of which nobody told has a ring around the whole widget.
FocusShape FocusShapeOf(const QWidget &control);

} // namespace Velmora
