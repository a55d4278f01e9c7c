#include "DockTestCase.h"
#include "DragStage.h"

#include "support/Pixels.h"
#include "support/TestMain.h"
#include "support/Tokens.h"

#include <QLayout>
#include <QPainter>
#include <QSignalSpy>
#include <QStackedWidget>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// A container of its own inside of a panel's content, with one panel of \a type in it.
QcDockContainer *DockInside(QcDockWidget &panel, int type)
{
    auto *inner = new QcDockContainer(panel.getContentWidget());
    inner->addWidget(NewPanel(type), nullptr, Center);
    return inner;
}

} // namespace

class tst_QcDockArea : public DockTestCase
{
    Q_OBJECT

private Q_SLOTS:
    // --- What it holds ---

    void a_new_area_is_empty()
    {
        QcDockArea area(nullptr);
        QVERIFY(area.isEmpty());
        QCOMPARE(area.count(), 0);
        QCOMPARE(area.currentIndex(), -1);
        QVERIFY(!area.widget(0));
        QCOMPARE(area.layout()->contentsMargins(), QMargins(1, 1, 1, 1)); // room for the outline
        QCOMPARE(area.layout()->spacing(), 0);
        area.addWidget(nullptr);
        area.setCurrentIndex(3);
        QCOMPARE(area.count(), 0);
    }

    void a_panel_becomes_a_tab_with_its_title_and_the_current_one()
    {
        QcDockArea area(nullptr);
        area.addWidget(NewPanel(1, QStringLiteral("Files")));
        QcDockWidget *outline = NewPanel(2, QStringLiteral("Outline"));
        area.addWidget(outline);
        QCOMPARE(area.count(), 2);
        QCOMPARE(area.currentIndex(), 1);
        QCOMPARE(area.widget(1), outline);
        area.setCurrentIndex(0);
        QCOMPARE(area.currentIndex(), 0);
        QVERIFY(!area.isEmpty());
        VERIFY_SETTLED(); // tabs say what the panels are called
    }

    void a_panel_of_another_area_leaves_that_one()
    {
        QcDockContainer root(nullptr);
        root.addWidget(NewPanel(1), nullptr, Center);
        QcDockWidget *moving = NewPanel(2);
        root.addWidget(moving, nullptr, Right);
        const QPointer<QcDockArea> old = AreaOf(*moving);
        QcDockArea *first = root.getDockAreaList().first();
        first->addWidget(moving);
        QCOMPARE(first->count(), 2);
        VERIFY_SETTLED();
        QVERIFY(!old);
    }

    void a_page_that_is_there_already_becomes_current()
    {
        QcDockArea area(nullptr);
        QcDockWidget *files = NewPanel(1);
        area.addWidget(files);
        area.addWidget(NewPanel(2));
        area.addWidget(files);
        QCOMPARE(area.count(), 2);
        QCOMPARE(area.currentIndex(), 0);
    }

    void pages_that_are_no_panels_leave_it_empty()
    {
        QcDockArea area(nullptr);
        auto *page = new QWidget; // the area takes it
        area.addWidget(page);
        QCOMPARE(area.count(), 1);
        QVERIFY(area.isEmpty());
        auto *below = new QFrame(page);
        new QcDockWidget(below);
        QVERIFY(!area.isEmpty());
    }

    void a_kept_container_below_a_page_that_is_no_panel_counts()
    {
        QcDockArea area(nullptr);
        auto *page = new QWidget; // the area takes it
        area.addWidget(page);
        auto *kept = new QcDockContainer(page);
        QVERIFY(area.isEmpty());
        kept->setEmptyKeep(true);
        QVERIFY(!area.isEmpty());
    }

    void an_area_that_keeps_an_empty_container_is_not_empty()
    {
        QcDockArea area(nullptr);
        auto *kept = new QcDockContainer(nullptr); // the area takes it
        kept->setEmptyKeep(true);
        area.addWidget(kept);
        QVERIFY(!area.isEmpty());
        kept->setEmptyKeep(false);
        QVERIFY(area.isEmpty());
    }

    // --- Wrappers ---

    void a_panel_given_to_a_wrapper_joins_the_first_area_inside()
    {
        QcDockArea wrapper(nullptr);
        auto *nested = new QcDockContainer(nullptr); // the area takes it
        wrapper.addWidget(nested);
        nested->addWidget(NewPanel(1), nullptr, Center);
        nested->addWidget(NewPanel(2), nullptr, Right);
        QcDockWidget *panel = NewPanel(3);
        wrapper.addWidget(panel);
        QCOMPARE(wrapper.count(), 1);
        QCOMPARE(AreaOf(*panel), nested->getDockAreaList().first());
        QCOMPARE(nested->getDockAreaList().first()->count(), 2);
    }

