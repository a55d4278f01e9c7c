#pragma once

#include "support/TestCase.h"

#include <QLocale>
#include <QValidator>

#include <memory>

namespace VelmoraTest {

constexpr auto kInvalid = QValidator::Invalid;
constexpr auto kIntermediate = QValidator::Intermediate;
constexpr auto kAcceptable = QValidator::Acceptable;

/// A text and what a validator from 0 to 5000 says to it while it is typed.
struct Judgement
{
    const char *locale;
    const char *text;
    QValidator::State state;
};

/// What holds for both validators of numbers alike.
class NumberValidatorTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_text_is_judged_by_form_locale_and_range_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QValidator::State>("state");
        AddJudgements();
    }

    void a_text_is_judged_by_form_locale_and_range()
    {
        QFETCH(QLocale, locale);
        QFETCH(QString, text);
        QFETCH(QValidator::State, state);
        QLocale::setDefault(locale);
        QCOMPARE(Judge(*MakeValidator(0, 5000), text), state);
    }

    void a_lone_minus_waits_for_a_negative_number_if_there_can_be_one()
    {
        QCOMPARE(Judge(*MakeValidator(-1, 10), QStringLiteral("-")), kIntermediate);
        QCOMPARE(Judge(*MakeValidator(0, 10), QStringLiteral("-")), kInvalid);
        QCOMPARE(Judge(*MakeValidator(-1, 10), QStringLiteral("-5")), kAcceptable);
        QCOMPARE(Judge(*MakeValidator(-1, 10), QStringLiteral("-,5")), kInvalid);
    }

    void a_number_out_of_range_is_taken_while_typing()
    {
        QCOMPARE(Judge(*MakeValidator(10, 20), QStringLiteral("1")), kAcceptable);
        QCOMPARE(Judge(*MakeValidator(10, 20), QStringLiteral("21")), kAcceptable);
        QCOMPARE(Judge(*MakeValidator(20, 10), QStringLiteral("15")), kAcceptable); // out of a range that holds nothing
    }

    void fixup_clears_a_lone_minus_only_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("fixedText");
        const auto add = [](const char *name, const char *text, const char *fixedText) {
            QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(fixedText);
        };
        add("minus", "-", "");
        add("blank minus", " -\t", "");
        add("number", "-5", "-5");
        add("blank number", " 12 ", " 12 ");
        add("nonsense", "a-", "a-");
        add("empty", "", "");
    }

    void fixup_clears_a_lone_minus_only()
    {
        QFETCH(QString, text);
        QFETCH(QString, fixedText);
        MakeValidator(-10, 10)->fixup(text);
        QCOMPARE(text, fixedText);
    }

    void a_long_text_is_judged_whole()
    {
        const auto validator = MakeValidator(0, 5);
        QCOMPARE(Judge(*validator, QString(1 << 20, QLatin1Char('1')) + QLatin1Char('a')), kInvalid);
        QString groups = QStringLiteral("1");
        for (int i = 0; i < 10000; ++i)
            groups += QStringLiteral(",000");
        QCOMPARE(Judge(*validator, groups + QStringLiteral(",00")), kInvalid);
    }

protected:
    virtual std::unique_ptr<QValidator> MakeValidator(int bottom, int top) const = 0;
    virtual void AddJudgements() const = 0;

    template <int count>
    static void AddRows(const Judgement (&judgements)[count])
    {
        for (const Judgement &judgement : judgements) {
            const QString text = QString::fromUtf8(judgement.text);
            QTest::addRow("%s \"%s\"", judgement.locale, judgement.text)
                << QLocale(QLatin1String(judgement.locale)) << text << judgement.state;
        }
    }

    static QValidator::State Judge(const QValidator &validator, QString text)
    {
        int position = 0;
        return validator.validate(text, position);
    }

    void TearDown() override { QLocale::setDefault(QLocale::c()); }
};

} // namespace VelmoraTest
