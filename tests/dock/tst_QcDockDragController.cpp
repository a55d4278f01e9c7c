#include "dock/DockDrag_p.h"
#include "dock/DockRegistry_p.h"
#include "dock/DockTestCase.h"
#include "dock/DragStage.h"
#include "dock/TabStage.h"

#include "support/CallAt.h"
#include "support/EventCounter.h"
#include "support/TestMain.h"

#include <Velmora/QcDockAreaTabFrame.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <vector>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QList<int> kAllPlaces = {Left, Right, Top, Bottom, Center, OuterLeft, OuterRight, OuterTop, OuterBottom};
const QList<int> kAllButCenter = {Left, Right, Top, Bottom, OuterLeft, OuterRight, OuterTop, OuterBottom};

QRect Part(const QRect &whole, DockPosition position)
{
    const QSize half(whole.width() / 2, whole.height() / 2);
    switch (position) {
    case Left:
    case OuterLeft:
        return {whole.topLeft(), QSize(half.width(), whole.height())};
    case Right:
        return {whole.topLeft() + QPoint(half.width(), 0), QSize(half.width(), whole.height())};
    case OuterRight:
        return {whole.topLeft() + QPoint(whole.width() - half.width(), 0), QSize(half.width(), whole.height())};
    case Top:
    case OuterTop:
        return {whole.topLeft(), QSize(whole.width(), half.height())};
    case Bottom:
        return {whole.topLeft() + QPoint(0, half.height()), QSize(whole.width(), half.height())};
    case OuterBottom:
        return {whole.topLeft() + QPoint(0, whole.height() - half.height()), QSize(whole.width(), half.height())};
    default:
        return whole;
    }
}

/// Whether both rectangles have nearly the same place: splitter handles and borders lie between them.
bool AreClose(const QRect &a, const QRect &b)
{
    constexpr int kTolerance = 6;
    return qAbs(a.left() - b.left()) <= kTolerance && qAbs(a.top() - b.top()) <= kTolerance && qAbs(a.right() - b.right()) <= kTolerance
        && qAbs(a.bottom() - b.bottom()) <= kTolerance;
}

void AddPlaces()
{
    QTest::addColumn<int>("position");
    for (const int position : kAllPlaces)
        QTest::newRow(qPrintable(QString::number(position))) << position;
}

} // namespace

class TestQcDockDragController : public DragTestCase
{
    Q_OBJECT

private Q_SLOTS:
    // --- What lies under the mouse, and what it offers ---

    void an_area_that_refuses_the_type_offers_all_places_but_its_centre()
    {
        const TypeGroups groups({{1, 2}, {3}});
        DragStage stage;
        const QcDockWidget *resident = stage.Add(1);
        stage.Step(stage.Float(3), MiddleOf(*resident));
        QCOMPARE(stage.Offered(), kAllButCenter);
        stage.Step(stage.Float(2), MiddleOf(*resident));
        QCOMPARE(stage.Offered(), kAllPlaces);
    }

    void an_empty_top_level_area_offers_only_its_centre()
    {
        DragStage stage;
        QcDockWidget *dragged = stage.Float(1);
        stage.Step(dragged, MiddleOf(*stage.root));
        QCOMPARE(stage.Offered(), QList<int>({Center}));
    }

    void an_empty_area_in_a_nested_container_offers_all_nine()
    {
        DragStage stage;
        auto *nested = new QcDockContainer(nullptr);
        nested->setEmptyKeep(true);
        stage.root->addWidget(nested, nullptr, Center);
        DrainEvents();
        stage.Step(stage.Float(1), MiddleOf(*nested));
        QCOMPARE(stage.Offered(), kAllPlaces);
    }

    void outside_of_all_areas_there_is_the_tip_and_neither_indicator_nor_mask()
    {
        DragStage stage;
        stage.Add(1);
        QcDockWidget *dragged = stage.Float(2);
        stage.Step(dragged, MiddleOf(*stage.root));
        QVERIFY(stage.Indicator()->isVisible());
        QVERIFY(stage.Mask()->isVisible());
        stage.Step(dragged, QPoint(5, 5));
        QVERIFY(stage.IsFeedbackHidden());
        QVERIFY(stage.TipOf(*dragged)->isVisible());
        stage.Drop(dragged);
        QVERIFY(stage.TipOf(*dragged)->isHidden());
        QVERIFY(dragged->isFloating());
        QCOMPARE(dragged->property("window"), QVariant(true));
    }

    void in_an_area_but_off_the_indicator_the_tip_shows_and_the_mask_does_not()
    {
        ResidentStage stage;
        stage.Step(stage.dragged, GlobalRect(*stage.resident).topLeft() + QPoint(3, 3));
        QVERIFY(stage.Indicator()->isVisible());
        QVERIFY(stage.Mask()->isHidden());
        QVERIFY(stage.TipOf(*stage.dragged)->isVisible());
    }

