#include <Velmora/QcDockContainer.h>

#include "core/LiesIn_p.h"
#include "dock/DockTree_p.h"
#include "dock/PanelContents_p.h"
#include "theme/WidgetChain_p.h"

#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockAreaTabFrame.h>
#include <Velmora/QcDockWidget.h>

#include <QHash>
#include <QPair>
#include <QPointer>
#include <QVariant>

namespace Velmora {

namespace {

int ContentType(const QWidget &content)
{
    return content.property("dock_widget_content_type").toInt();
}

QList<QcDockWidget *> PanelsBelow(const QcDockContainer *container)
{
    QList<QcDockWidget *> panels;
    WalkDock(container, [&panels](QWidget *widget) {
        if (auto *panel = qobject_cast<QcDockWidget *>(widget))
            panels.append(panel);
        return false;
    });
    return panels;
}

QcDockArea *FirstAreaFor(QcDockContainer *container, int type)
{
    QcDockArea *found = nullptr;
    WalkDock(container, [&found, type](QWidget *widget) {
        auto *area = qobject_cast<QcDockArea *>(widget);
        if (area && area->isSupportType(type))
            found = area;
        return found != nullptr;
    });
    return found;
}

/// The panel whose content \a content is. Null for every other widget.
QcDockWidget *PanelOfContent(const QWidget *content)
{
    for (QWidget *ancestor = content->parentWidget(); ancestor; ancestor = ancestor->parentWidget())
        if (auto *panel = qobject_cast<QcDockWidget *>(ancestor))
            return panel->getContentWidget() == content ? panel : nullptr;
    return nullptr;
}

struct Dealt
{
    QPointer<QcDockWidget> panel;
    QPointer<QWidget> content;
};

/// Who gets which content: panels in order, contents of a type in the order of \a contents, each once.
QList<Dealt> Deal(const QcDockContainer &container, const QList<QcDockWidget *> &panels, const QList<QWidget *> &contents)
{
    QHash<int, QList<QWidget *>> byType;
    for (QWidget *content : contents)
        if (content && !LiesIn(&container, content) && !byType[ContentType(*content)].contains(content))
            byType[ContentType(*content)].append(content);
    QList<Dealt> deal;
    for (QcDockWidget *panel : panels) {
        const auto fitting = byType.find(panel->getType());
        if (fitting != byType.end() && !fitting->isEmpty())
            deal.append({panel, fitting->takeFirst()});
    }
    return deal;
}

} // namespace

void QcDockContainer::addDockWidgetContent(QWidget *content, DockPosition position)
{
    if (!content || LiesIn(this, content))
        return;
    const QPointer<QcDockContainer> self(this);
    QcDockArea *taker = FirstAreaFor(this, ContentType(*content));
    const QPointer<QcDockArea> area(taker);
    // Made where it stays: a panel has a stylesheet, and reparenting applies it anew.
    const QPointer<QcDockWidget> panel(new QcDockWidget(taker ? DockTree::PageParent(taker) : nullptr));
    panel->setContentWidget(content);
    if (area)
        area->addWidget(panel);
    else if (self)
        addWidget(panel, nullptr, position); // no place at all leaves it without a parent
}

void QcDockContainer::setDockWidgetContentList(QList<QWidget *> contents)
{
    const QPointer<QcDockContainer> self(this);
    const QList<Dealt> deal = Deal(*this, PanelsBelow(this), contents);
    // Before any panel is filled: a panel schedules the content that it had for deletion, and another one may be waiting for it.
    ContentsOnTheMove movers(*this);
    for (const Dealt &dealt : deal)
        if (QcDockWidget *old = dealt.panel && dealt.content ? PanelOfContent(dealt.content) : nullptr; old && old != dealt.panel)
            movers.Take(*dealt.content, *old);
    movers.Arrive();
    for (const Dealt &dealt : deal)
        if (dealt.panel && dealt.content)
            dealt.panel->setContentWidget(dealt.content);
    if (self)
        updatetDockWidgetWindowsVisible();
}

QList<QcDockWidget *> QcDockContainer::getDockWidgetWindow()
{
    QList<QcDockWidget *> windows;
    for (QcDockWidget *panel : PanelsBelow(this))
        if (panel->isFloating())
            windows.append(panel);
    return windows;
}

QList<int> QcDockContainer::getDockWidgetTypeList()
{
    QList<int> types;
    for (QcDockWidget *panel : PanelsBelow(this))
        types.append(panel->getType());
    return types;
}

int QcDockContainer::getDockWidgetCount(int type)
{
    return int(getDockWidgetTypeList().count(type));
}

void QcDockContainer::resetAllTabFramesToFirstTab()
{
    QList<QPointer<QcDockArea>> areas;
    WalkDock(this, [&areas](QWidget *widget) {
        if (auto *area = qobject_cast<QcDockArea *>(widget))
            areas.append(area);
        return false;
    });
    for (const QPointer<QcDockArea> &area : qAsConst(areas))
        if (area)
            area->setCurrentIndex(0);
}

void QcDockContainer::updatetDockWidgetWindowsVisible()
{
    if (!IsRoot(this))
        return;
    const bool visible = isVisible();
    QList<QPointer<QcDockWidget>> windows;
    for (QcDockWidget *window : getDockWidgetWindow())
        windows.append(window);
    for (const QPointer<QcDockWidget> &window : qAsConst(windows))
        if (window)
            window->setVisible(visible);
}

bool QcDockContainer::eventFilter(QObject *watched, QEvent *event)
{
    if (IsChainTipRequest(watched, event))
        ShowChainTip(ChainLine::WithoutMinimum);
    return QFrame::eventFilter(watched, event);
}

} // namespace Velmora
