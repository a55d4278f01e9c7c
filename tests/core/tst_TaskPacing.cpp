// The paced queue and the merged records, by the clock. All scenarios run side by side, each on a dispatcher of its own,
// so that the program takes 17 seconds in all.

#include "core/TaskSupport.h"
#include "support/CommandLine.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTimer>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

QElapsedTimer sinceStart;

struct Run
{
    QString name;
    qint64 at; // milliseconds since the start
};

/// What ran, and when. Every run must be on the main thread.
class Journal
{
public:
    std::function<void()> Note(const QString &name)
    {
        return [this, name] {
            m_runs.append({name, sinceStart.elapsed()});
            m_offMainThread += QThread::currentThread() == qApp->thread() ? 0 : 1;
        };
    }
    QString Names() const
    {
        QStringList names;
        for (const Run &run : m_runs)
            names.append(run.name);
        return names.join(QLatin1Char(' '));
    }
    qint64 TimeOf(const QString &name) const
    {
        for (const Run &run : m_runs) {
            if (run.name == name)
                return run.at;
        }
        return -1;
    }
    int OffMainThread() const { return m_offMainThread; }

private:
    QList<Run> m_runs;
    int m_offMainThread = 0;
};

/// Timers of seconds are coarse: up to a twentieth early. A busy machine makes them late, but not as late as the next event
/// that a wrong pace would bring.
bool IsAbout(qint64 milliseconds, qint64 expected)
{
    return milliseconds >= expected - expected / 20 && milliseconds < expected + 1700;
}

#define COMPARE_TIME(name, expected) \
    QVERIFY2(IsAbout(journal.TimeOf(QStringLiteral(name)), (expected)), \
             qPrintable(QStringLiteral("%1 ran at %2").arg(QStringLiteral(name)).arg(journal.TimeOf(QStringLiteral(name)))))

/// One dispatcher and what its tasks did.
struct Scenario
{
    Journal journal;
    Records records;
    QcTaskDispatcher dispatcher; // goes first

    std::shared_ptr<Record> NewRecord(const char *name)
    {
        auto record = MakeRecord(journal.Note(QString::fromLatin1(name)));
        records.Watch(record);
        return record;
    }
    std::shared_ptr<Record> Rearming(const char *name)
    {
        auto record = NewRecord(name);
        record->rearmSchedule = true;
        return record;
    }
    void Schedule(const char *name) { dispatcher.ScheduleTask(Rearming(name)); }
    void Merge(const char *name, const std::string &key) { dispatcher.MergeTask(NewRecord(name), key); }
};

/// As a user would at that time.
template <typename Action>
void At(int milliseconds, const Action &action)
{
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, qApp, action);
}

constexpr int kSlowTaskMs = 800;

} // namespace

class tst_TaskPacing : public TestCase
{
    Q_OBJECT

private:
    int m_ranAfterTheEnd = 0;
    std::unique_ptr<QcApplication> m_application;

    Journal m_scheduleJournal; // through the application object, as a host does it
    Scenario *m_skipped = nullptr;
    Scenario *m_halted = nullptr;
    Scenario *m_haltedByNull = nullptr;
    Scenario *m_revived = nullptr;
    Scenario *m_slow = nullptr;
    Scenario *m_drained = nullptr;
    Scenario *m_both = nullptr;
    Scenario *m_merges = nullptr;
    Scenario *m_rearmedMerge = nullptr;
    std::vector<std::unique_ptr<Scenario>> m_scenarios;
    std::shared_ptr<int> m_replaced = std::make_shared<int>(0);
    std::shared_ptr<int> m_replacedByNull = std::make_shared<int>(0);

    Scenario *NewScenario()
    {
        m_scenarios.push_back(std::make_unique<Scenario>());
        return m_scenarios.back().get();
    }

    void LeaveTasksToAnApplicationThatGoes()
    {
        const QcApplication application(commandLine.count, commandLine.values);
        auto run = MakeRecord([this] { ++m_ranAfterTheEnd; });
        run->rearmSchedule = true;
        TheApplication()->ScheduleTaskToMainThread(run);
        TheApplication()->MergeTaskToMainThread(run, "key");
        QVERIFY(DispatcherThread()); // its timers run by now
        TheApplication()->PostTaskToMainThread(run);
    }

