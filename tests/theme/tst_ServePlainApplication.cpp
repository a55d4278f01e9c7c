#include "support/FontLines.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/PlainApplication.h>
#include <Velmora/PostOwnedTask.h>
#include <Velmora/QcPrimaryButton.h>

#include <QApplication>
#include <QCursor>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

int argc = 1;
char name[] = "tst_ServePlainApplication";
char *argv[] = {name, nullptr};

/// How often a handler runs for one change of the table.
int RunsPerChange()
{
    QWidget widget;
    int runs = 0;
    QcStyleManager::GetInstance()->RegisterColorHandler(&widget, [&runs] { ++runs; });
    widget.show();
    DrainEvents();
    runs = 0;
    UseTable(Table::Dark);
    DrainEvents();
    const int result = runs;
    UseTable(Table::Light);
    DrainEvents();
    return result;
}

} // namespace

/// Programs whose application object is not theirs to choose: each test makes its own.
class tst_ServePlainApplication : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void nothing_is_served_without_an_application_for_widgets()
    {
        QVERIFY(!ServePlainApplication());
        QCoreApplication application(argc, argv);
        QVERIFY(!ServePlainApplication());
    }

    void controls_are_painted_and_follow_the_table_once_served()
    {
        QApplication application(argc, argv);
        UseTable(Table::Light);
        ExpectFontLines(Log());
        QVERIFY(ServePlainApplication());
        QCursor::setPos(700, 500); // no hover
        QcPrimaryButton button;
        button.resize(80, 24);
        button.show();
        DrainEvents();
        COMPARE_COLOR(PixelAt(Render(button), {8, 4}), TokenOf(Table::Light, "brand/brand"));
        UseTable(Table::Dark);
        DrainEvents();
        COMPARE_COLOR(PixelAt(Render(button), {8, 4}), TokenOf(Table::Dark, "brand/brand"));
        UseTable(Table::Light);
    }

    void serving_twice_is_serving_once()
    {
        QApplication application(argc, argv);
        ExpectFontLines(Log());
        QVERIFY(ServePlainApplication());
        QVERIFY(!ServePlainApplication());
        QCOMPARE(RunsPerChange(), 1);
    }

    void the_rest_of_the_program_stays_as_it_is()
    {
        QApplication application(argc, argv);
        application.setStyleSheet("QLabel { color: red; }");
        ExpectFontLines(Log());
        ServePlainApplication();
        QCOMPARE(application.styleSheet(), QStringLiteral("QLabel { color: red; }"));
        QWidget first;
        QWidget second;
        first.show();
        second.show();
        QVERIFY(QTest::qWaitForWindowActive(&second));
        QTest::mousePress(&first, Qt::LeftButton);
        DrainEvents();
        QVERIFY(second.isActiveWindow());
    }

    void the_next_application_object_is_served_anew()
    {
        {
            QApplication application(argc, argv);
            ExpectFontLines(Log());
            QVERIFY(ServePlainApplication());
        }
        bool ran = false;
        QApplication application(argc, argv);
        PostOwnedTask(
            &application, [&ran] { ran = true; }, "");
        DrainEvents();
        QVERIFY(!ran);
        ExpectFontLines(Log());
        QVERIFY(ServePlainApplication());
        PostOwnedTask(
            &application, [&ran] { ran = true; }, "");
        DrainEvents();
        QVERIFY(ran);
    }

    void an_application_object_of_the_kit_needs_none()
    {
        QcApplication application(argc, argv);
        QVERIFY(!ServePlainApplication());
        ExpectFontLines(Log());
        application.Initialize();
        QVERIFY(!ServePlainApplication());
        QCOMPARE(RunsPerChange(), 1);
    }

    // Last: the warning comes once a process.
    void a_plain_program_that_initialised_the_theme_itself_follows_once()
    {
        QApplication application(argc, argv);
        ExpectFontLines(Log());
        Log().ExpectMatch(QtWarningMsg, QStringLiteral("QcStyleManager::Initialize: the application object is not a QcApplication.*"));
        QcStyleManager::GetInstance()->Initialize();
        QVERIFY(ServePlainApplication());
        QCOMPARE(RunsPerChange(), 1);
    }
};

VELMORA_BARE_TEST_MAIN(tst_ServePlainApplication)

#include "tst_ServePlainApplication.moc"
