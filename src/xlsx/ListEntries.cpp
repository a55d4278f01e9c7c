#include "xlsx/ListEntries_p.h"

#include "xlsx/TemplateContext_p.h"
#include "xlsx/TemplateNames_p.h"

#include <QDateTime>

#include <algorithm>

namespace Velmora {

namespace {

/// Names that stand for names, and the like.
constexpr int kDeepestSource = 8;
/// Spreadsheet programs show no more.
constexpr int kMostEntries = 32767;
/// In characters: many cells may refer to one long text.
constexpr qint64 kMostText = 4LL * 1024 * 1024;

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

/// INDIRECT("Table1[Color]"), which is how a validation has to write the column of a table; empty if it is none of a text alone.
std::string TextOfIndirect(const std::string &source)
{
    const std::string begin = "INDIRECT(";
    if (source.size() <= begin.size() || !IsSameName(source.substr(0, begin.size()), begin) || source.back() != ')')
        return {};
    const std::string text = source.substr(begin.size(), source.size() - begin.size() - 1);
    const bool isOneText = IsQuoted(text) && text.find('"', 1) == text.size() - 1;
    return isOneText ? text.substr(1, text.size() - 2) : std::string();
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
    if (const std::string text = TextOfIndirect(source); !text.empty())
        return ReadCells(context, text, depth + 1);
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

/// Of a table: Table1[Color].
bool ListEntries::ReadColumn(TemplateContext &context, const std::string &text)
{
    const std::size_t bracket = text.find('[');
    if (bracket == std::string::npos || text.back() != ']')
        return false;
    const TemplateName *table = context.workbook.FindName(text.substr(0, bracket));
    if (!table || !table->IsTable() || table->places.empty())
        return false;
    const QString wanted = QString::fromStdString(text.substr(bracket + 1, text.size() - bracket - 2));
    const int column = int(ColumnNamesOf(context, *table, m_fault).indexOf(wanted));
    if (column < 0)
        return false;
    Place place = table->places.front();
    place.range.firstColumn = place.range.lastColumn = place.range.firstColumn + column;
    return ReadPlaces(context, {place});
}

bool ListEntries::ReadPlaces(TemplateContext &context, const std::vector<Place> &places)
{
    m_places = places;
    qint64 textLeft = kMostText;
    for (const Place &place : places) {
        TemplateSheet *sheet = context.workbook.Sheet(place.sheet, m_fault);
        if (!sheet)
            return false;
        sheet->ForEachCellIn(place.range, [&](const pugi::xml_node &cell, int row, int column) {
            const QVariant value = context.ValueOf(cell, m_fault);
            if (m_fault)
                m_fault = context.At(place.sheet, row, column, m_fault);
            if (!value.isValid())
                return !m_fault;
            m_texts.append(TextOfEntry(value));
            m_keys.insert(m_texts.last().trimmed().toCaseFolded());
            m_keys.insert(KeyOf(value).toCaseFolded());
            textLeft -= m_texts.last().size();
            return textLeft >= 0 && m_texts.size() <= kMostEntries;
        });
        if (m_fault || textLeft < 0 || m_texts.size() > kMostEntries) {
            m_texts.clear(); // a part of them is no list
            m_keys.clear();
            return false;
        }
    }
    return !m_texts.isEmpty();
}

bool ListEntries::AreIn(int sheet, int row, int column) const
{
    return std::any_of(m_places.begin(), m_places.end(),
                       [=](const Place &place) { return place.sheet == sheet && place.range.Contains(row, column); });
}

bool ListEntries::Have(const QVariant &value) const
{
    const QString key = KeyOf(value);
    return m_keys.contains(m_areTyped ? key : key.toCaseFolded());
}

} // namespace Velmora
