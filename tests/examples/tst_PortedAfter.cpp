#include "PortedSteps.h"

#include "support/TestMain.h"

#include <Velmora/KeyboardCues.h>

int main(int argc, char **argv)
{
    Velmora::SetKeyboardCuesEnabled(true); // as the program does
    return VelmoraTest::RunInApplication<PortedSteps>(argc, argv);
}
