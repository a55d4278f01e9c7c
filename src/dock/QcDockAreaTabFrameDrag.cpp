#include <Velmora/QcDockAreaTabBar.h>
#include <Velmora/QcDockAreaTabBarButton.h>
#include <Velmora/QcDockAreaTabFrame.h>
#include <Velmora/QcDockAreaTabStackedWidget.h>
#include <Velmora/QcDockDragController.h>
#include <Velmora/QcDockWidget.h>

#include "dock/DockDrag_p.h"
#include "dock/DockFocus_p.h"

#include <QCursor>

namespace Velmora {

void QcDockAreaTabFrame::onTabDragStart()
{
    const int index = m_tabBar->currentIndex();
    if (!qobject_cast<QcDockWidget *>(m_stackedWidget->widget(index)))
        return;
    const QPointer<QWidget> self = this;
    FocusKeeper focus(*m_stackedWidget->widget(index));
    const auto [tab, panel] = removeTab(index);
    if (!self || !tab || !panel)
        return;
    m_dragTabButton = tab;
    m_dragDockWidget = panel;
    DockDrag::Begin(panel, this, [this] { LetTabGo(); });
    TearOut(*tab, *panel);
    if (!self || !m_dragDockWidget)
        return;
    adjustTabBarAndTitleVisible();
    adjustNavigationButtonEnable();
    focus.GiveBack();
}

void QcDockAreaTabFrame::TearOut(QcDockAreaTabBarButton &tab, QcDockWidget &panel)
{
    const QPointer<QWidget> self = this;
    const QPointer<QWidget> torn = &panel;
    tab.setParent(nullptr);
    tab.grabMouse(); // without its window Qt would forget that it was pressed
    panel.m_cameFrom = this;
    panel.setParent(nullptr);
    if (torn)
        panel.swichToFloating(); // also where a host that heard of it has deleted the frame
    if (!self || !torn)
        return;
    panel.setTitleVisible(true);
    const QPoint corner = mapToGlobal(QPoint(0, 0));
    panel.move(corner);
    m_dragOffset = QCursor::pos() - corner;
}

void QcDockAreaTabFrame::onTabDraging()
{
    if (!m_dragDockWidget)
        return;
    const QPointer<QWidget> self = this;
    m_dragDockWidget->move(QCursor::pos() - m_dragOffset);
    if (self && m_dragDockWidget) // a host that hears of the move may end the drag
        QcDockDragController::instance()->processDockWidgetDraging(m_dragDockWidget);
}

void QcDockAreaTabFrame::onTabDragFinished()
{
    const QPointer<QcDockWidget> panel = m_dragDockWidget;
    LetTabGo();
    if (panel)
        DockDrag::End(panel);
}

void QcDockAreaTabFrame::LetTabGo()
{
    m_dragDockWidget = nullptr;
    if (m_tabBar)
        m_tabBar->ForgetPress();
    if (!m_dragTabButton)
        return;
    m_dragTabButton->releaseMouse();
    m_dragTabButton->deleteLater(); // it may be on the stack: it holds the mouse
    m_dragTabButton = nullptr;
}

} // namespace Velmora
