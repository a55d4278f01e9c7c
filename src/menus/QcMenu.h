#pragma once

#include <Velmora/QcAction.h>
#include <Velmora/VelmoraExport.h>

#include <QMenu>
#include <QString>

namespace Velmora {

class QcMenuStyle;

/// The kit's popup menu: a QMenu that paints a rounded panel with themed icons, and follows the colour table.
///
/// It is used as any QMenu is, with plain actions too. It is 120 to 320 pixels wide; a longer label is elided. A menu taller than the
/// screen scrolls by mouse, wheel and keys. Icons and ticks share a column at the leading edge, which shows once any action of the menu is
/// checked or has an icon; one that could be checked opens none, nor does the icon that only a submenu has. Where two items have the same
/// label, both show the first one's icon. A QIcon, a font and a default action do not show.
///
/// As in any QMenu, a letter behind an & is the key of its item. The & itself is painted all the same, unless keyboard cues are on: see
/// SetKeyboardCuesEnabled(). A held Enter key then chooses once. Give shortcuts with QAction::setShortcut(), or behind a tab in the text.
///
/// A receiver of triggered() that does away with the menu calls deleteLater(): QMenu has not done with itself when it emits.
///
/// It has a style of its own, made under the name of the application's when the menu is made, which it keeps when the application gets
/// another one. The application's style and stylesheet are left alone; a stylesheet that styles QMenu wins over the menu's look.
class VELMORA_EXPORT QcMenu : public QMenu
{
    Q_OBJECT

public:
    explicit QcMenu(QWidget *parent = nullptr);
    explicit QcMenu(const QString &title, QWidget *parent = nullptr);

    /// The icon that this menu's item shows in a parent menu, as of an action: see QcAction. What is left open is taken from the item's
    /// action.
    void SetIconPath(const QString &path);
    void SetIconColor(const QString &code);

    /// Adds an action that the menu owns.
    QcAction *addQcAction(const QString &text);
    /// Adds \a menu, which is not owned and may be any QMenu with a look of its own, as a submenu under its title, which it goes on
    /// following. Null, or this menu itself, adds nothing and gives null.
    QcAction *addQcMenu(QMenu *menu);

    /// The names of the dynamic properties in which an action keeps its icon: QString, QString, and QHash<QString, QString>.
    static const char *GetIconPathProperty();
    static const char *GetIconColorProperty();
    static const char *GetIconSrcMulColorProperty();

protected:
    void actionEvent(QActionEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void init();
    void BringNear(QMenu &submenu) const;

    QcMenuStyle *m_pMenuStyle = nullptr; // shared, never deleted
};

} // namespace Velmora
