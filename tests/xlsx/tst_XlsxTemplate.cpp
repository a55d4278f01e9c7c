#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/Book.h"

#include <QDateTime>
#include <QJsonValue>
#include <QUrl>

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kName = QStringLiteral("Name");
const QByteArray kSheet1 = QByteArrayLiteral("xl/worksheets/sheet1.xml");

/// One sheet, and a name for its cell B2.
Template OneCell(const QByteArray &sheetData)
{
    Template source;
    source.Sheet(1, sheetData);
    source.Name("Name", "Sheet1!$B$2");
    return source;
}

/// What the sheet's data are once \a value was put into B2.
QByteArray Put(const QByteArray &sheetData, const QVariant &value)
{
    XlsxTemplate workbook;
    if (!workbook.load(OneCell(sheetData).Archive()) || !workbook.setValue(kName, value))
        return workbook.errorString().toUtf8();
    return SheetDataOf(SavedParts(workbook).value(kSheet1));
}

/// A value of a type, as a database gives it where there is none.
QVariant NullOf(QMetaType::Type type)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0) // has no types by their number
    return QVariant(QMetaType(type));
#else
    return QVariant(QVariant::Type(type));
#endif
}

QVariant Read(const QByteArray &cell, const QByteArray &strings = QByteArray())
{
    Template source = OneCell("<row r=\"2\">" + cell + "</row>");
    if (!strings.isEmpty())
        source.Strings({strings});
    XlsxTemplate workbook;
    return workbook.load(source.Archive()) ? workbook.value(kName) : QVariant(workbook.errorString());
}

QVariant Back(const QVariant &value)
{
    XlsxTemplate workbook;
    if (!workbook.load(OneCell("<row r=\"2\"><c r=\"B2\"/></row>").Archive()) || !workbook.setValue(kName, value))
        return workbook.errorString();
    XlsxTemplate again;
    return again.load(workbook.save()) ? again.value(kName) : QVariant(again.errorString());
}

/// Whether setValue() takes a value of that type.
template <typename Value, typename = void>
struct TakesValue : std::false_type
{
};
template <typename Value>
struct TakesValue<Value, std::void_t<decltype(std::declval<XlsxTemplate &>().setValue(QString(), std::declval<Value>()))>> : std::true_type
{
};
static_assert(TakesValue<const char *>::value && TakesValue<int>::value && TakesValue<QVariant>::value, "values");

} // namespace

