#include "Tables.h"

#include <Velmora/FileAndDesktop.h>
#include <Velmora/PlainApplication.h>
#include <Velmora/QcStyleManager.h>

#include <QCoreApplication>
#include <QStringList>

using namespace Velmora;

namespace VelmoraDesigner {

namespace {

QString &Chosen()
{
    static QString path = BuiltInTables().constFirst().path;
    return path;
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

void ChooseTable(const QString &path)
{
    Chosen() = path;
    QcStyleManager::GetInstance()->SetColorFilePath(path);
}

QString ChosenTable()
{
    return Chosen();
}

void ServeWithTable()
{
    const bool hasTable = QcStyleManager::GetInstance()->GetColor(ColorParams("text/text_primary")).isValid();
    if (ServePlainApplication() && !hasTable)
        ChooseTable(Chosen());
}

QList<Token> TokensOfChosenTable()
{
    QList<Token> tokens;
    const QStringList lines = GetFileContent(Chosen()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const auto equals = line.indexOf(QLatin1Char('='));
        const auto comment = line.indexOf(QLatin1Char(';'));
        if (equals < 0 || (comment >= 0 && comment < equals))
            continue;
        QString code = line.left(equals).trimmed();
        code.remove(QChar(QChar::ByteOrderMark));
        tokens.append({code, comment < 0 ? QString() : line.mid(comment + 1).trimmed()});
    }
    return tokens;
}

} // namespace VelmoraDesigner
