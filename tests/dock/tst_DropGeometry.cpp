#include "dock/DropGeometry_p.h"

#include "support/TestMain.h"

#include <QTest>

#include <algorithm>
#include <type_traits>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// Something with a rectangle that may lie inside of another one.
struct Box
{
    QRect rect;
    const Box *parent = nullptr;
};

bool HoldsBox(const Box *ancestor, const Box *box)
{
    for (const Box *parent = box->parent; parent; parent = parent->parent)
        if (parent == ancestor)
            return true;
    return false;
}

Box *InnerMostAt(const QList<Box *> &boxes, const QPoint &point)
{
    return InnerMost(
        boxes, [&point](const Box *box) { return box->rect.contains(point); }, HoldsBox);
}

Box *OuterMostAt(const QList<Box *> &boxes, const QPoint &point)
{
    return OuterMost(
        boxes, [&point](const Box *box) { return box->rect.contains(point); }, HoldsBox);
}

} // namespace

class TestDropGeometry : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_place_is_a_number_by_its_name_alone_and_by_that_of_its_enum()
    {
        static_assert(std::is_convertible<DockPosition, int>::value, "a host writes it into a file, or keeps it in a property");
        const QList<int> alone = {Velmora::Left,      Velmora::Right,      Velmora::Top,      Velmora::Bottom,      Velmora::Center,
                                  Velmora::OuterLeft, Velmora::OuterRight, Velmora::OuterTop, Velmora::OuterBottom, Velmora::NoPosition};
        const QList<int> scoped = {DockPosition::Left,        DockPosition::Right,     DockPosition::Top,        DockPosition::Bottom,
                                   DockPosition::Center,      DockPosition::OuterLeft, DockPosition::OuterRight, DockPosition::OuterTop,
                                   DockPosition::OuterBottom, DockPosition::NoPosition};
        QCOMPARE(alone, QList<int>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
        QCOMPARE(scoped, alone);
    }

    void a_drop_takes_the_told_part_of_its_area_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<QRect>("expected");

        // An area of 201 by 101 at (10, 20), inside of a whole of 401 by 301 at (1, 2): odd sizes tell the halves apart.
        QTest::newRow("left") << int(Left) << QRect(10, 20, 100, 101);
        QTest::newRow("right") << int(Right) << QRect(110, 20, 100, 101);
        QTest::newRow("top") << int(Top) << QRect(10, 20, 201, 50);
        QTest::newRow("bottom") << int(Bottom) << QRect(10, 70, 201, 50);
        QTest::newRow("center") << int(Center) << QRect(10, 20, 201, 101);
        QTest::newRow("outer left") << int(OuterLeft) << QRect(1, 2, 200, 301);
        QTest::newRow("outer right") << int(OuterRight) << QRect(202, 2, 200, 301);
        QTest::newRow("outer top") << int(OuterTop) << QRect(1, 2, 401, 150);
        QTest::newRow("outer bottom") << int(OuterBottom) << QRect(1, 153, 401, 150);
        QTest::newRow("none") << int(NoPosition) << QRect();
    }

    void a_screen_left_of_and_above_the_first_changes_no_halves()
    {
        const QRect area(-901, -301, 201, 101);
        const QRect outer(-951, -401, 401, 301); // ends on the screen at the right
        QCOMPARE(MaskRect(Right, area, outer), QRect(-801, -301, 100, 101));
        QCOMPARE(MaskRect(Bottom, area, outer), QRect(-901, -251, 201, 50));
        QCOMPARE(MaskRect(OuterRight, area, outer), QRect(-750, -401, 200, 301));
        QCOMPARE(MaskRect(OuterBottom, area, outer), QRect(-951, -250, 401, 150));
        QCOMPARE(IndicatorTopLeft(area, QSize(184, 191)), QPoint(-893, -346));
        QCOMPARE(IndicatorTopLeft(QRect(-200, 0, 401, 301), QSize(184, 191)), QPoint(-92, 55)); // across both
    }

    void a_drop_takes_the_told_part_of_its_area()
    {
        QFETCH(int, position);
        QFETCH(QRect, expected);

        QCOMPARE(MaskRect(DockPosition(position), QRect(10, 20, 201, 101), QRect(1, 2, 401, 301)), expected);
    }

    void a_number_that_names_no_place_takes_nothing()
    {
        QVERIFY(MaskRect(DockPosition(77), QRect(0, 0, 9, 9), QRect(0, 0, 9, 9)).isNull());
        QVERIFY(MaskRect(DockPosition(-1), QRect(0, 0, 9, 9), QRect(0, 0, 9, 9)).isNull());
        QCOMPARE(int(WithoutOuter(DockPosition(77))), 77);
        QVERIFY(!IsOuter(DockPosition(77)));
    }

    void a_place_is_offered_only_where_the_panel_may_go_data()
    {
        const QList<int> sides = {Left, Right, Top, Bottom, OuterLeft, OuterRight, OuterTop, OuterBottom};
        const QList<int> all = QList<int>{Center} + sides;
        QTest::addColumn<bool>("takesType");
        QTest::addColumn<bool>("isNested");
        QTest::addColumn<bool>("isEmpty");
        QTest::addColumn<QList<int>>("expected");

        QTest::newRow("compatible") << true << false << false << all;
        QTest::newRow("refuses the type") << false << false << false << sides;
        QTest::newRow("empty, top level") << true << false << true << QList<int>{Center};
        QTest::newRow("empty, nested") << true << true << true << all;
        QTest::newRow("nested, refuses the type") << false << true << false << sides;
        QTest::newRow("empty, top level, refuses the type") << false << false << true << QList<int>{Center};
    }

    void a_place_is_offered_only_where_the_panel_may_go()
    {
        QFETCH(bool, takesType);
        QFETCH(bool, isNested);
        QFETCH(bool, isEmpty);
        QFETCH(QList<int>, expected);

        QList<int> offered;
        for (const DockPosition position : OfferedPositions(takesType, isNested, isEmpty))
            offered.append(position);
        QCOMPARE(offered, expected);
    }

    void an_outer_place_is_a_side_of_the_whole_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("side");
        QTest::newRow("left") << int(OuterLeft) << int(Left);
        QTest::newRow("right") << int(OuterRight) << int(Right);
        QTest::newRow("top") << int(OuterTop) << int(Top);
        QTest::newRow("bottom") << int(OuterBottom) << int(Bottom);
    }

    void an_outer_place_is_a_side_of_the_whole()
    {
        QFETCH(int, position);
        QFETCH(int, side);

        QVERIFY(IsOuter(DockPosition(position)));
        QCOMPARE(int(WithoutOuter(DockPosition(position))), side);
        QVERIFY(!IsOuter(DockPosition(side)));
        QCOMPARE(int(WithoutOuter(DockPosition(side))), side);
    }

    void an_arrow_leads_to_the_nearest_offered_place_on_its_side()
    {
        const QList<DockPosition> all = OfferedPositions(true, false, false);
        QCOMPARE(PlaceBeside(Center, -1, 0, all), Left);
        QCOMPARE(PlaceBeside(Left, -1, 0, all), OuterLeft);
        QCOMPARE(PlaceBeside(OuterLeft, -1, 0, all), OuterLeft);
        QCOMPARE(PlaceBeside(OuterLeft, 1, 0, all), Left);
        QCOMPARE(PlaceBeside(Top, 1, 0, all), Right);
        QCOMPARE(PlaceBeside(Right, 0, 1, all), Bottom);
        QCOMPARE(PlaceBeside(OuterBottom, 0, -1, all), Bottom);
        const QList<DockPosition> withoutCenter = OfferedPositions(false, false, false);
        QCOMPARE(PlaceBeside(Left, 1, 0, withoutCenter), Right);
        QCOMPARE(PlaceBeside(Bottom, 0, -1, withoutCenter), Top);
        QCOMPARE(PlaceBeside(Center, 0, 1, {Center}), Center);
    }

    void the_indicator_is_centred_and_may_overhang()
    {
        QCOMPARE(IndicatorTopLeft(QRect(100, 50, 401, 300), QSize(184, 191)), QPoint(208, 104));
        QCOMPARE(IndicatorTopLeft(QRect(0, 0, 100, 90), QSize(184, 191)), QPoint(-42, -50));
    }

    void the_inner_most_is_found_whatever_the_order_of_registration()
    {
        Box whole{QRect(0, 0, 100, 100), nullptr};
        Box middle{QRect(0, 0, 50, 100), &whole};
        Box leaf{QRect(0, 0, 50, 50), &middle};

        QList<Box *> order = {&leaf, &middle, &whole};
        do {
            QCOMPARE(InnerMostAt(order, QPoint(10, 10)), &leaf);
            QCOMPARE(OuterMostAt(order, QPoint(10, 10)), &whole);
            QCOMPARE(InnerMostAt(order, QPoint(10, 70)), &middle);
        } while (std::next_permutation(order.begin(), order.end()));
    }

    void unrelated_hits_stay_with_the_earlier_registration()
    {
        Box first{QRect(0, 0, 100, 100), nullptr};
        Box second{QRect(0, 0, 10, 10), nullptr};
        Box insideSecond{QRect(0, 0, 10, 10), &second};

        QCOMPARE(InnerMostAt({&first, &second, &insideSecond}, QPoint(5, 5)), &first);
        QCOMPARE(OuterMostAt({&first, &second, &insideSecond}, QPoint(5, 5)), &first);
        QCOMPARE(InnerMostAt({&second, &first, &insideSecond}, QPoint(5, 5)), &insideSecond);
    }

    void edges_are_inside_and_places_of_the_gone_are_passed_over()
    {
        Box box{QRect(10, 10, 20, 20), nullptr};

        QCOMPARE(InnerMostAt({nullptr, &box}, QPoint(10, 10)), &box);
        QCOMPARE(OuterMostAt({&box, nullptr}, QPoint(29, 29)), &box);
        QVERIFY(!InnerMostAt({nullptr, &box}, QPoint(30, 29)));
        QVERIFY(!OuterMostAt({}, QPoint(10, 10)));
    }
};

VELMORA_BARE_TEST_MAIN(TestDropGeometry)
#include "tst_DropGeometry.moc"
