#pragma once

#include "contrast/Pairs.h"

#include <QColor>

namespace VelmoraTest {

/// How much two opaque colours differ, from 1 to 21, by the WCAG's formula.
double Contrast(const QColor &one, const QColor &other);
/// \a color as it is seen on the opaque \a ground.
QColor Blended(const QColor &color, const QColor &ground);

/// In the active table, on the surface on which it is least.
double ContrastOf(const Pair &pair);
double ContrastOf(const Change &change);
/// Whether a user tells the two apart: they differ in brightness, or as much in hue.
bool IsSeen(const Change &change);

/// The name of a built-in table's file, without folder and ending: "blue_light".
QStringList TableNames();
/// Makes it the active table.
void UseTableNamed(const QString &name);

/// What a pair must have in \a table, one of those of high contrast: what its kind must, or less if it is excused there.
double WantedOf(const Pair &pair, const QString &table);
/// The excuses that are needed no more: nothing in their tables falls short of what its kind must have.
QStringList IdleExcuses(const QVector<Pair> &pairs, const QStringList &tables);

/// For each control the least contrast of its texts, and of its other parts, in each table: the rows of a page.
QString ContrastPage(const Looks &looks);

} // namespace VelmoraTest
