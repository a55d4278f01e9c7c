#include "buttons/ButtonAccessible_p.h"

#include <Velmora/QcButton.h>
#include <Velmora/QcCheckBox.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcMenuToolButton.h>
#include <Velmora/QcRadioButton.h>
#include <Velmora/QcToolButton.h>

#include "core/AccessibleAction_p.h"
#include "core/InstallAccessible_p.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QAction>
#include <QActionGroup>
#include <QButtonGroup>
#include <QCheckBox>
#include <QKeySequence>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>

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

/// The combined button that \a button is half of, or null.
QcCombinedToolButton *WholeOf(const QAbstractButton &button)
{
    return qobject_cast<QcCombinedToolButton *>(button.parentWidget());
}

/// The arrow half of a combined button shows the menu when it is toggled, which way makes no difference.
bool IsArrow(const QAbstractButton &button)
{
    return MenuOf(button) && WholeOf(button);
}

/// Tool buttons have more ways to their menu than a click, unless the host chose that one.
bool ClickShowsMenu(const QAbstractButton &button)
{
    const auto *toolButton = qobject_cast<const QToolButton *>(&button);
    return MenuOf(button) && (!toolButton || IsArrow(button) || toolButton->popupMode() == QToolButton::InstantPopup);
}

/// Whether checking \a button unchecks others.
bool IsExclusive(const QAbstractButton &button)
{
    const auto *toolButton = qobject_cast<const QToolButton *>(&button);
    const QAction *action = toolButton ? toolButton->defaultAction() : nullptr;
    const QActionGroup *actions = action ? action->actionGroup() : nullptr;
    return button.autoExclusive() || (button.group() && button.group()->exclusive())
        || (actions && actions->exclusionPolicy() == QActionGroup::ExclusionPolicy::Exclusive);
}

/// Returns when the menu closes.
void ShowMenu(QAbstractButton &button)
{
    if (IsArrow(button))
        button.click();
    else if (auto *pushButton = qobject_cast<QPushButton *>(&button))
        pushButton->showMenu();
    else if (auto *toolButton = qobject_cast<QToolButton *>(&button))
        toolButton->showMenu();
}

void Click(QAbstractButton &button)
{
    if (ClickShowsMenu(button))
        ShowMenu(button);
    else
        button.click();
}

/// The first of \a texts that says something.
QString FirstOf(const QStringList &texts)
{
    const auto found = std::find_if(texts.begin(), texts.end(), [](const QString &text) { return !text.isEmpty(); });
    return found == texts.end() ? QString() : *found;
}

/// A button whose name is its text or, without one, its tool tip. A name set by the host comes before both. Half of a combined button
/// that has none of them goes by those of the whole. What has no name at all is called by its description, which a hover tip gives.
class ButtonAccessible : public QAccessibleWidget
{
public:
    explicit ButtonAccessible(QAbstractButton *button)
        : QAccessibleWidget(button, QAccessible::Button)
    {
    }

    /// Screen readers speak of the checked state of check boxes and radio buttons only, whatever a checkable button looks like.
    QAccessible::Role role() const override
    {
        if (HasMenu())
            return QAccessible::ButtonMenu;
        if (!button()->isCheckable())
            return QAccessible::Button;
        return IsExclusive(*button()) ? QAccessible::RadioButton : QAccessible::CheckBox;
    }

    QString text(QAccessible::Text kind) const override
    {
        const QWidget *whole = WholeOf(*button());
        switch (kind) {
        case QAccessible::Accelerator:
            return button()->shortcut().toString(QKeySequence::NativeText);
        case QAccessible::Name: {
            QStringList names = {button()->accessibleName(), WithoutMnemonic(button()->text()), button()->toolTip()};
            if (whole)
                names << whole->accessibleName() << whole->toolTip();
            names << QAccessibleWidget::text(kind); // of a label that has the button for its buddy
            names << text(QAccessible::Description);
            return FirstOf(names);
        }
        case QAccessible::Description:
            return FirstOf({QAccessibleWidget::text(kind), whole ? whole->accessibleDescription() : QString()});
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    QAccessible::State state() const override
    {
        const auto *pushButton = qobject_cast<QPushButton *>(button());
        const auto *checkBox = qobject_cast<QCheckBox *>(button());
        const bool isArrow = IsArrow(*button());
        QAccessible::State state = QAccessibleWidget::state();
        state.pressed = button()->isDown();
        state.checkable = button()->isCheckable() && !isArrow;
        state.checked = button()->isChecked() && !isArrow;
        state.checkStateMixed = checkBox && checkBox->checkState() == Qt::PartiallyChecked;
        state.defaultButton = pushButton && pushButton->isDefault();
        state.hasPopup = HasMenu();
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names;
        if (button()->isEnabled()) {
            names << ClickAction();
            if (HasMenu() && !ClickShowsMenu(*button()))
                names << showMenuAction();
        }
        return names + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (name == showMenuAction() && HasMenu())
            DoActionLater(*button(), [target = button()] { ShowMenu(*target); });
        else if (name == pressAction() || name == ClickAction())
            DoActionLater(*button(), [target = button()] { Click(*target); });
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
    QAbstractButton *button() const { return static_cast<QAbstractButton *>(widget()); }
    bool HasMenu() const { return MenuOf(*button()) != nullptr; }
    /// What a click does: open the menu, or toggle, or no more than click.
    const QString &ClickAction() const
    {
        if (ClickShowsMenu(*button()))
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
    InstallAccessible<ButtonAccessible, QcCheckBox>();
    InstallAccessible<ButtonAccessible, QcRadioButton>();
    InstallAccessible<GroupAccessible, QcCombinedToolButton>();
}

} // namespace Velmora
