#pragma once

#include <Velmora/VelmoraExport.h>

#include <QAction>
#include <QHash>
#include <QString>

namespace Velmora {

/// An action whose icon in a QcMenu is a themed image: a file and the tokens of its colours, in place of a QIcon.
///
/// The icon is kept in dynamic properties (see QcMenu::GetIconPathProperty() and its fellows), which a QcMenu reads whenever it
/// paints: a change shows with the next paint, and the colours follow the colour table. Any QAction with these properties is painted
/// alike. Other menus, toolbars and buttons know nothing of them; QAction::setIcon() serves those, and no QcMenu.
class VELMORA_EXPORT QcAction : public QAction
{
    Q_OBJECT

public:
    explicit QcAction(QObject *parent = nullptr);
    explicit QcAction(const QString &text, QObject *parent = nullptr);

    /// The file or resource path of the icon, drawn 24 by 24 pixels; an empty one takes the icon away. A file that is missing leaves its
    /// place blank.
    void SetIconPath(const QString &path);
    /// The colour code of the icon, whose own colours it replaces, also while the action is disabled. An empty one is ignored. Without a
    /// code the icon has the colour of a menu's icons, enabled or disabled.
    void SetIconColor(const QString &code);
    /// Colour codes for the single colours of an icon of several: from a colour as the SVG writes it, such as "#000000", to its code. They
    /// win over SetIconColor(), and over the look of a disabled action. An empty hash is ignored.
    void SetMulIconColor(const QHash<QString, QString> &codes);
};

} // namespace Velmora
