#include "PortedSteps.h"

QTEST_MAIN(PortedSteps) // the plain application of a program that knows nothing of the kit
