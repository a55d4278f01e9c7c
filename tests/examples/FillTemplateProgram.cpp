#include "FillTemplateProgram.h"

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>

namespace VelmoraTest {

FillTemplateProgram::FillTemplateProgram(const QStringList &arguments)
{
    setProgram(QStringLiteral(FILL_TEMPLATE_PROGRAM));
    setArguments(arguments);
}

int FillTemplateProgram::Run()
{
    start();
    const bool ended = waitForFinished(60000);
    m_output = readAllStandardOutput();
    m_errors = readAllStandardError();
    return ended && exitStatus() == NormalExit ? exitCode() : -1;
}

void FillTemplateProgram::Prepare()
{
    // As root, permissions would not hold. For anybody else there is nothing to drop.
    prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
    if (m_fileSize >= 0) {
        const rlimit limit = {rlim_t(m_fileSize), rlim_t(m_fileSize)};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
}

} // namespace VelmoraTest
