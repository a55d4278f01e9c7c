#pragma once

#include <Velmora/VelmoraExport.h>

#include <QString>
#include <QVariant>

namespace Velmora {

class ContextProvider;

/// Reads the named values that the ContextProviders among its ancestors offer.
///
/// Mix it into a class that also derives from QObject; in any other class every operation gives its empty
/// result. Each call walks QObject::parent() anew, nearest ancestor first, so it must be made on the
/// object's own thread. The object itself is never examined, even if it is a provider too.
class VELMORA_EXPORT ContextConsumer
{
public:
    ContextConsumer();
    ContextConsumer(const ContextConsumer &);
    ContextConsumer &operator=(const ContextConsumer &);
    virtual ~ContextConsumer();

    /// The nearest provider, or null. It stays owned by whoever owns it.
    ContextProvider *findContextProvider() const;
    /// The nearest provider whose name equals \a name exactly, or null.
    ContextProvider *findContextProvider(const QString &name) const;
    /// True if any provider above has \a key.
    bool hasContextProperty(const QString &key) const;
    /// The value of the nearest provider that has \a key, or an invalid QVariant.
    /// A nearer provider without the key does not hide a further one.
    QVariant contextProperty(const QString &key);
};

} // namespace Velmora
