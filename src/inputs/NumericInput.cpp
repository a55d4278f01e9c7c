#include "inputs/NumericInput_p.h"

#include <cmath>

namespace Velmora {

std::optional<QValidator::State> JudgeForm(const QString &input, bool takesNegatives, const QRegularExpression &pattern)
{
    if (input.trimmed().isEmpty())
        return QValidator::Acceptable;
    if (input == QLatin1String("-"))
        return takesNegatives ? QValidator::Intermediate : QValidator::Invalid;
    if (!pattern.match(input).hasMatch())
        return QValidator::Invalid;
    return std::nullopt;
}

void ClearLoneMinus(QString &input)
{
    if (input.trimmed() == QLatin1String("-"))
        input.clear();
}

double RangeTolerance(int decimals)
{
    return std::pow(10.0, -2.0 - decimals);
}

} // namespace Velmora
