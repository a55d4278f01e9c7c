#include "Tables.h"

#include <Velmora/FileAndDesktop.h>
#include <Velmora/PlainApplication.h>
#include <Velmora/QcStyleManager.h>

#include <QColor>
#include <QCoreApplication>
#include <QHash>
#include <QStringList>

using namespace Velmora;

namespace VelmoraDesigner {

namespace {

/// Of the table at \a path. The last of a name counts, and only colours do.
QList<Token> TokensOf(const QString &path)
{
    QList<Token> tokens;
    QHash<QString, int> places;
    const QStringList lines = GetFileContent(path).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QString entry = line.section(QLatin1Char(';'), 0, 0);
        QString code = entry.section(QLatin1Char('='), 0, 0).trimmed();
        code.remove(QChar(QChar::ByteOrderMark));
        const QString value = entry.section(QLatin1Char('='), 1).section(QLatin1Char(','), 0, 0).remove(QLatin1Char('"')).trimmed();
        if (code.isEmpty() || !QColor::isValidColor(value))
            continue;
        const Token token{code, line.section(QLatin1Char(';'), 1).trimmed()};
        if (places.contains(code)) {
            tokens[places.value(code)] = token;
        } else {
            places.insert(code, int(tokens.size()));
            tokens.append(token);
        }
    }
    return tokens;
}

struct Choice
{
    QString path = BuiltInTables().constFirst().path;
    QList<Token> tokens = TokensOf(path);
};

Choice &Chosen()
{
    static Choice choice;
    return choice;
}

} // namespace

QList<Table> BuiltInTables()
{
    return {
        {QCoreApplication::translate("VelmoraDesigner", "&Light"), QStringLiteral(":/colors/blue_light.ini")},
        {QCoreApplication::translate("VelmoraDesigner", "&Dark"), QStringLiteral(":/colors/blue_dark.ini")},
        {QCoreApplication::translate("VelmoraDesigner", "High contrast, l&ight"), QStringLiteral(":/colors/contrast_light.ini")},
        {QCoreApplication::translate("VelmoraDesigner", "High contrast, d&ark"), QStringLiteral(":/colors/contrast_dark.ini")},
    };
}

bool ChooseTable(const QString &path)
{
    const QList<Token> tokens = TokensOf(path);
    if (tokens.isEmpty())
        return false;
    const bool isAgain = path == Chosen().path;
    Chosen().path = path;
    Chosen().tokens = tokens;
    QcStyleManager *manager = QcStyleManager::GetInstance();
    if (isAgain) // which the manager would not read
        manager->SetColorFilePath(BuiltInTables().constFirst().path);
    manager->SetColorFilePath(path);
    return true;
}

QString ChosenTable()
{
    return Chosen().path;
}

void ServeWithTable()
{
    const bool hasTable = QcStyleManager::GetInstance()->GetColor(ColorParams("text/text_primary")).isValid();
    if (ServePlainApplication() && !hasTable)
        ChooseTable(Chosen().path);
}

QList<Token> TokensOfChosenTable()
{
    return Chosen().tokens;
}

} // namespace VelmoraDesigner
