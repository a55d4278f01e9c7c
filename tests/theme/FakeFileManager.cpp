#include "FakeFileManager.h"

#include <QDBusConnection>

namespace VelmoraTest {

bool FakeFileManager::Start(QDBusConnection bus)
{
    return bus.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), this, QDBusConnection::ExportAllSlots)
        && bus.registerService(QStringLiteral("org.freedesktop.FileManager1"));
}

void FakeFileManager::Stop(QDBusConnection bus)
{
    bus.unregisterService(QStringLiteral("org.freedesktop.FileManager1"));
    bus.unregisterObject(QStringLiteral("/org/freedesktop/FileManager1"));
}

void FakeFileManager::AnswerHeldCalls(QDBusConnection bus)
{
    for (const QDBusMessage &call : qAsConst(m_held))
        bus.send(call.createReply());
    m_held.clear();
}

void FakeFileManager::FailHeldCalls(QDBusConnection bus)
{
    for (const QDBusMessage &call : qAsConst(m_held))
        bus.send(call.createErrorReply(QDBusError::Failed, QStringLiteral("nothing to show it on")));
    m_held.clear();
}

void FakeFileManager::Take(const QString &method, const QStringList &uris, const QString &startupId)
{
    m_calls.append(QStringLiteral("%1 %2 [%3]").arg(method, uris.join(QLatin1Char(' ')), startupId));
    if (m_answer == Answer::Error)
        sendErrorReply(QDBusError::Failed, QStringLiteral("nothing to show it on"));
    if (m_answer == Answer::Held) {
        setDelayedReply(true);
        m_held.append(message());
    }
    Q_EMIT Called(message().service());
}

} // namespace VelmoraTest
