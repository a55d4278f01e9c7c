#include "dock/FloatsAbove_p.h"

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
            RaiseFloats();
        else if (event->type() == QEvent::FocusIn) {
            RaiseFloats();
            deleteLater();
        }
        return false;
    }

private:
    void RaiseFloats() const
    {
        if (!m_root)
            return;
        const auto panels = m_root->getDockWidgetWindow();
        for (const QcDockWidget *panel : panels)
            if (panel->isVisible() && panel->windowHandle())
                panel->windowHandle()->raise();
    }

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
