#include "xlsx/Template.h"

#include "xlsx/Archive.h"

#include <QDir>
#include <QSet>

#include <cstring>

#include <pugixml.hpp>

namespace VelmoraTest {

namespace {

// Functions, because constants of test programs are made of them.
QByteArray Declaration()
{
    return QByteArrayLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n");
}

QByteArray Main()
{
    return QByteArrayLiteral("http://schemas.openxmlformats.org/spreadsheetml/2006/main");
}

QByteArray Office()
{
    return QByteArrayLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships");
}

QByteArray SheetType()
{
    return QByteArrayLiteral("application/vnd.openxmlformats-officedocument.spreadsheetml.");
}

QByteArray Number(int number)
{
    return QByteArray::number(number);
}

} // namespace

QByteArray Relationship(const QByteArray &id, const QByteArray &typeEnd, const QByteArray &target)
{
    return "<Relationship Id=\"" + id + "\" Type=\"" + Office() + "/" + typeEnd + "\" Target=\"" + target + "\"/>";
}

QByteArray Relationships(const QByteArray &relationships)
{
    return Declaration() + "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">" + relationships
        + "</Relationships>";
}

Template::Template()
{
    parts["_rels/.rels"] = Relationships(Relationship("rId1", "officeDocument", "xl/workbook.xml"));
    parts["xl/styles.xml"] = Declaration() + "<styleSheet xmlns=\"" + Main()
        + "\"><!-- kept --><fonts count=\"1\"><font><sz val=\"11\"/><name val=\"Calibri\"/></font></fonts><fills "
          "count=\"1\"><fill/></fills>"
          "<borders count=\"1\"><border/></borders><cellStyleXfs count=\"1\"><xf/></cellStyleXfs><cellXfs count=\"1\"><xf/></cellXfs>"
          "</styleSheet>";
    Sheet(1, QByteArray(), "<pageMargins left=\"0.7\"/>", "Sheet1");
}

Template &Template::Sheet(int number, const QByteArray &sheetData, const QByteArray &afterSheetData, const QByteArray &name)
{
    parts["xl/worksheets/sheet" + Number(number) + ".xml"] = Declaration() + "<worksheet xmlns=\"" + Main() + "\" xmlns:r=\"" + Office()
        + "\"><sheetData>" + sheetData + "</sheetData>" + afterSheetData + "</worksheet>";
    if (!m_sheetNames.contains(number) || !name.isEmpty())
        m_sheetNames[number] = name.isEmpty() ? "Sheet" + Number(number) : name;
    Rebuild();
    return *this;
}

Template &Template::Name(const QByteArray &name, const QByteArray &text)
{
    m_names.append({name, text});
    Rebuild();
    return *this;
}

Template &Template::Strings(const QList<QByteArray> &items)
{
    QByteArray content = Declaration() + "<sst xmlns=\"" + Main() + "\">";
    for (const QByteArray &item : items)
        content += item;
    parts["xl/sharedStrings.xml"] = content + "</sst>";
    m_hasStrings = true;
    Rebuild();
    return *this;
}

Template &Template::Drawing(int number, const QList<QPair<QByteArray, QByteArray>> &pictures, const QByteArray &relationships)
{
    QByteArray content = Declaration()
        + "<xdr:wsDr xmlns:xdr=\"http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing\" "
          "xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\" xmlns:r=\""
        + Office() + "\">";
    for (const auto &picture : pictures) {
        content +=
            "<xdr:oneCellAnchor><xdr:from><xdr:col>1</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>1</xdr:row><xdr:rowOff>0</xdr:rowOff>"
            "</xdr:from><xdr:ext cx=\"400000\" cy=\"400000\"/><xdr:pic><xdr:nvPicPr><xdr:cNvPr id=\"2\" name=\""
            + picture.first + "\"/><xdr:cNvPicPr/></xdr:nvPicPr><xdr:blipFill><a:blip r:embed=\"" + picture.second
            + "\"/></xdr:blipFill><xdr:spPr/></xdr:pic><xdr:clientData/></xdr:oneCellAnchor>";
    }
    parts["xl/drawings/drawing" + Number(number) + ".xml"] = content + "</xdr:wsDr>";
    parts["xl/drawings/_rels/drawing" + Number(number) + ".xml.rels"] = Relationships(relationships);
    m_drawings.append(number);
    Rebuild();
    return *this;
}

void Template::Rebuild()
{
    QByteArray types = Declaration()
        + "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
          "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
          "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
          "<Override PartName=\"/xl/workbook.xml\" ContentType=\""
        + SheetType() + "sheet.main+xml\"/><Override PartName=\"/xl/styles.xml\" ContentType=\"" + SheetType() + "styles+xml\"/>";
    QByteArray sheets;
    QByteArray relationships;
    for (auto sheet = m_sheetNames.cbegin(); sheet != m_sheetNames.cend(); ++sheet) {
        const QByteArray number = Number(sheet.key());
        types += "<Override PartName=\"/xl/worksheets/sheet" + number + ".xml\" ContentType=\"" + SheetType() + "worksheet+xml\"/>";
        sheets += "<sheet name=\"" + sheet.value() + "\" sheetId=\"" + number + "\" r:id=\"rId" + number + "\"/>";
        relationships += Relationship("rId" + number, "worksheet", "worksheets/sheet" + number + ".xml");
    }
    for (int drawing : qAsConst(m_drawings))
        types += "<Override PartName=\"/xl/drawings/drawing" + Number(drawing)
            + ".xml\" ContentType=\"application/vnd.openxmlformats-officedocument.drawing+xml\"/>";
    const int next = m_sheetNames.lastKey() + 1;
    relationships += Relationship("rId" + Number(next), "styles", "styles.xml");
    if (m_hasStrings) {
        types += "<Override PartName=\"/xl/sharedStrings.xml\" ContentType=\"" + SheetType() + "sharedStrings+xml\"/>";
        relationships += Relationship("rId" + Number(next + 1), "sharedStrings", "sharedStrings.xml");
    }
    parts["[Content_Types].xml"] = types + "</Types>";
    parts["xl/_rels/workbook.xml.rels"] = Relationships(relationships);

    QByteArray names;
    for (const auto &name : qAsConst(m_names))
        names += "<definedName name=\"" + name.first + "\">" + name.second + "</definedName>";
    if (!names.isEmpty())
        names = "<definedNames>" + names + "</definedNames>";
    parts["xl/workbook.xml"] = Declaration() + "<workbook xmlns=\"" + Main() + "\" xmlns:r=\"" + Office() + "\"><sheets>" + sheets
        + "</sheets>" + names + "<calcPr calcId=\"0\"/></workbook>";
}

QByteArray Template::Archive() const
{
    return MakeArchive(parts);
}

// --- The rules of a package ---

namespace {

bool Parse(const QByteArray &content, pugi::xml_document &document)
{
    return document.load_buffer(content.constData(), std::size_t(content.size()), pugi::parse_full);
}

bool IsXml(const QByteArray &name)
{
    return name.endsWith(".xml") || name.endsWith(".rels");
}

QStringList ContentTypeFaults(const QMap<QByteArray, QByteArray> &parts)
{
    QStringList faults;
    pugi::xml_document types;
    if (!Parse(parts.value("[Content_Types].xml"), types))
        return {QStringLiteral("no content types")};
    QSet<QByteArray> extensions;
    QSet<QByteArray> overridden;
    for (const pugi::xml_node &type : types.document_element().children()) {
        const bool isDefault = std::strcmp(type.name(), "Default") == 0;
        QSet<QByteArray> &keys = isDefault ? extensions : overridden;
        const QByteArray key = QByteArray(type.attribute(isDefault ? "Extension" : "PartName").value()).toLower();
        if (keys.contains(key))
            faults += QStringLiteral("two content types of %1").arg(QString::fromUtf8(key));
        keys.insert(key);
        if (!isDefault && !parts.contains(type.attribute("PartName").value() + 1))
            faults += QStringLiteral("a content type without a part: %1").arg(QString::fromUtf8(key));
    }
    for (auto part = parts.cbegin(); part != parts.cend(); ++part) {
        const QByteArray extension = part.key().mid(part.key().lastIndexOf('.') + 1).toLower();
        if (part.key() != "[Content_Types].xml" && !extensions.contains(extension) && !overridden.contains("/" + part.key().toLower()))
            faults += QStringLiteral("a part without a content type: %1").arg(QString::fromUtf8(part.key()));
    }
    return faults;
}

QStringList RelationshipFaults(const QMap<QByteArray, QByteArray> &parts)
{
    QStringList faults;
    for (auto part = parts.cbegin(); part != parts.cend(); ++part) {
        if (!part.key().endsWith(".rels"))
            continue;
        pugi::xml_document document;
        Parse(part.value(), document);
        QSet<QByteArray> ids;
        // xl/_rels/workbook.xml.rels speaks for xl/workbook.xml.
        const QString folder = QString::fromUtf8(part.key().left(part.key().indexOf("_rels/")));
        for (const pugi::xml_node &relationship : document.document_element().children()) {
            const QByteArray id = relationship.attribute("Id").value();
            if (id.isEmpty() || ids.contains(id))
                faults += QStringLiteral("%1: no or no unique id %2").arg(QString::fromUtf8(part.key()), QString::fromUtf8(id));
            ids.insert(id);
            if (std::strcmp(relationship.attribute("TargetMode").value(), "External") == 0)
                continue;
            const QString target = QString::fromUtf8(relationship.attribute("Target").value());
            const QString path = target.startsWith(QLatin1Char('/')) ? target.mid(1) : QDir::cleanPath(folder + target);
            if (!parts.contains(path.toUtf8()))
                faults += QStringLiteral("%1: %2 leads nowhere").arg(QString::fromUtf8(part.key()), target);
        }
        const QByteArray source = QByteArray(part.key()).replace("_rels/", "").chopped(5);
        if (source.isEmpty() || source.endsWith('/') || !parts.contains(source))
            continue;
        pugi::xml_document referring;
        Parse(parts.value(source), referring);
        const pugi::xpath_node_set references = referring.select_nodes("//@r:id | //@r:embed");
        for (const pugi::xpath_node &reference : references) {
            if (!ids.contains(reference.attribute().value()))
                faults += QStringLiteral("%1: no relationship %2")
                              .arg(QString::fromUtf8(source), QString::fromUtf8(reference.attribute().value()));
        }
    }
    return faults;
}

QStringList SheetFaults(const QMap<QByteArray, QByteArray> &parts)
{
    QStringList faults;
    pugi::xml_document strings;
    Parse(parts.value("xl/sharedStrings.xml"), strings);
    const auto stringCount = std::distance(strings.child("sst").children("si").begin(), strings.child("sst").children("si").end());
    for (auto part = parts.cbegin(); part != parts.cend(); ++part) {
        if (!part.key().startsWith("xl/worksheets/sheet"))
            continue;
        pugi::xml_document sheet;
        Parse(part.value(), sheet);
        const QString name = QString::fromUtf8(part.key());
        int lastRow = 0;
        for (const pugi::xml_node &row : sheet.child("worksheet").child("sheetData").children("row")) {
            const int number = row.attribute("r").as_int();
            if (number <= lastRow)
                faults += QStringLiteral("%1: row %2 after row %3").arg(name).arg(number).arg(lastRow);
            lastRow = number;
            QByteArray lastCell;
            for (const pugi::xml_node &cell : row.children("c")) {
                const QByteArray position = cell.attribute("r").value();
                if (position <= lastCell)
                    faults +=
                        QStringLiteral("%1: cell %2 after cell %3").arg(name, QString::fromUtf8(position), QString::fromUtf8(lastCell));
                lastCell = position;
                if (!position.endsWith(Number(number)))
                    faults += QStringLiteral("%1: cell %2 in row %3").arg(name, QString::fromUtf8(position)).arg(number);
                const int index = cell.child("v").text().as_int();
                if (std::strcmp(cell.attribute("t").value(), "s") == 0 && (index < 0 || index >= stringCount))
                    faults += QStringLiteral("%1: no string %2").arg(name).arg(index);
            }
        }
    }
    return faults;
}

} // namespace

QStringList PackageFaults(const QMap<QByteArray, QByteArray> &parts)
{
    QStringList faults;
    for (auto part = parts.cbegin(); part != parts.cend(); ++part) {
        pugi::xml_document document;
        if (IsXml(part.key()) && !Parse(part.value(), document))
            faults += QStringLiteral("no XML: %1").arg(QString::fromUtf8(part.key()));
    }
    if (!parts.contains("_rels/.rels"))
        faults += QStringLiteral("no package relationships");
    return faults + ContentTypeFaults(parts) + RelationshipFaults(parts) + SheetFaults(parts);
}

} // namespace VelmoraTest
