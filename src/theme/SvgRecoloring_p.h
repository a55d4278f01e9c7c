#pragma once

#include <QColor>
#include <QPair>
#include <QString>
#include <QVector>

namespace Velmora {

/// True for a file that is recoloured and rendered at any size: the suffix is exactly "svg". Any other is a raster image, which keeps
/// its own size and colours.
bool IsSvg(const QString &path);

/// A colour text as it stands in an SVG, and the colour that takes its place.
using SvgSubstitution = QPair<QString, QColor>;

/// \a text with every colour in it, in fill and stroke attributes, replaced by \a color.
/// A text that does not parse comes back unchanged, with one warning naming \a path for each colour found.
QString RecolorSvg(const QString &text, const QString &path, const QColor &color);

/// \a text with the listed colours replaced, one after the other. A text that does not parse comes back unchanged,
/// with one warning naming \a path for each substitution.
QString RecolorSvg(const QString &text, const QString &path, const QVector<SvgSubstitution> &substitutions);

/// True if elements nest so deep that the recursive parsers and painters of Qt would exhaust the stack.
bool IsNestedTooDeep(const QString &svg);

} // namespace Velmora
