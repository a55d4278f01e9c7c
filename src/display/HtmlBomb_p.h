#pragma once

#include <QString>

namespace Velmora {

/// True for a text that is not to be read as HTML: tables inside of each other, which Qt lays out in a time that doubles with each, or
/// cells that span very many columns. A few hundred characters of them would keep the program busy for hours. So is one in which more
/// than a thousand tags lie in each other, lists in lists or bold in bold: each costs Qt a walk through those around it.
bool IsHtmlBomb(const QString &text);

} // namespace Velmora
