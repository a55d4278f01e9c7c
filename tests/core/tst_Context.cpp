#include "support/TestMain.h"

#include <Velmora/ContextConsumer.h>
#include <Velmora/ContextProvider.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSecondaryButton.h>

using namespace Velmora;

namespace {

class Provider : public QObject, public ContextProvider
{
public:
    explicit Provider(QObject *parent = nullptr)
        : QObject(parent)
        , ContextProvider(parent)
    {
    }
};

class Consumer : public QObject, public ContextConsumer
{
public:
    explicit Consumer(QObject *parent = nullptr)
        : QObject(parent)
    {
    }
};

class Both : public QObject, public ContextProvider, public ContextConsumer
{
public:
    explicit Both(QObject *parent = nullptr)
        : QObject(parent)
        , ContextProvider(parent)
    {
    }
    using ContextConsumer::contextProperty;
    using ContextConsumer::hasContextProperty;
    void Offer(const QString &key, const QVariant &value) { ContextProvider::setContextProperty(key, value); }
};

const QString kKey = QStringLiteral("key");

} // namespace

class tst_Context : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_consumer_without_a_parent_finds_nothing()
    {
        Consumer consumer;
        QVERIFY(!consumer.findContextProvider());
        QVERIFY(!consumer.findContextProvider(QString()));
        QVERIFY(!consumer.hasContextProperty(kKey));
        QVERIFY(!consumer.contextProperty(kKey).isValid());
    }

    void a_consumer_that_is_no_object_finds_nothing()
    {
        ContextConsumer consumer;
        QVERIFY(!consumer.findContextProvider());
        QVERIFY(!consumer.findContextProvider(QString()));
        QVERIFY(!consumer.hasContextProperty(kKey));
        QVERIFY(!consumer.contextProperty(kKey).isValid());
    }

    void the_nearest_provider_with_the_key_gives_the_value()
    {
        Provider outer;
        outer.setContextProperty(kKey, 1);
        Provider inner(&outer);
        QObject between(&inner);
        Consumer consumer(&between);
        QCOMPARE(consumer.contextProperty(kKey), QVariant(1));
        QVERIFY(consumer.hasContextProperty(kKey));
        QCOMPARE(consumer.findContextProvider(), static_cast<ContextProvider *>(&inner));

        inner.setContextProperty(kKey, 2);
        QCOMPARE(consumer.contextProperty(kKey), QVariant(2));
    }

    void a_provider_is_found_by_its_exact_name()
    {
        Provider outer;
        outer.setContextProviderName(QStringLiteral("Theme"));
        Provider inner(&outer);
        inner.setContextProviderName(QStringLiteral("theme"));
        Consumer consumer(&inner);
        QCOMPARE(inner.getContextProviderName(), QStringLiteral("theme"));
        QCOMPARE(consumer.findContextProvider(QStringLiteral("Theme")), static_cast<ContextProvider *>(&outer));
        QCOMPARE(consumer.findContextProvider(QStringLiteral("theme")), static_cast<ContextProvider *>(&inner));
        QVERIFY(!consumer.findContextProvider(QStringLiteral("them")));
    }

    void a_provider_without_a_name_is_found_by_the_empty_name()
    {
        Provider provider;
        QVERIFY(provider.getContextProviderName().isEmpty());
        Consumer consumer(&provider);
        QCOMPARE(consumer.findContextProvider(QLatin1String("")), static_cast<ContextProvider *>(&provider));
    }

    void the_object_itself_is_not_examined()
    {
        Both both;
        both.Offer(kKey, 1);
        QVERIFY(!both.hasContextProperty(kKey));
        QVERIFY(!both.contextProperty(kKey).isValid());
        QVERIFY(!both.findContextProvider());
    }

    void an_invalid_value_is_stored_all_the_same()
    {
        Provider provider;
        provider.setContextProperty(kKey, QVariant());
        Consumer consumer(&provider);
        QVERIFY(provider.hasContextProperty(kKey));
        QVERIFY(consumer.hasContextProperty(kKey));
        QVERIFY(!consumer.contextProperty(kKey).isValid());
    }

    void an_invalid_value_hides_a_further_provider()
    {
        Provider outer;
        outer.setContextProperty(kKey, 1);
        Provider inner(&outer);
        inner.setContextProperty(kKey, QVariant());
        Consumer consumer(&inner);
        QVERIFY(!consumer.contextProperty(kKey).isValid());
    }

    void update_inserts_and_replaces_as_set_does()
    {
        Provider provider;
        Consumer consumer(&provider);
        provider.updateContextProperty(kKey, 1);
        QCOMPARE(consumer.contextProperty(kKey), QVariant(1));
        provider.updateContextProperty(kKey, 2);
        QCOMPARE(consumer.contextProperty(kKey), QVariant(2));
        provider.setContextProperty(kKey, 3);
        QCOMPARE(consumer.contextProperty(kKey), QVariant(3));
        QVERIFY(!provider.hasContextProperty(QStringLiteral("Key")));
        QVERIFY(!provider.contextProperty(QStringLiteral("Key")).isValid());
    }

    void a_copy_has_the_members()
    {
        ContextProvider provider(nullptr);
        provider.setContextProviderName(QStringLiteral("name"));
        provider.setContextProperty(kKey, 7);
        ContextProvider copy(provider);
        QCOMPARE(copy.getContextProviderName(), QStringLiteral("name"));
        QCOMPARE(copy.contextProperty(kKey), QVariant(7));
        ContextProvider assigned(nullptr);
        assigned = provider;
        provider.setContextProperty(kKey, 8);
        QCOMPARE(assigned.getContextProviderName(), QStringLiteral("name"));
        QCOMPARE(assigned.contextProperty(kKey), QVariant(7));
    }

    void a_consumer_moved_to_another_parent_reads_there()
    {
        Provider first;
        first.setContextProperty(kKey, 1);
        Provider second;
        second.setContextProperty(kKey, 2);
        auto *consumer = new Consumer(&first);
        QCOMPARE(consumer->contextProperty(kKey), QVariant(1));
        consumer->setParent(&second);
        QCOMPARE(consumer->contextProperty(kKey), QVariant(2));
    }

    void primary_and_secondary_buttons_are_consumers()
    {
        class Panel : public QWidget, public ContextProvider
        {
        public:
            Panel()
                : ContextProvider(nullptr)
            {
            }
        } panel;
        panel.setContextProperty(kKey, 5);
        auto *primary = new QcPrimaryButton(&panel);
        auto *secondary = new QcSecondaryButton(&panel);
        QCOMPARE(primary->contextProperty(kKey), QVariant(5));
        QVERIFY(secondary->hasContextProperty(kKey));
        QCOMPARE(secondary->findContextProvider(), static_cast<ContextProvider *>(&panel));
    }
};

VELMORA_TEST_MAIN(tst_Context)
#include "tst_Context.moc"
