#include "dock/DockAccessible_p.h"

#include <Velmora/QcDockAreaTabBar.h>
#include <Velmora/QcDockAreaTabBarButton.h>
#include <Velmora/QcDockWidget.h>

#include "core/AccessibleAction_p.h"
#include "core/InstallAccessible_p.h"
#include "theme/Mnemonics_p.h"

#include <QAccessibleWidget>
#include <QKeySequence>
#include <QLabel>

namespace Velmora {

namespace {

/// A panel, called by its title unless the host gave it another name.
class PanelAccessible : public QAccessibleWidget
{
public:
    explicit PanelAccessible(QcDockWidget *panel)
        : QAccessibleWidget(panel, QAccessible::Pane)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString name = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && name.isEmpty() ? ShownText(widget()->windowTitle()) : name;
    }
};

class TabRowAccessible : public QAccessibleWidget
{
public:
    explicit TabRowAccessible(QcDockAreaTabBar *row)
        : QAccessibleWidget(row, QAccessible::PageTabList)
    {
    }
};

class TabAccessible : public QAccessibleWidget
{
public:
    explicit TabAccessible(QcDockAreaTabBarButton *tab)
        : QAccessibleWidget(tab, QAccessible::PageTab)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Accelerator)
            return Tab()->shortcut().toString(QKeySequence::NativeText);
        const QString name = QAccessibleWidget::text(kind);
        const auto *label = widget()->findChild<QLabel *>(QStringLiteral("m_textLabel"), Qt::FindDirectChildrenOnly);
        return kind == QAccessible::Name && name.isEmpty() && label ? ShownText(label->text()) : name;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = Tab()->isChecked();
        return state;
    }

    QStringList actionNames() const override { return QStringList(pressAction()) + QAccessibleWidget::actionNames(); }

    void doAction(const QString &name) override
    {
        if (name == pressAction())
            DoActionLater(*Tab(), [tab = Tab()] { tab->click(); });
        else
            QAccessibleWidget::doAction(name);
    }

private:
    QcDockAreaTabBarButton *Tab() const { return static_cast<QcDockAreaTabBarButton *>(widget()); }
};

} // namespace

void InstallDockAccessibility()
{
    InstallAccessible<PanelAccessible, QcDockWidget>();
    InstallAccessible<TabRowAccessible, QcDockAreaTabBar>();
    InstallAccessible<TabAccessible, QcDockAreaTabBarButton>();
}

} // namespace Velmora
