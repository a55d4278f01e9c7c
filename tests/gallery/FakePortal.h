#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMap>
#include <QVariant>

namespace VelmoraTest {

/// A settings portal that says what a test lets it say.
class FakePortal : public QDBusVirtualObject
{
    Q_OBJECT

public:
    enum class Age {
        New, ///< knows ReadOne()
        Old, ///< knows Read() only, which wraps a value twice
    };

    /// On the bus at \a address, with a connection of its own.
    explicit FakePortal(const QString &address);
    ~FakePortal() override;

    /// The answer for \a key; without any the portal says that there is no such setting.
    void SetAnswer(const QString &key, const QVariant &value) { m_answers[key] = value; }
    void SetAge(Age age) { m_age = age; }
    /// No answers until AnswerHeldCalls().
    void HoldCalls() { m_isHolding = true; }
    void AnswerHeldCalls();
    /// Says that a setting has changed, in so many arguments.
    void Announce(const QVariantList &arguments);

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    void Answer(const QDBusMessage &call);

    QDBusConnection m_bus;
    QMap<QString, QVariant> m_answers;
    Age m_age = Age::New;
    bool m_isHolding = false;
    QList<QDBusMessage> m_held;
};

} // namespace VelmoraTest
