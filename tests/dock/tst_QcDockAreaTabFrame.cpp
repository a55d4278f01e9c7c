#include <Velmora/QcDockAreaTabStackedWidget.h>
#include <Velmora/QcIconButton.h>

#include "DockTestCase.h"
#include "TabStage.h"
#include "dock/DockDrag_p.h"
#include "support/CallAt.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTranslator>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// Drags the tab at \a index by enough to tear it out, and holds the mouse.
QcDockWidget *TearOut(TabStage &stage, Mouse &mouse, int index)
{
    const QPointer<QWidget> panel = stage.frame->widget(index);
    mouse.PressAt(*stage.Tab(index), QPoint(20, 15));
    mouse.MoveBy(0, QApplication::startDragDistance() + 1);
    return qobject_cast<QcDockWidget *>(panel.data());
}

/// Does \a work once, in the midst of the next selection: as soon as another page is shown.
void WhenSelectionChanges(TabStage &stage, const std::function<void()> &work)
{
    auto *stack = PartOf<QcDockAreaTabStackedWidget>(*stage.frame, "m_stackedWidget");
    auto *once = new QObject(stack);
    QObject::connect(stack, &QStackedWidget::currentChanged, once, [once, work = work] {
        const std::function<void()> copy = work;
        delete once;
        copy();
    });
}

QWidget *PageCalled(const QcDockAreaTabFrame &frame, const QString &title)
{
    for (int i = 0; i < frame.count(); ++i)
        if (frame.widget(i)->windowTitle() == title)
            return frame.widget(i);
    return nullptr;
}

} // namespace

Q_DECLARE_METATYPE(std::function<void(VelmoraTest::TabStage &)>)

