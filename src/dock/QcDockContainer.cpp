#include <Velmora/QcDockContainer.h>

#include "core/LiesIn_p.h"
#include "dock/DockFocus_p.h"
#include "dock/DockLayout_p.h"
#include "dock/DockShares_p.h"
#include "dock/DockSplitter_p.h"
#include "dock/DockTree_p.h"
#include "dock/DropGeometry_p.h"
#include "dock/FloatsAbove_p.h"

#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockDragController.h>
#include <Velmora/QcDockWidget.h>
#include <Velmora/QcStyleManager.h>

#include <QChildEvent>
#include <QPointer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace Velmora {

namespace {

/// Containers are nested no deeper: nothing is ever flattened, and a deeper layout could not be loaded again.
constexpr int kDeepestNesting = kMaxLayoutDepth;

bool IsSide(DockPosition position)
{
    return position >= Left && position <= Bottom;
}

} // namespace

QcDockContainer::QcDockContainer(QWidget *parent)
    : QcDockContainer(parent, Bare())
{
    InsertNewArea(0);
    m_record->shares = {kWholeShare};
    updatetDockWidgetWindowsVisible();
}

QcDockContainer::QcDockContainer(QWidget *parent, Bare /*noArea*/)
    : QFrame(parent, Qt::WindowFlags())
    , m_record(std::make_unique<DockContainerRecord>())
{
    QcDockDragController::instance()->addDockContainer(this);
    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    m_splitter = createSplitter();
    layout->addWidget(m_splitter);
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/DockContainer.qss"));
}

QcDockContainer::~QcDockContainer()
{
    m_record->fate = Fate::Dying;
    QcDockDragController::instance()->removeDockContainer(this);
}

QSplitter *QcDockContainer::createSplitter()
{
    auto *splitter = new DockSplitter(this);
    splitter->setHandleWidth(4);
    splitter->setChildrenCollapsible(false);
    return splitter;
}

void QcDockContainer::InsertPane(int index, QcDockArea *area)
{
    static_cast<DockSplitter *>(m_splitter)->Insert(index, area);
}

/// Made where it stays: reparenting restyles.
QcDockArea *QcDockContainer::InsertNewArea(int index)
{
    auto *area = new QcDockArea(m_splitter);
    InsertPane(index, area);
    SetAreaDirections();
    return area;
}

QcDockArea *QcDockContainer::wrapWidgetWithDockArea(QWidget *widget)
{
    const QPointer<QcDockArea> area(new QcDockArea(m_splitter));
    area->addWidget(widget);
    return area; // null if a host took all of it away when it heard of the page's way
}

void QcDockContainer::addWidget(QWidget *widget, QWidget *target, DockPosition position)
{
    const bool isPlace = IsSide(WithoutOuter(position)) || position == Center;
    if (!widget || !isPlace || LiesIn(this, widget) || qobject_cast<QcDockArea *>(widget))
        return;
    QcDockArea *area = qobject_cast<QcDockArea *>(target);
    if (!area)
        area = EnclosingArea(target);
    QcDockArea *own = AreaOfPage(widget);
    const bool isOnItself = target && LiesIn(target, widget);
    if (position == Center && !isOnItself)
        area = DockTree::LeafOf(area ? area : FirstArea());
    if (own && (isOnItself || (position == Center && area == own))) {
        own->setCurrentIndex(IndexOfPage(own, widget));
        return;
    }
    if (isOnItself || (own && own->count() == 1 && (area == own || (!area && own == FirstArea() && getDockAreaList().size() == 1))))
        return;
    Place(widget, area, WithoutOuter(position));
}