/// Single cells: what is read of them, what is written, and that nothing else changes.
class tst_XlsxTemplate : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void without_a_template_every_operation_says_so()
    {
        XlsxTemplate workbook;
        QVERIFY(!workbook.setValue(kName, 1));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::NotLoaded);
        QVERIFY(!workbook.errorString().isEmpty());
        QCOMPARE(workbook.save(), QByteArray());
        QCOMPARE(workbook.names(), QStringList());
        QCOMPARE(workbook.kindOf(kName), XlsxTemplate::Kind::None);
        QCOMPARE(workbook.value(kName), QVariant());
    }

    void values_are_written_as_they_are_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QByteArray>("cell");
        const auto number = [](const QByteArray &text) { return "<c r=\"B2\"><v>" + text + "</v></c>"; };
        QTest::newRow("int") << QVariant(12) << number("12");
        QTest::newRow("decimal") << QVariant(12.5) << number("12.5");
        QTest::newRow("sum") << QVariant(0.1 + 0.2) << number("0.30000000000000004");
        QTest::newRow("small") << QVariant(1e-300) << number("1e-300");
        QTest::newRow("float") << QVariant(0.1F) << number("0.1");
        QTest::newRow("beyond double") << QVariant(Q_INT64_C(9007199254740993)) << number("9007199254740993");
        QTest::newRow("largest") << QVariant(std::numeric_limits<quint64>::max()) << number("18446744073709551615");
        QTest::newRow("least") << QVariant(std::numeric_limits<qint64>::min()) << number("-9223372036854775808");
        QTest::newRow("true") << QVariant(true) << QByteArray("<c r=\"B2\" t=\"b\"><v>1</v></c>");
        QTest::newRow("false") << QVariant(false) << QByteArray("<c r=\"B2\" t=\"b\"><v>0</v></c>");
        const auto text = [](const QByteArray &inside) { return "<c r=\"B2\" t=\"inlineStr\"><is>" + inside + "</is></c>"; };
        QTest::newRow("text") << QVariant("ACME Ltd") << text("<t>ACME Ltd</t>");
        QTest::newRow("no formula") << QVariant("=1+1") << text("<t>=1+1</t>");
        QTest::newRow("markup") << QVariant("R&D <b> \"q\" &amp;") << text("<t>R&amp;D &lt;b&gt; \"q\" &amp;amp;</t>");
        QTest::newRow("blanks") << QVariant(" a  b ") << text("<t xml:space=\"preserve\"> a  b </t>");
        QTest::newRow("lines") << QVariant("a\nb\tc\r\nd") << text("<t xml:space=\"preserve\">a\nb\tc&#13;\nd</t>");
        QTest::newRow("control characters") << QVariant(QString("a\u0007\u0001b")) << text("<t>a_x0007__x0001_b</t>");
        QTest::newRow("looks like an escape") << QVariant("_x0041_") << text("<t>_x005F_x0041_</t>");
        QTest::newRow("UTF-8") << QVariant(QByteArray("\xc3\xa4")) << text("<t>\xc3\xa4</t>");
        QTest::newRow("beyond the first plane") << QVariant(QString::fromUtf8("\xf0\x9f\x98\x80")) << text("<t>\xf0\x9f\x98\x80</t>");
        QTest::newRow("address") << QVariant(QUrl("https://a.example/?b=c")) << text("<t>https://a.example/?b=c</t>");
        QTest::newRow("empty text") << QVariant(QString()) << text("<t></t>");
        QTest::newRow("nothing") << QVariant() << QByteArray("<c r=\"B2\"/>");
        QTest::newRow("no number, of a database") << NullOf(QMetaType::Int) << QByteArray("<c r=\"B2\"/>");
        QTest::newRow("no truth, of a database") << NullOf(QMetaType::Bool) << QByteArray("<c r=\"B2\"/>");
        QTest::newRow("letter") << QVariant(QChar('x')) << text("<t>x</t>");
        QTest::newRow("JSON number") << QVariant(QJsonValue(2.5)) << QByteArray("<c r=\"B2\"><v>2.5</v></c>");
        QTest::newRow("JSON text") << QVariant(QJsonValue("2.5")) << text("<t>2.5</t>");
        QTest::newRow("JSON null") << QVariant(QJsonValue()) << QByteArray("<c r=\"B2\"/>");
        QTest::newRow("float") << QVariant(0.1f) << QByteArray("<c r=\"B2\"><v>0.1</v></c>");
    }
    void values_are_written_as_they_are()
    {
        QFETCH(QVariant, value);
        QFETCH(QByteArray, cell);
        QCOMPARE(Put("<row r=\"2\"><c r=\"B2\"><v>7</v></c></row>", value), "<row r=\"2\">" + cell + "</row>");
    }

    void an_argument_of_any_type_is_what_it_looks_like()
    {
        XlsxTemplate workbook;
        QVERIFY(workbook.load(OneCell("<row r=\"2\"><c r=\"B2\"/></row>").Archive()));
        const auto put = [&workbook](const auto &argument) {
            return workbook.setValue("Name", argument) ? workbook.value("Name") : QVariant(workbook.errorString());
        };
        const char *text = "text";
        char letters[] = "text";
        QCOMPARE(put("text"), QVariant(QString("text")));
        QCOMPARE(put(text), QVariant(QString("text")));
        QCOMPARE(put(static_cast<char *>(letters)), QVariant(QString("text")));
        QCOMPARE(put(QLatin1String("text")), QVariant(QString("text")));
        QCOMPARE(put(QByteArray("text")), QVariant(QString("text")));
        QCOMPARE(put(QChar('t')), QVariant(QString("t")));
        QCOMPARE(put(0), QVariant(0LL));
        QCOMPARE(put(-1L), QVariant(-1LL));
        QCOMPARE(put(std::int64_t(-9007199254740993)), QVariant(-9007199254740993LL));
        QCOMPARE(put(std::size_t(7)), QVariant(7LL));
        QCOMPARE(put(4294967295U), QVariant(4294967295LL));
        QCOMPARE(put(short(-3)), QVariant(-3LL));
        QCOMPARE(put(0.5f), QVariant(0.5));
        QCOMPARE(put(true), QVariant(true));
        QCOMPARE(put(QJsonValue(true)), QVariant(true));
        QCOMPARE(put(QDate(2026, 11, 22)), QVariant(QDate(2026, 11, 22)));
        static_assert(!TakesValue<const char16_t *>::value && !TakesValue<const wchar_t *>::value && !TakesValue<int *>::value,
                      "no pointer becomes a truth value");
    }

    void values_read_back_equal_data()
    {
        QTest::addColumn<QVariant>("value");
        const QVariantList values{1,
                                  -7,
                                  Q_INT64_C(9007199254740993),
                                  0.1 + 0.2,
                                  1e-300,
                                  1.7976931348623157e308,
                                  true,
                                  false,
                                  "text",
                                  " a\n\tb\r\n ",
                                  QString("a\u0001b_x0041_c"),
                                  QString(QChar(0xd800)) + "x",
                                  QDate(2026, 11, 22),
                                  QDate(1900, 1, 1),
                                  QDate(1900, 2, 28),
                                  QDate(1900, 3, 1),
                                  QDate(9999, 12, 31),
                                  QTime(13, 14, 15, 167),
                                  QTime(0, 0),
                                  QTime(23, 59, 59, 999),
                                  QDateTime(QDate(2026, 11, 22), QTime(23, 59, 59, 999)),
                                  QDateTime(QDate(2026, 11, 22), QTime(0, 0))};
        for (int i = 0; i < values.size(); ++i)
            QTest::newRow(qPrintable(QString("%1 %2").arg(i).arg(values.at(i).typeName()))) << values.at(i);
    }
    void values_read_back_equal()
    {
        QFETCH(QVariant, value);
        const QVariant back = Back(value);
        QCOMPARE(back, value);
        QCOMPARE(back.userType(), value.userType() == QMetaType::Int ? int(QMetaType::LongLong) : value.userType());
    }

    void what_no_cell_can_hold_is_refused_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("part");
        QTest::newRow("infinite") << QVariant(HUGE_VAL) << "infinite";
        QTest::newRow("not a number") << QVariant(std::nan("")) << "infinite";
        QTest::newRow("too early") << QVariant(QDate(1899, 12, 31)) << "1900-01-01";
        QTest::newRow("too late") << QVariant(QDate(10000, 1, 1)) << "9999-12-31";
        QTest::newRow("no date") << QVariant(QDate()) << "date";
        QTest::newRow("no time") << QVariant(QTime()) << "time";
        QTest::newRow("long") << QVariant(QString(32768, 'x')) << "32768";
        QTest::newRow("list") << QVariant(QVariantList{1, 2}) << "QVariantList";
        QTest::newRow("texts") << QVariant(QStringList{"one"}) << "QStringList";
        QTest::newRow("hash") << QVariant(QVariantHash()) << "QVariantHash";
    }
    void what_no_cell_can_hold_is_refused()
    {
        QFETCH(QVariant, value);
        QFETCH(QString, part);
        const QByteArray archive = OneCell("<row r=\"2\"><c r=\"B2\"><v>7</v></c></row>").Archive();
        XlsxTemplate workbook;
        QVERIFY(workbook.load(archive));
        QVERIFY(!workbook.setValue(kName, value));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::ValueError);
        QVERIFY2(workbook.errorString().startsWith("Name: ") && workbook.errorString().contains(part), qPrintable(workbook.errorString()));
        QCOMPARE(SavedParts(workbook), ReadArchive(archive));
    }

    void the_longest_text_of_a_cell_is_taken() { QCOMPARE(Back(QString(32767, 'x')).toString().size(), 32767); }

    void a_cell_is_read_by_its_kind_data()
    {
        QTest::addColumn<QByteArray>("cell");
        QTest::addColumn<QVariant>("value");
        const auto row = [](const char *name, const QByteArray &cell, const QVariant &value) { QTest::newRow(name) << cell << value; };
        row("number", "<c r=\"B2\"><v>12</v></c>", Q_INT64_C(12));
        row("typed number", "<c r=\"B2\" t=\"n\"><v>-12.5</v></c>", -12.5);
        row("exponent", "<c r=\"B2\"><v>1E3</v></c>", 1000.0);
        row("shared", "<c r=\"B2\" t=\"s\"><v>0</v></c>", "shared & runs");
        row("beyond the shared", "<c r=\"B2\" t=\"s\"><v>7</v></c>", "");
        row("inline", "<c r=\"B2\" t=\"inlineStr\"><is><r><t> a</t></r><r><t>b </t></r></is></c>", " ab ");
        row("formula's text", "<c r=\"B2\" t=\"str\"><f>A1</f><v>x &lt; y</v></c>", "x < y");
        row("truth", "<c r=\"B2\" t=\"b\"><v>1</v></c>", true);
        row("error", "<c r=\"B2\" t=\"e\"><v>#N/A</v></c>", "#N/A");
        row("ISO date", "<c r=\"B2\" t=\"d\"><v>2026-11-22</v></c>", QDate(2026, 11, 22));
        row("no ISO date", "<c r=\"B2\" t=\"d\"><v>tomorrow</v></c>", QVariant());
        row("formula without a result", "<c r=\"B2\"><f>A1</f></c>", QVariant());
        row("empty", "<c r=\"B2\"/>", QVariant());
        row("other cell", "<c r=\"C2\"><v>1</v></c>", QVariant());
        row("CDATA", "<c r=\"B2\" t=\"str\"><v>a<![CDATA[<b>]]>c</v></c>", "a<b>c");
    }
    void a_cell_is_read_by_its_kind()
    {
        QFETCH(QByteArray, cell);
        QFETCH(QVariant, value);
        QCOMPARE(Read(cell, "<si><r><t>shared </t></r><rPh sb=\"0\" eb=\"1\"><t>no</t></rPh><r><t>&amp; runs</t></r></si>"), value);
    }

    void a_value_takes_the_place_of_what_stood_there()
    {
        QCOMPARE(Put("<row r=\"2\"><c r=\"B2\" s=\"0\" t=\"str\" cm=\"1\" vm=\"1\"><f>A1</f><v>old</v><extLst/></c></row>", 5),
                 QByteArray("<row r=\"2\"><c r=\"B2\" s=\"0\"><v>5</v><extLst/></c></row>"));
        QCOMPARE(Put("<row r=\"2\"><c r=\"B2\" t=\"s\"><v>0</v></c></row>", "x"),
                 QByteArray("<row r=\"2\"><c r=\"B2\" t=\"inlineStr\"><is><t>x</t></is></c></row>"));
    }

    void only_set_formula_writes_a_formula()
    {
        XlsxTemplate workbook;
        QVERIFY(workbook.load(OneCell("<row r=\"2\"><c r=\"B2\" t=\"s\"><v>0</v></c></row>").Archive()));
        VERIFY_DONE(workbook, setFormula(kName, "=IF(A1<2,\"a&b\",SUM(A1:A9))"));
        QCOMPARE(SheetDataOf(SavedParts(workbook).value(kSheet1)),
                 QByteArray("<row r=\"2\"><c r=\"B2\"><f>IF(A1&lt;2,\"a&amp;b\",SUM(A1:A9))</f></c></row>"));
        QVERIFY(workbook.hasFormula(kName));
        VERIFY_DONE(workbook, setFormula(kName, " = A1 "));
        QCOMPARE(SheetDataOf(SavedParts(workbook).value(kSheet1)), QByteArray("<row r=\"2\"><c r=\"B2\"><f>A1</f></c></row>"));
        VERIFY_DONE(workbook, setFormula(kName, '=' + QString(8192, '1')));
        QVERIFY(!workbook.setFormula(kName, "="));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::ValueError);
        QVERIFY(!workbook.setFormula(kName, QString(8193, '1')));
        VERIFY_DONE(workbook, setValue(kName, 1));
        QVERIFY(!workbook.hasFormula(kName));
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxTemplate)
#include "tst_XlsxTemplate.moc"
