#include "ColorTask.h"

#include "ControlTable.h"
#include "TokenChooser.h"

#include <Velmora/QcButton.h>

#include <QtDesigner/QDesignerDynamicPropertySheetExtension>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMetaProperty>
#include <QPointer>
#include <QUndoCommand>
#include <QUndoStack>
#include <QWidget>

#include <memory>

using namespace Velmora;

namespace VelmoraDesigner {

namespace {

/// Those of a control's class.
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

/// Those that a push button takes beside, by dynamic properties.
QStringList StateColorsOf(const QObject &object)
{
    QStringList names;
    if (!qobject_cast<const QcButton *>(&object))
        return names;
    for (const char *table : {"Background", "Border", "Text"}) {
        for (const char *state : {"normal", "hover", "pressed", "disabled", "checked", "checkedHover", "checkedPressed", "checkedDisabled"})
            names.append(QStringLiteral("%1%2ColorParams").arg(QLatin1String(state), QLatin1String(table)));
    }
    return names;
}

/// Gives a control a dynamic property, still empty. Undone, the form has it no more; the control keeps an empty one, which counts as none.
class AddProperty : public QUndoCommand
{
public:
    AddProperty(QDesignerFormEditorInterface &core, QWidget &widget, const QString &name)
        : m_core(core)
        , m_widget(&widget)
        , m_name(name)
    {
    }

    void redo() override
    {
        if (auto *properties = PropertiesOf<QDesignerDynamicPropertySheetExtension>()) {
            properties->addDynamicProperty(m_name, QString());
            ShowInEditor();
        }
    }

    void undo() override
    {
        const auto *values = PropertiesOf<QDesignerPropertySheetExtension>();
        auto *properties = PropertiesOf<QDesignerDynamicPropertySheetExtension>();
        if (values && properties) {
            properties->removeDynamicProperty(values->indexOf(m_name));
            ShowInEditor();
        }
    }

private:
    template <typename Extension>
    Extension *PropertiesOf() const
    {
        return m_widget ? qt_extension<Extension *>(m_core.extensionManager(), m_widget) : nullptr;
    }

    void ShowInEditor()
    {
        QDesignerPropertyEditorInterface *editor = m_core.propertyEditor();
        if (editor && editor->object() == m_widget)
            editor->setObject(m_widget);
    }

    QDesignerFormEditorInterface &m_core;
    const QPointer<QWidget> m_widget;
    const QString m_name;
};

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
    const QString present = widget.property(property.toLatin1()).toString();
    const QPointer<TokenChooser> chooser = new TokenChooser(present, form); // goes with the form, too
    chooser->setWindowTitle(property);
    const bool isChosen = chooser->exec() == QDialog::Accepted && chooser;
    const QString code = isChosen ? chooser->Code() : present;
    delete chooser;
    if (code == present || !alive || !form)
        return;
    form->beginCommand(property);
    const auto *properties = qt_extension<QDesignerDynamicPropertySheetExtension *>(form->core()->extensionManager(), alive);
    if (properties && properties->canAddDynamicProperty(property))
        form->commandHistory()->push(new AddProperty(*form->core(), *alive, property)); // the history's
    form->cursor()->setWidgetProperty(alive, property, UntranslatedText(*form->core(), code));
    form->endCommand();
}

class ColorTask : public QObject, public QDesignerTaskMenuExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    explicit ColorTask(QWidget &widget, QObject *parent)
        : QObject(parent)
    {
        connect(&widget, &QObject::destroyed, this, &QObject::deleteLater); // Designer keeps it to its end
        const QStringList properties = ColorCodesOf(widget);
        for (const QString &property : properties)
            m_actions.append(ActionFor(widget, property));
        const QStringList states = StateColorsOf(widget);
        if (states.isEmpty())
            return;
        m_states = std::make_unique<QMenu>(QCoreApplication::translate("VelmoraDesigner", "Colours of states"));
        for (const QString &property : states) {
            if (property.startsWith(QLatin1String("normal")))
                m_states->addSeparator(); // before each table; Qt shows none at the top
            m_states->addAction(ActionFor(widget, property));
        }
        m_actions.append(m_states->menuAction());
    }

    QList<QAction *> taskActions() const override { return m_actions; }

private:
    QAction *ActionFor(QWidget &widget, const QString &property)
    {
        auto *action = new QAction(QCoreApplication::translate("VelmoraDesigner", "Choose %1...").arg(property), this);
        connect(action, &QAction::triggered, &widget, [&widget, property] { ChooseColor(widget, property); });
        return action;
    }

    QList<QAction *> m_actions;
    std::unique_ptr<QMenu> m_states;
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
    const bool hasColors = !ColorCodesOf(*widget).isEmpty() || !StateColorsOf(*widget).isEmpty();
    return hasColors ? new ColorTask(*widget, parent) : nullptr;
}

} // namespace VelmoraDesigner

#include "ColorTask.moc"
