#include "FakePortal.h"

#include <QDBusError>
#include <QDBusVariant>

namespace VelmoraTest {

namespace {

const QString kName = QStringLiteral("portal");
const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");

} // namespace

FakePortal::FakePortal(const QString &address)
    : m_bus(QDBusConnection::connectToBus(address, kName))
{
    if (!m_bus.registerVirtualObject(kPath, this) || !m_bus.registerService(kService))
        qWarning("the portal cannot be put on the bus");
}

FakePortal::~FakePortal()
{
    m_bus.unregisterService(kService);
    m_bus.unregisterObject(kPath);
    QDBusConnection::disconnectFromBus(kName);
}

void FakePortal::AnswerHeldCalls()
{
    m_isHolding = false;
    for (const QDBusMessage &call : qAsConst(m_held))
        Answer(call);
    m_held.clear();
}

void FakePortal::Announce(const QVariantList &arguments)
{
    QDBusMessage signal = QDBusMessage::createSignal(kPath, kInterface, QStringLiteral("SettingChanged"));
    signal.setArguments(arguments);
    m_bus.send(signal);
}

QString FakePortal::introspect(const QString & /*path*/) const
{
    return QString();
}

bool FakePortal::handleMessage(const QDBusMessage &message, const QDBusConnection & /*connection*/)
{
    if (message.interface() != kInterface)
        return false;
    if (m_isHolding)
        m_held.append(message);
    else
        Answer(message);
    return true;
}

void FakePortal::Answer(const QDBusMessage &call)
{
    const bool isOld = m_age == Age::Old;
    if (call.member() != (isOld ? QStringLiteral("Read") : QStringLiteral("ReadOne"))) {
        m_bus.send(call.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("no such method")));
        return;
    }
    const QString key = call.arguments().value(1).toString();
    if (call.arguments().value(0) != QLatin1String("org.freedesktop.appearance") || !m_answers.contains(key)) {
        m_bus.send(call.createErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"), QStringLiteral("no such setting")));
        return;
    }
    QVariant value = QVariant::fromValue(QDBusVariant(m_answers.value(key)));
    if (isOld)
        value = QVariant::fromValue(QDBusVariant(value));
    m_bus.send(call.createReply(value));
}

} // namespace VelmoraTest
