#include "dock/DockTestCase.h"
#include "dock/Monkey.h"
#include "support/NumberFromEnvironment.h"
#include "support/TestMain.h"

namespace {

constexpr int kOperationsOfASeed = 100;

/// What the offscreen platform says of a host that makes a child of a window, and QtTest of a mouse outside of all windows.
bool IsOfTheStage(const QString &line)
{
    return line.contains(QLatin1String("This plugin does not support setParent!")) || line.contains(QLatin1String("Mouse event at"));
}

} // namespace

/// 2,000 operations, a hundred a seed. VELMORA_MONKEY asks for another number, VELMORA_MONKEY_SEED for another first seed, and
/// VELMORA_MONKEY_TRACE, set to anything, for every operation on stderr, for a seed that ends the program.
class tst_DockMonkey : public VelmoraTest::DockTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void whatever_users_and_hosts_do_no_promise_is_broken_data()
    {
        QTest::addColumn<quint32>("seed");
        const int first = VelmoraTest::NumberFromEnvironment("VELMORA_MONKEY_SEED", 1);
        const int seeds = (VelmoraTest::NumberFromEnvironment("VELMORA_MONKEY", 2000) + kOperationsOfASeed - 1) / kOperationsOfASeed;
        for (int seed = first; seed < first + seeds; ++seed)
            QTest::addRow("seed %d", seed) << quint32(seed);
    }
    void whatever_users_and_hosts_do_no_promise_is_broken()
    {
        QFETCH(quint32, seed);
        VelmoraTest::Monkey monkey(seed);
        for (int operation = 1; operation <= kOperationsOfASeed; ++operation) {
            QStringList faults = monkey.Step();
            for (const QString &line : Log().TakeFaults())
                if (!IsOfTheStage(line))
                    faults.append(line);
            if (faults.isEmpty())
                continue;
            const QString story = monkey.LastSteps().join(QStringLiteral("\n    "));
            QFAIL(qPrintable(QStringLiteral("seed %1, step %2:\n  %3\nin\n    %4\nafter the last steps\n    %5")
                                 .arg(seed)
                                 .arg(operation)
                                 .arg(faults.join(QStringLiteral("\n  ")), monkey.Trees().join(QStringLiteral("\n    ")), story)));
        }
    }
};

VELMORA_TEST_MAIN(tst_DockMonkey)
#include "tst_DockMonkey.moc"