    void anywhere_on_the_indicator_the_tip_is_hidden()
    {
        DragStage stage;
        stage.Add(1);
        QcDockWidget *dragged = stage.Float(2);
        stage.Step(dragged, MiddleOf(*stage.root));
        QVERIFY(stage.TipOf(*dragged)->isHidden());
        stage.Step(dragged, GlobalRect(*stage.Indicator()).topLeft() + QPoint(2, 2)); // on none of its labels
        QVERIFY(stage.TipOf(*dragged)->isHidden());
        QVERIFY(stage.Mask()->isHidden());
    }

    void a_disabled_label_is_no_target_and_a_release_on_it_leaves_the_panel_floating()
    {
        const TypeGroups groups({{1}, {3}});
        DragStage stage;
        const QcDockWidget *resident = stage.Add(1);
        QcDockWidget *dragged = stage.Float(3);
        stage.Step(dragged, MiddleOf(*resident));
        stage.Step(dragged, MiddleOf(*stage.Label(Left)));
        QVERIFY(stage.Mask()->isVisible());
        stage.Step(dragged, MiddleOf(*stage.Label(Center)));
        QVERIFY(stage.Mask()->isHidden());
        stage.Drop(dragged);
        QVERIFY(dragged->isFloating());
        QCOMPARE(dragged->property("window"), QVariant(true));
    }

    void an_area_on_a_hidden_page_is_still_hit_at_its_last_place()
    {
        DragStage stage;
        const QcDockWidget *resident = stage.Add(1);
        const QPoint place = MiddleOf(*resident);
        QcDockWidget *dragged = stage.Float(2);
        stage.root->hide();
        dragged->show();
        stage.Step(dragged, place);
        QVERIFY(stage.Indicator()->isVisible());
    }

    void of_areas_in_windows_over_each_other_the_one_made_first_is_hit()
    {
        DragStage first;
        first.Add(1);
        DragStage second(first.window.geometry().adjusted(40, 0, 40, 0));
        second.Add(1);
        second.window.raise();
        QcDockWidget *dragged = second.Float(2);
        const QPoint both = MiddleOf(second.window);
        first.Step(dragged, both);
        QCOMPARE(MiddleOf(*first.Indicator()).x(), (MiddleOf(first.window).x()));
    }

    void areas_inside_of_the_dragged_panel_do_not_count()
    {
        DragStage stage;
        stage.Add(1);
        QcDockWidget *dragged = stage.Float(2);
        auto *inner = new QcDockContainer(dragged);
        dragged->setContentWidget(inner);
        dragged->setGeometry(200, 200, 300, 200); // above the stage
        DrainEvents();
        stage.Step(dragged, MiddleOf(*inner));
        QCOMPARE(MiddleOf(*stage.Indicator()), GlobalRect(*stage.root->getDockAreaList().first()).center());
        stage.Step(dragged, QPoint(5, 5));
        dragged->move(1200, 200); // beside it
        stage.Step(dragged, MiddleOf(*inner));
        QVERIFY(stage.Indicator()->isHidden());
        stage.Drop(dragged);
        QVERIFY(dragged->isFloating());
    }

    void an_area_that_waits_for_its_deletion_is_not_hit()
    {
        DragStage stage;
        QcDockWidget *leaving = stage.Add(1);
        QcDockWidget *staying = stage.Add(2, leaving, Right);
        const QPoint left = MiddleOf(*leaving);
        QcDockWidget *dragged = stage.Float(3);
        leaving->swichToFloating(); // its area goes with the next turn
        QCursor::setPos(left);
        stage.Controller()->processDockWidgetDraging(dragged);
        QVERIFY(stage.Indicator()->isHidden());
        DrainEvents();
        stage.Step(dragged, left);
        QVERIFY(stage.Indicator()->isVisible());
        QVERIFY(GlobalRect(*AreaOf(*staying)).contains(left));
    }

    // --- Indicator and mask ---

    void the_indicator_is_centred_on_the_inner_most_area()
    {
        NeighbourStage stage;
        QcDockWidget *below = stage.Add(3, stage.right, Bottom);
        QcDockWidget *dragged = stage.Float(4);
        for (const QcDockWidget *panel : {stage.left, stage.right, below}) {
            stage.Step(dragged, GlobalRect(*panel).topLeft() + QPoint(2, 2));
            const QRect area = GlobalRect(*AreaOf(*panel));
            QCOMPARE(stage.Indicator()->pos(), area.topLeft() + QPoint((area.width() - 184) / 2, (area.height() - 191) / 2));
        }
    }

