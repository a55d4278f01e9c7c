#pragma once

#include "support/PreparedProcess.h"
#include <QByteArray>

#include <QStringList>

namespace VelmoraTest {

/// One run of fill-template.
class FillTemplateProgram : public PreparedProcess
{
    Q_OBJECT

public:
    explicit FillTemplateProgram(const QStringList &arguments);

    /// Files cannot grow beyond this many bytes: what a full disk is to a program.
    void LimitFileSize(qint64 bytes) { m_fileSize = bytes; }

    /// Runs it to its end and gives its exit status, -1 if it did not end by itself.
    int Run();
    QByteArray Output() const { return m_output; }
    QByteArray Errors() const { return m_errors; }

private:
    void Prepare() override;

    qint64 m_fileSize = -1;
    QByteArray m_output;
    QByteArray m_errors;
};

} // namespace VelmoraTest
