#include "SampleTemplate.h"

#include <Velmora/QcStyleManager.h>
#include <Velmora/XlsxZip.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>

namespace Gallery {

namespace {

struct Part
{
    const char *path;
    const char *content; ///< with $main, $office and $package for the namespaces' beginnings
};

// The least that office programs take for a workbook.
constexpr Part kParts[] = {
    {"[Content_Types].xml", R"(<Types xmlns="$package/content-types">
<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>
<Default Extension="xml" ContentType="application/xml"/>
<Default Extension="png" ContentType="image/png"/>
<Override PartName="/xl/workbook.xml" ContentType="$type.spreadsheetml.sheet.main+xml"/>
<Override PartName="/xl/worksheets/sheet1.xml" ContentType="$type.spreadsheetml.worksheet+xml"/>
<Override PartName="/xl/styles.xml" ContentType="$type.spreadsheetml.styles+xml"/>
<Override PartName="/xl/sharedStrings.xml" ContentType="$type.spreadsheetml.sharedStrings+xml"/>
<Override PartName="/xl/drawings/drawing1.xml" ContentType="$type.drawing+xml"/></Types>)"},
    {"_rels/.rels", R"(<Relationships xmlns="$package/relationships">
<Relationship Id="rId1" Type="$office/relationships/officeDocument" Target="xl/workbook.xml"/></Relationships>)"},
    {"xl/_rels/workbook.xml.rels", R"(<Relationships xmlns="$package/relationships">
<Relationship Id="rId1" Type="$office/relationships/worksheet" Target="worksheets/sheet1.xml"/>
<Relationship Id="rId2" Type="$office/relationships/styles" Target="styles.xml"/>
<Relationship Id="rId3" Type="$office/relationships/sharedStrings" Target="sharedStrings.xml"/></Relationships>)"},
    {"xl/workbook.xml", R"(<workbook xmlns="$main" xmlns:r="$office/relationships">
<sheets><sheet name="Invoice" sheetId="1" r:id="rId1"/></sheets><definedNames>
<definedName name="Number">Invoice!$B$2</definedName><definedName name="Customer">Invoice!$B$3</definedName>
<definedName name="Date">Invoice!$B$4</definedName><definedName name="Terms">Invoice!$B$5</definedName>
<definedName name="Items">Invoice!$A$8:$C$8</definedName><definedName name="Shipping">Invoice!$D$9</definedName>
<definedName name="Total">Invoice!$D$10</definedName></definedNames></workbook>)"},
    // Styles: 1 title, 2 bold, 3 date, 4 amount, 5 bold amount.
    {"xl/styles.xml", R"(<styleSheet xmlns="$main"><fonts count="3"><font><sz val="11"/><name val="Calibri"/></font>
<font><b/><sz val="16"/><name val="Calibri"/></font><font><b/><sz val="11"/><name val="Calibri"/></font></fonts>
<fills count="1"><fill><patternFill patternType="none"/></fill></fills>
<borders count="1"><border/></borders><cellStyleXfs count="1"><xf/></cellStyleXfs>
<cellXfs count="6"><xf/><xf fontId="1" applyFont="1"/><xf fontId="2" applyFont="1"/>
<xf numFmtId="14" applyNumberFormat="1" applyAlignment="1"><alignment horizontal="left"/></xf>
<xf numFmtId="4" applyNumberFormat="1"/><xf numFmtId="4" fontId="2" applyNumberFormat="1" applyFont="1"/></cellXfs></styleSheet>)"},
    {"xl/sharedStrings.xml", R"(<sst xmlns="$main"><si><t>Invoice</t></si><si><t>Number</t></si><si><t>Customer</t></si><si><t>Date</t></si>
<si><t>Terms</t></si><si><t>30 days</t></si><si><t>Item</t></si><si><t>Quantity</t></si><si><t>Price</t></si><si><t>Amount</t></si>
<si><t>Shipping</t></si><si><t>Total</t></si></sst>)"},
    {"xl/worksheets/sheet1.xml", R"(<worksheet xmlns="$main" xmlns:r="$office/relationships">
<cols><col min="1" max="1" width="24" customWidth="1"/><col min="2" max="4" width="14" customWidth="1"/></cols><sheetData>
<row r="1" ht="24" customHeight="1"><c r="A1" s="1" t="s"><v>0</v></c></row>
<row r="2"><c r="A2" t="s"><v>1</v></c><c r="B2"><v>1001</v></c></row>
<row r="3"><c r="A3" t="s"><v>2</v></c><c r="B3"/></row>
<row r="4"><c r="A4" t="s"><v>3</v></c><c r="B4" s="3"/></row>
<row r="5"><c r="A5" t="s"><v>4</v></c><c r="B5" t="s"><v>5</v></c></row>
<row r="7"><c r="A7" s="2" t="s"><v>6</v></c><c r="B7" s="2" t="s"><v>7</v></c><c r="C7" s="2" t="s"><v>8</v></c>
<c r="D7" s="2" t="s"><v>9</v></c></row>
<row r="8"><c r="A8"/><c r="B8"/><c r="C8" s="4"/><c r="D8" s="4"><f>B8*C8</f><v>0</v></c></row>
<row r="9"><c r="A9" t="s"><v>10</v></c><c r="D9" s="4"/></row>
<row r="10"><c r="A10" s="2" t="s"><v>11</v></c><c r="D10" s="5"><f>SUM(D8:D9)</f><v>0</v></c></row></sheetData>
<dataValidations count="1"><dataValidation type="list" allowBlank="1" sqref="B5"><formula1>"14 days,30 days,60 days"</formula1></dataValidation></dataValidations>
<pageMargins left="0.7" right="0.7" top="0.75" bottom="0.75" header="0.3" footer="0.3"/><drawing r:id="rId1"/></worksheet>)"},
    {"xl/worksheets/_rels/sheet1.xml.rels", R"(<Relationships xmlns="$package/relationships">
<Relationship Id="rId1" Type="$office/relationships/drawing" Target="../drawings/drawing1.xml"/></Relationships>)"},
    {"xl/drawings/drawing1.xml", R"(<xdr:wsDr xmlns:xdr="$drawing/spreadsheetDrawing"
 xmlns:a="$drawing/main" xmlns:r="$office/relationships"><xdr:oneCellAnchor>
<xdr:from><xdr:col>3</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>0</xdr:row><xdr:rowOff>0</xdr:rowOff></xdr:from>
<xdr:ext cx="762000" cy="762000"/><xdr:pic><xdr:nvPicPr><xdr:cNvPr id="2" name="Logo"/><xdr:cNvPicPr/></xdr:nvPicPr>
<xdr:blipFill><a:blip r:embed="rId1"/><a:stretch><a:fillRect/></a:stretch></xdr:blipFill>
<xdr:spPr><a:prstGeom prst="rect"/></xdr:spPr></xdr:pic><xdr:clientData/></xdr:oneCellAnchor></xdr:wsDr>)"},
    {"xl/drawings/_rels/drawing1.xml.rels", R"(<Relationships xmlns="$package/relationships">
<Relationship Id="rId1" Type="$office/relationships/image" Target="../media/image1.png"/></Relationships>)"},
};

QByteArray ContentOf(const Part &part)
{
    QByteArray content = QByteArrayLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n") + part.content;
    content.replace("$main", "http://schemas.openxmlformats.org/spreadsheetml/2006/main");
    content.replace("$office", "http://schemas.openxmlformats.org/officeDocument/2006");
    content.replace("$package", "http://schemas.openxmlformats.org/package/2006");
    content.replace("$drawing", "http://schemas.openxmlformats.org/drawingml/2006");
    return content.replace("$type", "application/vnd.openxmlformats-officedocument");
}

QImage Placeholder()
{
    QImage image(96, 96, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Velmora::QcStyleManager::GetInstance()->GetColor(QStringLiteral("brand/brand")));
    painter.drawRoundedRect(image.rect(), 16, 16);
    return image;
}

bool WriteFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace

bool MakeSampleTemplate(const QString &path, const QString &folder)
{
    bool written = true;
    for (const Part &part : kParts)
        written = written && WriteFile(folder + QLatin1Char('/') + QLatin1String(part.path), ContentOf(part));
    const QString media = folder + QStringLiteral("/xl/media");
    return written && QDir().mkpath(media) && Placeholder().save(media + QStringLiteral("/image1.png"))
        && Velmora::XlsxZip::compressToXlsxFile(folder, path);
}

} // namespace Gallery
