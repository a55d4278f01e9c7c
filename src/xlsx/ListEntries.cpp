#include "xlsx/ListEntries_p.h"

#include "xlsx/TemplateContext_p.h"
#include "xlsx/TemplateNames_p.h"

#include <QDateTime>

namespace Velmora {

namespace {

/// Names that stand for names, and the like.
constexpr int kDeepestSource = 8;
/// Spreadsheet programs show no more.
constexpr int kMostEntries = 32767;

/// How a cell that holds the value is compared: numbers and dates by their number.
QString KeyOf(const QVariant &value)
{
    CellContent content;
    if (ContentOf(value, false, content))
        return {};
    switch (content.kind) {
    case CellContent::Kind::Number:
        return QString::fromStdString(content.text);
    case CellContent::Kind::Truth:
        return content.text == "1" ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
    case CellContent::Kind::Text:
        return Unescaped(content.text).trimmed();
    case CellContent::Kind::Nothing:
        break;
    }
    return {};
}

QString TextOfEntry(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate);
    case QMetaType::QTime:
        return value.toTime().toString(Qt::ISODate);
    case QMetaType::QDateTime:
        return value.toDateTime().toString(Qt::ISODate);
    case QMetaType::QString:
        return value.toString();
    default:
        return KeyOf(value);
    }
}

bool IsQuoted(const std::string &text)
{
    return text.size() >= 2 && text.front() == '"' && text.back() == '"';
}

QString Unquoted(const std::string &text)
{
    return QString::fromStdString(text.substr(1, text.size() - 2)).replace(QLatin1String("\"\""), QLatin1String("\""));
}

} // namespace

ListEntries::ListEntries(TemplateContext &context, int sheet, const std::string &source)
    : m_sheet(sheet)
    , m_source(source)
{
    if (IsQuoted(source)) {
        m_areTyped = m_areKnown = true;
        Split(source);
    } else {
        m_areKnown = ReadCells(context, source, 0);
    }
}

void ListEntries::Split(const std::string &typed)
{
    const QStringList entries = Unquoted(typed).split(QLatin1Char(','));
    for (const QString &entry : entries) {
        const QString text = entry.trimmed();
        m_texts.append(text);
        m_keys.insert(text);
        const QVariant number = NumberOf(text.toStdString());
        if (number.isValid())
            m_keys.insert(KeyOf(number));
    }
}

bool ListEntries::ReadCells(TemplateContext &context, const std::string &source, int depth)
{
    if (depth > kDeepestSource)
        return false;
    if (const auto range = ParseSheetRange(source)) {
        const int sheet = range->sheet.empty() ? m_sheet : context.workbook.SheetIndex(range->sheet);
        return sheet >= 0 && ReadPlaces(context, {{sheet, range->range}});
    }
    const std::string local = QuotedSheetName(context.workbook.SheetName(m_sheet)) + '!' + source;
    const TemplateName *name = context.workbook.FindName(local);
    if (!name)
        name = context.workbook.FindName(source);
    if (!name)
        return ReadColumn(context, source);
    if (!name->places.empty())
        return ReadPlaces(context, name->places);
    return !name->IsTable() && ReadCells(context, OwnText(name->node), depth + 1);
}

/// Of a table: Table1[Color], also as a text within INDIRECT, which is how a validation has to write it.
bool ListEntries::ReadColumn(TemplateContext &context, const std::string &source)
{
    std::string text = source;
    const std::string indirect = "INDIRECT(";
    if (text.size() > indirect.size() && IsSameName(text.substr(0, indirect.size()), indirect) && text.back() == ')') {
        text = text.substr(indirect.size(), text.size() - indirect.size() - 1);
        if (!IsQuoted(text))
            return false;
        text = Unquoted(text).toStdString();
    }
    const std::size_t bracket = text.find('[');
    if (bracket == std::string::npos || text.back() != ']')
        return false;
    const TemplateName *table = context.workbook.FindName(text.substr(0, bracket));
    if (!table || !table->IsTable() || table->places.empty())
        return false;
    const QString wanted = QString::fromStdString(text.substr(bracket + 1, text.size() - bracket - 2));
    const int column = ColumnNamesOf(context, *table).indexOf(wanted);
    if (column < 0)
        return false;
    Place place = table->places.front();
    place.range.firstColumn = place.range.lastColumn = place.range.firstColumn + column;
    return ReadPlaces(context, {place});
}

bool ListEntries::ReadPlaces(TemplateContext &context, const std::vector<Place> &places)
{
    for (const Place &place : places) {
        TemplateFault fault;
        TemplateSheet *sheet = context.workbook.Sheet(place.sheet, fault);
        if (!sheet)
            return false;
        sheet->ForEachRow([&](const pugi::xml_node &node, int row) {
            if (row < place.range.firstRow || row > place.range.lastRow)
                return;
            TemplateSheet::ForEachCellOf(node, [&](const pugi::xml_node &cell, int column) {
                const QVariant value = place.range.Contains(row, column) ? context.ValueOf(cell) : QVariant();
                if (!value.isValid() || m_texts.size() > kMostEntries)
                    return;
                m_texts.append(TextOfEntry(value));
                m_keys.insert(m_texts.last().trimmed().toCaseFolded());
                m_keys.insert(KeyOf(value).toCaseFolded());
            });
        });
    }
    return !m_texts.isEmpty() && m_texts.size() <= kMostEntries;
}

bool ListEntries::Have(const QVariant &value) const
{
    const QString key = KeyOf(value);
    return m_keys.contains(m_areTyped ? key : key.toCaseFolded());
}

} // namespace Velmora
