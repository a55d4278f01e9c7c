#pragma once

#include <Velmora/QcLabel.h>

#include <QFont>
#include <QString>

#include <optional>

namespace Velmora {

/// One of the kit's text styles.
struct TextStyle
{
    QString colorCode;
    QFont font;
};

/// The style that labels, panels, tabs, menus and counters share under the name of \a type; none for an unknown one.
std::optional<TextStyle> TextStyleOf(QcLabel::LabelType type);

} // namespace Velmora
