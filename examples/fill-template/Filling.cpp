#include "Filling.h"

#include "OpenedTemplate.h"
#include "OutputFile.h"
#include "Progress.h"
#include "Values.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <numeric>
#include <utility>

namespace FillTemplate {

namespace {

using Velmora::XlsxTemplate;
using Kind = XlsxTemplate::Kind;

void RequireFittingElements(const QVector<Value> &values, const XlsxTemplate &source, const QString &templatePath)
{
    QStringList unknown;
    for (const Value &value : values) {
        if (source.kindOf(value.name) == Kind::None)
            unknown.append(value.name);
    }
    unknown.sort();
    if (!unknown.isEmpty())
        throw Failure{UnknownName, QStringLiteral("%1 has no element named %2").arg(templatePath, unknown.join(QLatin1String(", ")))};
    for (const Value &value : values) {
        const Kind kind = source.kindOf(value.name);
        if (kind == Kind::Unusable)
            throw Failure{WrongType, QStringLiteral("%1: %2").arg(value.name, source.unusableReason(value.name))};
        if (kind == Kind::Picture && value.picture.isEmpty())
            throw Failure{WrongType, QStringLiteral("%1 is a picture and takes {\"picture\": FILE}").arg(value.name)};
        if (kind != Kind::Picture && !value.picture.isEmpty())
            throw Failure{WrongType, QStringLiteral("%1 is a cell and takes no picture").arg(value.name)};
    }
}

/// For each of \a columns its place among the template's. Empty if it has none for one of them, or has it twice, which \a fault says.
QVector<int> PlacesOf(const QStringList &columns, const QStringList &ofTemplate, QString &fault)
{
    QHash<QString, int> placeOf;
    for (int i = int(ofTemplate.size()) - 1; i >= 0; --i)
        placeOf.insert(FoldedColumn(ofTemplate.at(i)), i);
    placeOf.remove(QString());
    QVector<int> places;
    for (const QString &column : columns) {
        const int place = placeOf.value(FoldedColumn(column), -1);
        if (place >= 0 && !places.contains(place)) {
            places.append(place);
            continue;
        }
        fault = placeOf.isEmpty() ? QStringLiteral("there are no texts above to name columns")
            : place < 0           ? QStringLiteral("there is no column %1, only %2").arg(column, ofTemplate.join(QLatin1String(", ")))
                                  : QStringLiteral("the column %1 is there twice").arg(column);
        return {};
    }
    return places;
}

QVector<int> FirstPlaces(int count)
{
    QVector<int> places(count);
    std::iota(places.begin(), places.end(), 0);
    return places;
}

/// Sorts the rows into the template's columns, one after the other, so that they are in memory once.
void SortColumns(QVector<QVariantList> &rows, const QVector<int> &places)
{
    if (places == FirstPlaces(int(places.size())))
        return;
    const int width = *std::max_element(places.begin(), places.end()) + 1;
    for (QVariantList &row : rows) {
        QVariantList sorted;
        for (int i = 0; i < width; ++i)
            sorted.append(QVariant::fromValue(XlsxTemplate::Keep()));
        for (int i = 0; i < row.size(); ++i)
            sorted[places.at(i)].swap(row[i]);
        row.swap(sorted);
    }
}

void SortRows(const XlsxTemplate &source, Value &value)
{
    const QStringList columns = source.columnNames(value.name);
    QString fault;
    if (!value.columns.isEmpty()) {
        const QVector<int> places = PlacesOf(value.columns, columns, fault);
        if (places.isEmpty())
            throw Failure{WrongType, QStringLiteral("%1: %2").arg(value.name, fault)};
        SortColumns(value.rows, places);
        return;
    }
    // A file's first line is a header if it holds nothing but columns' names.
    const QVector<int> places = PlacesOf(value.firstLine, columns, fault);
    if (!places.isEmpty()) {
        value.rows.removeFirst();
        const bool areLong = std::any_of(value.rows.begin(), value.rows.end(), [&](const auto &row) { return row.size() > places.size(); });
        if (areLong)
            throw Failure{WrongType, QStringLiteral("%1: a line has more cells than the header").arg(value.name)};
        SortColumns(value.rows, places);
    } else if (value.firstLine.size() == 1 && columns.size() > 1
               && value.firstLine.first().contains(QRegularExpression(QStringLiteral("[;\t]")))) {
        throw Failure{WrongType,
                      QStringLiteral("%1: the file separates its cells by semicolons or tabs; commas are wanted").arg(value.name)};
    }
}

bool FillRange(XlsxTemplate &source, const Value &value)
{
    XlsxTemplate::Fitted fitted;
    if (!source.setValues(value.name, value.rows, &fitted))
        return false;
    int width = 0;
    for (const QVariantList &row : value.rows)
        width = std::max(width, int(row.size()));
    if (fitted.rows == value.rows.size() && fitted.columns == width)
        return true;
    throw Failure{WrongType,
                  QStringLiteral("%1: these are %2 x %3 values, of which %4 x %5 fit; {\"rows\": [...]} repeats a row as often as needed")
                      .arg(value.name)
                      .arg(value.rows.size())
                      .arg(width)
                      .arg(fitted.rows)
                      .arg(fitted.columns)};
}

bool Set(XlsxTemplate &source, Value &value)
{
    if (!value.picture.isEmpty()) {
        const auto fit = value.stretches ? XlsxTemplate::PictureFit::Stretch : XlsxTemplate::PictureFit::Fit;
        return source.setPicture(value.name, value.picture, fit);
    }
    if (value.kind == Value::Rows::Fill)
        return FillRange(source, value);
    if (value.kind == Value::Rows::Repeat) {
        SortRows(source, value);
        return source.setRows(value.name, value.rows);
    }
    if (!value.options.isEmpty() && !source.setOptions(value.name, value.options))
        return false;
    if (!value.hasContent)
        return true;
    return value.isFormula ? source.setFormula(value.name, value.content.toString()) : source.setValue(value.name, value.content);
}

} // namespace

void Fill(const Arguments &arguments)
{
    Progress progress(arguments.quiet);
    progress.Step(QStringLiteral("reading %1").arg(arguments.valuesPath));
    QVector<Value> values = ReadValues(arguments.valuesPath, arguments.filter);
    progress.Step(QStringLiteral("reading %1").arg(arguments.templatePath));
    XlsxTemplate source = OpenedTemplate(arguments.templatePath);
    RequireFittingElements(values, source, arguments.templatePath);
    source.setValuesOutsideListsAllowed(arguments.allowUnlisted);
    OutputFile output(arguments.outputPath);
    for (int i = 0; i < values.size(); ++i) {
        Value value = std::exchange(values[i], Value()); // rows go when they are filled in
        progress.Step(QStringLiteral("filling in %1 (%2 of %3)").arg(value.name).arg(i + 1).arg(values.size()));
        if (!Set(source, value))
            throw FailureOf(source, value.name);
    }
    progress.Step(QStringLiteral("writing %1").arg(arguments.outputPath));
    const QByteArray package = source.save();
    if (package.isEmpty())
        throw FailureOf(source, arguments.templatePath);
    const QString fault = WriteFault(output.WorkPath(), package);
    if (!fault.isEmpty())
        throw Failure{OutputFailed, QStringLiteral("%1 cannot be written: %2").arg(arguments.outputPath, fault)};
    output.Commit();
}

} // namespace FillTemplate
