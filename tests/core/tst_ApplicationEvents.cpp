#include "core/ApplicationEvents_p.h"
#include "support/CommandLine.h"
#include "support/TestMain.h"

#include <atomic>
#include <cstdlib>
#include <new>

// A list that keeps its dead is told by what it holds on to.
namespace {
std::atomic<int> allocatedBlocks = 0;
}

void *operator new(std::size_t size)
{
    void *block = std::malloc(size ? size : 1);
    if (!block)
        throw std::bad_alloc();
    ++allocatedBlocks;
    return block;
}

void operator delete(void *block) noexcept
{
    if (block)
        --allocatedBlocks;
    std::free(block);
}

void operator delete(void *block, std::size_t) noexcept
{
    operator delete(block);
}

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr auto kFirst = QEvent::Type(QEvent::User + 1);
constexpr auto kSecond = QEvent::Type(QEvent::User + 2);
constexpr auto kThird = QEvent::Type(QEvent::User + 3);

/// Notes each call under its name, then does what it was told.
class Watcher : public QObject
{
public:
    Watcher(QChar name, QString *calls)
        : m_name(name)
        , m_calls(calls)
    {
    }

    bool consumes = false;
    std::function<void(QObject *, QEvent *)> then;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        m_calls->append(m_name);
        const bool result = consumes;
        if (then) {
            const auto action = then; // it may delete this watcher
            action(watched, event);
        }
        return result;
    }

private:
    QChar m_name;
    QString *m_calls;
};

/// Counts what reaches it.
class Target : public QObject
{
public:
    int received = 0;

protected:
    bool event(QEvent *event) override
    {
        ++received;
        return QObject::event(event);
    }
};

void Send(QObject &target, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(&target, &event);
}

} // namespace

class tst_ApplicationEvents : public TestCase
{
    Q_OBJECT

private:
    std::unique_ptr<QApplication> m_application;
    QString m_calls;

    std::unique_ptr<Watcher> Watch(char name, std::initializer_list<QEvent::Type> types)
    {
        auto watcher = std::make_unique<Watcher>(QLatin1Char(name), &m_calls);
        WatchApplicationEvents(watcher.get(), types);
        return watcher;
    }

