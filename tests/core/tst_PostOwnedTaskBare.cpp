// What posting does when the application object is not ours, or not there.

#include "core/TaskSupport.h"
#include "support/CommandLine.h"
#include "support/TestMain.h"

#include <Velmora/PostOwnedTask.h>

#include <thread>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// Posts from this thread and from another; true if nothing ran and nothing was kept.
bool NothingHappens()
{
    QObject owner;
    int runs = 0;
    const auto witness = std::make_shared<int>(0);
    const auto post = [&] {
        PostOwnedTask(
            &owner, [&runs, witness] { ++runs; }, "never");
    };
    post();
    std::thread(post).join();
    const bool keptNothing = witness.use_count() == 1;
    if (QCoreApplication::instance())
        DrainEvents();
    return keptNothing && runs == 0;
}

} // namespace

class tst_PostOwnedTaskBare : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void nothing_happens_without_an_application_object()
    {
        QVERIFY(!QCoreApplication::instance());
        QVERIFY(NothingHappens());
    }

    void nothing_happens_with_a_core_application()
    {
        const QCoreApplication application(commandLine.count, commandLine.values);
        QVERIFY(NothingHappens());
    }

    void nothing_happens_with_a_plain_application()
    {
        const QApplication application(commandLine.count, commandLine.values);
        QVERIFY(NothingHappens());
    }

    void the_function_runs_with_our_application_only()
    {
        {
            const QcApplication application(commandLine.count, commandLine.values);
            QVERIFY(!NothingHappens());
        }
        QVERIFY(NothingHappens());
    }
};

VELMORA_BARE_TEST_MAIN(tst_PostOwnedTaskBare)
#include "tst_PostOwnedTaskBare.moc"
