#pragma once

#include <Velmora/DockPosition.h>

#include <QList>
#include <Qt>

namespace Velmora {

// How the panes of one splitter share it: pure arithmetic.

/// What stands for a whole splitter where only proportions matter. A splitter takes twice as much for two equal halves.
constexpr int kWholeShare = 0xFFFFFF;

/// True for a side that a pane lies after, to the right or below.
bool GoesAfter(DockPosition position);

/// The orientation of a splitter that puts a pane at \a position beside another one.
Qt::Orientation OrientationOf(DockPosition position);

/// The side before or after, as \a position is, along \a orientation.
DockPosition Along(Qt::Orientation orientation, DockPosition position);

/// The pane at \a index gives half of its size to a newcomer beside it. An index out of range changes nothing.
QList<int> HalvedForNewcomer(QList<int> sizes, int index, bool after);

/// A newcomer at an edge takes as much as all others together.
QList<int> WithEdgeNewcomer(QList<int> sizes, bool after);

/// One entry for each of \a count panes: too many are cut off, missing ones are as large as the others are on average.
QList<int> FittedTo(int count, QList<int> sizes);

/// Scaled down to a sum of at most a whole, in proportion; a splitter adds its sizes as ints.
QList<int> WithinWhole(QList<int> sizes);

} // namespace Velmora
