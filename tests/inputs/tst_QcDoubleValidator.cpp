#include "support/TestMain.h"

#include "inputs/NumberValidatorTest.h"

#include <Velmora/QcDoubleValidator.h>

#include <limits>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// What Qt's own validator says.
QValidator::State OfQt(double bottom, double top, int decimals, const char *text)
{
    QDoubleValidator validator(bottom, top, decimals, nullptr);
    validator.setNotation(QDoubleValidator::StandardNotation);
    QString typed = QString::fromLatin1(text);
    int position = 0;
    return validator.validate(typed, position);
}

} // namespace

class TestQcDoubleValidator : public NumberValidatorTest
{
    Q_OBJECT

private Q_SLOTS:
    void a_negative_number_may_have_places() { QCOMPARE(Judge(*MakeValidator(-5, 10), QStringLiteral("-4.5")), kAcceptable); }

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

    void strange_ranges_and_places_judge_data()
    {
        QTest::addColumn<double>("bottom");
        QTest::addColumn<double>("top");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QValidator::State>("state");
        constexpr int kMost = std::numeric_limits<int>::max();
        constexpr int kLeast = std::numeric_limits<int>::min();
        const auto add = [](const char *name, double bottom, double top, int decimals, const char *text, QValidator::State state) {
            QTest::newRow(name) << bottom << top << decimals << QString::fromLatin1(text) << state;
        };
        add("infinite", -qInf(), qInf(), 2, "1.5", kAcceptable);
        add("infinite, turned round", qInf(), -qInf(), 2, "1.5", kAcceptable);           // out of range, as every number is
        add("no numbers", qQNaN(), qQNaN(), 2, "1.5", OfQt(qQNaN(), qQNaN(), 2, "1.5")); // neither in range nor out of it
        add("huge", -1e308, 1e308, 2, "1.5", kAcceptable);
        add("no places", 0, 9, 0, "1.5", kInvalid);
        add("no places, whole", 0, 9, 0, "3", kAcceptable);
        add("fewer than no places", 0, 9, -3, "1.5", OfQt(0, 9, -3, "1.5")); // none in Qt 5, and any number of them in Qt 6
        add("fewer than no places, whole", 0, 9, -3, "3", kAcceptable);
        add("fewest places", 0, 9, kLeast, "3", kAcceptable);
        add("more places than a double has", 0, 9, 400, "1.5", kAcceptable);
        add("most places", 0, 9, kMost, "1.5", kAcceptable);
    }

    void strange_ranges_and_places_judge()
    {
        QFETCH(double, bottom);
        QFETCH(double, top);
        QFETCH(int, decimals);
        QFETCH(QString, text);
        QFETCH(QValidator::State, state);
        QcDoubleValidator validator(bottom, top, decimals, nullptr);
        validator.setNotation(QDoubleValidator::StandardNotation);
        QCOMPARE(Judge(validator, QStringLiteral("a")), kInvalid);
        QCOMPARE(Judge(validator, text), state);
    }

    void a_million_places_are_too_many()
    {
        QCOMPARE(Judge(*MakeValidator(0, 5), QStringLiteral("1.") + QString(1 << 20, QLatin1Char('0'))), kInvalid);
    }

protected:
    std::unique_ptr<QValidator> MakeValidator(int bottom, int top) const override
    {
        auto validator = std::make_unique<QcDoubleValidator>(bottom, top, 2, nullptr);
        validator->setNotation(QDoubleValidator::StandardNotation);
        return validator;
    }

    void AddJudgements() const override
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
        AddRows(kJudgements);
    }
};

VELMORA_TEST_MAIN(TestQcDoubleValidator)

#include "tst_QcDoubleValidator.moc"
