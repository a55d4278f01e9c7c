#pragma once

#include <QRegularExpression>
#include <QString>
#include <QValidator>

#include <optional>

namespace Velmora {

/// What the form of \a input alone says while it is typed: nothing yet, a lone minus, or no number of \a pattern. No value if
/// the number itself has to be judged.
std::optional<QValidator::State> JudgeForm(const QString &input, bool takesNegatives, const QRegularExpression &pattern);

/// Empties a lone minus, which nobody finished.
void ClearLoneMinus(QString &input);

/// How far outside its range a number with \a decimals places may lie: a hundredth of its last place.
double RangeTolerance(int decimals);

} // namespace Velmora
