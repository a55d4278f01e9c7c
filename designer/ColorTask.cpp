#include "ColorTask.h"

#include "ControlTable.h"
#include "TokenChooser.h"

#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

#include <QAction>
#include <QCoreApplication>
#include <QMetaProperty>
#include <QPointer>
#include <QWidget>

namespace VelmoraDesigner {

namespace {

QStringList ColorCodesOf(const QObject &object)
{
    QStringList names;
    const QMetaObject &type = *object.metaObject();
    for (int i = 0; i < type.propertyCount(); ++i) {
        const QString name = QLatin1String(type.property(i).name());
        if (IsColorCode(name) && QLatin1String(type.className()).startsWith(QLatin1String("Velmora::")))
            names.append(name);
    }
    return names;
}

/// By way of the form, which makes it a step that can be undone.
void ChooseColor(QWidget &widget, const QString &property)
{
    const QPointer<QWidget> alive(&widget);
    const QPointer<QDesignerFormWindowInterface> form = QDesignerFormWindowInterface::findFormWindow(&widget);
    if (!form)
        return;
    TokenChooser chooser(widget.property(property.toLatin1()).toString(), form);
    chooser.setWindowTitle(property);
    if (chooser.exec() == QDialog::Accepted && alive && form)
        form->cursor()->setWidgetProperty(alive, property, chooser.Code());
}

class ColorTask : public QObject, public QDesignerTaskMenuExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    ColorTask(QWidget &widget, const QStringList &properties, QObject *parent)
        : QObject(parent)
    {
        for (const QString &property : properties) {
            auto *action = new QAction(QCoreApplication::translate("VelmoraDesigner", "Choose %1...").arg(property), this);
            connect(action, &QAction::triggered, &widget, [&widget, property] { ChooseColor(widget, property); });
            m_actions.append(action);
        }
    }

    QList<QAction *> taskActions() const override { return m_actions; }

private:
    QList<QAction *> m_actions;
};

} // namespace

ColorTaskFactory::ColorTaskFactory(QExtensionManager *parent)
    : QExtensionFactory(parent)
{
}

QObject *ColorTaskFactory::createExtension(QObject *object, const QString &iid, QObject *parent) const
{
    auto *widget = qobject_cast<QWidget *>(object);
    if (!widget || iid != Q_TYPEID(QDesignerTaskMenuExtension))
        return nullptr;
    const QStringList properties = ColorCodesOf(*widget);
    return properties.isEmpty() ? nullptr : new ColorTask(*widget, properties, parent);
}

} // namespace VelmoraDesigner

#include "ColorTask.moc"
