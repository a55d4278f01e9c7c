#include "dock/DockTree_p.h"

#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockAreaTabBarButton.h>
#include <Velmora/QcDockAreaTabFrame.h>
#include <Velmora/QcDockAreaTabStackedWidget.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockDragController.h>
#include <Velmora/QcDockWidget.h>

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QSplitter>

#include <algorithm>

namespace Velmora {

namespace {

/// What stands between areas, containers and pages.
bool IsFabric(const QWidget *widget)
{
    return qobject_cast<const QSplitter *>(widget) || qobject_cast<const QcDockAreaTabFrame *>(widget)
        || qobject_cast<const QcDockAreaTabStackedWidget *>(widget);
}

/// Whether a panel, or a container that is kept, lies below \a object, at any depth. Not by QObject::findChild(), which in Qt 6 asks a
/// child that has all but died.
bool IsSomethingBelow(const QObject &object)
{
    const QObjectList &children = object.children();
    return std::any_of(children.begin(), children.end(), [](const QObject *child) {
        const auto *container = qobject_cast<const QcDockContainer *>(child);
        const bool isSomething = qobject_cast<const QcDockWidget *>(child) || (container && container->isEmptyKeep());
        return isSomething || (child && IsSomethingBelow(*child));
    });
}

} // namespace

DockAreaRecord &DockTree::RecordOf(QcDockArea *area)
{
    return *area->m_record;
}

DockContainerRecord &DockTree::RecordOf(QcDockContainer *container)
{
    return *container->m_record;
}

bool DockTree::Counts(QcDockArea *area)
{
    return RecordOf(area).fate == Fate::Stays && !area->d_ptr->deleteLaterCalled;
}

bool DockTree::Counts(QcDockContainer *container)
{
    return RecordOf(container).fate == Fate::Stays && !container->d_ptr->deleteLaterCalled;
}

void DockTree::Doom(QcDockArea *area)
{
    if (!Counts(area))
        return;
    RecordOf(area).fate = Fate::Doomed;
    area->deleteLater();
}

void DockTree::Doom(QcDockContainer *container)
{
    if (!Counts(container))
        return;
    RecordOf(container).fate = Fate::Doomed;
    container->deleteLater();
}

QList<QcDockArea *> DockTree::Revive(QWidget *start)
{
    const auto revoke = [](auto *node) {
        Fate &fate = RecordOf(node).fate;
        if (fate != Fate::Doomed)
            return false;
        fate = Fate::Stays;
        QCoreApplication::removePostedEvents(node, QEvent::DeferredDelete);
        node->d_ptr->deleteLaterCalled = false; // Qt leaves it set
        return true;
    };
    QList<QcDockArea *> revived;
    for (QWidget *widget = start; widget; widget = widget->parentWidget()) {
        if (auto *area = qobject_cast<QcDockArea *>(widget)) {
            if (revoke(area))
                revived.append(area);
        } else if (auto *container = qobject_cast<QcDockContainer *>(widget)) {
            revoke(container);
        }
    }
    return revived;
}

void DockTree::SweepLeftovers(QcDockArea *area)
{
    QcDockContainer *container = EnclosingContainer(area);
    if (!container)
        return;
    for (QcDockArea *other : container->getDockAreaList())
        if (other != area && RecordOf(other).isLeftover)
            other->deleteLaterIfEmpty();
}

void DockTree::TakeForFresh(QcDockArea *area)
{
    const auto forget = [](QWidget *widget) {
        auto *emptied = qobject_cast<QcDockArea *>(widget);
        if (emptied && emptied->isEmpty()) {
            RecordOf(emptied).hadPage = false;
            RecordOf(emptied).isLeftover = false;
        }
        return false;
    };
    WalkDock(area, forget);
    for (QWidget *widget = area; widget; widget = widget->parentWidget())
        forget(widget);
}

QcDockArea *DockTree::FirstArea(QcDockContainer *container)
{
    return container->FirstArea();
}

QcDockArea *DockTree::LeafOf(QcDockArea *area)
{
    return area->Leaf();
}

QcDockContainer *DockTree::NewNested(QcDockArea *wrapper)
{
    QcDockContainer *nested = NewBare(PageParent(wrapper));
    wrapper->addWidget(nested);
    return nested;
}

QcDockContainer *DockTree::NewBare(QWidget *parent)
{
    return new QcDockContainer(parent, QcDockContainer::Bare());
}

QcDockArea *DockTree::AppendArea(QcDockContainer *container)
{
    return container->InsertNewArea(container->m_splitter->count());
}

QcDockAreaTabFrame *DockTree::TabFrameOf(QcDockArea *area)
{
    return area->m_tabFrame;
}

QWidget *DockTree::PageParent(QcDockArea *area)
{
    return RecordOf(area).stack;
}

QList<int> DockTree::SizesToKeep(QcDockContainer *container)
{
    const DockContainerRecord &record = RecordOf(container);
    return !record.isLaidOut && record.sharesAreAsked ? record.shares : container->getSizes();
}

QcDockArea *EnclosingArea(const QWidget *widget)
{
    for (QWidget *ancestor = widget ? widget->parentWidget() : nullptr; ancestor; ancestor = ancestor->parentWidget())
        if (auto *area = qobject_cast<QcDockArea *>(ancestor))
            return area;
    return nullptr;
}

QcDockContainer *EnclosingContainer(const QWidget *widget)
{
    for (QWidget *ancestor = widget->parentWidget(); ancestor && !qobject_cast<QcDockWidget *>(ancestor);
         ancestor = ancestor->parentWidget())
        if (auto *container = qobject_cast<QcDockContainer *>(ancestor))
            return container;
    return nullptr;
}

QcDockArea *AreaOfPage(const QWidget *widget)
{
    QcDockArea *area = EnclosingArea(widget);
    return area && IndexOfPage(area, widget) >= 0 ? area : nullptr;
}

int IndexOfPage(QcDockArea *area, const QWidget *page)
{
    return DockTree::RecordOf(area).stack->indexOf(const_cast<QWidget *>(page)); // Qt only compares it
}

QcDockContainer *NestedContainer(const QcDockArea *area)
{
    return qobject_cast<QcDockContainer *>(static_cast<QObject *>(area->widget(0)));
}

bool IsWrapper(const QcDockArea *area)
{
    return NestedContainer(area);
}

bool IsDoomed(QWidget *widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (auto *area = qobject_cast<QcDockArea *>(widget)) {
            if (!DockTree::Counts(area))
                return true;
        } else if (auto *container = qobject_cast<QcDockContainer *>(widget)) {
            if (!DockTree::Counts(container))
                return true;
        }
    }
    return false;
}

