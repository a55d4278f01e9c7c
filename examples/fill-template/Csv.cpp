#include "Csv.h"

#include "Dates.h"
#include "Failure.h"
#include "Json.h"

namespace FillTemplate {

namespace {

QVariant ValueOf(const QByteArray &cell)
{
    if (cell.isEmpty())
        return {};
    const QVariant number = NumberOf(cell);
    if (number.isValid())
        return number;
    if (cell == "TRUE" || cell == "true")
        return true;
    if (cell == "FALSE" || cell == "false")
        return false;
    const QString text = QString::fromUtf8(cell);
    const QVariant date = DateOf(text);
    return date.isValid() ? date : QVariant(text);
}

class Reader
{
public:
    Reader(const QByteArray &content, const QString &path)
        : m_content(content)
        , m_path(path)
        , m_at(content.startsWith("\xef\xbb\xbf") ? 3 : 0)
    {
    }

    CsvTable Table()
    {
        CsvTable table;
        while (m_at < m_content.size()) {
            if (AtLineEnd()) {
                SkipLineEnd();
                continue;
            }
            QStringList *const texts = table.rows.isEmpty() ? &table.firstLine : nullptr;
            table.rows.append(Line(texts));
        }
        return table;
    }

private:
    Failure Wrong(const QString &reason) const
    {
        return {WrongType, QStringLiteral("%1, line %2: %3").arg(m_path).arg(m_line).arg(reason)};
    }
    bool AtLineEnd() const { return m_at == m_content.size() || m_content.at(m_at) == '\n' || m_content.at(m_at) == '\r'; }
    void SkipLineEnd()
    {
        m_at += m_content.mid(m_at, 2) == "\r\n" ? 2 : m_at < m_content.size() ? 1 : 0;
        ++m_line;
    }
    QVariantList Line(QStringList *texts)
    {
        QVariantList values;
        for (;;) {
            const bool isQuoted = m_at < m_content.size() && m_content.at(m_at) == '"';
            const QByteArray cell = isQuoted ? Quoted() : Plain();
            const QString text = QString::fromUtf8(cell);
            if (text.contains(QChar::ReplacementCharacter) && text.toUtf8() != cell)
                throw Wrong(QStringLiteral("the text is not in UTF-8"));
            if (texts)
                texts->append(text);
            values.append(isQuoted ? QVariant(text) : ValueOf(cell));
            if (AtLineEnd())
                break;
            ++m_at; // the comma
        }
        SkipLineEnd();
        return values;
    }
    QByteArray Plain()
    {
        const int from = m_at;
        while (!AtLineEnd() && m_content.at(m_at) != ',') {
            if (m_content.at(m_at) == '"')
                throw Wrong(QStringLiteral("a double quote stands in a cell that does not begin with one; put the cell in double quotes, "
                                           "and write that one twice"));
            ++m_at;
        }
        return m_content.mid(from, m_at - from);
    }
    QByteArray Quoted()
    {
        const int line = m_line;
        QByteArray cell;
        for (++m_at;;) {
            const int quote = int(m_content.indexOf('"', m_at));
            if (quote < 0) {
                m_line = line;
                throw Wrong(QStringLiteral("a double quote is opened and not closed"));
            }
            cell += m_content.mid(m_at, quote - m_at);
            m_at = quote + 1;
            if (m_at == m_content.size() || m_content.at(m_at) != '"')
                break;
            cell += '"';
            ++m_at;
        }
        m_line += int(cell.count('\n'));
        if (!AtLineEnd() && m_content.at(m_at) != ',')
            throw Wrong(QStringLiteral("something stands between a closing double quote and the next comma"));
        return cell;
    }

    const QByteArray &m_content;
    QString m_path;
    int m_at;
    int m_line = 1;
};

} // namespace

CsvTable ReadCsv(const QByteArray &content, const QString &path)
{
    return Reader(content, path).Table();
}

} // namespace FillTemplate
