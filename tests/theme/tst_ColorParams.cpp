#include "support/TestCase.h"

#include <Velmora/ColorParams.h>
#include <Velmora/ImageParams.h>

#include <cmath>
#include <type_traits>
#include <utility>

using namespace Velmora;

namespace {

constexpr double kNone = -1.0;

} // namespace

class tst_ColorParams : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_text_becomes_code_and_alpha_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("code");
        QTest::addColumn<double>("alpha");

        QTest::newRow("nothing") << QString() << QString() << kNone;
        QTest::newRow("empty") << QStringLiteral("") << QString() << kNone;
        QTest::newRow("blanks") << QStringLiteral(" \t\n ") << QString() << kNone;
        QTest::newRow("token") << QStringLiteral("text/text_primary") << QStringLiteral("text/text_primary") << kNone;
        QTest::newRow("token in blanks") << QStringLiteral("  brand/brand\t") << QStringLiteral("brand/brand") << kNone;
        QTest::newRow("literal") << QStringLiteral("#A1b2C3") << QStringLiteral("#A1b2C3") << kNone;
        QTest::newRow("name") << QStringLiteral("transparent") << QStringLiteral("transparent") << kNone;
        QTest::newRow("inner blanks stay") << QStringLiteral("light blue") << QStringLiteral("light blue") << kNone;

        QTest::newRow("wrapped") << QStringLiteral("${brand/brand}") << QStringLiteral("brand/brand") << kNone;
        QTest::newRow("wrapped with blanks inside") << QStringLiteral("${  brand/brand  }") << QStringLiteral("brand/brand") << kNone;
        QTest::newRow("wrapped with alpha") << QStringLiteral("${brand/brand, 0.25}") << QStringLiteral("brand/brand") << 0.25;
        QTest::newRow("wrapped with blanks and alpha")
            << QStringLiteral("${ brand/brand ,\t0.25 }") << QStringLiteral("brand/brand") << 0.25;
        QTest::newRow("wrapped nothing") << QStringLiteral("${}") << QString() << kNone;
        QTest::newRow("wrapped comma") << QStringLiteral("${,}") << QString() << kNone;
        QTest::newRow("wrapped alpha") << QStringLiteral("${,0.5}") << QString() << 0.5;
        QTest::newRow("wrapped twice") << QStringLiteral("${${a}}") << QStringLiteral("${a}") << kNone;

        QTest::newRow("never closed") << QStringLiteral("${a") << QStringLiteral("${a") << kNone;
        QTest::newRow("never opened") << QStringLiteral("a}") << QStringLiteral("a}") << kNone;
        QTest::newRow("dollar alone") << QStringLiteral("$") << QStringLiteral("$") << kNone;
        QTest::newRow("opening alone") << QStringLiteral("${") << QStringLiteral("${") << kNone;
        QTest::newRow("blank within the opening") << QStringLiteral("$ {a}") << QStringLiteral("$ {a}") << kNone;

        // Blanks around a wrapped code shift the slice.
        QTest::newRow("blank before, one letter") << QStringLiteral(" ${a}") << QStringLiteral("{a") << kNone;
        QTest::newRow("blank before") << QStringLiteral(" ${brand/brand}") << QStringLiteral("{brand/brand") << kNone;
        QTest::newRow("blank before nothing") << QStringLiteral(" ${}") << QStringLiteral("{") << kNone;
        QTest::newRow("two blanks before") << QStringLiteral("  ${ab}") << QStringLiteral("${ab") << kNone;
        QTest::newRow("three blanks before") << QStringLiteral("   ${ab}") << QStringLiteral("${ab") << kNone;
        QTest::newRow("blank behind") << QStringLiteral("${ab} ") << QStringLiteral("ab}") << kNone;
        QTest::newRow("two blanks behind") << QStringLiteral("${ab}  ") << QStringLiteral("ab}") << kNone;
        QTest::newRow("blanks on both sides") << QStringLiteral(" ${ab} ") << QStringLiteral("{ab}") << kNone;
        QTest::newRow("blank before an alpha") << QStringLiteral(" ${ab, 0.5}") << QStringLiteral("{ab") << 0.5;
        QTest::newRow("blank behind an alpha") << QStringLiteral("${ab, 0.5} ") << QStringLiteral("ab") << kNone;
        QTest::newRow("line break before") << QStringLiteral("\n${a}") << QStringLiteral("{a") << kNone;

        QTest::newRow("alpha") << QStringLiteral("brand/brand,0.5") << QStringLiteral("brand/brand") << 0.5;
        QTest::newRow("alpha in blanks") << QStringLiteral(" brand/brand , 0.5 ") << QStringLiteral("brand/brand") << 0.5;
        QTest::newRow("literal with alpha") << QStringLiteral("#0670F9, 0.4") << QStringLiteral("#0670F9") << 0.4;
        QTest::newRow("alpha without a fraction") << QStringLiteral("a,1") << QStringLiteral("a") << 1.0;
        QTest::newRow("alpha nil") << QStringLiteral("a,0") << QStringLiteral("a") << 0.0;
        QTest::newRow("alpha with an exponent") << QStringLiteral("a,5e-1") << QStringLiteral("a") << 0.5;
        QTest::newRow("alpha too large") << QStringLiteral("a,7") << QStringLiteral("a") << 7.0;
        QTest::newRow("alpha negative") << QStringLiteral("a,-0.5") << QStringLiteral("a") << -0.5;
        QTest::newRow("alpha a word") << QStringLiteral("a,half") << QStringLiteral("a") << kNone;
        QTest::newRow("alpha with a unit") << QStringLiteral("a,50%") << QStringLiteral("a") << kNone;
        QTest::newRow("alpha missing") << QStringLiteral("a,") << QStringLiteral("a") << kNone;
        QTest::newRow("alpha blank") << QStringLiteral("a,  ") << QStringLiteral("a") << kNone;
        QTest::newRow("comma first") << QStringLiteral(",0.5") << QString() << 0.5;
        QTest::newRow("comma alone") << QStringLiteral(",") << QString() << kNone;

        QTest::newRow("three parts") << QStringLiteral("a,0.5,0.7") << QStringLiteral("a") << kNone;
        QTest::newRow("third part empty") << QStringLiteral("a,0.5,") << QStringLiteral("a") << kNone;
        QTest::newRow("second part empty") << QStringLiteral("a,,0.5") << QStringLiteral("a") << kNone;
        QTest::newRow("first part in blanks of three") << QStringLiteral(" a , b , c ") << QStringLiteral("a") << kNone;
        QTest::newRow("wrapped three parts") << QStringLiteral("${a, 0.5, 0.7}") << QStringLiteral("a") << kNone;
    }

    void a_text_becomes_code_and_alpha()
    {
        QFETCH(QString, text);
        QFETCH(QString, code);
        QFETCH(double, alpha);

        const ColorParams params(text);
        QCOMPARE(params.code, code);
        QCOMPARE(params.alpha, alpha);

        const QByteArray bytes = text.toLatin1();
        const ColorParams fromBytes(bytes.constData());
        QCOMPARE(fromBytes.code, code);
        QCOMPARE(fromBytes.alpha, alpha);
    }

    void an_alpha_that_reads_as_no_number_in_arithmetic_is_taken_too()
    {
        QVERIFY(std::isnan(ColorParams("a,nan").alpha));
        QVERIFY(std::isinf(ColorParams("a,inf").alpha));
    }

    void without_a_text_there_is_no_colour()
    {
        const ColorParams params;
        QVERIFY(params.code.isEmpty());
        QCOMPARE(params.alpha, kNone);
    }

    void a_null_pointer_gives_an_empty_code()
    {
        const ColorParams params(static_cast<const char *>(nullptr));
        QVERIFY(params.code.isEmpty());
        QCOMPARE(params.alpha, kNone);
    }

    void one_byte_is_one_character()
    {
        QCOMPARE(ColorParams("caf\xE9").code, QStringLiteral("caf\u00E9"));
        QCOMPARE(ColorParams("\xC3\xA9").code, QStringLiteral("\u00C3\u00A9"));
    }

    void a_text_stands_for_its_record()
    {
        static_assert(std::is_convertible<QString, ColorParams>::value, "");
        static_assert(std::is_convertible<const char *, ColorParams>::value, "");
        ImageParams image;
        QVERIFY(image.path.isEmpty());
        QVERIFY(!image.size.isValid());
        QVERIFY(image.color.code.isEmpty());
        QCOMPARE(image.color.alpha, kNone);
        QVERIFY(image.mulColor.isEmpty());
        image.color = "${brand/brand, 0.5}";
        QCOMPARE(image.color.code, QStringLiteral("brand/brand"));
        QCOMPARE(image.color.alpha, 0.5);
    }

    void records_are_values()
    {
        static_assert(std::is_nothrow_move_constructible<ColorParams>::value, "");
        ColorParams first("brand/brand,0.5");
        ColorParams copy(first);
        copy.code = QStringLiteral("tip/info");
        QCOMPARE(first.code, QStringLiteral("brand/brand"));
        first = copy;
        QCOMPARE(first.code, QStringLiteral("tip/info"));
        QCOMPARE(first.alpha, 0.5);
        const ColorParams moved(std::move(first));
        QCOMPARE(moved.code, QStringLiteral("tip/info"));
        copy = ColorParams("a");
        QCOMPARE(copy.code, QStringLiteral("a"));
        QCOMPARE(copy.alpha, kNone);

        ImageParams image;
        image.path = QStringLiteral(":/images/close.svg");
        image.mulColor.insert(QStringLiteral("#000000"), "brand/brand");
        ImageParams other(image);
        other.mulColor.clear();
        QCOMPARE(image.mulColor.size(), 1);
        const ImageParams movedImage(std::move(image));
        QCOMPARE(movedImage.mulColor.size(), 1);
        QCOMPARE(movedImage.path, QStringLiteral(":/images/close.svg"));
    }
};

QTEST_APPLESS_MAIN(tst_ColorParams)
#include "tst_ColorParams.moc"
