#pragma once

#include <QtGlobal>

namespace VelmoraTest {

/// The positive number in the environment variable \a name, or \a otherwise: for runs that are longer than those of every build.
inline int NumberFromEnvironment(const char *name, int otherwise)
{
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber && number > 0 ? number : otherwise;
}

} // namespace VelmoraTest
