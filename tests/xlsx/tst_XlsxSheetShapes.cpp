#include "xlsx/XlsxTestCase.h"

#include <QTest>
#include <QtEndian>

using namespace VelmoraTest;
using Velmora::XlsxOperator;

/// A cell is the first of its reference in document order, whatever shape a sheet has.
class tst_XlsxSheetShapes : public XlsxTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_first_cell_of_a_reference_is_found_data()
    {
        QTest::addColumn<QByteArray>("sheetData");
        QTest::newRow("in its row") << QByteArray("<row r=\"3\"><c r=\"B3\"><v>7</v></c><c r=\"B3\"><v>8</v></c></row>");
        QTest::newRow("in another row") << QByteArray("<row r=\"1\"><c r=\"B3\"><v>7</v></c></row>"
                                                      "<row r=\"3\"><c r=\"B3\"><v>8</v></c></row>");
        QTest::newRow("in the second of two rows of one number") << QByteArray("<row r=\"3\"/><row r=\"3\"><c r=\"B3\"><v>7</v></c></row>");
        QTest::newRow("in a row without a number") << QByteArray("<row><c r=\"B3\"><v>7</v></c></row>");
        QTest::newRow("in a row of another spelling") << QByteArray("<row r=\"03\"><c r=\"B3\"><v>7</v></c></row>");
        QTest::newRow("outside of rows") << QByteArray("<c r=\"B3\"><v>7</v></c><row r=\"3\"><c r=\"B3\"><v>8</v></c></row>");
        QTest::newRow("in a cell") << QByteArray("<row r=\"3\"><c r=\"A3\"><c r=\"B3\"><v>7</v></c></c><c r=\"B3\"><v>8</v></c></row>");
        QTest::newRow("in a row in a row") << QByteArray("<row r=\"3\"><row r=\"4\"><c r=\"B3\"><v>7</v></c></row></row>"
                                                         "<row r=\"5\"><c r=\"B3\"><v>8</v></c></row>");
        QTest::newRow("behind a row in a row") << QByteArray("<row r=\"3\"><row r=\"4\"/><c r=\"B3\"><v>7</v></c></row>");
        QTest::newRow("deep in its row") << QByteArray("<row r=\"3\"><x><c r=\"B3\"><v>7</v></c></x><c r=\"B3\"><v>8</v></c></row>");
        QByteArray longRow;
        for (int column = 0; column < 600; ++column)
            longRow += "<c r=\"X" + QByteArray::number(column) + "Y3\"/>";
        QTest::newRow("in a long row") << QByteArray("<row r=\"3\">" + longRow + "<c r=\"B3\"><v>7</v></c></row>");
    }

    void the_first_cell_of_a_reference_is_found()
    {
        QFETCH(QByteArray, sheetData);
        Template source;
        source.Sheet(1, sheetData).Name("Cell", "Sheet1!$B$3");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(op.getCellValue(QStringLiteral("Cell")), QVariant(7LL));
        op.setCellsValue(QStringLiteral("Cell"), 9);
        QVERIFY(op.save());
        const QByteArray saved = OutputBetween(kSheet1, "<sheetData>", "</sheetData>");
        QCOMPARE(saved.count("r=\"B3\""), sheetData.count("r=\"B3\""));
        QCOMPARE(saved.count("<v>9</v>"), 1);
        QCOMPARE(saved.count("<v>7</v>"), 0);
        QCOMPARE(saved.count("<v>8</v>"), sheetData.count("<v>8</v>"));
    }

    /// A host may give any column: the reference of the cell that is made may then end in another row's number.
    void a_new_cell_is_found_again_whatever_its_column()
    {
        Template source;
        source.Sheet(1, "<row r=\"12\"><c r=\"A12\"><v>1</v></c></row>");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QVERIFY(op.setCellValue(QStringLiteral("Sheet1"), 2, QStringLiteral("B1"), QStringLiteral("Odd"), 5));
        QVERIFY(op.save());
        QVERIFY(op.setCellValue(QStringLiteral("Sheet1"), 12, QStringLiteral("B"), QStringLiteral("Even"), 6));
        QVERIFY(op.save());
        const QByteArray saved = OutputBetween(kSheet1, "<sheetData>", "</sheetData>");
        QCOMPARE(saved.count("r=\"B12\""), 1);
        QVERIFY(saved.startsWith("<row r=\"2\"><c r=\"B12\">"));
    }

    void a_row_that_grows_long_keeps_its_cells()
    {
        Template source;
        source.Sheet(1, "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>").Name("Wide", "Sheet1!$A$1:$ZZ$1").Name("Last", "Sheet1!$ZZ$1");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        op.setCellsValue(QStringLiteral("Wide"), 3);
        op.setCellsValue(QStringLiteral("Last"), 3);
        QVERIFY(op.save());
        QVERIFY(op.save());
        const QByteArray saved = OutputBetween(kSheet1, "<sheetData>", "</sheetData>");
        QCOMPARE(saved.count("<c "), 702);
        QCOMPARE(saved.count("<v>3</v>"), 702);
        QCOMPARE(PackageFaults(Output()), QStringList());
    }

    /// Cells of many attributes are not looked through for each of many references.
    void heavy_cells_cost_no_more_than_light_ones()
    {
        const auto secondsWith = [this](int attributeCount) {
            QByteArray attributes;
            for (int i = 0; i < attributeCount; ++i)
                attributes += " a" + QByteArray::number(i) + "=\"\"";
            QByteArray row;
            for (int i = 0; i < 60; ++i)
                row += "<c" + attributes + " r=\"A" + QByteArray::number(i) + "Y3\"/>";
            // Nothing can be put behind the last child, nor in front of a cell.
            Template source;
            source.Sheet(1, "<row r=\"3\">" + row + "<x r=\"zzz\"/></row>")
                .Name("Cells", QByteArray("Sheet1!$C$3,").repeated(20000) + "Sheet1!$C$3");
            XlsxOperator op;
            bool done = Load(op, source);
            op.setCellsValue(QStringLiteral("Cells"), 3);
            const double seconds = CpuSeconds([&] { done = op.save() && done; });
            done = done && OutputBetween(kSheet1, "<sheetData>", "</sheetData>").count("<c ") == 60;
            return done ? seconds : -1.0;
        };
        const double light = secondsWith(0);
        const double heavy = secondsWith(999);
        QVERIFY(light >= 0 && heavy >= 0);
        COMPARE_COST(heavy, light);
    }

    /// Whoever writes a file may choose texts on which a hash without a secret agrees, here that of the standard library.
    void strings_made_to_meet_cost_no_more_than_others()
    {
        constexpr quint64 kFactor = 0xc6a4a7935bd1e995U;
        quint64 inverse = 1; // of the factor, by Newton's steps
        for (int i = 0; i < 6; ++i)
            inverse *= 2 - kFactor * inverse;
        const auto mixed = [](quint64 value) { return value ^ (value >> 47); }; // its own inverse
        QByteArray strings;
        QByteArray others;
        int count = 0;
        for (quint64 n = 0; count < 100000; ++n) {
            const quint64 first = 0x4141414141414141U + (n & 31) + ((n >> 5 & 31) << 8) + ((n >> 10 & 31) << 16) + ((n >> 15 & 31) << 24);
            const quint64 state = ((0xc70f6907U ^ (16 * kFactor)) ^ (mixed(first * kFactor) * kFactor)) * kFactor;
            const quint64 second = mixed((state ^ 0x5bd1e995U) * inverse) * inverse;
            QByteArray text(16, '\0');
            qToLittleEndian(first, text.data());
            qToLittleEndian(second, text.data() + 8);
            if (text.contains('\0') || text.contains('<'))
                continue;
            strings += "<si><t>" + text + "</t></si>";
            others += "<si><t>" + QByteArray::number(count).rightJustified(16, 'x') + "</t></si>";
            ++count;
        }
        const auto secondsWith = [this](const QByteArray &items) {
            Template source;
            source.Strings({items}).Sheet(1, "<row r=\"1\"><c r=\"A1\"/></row>").Name("A", "Sheet1!$A$1");
            XlsxOperator op;
            bool done = Load(op, source);
            op.setCellsValue(QStringLiteral("A"), QStringLiteral("5 new"));
            const double seconds = CpuSeconds([&] { done = op.save() && done; });
            done =
                done && OutputBetween(kSheet1, "<sheetData>", "</sheetData>") == "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>100000</v></c></row>";
            return done ? seconds : -1.0;
        };
        const double plain = secondsWith(others);
        const double made = secondsWith(strings);
        QVERIFY(plain >= 0 && made >= 0);
        COMPARE_COST(made, plain);
    }
};

VELMORA_TEST_MAIN(tst_XlsxSheetShapes)

#include "tst_XlsxSheetShapes.moc"
