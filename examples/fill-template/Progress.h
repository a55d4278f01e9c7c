#pragma once

#include <QString>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace FillTemplate {

/// Tells on the standard error what the program is at, once that has taken a second, and no more often than each second.
class Progress
{
public:
    /// A \a quiet one tells nothing.
    explicit Progress(bool quiet);
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;
    ~Progress();

    /// Says what begins now.
    void Step(const QString &what);

private:
    void Tell();

    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_isEnded = false;
    QString m_step;
    QString m_told;
    std::thread m_teller;
};

} // namespace FillTemplate
