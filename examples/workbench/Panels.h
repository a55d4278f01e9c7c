#pragma once

#include <Velmora/QcFrame.h>

#include <QListWidget>
#include <QMap>
#include <QPlainTextEdit>
#include <QPointer>
#include <QString>
#include <QTreeWidget>
#include <QWidget>

namespace Velmora {
class QcCheckBox;
class QcSpinBox;
} // namespace Velmora

class Editor;

/// What a layout file knows a panel by. Every open document has a number of its own, so that it comes back where it was.
enum PanelType : int {
    FilesType = 1,
    OutlineType = 2,
    OutputType = 3,
    PropertiesType = 4,
    FirstEditorType = 100,
    LastEditorType = 199,
};

/// The kind of panel that \a content wants to be in, and its title.
void SetUpContent(QWidget *content, int type, const QString &title);
int TypeOf(const QWidget *content);

/// Gives a plain Qt view the colours of the table, now and after each change, and the kit's scroll bars.
void SetUpView(QAbstractScrollArea *view);

/// The text files below a folder.
class FilesPanel : public QTreeWidget
{
    Q_OBJECT

public:
    explicit FilesPanel(const QString &folder, QWidget *parent = nullptr);

    /// The first two files, under the numbers of their editors: a workbench that was never used opens them.
    QMap<int, QString> FirstFiles() const;

Q_SIGNALS:
    void SignalChosen(const QString &path);

private:
    void Fill(const QString &folder, QTreeWidgetItem *parent, int depth);
};

/// The headings of a text, lines that begin with a #; a click or Return goes there.
class OutlinePanel : public QListWidget
{
    Q_OBJECT

public:
    explicit OutlinePanel(QWidget *parent = nullptr);

    void Follow(Editor *editor);

private:
    void Fill();

    QPointer<Editor> m_editor;
};

/// What the program says.
class OutputPanel : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit OutputPanel(QWidget *parent = nullptr);
};

/// How a text is shown.
class PropertiesPanel : public Velmora::QcFrame
{
    Q_OBJECT

public:
    explicit PropertiesPanel(QWidget *parent = nullptr);

    void Follow(Editor *editor);

private:
    void Apply();

    QPointer<Editor> m_editor;
    Velmora::QcSpinBox *m_fontSize;
    Velmora::QcCheckBox *m_wrap;
};
