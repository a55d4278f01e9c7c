#include "core/TaskSupport.h"
#include "support/TestMain.h"

#include <QElapsedTimer>

#include <stdexcept>
#include <thread>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

void Post(const std::shared_ptr<Record> &record)
{
    TheApplication()->PostTaskToMainThread(record);
}

QStringList *capturedLines = nullptr;

struct TimedRun
{
    QStringList lines;
    qint64 atMost; // no clock inside the run can have read more
};

/// Runs a task that is busy for \a milliseconds, and catches what is logged.
TimedRun RunBusyTask(qint64 milliseconds, const std::string &name)
{
    Post(MakeRecord(
        [milliseconds] {
            QElapsedTimer timer;
            timer.start();
            while (timer.elapsed() < milliseconds) {
            }
        },
        name));

    TimedRun run;
    capturedLines = &run.lines;
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &line) { capturedLines->append(line); });
    QElapsedTimer timer;
    timer.start();
    QCoreApplication::sendPostedEvents(qApp, QEvent::MetaCall);
    run.atMost = timer.elapsed();
    qInstallMessageHandler(previous);
    return run;
}

/// The number of milliseconds that \a line tells of a task called \a name, or -1 if it is not the line of a slow task.
qint64 ElapsedIn(const QString &line, const QString &name)
{
    const QString start = QStringLiteral("QcTaskDispatcher::ExecuteTask: %1 elapsed: ").arg(name);
    bool isNumber = false;
    const qint64 elapsed = line.mid(start.size()).toLongLong(&isNumber);
    return line.startsWith(start) && isNumber ? elapsed : -1;
}

/// RunBusyTask(), repeated until nothing interrupted it, so that it took \a milliseconds to every clock.
TimedRun RunUninterruptedTask(qint64 milliseconds, const std::string &name)
{
    TimedRun run = RunBusyTask(milliseconds, name);
    for (int attempt = 0; attempt < 100 && run.atMost > milliseconds; ++attempt)
        run = RunBusyTask(milliseconds, name);
    return run;
}

class Thrown : public std::runtime_error
{
public:
    Thrown()
        : std::runtime_error("thrown by a task")
    {
    }
};

} // namespace

class tst_QcTaskDispatcher : public TestCase
{
    Q_OBJECT

private:
    QString m_log;

    std::function<void()> Append(QChar letter)
    {
        return [this, letter] { m_log.append(letter); };
    }

    void SetUp() override { m_log.clear(); }

private Q_SLOTS:
    void a_record_starts_empty()
    {
        const Record record;
        QVERIFY(!record.task);
        QVERIFY(record.name.empty());
        QVERIFY(record.owner.isNull());
        QCOMPARE(record.checkOwner, false);
        QCOMPARE(record.rearmSchedule, false);
        QVERIFY(record.rearmMergeKey.empty());
    }

    void a_post_runs_later_and_once()
    {
        Post(MakeRecord(Append(QLatin1Char('a'))));
        QVERIFY(m_log.isEmpty());
        DrainEvents();
        QCOMPARE(m_log, QStringLiteral("a"));
    }

    void posts_run_in_order()
    {
        for (char letter = '0'; letter <= '9'; ++letter)
            Post(MakeRecord(Append(QLatin1Char(letter))));
        DrainEvents();
        QCOMPARE(m_log, QStringLiteral("0123456789"));
    }

    void posts_take_their_turn_among_other_events()
    {
        Post(MakeRecord(Append(QLatin1Char('a'))));
        QMetaObject::invokeMethod(qApp, Append(QLatin1Char('b')), Qt::QueuedConnection);
        Post(MakeRecord(Append(QLatin1Char('c'))));
        QMetaObject::invokeMethod(this, Append(QLatin1Char('d')), Qt::QueuedConnection);
        Post(MakeRecord(Append(QLatin1Char('e'))));
        DrainEvents();
        QCOMPARE(m_log, QStringLiteral("abcde"));
    }

    void posts_of_a_worker_run_in_order_on_the_main_thread()
    {
        bool onMainThread = true;
        std::thread worker([this, &onMainThread] {
            for (char letter = '0'; letter <= '9'; ++letter) {
                Post(MakeRecord([this, letter, &onMainThread] {
                    m_log.append(QLatin1Char(letter));
                    onMainThread = onMainThread && QThread::currentThread() == qApp->thread();
                }));
            }
        });
        worker.join();
        QVERIFY(m_log.isEmpty());
        DrainEvents();
        QCOMPARE(m_log, QStringLiteral("0123456789"));
        QVERIFY(onMainThread);
    }

    void a_post_made_by_a_task_runs_after_it()
    {
        Post(MakeRecord([this] {
            Post(MakeRecord(Append(QLatin1Char('c'))));
            m_log.append(QLatin1Char('a'));
        }));
        Post(MakeRecord(Append(QLatin1Char('b'))));
        DrainEvents();
        QCOMPARE(m_log, QStringLiteral("abc"));
    }

    void one_record_may_be_posted_twice()
    {
        const auto record = MakeRecord(Append(QLatin1Char('a')));
        Post(record);
        Post(record);
        DrainEvents();
        QCOMPARE(m_log, QStringLiteral("aa"));
    }

