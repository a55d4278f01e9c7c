#pragma once

#include <QString>

namespace Velmora {

/// True for a text that is not to be read as HTML: tables inside of each other, which Qt lays out in a time that doubles with each, or
/// cells that span very many columns. A few hundred characters of them would keep the program busy for hours.
bool IsHtmlBomb(const QString &text);

} // namespace Velmora