class TestQcDockAreaTabFrame : public DockTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void is_built_of_named_parts()
    {
        TabStage stage;
        auto *row = PartOf<QFrame>(*stage.frame, "m_topFrame");
        auto *view = PartOf<QFrame>(*stage.frame, "m_tabBarFrame");
        auto *navigation = PartOf<QFrame>(*stage.frame, "m_navigationFrame");
        QCOMPARE(row->layout()->spacing(), 4);
        QCOMPARE(row->layout()->contentsMargins(), QMargins(0, 0, 8, 1));
        QCOMPARE(view->minimumHeight(), 30);
        QCOMPARE(view->maximumHeight(), 30);
        QCOMPARE(view->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred));
        QVERIFY(!view->layout());
        QCOMPARE(stage.Row()->parentWidget(), view);
        QCOMPARE(stage.Row()->minimumHeight(), 30);
        QCOMPARE(stage.Row()->maximumHeight(), 30);
        QCOMPARE(navigation->layout()->spacing(), 8);
        QCOMPARE(navigation->layout()->contentsMargins(), QMargins());
        for (const char *name : {"m_leftButton", "m_rightButton"})
            QCOMPARE(PartOf<QcIconButton>(*navigation, name)->maximumSize(), QSize(24, 24));
        QVERIFY(PartOf<QcDockAreaTabStackedWidget>(*stage.frame, "m_stackedWidget"));
        QCOMPARE(stage.frame->layout()->objectName(), QStringLiteral("m_layout"));
        QCOMPARE(stage.frame->layout()->contentsMargins(), QMargins());
        QCOMPARE(stage.frame->layout()->spacing(), 0);
    }

    void the_arrows_show_their_icons()
    {
        TabStage stage({"A", "B", "C"});
        stage.frame->setCurrentIndex(1);
        QVERIFY(stage.Show());
        const QImage previous = PictureOf(QStringLiteral(":/images/dock/pre_normal.svg"));
        const QImage next = PictureOf(QStringLiteral(":/images/dock/next_normal.svg"));
        QVERIFY(previous != next);
        QCOMPARE(Render(*PartOf(*stage.frame, "m_leftButton")), previous);
        QCOMPARE(Render(*PartOf(*stage.frame, "m_rightButton")), next);
    }

    void the_row_takes_the_room_left_of_the_arrows()
    {
        TabStage stage({"A", "B"});
        QVERIFY(stage.Show());
        const QWidget *view = PartOf(*stage.frame, "m_tabBarFrame");
        const QWidget *navigation = PartOf(*stage.frame, "m_navigationFrame");
        for (const int width : {600, 300}) {
            stage.window.resize(width, 400);
            DrainEvents();
            QCOMPARE(navigation->geometry().right(), width - 8 - 1);
            QCOMPARE(navigation->width(), 24 + 8 + 24);
            QCOMPARE(view->geometry().right() + 1 + 4, navigation->x());
            QCOMPARE(stage.Row()->geometry(), QRect(0, 0, view->width(), 30));
        }
    }

    void an_empty_frame_has_neither_row_nor_current_tab()
    {
        TabStage stage;
        QVERIFY(stage.Show());
        QCOMPARE(stage.frame->count(), 0);
        QCOMPARE(stage.frame->currentIndex(), -1);
        QCOMPARE(stage.frame->widget(0), nullptr);
        QVERIFY(!PartOf(*stage.frame, "m_topFrame")->isVisible());
    }

    void two_pages_show_their_tabs_in_place_of_their_title_rows()
    {
        TabStage stage;
        QcDockWidget *files = stage.Add(QStringLiteral("Files"));
        QVERIFY(stage.Show());
        QVERIFY(!PartOf(*stage.frame, "m_topFrame")->isVisible());
        QVERIFY(TitleRowOf(*files)->isVisible());

        QcDockWidget *outline = stage.Add(QStringLiteral("Outline"));
        QVERIFY(PartOf(*stage.frame, "m_topFrame")->isVisible());
        QVERIFY(!HasTitleRow(*files));
        QVERIFY(!HasTitleRow(*outline));
        QCOMPARE(stage.Tabs(), QStringLiteral("Files [Outline]"));
        QCOMPARE(stage.Pages(), QStringLiteral("Files [Outline]"));

        const auto removed = stage.frame->removeTab(1);
        QCOMPARE(removed.second, outline);
        delete removed.first;
        delete removed.second;
        QVERIFY(!PartOf(*stage.frame, "m_topFrame")->isVisible());
        QVERIFY(TitleRowOf(*files)->isVisible());
    }

    void removing_a_tab_left_of_the_current_one_keeps_the_page_current()
    {
        TabStage stage({"A", "B", "C", "D"});
        QVERIFY(stage.Show());
        stage.frame->setCurrentIndex(2);
        const QSignalSpy changes(stage.Row(), &QcDockAreaTabBar::signalCurrentChanged);
        const auto removed = stage.frame->removeTab(0);
        delete removed.first;
        delete removed.second;
        QCOMPARE(stage.Tabs(), QStringLiteral("B [C] D"));
        QCOMPARE(stage.Pages(), QStringLiteral("B [C] D"));
        QCOMPARE(changes.count(), 0);
    }

    void removing_the_current_tab_shows_the_next_one_or_the_last_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("left");
        QTest::newRow("first") << 0 << QStringLiteral("[B] C");
        QTest::newRow("middle") << 1 << QStringLiteral("A [C]");
        QTest::newRow("last") << 2 << QStringLiteral("A [B]");
    }
    void removing_the_current_tab_shows_the_next_one_or_the_last()
    {
        QFETCH(int, index);
        TabStage stage({"A", "B", "C"});
        QVERIFY(stage.Show());
        stage.frame->setCurrentIndex(index);
        const auto removed = stage.frame->removeTab(index);
        delete removed.first;
        delete removed.second;
        QTEST(stage.Tabs(), "left");
        QTEST(stage.Pages(), "left");
    }

    void a_removed_page_stays_a_hidden_child_until_it_is_moved()
    {
        TabStage stage({"A"});
        QcDockWidget *panel = stage.Add(QStringLiteral("B"));
        QVERIFY(stage.Show());
        const auto removed = stage.frame->removeTab(1);
        QCOMPARE(removed.second, panel);
        QVERIFY(!panel->isVisible());
        QCOMPARE(panel->parentWidget(), PartOf(*stage.frame, "m_stackedWidget"));
        QCOMPARE(stage.frame->removeTab(7),
                 qMakePair(static_cast<QcDockAreaTabBarButton *>(nullptr), static_cast<QcDockWidget *>(nullptr)));
        delete removed.first;
        delete panel;
    }

    void a_page_that_is_no_panel_comes_back_without_its_page()
    {
        TabStage stage;
        auto *page = new QWidget;
        stage.frame->addTab(QStringLiteral("Page"), page);
        const auto removed = stage.frame->removeTab(0);
        QVERIFY(removed.first);
        QVERIFY(!removed.second);
        delete removed.first;
        delete page;
    }

    void a_title_follows_the_content_through_panel_and_tab()
    {
        TabStage stage;
        QcDockWidget *panel = stage.Add(QStringLiteral("Draft"));
        stage.Add(QStringLiteral("Other"));
        panel->getContentWidget()->setWindowTitle(QStringLiteral("Saved"));
        QCOMPARE(panel->windowTitle(), QStringLiteral("Saved"));
        QCOMPARE(stage.TitleOf(0), QStringLiteral("Saved"));
        QCOMPARE(stage.TitleOf(1), QStringLiteral("Other"));
    }

    void a_title_of_a_panel_that_has_moved_on_renames_no_tab()
    {
        TabStage stage({"A"});
        QcDockWidget *panel = stage.Add(QStringLiteral("B"));
        delete stage.frame->removeTab(1).first;
        panel->setParent(nullptr);
        panel->setWindowTitle(QStringLiteral("Renamed"));
        QCOMPARE(stage.Tabs(), QStringLiteral("[A]"));
        delete panel;
    }

    // --- What a tab goes by ---

    void a_tab_goes_with_its_page_when_a_host_deletes_it_data() { RowsOfEachIndex(); }
    void a_tab_goes_with_its_page_when_a_host_deletes_it()
    {
        QFETCH(int, index);
        TabStage stage({"A", "B", "C"});
        QVERIFY(stage.Show());
        stage.frame->setCurrentIndex(1);
        delete stage.frame->widget(index);
        DrainEvents();
        QTEST(stage.Tabs(), "left");
        QTEST(stage.Pages(), "left");
        QCOMPARE(stage.Row()->findChildren<QcDockAreaTabBarButton *>().size(), 2);
    }

    void a_tab_goes_with_its_page_when_a_host_takes_it_away_data() { RowsOfEachIndex(); }
    void a_tab_goes_with_its_page_when_a_host_takes_it_away()
    {
        QFETCH(int, index);
        TabStage stage({"A", "B", "C"});
        QVERIFY(stage.Show());
        stage.frame->setCurrentIndex(1);
        const std::unique_ptr<QWidget> page(stage.frame->widget(index));
        page->setParent(nullptr);
        QTEST(stage.Tabs(), "left");
        QTEST(stage.Pages(), "left");
    }

    void the_tab_of_a_last_page_that_dies_stays_without_being_current()
    {
        TabStage stage;
        delete stage.Add(QStringLiteral("Only"));
        DrainEvents();
        QCOMPARE(stage.frame->count(), 0);
        QCOMPARE(stage.Tabs(), QStringLiteral("Only"));
        QCOMPARE(stage.frame->currentIndex(), -1);
        stage.frame->setCurrentIndex(0); // there is no such page
        QCOMPARE(stage.frame->currentIndex(), -1);

        stage.Add(QStringLiteral("Next"));
        QCOMPARE(stage.Tabs(), QStringLiteral("[Next]"));
        QCOMPARE(stage.frame->currentIndex(), 0);
        stage.Add(QStringLiteral("Third"));
        QCOMPARE(stage.Tabs(), QStringLiteral("Next [Third]"));
    }

    void pages_that_a_host_deletes_while_another_one_goes_take_their_tabs_along_data()
    {
        QTest::addColumn<bool>("byHost");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("deleted");
        QTest::addColumn<QString>("left");
        for (const bool byHost : {false, true}) {
            const char *road = byHost ? "deleted" : "removed";
            const auto row = [byHost, road](int index, const char *deleted, const char *left) {
                QTest::addRow("%s %d, then %s", road, index, deleted) << byHost << index << QString(deleted) << QString(left);
            };
            row(1, "A", "[C] D");
            row(1, "C", "A [D]");
            row(1, "D", "A [C]");
            row(1, "AD", "[C]");
            row(1, "CD", "[A]");
            row(3, "A", "B [C]");
            row(3, "C", "A [B]");
            row(3, "BC", "[A]");
        }
    }
    void pages_that_a_host_deletes_while_another_one_goes_take_their_tabs_along()
    {
        QFETCH(bool, byHost);
        QFETCH(int, index);
        QFETCH(QString, deleted);
        TabStage stage({"A", "B", "C", "D"});
        QVERIFY(stage.Show());
        stage.frame->setCurrentIndex(index);
        WhenSelectionChanges(stage, [&deleted, &stage] {
            for (const QChar title : qAsConst(deleted))
                delete PageCalled(*stage.frame, title);
        });
        if (byHost) {
            delete stage.frame->widget(index);
        } else {
            const auto removed = stage.frame->removeTab(index);
            delete removed.first;
            delete removed.second;
        }
        DrainEvents();
        QTEST(stage.Tabs(), "left");
        QTEST(stage.Pages(), "left");
    }

    void a_tab_that_a_host_selects_while_a_page_goes_shows_its_own_page()
    {
        TabStage stage({"A", "B", "C", "D"});
        QVERIFY(stage.Show());
        stage.frame->setCurrentIndex(1);
        WhenSelectionChanges(stage, [&stage] { stage.frame->setCurrentIndex(2); });
        delete stage.frame->widget(1);
        DrainEvents();
        QCOMPARE(stage.Tabs(), stage.Pages());
        QCOMPARE(stage.frame->count(), 3);
    }

    void a_first_page_that_dies_of_being_shown_leaves_no_current_tab()
    {
        TabStage stage;
        QVERIFY(stage.Show());
        const QPointer<QWidget> page = NewPanel(QStringLiteral("A"));
        WhenSelectionChanges(stage, [page] { delete page; });
        stage.frame->addTab(QStringLiteral("A"), page);
        QVERIFY(!page);
        QCOMPARE(stage.frame->currentIndex(), -1);
        stage.Add(QStringLiteral("B"));
        QCOMPARE(stage.Tabs(), QStringLiteral("[B]"));
    }

    void a_page_that_comes_while_the_last_one_dies_has_the_only_tab()
    {
        TabStage stage;
        QcDockWidget *last = stage.Add(QStringLiteral("A"));
        QVERIFY(stage.Show());
        WhenSelectionChanges(stage, [&stage] { stage.Add(QStringLiteral("B")); });
        delete last;
        DrainEvents();
        QCOMPARE(stage.Tabs(), QStringLiteral("[B]"));
        QCOMPARE(stage.Pages(), QStringLiteral("[B]"));
    }

    void the_frame_may_die_in_a_selection_data()
    {
        QTest::addColumn<std::function<void(TabStage &)>>("select");
        const auto row = [](const char *name, const std::function<void(TabStage &)> &select) { QTest::newRow(name) << select; };
        row("by its host", [](TabStage &stage) { stage.frame->setCurrentIndex(0); });
        row("by an arrow", [](TabStage &stage) { PartOf<QcIconButton>(*stage.frame, "m_leftButton")->click(); });
        row("by a press", [](TabStage &stage) { QTest::mousePress(stage.Tab(0), Qt::LeftButton); });
        row("by a key on a tab", [](TabStage &stage) { QTest::keyClick(stage.Tab(2), Qt::Key_Left); });
        row("by a key in the page", [](TabStage &stage) { QTest::keyClick(stage.frame->widget(2), Qt::Key_PageUp, Qt::ControlModifier); });
        row("by a new page", [](TabStage &stage) { stage.Add(QStringLiteral("D")); });
        row("by a page that goes", [](TabStage &stage) { stage.frame->removeTab(2); });
        row("by a page that is closed", [](TabStage &stage) { PartOf<QcIconButton>(*stage.Tab(2), "m_closeButton")->click(); });
        row("by a page that is torn out", [](TabStage &stage) {
            Mouse mouse;
            TearOut(stage, mouse, 2);
            mouse.Release();
        });
    }
    void the_frame_may_die_in_a_selection()
    {
        QFETCH(std::function<void(TabStage &)>, select);
        TabStage stage({"A", "B", "C"});
        QVERIFY(stage.Show());
        const QPointer<QWidget> frame = stage.frame;
        stage.Tab(2)->setFocus();
        QWidget keeper; // Qt itself touches a button after it was checked
        WhenSelectionChanges(stage, [&] {
            const auto tabs = stage.frame->findChildren<QcDockAreaTabBarButton *>();
            for (QWidget *tab : tabs)
                tab->setParent(&keeper);
            if (QWidget *last = stage.frame->widget(stage.frame->count() - 1))
                last->setParent(&keeper); // nor does all else go with the frame
            delete frame;
        });
        select(stage);
        QVERIFY(!frame);
        DrainEvents();
    }

    void nothing_is_added_for_a_null_or_for_what_holds_the_frame()
    {
        TabStage stage;
        stage.frame->addTab(QStringLiteral("Nothing"), nullptr);
        stage.frame->addTab(QStringLiteral("Window"), &stage.window);
        stage.frame->addTab(QStringLiteral("Itself"), stage.frame);
        QCOMPARE(stage.frame->count(), 0);
        QCOMPARE(stage.Tabs(), QString());
    }

    void a_page_of_this_very_stack_becomes_current_and_no_more()
    {
        TabStage stage;
        QcDockWidget *panel = stage.Add(QStringLiteral("A"));
        stage.Add(QStringLiteral("B"));
        stage.frame->addTab(QStringLiteral("Again"), panel);
        QCOMPARE(stage.Tabs(), QStringLiteral("[A] B"));
        QCOMPARE(stage.frame->count(), 2);
    }

    void a_page_of_another_stack_leaves_that_with_its_tab()
    {
        TabStage from;
        TabStage to;
        from.Add(QStringLiteral("A"));
        QcDockWidget *panel = from.Add(QStringLiteral("B"));
        to.frame->addTab(panel->windowTitle(), panel);
        QCOMPARE(from.Tabs(), QStringLiteral("[A]"));
        QCOMPARE(to.Tabs(), QStringLiteral("[B]"));
        QVERIFY(to.frame->isAncestorOf(panel));
    }

    // --- Navigation ---

    void the_arrows_step_through_the_tabs_and_stop_at_the_ends()
    {
        TabStage stage({"A", "B", "C"});
        QVERIFY(stage.Show());
        auto *left = PartOf<QcIconButton>(*stage.frame, "m_leftButton");
        auto *right = PartOf<QcIconButton>(*stage.frame, "m_rightButton");
        QVERIFY(left->isEnabled());
        QVERIFY(!right->isEnabled());
        left->click();
        QCOMPARE(stage.Pages(), QStringLiteral("A [B] C"));
        QVERIFY(left->isEnabled() && right->isEnabled());
        left->click();
        QVERIFY(!left->isEnabled());
        right->click();
        QCOMPARE(stage.Pages(), QStringLiteral("A [B] C"));

        delete stage.frame->widget(2); // what lay at the right is gone, though nothing was selected
        QVERIFY(!right->isEnabled());
    }

    void the_arrows_of_a_single_page_lead_nowhere()
    {
        TabStage stage({"A"});
        QVERIFY(!PartOf(*stage.frame, "m_leftButton")->isEnabled());
        QVERIFY(!PartOf(*stage.frame, "m_rightButton")->isEnabled());
    }

    void from_right_to_left_the_arrows_point_to_the_tabs_they_select()
    {
        TabStage stage({"A", "B", "C"});
        stage.frame->setCurrentIndex(1);
        QVERIFY(stage.Show());
        auto *left = PartOf<QcIconButton>(*stage.frame, "m_leftButton");
        stage.window.setLayoutDirection(Qt::RightToLeft);
        DrainEvents();
        auto *right = PartOf<QcIconButton>(*stage.frame, "m_rightButton");
        QCOMPARE(Render(*left), PictureOf(QStringLiteral(":/images/dock/next_normal.svg")));
        QCOMPARE(Render(*right), PictureOf(QStringLiteral(":/images/dock/pre_normal.svg")));
        QVERIFY(stage.Tab(0)->mapTo(&stage.window, QPoint()).x() > stage.Tab(1)->mapTo(&stage.window, QPoint()).x());
    }

    void the_first_tab_lies_at_the_edge_where_reading_begins_and_the_arrows_keep_off_the_other()
    {
        TabStage stage({"A", "B"});
        QVERIFY(stage.Show());
        const auto inWindow = [&stage](const QWidget *part) { return QRect(part->mapTo(&stage.window, QPoint()), part->size()); };
        const auto *navigation = PartOf(*stage.frame, "m_navigationFrame");
        const int width = stage.window.width();
        QCOMPARE(inWindow(stage.Tab(0)).left(), 0);
        QCOMPARE(inWindow(navigation).right(), width - 1 - 8);
        stage.window.setLayoutDirection(Qt::RightToLeft);
        DrainEvents();
        QCOMPARE(inWindow(stage.Tab(0)).right(), width - 1);
        QCOMPARE(inWindow(navigation).left(), 8);
    }

    // --- Closing ---

    void the_close_button_of_a_tab_closes_the_current_page()
    {
        TabStage stage({"A"});
        const QPointer<QWidget> panel = stage.Add(QStringLiteral("B"));
        QVERIFY(stage.Show());
        PartOf<QcIconButton>(*stage.Tab(1), "m_closeButton")->click();
        QCOMPARE(stage.Tabs(), QStringLiteral("[A]"));
        DrainEvents();
        QVERIFY(!panel);
        QCOMPARE(stage.Row()->findChildren<QcDockAreaTabBarButton *>().size(), 1);
    }

    void a_refused_close_keeps_tab_and_page()
    {
        TabStage stage({"A"});
        QcDockWidget *panel = stage.Add(QStringLiteral("B"));
        QVERIFY(stage.Show());
        ContentOf(panel)->refusesClose = true;
        PartOf<QcIconButton>(*stage.Tab(1), "m_closeButton")->click();
        DrainEvents();
        QCOMPARE(ContentOf(panel)->closes, 1);
        QCOMPARE(stage.Tabs(), QStringLiteral("A [B]"));
        QCOMPARE(stage.Pages(), QStringLiteral("A [B]"));
    }

    void a_panel_without_a_content_closes_by_its_tab()
    {
        TabStage stage({"A"});
        const QPointer<QWidget> empty = new QcDockWidget;
        stage.frame->addTab(QStringLiteral("Empty"), empty);
        PartOf<QcIconButton>(*stage.Tab(1), "m_closeButton")->click();
        DrainEvents();
        QVERIFY(!empty);
        QCOMPARE(stage.Tabs(), QStringLiteral("[A]"));
    }

    void the_tab_of_a_panel_that_forbids_closing_by_its_title_row_closes_it()
    {
        TabStage stage({"A"});
        auto *panel = new QcDockWidget;
        auto *content = new Content(QStringLiteral("B"));
        content->setProperty("dock_widget_close_forbidden", true);
        panel->setContentWidget(content);
        stage.frame->addTab(QStringLiteral("B"), panel);
        PartOf<QcIconButton>(*stage.Tab(1), "m_closeButton")->click();
        DrainEvents();
        QCOMPARE(stage.Tabs(), QStringLiteral("[A]"));
    }

    void a_content_may_delete_itself_when_it_is_asked()
    {
        TabStage stage({"A", "B"});
        QVERIFY(stage.Show());
        const QPointer<Content> content = ContentOf(static_cast<QcDockWidget *>(stage.frame->widget(1)));
        content->whenAsked = [content] { delete content; };
        PartOf<QcIconButton>(*stage.Tab(1), "m_closeButton")->click();
        QVERIFY(!content);
        QCOMPARE(stage.Tabs(), QStringLiteral("[A]"));
    }

    void the_last_page_may_be_exchanged_for_another_in_the_question()
    {
        TabStage stage({"A"});
        const QPointer<QcDockWidget> panel = stage.Add(QStringLiteral("B"));
        QVERIFY(stage.Show());
        QWidget keeper;
        ContentOf(panel)->whenAsked = [&] {
            ContentOf(panel)->setParent(&keeper);
            delete stage.frame->widget(0);
            delete panel;
            stage.Add(QStringLiteral("C"));
        };
        const QPointer<QWidget> close = PartOf(*stage.Tab(1), "m_closeButton");
        bool isHeardToItsEnd = false;
        connect(static_cast<QAbstractButton *>(close.data()), &QAbstractButton::clicked, &keeper, [&] { isHeardToItsEnd = close; });
        QTest::mouseClick(close, Qt::LeftButton);
        QVERIFY(isHeardToItsEnd);
        QVERIFY(!close->isVisible());
        QCOMPARE(stage.Tabs(), QStringLiteral("[C]"));
        DrainEvents();
        QVERIFY(!close);
        QCOMPARE(stage.Row()->findChildren<QcDockAreaTabBarButton *>().size(), 1);
    }

    void a_page_that_is_no_panel_is_not_closed()
    {
        TabStage stage({"A"});
        stage.frame->addTab(QStringLiteral("Page"), new Content);
        PartOf<QcIconButton>(*stage.Tab(1), "m_closeButton")->click();
        QCOMPARE(stage.frame->count(), 2);
        QCOMPARE(static_cast<Content *>(stage.frame->widget(1))->closes, 0);
    }

    void the_tab_of_the_closed_panel_goes_whatever_became_current_meanwhile()
    {
        TabStage stage({"A"});
        QcDockWidget *panel = stage.Add(QStringLiteral("B"));
        stage.Add(QStringLiteral("C"));
        stage.frame->setCurrentIndex(1);
        ContentOf(panel)->whenAsked = [&stage] {
            stage.frame->setCurrentIndex(2);
            delete stage.frame->widget(0);
        };
        PartOf<QcIconButton>(*stage.Tab(1), "m_closeButton")->click();
        DrainEvents();
        QCOMPARE(stage.Tabs(), QStringLiteral("[C]"));
    }

    void closing_stops_when_panel_or_frame_die_in_the_question_data()
    {
        QTest::addColumn<bool>("frameDies");
        QTest::newRow("panel") << false;
        QTest::newRow("frame") << true;
    }
    void closing_stops_when_panel_or_frame_die_in_the_question()
    {
        QFETCH(bool, frameDies);
        TabStage stage({"A"});
        const QPointer<QcDockWidget> panel = stage.Add(QStringLiteral("B"));
        const QPointer<QWidget> frame = stage.frame;
        // Qt itself touches a widget after its own close event: here what encloses the content dies.
        QWidget outer;
        ContentOf(panel)->whenAsked = [&] {
            ContentOf(panel)->setParent(&outer);
            if (frameDies)
                delete frame;
            else
                delete panel;
        };
        QMetaObject::invokeMethod(stage.frame, "onCloseTab", Qt::DirectConnection);
        QVERIFY(!panel);
        QCOMPARE(frame.isNull(), frameDies);
    }

    void a_page_that_is_renamed_on_its_way_has_its_new_title_on_the_tab()
    {
        TabStage stage({"A"});
        QcDockWidget *panel = NewPanel(QStringLiteral("B"));
        panel->setWindowStyle(true);
        panel->SetWindowFlags();
        const CallAt listener(*panel, QEvent::DynamicPropertyChange, [panel] { panel->setWindowTitle(QStringLiteral("New")); });
        stage.frame->addTab(panel->windowTitle(), panel);
        QCOMPARE(stage.Tabs(), QStringLiteral("A [New]"));
    }

    // --- Dragging ---

    void a_press_that_hardly_moves_only_selects()
    {
        TabStage stage({"A", "B"});
        QVERIFY(stage.Show());
        Mouse mouse;
        mouse.PressAt(*stage.Tab(0), QPoint(20, 15));
        mouse.MoveBy(QApplication::startDragDistance() - 1, 0);
        mouse.Release();
        QCOMPARE(stage.Tabs(), QStringLiteral("[A] B"));
        QCOMPARE(stage.Pages(), QStringLiteral("[A] B"));
        QVERIFY(!static_cast<QcDockWidget *>(stage.frame->widget(0))->isFloating());
    }

    void a_torn_tab_is_heard_to_its_release_wherever_it_was_pressed_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("tabs");
        QTest::newRow("beside the title") << 4 << 2;
        QTest::newRow("over the hidden close button") << 190 << 2;
        QTest::newRow("on a narrow tab") << 15 << 17;
    }
    void a_torn_tab_is_heard_to_its_release_wherever_it_was_pressed()
    {
        QFETCH(int, x);
        QFETCH(int, tabs);
        TabStage stage;
        for (int i = 0; i < tabs; ++i)
            stage.Add(QString::number(i));
        QVERIFY(stage.Show());
        auto *panel = static_cast<QcDockWidget *>(stage.frame->widget(0));
        const QPointer<QWidget> tab = stage.Tab(0);
        Mouse mouse;
        mouse.PressAt(*tab, QPoint(x, 15));
        mouse.MoveBy(0, QApplication::startDragDistance() + 1);
        QVERIFY(panel->isFloating());
        QCOMPARE(stage.frame->count(), tabs - 1);
        const QPoint corner = panel->pos();
        for (int step = 0; step < 8; ++step)
            mouse.MoveBy(2, 10);
        QCOMPARE(panel->pos(), corner + QPoint(16, 80));
        mouse.Release();
        DrainEvents();
        QVERIFY(!tab);
        QCOMPARE(QWidget::mouseGrabber(), nullptr);
        QVERIFY(panel->isFloating());
        delete panel;
    }

    void a_torn_panel_appears_over_its_frame_with_its_title_row()
    {
        TabStage stage({"A", "B"});
        QVERIFY(stage.Show());
        Mouse mouse;
        QcDockWidget *panel = TearOut(stage, mouse, 1);
        QVERIFY(panel->isFloating());
        QVERIFY(panel->isVisible());
        QVERIFY(HasTitleRow(*panel));
        QCOMPARE(panel->pos(), stage.frame->mapToGlobal(QPoint(0, 0)));
        QCOMPARE(stage.Tabs(), QStringLiteral("[A]"));
        QVERIFY(!PartOf(*stage.frame, "m_topFrame")->isVisible());
        mouse.Release();
        QVERIFY(panel->property("window").toBool());
        delete panel;
    }

    void a_page_that_is_no_panel_is_not_torn_out()
    {
        TabStage stage({"A"});
        stage.frame->addTab(QStringLiteral("Page"), new QWidget);
        QVERIFY(stage.Show());
        Mouse mouse;
        TearOut(stage, mouse, 1);
        mouse.MoveBy(0, 30);
        mouse.Release();
        QCOMPARE(stage.Tabs(), QStringLiteral("A [Page]"));
    }

    void a_panel_that_dies_while_it_is_dragged_ends_the_drag()
    {
        TabStage stage({"A", "B"});
        QVERIFY(stage.Show());
        const QPointer<QWidget> tab = stage.Tab(1);
        Mouse mouse;
        delete TearOut(stage, mouse, 1);
        DrainEvents();
        QVERIFY(!tab);
        QCOMPARE(QWidget::mouseGrabber(), nullptr);
        mouse.MoveBy(0, 20);
        mouse.Release();
        QCOMPARE(stage.Tabs(), QStringLiteral("[A]"));
    }

    void a_host_may_end_the_drag_when_it_hears_of_a_move()
    {
        TabStage stage({"A", "B"});
        QVERIFY(stage.Show());
        Mouse mouse;
        QcDockWidget *panel = TearOut(stage, mouse, 1);
        const CallAt listener(*panel, QEvent::Move, [] { DockDrag::Cancel(); });
        mouse.MoveBy(10, 10);
        QVERIFY(!panel->property("draging").toBool());
        QVERIFY(PartOf(*panel, "m_dragTipLabel")->isHidden());
        mouse.Release();
        delete panel;
    }

    void a_tab_that_dies_while_it_hears_of_the_mouse_is_not_touched_again()
    {
        TabStage stage({"A", "B"});
        QVERIFY(stage.Show());
        const QPointer<QWidget> tab = stage.Tab(1);
        Mouse mouse;
        QcDockWidget *panel = TearOut(stage, mouse, 1);
        const CallAt listener(*panel, QEvent::Move, [] {
            DockDrag::Cancel();
            DrainEvents(); // a host that runs a loop of its own
        });
        mouse.MoveBy(10, 10);
        QVERIFY(!tab);
        QVERIFY(panel->isFloating());
        mouse.Release();
        delete panel;
    }

    void a_frame_may_die_when_its_host_hears_of_the_release()
    {
        TabStage stage({"A", "B"});
        QVERIFY(stage.Show());
        const QPointer<QWidget> frame = stage.frame;
        Mouse mouse;
        QcDockWidget *panel = TearOut(stage, mouse, 1);
        mouse.MoveBy(0, 10);
        QVERIFY(panel->property("draging").toBool());
        const CallAt listener(*panel, QEvent::DynamicPropertyChange, [&frame] { delete frame; });
        mouse.Release();
        DrainEvents();
        QVERIFY(!frame);
        QVERIFY(panel->isFloating());
        QVERIFY(panel->property("window").toBool());
        delete panel;
    }

    void a_frame_that_dies_in_a_drag_leaves_the_panel_floating()
    {
        TabStage stage({"A", "B"});
        QVERIFY(stage.Show());
        const QPointer<QWidget> tab = stage.Tab(1);
        Mouse mouse;
        QcDockWidget *panel = TearOut(stage, mouse, 1);
        delete stage.frame;
        DrainEvents();
        QVERIFY(!tab);
        QCOMPARE(QWidget::mouseGrabber(), nullptr);
        QVERIFY(panel->isFloating());
        QVERIFY(!panel->property("draging").toBool());
        delete panel;
    }

    void a_host_may_delete_what_held_a_frame_that_died_in_a_drag_when_it_hears_of_the_end()
    {
        TabStage stage({"A", "B"});
        const QPointer<QWidget> holder = new QWidget(&stage.window);
        stage.window.layout()->addWidget(holder);
        (new QHBoxLayout(holder))->addWidget(stage.frame);
        QVERIFY(stage.Show());
        Mouse mouse;
        QcDockWidget *panel = TearOut(stage, mouse, 1);
        const CallAt listener(*panel, QEvent::DynamicPropertyChange, [&holder] { delete holder; });
        delete stage.frame;
        DrainEvents();
        QVERIFY(!holder);
        QVERIFY(panel->isFloating());
        QVERIFY(!panel->property("draging").toBool());
        delete panel;
    }

    void a_frame_that_dies_as_a_panel_leaves_it_leaves_the_panel_floating_data()
    {
        QTest::addColumn<int>("event");
        QTest::newRow("without a parent") << int(QEvent::ParentChange);
        QTest::newRow("without a window") << int(QEvent::Show);
    }
    void a_frame_that_dies_as_a_panel_leaves_it_leaves_the_panel_floating()
    {
        QFETCH(int, event);
        TabStage stage({"A", "B"});
        QVERIFY(stage.Show());
        const std::unique_ptr<QcDockWidget> panel(static_cast<QcDockWidget *>(stage.frame->widget(1)));
        const QPointer<QWidget> tab = stage.Tab(1);
        const CallAt listener(*panel, static_cast<QEvent::Type>(event), [&stage] { delete stage.frame; });
        Mouse mouse;
        mouse.PressAt(*tab, QPoint(20, 15));
        mouse.MoveBy(0, QApplication::startDragDistance() + 1);
        DrainEvents();
        QVERIFY(panel->isFloating());
        QVERIFY(panel->isVisible());
        QVERIFY(!tab);
        QCOMPARE(QWidget::mouseGrabber(), nullptr);
        mouse.Release();
    }

    void a_release_that_was_lost_is_made_up_for_by_the_next_press()
    {
        TabStage stage({"A", "B", "C"});
        QVERIFY(stage.Show());
        Mouse mouse;
        QcDockWidget *panel = TearOut(stage, mouse, 2);
        mouse.MoveTo(stage.Tab(0)->mapToGlobal(QPoint(20, 15)));
        const QPoint corner = panel->pos();
        mouse.PressAt(*stage.Tab(0), QPoint(20, 15));
        QCOMPARE(QWidget::mouseGrabber(), nullptr);
        QVERIFY(panel->property("window").toBool());
        QCOMPARE(stage.Tabs(), QStringLiteral("[A] B")); // the press does what a press does
        mouse.MoveBy(1, 1);
        mouse.Release();
        QCOMPARE(panel->pos(), corner);
        delete panel;
    }

    void a_drag_whose_tab_a_host_deletes_ends_at_the_next_press()
    {
        TabStage stage({"A", "B", "C"});
        QVERIFY(stage.Show());
        Mouse mouse;
        QcDockWidget *panel = TearOut(stage, mouse, 2);
        mouse.MoveBy(0, 20);
        delete QWidget::mouseGrabber();
        mouse.MoveBy(0, 20);
        mouse.Release();
        QVERIFY(panel->property("draging").toBool()); // nobody has heard of the release
        mouse.PressAt(*stage.Tab(0), QPoint(20, 15));
        mouse.Release();
        QVERIFY(!panel->property("draging").toBool());
        QCOMPARE(stage.Tabs(), QStringLiteral("[A] B"));
        delete panel;
    }

    void a_tab_whose_drag_was_cancelled_tears_out_no_other_one()
    {
        TabStage stage({"A", "B", "C"});
        QVERIFY(stage.Show());
        Mouse mouse;
        QcDockWidget *panel = TearOut(stage, mouse, 2);
        auto *tab = qobject_cast<QcDockAreaTabBarButton *>(QWidget::mouseGrabber());
        QVERIFY(tab);
        QTest::keyClick(&stage.window, Qt::Key_Escape);
        // It waits for its deletion, and may still hear of the mouse.
        QMouseEvent move(QEvent::MouseMove, QPointF(60, 60), QCursor::pos(), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(tab, &move);
        QCOMPARE(stage.Tabs(), QStringLiteral("A [B]"));
        mouse.Release();
        delete panel;
    }

    // --- Looks ---

    void the_row_is_painted_in_its_token()
    {
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            TabStage stage;
            stage.Add(QStringLiteral("A"));
            stage.Add(QStringLiteral("B"));
            QVERIFY(stage.Show());
            QWidget *row = PartOf(*stage.frame, "m_topFrame");
            const QImage image = Render(*row, Qt::green);
            const QColor expected = TokenOf(table, QStringLiteral("bg/bg_unselected"));
            COMPARE_COLOR(PixelAt(image, QPointF(450.5, 15.5)), Over(expected, Qt::green));
            // A line in red along the bottom is painted without a pen, so that it never shows.
            COMPARE_COLOR(PixelAt(image, QPointF(450.5, row->height() - 0.5)), Over(expected, Qt::green));
        }
        UseTable(Table::Light);
    }

    void the_frame_is_clipped_to_round_corners()
    {
        TabStage stage;
        QVERIFY(stage.Show());
        QVERIFY(!stage.frame->mask().contains(QPoint(0, 0)));
        QVERIFY(stage.frame->mask().contains(QPoint(300, 0)));
        QVERIFY(stage.frame->mask().contains(QPoint(300, 398)));
        stage.window.resize(700, 500);
        DrainEvents();
        QVERIFY(stage.frame->mask().contains(QPoint(690, 300)));
    }

    void a_title_row_that_was_never_hidden_is_not_polished_before_it_is_shown()
    {
        TabStage stage;
        QcDockWidget *panel = NewPanel(QStringLiteral("A"));
        EventCounter polishes(*TitleRowOf(*panel), QEvent::Polish);
        panel->setTitleVisible(true);
        QCOMPARE(polishes.Take(), 0);
        delete panel;
    }

    void focus_goes_with_a_page_that_is_torn_out()
    {
        TabStage stage({"A"});
        QcDockWidget *panel = stage.Add(QStringLiteral("B"));
        auto *edits = new QWidget;
        auto *first = new QLineEdit(edits);
        auto *second = new QLineEdit(edits);
        panel->setContentWidget(edits);
        QVERIFY(stage.Show());
        second->setFocus();
        QTRY_COMPARE(QApplication::focusWidget(), second);
        Mouse mouse;
        TearOut(stage, mouse, 1);
        mouse.Release();
        QTRY_COMPARE(QApplication::focusWidget(), second);

        stage.frame->addTab(panel->windowTitle(), panel);
        QApplication::setActiveWindow(&stage.window);
        QTRY_COMPARE(QApplication::focusWidget(), second);
        QVERIFY(!first->hasFocus());
    }

    void buttons_are_named_in_the_language_of_the_program()
    {
        class Marking : public QTranslator
        {
        public:
            bool isEmpty() const override { return false; }
            QString translate(const char *, const char *source, const char *, int) const override
            {
                return QLatin1Char('<') + QLatin1String(source) + QLatin1Char('>');
            }
        };
        TabStage stage({"Map"});
        const QWidget *close = PartOf(*stage.Tab(0), "m_closeButton");
        QCOMPARE(PartOf(*stage.frame, "m_leftButton")->accessibleName(), QStringLiteral("Previous tab"));
        QCOMPARE(PartOf(*stage.frame, "m_rightButton")->accessibleName(), QStringLiteral("Next tab"));
        QCOMPARE(close->accessibleName(), QStringLiteral("Close Map"));
        Marking marking;
        QCoreApplication::installTranslator(&marking);
        DrainEvents();
        QCOMPARE(PartOf(*stage.frame, "m_leftButton")->accessibleName(), QStringLiteral("<Previous tab>"));
        QCOMPARE(PartOf(*stage.frame, "m_rightButton")->accessibleName(), QStringLiteral("<Next tab>"));
        QCOMPARE(close->accessibleName(), QStringLiteral("<Close Map>"));
        QCoreApplication::removeTranslator(&marking);
        DrainEvents();
    }

private:
    static void RowsOfEachIndex()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("left");
        QTest::newRow("before the current one") << 0 << QStringLiteral("[B] C");
        QTest::newRow("the current one") << 1 << QStringLiteral("A [C]");
        QTest::newRow("behind the current one") << 2 << QStringLiteral("A [B]");
    }
};

VELMORA_TEST_MAIN(TestQcDockAreaTabFrame)
#include "tst_QcDockAreaTabFrame.moc"
