#pragma once

#include "Session.h"
#include "TableChoice.h"

#include <Velmora/QcFrame.h>

#include <QList>
#include <QPointer>
#include <QString>

namespace Velmora {
class QcDockContainer;
class QcDockWidget;
} // namespace Velmora

class Editor;
class FilesPanel;
class OutlinePanel;
class OutputPanel;
class PropertiesPanel;
class SecondWindow;

/// A small editor of Markdown and plain text, whose panels are split, tabbed, torn off and kept from one run to the next.
class Workbench : public Velmora::QcFrame
{
    Q_OBJECT

public:
    /// Shows the text files below \a folder, and keeps layouts and session in \a stateFolder.
    Workbench(const QString &folder, const QString &stateFolder, QWidget *parent = nullptr);
    ~Workbench() override;

    /// Opens \a path in an editor, or brings the one forward that has it.
    void Open(const QString &path);

    Velmora::QcDockContainer *Root() const;

public Q_SLOTS:
    void SaveLayout();
    void LoadLayout();
    void ResetLayout();
    void ShowSecondWindow();
    void SaveText();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *MakeToolRow();
    void MakeMissingContents();
    void Place(Editor *editor);
    Editor *MakeEditor(int type, const QString &path);
    QList<QWidget *> Contents() const;
    QList<Editor *> Editors() const;
    int FreeEditorType() const;

    Velmora::QcDockContainer *MakeFirstLayout();
    void Use(Velmora::QcDockContainer *root);
    void PlaceTheRest();
    void FocusShownEditor();
    void FollowFocus(QWidget *focus);
    void Say(const QString &text);

    QString m_folder;
    QString m_stateFolder;
    Session m_session;
    Examples::TableChoice m_table;
    QPointer<Velmora::QcDockContainer> m_root;
    QPointer<SecondWindow> m_secondWindow;

    // Whoever closes a panel deletes its content with it.
    QPointer<FilesPanel> m_files;
    QPointer<OutlinePanel> m_outline;
    QPointer<OutputPanel> m_output;
    QPointer<PropertiesPanel> m_properties;
    QList<QPointer<Editor>> m_editors;
    QPointer<Editor> m_current;
};

/// One more window that panels can be dragged into. What is in it when it closes goes back to the workbench.
class SecondWindow : public Velmora::QcFrame
{
    Q_OBJECT

public:
    explicit SecondWindow(QWidget *parent = nullptr);

    QList<QWidget *> Contents() const;

Q_SIGNALS:
    void SignalClosing();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    Velmora::QcDockContainer *m_root;
};
