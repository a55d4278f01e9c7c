// Fills a spreadsheet template by name, the careful way: what lies at the output path is the old package or the new one, whole.

#include "Arguments.h"
#include "Failure.h"
#include "Filling.h"
#include "Listing.h"
#include "Log.h"
#include "Preparing.h"

#include <Velmora/Translations.h>

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <csignal>
#include <exception>

using namespace FillTemplate;

namespace {

void Run(const Arguments &arguments)
{
    switch (arguments.command) {
    case Arguments::List:
        List(arguments);
        break;
    case Arguments::Fill:
        Fill(arguments);
        break;
    case Arguments::Prepare:
        Prepare(arguments);
        break;
    case Arguments::Help:
        Print(Usage());
        break;
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    QTranslator texts; // what is wrong with a workbook is said in the user's language
    if (texts.load(QLocale(), QStringLiteral("velmora"), QStringLiteral("_"), Velmora::TranslationsFolder(), QStringLiteral(".qm")))
        QCoreApplication::installTranslator(&texts);
    KeepWarnings();
#ifdef SIGXFSZ
    // A limit on the size of files is a write that fails, not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    int status = Done;
    try {
        Run(ParseArguments(QCoreApplication::arguments().mid(1)));
        PrintWarnings();
    } catch (const Failure &failure) {
        PrintWarnings();
        PrintError(failure.message);
        status = failure.status;
    } catch (const std::exception &exception) {
        PrintWarnings();
        PrintError(QString::fromLocal8Bit(exception.what()));
        status = OutputFailed;
    }
    return status;
}
