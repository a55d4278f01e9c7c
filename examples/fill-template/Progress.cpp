#include "Progress.h"

#include "Log.h"

#include <chrono>

namespace FillTemplate {

Progress::Progress(bool quiet)
{
    if (!quiet)
        m_teller = std::thread(&Progress::Tell, this);
}

Progress::~Progress()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isEnded = true;
    }
    m_ended.notify_one();
    if (m_teller.joinable())
        m_teller.join();
}

void Progress::Step(const QString &what)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_step = what;
}

/// Of a thread of its own, because a single step may take long.
void Progress::Tell()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_ended.wait_for(lock, std::chrono::seconds(1), [this] { return m_isEnded; })) {
        if (m_step == m_told)
            continue;
        m_told = m_step;
        PrintError(m_told);
    }
}

} // namespace FillTemplate
