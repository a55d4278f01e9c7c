#include "menus/MenuAccessible_p.h"

#include <Velmora/QcMenu.h>

#include "core/AccessibleAction_p.h"
#include "core/InstallAccessible_p.h"
#include "core/QtCompatibility_p.h"
#include "theme/Mnemonics_p.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>
#include <QSet>
#include <QWindow>

namespace Velmora {

namespace {

/// \a text as it is spoken: up to its tab, without the marks of mnemonics.
QString Spoken(const QString &text)
{
    return WithoutMarks(text.section(QLatin1Char('\t'), 0, 0));
}

/// The shortcut that an item shows.
QString ShortcutText(const QAction &action)
{
    const auto tab = action.text().indexOf(QLatin1Char('\t'));
    return tab < 0 ? action.shortcut().toString(QKeySequence::NativeText) : action.text().mid(tab + 1);
}

/// The menu that \a menu belongs to: the first that has an item for it. Null if there is none.
QMenu *Owner(const QMenu &menu)
{
    const QList<QWidget *> widgets = WidgetsWith(*menu.menuAction());
    for (QWidget *widget : widgets) {
        if (auto *owner = qobject_cast<QMenu *>(widget))
            return owner;
    }
    return nullptr;
}

/// The same, in a tree: menus that are submenus of each other belong to none.
QMenu *OwnerInTree(const QMenu &menu)
{
    QSet<const QMenu *> owners;
    const QMenu *owner = Owner(menu);
    while (owner && owner != &menu && !owners.contains(owner)) {
        owners.insert(owner);
        owner = Owner(*owner);
    }
    return owner == &menu ? nullptr : Owner(menu);
}

/// An item of a menu. Valid while both are.
class MenuItemAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    MenuItemAccessible(QcMenu *menu, QAction *action)
        : m_menu(menu)
        , m_action(action)
    {
    }

    bool isValid() const override { return m_menu && m_action; }
    QObject *object() const override { return m_action; }
    QWindow *window() const override { return m_menu->windowHandle(); }
    QAccessible::Role role() const override { return m_action->isSeparator() ? QAccessible::Separator : QAccessible::MenuItem; }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }

    // --- The tree: a submenu is the child of its item ---

    QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(m_menu); }
    int childCount() const override { return Submenu() ? 1 : 0; }
    QAccessibleInterface *child(int index) const override
    {
        return index == 0 && Submenu() ? QAccessible::queryAccessibleInterface(Submenu()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override { return Submenu() && child->object() == Submenu() ? 0 : -1; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }

    QRect rect() const override
    {
        const QRect shown = m_menu->actionGeometry(m_action) & m_menu->rect();
        return QRect(m_menu->mapToGlobal(shown.topLeft()), shown.size());
    }

    // --- What it says ---

    QString text(QAccessible::Text kind) const override
    {
        switch (kind) {
        case QAccessible::Name:
            return Spoken(m_action->text());
        case QAccessible::Description:
            return m_action->whatsThis();
        case QAccessible::Accelerator:
            return ShortcutText(*m_action);
        default:
            return QString();
        }
    }
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override {}

    QAccessible::State state() const override
    {
        QAccessible::State state;
        const bool isItem = !m_action->isSeparator();
        const bool isEnabled = isItem && m_menu->isEnabled() && m_action->isEnabled();
        state.invisible = !m_menu->isVisible() || !m_action->isVisible();
        state.offscreen = !state.invisible && rect().isEmpty();
        state.disabled = !isEnabled;
        state.focusable = isEnabled;
        state.focused = isEnabled && m_menu->activeAction() == m_action;
        state.hotTracked = state.focused;
        state.checkable = isItem && m_action->isCheckable();
        state.checked = state.checkable && m_action->isChecked();
        state.hasPopup = isItem && m_action->menu();
        state.expanded = state.hasPopup && m_action->menu()->isVisible();
        return state;
    }

    // --- What it does ---

    QStringList actionNames() const override
    {
        if (m_action->isSeparator() || !m_action->isEnabled())
            return QStringList();
        return {m_action->menu() ? showMenuAction() : pressAction()};
    }

    void doAction(const QString &name) override
    {
        if (!actionNames().contains(name))
            return;
        DoActionLater(*m_menu, [menu = m_menu, action = m_action] {
            if (!action)
                return;
            if (action->menu())
                menu->setActiveAction(action);
            else
                action->trigger();
        });
    }

    QStringList keyBindingsForAction(const QString &name) const override
    {
        return actionNames().contains(name) && !ShortcutText(*m_action).isEmpty() ? QStringList(ShortcutText(*m_action)) : QStringList();
    }

private:
    /// The submenu, if it belongs to this item and to no other.
    QMenu *Submenu() const
    {
        QMenu *submenu = m_action->menu();
        const bool isOurs = submenu && submenu->menuAction() == m_action && OwnerInTree(*submenu) == m_menu;
        return isOurs ? submenu : nullptr;
    }

    const QPointer<QcMenu> m_menu;
    const QPointer<QAction> m_action;
};

class MenuAccessible : public QAccessibleWidget
{
public:
    explicit MenuAccessible(QcMenu *menu)
        : QAccessibleWidget(menu, QAccessible::PopupMenu)
    {
    }

    ~MenuAccessible() override
    {
        for (const QAccessible::Id item : qAsConst(m_items))
            QAccessible::deleteAccessibleInterface(item);
    }

    /// A submenu belongs to its item.
    QAccessibleInterface *parent() const override
    {
        if (QMenu *owner = OwnerInTree(*Menu()))
            return QAccessible::queryAccessibleInterface(owner)->child(int(owner->actions().indexOf(Menu()->menuAction())));
        return QAccessibleWidget::parent();
    }

    int childCount() const override { return int(Menu()->actions().size()); }
    QAccessibleInterface *child(int index) const override
    {
        const QList<QAction *> actions = Menu()->actions();
        return index >= 0 && index < actions.size() ? Item(actions.at(index)) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return int(Menu()->actions().indexOf(qobject_cast<QAction *>(child->object())));
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        QAction *action = Menu()->actionAt(Menu()->mapFromGlobal(QPoint(x, y)));
        return action ? Item(action) : nullptr;
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString text = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && text.isEmpty() ? Spoken(Menu()->title()) : text;
    }

private:
    QcMenu *Menu() const { return static_cast<QcMenu *>(widget()); }

    QAccessibleInterface *Item(QAction *action) const
    {
        const QAccessible::Id id = m_items.value(action);
        QAccessibleInterface *known = id ? QAccessible::accessibleInterface(id) : nullptr;
        if (known && known->object() == action)
            return known;
        if (known) // of a dead action, whose address this one has
            QAccessible::deleteAccessibleInterface(id);
        auto *item = new MenuItemAccessible(Menu(), action); // owned by Qt's accessibility cache
        m_items.insert(action, QAccessible::registerAccessibleInterface(item));
        return item;
    }

    mutable QHash<QAction *, QAccessible::Id> m_items;
};

} // namespace

void InstallMenuAccessibility()
{
    InstallAccessible<MenuAccessible, QcMenu>();
}

} // namespace Velmora