/// Takes \a widget out of its old place before it goes to the new one, and looks at the old one again when that is done: what was the
/// last area there is not any more.
void QcDockContainer::Place(QWidget *widget, QcDockArea *area, DockPosition position)
{
    QcDockContainer *container = area && position != Center ? EnclosingContainer(area) : this;
    if (!container)
        return;
    const QPointer<QWidget> page(widget);
    const QPointer<QcDockContainer> guard(container);
    const QPointer<QcDockArea> target(area);
    const bool hadTarget = area;
    const QPointer<QcDockArea> old(AreaOfPage(widget));
    FocusKeeper goes(*widget);
    LeavePlace(widget);
    if (!page || !guard || (hadTarget && !target)) {
        if (page && old)
            old->addWidget(page); // a host took the new place away: it stays where it was
        return;
    }
    if (position == Center)
        target->addWidget(page);
    else
        guard->PlaceBeside(page, target, position);
    goes.GiveBack();
}

void QcDockContainer::PlaceBeside(QWidget *widget, QcDockArea *area, DockPosition position)
{
    if (!isDifferentOrientation(position)) {
        addWidgetSameOrientation(widget, area, position);
    } else if (GoesTooDeep(*widget, area)) {
        addWidgetSameOrientation(widget, area, Along(getOrientation(), position));
    } else {
        FocusKeeper sinks(*this); // what goes one level down gets another parent
        addWidgetDifferentOrientation(widget, area, position);
        sinks.GiveBack();
    }
}

bool QcDockContainer::isDifferentOrientation(DockPosition position)
{
    if (getDockAreaList().size() < 2)
        return false;
    return IsSide(position) && OrientationOf(position) != getOrientation();
}

/// Whether a placement across would nest containers deeper than one along. A container that a host places may bring others.
bool QcDockContainer::GoesTooDeep(const QWidget &newcomer, const QcDockArea *area) const
{
    const int room = kDeepestNesting - (DepthOf(this) + 1); // below the container that is to be made
    if (room < 0)
        return true;
    if (!area)
        return NestingBelow(this) > room; // the newcomer stays on this level
    const int brought = qobject_cast<const QcDockContainer *>(&newcomer) ? 1 + NestingBelow(&newcomer) : 0;
    return std::max(NestingBelow(area), brought) > room;
}

void QcDockContainer::addWidgetSameOrientation(QWidget *widget, QcDockArea *area, DockPosition position)
{
    const QPointer<QcDockContainer> self(this);
    const QPointer<QcDockArea> target(area);
    const QPointer<QcDockArea> newcomer(wrapWidgetWithDockArea(widget));
    if (newcomer && newcomer->count() == 0)
        delete newcomer; // its page died on the way
    if (!self || !newcomer)
        return;
    setOrientation(OrientationOf(position));
    const bool after = GoesAfter(position);
    const int index = target ? m_splitter->indexOf(target) : -1;
    if (index >= 0) {
        const QList<int> sizes = HalvedForNewcomer(Weights(), index, after);
        InsertPane(after ? index + 1 : index, newcomer);
        SetWeights(sizes);
    } else {
        const QList<int> sizes = WithEdgeNewcomer(Weights(), after);
        InsertPane(after ? m_splitter->count() : 0, newcomer);
        SetWeights(sizes);
    }
    SetAreaDirections();
    DockTree::SweepLeftovers(newcomer);
}

void QcDockContainer::addWidgetDifferentOrientation(QWidget *widget, QcDockArea *area, DockPosition position)
{
    if (!IsSide(position))
        return;
    QcDockContainer *nested = nullptr;
    const int index = area ? m_splitter->indexOf(area) : -1;
    if (index < 0) {
        const QPointer<QcDockContainer> self(this);
        SinkContent();
        if (!self)
            return;
    } else {
        nested = NestInPlaceOf(area, index);
    }
    QcDockContainer *splitting = nested ? nested : this; // it holds one area now, which gives half of its size
    splitting->addWidgetSameOrientation(widget, nested ? area : nullptr, position);
}

/// A wrapper takes the place of \a area at \a index, which goes into the new container inside of it. The sizes of this level stay.
QcDockContainer *QcDockContainer::NestInPlaceOf(QcDockArea *area, int index)
{
    const QList<int> sizes = Weights();
    auto *wrapper = new QcDockArea(m_splitter);
    QcDockContainer *nested = DockTree::NewNested(wrapper);
    nested->InsertPane(0, area);
    nested->SetAreaDirections();
    InsertPane(index, wrapper);
    SetWeights(sizes);
    SetAreaDirections();
    return nested;
}

