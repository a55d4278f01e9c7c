#include "Editor.h"

#include "Panels.h"

#include <Velmora/ModalDialogs.h>
#include <Velmora/QcDialog.h>
#include <Velmora/QcLabel.h>

#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPointer>
#include <QSaveFile>
#include <QVBoxLayout>

using namespace Velmora;

Editor::Editor(const QString &path, QWidget *parent)
    : QPlainTextEdit(parent)
    , m_path(path)
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setAccessibleName(QFileInfo(path).fileName());
    SetUpView(this);
    connect(document(), &QTextDocument::modificationChanged, this, &Editor::ShowTitle);
    ShowTitle();
}

bool Editor::Load()
{
    QFile file(m_path);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    setPlainText(isOpen ? QString::fromUtf8(file.readAll()) : QString());
    document()->setModified(false);
    return isOpen;
}

bool Editor::Save()
{
    QSaveFile file(m_path);
    const QByteArray text = toPlainText().toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush() || !file.commit())
        return false;
    document()->setModified(false);
    return true;
}

bool Editor::MayClose()
{
    if (!document()->isModified())
        return true;
    QcDialog dialog;
    dialog.setTitle(tr("Unsaved changes"));
    dialog.setWindowTitle(tr("Unsaved changes"));
    dialog.setBottomFrameVisible(true);
    dialog.setOkButtonText(tr("Discard"));
    dialog.setCancelButtonText(tr("Cancel"));
    auto *layout = new QVBoxLayout(dialog.getContentFrame());
    layout->setContentsMargins(15, 9, 15, 9); // in line with the title
    auto *label = new QcLabel;
    label->setType(QcLabel::Body);
    label->setText(tr("%1 has changes that are not saved.").arg(QFileInfo(m_path).fileName()));
    layout->addWidget(label);
    dialog.resize(420, 180);
    return Velmora::exec(&dialog, this) == QDialog::Accepted;
}

void Editor::closeEvent(QCloseEvent *event)
{
    const QPointer<Editor> alive = this;
    const bool mayClose = MayClose(); // a dialog runs: anything may have happened
    event->setAccepted(mayClose);
    if (alive && mayClose)
        document()->setModified(false); // whoever closes the window next does not ask again
}

void Editor::ShowTitle()
{
    // In the title of a panel a single & marks a key.
    const QString name = QFileInfo(m_path).fileName().replace(QLatin1Char('&'), QLatin1String("&&"));
    setWindowTitle(document()->isModified() ? name + QLatin1Char('*') : name);
}