    void StartScheduling()
    {
        for (const char *name : {"one", "two", "three"}) {
            auto record = MakeRecord(m_scheduleJournal.Note(QString::fromLatin1(name)));
            record->rearmSchedule = true;
            TheApplication()->ScheduleTaskToMainThread(record);
        }

        // A step without work of its own still arms the next one.
        m_skipped = NewScenario();
        auto empty = m_skipped->Rearming("empty");
        empty->task = nullptr;
        m_skipped->dispatcher.ScheduleTask(empty);
        auto orphan = m_skipped->Rearming("orphan");
        orphan->checkOwner = true;
        m_skipped->dispatcher.ScheduleTask(orphan);
        m_skipped->Schedule("last");

        m_halted = NewScenario();
        m_halted->dispatcher.ScheduleTask(m_halted->NewRecord("halting"));
        m_halted->Schedule("waiting");
        At(6000, [this] { m_halted->Schedule("new"); });

        m_haltedByNull = NewScenario();
        m_haltedByNull->dispatcher.ScheduleTask(nullptr);
        m_haltedByNull->Schedule("waiting");
        At(6000, [this] { m_haltedByNull->Schedule("new"); });

        m_revived = NewScenario();
        m_revived->dispatcher.ScheduleTask(m_revived->NewRecord("halting"));
        m_revived->Schedule("waiting");
        At(8000, [this] { m_revived->dispatcher.PostTask(m_revived->Rearming("reviving")); });

        m_slow = NewScenario();
        auto slow = m_slow->Rearming("slow");
        slow->name = "slow";
        slow->task = [note = m_slow->journal.Note(QStringLiteral("slow"))] {
            QElapsedTimer timer;
            timer.start();
            while (timer.elapsed() < kSlowTaskMs) {
            }
            note();
        };
        m_slow->dispatcher.ScheduleTask(slow);
        m_slow->Schedule("next");

        // The follow-up of the only record finds the queue empty, or what came meanwhile.
        m_drained = NewScenario();
        m_drained->Schedule("first");
        At(7000, [this] { m_drained->Schedule("meanwhile"); });

        // One follow-up a record: that of the schedule.
        m_both = NewScenario();
        auto both = m_both->Rearming("both");
        both->rearmMergeKey = "key";
        m_both->dispatcher.ScheduleTask(both);
        m_both->Schedule("scheduled");
        At(7000, [this] { m_both->Merge("merged", "key"); });
    }