/// All that is here goes one level down: the splitter as it is into a container of its own, the only area of a new splitter.
void QcDockContainer::SinkContent()
{
    QSplitter *old = m_splitter;
    layout()->removeWidget(old);
    m_splitter = createSplitter();
    layout()->addWidget(m_splitter);
    auto *wrapper = new QcDockArea(m_splitter);
    QcDockContainer *nested = DockTree::NewNested(wrapper);
    nested->replaceSplitterAndDeleteOldSplitter(old);
    nested->m_record->isLaidOut = std::exchange(m_record->isLaidOut, false);
    nested->m_record->sharesAreAsked = std::exchange(m_record->sharesAreAsked, false);
    nested->m_record->shares = std::exchange(m_record->shares, QList<int>());
    nested->SetAreaDirections();
    InsertPane(0, wrapper);
    SetAreaDirections();
    if (isVisible()) {
        const QPointer<QcDockContainer> self(this);
        m_splitter->show(); // a layout shows what it takes in a turn later
        if (self)
            layout()->activate();
    }
}

void QcDockContainer::replaceSplitterAndDeleteOldSplitter(QSplitter *splitter)
{
    layout()->removeWidget(m_splitter);
    // It leaves at once, so that no search comes upon what is about to be deleted.
    m_splitter->setParent(nullptr);
    m_splitter->deleteLater();
    m_splitter = splitter;
    layout()->addWidget(m_splitter);
}

QcDockArea *QcDockContainer::FirstArea()
{
    const QList<QcDockArea *> areas = getDockAreaList();
    return areas.isEmpty() ? InsertNewArea(m_splitter->count()) : areas.first();
}

void QcDockContainer::setDockAreaList(QList<QcDockArea *> areas)
{
    QList<QPointer<QcDockArea>> wanted;
    for (QcDockArea *area : qAsConst(areas))
        if (area && !LiesIn(this, area) && !wanted.contains(area))
            wanted.append(area);
    if (wanted.isEmpty())
        return;
    const QPointer<QcDockContainer> self(this);
    QList<QPointer<QcDockContainer>> robbed;
    const QPointer<QWidget> first(m_splitter->widget(0));
    const bool firstGoes = first && !wanted.contains(static_cast<QcDockArea *>(first.data()));
    for (const QPointer<QcDockArea> &area : qAsConst(wanted)) {
        if (QcDockContainer *old = EnclosingContainer(area); old && old != this)
            robbed.append(old);
        if (firstGoes && LiesIn(area, first))
            InsertPane(m_splitter->count(), area); // it is not to go with what encloses it
    }
    if (firstGoes)
        delete first;
    for (const QPointer<QcDockArea> &area : qAsConst(wanted)) {
        if (self && area) {
            InsertPane(m_splitter->count(), area);
            DockTree::TakeForFresh(area);
        }
    }
    if (!self)
        return;
    m_record->shares.clear();
    SetAreaDirections();
    DockTree::Revive(this); // the loss of the first area may have emptied it
    for (const QPointer<QcDockContainer> &old : qAsConst(robbed))
        WalkEmpties(old);
}

QList<QcDockArea *> QcDockContainer::getDockAreaList()
{
    QList<QcDockArea *> areas;
    for (int i = 0; i < m_splitter->count(); ++i)
        if (auto *area = qobject_cast<QcDockArea *>(m_splitter->widget(i)); area && DockTree::Counts(area))
            areas.append(area);
    return areas;
}

QList<int> QcDockContainer::getSizes()
{
    const QList<int> all = m_splitter->sizes();
    QList<int> sizes;
    for (QcDockArea *area : getDockAreaList())
        sizes.append(all.value(m_splitter->indexOf(area)));
    return sizes;
}

void QcDockContainer::setSizes(QList<int> sizes)
{
    QList<int> weights = Weights();
    int next = 0;
    for (QcDockArea *area : getDockAreaList())
        weights[m_splitter->indexOf(area)] = sizes.value(next++);
    SetWeights(weights);
    m_record->sharesAreAsked = !m_record->isLaidOut;
}

