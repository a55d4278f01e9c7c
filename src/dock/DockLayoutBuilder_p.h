#pragma once

#include "dock/DockLayout_p.h"

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

class QcDockArea;
class QcDockContainer;
class QcDockWidget;

/// What stands in \a root now, its floating panels included.
Layout Describe(QcDockContainer &root);
LayoutContainer DescribeContainer(QcDockContainer &container);
LayoutNode DescribeNode(QcDockArea &area);
LayoutPanel DescribePanel(QcDockWidget &panel);

/// An empty frame of the type that \a panel tells.
QcDockWidget *BuildPanel(const LayoutPanel &panel, QWidget *parent);
/// Makes the widgets of \a layout and returns their root, which has no parent. Sizes are set when control is back in the event loop,
/// where the host has placed the root.
QcDockContainer *Build(const Layout &layout);

} // namespace Velmora
