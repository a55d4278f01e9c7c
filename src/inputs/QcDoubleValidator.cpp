#include <Velmora/QcDoubleValidator.h>

#include "inputs/NumericInput_p.h"

#include <QLocale>

namespace Velmora {

QValidator::State QcDoubleValidator::validate(QString &input, int &pos) const
{
    static const QRegularExpression pattern(QStringLiteral("^(-(?=\\d))?(\\d{1,3}(,\\d{3})*|\\d+)(\\.\\d*)?$"));
    if (const auto state = JudgeForm(input, bottom() < 0.0, pattern))
        return *state;
    const double value = QLocale().toDouble(input); // 0 for what the locale does not read
    const double tolerance = RangeTolerance(decimals());
    if (bottom() > value + tolerance || value - tolerance > top())
        return Acceptable; // the end of editing judges the range
    return QDoubleValidator::validate(input, pos);
}

void QcDoubleValidator::fixup(QString &input) const
{
    ClearLoneMinus(input);
}

} // namespace Velmora
