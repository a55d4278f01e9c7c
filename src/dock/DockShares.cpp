#include "dock/DockShares_p.h"

#include <numeric>

namespace Velmora {

namespace {

qint64 Sum(const QList<int> &sizes)
{
    return std::accumulate(sizes.begin(), sizes.end(), qint64(0));
}

} // namespace

bool GoesAfter(DockPosition position)
{
    return position == Right || position == Bottom;
}

Qt::Orientation OrientationOf(DockPosition position)
{
    return position == Left || position == Right ? Qt::Horizontal : Qt::Vertical;
}

DockPosition Along(Qt::Orientation orientation, DockPosition position)
{
    if (orientation == Qt::Horizontal)
        return GoesAfter(position) ? Right : Left;
    return GoesAfter(position) ? Bottom : Top;
}

QList<int> HalvedForNewcomer(QList<int> sizes, int index, bool after)
{
    if (index < 0 || index >= sizes.size())
        return sizes;
    const int half = sizes.at(index) / 2;
    sizes[index] = half;
    sizes.insert(after ? index + 1 : index, half);
    return sizes;
}

QList<int> WithEdgeNewcomer(QList<int> sizes, bool after)
{
    const int total = int(qMin<qint64>(Sum(sizes), kWholeShare));
    sizes.insert(after ? sizes.size() : 0, total);
    return sizes;
}

QList<int> FittedTo(int count, QList<int> sizes)
{
    sizes = sizes.mid(0, count);
    const int average = sizes.isEmpty() ? kWholeShare / qMax(1, count) : int(Sum(sizes) / sizes.size());
    while (sizes.size() < count)
        sizes.append(average);
    return sizes;
}

QList<int> WithinWhole(QList<int> sizes)
{
    for (int &size : sizes)
        size = qBound(0, size, kWholeShare);
    const qint64 sum = Sum(sizes);
    if (sum > kWholeShare)
        for (int &size : sizes)
            size = int(size * qint64(kWholeShare) / sum);
    return sizes;
}

} // namespace Velmora