bool IsRoot(const QcDockContainer *container)
{
    for (QWidget *ancestor = container->parentWidget(); ancestor; ancestor = ancestor->parentWidget()) {
        if (qobject_cast<QcDockContainer *>(ancestor))
            return false;
        if (qobject_cast<QcDockWidget *>(ancestor))
            return true;
    }
    return true;
}

int DepthOf(const QcDockContainer *container)
{
    int depth = 1;
    for (; !IsRoot(container); ++depth)
        container = EnclosingContainer(container);
    return depth;
}

int NestingBelow(const QWidget *start)
{
    int deepest = 0;
    WalkDock(start, [&deepest, start](QWidget *widget) {
        if (qobject_cast<QcDockContainer *>(widget)) {
            int nesting = 0;
            for (const QWidget *outer = widget; outer && outer != start && start->isAncestorOf(outer); ++nesting)
                outer = EnclosingContainer(outer);
            deepest = std::max(deepest, nesting);
        }
        return false;
    });
    return deepest;
}

bool WalkDock(const QObject *start, const std::function<bool(QWidget *)> &visit)
{
    const auto *stack = qobject_cast<const QcDockAreaTabStackedWidget *>(start);
    const QObjectList children = start->children(); // a copy: a visit may move what it is shown
    for (QObject *child : children) {
        auto *widget = qobject_cast<QWidget *>(child);        // null for what has all but died
        if (!widget || (stack && stack->indexOf(widget) < 0)) // a page that was taken away stays a child until it gets its next place
            continue;
        if (qobject_cast<QcDockWidget *>(widget)) {
            if (visit(widget))
                return true;
            continue;
        }
        auto *area = qobject_cast<QcDockArea *>(widget);
        auto *container = qobject_cast<QcDockContainer *>(widget);
        if ((area && !DockTree::Counts(area)) || (container && !DockTree::Counts(container)))
            continue;
        const bool isNode = area || container;
        if ((isNode || stack) && visit(widget))
            return true;
        if ((isNode || IsFabric(widget)) && WalkDock(widget, visit))
            return true;
    }
    return false;
}

bool HoldsSomething(const QObject *start)
{
    return WalkDock(start, [](QWidget *widget) {
        if (auto *container = qobject_cast<QcDockContainer *>(widget))
            return container->isEmptyKeep();
        if (qobject_cast<QcDockArea *>(widget))
            return false;
        return qobject_cast<QcDockWidget *>(widget) || IsSomethingBelow(*widget);
    });
}

void WalkEmpties(QWidget *start)
{
    QcDockDragController::instance()->deleteEmptyDockArea(start);
    QcDockDragController::instance()->deleteEmptyDockContainer(start);
}

void LeavePlace(QWidget *widget)
{
    const QPointer<QcDockArea> area(AreaOfPage(widget));
    if (!area)
        return;
    if (QcDockAreaTabBarButton *button = DockTree::TabFrameOf(area)->removeTab(IndexOfPage(area, widget)).first)
        button->deleteLater();
    WalkEmpties(area);
}

} // namespace Velmora
