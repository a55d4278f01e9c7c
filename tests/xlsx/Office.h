#pragma once

#include <QDebug>
#include <QProcess>
#include <QStringList>

namespace VelmoraTest {

/// What office.py prints.
inline QByteArray Office(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral("/usr/bin/python3"), QStringList{QStringLiteral(OFFICE_SCRIPT)} + arguments);
    if (!process.waitForFinished(300000) || process.exitCode() != 0)
        qWarning().noquote() << arguments << process.readAllStandardError();
    return process.readAllStandardOutput();
}

} // namespace VelmoraTest
