#pragma once

#include <Velmora/DockPosition.h>
#include <Velmora/VelmoraExport.h>

#include <QList>
#include <QObject>
#include <QPointer>

#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

class QcDockArea;
class QcDockContainer;
class QcDockIndicator;
class QcDockMask;
class QcDockWidget;

/// Turns a panel that follows the mouse into a preview of where it would dock, and its release into a change of the tree.
///
/// Panels and tabs call it for every step of a drag; there is no Qt drag and drop in this. It knows all areas and containers: they
/// enter themselves in their constructors and leave in their destructors. What lies under the mouse is found by their rectangles
/// alone: an area that is hidden, or behind another window, counts like any other; of two that lie over each other in different
/// windows the one that was made first.
///
/// All of it belongs to the main thread. A null is ignored everywhere.
class VELMORA_EXPORT QcDockDragController : public QObject
{
    Q_OBJECT

public:
    ~QcDockDragController() override;

    /// Made at its first use, never deleted.
    static QcDockDragController *instance();

    /// Called by areas and containers for themselves. One that is there, or not there, changes nothing.
    void addDockArea(QcDockArea *area);
    void removeDockArea(QcDockArea *area);
    void addDockContainer(QcDockContainer *container);
    void removeDockContainer(QcDockContainer *container);

    /// From \a start upward, schedules the deletion of every area that is empty and may go. See QcDockArea::deleteLaterIfEmpty().
    void deleteEmptyDockArea(QWidget *start);
    /// The same for containers. See QcDockContainer::deleteLaterIfEmpty().
    void deleteEmptyDockContainer(QWidget *start);

    /// One step of a drag: over an area it shows the indicator with the places that \a panel may take there, and tints what the place
    /// under the cursor would give it. Areas inside of \a panel do not count.
    void processDockWidgetDraging(QcDockWidget *panel);
    /// The release: docks \a panel at the place of the indicator that is under the cursor, also if the indicator is hidden, or leaves
    /// it a window.
    void processDockWidgetDragFinished(QcDockWidget *panel);
    /// Deletes what the departure of a panel from \a area has left empty.
    void processDockWidgetSwitchToFloating(QWidget *area);

private:
    friend struct DockDrag;
    friend class DockMove;
    friend struct DockRegistry;

    QcDockDragController();

    QcDockArea *getInnerMostDockAreaUnderMouse();
    QcDockArea *GetOuterMostDockAreaUnderMouse();
    QcDockContainer *getInnerMostDockContainerUnderMouse();
    QcDockContainer *getOuterMostDockContainerUnderMouse();
    QList<DockPosition> getDockPostionList(QcDockWidget *panel, QcDockArea *area);

    void BeginStep(QcDockWidget *panel);
    void CancelDrag(QcDockWidget *panel);
    void ShowIndicatorOver(const QWidget &area, const QList<DockPosition> &offered);
    void ShowMask(const QRect &rect, const QWidget &area);
    void ShowMaskAnew(const QRect &rect, const QWidget &area);
    void HideFeedback();
    void DockAt(QcDockWidget *panel, DockPosition target, QcDockArea *area, QcDockContainer *outer);
    void Preview(QcDockWidget *panel, QcDockArea *area, QcDockContainer *outer, DockPosition place, const QString &spoken);
    void EndPreview();

    QPointer<QcDockIndicator> m_dockIndicator;
    QPointer<QcDockMask> m_dockMask;
    QList<QcDockContainer *> m_dockContainerList;
    QList<QcDockArea *> m_dockAreaList; // both with nulls where one has gone

    struct Private;
    std::unique_ptr<Private> m_private;
};

} // namespace Velmora
