#pragma once

#include <QObject>

#include <memory>

QT_BEGIN_NAMESPACE
class QDesignerFormEditorInterface;
class QMenu;
class QMenuBar;
QT_END_NAMESPACE

namespace VelmoraDesigner {

/// The menu "Velmora" in Designer's menu bar, which chooses the colour table of all forms. The choice is not kept.
class TableMenu : public QObject
{
    Q_OBJECT

public:
    /// Becomes a child of \a core, whose menu bar may come later.
    explicit TableMenu(QDesignerFormEditorInterface &core);
    ~TableMenu() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Place(QMenuBar &bar);

    QDesignerFormEditorInterface &m_core;
    const std::unique_ptr<QMenu> m_menu;
};

} // namespace VelmoraDesigner
