#include "DockTestCase.h"
#include "DragStage.h"

#include "support/CallAt.h"
#include "support/TestMain.h"
#include "support/Tokens.h"

#include <Velmora/QcDockAreaTabBarButton.h>
#include <Velmora/QcDockAreaTabFrame.h>

#include <QEventLoop>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QSplitter>
#include <QStackedWidget>
#include <QTimer>
#include <QToolTip>

#include <algorithm>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

QSplitter *SplitterOf(const QcDockContainer &container)
{
    return container.findChild<QSplitter *>(QString(), Qt::FindDirectChildrenOnly);
}

QcDockContainer *NestedIn(const QcDockContainer &container, int index)
{
    return qobject_cast<QcDockContainer *>(const_cast<QcDockContainer &>(container).getDockAreaList().value(index)->widget(0));
}

QWidget *NewContent(int type, const QString &title = QStringLiteral("Content"))
{
    auto *content = new QWidget; // whoever is given it owns it
    content->setProperty("dock_widget_content_type", type);
    content->setWindowTitle(title);
    return content;
}

/// The types in a container as a reader sees them: from left to right or top to bottom, tabs by comma, nested containers in brackets.
QString Shape(QcDockContainer &container)
{
    QStringList areas;
    for (QcDockArea *area : container.getDockAreaList()) {
        QStringList pages;
        for (int i = 0; i < area->count(); ++i) {
            if (auto *nested = qobject_cast<QcDockContainer *>(area->widget(i)))
                pages.append(Shape(*nested));
            else if (auto *panel = qobject_cast<QcDockWidget *>(area->widget(i)))
                pages.append(QString::number(panel->getType()));
        }
        areas.append(pages.join(QLatin1Char(',')));
    }
    const QString bar = container.getOrientation() == Qt::Horizontal ? QStringLiteral(" | ") : QStringLiteral(" / ");
    return QLatin1Char('(') + areas.join(bar) + QLatin1Char(')');
}

/// A container of 908 by 600, not shown yet, with a panel of each of \a types side by side, the first at the left.
struct Row
{
    explicit Row(const QList<int> &types = {1, 2})
    {
        root.resize(908, 600);
        for (int type : types)
            panels.append(Add(type));
    }

    QcDockWidget *Add(int type)
    {
        QcDockWidget *panel = NewPanel(type);
        root.addWidget(panel, panels.isEmpty() ? nullptr : AreaOf(*panels.last()), panels.isEmpty() ? Center : Right);
        return panel;
    }

    QcDockArea *Area(int index) const { return AreaOf(*panels.at(index)); }

    void Show()
    {
        root.show();
        DrainEvents();
    }

    QcDockContainer root{nullptr};
    QList<QcDockWidget *> panels;
};

} // namespace

class tst_QcDockContainer : public DockTestCase
{
    Q_OBJECT

protected:
    void SetUp() override { QcDockController::instance()->setRootDockContainer(nullptr); }

private Q_SLOTS:
    // --- What it begins with ---

    void a_new_container_shows_one_empty_area()
    {
        QcDockContainer root(nullptr);
        QCOMPARE(root.getDockAreaList().size(), 1);
        QVERIFY(root.getDockAreaList().first()->isEmpty());
        QVERIFY(root.hasOnlyOneDockArea());
        QVERIFY(root.isEmpty());
        QVERIFY(!root.isEmptyKeep());
        QCOMPARE(root.getSizes(), QList<int>{0});
        QCOMPARE(root.getOrientation(), Qt::Horizontal);
        QCOMPARE(root.layout()->spacing(), 0);
        QCOMPARE(root.layout()->contentsMargins(), QMargins());
        QCOMPARE(SplitterOf(root)->handleWidth(), 4);
        QVERIFY(!SplitterOf(root)->childrenCollapsible());
    }

    void nothing_comes_of_nulls_and_of_no_position()
    {
        QcDockContainer root(nullptr);
        QcDockWidget *panel = NewPanel(1);
        root.addWidget(nullptr, nullptr, Left);
        root.addWidget(panel, nullptr, NoPosition);
        root.addWidget(panel, nullptr, DockPosition(77));
        root.addWidget(panel, nullptr, DockPosition(-1));
        root.addDockWidgetContent(nullptr, Left);
        QCOMPARE(Shape(root), QStringLiteral("()"));
        delete panel;
    }

    void an_orientation_that_is_none_is_horizontal()
    {
        QcDockContainer root(nullptr);
        root.setOrientation(Qt::Vertical);
        QCOMPARE(root.getOrientation(), Qt::Vertical);
        root.setOrientation(Qt::Orientation(3));
        QCOMPARE(root.getOrientation(), Qt::Horizontal);
    }

    void its_stylesheet_is_that_of_the_theme()
    {
        QcDockContainer root(nullptr);
        root.show();
        DrainEvents();
        root.setStyleSheet(QStringLiteral("QFrame { color: red; }"));
        UseTable(Table::Dark); // whose sheet of the theme is applied anew
        DrainEvents();
        const QString themed = root.styleSheet();
        UseTable(Table::Light);
        QFile sheet(QStringLiteral(":/qss/DockContainer.qss"));
        QVERIFY(sheet.open(QIODevice::ReadOnly));
        QCOMPARE(themed, QString::fromUtf8(sheet.readAll()));
    }

    // --- Placing ---

