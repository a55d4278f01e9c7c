#include "xlsx/XlsxTestCase.h"

#include <csignal>
#include <ctime>

#include <sys/wait.h>
#include <unistd.h>

namespace VelmoraTest {

void XlsxTestCase::Prepare(Velmora::XlsxOperator &op) const
{
    op.setOldXlsxAbsolutePath(TemplatePath());
    op.setExtractDirAbsolutePath(WorkPath());
    op.setNewXlsxAbsolutePath(OutputPath());
}

bool XlsxTestCase::Load(Velmora::XlsxOperator &op, const Template &source)
{
    return Load(op, source.Archive());
}

bool XlsxTestCase::Load(Velmora::XlsxOperator &op, const QByteArray &archive)
{
    WriteFile(TemplatePath(), archive);
    Prepare(op);
    return op.load();
}

int XlsxTestCase::InChild(rlim_t fileBytes, const std::function<bool()> &body)
{
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{fileBytes, fileBytes};
        setrlimit(RLIMIT_FSIZE, &limit);
        constexpr uid_t kNobody = 65534;
        if (getuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0))
            _exit(2);
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        _exit(body() ? 1 : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

double XlsxTestCase::CpuSeconds(const std::function<void()> &work)
{
    const std::clock_t before = std::clock();
    work();
    return double(std::clock() - before) / CLOCKS_PER_SEC;
}

QByteArray XlsxTestCase::Saved(const Template &source, const std::function<void(Velmora::XlsxOperator &)> &edit, const QByteArray &begin,
                               const QByteArray &end)
{
    Velmora::XlsxOperator op;
    if (!Load(op, source))
        return "not loaded";
    edit(op);
    return op.save() ? OutputBetween(kSheet1, begin, end) : QByteArray("not saved");
}

QByteArray XlsxTestCase::OutputBetween(const QByteArray &name, const QByteArray &begin, const QByteArray &end) const
{
    const QByteArray content = Output().value(name);
    const auto from = content.indexOf(begin);
    const auto to = content.indexOf(end, from + begin.size());
    return from < 0 || to < 0 ? QByteArray("<not found>") : content.mid(from + begin.size(), to - from - begin.size());
}

} // namespace VelmoraTest
