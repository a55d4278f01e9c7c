#include "theme/FocusShape_p.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QGroupBox>
#include <QHash>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionGroupBox>
#include <QTabBar>

namespace Velmora {

namespace {

constexpr int kPlainRadius = 2;

using ShapeTable = QHash<const QMetaObject *, FocusShapeFunction>;

FocusShape Whole(const QWidget &widget)
{
    return {widget.rect(), kPlainRadius};
}

/// Of what shows its focus in an item of its own.
FocusShape None(const QWidget & /*widget*/)
{
    return {};
}

/// Indicator and label, of a button that may be far wider.
FocusShape ShapeWithIndicator(const QWidget &widget, QStyle::SubElement indicator, QStyle::SubElement label)
{
    const auto &button = static_cast<const QAbstractButton &>(widget);
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    option.icon = button.icon();
    option.iconSize = button.iconSize();
    const QRect parts =
        button.style()->subElementRect(indicator, &option, &button) | button.style()->subElementRect(label, &option, &button);
    return {parts & button.rect(), kPlainRadius};
}

FocusShape ShapeOfCheckBox(const QWidget &widget)
{
    return ShapeWithIndicator(widget, QStyle::SE_CheckBoxIndicator, QStyle::SE_CheckBoxFocusRect);
}

FocusShape ShapeOfRadioButton(const QWidget &widget)
{
    return ShapeWithIndicator(widget, QStyle::SE_RadioButtonIndicator, QStyle::SE_RadioButtonFocusRect);
}

/// The title that the keyboard checks, not the group below it.
FocusShape ShapeOfGroupBox(const QWidget &widget)
{
    const auto &group = static_cast<const QGroupBox &>(widget);
    QStyleOptionGroupBox option;
    option.initFrom(&group);
    option.text = group.title();
    option.textAlignment = group.alignment();
    option.lineWidth = 1;
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxCheckBox | QStyle::SC_GroupBoxLabel;
    const auto part = [&](QStyle::SubControl control) {
        return group.style()->subControlRect(QStyle::CC_GroupBox, &option, control, &group);
    };
    return {(part(QStyle::SC_GroupBoxCheckBox) | part(QStyle::SC_GroupBoxLabel)) & group.rect(), kPlainRadius};
}

/// The tab that arrows move from. Tabs stand close, so that a ring around one would lie on the others.
FocusShape ShapeOfTabBar(const QWidget &widget)
{
    const auto &tabs = static_cast<const QTabBar &>(widget);
    return {tabs.tabRect(tabs.currentIndex()) & tabs.rect(), kPlainRadius, true};
}

/// A list that has dropped down shows a row, as a menu does.
FocusShape ShapeOfItemView(const QWidget &widget)
{
    return widget.window()->windowType() == Qt::Popup ? None(widget) : Whole(widget);
}

ShapeTable &Shapes()
{
    static ShapeTable shapes = {
        {&QWidget::staticMetaObject, Whole},
        {&QCheckBox::staticMetaObject, ShapeOfCheckBox},
        {&QRadioButton::staticMetaObject, ShapeOfRadioButton},
        {&QGroupBox::staticMetaObject, ShapeOfGroupBox},
        {&QTabBar::staticMetaObject, ShapeOfTabBar},
        {&QAbstractItemView::staticMetaObject, ShapeOfItemView},
        {&QMenu::staticMetaObject, None},
        {&QMenuBar::staticMetaObject, None},
    };
    return shapes;
}

} // namespace

void RegisterFocusShape(const QMetaObject &widgetClass, const FocusShapeFunction &function)
{
    Shapes().insert(&widgetClass, function);
}

QWidget *FocusedControl(QWidget &focus)
{
    QWidget *control = &focus;
    for (QWidget *parent = focus.parentWidget(); parent && parent->focusProxy() == &focus; parent = parent->parentWidget()) {
        if (!FocusShapeOf(*parent).isFrameOfProxy)
            break; // as a page that passes its focus to its first field
        control = parent;
    }
    return control;
}

FocusShape FocusShapeOf(const QWidget &control)
{
    const ShapeTable &shapes = Shapes();
    const QMetaObject *widgetClass = control.metaObject();
    while (!shapes.contains(widgetClass))
        widgetClass = widgetClass->superClass(); // ends at QWidget
    return shapes.value(widgetClass)(control);
}

} // namespace Velmora
