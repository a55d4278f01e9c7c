#include <Velmora/ContextConsumer.h>
#include <Velmora/ContextProvider.h>

#include <QObject>

namespace Velmora {

namespace {

/// The nearest provider above \a consumer that \a accepts, or null.
template <typename Predicate>
ContextProvider *NearestProvider(const ContextConsumer *consumer, Predicate accepts)
{
    const auto *object = dynamic_cast<const QObject *>(consumer);
    if (!object)
        return nullptr;
    for (QObject *ancestor = object->parent(); ancestor; ancestor = ancestor->parent()) {
        auto *provider = dynamic_cast<ContextProvider *>(ancestor);
        if (provider && accepts(*provider))
            return provider;
    }
    return nullptr;
}

ContextProvider *NearestProviderOf(const ContextConsumer *consumer, const QString &key)
{
    return NearestProvider(consumer, [&key](const ContextProvider &provider) { return provider.hasContextProperty(key); });
}

} // namespace

ContextConsumer::ContextConsumer() = default;

ContextConsumer::ContextConsumer(const ContextConsumer &) = default;

ContextConsumer &ContextConsumer::operator=(const ContextConsumer &) = default;

ContextConsumer::~ContextConsumer() = default;

ContextProvider *ContextConsumer::findContextProvider() const
{
    return NearestProvider(this, [](const ContextProvider &) { return true; });
}

ContextProvider *ContextConsumer::findContextProvider(const QString &name) const
{
    return NearestProvider(this, [&name](ContextProvider &provider) { return provider.getContextProviderName() == name; });
}

bool ContextConsumer::hasContextProperty(const QString &key) const
{
    return NearestProviderOf(this, key) != nullptr;
}

QVariant ContextConsumer::contextProperty(const QString &key)
{
    ContextProvider *provider = NearestProviderOf(this, key);
    return provider ? provider->contextProperty(key) : QVariant();
}

} // namespace Velmora
