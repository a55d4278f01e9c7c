#include "Listing.h"

#include "LoadedTemplate.h"
#include "Log.h"
#include "Places.h"
#include "Xml.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVector>

#include <algorithm>

namespace FillTemplate {

namespace {

using Velmora::XlsxOperator;

constexpr int kWidestCell = 48;

struct Element
{
    QString name;
    QString kind;
    QString place;
    QVariant value;
    QStringList options;
};

QVector<Element> ElementsOf(LoadedTemplate &source)
{
    const QHash<QString, QVariant> values = source.Elements();
    const QMap<QString, QString> places = PlacesOf(source.Folder());
    QStringList names = values.keys();
    std::sort(names.begin(), names.end());

    QVector<Element> elements;
    for (const QString &name : qAsConst(names)) {
        Element element{name, QStringLiteral("cell"), places.value(name), values.value(name), QStringList()};
        if (element.value.canConvert<XlsxOperator::DropDownInfo>()) {
            const auto info = element.value.value<XlsxOperator::DropDownInfo>();
            element.kind = QStringLiteral("list");
            element.value = info.value;
            element.options = info.options;
        } else if (element.value.canConvert<XlsxOperator::PictureInfo>()) {
            element.kind = QStringLiteral("picture");
            element.value = element.value.value<XlsxOperator::PictureInfo>().filePath;
        }
        if (element.value.type() == QVariant::String && element.kind != QLatin1String("picture"))
            element.value = DecodedText(element.value.toString());
        elements.append(element);
    }
    return elements;
}

void PrintJson(const QVector<Element> &elements)
{
    QJsonArray array;
    for (const Element &element : elements) {
        QJsonObject object{{QStringLiteral("name"), element.name},
                           {QStringLiteral("kind"), element.kind},
                           {QStringLiteral("place"), element.place},
                           {QStringLiteral("value"), QJsonValue::fromVariant(element.value)}};
        if (element.kind == QLatin1String("list"))
            object.insert(QStringLiteral("options"), QJsonArray::fromStringList(element.options));
        array.append(object);
    }
    Print(QString::fromUtf8(QJsonDocument(array).toJson()));
}

void PrintTable(const QVector<Element> &elements)
{
    QVector<QStringList> rows{
        {QStringLiteral("NAME"), QStringLiteral("KIND"), QStringLiteral("PLACE"), QStringLiteral("VALUE"), QStringLiteral("OPTIONS")}};
    for (const Element &element : elements) {
        QStringList row{element.name, element.kind, element.place, element.value.toString(), element.options.join(QLatin1Char(','))};
        for (QString &cell : row) {
            cell = OneLine(cell);
            if (cell.size() > kWidestCell)
                cell = cell.left(kWidestCell - 3) + QLatin1String("...");
        }
        row[0] = OneLine(element.name); // whole, to be used
        rows.append(row);
    }
    QVector<int> widths(rows.first().size(), 0);
    for (const QStringList &row : qAsConst(rows)) {
        for (int column = 0; column < row.size(); ++column)
            widths[column] = qMax(widths.at(column), row.at(column).size());
    }
    QString text;
    for (const QStringList &row : qAsConst(rows)) {
        QString line;
        for (int column = 0; column < row.size(); ++column)
            line += row.at(column).leftJustified(widths.at(column) + 2);
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        text += line + QLatin1Char('\n');
    }
    Print(text);
}

} // namespace

void List(const Arguments &arguments)
{
    LoadedTemplate source(arguments.templatePath, arguments.filter);
    const QVector<Element> elements = ElementsOf(source);
    if (arguments.json)
        PrintJson(elements);
    else
        PrintTable(elements);
}

} // namespace FillTemplate
