#include "dock/DockDrag_p.h"

#include "core/ApplicationEvents_p.h"
#include "display/Unobtrusive_p.h"

#include <Velmora/PostOwnedTask.h>
#include <Velmora/QcDockDragController.h>
#include <Velmora/QcDockWidget.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QStackedWidget>

#include <memory>

namespace Velmora {

namespace {

/// Shared with the posted steps, which so know whether their drag was cancelled.
struct Drag
{
    QPointer<QWidget> panel;
    QPointer<QObject> owner;
    std::function<void()> letGo;
    bool isCancelled = false;
};

/// Exists only while a drag runs.
class DragWatch : public QObject
{
public:
    explicit DragWatch(std::shared_ptr<Drag> drag)
        : m_drag(std::move(drag))
    {
        WatchApplicationEvents(this, {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::MouseButtonPress, QEvent::MouseButtonDblClick});
        connect(m_drag->panel, &QObject::destroyed, this, &DragWatch::OnDestroyed);
        if (m_drag->owner != m_drag->panel)
            connect(m_drag->owner, &QObject::destroyed, this, &DragWatch::OnDestroyed);
    }

    const std::shared_ptr<Drag> &TheDrag() const { return m_drag; }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::ShortcutOverride: // a host's shortcut would take the key
            if (!IsEscape(*event))
                return false;
            event->accept();
            return true;
        case QEvent::KeyPress:
            if (!IsEscape(*event))
                return false;
            DockDrag::Cancel();
            return true;
        default:
            if (static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton)
                DockDrag::Cancel();
            return false;
        }
    }

private:
    void OnDestroyed(const QObject *gone);
    static bool IsEscape(const QEvent &event) { return static_cast<const QKeyEvent &>(event).key() == Qt::Key_Escape; }

    const std::shared_ptr<Drag> m_drag;
};

QPointer<DragWatch> &Watch()
{
    static QPointer<DragWatch> watch;
    return watch;
}

/// A widget announces its end while guarded pointers to it still hold.
void DragWatch::OnDestroyed(const QObject *gone)
{
    if (m_drag->panel == gone)
        m_drag->panel.clear();
    if (m_drag->owner == gone)
        m_drag->owner.clear();
    if (Watch() != this)
        return;
    if (m_drag->panel)
        DockDrag::CancelLater();
    else
        DockDrag::Cancel();
}

std::shared_ptr<Drag> RunningDragOf(const QcDockWidget *panel)
{
    return Watch() && Watch()->TheDrag()->panel == panel ? Watch()->TheDrag() : nullptr;
}

/// The drag, which is watched no longer.
std::shared_ptr<Drag> TakeRunningDrag()
{
    if (!Watch())
        return nullptr;
    const std::shared_ptr<Drag> drag = Watch()->TheDrag();
    UnwatchApplicationEvents(Watch());
    Watch()->deleteLater(); // it may be on the stack
    Watch().clear();
    return drag;
}

QPointer<const QWidget> &GroundOfDrag()
{
    static QPointer<const QWidget> ground;
    return ground;
}

bool IsPage(QcDockWidget &panel)
{
    const auto *stack = qobject_cast<QStackedWidget *>(panel.parentWidget());
    return stack && stack->indexOf(&panel) >= 0;
}

} // namespace

void DockDrag::Begin(QcDockWidget *panel, QObject *owner, const std::function<void()> &letGo)
{
    Cancel();
    auto drag = std::make_shared<Drag>();
    drag->panel = panel;
    drag->owner = owner;
    drag->letGo = letGo;
    Watch() = new DragWatch(drag); // deletes itself with the end of the drag
    if (CompositorPlacesWindows()) {
        GroundOfDrag() = panel->window();
        panel->setAttribute(Qt::WA_DontShowOnScreen);
    }
}

const QWidget *DockDrag::Ground()
{
    return GroundOfDrag();
}

void DockDrag::Reveal(QWidget &panel)
{
    if (!CompositorPlacesWindows() || !panel.testAttribute(Qt::WA_DontShowOnScreen))
        return;
    const QPointer<QWidget> living(&panel);
    const bool wasVisible = panel.isVisible();
    panel.hide();
    if (!living)
        return;
    LetShow(panel);
    panel.setVisible(wasVisible);
}

void DockDrag::LetShow(QWidget &panel)
{
    if (CompositorPlacesWindows())
        panel.setAttribute(Qt::WA_DontShowOnScreen, false);
}

void DockDrag::PostStep(QcDockWidget *panel)
{
    const std::shared_ptr<Drag> drag = RunningDragOf(panel);
    PostOwnedTask(panel,
                  [panel, drag] {
                      if (!drag || !drag->isCancelled)
                          QcDockDragController::instance()->processDockWidgetDraging(panel);
                  },
                  {});
}

void DockDrag::PostEnd(QcDockWidget *panel)
{
    if (RunningDragOf(panel))
        TakeRunningDrag();
    PostOwnedTask(panel, [panel] { Drop(panel); }, {});
}

void DockDrag::End(QcDockWidget *panel)
{
    if (RunningDragOf(panel))
        TakeRunningDrag();
    Drop(panel);
}

void DockDrag::Drop(QcDockWidget *panel)
{
    // A host may have docked it since the release.
    if (IsPage(*panel))
        QcDockDragController::instance()->CancelDrag(panel);
    else
        QcDockDragController::instance()->processDockWidgetDragFinished(panel);
}

void DockDrag::CancelOf(const QcDockWidget *panel)
{
    if (RunningDragOf(panel))
        Cancel();
}

void DockDrag::Cancel()
{
    const std::shared_ptr<Drag> drag = TakeRunningDrag();
    if (!drag)
        return;
    drag->isCancelled = true;
    if (drag->owner)
        drag->letGo();
    QcDockDragController::instance()->CancelDrag(static_cast<QcDockWidget *>(drag->panel.data()));
}

void DockDrag::CancelLater()
{
    const std::shared_ptr<Drag> drag = TakeRunningDrag();
    drag->isCancelled = true;
    auto *panel = static_cast<QcDockWidget *>(drag->panel.data());
    QMetaObject::invokeMethod(
        panel,
        [panel] {
            if (!RunningDragOf(panel)) // the next one
                QcDockDragController::instance()->CancelDrag(panel);
        },
        Qt::QueuedConnection);
}

} // namespace Velmora