    void over_a_small_area_the_indicator_overhangs_also_off_the_screen()
    {
        DragStage stage(QRect(0, 0, 120, 100));
        const QcDockWidget *resident = stage.Add(1);
        stage.Step(stage.Float(2), MiddleOf(*resident));
        const QRect area = GlobalRect(*AreaOf(*resident));
        QCOMPARE(stage.Indicator()->pos(), area.topLeft() + QPoint((area.width() - 184) / 2, (area.height() - 191) / 2));
        QVERIFY(stage.Indicator()->x() < 0);
    }

    void the_mask_covers_what_the_place_would_take_data() { AddPlaces(); }

    void the_mask_covers_what_the_place_would_take()
    {
        QFETCH(int, position);
        const auto place = static_cast<DockPosition>(position);
        DragStage stage(QRect(100, 100, 901, 601));
        QcDockWidget *left = stage.Add(1);
        stage.Add(2, left, Right);
        const QcDockWidget *below = stage.Add(3, left, Bottom);
        QcDockWidget *dragged = stage.Float(4);
        stage.Step(dragged, MiddleOf(*below));
        stage.Step(dragged, MiddleOf(*stage.Label(place)));
        QVERIFY(stage.Mask()->isVisible());
        const bool isOuter = place >= OuterLeft && place != NoPosition;
        QCOMPARE(stage.Mask()->geometry(), Part(GlobalRect(isOuter ? *static_cast<QWidget *>(stage.root) : *AreaOf(*below)), place));
    }

    void a_drop_puts_the_panel_where_the_mask_was_data() { AddPlaces(); }

    void a_drop_puts_the_panel_where_the_mask_was()
    {
        QFETCH(int, position);
        const auto place = static_cast<DockPosition>(position);
        DragStage stage;
        QcDockWidget *left = stage.Add(1);
        stage.Add(2, left, Right);
        QcDockWidget *dragged = stage.Float(4);
        stage.Step(dragged, MiddleOf(*left));
        stage.Step(dragged, MiddleOf(*stage.Label(place)));
        const QRect promised = stage.Mask()->geometry();
        stage.Drop(dragged);
        QVERIFY(!dragged->isFloating());
        QVERIFY2(AreClose(GlobalRect(*AreaOf(*dragged)), promised), qPrintable(QStringLiteral("not at %1").arg(position)));
        QCOMPARE(AreaOf(*dragged) == AreaOf(*left), place == Center);
        QCOMPARE(dragged->property("window"), QVariant(false));
        QCOMPARE(dragged->property("draging"), QVariant(false));
        QVERIFY(stage.IsFeedbackHidden());
        QVERIFY(stage.TipOf(*dragged)->isHidden());
        QVERIFY(dragged->isVisible());
        VERIFY_SETTLED();
    }

    void a_step_takes_on_the_look_of_dragging_and_a_drop_on_nothing_ends_it()
    {
        DragStage stage;
        stage.Add(1);
        QcDockWidget *dragged = stage.Float(2);
        stage.Step(dragged, MiddleOf(*stage.root));
        QCOMPARE(dragged->property("draging"), QVariant(true));
        QCursor::setPos(5, 5);
        const QPoint place = dragged->pos();
        stage.Drop(dragged);
        QCOMPARE(dragged->property("draging"), QVariant(false));
        QCOMPARE(dragged->property("window"), QVariant(true));
        QCOMPARE(dragged->pos(), place);
        QVERIFY(stage.Indicator()->isHidden());
    }

    // --- What the labels say after a drag ---

    void before_any_drag_a_drop_at_the_screens_corner_docks_nothing()
    {
        DragStage stage(QRect(0, 0, 400, 300));
        stage.Add(1);
        QcDockWidget *clicked = stage.Float(2);
        for (int x = 10; x < 184; x += 20) {
            for (int y = 10; y < 191; y += 20) {
                QCursor::setPos(x, y);
                stage.Controller()->processDockWidgetDragFinished(clicked);
                QVERIFY(clicked->isFloating());
            }
        }
    }

    void after_a_drag_a_release_where_a_hidden_offered_label_lies_still_docks()
    {
        ResidentStage stage;
        stage.StepOverResident();
        stage.Step(stage.dragged, GlobalRect(*stage.resident).topLeft() + QPoint(2, 2));
        stage.Drop(stage.dragged);
        QVERIFY(stage.dragged->isFloating());
        QVERIFY(stage.Indicator()->isHidden());
        QCursor::setPos(MiddleOf(*stage.Label(Center)));
        stage.Drop(stage.dragged);
        QCOMPARE(AreaOf(*stage.dragged), AreaOf(*stage.resident));
    }

