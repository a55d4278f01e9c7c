#pragma once

#include <QProcess>

namespace VelmoraTest {

/// A process that prepares itself before its program begins.
class PreparedProcess : public QProcess
{
protected:
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0) // takes a function in place of the virtual one
    PreparedProcess()
    {
        setChildProcessModifier([this] { Prepare(); });
    }
#else
    void setupChildProcess() override
    {
        Prepare();
    }
#endif

    /// In the new process.
    virtual void Prepare() = 0;
};

} // namespace VelmoraTest
