#include "DockTestCase.h"
#include "DragStage.h"

#include "support/TestMain.h"

#include <Velmora/QcDockAreaTabStackedWidget.h>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

template <typename T>
QList<T *> Walked(const QObject &start)
{
    QList<T *> found;
    WalkDock(&start, [&found](QWidget *widget) {
        if (auto *one = qobject_cast<T *>(widget))
            found.append(one);
        return false;
    });
    return found;
}

/// Six panels in three levels, one of them floating, one beside another as a tab.
struct Tree
{
    Tree()
    {
        for (int type = 0; type < 6; ++type)
            panels.append(NewPanel(type));
        root.addWidget(panels[0], nullptr, Center);
        root.addWidget(panels[1], AreaOf(*panels[0]), Right);
        root.addWidget(panels[2], AreaOf(*panels[0]), Bottom);
        root.addWidget(panels[3], AreaOf(*panels[2]), Right);
        root.addWidget(panels[4], AreaOf(*panels[2]), Center);
        panels[5]->setParent(&root, Qt::Window);
        panels[5]->setTitleVisible(true);
    }

    QcDockContainer root{nullptr};
    QList<QcDockWidget *> panels;
};

} // namespace

class tst_DockTree : public DockTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_walk_goes_in_the_order_of_all_children()
    {
        const Tree tree;
        QCOMPARE(Walked<QcDockWidget>(tree.root), tree.root.findChildren<QcDockWidget *>());
        QCOMPARE(Walked<QcDockArea>(tree.root), tree.root.findChildren<QcDockArea *>());
        QCOMPARE(Walked<QcDockContainer>(tree.root), tree.root.findChildren<QcDockContainer *>());
        AreaOf(*tree.panels[2])->setCurrentIndex(0); // raises a page
        QCOMPARE(Walked<QcDockWidget>(tree.root), tree.root.findChildren<QcDockWidget *>());
    }

    void a_walk_ends_at_the_first_yes()
    {
        const Tree tree;
        int visits = 0;
        QVERIFY(WalkDock(&tree.root, [&visits](QWidget *) { return ++visits == 3; }));
        QCOMPARE(visits, 3);
        QVERIFY(!WalkDock(&tree.root, [](QWidget *) { return false; }));
    }

    void a_walk_passes_over_what_waits_for_its_deletion()
    {
        Tree tree;
        DockTree::Doom(EnclosingContainer(AreaOf(*tree.panels[2]))); // with panels 2 to 4, and what holds them
        const QList<QcDockWidget *> left = Walked<QcDockWidget>(tree.root);
        QVERIFY(!left.contains(tree.panels[2]) && !left.contains(tree.panels[4]));
        QVERIFY(left.contains(tree.panels[1]));
        QVERIFY(IsDoomed(tree.panels[2]));
        QVERIFY(!IsDoomed(tree.panels[1]));
        DockTree::Revive(tree.panels[2]);
        QVERIFY(!IsDoomed(tree.panels[2]));
        VERIFY_SETTLED();
        QCOMPARE(Walked<QcDockWidget>(tree.root).size(), 6);
    }

    void what_was_revived_can_go_again()
    {
        QcDockContainer root(nullptr);
        root.addWidget(NewPanel(1), nullptr, Center);
        root.addWidget(NewPanel(2), nullptr, Right);
        const QPointer<QcDockArea> area = root.getDockAreaList().first();
        DockTree::Doom(area);
        DockTree::Revive(area);
        DockTree::Doom(area);
        DrainEvents();
        QVERIFY(!area);
    }

    void a_page_on_its_way_elsewhere_is_nowhere()
    {
        QcDockContainer root(nullptr);
        QcDockWidget *panel = NewPanel(1);
        root.addWidget(panel, nullptr, Center);
        DockTree::RecordOf(AreaOf(*panel)).stack->removeWidget(panel); // its child still
        QCOMPARE(Walked<QcDockWidget>(root).size(), 0);
        root.addWidget(panel, nullptr, Center);
        VERIFY_SETTLED();
    }

    void enclosing_ends_at_a_panel_for_containers_and_not_for_targets()
    {
        const Tree tree;
        auto *inner = new QcDockContainer(tree.panels[1]->getContentWidget());
        inner->addWidget(NewPanel(9), nullptr, Center);
        QcDockArea *innerArea = inner->getDockAreaList().first();
        QVERIFY(IsRoot(inner));
        QCOMPARE(EnclosingContainer(innerArea), inner);
        QVERIFY(!EnclosingContainer(inner));
        QCOMPARE(EnclosingArea(inner), AreaOf(*tree.panels[1]));
        QCOMPARE(DepthOf(inner), 1);
        QVERIFY(!EnclosingArea(nullptr));
        QVERIFY(!EnclosingArea(&tree.root));
    }

    void depth_counts_the_root_and_nesting_what_lies_below()
    {
        Tree tree; // ((0 / (2,4 | 3)) | 1)
        QCOMPARE(DepthOf(&tree.root), 1);
        QCOMPARE(DepthOf(EnclosingContainer(AreaOf(*tree.panels[3]))), 3);
        QCOMPARE(NestingBelow(&tree.root), 2);
        QCOMPARE(NestingBelow(AreaOf(*tree.panels[3])), 0);
        QCOMPARE(NestingBelow(tree.root.getDockAreaList().first()), 2);
    }

    void of_two_sides_the_deeper_one_counts_whichever_it_is()
    {
        for (const int deeper : {0, 1}) {
            QcDockContainer root(nullptr);
            QcDockWidget *const sides[] = {NewPanel(1), NewPanel(2)};
            root.addWidget(sides[0], nullptr, Center);
            root.addWidget(sides[1], nullptr, Right);
            for (QcDockWidget *side : sides)
                root.addWidget(NewPanel(3), AreaOf(*side), Bottom);
            QCOMPARE(NestingBelow(&root), 1);
            root.addWidget(NewPanel(3), AreaOf(*sides[deeper]), Right);
            QCOMPARE(NestingBelow(&root), 2);
        }
    }

    void only_a_page_has_an_area()
    {
        const Tree tree;
        QVERIFY(AreaOfPage(tree.panels[1]));
        QVERIFY(!AreaOfPage(tree.panels[1]->getContentWidget()));
        QVERIFY(!AreaOfPage(tree.panels[5])); // floats
        QVERIFY(!AreaOfPage(&tree.root));
    }

    void what_is_built_in_place_lies_as_if_it_had_been_added()
    {
        const std::unique_ptr<QcDockContainer> root(DockTree::NewBare(nullptr));
        QcDockArea *left = DockTree::AppendArea(root.get());
        auto *panel = new QcDockWidget(DockTree::PageParent(left));
        left->addWidget(panel);
        QcDockArea *right = DockTree::AppendArea(root.get());
        QcDockContainer *nested = DockTree::NewNested(right);
        DockTree::AppendArea(nested)->addWidget(NewPanel(2));
        QCOMPARE(root->getDockAreaList(), (QList<QcDockArea *>{left, right}));
        QVERIFY(IsWrapper(right));
        QCOMPARE(NestedContainer(right), nested);
        root->resize(804, 300);
        root->show();
        DrainEvents();
        QCOMPARE(root->getSizes(), (QList<int>{400, 400}));
        VERIFY_SETTLED();
    }

    void an_area_is_registered_in_order_of_construction()
    {
        const QcDockArea first(nullptr);
        const QcDockArea second(nullptr);
        QCOMPARE(DockRegistry::Areas().mid(DockRegistry::Areas().size() - 2).first(), &first);
        QCOMPARE(DockRegistry::Areas().last(), &second);
    }
};

VELMORA_TEST_MAIN(tst_DockTree)
#include "tst_DockTree.moc"