    void a_click_on_a_title_row_over_a_hidden_offered_label_docks()
    {
        DragStage stage(QRect(0, 0, 400, 300));
        const QcDockWidget *resident = stage.Add(1);
        QcDockWidget *clicked = stage.Float(2);
        stage.Step(clicked, MiddleOf(*resident));
        stage.Step(clicked, GlobalRect(*resident).topLeft() + QPoint(2, 2));
        stage.Drop(clicked);
        QVERIFY(clicked->isFloating());
        clicked->move(MiddleOf(*stage.Label(Center)) - QPoint(60, 15));
        DrainEvents();
        Mouse mouse;
        mouse.PressAt(*clicked, QPoint(60, 15));
        QVERIFY(clicked->isFloating());
        mouse.Release();
        DrainEvents();
        QCOMPARE(AreaOf(*clicked), AreaOf(*resident));
        QVERIFY(stage.Indicator()->isHidden());
    }

    void a_drop_does_not_ask_again_whether_the_type_may_join()
    {
        DragStage stage;
        const QcDockWidget *resident = stage.Add(1);
        QcDockWidget *dragged = stage.Float(3);
        stage.Step(dragged, MiddleOf(*resident));
        QVERIFY(stage.Mask()->isVisible());
        const TypeGroups groups({{1}, {3}}); // the host has changed its mind
        stage.Drop(dragged);
        QCOMPARE(AreaOf(*dragged), AreaOf(*resident));
    }

    void a_label_that_overhangs_a_small_area_drops_on_nothing()
    {
        ResidentStage stage(QRect(300, 300, 120, 60));
        stage.StepOverResident();
        const QPoint outside = GlobalRect(*stage.Label(Top)).topLeft() + QPoint(2, 2);
        QVERIFY(!GlobalRect(*AreaOf(*stage.resident)).contains(outside));
        QCursor::setPos(outside);
        QCOMPARE(stage.Indicator()->getTargetDockPosition(), Top);
        stage.Drop(stage.dragged);
        QVERIFY(stage.dragged->isFloating());
        QCOMPARE(stage.dragged->property("window"), QVariant(false));
    }

    void an_outer_label_without_a_container_below_drops_on_nothing()
    {
        ResidentStage stage(QRect(300, 300, 120, 100));
        stage.StepOverResident();
        const QPoint outside = MiddleOf(*stage.Label(OuterTop));
        QVERIFY(!GlobalRect(*stage.root).contains(outside));
        QCursor::setPos(outside);
        stage.Drop(stage.dragged);
        QVERIFY(stage.dragged->isFloating());
        QCOMPARE(stage.dragged->property("window"), QVariant(false));
    }

    void a_host_that_deletes_all_top_level_windows_gets_a_new_indicator_and_mask()
    {
        ResidentStage stage;
        delete stage.Indicator();
        delete stage.Mask();
        stage.Drop(stage.dragged);
        stage.StepOverResident();
        QVERIFY(stage.Indicator()->isVisible());
        QVERIFY(stage.Mask()->isVisible());
        delete stage.Indicator();
        delete stage.Mask();
        stage.Drop(stage.dragged);
        QVERIFY(stage.dragged->isFloating());
    }

    void a_null_changes_nothing()
    {
        const DragStage stage;
        QcDockDragController *controller = DragStage::Controller();
        const auto areas = DockRegistry::Areas();
        controller->addDockArea(nullptr);
        controller->removeDockArea(nullptr);
        controller->addDockContainer(nullptr);
        controller->removeDockContainer(nullptr);
        controller->deleteEmptyDockArea(nullptr);
        controller->deleteEmptyDockContainer(nullptr);
        controller->processDockWidgetDraging(nullptr);
        controller->processDockWidgetDragFinished(nullptr);
        controller->processDockWidgetSwitchToFloating(nullptr);
        QCOMPARE(DockRegistry::Areas(), areas);
        QVERIFY(DragStage::Indicator()->isHidden());
    }

    // --- The registry ---

    void the_registry_holds_all_living_areas_and_containers_in_order_of_construction()
    {
        const QList<QcDockArea *> areasBefore = DockRegistry::Areas();
        const QList<QcDockContainer *> containersBefore = DockRegistry::Containers();
        QList<QcDockArea *> areas;
        QList<QcDockContainer *> containers;
        for (int i = 0; i < 40; ++i)
            areas.append(new QcDockArea(nullptr));
        for (int i = 0; i < 5; ++i)
            containers.append(new QcDockContainer(nullptr));
        QCOMPARE(DockRegistry::Areas().mid(areasBefore.size(), 40), areas);
        QCOMPARE(DockRegistry::Containers(), containersBefore + containers);
        qDeleteAll(containers);
        QCOMPARE(DockRegistry::Containers(), containersBefore);

        // From the middle, the ends and all over: the others keep their order.
        for (const int gone : {17, 0, 37, 5, 5, 5, 20})
            delete areas.takeAt(gone);
        QCOMPARE(DockRegistry::Areas(), areasBefore + areas);
        while (areas.size() > 3)
            delete areas.takeAt(areas.size() / 2);
        QCOMPARE(DockRegistry::Areas(), areasBefore + areas);
        areas.append(new QcDockArea(nullptr));
        QCOMPARE(DockRegistry::Areas(), areasBefore + areas);
        DragStage::Controller()->addDockArea(areas.first());
        QCOMPARE(DockRegistry::Areas(), areasBefore + areas);
        DragStage::Controller()->removeDockArea(areas.first());
        DragStage::Controller()->removeDockArea(areas.first());
        QCOMPARE(DockRegistry::Areas(), areasBefore + areas.mid(1));
        qDeleteAll(areas);
        QCOMPARE(DockRegistry::Areas(), areasBefore);
    }

