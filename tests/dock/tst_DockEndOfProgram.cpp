#include "support/TestCase.h"
#include "support/TestMain.h"

#include <QProcess>

/// Programs that end in the middle of a drag: each is a process of its own.
class tst_DockEndOfProgram : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_program_that_ends_in_a_drag_ends_quietly_data()
    {
        QTest::addColumn<QStringList>("arguments");
        for (const char *what : {"title", "tab"})
            for (const char *mouse : {"held", "released"})
                for (const char *end : {"quit", "return", "leave"})
                    QTest::addRow("%s, %s, %s", what, mouse, end)
                        << QStringList{QLatin1String(what), QLatin1String(mouse), QLatin1String(end)};
    }
    void a_program_that_ends_in_a_drag_ends_quietly()
    {
        QFETCH(QStringList, arguments);
        QProcess program;
        program.start(QStringLiteral(ENDS_IN_A_DRAG), arguments);
        QVERIFY(program.waitForFinished(60000));
        QCOMPARE(program.readAllStandardError(), QByteArray());
        QCOMPARE(program.readAllStandardOutput(), QByteArray("dragged"));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
    }
};

VELMORA_BARE_TEST_MAIN(tst_DockEndOfProgram)
#include "tst_DockEndOfProgram.moc"
