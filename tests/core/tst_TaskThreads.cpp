// Many threads at once. Made to be run under the thread sanitizer too.

#include "core/TaskSupport.h"
#include "support/TestMain.h"

#include <Velmora/PostOwnedTask.h>

#include <array>
#include <thread>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr int kThreads = 8;

#if defined(__SANITIZE_ADDRESS__)
constexpr int kFloodEach = 12'500; // it records the stack of each allocation, and learns nothing from a million
#else
constexpr int kFloodEach = 125'000;
#endif

/// Runs \a work(number) on eight threads at once.
class Workers
{
public:
    template <typename Work>
    explicit Workers(const Work &work)
    {
        for (int number = 0; number < kThreads; ++number)
            m_threads.emplace_back([work, number] { work(number); });
    }
    ~Workers() { Join(); }
    void Join()
    {
        for (std::thread &thread : m_threads)
            thread.join();
        m_threads.clear();
    }

private:
    std::vector<std::thread> m_threads;
};

} // namespace

class tst_TaskThreads : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_million_posts_of_eight_threads_keep_each_threads_order()
    {
        std::array<int, kThreads> next = {}; // touched by the main thread only
        int outOfOrder = 0;
        int elsewhere = 0;
        int done = 0;
        Workers workers([&](int number) {
            for (int post = 0; post < kFloodEach; ++post) {
                TheApplication()->PostTaskToMainThread(MakeRecord([&, number, post] {
                    int &expected = next.at(std::size_t(number));
                    outOfOrder += post == expected ? 0 : 1;
                    expected = post + 1;
                    elsewhere += QThread::currentThread() == qApp->thread() ? 0 : 1;
                    ++done;
                }));
            }
        });
        QTRY_COMPARE_WITH_TIMEOUT(done, kThreads * kFloodEach, 300'000);
        QCOMPARE(outOfOrder, 0);
        QCOMPARE(elsewhere, 0);
    }

    void owners_of_the_main_thread_may_die_while_workers_post()
    {
        constexpr int kPostsEach = 5'000;
        constexpr int kOwners = 64;
        std::vector<std::unique_ptr<QObject>> owners;
        std::vector<QPointer<QObject>> guards;
        for (int i = 0; i < kOwners; ++i) {
            owners.push_back(std::make_unique<QObject>());
            guards.emplace_back(owners.back().get());
        }

        int withoutOwner = 0;
        int ran = 0;
        std::atomic<int> posted = 0;
        Workers workers([&](int number) {
            for (int post = 0; post < kPostsEach; ++post) {
                const QPointer<QObject> guard = guards.at(std::size_t(number * 7 + post) % kOwners);
                PostOwnedTask(
                    guard,
                    [&withoutOwner, &ran, guard] {
                        withoutOwner += guard ? 0 : 1;
                        ++ran;
                    },
                    std::string());
                ++posted;
            }
        });
        // One owner goes each time that another part of the posts has been made, half of them in all. Nothing runs before the
        // first has gone: a busy machine may let the workers finish within one turn of the loop.
        for (int i = 0; i < kOwners; i += 2) {
            while (posted.load() <= i * (kThreads * kPostsEach / kOwners))
                std::this_thread::yield();
            owners.at(std::size_t(i)).reset();
            QCoreApplication::processEvents();
        }
        workers.Join();
        DrainEvents();
        QCOMPARE(withoutOwner, 0);
        QVERIFY(ran > 0);
        QVERIFY(ran < kThreads * kPostsEach);
    }

    void owners_may_die_on_other_threads()
    {
        constexpr int kPostsEach = 5'000;
        int ran = 0;
        const auto witness = std::make_shared<int>(0);
        Workers workers([&](int) {
            for (int post = 0; post < kPostsEach; ++post) {
                const auto owner = std::make_unique<QObject>();
                PostOwnedTask(
                    owner.get(), [&ran, witness] { ++ran; }, std::string());
            }
        });
        while (ran < 10 && witness.use_count() > 1)
            QCoreApplication::processEvents();
        workers.Join();
        // No owner is left, so what waits now is skipped.
        const int ranMeanwhile = ran;
        DrainEvents();
        QCOMPARE(ran, ranMeanwhile);
        QCOMPARE(int(witness.use_count()), 1); // run or skipped, each record was freed
    }

    void bursts_of_eight_threads_leave_one_record_a_key()
    {
        constexpr int kMergesEach = 5'000;
        const auto witness = std::make_shared<int>(0);
        Workers workers([&](int number) {
            for (int merge = 0; merge < kMergesEach; ++merge)
                TheApplication()->MergeTaskToMainThread(MakeRecord([witness] {}), "burst " + std::to_string(number % 4));
        });
        workers.Join();
        QTRY_COMPARE_WITH_TIMEOUT(int(witness.use_count()), 1 + 4, 300'000);
    }

    void schedules_of_eight_threads_all_wait_in_the_queue()
    {
        constexpr int kSchedulesEach = 1'000;
        const auto witness = std::make_shared<int>(0);
        Workers workers([&](int) {
            for (int schedule = 0; schedule < kSchedulesEach; ++schedule)
                TheApplication()->ScheduleTaskToMainThread(MakeRecord([witness] {}));
        });
        workers.Join();
        QVERIFY(DispatcherThread()); // by now the dispatcher has taken all
        QCOMPARE(int(witness.use_count()), 1 + kThreads * kSchedulesEach);
    }
};

VELMORA_TEST_MAIN(tst_TaskThreads)
#include "tst_TaskThreads.moc"
