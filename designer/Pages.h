#pragma once

#include <QtDesigner/QDesignerContainerExtension>
#include <QtDesigner/QExtensionFactory>

namespace VelmoraDesigner {

/// Gives stacks, windows and dialogs their pages in Designer.
class PagesFactory : public QExtensionFactory
{
    Q_OBJECT

public:
    explicit PagesFactory(QExtensionManager *parent);

protected:
    QObject *createExtension(QObject *object, const QString &iid, QObject *parent) const override;
};

} // namespace VelmoraDesigner
