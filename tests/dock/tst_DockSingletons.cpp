#include "support/CommandLine.h"
#include "support/TestMain.h"

#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockController.h>
#include <Velmora/QcDockDragController.h>

#include <QPointer>

#include <memory>

using namespace Velmora;
using VelmoraTest::commandLine;

/// What is never deleted must stand the end of the application object, and what a host still does then.
class tst_DockSingletons : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void both_controllers_outlive_the_application()
    {
        QPointer<QObject> controller;
        QPointer<QObject> drags;
        {
            const QcApplication application(commandLine.count, commandLine.values);
            controller = QcDockController::instance();
            drags = QcDockDragController::instance();
            QcDockContainer root;
            QcDockController::instance()->setRootDockContainer(&root);
        }
        QVERIFY(controller && controller == QcDockController::instance());
        QVERIFY(drags && drags == QcDockDragController::instance());
        QVERIFY(!QcDockController::instance()->getRootDockContainer());
        QcDockController::instance()->setJsonFilePath(QStringLiteral("unused"));
        QCOMPARE(QcDockController::instance()->toJson(nullptr), QString());
    }
};

VELMORA_BARE_TEST_MAIN(tst_DockSingletons)
#include "tst_DockSingletons.moc"
