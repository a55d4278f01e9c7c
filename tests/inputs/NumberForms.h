#pragma once

#include "support/TestCase.h"

#include <QLocale>
#include <QValidator>

namespace VelmoraTest {

constexpr auto kInvalid = QValidator::Invalid;
constexpr auto kIntermediate = QValidator::Intermediate;
constexpr auto kAcceptable = QValidator::Acceptable;

/// A text and what a validator says to it while it is typed.
struct Judgement
{
    const char *locale;
    const char *text;
    QValidator::State state;
};

/// Rows for a function that fetches `locale`, `text` and `state`.
template <int count>
void AddJudgements(const Judgement (&judgements)[count])
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("state");
    for (const Judgement &judgement : judgements) {
        const QString text = QString::fromUtf8(judgement.text);
        QTest::addRow("%s \"%s\"", judgement.locale, judgement.text) << QLocale(QLatin1String(judgement.locale)) << text << judgement.state;
    }
}

inline QValidator::State Judge(const QValidator &validator, QString text)
{
    int position = 0;
    return validator.validate(text, position);
}

} // namespace VelmoraTest
