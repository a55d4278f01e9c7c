#include "xlsx/CellValue_p.h"

#include <QDateTime>
#include <QJsonValue>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace Velmora {

namespace {

using Error = XlsxTemplate::Error;
using Shows = TemplateStyles::Shows;

constexpr int kLongestText = 32767;
constexpr qint64 kMillisecondsOfDay = 24LL * 60 * 60 * 1000;
/// The number of 29 February 1900, a day that there was not, but that counts.
constexpr qint64 kFakeDay = 60;
constexpr qint64 kLastDay = 2958465; // 9999-12-31

TemplateFault Refusal(const QString &text)
{
    return {Error::ValueError, text};
}

QDate FirstDay(bool countsFrom1904)
{
    return countsFrom1904 ? QDate(1904, 1, 1) : QDate(1900, 1, 1);
}

/// The number of a day, or -1 if it has none.
qint64 SerialOf(const QDate &date, bool countsFrom1904)
{
    const QDate first = FirstDay(countsFrom1904);
    if (!date.isValid() || date < first || date > QDate(9999, 12, 31))
        return -1;
    const qint64 days = first.daysTo(date);
    if (countsFrom1904)
        return days;
    return days + 1 >= kFakeDay ? days + 2 : days + 1;
}

/// The day of a number; invalid if it has none.
QDate DayOf(qint64 serial, bool countsFrom1904)
{
    if (countsFrom1904)
        return FirstDay(true).addDays(serial);
    if (serial < 1 || serial == kFakeDay)
        return {};
    return FirstDay(false).addDays(serial > kFakeDay ? serial - 2 : serial - 1);
}

TemplateFault DateFault(bool countsFrom1904)
{
    return Refusal(QCoreApplication::translate("XlsxTemplate", "The date is not between %1 and 9999-12-31.")
                       .arg(FirstDay(countsFrom1904).toString(Qt::ISODate)));
}

TemplateFault SetDate(const QDate &date, const QTime &time, bool countsFrom1904, CellContent &content)
{
    const qint64 serial = SerialOf(date, countsFrom1904);
    if (serial < 0 || !time.isValid())
        return DateFault(countsFrom1904);
    content.kind = CellContent::Kind::Number;
    content.text = NumberText(double(serial) + double(time.msecsSinceStartOfDay()) / double(kMillisecondsOfDay));
    return {};
}

TemplateFault SetText(const QString &text, CellContent &content)
{
    if (text.size() > kLongestText)
        return Refusal(
            QCoreApplication::translate("XlsxTemplate", "The text has %n characters; a cell holds %1.", nullptr, int(text.size()))
                .arg(kLongestText));
    content.kind = CellContent::Kind::Text;
    content.text = Escaped(text);
    return {};
}

template <typename Number>
std::string Shortest(Number number)
{
    char text[64];
    return std::string(text, std::to_chars(text, text + sizeof text, number).ptr);
}

template <typename Number>
TemplateFault SetDecimal(Number number, CellContent &content)
{
    if (!std::isfinite(number))
        return Refusal(QCoreApplication::translate("XlsxTemplate", "The number is infinite, or none at all."));
    content.kind = CellContent::Kind::Number;
    content.text = Shortest(number);
    return {};
}

bool IsHex(QChar c)
{
    const ushort u = c.unicode();
    return (u >= '0' && u <= '9') || (u >= 'A' && u <= 'F') || (u >= 'a' && u <= 'f');
}

/// True if an escape stands at \a at.
template <typename String>
bool IsEscape(const String &text, QString::size_type at)
{
    constexpr int kSize = 7;
    if (at + kSize > text.size() || text.at(at) != QLatin1Char('_') || text.at(at + 1) != QLatin1Char('x')
        || text.at(at + kSize - 1) != QLatin1Char('_'))
        return false;
    for (int i = 2; i < kSize - 1; ++i) {
        if (!IsHex(text.at(at + i)))
            return false;
    }
    return true;
}

bool XmlHasRoomFor(const QString &text, QString::size_type at)
{
    const QChar c = text.at(at);
    if (c.isHighSurrogate())
        return at + 1 < text.size() && text.at(at + 1).isLowSurrogate();
    if (c.isLowSurrogate())
        return at > 0 && text.at(at - 1).isHighSurrogate();
    const ushort u = c.unicode();
    return u == '\t' || u == '\n' || u == '\r' || (u >= 0x20 && u < 0xfffe);
}

constexpr bool MayLackRoom(ushort c)
{
    return (c < 0x20 && c != '\t' && c != '\n' && c != '\r') || c >= 0xd800;
}

} // namespace

bool CellContent::KeepsItsBlanks() const
{
    const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
    return !text.empty() && (isBlank(text.front()) || isBlank(text.back()) || text.find_first_of("\t\n\r") != std::string::npos);
}

std::string NumberText(double number)
{
    return Shortest(number);
}

