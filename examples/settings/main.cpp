#include "SettingsDialog.h"
#include "TableChoice.h"

#include <Velmora/KeyboardCues.h>
#include <Velmora/ModalDialogs.h>
#include <Velmora/PlainWidgets.h>
#include <Velmora/QcApplication.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcToastManager.h>
#include <Velmora/QcWindow.h>
#include <Velmora/Translations.h>
#include <Velmora/Veils.h>

#include <QCommandLineParser>
#include <QDir>
#include <QLocale>
#include <QStandardPaths>
#include <QTranslator>
#include <QVBoxLayout>

using namespace Velmora;

namespace {

QString DefaultFile()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)).filePath(QStringLiteral("settings.ini"));
}

void EditSettings(const QString &path, Examples::TableChoice &table, QWidget *window)
{
    SettingsDialog dialog(window);
    dialog.SetSettings(LoadSettings(path));
    if (Velmora::exec(&dialog, window) != QDialog::Accepted)
        return;
    const Settings settings = dialog.GetSettings();
    table.Choose(settings.look);
    if (SaveSettings(settings, path))
        QcToastManager::getInstance()->showToast(SettingsDialog::tr("Saved."), QcToast::Success, window, false);
    else
        QcToastManager::getInstance()->showToast(SettingsDialog::tr("The settings could not be saved."), QcToast::Error, window, false);
}

// Each page in all tables, as a picture in the folder.
int Render(const QString &folder, const Settings &settings)
{
    SettingsDialog dialog;
    dialog.SetSettings(settings);
    dialog.show();
    bool ok = QDir().mkpath(folder);
    for (const Examples::Table table : Examples::kTables) {
        Examples::ApplyTable(table);
        QCoreApplication::processEvents(); // the controls follow the table in tasks of their own
        for (int page = 0; page < SettingsDialog::kPages; ++page) {
            dialog.ShowPage(page);
            QCoreApplication::processEvents();
            const QString name = QStringLiteral("%1-%2.png").arg(page + 1).arg(Examples::TableName(table));
            ok = dialog.grab().save(QDir(folder).filePath(name)) && ok;
        }
    }
    return ok ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    QcApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("settings"));
    QTranslator texts;
    if (texts.load(QLocale(), QStringLiteral("velmora"), QStringLiteral("_"), TranslationsFolder(), QStringLiteral(".qm")))
        QCoreApplication::installTranslator(&texts);

    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption fileOption(QStringLiteral("file"), SettingsDialog::tr("Keep the settings in the INI file FILE."),
                                        QStringLiteral("FILE"), DefaultFile());
    const QCommandLineOption renderOption(QStringLiteral("render"), SettingsDialog::tr("Draw the pages to PNG files in DIR."),
                                          QStringLiteral("DIR"));
    parser.addOptions({fileOption, renderOption});
    parser.process(app);
    const QString path = parser.value(fileOption);

    const Settings settings = LoadSettings(path);
    Examples::TableChoice table(settings.look);
    app.Initialize();
    SetKeyboardCuesEnabled(true);
    SetVeilsStopKeyboard(true);
    SetPlainWidgetsFollowTable(true);
    if (parser.isSet(renderOption))
        return Render(parser.value(renderOption), settings);

    QcWindow window;
    window.setWindowTitle(SettingsDialog::tr("Example"));
    window.setTitle(SettingsDialog::tr("Example"));
    auto *button = new QcPrimaryButton;
    button->setText(SettingsDialog::tr("Settings..."));
    QObject::connect(button, &QAbstractButton::clicked, &window, [&window, &table, path] { EditSettings(path, table, &window); });
    auto *layout = new QVBoxLayout(window.getContentFrame());
    layout->addWidget(button, 0, Qt::AlignCenter);
    window.resize(760, 560);
    window.show();
    button->setFocus();
    return QcApplication::exec();
}
