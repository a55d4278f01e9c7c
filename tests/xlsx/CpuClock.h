#pragma once

#include <ctime>

namespace VelmoraTest {

/// The processor time of this program alone, however busy the machine is.
class CpuClock
{
public:
    int Milliseconds() const { return int(double(std::clock() - m_begin) * 1000 / CLOCKS_PER_SEC); }
    /// Sanitizers are given more time.
    bool IsWithin(int milliseconds) const { return Milliseconds() < milliseconds * kFactor; }

private:
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    static constexpr int kFactor = 10;
#else
    static constexpr int kFactor = 1;
#endif
    std::clock_t m_begin = std::clock();
};

} // namespace VelmoraTest