    void a_container_joins_no_area_that_has_pages()
    {
        QcDockArea area(nullptr);
        area.addWidget(NewPanel(1));
        QcDockContainer refused(nullptr);
        area.addWidget(&refused);
        QCOMPARE(area.count(), 1);
        QVERIFY(!refused.parentWidget());

        QcDockArea wrapper(nullptr);
        wrapper.addWidget(new QcDockContainer(nullptr));
        wrapper.addWidget(&refused);
        QCOMPARE(wrapper.count(), 1);
        QVERIFY(!refused.parentWidget());
    }

    void nothing_is_laid_into_itself()
    {
        QWidget window;
        auto *root = new QcDockContainer(&window);
        QcDockArea *area = root->getDockAreaList().first();
        area->addWidget(area);
        area->addWidget(root);
        area->addWidget(&window);
        QcDockArea other(nullptr);
        area->addWidget(&other); // areas lie in splitters
        QCOMPARE(area->count(), 0);
        QVERIFY(!other.parentWidget() && !window.parentWidget());

        QcDockWidget *panel = NewPanel(1);
        root->addWidget(panel, nullptr, Center);
        DockInside(*panel, 2)->getDockAreaList().first()->addWidget(panel);
        QCOMPARE(AreaOf(*panel), area);
    }

    void docking_inside_of_a_panel_is_a_world_of_its_own()
    {
        QcDockContainer root(nullptr);
        QcDockWidget *panel = NewPanel(1);
        root.addWidget(panel, nullptr, Center);
        QcDockContainer *inner = DockInside(*panel, 2);
        QcDockArea *area = AreaOf(*panel);
        QVERIFY(area->isSupportType(1)); // no wrapper
        QCOMPARE(root.getDockWidgetTypeList(), QList<int>{1});
        QCOMPARE(inner->getDockWidgetTypeList(), QList<int>{2});
        root.resize(300, 200);
        root.show();
        const QColor border = Over(TokenOf(Table::Light, QStringLiteral("border/border_tertairy")));
        QVERIFY(Close(PixelAt(Render(root), QPointF(150, 0.5)), border, 4));
        VERIFY_SETTLED();
    }

    // --- Types ---

    void a_wrapper_takes_no_type()
    {
        QcDockArea wrapper(nullptr);
        wrapper.addWidget(new QcDockContainer(nullptr));
        QVERIFY(!wrapper.isSupportType(0));
        const TypeGroups groups({{1, 2}});
        QVERIFY(!wrapper.isSupportType(1));
        QVERIFY(!wrapper.isSupportType(4));
    }

    void a_group_binds_the_type_that_arrives()
    {
        const TypeGroups groups({{1, 2}, {3}});
        QcDockArea empty(nullptr);
        QVERIFY(empty.isSupportType(1));
        QcDockArea ofTwo(nullptr);
        ofTwo.addWidget(NewPanel(2));
        QVERIFY(ofTwo.isSupportType(1));
        QVERIFY(ofTwo.isSupportType(4));
        QcDockArea ofOne(nullptr);
        ofOne.addWidget(NewPanel(1));
        QVERIFY(!ofOne.isSupportType(3));
        QVERIFY(ofOne.isSupportType(4)); // of no group: joins any area, also one of a group
        QcDockArea ofFour(nullptr);
        ofFour.addWidget(NewPanel(4));
        QVERIFY(!ofFour.isSupportType(1)); // though 4 may join an area of 1
    }

    void a_type_of_two_groups_must_find_the_resident_in_both()
    {
        const TypeGroups groups({{1, 2}, {1, 3}});
        QcDockArea ofTwo(nullptr);
        ofTwo.addWidget(NewPanel(2));
        QVERIFY(!ofTwo.isSupportType(1));
        QcDockArea ofOne(nullptr);
        ofOne.addWidget(NewPanel(1));
        QVERIFY(ofOne.isSupportType(1));
    }

    void without_groups_everything_joins()
    {
        QcDockArea area(nullptr);
        area.addWidget(NewPanel(1));
        QVERIFY(area.isSupportType(2));
    }

    void the_first_tab_decides_whichever_is_selected()
    {
        const TypeGroups groups({{1}, {2}});
        QcDockArea area(nullptr);
        area.addWidget(NewPanel(1));
        area.addWidget(NewPanel(2));
        for (int current : {1, 0, 1}) {
            area.setCurrentIndex(current); // raises the page among its siblings
            QVERIFY(area.isSupportType(1));
            QVERIFY(!area.isSupportType(2));
        }
    }

