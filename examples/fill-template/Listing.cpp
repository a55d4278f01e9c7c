#include "Listing.h"

#include "Dates.h"
#include "Log.h"
#include "OpenedTemplate.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QVector>

namespace FillTemplate {

namespace {

using Velmora::XlsxTemplate;
using Kind = XlsxTemplate::Kind;

constexpr int kWidestCell = 48;

struct Element
{
    QString name;
    QString kind;
    QString place;
    QVariant value;
    bool hasFormula = false;
    QStringList options;
    QStringList columns;
    QString reason;
};

QString KindText(Kind kind)
{
    switch (kind) {
    case Kind::None:
        break;
    case Kind::Cell:
        return QStringLiteral("cell");
    case Kind::Range:
        return QStringLiteral("range");
    case Kind::Places:
        return QStringLiteral("places");
    case Kind::List:
        return QStringLiteral("list");
    case Kind::Picture:
        return QStringLiteral("picture");
    case Kind::Unusable:
        return QStringLiteral("unusable");
    }
    return QString();
}

QString PictureText(const QByteArray &image)
{
    QString format = QStringLiteral("image");
    if (image.startsWith("\x89PNG"))
        format = QStringLiteral("PNG");
    else if (image.startsWith("\xff\xd8\xff"))
        format = QStringLiteral("JPEG");
    return QStringLiteral("%1, %2 bytes").arg(format).arg(image.size());
}

/// A sheet is read when one of its cells is first asked for.
QVariant ValueOf(XlsxTemplate &source, const QString &name)
{
    const QVariant value = source.value(name);
    if (source.error() == XlsxTemplate::Error::FormatError)
        throw FailureOf(source, name);
    return value;
}

Element ElementOf(XlsxTemplate &source, const QString &name)
{
    Element element;
    const Kind kind = source.kindOf(name);
    element.name = name;
    element.kind = KindText(kind);
    element.place = source.reference(name);
    element.reason = source.unusableReason(name);
    element.value = ValueOf(source, name);
    if (kind == Kind::Unusable)
        return element;
    if (kind == Kind::Picture) {
        element.value = PictureText(element.value.toByteArray());
        return element;
    }
    element.hasFormula = source.hasFormula(name);
    element.options = source.options(name);
    if (kind == Kind::Range)
        element.columns = source.columnNames(name);
    return element;
}

QJsonValue JsonOf(const QVariant &value)
{
    if (value.userType() == QMetaType::QVariantList) {
        QJsonArray array;
        for (const QVariant &entry : value.toList())
            array.append(JsonOf(entry));
        return array;
    }
    const QString date = DateText(value);
    if (date.isEmpty())
        return QJsonValue::fromVariant(value);
    // As fill takes it.
    return QJsonObject{{value.userType() == QMetaType::QTime ? QStringLiteral("time") : QStringLiteral("date"), date}};
}

void PrintJson(const QVector<Element> &elements)
{
    QJsonArray array;
    for (const Element &element : elements) {
        QJsonObject object{{QStringLiteral("name"), element.name},
                           {QStringLiteral("kind"), element.kind},
                           {QStringLiteral("place"), element.place},
                           {QStringLiteral("value"), JsonOf(element.value)}};
        if (element.hasFormula)
            object.insert(QStringLiteral("formula"), true);
        if (element.kind == QLatin1String("list"))
            object.insert(QStringLiteral("options"), QJsonArray::fromStringList(element.options));
        if (element.kind == QLatin1String("range"))
            object.insert(QStringLiteral("columns"), QJsonArray::fromStringList(element.columns));
        if (!element.reason.isEmpty())
            object.insert(QStringLiteral("reason"), element.reason);
        array.append(object);
    }
    Print(QString::fromUtf8(QJsonDocument(array).toJson()));
}

QString ValueText(const Element &element)
{
    if (!element.reason.isEmpty())
        return element.reason;
    const QJsonValue json = JsonOf(element.value);
    if (json.isArray())
        return QString::fromUtf8(QJsonDocument(json.toArray()).toJson(QJsonDocument::Compact));
    return json.isObject() ? DateText(element.value) : element.value.toString();
}

void PrintTable(const QVector<Element> &elements)
{
    QVector<QStringList> rows{
        {QStringLiteral("NAME"), QStringLiteral("KIND"), QStringLiteral("PLACE"), QStringLiteral("VALUE"), QStringLiteral("OPTIONS")}};
    for (const Element &element : elements) {
        const QString kind = element.kind + (element.hasFormula ? QStringLiteral(" (formula)") : QString());
        QStringList row{element.name, kind, element.place, ValueText(element), element.options.join(QLatin1Char(','))};
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
            widths[column] = qMax(widths.at(column), int(row.at(column).size()));
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
    XlsxTemplate source = OpenedTemplate(arguments.templatePath);
    const QRegularExpression wanted(arguments.filter);
    QStringList names = source.names().filter(wanted);
    names.sort();
    QVector<Element> elements;
    for (const QString &name : qAsConst(names))
        elements.append(ElementOf(source, name));
    if (arguments.json)
        PrintJson(elements);
    else
        PrintTable(elements);
}

} // namespace FillTemplate
