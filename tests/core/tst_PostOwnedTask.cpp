#include "core/TaskSupport.h"
#include "support/TestMain.h"

#include <Velmora/PostOwnedTask.h>

#include <QElapsedTimer>

#include <thread>

using namespace Velmora;
using namespace VelmoraTest;

class tst_PostOwnedTask : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_function_runs_once_on_a_later_turn()
    {
        QObject owner;
        int runs = 0;
        PostOwnedTask(
            &owner, [&runs] { ++runs; }, std::string());
        QCOMPARE(runs, 0);
        DrainEvents();
        QCOMPARE(runs, 1);
    }

    void functions_run_in_order_among_other_posts()
    {
        QObject owner;
        QString log;
        PostOwnedTask(
            &owner, [&log] { log += QLatin1Char('a'); }, std::string());
        TheApplication()->PostTaskToMainThread(MakeRecord([&log] { log += QLatin1Char('b'); }));
        PostOwnedTask(
            &owner, [&log] { log += QLatin1Char('c'); }, std::string());
        DrainEvents();
        QCOMPARE(log, QStringLiteral("abc"));
    }

    void a_worker_may_call_it()
    {
        QObject owner;
        QThread *ranOn = nullptr;
        std::thread([&] {
            PostOwnedTask(
                &owner, [&ranOn] { ranOn = QThread::currentThread(); }, std::string());
        }).join();
        DrainEvents();
        QCOMPARE(ranOn, qApp->thread());
    }

    void an_owner_that_has_gone_drops_the_function()
    {
        auto owner = std::make_unique<QObject>();
        int runs = 0;
        const auto witness = std::make_shared<int>(0);
        PostOwnedTask(
            owner.get(), [&runs, witness] { ++runs; }, std::string());
        QCOMPARE(int(witness.use_count()), 2);
        owner.reset();
        DrainEvents();
        QCOMPARE(runs, 0);
        QCOMPARE(int(witness.use_count()), 1);
    }

    void a_null_owner_counts_as_gone()
    {
        int runs = 0;
        PostOwnedTask(
            nullptr, [&runs] { ++runs; }, std::string());
        DrainEvents();
        QCOMPARE(runs, 0);
    }

    void an_empty_function_is_skipped_and_the_next_runs()
    {
        QObject owner;
        bool nextRan = false;
        PostOwnedTask(&owner, {}, "empty");
        PostOwnedTask(
            &owner, [&nextRan] { nextRan = true; }, "next");
        DrainEvents();
        QVERIFY(nextRan);
    }

    void the_name_is_that_of_the_slow_task_warning()
    {
        QObject owner;
        Log().ExpectMatch(QtWarningMsg, QStringLiteral("QcTaskDispatcher::ExecuteTask: the name elapsed: \\d+"));
        PostOwnedTask(
            &owner,
            [] {
                QElapsedTimer timer;
                timer.start();
                while (timer.elapsed() < 101) {
                }
            },
            "the name");
        DrainEvents();
    }
};

VELMORA_TEST_MAIN(tst_PostOwnedTask)
#include "tst_PostOwnedTask.moc"
