#include "ColorTask.h"

#include "ControlTable.h"
#include "TokenChooser.h"

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>

#include <QAction>
#include <QCoreApplication>
#include <QMetaProperty>
#include <QPointer>
#include <QWidget>

#include <memory>

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

/// \a text as the value of a property that no translator is to see. Designer's type for that is its own: a form that is read holds one.
QVariant UntranslatedText(QDesignerFormEditorInterface &core, const QString &text)
{
    const std::unique_ptr<QDesignerFormWindowInterface> form(core.formWindowManager()->createFormWindow());
    form->setContents(QStringLiteral(R"(<ui version="4.0"><class>Form</class><widget class="QWidget" name="Form">)"
                                     R"(<property name="accessibleName"><string notr="true">%1</string></property></widget></ui>)")
                          .arg(text.toHtmlEscaped()));
    const auto *values = qt_extension<QDesignerPropertySheetExtension *>(core.extensionManager(), form->mainContainer());
    return values ? values->property(values->indexOf(QStringLiteral("accessibleName"))) : text;
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
        form->cursor()->setWidgetProperty(alive, property, UntranslatedText(*form->core(), chooser.Code()));
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
