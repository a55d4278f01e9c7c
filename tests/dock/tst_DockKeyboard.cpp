#include <Velmora/QcDockArea.h>
#include <Velmora/QcIconButton.h>

#include "DockStage.h"
#include "DockTestCase.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLineEdit>
#include <QShortcut>
#include <QSignalSpy>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// Three tabs, A to C, the second current, in an active window.
class ThreeTabs : public TabStage
{
public:
    ThreeTabs()
        : TabStage({"A", "B", "C"})
    {
        frame->setCurrentIndex(1);
    }

    Content *ContentAt(int index) const { return ContentOf(static_cast<QcDockWidget *>(frame->widget(index))); }
};

/// A registered root of two areas, the right one split once more across, and a floating panel.
class Tree : public DockStage
{
public:
    Tree()
        : left(Add(QStringLiteral("Left")))
        , right(Add(QStringLiteral("Right"), Right))
        , below(NewPanel(QStringLiteral("Below")))
        , floating(NewPanel(QStringLiteral("Floating")))
    {
        root->addWidget(below, right, Bottom);
        root->addWidget(floating, left, Center);
    }

    bool Show()
    {
        if (!DockStage::Show())
            return false;
        floating->swichToFloating();
        DrainEvents();
        QApplication::setActiveWindow(&window);
        left->getContentWidget()->setFocus();
        DrainEvents();
        return QApplication::focusWidget() == left->getContentWidget();
    }

    QcDockWidget *const left;
    QcDockWidget *const right;
    QcDockWidget *const below;
    QcDockWidget *const floating;
};

void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    QCoreApplication::processEvents();
}

} // namespace

class TestDockKeyboard : public DockTestCase
{
    Q_OBJECT

private Q_SLOTS:
    // --- On a tab ---

    void arrows_home_and_end_select_tabs_data()
    {
        QTest::addColumn<bool>("rightToLeft");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("tabs");
        QTest::newRow("left") << false << int(Qt::Key_Left) << QStringLiteral("[A] B C");
        QTest::newRow("right") << false << int(Qt::Key_Right) << QStringLiteral("A B [C]");
        QTest::newRow("home") << false << int(Qt::Key_Home) << QStringLiteral("[A] B C");
        QTest::newRow("end") << false << int(Qt::Key_End) << QStringLiteral("A B [C]");
        QTest::newRow("left, from right to left") << true << int(Qt::Key_Left) << QStringLiteral("A B [C]");
        QTest::newRow("right, from right to left") << true << int(Qt::Key_Right) << QStringLiteral("[A] B C");
    }
    void arrows_home_and_end_select_tabs()
    {
        QFETCH(bool, rightToLeft);
        QFETCH(int, key);
        ThreeTabs stage;
        stage.window.setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
        QVERIFY(stage.Show());
        stage.Tab(1)->setFocus();
        Press(key);
        QTEST(stage.Tabs(), "tabs");
        QTEST(stage.Pages(), "tabs");
        QCOMPARE(QApplication::focusWidget(), stage.Tab(stage.frame->currentIndex()));
        Press(key); // at the end already
        QTEST(stage.Tabs(), "tabs");
    }

    void tab_leads_to_the_tab_that_was_chosen_by_keys()
    {
        ThreeTabs stage;
        QVERIFY(stage.Show());
        stage.Tab(1)->setFocus();
        Press(Qt::Key_Right);
        QCOMPARE(stage.Tab(2)->focusPolicy(), Qt::TabFocus);
        QCOMPARE(stage.Tab(1)->focusPolicy(), Qt::NoFocus);
    }

    void delete_closes_the_page_and_leaves_the_focus_in_the_row()
    {
        ThreeTabs stage;
        QVERIFY(stage.Show());
        stage.Tab(1)->setFocus();
        stage.ContentAt(1)->refusesClose = true;
        Press(Qt::Key_Delete);
        QCOMPARE(stage.ContentAt(1)->closes, 1);
        QCOMPARE(stage.Tabs(), QStringLiteral("A [B] C"));
        stage.ContentAt(1)->refusesClose = false;
        Press(Qt::Key_Delete);
        QCOMPARE(stage.Tabs(), QStringLiteral("A [C]"));
        QCOMPARE(QApplication::focusWidget(), stage.Tab(1));
    }

