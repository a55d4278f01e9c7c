#pragma once

#include <QString>
#include <QVariant>

namespace FillTemplate {

/// A QDate of 2026-11-22 or a QDateTime of 2026-11-22T18:30, with seconds and their fractions if wanted; invalid for any other text, a
/// day that there is not, and a time zone: workbooks have none.
QVariant DateOf(const QString &text);
/// A QTime of 18:30 or 18:30:15.5; invalid for any other text.
QVariant TimeOf(const QString &text);
/// What the two above read. Empty for any other value.
QString DateText(const QVariant &value);

} // namespace FillTemplate