    void SetUp() override
    {
        m_calls.clear();
        m_application = std::make_unique<QApplication>(commandLine.count, commandLine.values);
    }
    void TearDown() override { m_application.reset(); }

private Q_SLOTS:
    void only_the_asked_types_are_handed_on()
    {
        const auto a = Watch('a', {kFirst, kSecond});
        const auto b = Watch('b', {kThird});
        Target target;
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("a"));
        Send(target, kSecond);
        QCOMPARE(m_calls, QStringLiteral("aa"));
        Send(target, kThird);
        QCOMPARE(m_calls, QStringLiteral("aab"));
        Send(target, QEvent::Type(QEvent::User + 4));
        QCOMPARE(m_calls, QStringLiteral("aab"));
        QCOMPARE(target.received, 4);
    }

    void the_watcher_is_told_object_and_event()
    {
        const auto a = Watch('a', {kFirst});
        Target target;
        QObject *seenObject = nullptr;
        QEvent *seenEvent = nullptr;
        a->then = [&](QObject *watched, QEvent *event) {
            seenObject = watched;
            seenEvent = event;
        };
        QEvent event(kFirst);
        QCoreApplication::sendEvent(&target, &event);
        QCOMPARE(seenObject, &target);
        QCOMPARE(seenEvent, &event);
    }

    void the_later_watcher_is_called_first()
    {
        const auto a = Watch('a', {kFirst});
        const auto b = Watch('b', {kFirst});
        const auto c = Watch('c', {kFirst});
        Target target;
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("cba"));
        QCOMPARE(target.received, 1);
    }

    void a_consumed_event_goes_no_further()
    {
        const auto a = Watch('a', {kFirst});
        const auto b = Watch('b', {kFirst});
        const auto c = Watch('c', {kFirst});
        b->consumes = true;
        Target target;
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("cb"));
        QCOMPARE(target.received, 0);
    }

    void a_dead_watcher_is_forgotten()
    {
        const auto a = Watch('a', {kFirst});
        auto b = Watch('b', {kFirst});
        b.reset();
        Target target;
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("a"));
    }

    void a_watcher_may_delete_itself()
    {
        const auto a = Watch('a', {kFirst});
        auto b = Watch('b', {kFirst});
        b->then = [&b](QObject *, QEvent *) { b.reset(); };
        Target target;
        Send(target, kFirst);
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("baa"));
    }

    void a_watcher_may_delete_one_that_is_still_to_come()
    {
        auto a = Watch('a', {kFirst});
        const auto b = Watch('b', {kFirst});
        b->then = [&a](QObject *, QEvent *) { a.reset(); };
        Target target;
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("b"));
        QCOMPARE(target.received, 1);
    }

    void watchers_added_meanwhile_see_the_next_event()
    {
        const auto a = Watch('a', {kFirst});
        std::vector<std::unique_ptr<Watcher>> added;
        a->then = [&](QObject *, QEvent *) {
            // Many, so that the list grows under the call; other types too, so that the table of types does.
            for (int i = 0; i < 100; ++i)
                added.push_back(Watch('n', {kFirst, QEvent::Type(QEvent::User + 100 + i)}));
            a->then = nullptr;
        };
        const auto b = Watch('b', {kFirst});
        Target target;
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("ba"));
        m_calls.clear();
        Send(target, kFirst);
        QCOMPARE(m_calls, QString(100, QLatin1Char('n')) + QStringLiteral("ba"));
    }

    void a_watcher_may_cause_the_same_event_again()
    {
        Target target;
        const auto a = Watch('a', {kFirst});
        const auto b = Watch('b', {kFirst});
        b->then = [&](QObject *, QEvent *) {
            b->then = nullptr;
            Send(target, kFirst);
        };
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("bbaa"));
        QCOMPARE(target.received, 2);
    }

    void watchers_may_die_in_masses_during_the_event_and_one_in_between()
    {
        Target target;
        std::vector<std::unique_ptr<Watcher>> called;
        std::vector<std::unique_ptr<Watcher>> toCome;
        std::vector<std::unique_ptr<Watcher>> added;
        const auto watch = [this](std::vector<std::unique_ptr<Watcher>> &watchers, char name) {
            for (int i = 0; i < 100; ++i)
                watchers.push_back(Watch(name, {kFirst}));
        };
        const auto first = Watch('f', {kFirst});
        watch(toCome, 't');
        const auto killer = Watch('k', {kFirst});
        watch(called, 'c');
        killer->then = [&](QObject *, QEvent *) {
            killer->then = nullptr;
            called.clear();
            toCome.resize(10);
            Send(target, kFirst); // finds most of the list dead
            watch(added, 'a');    // finds a list that is due to be cleaned
        };
        const QString living = QLatin1Char('k') + QString(10, QLatin1Char('t')) + QLatin1Char('f');
        Send(target, kFirst);
        QCOMPARE(m_calls, QString(100, QLatin1Char('c')) + QLatin1Char('k') + living + living.mid(1));
        m_calls.clear();
        Send(target, kFirst);
        QCOMPARE(m_calls, QString(100, QLatin1Char('a')) + living);
    }

    void watchers_that_died_during_an_event_are_not_kept()
    {
        const auto first = Watch('f', {kFirst});
        Target target;
        Send(target, kFirst);
        const int before = allocatedBlocks;
        {
            std::vector<std::unique_ptr<Watcher>> dying;
            for (int i = 0; i < 1000; ++i)
                dying.push_back(Watch('d', {kFirst}));
            const auto killer = Watch('k', {kFirst});
            killer->then = [&](QObject *, QEvent *) {
                dying.clear();
                Send(target, kSecond); // no watcher's
            };
            Send(target, kFirst);
        }
        QVERIFY2(allocatedBlocks - before < 100, qPrintable(QString::number(allocatedBlocks - before)));
    }

    void additions_among_dead_watchers_keep_the_living_in_order()
    {
        const auto a = Watch('a', {kFirst});
        for (int i = 0; i < 1000; ++i)
            Watch('x', {kFirst});
        const auto b = Watch('b', {kFirst});
        for (int i = 0; i < 1000; ++i)
            Watch('x', {kFirst});
        const auto c = Watch('c', {kFirst});
        Target target;
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("cba"));
    }

    void dead_watchers_are_not_kept()
    {
        const auto a = Watch('a', {kFirst});
        const int before = allocatedBlocks;
        for (int i = 0; i < 10'000; ++i)
            Watch('x', {kFirst});
        QVERIFY2(allocatedBlocks - before < 100, qPrintable(QString::number(allocatedBlocks - before)));
    }

    void one_that_ends_its_watch_is_called_no_more()
    {
        const auto a = Watch('a', {kFirst, kSecond});
        const auto b = Watch('b', {kFirst});
        UnwatchApplicationEvents(a.get());
        UnwatchApplicationEvents(a.get()); // has no more to end
        Target target;
        Send(target, kFirst);
        Send(target, kSecond);
        QCOMPARE(m_calls, QStringLiteral("b"));
        WatchApplicationEvents(a.get(), {kSecond});
        Send(target, kFirst);
        Send(target, kSecond);
        QCOMPARE(m_calls, QStringLiteral("bba"));
    }

    void one_that_watches_again_is_called_once_and_first()
    {
        const auto a = Watch('a', {kFirst});
        const auto b = Watch('b', {kFirst});
        WatchApplicationEvents(a.get(), {kFirst});
        Target target;
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("ab"));
    }

    void a_watch_may_end_during_the_event()
    {
        Target target;
        const auto a = Watch('a', {kFirst});
        const auto b = Watch('b', {kFirst});
        const auto c = Watch('c', {kFirst});
        c->then = [&](QObject *, QEvent *) {
            UnwatchApplicationEvents(b.get()); // still to come
            UnwatchApplicationEvents(c.get()); // on its turn
            if (target.received == 0)
                Send(target, kSecond); // and another event in between
        };
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("ca"));
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("caa"));
    }

    void one_may_end_and_begin_its_watch_during_the_event()
    {
        const auto a = Watch('a', {kFirst});
        const auto b = Watch('b', {kFirst});
        a->then = [&](QObject *, QEvent *) {
            UnwatchApplicationEvents(b.get());
            WatchApplicationEvents(b.get(), {kFirst}); // from the next event on
            WatchApplicationEvents(a.get(), {kFirst});
            a->then = nullptr;
        };
        Target target;
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("ba"));
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("baab"));
    }

    void one_at_a_dead_one_s_address_watches_in_its_own_right()
    {
        // In the same storage, so that the address is the same for certain.
        alignas(Watcher) unsigned char storage[sizeof(Watcher)];
        const auto a = Watch('a', {kFirst});
        auto *dead = new (storage) Watcher(QLatin1Char('x'), &m_calls);
        WatchApplicationEvents(dead, {kFirst});
        dead->~Watcher();
        auto *living = new (storage) Watcher(QLatin1Char('y'), &m_calls);
        Target target;
        UnwatchApplicationEvents(living); // which has asked for nothing
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("a"));
        WatchApplicationEvents(living, {kFirst});
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("aya"));
        UnwatchApplicationEvents(living);
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("ayaa"));
        living->~Watcher();
    }

    void beginning_and_ending_a_watch_keeps_nothing()
    {
        const auto a = Watch('a', {kFirst});
        Watcher b(QLatin1Char('b'), &m_calls);
        const int before = allocatedBlocks;
        for (int i = 0; i < 10'000; ++i) {
            WatchApplicationEvents(&b, {kFirst});
            UnwatchApplicationEvents(&b);
        }
        QVERIFY2(allocatedBlocks - before < 100, qPrintable(QString::number(allocatedBlocks - before)));
        Target target;
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("a"));
    }

    void ending_each_of_many_watches_leaves_the_others_in_order()
    {
        std::vector<std::unique_ptr<Watcher>> many;
        for (int i = 0; i < 1000; ++i)
            many.push_back(Watch(char('a' + i % 26), {kFirst}));
        QString expected;
        for (int i = 0; i < 1000; ++i) {
            if (i % 100 != 0)
                UnwatchApplicationEvents(many[std::size_t(i)].get());
            else
                expected.prepend(QLatin1Char(char('a' + i % 26)));
        }
        Target target;
        Send(target, kFirst);
        QCOMPARE(m_calls, expected);
    }

    void without_an_application_there_is_no_watch_to_end()
    {
        const auto a = Watch('a', {kFirst});
        m_application.reset();
        UnwatchApplicationEvents(a.get());
        m_application = std::make_unique<QApplication>(commandLine.count, commandLine.values);
        Target target;
        Send(target, kFirst);
        QVERIFY(m_calls.isEmpty());
    }

    void one_filter_serves_all_watchers()
    {
        // Qt would call a filter of its own for each watcher: only one object was added to the application.
        const auto before = qApp->children().size();
        const auto a = Watch('a', {kFirst});
        const auto b = Watch('b', {kFirst, kSecond});
        QCOMPARE(qApp->children().size(), before + 1);
    }

    void the_next_application_object_is_watched_anew()
    {
        const auto a = Watch('a', {kFirst});
        m_application.reset();
        m_application = std::make_unique<QApplication>(commandLine.count, commandLine.values);
        Target target;
        Send(target, kFirst);
        QVERIFY(m_calls.isEmpty()); // it had asked the application that went
        const auto b = Watch('b', {kFirst});
        Send(target, kFirst);
        QCOMPARE(m_calls, QStringLiteral("b"));
    }
};

VELMORA_BARE_TEST_MAIN(tst_ApplicationEvents)
#include "tst_ApplicationEvents.moc"