    void keys_on_the_close_button_of_a_tab_are_not_the_tabs()
    {
        ThreeTabs stage;
        QVERIFY(stage.Show());
        QWidget *close = PartOf(*stage.Tab(1), "m_closeButton");
        for (const int key : {Qt::Key_Delete, Qt::Key_Home, Qt::Key_End}) {
            close->setFocus();
            Press(key);
            QCOMPARE(stage.ContentAt(1)->closes, 0);
            QCOMPARE(stage.Tabs(), QStringLiteral("A [B] C"));
            QCOMPARE(QApplication::focusWidget(), close);
        }
    }

    void delete_in_the_page_closes_nothing()
    {
        ThreeTabs stage;
        QVERIFY(stage.Show());
        stage.ContentAt(1)->setFocus();
        Press(Qt::Key_Delete);
        QCOMPARE(stage.ContentAt(1)->closes, 0);
    }

    // --- In the page ---

    void keys_step_through_the_tabs_and_around_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QStringList>("steps");
        const QStringList onward = {QStringLiteral("A B [C]"), QStringLiteral("[A] B C")};
        const QStringList back = {QStringLiteral("[A] B C"), QStringLiteral("A B [C]")};
        QTest::newRow("Ctrl+Tab") << int(Qt::Key_Tab) << int(Qt::ControlModifier) << onward;
        QTest::newRow("Ctrl+Shift+Tab") << int(Qt::Key_Backtab) << int(Qt::ControlModifier | Qt::ShiftModifier) << back;
        QTest::newRow("Ctrl+PageDown") << int(Qt::Key_PageDown) << int(Qt::ControlModifier) << onward;
        QTest::newRow("Ctrl+PageUp") << int(Qt::Key_PageUp) << int(Qt::ControlModifier) << back;
    }
    void keys_step_through_the_tabs_and_around()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(QStringList, steps);
        for (const bool fromRow : {false, true}) {
            ThreeTabs stage;
            QVERIFY(stage.Show());
            if (fromRow)
                stage.Tab(1)->setFocus();
            else
                stage.ContentAt(1)->setFocus();
            for (const QString &step : qAsConst(steps)) {
                Press(key, Qt::KeyboardModifiers(modifiers));
                QCOMPARE(stage.Pages(), step);
                const int current = stage.frame->currentIndex();
                QWidget *expected = fromRow ? static_cast<QWidget *>(stage.Tab(current)) : stage.ContentAt(current);
                QCOMPARE(QApplication::focusWidget(), expected);
            }
        }
    }

    void control_w_closes_the_page_and_leads_to_the_next()
    {
        ThreeTabs stage;
        QVERIFY(stage.Show());
        stage.ContentAt(1)->setFocus();
        Press(Qt::Key_W, Qt::ControlModifier);
        QCOMPARE(stage.Tabs(), QStringLiteral("A [C]"));
        QCOMPARE(QApplication::focusWidget(), stage.ContentAt(1));
    }

    void a_key_that_the_content_uses_is_not_taken()
    {
        struct Greedy : QWidget
        {
            QList<int> keys;
            void keyPressEvent(QKeyEvent *event) override
            {
                if (event->key() != Qt::Key_Control)
                    keys.append(event->key());
            }
        };
        ThreeTabs stage;
        QVERIFY(stage.Show());
        auto *greedy = new Greedy;
        greedy->setFocusPolicy(Qt::StrongFocus);
        static_cast<QcDockWidget *>(stage.frame->widget(1))->setContentWidget(greedy);
        greedy->show();
        greedy->setFocus();
        const QList<int> keys = {Qt::Key_W, Qt::Key_PageUp, Qt::Key_PageDown};
        for (const int key : keys)
            Press(key, Qt::ControlModifier);
        QCOMPARE(greedy->keys, keys);
        QCOMPARE(stage.frame->count(), 3);
        QCOMPARE(stage.frame->currentIndex(), 1);
    }

    void a_key_that_the_host_uses_is_not_taken()
    {
        ThreeTabs stage;
        QVERIFY(stage.Show());
        const QShortcut shortcut(QKeySequence(QStringLiteral("Ctrl+W")), &stage.window);
        const QSignalSpy uses(&shortcut, &QShortcut::activated);
        stage.ContentAt(1)->setFocus();
        QTest::keyClick(stage.window.windowHandle(), Qt::Key_W, Qt::ControlModifier);
        QCOMPARE(uses.count(), 1);
        QCOMPARE(stage.Tabs(), QStringLiteral("A [B] C"));
    }

    void without_tabs_the_keys_are_the_hosts()
    {
        class Host : public QWidget
        {
        public:
            int keys = 0;

        protected:
            void keyPressEvent(QKeyEvent *event) override { keys += event->key() != Qt::Key_Control; }
        };
        Host host;
        auto *frame = new QcDockAreaTabFrame(&host);
        QcDockWidget *panel = NewPanel(QStringLiteral("Only"));
        frame->addTab(QStringLiteral("Only"), panel);
        host.show();
        QVERIFY(QTest::qWaitForWindowActive(&host));
        panel->getContentWidget()->setFocus();
        Press(Qt::Key_W, Qt::ControlModifier);
        Press(Qt::Key_Tab, Qt::ControlModifier);
        Press(Qt::Key_F6);
        Press(Qt::Key_X);
        QCOMPARE(host.keys, 4);
        QCOMPARE(ContentOf(panel)->closes, 0);
    }

    // --- Between areas ---

    void f6_goes_round_the_areas_and_the_floating_panels()
    {
        Tree tree;
        QVERIFY(tree.Show());
        for (QcDockWidget *panel : {tree.right, tree.below, tree.floating, tree.left}) {
            Press(Qt::Key_F6);
            QTRY_COMPARE(QApplication::focusWidget(), panel->getContentWidget());
        }
        for (QcDockWidget *panel : {tree.floating, tree.below, tree.right, tree.left}) {
            Press(Qt::Key_F6, Qt::ShiftModifier);
            QTRY_COMPARE(QApplication::focusWidget(), panel->getContentWidget());
        }
        Press(Qt::Key_F6, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), tree.left->getContentWidget());
        VERIFY_SETTLED();
    }

    void f6_finds_what_had_the_focus_before()
    {
        Tree tree;
        auto *edits = new QWidget;
        auto *first = new QLineEdit(edits);
        auto *second = new QLineEdit(edits);
        Q_UNUSED(first)
        tree.right->setContentWidget(edits);
        QVERIFY(tree.Show());
        second->setFocus();
        Press(Qt::Key_F6, Qt::ShiftModifier);
        QTRY_COMPARE(QApplication::focusWidget(), tree.left->getContentWidget());
        Press(Qt::Key_F6);
        QTRY_COMPARE(QApplication::focusWidget(), second);
    }

    void f6_passes_by_a_hidden_floating_panel()
    {
        Tree tree;
        QVERIFY(tree.Show());
        tree.floating->hide();
        Press(Qt::Key_F6, Qt::ShiftModifier);
        QTRY_COMPARE(QApplication::focusWidget(), tree.below->getContentWidget());
    }

    void a_floating_panel_opens_with_the_focus_in_its_content()
    {
        QcDockWidget panel;
        auto *content = new QWidget;
        auto *first = new QLineEdit(content);
        auto *second = new QLineEdit(content);
        panel.setContentWidget(content);
        panel.SetWindowFlags();
        panel.show();
        QVERIFY(QTest::qWaitForWindowActive(&panel));
        QCOMPARE(QApplication::focusWidget(), first);
        Press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), second);
        Press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), PartOf(panel, "m_titleFrame")->findChild<QcIconButton *>());
        Press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), first);
    }

    void what_is_put_into_a_content_later_comes_before_the_close_button_too()
    {
        QcDockWidget panel;
        auto *content = new QWidget;
        panel.setContentWidget(content);
        auto *first = new QLineEdit(content);
        new QLabel(content);
        panel.SetWindowFlags();
        panel.show();
        QVERIFY(QTest::qWaitForWindowActive(&panel));
        QCOMPARE(QApplication::focusWidget(), first);
        auto *second = new QLineEdit(content);
        second->show();
        QWidget *close = PartOf(panel, "m_titleFrame")->findChild<QcIconButton *>();
        for (QWidget *next : {static_cast<QWidget *>(second), close, static_cast<QWidget *>(first)}) {
            Press(Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), next);
        }
        for (QWidget *next : {close, static_cast<QWidget *>(second)}) {
            Press(Qt::Key_Backtab, Qt::ShiftModifier);
            QCOMPARE(QApplication::focusWidget(), next);
        }
    }

    void f6_finds_what_was_clicked_though_it_came_later()
    {
        Tree tree;
        QVERIFY(tree.Show());
        auto *late = new QLineEdit(tree.right->getContentWidget());
        late->show();
        QTest::mouseClick(late, Qt::LeftButton);
        QCOMPARE(QApplication::focusWidget(), late);
        Press(Qt::Key_F6, Qt::ShiftModifier);
        QTRY_COMPARE(QApplication::focusWidget(), tree.left->getContentWidget());
        Press(Qt::Key_F6);
        QTRY_COMPARE(QApplication::focusWidget(), late);
        tree.right->swichToFloating();
        QTRY_COMPARE(QApplication::focusWidget(), late);
        VERIFY_SETTLED();
    }

    // --- The middle button ---

    void a_middle_click_closes_any_tab_and_asks_its_content()
    {
        ThreeTabs stage;
        QVERIFY(stage.Show());
        stage.ContentAt(0)->refusesClose = true;
        QTest::mouseClick(stage.Tab(0), Qt::MiddleButton);
        QCOMPARE(stage.ContentAt(0)->closes, 1);
        QCOMPARE(stage.Tabs(), QStringLiteral("A [B] C"));
        stage.ContentAt(0)->refusesClose = false;
        QTest::mouseClick(stage.Tab(0), Qt::MiddleButton);
        QCOMPARE(stage.Tabs(), QStringLiteral("[B] C"));
    }

    void a_frame_may_die_when_a_middle_click_asks_a_content()
    {
        ThreeTabs stage;
        QVERIFY(stage.Show());
        QWidget keeper;
        Content *content = stage.ContentAt(0);
        content->whenAsked = [&] {
            content->setParent(&keeper);
            delete stage.frame;
        };
        QTest::mouseClick(stage.Tab(0), Qt::MiddleButton);
        QCOMPARE(content->closes, 1);
    }

    void a_middle_click_on_the_close_button_is_not_the_tabs()
    {
        ThreeTabs stage;
        QVERIFY(stage.Show());
        QTest::mouseClick(PartOf(*stage.Tab(1), "m_closeButton"), Qt::MiddleButton);
        QCOMPARE(stage.ContentAt(1)->closes, 0);
        QCOMPARE(stage.Tabs(), QStringLiteral("A [B] C"));
    }

    void a_middle_button_released_elsewhere_closes_nothing()
    {
        ThreeTabs stage;
        QVERIFY(stage.Show());
        QTest::mousePress(stage.Tab(0), Qt::MiddleButton, Qt::NoModifier, QPoint(20, 15));
        QTest::mouseRelease(stage.Tab(0), Qt::MiddleButton, Qt::NoModifier, QPoint(20, 300));
        QTest::mouseRelease(stage.Tab(1), Qt::MiddleButton, Qt::NoModifier, QPoint(20, 15));
        QCOMPARE(stage.Tabs(), QStringLiteral("A [B] C"));
    }

    void a_tab_that_goes_between_press_and_release_leaves_the_next_one_open()
    {
        ThreeTabs stage;
        QVERIFY(stage.Show());
        QTest::mousePress(stage.Tab(0), Qt::MiddleButton, Qt::NoModifier, QPoint(20, 15));
        delete stage.frame->widget(0);
        DrainEvents();
        QTest::mouseRelease(stage.Tab(0), Qt::MiddleButton, Qt::NoModifier, QPoint(20, 15));
        QCOMPARE(stage.Tabs(), QStringLiteral("[B] C"));
    }
};

VELMORA_TEST_MAIN(TestDockKeyboard)
#include "tst_DockKeyboard.moc"
