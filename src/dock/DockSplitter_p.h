#pragma once

#include <Velmora/QcSplitter.h>

namespace Velmora {

class QcDockContainer;

/// The splitter of a container. The container that it serves is its parent, and changes with it.
class DockSplitter final : public QcSplitter
{
public: // no Q_OBJECT: it is a QcSplitter to everybody
    explicit DockSplitter(QcDockContainer *container);

    /// False while a splitter that nobody sees only counts its panes again.
    static bool AsksSizes();

    // As those of QSplitter, but for asking sizes of what nobody sees.
    void Insert(int index, QWidget *pane);
    void Turn(Qt::Orientation orientation);

protected:
    void childEvent(QChildEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
};

} // namespace Velmora
