// Before there is an application object, and after it has gone. The test makes them itself.

#include "support/CommandLine.h"
#include "support/FontLines.h"
#include "support/TestMain.h"
#include "theme/TokenNow.h"

#include <Velmora/PlainWidgets.h>

#include <QLabel>

using namespace Velmora;
using namespace VelmoraTest;

class TestPlainStart : public TestCase
{
    Q_OBJECT

    void TearDown() override { SetPlainWidgetsFollowTable(false); }

    void Initialize(QcApplication &application)
    {
        UseTable(Table::Dark);
        ExpectFontLines(Log());
        application.Initialize();
    }

    static QColor Ground() { return TokenNow("bg/bg_box"); }

private Q_SLOTS:
    // First, since nobody unloads a table.
    void before_a_table_is_loaded_every_role_stays()
    {
        QcApplication application(commandLine.count, commandLine.values);
        const QPalette before = QApplication::palette();
        SetPlainWidgetsFollowTable(true);
        QCOMPARE(QApplication::palette().color(QPalette::Window), before.color(QPalette::Window));
        UseTable(Table::Dark);
        QCOMPARE(QApplication::palette().color(QPalette::Window), Ground());
    }

    void asked_for_before_the_application_object_it_begins_with_initialize()
    {
        SetPlainWidgetsFollowTable(true);
        QVERIFY(PlainWidgetsFollowTable());
        QcApplication application(commandLine.count, commandLine.values);
        const QPalette before = QApplication::palette();
        Initialize(application);
        QLabel label;
        QCOMPARE(label.palette().color(QPalette::Window), Ground());
        SetPlainWidgetsFollowTable(false);
        QCOMPARE(QApplication::palette(), before);
        QCOMPARE(label.palette().color(QPalette::Window), before.color(QPalette::Window));
    }

    void taken_back_before_the_application_object_it_changes_nothing()
    {
        SetPlainWidgetsFollowTable(true);
        SetPlainWidgetsFollowTable(false);
        QcApplication application(commandLine.count, commandLine.values);
        const QPalette before = QApplication::palette();
        Initialize(application);
        QCOMPARE(QApplication::palette(), before);
    }

    void a_second_application_object_begins_anew()
    {
        SetPlainWidgetsFollowTable(true);
        QPalette first;
        for (int round = 0; round < 2; ++round) {
            QcApplication application(commandLine.count, commandLine.values);
            const QPalette before = QApplication::palette();
            if (round == 0)
                first = before;
            QCOMPARE(before, first);
            Initialize(application);
            QCOMPARE(QApplication::palette().color(QPalette::Window), Ground());
        }
        SetPlainWidgetsFollowTable(false); // without an application object
        QVERIFY(!PlainWidgetsFollowTable());
    }
};

VELMORA_BARE_TEST_MAIN(TestPlainStart)
#include "tst_PlainStart.moc"
