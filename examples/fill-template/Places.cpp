#include "Places.h"

#include "Numbering.h"
#include "Xml.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace FillTemplate {

namespace {

void Append(QMap<QString, QString> &places, const QString &name, const QString &place)
{
    QString &all = places[name];
    all += (all.isEmpty() ? QString() : QStringLiteral(",")) + place;
}

/// The letters of a column counted from 0.
QString ColumnLetters(int column)
{
    QString letters;
    for (int rest = column + 1; rest > 0; rest = (rest - 1) / 26)
        letters.prepend(QLatin1Char(char('A' + (rest - 1) % 26)));
    return letters;
}

/// The sheets' names by their drawings.
QHash<QString, QString> SheetsOfDrawings(const QString &folder, XmlPart &workbook)
{
    QHash<QString, QString> sheets;
    int number = 0;
    for (const pugi::xml_node &sheet : workbook.Root().child("sheets").children("sheet")) {
        // Of a prepared package, in which the number of the relationship is that of the sheet.
        number = Text(sheet.attribute("r:id").value()).mid(3).toInt();
        const QString part = QStringLiteral("xl/worksheets/sheet%1.xml").arg(number);
        const QString path = folder + QLatin1Char('/') + RelationshipsPartOf(part);
        if (!QFileInfo(path).isFile())
            continue;
        XmlPart relationships(path);
        for (const pugi::xml_node &relationship : relationships.Root().children("Relationship"))
            sheets.insert(ResolvedTarget(part, Text(relationship.attribute("Target").value())), Text(sheet.attribute("name").value()));
    }
    return sheets;
}

QString CellOfPicture(pugi::xml_node picture)
{
    pugi::xml_node anchor = picture;
    while (anchor && !anchor.child("xdr:from"))
        anchor = anchor.parent();
    const pugi::xml_node from = anchor.child("xdr:from");
    if (!from)
        return QString();
    return QStringLiteral("!$%1$%2")
        .arg(ColumnLetters(qBound(0, from.child("xdr:col").text().as_int(), 0xffff)))
        .arg(qBound(0, from.child("xdr:row").text().as_int(), 0xffffff) + 1);
}

} // namespace

QMap<QString, QString> PlacesOf(const QString &folder)
{
    QMap<QString, QString> places;
    XmlPart workbook(folder + QLatin1String("/xl/workbook.xml"));
    ForEachElement(workbook.Root(), [&places](const pugi::xml_node &node) {
        if (qstrcmp(node.name(), "definedName") == 0)
            Append(places, Text(node.attribute("name").value()), Text(node.text().get()));
    });

    const QHash<QString, QString> sheets = SheetsOfDrawings(folder, workbook);
    for (int i = 1;; ++i) {
        const QString part = QStringLiteral("xl/drawings/drawing%1.xml").arg(i);
        if (!QFileInfo(folder + QLatin1Char('/') + part).isFile())
            break;
        XmlPart drawing(folder + QLatin1Char('/') + part);
        ForEachElement(drawing.Root(), [&](const pugi::xml_node &node) {
            if (qstrcmp(node.name(), "xdr:pic") == 0)
                Append(places, Text(node.child("xdr:nvPicPr").child("xdr:cNvPr").attribute("name").value()),
                       sheets.value(part, part) + CellOfPicture(node));
        });
    }
    return places;
}

} // namespace FillTemplate
