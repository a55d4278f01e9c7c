#include "support/TestMain.h"

#include "inputs/NumberForms.h"

#include <Velmora/QcDoubleValidator.h>

using namespace Velmora;
using namespace VelmoraTest;

class TestQcDoubleValidator : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_text_is_judged_by_form_locale_and_range_data()
    {
        static constexpr Judgement kJudgements[] = {
            {"en", "", kAcceptable},
            {"en", "  ", kAcceptable},
            {"en", "-", kInvalid},
            {"en", "99", kAcceptable},
            {"en", "1.", kAcceptable},
            {"en", "1.5", kAcceptable},
            {"en", "1.50", kAcceptable},
            {"en", "1.505", kInvalid}, // too many places
            {"en", "1234.5", kAcceptable},
            {"en", "1,234.5", kAcceptable},
            {"en", "1,23.4", kInvalid},
            {"en", "1.234,5", kInvalid},
            {"en", ".5", kInvalid},
            {"en", "1..5", kInvalid},
            {"en", "1e3", kInvalid},
            {"en", "nan", kInvalid},
            {"en", "inf", kInvalid},
            {"en", "\u0669", kInvalid},
            {"en", "9999.9", kAcceptable}, // out of range is no matter of typing
            {"en", "9999.99999", kAcceptable},
            {"en", "-1", kAcceptable},
            {"en", "5000.01", kAcceptable},
            {"en", "5000.00005", kInvalid}, // within the tolerance of the range, hence judged by Qt, for which it is too exact
            {"en", "5000.0002", kAcceptable},
            {"C", "1234.5", kAcceptable},
            {"C", "1,234.5", kAcceptable},
            {"de_DE", "1234", kAcceptable},
            {"de_DE", "1,5", kInvalid},      // how the locale writes it, but not the form
            {"de_DE", "1.5", kIntermediate}, // the form, but to the locale an unfinished group
            {"de_DE", "1.234", kAcceptable}, // to the locale twelve hundred and thirty-four
            {"de_DE", "1,234.5", kInvalid},
            {"ar_EG", "1234", kAcceptable},
            {"ar_EG", "1.5", kInvalid},
            {"ar_EG", "\u0661\u066B\u0665", kInvalid},
        };
        AddJudgements(kJudgements);
    }

    void a_text_is_judged_by_form_locale_and_range()
    {
        QFETCH(QLocale, locale);
        QFETCH(QString, text);
        QFETCH(QValidator::State, state);
        QLocale::setDefault(locale);
        QcDoubleValidator validator(0, 5000, 2, nullptr);
        validator.setNotation(QDoubleValidator::StandardNotation);
        QCOMPARE(Judge(validator, text), state);
    }

    void a_lone_minus_waits_for_a_negative_number_if_there_can_be_one()
    {
        QCOMPARE(Judge(QcDoubleValidator(-0.01, 10, 2, nullptr), QStringLiteral("-")), kIntermediate);
        QCOMPARE(Judge(QcDoubleValidator(0, 10, 2, nullptr), QStringLiteral("-")), kInvalid);
        QCOMPARE(Judge(QcDoubleValidator(-5, 10, 2, nullptr), QStringLiteral("-4.5")), kAcceptable);
    }

    void the_tolerance_is_a_hundredth_of_the_last_place()
    {
        // Out of range by more is taken as it is; by less, Qt refuses it, or finds it out of the range itself.
        QLocale::setDefault(QLocale(QStringLiteral("en")));
        QcDoubleValidator validator(1, 2, 1, nullptr);
        validator.setNotation(QDoubleValidator::StandardNotation);
        QCOMPARE(Judge(validator, QStringLiteral("2.0011")), kAcceptable);
        QCOMPARE(Judge(validator, QStringLiteral("2.0009")), kInvalid);
        QCOMPARE(Judge(validator, QStringLiteral("0.9989")), kAcceptable);
        QCOMPARE(Judge(validator, QStringLiteral("0.9991")), kInvalid);
    }

    void fixup_clears_a_lone_minus_only()
    {
        for (const char *minus : {"-", " - "}) {
            QString text = QLatin1String(minus);
            QcDoubleValidator().fixup(text);
            QCOMPARE(text, QString());
        }
        QString number = QStringLiteral(" -1.5");
        QcDoubleValidator().fixup(number);
        QCOMPARE(number, QStringLiteral(" -1.5"));
    }

    void strange_ranges_judge_without_harm()
    {
        for (const double bound : {qInf(), -qInf(), qQNaN(), 1e308}) {
            for (const int decimals : {-2147483647 - 1, -3, 0, 400, 2147483647}) {
                const QcDoubleValidator validator(-bound, bound, decimals, nullptr);
                QCOMPARE(Judge(validator, QStringLiteral("a")), kInvalid);
                Judge(validator, QStringLiteral("1.5")); // whatever it says
            }
        }
    }

    void a_long_text_is_judged_whole()
    {
        const QcDoubleValidator validator(0, 5, 2, nullptr);
        QCOMPARE(Judge(validator, QStringLiteral("1.") + QString(1 << 20, QLatin1Char('0'))), kInvalid);
        QCOMPARE(Judge(validator, QString(1 << 20, QLatin1Char('a'))), kInvalid);
    }

protected:
    void TearDown() override { QLocale::setDefault(QLocale::c()); }
};

VELMORA_TEST_MAIN(TestQcDoubleValidator)

#include "tst_QcDoubleValidator.moc"
