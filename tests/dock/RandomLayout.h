#pragma once

#include "dock/DockLayout_p.h"

#include <QRandomGenerator>

namespace VelmoraTest {

inline Velmora::LayoutPanel RandomPanel(QRandomGenerator &random)
{
    return {random.bounded(-2, 6),
            QRect(random.bounded(-3000, 3000), random.bounded(-3000, 3000), random.bounded(2000), random.bounded(2000))};
}

inline Velmora::LayoutArea RandomArea(QRandomGenerator &random)
{
    Velmora::LayoutArea area;
    for (int i = random.bounded(4); i > 0; --i)
        area.panels.append(RandomPanel(random));
    area.currentIndex = random.bounded(-1, int(area.panels.size()) + 1);
    return area;
}

inline Velmora::LayoutContainer RandomContainer(QRandomGenerator &random, int depth)
{
    Velmora::LayoutContainer container;
    container.orientation = random.bounded(2) == 0 ? Qt::Horizontal : Qt::Vertical;
    for (int i = random.bounded(5); i > 0; --i) {
        if (depth > 0 && random.bounded(3) == 0)
            container.children.emplace_back(RandomContainer(random, depth - 1));
        else
            container.children.emplace_back(RandomArea(random));
    }
    if (random.bounded(8) > 0) {
        container.sizes.emplace();
        for (int i = random.bounded(qMax(1, int(container.children.size())) + 1); i > 0; --i)
            container.sizes->append(random.bounded(3000));
    }
    return container;
}

/// A layout as a file could hold it, the same for the same \a seed.
inline Velmora::Layout RandomLayout(quint32 seed)
{
    QRandomGenerator random(seed);
    Velmora::Layout layout;
    layout.root = RandomContainer(random, random.bounded(6));
    for (int i = random.bounded(4); i > 0; --i)
        layout.floating.append(RandomPanel(random));
    return layout;
}

} // namespace VelmoraTest
