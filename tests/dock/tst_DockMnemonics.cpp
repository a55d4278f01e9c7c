#include "TabStage.h"
#include "support/Cues.h"
#include "support/TestMain.h"

#include <QAccessible>

using namespace Velmora;
using namespace VelmoraTest;

class TestDockMnemonics : public TestCase
{
    Q_OBJECT

protected:
    void SetUp() override { m_style->underlines = false; }

private Q_SLOTS:
    void initTestCase() { m_style = QuietStyle::Install(); }

    void a_tab_shows_its_title_without_the_marks()
    {
        QcDockAreaTabBarButton plain;
        plain.setGeometry(0, 0, 200, 30);
        plain.setText(QStringLiteral("Files & more"));
        const QImage expected = Render(plain); // without cues as it stands
        QcDockAreaTabBarButton tab;
        tab.setGeometry(0, 0, 200, 30);
        tab.setText(QStringLiteral("&Files && more"));
        const QImage asItStands = Render(tab);
        QVERIFY(asItStands != expected);
        {
            const Cues cues;
            QCOMPARE(Render(tab), expected);
            m_style->underlines = true;
            QVERIFY(Render(tab) != expected);
        }
        QCOMPARE(Render(tab), asItStands);
    }

    void the_marked_letter_of_a_tab_selects_it()
    {
        const Cues cues;
        TabStage stage({"&Files", "&Search"});
        QVERIFY(stage.Show());
        QCOMPARE(stage.frame->currentIndex(), 1);
        QTest::keyClick(&stage.window, Qt::Key_F, Qt::AltModifier);
        QTRY_COMPARE(stage.frame->currentIndex(), 0);
        // A title that changes takes another letter.
        stage.frame->widget(1)->setWindowTitle(QStringLiteral("Sear&ch"));
        QTest::keyClick(&stage.window, Qt::Key_C, Qt::AltModifier);
        QTRY_COMPARE(stage.frame->currentIndex(), 1);
    }

    void without_cues_a_tab_has_no_key_but_a_hosts()
    {
        QcDockAreaTabBarButton tab;
        QcDockAreaTabBarButton other;
        const QKeySequence own(QStringLiteral("Ctrl+1"));
        tab.setText(QStringLiteral("&Files"));
        other.setShortcut(own);
        other.setText(QStringLiteral("&Search"));
        QCOMPARE(tab.shortcut(), QKeySequence());
        QCOMPARE(other.shortcut(), own);
        {
            const Cues cues;
            QCOMPARE(tab.shortcut(), QKeySequence(QStringLiteral("Alt+F")));
            QCOMPARE(other.shortcut(), QKeySequence(QStringLiteral("Alt+S")));
            other.setShortcut(own);
        }
        QCOMPARE(tab.shortcut(), QKeySequence());
        QCOMPARE(other.shortcut(), own);
    }

    void the_title_row_of_a_panel_shows_its_title_without_the_marks()
    {
        QcDockWidget panel;
        panel.setWindowTitle(QStringLiteral("&Files && more"));
        const auto *title = PartOf<QLabel>(panel, "m_titleLabel");
        QCOMPARE(title->text(), QStringLiteral("&Files && more"));
        {
            const Cues cues;
            QCOMPARE(title->text(), QStringLiteral("Files & more"));
            panel.setWindowTitle(QStringLiteral("Sear&ch"));
            QCOMPARE(title->text(), QStringLiteral("Search"));
        }
        QCOMPARE(title->text(), QStringLiteral("Sear&ch"));
        QCOMPARE(panel.windowTitle(), QStringLiteral("Sear&ch"));
    }

    void assistive_technology_reads_the_title_that_is_shown()
    {
        const TabStage stage({"&Files", "&Search"});
        QWidget *panel = stage.frame->widget(0);
        QWidget *tab = stage.Tab(0);
        const auto nameOf = [](QWidget *widget) { return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name); };
        const auto closeNameOf = [&](QWidget *widget) { return nameOf(widget->findChild<QcIconButton *>()); };
        QCOMPARE(nameOf(panel), QStringLiteral("&Files"));
        QCOMPARE(nameOf(tab), QStringLiteral("&Files"));
        const Cues cues;
        QCOMPARE(nameOf(panel), QStringLiteral("Files"));
        QCOMPARE(nameOf(tab), QStringLiteral("Files"));
        QCOMPARE(closeNameOf(panel), QStringLiteral("Close Files"));
        QCOMPARE(closeNameOf(tab), QStringLiteral("Close Files"));
        QCOMPARE(QAccessible::queryAccessibleInterface(tab)->text(QAccessible::Accelerator), QStringLiteral("Alt+F"));
    }

private:
    QuietStyle *m_style = nullptr;
};

VELMORA_TEST_MAIN(TestDockMnemonics)

#include "tst_DockMnemonics.moc"
