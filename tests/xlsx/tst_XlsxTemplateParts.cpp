#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/Book.h"
#include "xlsx/XlsxFiles.h"

#include <QDate>
#include <QTemporaryDir>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QByteArray kSheet1 = QByteArrayLiteral("xl/worksheets/sheet1.xml");
const QByteArray kMain = QByteArrayLiteral("http://schemas.openxmlformats.org/spreadsheetml/2006/main");
const QByteArray kOffice = QByteArrayLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships");

/// A sheet as no program writes it, but every one may: blanks, comments, either kind of quotes, CDATA, references, tags of empty elements.
QByteArray OddSheet()
{
    return "<?xml version='1.0' encoding='UTF-8'?>\r\n<!-- \xc3\xa4 --><?pi x?>\n<worksheet xmlns='" + kMain + "' xmlns:r=\"" + kOffice
        + "\" >\n  <dimension   ref='A1:C4'/>\n<sheetData>\n"
          "  <row r=\"1\"  spans='1:3' ><c r=\"A1\" t='str' ><v >a &quot;b&quot; &#x41;&gt;</v ></c>\t<c r=\"B1\"><v></v></c></row>\n"
          "  <row r=\"2\"><c r=\"A2\"><v>1</v></c><!-- <c r=\"B2\"/> --><c r=\"B2\" s='0'><v>2</v></c><c  r='C2' ><f>\"&lt;/c>\"&amp;A1</f "
          "></c></row>\r\n"
          "  <row r=\"3\"/>\n"
          "  <row r=\"4\"><c r=\"C4\" t=\"inlineStr\"><is><t xml:space=\"preserve\"> <![CDATA[<x>]]>\n </t></is></c></row>\n"
          "</sheetData>\n<pageMargins left='0.7' note='>'/><x:ext xmlns:x='urn:x' a=\"'\"> <x:b/> </x:ext>\n</worksheet>\n<!-- end -->\n";
}

Template OddBook()
{
    Template source;
    source.parts[kSheet1] = OddSheet();
    source.Name("B2", "Sheet1!$B$2").Name("A1", "Sheet1!$A$1").Name("B3", "Sheet1!$B$3").Name("B4", "Sheet1!$B$4");
    source.Name("D4", "Sheet1!$D$4").Name("C9", "Sheet1!$C$9").Name("A0", "Sheet1!$C$2").Name("Both", "Sheet1!$B$5:$C$6");
    return source;
}

} // namespace

