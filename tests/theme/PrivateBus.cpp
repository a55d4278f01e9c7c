#include "PrivateBus.h"

#include <QDir>
#include <QFile>

#include <csignal>

#include <sys/prctl.h>

namespace VelmoraTest {

namespace {

void Write(const QString &path, const QString &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content.toUtf8()) < 0)
        qFatal("cannot write %s", qPrintable(path));
}

} // namespace

PrivateBus::PrivateBus(const QString &activatedProgram)
{
    QString services;
    if (!activatedProgram.isEmpty()) {
        Write(m_folder.filePath(QStringLiteral("org.freedesktop.FileManager1.service")),
              QStringLiteral("[D-BUS Service]\nName=org.freedesktop.FileManager1\nExec=%1\n").arg(activatedProgram));
        services = QStringLiteral("<servicedir>%1</servicedir>").arg(m_folder.path());
    }
    const QString configuration = m_folder.filePath(QStringLiteral("session.conf"));
    Write(configuration,
          QStringLiteral("<busconfig><type>session</type><listen>unix:path=%1/bus</listen>%2"
                         "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
                         "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy>"
                         "</busconfig>")
              .arg(m_folder.path(), services));

    m_daemon.setStandardErrorFile(QProcess::nullDevice()); // it tells of limits of the machine that do not matter here
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--config-file=%1").arg(configuration), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead()) {
    }
    m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
}

PrivateBus::~PrivateBus()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
}

void PrivateBus::Daemon::Prepare()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

} // namespace VelmoraTest
