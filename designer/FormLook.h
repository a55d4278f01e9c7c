#pragma once

#include <QObject>

QT_BEGIN_NAMESPACE
class QDesignerFormEditorInterface;
class QDesignerFormWindowInterface;
QT_END_NAMESPACE

namespace VelmoraDesigner {

/// Lays forms in Designer on the ground of the colour table, and leaves Designer as it is. By palette: a stylesheet of theirs would end
/// its way to what they hold.
class FormLook : public QObject
{
    Q_OBJECT

public:
    /// Becomes a child of \a core.
    explicit FormLook(QDesignerFormEditorInterface &core);

private:
    void Dress(QDesignerFormWindowInterface *form);
    void DressAll();

    QDesignerFormEditorInterface &m_core;
};

} // namespace VelmoraDesigner