/// What is changed in a package, and that the rest is byte for byte what it was.
class tst_XlsxTemplateParts : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void nothing_set_nothing_changed()
    {
        const QByteArray archive = OddBook().Archive();
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(archive));
        for (const QString &name : workbook.names())
            workbook.value(name);
        const QByteArray saved = workbook.save();
        QCOMPARE(ReadArchive(saved), ReadArchive(archive));
        QCOMPARE(ArchiveNames(saved), ArchiveNames(archive));
    }

    void only_what_is_set_changes_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        const auto row = [](const char *name, const QByteArray &before, const QByteArray &after) {
            QTest::newRow(name) << QString::fromLatin1(name) << before << after;
        };
        row("B2", "<c r=\"B2\" s='0'><v>2</v></c>", "<c r=\"B2\" s=\"0\"><v>7</v></c>");
        row("A1", "<c r=\"A1\" t='str' ><v >a &quot;b&quot; &#x41;&gt;</v ></c>", "<c r=\"A1\"><v>7</v></c>");
        row("A0", "<c  r='C2' ><f>\"&lt;/c>\"&amp;A1</f ></c>", "<c r=\"C2\"><v>7</v></c>");
        // New cells, in rows that there are and that there are not.
        row("B3", "<row r=\"3\"/>", "<row r=\"3\"><c r=\"B3\"><v>7</v></c></row>");
        row("B4", "<row r=\"4\"><c r=\"C4\"", "<row r=\"4\"><c r=\"B4\"><v>7</v></c><c r=\"C4\"");
        row("D4", "</t></is></c></row>", "</t></is></c><c r=\"D4\"><v>7</v></c></row>");
        row("C9", "</is></c></row>\n</sheetData>", "</is></c></row>\n<row r=\"9\"><c r=\"C9\"><v>7</v></c></row></sheetData>");
        row("Both", "</is></c></row>\n</sheetData>",
            "</is></c></row>\n<row r=\"5\"><c r=\"B5\"><v>7</v></c><c r=\"C5\"><v>7</v></c></row><row r=\"6\"><c r=\"B6\"><v>7</v></c>"
            "<c r=\"C6\"><v>7</v></c></row></sheetData>");
    }
    void only_what_is_set_changes()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        const Template source = OddBook();
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        VERIFY_DONE(workbook, setValue(name, 7));
        auto parts = SavedParts(workbook);
        QVERIFY(OddSheet().count(before) == 1);
        QByteArray expected = OddSheet().replace(before, after);
        if (name == QLatin1String("D4"))
            expected.replace("<dimension   ref='A1:C4'/>", "<dimension ref=\"A1:D4\"/>");
        if (name == QLatin1String("C9"))
            expected.replace("<dimension   ref='A1:C4'/>", "<dimension ref=\"A1:C9\"/>");
        if (name == QLatin1String("Both"))
            expected.replace("<dimension   ref='A1:C4'/>", "<dimension ref=\"A1:C6\"/>");
        QCOMPARE(parts.take(kSheet1), expected);
        // The workbook says that it is to be computed; nothing else.
        QCOMPARE(parts.take("xl/workbook.xml"),
                 QByteArray(source.parts["xl/workbook.xml"]).replace("calcId=\"0\"/>", "calcId=\"0\" fullCalcOnLoad=\"1\"/>"));
        auto others = source.parts;
        others.remove(kSheet1);
        others.remove("xl/workbook.xml");
        QCOMPARE(parts, others);
    }

    void changes_side_by_side_stand_in_order()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(OddBook().Archive()));
        for (const char *name : {"C9", "Both", "D4", "B4", "B3", "A0", "B2", "A1"})
            VERIFY_DONE(workbook, setValue(QString::fromLatin1(name), 7));
        const QByteArray sheet = SavedParts(workbook).value(kSheet1);
        QByteArray expected = OddSheet();
        expected.replace("<dimension   ref='A1:C4'/>", "<dimension ref=\"A1:D9\"/>");
        expected.replace("<c r=\"A1\" t='str' ><v >a &quot;b&quot; &#x41;&gt;</v ></c>", "<c r=\"A1\"><v>7</v></c>");
        expected.replace("<c r=\"B2\" s='0'><v>2</v></c><c  r='C2' ><f>\"&lt;/c>\"&amp;A1</f ></c>",
                         "<c r=\"B2\" s=\"0\"><v>7</v></c><c r=\"C2\"><v>7</v></c>");
        expected.replace("<row r=\"3\"/>", "<row r=\"3\"><c r=\"B3\"><v>7</v></c></row>");
        expected.replace("<row r=\"4\">", "<row r=\"4\"><c r=\"B4\"><v>7</v></c>");
        expected.replace("</is></c></row>\n",
                         "</is></c><c r=\"D4\"><v>7</v></c></row>\n<row r=\"5\"><c r=\"B5\"><v>7</v></c><c r=\"C5\"><v>7</v></c></row>"
                         "<row r=\"6\"><c r=\"B6\"><v>7</v></c><c r=\"C6\"><v>7</v></c></row><row r=\"9\"><c r=\"C9\"><v>7</v></c></row>");
        QCOMPARE(sheet, expected);
        // And again, on what was set before.
        VERIFY_DONE(workbook, setValue(QStringLiteral("B3"), QVariant()));
        VERIFY_DONE(workbook, setValue(QStringLiteral("B2"), 8));
        expected.replace("<c r=\"B3\"><v>7</v></c>", "<c r=\"B3\"/>").replace("<c r=\"B2\" s=\"0\"><v>7<", "<c r=\"B2\" s=\"0\"><v>8<");
        QCOMPARE(SavedParts(workbook).value(kSheet1), expected);
    }

    void entries_that_do_not_change_keep_their_compressed_bytes_and_order()
    {
        Template source = OddBook();
        QList<ArchiveEntry> entries;
        for (const char *name : {"xl/media/noise.bin", "[Content_Types].xml", "_rels/.rels", "xl/workbook.xml",
                                 "xl/_rels/workbook.xml.rels", "xl/styles.xml", "xl/worksheets/sheet1.xml"}) {
            ArchiveEntry entry;
            entry.name = name;
            entry.data = source.parts.value(name);
            entries.append(entry);
        }
        entries[0].data = Noise(5000);
        entries[0].method = 0;
        entries.insert(1, ArchiveEntry::Directory("xl/media/"));
        // Not as deflate would pack it: a block that is stored.
        QByteArray stored = QByteArray::fromHex("01");
        const quint16 size = quint16(entries[5].data.size());
        stored.append(char(size & 0xff)).append(char(size >> 8)).append(char(~size & 0xff)).append(char(quint16(~size) >> 8));
        entries[5].stored = stored + entries[5].data;
        const QByteArray archive = MakeArchive(entries);
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(archive));
        VERIFY_DONE(workbook, setValue(QStringLiteral("B2"), 7));
        const QByteArray saved = workbook.save();
        QCOMPARE(ArchiveNames(saved), ArchiveNames(archive));
        QVERIFY(saved.contains(*entries[5].stored));
        QVERIFY(saved.contains(entries[0].data));
        QCOMPARE(workbook.save(), saved);
    }

    void the_calculation_chain_goes_with_the_first_change()
    {
        Template source = OddBook();
        source.parts["xl/calcChain.xml"] = "<calcChain xmlns=\"" + kMain + "\"><c r=\"C2\" i=\"1\"/></calcChain>";
        source.parts["xl/_rels/workbook.xml.rels"].replace("</Relationships>",
                                                           Relationship("rId9", "calcChain", "calcChain.xml") + "</Relationships>");
        source.parts["[Content_Types].xml"].replace(
            "</Types>",
            "<Override PartName=\"/xl/CALCchain.xml\" "
            "ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.calcChain+xml\"/></Types>");
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        QVERIFY(SavedParts(workbook).contains("xl/calcChain.xml"));
        VERIFY_DONE(workbook, setValue(QStringLiteral("B2"), 7));
        const auto parts = SavedParts(workbook);
        QVERIFY(!parts.contains("xl/calcChain.xml"));
        const Template plain = OddBook();
        QCOMPARE(parts.value("[Content_Types].xml"), plain.parts["[Content_Types].xml"]);
        QCOMPARE(parts.value("xl/_rels/workbook.xml.rels"), plain.parts["xl/_rels/workbook.xml.rels"]);
    }

    void a_part_that_is_needed_stays_though_it_is_called_a_calculation_chain()
    {
        Template book;
        book.Name("Cell", "Sheet1!$A$1");
        Relate(book, "xl/_rels/workbook.xml.rels", Relationship("rIdC", "calcChain", "worksheets/sheet1.xml"));
        Relate(book, "xl/_rels/workbook.xml.rels", Relationship("rIdD", "calcChain", "/[Content_Types].xml"));
        Relate(book, "xl/_rels/workbook.xml.rels", Relationship("rIdE", "calcChain", "_rels/workbook.xml.rels"));
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(book.Archive()));
        for (const int value : {1, 2}) { // with parts that were parsed
            VERIFY_DONE(workbook, setValue(QStringLiteral("Cell"), value));
            const auto parts = SavedParts(workbook);
            QCOMPARE(parts.keys(), book.parts.keys());
            QVERIFY(parts.value("xl/worksheets/sheet1.xml").contains("<v>" + QByteArray::number(value) + "</v>"));
            QVERIFY(!parts.value("xl/_rels/workbook.xml.rels").contains("calcChain"));
        }
    }

    void an_office_programs_template_becomes_a_workbook_data()
    {
        QTest::addColumn<QByteArray>("ofTemplate");
        QTest::addColumn<QByteArray>("ofWorkbook");
        QTest::newRow("plain") << QByteArray("application/vnd.openxmlformats-officedocument.spreadsheetml.template.main+xml")
                               << QByteArray("application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml");
        QTest::newRow("with macros") << QByteArray("application/vnd.ms-excel.template.macroEnabled.main+xml")
                                     << QByteArray("application/vnd.ms-excel.sheet.macroEnabled.main+xml");
    }
    void an_office_programs_template_becomes_a_workbook()
    {
        QFETCH(QByteArray, ofTemplate);
        QFETCH(QByteArray, ofWorkbook);
        Template book;
        QByteArray &types = book.parts["[Content_Types].xml"];
        types.replace("application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml", ofTemplate);
        QVERIFY(types.contains(ofTemplate));
        QMap<QByteArray, QByteArray> expected = book.parts;
        expected["[Content_Types].xml"].replace(ofTemplate, ofWorkbook);
        const QTemporaryDir folder;
        const auto saved = [&folder](XlsxTemplate &workbook, const char *name) {
            const QString path = folder.filePath(QLatin1String(name));
            return workbook.save(path) ? ReadArchive(FileContent(path)) : QMap<QByteArray, QByteArray>();
        };
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(book.Archive()));
        QCOMPARE(saved(workbook, "t.xltx"), book.parts);
        QCOMPARE(saved(workbook, "t.xlsx"), expected);
        QCOMPARE(SavedParts(workbook), expected);
        QCOMPARE(saved(workbook, "t.XLTM"), book.parts);
        VERIFY_DONE(workbook, load(MakeArchive(expected)));
        QCOMPARE(saved(workbook, "t.xltx"), expected); // is no template
    }

    void a_signature_goes_with_the_first_change()
    {
        Template book;
        book.Name("Cell", "Sheet1!$A$1");
        const QByteArray type = "application/vnd.openxmlformats-package.digital-signature-";
        AddPart(book, "_xmlsignatures/origin.sigs", type + "origin", QByteArray());
        AddPart(book, "_xmlsignatures/sig1.xml", type + "xmlsignature+xml", "<Signature/>");
        AddPart(book, "_xmlsignatures/owner.cer", type + "certificate", "<certificate/>");
        AddPart(book, "origin.xml", "application/xml", "<kept/>");
        Relate(book, "_rels/.rels", Relationship("rIdS", "digital-signature/origin", "_xmlsignatures/origin.sigs"));
        Relate(book, "_rels/.rels", Relationship("rIdO", "other/origin", "origin.xml"));
        Relate(book, "_xmlsignatures/_rels/origin.sigs.rels", Relationship("rId1", "digital-signature/signature", "sig1.xml"));
        Relate(book, "_xmlsignatures/_rels/sig1.xml.rels", Relationship("rId1", "digital-signature/certificate", "owner.cer"));
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(book.Archive()));
        QCOMPARE(SavedParts(workbook), book.parts);
        VERIFY_DONE(workbook, setValue(QStringLiteral("Cell"), 1));
        const auto parts = SavedParts(workbook);
        QCOMPARE(PackageFaults(parts), QStringList());
        for (auto part = book.parts.cbegin(); part != book.parts.cend(); ++part)
            QCOMPARE(parts.contains(part.key()), !part.key().startsWith("_xmlsignatures/"));
        QVERIFY(!parts.value("_rels/.rels").contains("rIdS") && parts.value("_rels/.rels").contains("rIdO"));
    }

    void a_workbook_without_calculation_settings_gets_them_in_their_place()
    {
        Template source = OddBook();
        source.parts["xl/workbook.xml"].replace("<calcPr calcId=\"0\"/>", "<oleSize ref=\"A1\"/>");
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        VERIFY_DONE(workbook, setValue(QStringLiteral("B2"), 7));
        QVERIFY(
            SavedParts(workbook).value("xl/workbook.xml").contains("</definedNames><calcPr fullCalcOnLoad=\"1\"/><oleSize ref=\"A1\"/>"));
    }

    void a_date_takes_a_format_that_shows_it()
    {
        Template source;
        source.Sheet(1, "<row r=\"1\"><c r=\"A1\" s=\"1\"/><c r=\"B1\" s=\"2\"/><c r=\"C1\"/><c r=\"D1\" s=\"1\"/></row>");
        for (const char *column : {"A", "B", "C", "D", "E"})
            source.Name(column + QByteArray("x"), QByteArray("Sheet1!$") + column + "$1");
        source.parts["xl/styles.xml"].replace("<cellXfs count=\"1\"><xf/></cellXfs>",
                                              "<cellXfs count=\"3\"><xf/><xf numFmtId=\"2\" fontId=\"0\" xfId=\"0\"><alignment "
                                              "wrapText=\"1\"/></xf><xf numFmtId=\"165\"/></cellXfs>");
        source.parts["xl/styles.xml"].replace(
            "<fonts", "<numFmts count=\"1\"><numFmt numFmtId=\"165\" formatCode=\"[$-407]d.\\ mmm\\ yy;@\"/></numFmts><fonts");
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        const QDate day(2026, 11, 22);
        for (const char *name : {"Ax", "Bx", "Cx", "Dx"})
            VERIFY_DONE(workbook, setValue(QString::fromLatin1(name), day));
        VERIFY_DONE(workbook, setValue(QStringLiteral("Ex"), QTime(6, 0)));
        const auto parts = SavedParts(workbook);
        QCOMPARE(
            SheetDataOf(parts.value(kSheet1)),
            QByteArray(
                "<row r=\"1\"><c r=\"A1\" s=\"3\"><v>46348</v></c><c r=\"B1\" s=\"2\"><v>46348</v></c><c r=\"C1\" s=\"4\"><v>46348</v></c>"
                "<c r=\"D1\" s=\"3\"><v>46348</v></c><c r=\"E1\" s=\"5\"><v>0.25</v></c></row>"));
        QCOMPARE(
            Between(parts.value("xl/styles.xml"), "<cellXfs", "</cellXfs>"),
            QByteArray(" count=\"6\"><xf/><xf numFmtId=\"2\" fontId=\"0\" xfId=\"0\"><alignment wrapText=\"1\"/></xf><xf numFmtId=\"165\"/>"
                       "<xf numFmtId=\"14\" fontId=\"0\" xfId=\"0\" applyNumberFormat=\"1\"><alignment wrapText=\"1\"/></xf>"
                       "<xf numFmtId=\"14\" applyNumberFormat=\"1\"/><xf numFmtId=\"21\" applyNumberFormat=\"1\"/>"));
        QVERIFY(parts.value("xl/styles.xml").contains("<!-- kept -->"));
        for (const char *name : {"Ax", "Bx", "Cx", "Dx"})
            QCOMPARE(workbook.value(QString::fromLatin1(name)), QVariant(day));
    }

    void a_workbook_without_styles_gets_some_for_a_date()
    {
        Template source = OddBook();
        source.parts.remove("xl/styles.xml");
        for (const char *part : {"[Content_Types].xml", "xl/_rels/workbook.xml.rels"}) {
            QByteArray &bytes = source.parts[part];
            const auto end = bytes.indexOf("styles.xml");
            const auto begin = bytes.lastIndexOf('<', end);
            bytes.remove(begin, bytes.indexOf('>', begin) + 1 - begin);
        }
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        VERIFY_DONE(workbook, setValue(QStringLiteral("B2"), QDateTime(QDate(2026, 11, 22), QTime(12, 0))));
        const QByteArray saved = workbook.save();
        QCOMPARE(PackageFaults(ReadArchive(saved)), QStringList());
        XlsxTemplate again;
        VERIFY_DONE(again, load(saved));
        QCOMPARE(again.value(QStringLiteral("B2")), QVariant(QDateTime(QDate(2026, 11, 22), QTime(12, 0))));
    }

    void a_workbook_that_counts_from_1904_does_so()
    {
        Template source = OddBook();
        source.parts["xl/workbook.xml"].replace("<sheets>", "<workbookPr date1904=\"true\"/><sheets>");
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        VERIFY_DONE(workbook, setValue(QStringLiteral("B2"), QDate(1904, 1, 2)));
        QVERIFY(SavedParts(workbook).value(kSheet1).contains("<c r=\"B2\" s=\"1\"><v>1</v></c>"));
        QCOMPARE(workbook.value(QStringLiteral("B2")), QVariant(QDate(1904, 1, 2)));
        QVERIFY(!workbook.setValue(QStringLiteral("B2"), QDate(1903, 12, 31)));
    }

    void parts_in_another_encoding_are_read_and_written()
    {
        Template source = OddBook();
        QString text = QString::fromUtf8(OddSheet()).replace("encoding='UTF-8'", "encoding='UTF-16'");
        source.parts[kSheet1] = QByteArray("\xff\xfe", 2) + QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        VERIFY_DONE(workbook, setValue(QStringLiteral("B2"), 7));
        XlsxTemplate again;
        VERIFY_DONE(again, load(workbook.save()));
        QCOMPARE(again.value(QStringLiteral("B2")), QVariant(7LL));
        QCOMPARE(again.value(QStringLiteral("A1")), QVariant("a \"b\" A>"));
        // With a mark of its byte order, UTF-8 is as it was.
        source.parts[kSheet1] = "\xef\xbb\xbf" + OddSheet();
        VERIFY_DONE(workbook, load(source.Archive()));
        VERIFY_DONE(workbook, setValue(QStringLiteral("B2"), 7));
        QCOMPARE(SavedParts(workbook).value(kSheet1),
                 "\xef\xbb\xbf" + OddSheet().replace("<c r=\"B2\" s='0'><v>2</v></c>", "<c r=\"B2\" s=\"0\"><v>7</v></c>"));
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxTemplateParts)
#include "tst_XlsxTemplateParts.moc"
