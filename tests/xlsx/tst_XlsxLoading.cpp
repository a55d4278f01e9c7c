#include "xlsx/XlsxTestCase.h"

#include <QLibraryInfo>

#include <algorithm>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kA = QStringLiteral("A");
const QByteArray kContentTypes = QByteArrayLiteral("[Content_Types].xml");
const QByteArray kWorkbookRels = QByteArrayLiteral("xl/_rels/workbook.xml.rels");
const QByteArray kImage = QByteArrayLiteral("image");

QStringList Sorted(QStringList list)
{
    std::sort(list.begin(), list.end());
    return list;
}

} // namespace

class tst_XlsxLoading : public XlsxTestCase
{
    Q_OBJECT

    QStringList Names(XlsxOperator &op) const
    {
        QHash<QString, QVariant> elements;
        op.getElementsNameToValueHash(elements);
        return Sorted(elements.keys());
    }
    /// The cells that the number 5, set to the name A, ends in, in the order of the sheet.
    QStringList CellsOf(const QByteArray &text)
    {
        XlsxOperator op;
        if (!Load(op, Template().Name("A", text)))
            return {QStringLiteral("not loaded")};
        op.setCellsValue(kA, 5);
        if (!op.save())
            return {QStringLiteral("not saved")};
        QStringList cells;
        const QByteArray content = Output().value(kSheet1);
        for (auto at = content.indexOf("<c r=\""); at >= 0; at = content.indexOf("<c r=\"", at + 1))
            cells.append(QString::fromUtf8(content.mid(at + 6, content.indexOf('"', at + 6) - at - 6)));
        return cells;
    }
    void ExpectLoadFailure(const QString &part)
    {
        ExpectWarning(QStringLiteral("XlsxOperator::loadDocumentsFromXmls:  load_file failed,  \"%1/%2\"").arg(WorkPath(), part));
    }
    void ExpectNoReference(const QString &reference)
    {
        ExpectWarning(QStringLiteral("XlsxOperator::loadCellNameToPosInfosHash:  posSubStringList.size() != 2,  \"%1\"").arg(reference));
    }
    void ExpectMalformed(const QString &position)
    {
        ExpectWarning(QStringLiteral("XlsxOperator::getRowColFromDollarPos:  posSubSubStringList.size() != 3,  \"%1\"").arg(position));
    }
    void ExpectNoSheet(const QString &position)
    {
        ExpectWarning(
            QStringLiteral("XlsxOperator::getDataValidationNodeFromSheetDocument:  pSheetDocument is nullptr,  \"%1\"").arg(position));
    }

    static auto HashOf(const QByteArray &name) { return qHash(QString::fromLatin1(name), decltype(qHash(QString()))(qGlobalQHashSeed())); }

    /// Different names of one length on which qHash() of Qt 5 agrees, whether or not it takes the processor's checksum instruction.
    static QList<QByteArray> NamesOfOneHash(int count)
    {
        constexpr int kLetters = 64;
        const auto nameOf = [](quint64 bits) {
            QByteArray name(kLetters, 'a');
            for (int i = 0; i < kLetters; ++i)
                name[i] = (bits >> i & 1U) != 0 ? 'q' : 'a'; // one bit apart
            return name;
        };
        // A checksum is linear: by elimination, sets of letters that may change at once without changing it.
        QVector<QPair<quint64, quint64>> basis;
        QVector<quint64> free;
        for (int i = 0; i < kLetters; ++i) {
            quint64 bits = quint64(1) << i;
            quint64 difference = HashOf(nameOf(bits)) ^ HashOf(nameOf(0));
            for (const QPair<quint64, quint64> &known : qAsConst(basis)) {
                if ((difference ^ known.first) < difference) {
                    difference ^= known.first;
                    bits ^= known.second;
                }
            }
            if (difference != 0)
                basis.append({difference, bits});
            else
                free.append(bits);
            std::sort(basis.begin(), basis.end(), [](const auto &a, const auto &b) { return a.first > b.first; });
        }
        const bool isLinear = free.size() >= 12 && HashOf(nameOf(free.at(0) ^ free.at(1) ^ free.at(2))) == HashOf(nameOf(0));
        QList<QByteArray> names;
        for (int n = 0; n < count; ++n) {
            quint64 bits = 0;
            QByteArray pairs;
            for (int i = 0; i < 12; ++i) {
                bits ^= isLinear && (n >> i & 1) != 0 ? free.at(i) : 0;
                pairs += (n >> i & 1) != 0 ? "Aa" : "BB"; // 31 * first + second is the same
            }
            names.append(isLinear ? nameOf(bits) : pairs);
        }
        return names;
    }

    /// How many of \a names have the hash of the first.
    static int Meeting(const QList<QByteArray> &names)
    {
        const auto meets = [&names](const QByteArray &name) { return HashOf(name) == HashOf(names.first()); };
        return int(std::count_if(names.begin(), names.end(), meets));
    }

    /// Qt 6 gives its hash a seed that an author of names cannot know, and does without a checksum: they do not meet.
    static bool CanNamesMeet() { return QLibraryInfo::version().majorVersion() == 5; }

private Q_SLOTS:
    // --- What is missing is added ---

