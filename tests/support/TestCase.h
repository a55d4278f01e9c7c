#pragma once

#include "support/LogGuard.h"

#include <QObject>
#include <QSet>
#include <QString>
#include <QTest>

#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace VelmoraTest {

/// Handles all events, posted calls and deferred deletions that are due, those that they cause included.
/// For "nothing happens": drain, then assert.
void DrainEvents();

/// The base of every test class. A log line that the test did not announce fails it, and so does a top-level widget left behind.
class TestCase : public QObject
{
    Q_OBJECT

protected:
    LogGuard &Log() { return *m_log; }
    void ExpectWarning(const QString &text) { m_log->Expect(QtWarningMsg, text); }

    /// Run before and after each test function.
    virtual void SetUp() {}
    virtual void TearDown() {}

private Q_SLOTS:
    void init();
    void cleanup();

private:
    std::unique_ptr<LogGuard> m_log;
    QSet<QWidget *> m_widgetsBefore; // such as those of a singleton, which no test function leaves behind
};

} // namespace VelmoraTest
