#include "display/HtmlBomb_p.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>

namespace Velmora {

namespace {

constexpr int kMostTables = 8;        // inside of each other they take some hundredths of a second
constexpr int kMostNestedTags = 1000; // so do these; Qt's time grows with the square of their number

/// Reads the tags of a text as Qt does, odd ones included: what Qt takes for a tag and this does not, or ends where this does not,
/// would get a bomb through.
class TagReader
{
    using Offset = QString::size_type;

public:
    explicit TagReader(const QString &text)
        : m_text(text)
        , m_position(qMax(Offset(0), text.indexOf(QLatin1String("<!--StartFragment-->")))) // Qt drops what comes before
    {
    }

    /// Goes to the next tag, if there is one.
    bool Next()
    {
        m_position = m_text.indexOf(QLatin1Char('<'), m_position);
        if (m_position < 0)
            return false;
        ++m_position;
        SkipBlanks();
        m_name.clear();
        if (At(QLatin1Char('!'))) {
            SkipDeclaration();
            return true;
        }
        m_isClosing = At(QLatin1Char('/'));
        if (m_isClosing)
            ++m_position;
        m_name = ReadWord().toLower();
        if (!m_isClosing && m_position < m_text.size() && m_text.at(m_position).isSpace())
            SkipAttributes();
        SkipToEnd();
        return true;
    }

    /// Empty for a comment.
    const QString &Name() const { return m_name; }
    bool IsClosing() const { return m_isClosing; }
    /// "<br/>" and the like.
    bool IsClosedAtOnce() const { return m_isClosedAtOnce; }

private:
    bool At(QLatin1Char sign) const { return m_position < m_text.size() && m_text.at(m_position) == sign; }

    void SkipBlanks()
    {
        while (m_position < m_text.size() && m_text.at(m_position).isSpace() && m_text.at(m_position) != QChar::ParagraphSeparator)
            ++m_position;
    }

    void SkipBehind(const QString &end, Offset from)
    {
        const Offset found = m_text.indexOf(end, from);
        m_position = found < 0 ? m_text.size() : found + end.size();
    }

    void SkipDeclaration()
    {
        ++m_position;
        SkipBehind(At(QLatin1Char('-')) ? QStringLiteral("-->") : QStringLiteral(">"), m_position);
    }

    QString ReadWord()
    {
        const Offset begin = m_position;
        if (At(QLatin1Char('"')) || At(QLatin1Char('\''))) {
            SkipBehind(QString(m_text.at(begin)), begin + 1);
        } else {
            while (m_position < m_text.size() && !EndsWord())
                ++m_position;
        }
        return m_text.mid(begin, m_position - begin);
    }

    bool EndsWord() const
    {
        const QChar sign = m_text.at(m_position);
        const bool closes = sign == QLatin1Char('/') && m_position + 1 < m_text.size() && m_text.at(m_position + 1) == QLatin1Char('>');
        return closes || sign.isSpace() || sign == QLatin1Char('>') || sign == QLatin1Char('<') || sign == QLatin1Char('=');
    }

    void SkipAttributes()
    {
        for (;;) {
            SkipBlanks();
            if (At(QLatin1Char('/')) || ReadWord().isEmpty())
                return;
            SkipBlanks();
            if (At(QLatin1Char('='))) {
                ++m_position;
                SkipBlanks();
                ReadWord();
            }
        }
    }

    void SkipToEnd()
    {
        const Offset begin = m_position;
        SkipBehind(QStringLiteral(">"), begin);
        m_isClosedAtOnce = QStringView(m_text).mid(begin, m_position - begin).contains(QLatin1Char('/'));
    }

    const QString &m_text;
    Offset m_position;
    QString m_name;
    bool m_isClosing = false;
    bool m_isClosedAtOnce = false;
};

/// Lists in lists, blocks in blocks, bold in bold and so on, closed at last or not.
bool NestsTooDeep(const QString &text)
{
    if (text.count(QLatin1Char('<')) <= kMostNestedTags)
        return false;
    static const QStringList flat = {
        QString(), QStringLiteral("p"), QStringLiteral("br"), QStringLiteral("hr"), QStringLiteral("img"), QStringLiteral("meta")};
    QHash<QString, int> open;
    int depth = 0;
    for (TagReader tag(text); depth <= kMostNestedTags && tag.Next();) {
        if (flat.contains(tag.Name()))
            continue;
        if (!tag.IsClosing()) {
            const int nested = tag.IsClosedAtOnce() ? 0 : 1;
            open[tag.Name()] += nested;
            depth += nested;
        } else if (open.value(tag.Name()) > 0) { // Qt passes over one that closes nothing
            --open[tag.Name()];
            --depth;
        }
    }
    return depth > kMostNestedTags;
}

bool HasDeepTables(const QString &text)
{
    constexpr auto options = QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption;
    // Qt also reads a tag's name behind blanks, in quotes and with entities.
    static const QRegularExpression table(QStringLiteral("<\\s*(?:table|[\"']|[^\\s<>=/]{0,64}&)"), options);
    static const QRegularExpression wideCell(QStringLiteral("colspan\\W*\\d{3}"), options);

    auto tables = table.globalMatch(text);
    int count = 0;
    while (count <= kMostTables && tables.hasNext()) {
        tables.next();
        ++count;
    }
    return count > kMostTables || (count > 0 && wideCell.match(text).hasMatch());
}

} // namespace

bool IsHtmlBomb(const QString &text)
{
    return HasDeepTables(text) || NestsTooDeep(text);
}

} // namespace Velmora