    void a_record_is_freed_after_its_run()
    {
        Records records;
        {
            const auto record = MakeRecord(Append(QLatin1Char('a')));
            records.Watch(record);
            Post(record);
        }
        QCOMPARE(records.Alive(), 1);
        DrainEvents();
        QCOMPARE(m_log, QStringLiteral("a"));
        QCOMPARE(records.Alive(), 0);
    }

    void an_owner_that_died_is_respected_only_if_asked_data()
    {
        QTest::addColumn<bool>("checkOwner");
        QTest::addColumn<bool>("ownerDies");
        QTest::addColumn<bool>("runs");
        QTest::newRow("checked, alive") << true << false << true;
        QTest::newRow("checked, dead") << true << true << false;
        QTest::newRow("unchecked, alive") << false << false << true;
        QTest::newRow("unchecked, dead") << false << true << true;
    }

    void an_owner_that_died_is_respected_only_if_asked()
    {
        QFETCH(bool, checkOwner);
        QFETCH(bool, ownerDies);
        QFETCH(bool, runs);

        auto owner = std::make_unique<QObject>();
        auto record = MakeRecord(Append(QLatin1Char('a')));
        record->owner = owner.get();
        record->checkOwner = checkOwner;
        Post(record);
        if (ownerDies)
            owner.reset();
        DrainEvents();
        QCOMPARE(m_log, runs ? QStringLiteral("a") : QString());
    }

    void an_owner_may_die_in_the_task_before()
    {
        auto owner = std::make_unique<QObject>();
        auto record = MakeRecord(Append(QLatin1Char('b')));
        record->owner = owner.get();
        record->checkOwner = true;
        Post(MakeRecord([&owner] { owner.reset(); }));
        Post(record);
        Post(MakeRecord(Append(QLatin1Char('c'))));
        DrainEvents();
        QCOMPARE(m_log, QStringLiteral("c"));
    }

    void a_checked_owner_that_was_never_set_counts_as_gone()
    {
        auto record = MakeRecord(Append(QLatin1Char('a')));
        record->checkOwner = true;
        Post(record);
        DrainEvents();
        QVERIFY(m_log.isEmpty());
    }

    void a_null_post_does_nothing()
    {
        Post(nullptr);
        Post(MakeRecord(Append(QLatin1Char('a'))));
        DrainEvents();
        QCOMPARE(m_log, QStringLiteral("a"));
    }

    void an_empty_task_is_skipped_and_the_next_runs()
    {
        bool nextRan = false;
        Post(MakeRecord({}, "empty"));
        Post(MakeRecord([&nextRan] { nextRan = true; }, "next"));
        DrainEvents();
        QVERIFY(nextRan);
    }

    void a_slow_task_is_named_with_its_time_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("a name") << QStringLiteral("x");
        QTest::newRow("none") << QString();
        QTest::newRow("logged as it is") << QString::fromUtf8(u8"\"K\u00e4se\" %1");
    }

    void a_slow_task_is_named_with_its_time()
    {
        QFETCH(QString, name);
        const TimedRun run = RunBusyTask(150, name.toStdString());
        QCOMPARE(run.lines.size(), 1);
        const qint64 elapsed = ElapsedIn(run.lines.constFirst(), name);
        QVERIFY2(elapsed >= 150 && elapsed <= run.atMost, qPrintable(run.lines.constFirst()));
    }

    void a_task_is_slow_from_101_milliseconds_on()
    {
        const TimedRun quick = RunUninterruptedTask(100, "quick");
        QCOMPARE(quick.atMost, 100);
        QCOMPARE(quick.lines, QStringList());

        const TimedRun slow = RunUninterruptedTask(101, "slow");
        QCOMPARE(slow.lines, QStringList(QStringLiteral("QcTaskDispatcher::ExecuteTask: slow elapsed: 101")));
    }

    void what_a_task_throws_escapes_into_the_dispatch()
    {
        Records records;
        {
            const auto record = MakeRecord([] { throw Thrown(); });
            records.Watch(record);
            Post(record);
        }
        Post(MakeRecord(Append(QLatin1Char('a'))));
        QVERIFY_EXCEPTION_THROWN(QCoreApplication::sendPostedEvents(qApp, QEvent::MetaCall), Thrown);
        QCOMPARE(records.Alive(), 0);
        QVERIFY(m_log.isEmpty());
        DrainEvents();
        QCOMPARE(m_log, QStringLiteral("a"));
    }

    void scheduled_and_merged_tasks_never_run_at_once()
    {
        Records records;
        const auto watched = [&records](const std::shared_ptr<Record> &record) {
            records.Watch(record);
            return record;
        };
        TheApplication()->ScheduleTaskToMainThread(watched(MakeRecord([] {})));
        TheApplication()->MergeTaskToMainThread(watched(MakeRecord([] {})), "never at once");
        QVERIFY(DispatcherThread()); // by now the dispatcher has seen both
        DrainEvents();
        QCOMPARE(records.Alive(), 2);
    }

    void a_replaced_merge_record_is_dropped_on_the_dispatchers_thread()
    {
        QThread *thread = DispatcherThread();
        QVERIFY(thread);
        QVERIFY(thread != qApp->thread());
        QVERIFY(thread->isRunning());
        QCOMPARE(thread->priority(), QThread::InheritPriority);
        QCOMPARE(DispatcherThread(), thread);
    }
};

VELMORA_TEST_MAIN(tst_QcTaskDispatcher)
#include "tst_QcTaskDispatcher.moc"
