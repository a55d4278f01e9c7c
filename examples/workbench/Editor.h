#pragma once

#include <QPlainTextEdit>
#include <QString>

/// A text file in an editor. It is the content of a panel, which takes its title, with a star while there are changes.
class Editor : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit Editor(const QString &path, QWidget *parent = nullptr);

    QString Path() const { return m_path; }
    /// False if the file cannot be read; the editor is empty then.
    bool Load();
    /// False if the file cannot be written. The old one is kept until the new one is complete.
    bool Save();
    /// True without changes; otherwise asks whether they may be thrown away. The editor may be gone afterwards.
    bool MayClose();

protected:
    /// A panel closes only if its content does: refusing here keeps the panel.
    void closeEvent(QCloseEvent *event) override;

private:
    void ShowTitle();

    QString m_path;
};
