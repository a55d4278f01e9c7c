#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace VelmoraTest {

/// Catches every log line while it lives, from every thread: what a test did not announce is a fault.
/// (QTest::ignoreMessage() tells nobody else what it ignores, hence our own list.)
class LogGuard
{
public:
    LogGuard();
    ~LogGuard();

    /// Announces one line of \a type whose whole text is \a text. Each announcement stands for exactly one line.
    void Expect(QtMsgType type, const QString &text);
    /// Announces one line of \a type whose text matches the regular expression \a pattern as a whole.
    void ExpectMatch(QtMsgType type, const QString &pattern);

    /// What is wrong: lines that nobody announced, announcements that no line met. Empty if nothing is. Resets the guard.
    QStringList TakeFaults();
    /// The lines that met an announcement, in their order, since the last TakeFaults().
    QStringList Announced() const;

private:
    LogGuard(const LogGuard &) = delete;
    LogGuard &operator=(const LogGuard &) = delete;
};

} // namespace VelmoraTest