    void a_single_area_is_split_either_way_without_nesting_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("shape");
        for (Qt::Orientation before : {Qt::Horizontal, Qt::Vertical}) {
            const char *name = before == Qt::Horizontal ? "horizontal, %s" : "vertical, %s";
            QTest::addRow(name, "left") << int(before) << int(Left) << QStringLiteral("(2 | 1)");
            QTest::addRow(name, "right") << int(before) << int(Right) << QStringLiteral("(1 | 2)");
            QTest::addRow(name, "top") << int(before) << int(Top) << QStringLiteral("(2 / 1)");
            QTest::addRow(name, "bottom") << int(before) << int(Bottom) << QStringLiteral("(1 / 2)");
        }
    }

    void a_single_area_is_split_either_way_without_nesting()
    {
        QFETCH(int, before);
        QFETCH(int, position);
        QFETCH(QString, shape);
        QcDockContainer root(nullptr);
        root.setOrientation(Qt::Orientation(before));
        root.addWidget(NewPanel(1), nullptr, Center);
        root.addWidget(NewPanel(2), root.getDockAreaList().first(), DockPosition(position));
        QCOMPARE(Shape(root), shape);
        VERIFY_SETTLED();
    }

    void a_target_gives_half_of_its_size_and_others_keep_theirs()
    {
        Row row({1, 2});
        row.Show();
        QCOMPARE(row.root.getSizes(), (QList<int>{452, 452}));
        row.root.addWidget(NewPanel(3), row.Area(0), Left);
        QCOMPARE(Shape(row.root), QStringLiteral("(3 | 1 | 2)"));
        const QList<int> sizes = row.root.getSizes();
        QVERIFY(qAbs(sizes.at(0) - sizes.at(1)) <= 2);
        QVERIFY(qAbs(sizes.at(2) - 450) <= 4);
        row.root.addWidget(NewPanel(4), row.Area(1), Right);
        QCOMPARE(Shape(row.root), QStringLiteral("(3 | 1 | 2 | 4)"));
        QVERIFY(qAbs(row.root.getSizes().at(3) - 223) <= 4);
        VERIFY_SETTLED();
    }

    void a_newcomer_at_an_edge_takes_half_of_the_whole()
    {
        Row row({1, 2});
        row.Show();
        row.root.addWidget(NewPanel(3), nullptr, Left);
        QCOMPARE(Shape(row.root), QStringLiteral("(3 | 1 | 2)"));
        QVERIFY(qAbs(row.root.getSizes().at(0) - 450) <= 4);
        row.root.addWidget(NewPanel(4), nullptr, Right);
        QVERIFY(qAbs(row.root.getSizes().at(3) - 450) <= 6);
        VERIFY_SETTLED();
    }

    void a_crossing_drop_nests_the_target_in_its_place()
    {
        Row row({1, 2});
        row.Show();
        const QList<int> before = row.root.getSizes();
        row.root.addWidget(NewPanel(3), row.Area(0), Bottom);
        QCOMPARE(Shape(row.root), QStringLiteral("((1 / 3) | 2)"));
        QCOMPARE(row.root.getSizes(), before);
        QCOMPARE(row.root.getDockAreaList().first()->count(), 1); // a wrapper
        const QList<int> inner = NestedIn(row.root, 0)->getSizes();
        QVERIFY(qAbs(inner.at(0) - inner.at(1)) <= 1);
        QVERIFY(inner.at(0) > 280);
        VERIFY_SETTLED();
        QCOMPARE(row.root.getSizes(), before);
    }

    void a_crossing_drop_before_the_target_comes_first()
    {
        Row row({1, 2});
        row.root.addWidget(NewPanel(3), row.Area(1), Top);
        QCOMPARE(Shape(row.root), QStringLiteral("(1 | (3 / 2))"));
        VERIFY_SETTLED();
    }

    void a_crossing_drop_at_an_edge_sinks_all_one_level_data()
    {
        QTest::addColumn<bool>("isShown");
        QTest::newRow("shown") << true;
        QTest::newRow("never shown before") << false;
    }

    void a_crossing_drop_at_an_edge_sinks_all_one_level()
    {
        QFETCH(bool, isShown);
        Row row({1, 2});
        if (isShown)
            row.Show();
        row.root.addWidget(NewPanel(3), nullptr, Bottom);
        QCOMPARE(Shape(row.root), QStringLiteral("((1 | 2) / 3)"));
        if (isShown)
            QVERIFY(qAbs(row.root.getSizes().at(0) - 298) <= 1); // at once
        row.Show();
        QCOMPARE(row.root.getSizes(), (QList<int>{298, 298}));
        QVERIFY(qAbs(NestedIn(row.root, 0)->getSizes().at(0) - 451) <= 2);
        QVERIFY(row.panels.first()->isVisible());
        row.root.addWidget(NewPanel(4), nullptr, Left);
        QCOMPARE(Shape(row.root), QStringLiteral("(4 | ((1 | 2) / 3))"));
        VERIFY_SETTLED();
        // Nothing is flattened: containers stay that are down to one area.
        delete row.panels.at(0);
        delete row.panels.at(1);
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), QStringLiteral("(4 | (3))"));
    }

    void what_sinks_before_the_first_show_keeps_the_sizes_that_it_was_given()
    {
        Row row({1, 2});
        row.root.setSizes({100, 800});
        row.root.addWidget(NewPanel(3), nullptr, Bottom);
        QCOMPARE(DockTree::SizesToKeep(NestedIn(row.root, 0)), (QList<int>{100, 800})); // as its host gave them
        QCOMPARE(DockTree::SizesToKeep(&row.root), row.root.getSizes());
        row.Show();
        QVERIFY(qAbs(NestedIn(row.root, 0)->getSizes().at(0) - 100) <= 2);
        QCOMPARE(row.root.getSizes(), (QList<int>{298, 298}));
    }

    void outer_positions_are_edges_of_the_whole()
    {
        Row row({1, 2});
        row.root.addWidget(NewPanel(3), nullptr, OuterTop);
        QCOMPARE(Shape(row.root), QStringLiteral("(3 / (1 | 2))"));
        row.root.addWidget(NewPanel(4), nullptr, OuterBottom);
        QCOMPARE(Shape(row.root), QStringLiteral("(3 / (1 | 2) / 4)"));
        VERIFY_SETTLED();
    }

    void centre_without_a_target_joins_the_first_area()
    {
        Row row({1, 2});
        row.root.addWidget(NewPanel(3), nullptr, Center);
        QCOMPARE(Shape(row.root), QStringLiteral("(1,3 | 2)"));
    }

    void centre_where_a_wrapper_comes_first_joins_the_first_area_inside()
    {
        Row row({1, 2});
        row.root.addWidget(NewPanel(3), row.Area(0), Bottom);
        row.root.addWidget(NewPanel(4), nullptr, Center);
        QCOMPARE(Shape(row.root), QStringLiteral("((1,4 / 3) | 2)"));
        row.root.addWidget(NewPanel(5), row.root.getDockAreaList().first(), Center);
        QCOMPARE(Shape(row.root), QStringLiteral("((1,4,5 / 3) | 2)"));
        VERIFY_SETTLED();
    }

    void a_target_may_be_anything_inside_of_an_area()
    {
        Row row({1, 2});
        row.root.addWidget(NewPanel(3), row.panels.at(1)->getContentWidget(), Left);
        QCOMPARE(Shape(row.root), QStringLiteral("(1 | 3 | 2)"));
    }

    void a_target_deeper_down_is_split_where_it_is()
    {
        Row row({1, 2});
        QcDockWidget *three = NewPanel(3);
        row.root.addWidget(three, row.Area(0), Bottom);
        row.root.addWidget(NewPanel(4), AreaOf(*three), Bottom);
        QCOMPARE(Shape(row.root), QStringLiteral("((1 / 3 / 4) | 2)"));
        VERIFY_SETTLED();
    }

    void a_target_of_no_container_takes_no_neighbour()
    {
        QcDockContainer root(nullptr);
        QcDockArea loose(nullptr);
        QcDockWidget *panel = NewPanel(1);
        root.addWidget(panel, &loose, Left);
        QCOMPARE(Shape(root), QStringLiteral("()"));
        QVERIFY(!panel->parentWidget());
        delete panel;
    }

    void what_encloses_a_container_is_not_placed_in_it()
    {
        QWidget window;
        auto *root = new QcDockContainer(&window);
        root->addWidget(&window, nullptr, Left);
        root->addWidget(root, nullptr, Left);
        QcDockArea area(nullptr);
        root->addWidget(&area, nullptr, Left);
        QCOMPARE(root->getDockAreaList().size(), 1);
        QVERIFY(!window.parentWidget() && !area.parentWidget());
    }

    void what_holds_a_floating_panel_is_not_placed_in_its_content()
    {
        QWidget window;
        auto *root = new QcDockContainer(&window);
        QcDockController::instance()->setRootDockContainer(root);
        QcDockWidget *panel = NewPanel(1);
        root->addWidget(panel, nullptr, Center);
        panel->swichToFloating(); // a window, and the root's child
        auto *inner = new QcDockContainer(panel->getContentWidget());
        auto *loose = new QcDockArea(nullptr); // the inner container takes it
        for (QWidget *holder : {&window, static_cast<QWidget *>(root)}) {
            inner->addWidget(holder, nullptr, Left);
            inner->addWidget(holder, nullptr, Center);
            inner->addDockWidgetContent(holder, Left);
            inner->setDockWidgetContentList({holder});
            inner->getDockAreaList().first()->addWidget(holder);
            DockTree::TabFrameOf(inner->getDockAreaList().first())->addTab(QString(), holder);
            panel->setContentWidget(holder);
        }
        QCOMPARE(Shape(*inner), QStringLiteral("()"));
        QVERIFY(!window.parentWidget());
        QCOMPARE(root->parentWidget(), &window);
        inner->setDockAreaList({loose});
        QCOMPARE(inner->getDockAreaList(), QList<QcDockArea *>{loose});
        VERIFY_SETTLED();
    }

    // --- Panels that are docked already ---

    void a_docked_panel_leaves_its_old_place()
    {
        Row row({1, 2, 3});
        row.root.addWidget(row.panels.at(0), row.Area(2), Right);
        QCOMPARE(Shape(row.root), QStringLiteral("(2 | 3 | 1)"));
        VERIFY_SETTLED();
        row.root.addWidget(row.panels.at(0), row.Area(1), Center);
        QCOMPARE(Shape(row.root), QStringLiteral("(2,1 | 3)"));
        VERIFY_SETTLED();
    }

    void the_tab_of_a_docked_panel_does_not_stay_behind()
    {
        Row row({1});
        QcDockWidget *leaving = NewPanel(2);
        row.root.addWidget(leaving, row.Area(0), Center);
        row.root.addWidget(leaving, row.Area(0), Right);
        VERIFY_SETTLED();
        QCOMPARE(row.Area(0)->findChildren<QcDockAreaTabBarButton *>().size(), 1);
    }

    void the_place_that_a_panel_leaves_does_not_count_for_the_new_one()
    {
        Row row({1, 2});
        row.root.addWidget(row.panels.at(0), row.Area(1), Top);
        QCOMPARE(Shape(row.root), QStringLiteral("(1 / 2)")); // as if it had floated in between
        VERIFY_SETTLED();
    }

    void a_tab_goes_beside_the_area_that_it_was_in()
    {
        Row row({1});
        QcDockWidget *two = NewPanel(2);
        row.root.addWidget(two, row.Area(0), Center);
        row.root.addWidget(two, row.Area(0), Left);
        QCOMPARE(Shape(row.root), QStringLiteral("(2 | 1)"));
        VERIFY_SETTLED();
    }

    void beside_itself_there_is_no_place()
    {
        Row row({1, 2});
        const QString before = Shape(row.root);
        const QPointer<QcDockArea> own = row.Area(0);
        row.root.addWidget(row.panels.at(0), own, Bottom);
        row.root.addWidget(row.panels.at(0), row.panels.at(0), Left);
        row.root.addWidget(row.panels.at(0), row.panels.at(0)->getContentWidget(), Left);
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), before);
        QCOMPARE(row.Area(0), own);
    }

    void an_only_panel_moved_to_an_edge_stays_where_it_is()
    {
        Row row({1});
        const QPointer<QcDockArea> own = row.Area(0);
        row.root.addWidget(row.panels.at(0), nullptr, Left);
        VERIFY_SETTLED();
        QCOMPARE(row.Area(0), own);
    }

    void joining_its_own_area_selects_its_tab()
    {
        Row row({1});
        row.root.addWidget(NewPanel(2), row.Area(0), Center);
        QCOMPARE(row.Area(0)->currentIndex(), 1);
        row.root.addWidget(row.panels.at(0), row.Area(0), Center);
        QCOMPARE(row.Area(0)->currentIndex(), 0);
        QCOMPARE(Shape(row.root), QStringLiteral("(1,2)"));
        row.Area(0)->setCurrentIndex(1);
        row.root.addWidget(row.panels.at(0), row.panels.at(0)->getContentWidget(), Right); // inside of itself
        QCOMPARE(row.Area(0)->currentIndex(), 0);
    }

    void centre_without_a_target_selects_the_tab_of_a_panel_that_is_there()
    {
        Row row({1, 2});
        const QPointer<QcDockArea> first = row.Area(0);
        row.root.addWidget(row.panels.at(0), nullptr, Center);
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), QStringLiteral("(1 | 2)"));
        QVERIFY(first);
        row.root.addWidget(NewPanel(3), nullptr, Center);
        row.root.addWidget(row.panels.at(0), nullptr, Center);
        QCOMPARE(Shape(row.root), QStringLiteral("(1,3 | 2)"));
        QCOMPARE(first->currentIndex(), 0);
        VERIFY_SETTLED();
    }

    void joining_the_wrapper_around_its_own_area_selects_its_tab()
    {
        Row row({1, 2});
        row.root.addWidget(NewPanel(3), row.Area(0), Bottom);
        QcDockArea *wrapper = row.root.getDockAreaList().first();
        for (QWidget *target : {static_cast<QWidget *>(wrapper), static_cast<QWidget *>(nullptr)}) {
            row.root.addWidget(row.panels.at(0), target, Center);
            VERIFY_SETTLED();
            QCOMPARE(Shape(row.root), QStringLiteral("((1 / 3) | 2)"));
        }
    }

    void a_panel_is_not_docked_inside_of_itself()
    {
        Row row({1, 2});
        auto *inner = new QcDockContainer(row.panels.at(0)->getContentWidget());
        inner->addWidget(NewPanel(9), nullptr, Center);
        row.panels.at(0)->swichToFloating();
        row.root.addWidget(row.panels.at(0), inner->getDockAreaList().first(), Center);
        inner->addWidget(row.panels.at(0), nullptr, Left);
        QVERIFY(row.panels.at(0)->isFloating());
        VERIFY_SETTLED();
        delete row.panels.at(0); // no root owns it
    }

    void a_panel_is_not_docked_in_what_floats_inside_of_it()
    {
        Row row({1, 2});
        auto *inner = new QcDockContainer(row.panels.at(0)->getContentWidget());
        QcDockWidget *floating = NewPanel(9);
        floating->setParent(inner, Qt::Window);
        auto *innermost = new QcDockContainer(floating->getContentWidget());
        innermost->addWidget(row.panels.at(0), nullptr, Left);
        innermost->getDockAreaList().first()->addWidget(row.panels.at(0));
        innermost->addDockWidgetContent(row.panels.at(0)->getContentWidget(), Left);
        QCOMPARE(Shape(row.root), QStringLiteral("(1 | 2)"));
        QVERIFY(innermost->isEmpty());
        VERIFY_SETTLED();
    }

    void a_floating_panel_that_dies_on_its_way_leaves_no_area()
    {
        struct Deleter : QObject
        {
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                if (event->type() != QEvent::DynamicPropertyChange)
                    return false;
                delete watched; // a host that hears that the panel floats no longer
                return true;
            }
        } deleter;
        Row row({1, 2});
        for (DockPosition position : {Right, Bottom}) {
            const QPointer<QcDockWidget> panel = NewPanel(3);
            panel->SetWindowFlags();
            panel->setWindowStyle(true);
            panel->installEventFilter(&deleter);
            row.root.addWidget(panel, row.Area(0), position);
            QVERIFY(!panel);
            VERIFY_SETTLED();
        }
        QCOMPARE(Shape(row.root), QStringLiteral("((1) | 2)"));
    }

    // --- Hosts that delete in the middle ---

    void a_host_may_delete_the_place_when_it_hears_that_a_panel_is_docked_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<bool>("isAtEdge");
        QTest::addColumn<QString>("victim");
        for (const char *victim : {"target", "root"}) {
            QTest::addRow("a tab, %s", victim) << int(Center) << false << QString::fromLatin1(victim);
            QTest::addRow("along, %s", victim) << int(Right) << false << QString::fromLatin1(victim);
            QTest::addRow("across, %s", victim) << int(Bottom) << false << QString::fromLatin1(victim);
            QTest::addRow("along the edge, %s", victim) << int(Left) << true << QString::fromLatin1(victim);
            QTest::addRow("across the edge, %s", victim) << int(Top) << true << QString::fromLatin1(victim);
        }
    }

    void a_host_may_delete_the_place_when_it_hears_that_a_panel_is_docked()
    {
        QFETCH(int, position);
        QFETCH(bool, isAtEdge);
        QFETCH(QString, victim);
        const QPointer<QcDockContainer> root(new QcDockContainer(nullptr)); // deleted below, or by the host
        root->addWidget(NewPanel(1), nullptr, Center);
        root->addWidget(NewPanel(2), nullptr, Right);
        root->show();
        const QPointer<QcDockArea> target = root->getDockAreaList().first();
        const QPointer<QcDockWidget> panel = NewPanel(3);
        panel->SetWindowFlags();
        panel->setWindowStyle(true);
        panel->show();
        DrainEvents();
        const CallAt listener(*panel, QEvent::DynamicPropertyChange, [&] { // it looks like a window no longer
            if (victim == QLatin1String("target"))
                delete target;
            else
                delete root;
        });
        root->addWidget(panel, isAtEdge ? nullptr : target.data(), DockPosition(position));
        VERIFY_SETTLED();
        QVERIFY(!target);
        QCOMPARE(bool(root), victim != QLatin1String("root"));
        if (root && position != Center)
            QCOMPARE(root->getDockWidgetCount(3), 1);
        delete panel;
        delete root;
    }

    void a_panel_whose_new_place_its_host_deletes_stays_where_it_was_data()
    {
        QTest::addColumn<QString>("victim");
        QTest::addColumn<bool>("isByArea");
        for (const char *victim : {"target", "root", "panel"}) {
            QTest::addRow("%s, by the container", victim) << QString::fromLatin1(victim) << false;
            QTest::addRow("%s, by the area", victim) << QString::fromLatin1(victim) << true;
        }
    }

    void a_panel_whose_new_place_its_host_deletes_stays_where_it_was()
    {
        QFETCH(QString, victim);
        QFETCH(bool, isByArea);
        Row row({1});
        QcDockWidget *stays = row.panels.at(0);
        const QPointer<QcDockWidget> leaves = NewPanel(2);
        row.root.addWidget(leaves, row.Area(0), Center);
        row.Show();
        const QPointer<QcDockContainer> other(new QcDockContainer(nullptr)); // deleted below, or by the host
        other->addWidget(NewPanel(3), nullptr, Center);
        const QPointer<QcDockArea> target = other->getDockAreaList().first();
        const CallAt listener(*stays, QEvent::Show, [&] { // the tab beside it has gone
            if (victim == QLatin1String("target"))
                delete target;
            else if (victim == QLatin1String("root"))
                delete other;
            else
                delete leaves;
        });
        if (isByArea)
            target->addWidget(leaves);
        else
            other->addWidget(leaves, target, Right);
        VERIFY_SETTLED();
        QCOMPARE(bool(leaves), victim != QLatin1String("panel"));
        QCOMPARE(Shape(row.root), leaves ? QStringLiteral("(1,2)") : QStringLiteral("(1)"));
        QCOMPARE(bool(target), !leaves);
        delete other;
    }

    void a_host_may_delete_the_root_when_it_hears_of_a_new_panels_title_data()
    {
        QTest::addColumn<bool>("isTaken");
        QTest::newRow("that an area takes") << true;
        QTest::newRow("that no area takes") << false;
    }

    void a_host_may_delete_the_root_when_it_hears_of_a_new_panels_title()
    {
        QFETCH(bool, isTaken);
        struct Deleter : QObject
        {
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                auto *panel = event->type() == QEvent::WindowTitleChange ? qobject_cast<QcDockWidget *>(watched) : nullptr;
                if (panel)
                    connect(panel, &QWidget::windowTitleChanged, this, [this] { delete root; }); // the signal comes next
                return false;
            }
            QPointer<QcDockContainer> root;
        } deleter;
        deleter.root = new QcDockContainer(nullptr); // deleted by the host
        deleter.root->addWidget(NewPanel(1), nullptr, Center);
        const QPointer<QWidget> content(NewContent(isTaken ? 1 : 2));
        const TypeGroups groups({{1}, {2}});
        QCoreApplication::instance()->installEventFilter(&deleter);
        deleter.root->addDockWidgetContent(content, Left);
        QCoreApplication::instance()->removeEventFilter(&deleter);
        VERIFY_SETTLED();
        QVERIFY(!deleter.root);
        QCOMPARE(bool(content), !isTaken);
        if (content)
            delete content->window(); // its panel, which nobody has placed
    }

    void a_host_may_delete_panels_or_the_root_while_contents_are_dealt_data()
    {
        QTest::addColumn<bool>("isRoot");
        QTest::newRow("the next panel") << false;
        QTest::newRow("the root") << true;
    }

    void a_host_may_delete_panels_or_the_root_while_contents_are_dealt()
    {
        QFETCH(bool, isRoot);
        const QPointer<QcDockContainer> root(new QcDockContainer(nullptr)); // deleted below, or by the host
        const QPointer<QcDockWidget> first(new QcDockWidget(nullptr));      // the root takes both
        const QPointer<QcDockWidget> second(new QcDockWidget(nullptr));
        root->addWidget(first, nullptr, Center);
        root->addWidget(second, nullptr, Right);
        QWidget *contents[] = {NewContent(0), NewContent(0)};
        connect(first, &QWidget::windowTitleChanged, this, [&] { delete (isRoot ? root.data() : static_cast<QWidget *>(second)); });
        connect(second, &QWidget::windowTitleChanged, this, [&] { delete (isRoot ? root.data() : static_cast<QWidget *>(first)); });
        root->setDockWidgetContentList({contents[0], contents[1]});
        VERIFY_SETTLED();
        QVERIFY(!contents[1]->parentWidget()); // nobody was left to take it
        QCOMPARE(bool(root), !isRoot);
        delete contents[1];
        delete root;
    }

    void a_host_may_delete_an_area_while_all_return_to_their_first_tab()
    {
        Row row({1, 2});
        for (int i : {0, 1})
            row.root.addWidget(NewPanel(3), row.Area(i), Center);
        row.Show();
        const QPointer<QcDockArea> areas[] = {row.Area(0), row.Area(1)};
        const CallAt left(*row.panels.at(0), QEvent::Show, [&] { delete areas[1]; });
        const CallAt right(*row.panels.at(1), QEvent::Show, [&] { delete areas[0]; });
        row.root.resetAllTabFramesToFirstTab();
        VERIFY_SETTLED();
        QCOMPARE(row.root.getDockAreaList().size(), 1);
        QCOMPARE(row.root.getDockAreaList().first()->currentIndex(), 0);
    }

    void a_host_may_delete_an_area_of_a_list_when_it_hears_of_the_first_ones_end()
    {
        Row row({1});
        auto *one = new QcDockArea(nullptr);                     // the container takes it
        const QPointer<QcDockArea> two(new QcDockArea(nullptr)); // deleted by the host
        connect(row.panels.at(0), &QObject::destroyed, this, [&two] { delete two; });
        row.root.setDockAreaList({one, two});
        QCOMPARE(row.root.getDockAreaList(), QList<QcDockArea *>{one});
        VERIFY_SETTLED();
    }

    // --- The turn in which something goes ---

    void an_area_that_is_about_to_go_takes_no_content()
    {
        Row row({1, 2});
        const QPointer<QcDockArea> leaving = row.Area(1);
        delete row.panels.at(1);
        QCOMPARE(row.root.getDockAreaList().size(), 1);
        QCOMPARE(row.root.getSizes().size(), 1);
        row.root.addDockWidgetContent(NewContent(3), Left);
        QCOMPARE(Shape(row.root), QStringLiteral("(1,3)"));
        VERIFY_SETTLED();
        QVERIFY(!leaving);
        QCOMPARE(Shape(row.root), QStringLiteral("(1,3)"));
    }

    void two_crossing_placements_in_one_turn_lose_nothing()
    {
        const auto ofOwnGroup = [](int type) { return NewContent(type); };
        const TypeGroups groups({{1}, {2}, {3}, {4}, {5}});
        Row row({1, 2});
        row.root.addDockWidgetContent(ofOwnGroup(3), Top);
        row.root.addDockWidgetContent(ofOwnGroup(4), Left);
        row.root.addDockWidgetContent(ofOwnGroup(5), Bottom);
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), QStringLiteral("((4 | (3 / (1 | 2))) / 5)"));
    }

    void the_last_area_stays_while_another_is_about_to_go()
    {
        Row row({1, 2});
        row.root.setEmptyKeep(true);
        const QPointer<QcDockArea> last = row.Area(1);
        delete row.panels.at(0);
        delete row.panels.at(1); // its area is the last that counts
        VERIFY_SETTLED();
        QVERIFY(last);
        QCOMPARE(row.root.getDockAreaList().size(), 1);
        row.root.addDockWidgetContent(NewContent(3), Left);
        QCOMPARE(Shape(row.root), QStringLiteral("(3)"));
    }

    void what_is_about_to_go_stays_if_it_is_given_a_panel()
    {
        auto *root = new QcDockContainer(nullptr); // deleted below
        const QPointer<QcDockContainer> living(root);
        QcDockWidget *panel = NewPanel(1);
        root->addWidget(panel, nullptr, Center);
        panel->swichToFloating(); // under no root, so that this one is empty
        root->addWidget(panel, nullptr, Center);
        VERIFY_SETTLED();
        QVERIFY(living);
        QCOMPARE(Shape(*root), QStringLiteral("(1)"));
        delete panel;
        VERIFY_SETTLED();
        QVERIFY(!living); // it can still go
    }

    void an_area_given_its_panel_back_sends_the_one_away_that_stayed_for_it()
    {
        Row row({1, 2});
        row.root.setEmptyKeep(true);
        const QPointer<QcDockArea> first = row.Area(0);
        row.panels.at(0)->swichToFloating(); // its area is about to go
        delete row.panels.at(1);             // and this one stays as the last
        first->addWidget(row.panels.at(0));
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), QStringLiteral("(1)"));
        QVERIFY(first);
    }

    void an_emptied_area_goes_when_another_comes_beside_it()
    {
        Row row({1});
        row.root.setEmptyKeep(true);
        delete row.panels.at(0);
        VERIFY_SETTLED();
        row.root.addWidget(NewPanel(2), nullptr, Left);
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), QStringLiteral("(2)"));
    }

    void the_default_area_stays_beside_what_is_added_at_a_side()
    {
        QcDockContainer root(nullptr);
        root.getDockAreaList().first()->deleteLaterIfEmpty(); // it never held anything
        root.addWidget(NewPanel(1), nullptr, Left);
        VERIFY_SETTLED();
        QCOMPARE(Shape(root), QStringLiteral("(1 | )"));
    }

    void a_panel_that_floats_under_a_root_that_is_about_to_go_keeps_it()
    {
        const QPointer<QcDockContainer> root(new QcDockContainer(nullptr)); // deleted below
        QcDockWidget *panel = NewPanel(1);
        root->addWidget(panel, nullptr, Center);
        panel->swichToFloating();
        panel->setParent(root, Qt::Window);
        VERIFY_SETTLED();
        QVERIFY(root);
        QVERIFY(!root->isEmpty()); // floating panels count
        delete root;
    }

    void a_panel_made_under_a_root_that_is_about_to_go_keeps_it()
    {
        const QPointer<QcDockContainer> root(new QcDockContainer(nullptr)); // deleted below
        QcDockWidget *last = NewPanel(1);
        root->addWidget(last, nullptr, Center);
        DrainEvents(); // so that the deletion is the first of what is posted, before the panel's polishing
        delete last;
        const QPointer<QcDockWidget> panel(new QcDockWidget(root));
        QEventLoop loop;
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
        QVERIFY(root);
        QVERIFY(panel);
        VERIFY_SETTLED();
        QVERIFY(!root->isEmpty());
        delete root;
    }

    void a_panel_made_under_a_root_that_its_host_deletes_later_goes_with_it()
    {
        const QPointer<QcDockContainer> root(new QcDockContainer(nullptr)); // deleted by its host
        root->deleteLater();
        const QPointer<QcDockWidget> panel(new QcDockWidget(root));
        VERIFY_SETTLED();
        QVERIFY(!root && !panel);
    }

    void a_hosts_own_deletion_is_not_revoked()
    {
        const QPointer<QcDockContainer> root(new QcDockContainer(nullptr)); // deleted by its host
        QcDockWidget *panel = NewPanel(1);
        root->addWidget(panel, nullptr, Center);
        root->deleteLater();
        panel->swichToFloating(); // an empty root would go by itself
        root->addWidget(panel, nullptr, Center);
        DrainEvents();
        QVERIFY(!root);
    }

    void a_hosts_own_deletion_of_an_emptied_area_is_not_revoked()
    {
        Row row({1, 2});
        const QPointer<QcDockArea> area = row.Area(1);
        const QPointer<QcDockWidget> panel = row.panels.at(1);
        area->deleteLater();
        panel->swichToFloating(); // an emptied area would go by itself
        area->addWidget(panel);
        VERIFY_SETTLED();
        QVERIFY(!area && !panel);
        QCOMPARE(Shape(row.root), QStringLiteral("(1)"));
    }

    void an_area_that_is_about_to_go_lives_where_its_host_takes_it_and_fills_it_again()
    {
        Row row({1, 2});
        const QPointer<QcDockArea> area = row.Area(1);
        row.panels.at(1)->swichToFloating();
        area->setParent(nullptr);
        area->addWidget(row.panels.at(1));
        VERIFY_SETTLED();
        QVERIFY(area);
        QCOMPARE(area->count(), 1);
        QCOMPARE(Shape(row.root), QStringLiteral("(1)"));
        delete area;
    }

    void an_area_that_its_host_deletes_later_takes_no_content()
    {
        Row row({1, 2});
        row.Area(1)->deleteLater(); // the one that content would join
        row.root.addDockWidgetContent(NewContent(3), Left);
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), QStringLiteral("(1,3)"));
    }

    // --- Being empty ---

    void a_kept_container_survives_being_empty()
    {
        QcDockContainer kept(nullptr);
        kept.setEmptyKeep(true);
        QVERIFY(kept.isEmptyKeep());
        QcDockWidget *panel = NewPanel(1);
        kept.addWidget(panel, nullptr, Center);
        delete panel;
        VERIFY_SETTLED();
        QVERIFY(kept.isEmpty()); // its own flag does not make it full
        QCOMPARE(kept.getDockAreaList().size(), 1);
    }

    void a_root_without_that_goes_with_its_last_panel()
    {
        const QPointer<QcDockContainer> root(new QcDockContainer(nullptr)); // goes by itself
        QcDockWidget *panel = NewPanel(1);
        root->addWidget(panel, nullptr, Center);
        root->deleteLaterIfEmpty();
        DrainEvents();
        QVERIFY(root);
        delete panel;
        DrainEvents();
        QVERIFY(!root);
    }

    void a_panel_whose_old_area_is_gone_takes_no_root_with_it()
    {
        for (const bool goesLast : {true, false}) {
            auto *root = new QcDockContainer(nullptr); // goes by itself, or is deleted below
            const QPointer<QcDockContainer> living(root);
            QcDockController::instance()->setRootDockContainer(root);
            QcDockWidget *one = NewPanel(1);
            QcDockWidget *two = NewPanel(2);
            root->addWidget(one, nullptr, Center);
            root->addWidget(two, nullptr, Right);
            one->swichToFloating();
            VERIFY_SETTLED(); // its area is gone, while that of the other stays as the last one
            two->swichToFloating();
            VERIFY_SETTLED();
            delete (goesLast ? two : one);
            VERIFY_SETTLED();
            QVERIFY(!root->isEmpty());
            delete (goesLast ? one : two);
            VERIFY_SETTLED();
            QCOMPARE(bool(living), goesLast);
            delete living;
        }
    }

    void a_kept_container_inside_makes_the_outer_one_full()
    {
        QcDockContainer root(nullptr);
        auto *kept = new QcDockContainer(nullptr); // the root takes it
        root.addWidget(kept, nullptr, Center);
        QVERIFY(root.isEmpty());
        kept->setEmptyKeep(true);
        QVERIFY(!root.isEmpty());
    }

    void a_kept_container_inside_stays_in_its_place_without_a_panel()
    {
        Row row({1, 2});
        QcDockWidget *three = NewPanel(3);
        row.root.addWidget(three, row.Area(0), Bottom);
        NestedIn(row.root, 0)->setEmptyKeep(true);
        delete three;
        delete row.panels.at(0);
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), QStringLiteral("(() | 2)"));
        delete row.panels.at(1);
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), QStringLiteral("(())")); // and keeps what encloses it
    }

    void an_emptied_nested_container_goes_with_its_wrapper()
    {
        Row row({1, 2});
        QcDockWidget *three = NewPanel(3);
        row.root.addWidget(three, row.Area(0), Bottom);
        const QPointer<QcDockContainer> nested = NestedIn(row.root, 0);
        const QPointer<QcDockArea> wrapper = row.root.getDockAreaList().first();
        delete three;
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), QStringLiteral("((1) | 2)"));
        delete row.panels.at(0);
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), QStringLiteral("(2)"));
        QVERIFY(!nested && !wrapper);
    }

    void a_container_whose_last_area_is_deleted_makes_a_new_one()
    {
        QcDockContainer root(nullptr);
        delete root.getDockAreaList().first();
        VERIFY_SETTLED();
        QCOMPARE(root.getDockAreaList().size(), 1);

        delete root.getDockAreaList().first();
        root.addWidget(NewPanel(1), nullptr, Center); // needs one at once
        QCOMPARE(Shape(root), QStringLiteral("(1)"));
        VERIFY_SETTLED();

        root.setEmptyKeep(true);
        delete root.getDockAreaList().first(); // with its panel
        VERIFY_SETTLED();
        QCOMPARE(Shape(root), QStringLiteral("()"));
    }

    void a_container_whose_only_area_dies_with_its_panel_goes()
    {
        const QPointer<QcDockContainer> root(new QcDockContainer(nullptr)); // goes by itself
        root->addWidget(NewPanel(1), nullptr, Center);
        delete root->getDockAreaList().first();
        DrainEvents();
        QVERIFY(!root);
    }

    void an_area_taken_away_by_its_host_is_replaced()
    {
        QcDockContainer root(nullptr);
        const QPointer<QcDockArea> area = root.getDockAreaList().first();
        area->setParent(nullptr);
        VERIFY_SETTLED();
        QCOMPARE(root.getDockAreaList().size(), 1);
        QVERIFY(!root.getDockAreaList().contains(area));
        delete area;
    }

    void an_outer_drop_leaves_nothing_in_the_registry()
    {
        Row row({1, 2});
        const auto areas = DockRegistry::Areas().size();
        row.root.addWidget(NewPanel(3), nullptr, Top);
        QCOMPARE(DockRegistry::Areas().size(), areas + 2); // the newcomer's, and the wrapper
        QCOMPARE(DockRegistry::Containers().size(), 2);
    }

    // --- Contents ---

    void content_joins_the_first_area_that_takes_its_type_wherever_it_was_to_go()
    {
        QcDockContainer root(nullptr);
        root.addDockWidgetContent(NewContent(1), Right);
        QCOMPARE(Shape(root), QStringLiteral("(1)")); // the empty area
        root.addDockWidgetContent(NewContent(2), OuterBottom);
        root.addDockWidgetContent(NewContent(3), NoPosition);
        QCOMPARE(Shape(root), QStringLiteral("(1,2,3)"));
        VERIFY_SETTLED();
    }

    void content_that_no_area_takes_goes_where_it_was_to_go()
    {
        const TypeGroups groups({{1}, {2}, {3}, {4}, {5}});
        QcDockContainer root(nullptr);
        root.addDockWidgetContent(NewContent(1), Left);
        root.addDockWidgetContent(NewContent(2), Right);
        QCOMPARE(Shape(root), QStringLiteral("(1 | 2)"));
        root.addDockWidgetContent(NewContent(3), OuterLeft);
        QCOMPARE(Shape(root), QStringLiteral("(3 | 1 | 2)"));
        root.addDockWidgetContent(NewContent(4), OuterTop);
        QCOMPARE(Shape(root), QStringLiteral("(4 / (3 | 1 | 2))"));
        root.addDockWidgetContent(NewContent(5), Center);
        QCOMPARE(Shape(root), QStringLiteral("(4,5 / (3 | 1 | 2))"));
        VERIFY_SETTLED();
    }

    void content_for_no_place_stays_unplaced_in_its_panel()
    {
        const TypeGroups groups({{1}, {2}});
        QcDockContainer root(nullptr);
        root.addDockWidgetContent(NewContent(1), Left);
        QWidget *content = NewContent(2);
        root.addDockWidgetContent(content, NoPosition);
        QCOMPARE(Shape(root), QStringLiteral("(1)"));
        auto *panel = qobject_cast<QcDockWidget *>(content->window());
        QVERIFY(panel);
        QVERIFY(!panel->isVisible());
        delete panel;
    }

    void the_order_of_areas_is_that_of_stacking()
    {
        const TypeGroups groups({{1}, {2}});
        QcDockContainer root(nullptr);
        root.addDockWidgetContent(NewContent(1), Left);
        root.addWidget(NewPanel(1), nullptr, Right); // a splitter lowers what it takes in
        root.addDockWidgetContent(NewContent(1), Left);
        QCOMPARE(Shape(root), QStringLiteral("(1 | 1,1)"));
        const auto areas = root.findChildren<QcDockArea *>();
        QCOMPARE(areas.first(), root.getDockAreaList().last());
    }

    void a_panel_is_made_in_its_place()
    {
        QcDockContainer root(nullptr);
        root.addDockWidgetContent(NewContent(1), Left);
        QcDockArea *area = root.getDockAreaList().first();
        struct ParentChanges : QObject
        {
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                if (event->type() == QEvent::ParentChange && qobject_cast<QcDockWidget *>(watched))
                    ++count;
                return false;
            }
            int count = 0;
        } changes;
        qApp->installEventFilter(&changes);
        root.addDockWidgetContent(NewContent(1), Left);
        QCOMPARE(changes.count, 0);
        QCOMPARE(area->count(), 2);
    }

    void contents_are_dealt_by_type_each_once()
    {
        QcDockContainer root(nullptr);
        QcDockWidget *seven = new QcDockWidget(nullptr); // the container takes them
        seven->setType(7);
        QcDockWidget *eight = new QcDockWidget(nullptr);
        eight->setType(8);
        root.addWidget(seven, nullptr, Center);
        root.addWidget(eight, nullptr, Right);
        QWidget *first = NewContent(7, QStringLiteral("First"));
        QWidget *second = NewContent(7, QStringLiteral("Second"));
        root.setDockWidgetContentList({nullptr, first, second, first});
        QCOMPARE(seven->getContentWidget(), first);
        QCOMPARE(seven->windowTitle(), QStringLiteral("First"));
        QVERIFY(!eight->getContentWidget());
        QVERIFY(!second->parentWidget());
        delete second;
        VERIFY_SETTLED();
    }

    void a_panel_for_which_no_content_is_left_keeps_its_own()
    {
        Row row({7, 7, 7});
        const auto panels = row.root.findChildren<QcDockWidget *>();
        const QPointer<QWidget> second = panels.at(1)->getContentWidget();
        const QPointer<QWidget> third = panels.at(2)->getContentWidget();
        QWidget *only = NewContent(7);
        row.root.setDockWidgetContentList({only, only}); // named twice, used once
        DrainEvents();
        QCOMPARE(panels.at(0)->getContentWidget(), only);
        QVERIFY(second && third);
        QCOMPARE(panels.at(1)->getContentWidget(), second.data());
        QCOMPARE(panels.at(2)->getContentWidget(), third.data());
        VERIFY_SETTLED();
    }

    void contents_of_one_type_are_dealt_in_their_order()
    {
        Row row({5, 5, 5});
        const QList<QWidget *> contents = {NewContent(5), NewContent(5), NewContent(5)};
        row.root.setDockWidgetContentList(contents);
        const auto panels = row.root.findChildren<QcDockWidget *>();
        for (int i = 0; i < 3; ++i)
            QCOMPARE(panels.at(i)->getContentWidget(), contents.at(i));
    }

    void contents_that_change_places_all_live()
    {
        Row row({7, 7});
        const auto panels = row.root.findChildren<QcDockWidget *>();
        const QPointer<QWidget> a = panels.at(0)->getContentWidget();
        const QPointer<QWidget> b = panels.at(1)->getContentWidget();
        row.root.setDockWidgetContentList({b, a});
        DrainEvents();
        QVERIFY(a && b);
        QCOMPARE(panels.at(0)->getContentWidget(), b.data());
        QCOMPARE(panels.at(1)->getContentWidget(), a.data());
        VERIFY_SETTLED();
    }

    void a_content_goes_only_if_its_panel_gets_another_and_no_panel_takes_it()
    {
        Row row({7, 8});
        const QPointer<QWidget> replaced = row.panels.at(0)->getContentWidget();
        const QPointer<QWidget> untouched = row.panels.at(1)->getContentWidget();
        row.root.setDockWidgetContentList({NewContent(7)});
        DrainEvents();
        QVERIFY(!replaced);
        QVERIFY(untouched);
    }

    void a_content_is_dealt_to_a_panel_that_floats()
    {
        Row row({7});
        auto *floating = new QcDockWidget(&row.root); // as a restored layout has it
        floating->setType(9);
        floating->SetWindowFlags();
        row.Show();
        QVERIFY(floating->isVisible());
        floating->hide();
        QWidget *content = NewContent(9);
        row.root.setDockWidgetContentList({content});
        QCOMPARE(floating->getContentWidget(), content);
        QVERIFY(floating->isVisible());
    }

    void a_content_and_one_inside_of_it_are_dealt_to_different_panels_data()
    {
        QTest::addColumn<bool>("isInnerFirst");
        QTest::newRow("the outer one first") << false;
        QTest::newRow("the inner one first") << true;
    }

    void a_content_and_one_inside_of_it_are_dealt_to_different_panels()
    {
        QFETCH(bool, isInnerFirst);
        Row row({7});
        QWidget *outer = row.panels.at(0)->getContentWidget();
        auto *inside = new QcDockContainer(outer);
        inside->addDockWidgetContent(NewContent(8), Left);
        QcDockWidget *insidePanel = inside->findChild<QcDockWidget *>();
        QWidget *inner = insidePanel->getContentWidget();
        QcDockContainer other(nullptr);
        for (const int type : {isInnerFirst ? 7 : 8, isInnerFirst ? 8 : 7}) { // found in the order of stacking, the last one first
            auto *frame = new QcDockWidget(nullptr);                          // the container takes it
            frame->setType(type);
            other.addWidget(frame, nullptr, Right);
        }
        const auto frames = other.findChildren<QcDockWidget *>();
        QCOMPARE(frames.first()->getType(), isInnerFirst ? 8 : 7);
        other.setDockWidgetContentList({outer, inner});
        QCOMPARE(frames.at(isInnerFirst ? 1 : 0)->getContentWidget(), outer);
        QCOMPARE(frames.at(isInnerFirst ? 0 : 1)->getContentWidget(), inner);
        QVERIFY(!insidePanel->getContentWidget());
        VERIFY_SETTLED();
    }

    void what_encloses_the_container_is_dealt_to_nobody()
    {
        QWidget window;
        window.setProperty("dock_widget_content_type", 7);
        auto *root = new QcDockContainer(&window);
        root->setProperty("dock_widget_content_type", 7);
        root->addWidget(NewPanel(7), nullptr, Center);
        QcDockWidget *panel = root->findChild<QcDockWidget *>();
        QWidget *content = panel->getContentWidget();
        root->setDockWidgetContentList({&window, root});
        root->addDockWidgetContent(&window, Left);
        QCOMPARE(panel->getContentWidget(), content);
        QCOMPARE(root->getDockWidgetTypeList().size(), 1);
    }

    void what_encloses_the_container_takes_the_turn_of_no_other_content()
    {
        Row row({7});
        QWidget *outer = row.panels.at(0)->getContentWidget();
        auto *inner = new QcDockContainer(outer);
        QcDockWidget *panel = NewPanel(7);
        inner->addWidget(panel, nullptr, Center);
        QWidget *content = NewContent(7);
        inner->setDockWidgetContentList({outer, content});
        QCOMPARE(panel->getContentWidget(), content);
        QCOMPARE(row.panels.at(0)->getContentWidget(), outer);
        VERIFY_SETTLED();
    }

    // --- Lists ---

    void an_empty_list_of_areas_leaves_the_default_area()
    {
        QcDockContainer root(nullptr);
        QcDockArea *area = root.getDockAreaList().first();
        root.setDockAreaList({});
        root.setDockAreaList({nullptr});
        QCOMPARE(root.getDockAreaList(), QList<QcDockArea *>{area});
    }

    void a_list_of_areas_replaces_the_first()
    {
        QcDockContainer root(nullptr);
        const QPointer<QcDockArea> old = root.getDockAreaList().first();
        auto *a = new QcDockArea(nullptr); // the container takes both
        auto *b = new QcDockArea(nullptr);
        a->addWidget(NewPanel(1));
        b->addWidget(NewPanel(2));
        root.setDockAreaList({a, nullptr, b, a});
        QVERIFY(!old); // at once
        QCOMPARE(root.getDockAreaList(), (QList<QcDockArea *>{a, b}));
        VERIFY_SETTLED();
        root.setDockAreaList({b, a}); // the first present one stands in it: nothing is deleted
        QCOMPARE(root.getDockAreaList(), (QList<QcDockArea *>{b, a}));
        VERIFY_SETTLED();
    }

    void a_container_that_is_given_areas_does_not_go_for_the_panel_that_it_loses()
    {
        const QPointer<QcDockContainer> root(new QcDockContainer(nullptr)); // deleted below
        root->addWidget(NewPanel(1), nullptr, Center);
        auto *area = new QcDockArea(nullptr); // the container takes it
        root->setDockAreaList({area});
        VERIFY_SETTLED();
        QVERIFY(root);
        QCOMPARE(root->getDockAreaList(), QList<QcDockArea *>{area});
        delete root;
    }

    void areas_of_the_list_inside_of_the_first_are_taken_out_before_it_goes()
    {
        Row row({1, 2});
        row.root.addWidget(NewPanel(3), row.Area(0), Bottom);
        const QPointer<QcDockArea> kept = row.Area(0); // inside of the wrapper that is the first now
        row.root.setDockAreaList({kept});
        QVERIFY(kept);
        QCOMPARE(Shape(row.root), QStringLiteral("(2 | 1)"));
        VERIFY_SETTLED();
    }

    void areas_of_the_list_that_float_inside_of_the_first_are_taken_out_too()
    {
        Row row({1});
        auto *inner = new QcDockContainer(row.panels.at(0)->getContentWidget());
        QcDockWidget *floating = NewPanel(2);
        floating->setParent(inner, Qt::Window);
        auto *innermost = new QcDockContainer(floating->getContentWidget());
        innermost->addWidget(NewPanel(3), nullptr, Center);
        const QPointer<QcDockArea> kept = innermost->getDockAreaList().first();
        row.root.setDockAreaList({kept});
        QVERIFY(kept);
        QCOMPARE(Shape(row.root), QStringLiteral("(3)"));
        VERIFY_SETTLED();
    }

    void an_emptied_area_that_a_host_lists_stays_beside_others()
    {
        QcDockContainer root(nullptr);
        root.setEmptyKeep(true);
        root.addWidget(NewPanel(1), nullptr, Center);
        QcDockArea *emptied = root.getDockAreaList().first();
        delete emptied->widget(0);
        VERIFY_SETTLED();
        auto *other = new QcDockArea(nullptr); // the container takes it
        other->addWidget(NewPanel(2));
        root.setDockAreaList({emptied, other});
        VERIFY_SETTLED();
        QCOMPARE(Shape(root), QStringLiteral("( | 2)"));
        root.addWidget(NewPanel(3), other, Right);
        VERIFY_SETTLED();
        QCOMPARE(Shape(root), QStringLiteral("( | 2 | 3)"));
    }

    void a_full_area_that_a_host_lists_goes_once_it_is_emptied_and_another_comes_beside_it()
    {
        QcDockContainer root(nullptr);
        root.setEmptyKeep(true);
        auto *area = new QcDockArea(nullptr); // the container takes it
        area->addWidget(NewPanel(1));
        root.setDockAreaList({area});
        delete area->widget(0);
        VERIFY_SETTLED();
        root.addWidget(NewPanel(2), nullptr, Left);
        VERIFY_SETTLED();
        QCOMPARE(Shape(root), QStringLiteral("(2)"));
    }

    void an_emptied_area_inside_of_one_that_a_host_lists_stays_beside_others()
    {
        QcDockContainer root(nullptr);
        auto *nested = new QcDockContainer(nullptr); // the root takes it
        nested->setEmptyKeep(true);
        root.addWidget(nested, nullptr, Center);
        QcDockWidget *panel = NewPanel(1);
        nested->addWidget(panel, nullptr, Center);
        delete panel;
        VERIFY_SETTLED();
        root.setDockAreaList(root.getDockAreaList());
        nested->addWidget(NewPanel(2), nullptr, Left);
        VERIFY_SETTLED();
        QCOMPARE(Shape(root), QStringLiteral("((2 | ))"));
    }

    void a_container_robbed_of_its_areas_shows_another()
    {
        Row row({1, 2});
        row.root.setEmptyKeep(true);
        QcDockContainer other(nullptr);
        other.setDockAreaList(row.root.getDockAreaList());
        QCOMPARE(Shape(other), QStringLiteral("(1 | 2)"));
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), QStringLiteral("()"));
    }

    void a_nested_container_robbed_of_its_areas_goes()
    {
        Row row({1, 2});
        row.root.addWidget(NewPanel(3), row.Area(0), Bottom);
        QcDockContainer other(nullptr);
        other.setDockAreaList(NestedIn(row.root, 0)->getDockAreaList());
        VERIFY_SETTLED();
        QCOMPARE(Shape(other), QStringLiteral("(1 | 3)"));
        QCOMPARE(Shape(row.root), QStringLiteral("(2)"));
    }

    void types_and_counts_take_in_floating_panels()
    {
        Row row({1, 2, 1});
        QcDockController::instance()->setRootDockContainer(&row.root);
        row.panels.at(1)->swichToFloating();
        QCOMPARE(row.root.getDockWidgetCount(1), 2);
        QCOMPARE(row.root.getDockWidgetCount(2), 1);
        QCOMPARE(row.root.getDockWidgetCount(3), 0);
        QCOMPARE(row.root.getDockWidgetWindow(), QList<QcDockWidget *>{row.panels.at(1)});
        QList<int> found;
        for (QcDockWidget *panel : row.root.findChildren<QcDockWidget *>())
            found.append(panel->getType());
        QCOMPARE(row.root.getDockWidgetTypeList(), found);
        VERIFY_SETTLED();
    }

    void all_areas_return_to_their_first_tab()
    {
        Row row({1, 2});
        QcDockWidget *three = NewPanel(3);
        row.root.addWidget(three, row.Area(0), Bottom);
        for (QcDockWidget *panel : {row.panels.at(0), row.panels.at(1), three})
            row.root.addWidget(NewPanel(4), AreaOf(*panel), Center);
        row.root.resetAllTabFramesToFirstTab();
        for (QcDockWidget *panel : {row.panels.at(0), row.panels.at(1), three})
            QCOMPARE(AreaOf(*panel)->currentIndex(), 0);
        VERIFY_SETTLED();
    }

    // --- Sizes ---

    void a_layout_built_before_it_is_shown_has_the_shares_that_it_was_built_with()
    {
        QcDockContainer root(nullptr);
        root.addWidget(NewPanel(1), nullptr, Center);
        root.addWidget(NewPanel(2), root.getDockAreaList().first(), Right);
        root.addWidget(NewPanel(3), root.getDockAreaList().first(), Right);
        root.addWidget(NewPanel(4), root.getDockAreaList().last(), Bottom);
        QCOMPARE(Shape(root), QStringLiteral("(1 | 3 | (2 / 4))"));
        root.resize(908, 606);
        root.show();
        DrainEvents();
        QCOMPARE(root.getSizes(), (QList<int>{225, 225, 450}));
        QCOMPARE(NestedIn(root, 2)->getSizes(), (QList<int>{300, 300}));
    }

    void no_area_is_polished_before_the_first_show()
    {
        QcDockContainer root(nullptr);
        root.addWidget(NewPanel(1), nullptr, Center);
        for (DockPosition position : {Right, Left, Right})
            root.addWidget(NewPanel(2), nullptr, position);
        root.addWidget(NewPanel(2), root.getDockAreaList().at(1), Left);
        root.setSizes({1, 2, 3, 4, 5});
        for (const auto *area : root.findChildren<QcDockArea *>())
            QVERIFY(!area->testAttribute(Qt::WA_WState_Polished));
        QVERIFY(root.sizeHint().width() > 4 * 4); // who asks for a size is told
    }

    void sizes_given_before_the_first_show_are_those_shown()
    {
        Row row({1, 2, 3});
        row.root.setSizes({100, 200, 600});
        row.Show();
        QCOMPARE(row.root.getSizes(), (QList<int>{100, 200, 600}));
    }

    void what_goes_before_the_first_show_takes_its_share_along()
    {
        Row row({1, 2, 3});
        row.root.setSizes({100, 200, 600});
        delete row.panels.at(1);
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), QStringLiteral("(1 | 3)"));
        row.Show();
        const QList<int> sizes = row.root.getSizes();
        QCOMPARE(sizes, (QList<int>{129, 775}));
    }

    void areas_fill_the_container_whatever_its_size()
    {
        Row row({1, 2});
        row.Show();
        for (const QSize &size : {QSize(1208, 500), QSize(608, 400)}) {
            row.root.resize(size);
            DrainEvents();
            QCOMPARE(row.root.getSizes(), (QList<int>{(size.width() - 4) / 2, (size.width() - 4) / 2}));
            QCOMPARE(row.Area(1)->geometry(), QRect((size.width() + 4) / 2, 0, (size.width() - 4) / 2, size.height()));
        }
    }

    void sizes_given_before_the_first_show_are_those_saved()
    {
        Row row({1, 2, 3});
        QCOMPARE(DockTree::SizesToKeep(&row.root), row.root.getSizes());
        row.root.setSizes({10, 20, 60});
        QCOMPARE(DockTree::SizesToKeep(&row.root), (QList<int>{10, 20, 60}));
        row.Show();
        QCOMPARE(DockTree::SizesToKeep(&row.root), row.root.getSizes());
    }

    void sizes_of_any_number_do_no_harm()
    {
        Row row({1, 2, 3});
        row.root.setSizes({});
        row.root.setSizes({5});
        row.root.setSizes({-5, 0x7fffffff, 0x7fffffff, 9, 9});
        row.Show();
        QCOMPARE(row.root.getSizes().size(), 3);
        QVERIFY(qAbs(row.root.getSizes().at(1) - row.root.getSizes().at(2)) <= 1);
        row.root.setSizes({0x7fffffff, 0x7fffffff, 0x7fffffff, 0x7fffffff});
        QCOMPARE(row.root.getSizes(), (QList<int>{300, 300, 300}));
    }

    void many_edge_placements_before_the_first_show_do_not_overflow()
    {
        Row row({1});
        for (int i = 0; i < 40; ++i)
            row.root.addWidget(NewPanel(2), nullptr, Right);
        row.root.resize(8000, 300);
        row.Show();
        QVERIFY(row.root.getSizes().last() > 2000);
    }

    // --- Depth ---

    void nothing_is_nested_without_end()
    {
        QcDockContainer root(nullptr);
        root.addWidget(NewPanel(1), nullptr, Center);
        root.addWidget(NewPanel(2), nullptr, Right);
        QcDockWidget *last = NewPanel(3);
        root.addWidget(last, nullptr, Right);
        for (int i = 0; i < 140; ++i) {
            QcDockWidget *next = NewPanel(4);
            root.addWidget(next, AreaOf(*last), i % 2 == 0 ? Bottom : Right);
            last = next;
        }
        QCOMPARE(NestingBelow(&root) + 1, 128);
        QCOMPARE(root.getDockWidgetTypeList().size(), 143);
        QcDockContainer *deepest = EnclosingContainer(AreaOf(*last));
        const Qt::Orientation orientation = deepest->getOrientation();
        const auto panes = deepest->getDockAreaList().size();
        QVERIFY(panes > 2);
        root.addWidget(NewPanel(4), AreaOf(*last), orientation == Qt::Horizontal ? Bottom : Right);
        QCOMPARE(deepest->getOrientation(), orientation);
        QCOMPARE(deepest->getDockAreaList().size(), panes + 1);
        root.addWidget(NewPanel(5), nullptr, Top); // would push all of it down
        QCOMPARE(NestingBelow(&root) + 1, 128);
        QCOMPARE(root.getOrientation(), Qt::Horizontal);
        QCOMPARE(root.getDockAreaList().size(), 4);
        VERIFY_SETTLED();
    }

    void a_container_that_a_host_places_counts_with_all_that_it_brings()
    {
        QcDockContainer root(nullptr);
        QcDockWidget *last = NewPanel(1);
        root.addWidget(last, nullptr, Center);
        root.addWidget(NewPanel(2), nullptr, Right);
        const auto across = [](QcDockContainer &container) { return container.getOrientation() == Qt::Horizontal ? Bottom : Right; };
        const auto splitDownTo = [&](int depth) {
            while (DepthOf(EnclosingContainer(AreaOf(*last))) < depth) {
                QcDockWidget *next = NewPanel(3);
                root.addWidget(next, AreaOf(*last), across(*EnclosingContainer(AreaOf(*last))));
                last = next;
            }
            return EnclosingContainer(AreaOf(*last));
        };
        const auto newThreeLevels = [] {
            auto *brought = new QcDockContainer(nullptr); // whoever is given it owns it
            QcDockWidget *deepest = NewPanel(4);
            brought->addWidget(deepest, nullptr, Center);
            brought->addWidget(NewPanel(5), nullptr, Right);
            brought->addWidget(NewPanel(5), AreaOf(*deepest), Bottom);
            brought->addWidget(NewPanel(5), AreaOf(*deepest), Right);
            return brought;
        };
        QcDockContainer *container = splitDownTo(124); // one is made inside of it, and three come into that
        QcDockArea *place = AreaOf(*last);
        root.addWidget(newThreeLevels(), place, across(*container));
        QCOMPARE(DepthOf(EnclosingContainer(place)), 125);
        QCOMPARE(NestingBelow(&root) + 1, 128);

        container = splitDownTo(125);
        place = AreaOf(*last);
        const Qt::Orientation orientation = container->getOrientation();
        root.addWidget(newThreeLevels(), place, across(*container));
        QCOMPARE(EnclosingContainer(place), container); // along: nothing was made
        QCOMPARE(container->getOrientation(), orientation);
        QCOMPARE(NestingBelow(&root) + 1, 128);
        VERIFY_SETTLED();
    }

    // --- Floating panels ---

    void floating_panels_are_hidden_and_shown_with_their_root()
    {
        Row row({1, 2, 3});
        QcDockController::instance()->setRootDockContainer(&row.root);
        row.Show();
        row.panels.at(0)->swichToFloating();
        row.panels.at(1)->swichToFloating();
        row.panels.at(1)->hide(); // by its user
        row.root.hide();
        QVERIFY(!row.panels.at(0)->isVisible());
        row.root.show();
        QVERIFY(row.panels.at(0)->isVisible());
        QVERIFY(row.panels.at(1)->isVisible()); // this one too
        VERIFY_SETTLED();
    }

    void a_nested_container_leaves_floating_panels_alone()
    {
        Row row({1, 2});
        row.root.addWidget(NewPanel(3), row.Area(0), Bottom);
        QcDockController::instance()->setRootDockContainer(&row.root);
        row.Show();
        row.panels.at(1)->swichToFloating();
        QcDockContainer *nested = NestedIn(row.root, 0);
        row.panels.at(0)->setParent(nested, Qt::Window); // even those that float under it
        row.panels.at(0)->show();
        nested->hide();
        QVERIFY(row.panels.at(0)->isVisible());
        QVERIFY(row.panels.at(1)->isVisible());
        nested->show();
        VERIFY_SETTLED();
    }

    void a_floating_panel_deleted_while_another_is_shown_does_no_harm()
    {
        Row row({1, 2, 3});
        QcDockController::instance()->setRootDockContainer(&row.root);
        row.panels.at(0)->swichToFloating();
        row.panels.at(1)->swichToFloating();
        row.root.hide();
        struct Deleter : QObject
        {
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                if (event->type() == QEvent::Show)
                    delete (watched == a ? b : a).data();
                return false;
            }
            QPointer<QWidget> a;
            QPointer<QWidget> b;
        } deleter;
        deleter.a = row.panels.at(0);
        deleter.b = row.panels.at(1);
        row.panels.at(0)->hide();
        row.panels.at(1)->hide();
        row.panels.at(0)->installEventFilter(&deleter);
        row.panels.at(1)->installEventFilter(&deleter);
        row.root.show();
        QCOMPARE(row.root.getDockWidgetWindow().size(), 1);
        VERIFY_SETTLED();
    }

    void a_nested_container_goes_with_the_last_panel_that_floated_under_it_data()
    {
        QTest::addColumn<bool>("dies");
        QTest::newRow("docked elsewhere") << false;
        QTest::newRow("deleted") << true;
    }

    void a_nested_container_goes_with_the_last_panel_that_floated_under_it()
    {
        QFETCH(bool, dies);
        Row row({1, 2});
        QcDockWidget *panel = row.panels.at(1);
        QcDockWidget *below = NewPanel(3);
        row.root.addWidget(below, panel, Bottom);
        DrainEvents();
        QCOMPARE(Shape(row.root), QStringLiteral("(1 | (2 / 3))"));
        QcDockContainer *nested = EnclosingContainer(AreaOf(*panel));
        QcDockController::instance()->setRootDockContainer(nested);
        panel->swichToFloating();
        delete below;
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), QStringLiteral("(1 | ())"));
        if (dies)
            delete panel;
        else
            row.Area(0)->addWidget(panel);
        VERIFY_SETTLED();
        QCOMPARE(Shape(row.root), dies ? QStringLiteral("(1)") : QStringLiteral("(1,2)"));
    }

    void a_host_may_delete_the_container_when_it_hears_that_a_panel_comes()
    {
        auto *root = new QcDockContainer(nullptr);
        root->addWidget(NewPanel(1), nullptr, Center);
        const QPointer<QcDockWidget> panel = NewPanel(2);
        panel->SetWindowFlags();
        panel->setWindowStyle(true);
        const CallAt listener(*panel, QEvent::DynamicPropertyChange, [root] { delete root; });
        root->addWidget(panel, nullptr, Right);
        QVERIFY(panel);
        delete panel;
    }

    // --- The keyboard ---

    void the_keyboard_stays_where_it_is_while_the_tree_grows_data()
    {
        QTest::addColumn<bool>("isBesideIt");
        QTest::addColumn<int>("position");
        QTest::newRow("split along") << true << int(Right);
        QTest::newRow("split across") << true << int(Bottom);
        QTest::newRow("all sinks one level") << false << int(Top);
    }

    void the_keyboard_stays_where_it_is_while_the_tree_grows()
    {
        QFETCH(bool, isBesideIt);
        QFETCH(int, position);
        Row row({1, 2});
        QWidget *content = row.panels.at(0)->getContentWidget();
        content->setFocusPolicy(Qt::StrongFocus);
        row.Show();
        row.root.activateWindow();
        QTRY_VERIFY(row.root.isActiveWindow());
        content->setFocus();
        QVERIFY(content->hasFocus());
        row.root.addWidget(NewPanel(3), isBesideIt ? row.Area(0) : nullptr, DockPosition(position));
        QVERIFY(content->hasFocus());
        VERIFY_SETTLED();
        QVERIFY(content->hasFocus());
    }

    void the_keyboard_goes_with_a_docked_panel_to_its_new_place()
    {
        Row row({1, 2, 3});
        QWidget *content = row.panels.at(0)->getContentWidget();
        content->setFocusPolicy(Qt::StrongFocus);
        row.Show();
        row.root.activateWindow();
        QTRY_VERIFY(row.root.isActiveWindow());
        content->setFocus();
        row.root.addWidget(row.panels.at(0), row.Area(2), Bottom);
        QVERIFY(content->hasFocus());
        row.root.addWidget(row.panels.at(0), row.Area(1), Center);
        QVERIFY(content->hasFocus());
        VERIFY_SETTLED();
    }

    // --- Right to left ---

    void left_is_the_left_of_the_screen_in_every_language()
    {
        Row row({1, 2});
        row.root.setLayoutDirection(Qt::RightToLeft);
        row.Show();
        QVERIFY(row.panels.at(0)->mapToGlobal(QPoint()).x() < row.panels.at(1)->mapToGlobal(QPoint()).x());
        QCOMPARE(SplitterOf(row.root)->layoutDirection(), Qt::LeftToRight);
        QCOMPARE(row.panels.at(0)->layoutDirection(), Qt::RightToLeft);
        QcDockWidget *left = NewPanel(3);
        row.root.addWidget(left, row.Area(0), Left);
        QcDockWidget *below = NewPanel(4);
        row.root.addWidget(below, AreaOf(*left), Bottom);
        DrainEvents();
        QVERIFY(left->mapToGlobal(QPoint()).x() < row.panels.at(0)->mapToGlobal(QPoint()).x());
        QCOMPARE(left->layoutDirection(), Qt::RightToLeft);
        QCOMPARE(below->layoutDirection(), Qt::RightToLeft);
        const auto areDirected = [&row](Qt::LayoutDirection direction) {
            const auto areas = row.root.findChildren<QcDockArea *>();
            return std::all_of(areas.begin(), areas.end(), [direction](QWidget *area) { return area->layoutDirection() == direction; });
        };
        QVERIFY(areDirected(Qt::RightToLeft));
        row.root.addWidget(NewPanel(5), nullptr, Top); // all sinks one level
        QVERIFY(areDirected(Qt::RightToLeft));
        auto *listed = new QcDockArea(nullptr); // the container takes it
        row.root.setDockAreaList(row.root.getDockAreaList() << listed);
        QVERIFY(areDirected(Qt::RightToLeft));
        QcDockContainer refilled(nullptr);
        refilled.setLayoutDirection(Qt::RightToLeft);
        delete refilled.getDockAreaList().first();
        DrainEvents();
        QCOMPARE(refilled.getDockAreaList().first()->layoutDirection(), Qt::RightToLeft);
        row.root.setLayoutDirection(Qt::LeftToRight);
        QVERIFY(areDirected(Qt::LeftToRight));
        QCOMPARE(below->layoutDirection(), Qt::LeftToRight);
        QCOMPARE(row.panels.at(0)->layoutDirection(), Qt::LeftToRight);
        VERIFY_SETTLED();
    }

    // --- The tip ---

    void the_chain_of_widgets_is_told_where_the_host_installed_it_as_a_filter()
    {
        auto *application = static_cast<QcApplication *>(qApp);
        application->setDebugTipEnabled(false); // it tells of the same press
        Row row({1});
        row.root.move(0, 0);
        row.Show();
        row.root.activateWindow();
        QTRY_VERIFY(row.root.isActiveWindow());
        QCursor::setPos(row.root.mapToGlobal(QPoint(450, 300)));
        const auto press = [&row] { QTest::keyClick(row.root.windowHandle(), Qt::Key_F1, Qt::ShiftModifier); };
        press();
        QVERIFY(!QToolTip::isVisible()); // it never installs itself
        row.root.windowHandle()->installEventFilter(&row.root);
        press();
        QVERIFY(QToolTip::isVisible());
        const QString last = QToolTip::text().split(QLatin1Char('\n')).last();
        QVERIFY2(last.startsWith(QStringLiteral("pointer: ")), qPrintable(last));
        const QPoint global = row.root.mapToGlobal(QPoint(0, 0));
        const QString end = QStringLiteral("; class_name: Velmora::QcDockContainer; object_name: ; relative_pos: {%1, %2}; "
                                           "global_pos: {%3, %4}; size: {908, 600};")
                                .arg(row.root.x())
                                .arg(row.root.y())
                                .arg(global.x())
                                .arg(global.y());
        QVERIFY2(last.endsWith(end), qPrintable(last));
        application->setDebugTipEnabled(true);
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
    }
};

VELMORA_TEST_MAIN(tst_QcDockContainer)
#include "tst_QcDockContainer.moc"
