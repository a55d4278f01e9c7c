#include "TabStage.h"
#include "support/TestMain.h"

#include <QApplication>

using namespace Velmora;
using namespace VelmoraTest;

/// Panels in a program whose application object is Qt's own: nothing can be posted to it.
class TestDockPlainApplication : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_title_drag_moves_the_panel_without_any_feedback()
    {
        int argc = 1;
        char name[] = "plain";
        char *argv[] = {name, nullptr};
        QApplication application(argc, argv);
        ExpectWarning(
            QStringLiteral("QcStyleManager::RegisterColorHandler: the application object is not a QcApplication, so controls stay "
                           "unpainted and do not follow the colour table; make a QcApplication in its place and call its "
                           "Initialize()."));
        auto *panel = new QcDockWidget;
        panel->setContentWidget(new Content(QStringLiteral("Map")));
        panel->SetWindowFlags();
        panel->setGeometry(0, 0, 300, 200);
        panel->show();
        QVERIFY(QTest::qWaitForWindowActive(panel));
        Mouse mouse;
        mouse.PressAt(*panel, QPoint(100, 15));
        mouse.MoveBy(5, 7);
        QCOMPARE(panel->pos(), QPoint(5, 7));
        QVERIFY(panel->property("draging").toBool());
        DrainEvents();
        QVERIFY(!PartOf(*panel, "m_dragTipLabel")->isVisible());
        mouse.Release();
        DrainEvents();
        QVERIFY(!panel->property("draging").toBool());
        QVERIFY(!panel->property("window").isValid()); // the end of the drag is posted too
        delete panel;
    }
};

VELMORA_BARE_TEST_MAIN(TestDockPlainApplication)
#include "tst_DockPlainApplication.moc"
