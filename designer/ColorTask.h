#pragma once

#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionFactory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace VelmoraDesigner {

/// Adds "Choose backgroundColorParams..." and the like to the context menu of what has colour codes. Designer adds what it has itself.
class ColorTaskFactory : public QExtensionFactory
{
    Q_OBJECT

public:
    explicit ColorTaskFactory(QExtensionManager *parent);

protected:
    QObject *createExtension(QObject *object, const QString &iid, QObject *parent) const override;
};

} // namespace VelmoraDesigner
