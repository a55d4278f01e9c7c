#include "support/TestMain.h"

#include "inputs/NumberValidatorTest.h"

#include <Velmora/QcIntValidator.h>

#include <limits>

using namespace Velmora;
using namespace VelmoraTest;

class TestQcIntValidator : public NumberValidatorTest
{
    Q_OBJECT

private Q_SLOTS:
    void every_int_is_acceptable_and_no_larger_number()
    {
        using Limits = std::numeric_limits<int>;
        const QcIntValidator validator(Limits::min(), Limits::max());
        QCOMPARE(Judge(validator, QStringLiteral("-2147483648")), kAcceptable);
        QCOMPARE(Judge(validator, QStringLiteral("2147483647")), kAcceptable);
        QVERIFY(Judge(validator, QStringLiteral("-2147483649")) != kAcceptable);
        QVERIFY(Judge(validator, QStringLiteral("2147483648")) != kAcceptable);
    }

    void a_number_too_long_for_an_int_is_refused()
    {
        QCOMPARE(Judge(QcIntValidator(0, 5), QString(1 << 20, QLatin1Char('1'))), kInvalid);
        QCOMPARE(Judge(QcIntValidator(0, 5), QStringLiteral("1,000,000,000,000")), kInvalid);
    }

protected:
    std::unique_ptr<QValidator> MakeValidator(int bottom, int top) const override { return std::make_unique<QcIntValidator>(bottom, top); }

    void AddJudgements() const override
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
        AddRows(kJudgements);
    }
};

VELMORA_TEST_MAIN(TestQcIntValidator)

#include "tst_QcIntValidator.moc"
