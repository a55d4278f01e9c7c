#include "Plugin.h"

#include "ColorTask.h"
#include "ControlTable.h"
#include "FormLook.h"
#include "Pages.h"
#include "TableMenu.h"
#include "Tables.h"

#include <Velmora/QcStyleManager.h>
#include <Velmora/Translations.h>

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QExtensionManager>

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QTranslator>

using namespace Velmora;

namespace VelmoraDesigner {

namespace {

/// The plugin's own texts in the language of Designer, out of the kit's catalogue, whose other texts stay away from what is designed.
class OwnTexts : public QTranslator
{
public:
    using QTranslator::QTranslator;

    QString translate(const char *context, const char *text, const char *meaning, int number) const override
    {
        return qstrcmp(context, "VelmoraDesigner") == 0 ? QTranslator::translate(context, text, meaning, number) : QString();
    }
};

} // namespace

ControlPlugin::ControlPlugin(const Control &control, Plugin &plugin)
    : QObject(&plugin)
    , m_control(control)
    , m_plugin(plugin)
{
}

void ControlPlugin::initialize(QDesignerFormEditorInterface *core)
{
    m_isInitialized = true;
    if (core)
        m_plugin.Begin(*core);
}

QWidget *ControlPlugin::createWidget(QWidget *parent)
{
    ServeWithTable();
    QWidget *widget = m_control.make(parent);
    if (m_plugin.IsInDesigner() && parent)
        widget->setWindowFlags(Qt::Widget); // a form lies in Designer's windows
    return widget;
}

QString ControlPlugin::name() const
{
    return m_control.ClassName();
}

QString ControlPlugin::group() const
{
    return QLatin1String(m_control.group);
}

/// In the colours of the program that shows it, sharp in each of the sizes that are asked for.
QIcon ControlPlugin::icon() const
{
    ImageParams image;
    image.path = QStringLiteral(":/velmora-designer/%1.svg").arg(m_control.ShortName());
    const QString ink = QApplication::palette().color(QPalette::WindowText).name();
    // They are replaced one after the other: what one becomes must not be another one.
    image.mulColor = {{QStringLiteral("#000001"), ink},
                      {QStringLiteral("#808081"), QStringLiteral("${%1, 0.25}").arg(ink)},
                      {QStringLiteral("#0000FE"), QStringLiteral("#2F7BF5")}};
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 44, 48}) {
        image.size = QSize(size, size);
        icon.addPixmap(QcStyleManager::GetInstance()->GetPixmap(image));
    }
    return icon;
}

QString ControlPlugin::toolTip() const
{
    return QLatin1String(m_control.toolTip);
}

QString ControlPlugin::whatsThis() const
{
    return QStringLiteral("%1. %2").arg(toolTip(), QLatin1String(m_control.whatsThis));
}

QString ControlPlugin::includeFile() const
{
    return QStringLiteral("<%1>").arg(m_control.Header());
}

QString ControlPlugin::domXml() const
{
    return m_control.DomXml();
}

bool ControlPlugin::isContainer() const
{
    return m_control.room != Room::Nothing;
}

Plugin::Plugin(QObject *parent)
    : QObject(parent)
{
    for (const Control &control : Controls())
        m_controls.append(new ControlPlugin(control, *this)); // its child
}

void Plugin::Begin(QDesignerFormEditorInterface &core)
{
    if (m_core == &core)
        return;
    m_core = &core;
    ServeWithTable();
    auto *texts = new OwnTexts(&core);
    if (texts->load(QLocale(), QStringLiteral("velmora"), QStringLiteral("_"), TranslationsFolder(), QStringLiteral(".qm")))
        QCoreApplication::installTranslator(texts);
    QExtensionManager *extensions = core.extensionManager();
    extensions->registerExtensions(new PagesFactory(extensions), Q_TYPEID(QDesignerContainerExtension));
    extensions->registerExtensions(new ColorTaskFactory(extensions), Q_TYPEID(QDesignerTaskMenuExtension));
    new FormLook(core); // its child, as is the menu
    new TableMenu(core);
}

} // namespace VelmoraDesigner
