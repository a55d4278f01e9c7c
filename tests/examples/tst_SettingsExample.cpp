#include "support/TestMain.h"

#include "FolderCheck.h"
#include "Settings.h"
#include "SettingsDialog.h"

#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcProgressDialog.h>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Velmora;
using namespace VelmoraTest;

/// The settings example: its dialog, its file and its long work.
class TestSettingsExample : public TestCase
{
    Q_OBJECT

public:
    TestSettingsExample()
    {
        QcProgressDialog::getInstance(); // before the first test, which would leave it behind
    }

private Q_SLOTS:
    void values_come_back_from_the_file();
    void values_that_make_no_sense_become_those_of_a_first_start();
    void fields_hold_all_values();
    void a_wrong_field_shows_and_keeps_the_dialog_open();
    void all_files_of_the_folder_are_read();
    void escape_cancels_the_reading();
    void a_window_that_goes_takes_the_progress_along();
};

namespace {

Settings Others()
{
    Settings settings;
    settings.name = QStringLiteral("Zo\u00eb; \"1,2\"");
    settings.mail = QStringLiteral("zoe@example.org");
    settings.language = QStringLiteral("de");
    settings.look = Examples::Table::ContrastDark;
    settings.remarks = QStringLiteral("<b>two</b>\nlines");
    settings.folder = QDir::tempPath();
    settings.timeout = 600;
    settings.keepDays = 365;
    settings.limit = 0.5;
    settings.autoSave = false;
    settings.tellErrors = false;
    settings.tellUpdates = true;
    settings.sound = false;
    settings.volume = 3;
    return settings;
}

void Compare(const Settings &actual, const Settings &expected)
{
    QCOMPARE(actual.name, expected.name);
    QCOMPARE(actual.mail, expected.mail);
    QCOMPARE(actual.language, expected.language);
    QVERIFY(actual.look == expected.look);
    QCOMPARE(actual.remarks, expected.remarks);
    QCOMPARE(actual.folder, expected.folder);
    QCOMPARE(actual.timeout, expected.timeout);
    QCOMPARE(actual.keepDays, expected.keepDays);
    QCOMPARE(actual.limit, expected.limit);
    QCOMPARE(actual.autoSave, expected.autoSave);
    QCOMPARE(actual.tellErrors, expected.tellErrors);
    QCOMPARE(actual.tellUpdates, expected.tellUpdates);
    QCOMPARE(actual.sound, expected.sound);
    QCOMPARE(actual.volume, expected.volume);
}

void MakeFiles(const QTemporaryDir &folder, int count)
{
    for (int i = 0; i < count; ++i) {
        QFile file(folder.filePath(QString::number(i)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
}

} // namespace

void TestSettingsExample::values_come_back_from_the_file()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("new/folder/kept.ini"));
    QVERIFY(SaveSettings(Others(), path));
    Compare(LoadSettings(path), Others());
}

void TestSettingsExample::values_that_make_no_sense_become_those_of_a_first_start()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("odd.ini"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[user]\nlook=7\n[storage]\ntimeout=0\nkeepDays=many\nlimit=nan\n[notices]\nvolume=101\n");
    file.close();
    Compare(LoadSettings(path), Settings());
}

void TestSettingsExample::fields_hold_all_values()
{
    SettingsDialog dialog;
    Compare(dialog.GetSettings(), Settings());
    dialog.SetSettings(Others());
    Compare(dialog.GetSettings(), Others());
}

void TestSettingsExample::a_wrong_field_shows_and_keeps_the_dialog_open()
{
    SettingsDialog dialog;
    Settings settings = Others();
    settings.folder = QStringLiteral("/no/such/folder");
    dialog.SetSettings(settings);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    dialog.accept();
    QVERIFY(dialog.isVisible());
    auto *field = qobject_cast<QcLineEditFrame *>(dialog.focusWidget()->parentWidget());
    QVERIFY(field);
    QVERIFY(field->getWarning());
    QVERIFY(field->isVisible());
    field->setText(QString());
    QVERIFY(!field->getWarning());
    dialog.accept();
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void TestSettingsExample::all_files_of_the_folder_are_read()
{
    QTemporaryDir folder;
    MakeFiles(folder, 3);
    QWidget window;
    window.show();
    FolderCheck check(&window);
    QSignalSpy finished(&check, &FolderCheck::Finished);
    check.Start(folder.path());
    QVERIFY(QcProgressDialog::getInstance()->isVisible());
    QVERIFY(finished.wait());
    QCOMPARE(finished.first(), (QVariantList{3, 0}));
    QVERIFY(!QcProgressDialog::getInstance()->isVisible());
}

void TestSettingsExample::escape_cancels_the_reading()
{
    QTemporaryDir folder;
    MakeFiles(folder, 3);
    QWidget window;
    window.show();
    FolderCheck check(&window);
    QSignalSpy finished(&check, &FolderCheck::Finished);
    QSignalSpy cancelled(&check, &FolderCheck::Cancelled);
    check.Start(folder.path());
    QTest::keyClick(QcProgressDialog::getInstance(), Qt::Key_Escape);
    QCOMPARE(cancelled.count(), 1);
    QVERIFY(!QcProgressDialog::getInstance()->isVisible());
    QCoreApplication::processEvents();
    QCOMPARE(finished.count(), 0);
}

void TestSettingsExample::a_window_that_goes_takes_the_progress_along()
{
    QTemporaryDir folder;
    MakeFiles(folder, 3);
    auto *window = new QWidget;
    window->show();
    (new FolderCheck(window))->Start(folder.path());
    QVERIFY(QcProgressDialog::getInstance()->isVisible());
    delete window;
    QVERIFY(!QcProgressDialog::getInstance()->isVisible());
    QVERIFY(!QcProgressDialog::getInstance()->parentWidget());
}

VELMORA_TEST_MAIN(TestSettingsExample)

#include "tst_SettingsExample.moc"