    void leaving_the_registry_costs_the_same_in_a_crowd()
    {
        // Were each removal a walk over all, these would take minutes.
        constexpr int kCount = 300000;
        std::vector<int> entries(kCount);
        QList<int *> list;
        RegistryPlaces<int> places;
        for (int &entry : entries)
            places.Add(list, &entry);
        for (int i = 0; i < kCount; ++i)
            places.Remove(list, &entries[static_cast<std::size_t>((i * 7919LL) % kCount)]);
        list.removeAll(nullptr);
        QVERIFY(list.isEmpty());
    }

    void the_walk_deletes_every_empty_area_and_container_on_its_way_up()
    {
        NeighbourStage stage;
        QcDockWidget *below = stage.Add(3, stage.right, Bottom); // nested: right above below
        const QPointer<QcDockArea> nestedArea = AreaOf(*below);
        const QPointer<QWidget> nested = nestedArea->parentWidget()->parentWidget();
        QVERIFY(qobject_cast<QcDockContainer *>(nested));
        QCOMPARE(stage.root->getDockAreaList().size(), 2);
        stage.right->swichToFloating();
        DrainEvents();
        QVERIFY(nested);
        below->swichToFloating();
        DrainEvents();
        QVERIFY(!nestedArea);
        QVERIFY(!nested);
        QCOMPARE(stage.root->getDockAreaList(), QList<QcDockArea *>({AreaOf(*stage.left)}));
    }

    // --- A drag, from its first move to its end ---

    void escape_ends_a_drag_as_a_drop_on_nothing()
    {
        ResidentStage stage;
        int letGo = 0;
        DockDrag::Begin(stage.dragged, stage.dragged, [&letGo] { ++letGo; });
        stage.StepOverResident();
        QVERIFY(stage.Mask()->isVisible());
        DockDrag::PostStep(stage.dragged);
        QTest::keyClick(&stage.window, Qt::Key_Escape);
        DrainEvents();
        QCOMPARE(letGo, 1);
        QVERIFY(stage.IsFeedbackHidden());
        QVERIFY(stage.TipOf(*stage.dragged)->isHidden());
        QVERIFY(stage.dragged->isFloating());
        QCOMPARE(stage.dragged->property("window"), QVariant(true));
        QCOMPARE(stage.dragged->property("draging"), QVariant(false));
        VERIFY_SETTLED();
    }

    void escape_in_a_drag_reaches_no_shortcut_and_no_widget_and_afterwards_both()
    {
        struct Listener : QLineEdit
        {
            using QLineEdit::QLineEdit;
            int escapes = 0;
            void keyPressEvent(QKeyEvent *event) override
            {
                escapes += event->key() == Qt::Key_Escape ? 1 : 0;
                QLineEdit::keyPressEvent(event);
            }
        };
        DragStage stage;
        auto *edit = new Listener(&stage.window);
        edit->show();
        edit->setFocus();
        QcDockWidget *dragged = stage.Float(2);
        stage.window.activateWindow();
        QTRY_VERIFY(edit->hasFocus());

        DockDrag::Begin(dragged, dragged, [] {});
        QTest::keyClick(edit, Qt::Key_A);
        QCOMPARE(edit->text(), QStringLiteral("a"));
        QTest::keyClick(edit, Qt::Key_Escape);
        QCOMPARE(edit->escapes, 0);
        QTest::keyClick(edit, Qt::Key_Escape);
        QCOMPARE(edit->escapes, 1);

        QShortcut shortcut(Qt::Key_Escape, &stage.window);
        QSignalSpy activated(&shortcut, &QShortcut::activated);
        DockDrag::Begin(dragged, dragged, [] {});
        QTest::keyClick(edit, Qt::Key_Escape);
        QCOMPARE(activated.count(), 0);
        QTest::keyClick(edit, Qt::Key_Escape);
        QCOMPARE(activated.count(), 1);
    }

