#include <Velmora/QcDockArea.h>

#include "core/LiesIn_p.h"
#include "dock/DockMove_p.h"
#include "dock/DockSplitter_p.h"
#include "dock/DockTree_p.h"
#include "theme/TokenPainting_p.h"

#include <Velmora/QcDockAreaTabFrame.h>
#include <Velmora/QcDockAreaTabStackedWidget.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockDragController.h>
#include <Velmora/QcDockWidget.h>

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>

#include <algorithm>

namespace Velmora {

namespace {

/// The first panel by the order of the tabs. The order of children will not do: raising a page changes it.
QcDockWidget *FirstPanel(const QcDockArea &area)
{
    for (int i = 0; i < area.count(); ++i)
        if (auto *panel = qobject_cast<QcDockWidget *>(area.widget(i)))
            return panel;
    return nullptr;
}

} // namespace

QList<QList<int>> QcDockArea::s_supportTypeList;

QcDockArea::QcDockArea(QWidget *parent)
    : QcFrame(parent)
    , m_record(std::make_unique<DockAreaRecord>())
{
    QcDockDragController::instance()->addDockArea(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    m_tabFrame = new QcDockAreaTabFrame(this);
    layout->addWidget(m_tabFrame);
    m_record->stack = m_tabFrame->findChild<QcDockAreaTabStackedWidget *>(QString(), Qt::FindDirectChildrenOnly);
    connect(m_record->stack, &QStackedWidget::widgetRemoved, this, &QcDockArea::LookAgainIfEmpty);
}

QcDockArea::~QcDockArea()
{
    const bool heldPage = count() > 0;
    m_record->fate = Fate::Dying;
    for (const QMetaObject::Connection &farewell : qAsConst(m_record->farewells))
        disconnect(farewell);
    QcDockDragController::instance()->removeDockArea(this);
    if (heldPage)
        WalkEmpties(parentWidget()); // its pages die with it, and are nobody's loss but this
}

void QcDockArea::addWidget(QWidget *widget)
{
    if (!widget || !TakesPage(widget))
        return;
    if (QcDockArea *leaf = Leaf(); leaf != this) {
        leaf->addWidget(widget);
        return;
    }
    const QPointer<QcDockArea> self(this);
    const QPointer<QWidget> page(widget);
    QList<QcDockArea *> revived = DockTree::Revive(this);
    m_record->isLeftover = false;
    m_record->hadPage = true;
    m_tabFrame->addTab(page->windowTitle(), page);
    if (!self || !page)
        return;
    WatchPage(page);
    revived += DockTree::Revive(this); // a host may have emptied what encloses this meanwhile
    for (QcDockArea *area : revived)
        DockTree::SweepLeftovers(area);
}

/// A page lies in one place, so nothing is laid into itself; an area belongs into a splitter; a container shares its area with nothing.
bool QcDockArea::TakesPage(const QWidget *widget) const
{
    if (LiesIn(this, widget) || qobject_cast<const QcDockArea *>(widget))
        return false;
    return !qobject_cast<const QcDockContainer *>(widget) || count() == 0;
}

/// Where a page goes that is given to this area: into the first area inside of a wrapper, otherwise here.
QcDockArea *QcDockArea::Leaf()
{
    QcDockArea *leaf = this;
    while (QcDockContainer *nested = NestedContainer(leaf))
        leaf = DockTree::FirstArea(nested);
    return leaf;
}

/// The loss of a page, by whatever road and wherever the page is by then, starts the walk that takes away what is empty.
void QcDockArea::WatchPage(QWidget *page)
{
    if (m_record->farewells.contains(page))
        return;
    m_record->farewells.insert(page, connect(page, &QObject::destroyed, this, [this](QObject *gone) {
                                   m_record->farewells.remove(gone);
                                   WalkEmpties(this);
                               }));
}

/// A page may leave without dying, given another parent by its host. Whoever takes it away may be about to give another: the next turn will
/// tell.
void QcDockArea::LookAgainIfEmpty()
{
    if (count() == 0 && m_record->fate == Fate::Stays)
        QMetaObject::invokeMethod(
            this, [this] { WalkEmpties(this); }, Qt::QueuedConnection);
}

QWidget *QcDockArea::widget(int index) const
{
    return m_tabFrame->widget(index);
}

int QcDockArea::count() const
{
    return m_tabFrame->count();
}

int QcDockArea::currentIndex() const
{
    return m_tabFrame->currentIndex();
}

void QcDockArea::setCurrentIndex(int index)
{
    m_tabFrame->setCurrentIndex(index);
}

bool QcDockArea::isEmpty()
{
    return !HoldsSomething(this);
}

bool QcDockArea::isSupportType(int type)
{
    if (IsWrapper(this))
        return false;
    QcDockWidget *first = FirstPanel(*this);
    if (!first)
        return true;
    const int resident = first->getType();
    return std::all_of(s_supportTypeList.begin(), s_supportTypeList.end(),
                       [type, resident](const QList<int> &group) { return !group.contains(type) || group.contains(resident); });
}

void QcDockArea::deleteLaterIfEmpty()
{
    if (!isEmpty())
        return;
    QcDockContainer *container = EnclosingContainer(this);
    if (!container)
        return;
    const QList<QcDockArea *> areas = container->getDockAreaList();
    if (container->hasOnlyOneDockArea() || areas.isEmpty() || (areas.size() == 1 && areas.first() == this)) {
        m_record->isLeftover = m_record->hadPage;
        return;
    }
    DockTree::Doom(this);
}

void QcDockArea::setSupportTypeList(QList<QList<int>> supportTypeList)
{
    s_supportTypeList = std::move(supportTypeList);
}

QSize QcDockArea::sizeHint() const
{
    return DockSplitter::AsksSizes() ? QcFrame::sizeHint() : QSize();
}

QSize QcDockArea::minimumSizeHint() const
{
    return DockSplitter::AsksSizes() ? QcFrame::minimumSizeHint() : QSize();
}

void QcDockArea::contextMenuEvent(QContextMenuEvent *event)
{
    if (!OpensDockMenu(*event, qobject_cast<QcDockWidget *>(widget(currentIndex()))))
        QcFrame::contextMenuEvent(event);
}

void QcDockArea::keyPressEvent(QKeyEvent *event)
{
    if (!OpensDockMenu(*event, qobject_cast<QcDockWidget *>(widget(currentIndex()))))
        QcFrame::keyPressEvent(event);
}

void QcDockArea::paintEvent(QPaintEvent * /*event*/)
{
    if (IsWrapper(this))
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    OutlineRounded(painter, QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4.0, QStringLiteral("border/border_tertairy"));
}

} // namespace Velmora
