#pragma once

#include <QAccessibleWidget>

QT_BEGIN_NAMESPACE
class QFrame;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// A veil, which is modal while it keeps the keyboard out of what lies under it. It has the keyboard then, and the name of its window
/// unless the host gave it one.
class VeilAccessible : public QAccessibleWidget
{
public:
    explicit VeilAccessible(QWidget *veil);
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
};

/// Makes \a veil translucent, gives it an empty row to lay out what stands on it, and has it follow the colour table.
void SetUpVeil(QFrame &veil);

/// Fills \a veil with the table's overlay colour, which is translucent. For use in its paint event.
void PaintVeil(QWidget &veil);

} // namespace Velmora
