#include "dock/DockLayoutBuilder_p.h"

#include "dock/DockTree_p.h"

#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockWidget.h>

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QTimer>

namespace Velmora {

namespace {

/// Builds from the root down, each widget with its final parent: a widget that moves is styled once more with all that it holds.
class Builder
{
public:
    void Fill(QcDockContainer &container, const LayoutContainer &layout)
    {
        container.setOrientation(layout.orientation);
        for (const LayoutNode &child : layout.children) {
            QcDockArea *added = DockTree::AppendArea(&container);
            if (const auto *area = std::get_if<LayoutArea>(&child))
                Fill(*added, *area);
            else
                Fill(*DockTree::NewNested(added), std::get<LayoutContainer>(child));
        }
        DockTree::FirstArea(&container); // without children, an empty one
        if (!layout.sizes)
            return;
        container.setSizes(*layout.sizes); // until its first layout it keeps them, so that they are saved, too
        m_sizes.append({&container, *layout.sizes});
    }

    /// Sizes mean something only once the containers have a parent and a layout. Inner containers come first.
    void SetSizesLater() const
    {
        QTimer::singleShot(0, [sizes = m_sizes] {
            for (const auto &[container, list] : sizes) {
                if (container)
                    container->setSizes(list);
            }
        });
    }

private:
    static void Fill(QcDockArea &area, const LayoutArea &layout)
    {
        for (const LayoutPanel &panel : layout.panels)
            area.addWidget(BuildPanel(panel, DockTree::PageParent(&area)));
        area.setCurrentIndex(layout.currentIndex);
    }

    QList<QPair<QPointer<QcDockContainer>, QList<int>>> m_sizes;
};

/// A window of any size would take memory for all of its pixels.
QRect WithinReason(QRect geometry)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const QSize desktop = screen ? screen->virtualSize() : QSize();
    geometry.setSize(geometry.size().boundedTo(desktop.expandedTo(QSize(4096, 4096))));
    return geometry;
}

void AddFloating(QcDockContainer &root, const LayoutPanel &entry)
{
    QcDockWidget *panel = BuildPanel(entry, &root);
    panel->SetWindowFlags();
    panel->setWindowStyle(true);
    panel->setGeometry(WithinReason(entry.geometry));
}

} // namespace

Layout Describe(QcDockContainer &root)
{
    Layout layout;
    layout.root = DescribeContainer(root);
    const auto windows = root.getDockWidgetWindow();
    for (QcDockWidget *window : windows)
        layout.floating.append(DescribePanel(*window));
    return layout;
}

LayoutContainer DescribeContainer(QcDockContainer &container)
{
    LayoutContainer layout;
    layout.orientation = container.getOrientation();
    layout.sizes = DockTree::SizesToKeep(&container);
    const auto areas = container.getDockAreaList();
    for (QcDockArea *area : areas)
        layout.children.push_back(DescribeNode(*area));
    return layout;
}

LayoutNode DescribeNode(QcDockArea &area)
{
    // A wrapper leaves no trace: the container in it stands in the parent's list.
    if (QcDockContainer *nested = NestedContainer(&area))
        return DescribeContainer(*nested);
    LayoutArea layout;
    layout.currentIndex = area.currentIndex();
    for (int i = 0; i < area.count(); ++i) {
        if (auto *panel = qobject_cast<QcDockWidget *>(area.widget(i)))
            layout.panels.append(DescribePanel(*panel));
    }
    return layout;
}

LayoutPanel DescribePanel(QcDockWidget &panel)
{
    return {panel.getType(), panel.geometry()};
}

QcDockWidget *BuildPanel(const LayoutPanel &panel, QWidget *parent)
{
    auto *widget = new QcDockWidget(parent);
    widget->setType(panel.type);
    return widget;
}

QcDockContainer *Build(const Layout &layout)
{
    QcDockContainer *root = DockTree::NewBare(nullptr);
    Builder builder;
    builder.Fill(*root, layout.root);
    builder.SetSizesLater();
    for (const LayoutPanel &entry : layout.floating)
        AddFloating(*root, entry);
    return root;
}

} // namespace Velmora
