#include "Json.h"

#include "Failure.h"

#include <QSet>

#include <cmath>
#include <cstring>

namespace FillTemplate {

namespace {

constexpr int kDeepest = 100; // a document that is deeper could exhaust the stack

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Behind the number that begins at \a at, or \a at itself if none does.
const char *EndOfNumber(const char *at, const char *end)
{
    const char *const begin = at;
    const auto skipDigits = [&at, end] {
        const char *const first = at;
        while (at != end && IsDigit(*at))
            ++at;
        return at != first;
    };
    if (at != end && *at == '-')
        ++at;
    const bool isZero = at != end && *at == '0';
    const char *const whole = at;
    if (!skipDigits() || (isZero && at - whole > 1))
        return begin;
    if (at != end && *at == '.') {
        ++at;
        if (!skipDigits())
            return begin;
    }
    if (at != end && (*at == 'e' || *at == 'E')) {
        ++at;
        if (at != end && (*at == '+' || *at == '-'))
            ++at;
        if (!skipDigits())
            return begin;
    }
    return at;
}

/// Of what EndOfNumber() found; infinite if it is larger than any double.
QVariant ValueOfNumber(const QByteArray &text)
{
    bool fits = false;
    if (!text.contains('.') && !text.contains('e') && !text.contains('E')) {
        const qlonglong number = text.toLongLong(&fits);
        if (fits)
            return number;
        const qulonglong large = text.toULongLong(&fits);
        if (fits)
            return large;
    }
    const double number = text.toDouble(&fits);
    return fits ? number : qInf();
}

class Reader
{
public:
    Reader(const QByteArray &document, const QString &path)
        : m_path(path)
        , m_begin(document.constData())
        , m_at(m_begin)
        , m_end(m_begin + document.size())
    {
        if (document.startsWith("\xef\xbb\xbf")) // some editors write it
            m_at += 3;
    }

    QVariant Document()
    {
        const QVariant value = Value(0);
        SkipBlanks();
        if (m_at != m_end)
            throw Wrong(QStringLiteral("something stands behind the end of the values"));
        return value;
    }

private:
    Failure Wrong(const QString &reason) const
    {
        const char *line = m_begin;
        int number = 1;
        for (const char *at = m_begin; at != m_at; ++at) {
            if (*at == '\n') {
                line = at + 1;
                ++number;
            }
        }
        const int column = int(QString::fromUtf8(line, int(m_at - line)).size() + 1);
        return {NotJson, QStringLiteral("%1 holds no JSON object: line %2, column %3: %4").arg(m_path).arg(number).arg(column).arg(reason)};
    }
    void SkipBlanks()
    {
        while (m_at != m_end && (*m_at == ' ' || *m_at == '\t' || *m_at == '\n' || *m_at == '\r'))
            ++m_at;
    }
    /// The next character but blanks; 0 at the end.
    char Next()
    {
        SkipBlanks();
        return m_at == m_end ? '\0' : *m_at;
    }
    bool Take(const char *word)
    {
        const auto size = std::ptrdiff_t(std::strlen(word));
        if (m_end - m_at < size || std::memcmp(m_at, word, std::size_t(size)) != 0)
            return false;
        m_at += size;
        return true;
    }

    QVariant Value(int depth)
    {
        const char next = Next();
        if (depth > kDeepest)
            throw Wrong(QStringLiteral("arrays and objects are nested too deeply"));
        switch (next) {
        case '{':
            return Object(depth);
        case '[':
            return Array(depth);
        case '"':
            return Text();
        case '\'':
            throw Wrong(QStringLiteral("texts stand in double quotes"));
        default:
            break;
        }
        if (Take("true"))
            return true;
        if (Take("false"))
            return false;
        if (Take("null"))
            return {};
        return Number();
    }

    QVariant Number()
    {
        const char *const end = EndOfNumber(m_at, m_end);
        if (end == m_at)
            throw Wrong(m_at == m_end ? QStringLiteral("the file ends in the middle") : QStringLiteral("a value is missing here"));
        const QVariant number = ValueOfNumber(QByteArray(m_at, int(end - m_at)));
        if (number.userType() == QMetaType::Double && !std::isfinite(number.toDouble()))
            throw Wrong(QStringLiteral("the number is too large"));
        m_at = end;
        return number;
    }

