#include "xlsx/XlsxTestCase.h"

#include <Velmora/XlsxZip.h>

#include <sys/resource.h>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kA = QStringLiteral("A");
const QString kSheet = QStringLiteral("My Sheet");

Template OneName()
{
    Template source;
    source.Sheet(1, "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>", "<pageMargins left=\"0.7\"/>", "My Sheet").Name("A", "'My Sheet'!$A$1");
    return source;
}

} // namespace

class tst_XlsxSaving : public XlsxTestCase
{
    Q_OBJECT

    QByteArray DefinedNames() const { return OutputBetween(kWorkbook, "<definedNames>", "</definedNames>"); }
    void ExpectSaveFailure(const QString &part)
    {
        ExpectWarning(QStringLiteral("XlsxOperator::saveDocumentsToXmls:  save_file failed,  \"%1/%2\"").arg(WorkPath(), part));
    }
    /// Writes the template into a folder in which a child process may write too.
    void WriteForAll(const QByteArray &archive) const
    {
        WriteFile(TemplatePath(), archive);
        QFile::setPermissions(QFileInfo(TemplatePath()).path(), QFile::Permissions(0x7777));
    }
    bool LoadAndSave() const
    {
        XlsxOperator op;
        Prepare(op);
        return op.load() && op.save();
    }
    /// Puts a directory in the place of a part, so that it cannot be written.
    void Block(const QString &part) const
    {
        QFile::remove(WorkPath() + QLatin1Char('/') + part);
        QDir().mkpath(WorkPath() + QLatin1Char('/') + part);
    }

private Q_SLOTS:
    void saving_at_once_writes_every_parsed_part_and_keeps_all_others()
    {
        Template source = OneName();
        source.Strings({"<si><t>x</t></si>"}).Drawing(1, {{"logo", "rId1"}}, Relationship("rId1", "image", "../media/image1.png"));
        const QByteArray binary("\0\1\2<!-- \xff", 9);
        source.parts["xl/media/image1.png"] = binary;
        source.parts["docProps/core.xml"] = "<!-- kept -->\n<a/>\n";
        source.parts["xl/printerSettings/printerSettings1.bin"] = binary;
        source.parts["customXml/.hidden"] = "kept";
        source.parts["xl/worksheets/_rels/sheet1.xml.rels"] = Relationships(Relationship("rId1", "drawing", "../drawings/drawing1.xml"));
        source.parts[kSheet1].replace("<sheetData>", "<!-- gone -->\n  <?gone?>\n  <sheetData>\n\t");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QVERIFY(op.save());

        const auto output = Output();
        QCOMPARE(output.keys(), source.parts.keys());
        for (const char *part : {"_rels/.rels", "xl/media/image1.png", "docProps/core.xml", "xl/printerSettings/printerSettings1.bin",
                                 "customXml/.hidden", "xl/styles.xml", "xl/worksheets/_rels/sheet1.xml.rels"})
            QCOMPARE(output.value(part), source.parts.value(part));
        // No indentation, no line breaks, the plain declaration, no comments, no processing instructions.
        for (const char *part : {"xl/worksheets/sheet1.xml", "xl/workbook.xml", "xl/_rels/workbook.xml.rels", "xl/sharedStrings.xml",
                                 "[Content_Types].xml", "xl/drawings/drawing1.xml", "xl/drawings/_rels/drawing1.xml.rels"}) {
            QVERIFY(output.value(part).startsWith("<?xml version=\"1.0\"?><"));
            QVERIFY(!output.value(part).contains('\n') && !output.value(part).contains('\t') && !output.value(part).contains("gone"));
            QCOMPARE(FileContent(WorkPath() + QLatin1Char('/') + QLatin1String(part)), output.value(part));
        }
        QVERIFY(output.value(kSheet1).endsWith(
            "<sheetData><row r=\"1\"><c r=\"A1\"><v>1</v></c></row></sheetData><pageMargins left=\"0.7\"/></worksheet>"));
    }

