#include "support/LogGuard.h"

#include <QMutex>
#include <QMutexLocker>
#include <QRegularExpression>

namespace VelmoraTest {

namespace {

struct Announcement
{
    QtMsgType type;
    QString text;
    bool isPattern;

    bool Meets(QtMsgType lineType, const QString &line) const
    {
        if (lineType != type)
            return false;
        return isPattern ? QRegularExpression(QRegularExpression::anchoredPattern(text)).match(line).hasMatch() : line == text;
    }
};

struct State
{
    QMutex mutex;
    QtMessageHandler previous = nullptr;
    QList<Announcement> announcements;
    QStringList announced;
    QStringList unannounced;
};

State &TheState()
{
    static State state;
    return state;
}

/// The offscreen platform says this for every window with a size hint or that is docked, every tip and every menu; it concerns the platform
/// and no test.
bool IsPlatformNoise(const QString &line)
{
    return line == QLatin1String("This plugin does not support propagateSizeHints()")
        || line == QLatin1String("This plugin does not support raise()") || line == QLatin1String("This plugin does not support setParent!")
        || line == QLatin1String("This plugin does not support grabbing the keyboard");
}

/// QtTest says this of a mouse that is let go outside of the window it was pressed in, as at the end of a drag: with Qt 6 in the log.
bool IsMouseOutside(const QString &line)
{
    return line.startsWith(QLatin1String("Mouse event at ")) && line.contains(QLatin1String(" occurs outside target window "));
}

/// Any task may be late on a busy machine; that a slow one is reported has a test that announces it.
bool IsSlowMachine(const QString &line)
{
    return line.startsWith(QLatin1String("QcTaskDispatcher::ExecuteTask: ")) && line.contains(QLatin1String(" elapsed: "));
}

void Handle(QtMsgType type, const QMessageLogContext &context, const QString &line)
{
    State &state = TheState();
    if (IsPlatformNoise(line) || IsMouseOutside(line))
        return;
    {
        const QMutexLocker lock(&state.mutex);
        for (int i = 0; i < state.announcements.size(); ++i) {
            if (state.announcements.at(i).Meets(type, line)) {
                state.announcements.removeAt(i);
                state.announced.append(line);
                return;
            }
        }
        if (!IsSlowMachine(line))
            state.unannounced.append(line);
    }
    if (state.previous)
        state.previous(type, context, line);
}

} // namespace

LogGuard::LogGuard()
{
    TheState().previous = qInstallMessageHandler(Handle);
}

LogGuard::~LogGuard()
{
    qInstallMessageHandler(TheState().previous);
}

void LogGuard::Expect(QtMsgType type, const QString &text)
{
    const QMutexLocker lock(&TheState().mutex);
    TheState().announcements.append({type, text, false});
}

void LogGuard::ExpectMatch(QtMsgType type, const QString &pattern)
{
    const QMutexLocker lock(&TheState().mutex);
    TheState().announcements.append({type, pattern, true});
}

QStringList LogGuard::TakeFaults()
{
    State &state = TheState();
    const QMutexLocker lock(&state.mutex);
    QStringList faults;
    for (const QString &line : qAsConst(state.unannounced))
        faults.append(QStringLiteral("not announced: %1").arg(line));
    for (const Announcement &announcement : qAsConst(state.announcements))
        faults.append(QStringLiteral("announced, but never logged: %1").arg(announcement.text));
    state.unannounced.clear();
    state.announcements.clear();
    state.announced.clear();
    return faults;
}

QStringList LogGuard::Announced() const
{
    const QMutexLocker lock(&TheState().mutex);
    return TheState().announced;
}

} // namespace VelmoraTest
