#pragma once

#include <Velmora/VelmoraExport.h>

#include <QMap>
#include <QString>
#include <QVariant>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

namespace Velmora {

/// Offers named values to every object below it in the QObject parent tree.
///
/// Mix it into a class that also derives from QObject: a ContextConsumer finds its providers by
/// walking QObject::parent() and converting each ancestor. A provider belongs to the thread of that object.
/// Values are read when asked for; storing one notifies nobody, and no key is ever removed.
class VELMORA_EXPORT ContextProvider
{
public:
    /// Creates a provider with an empty name and no values. \a parent is neither used nor stored.
    explicit ContextProvider(QObject *parent);
    ContextProvider(const ContextProvider &);
    ContextProvider &operator=(const ContextProvider &);
    virtual ~ContextProvider();

    void setContextProviderName(const QString &name);
    QString getContextProviderName();

    /// Stores \a value under \a key, replacing an earlier one. An invalid value is stored too.
    void setContextProperty(const QString &key, const QVariant &value);
    /// The same as setContextProperty(): a missing key is inserted.
    void updateContextProperty(const QString &key, const QVariant &value);
    bool hasContextProperty(const QString &key) const;
    /// The value stored under \a key, or an invalid QVariant.
    QVariant contextProperty(const QString &key);

private:
    QString m_contextProviderName;
    QMap<QString, QVariant> m_contextProperties;
};

} // namespace Velmora
