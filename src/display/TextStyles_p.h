#pragma once

#include <QFont>
#include <QString>

namespace Velmora {

/// One of the kit's text styles.
struct TextStyle
{
    QString colorCode;
    QFont font;
};

/// Number of the text styles, which labels, panels, tabs, menus and counters share.
constexpr int kTextStyleCount = 9;

/// The style of \a index, from 0 to kTextStyleCount - 1.
TextStyle TextStyleFor(int index);

} // namespace Velmora
