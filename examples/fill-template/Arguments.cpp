#include "Arguments.h"

#include "Failure.h"

#include <QRegularExpression>

namespace FillTemplate {

namespace {

Failure Wrong(const QString &message)
{
    return {WrongUsage, message + QLatin1String("; see fill-template --help")};
}

} // namespace

QString Usage()
{
    return QStringLiteral(
        "Usage: fill-template list [--json] [--filter REGEXP] TEMPLATE\n"
        "       fill-template fill [--filter REGEXP] [--allow-unlisted] [--quiet] TEMPLATE VALUES.json OUTPUT\n"
        "       fill-template prepare TEMPLATE OUTPUT\n"
        "\n"
        "list     prints the elements of a workbook (.xlsx): its defined names, tables and named pictures\n"
        "fill     sets elements to the values of a JSON object, by name, and saves the result\n"
        "prepare  numbers the parts of a workbook for programs that use XlsxOperator; list and fill need it not\n"
        "\n"
        "--json            print JSON instead of a table\n"
        "--filter REGEXP   take only the names in which REGEXP matches\n"
        "--allow-unlisted  let a cell with a list take a value that is not in it\n"
        "--quiet           do not tell on the standard error what takes longer than a second\n"
        "\n"
        "Values of cells: a number, a text, true, false; null empties; {\"date\": \"2026-11-22\"} or with T18:30:00;\n"
        "        {\"time\": \"18:30\"}; {\"formula\": TEXT};\n"
        "        {\"value\": any of these, \"options\": [TEXT, ...]}, either of both.\n"
        "Ranges: [[1, 2], [3, 4]] fills one row by row.\n"
        "Rows and tables: [{\"COLUMN\": VALUE, ...}, ...] repeats one, by the texts above it; {\"rows\": [[1, 2], ...]};\n"
        "        {\"csv\": FILE}, whose first line may name the columns.\n"
        "Pictures: {\"picture\": FILE}, with \"fit\": \"stretch\" to fill the frame.\n"
        "Files are looked for in the folder of VALUES.json, which is the standard input if it is -.\n"
        "\n"
        "OUTPUT is written whole or not at all. Exit status: 0 done, 2 wrong usage, 3 missing file,\n"
        "4 template not loaded, 6 values are no JSON object, 7 unknown name, 8 value refused,\n"
        "9 output not written, 10 template cannot be prepared.\n");
}

Arguments ParseArguments(const QStringList &arguments)
{
    Arguments parsed;
    QStringList words;
    bool optionsEnd = false;
    bool hasFilter = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        if (optionsEnd || !argument.startsWith(QLatin1Char('-')) || argument == QLatin1String("-")) {
            words.append(argument);
        } else if (argument == QLatin1String("--")) {
            optionsEnd = true;
        } else if (argument == QLatin1String("--help") || argument == QLatin1String("-h")) {
            return Arguments();
        } else if (argument == QLatin1String("--json")) {
            parsed.json = true;
        } else if (argument == QLatin1String("--quiet")) {
            parsed.quiet = true;
        } else if (argument == QLatin1String("--allow-unlisted")) {
            parsed.allowUnlisted = true;
        } else if (argument == QLatin1String("--filter") || argument.startsWith(QLatin1String("--filter="))) {
            if (argument == QLatin1String("--filter") && ++i == arguments.size())
                throw Wrong(QStringLiteral("--filter needs a regular expression"));
            parsed.filter = argument == QLatin1String("--filter") ? arguments.at(i) : argument.section(QLatin1Char('='), 1);
            hasFilter = true;
        } else {
            throw Wrong(QStringLiteral("unknown option %1").arg(argument));
        }
    }

    const QString command = words.isEmpty() ? QString() : words.takeFirst();
    int expected = 0;
    if (command == QLatin1String("list")) {
        parsed.command = Arguments::List;
        expected = 1;
    } else if (command == QLatin1String("fill")) {
        parsed.command = Arguments::Fill;
        expected = 3;
    } else if (command == QLatin1String("prepare")) {
        parsed.command = Arguments::Prepare;
        expected = 2;
    } else {
        throw Wrong(command.isEmpty() ? QStringLiteral("no command") : QStringLiteral("unknown command %1").arg(command));
    }
    if (words.size() != expected || words.contains(QString()))
        throw Wrong(QStringLiteral("%1 takes %2 path(s)").arg(command).arg(expected));
    if (parsed.json && parsed.command != Arguments::List)
        throw Wrong(QStringLiteral("--json goes with list"));
    if ((parsed.quiet || parsed.allowUnlisted) && parsed.command != Arguments::Fill)
        throw Wrong(QStringLiteral("--quiet and --allow-unlisted go with fill"));
    if (hasFilter && parsed.command == Arguments::Prepare)
        throw Wrong(QStringLiteral("--filter goes with list and fill"));
    const QRegularExpression filter(parsed.filter);
    if (!filter.isValid())
        throw Wrong(QStringLiteral("--filter: %1").arg(filter.errorString()));

    parsed.templatePath = words.first();
    if (parsed.command == Arguments::Fill)
        parsed.valuesPath = words.at(1);
    if (parsed.command != Arguments::List)
        parsed.outputPath = words.last();
    return parsed;
}

} // namespace FillTemplate
