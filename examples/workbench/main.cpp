#include "Workbench.h"

#include <Velmora/KeyboardCues.h>
#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>

#include <QCommandLineParser>
#include <QDir>
#include <QStandardPaths>
#include <QTranslator>

using namespace Velmora;

namespace {

/// The kit's tip under the title of a dragged panel is a key: its wording is the program's.
class Texts : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *text, const char *, int) const override
    {
        return qstrcmp(text, "PleaseMoveToTheIMsg") == 0 ? Workbench::tr("Drop it on a place of the cross") : QString();
    }
};

} // namespace

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

    Texts texts;
    QCoreApplication::installTranslator(&texts);

    // A table must stand before Initialize(); the workbench puts in the one of its last run.
    QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    app.Initialize();
    SetKeyboardCuesEnabled(true);
    Workbench workbench(folders.isEmpty() ? QDir::currentPath() : folders.first(), parser.value(stateOption));
    workbench.show();
    return QcApplication::exec();
}