/// What the told arithmetic works on: the sizes of the splitter or, until it has had its first layout, the shares that stand for them. What
/// a splitter says before that is no size at all.
QList<int> QcDockContainer::Weights() const
{
    return m_record->isLaidOut ? m_splitter->sizes() : FittedTo(m_splitter->count(), m_record->shares);
}

void QcDockContainer::SetWeights(const QList<int> &weights)
{
    if (m_record->isLaidOut)
        m_splitter->setSizes(WithinWhole(weights));
    else
        m_record->shares = WithinWhole(weights);
}

/// The splitter is about to lay out its panes. For the first time it gets the shares that waited for that.
void QcDockContainer::SettleShares()
{
    if (m_record->isLaidOut || m_splitter->count() == 0)
        return;
    const QList<int> shares = Weights();
    m_record->isLaidOut = true;
    m_record->sharesAreAsked = false;
    m_record->shares.clear();
    m_splitter->setSizes(shares);
}

void QcDockContainer::ForgetShare(const QObject *pane)
{
    for (int i = 0; i < m_splitter->count() && i < m_record->shares.size(); ++i) {
        if (m_splitter->widget(i) == pane) { // which the splitter still holds
            m_record->shares.removeAt(i);
            return;
        }
    }
}

/// A container shows at least one area. Whoever took the last one away may be about to give another: the next turn will tell.
void QcDockContainer::RefillLater()
{
    if (m_record->isRefilling || !getDockAreaList().isEmpty())
        return;
    m_record->isRefilling = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_record->isRefilling = false;
            if (DockTree::Counts(this))
                FirstArea();
        },
        Qt::QueuedConnection);
}

/// The splitter goes by the screen, its areas by the program again.
void QcDockContainer::SetAreaDirections()
{
    for (int i = 0; i < m_splitter->count(); ++i)
        if (m_splitter->widget(i)->layoutDirection() != layoutDirection())
            m_splitter->widget(i)->setLayoutDirection(layoutDirection());
}

Qt::Orientation QcDockContainer::getOrientation()
{
    return m_splitter->orientation();
}

void QcDockContainer::setOrientation(Qt::Orientation orientation)
{
    static_cast<DockSplitter *>(m_splitter)->Turn(orientation == Qt::Vertical ? Qt::Vertical : Qt::Horizontal);
}

bool QcDockContainer::hasOnlyOneDockArea()
{
    return m_splitter->count() == 1;
}

bool QcDockContainer::isEmpty()
{
    return !HoldsSomething(this);
}

void QcDockContainer::setEmptyKeep(bool keep)
{
    m_emptyKeep = keep;
}

bool QcDockContainer::isEmptyKeep() const
{
    return m_emptyKeep;
}

void QcDockContainer::deleteLaterIfEmpty()
{
    if (!m_emptyKeep && isEmpty())
        DockTree::Doom(this);
}

void QcDockContainer::showEvent(QShowEvent *event)
{
    const QPointer<QcDockContainer> self(this);
    updatetDockWidgetWindowsVisible();
    if (self && IsRoot(this))
        BringFloatsAbove(*this);
    if (self)
        QWidget::showEvent(event);
}

void QcDockContainer::hideEvent(QHideEvent *event)
{
    const QPointer<QcDockContainer> self(this);
    updatetDockWidgetWindowsVisible();
    if (self)
        QWidget::hideEvent(event);
}

void QcDockContainer::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        SetAreaDirections();
}

void QcDockContainer::childEvent(QChildEvent *event)
{
    QFrame::childEvent(event);
    // A panel that floats here would die with a container that is about to go for want of one.
    if (!event->removed() && qobject_cast<QcDockWidget *>(event->child()))
        DockTree::Revive(this);
    // The last one that floated under a nested container may leave nothing in it. One that dies is no panel any more.
    if (event->removed() && !qobject_cast<QSplitter *>(event->child()) && !IsRoot(this))
        QMetaObject::invokeMethod(
            this, [this] { WalkEmpties(this); }, Qt::QueuedConnection);
}

} // namespace Velmora
