#include "menus/MenuIcon_p.h"

#include <Velmora/QcAction.h>

#include <QMenu>
#include <QStyleOptionMenuItem>
#include <QVariant>

namespace Velmora {

namespace {

QString TextOf(const QObject &object, const char *property)
{
    return object.property(property).toString();
}

/// False if \a action has no properties but those of its class. To ask for one by its name is slow, and slowest where there is none.
bool HasProperties(const QAction &action)
{
    const QMetaObject *type = action.metaObject();
    const bool isOfKnownClass = type == &QcAction::staticMetaObject || type == &QAction::staticMetaObject;
    return !isOfKnownClass || !action.dynamicPropertyNames().isEmpty();
}

/// A submenu's icon is its own; what that leaves open is its action's.
QString TextOf(const QObject *menu, const QAction &action, const char *property)
{
    const QString own = menu ? TextOf(*menu, property) : QString();
    return own.isEmpty() ? TextOf(action, property) : own;
}

void Substitute(ImageParams &icon, const QAction &action)
{
    const auto codes = action.property(kIconMulColor).value<QHash<QString, QString>>();
    if (codes.isEmpty())
        return;
    icon.color = ColorParams(QString());
    for (auto entry = codes.cbegin(); entry != codes.cend(); ++entry)
        icon.mulColor.insert(entry.key(), ColorParams(entry.value()));
}

} // namespace

bool HasIcons(const QWidget *widget)
{
    const auto *menu = qobject_cast<const QMenu *>(widget);
    if (!menu)
        return false;
    // Each item of a menu asks for all actions, so that the cheap questions come first and each property is read once. No answer can be
    // kept: nobody tells of a changed property.
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions) {
        if (action->isCheckable() && action->isChecked())
            return true;
        if (HasProperties(*action) && !TextOf(*action, kIconPath).isEmpty())
            return true;
    }
    return false;
}

ImageParams MenuIcon(const QStyleOptionMenuItem &option, const QAction &action, const QString &code)
{
    ImageParams icon;
    icon.size = QSize(kMenuIconSize, kMenuIconSize);
    icon.color = ColorParams(code);
    if (option.checkType != QStyleOptionMenuItem::NotCheckable && TextOf(action, kIconPath).isEmpty()) {
        if (option.checked)
            icon.path = QStringLiteral(":/images/select.svg");
        return icon;
    }

    const bool isSubMenu = option.menuItemType == QStyleOptionMenuItem::SubMenu;
    const QObject *menu = isSubMenu ? action.menu() : nullptr;
    icon.path = TextOf(menu, action, kIconPath);
    const QString own = TextOf(menu, action, kIconColor);
    if (!own.isEmpty())
        icon.color = ColorParams(own);
    if (!isSubMenu)
        Substitute(icon, action);
    return icon;
}

} // namespace Velmora
