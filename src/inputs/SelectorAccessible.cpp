#include "inputs/SelectorAccessible_p.h"

#include <Velmora/QcSelector.h>

#include "core/AccessibleAction_p.h"
#include "core/InstallAccessible_p.h"
#include "inputs/LineEditAccessible_p.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QLineEdit>

namespace Velmora {

namespace {

/// A combo box: its list is the first child, the line edit of an editable one the second.
class SelectorAccessible : public QAccessibleWidget
{
public:
    explicit SelectorAccessible(QcSelector *selector)
        : QAccessibleWidget(selector, QAccessible::ComboBox)
    {
    }

    int childCount() const override { return Selector()->isEditable() ? 2 : 1; }

    QAccessibleInterface *child(int index) const override
    {
        if (index == 0)
            return QAccessible::queryAccessibleInterface(Selector()->view());
        return index == 1 ? QAccessible::queryAccessibleInterface(Selector()->lineEdit()) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        if (child->object() == Selector()->view())
            return 0;
        return Selector()->isEditable() && child->object() == Selector()->lineEdit() ? 1 : -1;
    }

    QAccessibleInterface *childAt(int x, int y) const override
    {
        const bool isInEdit =
            Selector()->isEditable() && Selector()->lineEdit()->rect().contains(Selector()->lineEdit()->mapFromGlobal(QPoint(x, y)));
        return isInEdit ? child(1) : nullptr;
    }

    QString text(QAccessible::Text kind) const override
    {
        switch (kind) {
        case QAccessible::Name: {
            const QString name = QAccessibleWidget::text(kind);
            return name.isEmpty() ? Selector()->placeholderText() : name;
        }
        case QAccessible::Value:
            return Selector()->currentText(); // of the line edit, where there is one
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = Selector()->view()->isVisible();
        state.collapsed = !state.expanded;
        state.editable = Selector()->isEditable();
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names;
        if (Selector()->isEnabled())
            names << showMenuAction();
        return names + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (name == showMenuAction() || name == pressAction())
            DoActionLater(*Selector(), [target = Selector()] { Toggle(*target); });
        else
            QAccessibleWidget::doAction(name);
    }

private:
    static void Toggle(QcSelector &selector)
    {
        if (selector.view()->isVisible())
            selector.hidePopup();
        else
            selector.showPopup();
    }

    QcSelector *Selector() const { return static_cast<QcSelector *>(widget()); }
};

} // namespace

void InstallSelectorAccessibility()
{
    InstallAccessible<SelectorAccessible, QcSelector>();
    InstallSelectorEditAccessibility();
}

} // namespace Velmora