TemplateFault ContentOf(const QVariant &value, bool countsFrom1904, CellContent &content)
{
    content = {};
    if (value.isNull() && value.userType() <= QMetaType::Double) // numbers and truth: of a database that has none
        return {};
    switch (value.userType()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        return {};
    case QMetaType::Bool:
        content.kind = CellContent::Kind::Truth;
        content.text = value.toBool() ? "1" : "0";
        return {};
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Long:
    case QMetaType::Short:
    case QMetaType::Char:
    case QMetaType::SChar:
        content.kind = CellContent::Kind::Number;
        content.text = Shortest(value.toLongLong());
        return {};
    case QMetaType::UInt:
    case QMetaType::ULongLong:
    case QMetaType::ULong:
    case QMetaType::UShort:
    case QMetaType::UChar:
        content.kind = CellContent::Kind::Number;
        content.text = Shortest(value.toULongLong());
        return {};
    case QMetaType::Double:
        return SetDecimal(value.toDouble(), content);
    case QMetaType::Float:
        return SetDecimal(value.value<float>(), content);
    case QMetaType::QDate:
        content.shows = Shows::Date;
        return SetDate(value.toDate(), QTime(0, 0), countsFrom1904, content);
    case QMetaType::QDateTime:
        content.shows = Shows::DateTime;
        return SetDate(value.toDateTime().date(), value.toDateTime().time(), countsFrom1904, content);
    case QMetaType::QTime:
        if (!value.toTime().isValid())
            return Refusal(QCoreApplication::translate("XlsxTemplate", "The time is none."));
        content.kind = CellContent::Kind::Number;
        content.shows = Shows::Time;
        content.text = NumberText(double(value.toTime().msecsSinceStartOfDay()) / double(kMillisecondsOfDay));
        return {};
    case QMetaType::QJsonValue:
        return ContentOf(value.toJsonValue().toVariant(), countsFrom1904, content);
    case QMetaType::QByteArray:
        return SetText(QString::fromUtf8(value.toByteArray()), content);
    default:
        break;
    }
    // A list of one text converts to it, but is a list.
    if (value.userType() == QMetaType::QStringList || !value.canConvert<QString>())
        return Refusal(QCoreApplication::translate("XlsxTemplate", "A value of the type %1 is none for a cell.")
                           .arg(QString::fromLatin1(value.typeName())));
    return SetText(value.toString(), content);
}

QVariant NumberOf(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin == std::string_view::npos)
        return {};
    text = text.substr(begin, text.find_last_not_of(" \t\r\n") + 1 - begin);
    if (text.front() == '+')
        text.remove_prefix(1);
    qlonglong whole = 0;
    const char *end = text.data() + text.size();
    const auto asWhole = std::from_chars(text.data(), end, whole);
    if (asWhole.ec == std::errc() && asWhole.ptr == end)
        return whole;
    double number = 0;
    const auto asDecimal = std::from_chars(text.data(), end, number);
    return asDecimal.ec == std::errc() && asDecimal.ptr == end && std::isfinite(number) ? QVariant(number) : QVariant();
}

QVariant DateOf(const QVariant &number, TemplateStyles::Shows shows, bool countsFrom1904)
{
    const double value = number.toDouble();
    if (shows == Shows::Number || !(value >= 0) || value >= double(kLastDay) + 1)
        return number;
    const double days = std::floor(value);
    qint64 serial = qint64(days);
    qint64 milliseconds = qint64(std::llround((value - days) * double(kMillisecondsOfDay)));
    if (milliseconds == kMillisecondsOfDay) {
        ++serial;
        milliseconds = 0;
    }
    const QTime time = QTime::fromMSecsSinceStartOfDay(int(milliseconds));
    if (shows == Shows::Time)
        return serial == 0 ? QVariant(time) : number;
    const QDate date = DayOf(serial, countsFrom1904);
    if (!date.isValid())
        return number;
    return shows == Shows::Date ? QVariant(date) : QVariant(QDateTime(date, time));
}

std::string Escaped(const QString &text)
{
    if (std::none_of(text.cbegin(), text.cend(), [](QChar c) { return c == QLatin1Char('_') || MayLackRoom(c.unicode()); }))
        return text.toStdString(); // as almost all are
    QString escaped;
    QString::size_type from = 0;
    for (QString::size_type i = 0; i < text.size(); ++i) {
        const bool looksLikeOne = IsEscape(text, i);
        if (!looksLikeOne && XmlHasRoomFor(text, i))
            continue;
        const QString code = QString::number(text.at(i).unicode(), 16).toUpper();
        escaped += text.mid(from, i - from) + QLatin1String("_x") + code.rightJustified(4, QLatin1Char('0')) + QLatin1Char('_');
        from = i + 1;
    }
    return (from == 0 ? text : escaped + text.mid(from)).toStdString();
}

QString Unescaped(const std::string &text)
{
    const QString escaped = QString::fromStdString(text);
    auto at = escaped.indexOf(QLatin1String("_x"));
    if (at < 0)
        return escaped;
    QString plain = escaped.left(at);
    for (; at < escaped.size(); ++at) {
        if (IsEscape(escaped, at)) {
            plain += QChar(escaped.mid(at + 2, 4).toUShort(nullptr, 16));
            at += 6;
        } else {
            plain += escaped.at(at);
        }
    }
    return plain;
}

} // namespace Velmora
