#include "Dates.h"

#include <QDateTime>
#include <QRegularExpression>

namespace FillTemplate {

QVariant TimeOf(const QString &text)
{
    // Qt's own reader takes more than is meant here.
    static const QRegularExpression shape(QStringLiteral("\\A[0-9]{2}:[0-9]{2}(?::[0-9]{2}(?:\\.[0-9]{1,3})?)?\\z"));
    const QTime time = shape.match(text).hasMatch() ? QTime::fromString(text, Qt::ISODateWithMs) : QTime();
    return time.isValid() ? QVariant(time) : QVariant();
}

QVariant DateOf(const QString &text)
{
    static const QRegularExpression shape(QStringLiteral("\\A[0-9]{4}-[0-9]{2}-[0-9]{2}(?:T|\\z)"));
    if (!shape.match(text).hasMatch())
        return {};
    const QDate date = QDate::fromString(text.left(10), Qt::ISODate);
    if (!date.isValid() || text.size() == 10)
        return date.isValid() ? QVariant(date) : QVariant();
    const QVariant time = TimeOf(text.mid(11));
    // Of UTC, where no hour is left out in spring.
    return time.isValid() ? QVariant(QDateTime(date, time.toTime(), Qt::UTC)) : QVariant();
}

QString DateText(const QVariant &value)
{
    const auto timeText = [](const QTime &time) {
        return time.toString(time.msec() != 0 ? QStringLiteral("HH:mm:ss.zzz") : QStringLiteral("HH:mm:ss"));
    };
    switch (value.userType()) {
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate);
    case QMetaType::QDateTime:
        return value.toDateTime().date().toString(Qt::ISODate) + QLatin1Char('T') + timeText(value.toDateTime().time());
    case QMetaType::QTime:
        return timeText(value.toTime());
    default:
        return {};
    }
}

} // namespace FillTemplate
