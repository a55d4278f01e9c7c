// Mutates packages: their entries, and now and then the archive around them.

#include "xlsx/Archive.h"

#include <QByteArray>
#include <QList>

#include <algorithm>
#include <cstring>
#include <random>

using VelmoraTest::ArchiveEntry;

// libFuzzer's own mutation; missing where seeds are only replayed.
extern "C" __attribute__((weak)) std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t maxSize);

namespace {

constexpr int kMostBytesOfEntry = 64 * 1024;

using Random = std::minstd_rand;

int Below(Random &random, qsizetype limit)
{
    return limit > 0 ? int(random() % quint64(limit)) : 0;
}

QByteArray Mutated(QByteArray bytes)
{
    const auto size = bytes.size();
    bytes.resize(size + 64);
    bytes.truncate(int(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t *>(bytes.data()), std::size_t(size), std::size_t(bytes.size()))));
    return bytes;
}

const QByteArray &Snippet(Random &random)
{
    static const QList<QByteArray> snippets{
        "<definedName name=\"N\">Sheet1!$A$1:$B$9</definedName>",
        "<definedName name=\"o'n\">'My Sheet'!$AZ$3,Sheet1!$A$1,#REF!</definedName>",
        "<definedName name=\"logo\" localSheetId=\"9\">Sheet1!$A:$A,Sheet1!A1</definedName>",
        "<sheet name=\"My Sheet\" sheetId=\"2\" r:id=\"rId2\"/>",
        "<sheet name=\"It's\" r:id=\"rId99999999999\"/>",
        "<row r=\"5\"><c r=\"B5\" t=\"s\"><v>1</v></c></row>",
        "<row r=\"-1\"/>",
        "<c r=\"A1\"><f>A2</f><v>1.5</v></c>",
        "<c r=\"B1\" t=\"s\"><v>-1</v></c>",
        "<dataValidations count=\"1\"><dataValidation type=\"list\" "
        "sqref=\"A1\"><formula1>\"a,b\"</formula1></dataValidation></dataValidations>",
        "<pageMargins/>",
        "<sheetData/>",
        "<si><t>text</t></si>",
        "<si><r><t>rich</t></r></si>",
        "<Relationship Id=\"rId7\" Type=\"x\" Target=\"../media/new.png\"/>",
        "<Relationship Id=\"rId2147483647\" Type=\"x\" Target=\"sharedStrings.xml\"/>",
        "<Default Extension=\"png\" ContentType=\"image/png\"/>",
        "<xdr:pic><xdr:nvPicPr><xdr:cNvPr name=\"logo\"/></xdr:nvPicPr><xdr:blipFill><a:blip r:embed=\"rId1\"/></xdr:blipFill></xdr:pic>",
        "<![CDATA[x]]>",
        "<!DOCTYPE a [<!ENTITY b \"c\">]>",
        "&amp;&#0;&#x10FFFF;&b;",
        "$A$1:$A$2147483647",
        "$ZZ$1048576",
        ",Sheet1!$A$3:$A$1",
        "xmlns=\"",
        "<definedName name=\"Items\">Sheet1!$A$2:$C$2</definedName>",
        "<definedName name=\"X\" localSheetId=\"0\">Items</definedName>",
        "<c r=\"C2\"><f t=\"shared\" ref=\"C2:C4\" si=\"0\">A2*$B2</f><v>2</v></c>",
        "<c r=\"C3\"><f t=\"shared\" si=\"0\"/><v>3</v></c>",
        "<c r=\"D1\"><f t=\"array\" ref=\"D1:D3\">SUM(A1:A3*B1:B3)</f><v>4</v></c>",
        "<c><f>SUM(Sheet1!A2:A2)+'My Sheet'!B1+Items</f><v>5</v></c>",
        "<c r=\"A2\" t=\"inlineStr\"><is><t xml:space=\"preserve\"> x_x000a_ </t></is></c>",
        "<mergeCells count=\"1\"><mergeCell ref=\"A2:B2\"/></mergeCells>",
        "<conditionalFormatting sqref=\"A1:C9\"><cfRule type=\"expression\"><formula>A1&gt;2</formula></cfRule></conditionalFormatting>",
        "<tableParts count=\"1\"><tablePart r:id=\"rId1\"/></tableParts>",
        "<autoFilter ref=\"A1:C9\"/>",
        "<workbookPr date1904=\"1\"/>",
        "<calcPr calcId=\"1\"/>",
        "<dataValidation type=\"list\" sqref=\"A1:C9 E1\"><formula1>Sheet1!$A$1:$A$3</formula1></dataValidation>",
        "<extLst><ext><svgBlip r:embed=\"rId1\"/></ext></extLst>",
        " TargetMode=\"External\"",
        " s=\"1\"",
        "\" r=\"2\"",
    };
    return snippets.at(Below(random, snippets.size()));
}