    void a_template_without_drawings_gets_none()
    {
        XlsxOperator op;
        QVERIFY(Load(op, OneName()));
        QVERIFY(op.save());
        QVERIFY(!QFileInfo::exists(WorkPath() + QStringLiteral("/xl/drawings")));
        QCOMPARE(PackageFaults(Output()), QStringList());
    }

    void every_element_is_written_touched_or_not()
    {
        Template source;
        source.Sheet(1, "<row r=\"1\"><c r=\"A1\"><f>1+0.6</f><v>1.6</v></c></row>").Name("A", "Sheet1!$A$1:$B$1");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QVERIFY(op.save());
        QCOMPARE(OutputBetween(kSheet1, "<sheetData>", "</sheetData>"),
                 QByteArray("<row r=\"1\"><c r=\"A1\"><f>1+0.6</f><v>2</v></c><c r=\"B1\"><v>2</v></c></row>"));
    }

    // --- New names ---

    void the_first_reference_is_bare_and_the_next_one_quoted()
    {
        XlsxOperator op;
        QVERIFY(Load(op, OneName()));
        QVERIFY(op.setCellValue(kSheet, 3, QStringLiteral("B"), QStringLiteral("New"), 1));
        QVERIFY(op.save());
        QVERIFY(DefinedNames().endsWith("<definedName name=\"New\">My Sheet!$B$3</definedName>"));
        QVERIFY(op.setCellValue(kSheet, 4, QStringLiteral("B"), QStringLiteral("New"), 2));
        QVERIFY(op.save());
        QVERIFY(DefinedNames().endsWith("<definedName name=\"New\">My Sheet!$B$3,'My Sheet'!$B$4</definedName>"));

        XlsxOperator again;
        QVERIFY(Load(again, FileContent(OutputPath())));
        again.setCellsValue(QStringLiteral("New"), 9);
        QVERIFY(again.save());
        QVERIFY(Output().value(kSheet1).contains("<c r=\"B3\"><v>9</v></c></row><row r=\"4\"><c r=\"B4\"><v>9</v></c>"));
    }

    void a_reference_is_added_to_an_existing_name()
    {
        Template source = OneName();
        source.Sheet(2, "", "<pageMargins/>", "Plain").Name("Empty", "");
        ExpectWarning(QStringLiteral("XlsxOperator::loadCellNameToPosInfosHash:  posSubStringList.size() != 2,  \"\""));
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QVERIFY(op.setCellValue(QStringLiteral("Plain"), 1, kA, kA, 1));
        QVERIFY(op.setCellValue(QStringLiteral("Plain"), 1, kA, kA, 1));
        QVERIFY(op.setCellValue(QStringLiteral("Plain"), 2, kA, QStringLiteral("Empty"), 1));
        QVERIFY(op.save());
        QCOMPARE(DefinedNames(),
                 QByteArray("<definedName name=\"A\">'My Sheet'!$A$1,Plain!$A$1,Plain!$A$1</definedName>"
                            "<definedName name=\"Empty\">,Plain!$A$2</definedName>"));
    }

    void names_are_filled_in_as_text()
    {
        Template source;
        source.Sheet(1, "", "<pageMargins/>", "%1 %2");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QVERIFY(op.setCellValue(QStringLiteral("%1 %2"), 1, QStringLiteral("%3"), QStringLiteral("%1"), 1));
        QVERIFY(op.setCellValue(QStringLiteral("%1 %2"), 2, kA, QStringLiteral("%1"), 1));
        QVERIFY(op.save());
        QCOMPARE(DefinedNames(), QByteArray("<definedName name=\"%1\">%1 %2!$%3$1,'%1 %2'!$A$2</definedName>"));
    }

    void a_workbook_without_names_gets_them_behind_its_sheets()
    {
        XlsxOperator op;
        QVERIFY(Load(op, Template()));
        QVERIFY(op.setCellValue(QStringLiteral("Sheet1"), 1, kA, kA, 1));
        QVERIFY(op.save());
        QVERIFY(Output().value(kWorkbook).contains(
            "</sheets><definedNames><definedName name=\"A\">Sheet1!$A$1</definedName></definedNames><calcPr"));
    }

