#include <Velmora/QcIntValidator.h>

#include "inputs/NumericInput_p.h"

#include <QLocale>

namespace Velmora {

QValidator::State QcIntValidator::validate(QString &input, int &pos) const
{
    static const QRegularExpression pattern(QStringLiteral("^(-(?=\\d))?(\\d{1,3}(,\\d{3})*|\\d+)$"));
    if (const auto state = JudgeForm(input, bottom() < 0, pattern))
        return *state;
    const double value = QLocale().toInt(input); // 0 for what the locale does not read
    if (bottom() > value || value > top())
        return Acceptable; // the end of editing judges the range
    return QIntValidator::validate(input, pos);
}

void QcIntValidator::fixup(QString &input) const
{
    ClearLoneMinus(input);
}

} // namespace Velmora
