#include "FolderCheck.h"

#include <Velmora/ModalDialogs.h>
#include <Velmora/QcProgressDialog.h>

#include <QDir>
#include <QFile>
#include <QWidget>

using Velmora::QcProgressDialog;

FolderCheck::FolderCheck(QWidget *window)
    : QObject(window)
    , m_window(window)
{
    connect(&m_steps, &QTimer::timeout, this, &FolderCheck::ReadOne);
    connect(QcProgressDialog::getInstance(), &QDialog::rejected, this, &FolderCheck::Cancel);
}

FolderCheck::~FolderCheck()
{
    if (m_steps.isActive())
        Stop();
}

void FolderCheck::Start(const QString &folder)
{
    m_folder = folder;
    m_names = QDir(folder).entryList(QDir::Files | QDir::Hidden);
    m_read = m_unreadable = 0;

    auto *progress = QcProgressDialog::getInstance();
    progress->setParent(m_window);
    progress->setRange(0, qMax(1, int(m_names.size()))); // 0 would be busy without end
    progress->setValue(0);
    progress->setText(tr("Reading the folder. Esc cancels."));
    Velmora::showModal(progress, m_window);
    m_steps.start(0);
}

void FolderCheck::ReadOne()
{
    if (m_read == m_names.size()) {
        Stop();
        Q_EMIT Finished(m_read, m_unreadable);
        return;
    }
    QFile file(QDir(m_folder).filePath(m_names.at(m_read)));
    if (!file.open(QIODevice::ReadOnly))
        ++m_unreadable;
    else
        file.read(1 << 16); // the beginning tells whether it can be read
    QcProgressDialog::getInstance()->setValue(++m_read);
}

void FolderCheck::Stop()
{
    m_steps.stop();
    auto *progress = QcProgressDialog::getInstance();
    Velmora::hideModal(progress, m_window);
    progress->setParent(nullptr); // it outlives the window
}

void FolderCheck::Cancel()
{
    if (!m_steps.isActive()) // somebody else's work
        return;
    Stop();
    Q_EMIT Cancelled();
}
