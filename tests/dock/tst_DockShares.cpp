#include "dock/DockShares_p.h"

#include "support/TestMain.h"

#include <numeric>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

qint64 Sum(const QList<int> &sizes)
{
    return std::accumulate(sizes.begin(), sizes.end(), qint64(0));
}

} // namespace

class tst_DockShares : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void right_and_bottom_come_after()
    {
        QVERIFY(GoesAfter(Right) && GoesAfter(Bottom));
        QVERIFY(!GoesAfter(Left) && !GoesAfter(Top));
    }

    void left_and_right_lie_side_by_side()
    {
        QCOMPARE(OrientationOf(Left), Qt::Horizontal);
        QCOMPARE(OrientationOf(Right), Qt::Horizontal);
        QCOMPARE(OrientationOf(Top), Qt::Vertical);
        QCOMPARE(OrientationOf(Bottom), Qt::Vertical);
    }

    void a_side_turned_along_stays_before_or_after()
    {
        QCOMPARE(Along(Qt::Horizontal, Top), Left);
        QCOMPARE(Along(Qt::Horizontal, Bottom), Right);
        QCOMPARE(Along(Qt::Vertical, Left), Top);
        QCOMPARE(Along(Qt::Vertical, Right), Bottom);
        QCOMPARE(Along(Qt::Vertical, Top), Top);
    }

    void a_pane_gives_half_to_its_neighbour()
    {
        QCOMPARE(HalvedForNewcomer({100, 301, 200}, 1, true), (QList<int>{100, 150, 150, 200}));
        QCOMPARE(HalvedForNewcomer({100}, 0, false), (QList<int>{50, 50}));
        QCOMPARE(HalvedForNewcomer({100}, 1, false), QList<int>{100});
        QCOMPARE(HalvedForNewcomer({100}, -1, false), QList<int>{100});
        QCOMPARE(HalvedForNewcomer({}, 0, false), QList<int>());
    }

    void a_newcomer_at_an_edge_takes_as_much_as_all()
    {
        QCOMPARE(WithEdgeNewcomer({100, 200}, true), (QList<int>{100, 200, 300}));
        QCOMPARE(WithEdgeNewcomer({100, 200}, false), (QList<int>{300, 100, 200}));
        QCOMPARE(WithEdgeNewcomer({}, true), QList<int>{0});
        QCOMPARE(WithEdgeNewcomer({0x7fffffff, 0x7fffffff}, true).last(), kWholeShare);
    }

    void every_pane_has_one_entry()
    {
        QCOMPARE(FittedTo(2, {1, 2, 3}), (QList<int>{1, 2}));
        QCOMPARE(FittedTo(3, {10, 20}), (QList<int>{10, 20, 15}));
        QCOMPARE(FittedTo(2, {}), (QList<int>{kWholeShare / 2, kWholeShare / 2}));
        QCOMPARE(FittedTo(0, {}), QList<int>());
    }

    void no_sum_is_larger_than_a_whole()
    {
        QCOMPARE(WithinWhole({100, 200}), (QList<int>{100, 200}));
        QCOMPARE(WithinWhole({-5, 200}), (QList<int>{0, 200}));
        const QList<int> large = WithinWhole({0x7fffffff, 0x7fffffff, kWholeShare / 2});
        QVERIFY(Sum(large) <= kWholeShare);
        QCOMPARE(large.at(0), large.at(1));
        QVERIFY(qAbs(large.at(0) - 2 * large.at(2)) <= 2);
    }
};

VELMORA_TEST_MAIN(tst_DockShares)
#include "tst_DockShares.moc"
