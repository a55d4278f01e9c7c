#pragma once

#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>

#include "support/TestCase.h"
#include "support/Tokens.h"

#include <QTest>

namespace VelmoraTest {

/// Runs \a Class in an application that a host has started as it should: light table, Initialize().
template <typename Class>
int RunInApplication(int argc, char **argv)
{
    Velmora::QcApplication application(argc, argv);
    LogGuard quiet; // the start-up facts have a test of their own
    UseTable(Table::Light);
    application.Initialize();
    quiet.TakeFaults();
    Class test;
    return QTest::qExec(&test, argc, argv);
}

/// Runs \a Class without any application object: the test makes its own.
template <typename Class>
int RunBare(int argc, char **argv)
{
    Class test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace VelmoraTest

#define VELMORA_TEST_MAIN(Class) \
    int main(int argc, char **argv) \
    { \
        return VelmoraTest::RunInApplication<Class>(argc, argv); \
    }

#define VELMORA_BARE_TEST_MAIN(Class) \
    int main(int argc, char **argv) \
    { \
        return VelmoraTest::RunBare<Class>(argc, argv); \
    }
