#include "dock/DockLayout_p.h"
#include "dock/RandomLayout.h"

#include "support/TestMain.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <numeric>

using namespace Velmora;

namespace {

LayoutPanel Panel(int type)
{
    return LayoutPanel{type, QRect(0, 0, 0, 0)};
}

LayoutArea Area(const QList<int> &types, int currentIndex = -1)
{
    LayoutArea area;
    for (const int type : types)
        area.panels.append(Panel(type));
    area.currentIndex = currentIndex;
    return area;
}

LayoutContainer Container(Qt::Orientation orientation, std::vector<LayoutNode> children)
{
    LayoutContainer container;
    container.orientation = orientation;
    container.children = std::move(children);
    return container;
}

/// The root of \a json, which must be accepted.
LayoutContainer RootOf(const QByteArray &json)
{
    const std::optional<Layout> layout = ParseLayout(json);
    if (!layout) {
        QTest::qFail("refused", __FILE__, __LINE__);
        return {};
    }
    return layout->root;
}

QList<int> SizesOf(const QByteArray &sizes, int children = 2)
{
    QByteArrayList areas;
    for (int i = 0; i < children; ++i)
        areas.append("{}");
    return RootOf("{\"sizes\":" + sizes + ",\"children\":[" + areas.join(',') + "]}").sizes.value_or(QList<int>{-1});
}

/// \a depth containers in each other, the root among them.
QByteArray Nested(int depth)
{
    QByteArray json = "{\"orientation\":1}";
    for (int i = 1; i < depth; ++i)
        json = "{\"orientation\":2,\"children\":[" + json + "]}";
    return json;
}

/// One area of \a panels panels.
QByteArray Crowd(int panels)
{
    QByteArray entries;
    for (int i = 0; i < panels; ++i)
        entries += i > 0 ? ",{\"type\":1}" : "{\"type\":1}";
    return "{\"children\":[{\"dockWidgetList\":[" + entries + "]}]}";
}

} // namespace

