#include "DockTestCase.h"

#include "support/TestMain.h"

#include <Velmora/QcSplitter.h>

#include <QButtonGroup>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// Two areas side by side: at the left one with the pages "Files" and "Outline", at the right a wrapper of "Output" above "Log".
struct Layout
{
    Layout()
    {
        root.resize(600, 400);
        left = Add(nullptr, Center);
        outline = AddPanel("Outline", left, Center);
        QcDockArea *right = Add(left, Right);
        log = AddPanel("Log", right, Bottom);
        wrapper = root.getDockAreaList().at(1);
        nested = qobject_cast<QcDockContainer *>(wrapper->widget(0));
        root.show();
        DrainEvents();
    }

    QcDockArea *Add(QWidget *target, DockPosition position)
    {
        QcDockWidget *panel = AddPanel(target ? "Output" : "Files", target, position);
        return EnclosingArea(panel);
    }

    QcDockWidget *AddPanel(const char *title, QWidget *target, DockPosition position)
    {
        auto *panel = new QcDockWidget(nullptr); // the container takes it
        panel->setWindowTitle(QLatin1String(title));
        panel->setType(panels++);
        root.addWidget(panel, target, position);
        return panel;
    }

    QcDockAreaTabBar *LeftBar() const { return left->findChild<QcDockAreaTabBar *>(); }
    QcDockAreaTabFrame *LeftFrame() const { return DockTree::TabFrameOf(left); }
    QStackedWidget *LeftStack() const { return DockTree::RecordOf(left).stack; }

    int panels = 0;
    QcDockContainer root{nullptr};
    QcDockArea *left;
    QcDockWidget *outline;
    QcDockWidget *log;
    QcDockArea *wrapper;
    QcDockContainer *nested;
};

} // namespace

/// Whoever asks whether docking is in order must hear of each disorder. Each test plants one.
class tst_DockInvariants : public DockTestCase
{
    Q_OBJECT

private:
    static QStringList Found() { return DockViolations(); }

private Q_SLOTS:
    void nothing_is_found_where_all_is_in_order()
    {
        QCOMPARE(Found(), QStringList());
        const Layout layout;
        QVERIFY(layout.nested);
        QCOMPARE(Found(), QStringList());
    }

    void an_area_outside_of_its_splitter_is_found()
    {
        Layout layout;
        auto *place = new QWidget(&layout.root);
        layout.left->setParent(place);
        QVERIFY(Found().contains(QStringLiteral("an area outside of its container's splitter")));
        delete place;
    }

    void a_pane_that_is_no_area_is_found()
    {
        Layout layout;
        QWidget *pane = new QWidget; // the splitter takes it
        static_cast<QSplitter *>(layout.left->parentWidget())->addWidget(pane);
        QVERIFY(Found().contains(QStringLiteral("a pane that is no area")));
        QVERIFY(Found().contains(QStringLiteral("2 sizes for 3 panes")));
        delete pane;
    }

    void a_second_splitter_is_found()
    {
        Layout layout;
        const QcSplitter second(&layout.root);
        QVERIFY(Found().contains(QStringLiteral("a container with 2 splitters")));
    }

    void a_container_without_an_area_is_found()
    {
        QcDockContainer root(nullptr);
        delete root.getDockAreaList().first();
        QCOMPARE(Found(), QStringList{QStringLiteral("a container that shows no area")});
    }

    void a_second_page_of_a_wrapper_is_found()
    {
        Layout layout;
        auto *panel = new QcDockWidget(nullptr); // the tab frame takes it
        DockTree::TabFrameOf(layout.wrapper)->addTab(QString(), panel);
        QVERIFY(Found().contains(QStringLiteral("a wrapper with 2 pages")));
        delete panel;
    }

    void a_tab_without_a_page_is_found()
    {
        Layout layout;
        layout.LeftBar()->addTab(QStringLiteral("Ghost"));
        QVERIFY(Found().contains(QStringLiteral("3 tabs for 2 pages")));
        QcDockAreaTabBarButton *tab = layout.LeftBar()->getTab(2);
        layout.LeftBar()->removeTab(2);
        delete tab;
    }

    void a_tab_with_another_title_is_found()
    {
        Layout layout;
        layout.LeftBar()->getTab(0)->setText(QStringLiteral("Else"));
        QCOMPARE(Found(), QStringList{QStringLiteral("a tab \"Else\" of a page with another title")});
        layout.LeftBar()->getTab(0)->setText(QStringLiteral("Files"));
    }

    void a_page_that_the_tabs_do_not_know_is_found()
    {
        Layout layout;
        QCOMPARE(layout.left->currentIndex(), 1);
        layout.LeftStack()->setCurrentIndex(0);
        QCOMPARE(Found(), QStringList{QStringLiteral("a checked tab that is not of the page shown")});
        layout.LeftStack()->setCurrentIndex(1);
    }

    void tabs_of_which_none_is_current_are_found()
    {
        Layout layout;
        auto *group = layout.LeftBar()->findChild<QButtonGroup *>();
        group->setExclusive(false);
        layout.LeftBar()->getTab(1)->setChecked(false);
        QVERIFY(Found().contains(QStringLiteral("no current tab")));
        layout.LeftBar()->getTab(1)->setChecked(true);
        group->setExclusive(true);
    }

