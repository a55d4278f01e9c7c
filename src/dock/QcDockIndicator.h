#pragma once

#include <Velmora/DockPosition.h>
#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QHash>
#include <QList>

QT_BEGIN_NAMESPACE
class QLabel;
class QPoint;
QT_END_NAMESPACE

namespace Velmora {

/// The cross of nine places that a dragged panel may be dropped on. QcDockDragController centres it on the area under the mouse.
///
/// A window above all others, with neither frame nor focus, of 184 by 191 pixels. Each place is a label with an object name such as
/// "outer_left_label"; a place that is not offered is a disabled label. None is offered before the first setDockPositionList().
/// Left is the left of the screen, also in a right-to-left program.
class VELMORA_EXPORT QcDockIndicator : public QFrame
{
    Q_OBJECT

public:
    explicit QcDockIndicator(QWidget *parent = nullptr);
    ~QcDockIndicator() override;

    /// Offers exactly \a positions. NoPosition and numbers that name no place are passed over.
    void setDockPositionList(QList<DockPosition> positions);
    /// The offered place under the cursor, also while the indicator is hidden; NoPosition if there is none.
    DockPosition getTargetDockPosition();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    friend class QcDockDragController;

    void AddLabel(DockPosition position, const QString &objectName, int row, int column);
    void NameLabels();
    void Offer(const QList<DockPosition> &positions);
    void RepaintChangedLabels(const QPoint &cursor);
    void Choose(DockPosition position, const QString &spoken);
    QString LookOf(const QLabel &label, const QPoint &cursor) const;
    DockPosition TargetAt(const QPoint &cursor) const;
    void PaintLabel(QLabel &label);

    const char *m_dockPositionProperty = "object_property_dock_position";
    QHash<DockPosition, QLabel *> m_labelMap;
    QHash<const QLabel *, QString> m_paintedLooks; // as they are on the screen
    DockPosition m_chosen = NoPosition;            // by the keyboard; the cursor does not count meanwhile
};

} // namespace Velmora
