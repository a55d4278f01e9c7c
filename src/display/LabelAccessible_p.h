#pragma once

#include <QAccessibleWidget>

namespace Velmora {

class QcLabel;

/// A label, whose name is the text that it shows: as it stands, but without the marks of keys for as long as they mark any.
/// All else is as in a QLabel.
class LabelAccessible : public QAccessibleWidget, public QAccessibleImageInterface
{
public:
    using Relations = QVector<QPair<QAccessibleInterface *, QAccessible::Relation>>;

    explicit LabelAccessible(QcLabel *label);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::Role role() const override;
    QString text(QAccessible::Text kind) const override;
    Relations relations(QAccessible::Relation match) const override;

    QString imageDescription() const override;
    QSize imageSize() const override;
    QPoint imagePosition() const override;

private:
    QcLabel *Label() const;
};

} // namespace Velmora
