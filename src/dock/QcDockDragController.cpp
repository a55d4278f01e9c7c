#include <Velmora/QcDockDragController.h>

#include "core/LiesIn_p.h"
#include "display/Unobtrusive_p.h"
#include "dock/DockDrag_p.h"
#include "dock/DockRegistry_p.h"
#include "dock/DockTree_p.h"
#include "dock/DropGeometry_p.h"

#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockIndicator.h>
#include <Velmora/QcDockMask.h>
#include <Velmora/QcDockWidget.h>

#include <QCursor>
#include <QHash>
#include <QVariant>

namespace Velmora {

namespace {

template <typename T>
void DeleteEmptyUpward(QWidget *start)
{
    for (QWidget *widget = start; widget; widget = widget->parentWidget())
        if (auto *node = qobject_cast<T *>(widget))
            node->deleteLaterIfEmpty();
}

QRect GlobalRect(const QWidget &widget)
{
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

/// Shows \a window above those that have come since it was shown last, such as the dragged panel. True if it was hidden.
bool ShowOnTop(QWidget &window)
{
    if (window.isVisible())
        return false;
    window.show();
    window.raise();
    return true;
}

bool Holds(const QWidget *ancestor, const QWidget *widget)
{
    return ancestor->isAncestorOf(widget);
}

} // namespace

struct QcDockDragController::Private
{
    RegistryPlaces<QcDockArea> areas;
    RegistryPlaces<QcDockContainer> containers;
    /// Says of each entry of a registry, in one walk over them, whether it is what the cursor hits.
    template <typename T>
    auto HitTest()
    {
        corners.clear();
        const QWidget *ground = DockDrag::Ground();
        return [this, ground](T *entry) {
            return (!ground || entry->window() == ground) && GlobalRect(*entry).contains(cursor) && !IsDoomed(entry)
                && !(dragged && LiesIn(entry, dragged));
        };
    }

    QRect GlobalRect(const QWidget &widget)
    {
        return {widget.isWindow() ? widget.mapToGlobal(QPoint(0, 0)) : CornerOf(*widget.parentWidget()) + widget.pos(), widget.size()};
    }

    /// What mapToGlobal() gives, which goes up to the window each time, and asks the window system's side of it. A walk asks for hundreds
    /// of widgets, most of which lie in the same ones.
    QPoint CornerOf(const QWidget &holder)
    {
        QPoint corner;
        const QWidget *at = &holder;
        for (; !at->isWindow() && !corners.contains(at); at = at->parentWidget())
            corner += at->pos();
        if (!corners.contains(at))
            corners.insert(at, at->mapToGlobal(QPoint(0, 0)));
        corner += corners.value(at);
        corners.insert(&holder, corner);
        return corner;
    }