    void a_position_that_names_no_cell_writes_none()
    {
        XlsxOperator op;
        QVERIFY(Load(op, Template()));
        for (const int row : {0, -1, -2147483647 - 1})
            QVERIFY(op.setCellValue(QStringLiteral("Sheet1"), row, QStringLiteral("A"), QStringLiteral("Row"), QStringLiteral("1 x")));
        QVERIFY(op.setCellsDropDownInfo(QStringLiteral("Sheet1"), 5, QString(), QStringLiteral("Column"), {QStringLiteral("1 x"), {}}));
        QVERIFY(op.save());
        QCOMPARE(OutputBetween(kSheet1, "<sheetData", "pageMargins"), QByteArray("/><"));
        QVERIFY(!Output().value(kSharedStrings).contains("1 x"));
    }

    // --- Numbers of the files ---

    void drawings_with_gaps_are_written_by_their_place()
    {
        Template source;
        source.Drawing(2, {{"second", "rId1"}}, Relationship("rId1", "image", "../media/a.png"));
        source.Drawing(3, {{"third", "rId1"}}, Relationship("rId1", "image", "../media/b.png"));
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QVERIFY(op.save());
        const auto output = Output();
        QVERIFY(output.value("xl/drawings/drawing1.xml").contains("second"));
        QVERIFY(output.value("xl/drawings/drawing2.xml").contains("third"));
        QCOMPARE(output.value("xl/drawings/drawing3.xml"), source.parts.value("xl/drawings/drawing3.xml"));
        QVERIFY(output.value("xl/drawings/_rels/drawing1.xml.rels").contains("a.png"));
        QCOMPARE(output.value("xl/drawings/_rels/drawing3.xml.rels"), source.parts.value("xl/drawings/_rels/drawing3.xml.rels"));
    }

    // --- Saving without a load, and where it cannot be done ---

    void without_a_load_the_directory_is_packed_as_it_is()
    {
        XlsxOperator op;
        Prepare(op);
        WriteFile(WorkPath() + QStringLiteral("/xl/workbook.xml"), "<!-- whatever -->");
        op.setCellsValue(kA, 5);
        QVERIFY(op.save());
        QCOMPARE(Output(), (QMap<QByteArray, QByteArray>{{"xl/workbook.xml", "<!-- whatever -->"}}));

        XlsxOperator unset;
        unset.setNewXlsxAbsolutePath(OutputPath());
        QVERIFY(unset.save());
        QCOMPARE(Output().size(), 0);
    }

    void a_part_that_cannot_be_written_ends_the_save_data()
    {
        QTest::addColumn<QString>("part");
        QTest::addColumn<QStringList>("written");
        const QStringList order{QStringLiteral("xl/drawings/_rels/drawing1.xml.rels"),
                                QStringLiteral("xl/drawings/drawing1.xml"),
                                QStringLiteral("xl/_rels/workbook.xml.rels"),
                                QStringLiteral("xl/worksheets/sheet1.xml"),
                                QStringLiteral("xl/sharedStrings.xml"),
                                QStringLiteral("xl/workbook.xml"),
                                QStringLiteral("[Content_Types].xml")};
        for (int i = 0; i < order.size(); ++i)
            QTest::newRow(qPrintable(order.at(i))) << order.at(i) << QStringList(order.mid(0, i));
    }
    void a_part_that_cannot_be_written_ends_the_save()
    {
        QFETCH(QString, part);
        QFETCH(QStringList, written);
        Template source = OneName();
        source.Strings({"<si><t>x</t></si>"}).Drawing(1, {}, QByteArray());
        XlsxOperator op;
        QVERIFY(Load(op, source));
        WriteFile(OutputPath(), "old");
        Block(part);
        ExpectSaveFailure(part);
        QVERIFY(!op.save());
        QCOMPARE(FileContent(OutputPath()), QByteArray("old"));
        QStringList found;
        const auto work = FilesBelow(WorkPath());
        for (auto file = work.cbegin(); file != work.cend(); ++file) {
            if (file.value().startsWith("<?xml version=\"1.0\"?>"))
                found.append(QString::fromUtf8(file.key()));
        }
        found.sort();
        written.sort();
        QCOMPARE(found, written);

        // The next try starts over.
        QDir(WorkPath()).rmdir(part);
        QVERIFY(op.save());
        QVERIFY(Output().value(kSheet1).contains("<v>1</v>"));
    }