    void types_are_not_asked_when_a_panel_is_added()
    {
        const TypeGroups groups(QList<QList<int>>{{1}});
        QcDockArea area(nullptr);
        area.addWidget(NewPanel(2));
        QVERIFY(!area.isSupportType(1));
        area.addWidget(NewPanel(1));
        QCOMPARE(area.count(), 2);
    }

    // --- Going ---

    void an_area_without_a_container_stays()
    {
        const QPointer<QcDockArea> area(new QcDockArea(nullptr)); // deleted below
        area->deleteLaterIfEmpty();
        DrainEvents();
        QVERIFY(area);
        delete area;
    }

    void the_default_area_of_a_new_container_stays()
    {
        QcDockContainer root(nullptr);
        const QPointer<QcDockArea> area = root.getDockAreaList().first();
        QVERIFY(area->isEmpty());
        area->deleteLaterIfEmpty();
        VERIFY_SETTLED();
        QVERIFY(area);
        QCOMPARE(root.getDockAreaList(), QList<QcDockArea *>{area});
    }

    void an_area_with_a_panel_stays()
    {
        QcDockContainer root(nullptr);
        root.addWidget(NewPanel(1), nullptr, Center);
        root.addWidget(NewPanel(2), nullptr, Right);
        for (QcDockArea *area : root.getDockAreaList())
            area->deleteLaterIfEmpty();
        DrainEvents();
        QCOMPARE(root.getDockAreaList().size(), 2);
    }

    void an_area_goes_with_its_last_page_by_whatever_road_data()
    {
        QTest::addColumn<QString>("road");
        for (const char *road : {"deleted", "deleted later", "closed", "floated", "given another parent", "moved by code"})
            QTest::newRow(road) << QString::fromLatin1(road);
    }

    void an_area_goes_with_its_last_page_by_whatever_road()
    {
        QFETCH(QString, road);
        QcDockContainer root(nullptr);
        root.addWidget(NewPanel(1), nullptr, Center);
        QcDockWidget *panel = NewPanel(2);
        root.addWidget(panel, nullptr, Right);
        const QPointer<QcDockArea> area = AreaOf(*panel);
        QWidget host;
        if (road == QLatin1String("deleted"))
            delete panel;
        else if (road == QLatin1String("deleted later"))
            panel->deleteLater();
        else if (road == QLatin1String("closed"))
            panel->close();
        else if (road == QLatin1String("floated"))
            panel->swichToFloating();
        else if (road == QLatin1String("given another parent"))
            panel->setParent(&host);
        else
            root.addWidget(panel, root.getDockAreaList().first(), Center);
        const QPointer<QcDockWidget> left(road == QLatin1String("floated") ? panel : nullptr);
        VERIFY_SETTLED();
        QVERIFY(!area);
        QCOMPARE(root.getDockAreaList().size(), 1);
        delete left;
    }

    void a_panel_that_moved_on_and_dies_leaves_its_old_area_alone()
    {
        QcDockContainer root(nullptr);
        QcDockWidget *panel = NewPanel(1);
        root.addWidget(panel, nullptr, Center);
        root.addWidget(NewPanel(2), nullptr, Center);
        const QPointer<QcDockArea> old = AreaOf(*panel);
        root.addWidget(panel, nullptr, Right);
        delete panel;
        VERIFY_SETTLED();
        QVERIFY(old);
        QCOMPARE(old->count(), 1);
    }

    void a_hosts_own_connection_to_a_page_outlives_the_area()
    {
        auto *host = new QObject(this);
        int gone = 0;
        auto *area = new QcDockArea(nullptr); // deleted below
        auto *panel = NewPanel(1);
        connect(panel, &QObject::destroyed, host, [&gone] { ++gone; });
        area->addWidget(panel);
        delete area; // and the panel with it
        QCOMPARE(gone, 1);
        delete host;
    }

    void a_deleted_area_takes_its_place_with_it()
    {
        QcDockContainer root(nullptr);
        root.setEmptyKeep(true);
        root.addWidget(NewPanel(1), nullptr, Center);
        root.addWidget(NewPanel(2), nullptr, Right);
        root.addWidget(NewPanel(3), root.getDockAreaList().at(1), Bottom); // the right one lies in a wrapper now
        auto *nested = qobject_cast<QcDockContainer *>(root.getDockAreaList().at(1)->widget(0));
        QVERIFY(nested);
        const QPointer<QcDockArea> wrapper = root.getDockAreaList().at(1);
        for (QcDockArea *area : nested->getDockAreaList())
            delete area; // by the host, panel and all
        VERIFY_SETTLED();
        QVERIFY(!wrapper);
        QCOMPARE(root.getDockAreaList().size(), 1);
    }

