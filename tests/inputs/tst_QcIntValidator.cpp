#include "support/TestMain.h"

#include "inputs/NumberForms.h"

#include <Velmora/QcIntValidator.h>

#include <limits>

using namespace Velmora;
using namespace VelmoraTest;

class TestQcIntValidator : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_text_is_judged_by_form_locale_and_range_data()
    {
        static constexpr Judgement kJudgements[] = {
            {"en", "", kAcceptable},
            {"en", " \t ", kAcceptable},
            {"en", "-", kInvalid},
            {"en", "0", kAcceptable},
            {"en", "99", kAcceptable},
            {"en", "007", kAcceptable},
            {"en", "1234", kAcceptable},
            {"en", "1,234", kAcceptable},
            {"en", "12,345", kAcceptable}, // out of range is no matter of typing
            {"en", "6000", kAcceptable},
            {"en", "-1", kAcceptable},
            {"en", "1,000,000", kAcceptable},
            {"en", "1,23", kInvalid},
            {"en", "1,", kInvalid},
            {"en", ",123", kInvalid},
            {"en", "1234,567", kInvalid},
            {"en", "1,2345", kInvalid},
            {"en", "--1", kInvalid},
            {"en", "1-", kInvalid},
            {"en", "+1", kInvalid},
            {"en", " 1", kInvalid},
            {"en", "1.5", kInvalid},
            {"en", "1e3", kInvalid},
            {"en", "0x10", kInvalid},
            {"en", "\u0669", kInvalid}, // an Arabic digit
            {"en", "\U0001F600", kInvalid},
            {"en", "99999999999", kInvalid}, // no int, hence 0 to the range, and refused by Qt
            {"C", "1234", kAcceptable},
            {"C", "1,234", kAcceptable},
            {"C", "1.234", kInvalid},
            {"de_DE", "1234", kAcceptable},
            {"de_DE", "1.234", kInvalid}, // how the locale writes it, but not the form
            {"de_DE", "1,000", kInvalid}, // the form, but no whole number in the locale
            {"ar_EG", "1234", kAcceptable},
            {"ar_EG", "1,234", kInvalid},
            {"ar_EG", "\u0661\u0662", kInvalid},
        };
        AddJudgements(kJudgements);
    }

    void a_text_is_judged_by_form_locale_and_range()
    {
        QFETCH(QLocale, locale);
        QFETCH(QString, text);
        QFETCH(QValidator::State, state);
        QLocale::setDefault(locale);
        QCOMPARE(Judge(QcIntValidator(0, 5000), text), state);
    }

    void a_lone_minus_waits_for_a_negative_number_if_there_can_be_one()
    {
        QCOMPARE(Judge(QcIntValidator(-1, 10), QStringLiteral("-")), kIntermediate);
        QCOMPARE(Judge(QcIntValidator(0, 10), QStringLiteral("-")), kInvalid);
        QCOMPARE(Judge(QcIntValidator(-1, 10), QStringLiteral("-5")), kAcceptable);
        QCOMPARE(Judge(QcIntValidator(-1, 10), QStringLiteral("-,5")), kInvalid);
    }

    void a_number_below_the_range_is_taken_while_typing()
    {
        QCOMPARE(Judge(QcIntValidator(10, 20), QStringLiteral("1")), kAcceptable);
        QCOMPARE(Judge(QcIntValidator(10, 20), QStringLiteral("21")), kAcceptable);
        QCOMPARE(Judge(QcIntValidator(std::numeric_limits<int>::min(), std::numeric_limits<int>::max()), QStringLiteral("-2147483648")),
                 kAcceptable);
    }

    void fixup_clears_a_lone_minus_only_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("fixedText");
        QTest::newRow("minus") << "-"
                               << "";
        QTest::newRow("blank minus") << " -\t"
                                     << "";
        QTest::newRow("number") << "-5"
                                << "-5";
        QTest::newRow("blank number") << " 12 "
                                      << " 12 ";
        QTest::newRow("nonsense") << "a-"
                                  << "a-";
        QTest::newRow("empty") << ""
                               << "";
    }

    void fixup_clears_a_lone_minus_only()
    {
        QFETCH(QString, text);
        QFETCH(QString, fixedText);
        QcIntValidator().fixup(text);
        QCOMPARE(text, fixedText);
    }

    void a_long_text_is_judged_whole()
    {
        QCOMPARE(Judge(QcIntValidator(0, 5), QString(1 << 20, QLatin1Char('1'))), kInvalid);
        QString groups = QStringLiteral("1");
        for (int i = 0; i < 10000; ++i)
            groups += QStringLiteral(",000");
        QCOMPARE(Judge(QcIntValidator(0, 5), groups), kInvalid);
    }

protected:
    void TearDown() override { QLocale::setDefault(QLocale::c()); }
};

VELMORA_TEST_MAIN(TestQcIntValidator)

#include "tst_QcIntValidator.moc"
