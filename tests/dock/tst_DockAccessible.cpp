#include <Velmora/QcDockContainer.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcSplitter.h>

#include "DockTestCase.h"
#include "TabStage.h"
#include "support/AccessibleEvents.h"
#include "support/TestMain.h"

#include <QAccessible>
#include <QApplication>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

QAccessibleInterface *Seen(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

QString NameOf(QObject *object)
{
    return Seen(object)->text(QAccessible::Name);
}

} // namespace

class TestDockAccessible : public DockTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_panel_is_a_pane_called_by_its_title()
    {
        QcDockWidget panel;
        panel.setContentWidget(new Content(QStringLiteral("Map")));
        QCOMPARE(Seen(&panel)->role(), QAccessible::Pane);
        QCOMPARE(NameOf(&panel), QStringLiteral("Map"));
        panel.getContentWidget()->setWindowTitle(QStringLiteral("Atlas"));
        QCOMPARE(NameOf(&panel), QStringLiteral("Atlas"));
        panel.setAccessibleName(QStringLiteral("The host's"));
        QCOMPARE(NameOf(&panel), QStringLiteral("The host's"));
    }

    void a_row_is_a_list_of_tabs_called_by_their_whole_titles()
    {
        TabStage stage;
        const QString title = QStringLiteral("A title that is much longer than its tab will ever be wide");
        stage.Add(title);
        stage.Add(QStringLiteral("B"));
        QVERIFY(stage.Show());
        QCOMPARE(Seen(stage.Row())->role(), QAccessible::PageTabList);
        QCOMPARE(Seen(stage.Row())->childCount(), 2);
        for (int i = 0; i < 2; ++i)
            QCOMPARE(Seen(stage.Row())->child(i)->role(), QAccessible::PageTab);
        QCOMPARE(NameOf(stage.Tab(0)), title);
        stage.Tab(1)->setAccessibleName(QStringLiteral("The host's"));
        QCOMPARE(NameOf(stage.Tab(1)), QStringLiteral("The host's"));
        QVERIFY(Seen(stage.Tab(0))->state().selectable);
        QVERIFY(!Seen(stage.Tab(0))->state().selected);
        QVERIFY(Seen(stage.Tab(1))->state().selected);
    }

    void a_reader_selects_a_tab()
    {
        TabStage stage({"A", "B"});
        QVERIFY(stage.Show());
        QAccessibleActionInterface *actions = Seen(stage.Tab(0))->actionInterface();
        QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
        actions->doAction(QAccessibleActionInterface::pressAction());
        QTRY_COMPARE(stage.Pages(), QStringLiteral("[A] B"));
    }

    void a_tab_that_goes_before_its_turn_selects_nothing()
    {
        TabStage stage;
        const QPointer<QcDockWidget> panel = stage.Add(QStringLiteral("A"));
        stage.Add(QStringLiteral("B"));
        stage.Add(QStringLiteral("C"));
        QVERIFY(stage.Show());
        Seen(stage.Tab(0))->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        const auto removed = stage.frame->removeTab(0);
        delete removed.first;
        delete removed.second;
        DrainEvents();
        QCOMPARE(stage.Pages(), QStringLiteral("B [C]"));
    }

    void a_selection_and_a_new_title_are_told()
    {
        TabStage stage;
        QcDockWidget *panel = stage.Add(QStringLiteral("A"));
        stage.Add(QStringLiteral("B"));
        QVERIFY(stage.Show());
        AccessibleEvents told(*stage.Tab(0));
        stage.frame->setCurrentIndex(0);
        QVERIFY(told.Take().contains(QStringLiteral("Selection")));
        panel->getContentWidget()->setWindowTitle(QStringLiteral("C"));
        QCOMPARE(told.Take(), QStringList(QStringLiteral("NameChanged")));
    }

    void the_tab_that_is_left_is_told_to_have_changed_too()
    {
        TabStage stage;
        stage.Add(QStringLiteral("A"));
        stage.Add(QStringLiteral("B"));
        QVERIFY(stage.Show());
        AccessibleEvents told(*stage.Tab(1));
        stage.frame->setCurrentIndex(0);
        const QStringList events = told.Take();
        QVERIFY(events.contains(QStringLiteral("StateChanged")));
        QVERIFY(!events.contains(QStringLiteral("Selection")));
        QVERIFY(!Seen(stage.Tab(1))->state().selected);
    }

    void a_row_has_its_tabs_in_their_order_whatever_comes_and_goes()
    {
        TabStage stage;
        for (const char *title : {"A", "B", "C"})
            stage.Add(QLatin1String(title));
        QVERIFY(stage.Show());
        const auto names = [&stage] {
            QStringList found;
            for (int i = 0; i < Seen(stage.Row())->childCount(); ++i)
                found.append(Seen(stage.Row())->child(i)->text(QAccessible::Name));
            return found;
        };
        QCOMPARE(names(), QStringList({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
        delete stage.frame->widget(1);
        DrainEvents();
        stage.Add(QStringLiteral("D"));
        DrainEvents();
        QCOMPARE(names(), QStringList({QStringLiteral("A"), QStringLiteral("C"), QStringLiteral("D")}));
    }

    void only_the_selected_tab_and_page_are_seen_and_only_that_tab_takes_the_focus()
    {
        TabStage stage;
        QcDockWidget *first = stage.Add(QStringLiteral("A"));
        QcDockWidget *second = stage.Add(QStringLiteral("B"));
        QVERIFY(stage.Show());
        QVERIFY(Seen(first)->state().invisible);
        QVERIFY(!Seen(second)->state().invisible);
        QVERIFY(Seen(PartOf(*stage.Tab(0), "m_closeButton"))->state().invisible);
        QVERIFY(!Seen(PartOf(*stage.Tab(1), "m_closeButton"))->state().invisible);
        QVERIFY(!Seen(stage.Tab(0))->state().focusable);
        QVERIFY(Seen(stage.Tab(1))->state().focusable);
        QVERIFY(!Seen(stage.Tab(1))->state().focused);
        stage.Tab(1)->setFocus(Qt::TabFocusReason);
        QVERIFY(Seen(stage.Tab(1))->state().focused);
    }

    void a_reader_steps_through_the_tabs_and_closes_them()
    {
        TabStage stage;
        QPointer<QcDockWidget> first = stage.Add(QStringLiteral("A"));
        QPointer<QcDockWidget> second = stage.Add(QStringLiteral("B"));
        QVERIFY(stage.Show());
        const auto press = [](QWidget *button) { Seen(button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction()); };
        QVERIFY(Seen(PartOf(*stage.frame, "m_rightButton"))->state().disabled);
        press(PartOf(*stage.frame, "m_leftButton"));
        QTRY_COMPARE(stage.Tabs(), QStringLiteral("[A] B"));
        QVERIFY(Seen(PartOf(*stage.frame, "m_leftButton"))->state().disabled);
        press(PartOf(*stage.Tab(0), "m_closeButton"));
        QTRY_VERIFY(!first);
        press(TitleRowOf(*second)->findChild<QcIconButton *>());
        QTRY_VERIFY(!second);
    }

    void a_close_button_that_is_forbidden_says_so()
    {
        QcDockWidget panel;
        auto *content = new Content(QStringLiteral("Map"));
        content->setProperty("dock_widget_close_forbidden", true);
        panel.setContentWidget(content);
        QVERIFY(Seen(TitleRowOf(panel)->findChild<QcIconButton *>())->state().disabled);
    }

    void a_panels_new_title_is_told()
    {
        QcDockWidget panel;
        panel.setContentWidget(new Content(QStringLiteral("Map")));
        AccessibleEvents told(panel);
        panel.getContentWidget()->setWindowTitle(QStringLiteral("Atlas"));
        QCOMPARE(told.Take().count(QStringLiteral("NameChanged")), 1);
    }

    void the_small_buttons_have_names()
    {
        TabStage stage;
        QcDockWidget *panel = stage.Add(QStringLiteral("Map"));
        stage.Add(QStringLiteral("Atlas"));
        QVERIFY(stage.Show());
        QCOMPARE(NameOf(TitleRowOf(*panel)->findChild<QcIconButton *>()), QStringLiteral("Close Map"));
        QCOMPARE(NameOf(PartOf(*stage.Tab(1), "m_closeButton")), QStringLiteral("Close Atlas"));
        QCOMPARE(NameOf(PartOf(*stage.frame, "m_leftButton")), QStringLiteral("Previous tab"));
        QCOMPARE(NameOf(PartOf(*stage.frame, "m_rightButton")), QStringLiteral("Next tab"));
        panel->getContentWidget()->setWindowTitle(QStringLiteral("Plan"));
        QCOMPARE(NameOf(PartOf(*stage.Tab(0), "m_closeButton")), QStringLiteral("Close Plan"));
        QCOMPARE(NameOf(TitleRowOf(*panel)->findChild<QcIconButton *>()), QStringLiteral("Close Plan"));
    }

    void tab_reaches_every_part_of_the_row_and_the_page()
    {
        TabStage stage({"A", "B", "C"});
        QVERIFY(stage.Show());
        stage.frame->setCurrentIndex(1);
        stage.frame->widget(1)->setFocus();
        QSet<QWidget *> reached;
        for (int i = 0; i < 12; ++i) {
            reached.insert(QApplication::focusWidget());
            QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &stage.window, Qt::Key_Tab);
        }
        QVERIFY(reached.contains(stage.Tab(1)));
        QVERIFY(!reached.contains(stage.Tab(0))); // the arrow keys lead there
        QVERIFY(reached.contains(PartOf(*stage.Tab(1), "m_closeButton")));
        QVERIFY(reached.contains(PartOf(*stage.frame, "m_leftButton")));
        QVERIFY(reached.contains(PartOf(*stage.frame, "m_rightButton")));
        QVERIFY(reached.contains(static_cast<QcDockWidget *>(stage.frame->widget(1))->getContentWidget()));
    }

    void tab_reaches_every_panel_close_button_and_handle_of_a_container_and_comes_round()
    {
        QWidget window;
        auto *root = new QcDockContainer(&window);
        auto *layout = new QHBoxLayout(&window);
        layout->addWidget(root);
        QcDockWidget *files = NewPanel(QStringLiteral("Files"));
        QcDockWidget *output = NewPanel(QStringLiteral("Output"));
        QcDockWidget *map = NewPanel(QStringLiteral("Map"));
        root->addWidget(files, nullptr, Center);
        root->addWidget(map, files, Right);
        root->addWidget(output, map, Bottom);
        window.resize(600, 400);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QSet<QWidget *> expected;
        for (QcDockWidget *panel : {files, output, map})
            expected << panel->getContentWidget() << TitleRowOf(*panel)->findChild<QcIconButton *>();
        const auto splitters = root->findChildren<QcSplitter *>();
        QCOMPARE(splitters.size(), 2);
        for (QcSplitter *splitter : splitters)
            expected << splitter->handle(1);

        files->getContentWidget()->setFocus();
        QSet<QWidget *> reached;
        do {
            reached.insert(QApplication::focusWidget());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } while (QApplication::focusWidget() != files->getContentWidget() && reached.size() <= expected.size());
        QCOMPARE(QApplication::focusWidget(), files->getContentWidget());
        QCOMPARE(reached, expected);
    }

    void tab_reaches_the_close_button_of_a_title_row()
    {
        TabStage stage;
        QcDockWidget *panel = stage.Add(QStringLiteral("A"));
        QVERIFY(stage.Show());
        auto *close = TitleRowOf(*panel)->findChild<QcIconButton *>();
        for (int i = 0; i < 4 && QApplication::focusWidget() != close; ++i)
            QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &stage.window, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), close);
    }
};

VELMORA_TEST_MAIN(TestDockAccessible)
#include "tst_DockAccessible.moc"
