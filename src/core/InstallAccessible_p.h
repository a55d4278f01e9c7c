#pragma once

#include <QAccessibleWidget>

namespace Velmora {

/// Makes Qt describe a \a Widget and all that derive from it to assistive technology through an \a Interface, which is made of a
/// pointer to it. To be called by each widget's constructor: Qt forgets it with the application object, and ignores a repetition.
template <typename Interface, typename Widget>
void InstallAccessible()
{
    // One function for each pair, by which Qt knows a repetition.
    QAccessible::installFactory([](const QString &className, QObject *object) -> QAccessibleInterface * {
        // Qt asks once for each class of the object, the most derived first.
        const bool isAsked = className == QLatin1String(Widget::staticMetaObject.className());
        auto *widget = isAsked ? qobject_cast<Widget *>(object) : nullptr;
        return widget ? new Interface(widget) : nullptr; // owned by Qt's accessibility cache
    });
}

/// A widget of several that a host takes for one.
class GroupAccessible : public QAccessibleWidget
{
public:
    explicit GroupAccessible(QWidget *widget)
        : QAccessibleWidget(widget, QAccessible::Grouping)
    {
    }
};

} // namespace Velmora
