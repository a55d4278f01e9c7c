#include "TableMenu.h"

#include "Tables.h"

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

#include <QActionGroup>
#include <QCoreApplication>
#include <QEvent>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>

namespace VelmoraDesigner {

TableMenu::TableMenu(QDesignerFormEditorInterface &core)
    : QObject(&core)
    , m_core(core)
    , m_menu(std::make_unique<QMenu>(QStringLiteral("Vel&mora")))
    , m_tables(new QActionGroup(this))
{
    m_menu->setObjectName(QStringLiteral("velmoraMenu"));
    for (const Table &table : BuiltInTables()) {
        const QAction *action = Add(table.title, table.path);
        connect(action, &QAction::triggered, this, [path = table.path] { ChooseTable(path); });
    }
    m_menu->addSeparator();
    m_file = Add(QCoreApplication::translate("VelmoraDesigner", "Other &file..."), QString());
    connect(m_file, &QAction::triggered, this, &TableMenu::ChooseFile);
    ShowChoice();
    // Designer makes its windows when it has loaded its plugins, and moves the bar from one to another.
    QCoreApplication::instance()->installEventFilter(this);
}

TableMenu::~TableMenu() = default;

QAction *TableMenu::Add(const QString &title, const QString &path)
{
    QAction *action = m_menu->addAction(title);
    action->setCheckable(true);
    action->setData(path);
    m_tables->addAction(action);
    return action;
}

void TableMenu::ChooseFile()
{
    const QPointer<TableMenu> alive(this);
    const QPointer<QWidget> top = m_core.topLevel();
    const QString path = QFileDialog::getOpenFileName(top, QString(), m_file->data().toString(), QStringLiteral("INI (*.ini)"));
    if (!alive)
        return;
    const bool isTable = !path.isEmpty() && ChooseTable(path);
    if (isTable)
        m_file->setData(path);
    ShowChoice();
    if (!path.isEmpty() && !isTable)
        QMessageBox::warning(top, QString(), QCoreApplication::translate("VelmoraDesigner", "%1 has no colours.").arg(path));
}

/// The choice that failed or was cancelled is checked by Qt.
void TableMenu::ShowChoice()
{
    const QList<QAction *> actions = m_tables->actions();
    for (QAction *action : actions)
        action->setChecked(action->data().toString() == ChosenTable());
}

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
