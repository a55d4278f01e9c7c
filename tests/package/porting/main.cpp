// The sentences of the guide "From Qt Widgets to Velmora", tried.
#include "Ported.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>

#include <QCursor>

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    QCursor::setPos(1900, 1900); // the offscreen platform of Qt 6 hovers what shows under the mouse
    CheckProgram();              // it initializes the application
    CheckLooks();
    CheckClasses();
    CheckButtons();
    CheckLabels();
    CheckFields();
    CheckForms();
    CheckRows();
    CheckWindows();
    CheckDialogs();
    CheckIcons();
    return failures;
}
