#include "inputs/SpinBoxAccessible_p.h"

#include <Velmora/QcDoubleSpinBox.h>
#include <Velmora/QcSpinBox.h>

#include "core/InstallAccessible_p.h"
#include "inputs/LineText_p.h"

#include <QAccessibleWidget>
#include <QLineEdit>

namespace Velmora {

namespace {

/// A spin box for whole numbers or decimals, which differ in the type of their properties. Its text is that of the edit inside.
class SpinBoxAccessible : public QAccessibleWidget, public QAccessibleValueInterface, public LineText
{
public:
    explicit SpinBoxAccessible(QSpinBox *box)
        : SpinBoxAccessible(box, QStringLiteral("valueChanged(int)"))
    {
    }
    explicit SpinBoxAccessible(QDoubleSpinBox *box)
        : SpinBoxAccessible(box, QStringLiteral("valueChanged(double)"))
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        void *text = TextInterface(type);
        return text ? text : QAccessibleWidget::interface_cast(type);
    }

    using LineText::text;
    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Value)
            return QAccessibleWidget::text(kind);
        const auto *decimal = qobject_cast<QDoubleSpinBox *>(widget());
        return decimal ? decimal->textFromValue(decimal->value()) : Box()->text(); // as Qt has it
    }

    // --- Value ---

    QVariant currentValue() const override { return Box()->property("value"); }
    void setCurrentValue(const QVariant &value) override { Box()->setProperty("value", value); }
    QVariant maximumValue() const override { return Box()->property("maximum"); }
    QVariant minimumValue() const override { return Box()->property("minimum"); }
    QVariant minimumStepSize() const override { return Box()->property("singleStep"); }

private:
    SpinBoxAccessible(QAbstractSpinBox *box, const QString &valueSignal)
        : QAccessibleWidget(box, QAccessible::SpinBox)
    {
        addControllingSignal(valueSignal);
    }

    QAbstractSpinBox *Box() const { return static_cast<QAbstractSpinBox *>(widget()); }
    QLineEdit *Edit() const override
    {
        struct Opened : QAbstractSpinBox
        {
            using QAbstractSpinBox::lineEdit;
        };
        return (Box()->*&Opened::lineEdit)();
    }
};

} // namespace

void InstallSpinBoxAccessibility()
{
    InstallAccessible<SpinBoxAccessible, QcSpinBox>();
    InstallAccessible<SpinBoxAccessible, QcDoubleSpinBox>();
}

} // namespace Velmora