    void shared_strings_are_made_on_disk_and_the_rest_in_memory()
    {
        XlsxOperator op;
        QVERIFY(Load(op, Template().Sheet(2, "")));
        const auto work = FilesBelow(WorkPath());
        QCOMPARE(work.value(kSharedStrings),
                 QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<sst "
                            "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">\n</sst>"));
        QVERIFY(!work.value(kWorkbookRels).contains("sharedStrings"));
        QVERIFY(!work.value(kContentTypes).contains("sharedStrings"));
        QVERIFY(op.save());
        // rId1 and rId2 are sheets, rId3 the styles.
        QVERIFY(
            Output()
                .value(kWorkbookRels)
                .endsWith(
                    "<Relationship Id=\"rId4\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/sharedStrings\" "
                    "Target=\"sharedStrings.xml\"/></Relationships>"));
        QVERIFY(
            Output()
                .value(kContentTypes)
                .endsWith("<Default Extension=\"jpeg\" ContentType=\"image/jpeg\"/><Default Extension=\"png\" ContentType=\"image/png\"/>"
                          "<Override PartName=\"/xl/sharedStrings.xml\" "
                          "ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.sharedStrings+xml\"/></Types>"));
        QCOMPARE(PackageFaults(Output()), QStringList());
    }

    void what_is_there_gets_no_second_copy()
    {
        Template source;
        source.Strings({"<si><t>x</t></si>"});
        source.parts[kContentTypes].replace(
            "</Types>", "<Default Extension=\"png\" ContentType=\"mine\"/><Default Extension=\"jpeg\" ContentType=\"mine\"/></Types>");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QVERIFY(op.save());
        const QByteArray types = Output().value(kContentTypes);
        QCOMPARE(types.count("\"png\""), 1);
        QCOMPARE(types.count("\"jpeg\""), 1);
        QCOMPARE(types.count("/xl/sharedStrings.xml"), 1);
        QCOMPARE(Output().value(kWorkbookRels).count("sharedStrings.xml"), 1);
        QCOMPARE(PackageFaults(Output()), QStringList());
    }

    void the_new_relationship_counts_from_the_highest_number_data()
    {
        QTest::addColumn<QByteArray>("ids");
        QTest::addColumn<QByteArray>("id");
        const auto row = [](const char *title, const QList<QByteArray> &ids, const char *id) {
            QByteArray relationships;
            for (const QByteArray &other : ids)
                relationships += Relationship(other, "other", "x");
            QTest::newRow(title) << relationships << QByteArray(id);
        };
        row("none", {}, "rId1");
        row("gap", {"rId3", "rId1"}, "rId4");
        row("other forms", {"rId2", "abc", "rIdx", "", "x", "abc9", "rId-4"}, "rId10");
        row("beyond 32 bits", {"rId2", "rId99999999999"}, "rId3");
        row("highest of 32 bits", {"rId2147483647"}, "rId2147483648");
        row("highest of 32 bits, and the one after", {"rId2147483647", "rId2147483648"}, "rId2147483649");
    }
    void the_new_relationship_counts_from_the_highest_number()
    {
        QFETCH(QByteArray, ids);
        QFETCH(QByteArray, id);
        Template source;
        source.parts[kWorkbookRels] = Relationships(ids);
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QVERIFY(op.save());
        const QByteArray saved = Output().value(kWorkbookRels);
        QVERIFY2(saved.contains("<Relationship Id=\"" + id
                                + "\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/sharedStrings\""),
                 saved);
    }

    // --- Parts that cannot be read ---

    void a_part_that_cannot_be_read_ends_the_load_data()
    {
        QTest::addColumn<QByteArray>("part");
        for (const char *part : {"xl/_rels/workbook.xml.rels", "xl/worksheets/sheet1.xml", "xl/workbook.xml", "xl/sharedStrings.xml",
                                 "[Content_Types].xml", "xl/drawings/_rels/drawing1.xml.rels", "xl/drawings/drawing1.xml"})
            QTest::newRow(part) << QByteArray(part);
    }
    void a_part_that_cannot_be_read_ends_the_load()
    {
        QFETCH(QByteArray, part);
        Template source;
        source.Strings({"<si><t>x</t></si>"}).Drawing(1, {}, QByteArray());
        const QByteArray whole = source.parts.value(part);
        const QList<QByteArray> contents{QByteArray(),
                                         " \n",
                                         "text",
                                         whole.left(whole.size() / 2),
                                         whole.chopped(1),
                                         whole + "<open>",
                                         "<a><b></a></b>",
                                         "<a attr=\"></a>",
                                         QByteArray("<a>\0</a>", 8)};
        for (const QByteArray &content : contents) {
            source.parts[part] = content;
            XlsxOperator op;
            ExpectLoadFailure(QString::fromUtf8(part));
            QVERIFY2(!Load(op, source), content);
        }
        const bool mayBeMissing = part.contains("sheet1") || part.contains("sharedStrings") || part.contains("drawing");
        source.parts.remove(part);
        XlsxOperator missing;
        if (!mayBeMissing)
            ExpectLoadFailure(QString::fromUtf8(part));
        QCOMPARE(Load(missing, source), mayBeMissing);

        // A directory of that name.
        source.parts[part + "/file"] = "x";
        XlsxOperator op;
        ExpectLoadFailure(QString::fromUtf8(part));
        QVERIFY(!Load(op, source));
    }

    void what_is_no_archive_fails_at_the_first_part()
    {
        XlsxOperator op;
        ExpectLoadFailure(QString::fromUtf8(kWorkbookRels));
        QVERIFY(!Load(op, QByteArray("no archive")));
    }

    void a_missing_template_fails()
    {
        XlsxOperator op;
        Prepare(op);
        ExpectWarning(QStringLiteral("extractXlsxFile: file does not exist, \"%1\"").arg(TemplatePath()));
        QVERIFY(!op.load());
        XlsxOperator unset;
        ExpectWarning(QStringLiteral("extractXlsxFile: file does not exist, \"\""));
        QVERIFY(!unset.load());
    }

    void parts_that_take_too_much_memory_in_all_are_not_parsed()
    {
        // Small in the archive, and in memory about 140 MB each.
        Template source;
        const QByteArray sheet = "<worksheet>" + QByteArray("<a/>").repeated(1500000) + "</worksheet>";
        for (int i = 2; i <= 8; ++i)
            source.parts["xl/worksheets/sheet" + QByteArray::number(i) + ".xml"] = sheet;
        source.parts["noise"] = Noise(300000); // else they would expand too much
        XlsxOperator op;
        ExpectLoadFailure(QStringLiteral("xl/worksheets/sheet7.xml"));
        QVERIFY(!Load(op, source));
    }

    // --- Which files are parts ---

    void parts_are_numbered_by_length_and_then_by_text()
    {
        Template source;
        source.parts.remove(kSheet1);
        for (const char *name : {"sheet10", "sheet9", "sheet2", "Sheet1", "a", "my sheet1"})
            source.parts["xl/worksheets/" + QByteArray(name) + ".xml"] =
                QByteArray("<worksheet><sheetData/><pageMargins/><") + QByteArray(name).replace(' ', "") + "/></worksheet>";
        source.parts["xl/worksheets/_rels/sheet2.xml.rels"] = Relationships(QByteArray());
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QVERIFY(op.save());
        // The third sheet is sheet10, and is written to sheet3; what is not numbered from 1 without gaps stays behind.
        QVERIFY(Output().value("xl/worksheets/sheet1.xml").contains("<sheet2/>"));
        QVERIFY(Output().value("xl/worksheets/sheet2.xml").contains("<sheet9/>"));
        QVERIFY(Output().value("xl/worksheets/sheet3.xml").contains("<sheet10/>"));
        QCOMPARE(Output().value("xl/worksheets/sheet10.xml"), source.parts.value("xl/worksheets/sheet10.xml"));
        for (const char *untouched :
             {"xl/worksheets/a.xml", "xl/worksheets/Sheet1.xml", "xl/worksheets/my sheet1.xml", "xl/worksheets/_rels/sheet2.xml.rels"})
            QCOMPARE(Output().value(untouched), source.parts.value(untouched));
    }

    // --- Names and references ---

    void references_give_their_cells_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("cells");
        QTest::newRow("cell") << QByteArray("Sheet1!$A$1") << "A1";
        QTest::newRow("range") << QByteArray("Sheet1!$A$1:$C$2") << "A1 B1 C1 A2 B2 C2";
        QTest::newRow("list") << QByteArray("Sheet1!$A$1,Sheet1!$C$3") << "A1 C3";
        QTest::newRow("list of ranges") << QByteArray("Sheet1!$A$1:$A$2,Sheet1!$C$3") << "A1 A2 C3";
        QTest::newRow("one cell as a range") << QByteArray("Sheet1!$B$2:$B$2") << "B2";
        QTest::newRow("range over Z, by text") << QByteArray("Sheet1!$Z$1:$AB$1") << "AA1 AB1 Z1";
        QTest::newRow("unknown last column counts as A") << QByteArray("Sheet1!$A$1:$AAA$1") << "A1";
        QTest::newRow("unknown columns count as A") << QByteArray("Sheet1!$AAA$1:$ABC$1") << "A1";
        QTest::newRow("small letters count as A") << QByteArray("Sheet1!$b$1:$C$1") << "A1 B1 C1";
        QTest::newRow("small letters of a cell") << QByteArray("Sheet1!$b$1") << "b1";
        QTest::newRow("same cell twice") << QByteArray("Sheet1!$A$1,Sheet1!$A$1") << "A1";
        QTest::newRow("something before the first dollar") << QByteArray("Sheet1!x$A$1") << "A1";
        QTest::newRow("reversed rows") << QByteArray("Sheet1!$A$3:$A$1") << "";
        QTest::newRow("columns in reverse order, next to each other") << QByteArray("Sheet1!$D$1:$C$2147483647") << "";
        QTest::newRow("row 0") << QByteArray("Sheet1!$A$0") << "";
        QTest::newRow("negative row") << QByteArray("Sheet1!$A$-1") << "";
        QTest::newRow("from a negative row") << QByteArray("Sheet1!$A$-1:$A$2") << "A1 A2";
        QTest::newRow("no row") << QByteArray("Sheet1!$A$") << "";
        QTest::newRow("no column") << QByteArray("Sheet1!$$5") << "";
        QTest::newRow("row of 20 digits") << QByteArray("Sheet1!$A$12345678901234567890") << "";
        QTest::newRow("row of 10 digits") << QByteArray("Sheet1!$A$2147483648") << "";
        QTest::newRow("three corners") << QByteArray("Sheet1!$A$1:$B$2:$C$3") << "";
    }
    void references_give_their_cells()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, cells);
        QCOMPARE(CellsOf(text).join(QLatin1Char(' ')), cells);
    }

    void columns_in_reverse_order_run_to_the_last_one()
    {
        const QStringList cells = CellsOf("Sheet1!$C$1:$A$1");
        QCOMPARE(cells.size(), 700);
        QVERIFY(cells.contains(QStringLiteral("C1")) && cells.contains(QStringLiteral("ZZ1")));
        QVERIFY(!cells.contains(QStringLiteral("B1")));
    }

    void a_reference_without_a_sheet_is_passed_over_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QStringList>("reported");
        QTest::newRow("nothing") << QByteArray() << QStringList{QString()};
        QTest::newRow("error") << QByteArray("#REF!") << QStringList();
        QTest::newRow("number") << QByteArray("5") << QStringList{QStringLiteral("5")};
        QTest::newRow("between others") << QByteArray("x,,a!b!c") << QStringList{QStringLiteral("x"), QString(), QStringLiteral("a!b!c")};
        QTest::newRow("formula") << QByteArray("SUM(A1;A2)") << QStringList{QStringLiteral("SUM(A1;A2)")};
        QTest::newRow("comma in the sheet's name") << QByteArray("'a,b'!$A$1") << QStringList{QStringLiteral("'a")};
    }
    void a_reference_without_a_sheet_is_passed_over()
    {
        QFETCH(QByteArray, text);
        QFETCH(QStringList, reported);
        for (const QString &reference : reported)
            ExpectNoReference(reference);
        // What has two pieces around its exclamation mark is a position, though of no cell.
        const bool isPosition = text.endsWith("!") || text.contains("b'!");
        if (text == "#REF!")
            ExpectMalformed(QString());
        if (isPosition)
            ExpectNoSheet(text == "#REF!" ? QStringLiteral("0") : QStringLiteral("A1"));
        XlsxOperator op;
        QVERIFY(Load(op, Template().Name("A", text).Name("B", "Sheet1!$B$1")));
        QCOMPARE(Names(op), isPosition ? (QStringList{kA, QStringLiteral("B")}) : QStringList(QStringLiteral("B")));
    }

    void a_malformed_position_is_reported_and_names_no_cell_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QStringList>("reported");
        QTest::newRow("no dollars") << QByteArray("Sheet1!A1") << QStringList{QStringLiteral("A1")};
        QTest::newRow("one dollar") << QByteArray("Sheet1!$A1") << QStringList{QStringLiteral("$A1")};
        QTest::newRow("column") << QByteArray("Sheet1!$A:$A") << QStringList{QStringLiteral("$A"), QStringLiteral("$A")};
        QTest::newRow("row") << QByteArray("Sheet1!$5:$5") << QStringList{QStringLiteral("$5"), QStringLiteral("$5")};
        QTest::newRow("error") << QByteArray("Sheet1!#REF") << QStringList{QStringLiteral("#REF")};
        QTest::newRow("nothing") << QByteArray("Sheet1!") << QStringList{QString()};
        QTest::newRow("half a range") << QByteArray("Sheet1!$A$1:") << QStringList{QString()};
        QTest::newRow("four pieces") << QByteArray("Sheet1!$A$1$") << QStringList{QStringLiteral("$A$1$")};
    }
    void a_malformed_position_is_reported_and_names_no_cell()
    {
        QFETCH(QByteArray, text);
        QFETCH(QStringList, reported);
        for (const QString &position : reported)
            ExpectMalformed(position);
        QCOMPARE(CellsOf(text), QStringList());
    }

    void whole_columns_and_sheets_are_bounded()
    {
        const auto expectTooMany = [this](const char *reference) {
            ExpectWarning(
                QStringLiteral("XlsxOperator::loadCellNameToPosInfosHash:  too many cells,  \"%1\"").arg(QLatin1String(reference)));
        };
        Template source;
        source.Name("Beyond", "Sheet1!$A$1:$A$1048577").Name("Wide", "Sheet1!$A$1:$ZZ$2147483647").Name("Small", "Sheet1!$A$1:$A$3");
        source.Name("Column", "Sheet1!$A$1:$A$1048576,Sheet1!$B$1,Sheet1!$B$2")
            .Name("Second", "Sheet1!$A$1:$A$1048576")
            .Name("Last", "Sheet1!$B$1");
        expectTooMany("Sheet1!$A$1:$A$1048577");
        expectTooMany("Sheet1!$A$1:$ZZ$2147483647");
        expectTooMany("Sheet1!$B$1");            // the first beyond a full name is reported for all that follow
        expectTooMany("Sheet1!$A$1:$A$1048576"); // beyond what all names may have
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(Names(op), (QStringList{QStringLiteral("Column"), QStringLiteral("Last"), QStringLiteral("Small")}));
    }

    void a_sheet_as_wide_as_its_letters_counts_as_its_first_column()
    {
        // XFD is beyond ZZ.
        XlsxOperator op;
        QVERIFY(Load(op, Template().Name("Sheet", "Sheet1!$A$1:$XFD$1048576")));
        QCOMPARE(Names(op), QStringList(QStringLiteral("Sheet")));
    }

    void a_list_of_millions_ends()
    {
        // Each reference counts, even one that gives no cell; what is beyond is reported once.
        Template source;
        QByteArray list;
        for (int i = 0; i < 1048576; ++i)
            list += "S!$A$" + QByteArray::number(2 + i % 997) + ":$A$1,";
        source.Name("A", list + "rest,rest,rest").Name("B", "Sheet1!$B$1");
        ExpectWarning(QStringLiteral("XlsxOperator::loadCellNameToPosInfosHash:  too many cells,  \"rest\""));
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(Names(op), QStringList(QStringLiteral("B")));
    }

    void sheet_names_lose_apostrophes_only_for_a_blank()
    {
        Template source;
        source.Sheet(1, "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>", "<pageMargins/>", "My Sheet");
        source.Sheet(2, "<row r=\"1\"><c r=\"A1\"><v>2</v></c></row>", "<pageMargins/>", "Plain");
        source.Sheet(3, "<row r=\"1\"><c r=\"A1\"><v>3</v></c></row>", "<pageMargins/>", "It's me");
        source.Name("Quoted", "'My Sheet'!$A$1").Name("Bare", "My Sheet!$A$1").Name("Needless", "'Plain'!$A$1");
        source.Name("Doubled", "'It''s me'!$A$1")
            .Name("Single", "It's me!$A$1")
            .Name("Missing", "None!$A$1")
            .Name("Half", "'My Sheet!$A$1");
        for (int i = 0; i < 4; ++i)
            ExpectNoSheet(QStringLiteral("A1"));
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(op.getCellValue(QStringLiteral("Quoted")), QVariant(1LL));
        QCOMPARE(op.getCellValue(QStringLiteral("Bare")), QVariant(1LL));
        QVERIFY(!op.getCellValue(QStringLiteral("Needless")).isValid());
        QVERIFY(!op.getCellValue(QStringLiteral("Doubled")).isValid());
        QCOMPARE(op.getCellValue(QStringLiteral("Single")), QVariant(3LL));
        QVERIFY(!op.getCellValue(QStringLiteral("Missing")).isValid());
        QVERIFY(!op.getCellValue(QStringLiteral("Half")).isValid());
    }

    void the_sheet_is_found_by_the_number_of_its_relationship_data()
    {
        QTest::addColumn<QByteArray>("attribute");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("first") << QByteArray("r:id=\"rId1\"") << QVariant(1LL);
        QTest::newRow("second") << QByteArray("r:id=\"rId2\"") << QVariant(2LL);
        QTest::newRow("any three letters") << QByteArray("r:id=\"abc2\"") << QVariant(2LL);
        QTest::newRow("beyond") << QByteArray("r:id=\"rId3\"") << QVariant();
        QTest::newRow("largest") << QByteArray("r:id=\"rId2147483647\"") << QVariant();
        QTest::newRow("beyond 32 bits") << QByteArray("r:id=\"rId4294967297\"") << QVariant();
        QTest::newRow("zero") << QByteArray("r:id=\"rId0\"") << QVariant();
        QTest::newRow("negative") << QByteArray("r:id=\"rId-2147483648\"") << QVariant();
        QTest::newRow("no number") << QByteArray("r:id=\"rIdx\"") << QVariant();
        QTest::newRow("empty") << QByteArray("r:id=\"\"") << QVariant();
        QTest::newRow("none") << QByteArray() << QVariant();
        QTest::newRow("other prefix") << QByteArray("x:id=\"rId1\"") << QVariant();
    }
    void the_sheet_is_found_by_the_number_of_its_relationship()
    {
        QFETCH(QByteArray, attribute);
        QFETCH(QVariant, value);
        Template source;
        source.Sheet(1, "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>")
            .Sheet(2, "<row r=\"1\"><c r=\"A1\"><v>2</v></c></row>")
            .Name("A", "Sheet1!$A$1");
        source.parts[kWorkbook].replace("r:id=\"rId1\"", attribute);
        if (!value.isValid())
            ExpectNoSheet(QStringLiteral("A1"));
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(op.getCellValue(kA), value);
    }

    void one_name_of_several_sheets_is_one_element()
    {
        // Print areas share their name and differ by their sheet.
        Template source;
        source.Sheet(2, "")
            .Name("_xlnm.Print_Area\" localSheetId=\"0", "Sheet1!$A$1")
            .Name("_xlnm.Print_Area\" localSheetId=\"99", "Sheet2!$B$2");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(Names(op), QStringList(QStringLiteral("_xlnm.Print_Area")));
        op.setCellsValue(QStringLiteral("_xlnm.Print_Area"), 5);
        QVERIFY(op.save());
        QVERIFY(Output().value(kSheet1).contains("<c r=\"A1\"><v>5</v></c>"));
        QVERIFY(Output().value("xl/worksheets/sheet2.xml").contains("<c r=\"B2\"><v>5</v></c>"));
    }

    void a_filter_chooses_by_a_match_anywhere_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QStringList>("names");
        const QStringList all{QStringLiteral("Total"), QStringLiteral("_xlnm.Print_Area"), QStringLiteral("logo"),
                              QStringLiteral("subtotal")};
        QTest::newRow("none set") << QString() << all;
        QTest::newRow("anywhere") << QStringLiteral("ota") << QStringList{QStringLiteral("Total"), QStringLiteral("subtotal")};
        QTest::newRow("anchored") << QStringLiteral("^Total$") << QStringList{QStringLiteral("Total")};
        QTest::newRow("case") << QStringLiteral("LOGO") << QStringList();
        QTest::newRow("pictures") << QStringLiteral("^lo") << QStringList{QStringLiteral("logo")};
    }
    void a_filter_chooses_by_a_match_anywhere()
    {
        QFETCH(QString, pattern);
        QFETCH(QStringList, names);
        Template source;
        source.Name("Total", "Sheet1!$A$1").Name("_xlnm.Print_Area", "Sheet1!$A$1:$B$2").Name("subtotal", "Sheet1!$A$2");
        source.Drawing(1, {{"logo", "rId1"}}, Relationship("rId1", kImage, "../media/image1.png"));
        XlsxOperator op;
        op.setElementNameFilterRegExp(pattern);
        QVERIFY(Load(op, source));
        QCOMPARE(Names(op), names);
    }

    void names_are_text_whatever_they_hold()
    {
        const QString odd = QStringLiteral("it's \"a\" ' or '1'='1 ]\u00e4<&");
        Template source;
        source.Sheet(1, "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>", "<pageMargins/>", "o'clock");
        source.Name(odd.toHtmlEscaped().toUtf8(), "o'clock!$A$1").Name("", "o'clock!$A$1");
        source.Drawing(1, {{("p" + odd).toHtmlEscaped().toUtf8(), "it's"}}, Relationship("it's", kImage, "../media/a'b.png"));
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(op.getCellValue(odd), QVariant(1LL));
        QCOMPARE(op.getCellValue(QString()), QVariant(1LL));
        XlsxOperator::PictureInfo picture;
        op.getPicturePictureInfo(QLatin1Char('p') + odd, picture);
        QCOMPARE(picture.filePath, QStringLiteral("../media/a'b.png"));
        QVERIFY(op.setCellValue(QStringLiteral("o'clock"), 2, kA, odd, 5));
        QVERIFY(op.save());
        QVERIFY(Output().value(kSheet1).contains("<c r=\"A2\"><v>5</v></c>"));
    }

    void a_name_of_both_kinds_ends_as_a_picture()
    {
        Template source;
        source.Sheet(1, "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>").Name("A", "Sheet1!$A$1");
        source.Drawing(1, {{"A", "rId1"}}, Relationship("rId1", kImage, "../media/image1.png"));
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QVERIFY(op.getCellValue(kA).canConvert<XlsxOperator::PictureInfo>());
    }

    void meta_types_have_their_names()
    {
        QCOMPARE(QByteArray(QMetaType(qMetaTypeId<XlsxOperator::DropDownInfo>()).name()),
                 QByteArray("Velmora::XlsxOperator::DropDownInfo"));
        QCOMPARE(QByteArray(QMetaType(qMetaTypeId<XlsxOperator::PictureInfo>()).name()), QByteArray("Velmora::XlsxOperator::PictureInfo"));
    }

    // --- Copies and reloading ---

    void copies_have_their_own_values_and_share_documents()
    {
        XlsxOperator op;
        QVERIFY(Load(op, Template().Name("A", "Sheet1!$A$1").Name("B", "Sheet1!$B$1")));
        XlsxOperator copy(op);
        XlsxOperator assigned;
        assigned = op;
        copy.setCellsValue(kA, 1);
        assigned.setCellsValue(QStringLiteral("B"), 2);
        QVERIFY(!op.getCellValue(kA).isValid());
        QVERIFY(!op.getCellValue(QStringLiteral("B")).isValid());

        QVERIFY(copy.save());
        QVERIFY(assigned.save());
        QVERIFY(op.setCellValue(QStringLiteral("Sheet1"), 1, QStringLiteral("AB"), QStringLiteral("C"), 3));
        QVERIFY(op.save());
        // Each wrote into the same sheet, and the cells that one made were found by the next.
        QCOMPARE(OutputBetween(kSheet1, "<sheetData>", "</sheetData>"),
                 QByteArray("<row r=\"1\"><c r=\"A1\"><v>1</v></c><c r=\"AB1\"><v>3</v></c><c r=\"B1\"><v>2</v></c></row>"));
        QCOMPARE(PackageFaults(Output()), QStringList());
        // The name is in the workbook of all of them, its position only in the object that was told.
        copy.setCellsValue(QStringLiteral("C"), 4);
        QVERIFY(copy.save());
        QVERIFY(Output().value(kWorkbook).contains("<definedName name=\"C\">"));
        QVERIFY(Output().value(kSheet1).contains("<c r=\"AB1\"><v>3</v></c>"));
    }

    void a_copy_outlives_its_origin()
    {
        auto op = std::make_unique<XlsxOperator>();
        QVERIFY(Load(*op, Template().Name("A", "Sheet1!$A$1")));
        XlsxOperator copy(*op);
        op.reset();
        copy.setCellsValue(kA, 5);
        QVERIFY(copy.save());
        QVERIFY(Output().value(kSheet1).contains("<c r=\"A1\"><v>5</v></c>"));
    }

    void a_second_load_appends_behind_the_first()
    {
        Template source;
        source.Sheet(1, "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>").Name("A", "Sheet1!$A$1");
        source.Drawing(1, {{"logo", "rId1"}}, Relationship("rId1", kImage, "../media/image1.png"));
        XlsxOperator op;
        QVERIFY(Load(op, source));
        source.Sheet(1, "<row r=\"1\"><c r=\"A1\"><v>2</v></c></row>");
        QVERIFY(Load(op, source));
        // The old sheet keeps the index that the name leads to.
        QCOMPARE(op.getCellValue(kA), QVariant(1LL));
        QVERIFY(op.save());
        QVERIFY(Output().value(kSheet1).contains("<v>1</v>"));
        QVERIFY(Output().value("xl/worksheets/sheet2.xml").contains("<v>2</v>"));
        QVERIFY(Output().contains("xl/drawings/drawing2.xml"));
    }

    void a_failed_load_keeps_what_was_read_before_and_nothing_half_read()
    {
        Template source;
        source.Sheet(1, "<row r=\"1\"/>").Sheet(2, "<row r=\"2\"/>");
        const QByteArray second = "xl/worksheets/sheet2.xml";
        source.parts[second].chop(20);
        XlsxOperator op;
        ExpectLoadFailure(QString::fromUtf8(second));
        QVERIFY(!Load(op, source));
        QVERIFY(op.save());
        QCOMPARE(Output().value(second), source.parts.value(second));
        QVERIFY(Output().value(kSheet1).startsWith("<?xml version=\"1.0\"?><worksheet"));
        QCOMPARE(Output().value(kWorkbook), source.parts.value(kWorkbook));
    }

    // --- Hostile parts ---

    void depth_costs_no_stack()
    {
        constexpr int kDepth = 100000;
        Template source;
        source.Sheet(
            1, QByteArray("<a>").repeated(kDepth) + "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>" + QByteArray("</a>").repeated(kDepth));
        source.Name("A", "Sheet1!$A$1")
            .Strings({QByteArray("<x>").repeated(kDepth) + "<si><t>s</t></si>" + QByteArray("</x>").repeated(kDepth)});
        source.parts[kWorkbook].replace("<calcPr", QByteArray("<a>").repeated(kDepth) + QByteArray("</a>").repeated(kDepth) + "<calcPr");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(op.getCellValue(kA), QVariant(1LL));
        op.setCellsValue(kA, 2);
        QVERIFY(op.save());
        QVERIFY(Output().value(kSheet1).contains("<c r=\"A1\"><v>2</v></c>"));
    }

    void entities_are_not_expanded()
    {
        QByteArray doctype = "<!DOCTYPE x [<!ENTITY a \"aaaaaaaaaa\">";
        for (char c = 'b'; c < 'k'; ++c)
            doctype += QByteArray("<!ENTITY ") + c + " \"" + (QByteArray("&") + char(c - 1) + ";").repeated(10) + "\">";
        doctype += "<!ENTITY file SYSTEM \"file:///etc/passwd\">]>";
        Template source;
        source.Sheet(1, "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c></row>").Name("A", "Sheet1!$A$1");
        source.parts[kSharedStrings] = doctype + "<sst><si><t>&j;&file;</t></si></sst>";
        source.parts[kSheet1].prepend(doctype);
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(op.getCellValue(kA), QVariant(QStringLiteral("&j;&file;")));
    }

    void elements_no_program_writes_end_the_load_data()
    {
        QTest::addColumn<QByteArray>("sheetData");
        QTest::addColumn<bool>("loads");
        QByteArray attributes;
        for (int i = 0; i < 999; ++i)
            attributes += " a" + QByteArray::number(i) + "=\"\"";
        QTest::newRow("1,000 attributes") << QByteArray("<row r=\"1\"" + attributes + "/>") << true;
        QTest::newRow("1,001 attributes") << QByteArray("<row r=\"1\" b=\"\"" + attributes + "/>") << false;
        const QByteArray children = QByteArray("<x/>").repeated(1000);
        QTest::newRow("1,000 children") << QByteArray("<row r=\"1\"><c r=\"A1\">" + children + "</c></row>") << true;
        QTest::newRow("1,001 children") << QByteArray("<row r=\"1\"><c r=\"A1\"><v/>" + children + "</c></row>") << false;
        QTest::newRow("1,001 children of a row") << QByteArray("<row r=\"1\"><v/>" + children + "</row>") << true;
        const QByteArray zeros(999, '0');
        QTest::newRow("1,000 bytes of a row's number") << QByteArray("<row r=\"" + zeros + "1\"/>") << true;
        QTest::newRow("1,001 bytes of a row's number") << QByteArray("<row r=\"" + zeros + "01\"/>") << false;
        QTest::newRow("1,001 bytes of a cell's reference") << QByteArray("<row r=\"1\"><c r=\"A" + zeros + "1\"/></row>") << false;
        QTest::newRow("1,001 bytes behind the rows") << QByteArray("<row r=\"1\"/><x r=\"" + zeros + "01\"/>") << false;
        QTest::newRow("1,001 children of a validation") << QByteArray("<dataValidation><v/>" + children + "</dataValidation>") << false;
    }
    void elements_no_program_writes_end_the_load()
    {
        QFETCH(QByteArray, sheetData);
        QFETCH(bool, loads);
        XlsxOperator op;
        if (!loads)
            ExpectLoadFailure(QString::fromUtf8(kSheet1));
        QCOMPARE(Load(op, Template().Sheet(1, sheetData)), loads);
    }

    void much_in_one_place_costs_no_more_than_elsewhere()
    {
        // Each of many names makes a cell in a row, before page margins, that lie behind many other elements.
        constexpr int kNames = 10000;
        QByteArray names;
        for (int i = 0; i < kNames; ++i)
            names += "<definedName name=\"N" + QByteArray::number(i) + "\">Sheet1!$Q" + QByteArray::number(90000 - i) + "$1,Sheet1!$A$"
                + QByteArray::number(90000 - i) + "</definedName>";
        const auto secondsWith = [&](const QByteArray &inFront, const QByteArray &inRow, const QByteArray &behind) {
            Template source;
            source.Sheet(1, inFront + "<row r=\"1\">" + inRow + "<c r=\"Z\"/></row><row r=\"100000\"/>", behind);
            source.parts[kWorkbook].replace("<calcPr", "<definedNames>" + names + "</definedNames><calcPr");
            XlsxOperator op;
            bool done = Load(op, source);
            for (int i = 0; i < kNames; ++i)
                op.setCellsDropDownInfo(QStringLiteral("N%1").arg(i), {i, {QStringLiteral("x")}});
            const double seconds = CpuSeconds([&] { done = op.save() && done; });
            return done && Output().value(kSheet1).count("<c ") == 2 * kNames + 1 ? seconds : -1.0;
        };
        const QByteArray filler = QByteArray("<x/>").repeated(300000);
        // The same elements, where nothing is made behind them.
        const double elsewhere = secondsWith(QByteArray(), QByteArray(), "<pageMargins/><x>" + filler + filler + filler + "</x>");
        const double inTheWay = secondsWith(filler, filler, filler + "<pageMargins/>");
        QVERIFY(elsewhere >= 0 && inTheWay >= 0);
        COMPARE_COST(inTheWay, elsewhere);
    }

    /// Each cell of a name gets a formula and a list of its own, all of them share a string: a small package must not choose how much
    /// is written.
    void a_text_for_more_cells_than_it_may_have_reads_as_nothing()
    {
        const QByteArray text(3000, 'x');
        const QByteArray list = "<dataValidations><dataValidation type=\"list\" sqref=\"C1\"><formula1>" + text
            + "</formula1></dataValidation></dataValidations><pageMargins/>";
        Template source;
        source.Strings({"<si><t>" + text + "</t></si>", "<si><t>5" + text + "</t></si>"})
            .Sheet(1, "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" t=\"s\"><v>1</v></c><c r=\"C1\"><v>1</v></c></row>", list)
            .Name("Formula", "Sheet1!$A$1:$A$200000")
            .Name("One formula", "Sheet1!$A$1")
            .Name("String", "Sheet1!$B$1:$B$200000")
            .Name("List", "Sheet1!$C$1:$C$200000")
            .Name("One list", "Sheet1!$C$1");
        for (const char *name : {"Formula", "List"})
            ExpectWarning(QStringLiteral("XlsxOperator::loadElementsValueFromDocuments:  too much text,  \"%1\"").arg(QLatin1String(name)));
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(op.getCellValue(QStringLiteral("Formula")), QVariant());
        QCOMPARE(op.getCellValue(QStringLiteral("List")), QVariant());
        QCOMPARE(op.getCellValue(QStringLiteral("One formula")), QVariant(QString::fromUtf8(text)));
        QCOMPARE(op.getCellValue(QStringLiteral("String")), QVariant(QString::fromUtf8("5" + text)));
        XlsxOperator::DropDownInfo info;
        op.getCellDropDownInfo(QStringLiteral("One list"), info);
        QCOMPARE(info.options, QStringList(QString::fromUtf8(text)));
    }

    /// QHash looks through names of one hash one by one, whatever its seed.
    void names_made_to_meet_are_bounded()
    {
        const QList<QByteArray> names = NamesOfOneHash(1001);
        QCOMPARE(Meeting(names), CanNamesMeet() ? 1001 : 1);
        Template source;
        source.Sheet(1, "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>");
        QByteArray definitions;
        for (const QByteArray &name : names)
            definitions += "<definedName name=\"" + name + "\">Sheet1!$A$1</definedName>";
        // One that was taken stays taken.
        definitions += "<definedName name=\"" + names.first() + "\">Sheet1!$B$1</definedName>";
        source.parts[kWorkbook].replace("<calcPr", "<definedNames>" + definitions + "</definedNames><calcPr");
        if (CanNamesMeet())
            ExpectWarning(QStringLiteral("XlsxOperator::loadCellNameToPosInfosHash:  too many names of one hash,  \"%1\"")
                              .arg(QString::fromLatin1(names.last())));
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(Names(op).size(), CanNamesMeet() ? 1000 : 1001);
        QCOMPARE(Names(op).contains(QString::fromLatin1(names.last())), !CanNamesMeet());
    }

    void pictures_whose_names_were_made_to_meet_are_bounded()
    {
        const QList<QByteArray> names = NamesOfOneHash(1001);
        QCOMPARE(Meeting(names), CanNamesMeet() ? 1001 : 1);
        QList<QPair<QByteArray, QByteArray>> pictures;
        for (const QByteArray &name : names)
            pictures.append({name, "rId1"});
        if (CanNamesMeet())
            ExpectWarning(QStringLiteral("XlsxOperator::loadDrawingNameToIDInfosHash:  too many names of one hash,  \"%1\"")
                              .arg(QString::fromLatin1(names.last())));
        XlsxOperator op;
        QVERIFY(Load(op, Template().Drawing(1, pictures, Relationship("rId1", "image", "../media/image1.png"))));
        QCOMPARE(Names(op).size(), CanNamesMeet() ? 1000 : 1001);
    }

    void other_encodings_are_read()
    {
        Template source;
        source.Name("A", "Sheet1!$A$1").Sheet(1, "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>");
        const QString sheet = QString::fromUtf8(source.parts.value(kSheet1)).replace(QStringLiteral("UTF-8"), QStringLiteral("UTF-16"));
        source.parts[kSheet1] = QByteArray(reinterpret_cast<const char *>(sheet.utf16()), sheet.size() * 2).prepend("\xff\xfe");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(op.getCellValue(kA), QVariant(1LL));
        QVERIFY(op.save());
        QCOMPARE(PackageFaults(Output()), QStringList());
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxLoading)
#include "tst_XlsxLoading.moc"
