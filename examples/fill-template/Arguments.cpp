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
    return QStringLiteral("Usage: fill-template list [--json] [--filter REGEXP] TEMPLATE\n"
                          "       fill-template fill [--filter REGEXP] TEMPLATE VALUES.json OUTPUT\n"
                          "       fill-template prepare TEMPLATE OUTPUT\n"
                          "\n"
                          "list     prints the elements of a spreadsheet template: defined names and named pictures\n"
                          "fill     sets elements to the values of a JSON object, by name, and saves the result\n"
                          "prepare  numbers the parts of a template as list and fill need them\n"
                          "\n"
                          "--json           print JSON instead of a table\n"
                          "--filter REGEXP  take only the names in which REGEXP matches\n"
                          "\n"
                          "Values: a number; a text that does not begin with a letter A to Z; {\"formula\": TEXT};\n"
                          "        {\"value\": NUMBER, TEXT or FORMULA, \"options\": [TEXT, ...]}, either of both;\n"
                          "        {\"picture\": FILE}, a PNG or JPEG file, relative to the folder of VALUES.json.\n"
                          "\n"
                          "OUTPUT is written whole or not at all. Exit status: 0 done, 2 wrong usage, 3 missing file,\n"
                          "4 template not loaded, 5 template needs prepare, 6 values are no JSON object, 7 unknown name,\n"
                          "8 wrong type of a value, 9 output not written, 10 template cannot be prepared.\n");
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
