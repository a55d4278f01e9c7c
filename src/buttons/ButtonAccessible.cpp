#include "buttons/ButtonAccessible_p.h"

#include <Velmora/QcButton.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcMenuToolButton.h>
#include <Velmora/QcSwitchButton.h>
#include <Velmora/QcToolButton.h>

#include "core/InstallAccessible_p.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QKeySequence>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace Velmora {

namespace {

/// \a text without its mnemonic marks: "&Save" is read as "Save", "A && B" as "A & B".
QString WithoutMnemonic(const QString &text)
{
    QString plain;
    plain.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const bool isMark = text.at(i) == QLatin1Char('&') && i + 1 < text.size();
        plain += text.at(isMark ? ++i : i);
    }
    return plain;
}

QMenu *MenuOf(const QAbstractButton &button)
{
    if (const auto *pushButton = qobject_cast<const QPushButton *>(&button))
        return pushButton->menu();
    const auto *toolButton = qobject_cast<const QToolButton *>(&button);
    return toolButton ? toolButton->menu() : nullptr;
}

/// A button whose name is its text or, without one, its tool tip. A name set by the host comes before both. Half of a combined button
/// that has none of them goes by those of the whole.
class ButtonAccessible : public QAccessibleWidget
{
public:
    explicit ButtonAccessible(QAbstractButton *button)
        : QAccessibleWidget(button, QAccessible::Button)
    {
    }

    QAccessible::Role role() const override
    {
        if (qobject_cast<QcSwitchButton *>(button()))
            return QAccessible::CheckBox; // the nearest that Qt has: screen readers then say on or off
        return HasMenu() ? QAccessible::ButtonMenu : QAccessible::Button;
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Accelerator)
            return button()->shortcut().toString(QKeySequence::NativeText);
        if (kind == QAccessible::Name) {
            QStringList names = {button()->accessibleName(), WithoutMnemonic(button()->text()), button()->toolTip()};
            if (const QWidget *whole = Whole())
                names << whole->accessibleName() << whole->toolTip();
            names.removeAll(QString());
            if (!names.isEmpty())
                return names.first();
        }
        return QAccessibleWidget::text(kind); // for a name: that of a label that has the button for its buddy
    }

    QAccessible::State state() const override
    {
        const auto *pushButton = qobject_cast<QPushButton *>(button());
        QAccessible::State state = QAccessibleWidget::state();
        state.pressed = button()->isDown();
        state.checkable = button()->isCheckable() && !IsArrow();
        state.checked = button()->isChecked() && !IsArrow();
        state.defaultButton = pushButton && pushButton->isDefault();
        state.hasPopup = HasMenu();
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names;
        if (button()->isEnabled()) {
            names << ClickAction();
            if (HasMenu() && !ClickShowsMenu())
                names << showMenuAction();
        }
        return names + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (name == showMenuAction() && HasMenu())
            ShowMenu();
        else if (name == pressAction() || name == ClickAction())
            Press();
        else
            QAccessibleWidget::doAction(name);
    }

    QStringList keyBindingsForAction(const QString &name) const override
    {
        const QKeySequence shortcut = button()->shortcut();
        if (name != ClickAction() || shortcut.isEmpty())
            return QStringList();
        return {shortcut.toString()};
    }

private:
    void Press()
    {
        if (ClickShowsMenu())
            ShowMenu();
        else
            button()->click();
    }

    /// Returns when the menu closes.
    void ShowMenu()
    {
        if (!button()->isEnabled())
            return;
        if (IsArrow())
            button()->click();
        else if (auto *pushButton = qobject_cast<QPushButton *>(button()))
            pushButton->showMenu();
        else if (auto *toolButton = qobject_cast<QToolButton *>(button()))
            toolButton->showMenu();
    }

    QAbstractButton *button() const { return static_cast<QAbstractButton *>(widget()); }
    bool HasMenu() const { return MenuOf(*button()) != nullptr; }
    QcCombinedToolButton *Whole() const { return qobject_cast<QcCombinedToolButton *>(button()->parentWidget()); }
    /// The arrow half of a combined button shows the menu when it is toggled, which way makes no difference.
    bool IsArrow() const { return HasMenu() && Whole(); }
    /// Tool buttons have more ways to their menu than a click, unless the host chose that one.
    bool ClickShowsMenu() const
    {
        const auto *toolButton = qobject_cast<QToolButton *>(button());
        return HasMenu() && (!toolButton || IsArrow() || toolButton->popupMode() == QToolButton::InstantPopup);
    }
    /// What a click does: open the menu, or toggle, or no more than click.
    const QString &ClickAction() const
    {
        if (ClickShowsMenu())
            return showMenuAction();
        return button()->isCheckable() ? toggleAction() : pressAction();
    }
};

} // namespace

void InstallButtonAccessibility()
{
    InstallAccessible<ButtonAccessible, QcButton>();
    InstallAccessible<ButtonAccessible, QcToolButton>();
    InstallAccessible<ButtonAccessible, QcMenuTextButton>();
    InstallAccessible<ButtonAccessible, QcMenuToolButton>();
    InstallAccessible<GroupAccessible, QcCombinedToolButton>();
}

} // namespace Velmora
