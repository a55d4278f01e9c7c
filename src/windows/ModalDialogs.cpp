#include <Velmora/ModalDialogs.h>

#include "windows/WindowParts_p.h"

#include <QDebug>
#include <QDialog>

namespace Velmora {

int exec(QDialog *dialog, QWidget *referenceWidget)
{
    if (!dialog || !referenceWidget) {
        qWarning() << "exec: dialog or referenceWidget is null";
        return -1;
    }
    const QWidget *window = referenceWidget->window();
    SettleSize(*dialog);
    dialog->move(window->mapToGlobal(window->rect().center()) - dialog->rect().center());
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
