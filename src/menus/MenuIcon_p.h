#pragma once

#include <Velmora/ImageParams.h>

QT_BEGIN_NAMESPACE
class QAction;
class QStyleOptionMenuItem;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

// The dynamic properties in which actions and submenus keep their icon.
constexpr const char *kIconPath = "iconPath";
constexpr const char *kIconColor = "iconColor";
constexpr const char *kIconMulColor = "iconMulColor";

constexpr int kMenuIconSize = 24;

/// True if \a widget is a menu with a checked action or one that has an icon: the items then leave room for icons.
bool HasIcons(const QWidget *widget);

/// The icon or tick of the item that \a option describes and \a action stands behind, in the token \a code unless the action brings its
/// own colours. Without a path if there is none.
ImageParams MenuIcon(const QStyleOptionMenuItem &option, const QAction &action, const QString &code);

} // namespace Velmora
