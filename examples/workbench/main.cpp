#include "Workbench.h"

#include <Velmora/KeyboardCues.h>
#include <Velmora/PlainWidgets.h>
#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/Translations.h>
#include <Velmora/Veils.h>

#include <QCommandLineParser>
#include <QDir>
#include <QLocale>
#include <QStandardPaths>
#include <QTranslator>

using namespace Velmora;

int main(int argc, char **argv)
{
    QcApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("workbench"));

    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("FOLDER"),
                                 Workbench::tr("The folder whose text files are shown, the present one at first."));
    const QCommandLineOption stateOption(QStringLiteral("state"), Workbench::tr("Keep layouts and open files in the folder DIR."),
                                         QStringLiteral("DIR"), QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    parser.addOption(stateOption);
    parser.process(app);
    const QStringList folders = parser.positionalArguments();

    QTranslator texts;
    if (texts.load(QLocale(), QStringLiteral("velmora"), QStringLiteral("_"), TranslationsFolder(), QStringLiteral(".qm")))
        QCoreApplication::installTranslator(&texts);

    // A table must stand before Initialize(); the workbench puts in the one of its last run.
    QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    app.Initialize();
    SetKeyboardCuesEnabled(true);
    SetVeilsStopKeyboard(true);
    SetPlainWidgetsFollowTable(true);
    Workbench workbench(folders.isEmpty() ? QDir::currentPath() : folders.first(), parser.value(stateOption));
    workbench.show();
    return QcApplication::exec();
}
