#include "Values.h"

#include "Failure.h"
#include "LoadedTemplate.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <cmath>

namespace FillTemplate {

namespace {

constexpr double kExactIntegers = 9007199254740992.0; // 2^53: up to here a double holds every integer

const QString kValue = QStringLiteral("value");
const QString kOptions = QStringLiteral("options");
const QString kFormula = QStringLiteral("formula");
const QString kPicture = QStringLiteral("picture");

Failure Wrong(const QString &name, const QString &reason)
{
    return {WrongType, QStringLiteral("%1: %2").arg(name, reason)};
}

bool BeginsWithLetter(const QString &text)
{
    const ushort c = text.isEmpty() ? 0 : text.at(0).unicode();
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// XML holds no control characters but tab and line break, no halves of surrogate pairs, and not the last two of the plane. A carriage
/// return would come back as a line feed.
void RequireXmlText(const QString &name, const QString &text)
{
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool isPair = c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair)
            ++i;
        else if ((c.unicode() < 0x20 && c != QLatin1Char('\t') && c != QLatin1Char('\n')) || c.isSurrogate() || c.unicode() >= 0xfffe)
            throw Wrong(name, QStringLiteral("the text holds a character that a workbook cannot"));
    }
}

void SetFormula(Value &value, const QString &name, const QJsonValue &json)
{
    const QString text = json.toString();
    RequireXmlText(name, text);
    if (!json.isString() || !BeginsWithLetter(text) || text.contains(QLatin1Char('\n')))
        throw Wrong(name, QStringLiteral("a formula is a text of one line that begins with a letter, without an equals sign"));
    value.content = text;
    value.isFormula = true;
}

/// A number, a text or a formula.
void SetContent(Value &value, const QString &name, const QJsonValue &json)
{
    if (json.isDouble()) {
        const double number = json.toDouble();
        if (std::floor(number) != number)
            throw Wrong(name, QStringLiteral("%1 would be rounded to an integer; round it, or give it as a text").arg(number));
        if (std::fabs(number) > kExactIntegers)
            throw Wrong(name, QStringLiteral("%1 has more digits than a cell holds; give it as a text").arg(number));
        value.content = qlonglong(number);
    } else if (json.isString()) {
        const QString text = json.toString();
        RequireXmlText(name, text);
        if (BeginsWithLetter(text))
            throw Wrong(name,
                        QStringLiteral("a text that begins with a letter is written as a formula; say {\"formula\": ...} if that is "
                                       "meant, or let it begin with another character, such as a blank"));
        value.content = text;
    } else if (json.isObject() && json.toObject().keys() == QStringList(kFormula)) {
        SetFormula(value, name, json.toObject().value(kFormula));
    } else {
        throw Wrong(name, QStringLiteral("a cell takes a number, a text or {\"formula\": TEXT}"));
    }
}

void SetOptions(Value &value, const QString &name, const QJsonValue &json)
{
    const QJsonArray array = json.toArray();
    if (array.isEmpty())
        throw Wrong(name, QStringLiteral("options are a list of one text or more"));
    for (const QJsonValue &option : array) {
        const QString text = option.toString();
        RequireXmlText(name, text);
        if (!option.isString() || text.contains(QLatin1Char(',')) || text.contains(QLatin1Char('"')))
            throw Wrong(name, QStringLiteral("an option is a text without comma and double quote"));
        value.options.append(text);
    }
}

void SetPicture(Value &value, const QString &name, const QJsonValue &json, const QDir &folder)
{
    if (!json.isString() || json.toString().isEmpty())
        throw Wrong(name, QStringLiteral("a picture is the path of a file"));
    value.picture = folder.absoluteFilePath(json.toString());
    RequireReadable(value.picture);
}

Value ValueOf(const QString &name, const QJsonValue &json, const QDir &folder)
{
    Value value;
    const QJsonObject object = json.toObject();
    QStringList keys = object.keys();
    if (keys == QStringList(kPicture)) {
        SetPicture(value, name, object.value(kPicture), folder);
    } else if (keys == QStringList(kOptions) || keys == QStringList(kValue) || keys == QStringList({kOptions, kValue})) {
        if (object.contains(kOptions))
            SetOptions(value, name, object.value(kOptions));
        if (object.contains(kValue))
            SetContent(value, name, object.value(kValue));
    } else {
        SetContent(value, name, json);
    }
    return value;
}

} // namespace

QMap<QString, Value> ReadValues(const QString &path, const QString &filter)
{
    RequireReadable(path);
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    QJsonParseError error = {};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject())
        throw Failure{NotJson, QStringLiteral("%1 holds no JSON object: %2").arg(path, error.errorString())};

    const QRegularExpression wanted(filter);
    const QDir folder = QFileInfo(path).absoluteDir();
    const QJsonObject object = document.object();
    QMap<QString, Value> values;
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        if (wanted.match(entry.key()).hasMatch())
            values.insert(entry.key(), ValueOf(entry.key(), entry.value(), folder));
    }
    return values;
}

} // namespace FillTemplate