class tst_DockLayout : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // --- What is written ---

    void every_node_is_written_with_its_keys()
    {
        Layout layout;
        layout.root = Container(Qt::Horizontal, {Area({7}, 0), Container(Qt::Vertical, {Area({})})});
        layout.root.sizes = QList<int>{10, 20};
        std::get<LayoutArea>(layout.root.children.front()).panels[0].geometry = QRect(1, 2, 3, 4);
        layout.floating = {LayoutPanel{9, QRect(-5, 6, 70, 80)}};
        QCOMPARE(WriteLayout(layout),
                 QByteArray("{\"children\":[{\"currentIndex\":0,\"dockWidgetList\":[{\"height\":4,\"nodeType\":\"dockWidget\",\"type\":7,"
                            "\"width\":3,\"x\":1,\"y\":2}],\"nodeType\":\"dockArea\"},{\"children\":[{\"currentIndex\":-1,"
                            "\"dockWidgetList\":[],\"nodeType\":\"dockArea\"}],\"nodeType\":\"dockContainer\",\"orientation\":2}],"
                            "\"floatingWidgets\":[{\"height\":80,\"nodeType\":\"dockWidget\",\"type\":9,\"width\":70,\"x\":-5,\"y\":6}],"
                            "\"nodeType\":\"dockContainer\",\"orientation\":1,\"sizes\":[10,20]}"));
    }

    void floating_panels_are_written_only_where_there_are_any() { QVERIFY(!WriteLayout(Layout()).contains("floatingWidgets")); }

    void what_was_read_is_written_and_read_again_as_the_same()
    {
        for (quint32 seed = 1; seed <= 500; ++seed) {
            const Layout layout = VelmoraTest::RandomLayout(seed);
            const QByteArray text = WriteLayout(layout);
            const std::optional<Layout> read = ParseLayout(text);
            QVERIFY2(read && *read == layout, qPrintable(QStringLiteral("seed %1: ").arg(seed) + QString::fromUtf8(text)));
            QCOMPARE(WriteLayout(*read), text);
        }
    }

    void any_text_that_is_accepted_is_settled_after_one_writing()
    {
        const QByteArrayList texts{
            "{}",
            "{\"sizes\":[5,-1,9,\"x\"],\"children\":[{},{\"orientation\":77},3]}",
            "{\"sizes\":[16777215,16777215,1e300],\"children\":[{},{},{}]}",
            "{\"floatingWidgets\":[{\"type\":1.5,\"x\":1e300,\"width\":-3},{\"x\":3}]}",
            "{\"children\":[{\"dockWidgetList\":[{\"type\":2},{}],\"currentIndex\":99,\"orientation\":null}]}",
        };
        for (const QByteArray &text : texts) {
            const std::optional<Layout> read = ParseLayout(text);
            QVERIFY2(read, text);
            const std::optional<Layout> again = ParseLayout(WriteLayout(*read));
            QVERIFY2(again && *again == *read, text);
        }
    }

    // --- What is refused ---

    void a_text_that_is_no_JSON_object_is_refused_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("blank") << QByteArray(" \n\t ");
        QTest::newRow("no JSON") << QByteArray("[dock]\nleft=1");
        QTest::newRow("cut off") << QByteArray("{\"orientation\":1,\"children\":[{\"dockWid");
        QTest::newRow("text after the end") << QByteArray("{} x");
        QTest::newRow("a second object after the end") << QByteArray("{}{}");
        QTest::newRow("comma before the end") << QByteArray("{\"orientation\":1,}");
        QTest::newRow("single quotes") << QByteArray("{'orientation':1}");
        QTest::newRow("zero inside") << QByteArray("{\"orientation\"\0:1}", 18);
        QTest::newRow("zero after the end") << QByteArray("{}\0", 3);
        QTest::newRow("array") << QByteArray("[{\"orientation\":1}]");
        QTest::newRow("number") << QByteArray("3");
        QTest::newRow("string") << QByteArray("\"dockContainer\"");
        QTest::newRow("null") << QByteArray("null");
        QTest::newRow("bad number") << QByteArray("{\"orientation\":01}");
        QTest::newRow("nested beyond the parser") << "{\"x\":" + QByteArray(1100, '[') + QByteArray(1100, ']') + "}";
    }
    void a_text_that_is_no_JSON_object_is_refused()
    {
        QFETCH(QByteArray, text);
        QVERIFY(!ParseLayout(text));
    }

    void a_text_of_16_MiB_is_read_and_a_longer_one_refused()
    {
        const QByteArray text("{}");
        QVERIFY(ParseLayout(text + QByteArray(kMaxLayoutBytes - text.size(), ' ')));
        QVERIFY(!ParseLayout(text + QByteArray(kMaxLayoutBytes - text.size() + 1, ' ')));
    }

    void ten_thousand_panels_and_areas_are_read_and_one_more_refused()
    {
        QVERIFY(ParseLayout(Crowd(kMaxLayoutWidgets - 1)));
        QVERIFY(!ParseLayout(Crowd(kMaxLayoutWidgets)));
    }

    void floating_panels_and_wrappers_and_default_areas_count_too()
    {
        QByteArray floating;
        for (int i = 0; i < kMaxLayoutWidgets; ++i)
            floating += i > 0 ? ",{\"type\":1}" : "{\"type\":1}";
        QVERIFY(!ParseLayout("{\"floatingWidgets\":[" + floating + "]}"));
        QByteArray containers; // two areas each: the wrapper and the default area
        for (int i = 0; i < kMaxLayoutWidgets / 2; ++i)
            containers += i > 0 ? ",{\"orientation\":1}" : "{\"orientation\":1}";
        QVERIFY(ParseLayout("{\"children\":[" + containers + "]}"));
        QVERIFY(!ParseLayout("{\"children\":[" + containers + ",{}]}"));
    }

    void entries_that_make_no_widget_count_nothing()
    {
        QByteArray entries;
        for (int i = 0; i < 2 * kMaxLayoutWidgets; ++i)
            entries += i > 0 ? ",{}" : "{}";
        const LayoutContainer root = RootOf("{\"children\":[{\"dockWidgetList\":[" + entries + "]},3,4]}");
        QCOMPARE(root.children.size(), size_t(1));
    }

    void containers_nest_128_deep_and_no_deeper()
    {
        QVERIFY(ParseLayout(Nested(kMaxLayoutDepth)));
        QVERIFY(!ParseLayout(Nested(kMaxLayoutDepth + 1)));
        QVERIFY(!ParseLayout(Nested(1000)));
    }

    // --- What is read leniently ---

    void an_empty_object_is_a_root_with_its_default_area()
    {
        const std::optional<Layout> layout = ParseLayout("{}");
        QVERIFY(layout && *layout == Layout());
        QVERIFY(layout->root.children.empty());
        QVERIFY(!layout->root.sizes);
    }

    void a_byte_order_mark_is_skipped() { QCOMPARE(RootOf("\xEF\xBB\xBF{\"orientation\":2}").orientation, Qt::Vertical); }

    void the_last_of_two_equal_keys_wins()
    {
        QCOMPARE(RootOf("{\"orientation\":1,\"orientation\":2}").orientation, Qt::Vertical);
        QCOMPARE(RootOf("{\"orientation\":2,\"orientation\":1}").orientation, Qt::Horizontal);
    }

    void unknown_keys_and_a_wrong_node_type_mean_nothing()
    {
        const LayoutContainer root =
            RootOf("{\"nodeType\":\"dockWidget\",\"colour\":{\"a\":[]},\"children\":[{\"nodeType\":\"dockContainer\","
                   "\"dockWidgetList\":[{\"nodeType\":7,\"type\":3,\"z\":null}]}]}");
        QVERIFY(root == Container(Qt::Horizontal, {Area({3})}));
    }

    void only_2_is_vertical_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<Qt::Orientation>("orientation");
        QTest::newRow("1") << QByteArray("1") << Qt::Horizontal;
        QTest::newRow("2") << QByteArray("2") << Qt::Vertical;
        QTest::newRow("2.0") << QByteArray("2.0") << Qt::Vertical;
        for (const char *other : {"0", "3", "77", "-2", "2.5", "1e300", "-1e300", "null", "true", "\"2\"", "[2]", "{}"})
            QTest::newRow(other) << QByteArray(other) << Qt::Horizontal;
    }
    void only_2_is_vertical()
    {
        QFETCH(QByteArray, value);
        QFETCH(Qt::Orientation, orientation);
        QCOMPARE(RootOf("{\"orientation\":" + value + "}").orientation, orientation);
        // On a child the key alone says what it is.
        const LayoutContainer parent = RootOf("{\"children\":[{\"orientation\":" + value + "}]}");
        QVERIFY(parent == Container(Qt::Horizontal, {Container(orientation, {})}));
    }

    void children_that_are_no_array_leave_the_default_area_data()
    {
        QTest::addColumn<QByteArray>("children");
        for (const char *children : {"null", "3", "\"x\"", "{\"0\":{}}", "[]", "[3,null,\"x\",[{}]]"})
            QTest::newRow(children) << QByteArray(children);
    }
    void children_that_are_no_array_leave_the_default_area()
    {
        QFETCH(QByteArray, children);
        QVERIFY(RootOf("{\"children\":" + children + "}").children.empty());
    }

    void a_child_that_is_no_object_is_skipped()
    {
        QVERIFY(RootOf("{\"children\":[3,{\"dockWidgetList\":[{\"type\":1}]},null,[],{}]}")
                == Container(Qt::Horizontal, {Area({1}), Area({})}));
    }

    void a_child_with_neither_key_is_an_empty_area_and_one_with_both_a_container()
    {
        QVERIFY(RootOf("{\"children\":[{\"currentIndex\":3},{\"orientation\":2,\"dockWidgetList\":[{\"type\":1}]}]}")
                == Container(Qt::Horizontal, {Area({}), Container(Qt::Vertical, {})}));
    }

    void a_list_of_panels_that_is_no_array_is_an_empty_area()
    {
        QVERIFY(RootOf("{\"children\":[{\"dockWidgetList\":{\"type\":1}},{\"dockWidgetList\":7}]}")
                == Container(Qt::Horizontal, {Area({}), Area({})}));
    }

    void a_panel_without_a_type_is_skipped_and_shifts_those_behind()
    {
        QVERIFY(RootOf("{\"children\":[{\"currentIndex\":1,\"dockWidgetList\":[{\"type\":1},{\"x\":3},4,{\"type\":2},{\"type\":3}]}]}")
                == Container(Qt::Horizontal, {Area({1, 2, 3}, 1)}));
    }

    void a_type_that_is_no_whole_int_is_0_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<int>("type");
        QTest::newRow("int") << QByteArray("-2147483648") << std::numeric_limits<int>::min();
        QTest::newRow("whole") << QByteArray("3.0") << 3;
        for (const char *other : {"1.5", "2147483648", "-2147483649", "1e300", "-1e300", "null", "true", "\"7\"", "[7]", "{}"})
            QTest::newRow(other) << QByteArray(other) << 0;
    }
    void a_type_that_is_no_whole_int_is_0()
    {
        QFETCH(QByteArray, value);
        QFETCH(int, type);
        QVERIFY(RootOf("{\"children\":[{\"dockWidgetList\":[{\"type\":" + value + "}]}]}") == Container(Qt::Horizontal, {Area({type})}));
    }

    void two_panels_of_one_type_are_two_panels()
    {
        QVERIFY(RootOf("{\"children\":[{\"dockWidgetList\":[{\"type\":4},{\"type\":4}]}]}") == Container(Qt::Horizontal, {Area({4, 4})}));
    }

    void a_current_index_is_kept_as_it_reads_data()
    {
        QTest::addColumn<QByteArray>("entry");
        QTest::addColumn<int>("index");
        QTest::newRow("missing") << QByteArray() << -1;
        QTest::newRow("valid") << QByteArray(",\"currentIndex\":1") << 1;
        QTest::newRow("negative") << QByteArray(",\"currentIndex\":-7") << -7;
        QTest::newRow("too far") << QByteArray(",\"currentIndex\":99") << 99;
        QTest::newRow("a string") << QByteArray(",\"currentIndex\":\"1\"") << 0;
        QTest::newRow("null") << QByteArray(",\"currentIndex\":null") << 0;
        QTest::newRow("half") << QByteArray(",\"currentIndex\":1.5") << 0;
    }
    void a_current_index_is_kept_as_it_reads()
    {
        QFETCH(QByteArray, entry);
        QFETCH(int, index);
        const QByteArray text = "{\"children\":[{\"dockWidgetList\":[{\"type\":1},{\"type\":2},{\"type\":3}]" + entry + "}]}";
        QVERIFY(RootOf(text) == Container(Qt::Horizontal, {Area({1, 2, 3}, index)}));
    }

    void sizes_are_numbers_from_0_to_the_largest_of_a_widget_data()
    {
        QTest::addColumn<QByteArray>("sizes");
        QTest::addColumn<QList<int>>("expected");
        QTest::newRow("plain") << QByteArray("[100,200]") << QList<int>{100, 200};
        QTest::newRow("fractions") << QByteArray("[100.9,0.5]") << QList<int>{100, 0};
        QTest::newRow("no numbers") << QByteArray("[\"100\",null]") << QList<int>{0, 0};
        QTest::newRow("negative") << QByteArray("[-1,-1e300]") << QList<int>{0, 0};
        QTest::newRow("huge") << QByteArray("[1e300,0]") << QList<int>{kMaxLayoutLength, 0};
        QTest::newRow("too few") << QByteArray("[100]") << QList<int>{100};
        QTest::newRow("none") << QByteArray("[]") << QList<int>{};
        QTest::newRow("too many") << QByteArray("[100,200,1e300,16777215]") << QList<int>{100, 200};
        QTest::newRow("sum at the limit") << QByteArray("[16777214,1]") << QList<int>{kMaxLayoutLength - 1, 1};
        QTest::newRow("sum too large") << QByteArray("[1e300,1e300]") << QList<int>{kMaxLayoutLength / 2, kMaxLayoutLength / 2};
        QTest::newRow("sum too large, uneven") << QByteArray("[16777215,5592405]") << QList<int>{12582911, 4194303};
    }
    void sizes_are_numbers_from_0_to_the_largest_of_a_widget()
    {
        QFETCH(QByteArray, sizes);
        QFETCH(QList<int>, expected);
        QCOMPARE(SizesOf(sizes), expected);
    }

    void the_sizes_of_many_panes_can_be_added_up_as_an_int()
    {
        QByteArrayList entries;
        for (int i = 0; i < 5000; ++i)
            entries.append("1e9");
        const QList<int> sizes = SizesOf("[" + entries.join(',') + "]", int(entries.size()));
        QCOMPARE(sizes.size(), entries.size());
        const qint64 sum = std::accumulate(sizes.cbegin(), sizes.cend(), qint64(0));
        QVERIFY(sum > 0 && sum <= kMaxLayoutLength);
        QCOMPARE(sizes.first(), sizes.last());
    }

    void sizes_that_are_no_array_are_none_data()
    {
        QTest::addColumn<QByteArray>("sizes");
        for (const char *sizes : {"null", "300", "\"[100,200]\"", "{\"0\":100}"})
            QTest::newRow(sizes) << QByteArray(sizes);
    }
    void sizes_that_are_no_array_are_none()
    {
        QFETCH(QByteArray, sizes);
        QVERIFY(!RootOf("{\"sizes\":" + sizes + "}").sizes);
    }

    void a_container_without_children_takes_the_size_of_its_default_area()
    {
        QCOMPARE(*RootOf("{\"sizes\":[300,400]}").sizes, QList<int>{300});
    }

    void floating_panels_are_read_from_the_root_alone()
    {
        const auto layout = ParseLayout("{\"floatingWidgets\":[{\"type\":5,\"x\":1,\"y\":-2,\"width\":3,\"height\":4},{\"x\":9},null],"
                                        "\"children\":[{\"orientation\":1,\"floatingWidgets\":[{\"type\":6}]}]}");
        QVERIFY(layout);
        QCOMPARE(layout->floating, (QList<LayoutPanel>{{5, QRect(1, -2, 3, 4)}}));
        QVERIFY(layout->root == Container(Qt::Horizontal, {Container(Qt::Horizontal, {})}));
    }

    void floating_panels_that_are_no_array_are_none()
    {
        for (const char *floating : {"null", "{\"type\":5}", "5"}) {
            const auto layout = ParseLayout(QByteArray("{\"floatingWidgets\":") + floating + "}");
            QVERIFY(layout && layout->floating.isEmpty());
        }
    }

    void a_floating_geometry_is_held_within_what_Qt_can_show_data()
    {
        QTest::addColumn<QByteArray>("keys");
        QTest::addColumn<QRect>("geometry");
        const int most = kMaxLayoutLength;
        QTest::newRow("missing") << QByteArray() << QRect(0, 0, 0, 0);
        QTest::newRow("text") << QByteArray(",\"x\":\"1\",\"y\":null,\"width\":\"5\",\"height\":[]") << QRect(0, 0, 0, 0);
        QTest::newRow("0 by 0") << QByteArray(",\"x\":7,\"y\":8,\"width\":0,\"height\":0") << QRect(7, 8, 0, 0);
        QTest::newRow("negative") << QByteArray(",\"x\":-7,\"y\":-8,\"width\":-1,\"height\":-2147483648") << QRect(-7, -8, 0, 0);
        QTest::newRow("huge") << QByteArray(",\"x\":1e300,\"y\":-1e300,\"width\":1e300,\"height\":2147483647")
                              << QRect(most, -most, most, most);
    }
    void a_floating_geometry_is_held_within_what_Qt_can_show()
    {
        QFETCH(QByteArray, keys);
        QFETCH(QRect, geometry);
        const auto layout = ParseLayout("{\"floatingWidgets\":[{\"type\":1" + keys + "}]}");
        QVERIFY(layout);
        QCOMPARE(layout->floating.first().geometry, geometry);
    }
};

VELMORA_BARE_TEST_MAIN(tst_DockLayout)
#include "tst_DockLayout.moc"
