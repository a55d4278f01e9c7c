#include "dock/DockFocus_p.h"

#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockWidget.h>

#include "dock/DockTree_p.h"

#include <QApplication>
#include <QKeyEvent>

namespace Velmora {

namespace {

/// The first widget of \a place, itself included, that Tab reaches.
QWidget *FirstTabStop(QWidget *place)
{
    QWidget *widget = place;
    do {
        const bool isInside = widget == place || place->isAncestorOf(widget);
        if (isInside && (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() && widget->isVisible())
            return widget;
        widget = widget->nextInFocusChain();
    } while (widget != place);
    return nullptr;
}

/// The pages that the areas of \a container show, in the order of its splitters.
void AppendShownPages(QcDockContainer *container, QList<QWidget *> &pages)
{
    const auto areas = container->getDockAreaList();
    for (QcDockArea *area : areas) {
        if (QcDockContainer *nested = NestedContainer(area))
            AppendShownPages(nested, pages);
        else if (QWidget *page = area->widget(area->currentIndex()))
            pages.append(page);
    }
}

QcDockContainer *RootAround(const QWidget &page)
{
    QcDockContainer *root = EnclosingContainer(&page);
    while (root && !IsRoot(root))
        root = EnclosingContainer(root);
    return root;
}

} // namespace

FocusKeeper::FocusKeeper(const QWidget &moved)
{
    QWidget *focus = QApplication::focusWidget();
    if (focus && (focus == &moved || moved.isAncestorOf(focus)))
        m_focus = focus;
}

void FocusKeeper::GiveBack()
{
    if (m_focus)
        m_focus->setFocus(Qt::OtherFocusReason);
}

void FocusPage(QWidget &page)
{
    QWidget *place = page.focusWidget();
    auto *panel = qobject_cast<QcDockWidget *>(&page);
    if (!place && panel && panel->getContentWidget())
        place = FirstTabStop(panel->getContentWidget());
    if (!place)
        place = FirstTabStop(&page);
    if (!page.isActiveWindow())
        page.activateWindow();
    (place ? place : &page)->setFocus(Qt::OtherFocusReason);
}

int AreaStepsOf(const QKeyEvent &event)
{
    if (event.key() != Qt::Key_F6)
        return 0;
    return event.modifiers() == Qt::NoModifier ? 1 : event.modifiers() == Qt::ShiftModifier ? -1 : 0;
}

bool FocusOtherArea(QWidget &page, int steps)
{
    QcDockContainer *root = RootAround(page);
    if (!root)
        return false;
    QList<QWidget *> pages;
    AppendShownPages(root, pages);
    const auto floating = root->getDockWidgetWindow();
    for (QcDockWidget *panel : floating) {
        if (panel->isVisible())
            pages.append(panel);
    }
    const int at = int(pages.indexOf(&page));
    if (at < 0 || pages.size() < 2)
        return false;
    FocusPage(*pages[(at + steps + pages.size()) % pages.size()]);
    return true;
}

} // namespace Velmora
