#pragma once

#include <ctime>

namespace VelmoraTest {

/// What this program alone has taken of the processors since it was made, in milliseconds, however busy the machine is.
class ProcessorTime
{
public:
    double Elapsed() const { return double(std::clock() - m_begin) * 1000 / CLOCKS_PER_SEC; }

private:
    std::clock_t m_begin = std::clock();
};

} // namespace VelmoraTest
