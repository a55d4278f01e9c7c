#include <Velmora/ModalDialogs.h>

#include "windows/WindowParts_p.h"

#include <QDebug>
#include <QDialog>
#include <QPointer>

namespace Velmora {

int exec(QDialog *dialog, QWidget *referenceWidget)
{
    if (!dialog || !referenceWidget) {
        qWarning() << "exec: dialog or referenceWidget is null";
        return -1;
    }
    // Asked for first: while the dialog takes its size, its host may do away with the reference.
    const QPointer<const QWidget> window(referenceWidget->window());
    const QPoint centre = window->mapToGlobal(window->rect().center());
    SettleSize(*dialog);
    if (window)
        BelongOver(*dialog, *window);
    dialog->move(centre - dialog->rect().center());
    return dialog->exec();
}

void showModal(QDialog *dialog, QWidget * /*referenceWidget*/)
{
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->show();
}

void hideModal(QDialog *dialog, QWidget * /*referenceWidget*/)
{
    dialog->hide();
}

} // namespace Velmora
