#include "core/LiesIn_p.h"
#include "dock/DockFocus_p.h"
#include "dock/DockMove_p.h"
#include "dock/DockTree_p.h"

#include <Velmora/KeyboardCues.h>
#include <Velmora/QcAction.h>
#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockWidget.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcMenu.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QPointer>

#include <functional>

namespace Velmora {

namespace {

/// An '&' in a title is the mark of a key only where cues are shown.
QString AsItem(QString title)
{
    return KeyboardCuesEnabled() ? title : title.replace(QLatin1Char('&'), QLatin1String("&&"));
}

void AddItem(QcMenu &menu, const QString &text, bool isEnabled, const std::function<void()> &work)
{
    QcAction *action = menu.addQcAction(text);
    action->setEnabled(isEnabled);
    QObject::connect(action, &QAction::triggered, &menu, work);
}

/// Leaves its place, where the others stay.
void FloatPanel(QcDockWidget *panel)
{
    const QPointer<QcDockWidget> living(panel);
    const QPoint corner = panel->mapToGlobal(QPoint(0, 0));
    const QcDockArea *area = AreaOfPage(panel);
    if (area && area->count() > 1) { // swichToFloating() is for one that is alone
        LeavePlace(panel);
        if (living)
            panel->setParent(nullptr);
    }
    if (living)
        panel->swichToFloating();
    if (!living)
        return;
    panel->move(corner);
    panel->setWindowStyle(true);
    if (living)
        FocusPage(*panel);
}

void AddMoves(QcMenu &menu, QcDockWidget *panel)
{
    const QList<QcDockArea *> areas = AreasToMoveTo(panel);
    auto *moves = new QcMenu(QCoreApplication::translate("QcDockWidget", "Move to"), &menu);
    for (QcDockArea *area : areas) {
        const QPointer<QcDockArea> target(area);
        AddItem(*moves, AsItem(NameOfArea(area)), true, [panel, target] {
            if (target)
                BeginDockMove(panel, target);
        });
    }
    menu.addQcMenu(moves)->setEnabled(!areas.isEmpty());
}

void AddTabs(QcMenu &menu, QcDockArea *area)
{
    if (!area || area->count() < 2)
        return;
    menu.addSeparator();
    for (int i = 0; i < area->count(); ++i) {
        const QPointer<QcDockArea> guard(area);
        const QPointer<QWidget> page = area->widget(i);
        AddItem(menu, AsItem(page->windowTitle()), i != area->currentIndex(), [guard, page] {
            if (guard && page)
                guard->setCurrentIndex(IndexOfPage(guard, page));
        });
    }
}

/// A tab closes also where the title row's close button is disabled.
bool MayClose(QcDockWidget *panel, const QcDockArea *area)
{
    if (area && area->count() > 1)
        return true;
    const auto *title = panel->findChild<QFrame *>(QStringLiteral("m_titleFrame"), Qt::FindDirectChildrenOnly);
    return title->findChild<QcIconButton *>()->isEnabledTo(panel);
}

} // namespace

bool OpensDockMenu(const QKeyEvent &event, QcDockWidget *panel)
{
    if (!panel || event.key() != Qt::Key_F10 || event.modifiers() != (Qt::AltModifier | Qt::ShiftModifier))
        return false;
    OpenDockMenu(panel);
    return true;
}

bool OpensDockMenu(const QContextMenuEvent &event, QcDockWidget *panel)
{
    const QWidget *content = panel ? panel->getContentWidget() : nullptr;
    const bool isOfContent = content && LiesIn(QApplication::focusWidget(), content);
    if (!panel || isOfContent || event.reason() != QContextMenuEvent::Keyboard)
        return false;
    OpenDockMenu(panel);
    return true;
}

void OpenDockMenu(QcDockWidget *panel)
{
    QcDockArea *area = AreaOfPage(panel);
    auto *menu = new QcMenu(panel);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    AddItem(*menu, QCoreApplication::translate("QcDockWidget", "Float"), !panel->isFloating(), [panel] { FloatPanel(panel); });
    AddMoves(*menu, panel);
    AddItem(*menu, QCoreApplication::translate("QcDockWidget", "Close"), MayClose(panel, area), [panel] { panel->close(); });
    AddTabs(*menu, area);
    menu->popup(panel->mapToGlobal(QPoint(0, 0)));
}

} // namespace Velmora