    void an_output_that_cannot_be_opened_leaves_the_parts_for_another_try()
    {
        XlsxOperator op;
        QVERIFY(Load(op, OneName()));
        op.setCellsValue(kA, 5);
        op.setNewXlsxAbsolutePath(Path(QStringLiteral("missing/output.xlsx")));
        ExpectWarning(QStringLiteral("XlsxZip::compressToXlsxFile: failed to open file for writing, \"%1\"")
                          .arg(Path(QStringLiteral("missing/output.xlsx"))));
        QVERIFY(!op.save());
        QVERIFY(FileContent(WorkPath() + QStringLiteral("/xl/worksheets/sheet1.xml")).contains("<v>5</v>"));
        op.setNewXlsxAbsolutePath(OutputPath());
        QVERIFY(op.save());
        QVERIFY(Output().value(kSheet1).contains("<v>5</v>"));
    }

    void the_output_may_be_the_template()
    {
        XlsxOperator op;
        QVERIFY(Load(op, OneName()));
        op.setNewXlsxAbsolutePath(TemplatePath());
        op.setCellsValue(kA, 5);
        QVERIFY(op.save());
        op.setCellsValue(kA, 6);
        QVERIFY(op.save());
        XlsxOperator again;
        QVERIFY(Load(again, FileContent(TemplatePath())));
        QCOMPARE(again.getCellValue(kA), QVariant(6LL));
    }

    void paths_may_hold_blanks_and_any_letters()
    {
        const QString folder = Path(QStringLiteral("a b \u00e4\u00df \u4f60%1"));
        WriteFile(folder + QStringLiteral("/in put.xlsx"), OneName().Archive());
        XlsxOperator op;
        op.setOldXlsxAbsolutePath(folder + QStringLiteral("/in put.xlsx"));
        op.setExtractDirAbsolutePath(folder + QStringLiteral("/wor k\u00e9"));
        op.setNewXlsxAbsolutePath(folder + QStringLiteral("/out put\u00e9.xlsx"));
        QVERIFY(op.load());
        op.setCellsValue(kA, 5);
        QVERIFY(op.save());
        QVERIFY(ReadArchive(FileContent(folder + QStringLiteral("/out put\u00e9.xlsx"))).value(kSheet1).contains("<v>5</v>"));
    }

    // --- Trouble with the disk ---

    void a_full_disk_under_the_parts_is_reported()
    {
        XlsxOperator op;
        QVERIFY(Load(op, OneName()));
        const QString part = WorkPath() + QStringLiteral("/xl/worksheets/sheet1.xml");
        QFile::remove(part);
        QVERIFY(QFile::link(QStringLiteral("/dev/full"), part));
        ExpectSaveFailure(QStringLiteral("xl/worksheets/sheet1.xml"));
        QVERIFY(!op.save());
    }

    void an_output_that_comes_out_short_is_told_by_reading_it_back()
    {
        // True means that the target could be opened. Each part is small enough for the disk, and the package too large.
        constexpr rlim_t kFileBytes = 4000;
        Template source = OneName();
        for (int i = 0; i < 10; ++i)
            source.parts["xl/media/" + QByteArray::number(i)] = Noise(3000);
        WriteForAll(source.Archive());
        QCOMPARE(InChild(kFileBytes, [this] { return LoadAndSave(); }), 1);
        QCOMPARE(FileContent(OutputPath()).size(), int(kFileBytes));
        QVERIFY(XlsxZip::extractFromXlsxFile(OutputPath(), WorkPath()));
        QCOMPARE(FilesBelow(WorkPath()), (QMap<QByteArray, QByteArray>()));
    }

    void a_file_that_comes_out_short_while_unpacking_is_not_noticed()
    {
        WriteForAll(MakeArchive(QMap<QByteArray, QByteArray>{{"long", Noise(3000)}, {"short", "whole"}}));
        QCOMPARE(InChild(2000, [this] { return XlsxZip::extractFromXlsxFile(TemplatePath(), WorkPath()); }), 1);
        const auto found = FilesBelow(WorkPath());
        QCOMPARE(found.value("long").size(), 2000);
        QCOMPARE(found.value("short"), QByteArray("whole"));
    }