    void a_left_press_shows_that_the_release_was_lost()
    {
        ResidentStage stage;
        int letGo = 0;
        DockDrag::Begin(stage.dragged, stage.dragged, [&letGo] { ++letGo; });
        stage.StepOverResident();
        QTest::mousePress(&stage.window, Qt::RightButton);
        QCOMPARE(letGo, 0);
        QVERIFY(stage.Mask()->isVisible());
        QTest::mousePress(&stage.window, Qt::LeftButton);
        QCOMPARE(letGo, 1);
        QVERIFY(stage.IsFeedbackHidden());
        QVERIFY(stage.dragged->isFloating());
        QTest::mousePress(&stage.window, Qt::LeftButton);
        QCOMPARE(letGo, 1);
        QTest::mouseRelease(&stage.window, Qt::LeftButton);
        QTest::mouseRelease(&stage.window, Qt::RightButton);
    }

    void moves_without_a_button_and_a_switch_of_windows_do_not_end_a_drag()
    {
        DragStage stage;
        QcDockWidget *dragged = stage.Float(2);
        int letGo = 0;
        DockDrag::Begin(dragged, dragged, [&letGo] { ++letGo; });
        QTest::mouseMove(&stage.window, QPoint(20, 20));
        QTest::mouseMove(&stage.window, QPoint(40, 20));
        dragged->activateWindow();
        stage.window.activateWindow();
        QEvent deactivate(QEvent::ApplicationDeactivate);
        QCoreApplication::sendEvent(qApp, &deactivate);
        DrainEvents();
        QCOMPARE(letGo, 0);
        DockDrag::Cancel();
        QCOMPARE(letGo, 1);
    }

    void a_new_drag_ends_one_whose_release_never_came()
    {
        DragStage stage;
        QcDockWidget *first = stage.Float(1);
        QcDockWidget *second = stage.Float(2);
        int letGo = 0;
        DockDrag::Begin(first, first, [&letGo] { ++letGo; });
        DockDrag::Begin(second, second, [] {});
        QCOMPARE(letGo, 1);
        DockDrag::End(second);
    }

    void steps_of_a_cancelled_drag_do_nothing_and_those_of_the_next_one_do()
    {
        ResidentStage stage;
        QCursor::setPos(MiddleOf(*stage.resident));
        DockDrag::Begin(stage.dragged, stage.dragged, [] {});
        DockDrag::PostStep(stage.dragged);
        DockDrag::Cancel();
        DrainEvents();
        QVERIFY(stage.Indicator()->isHidden());
        QVERIFY(stage.dragged->property("draging") != QVariant(true));

        DockDrag::Begin(stage.dragged, stage.dragged, [] {});
        DockDrag::PostStep(stage.dragged);
        DrainEvents();
        QVERIFY(stage.Indicator()->isVisible());
        DockDrag::PostEnd(stage.dragged);
        DrainEvents();
        QVERIFY(!stage.dragged->isFloating());
    }

    void steps_posted_before_the_release_run_before_the_drop()
    {
        ResidentStage stage;
        DockDrag::Begin(stage.dragged, stage.dragged, [] {});
        QCursor::setPos(MiddleOf(*stage.resident));
        DockDrag::PostStep(stage.dragged);
        DockDrag::PostEnd(stage.dragged); // no turn between: the labels are offered by the step only
        DockDrag::Begin(stage.dragged, stage.dragged, [] {});
        DockDrag::Cancel();
        DrainEvents();
        QCOMPARE(AreaOf(*stage.dragged), AreaOf(*stage.resident));
        QVERIFY(stage.Indicator()->isHidden());
    }

    void after_the_release_escape_belongs_to_the_host_again()
    {
        DragStage stage;
        QcDockWidget *dragged = stage.Float(2);
        int letGo = 0;
        DockDrag::Begin(dragged, dragged, [&letGo] { ++letGo; });
        DockDrag::PostEnd(dragged);
        QShortcut shortcut(Qt::Key_Escape, &stage.window);
        QSignalSpy activated(&shortcut, &QShortcut::activated);
        stage.window.activateWindow();
        QTRY_VERIFY(stage.window.isActiveWindow());
        QTest::keyClick(&stage.window, Qt::Key_Escape);
        QCOMPARE(activated.count(), 1);
        QCOMPARE(letGo, 0);
        DrainEvents();
    }

    void a_panel_that_dies_in_its_drag_takes_indicator_and_mask_with_it()
    {
        ResidentStage stage;
        QObject owner;
        int letGo = 0;
        DockDrag::Begin(stage.dragged, &owner, [&letGo] { ++letGo; });
        stage.StepOverResident();
        DockDrag::PostStep(stage.dragged);
        QVERIFY(stage.Mask()->isVisible());
        delete stage.dragged;
        QCOMPARE(letGo, 1);
        QVERIFY(stage.IsFeedbackHidden());
        DrainEvents();
        QVERIFY(stage.Indicator()->isHidden());
    }

    void a_panel_that_dies_between_release_and_drop_takes_them_too()
    {
        ResidentStage stage;
        DockDrag::Begin(stage.dragged, stage.dragged, [] {});
        stage.StepOverResident();
        DockDrag::PostEnd(stage.dragged);
        delete stage.dragged;
        DrainEvents();
        QVERIFY(stage.IsFeedbackHidden());
    }