    void StartMerging()
    {
        m_merges = NewScenario();
        for (int i = 0; i < 99; ++i)
            m_merges->dispatcher.MergeTask(
                MakeRecord([kept = m_replaced, note = m_merges->journal.Note(QStringLiteral("replaced"))] { note(); }), "burst");
        m_merges->Merge("burst", "burst");
        m_merges->Merge("Burst", "Burst");
        m_merges->Merge("without-key", std::string());
        m_merges->Merge("a", std::string("a"));
        m_merges->Merge("a-null-b", std::string("a\0b", 3));
        m_merges->dispatcher.MergeTask(
            MakeRecord([kept = m_replacedByNull, note = m_merges->journal.Note(QStringLiteral("replaced"))] { note(); }), "null");
        m_merges->dispatcher.MergeTask(nullptr, "null");

        // A later call replaces the record and leaves the time as it is.
        m_merges->Merge("early", "later calls");
        At(2000, [this] { m_merges->Merge("middle", "later calls"); });
        At(4000, [this] { m_merges->Merge("late", "later calls"); });
        At(6000, [this] { m_merges->Merge("after-late", "later calls"); });

        // After the run the key is free.
        At(7000, [this] {
            m_merges->Merge("burst-again", "burst");
            m_merges->Merge("after-null", "null");
        });

        m_rearmedMerge = NewScenario();
        for (const char *key : {"used", "unused"}) {
            auto record = m_rearmedMerge->NewRecord(key);
            record->rearmMergeKey = key;
            m_rearmedMerge->dispatcher.MergeTask(record, key);
        }
        At(7000, [this] { m_rearmedMerge->Merge("meanwhile", "used"); });
        // A follow-up without work of its own.
        auto empty = std::make_shared<Record>();
        empty->rearmMergeKey = "from a post";
        At(3000, [this, empty] { m_rearmedMerge->dispatcher.PostTask(empty); });
        At(6000, [this] { m_rearmedMerge->Merge("after-post", "from a post"); });
    }

private Q_SLOTS:
    void initTestCase()
    {
        LeaveTasksToAnApplicationThatGoes();
        m_application = std::make_unique<QcApplication>(commandLine.count, commandLine.values);
        LogGuard log;
        log.ExpectMatch(QtWarningMsg,
                        QStringLiteral("QcTaskDispatcher::ExecuteTask: slow elapsed: (%1\\d\\d|\\d{4,})").arg(kSlowTaskMs / 100));

        sinceStart.start();
        StartScheduling();
        StartMerging();
        QTRY_COMPARE_WITH_TIMEOUT(int(m_replaced.use_count()), 1, 4000); // what a later record replaced is freed at once
        // A host may run its main loop more than once: the end of one, with timers armed by tasks, leaves the pace alone.
        QTRY_VERIFY_WITH_TIMEOUT(m_scheduleJournal.TimeOf(QStringLiteral("one")) > 0, 20'000);
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
        QTRY_VERIFY_WITH_TIMEOUT(sinceStart.elapsed() > 17'000 && m_scheduleJournal.TimeOf(QStringLiteral("three")) > 0, 60'000);
        QCOMPARE(log.TakeFaults(), QStringList());
    }

    void cleanupTestCase()
    {
        m_scenarios.clear();
        m_application.reset();
    }

    void scheduled_tasks_run_five_seconds_apart()
    {
        const Journal &journal = m_scheduleJournal;
        QCOMPARE(journal.Names(), QStringLiteral("one two three"));
        COMPARE_TIME("one", 5000);
        COMPARE_TIME("two", 10000);
        COMPARE_TIME("three", 15000);
    }

    void a_skipped_step_keeps_the_pace()
    {
        const Journal &journal = m_skipped->journal;
        QCOMPARE(journal.Names(), QStringLiteral("last"));
        COMPARE_TIME("last", 15000);
    }

    void a_record_that_does_not_rearm_halts_the_queue()
    {
        const Journal &journal = m_halted->journal;
        QCOMPARE(journal.Names(), QStringLiteral("halting"));
        COMPARE_TIME("halting", 5000);
        QCOMPARE(m_halted->records.Alive(), 2);
    }

    void a_null_record_halts_the_queue()
    {
        QCOMPARE(m_haltedByNull->journal.Names(), QString());
        QCOMPARE(m_haltedByNull->records.Alive(), 2);
    }

    void a_halted_queue_goes_on_when_another_task_rearms_it()
    {
        const Journal &journal = m_revived->journal;
        QCOMPARE(journal.Names(), QStringLiteral("halting reviving waiting"));
        COMPARE_TIME("waiting", 13000);
    }

    void the_pause_counts_from_the_end_of_a_task()
    {
        const Journal &journal = m_slow->journal;
        QCOMPARE(journal.Names(), QStringLiteral("slow next"));
        const qint64 pause = journal.TimeOf(QStringLiteral("next")) - journal.TimeOf(QStringLiteral("slow"));
        QVERIFY2(pause >= 4750, qPrintable(QString::number(pause)));
    }

    void a_follow_up_runs_what_was_scheduled_meanwhile()
    {
        const Journal &journal = m_drained->journal;
        QCOMPARE(journal.Names(), QStringLiteral("first meanwhile"));
        COMPARE_TIME("first", 5000);
        COMPARE_TIME("meanwhile", 10000);
    }

    void the_schedules_follow_up_wins_over_that_of_a_key()
    {
        const Journal &journal = m_both->journal;
        QCOMPARE(journal.Names(), QStringLiteral("both scheduled merged"));
        COMPARE_TIME("both", 5000);
        COMPARE_TIME("scheduled", 10000);
        COMPARE_TIME("merged", 12000);
    }

    void a_burst_runs_its_last_record_once()
    {
        const Journal &journal = m_merges->journal;
        QVERIFY(!journal.Names().contains(QStringLiteral("replaced")));
        COMPARE_TIME("burst", 5000);
        COMPARE_TIME("burst-again", 12000);
        QCOMPARE(journal.Names().split(QLatin1Char(' ')).count(QStringLiteral("burst")), 1);
    }

    void each_key_has_its_own_record()
    {
        const Journal &journal = m_merges->journal;
        COMPARE_TIME("burst", 5000);
        COMPARE_TIME("Burst", 5000);
        COMPARE_TIME("without-key", 5000);
        COMPARE_TIME("a", 5000);
        COMPARE_TIME("a-null-b", 5000);
    }

    void a_later_call_does_not_push_the_run_back()
    {
        const Journal &journal = m_merges->journal;
        COMPARE_TIME("late", 5000);
        COMPARE_TIME("after-late", 11000); // nor did one arm a timer of its own
        QCOMPARE(journal.TimeOf(QStringLiteral("early")), -1);
        QCOMPARE(journal.TimeOf(QStringLiteral("middle")), -1);
    }

    void a_null_record_replaces_as_any_other()
    {
        const Journal &journal = m_merges->journal;
        QCOMPARE(int(m_replacedByNull.use_count()), 1);
        COMPARE_TIME("after-null", 12000);
    }

    void a_rearmed_key_runs_what_was_merged_meanwhile()
    {
        const Journal &journal = m_rearmedMerge->journal;
        QCOMPARE(journal.Names().split(QLatin1Char(' ')).count(QStringLiteral("meanwhile")), 1);
        QCOMPARE(journal.Names().split(QLatin1Char(' ')).count(QStringLiteral("unused")), 1);
        COMPARE_TIME("used", 5000);
        COMPARE_TIME("unused", 5000);
        COMPARE_TIME("meanwhile", 10000);
        COMPARE_TIME("after-post", 8000);
    }

    void every_task_ran_on_the_main_thread()
    {
        int elsewhere = m_scheduleJournal.OffMainThread();
        for (const auto &scenario : m_scenarios)
            elsewhere += scenario->journal.OffMainThread();
        QCOMPARE(elsewhere, 0);
    }

    void no_timer_of_an_application_that_went_fires() { QCOMPARE(m_ranAfterTheEnd, 0); }

    void what_still_waits_at_the_end_is_freed()
    {
        Records records = m_halted->records;
        QCOMPARE(records.Alive(), 2);
        for (auto &scenario : m_scenarios) {
            if (scenario.get() == m_halted)
                scenario.reset();
        }
        m_scenarios.erase(std::remove(m_scenarios.begin(), m_scenarios.end(), nullptr), m_scenarios.end());
        m_halted = nullptr;
        QCOMPARE(records.Alive(), 0);
    }
};

VELMORA_BARE_TEST_MAIN(tst_TaskPacing)
#include "tst_TaskPacing.moc"