    void a_picture_that_cannot_be_copied_is_reported_and_the_package_saved_without_it()
    {
        Template source = OneName();
        source.Drawing(1, {{"logo", "rId1"}}, Relationship("rId1", "image", "../media/image1.png"));
        WriteFile(Path(QStringLiteral("new.png")), "picture");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        op.setPicturesPictureInfo(QStringLiteral("logo"), {Path(QStringLiteral("new.png"))});
        Log().ExpectMatch(QtWarningMsg, QStringLiteral("XlsxOperator::copyAndRenameFile: Failed to copy file: .*new\\.png.*"));
        QVERIFY(op.save());
        QVERIFY(!Output().contains("xl/media/new.png"));
    }

    void a_part_that_comes_out_short_while_unpacking_ends_the_load()
    {
        Template source = OneName();
        source.Sheet(1, QByteArray("<row r=\"9\"><c r=\"A9\"><v>1</v></c></row>").repeated(500));
        WriteForAll(source.Archive());
        // A part that was cut is no XML and ends the load.
        QCOMPARE(InChild(2000, [this] { return LoadAndSave(); }), 0);
        QVERIFY(!QFileInfo::exists(OutputPath()));
        QDir(WorkPath()).removeRecursively();
        QCOMPARE(InChild(RLIM_INFINITY, [this] { return LoadAndSave(); }), 1);
        QCOMPARE(PackageFaults(Output()).size(), 499); // rows of one number
    }

    void a_folder_that_cannot_be_written_fails_the_load_and_the_save()
    {
        const QString folder = Path(QStringLiteral("locked"));
        WriteFile(folder + QStringLiteral("/file"), "x");
        WriteForAll(OneName().Archive());
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther);
        QCOMPARE(InChild(RLIM_INFINITY,
                         [&] {
                             XlsxOperator op;
                             Prepare(op);
                             op.setExtractDirAbsolutePath(folder + QStringLiteral("/work"));
                             return op.load();
                         }),
                 0);
        QCOMPARE(InChild(RLIM_INFINITY,
                         [&] {
                             XlsxOperator op;
                             Prepare(op);
                             op.setNewXlsxAbsolutePath(folder + QStringLiteral("/output.xlsx"));
                             return !op.load() || op.save();
                         }),
                 0);
        // A directory that cannot be emptied keeps what it has, and the load still ends well.
        WriteFile(WorkPath() + QStringLiteral("/kept/file"), "kept");
        QFile::setPermissions(WorkPath(), QFile::Permissions(0x7777));
        QFile::setPermissions(WorkPath() + QStringLiteral("/kept"),
                              QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther);
        QCOMPARE(InChild(RLIM_INFINITY, [this] { return LoadAndSave(); }), 1);
        QCOMPARE(Output().value("kept/file"), QByteArray("kept"));
        QFile::setPermissions(folder, QFile::Permissions(0x7777));
        QFile::setPermissions(WorkPath() + QStringLiteral("/kept"), QFile::Permissions(0x7777));
    }

    void a_file_that_cannot_be_read_is_left_out()
    {
        WriteFile(WorkPath() + QStringLiteral("/a"), "1");
        WriteFile(WorkPath() + QStringLiteral("/b"), "2");
        QFile::setPermissions(QFileInfo(WorkPath()).path(), QFile::Permissions(0x7777));
        QFile::setPermissions(WorkPath() + QStringLiteral("/a"), QFile::Permissions());
        QFile::setPermissions(WorkPath() + QStringLiteral("/b"), QFile::Permissions(0x7777));
        QCOMPARE(InChild(RLIM_INFINITY,
                         [this] {
                             XlsxOperator op;
                             Prepare(op);
                             return op.save();
                         }),
                 1);
        QCOMPARE(Output(), (QMap<QByteArray, QByteArray>{{"b", "2"}}));
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxSaving)
#include "tst_XlsxSaving.moc"
