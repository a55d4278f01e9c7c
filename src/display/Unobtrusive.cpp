#include "display/Unobtrusive_p.h"

#include "core/ApplicationEvents_p.h"

#include <QBasicTimer>
#include <QEvent>
#include <QGuiApplication>
#include <QTimerEvent>
#include <QWidget>
#include <QWindow>

#include <qpa/qplatformwindow.h>

namespace Velmora {

namespace {

constexpr int kRestMs = 20;

/// Wayland knows no tool windows: one would be a window as any other, put somewhere by the compositor, with the keyboard. A tool tip is
/// placed beside its parent and leaves the keyboard alone. It cannot be moved, but taken away and put elsewhere. What Qt Widgets know of
/// the window stays as it was asked for. The window's child.
class WaylandPlacer : public QObject
{
public:
    explicit WaylandPlacer(QWidget *window)
        : QObject(window)
        , m_window(window)
    {
        window->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched != m_window) {
            HandOn(*watched);
        } else if (event->type() == QEvent::Show) {
            BecomeTip();
            WatchApplicationEvents(this, {QEvent::Show});
        } else if (event->type() == QEvent::Hide) {
            UnwatchApplicationEvents(this);
        } else if (event->type() == QEvent::Move && m_window->isVisible()) {
            m_rest.start(kRestMs, this);
        }
        return false;
    }

    void timerEvent(QTimerEvent *event) override
    {
        if (event->timerId() != m_rest.timerId())
            return;
        m_rest.stop();
        ShowWhereItIs();
    }

private:
    /// As Qt's platform has it, by which the place is told to the compositor: widgets hear of a window's place later.
    QPoint Offset() const
    {
        const QWindow *parent = m_window->windowHandle()->transientParent();
        const QPoint origin = parent && parent->handle() ? parent->handle()->geometry().topLeft() : QPoint();
        return m_window->windowHandle()->handle()->geometry().topLeft() - origin;
    }

    void BecomeTip()
    {
        QWindow *handle = m_window->isWindow() ? m_window->windowHandle() : nullptr;
        QWindow *parent = m_window->parentWidget() ? m_window->parentWidget()->window()->windowHandle() : nullptr;
        if (!handle || !handle->handle() || !parent || !parent->isVisible())
            return;
        handle->setTransientParent(parent);
        handle->setFlags((handle->flags() & ~Qt::WindowType_Mask) | Qt::ToolTip);
        m_shownAt = Offset();
    }

    /// A dialog of the window's, which is about to show, goes to what that belongs to: Qt's platform crashes where a popup has a window.
    void HandOn(const QObject &shown) const
    {
        const auto *widget = qobject_cast<const QWidget *>(&shown);
        QWindow *dialog = widget && widget->isWindow() ? widget->windowHandle() : nullptr;
        const bool isPopup = dialog && (dialog->type() == Qt::Popup || dialog->type() == Qt::ToolTip);
        const QWindow *handle = m_window->windowHandle();
        if (dialog && !isPopup && handle && dialog != handle && dialog->transientParent() == handle && handle->type() == Qt::ToolTip)
            dialog->setTransientParent(handle->transientParent());
    }

    void ShowWhereItIs()
    {
        QWindow *handle = m_window->windowHandle();
        if (!m_window->isVisible() || !handle || handle->type() != Qt::ToolTip || m_shownAt == Offset())
            return;
        m_shownAt = Offset();
        handle->handle()->setVisible(false);
        handle->handle()->setVisible(true);
    }

    QWidget *const m_window;
    QBasicTimer m_rest;
    QPoint m_shownAt; // from its parent's window
};

} // namespace

bool CompositorPlacesWindows()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

void StandWherePut(QWidget &window)
{
    if (CompositorPlacesWindows())
        new WaylandPlacer(&window); // the window's child
}

void BelongTo(QWidget &window, const QWidget &owner)
{
    if (!CompositorPlacesWindows())
        return;
    window.winId(); // makes its handle
    window.windowHandle()->setTransientParent(owner.window()->windowHandle());
}

void MakeUnobtrusive(QWidget &window)
{
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.setAttribute(Qt::WA_QuitOnClose, false);
    StandWherePut(window);
}

} // namespace Velmora
