#include "dock/DockSplitter_p.h"

#include "dock/DockTree_p.h"

#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockContainer.h>

#include <QChildEvent>

namespace Velmora {

namespace {

QcDockContainer *ContainerOf(const DockSplitter &splitter)
{
    return qobject_cast<QcDockContainer *>(splitter.parentWidget());
}

int quietSplitters = 0;

/// A splitter asks all of its panes for their sizes whenever something changes. Before the first show nobody needs the answer, and a pane
/// that gives one is polished for that with all that it holds, to be styled anew if it moves. The splitter asks again when it is shown.
class Quiet
{
public:
    explicit Quiet(const QSplitter &splitter)
        : m_isQuiet(!splitter.isVisible())
    {
        quietSplitters += m_isQuiet ? 1 : 0;
    }
    ~Quiet() { quietSplitters -= m_isQuiet ? 1 : 0; }
    Q_DISABLE_COPY(Quiet)

private:
    const bool m_isQuiet;
};

} // namespace

bool DockSplitter::AsksSizes()
{
    return quietSplitters == 0;
}

void DockSplitter::Insert(int index, QWidget *pane)
{
    const Quiet quiet(*this);
    insertWidget(index, pane);
}

void DockSplitter::Turn(Qt::Orientation orientation)
{
    const Quiet quiet(*this);
    if (orientation != this->orientation())
        setOrientation(orientation);
}

DockSplitter::DockSplitter(QcDockContainer *container)
    : QcSplitter(container)
{
    // Sides are those of the screen, whatever direction the program reads in: a right-to-left splitter lays its first child to the right.
    setLayoutDirection(Qt::LeftToRight);
}

void DockSplitter::childEvent(QChildEvent *event)
{
    // A child announced by its base's constructor is not an area yet. It joins when it is inserted, and at its index.
    if (event->added() && !qobject_cast<QcDockArea *>(event->child()))
        return;
    QcDockContainer *container = ContainerOf(*this);
    if (container && event->removed())
        container->ForgetShare(event->child());
    {
        const Quiet quiet(*this);
        QcSplitter::childEvent(event);
    }
    if (container && event->removed())
        container->RefillLater();
}

void DockSplitter::resizeEvent(QResizeEvent *event)
{
    if (QcDockContainer *container = ContainerOf(*this))
        container->SettleShares();
    QcSplitter::resizeEvent(event);
}

} // namespace Velmora
