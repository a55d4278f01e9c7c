#pragma once

#include "support/PreparedProcess.h"

#include <QTemporaryDir>

namespace VelmoraTest {

/// A session bus of the test's own, on which nothing runs that the test has not put there. It ends with this object or with the
/// test's process, however that ends.
class PrivateBus
{
public:
    /// \a activatedProgram, with its arguments, is what the bus starts when somebody asks for the file manager service.
    explicit PrivateBus(const QString &activatedProgram = QString());
    ~PrivateBus();

    /// Empty if the bus could not be started.
    QString Address() const { return m_address; }

private:
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    class Daemon : public PreparedProcess
    {
    protected:
        void Prepare() override;
    };

    QTemporaryDir m_folder;
    Daemon m_daemon;
    QString m_address;
};

} // namespace VelmoraTest
