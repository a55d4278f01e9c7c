#include "dock/FloatsAbove_p.h"

#include "display/Unobtrusive_p.h"

#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockWidget.h>

#include <QEvent>
#include <QPointer>
#include <QWindow>

namespace Velmora {

namespace {

/// Lives from the moment when a root shows until its window has been on the screen and become active: some window managers bring it to the
/// front at the one, some at the other. The window's child.
class Newcomer : public QObject
{
public:
    Newcomer(QWindow *window, QcDockContainer &root)
        : QObject(window)
        , m_root(&root)
    {
        window->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *window = static_cast<QWindow *>(watched);
        if (event->type() == QEvent::Hide)
            deleteLater();
        else if (event->type() == QEvent::Expose && window->isExposed())
            OnScreen();
        else if (event->type() == QEvent::FocusIn) {
            RaiseFloats();
            deleteLater();
        }
        return false;
    }

private:
    void OnScreen()
    {
        if (CompositorPlacesWindows() && !m_wasOnScreen)
            ShowFloatsAnew();
        m_wasOnScreen = true;
        RaiseFloats();
    }

    /// On Wayland they belong to no window if they have come before it.
    void ShowFloatsAnew() const
    {
        QList<QPointer<QWidget>> shown;
        const auto panels = m_root ? m_root->getDockWidgetWindow() : QList<QcDockWidget *>();
        for (QcDockWidget *panel : panels)
            if (panel->isVisible())
                shown.append(panel);
        for (const QPointer<QWidget> &panel : qAsConst(shown)) { // a host that hears of one may delete another
            if (panel)
                panel->hide();
            if (panel)
                panel->show();
        }
    }

    void RaiseFloats() const
    {
        if (!m_root)
            return;
        const auto panels = m_root->getDockWidgetWindow();
        for (const QcDockWidget *panel : panels)
            if (panel->isVisible() && panel->windowHandle())
                panel->windowHandle()->raise();
    }

    bool m_wasOnScreen = false;

    const QPointer<QcDockContainer> m_root;
};

} // namespace

void BringFloatsAbove(QcDockContainer &root)
{
    QWindow *window = root.window()->windowHandle();
    if (window && !window->isExposed() && !root.getDockWidgetWindow().isEmpty())
        new Newcomer(window, root); // the window's
}

} // namespace Velmora
