#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QObject>
#include <QPointer>

namespace VelmoraDesigner {

struct Control;
class Plugin;

/// One control to Designer and QUiLoader.
class ControlPlugin : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    /// \a control stays where it is for good.
    ControlPlugin(const Control &control, Plugin &plugin);

    bool isInitialized() const override { return m_isInitialized; }
    void initialize(QDesignerFormEditorInterface *core) override;
    QWidget *createWidget(QWidget *parent) override;
    QString name() const override;
    QString group() const override;
    QIcon icon() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QString domXml() const override;
    bool isContainer() const override;

private:
    const Control &m_control;
    Plugin &m_plugin;
    bool m_isInitialized = false;
};

/// All controls of the kit, and, in Designer, its menu, its pages, its chooser of colours and the look of its forms.
class Plugin : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit Plugin(QObject *parent = nullptr);

    QList<QDesignerCustomWidgetInterface *> customWidgets() const override { return m_controls; }

    /// Called for each control; the first call for a \a core counts.
    void Begin(QDesignerFormEditorInterface &core);
    bool IsInDesigner() const { return m_core; }

private:
    QList<QDesignerCustomWidgetInterface *> m_controls;
    QPointer<QObject> m_core;
};

} // namespace VelmoraDesigner