    void an_owner_that_dies_leaves_the_panel_floating()
    {
        ResidentStage stage;
        auto owner = std::make_unique<QObject>();
        int letGo = 0;
        DockDrag::Begin(stage.dragged, owner.get(), [&letGo] { ++letGo; });
        stage.StepOverResident();
        owner.reset();
        DrainEvents();
        QCOMPARE(letGo, 0);
        QVERIFY(stage.Mask()->isHidden());
        QVERIFY(stage.dragged->isFloating());
        QCOMPARE(stage.dragged->property("draging"), QVariant(false));
        QCOMPARE(stage.dragged->property("window"), QVariant(true));
    }

    void a_panel_docked_by_its_host_before_the_posted_drop_stays_there()
    {
        NeighbourStage stage;
        QcDockWidget *dragged = stage.Float(3);
        DockDrag::Begin(dragged, dragged, [] {});
        stage.Step(dragged, MiddleOf(*stage.left));
        DockDrag::PostEnd(dragged);
        stage.root->addWidget(dragged, stage.right, Center);
        DrainEvents();
        QCOMPARE(AreaOf(*dragged), AreaOf(*stage.right));
        QCOMPARE(dragged->property("draging"), QVariant(false));
        QVERIFY(stage.IsFeedbackHidden());
    }

    void a_second_release_does_not_dock_again()
    {
        DragStage stage;
        QcDockWidget *left = stage.Add(1);
        QcDockWidget *dragged = stage.Float(3);
        stage.Step(dragged, MiddleOf(*left));
        stage.Step(dragged, MiddleOf(*stage.Label(Left)));
        DockDrag::PostEnd(dragged);
        DockDrag::PostEnd(dragged);
        DrainEvents();
        QCOMPARE(stage.root->getDockAreaList().size(), 2);
        QVERIFY(AreaOf(*dragged) != AreaOf(*left));
        VERIFY_SETTLED();
    }

    void a_window_that_goes_with_a_running_drag_takes_panel_steps_and_drop_along()
    {
        auto stage = std::make_unique<DragStage>();
        const QcDockWidget *resident = stage->Add(1);
        QcDockWidget *dragged = stage->Float(2);
        int letGo = 0;
        DockDrag::Begin(dragged, dragged, [&letGo] { ++letGo; });
        stage->Step(dragged, MiddleOf(*resident));
        DockDrag::PostStep(dragged);
        DockDrag::PostEnd(dragged);
        DockDrag::Begin(dragged, dragged, [&letGo] { ++letGo; });
        stage.reset();
        DrainEvents();
        QCOMPARE(letGo, 0);
        QVERIFY(DragStage::Indicator()->isHidden());
        QVERIFY(DragStage::Mask()->isHidden());
    }

    void a_host_may_delete_the_place_or_the_panel_when_it_hears_of_the_drop_data()
    {
        QTest::addColumn<bool>("isPanel");
        QTest::newRow("the place") << false;
        QTest::newRow("the panel") << true;
    }

