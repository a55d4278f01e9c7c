#include <Velmora/ContextProvider.h>

namespace Velmora {

ContextProvider::ContextProvider(QObject * /*parent*/) {}

ContextProvider::ContextProvider(const ContextProvider &) = default;

ContextProvider &ContextProvider::operator=(const ContextProvider &) = default;

ContextProvider::~ContextProvider() = default;

void ContextProvider::setContextProviderName(const QString &name)
{
    m_contextProviderName = name;
}

QString ContextProvider::getContextProviderName()
{
    return m_contextProviderName;
}

void ContextProvider::setContextProperty(const QString &key, const QVariant &value)
{
    m_contextProperties[key] = value;
}

void ContextProvider::updateContextProperty(const QString &key, const QVariant &value)
{
    setContextProperty(key, value);
}

bool ContextProvider::hasContextProperty(const QString &key) const
{
    return m_contextProperties.contains(key);
}

QVariant ContextProvider::contextProperty(const QString &key)
{
    return m_contextProperties.value(key);
}

} // namespace Velmora
