#pragma once

#include <QString>
#include <QStringList>

namespace FillTemplate {

/// A regular expression that matches exactly \a names. Names that begin alike share what they have in common, so that thousands
/// of them fit what a regular expression may measure.
QString PatternOfExactly(QStringList names);

} // namespace FillTemplate
