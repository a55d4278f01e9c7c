#include "TableMenu.h"

#include "Tables.h"

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

#include <QActionGroup>
#include <QCoreApplication>
#include <QEvent>
#include <QMenu>
#include <QMenuBar>

namespace VelmoraDesigner {

TableMenu::TableMenu(QDesignerFormEditorInterface &core)
    : QObject(&core)
    , m_core(core)
    , m_menu(std::make_unique<QMenu>(QStringLiteral("Vel&mora")))
{
    m_menu->setObjectName(QStringLiteral("velmoraMenu"));
    auto *group = new QActionGroup(this);
    for (const Table &table : BuiltInTables()) {
        QAction *action = m_menu->addAction(table.title);
        action->setCheckable(true);
        action->setChecked(table.path == ChosenTable());
        group->addAction(action);
        connect(action, &QAction::triggered, this, [path = table.path] { ChooseTable(path); });
    }
    // Designer makes its windows when it has loaded its plugins, and moves the bar from one to another.
    QCoreApplication::instance()->installEventFilter(this);
}

TableMenu::~TableMenu() = default;

bool TableMenu::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show) {
        if (auto *bar = qobject_cast<QMenuBar *>(watched))
            Place(*bar);
    }
    return QObject::eventFilter(watched, event);
}

/// Not into the bar of a main window that is designed. Before the last menu, which is Help.
void TableMenu::Place(QMenuBar &bar)
{
    const QWidget *top = m_core.topLevel();
    const bool isDesigners = top && (bar.window() == top->window() || top->isAncestorOf(&bar));
    if (!isDesigners || QDesignerFormWindowInterface::findFormWindow(&bar) || bar.actions().contains(m_menu->menuAction()))
        return;
    bar.insertMenu(bar.actions().isEmpty() ? nullptr : bar.actions().constLast(), m_menu.get());
}

} // namespace VelmoraDesigner
