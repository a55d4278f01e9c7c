#include "controls/ButtonAccessible_p.h"

#include <Velmora/QcButton.h>
#include <Velmora/QcSwitchButton.h>

#include <QAccessibleWidget>
#include <QKeySequence>
#include <QMenu>

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

/// A push button whose name is its text or, without one, its tool tip. A name set by the host comes before both.
class ButtonAccessible : public QAccessibleWidget
{
public:
    explicit ButtonAccessible(QPushButton *button)
        : QAccessibleWidget(button, QAccessible::Button)
    {
    }

    QAccessible::Role role() const override
    {
        if (qobject_cast<QcSwitchButton *>(button()))
            return QAccessible::CheckBox; // the nearest that Qt has: screen readers then say on or off
        return button()->menu() ? QAccessible::ButtonMenu : QAccessible::Button;
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Accelerator)
            return button()->shortcut().toString(QKeySequence::NativeText);
        if (kind == QAccessible::Name) {
            for (const QString &name : {button()->accessibleName(), WithoutMnemonic(button()->text()), button()->toolTip()}) {
                if (!name.isEmpty())
                    return name;
            }
        }
        return QAccessibleWidget::text(kind); // for a name: that of a label that has the button for its buddy
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.pressed = button()->isDown();
        state.checkable = button()->isCheckable();
        state.checked = button()->isChecked();
        state.defaultButton = button()->isDefault();
        state.hasPopup = button()->menu() != nullptr;
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names;
        if (button()->isEnabled())
            names << ClickAction();
        return names + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (name == pressAction() || name == ClickAction())
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
        if (!button()->menu())
            button()->click();
        else if (button()->isEnabled())
            button()->showMenu(); // returns when the menu closes
    }

    QPushButton *button() const { return static_cast<QPushButton *>(widget()); }
    /// What a click does: a button with a menu opens it, a checkable one toggles.
    const QString &ClickAction() const
    {
        if (button()->menu())
            return showMenuAction();
        return button()->isCheckable() ? toggleAction() : pressAction();
    }
};

QAccessibleInterface *CreateButtonInterface(const QString &className, QObject *object)
{
    // Qt asks once for each class of the object, the most derived first.
    auto *button = className == QLatin1String("Velmora::QcButton") ? qobject_cast<QcButton *>(object) : nullptr;
    return button ? new ButtonAccessible(button) : nullptr; // owned by Qt's accessibility cache
}

} // namespace

void InstallButtonAccessibility()
{
    QAccessible::installFactory(CreateButtonInterface);
}

} // namespace Velmora
