#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/CellValue_p.h"

#include <QDateTime>

using namespace Velmora;
using namespace VelmoraTest;

using Shows = TemplateStyles::Shows;

Q_DECLARE_METATYPE(Velmora::TemplateStyles::Shows)

/// Numbers, dates and texts as a workbook writes them.
class tst_CellValue : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_format_tells_what_it_shows_data()
    {
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<TemplateStyles::Shows>("shows");
        const auto row = [](const char *format, Shows shows) { QTest::newRow(format) << QByteArray(format) << shows; };
        row("General", Shows::Number);
        row("0.00", Shows::Number);
        row("#,##0.00\\ [$\xe2\x82\xac-407];[Red]-#,##0.00", Shows::Number);
        row("0.00E+00", Shows::Number);
        row("@", Shows::Number);
        row("\"day\" 0", Shows::Number);
        row("0\\d", Shows::Number);
        row("0_d*y", Shows::Number);
        row("[Red]0;[Blue]d", Shows::Number);
        row("yyyy-mm-dd", Shows::Date);
        row("[$-409]MM/DD/YYYY", Shows::Date);
        row("MMMM", Shows::Date);
        row("d. mmm", Shows::Date);
        row("[>=1]d", Shows::Date);
        row("hh:mm", Shows::Time);
        row("mm:ss.0", Shows::Time);
        row("[h]:mm", Shows::Time);
        row("[mm]", Shows::Time);
        row("h AM/PM", Shows::Time);
        row("m/d/yy h:mm", Shows::DateTime);
        row("yyyy\\-mm\\-dd\\ hh:mm:ss", Shows::DateTime);
        row("\"unclosed d", Shows::Number);
        row("[unclosed d", Shows::Number);
        row("\\", Shows::Number);
        row("", Shows::Number);
    }
    void a_format_tells_what_it_shows()
    {
        QFETCH(QByteArray, format);
        QFETCH(TemplateStyles::Shows, shows);
        QCOMPARE(ShownByFormat(format.toStdString()), shows);
    }

    void a_number_that_is_no_date_reads_as_a_number()
    {
        const auto date = [](const QVariant &number, Shows shows) { return DateOf(number, shows, false); };
        QCOMPARE(date(59, Shows::Date), QVariant(QDate(1900, 2, 28)));
        QCOMPARE(date(60, Shows::Date), QVariant(60)); // 29 February 1900
        QCOMPARE(date(61, Shows::Date), QVariant(QDate(1900, 3, 1)));
        QCOMPARE(date(0, Shows::Date), QVariant(0));
        QCOMPARE(date(-1, Shows::Date), QVariant(-1));
        QCOMPARE(date(2958465, Shows::Date), QVariant(QDate(9999, 12, 31)));
        QCOMPARE(date(2958466, Shows::Date), QVariant(2958466));
        QCOMPARE(date(1e300, Shows::DateTime), QVariant(1e300));
        QCOMPARE(date(0.5, Shows::Time), QVariant(QTime(12, 0)));
        QCOMPARE(date(1.5, Shows::Time), QVariant(1.5));                       // 36 hours
        QCOMPARE(date(0.999999999999, Shows::Time), QVariant(0.999999999999)); // a day, in milliseconds
        QCOMPARE(date(61.999999999999, Shows::DateTime), QVariant(QDateTime(QDate(1900, 3, 2), QTime(0, 0))));
        QCOMPARE(DateOf(0, Shows::Date, true), QVariant(QDate(1904, 1, 1)));
        QCOMPARE(DateOf(59, Shows::Number, true), QVariant(59));
    }

    void a_number_is_whole_if_it_is_written_so()
    {
        QCOMPARE(NumberOf("12"), QVariant(12LL));
        QCOMPARE(NumberOf(" +12\n"), QVariant(12LL));
        QCOMPARE(NumberOf("-9223372036854775808"), QVariant(std::numeric_limits<qlonglong>::min()));
        QCOMPARE(NumberOf("9223372036854775808"), QVariant(9223372036854775808.0));
        QCOMPARE(NumberOf("12.0"), QVariant(12.0));
        QCOMPARE(NumberOf("1E-3"), QVariant(0.001));
        for (const char *none : {"", " ", "x", "1x", "1 2", "inf", "NaN", "1e999", "0x10", "+"})
            QVERIFY2(!NumberOf(none).isValid(), none);
    }

    void what_xml_has_no_room_for_is_escaped_and_read_back()
    {
        const auto escaped = [](const QString &text) { return QString::fromStdString(Escaped(text)); };
        QCOMPARE(escaped(QStringLiteral("plain _x _x12_ x0041_")), QStringLiteral("plain _x _x12_ x0041_"));
        QCOMPARE(escaped(QStringLiteral("a\u0001\u001f")), QStringLiteral("a_x0001__x001F_"));
        QCOMPARE(escaped(QStringLiteral("_x00e4_")), QStringLiteral("_x005F_x00e4_"));
        QCOMPARE(escaped(QChar(0xffff)), QStringLiteral("_xFFFF_"));
        QCOMPARE(escaped(QString(QChar(0xdc00)) + QChar(0xd800)), QStringLiteral("_xDC00__xD800_"));
        for (const QString &text : {QStringLiteral("_x_x0041__x0041_x0042_"), QStringLiteral("_x005F_"), QStringLiteral("\u0000\ufffe"),
                                    QString::fromUtf8("\xf0\x9f\x98\x80_x0041_\r\n\t")})
            QCOMPARE(Unescaped(Escaped(text)), text);
    }
};

VELMORA_BARE_TEST_MAIN(tst_CellValue)
#include "tst_CellValue.moc"