    void a_hosts_own_deletion_of_an_area_stands_data()
    {
        QTest::addColumn<bool>("isAcross");
        QTest::addColumn<int>("position");
        QTest::addColumn<bool>("panelLives");
        QTest::newRow("given a tab") << false << int(NoPosition) << false;
        QTest::newRow("given a tab by its container") << false << int(Center) << false;
        QTest::newRow("given a neighbour along") << false << int(Right) << true;
        QTest::newRow("given a neighbour across") << true << int(Right) << true;
    }

    void a_hosts_own_deletion_of_an_area_stands()
    {
        QFETCH(bool, isAcross);
        QFETCH(int, position);
        QFETCH(bool, panelLives);
        QcDockContainer root(nullptr);
        root.setEmptyKeep(true);
        root.addWidget(NewPanel(1), nullptr, Center);
        for (int i = 0; i < 2; ++i)
            root.addWidget(NewPanel(2), nullptr, isAcross ? Bottom : Right);
        const QPointer<QcDockArea> area = root.getDockAreaList().first();
        area->deleteLater();
        const QPointer<QcDockWidget> panel = NewPanel(3);
        if (position == NoPosition)
            area->addWidget(panel);
        else
            root.addWidget(panel, area, DockPosition(position));
        VERIFY_SETTLED();
        QVERIFY(!area);
        QCOMPARE(bool(panel), panelLives);
        QCOMPARE(root.getDockWidgetCount(3), panelLives ? 1 : 0);
    }

    void a_page_that_comes_and_goes_is_watched_once_by_each_area()
    {
        struct Panel : QcDockWidget
        {
            using QcDockWidget::QcDockWidget;
            int Watchers() const { return receivers(SIGNAL(destroyed(QObject *))); }
        };
        QcDockContainer root(nullptr);
        root.addWidget(NewPanel(1), nullptr, Center);
        root.addWidget(NewPanel(2), nullptr, Right);
        auto *panel = new Panel(nullptr); // goes from one to the other
        const QList<QcDockArea *> areas = root.getDockAreaList();
        for (QcDockArea *area : areas)
            area->addWidget(panel);
        const int watchers = panel->Watchers();
        for (int i = 0; i < 10; ++i)
            areas.at(i % 2)->addWidget(panel);
        QCOMPARE(panel->Watchers(), watchers);
        VERIFY_SETTLED();
    }

    // --- Looks ---

    void the_outline_follows_the_colour_table()
    {
        for (Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            QcDockArea area(nullptr);
            area.resize(80, 60);
            const QColor border = Over(TokenOf(table, QStringLiteral("border/border_tertairy")));
            const QImage image = Render(area);
            QVERIFY(Close(PixelAt(image, QPointF(40, 0.5)), border, 4));
            QVERIFY(Close(PixelAt(image, QPointF(0.5, 30)), border, 4));
            QVERIFY(Close(PixelAt(image, QPointF(40, 59.5)), border, 4));
            QVERIFY(Close(PixelAt(image, QPointF(79.5, 30)), border, 4));
            QCOMPARE(PixelAt(image, QPointF(0.5, 0.5)), QColor(Qt::white)); // rounded
            QImage rounded(image.size(), image.format());
            rounded.setDevicePixelRatio(image.devicePixelRatio());
            rounded.fill(Qt::white);
            QPainter painter(&rounded);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(TokenOf(table, QStringLiteral("border/border_tertairy")));
            painter.drawRoundedRect(QRectF(0.5, 0.5, 79, 59), 4, 4);
            for (const QPointF &corner : {QPointF(0.5, 2.5), QPointF(1.5, 1.5), QPointF(2.5, 0.5)})
                QVERIFY(Close(PixelAt(image, corner), PixelAt(rounded, corner), 2));
        }
        UseTable(Table::Light);
    }

    void a_frames_own_background_and_border_do_not_show()
    {
        QcDockArea area(nullptr);
        area.resize(80, 60);
        const QImage plain = Render(area);
        area.setBackgroundColorParams(QStringLiteral("#FF0000"));
        area.setBorderColorParams(QStringLiteral("#00FF00"));
        area.setBorderSides(QcFrame::Left | QcFrame::Top | QcFrame::Right | QcFrame::Bottom);
        QCOMPARE(Render(area), plain);
    }

    void a_wrapper_has_no_outline()
    {
        QcDockContainer root(nullptr);
        QcDockArea *wrapper = root.getDockAreaList().first();
        wrapper->addWidget(new QcDockContainer(nullptr));
        root.resize(80, 60);
        root.show();
        DrainEvents();
        QCOMPARE(PixelAt(Render(*wrapper, Qt::magenta), QPointF(40, 0.5)), QColor(Qt::magenta));
    }
};

VELMORA_TEST_MAIN(tst_QcDockArea)
#include "tst_QcDockArea.moc"
