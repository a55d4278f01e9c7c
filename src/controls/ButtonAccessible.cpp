#include "controls/ButtonAccessible_p.h"

#include <Velmora/QcButton.h>

#include <QAccessibleWidget>

namespace Velmora {

namespace {

/// A push button whose name is its text or, without one, its tool tip.
class ButtonAccessible : public QAccessibleWidget
{
public:
    explicit ButtonAccessible(QAbstractButton *button)
        : QAccessibleWidget(button, QAccessible::Button)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString own = QAccessibleWidget::text(kind);
        if (kind != QAccessible::Name || !own.isEmpty())
            return own;
        const QString caption = button()->text();
        return caption.isEmpty() ? button()->toolTip() : caption;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.pressed = button()->isDown();
        state.checkable = button()->isCheckable();
        state.checked = button()->isChecked();
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names;
        if (button()->isEnabled())
            names << (button()->isCheckable() ? toggleAction() : pressAction());
        return names + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (name == pressAction() || name == toggleAction())
            button()->click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    QAbstractButton *button() const { return static_cast<QAbstractButton *>(widget()); }
};

QAccessibleInterface *CreateButtonInterface(const QString &className, QObject *object)
{
    // Qt asks once for each class of the object, the most derived first.
    auto *button = className == QLatin1String("Velmora::QcButton") ? qobject_cast<QcButton *>(object) : nullptr;
    return button ? new ButtonAccessible(button) : nullptr; // owned by Qt's accessibility cache
}

} // namespace

void InstallButtonAccessibility()
{
    static const bool installed = [] {
        QAccessible::installFactory(CreateButtonInterface);
        return true;
    }();
    Q_UNUSED(installed)
}

} // namespace Velmora