    void rows_that_do_not_fit_are_found()
    {
        Layout layout;
        auto *row = layout.left->findChild<QFrame *>(QStringLiteral("m_topFrame"));
        row->hide();
        QCOMPARE(Found(), QStringList{QStringLiteral("a tab row that does not fit 2 pages")});
        row->show();
        layout.outline->setTitleVisible(true);
        QCOMPARE(Found(), QStringList{QStringLiteral("a title row that does not fit the tab row")});
        layout.outline->setTitleVisible(false);
    }

    void a_panel_hidden_in_a_stack_is_found()
    {
        Layout layout;
        const QcDockWidget lost(layout.LeftStack());
        QVERIFY(Found().contains(QStringLiteral("a panel hidden in a stack that does not show it")));
    }

    void a_page_that_is_a_window_is_found()
    {
        Layout layout;
        layout.outline->setWindowFlags(Qt::Window);
        QVERIFY(Found().contains(QStringLiteral("a window that is a page")));
        layout.outline->setWindowFlags(Qt::Widget);
    }

    void a_floating_panel_without_its_title_row_is_found()
    {
        Layout layout;
        QcDockWidget floating(&layout.root);
        floating.SetWindowFlags();
        floating.setTitleVisible(false);
        QCOMPARE(Found(), QStringList{QStringLiteral("a floating panel without its title row")});
    }

    void an_emptied_area_beside_others_is_found()
    {
        Layout layout;
        const auto log = DockTree::TabFrameOf(EnclosingArea(layout.log))->removeTab(0);
        log.second->setParent(nullptr);
        QCOMPARE(Found(), QStringList{QStringLiteral("an emptied area beside others")});
        layout.nested->addWidget(log.second, layout.nested->getDockAreaList().at(1), Center);
        delete log.first;
    }

    void an_emptied_wrapper_beside_others_is_found()
    {
        Layout layout;
        QList<QcDockWidget *> taken;
        for (QcDockArea *area : layout.nested->getDockAreaList()) {
            const auto page = DockTree::TabFrameOf(area)->removeTab(0);
            page.second->setParent(nullptr);
            delete page.first;
            taken.append(page.second);
        }
        QCOMPARE(Found().count(QStringLiteral("an emptied area beside others")), 3); // two in the wrapper, and itself
        qDeleteAll(taken);
    }

    void panels_that_no_walk_sees_are_found()
    {
        QcDockContainer root(nullptr);
        auto *frame = new QFrame(&root);
        auto *panel = new QcDockWidget(frame);
        panel->setType(7);
        const QStringList found = Found();
        QVERIFY(found.contains(QStringLiteral("a wrong count of panels of a type")));
        QVERIFY(found.contains(QStringLiteral("a list of types that does not fit the panels")));
        QVERIFY(found.contains(QStringLiteral("a container wrong about being empty")));
        delete frame;
    }

    void what_a_drag_leaves_behind_is_found()
    {
        Layout layout;
        QcDockIndicator indicator(nullptr);
        indicator.show();
        QCOMPARE(Found(), QStringList{QStringLiteral("an indicator between drags")});
        indicator.hide();
        QcDockMask mask(nullptr);
        mask.show();
        QCOMPARE(Found(), QStringList{QStringLiteral("a mask between drags")});
        mask.hide();
        layout.outline->setDragingStyle(true);
        QCOMPARE(Found(), QStringList{QStringLiteral("a panel that looks dragged")});
        layout.outline->setDragingStyle(false);
        layout.outline->SetDragTipVisible(true);
        QCOMPARE(Found(), QStringList{QStringLiteral("a panel that still shows its drag tip")});
        layout.outline->SetDragTipVisible(false);
        const QcDockAreaTabBarButton tab(nullptr);
        QCOMPARE(Found(), QStringList{QStringLiteral("a tab without a parent")});
    }

    void an_incomplete_registry_is_found()
    {
        Layout layout;
        QcDockDragController *controller = QcDockDragController::instance();
        controller->removeDockArea(layout.left);
        QCOMPARE(Found(), QStringList{QStringLiteral("a registry that does not fit the living areas")});
        controller->addDockArea(layout.left);
        controller->removeDockContainer(layout.nested);
        QCOMPARE(Found(), QStringList{QStringLiteral("a registry that does not fit the living containers")});
        controller->addDockContainer(layout.nested);
    }

    void a_layout_that_comes_back_as_another_is_found()
    {
        Layout layout;
        QCOMPARE(RoundTripViolations(layout.root), QStringList());
        // No file tells of a page that is no panel, and the current tab counts it.
        auto *page = new QWidget; // the area takes it
        layout.left->addWidget(page);
        layout.AddPanel("Last", layout.left, Center);
        QCOMPARE(RoundTripViolations(layout.root).size(), 1);
        delete page;
    }

    void geometry_of_docked_panels_is_no_difference()
    {
        const QString saved = QStringLiteral(R"({"children":[{"dockWidgetList":[{"nodeType":"dockWidget","type":1,"x":5}]}],"x":0})");
        QCOMPARE(Comparable(QString(saved).replace(QStringLiteral("\"x\":5"), QStringLiteral("\"x\":6"))), Comparable(saved));
        QVERIFY(Comparable(QString(saved).replace(QStringLiteral("\"type\":1"), QStringLiteral("\"type\":2"))) != Comparable(saved));
    }
};

VELMORA_TEST_MAIN(tst_DockInvariants)
#include "tst_DockInvariants.moc"
