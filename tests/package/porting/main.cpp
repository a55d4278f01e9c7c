// The sentences of the guide "From Qt Widgets to Velmora", tried.
#include "Ported.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    CheckProgram(); // it initializes the application
    CheckLooks();
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
