#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockController.h>
#include <Velmora/QcDockIndicator.h>
#include <Velmora/QcIconButton.h>

#include "DockStage.h"
#include "DockTestCase.h"
#include "TabStage.h"
#include "dock/DockDrag_p.h"
#include "dock/OnScreen_p.h"
#include "support/CallAt.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTranslator>
#include <QVBoxLayout>

#include <qpa/qwindowsysteminterface.h>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr char kForbidden[] = "dock_widget_close_forbidden";
constexpr char kType[] = "dock_widget_content_type";

QcIconButton *CloseButtonOf(const QcDockWidget &panel)
{
    return TitleRowOf(panel)->findChild<QcIconButton *>();
}

QString TitleOf(const QcDockWidget &panel)
{
    return PartOf<QLabel>(panel, "m_titleLabel")->text();
}

/// A floating panel of 300 by 200 pixels, shown and active.
class FloatingStage
{
public:
    FloatingStage()
        : panel(NewPanel(QStringLiteral("Map")))
    {
        panel->SetWindowFlags();
        panel->setGeometry(QRect(Corner(), QSize(300, 200)));
    }

    ~FloatingStage() { delete panel; }

    bool Show() { return ShowActive(*panel); }

    bool ShowAndPress(Mouse &mouse)
    {
        const bool isActive = Show();
        mouse.PressAt(*panel, OnTitle());
        return isActive;
    }

    /// In the middle of the title row.
    QPoint OnTitle() const { return {100, 15}; }

    QPointer<QcDockWidget> panel;
};

/// Two panels side by side.
class NeighbourStage : public DockStage
{
public:
    bool ShowAndPress(Mouse &mouse)
    {
        const bool isActive = Show();
        mouse.PressAt(*TitleRowOf(*right), QPoint(60, 15));
        return isActive;
    }

    QcDockWidget *const left = Add(QStringLiteral("A"));
    const QPointer<QcDockWidget> right = Add(QStringLiteral("B"), Right);
};

QcDockAreaTabFrame *FrameOf(const QWidget &page)
{
    for (QWidget *parent = page.parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto *frame = qobject_cast<QcDockAreaTabFrame *>(parent))
            return frame;
    }
    return nullptr;
}

QStringList TitlesIn(const QcDockAreaTabFrame &frame)
{
    QStringList titles;
    for (int i = 0; i < frame.count(); ++i)
        titles.append(frame.widget(i)->windowTitle());
    return titles;
}

} // namespace

