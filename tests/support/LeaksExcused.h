#pragma once

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace VelmoraTest {

/// While it lives, what is allocated counts as no leak. For objects whose exceptions pass through Qt, which is built without unwinding: the
/// guarded pointers on its stack are never given back.
class LeaksExcused
{
public:
#if defined(__SANITIZE_ADDRESS__)
    LeaksExcused()
    {
        __lsan_disable();
    }
    ~LeaksExcused()
    {
        __lsan_enable();
    }
#else
    LeaksExcused() {}
    ~LeaksExcused() {}
#endif
    LeaksExcused(const LeaksExcused &) = delete;
    LeaksExcused &operator=(const LeaksExcused &) = delete;
};

} // namespace VelmoraTest