    QPoint cursor;                          // that of the step, asked once
    QHash<const QWidget *, QPoint> corners; // of what the entries of a walk lie in, on the screen
    QPointer<QWidget> dragged;
    QMetaObject::Connection draggedDies;
};

QcDockDragController::QcDockDragController()
    : m_private(std::make_unique<Private>())
{
    BeginStep(nullptr);
}

QcDockDragController::~QcDockDragController()
{
    delete m_dockIndicator;
    delete m_dockMask;
}

QcDockDragController *QcDockDragController::instance()
{
    static auto *controller = new QcDockDragController; // widgets that die after the application still find it
    return controller;
}

void QcDockDragController::addDockArea(QcDockArea *area)
{
    m_private->areas.Add(m_dockAreaList, area);
}

void QcDockDragController::removeDockArea(QcDockArea *area)
{
    m_private->areas.Remove(m_dockAreaList, area);
}

void QcDockDragController::addDockContainer(QcDockContainer *container)
{
    m_private->containers.Add(m_dockContainerList, container);
}

void QcDockDragController::removeDockContainer(QcDockContainer *container)
{
    m_private->containers.Remove(m_dockContainerList, container);
}

QList<QcDockArea *> DockRegistry::Areas()
{
    QList<QcDockArea *> areas = QcDockDragController::instance()->m_dockAreaList;
    areas.removeAll(nullptr);
    return areas;
}

QList<QcDockContainer *> DockRegistry::Containers()
{
    QList<QcDockContainer *> containers = QcDockDragController::instance()->m_dockContainerList;
    containers.removeAll(nullptr);
    return containers;
}

void QcDockDragController::deleteEmptyDockArea(QWidget *start)
{
    DeleteEmptyUpward<QcDockArea>(start);
}

void QcDockDragController::deleteEmptyDockContainer(QWidget *start)
{
    DeleteEmptyUpward<QcDockContainer>(start);
}

void QcDockDragController::processDockWidgetSwitchToFloating(QWidget *area)
{
    deleteEmptyDockArea(area);
    deleteEmptyDockContainer(area);
}

void QcDockDragController::processDockWidgetDraging(QcDockWidget *panel)
{
    if (!panel)
        return;
    // A host that hears of the panel's looks, or of a window that is shown, may delete the panel or end its drag.
    const QPointer<QWidget> living(panel);
    const auto goesOn = [&living] { return living && living->property("draging").toBool(); };
    panel->setDragingStyle(true);
    if (!goesOn())
        return;
    BeginStep(panel);
    QcDockArea *area = getInnerMostDockAreaUnderMouse();
    if (!area) {
        panel->SetDragTipVisible(true);
        HideFeedback();
        return;
    }
    const QRect areaRect = GlobalRect(*area);
    const QPointer<QWidget> place(area);
    ShowIndicatorOver(*area, getDockPostionList(panel, area));
    const QcDockContainer *outer = getOuterMostDockContainerUnderMouse();
    const DockPosition target = m_dockIndicator->TargetAt(m_private->cursor);
    if (goesOn())
        panel->SetDragTipVisible(!GlobalRect(*m_dockIndicator).contains(m_private->cursor));
    if (place)
        ShowMask(MaskRect(target, areaRect, outer ? GlobalRect(*outer) : QRect()), *place);
    if (!goesOn())
        HideFeedback();
}

void QcDockDragController::processDockWidgetDragFinished(QcDockWidget *panel)
{
    if (!panel)
        return;
    const QPointer<QWidget> living(panel);
    BeginStep(panel);
    const DockPosition target = m_dockIndicator->TargetAt(m_private->cursor);
    panel->setDragingStyle(false);
    if (living)
        panel->SetDragTipVisible(false);
    HideFeedback();
    if (!living)
        return;
    if (target == NoPosition)
        panel->setWindowStyle(true);
    else
        DockAt(panel, target, getInnerMostDockAreaUnderMouse(), getOuterMostDockContainerUnderMouse());
    if (living)
        DockDrag::Reveal(*panel);
}

void QcDockDragController::DockAt(QcDockWidget *panel, DockPosition target, QcDockArea *area, QcDockContainer *outer)
{
    const QPointer<QWidget> living(panel);
    const QPointer<QcDockArea> place(area);
    const QPointer<QcDockContainer> whole(outer);
    panel->setWindowStyle(false); // a host that hears of it may delete any of them
    if (!living)
        return;
    if (IsOuter(target)) {
        if (whole)
            whole->addWidget(panel, nullptr, WithoutOuter(target));
    } else if (QcDockContainer *container = place ? EnclosingContainer(place) : nullptr) {
        container->addWidget(panel, place, target);
    }
    if (living)
        panel->updateResizable();
}

void QcDockDragController::Preview(QcDockWidget *panel, QcDockArea *area, QcDockContainer *outer, DockPosition place, const QString &spoken)
{
    BeginStep(panel);
    m_dockIndicator->Choose(place, spoken);
    const QRect mask = MaskRect(place, GlobalRect(*area), GlobalRect(*outer));
    const QPointer<QWidget> living(area);
    ShowIndicatorOver(*area, getDockPostionList(panel, area));
    if (living)
        ShowMask(mask, *living);
}

void QcDockDragController::EndPreview()
{
    HideFeedback();
    if (!m_dockIndicator)
        return;
    m_dockIndicator->Choose(NoPosition, {});
    m_dockIndicator->Offer({}); // no click on a title docks by what the keyboard has left
}

void QcDockDragController::CancelDrag(QcDockWidget *panel)
{
    const QPointer<QWidget> living(panel);
    HideFeedback();
    if (living)
        panel->setDragingStyle(false);
    if (living)
        panel->SetDragTipVisible(false);
    if (living && panel->isFloating())
        panel->setWindowStyle(true);
    if (living)
        DockDrag::Reveal(*panel);
}

/// Takes note of cursor and panel, and sees to indicator and mask, which a host may have deleted among all top-level windows.
void QcDockDragController::BeginStep(QcDockWidget *panel)
{
    m_private->cursor = QCursor::pos();
    if (m_private->dragged != panel) {
        disconnect(m_private->draggedDies);
        m_private->dragged = panel;
        if (panel)
            m_private->draggedDies = connect(panel, &QObject::destroyed, this, &QcDockDragController::HideFeedback);
    }
    if (!m_dockIndicator)
        m_dockIndicator = new QcDockIndicator(nullptr); // deleted by the destructor
    if (!m_dockMask)
        m_dockMask = new QcDockMask(nullptr); // deleted by the destructor
}

void QcDockDragController::ShowIndicatorOver(const QWidget &area, const QList<DockPosition> &offered)
{
    m_dockIndicator->Offer(offered);
    const QRect place(IndicatorTopLeft(GlobalRect(area), m_dockIndicator->size()), m_dockIndicator->size());
    if (CompositorPlacesWindows() && (m_dockIndicator->isHidden() || m_dockIndicator->geometry() != place)) {
        HideFeedback();
        BelongTo(*m_dockIndicator, area);
    }
    m_dockIndicator->move(place.topLeft());
    m_dockIndicator->RepaintChangedLabels(m_private->cursor);
    ShowOnTop(*m_dockIndicator);
}

void QcDockDragController::ShowMask(const QRect &rect, const QWidget &area)
{
    if (CompositorPlacesWindows())
        return ShowMaskAnew(rect, area);
    if (rect.isNull()) {
        m_dockMask->hide();
        return;
    }
    m_dockMask->setGeometry(rect);
    if (ShowOnTop(*m_dockMask))
        m_dockIndicator->raise(); // its labels stay in sight
}

/// On Wayland, where only what belongs to a popup is sure to lie above it, and popups neither move nor rise: they come anew.
void QcDockDragController::ShowMaskAnew(const QRect &rect, const QWidget &area)
{
    if (rect == (m_dockMask->isVisible() ? m_dockMask->geometry() : QRect()))
        return;
    m_dockIndicator->hide(); // before what it belongs to
    m_dockMask->hide();
    if (!rect.isNull()) {
        BelongTo(*m_dockMask, area);
        m_dockMask->setGeometry(rect);
        m_dockMask->show();
    }
    BelongTo(*m_dockIndicator, rect.isNull() ? area : *m_dockMask);
    m_dockIndicator->show();
}

void QcDockDragController::HideFeedback()
{
    if (m_dockIndicator)
        m_dockIndicator->hide();
    if (m_dockMask)
        m_dockMask->hide();
}

QcDockArea *QcDockDragController::getInnerMostDockAreaUnderMouse()
{
    return InnerMost(m_dockAreaList, m_private->HitTest<QcDockArea>(), Holds);
}

QcDockArea *QcDockDragController::GetOuterMostDockAreaUnderMouse()
{
    return OuterMost(m_dockAreaList, m_private->HitTest<QcDockArea>(), Holds);
}

QcDockContainer *QcDockDragController::getInnerMostDockContainerUnderMouse()
{
    return InnerMost(m_dockContainerList, m_private->HitTest<QcDockContainer>(), Holds);
}

QcDockContainer *QcDockDragController::getOuterMostDockContainerUnderMouse()
{
    return OuterMost(m_dockContainerList, m_private->HitTest<QcDockContainer>(), Holds);
}

QList<DockPosition> QcDockDragController::getDockPostionList(QcDockWidget *panel, QcDockArea *area)
{
    return OfferedPositions(area->isSupportType(panel->getType()), EnclosingArea(area), area->isEmpty());
}

} // namespace Velmora
