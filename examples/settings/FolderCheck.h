#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/// Reads the files of a folder, one after the other, in front of which the progress dialog stands. Escape there cancels.
///
/// The work is done in small steps between the events of the main thread, so that the dialog goes on answering.
class FolderCheck : public QObject
{
    Q_OBJECT

public:
    /// The dialog shows in front of \a window, whose child this becomes.
    explicit FolderCheck(QWidget *window);
    ~FolderCheck() override;

    /// Begins anew with \a folder.
    void Start(const QString &folder);

Q_SIGNALS:
    /// All files were read, \a unreadable of \a count in vain.
    void Finished(int count, int unreadable);
    void Cancelled();

private:
    void ReadOne();
    void Stop();
    void Cancel();

    QWidget *m_window;
    QString m_folder;
    QStringList m_names;
    int m_read = 0;
    int m_unreadable = 0;
    QTimer m_steps;
};