    void a_host_may_delete_the_place_or_the_panel_when_it_hears_of_the_drop()
    {
        struct Deleter : QObject
        {
            QPointer<QWidget> victim;
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                if (event->type() != QEvent::DynamicPropertyChange
                    || static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName() != "window")
                    return false;
                const bool isWatched = victim == watched;
                delete victim;
                return isWatched; // Qt goes on with one that lives
            }
        };
        QFETCH(bool, isPanel);
        NeighbourStage stage;
        const QPointer<QcDockWidget> dragged = stage.Float(3);
        stage.Step(dragged, MiddleOf(*stage.right));
        Deleter deleter;
        dragged->installEventFilter(&deleter);
        deleter.victim = isPanel ? static_cast<QWidget *>(dragged) : AreaOf(*stage.right);
        stage.Drop(dragged);
        QVERIFY(!deleter.victim);
        QCOMPARE(dragged.isNull(), isPanel);
        QVERIFY(isPanel || dragged->isFloating());
        VERIFY_SETTLED();
    }

    void a_host_may_end_the_drag_when_it_hears_of_a_step()
    {
        ResidentStage stage;
        DockDrag::Begin(stage.dragged, stage.dragged, [] {});
        const CallAt listener(*stage.dragged, QEvent::DynamicPropertyChange, [] { DockDrag::Cancel(); });
        stage.StepOverResident();
        QVERIFY(stage.IsFeedbackHidden());
        QVERIFY(stage.TipOf(*stage.dragged)->isHidden());
        VERIFY_SETTLED();
    }

    void a_drag_that_ends_as_the_indicator_shows_leaves_neither_it_nor_the_mask()
    {
        ResidentStage stage;
        DockDrag::Begin(stage.dragged, stage.dragged, [] {});
        const CallAt listener(*stage.Indicator(), QEvent::Show, [] { DockDrag::Cancel(); });
        stage.StepOverResident();
        QVERIFY(stage.IsFeedbackHidden());
        VERIFY_SETTLED();
    }

    void a_host_may_delete_indicator_and_mask_when_it_hears_of_a_step()
    {
        ResidentStage stage;
        const CallAt listener(*stage.dragged, QEvent::DynamicPropertyChange, [] {
            delete DragStage::Indicator();
            delete DragStage::Mask();
        });
        stage.StepOverResident();
        QVERIFY(stage.Indicator()->isVisible());
        QVERIFY(stage.Mask()->isVisible());
        stage.Drop(stage.dragged);
        QCOMPARE(AreaOf(*stage.dragged), AreaOf(*stage.resident));
    }

    void a_panel_may_die_when_its_host_hears_of_the_release_data()
    {
        QTest::addColumn<bool>("isPosted");
        QTest::newRow("of the mouse") << false;
        QTest::newRow("of the posted drop") << true;
    }

    void a_panel_may_die_when_its_host_hears_of_the_release()
    {
        QFETCH(bool, isPosted);
        ResidentStage stage(QRect(0, 0, 400, 300));
        std::unique_ptr<CallAt> listener;
        const auto listen = [&] {
            listener = std::make_unique<CallAt>(*stage.dragged, QEvent::DynamicPropertyChange, [&stage] { delete stage.dragged; });
        };
        Mouse mouse;
        mouse.PressAt(*stage.dragged, QPoint(60, 15));
        mouse.MoveTo(MiddleOf(*stage.resident));
        DrainEvents();
        QVERIFY(stage.Mask()->isVisible());
        if (isPosted)
            DockDrag::PostEnd(stage.dragged);
        listen();
        if (isPosted)
            DrainEvents();
        else
            mouse.Release();
        QVERIFY(!stage.dragged);
        QCOMPARE(Settled(), QString());
        QCOMPARE(AreaOf(*stage.resident)->count(), 1);
        if (isPosted)
            mouse.Release();
    }

    // --- Cost ---

    void a_backlog_of_a_hundred_steps_lays_out_and_paints_once()
    {
        DragStage stage;
        stage.Add(1);
        QcDockWidget *dragged = stage.Float(2);
        stage.Step(dragged, MiddleOf(*stage.root));
        QCursor::setPos(MiddleOf(*stage.Label(Left)));
        EventCounter indicatorPaints(*stage.Indicator(), QEvent::Paint);
        EventCounter leftPaints(*stage.Label(Left), QEvent::Paint);
        EventCounter maskPaints(*stage.Mask(), QEvent::Paint);
        EventCounter maskResizes(*stage.Mask(), QEvent::Resize);
        EventCounter polishes(*dragged, QEvent::DynamicPropertyChange);
        for (int i = 0; i < 100; ++i)
            DockDrag::PostStep(dragged);
        DrainEvents();
        QCOMPARE(leftPaints.Take(), 1);
        QVERIFY(indicatorPaints.Take() <= 1); // it lies below the label, which is not opaque
        QCOMPARE(maskResizes.Take(), 1);
        QCOMPARE(maskPaints.Take(), 1);
        QCOMPARE(polishes.Take(), 0);
        stage.Drop(dragged);
    }

    void a_step_that_changes_nothing_paints_nothing()
    {
        DragStage stage;
        stage.Add(1);
        QcDockWidget *dragged = stage.Float(2);
        stage.Step(dragged, MiddleOf(*stage.root));
        stage.Step(dragged, MiddleOf(*stage.Label(Left)));
        stage.Step(dragged, MiddleOf(*stage.Label(Left)));

        std::vector<std::unique_ptr<EventCounter>> counters;
        QWidgetList watched = {stage.Indicator(), stage.Mask(), dragged};
        watched += stage.Indicator()->findChildren<QWidget *>();
        watched += dragged->findChildren<QWidget *>();
        for (QWidget *widget : qAsConst(watched))
            for (const QEvent::Type type : {QEvent::Paint, QEvent::Polish, QEvent::StyleChange, QEvent::EnabledChange, QEvent::Move,
                                            QEvent::Resize, QEvent::Show, QEvent::DynamicPropertyChange})
                counters.push_back(std::make_unique<EventCounter>(*widget, type));
        for (int i = 0; i < 100; ++i)
            stage.Controller()->processDockWidgetDraging(dragged);
        DrainEvents();
        int count = 0;
        for (const auto &counter : counters)
            count += counter->Take();
        QCOMPARE(count, 0);
        QVERIFY(stage.Mask()->isVisible());
    }
};

VELMORA_TEST_MAIN(TestQcDockDragController)
#include "tst_QcDockDragController.moc"
