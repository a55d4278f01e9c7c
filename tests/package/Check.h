#pragma once

#include <cstdio>

/// How many checks failed: what main() returns.
inline int failures = 0;

inline void Check(bool condition, const char *what)
{
    if (condition)
        return;
    ++failures;
    std::fprintf(stderr, "not so: %s\n", what);
}
