#pragma once

namespace VelmoraTest {

/// A command line for tests that make their own application object. It outlives them all, as Qt asks.
struct CommandLine
{
    char name[5] = "test";
    char *values[2] = {name, nullptr};
    int count = 1;
};

inline CommandLine commandLine;

} // namespace VelmoraTest
