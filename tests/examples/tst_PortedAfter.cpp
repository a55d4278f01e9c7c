#include "PortedSteps.h"

#include "support/TestMain.h"

#include <Velmora/KeyboardCues.h>
#include <Velmora/PlainWidgets.h>

int main(int argc, char **argv)
{
    // As the program does.
    Velmora::SetKeyboardCuesEnabled(true);
    Velmora::SetPlainWidgetsFollowTable(true);
    return VelmoraTest::RunInApplication<PortedSteps>(argc, argv);
}
