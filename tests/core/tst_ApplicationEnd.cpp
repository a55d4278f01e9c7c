// An application object that goes while much is still under way.

#include "core/TaskSupport.h"
#include "support/CommandLine.h"
#include "support/TestMain.h"

#include <Velmora/PostOwnedTask.h>

#include <thread>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

std::unique_ptr<QcApplication> MakeApplication()
{
    return std::make_unique<QcApplication>(commandLine.count, commandLine.values);
}

/// Counts the runs of the records it makes.
class Tally
{
public:
    std::shared_ptr<Record> NewRecord()
    {
        auto record = MakeRecord([this] { ++runs; });
        records.Watch(record);
        return record;
    }

    int runs = 0;
    Records records;
};

void HandInEveryWay(Tally &tally, int times)
{
    for (int i = 0; i < times; ++i) {
        TheApplication()->PostTaskToMainThread(tally.NewRecord());
        TheApplication()->ScheduleTaskToMainThread(tally.NewRecord());
        TheApplication()->MergeTaskToMainThread(tally.NewRecord(), "key " + std::to_string(i));
    }
}

/// Hands in records from several threads until its destruction begins.
class BusyApplication : public QcApplication
{
public:
    BusyApplication()
        : QcApplication(commandLine.count, commandLine.values)
    {
        for (int number = 0; number < 4; ++number)
            m_workers.emplace_back([this, number] { Work(number); });
    }
    ~BusyApplication() override
    {
        m_stop = true;
        for (std::thread &worker : m_workers)
            worker.join();
    }

    const std::shared_ptr<int> witness = std::make_shared<int>(0);
    std::atomic<int> handedIn = 0;
    std::atomic<int> ran = 0;

private:
    void Work(int number)
    {
        QObject owner;
        while (!m_stop) {
            const auto task = [this, kept = witness] { ++ran; };
            PostTaskToMainThread(MakeRecord(task));
            PostOwnedTask(&owner, task, std::string());
            ScheduleTaskToMainThread(MakeRecord(task));
            MergeTaskToMainThread(MakeRecord(task), "key " + std::to_string((number + handedIn) % 100));
            ++handedIn;
        }
    }

    std::atomic<bool> m_stop = false;
    std::vector<std::thread> m_workers;
};

/// Hands in more as it is freed.
class Stubborn
{
public:
    explicit Stubborn(int &runs)
        : m_runs(&runs)
    {
    }
    ~Stubborn()
    {
        const auto task = [runs = m_runs] { ++*runs; };
        PostOwnedTask(qApp, task, std::string());
        if (QcApplication *application = TheApplication()) {
            application->PostTaskToMainThread(MakeRecord(task));
            application->ScheduleTaskToMainThread(MakeRecord(task));
            application->MergeTaskToMainThread(MakeRecord(task), "stubborn");
        }
    }

private:
    Q_DISABLE_COPY(Stubborn)
    int *m_runs;
};

} // namespace

class tst_ApplicationEnd : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pending_tasks_are_dropped_and_freed()
    {
        Tally tally;
        auto application = MakeApplication();
        HandInEveryWay(tally, 100);
        QCOMPARE(tally.records.Alive(), 300);
        application.reset();
        QCOMPARE(tally.runs, 0);
        QCOMPARE(tally.records.Alive(), 0);
    }

    void tasks_that_the_dispatcher_keeps_are_dropped_and_freed()
    {
        Tally tally;
        auto application = MakeApplication();
        HandInEveryWay(tally, 100);
        QVERIFY(DispatcherThread()); // by now the queue and the map hold theirs, with their timers running
        QTRY_COMPARE(tally.runs, 100);
        QCOMPARE(tally.records.Alive(), 200);
        application.reset();
        QCOMPARE(tally.runs, 100);
        QCOMPARE(tally.records.Alive(), 0);
    }

    void the_dispatchers_thread_lives_as_long_as_the_application()
    {
        auto application = MakeApplication();
        const QPointer<QThread> thread = DispatcherThread();
        QVERIFY(thread && thread->isRunning());
        std::atomic<bool> finished = false; // set on that thread
        connect(
            thread, &QThread::finished, thread, [&finished] { finished = true; }, Qt::DirectConnection);
        application.reset();
        QVERIFY(finished.load());
        QVERIFY(!thread);
    }

    void follow_ups_that_are_armed_are_dropped()
    {
        Tally tally;
        auto application = MakeApplication();
        {
            const auto schedule = tally.NewRecord();
            schedule->rearmSchedule = true;
            application->PostTaskToMainThread(schedule);
            const auto merge = tally.NewRecord();
            merge->rearmMergeKey = "key";
            application->PostTaskToMainThread(merge);
        }
        QTRY_COMPARE(tally.runs, 2);
        application.reset();
        QCOMPARE(tally.records.Alive(), 0);
    }

    void an_application_may_go_at_once()
    {
        for (int i = 0; i < 20; ++i)
            MakeApplication();
        QVERIFY(!QCoreApplication::instance());
    }

    void workers_may_hand_in_until_the_end_begins()
    {
        auto application = std::make_unique<BusyApplication>();
        const auto witness = application->witness;
        while (application->ran < 200 || application->handedIn < 200)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        application.reset();
        QCOMPARE(int(witness.use_count()), 1);
    }

    void posts_handled_while_the_application_goes_are_dropped()
    {
        static Tally tally;
        static bool handled;
        tally.runs = 0;
        handled = false;
        auto application = MakeApplication();
        // Windows and post routines may handle events while QApplication goes, when the dispatcher has gone already.
        qAddPostRoutine([] {
            QCoreApplication::sendPostedEvents();
            handled = tally.records.Alive() == 0;
        });
        {
            const auto rearming = tally.NewRecord();
            rearming->rearmSchedule = true;
            application->PostTaskToMainThread(rearming);
            application->PostTaskToMainThread(tally.NewRecord());
        }
        QCOMPARE(tally.records.Alive(), 2);
        application.reset();
        QVERIFY(handled);
        QCOMPARE(tally.runs, 0);
    }

    void a_record_that_hands_in_more_as_it_is_freed_does_no_harm()
    {
        int runs = 0;
        Records records;
        auto application = MakeApplication();
        const auto stubborn = [&] {
            auto kept = std::make_shared<Stubborn>(runs);
            auto record = MakeRecord([kept, &runs] { ++runs; });
            records.Watch(record);
            return record;
        };
        application->ScheduleTaskToMainThread(stubborn());
        application->MergeTaskToMainThread(stubborn(), "key");
        QVERIFY(DispatcherThread());
        application->PostTaskToMainThread(stubborn());
        application->ScheduleTaskToMainThread(stubborn());
        application.reset();
        QCOMPARE(runs, 0);
        QCOMPARE(records.Alive(), 0);
    }

    void the_next_application_works_as_the_first()
    {
        for (int i = 0; i < 3; ++i) {
            Tally earlier;
            Tally tally;
            {
                auto application = MakeApplication();
                HandInEveryWay(earlier, 1);
            }
            auto application = MakeApplication();
            application->PostTaskToMainThread(tally.NewRecord());
            std::thread([&tally] { TheApplication()->PostTaskToMainThread(tally.NewRecord()); }).join();
            QTRY_COMPARE(tally.runs, 2);
            QVERIFY(DispatcherThread());
            QCOMPARE(earlier.runs, 0);
            QCOMPARE(earlier.records.Alive(), 0);
        }
    }
};

VELMORA_BARE_TEST_MAIN(tst_ApplicationEnd)
#include "tst_ApplicationEnd.moc"