class TestQcDockWidget : public DockTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void is_built_of_named_parts()
    {
        const QcDockWidget panel;
        QVERIFY(panel.testAttribute(Qt::WA_DeleteOnClose));
        QCOMPARE(panel.layout()->contentsMargins(), QMargins(1, 1, 1, 1));
        QCOMPARE(panel.layout()->spacing(), 0);
        const QWidget *title = TitleRowOf(panel);
        QCOMPARE(title->minimumHeight(), 30);
        QCOMPARE(title->maximumHeight(), 30);
        QCOMPARE(title->layout()->contentsMargins(), QMargins(8, 0, 8, 0));
        QCOMPARE(title->layout()->spacing(), 5);
        const auto *label = PartOf<QLabel>(*title, "m_titleLabel");
        QCOMPARE(int(label->font().weight()), int(QFont::Bold));
        QCOMPARE(label->font().pixelSize(), 14);
        QCOMPARE(label->font().families(), QStringList({QStringLiteral("Roboto"), QStringLiteral("Microsoft YaHei UI")}));
        QCOMPARE(label->minimumWidth(), 1);
        const QcIconButton *close = CloseButtonOf(panel);
        QCOMPARE(close->objectName(), QString());
        QCOMPARE(close->minimumSize(), QSize(24, 24));
        QCOMPARE(close->maximumSize(), QSize(24, 24));
        QCOMPARE(title->layout()->itemAt(0)->widget(), label);
        QVERIFY(title->layout()->itemAt(1)->spacerItem());
        QCOMPARE(title->layout()->itemAt(2)->widget(), close);
        const QWidget *frame = PartOf(panel, "m_contentFrame");
        QCOMPARE(panel.layout()->itemAt(0)->widget(), title);
        QCOMPARE(panel.layout()->itemAt(1)->widget(), frame);
        QCOMPARE(frame->sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding));
        QCOMPARE(frame->layout()->contentsMargins(), QMargins());
        QCOMPARE(frame->layout()->spacing(), 0);
        const auto *tip = PartOf<QLabel>(panel, "m_dragTipLabel");
        QCOMPARE(tip->text(), QStringLiteral("PleaseMoveToTheIMsg"));
        QCOMPARE(tip->alignment(), Qt::AlignCenter);
        QCOMPARE(tip->minimumHeight(), 30);
        QCOMPARE(tip->maximumHeight(), 30);
        QVERIFY(tip->isHidden());
        QCOMPARE(tip->parentWidget(), &panel);
    }

    void the_close_button_shows_its_icon()
    {
        QcDockWidget panel;
        DrainEvents();
        const QImage picture = PictureOf(QStringLiteral(":/images/dock/tab_close.svg"));
        QVERIFY(picture != PictureOf(QString()));
        QCOMPARE(Render(*CloseButtonOf(panel)), picture);
    }

    void a_new_panel_has_type_0_and_no_content()
    {
        QcDockWidget panel;
        QCOMPARE(panel.getType(), 0);
        QVERIFY(!panel.getContentWidget());
        panel.setContentWidget(nullptr);
        QVERIFY(!panel.getContentWidget());
        panel.setType(-3);
        QCOMPARE(panel.getType(), -3);
    }

    // --- Content ---

    void a_content_brings_its_type_and_its_title()
    {
        QcDockWidget panel;
        auto *content = new Content(QStringLiteral("Map"));
        content->setProperty(kType, 7);
        panel.setContentWidget(content);
        QCOMPARE(panel.getContentWidget(), content);
        QCOMPARE(panel.getType(), 7);
        QCOMPARE(panel.windowTitle(), QStringLiteral("Map"));
        QCOMPARE(TitleOf(panel), QStringLiteral("Map"));
        QVERIFY(PartOf(panel, "m_contentFrame")->isAncestorOf(content));
        content->setWindowTitle(QStringLiteral("Atlas"));
        QCOMPARE(panel.windowTitle(), QStringLiteral("Atlas"));
        QCOMPARE(TitleOf(panel), QStringLiteral("Atlas"));
    }

    void the_title_of_the_panel_does_not_rename_its_content()
    {
        QcDockWidget panel;
        auto *content = new Content(QStringLiteral("Map"));
        panel.setContentWidget(content);
        panel.setWindowTitle(QStringLiteral("Other"));
        QCOMPARE(TitleOf(panel), QStringLiteral("Other"));
        QCOMPARE(content->windowTitle(), QStringLiteral("Map"));
    }

    void a_title_is_no_markup()
    {
        QcDockWidget panel;
        panel.setWindowTitle(QStringLiteral("<b>x</b>"));
        QCOMPARE(PartOf<QLabel>(panel, "m_titleLabel")->textFormat(), Qt::PlainText);
    }

    void a_second_content_schedules_the_deletion_of_the_first()
    {
        QcDockWidget panel;
        const QPointer<Content> first = new Content(QStringLiteral("First"));
        panel.setContentWidget(first);
        auto *second = new Content(QStringLiteral("Second"));
        panel.setContentWidget(second);
        QVERIFY(first);
        QCOMPARE(panel.getContentWidget(), second);
        first->setWindowTitle(QStringLiteral("Ghost"));
        QCOMPARE(panel.windowTitle(), QStringLiteral("Second"));
        DrainEvents();
        QVERIFY(!first);
        QCOMPARE(panel.getContentWidget(), second);
    }

    void the_present_content_is_read_anew_and_not_deleted()
    {
        QcDockWidget panel;
        const QPointer<Content> content = new Content(QStringLiteral("Map"));
        panel.setContentWidget(content);
        content->setProperty(kType, 5);
        content->setProperty(kForbidden, true);
        panel.setWindowTitle(QStringLiteral("Else"));
        panel.setContentWidget(content);
        DrainEvents();
        QVERIFY(content);
        QCOMPARE(panel.getContentWidget(), content.data());
        QCOMPARE(panel.getType(), 5);
        QCOMPARE(panel.windowTitle(), QStringLiteral("Map"));
        QVERIFY(!CloseButtonOf(panel)->isEnabled());
    }

    void a_content_that_comes_back_in_the_same_turn_lives_data()
    {
        QTest::addColumn<bool>("sameConsumer");
        QTest::newRow("to its panel") << true;
        QTest::newRow("to another panel") << false;
    }
    void a_content_that_comes_back_in_the_same_turn_lives()
    {
        QFETCH(bool, sameConsumer);
        QcDockWidget panel;
        QcDockWidget other;
        const QPointer<QWidget> first = new Content;
        const QPointer<QWidget> second = new Content;
        panel.setContentWidget(first);
        panel.setContentWidget(second);
        QcDockWidget &taker = sameConsumer ? panel : other;
        taker.setContentWidget(first);
        DrainEvents();
        QVERIFY(first);
        QCOMPARE(second.isNull(), sameConsumer);
        QCOMPARE(taker.getContentWidget(), first.data());
        first->deleteLater(); // and can still be deleted later
        DrainEvents();
        QVERIFY(!first);
    }

    void a_deletion_that_the_host_scheduled_is_not_taken_back()
    {
        QcDockWidget panel;
        const QPointer<QWidget> content = new Content;
        content->deleteLater();
        panel.setContentWidget(content);
        DrainEvents();
        QVERIFY(!content);
        QVERIFY(!panel.getContentWidget());
    }

    void a_content_that_its_host_takes_away_is_the_panels_no_longer()
    {
        const QPointer<QcDockWidget> panel = new QcDockWidget;
        auto *content = new Content(QStringLiteral("Map"));
        QWidget elsewhere;
        panel->setContentWidget(content);
        content->setParent(&elsewhere);
        QVERIFY(!panel->getContentWidget());
        content->setWindowTitle(QStringLiteral("Mine"));
        QCOMPARE(panel->windowTitle(), QStringLiteral("Map"));
        QVERIFY(panel->close());
        DrainEvents();
        QVERIFY(!panel);
        QCOMPARE(content->closes, 0);
    }

    void a_content_that_another_panel_takes_leaves_the_first()
    {
        QcDockWidget first;
        QcDockWidget second;
        auto *content = new Content(QStringLiteral("Map"));
        first.setContentWidget(content);
        second.setContentWidget(content);
        QVERIFY(!first.getContentWidget());
        QCOMPARE(second.getContentWidget(), content);
        first.setContentWidget(new Content);
        DrainEvents();
        QCOMPARE(second.getContentWidget(), content);
    }

    void a_content_that_its_host_deletes_is_forgotten()
    {
        QcDockWidget panel;
        auto *content = new Content;
        panel.setContentWidget(content);
        delete content;
        QVERIFY(!panel.getContentWidget());
        QCloseEvent close;
        QCoreApplication::sendEvent(&panel, &close);
        QVERIFY(close.isAccepted());
    }

    void what_holds_the_panel_is_no_content_of_it()
    {
        QWidget outer;
        auto *panel = new QcDockWidget(&outer);
        panel->setContentWidget(&outer);
        panel->setContentWidget(panel);
        QVERIFY(!panel->getContentWidget());
    }

    void a_panel_that_dies_of_its_new_title_is_not_touched_again()
    {
        auto *panel = new QcDockWidget;
        const QPointer<QWidget> guard = panel;
        connect(panel, &QWidget::windowTitleChanged, panel, [panel] { delete panel; });
        panel->setContentWidget(new Content(QStringLiteral("Map")));
        QVERIFY(!guard);
    }

    void a_content_that_a_host_takes_away_for_its_title_is_not_kept_data()
    {
        QTest::addColumn<bool>("dies");
        QTest::newRow("deletes") << true;
        QTest::newRow("gives another parent") << false;
    }
    void a_content_that_a_host_takes_away_for_its_title_is_not_kept()
    {
        QFETCH(bool, dies);
        QcDockWidget panel;
        QWidget keeper;
        const QPointer<Content> content = new Content(QStringLiteral("Map"));
        content->setProperty(kForbidden, true);
        connect(&panel, &QWidget::windowTitleChanged, &keeper, [&] {
            if (dies)
                delete content;
            else
                content->setParent(&keeper);
        });
        panel.setContentWidget(content);
        QCOMPARE(content.isNull(), dies);
        QVERIFY(!panel.getContentWidget());
        QVERIFY(CloseButtonOf(panel)->isEnabled());
        if (content)
            content->setWindowTitle(QStringLiteral("Atlas"));
        QCOMPARE(panel.windowTitle(), QStringLiteral("Map"));
    }

    void a_content_that_a_host_replaces_for_its_title_forbids_nothing()
    {
        QcDockWidget panel;
        auto *second = new Content;
        auto *first = new Content(QStringLiteral("Map"));
        first->setProperty(kForbidden, true);
        QObject once;
        connect(&panel, &QWidget::windowTitleChanged, &once, [&] {
            panel.disconnect(&once);
            panel.setContentWidget(second);
        });
        panel.setContentWidget(first);
        QCOMPARE(panel.getContentWidget(), second);
        QVERIFY(CloseButtonOf(panel)->isEnabled());
        DrainEvents();
        QCOMPARE(panel.getContentWidget(), second);
    }

    void a_panel_may_die_of_a_new_title_of_its_content()
    {
        const QPointer<QcDockWidget> panel = NewPanel(QStringLiteral("Map"));
        QWidget keeper;
        Content *content = ContentOf(panel);
        connect(panel, &QWidget::windowTitleChanged, &keeper, [&] {
            content->setParent(&keeper);
            delete panel;
        });
        content->setWindowTitle(QStringLiteral("Atlas"));
        QVERIFY(!panel);
        QCOMPARE(content->windowTitle(), QStringLiteral("Atlas"));
    }

    void a_content_that_is_given_up_and_taken_back_often_is_watched_once()
    {
        struct Watched : QWidget
        {
            int Watchers() const { return receivers(SIGNAL(destroyed(QObject *))); }
        };
        QcDockWidget panel;
        auto *first = new Watched;
        auto *second = new Watched;
        panel.setContentWidget(first);
        const int watchers = first->Watchers();
        for (int i = 0; i < 5; ++i) {
            panel.setContentWidget(second);
            panel.setContentWidget(first);
        }
        QCOMPARE(first->Watchers(), watchers);
        DrainEvents();
        QCOMPARE(panel.getContentWidget(), first);
    }

    // --- Closing ---

    void a_content_forbids_closing_whatever_the_value_says_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("true") << QVariant(true);
        QTest::newRow("false") << QVariant(false);
        QTest::newRow("text") << QVariant(QString());
    }
    void a_content_forbids_closing_whatever_the_value_says()
    {
        QFETCH(QVariant, value);
        QcDockWidget panel;
        auto *content = new Content;
        content->setProperty(kForbidden, value);
        panel.setContentWidget(content);
        QVERIFY(!CloseButtonOf(panel)->isEnabled());
    }

    void a_close_button_once_disabled_stays_so()
    {
        QcDockWidget panel;
        auto *forbidding = new Content;
        forbidding->setProperty(kForbidden, true);
        panel.setContentWidget(forbidding);
        forbidding->setProperty(kForbidden, QVariant());
        panel.setContentWidget(forbidding);
        QVERIFY(!CloseButtonOf(panel)->isEnabled());
        panel.setContentWidget(new Content);
        QVERIFY(!CloseButtonOf(panel)->isEnabled());
        DrainEvents();
    }

    void closing_asks_the_content_and_destroys_the_panel()
    {
        const QPointer<QcDockWidget> panel = NewPanel(QStringLiteral("Map"));
        Content *content = ContentOf(panel);
        content->refusesClose = true;
        CloseButtonOf(*panel)->click();
        DrainEvents();
        QVERIFY(panel);
        QCOMPARE(content->closes, 1);
        content->refusesClose = false;
        CloseButtonOf(*panel)->click();
        DrainEvents();
        QVERIFY(!panel);
    }

    void a_panel_without_a_content_closes()
    {
        const QPointer<QWidget> panel = new QcDockWidget;
        QVERIFY(panel->close());
        DrainEvents();
        QVERIFY(!panel);
    }

    void a_panel_that_goes_while_its_content_asks_is_not_touched_again()
    {
        const QPointer<QcDockWidget> panel = NewPanel(QStringLiteral("Map"));
        QWidget keeper;
        Content *content = ContentOf(panel);
        content->whenAsked = [&] {
            content->setParent(&keeper);
            delete panel;
        };
        QVERIFY(panel->close());
        QVERIFY(!panel);
    }

    void a_single_docked_panel_closed_by_its_title_leaves_its_tab_button()
    {
        TabStage stage;
        const QPointer<QcDockWidget> panel = stage.Add(QStringLiteral("Only"));
        QVERIFY(stage.Show());
        CloseButtonOf(*panel)->click();
        DrainEvents();
        QVERIFY(!panel);
        QCOMPARE(stage.frame->count(), 0);
        QCOMPARE(stage.Tabs(), QStringLiteral("Only"));
        QCOMPARE(stage.frame->currentIndex(), -1);
    }

    void closing_the_last_panel_of_an_area_removes_the_area()
    {
        NeighbourStage stage;
        QVERIFY(stage.Show());
        QCOMPARE(stage.root->getDockAreaList().size(), 2);
        CloseButtonOf(*stage.right)->click();
        DrainEvents();
        QCOMPARE(stage.root->getDockAreaList().size(), 1);
        VERIFY_SETTLED();
    }

    void a_panel_that_a_frame_of_the_hosts_takes_leaves_no_empty_area()
    {
        NeighbourStage stage;
        TabStage taker;
        taker.frame->addTab(stage.right->windowTitle(), stage.right);
        QCOMPARE(stage.root->getDockAreaList().size(), 1); // at once: it waits for its deletion
        VERIFY_SETTLED();
        QCOMPARE(taker.Tabs(), QStringLiteral("[B]"));
    }

    void a_panel_of_several_that_its_host_closes_takes_its_tab_along()
    {
        TabStage stage;
        QcDockWidget *panel = stage.Add(QStringLiteral("A"));
        stage.Add(QStringLiteral("B"));
        QVERIFY(stage.Show());
        QVERIFY(panel->close());
        DrainEvents();
        QCOMPARE(stage.Tabs(), QStringLiteral("[B]"));
        QVERIFY(HasTitleRow(*static_cast<QcDockWidget *>(stage.frame->widget(0))));
    }

    // --- Floating ---

    void only_a_floating_panel_resizes_at_its_edges()
    {
        FloatingStage stage;
        QVERIFY(stage.Show());
        QVERIFY(stage.panel->isFloating());
        Mouse::HoverAt(stage.panel->mapToGlobal(QPoint(299, 100)));
        QCOMPARE(stage.panel->cursor().shape(), Qt::SizeHorCursor);
        Mouse::HoverAt(stage.panel->mapToGlobal(QPoint(291, 100)));
        QCOMPARE(stage.panel->cursor().shape(), Qt::ArrowCursor);
        Mouse::HoverAt(stage.panel->mapToGlobal(QPoint(7, 100))); // 8 pixels wide
        QCOMPARE(stage.panel->cursor().shape(), Qt::SizeHorCursor);
        Mouse::HoverAt(stage.panel->mapToGlobal(QPoint(8, 100)));
        QCOMPARE(stage.panel->cursor().shape(), Qt::ArrowCursor);
        Mouse::HoverAt(stage.panel->mapToGlobal(QPoint(299, 100)));

        TabStage tabs;
        tabs.frame->addTab(QStringLiteral("Map"), stage.panel);
        QVERIFY(tabs.Show());
        QVERIFY(!stage.panel->isFloating());
        QCOMPARE(stage.panel->cursor().shape(), Qt::ArrowCursor);
        Mouse::HoverAt(stage.panel->mapToGlobal(QPoint(stage.panel->width() - 1, 100)));
        QCOMPARE(stage.panel->cursor().shape(), Qt::ArrowCursor);
        stage.panel->setParent(nullptr);
    }

    void a_panel_floats_where_it_was_under_the_registered_root()
    {
        NeighbourStage stage;
        QVERIFY(stage.Show());
        const QRect place(stage.right->mapToGlobal(QPoint(0, 0)), stage.right->size());
        stage.right->swichToFloating();
        QVERIFY(stage.right->isFloating());
        QVERIFY(stage.right->isVisible());
        QCOMPARE(stage.right->parentWidget(), stage.root.data());
        QCOMPARE(stage.right->windowFlags(), Qt::Window | Qt::FramelessWindowHint);
        QCOMPARE(stage.right->geometry(), place);
        DrainEvents();
        QCOMPARE(stage.root->getDockAreaList().size(), 1);
        QCOMPARE(stage.root->getDockWidgetWindow(), QList<QcDockWidget *>({stage.right}));
        VERIFY_SETTLED();
    }

    void a_panel_floats_under_the_registered_root_whichever_it_came_from()
    {
        DockStage other;
        QcDockWidget *panel = other.Add(QStringLiteral("A"));
        DockStage registered;
        QVERIFY(other.Show());
        QVERIFY(registered.Show());
        panel->swichToFloating();
        QCOMPARE(panel->parentWidget(), registered.root.data());
        VERIFY_SETTLED();
    }

    void a_panel_floats_without_a_parent_when_no_root_is_registered()
    {
        TabStage stage;
        const std::unique_ptr<QcDockWidget> panel(stage.Add(QStringLiteral("A")));
        QVERIFY(stage.Show());
        QcDockController::instance()->setRootDockContainer(nullptr);
        panel->swichToFloating();
        QVERIFY(!panel->parentWidget());
        QVERIFY(panel->isFloating());
        QCOMPARE(stage.frame->count(), 0);
        QCOMPARE(stage.Tabs(), QString());
    }

    void a_root_inside_of_the_panel_is_no_parent_for_it()
    {
        DockStage stage;
        QcDockWidget *panel = stage.Add(QStringLiteral("Outer"));
        auto *inner = new QcDockContainer(panel->getContentWidget());
        QVERIFY(stage.Show());
        QcDockController::instance()->setRootDockContainer(inner);
        panel->swichToFloating();
        QVERIFY(panel->isFloating());
        QCOMPARE(panel->parentWidget(), stage.root.data());
        VERIFY_SETTLED();
    }

    void a_root_in_what_floats_inside_of_the_panel_is_no_parent_for_it()
    {
        DockStage stage;
        QcDockWidget *panel = stage.Add(QStringLiteral("Outer"));
        auto *inner = new QcDockContainer(panel->getContentWidget());
        auto *floating = new QcDockWidget(inner);
        floating->SetWindowFlags();
        QVERIFY(stage.Show());
        QcDockController::instance()->setRootDockContainer(new QcDockContainer(floating));
        panel->swichToFloating();
        QVERIFY(panel->isFloating());
        QCOMPARE(panel->parentWidget(), stage.root.data());
        VERIFY_SETTLED();
    }

    void a_panel_torn_by_its_tab_with_the_root_inside_floats_under_what_it_came_from()
    {
        DockStage stage;
        stage.Add(QStringLiteral("A"));
        QcDockWidget *panel = stage.Add(QStringLiteral("Outer"));
        auto *inner = new QcDockContainer(panel->getContentWidget());
        QVERIFY(stage.Show());
        QcDockController::instance()->setRootDockContainer(inner);
        auto *tab = PartOf<QcDockAreaTabBar>(*FrameOf(*panel), "m_tabBar")->getTab(1);
        Mouse mouse;
        mouse.PressAt(*tab, QPoint(20, 15));
        mouse.MoveBy(0, QApplication::startDragDistance() + 1);
        QVERIFY(panel->isFloating());
        QCOMPARE(panel->parentWidget(), stage.root.data());
        mouse.Release();
        VERIFY_SETTLED();
    }

    void floating_one_of_several_loses_nobody_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QStringList>("left");
        QTest::newRow("first") << 0 << QStringList({QStringLiteral("B"), QStringLiteral("C")});
        // The first tab is the one taken out, and comes back at the end.
        QTest::newRow("second") << 1 << QStringList({QStringLiteral("C"), QStringLiteral("A")});
        QTest::newRow("last") << 2 << QStringList({QStringLiteral("B"), QStringLiteral("A")});
    }
    void floating_one_of_several_loses_nobody()
    {
        QFETCH(int, index);
        QFETCH(QStringList, left);
        DockStage stage;
        for (const char *title : {"A", "B", "C"})
            stage.Add(QLatin1String(title));
        QVERIFY(stage.Show());
        auto *frame = stage.root->findChild<QcDockAreaTabFrame *>();
        auto *panel = static_cast<QcDockWidget *>(frame->widget(index));
        panel->swichToFloating();
        DrainEvents();
        QCOMPARE(TitlesIn(*frame), left);
        QVERIFY(panel->isFloating());
        QVERIFY(HasTitleRow(*panel));
        auto *row = PartOf<QcDockAreaTabBar>(*frame, "m_tabBar");
        QCOMPARE(row->findChildren<QcDockAreaTabBarButton *>().size(), 2);
        QCOMPARE(frame->widget(row->currentIndex())->isVisible(), true);
        VERIFY_SETTLED();
    }

    void a_panel_of_several_that_its_host_makes_a_window_has_its_title_row()
    {
        TabStage stage;
        const std::unique_ptr<QcDockWidget> panel(stage.Add(QStringLiteral("A")));
        stage.Add(QStringLiteral("B"));
        QVERIFY(stage.Show());
        QVERIFY(!HasTitleRow(*panel));
        panel->setParent(nullptr);
        panel->SetWindowFlags();
        panel->show();
        QVERIFY(HasTitleRow(*panel));
        VERIFY_SETTLED();
    }

    void a_panel_torn_by_its_tab_floats_again_without_the_frame_that_it_came_from()
    {
        TabStage stage({"A"});
        const QPointer<QcDockWidget> panel = stage.Add(QStringLiteral("B"));
        QVERIFY(stage.Show());
        QcDockController::instance()->setRootDockContainer(new QcDockContainer(panel->getContentWidget())); // no parent for it
        Mouse mouse;
        mouse.PressAt(*stage.Tab(1), QPoint(20, 15));
        mouse.MoveBy(0, QApplication::startDragDistance() + 1);
        mouse.Release();
        delete stage.frame;
        panel->swichToFloating();
        QVERIFY(panel->isFloating());
        QVERIFY(!panel->parentWidget());
        delete panel;
    }

    void a_host_may_delete_what_a_panel_leaves_when_it_hears_of_that_data()
    {
        QTest::addColumn<QString>("what");
        for (const char *what : {"area", "focus widget"})
            QTest::newRow(what) << QString(what);
    }
    void a_host_may_delete_what_a_panel_leaves_when_it_hears_of_that()
    {
        QFETCH(QString, what);
        NeighbourStage stage;
        const QPointer<QLineEdit> edit = new QLineEdit(stage.right->getContentWidget());
        QVERIFY(stage.Show());
        edit->setFocus();
        const QPointer<QWidget> area = stage.root->getDockAreaList().constLast();
        QVERIFY(area->isAncestorOf(stage.right));
        const CallAt listener(*stage.right, QEvent::ParentChange, [&] {
            if (what == QLatin1String("area"))
                delete area;
            else
                delete edit;
        });
        stage.right->swichToFloating();
        QVERIFY(stage.right->isFloating());
        VERIFY_SETTLED();
        QCOMPARE(stage.root->getDockAreaList().size(), 1);
    }

    void a_panel_may_die_of_what_happens_to_the_tabs_data()
    {
        QTest::addColumn<QString>("how");
        for (const char *how : {"floats", "torn out", "others come back"})
            QTest::newRow(how) << QString(how);
    }
    void a_panel_may_die_of_what_happens_to_the_tabs()
    {
        QFETCH(QString, how);
        TabStage stage({"A", "B"});
        QVERIFY(stage.Show());
        const bool isOther = how == QLatin1String("others come back");
        stage.frame->setCurrentIndex(isOther ? 1 : 0);
        const QPointer<QcDockWidget> panel = static_cast<QcDockWidget *>(stage.frame->widget(stage.frame->currentIndex()));
        if (isOther) // the first one goes and comes, since the one that floats is taken for it
            connect(PartOf<QStackedWidget>(*stage.frame, "m_stackedWidget"), &QStackedWidget::currentChanged, panel, [&panel](int index) {
                if (index == 0)
                    delete panel;
            });
        else
            connect(stage.Row(), &QcDockAreaTabBar::signalCurrentChanged, panel, [&panel] { delete panel; });
        Mouse mouse;
        if (how == QLatin1String("torn out")) {
            mouse.PressAt(*stage.Tab(0), QPoint(20, 15));
            mouse.MoveBy(0, QApplication::startDragDistance() + 1);
            mouse.Release();
        } else {
            panel->swichToFloating();
        }
        DrainEvents();
        QVERIFY(!panel);
        QCOMPARE(stage.Tabs(), isOther ? QStringLiteral("[A]") : QStringLiteral("[B]"));
        QCOMPARE(stage.Pages(), stage.Tabs());
    }

    void a_panel_may_die_of_its_look_data()
    {
        QTest::addColumn<QString>("when");
        for (const char *when : {"dragged", "released", "docked", "cancelled"})
            QTest::newRow(when) << QString(when);
    }
    void a_panel_may_die_of_its_look()
    {
        QFETCH(QString, when);
        FloatingStage stage;
        TabStage tabs;
        QVERIFY(tabs.Show());
        QVERIFY(stage.Show());
        const auto die = [&stage] { delete stage.panel; };
        Mouse mouse;
        std::unique_ptr<CallAt> listener;
        const auto listen = [&] { listener = std::make_unique<CallAt>(*stage.panel, QEvent::DynamicPropertyChange, die); };
        if (when == QLatin1String("dragged"))
            listen();
        mouse.PressAt(*stage.panel, stage.OnTitle());
        mouse.MoveBy(5, 5);
        if (stage.panel)
            listen();
        if (when == QLatin1String("docked"))
            tabs.frame->addTab(QStringLiteral("Map"), stage.panel);
        else if (when == QLatin1String("cancelled"))
            QTest::keyClick(&tabs.window, Qt::Key_Escape);
        mouse.Release();
        DrainEvents();
        QVERIFY(!stage.panel);
        QCOMPARE(tabs.frame->count(), 0);
    }

    void a_plain_page_before_the_floating_panel_stays_a_page()
    {
        TabStage stage;
        auto *page = new QWidget;
        page->setWindowTitle(QStringLiteral("Page"));
        stage.frame->addTab(QStringLiteral("Page"), page);
        const std::unique_ptr<QcDockWidget> panel(stage.Add(QStringLiteral("B")));
        panel->swichToFloating();
        DrainEvents();
        QCOMPARE(TitlesIn(*stage.frame), QStringList(QStringLiteral("Page")));
        QCOMPARE(stage.Tabs(), QStringLiteral("[Page]"));
    }

    void focus_goes_with_a_panel_that_floats()
    {
        DockStage stage;
        QcDockWidget *panel = stage.Add(QStringLiteral("A"));
        auto *edits = new QWidget;
        new QLineEdit(edits); // which would get the focus of its own
        auto *edit = new QLineEdit(edits);
        panel->setContentWidget(edits);
        QVERIFY(stage.Show());
        edit->setFocus();
        QTRY_COMPARE(QApplication::focusWidget(), edit);
        panel->swichToFloating();
        QTRY_COMPARE(QApplication::focusWidget(), edit);
        VERIFY_SETTLED();
    }

    void focus_goes_with_a_panel_that_is_docked_data()
    {
        QTest::addColumn<int>("position");
        QTest::newRow("as a tab") << int(Center);
        QTest::newRow("beside") << int(Right);
        QTest::newRow("across") << int(Bottom);
    }
    void focus_goes_with_a_panel_that_is_docked()
    {
        QFETCH(int, position);
        DockStage stage;
        QcDockWidget *target = stage.Add(QStringLiteral("A"));
        stage.Add(QStringLiteral("B"), Right);
        QcDockWidget *panel = stage.Add(QStringLiteral("C"), Right);
        auto *edit = new QLineEdit;
        panel->setContentWidget(edit);
        QVERIFY(stage.Show());
        panel->swichToFloating();
        DrainEvents();
        edit->activateWindow();
        edit->setFocus();
        QTRY_COMPARE(QApplication::focusWidget(), edit);
        stage.root->addWidget(panel, target, static_cast<DockPosition>(position));
        stage.window.activateWindow();
        QTRY_COMPARE(QApplication::focusWidget(), edit);
        VERIFY_SETTLED();
    }

    void focus_elsewhere_is_left_alone_when_a_panel_floats()
    {
        DockStage stage;
        QcDockWidget *panel = stage.Add(QStringLiteral("A"));
        auto *edit = new QLineEdit(&stage.window);
        QVERIFY(stage.Show());
        edit->setFocus();
        QTRY_COMPARE(QApplication::focusWidget(), edit);
        panel->swichToFloating();
        QApplication::setActiveWindow(&stage.window);
        QTRY_COMPARE(QApplication::focusWidget(), edit);
        VERIFY_SETTLED();
    }

    void a_docked_panel_has_neither_the_border_nor_the_window_of_a_floating_one()
    {
        FloatingStage stage;
        stage.panel->setWindowStyle(true);
        QVERIFY(stage.Show());
        TabStage tabs;
        QVERIFY(tabs.Show());
        tabs.frame->addTab(QStringLiteral("Map"), stage.panel);
        QVERIFY(!stage.panel->property("window").toBool());
        QVERIFY(!stage.panel->windowHandle());
        QVERIFY(stage.panel->isVisible());
    }

    void a_window_off_every_screen_is_brought_onto_the_nearest_data()
    {
        QTest::addColumn<QRect>("window");
        QTest::addColumn<QPoint>("corner");
        const QRect room(10, 20, 300, 200);
        QTest::newRow("seen") << room << room.topLeft();
        QTest::newRow("seen in part") << QRect(-290, -150, 300, 200) << QPoint(-290, -150);
        QTest::newRow("left") << QRect(-900, 100, 300, 200) << QPoint(0, 100);
        QTest::newRow("right of both") << QRect(9000, 2000, 300, 200) << QPoint(1700, 400);
        QTest::newRow("below the second, beside the first") << QRect(1500, 650, 300, 150) << QPoint(1500, 450);
        QTest::newRow("across both") << QRect(900, 500, 300, 200) << QPoint(900, 500);
        QTest::newRow("above the second") << QRect(1500, -500, 300, 200) << QPoint(1500, 0);
        QTest::newRow("larger than a screen") << QRect(9000, 0, 3000, 2000) << QPoint(1000, 0);
        QTest::newRow("nothing of it") << QRect(50, 50, 0, 0) << QPoint(50, 50);
        QTest::newRow("as far as numbers go") << QRect(-16777215, -16777215, 300, 200) << QPoint(0, 0);
    }
    void a_window_off_every_screen_is_brought_onto_the_nearest()
    {
        QFETCH(QRect, window);
        const QVector<QRect> screens = {QRect(0, 0, 1000, 800), QRect(1000, 0, 1000, 600)};
        QTEST(OntoScreens(window, screens), "corner");
        QCOMPARE(OntoScreens(window, {}), window.topLeft());
    }

    void without_a_window_manager_a_panel_stays_where_it_was_put()
    {
        FloatingStage stage;
        stage.panel->move(-5000, -5000);
        stage.panel->show();
        QCOMPARE(stage.panel->pos(), QPoint(-5000, -5000));
    }

    // --- Dragging ---

    void dragging_a_floating_panel_moves_it_and_runs_the_feedback()
    {
        FloatingStage stage;
        Mouse mouse;
        QVERIFY(stage.ShowAndPress(mouse));
        const QPoint from = stage.panel->pos();
        mouse.MoveBy(1, 0); // however little
        QCOMPARE(stage.panel->pos(), from + QPoint(1, 0));
        QVERIFY(stage.panel->property("draging").toBool());
        mouse.MoveBy(20, 30);
        QCOMPARE(stage.panel->pos(), from + QPoint(21, 30));
        auto *tip = PartOf<QLabel>(*stage.panel, "m_dragTipLabel");
        QTRY_VERIFY(tip->isVisible()); // posted: there is nothing to dock in under the mouse
        mouse.Release();
        QVERIFY(!stage.panel->property("draging").toBool());
        QTRY_VERIFY(!tip->isVisible());
        QVERIFY(stage.panel->property("window").toBool());
        mouse.MoveBy(10, 10);
        QCOMPARE(stage.panel->pos(), from + QPoint(21, 30));
    }

    void a_dragged_panel_keeps_up_with_the_mouse_when_the_window_system_reports_late_where_it_was()
    {
        FloatingStage stage;
        Mouse mouse;
        QVERIFY(stage.ShowAndPress(mouse));
        const QPoint from = stage.panel->pos();
        mouse.MoveBy(20, 30);
        QWindowSystemInterface::handleGeometryChange(stage.panel->windowHandle(), QRect(from, stage.panel->size()));
        QWindowSystemInterface::flushWindowSystemEvents();
        QCOMPARE(stage.panel->pos(), from);
        mouse.MoveBy(1, 0);
        QCOMPARE(stage.panel->pos(), from + QPoint(21, 30));
        mouse.Release();
        DrainEvents();
    }

    void a_dragged_panel_that_its_host_moves_goes_on_from_there()
    {
        FloatingStage stage;
        Mouse mouse;
        QVERIFY(stage.ShowAndPress(mouse));
        mouse.MoveBy(20, 30);
        stage.panel->move(50, 60);
        mouse.MoveBy(1, 0);
        QCOMPARE(stage.panel->pos(), QPoint(51, 60));
        mouse.Release();
        DrainEvents();
    }

    void a_press_in_the_resize_band_neither_moves_nor_docks()
    {
        FloatingStage stage;
        QVERIFY(stage.Show());
        Mouse mouse;
        mouse.PressAt(*stage.panel, QPoint(100, 3));
        const QRect place = stage.panel->geometry();
        mouse.MoveBy(0, 15);
        QCOMPARE(stage.panel->geometry(), place);
        QVERIFY(!stage.panel->property("draging").toBool());
        mouse.Release();
        DrainEvents();
        QVERIFY(!stage.panel->property("window").toBool());
    }

    void a_panel_is_dragged_right_after_the_pointer_left_its_resize_band()
    {
        FloatingStage stage;
        QVERIFY(stage.Show());
        Mouse::HoverAt(stage.panel->mapToGlobal(stage.OnTitle()));
        stage.panel->setCursor(Qt::SizeVerCursor); // of the band, which no move has taken back
        Mouse mouse;
        mouse.PressAt(*stage.panel, stage.OnTitle());
        const QPoint from = stage.panel->pos();
        mouse.MoveBy(4, 3);
        QCOMPARE(stage.panel->pos(), from + QPoint(4, 3));
        mouse.Release();
        DrainEvents();
    }

    void a_press_below_the_title_row_drags_nothing()
    {
        FloatingStage stage;
        QVERIFY(stage.Show());
        Mouse mouse;
        mouse.PressAt(*stage.panel, QPoint(100, 120));
        const QPoint from = stage.panel->pos();
        mouse.MoveBy(10, 10);
        QCOMPARE(stage.panel->pos(), from);
        mouse.Release();
    }

    void only_the_left_button_drags()
    {
        FloatingStage stage;
        QVERIFY(stage.Show());
        Mouse mouse(Qt::RightButton);
        mouse.PressAt(*stage.panel, stage.OnTitle());
        const QPoint from = stage.panel->pos();
        mouse.MoveBy(10, 10);
        QCOMPARE(stage.panel->pos(), from);
        mouse.Release();
    }

    void a_press_at_the_screens_origin_counts_as_none()
    {
        FloatingStage stage;
        stage.panel->move(-100, -15);
        QVERIFY(stage.Show());
        Mouse mouse;
        mouse.PressAt(*stage.panel, QPoint(100, 15));
        QCOMPARE(QCursor::pos(), QPoint(0, 0));
        mouse.MoveBy(5, 5);
        QCOMPARE(stage.panel->pos(), QPoint(-100, -15));
        mouse.Release();
        DrainEvents();
        QVERIFY(!stage.panel->property("window").isValid()); // nor does its release drop anything
    }

    void a_click_on_a_floating_title_runs_the_drop()
    {
        FloatingStage stage;
        Mouse mouse;
        QVERIFY(stage.ShowAndPress(mouse));
        mouse.Release();
        QTRY_VERIFY(stage.panel->property("window").toBool());
    }

    void dragging_a_docked_panel_by_its_title_tears_it_out()
    {
        NeighbourStage stage;
        Mouse mouse;
        QVERIFY(stage.ShowAndPress(mouse));
        const QPoint from = stage.right->mapToGlobal(QPoint(0, 0));
        mouse.MoveBy(0, 1);
        QVERIFY(stage.right->isFloating());
        QCOMPARE(stage.right->pos(), from + QPoint(0, 1));
        mouse.MoveBy(-20, 5);
        QCOMPARE(stage.right->pos(), from + QPoint(-20, 6));
        DrainEvents();
        QCOMPARE(stage.root->getDockAreaList().size(), 1);
        QVERIFY(TopLevelIndicator()->isVisible());
        CancelDrag(*stage.right);
        mouse.Release();
        VERIFY_SETTLED();
    }

    void escape_leaves_a_dragged_panel_where_it_is()
    {
        NeighbourStage stage;
        Mouse mouse;
        QVERIFY(stage.ShowAndPress(mouse));
        mouse.MoveBy(0, 10);
        const QPoint at = stage.right->pos();
        CancelDrag(*stage.right);
        QVERIFY(!stage.right->property("draging").toBool());
        QVERIFY(stage.right->property("window").toBool());
        mouse.MoveBy(10, 10);
        mouse.Release();
        DrainEvents();
        QVERIFY(stage.right->isFloating());
        QCOMPARE(stage.right->pos(), at);
        QVERIFY(!TopLevelIndicator()->isVisible());
        VERIFY_SETTLED();
    }

    void a_host_that_docks_the_dragged_panel_ends_its_drag()
    {
        NeighbourStage stage;
        Mouse mouse;
        QVERIFY(stage.ShowAndPress(mouse));
        mouse.MoveBy(0, 10);
        mouse.MoveTo(stage.left->mapToGlobal(QPoint(100, 100)));
        DrainEvents();
        QVERIFY(TopLevelIndicator()->isVisible());
        stage.root->addWidget(stage.right, stage.left, Center);
        QCOMPARE(Settled(), QString()); // nothing looks dragged, no indicator, no mask
        mouse.MoveBy(30, 30);
        mouse.Release();
        VERIFY_SETTLED();
        QCOMPARE(TitlesIn(*FrameOf(*stage.right)), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
    }

    void a_host_that_takes_the_dragged_panel_out_of_its_window_ends_its_drag_with_the_release()
    {
        NeighbourStage stage;
        Mouse mouse;
        QVERIFY(stage.ShowAndPress(mouse));
        mouse.MoveBy(0, 10);
        mouse.MoveTo(stage.left->mapToGlobal(QPoint(100, 100)));
        DrainEvents();
        QVERIFY(TopLevelIndicator()->isVisible());
        stage.right->setParent(&stage.window);
        QMouseEvent release(QEvent::MouseButtonRelease, QPoint(60, 15), QCursor::pos(), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(stage.right, &release);
        QVERIFY(!TopLevelIndicator()->isVisible());
        VERIFY_SETTLED();
        QVERIFY(!stage.right->isFloating());
    }

    void a_title_drag_whose_release_was_lost_ends_at_the_next_press()
    {
        FloatingStage stage;
        TabStage elsewhere;
        QVERIFY(elsewhere.Show());
        QVERIFY(stage.Show());
        Mouse mouse;
        mouse.PressAt(*stage.panel, stage.OnTitle());
        mouse.MoveBy(5, 5);
        QVERIFY(stage.panel->property("draging").toBool());
        QTest::mousePress(&elsewhere.window, Qt::LeftButton);
        QVERIFY(!stage.panel->property("draging").toBool());
        QVERIFY(stage.panel->property("window").toBool());
        const QPoint at = stage.panel->pos();
        mouse.MoveBy(5, 5);
        QCOMPARE(stage.panel->pos(), at);
        mouse.Release();
        DrainEvents();
    }

    void a_host_may_end_the_drag_when_it_hears_that_the_panel_floats()
    {
        NeighbourStage stage;
        QVERIFY(stage.Show());
        const CallAt listener(*stage.right, QEvent::Show, [] { DockDrag::Cancel(); });
        Mouse mouse;
        mouse.PressAt(*TitleRowOf(*stage.right), QPoint(60, 15));
        mouse.MoveBy(0, 10);
        QVERIFY(stage.right->isFloating());
        QVERIFY(!stage.right->property("draging").toBool());
        mouse.Release();
        VERIFY_SETTLED();
    }

    void a_panel_that_dies_in_its_drag_takes_the_posted_steps_along()
    {
        NeighbourStage stage;
        Mouse mouse;
        QVERIFY(stage.ShowAndPress(mouse));
        MoveWithoutATurn(*stage.right, stage.left->mapToGlobal(QPoint(100, 100)));
        QVERIFY(stage.right->property("draging").toBool()); // so its step is posted
        delete stage.right;
        mouse.Release();
        VERIFY_SETTLED();
        QVERIFY(!TopLevelIndicator()->isVisible());
    }

    void each_look_is_polished_only_when_it_changes()
    {
        FloatingStage stage;
        QVERIFY(stage.Show());
        EventCounter changes(*stage.panel, QEvent::DynamicPropertyChange);
        stage.panel->setDragingStyle(true);
        stage.panel->setDragingStyle(true);
        stage.panel->setWindowStyle(true);
        stage.panel->setWindowStyle(true);
        QCOMPARE(changes.Take(), 2);
        stage.panel->setDragingStyle(false);
        QCOMPARE(changes.Take(), 1);
    }

    void each_move_posts_a_step_of_its_own_and_the_release_comes_after_them()
    {
        FloatingStage stage;
        QVERIFY(stage.Show());
        /// Takes back what each step does, so that the next one does it again.
        struct Watch : QObject
        {
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                if (event->type() == QEvent::ShowToParent) {
                    ++steps;
                    hasEnded = hasEnded || panel->property("window").isValid();
                    static_cast<QWidget *>(watched)->hide();
                }
                return false;
            }
            QcDockWidget *panel = nullptr;
            int steps = 0;
            bool hasEnded = false;
        } watch;
        watch.panel = stage.panel;
        PartOf(*stage.panel, "m_dragTipLabel")->installEventFilter(&watch);
        Mouse mouse;
        mouse.PressAt(*stage.panel, stage.OnTitle());
        const QPoint from = stage.panel->pos();
        for (int i = 0; i < 3; ++i)
            MoveWithoutATurn(*stage.panel, QCursor::pos() + QPoint(2, 0));
        QCOMPARE(stage.panel->pos(), from + QPoint(6, 0));
        QCOMPARE(watch.steps, 0);
        mouse.Release();
        DrainEvents();
        QCOMPARE(watch.steps, 3);
        QVERIFY(!watch.hasEnded);
        QVERIFY(stage.panel->property("window").toBool());
    }

    void the_slot_beside_the_close_button_does_nothing()
    {
        const std::unique_ptr<QcDockWidget> panel(NewPanel(QStringLiteral("Map")));
        QVERIFY(QMetaObject::invokeMethod(panel.get(), "OnCloseButtonClicked", Qt::DirectConnection));
        DrainEvents();
        QCOMPARE(ContentOf(panel.get())->closes, 0);
    }

    // --- The tip ---

    void the_tip_stands_under_the_title_row()
    {
        FloatingStage stage;
        QVERIFY(stage.Show());
        auto *tip = PartOf<QLabel>(*stage.panel, "m_dragTipLabel");
        stage.panel->SetDragTipVisible(true);
        QVERIFY(tip->isVisible());
        QCOMPARE(tip->pos(), QPoint((300 - tip->width()) / 2, 36));
        QCOMPARE(tip->height(), 30);
        QVERIFY(tip->width() >= tip->sizeHint().width());

        stage.panel->resize(60, 120); // narrower than the tip: the same arithmetic
        stage.panel->SetDragTipVisible(true);
        QCOMPARE(tip->x(), (stage.panel->width() - tip->width()) / 2);
        stage.panel->SetDragTipVisible(false);
        QVERIFY(!tip->isVisible());
    }

    void the_tip_and_the_close_button_follow_the_language()
    {
        class Wordy : public QTranslator
        {
        public:
            bool isEmpty() const override { return false; }
            QString translate(const char *, const char *source, const char *, int) const override
            {
                return QStringLiteral("much longer: ") + QLatin1String(source);
            }
        };
        FloatingStage stage;
        QVERIFY(stage.Show());
        auto *tip = PartOf<QLabel>(*stage.panel, "m_dragTipLabel");
        stage.panel->SetDragTipVisible(true);
        const int narrow = tip->width();
        Wordy wordy;
        QCoreApplication::installTranslator(&wordy);
        DrainEvents();
        QCOMPARE(tip->text(), QStringLiteral("much longer: PleaseMoveToTheIMsg"));
        QVERIFY(tip->width() > narrow);
        QCOMPARE(tip->x(), (stage.panel->width() - tip->width()) / 2);
        QCOMPARE(CloseButtonOf(*stage.panel)->accessibleName(), QStringLiteral("much longer: Close Map"));
        QCoreApplication::removeTranslator(&wordy);
        DrainEvents();
        QCOMPARE(CloseButtonOf(*stage.panel)->accessibleName(), QStringLiteral("Close Map"));
    }

    // --- Looks ---

    void the_title_row_and_the_borders_are_painted_in_their_tokens()
    {
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            FloatingStage stage;
            QVERIFY(stage.Show());
            const auto token = [table](const char *name) { return TokenOf(table, QLatin1String(name)); };
            QImage image = Render(*stage.panel, Qt::green);
            COMPARE_COLOR(PixelAt(image, QPointF(150.5, 15.5)), Over(token("bg/bg_primary"), Qt::green));
            COMPARE_COLOR(PixelAt(image, QPointF(0.5, 100.5)), token("bg/bg_float"));
            COMPARE_COLOR(PixelAt(image, QPointF(150.5, 100.5)), token("bg/bg_float"));
            const QColor line = token("border/border_tertairy");
            const QColor under = PixelAt(image, QPointF(150.5, 30.5)); // the row's ground reaches below its line in part
            QVERIFY(IsBetween(under, Over(line, token("bg/bg_float")), Over(line, token("bg/bg_primary"))));
            stage.panel->setWindowStyle(true);
            image = Render(*stage.panel, token("bg/bg_float")); // which covers a rounded edge only in part
            COMPARE_COLOR(PixelAt(image, QPointF(0.5, 100.5)), Over(token("border/border_tertairy"), token("bg/bg_float")));
            QVERIFY(PixelAt(image, QPointF(0.5, 0.5)) != PixelAt(image, QPointF(0.5, 100.5))); // its corners are round
            stage.panel->setDragingStyle(true);
            image = Render(*stage.panel, Qt::green);
            COMPARE_COLOR(PixelAt(image, QPointF(0.5, 100.5)), token("brand/brand"));
        }
        UseTable(Table::Light);
    }

    void title_and_tip_are_painted_in_their_tokens()
    {
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            FloatingStage stage;
            const auto token = [table](const char *name) { return TokenOf(table, QLatin1String(name)); };
            stage.panel->getContentWidget()->setWindowTitle(QString(8, QChar(0x2588)));
            QVERIFY(stage.Show());
            auto *label = PartOf<QLabel>(*stage.panel, "m_titleLabel");
            COMPARE_COLOR(MainInk(Render(*label, Qt::green), Qt::green), Over(token("text/text_caption"), Qt::green));
            stage.panel->SetDragTipVisible(true);
            auto *tip = PartOf<QLabel>(*stage.panel, "m_dragTipLabel");
            tip->setText(QString(4, QChar(0x2588)));
            const QImage image = Render(*tip, Qt::green);
            const QColor ground = Over(token("bg/bg_bottom"), Qt::green);
            COMPARE_COLOR(PixelAt(image, QPointF(5.5, 15.5)), ground); // the text keeps 8 pixels from the edge
            COMPARE_COLOR(PixelAt(image, QPointF(0.2, 0.2)), QColor(Qt::green));
            COMPARE_COLOR(MainInk(Part(image, QRectF(20, 10, tip->width() - 40, 10)), ground), Over(token("text/text_primary"), ground));
        }
        UseTable(Table::Light);
    }

private:
    /// A move that is heard at once, with no turn of the main loop.
    static void MoveWithoutATurn(QcDockWidget &panel, const QPoint &to)
    {
        QCursor::setPos(to);
        QMouseEvent move(QEvent::MouseMove, panel.mapFromGlobal(to), to, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&panel, &move);
    }

    static QWidget *TopLevelIndicator()
    {
        const QWidgetList widgets = QApplication::topLevelWidgets();
        for (QWidget *widget : widgets) {
            if (qobject_cast<QcDockIndicator *>(widget))
                return widget;
        }
        return nullptr;
    }

    static void CancelDrag(QcDockWidget &panel)
    {
        QTest::keyClick(&panel, Qt::Key_Escape);
        DrainEvents();
    }
};

VELMORA_TEST_MAIN(TestQcDockWidget)
#include "tst_QcDockWidget.moc"