    /// Of an array or object: true at a comma, false behind \a closing; nothing else may stand there.
    bool GoesOn(char closing)
    {
        const char next = Next();
        if (next != ',' && next != closing) {
            throw Wrong(m_at == m_end ? QStringLiteral("the file ends in the middle")
                                      : QStringLiteral("a comma or %1 is missing here").arg(QLatin1Char(closing)));
        }
        ++m_at;
        if (next == ',' && Next() == closing)
            throw Wrong(QStringLiteral("there is a comma too many in front"));
        return next == ',';
    }

    QVariant Array(int depth)
    {
        ++m_at;
        QVariantList values;
        if (Next() == ']') {
            ++m_at;
            return values;
        }
        do
            values.append(Value(depth + 1));
        while (GoesOn(']'));
        return values;
    }

    QVariant Object(int depth)
    {
        ++m_at;
        JsonObject object;
        if (Next() == '}')
            ++m_at;
        else
            Members(object, depth);
        if (object.keys == m_lastKeys)
            object.keys = m_lastKeys;
        else
            RequireDifferent(object.keys);
        m_lastKeys = object.keys;
        return QVariant::fromValue(object);
    }
    void Members(JsonObject &object, int depth)
    {
        do {
            if (Next() != '"')
                throw Wrong(QStringLiteral("a name in double quotes is missing here"));
            object.keys.append(Text());
            if (Next() != ':')
                throw Wrong(QStringLiteral("a colon is missing here"));
            ++m_at;
            object.values.append(Value(depth + 1));
        } while (GoesOn('}'));
    }
    void RequireDifferent(const QStringList &keys) const
    {
        QSet<QString> seen;
        for (const QString &key : keys) {
            if (seen.contains(key))
                throw Wrong(QStringLiteral("this object has %1 twice").arg(key));
            seen.insert(key);
        }
    }

    QString Text()
    {
        ++m_at;
        QString text;
        for (;;) {
            const char *const from = m_at;
            while (m_at != m_end && *m_at != '"' && *m_at != '\\' && uchar(*m_at) >= 0x20)
                ++m_at;
            text += Decoded(from);
            if (m_at == m_end)
                throw Wrong(QStringLiteral("the file ends in a text"));
            if (*m_at == '"')
                break;
            if (*m_at != '\\')
                throw Wrong(QStringLiteral("a text ends on its line: a line end in it is written \\n"));
            text += Escape();
        }
        ++m_at;
        return text;
    }
    /// What stands from there on, which must be UTF-8.
    QString Decoded(const char *from) const
    {
        const QByteArray bytes = QByteArray::fromRawData(from, int(m_at - from));
        const QString text = QString::fromUtf8(bytes);
        if (text.contains(QChar::ReplacementCharacter) && text.toUtf8() != bytes)
            throw Wrong(QStringLiteral("the text is not in UTF-8"));
        return text;
    }
    QChar Escape()
    {
        static const char kWritten[] = "\"\\/bfnrt";
        static const char kMeant[] = "\"\\/\b\f\n\r\t";
        const char escape = m_end - m_at < 2 ? '\0' : m_at[1];
        if (escape == 'u' && m_end - m_at >= 6) {
            bool isHex = false;
            const QByteArray digits(m_at + 2, 4);
            const ushort code = digits.toUShort(&isHex, 16);
            if (isHex && std::isxdigit(uchar(digits.at(0)))) {
                m_at += 6;
                return QChar(code);
            }
        }
        const char *const found = escape ? std::strchr(kWritten, escape) : nullptr;
        if (!found)
            throw Wrong(QStringLiteral("a backslash is written twice in a text: \\\\"));
        m_at += 2;
        return QLatin1Char(kMeant[found - kWritten]);
    }

    QString m_path;
    const char *m_begin;
    const char *m_at;
    const char *m_end;
    QStringList m_lastKeys;
};

} // namespace

QVariant ReadJson(const QByteArray &document, const QString &path)
{
    return Reader(document, path).Document();
}

QVariant NumberOf(const QByteArray &text)
{
    const char *const end = text.constData() + text.size();
    if (text.isEmpty() || EndOfNumber(text.constData(), end) != end)
        return {};
    const QVariant number = ValueOfNumber(text);
    return std::isfinite(number.toDouble()) ? number : QVariant();
}

} // namespace FillTemplate
