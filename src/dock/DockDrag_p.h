#pragma once

#include <QtGlobal>

#include <functional>

QT_BEGIN_NAMESPACE
class QObject;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

class QcDockWidget;

/// A drag of a panel by the mouse, from its first move to its release. At most one runs.
///
/// While it runs the application is watched for what else ends it: Escape; a left press, which shows that its release was lost to the
/// window system or to a dialog; the end of the panel or of the owner. It then ends as a drop on nothing, and its steps that are still
/// posted do nothing.
///
/// On Wayland a docked panel that is dragged is not on the screen: it could not follow the mouse, and would lie over the places to drop
/// it at. It comes there when it is a window of its own in the end.
struct DockDrag
{
    /// Begins a drag of \a panel; one that still runs is cancelled. \a letGo is called when the drag ends by any road but its release:
    /// the owner, whose press began it, then forgets the press and lets the mouse go. It is not called once \a owner has gone.
    static void Begin(QcDockWidget *panel, QObject *owner, const std::function<void()> &letGo);

    /// Feedback for the place where the panel is then, on a later turn of the main loop.
    static void PostStep(QcDockWidget *panel);

    /// The release: drops \a panel on a later turn, after the steps posted so far. Without a drag too: a mere click on the title row of
    /// a floating panel runs the drop.
    static void PostEnd(QcDockWidget *panel);

    /// The release, at once.
    static void End(QcDockWidget *panel);

    /// Ends the running drag, if there is one, as a drop on nothing.
    static void Cancel();
    /// Ends the running drag, whose owner dies: the panel changes its look on a later turn. The host hears of that, and may take away what
    /// the dying owner lies in.
    static void CancelLater();
    /// Cancel() if it is \a panel that is dragged.
    static void CancelOf(const QcDockWidget *panel);

    /// On Wayland the window in which the drag began: where the mouse is, is known for that one only. Null elsewhere.
    static const QWidget *Ground();
    /// Puts a panel on the screen that has stayed a window after its drag.
    static void Reveal(QWidget &panel);
    /// Has a panel come on the screen when it shows next.
    static void LetShow(QWidget &panel);

private:
    static void Drop(QcDockWidget *panel);
};

} // namespace Velmora
