#pragma once

#include <QObject>

#include <memory>

QT_BEGIN_NAMESPACE
class QAction;
class QActionGroup;
class QDesignerFormEditorInterface;
class QMenu;
class QMenuBar;
QT_END_NAMESPACE

namespace VelmoraDesigner {

/// The menu "Velmora" in Designer's menu bar, which chooses the colour table of all forms: a built-in one, or that of a file. The choice
/// is not kept.
class TableMenu : public QObject
{
    Q_OBJECT

public:
    /// Becomes a child of \a core, whose menu bar may come later.
    explicit TableMenu(QDesignerFormEditorInterface &core);
    ~TableMenu() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAction *Add(const QString &title, const QString &path);
    void ChooseFile();
    void ShowChoice();
    void Place(QMenuBar &bar);

    QDesignerFormEditorInterface &m_core;
    const std::unique_ptr<QMenu> m_menu;
    QActionGroup *m_tables;
    QAction *m_file = nullptr;
};

} // namespace VelmoraDesigner