const QByteArray &PartName(Random &random)
{
    static const QList<QByteArray> names{
        "xl/worksheets/sheet1.xml",
        "xl/worksheets/sheet2.xml",
        "xl/worksheets/sheet10.xml",
        "xl/worksheets/sheet",
        "xl/worksheets/sheet3.xml/a",
        "xl/sharedStrings.xml",
        "xl/workbook.xml",
        "xl/drawings/drawing1.xml",
        "xl/drawings/drawing2.xml",
        "xl/drawings/_rels/drawing1.xml.rels",
        "xl/drawings/_rels/drawing2.xml.rels",
        "xl/media/new.png",
        "xl/media/new.png/x",
        "../../out",
        "/out",
        "xl/media/\xc3\xa4\xff",
        "./x",
        "xl/",
    };
    return names.at(Below(random, names.size()));
}

void MutateEntries(QList<ArchiveEntry> &entries, Random &random)
{
    if (entries.isEmpty())
        entries.append(ArchiveEntry());
    ArchiveEntry &entry = entries[Below(random, entries.size())];
    switch (Below(random, 12)) {
    case 0:
        entry.name = Mutated(entry.name);
        break;
    case 1:
        entries.removeAt(Below(random, entries.size()));
        break;
    case 2: {
        ArchiveEntry copy = entry;
        copy.name = PartName(random);
        entries.append(copy);
        break;
    }
    case 3:
        entry.data.swap(entries[Below(random, entries.size())].data);
        break;
    case 4:
        entry.attributes = Below(random, 2) ? 0120777U << 16 : 040755U << 16;
        break;
    case 5: {
        // A piece of it again, elsewhere.
        const QByteArray piece = entry.data.mid(Below(random, entry.data.size()), 1 + Below(random, 200));
        entry.data.insert(Below(random, entry.data.size() + 1), piece);
        break;
    }
    case 6:
    case 7:
    case 8: {
        // In front of a tag, most of the time.
        const int from = Below(random, entry.data.size() + 1);
        const auto tag = entry.data.indexOf('<', from);
        entry.data.insert(tag >= 0 && Below(random, 4) ? tag : from, Snippet(random));
        break;
    }
    default:
        entry.data = Mutated(entry.data);
    }
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maxSize, unsigned int seed)
{
    Random random(seed);
    QList<ArchiveEntry> entries = VelmoraTest::ReadEntries(QByteArray(reinterpret_cast<const char *>(data), int(size)), kMostBytesOfEntry);
    if (Below(random, 8) == 0 || entries.isEmpty())
        return LLVMFuzzerMutate(data, size, maxSize);
    for (int i = 1 + Below(random, 3); i > 0; --i)
        MutateEntries(entries, random);
    for (ArchiveEntry &entry : entries) {
        entry.data.truncate(kMostBytesOfEntry);
        entry.method = Below(random, 4) ? 8 : 0;
    }
    const QByteArray archive = VelmoraTest::MakeArchive(entries);
    if (std::size_t(archive.size()) > maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::memcpy(data, archive.constData(), std::size_t(archive.size()));
    return std::size_t(archive.size());
}
