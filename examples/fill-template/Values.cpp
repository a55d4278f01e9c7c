#include "Values.h"

#include "Csv.h"
#include "Dates.h"
#include "Failure.h"
#include "Json.h"
#include "OpenedTemplate.h"

#include <Velmora/XlsxTemplate.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace FillTemplate {

using Velmora::XlsxTemplate;

namespace {

Failure Wrong(const QString &name, const QString &reason)
{
    return {WrongType, QStringLiteral("%1: %2").arg(name, reason)};
}

bool IsObject(const QVariant &json)
{
    return json.userType() == qMetaTypeId<JsonObject>();
}

bool IsArray(const QVariant &json)
{
    return json.userType() == QMetaType::QVariantList;
}

/// The one value of an object that has that key alone, or an invalid QVariant.
QVariant Only(const JsonObject &object, const char *key)
{
    return object.keys == QStringList(QLatin1String(key)) ? object.values.first() : QVariant();
}

/// A date or a time of an object that stands for one, or an invalid QVariant.
QVariant DateOfObject(const QString &name, const JsonObject &object)
{
    const QVariant date = Only(object, "date");
    const QVariant time = Only(object, "time");
    if (!date.isValid() && !time.isValid())
        return {};
    const QVariant found = date.isValid() ? DateOf(date.toString()) : TimeOf(time.toString());
    if (found.isValid())
        return found;
    throw Wrong(
        name,
        date.isValid()
            ? QStringLiteral("%1 is no date; write it like 2026-11-22 or 2026-11-22T18:30:00, without a time zone").arg(date.toString())
            : QStringLiteral("%1 is no time; write it like 18:30 or 18:30:15").arg(time.toString()));
}

/// What one cell of a row is to hold.
void MakeCell(const QString &name, QVariant &json)
{
    if (IsArray(json))
        throw Wrong(name, QStringLiteral("a cell of a row takes one value, not an array"));
    if (!IsObject(json))
        return;
    json = DateOfObject(name, json.value<JsonObject>());
    if (!json.isValid())
        throw Wrong(name, QStringLiteral("a cell of a row takes a number, a text, true, false, null, {\"date\": ...} or {\"time\": ...}"));
}

void MakeCells(const QString &name, QVariantList &row)
{
    for (int i = 0; i < row.size(); ++i) {
        if (IsArray(row.at(i)) || IsObject(row.at(i)))
            MakeCell(name, row[i]);
    }
}

/// The row of an object, by \a columns, which grow by those that it is the first to have.
QVariantList RowOf(const QString &name, const JsonObject &object, QStringList &columns)
{
    if (columns.isEmpty())
        columns = object.keys;
    if (object.keys == columns)
        return object.values;
    const QVariant keep = QVariant::fromValue(XlsxTemplate::Keep());
    QVariantList row;
    for (int i = 0; i < columns.size(); ++i)
        row.append(keep);
    for (int i = 0; i < object.keys.size(); ++i) {
        const QString &key = object.keys.at(i);
        const auto isSame = [&key](const QString &column) { return FoldedColumn(column) == FoldedColumn(key); };
        const auto column = int(std::find_if(columns.begin(), columns.end(), isSame) - columns.begin());
        if (column == columns.size()) {
            columns.append(key);
            row.append(keep);
        }
        if (row.at(column).userType() != qMetaTypeId<XlsxTemplate::Keep>())
            throw Wrong(name, QStringLiteral("the column %1 is there twice").arg(key));
        row[column] = object.values.at(i);
    }
    return row;
}

/// The rows of an array of arrays or of objects. Takes them out of \a json, so that they are in memory once.
void SetRows(Value &value, QVariant &json)
{
    const QString wanted = QStringLiteral("rows are an array of arrays, [[1, 2], [3, 4]], or of objects, [{\"COLUMN\": 1}]");
    if (!IsArray(json))
        throw Wrong(value.name, wanted);
    QVariantList entries = json.toList();
    json.clear();
    const bool areNamed = !entries.isEmpty() && IsObject(entries.first());
    value.rows.reserve(entries.size());
    for (int i = 0; i < entries.size(); ++i) {
        QVariant entry = std::exchange(entries[i], QVariant());
        const QString place = QStringLiteral("%1, row %2").arg(value.name).arg(i + 1);
        if (areNamed ? !IsObject(entry) : !IsArray(entry))
            throw Wrong(place, IsObject(entry) || IsArray(entry) ? QStringLiteral("rows are all arrays or all objects") : wanted);
        QVariantList row = areNamed ? RowOf(place, entry.value<JsonObject>(), value.columns) : entry.toList();
        entry.clear();
        MakeCells(place, row);
        value.rows.append(row);
    }
    value.kind = areNamed || entries.isEmpty() ? Value::Rows::Repeat : Value::Rows::Fill;
}

QString PathOf(const QString &name, const QVariant &json, const QString &what, const QDir &folder)
{
    if (json.userType() != QMetaType::QString || json.toString().isEmpty())
        throw Wrong(name, QStringLiteral("%1 is the path of a file").arg(what));
    const QString path = folder.absoluteFilePath(json.toString());
    RequireReadable(path);
    return path;
}

QByteArray ContentOf(const QString &path)
{
    QFile file(path);
    const bool isOpen = path == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    const QByteArray content = isOpen ? file.readAll() : QByteArray();
    if (!isOpen || file.error() != QFileDevice::NoError)
        throw Failure{MissingFile, QStringLiteral("%1 cannot be read: %2").arg(path, file.errorString())};
    return content;
}

void SetCsv(Value &value, const QVariant &json, const QDir &folder)
{
    const QString path = PathOf(value.name, json, QStringLiteral("csv"), folder);
    CsvTable table = ReadCsv(ContentOf(path), path);
    value.rows = std::move(table.rows);
    value.firstLine = table.firstLine;
    value.kind = Value::Rows::Repeat;
}

void SetPicture(Value &value, const JsonObject &object, const QDir &folder)
{
    value.picture = PathOf(value.name, object.values.at(object.IndexOf(QStringLiteral("picture"))), QStringLiteral("a picture"), folder);
    const int fit = object.IndexOf(QStringLiteral("fit"));
    const QString wanted = fit < 0 ? QStringLiteral("keep") : object.values.at(fit).toString();
    if (wanted != QLatin1String("keep") && wanted != QLatin1String("stretch"))
        throw Wrong(value.name, QStringLiteral("fit is \"keep\" or \"stretch\""));
    value.stretches = wanted == QLatin1String("stretch");
}

void SetOptions(Value &value, const QVariant &json)
{
    const QVariantList entries = json.toList();
    if (entries.isEmpty())
        throw Wrong(value.name, QStringLiteral("options are a list of one text or more"));
    for (const QVariant &entry : entries) {
        if (entry.userType() != QMetaType::QString)
            throw Wrong(value.name, QStringLiteral("an option is a text"));
        value.options.append(entry.toString());
    }
}

/// A single value: a number, a text, a truth value, null, a date, a time or a formula.
void SetContent(Value &value, const QVariant &json)
{
    value.hasContent = true;
    value.content = json;
    if (IsArray(json))
        throw Wrong(value.name, QStringLiteral("\"value\" takes one value, not an array"));
    if (!IsObject(json))
        return;
    const auto object = json.value<JsonObject>();
    const QVariant formula = Only(object, "formula");
    value.isFormula = formula.isValid();
    value.content = value.isFormula ? formula : DateOfObject(value.name, object);
    if (value.isFormula && formula.userType() != QMetaType::QString)
        throw Wrong(value.name, QStringLiteral("a formula is a text"));
    if (!value.content.isValid()) {
        throw Wrong(value.name,
                    QStringLiteral("an object with %1 is no value; see fill-template --help")
                        .arg(object.keys.isEmpty() ? QStringLiteral("nothing in it") : object.keys.join(QLatin1String(", "))));
    }
}

Value ValueOf(const QString &name, QVariant &json, const QDir &folder)
{
    Value value;
    value.name = name;
    if (IsArray(json)) {
        SetRows(value, json);
        return value;
    }
    JsonObject object = IsObject(json) ? json.value<JsonObject>() : JsonObject();
    QStringList keys = object.keys;
    keys.sort();
    if (keys == QStringList(QStringLiteral("rows"))) {
        json.clear();
        SetRows(value, object.values.first());
        value.kind = Value::Rows::Repeat;
    } else if (keys == QStringList(QStringLiteral("csv"))) {
        SetCsv(value, object.values.first(), folder);
    } else if (keys == QStringList(QStringLiteral("picture")) || keys == QStringList({QStringLiteral("fit"), QStringLiteral("picture")})) {
        SetPicture(value, object, folder);
    } else if (keys == QStringList(QStringLiteral("options")) || keys == QStringList(QStringLiteral("value"))
               || keys == QStringList({QStringLiteral("options"), QStringLiteral("value")})) {
        const int options = object.IndexOf(QStringLiteral("options"));
        const int content = object.IndexOf(QStringLiteral("value"));
        if (options >= 0)
            SetOptions(value, object.values.at(options));
        if (content >= 0)
            SetContent(value, object.values.at(content));
    } else {
        SetContent(value, json);
    }
    return value;
}

QString NameOf(const QVariant &json)
{
    return IsArray(json) ? QStringLiteral("an array") : json.isValid() ? QStringLiteral("a single value") : QStringLiteral("null");
}

} // namespace

QString FoldedColumn(const QString &name)
{
    return name.trimmed().toCaseFolded();
}

QVector<Value> ReadValues(const QString &path, const QString &filter)
{
    const bool isInput = path == QLatin1String("-");
    if (!isInput)
        RequireReadable(path);
    QVariant document = ReadJson(ContentOf(path), isInput ? QStringLiteral("the standard input") : path);
    if (!IsObject(document)) {
        throw Failure{
            NotJson,
            QStringLiteral("%1 holds no JSON object but %2; an object is wanted: {\"NAME\": VALUE, ...}").arg(path, NameOf(document))};
    }
    auto object = document.value<JsonObject>();
    document.clear();

    const QRegularExpression wanted(filter);
    const QDir folder = isInput ? QDir() : QFileInfo(path).absoluteDir();
    QVector<Value> values;
    for (int i = 0; i < object.keys.size(); ++i) {
        QVariant json = std::exchange(object.values[i], QVariant());
        if (wanted.match(object.keys.at(i)).hasMatch())
            values.append(ValueOf(object.keys.at(i), json, folder));
    }
    return values;
}

} // namespace FillTemplate
