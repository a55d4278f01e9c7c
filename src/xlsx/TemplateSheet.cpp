#include "xlsx/TemplateSheet_p.h"

#include <algorithm>
#include <cstring>

namespace Velmora {

namespace {

/// Rows of fewer cells are looked through anew when another row was looked at in between.
constexpr std::size_t kLongRow = 256;
/// The number at the begin of \a digits, or 0 for any other text and for one beyond \a most.
int Number(const char *digits, int most)
{
    int number = 0;
    for (; *digits >= '0' && *digits <= '9'; ++digits) {
        number = number * 10 + (*digits - '0');
        if (number > most)
            return 0;
    }
    return *digits ? 0 : number;
}

auto FindColumn(std::vector<std::pair<int, pugi::xml_node>> &cells, int column)
{
    return std::lower_bound(cells.begin(), cells.end(), column, [](const auto &cell, int wanted) { return cell.first < wanted; });
}

} // namespace

TemplateSheet::TemplateSheet(std::string name, std::string partName, XmlPart &part)
    : m_name(std::move(name))
    , m_partName(std::move(partName))
    , m_part(part)
    , m_sheetData(ChildOf(part.Root(), "sheetData"))
{
}

int TemplateSheet::NumberOfRow(const pugi::xml_node &row, int next)
{
    const int number = Number(AttributeOf(row, "r").value(), kLastRow);
    return number ? number : next;
}

int TemplateSheet::ColumnOfCell(const pugi::xml_node &cell, int next)
{
    const char *reference = AttributeOf(cell, "r").value();
    const int column = ColumnNumber({reference, std::strcspn(reference, "0123456789")});
    return column ? column : next;
}

TemplateSheet::Index &TemplateSheet::TheIndex()
{
    if (!m_index) {
        m_index = std::make_unique<Index>();
        // Of two rows of one number the first counts.
        ForEachRow([this](const pugi::xml_node &row, int number) { m_index->rows.emplace_hint(m_index->rows.end(), number, row); });
        ReadMerges(*m_index);
        ReadColumns(*m_index);
        m_index->dimensionNode = ChildOf(Worksheet(), "dimension");
        if (const auto range = ParseRange(AttributeOf(m_index->dimensionNode, "ref").value()))
            m_index->dimension = *range;
    }
    return *m_index;
}

void TemplateSheet::ReadMerges(Index &index) const
{
    for (pugi::xml_node node = ChildOf(ChildOf(Worksheet(), "mergeCells"), "mergeCell"); node; node = NextOfItsName(node)) {
        if (const auto range = ParseRange(AttributeOf(node, "ref").value())) {
            index.mergeIndex.Add(*range, int(index.merges.size()));
            index.merges.push_back(*range);
        }
    }
    index.mergeIndex.Build();
}

void TemplateSheet::ReadColumns(Index &index) const
{
    for (pugi::xml_node node = ChildOf(ChildOf(Worksheet(), "cols"), "col"); node; node = NextOfItsName(node)) {
        CellRange columns;
        columns.firstColumn = Number(AttributeOf(node, "min").value(), kLastColumn);
        columns.lastColumn = Number(AttributeOf(node, "max").value(), kLastColumn);
        const char *style = AttributeOf(node, "style").value();
        if (columns.firstColumn && *style)
            index.columnStyles.emplace_back(columns, style);
    }
    std::sort(index.columnStyles.begin(), index.columnStyles.end(),
              [](const auto &a, const auto &b) { return a.first.firstColumn < b.first.firstColumn; });
}

const std::vector<CellRange> &TemplateSheet::MergedCells()
{
    return TheIndex().merges;
}

const CellRange *TemplateSheet::MergeAt(int row, int column)
{
    const Index &index = TheIndex();
    const CellRange *merge = nullptr;
    index.mergeIndex.ForEachMeeting({row, row, column, column}, [&](int owner) { merge = &index.merges[std::size_t(owner)]; });
    return merge;
}

TemplateSheet::Cells &TemplateSheet::CellsOf(int number, const pugi::xml_node &row)
{
    Index &index = TheIndex();
    if (index.rowOfCells == number)
        return index.cells;
    const auto known = index.longRows.find(number);
    if (known != index.longRows.end())
        return known->second;
    Cells cells;
    cells.swap(index.cells); // to use its memory again
    cells.clear();
    ForEachCellOf(row, [&cells](const pugi::xml_node &cell, int column) { cells.emplace_back(column, cell); });
    const auto isBefore = [](const auto &a, const auto &b) { return a.first < b.first; };
    if (!std::is_sorted(cells.begin(), cells.end(), isBefore))
        std::stable_sort(cells.begin(), cells.end(), isBefore);
    index.rowOfCells = 0;
    if (cells.size() > kLongRow)
        return index.longRows[number] = std::move(cells);
    index.cells.swap(cells);
    index.rowOfCells = number;
    return index.cells;
}

pugi::xml_node TemplateSheet::FindRow(int row)
{
    const Index &index = TheIndex();
    const auto found = index.rows.find(row);
    return found == index.rows.end() ? pugi::xml_node() : found->second;
}

pugi::xml_node TemplateSheet::FindCell(int row, int column)
{
    const pugi::xml_node node = FindRow(row);
    if (!node)
        return {};
    Cells &cells = CellsOf(row, node);
    const auto found = FindColumn(cells, column);
    return found != cells.end() && found->first == column ? found->second : pugi::xml_node();
}

pugi::xml_node TemplateSheet::MakeRow(int row)
{
    Index &index = TheIndex();
    const auto after = index.rows.upper_bound(row);
    pugi::xml_node node = MakeChild(m_sheetData, "row", after == index.rows.end() ? pugi::xml_node() : after->second);
    SetAttribute(node, "r", std::to_string(row).c_str());
    index.rows.emplace_hint(after, row, node);
    m_part.Changed(node);
    return node;
}

pugi::xml_node TemplateSheet::MakeCell(int row, int column)
{
    pugi::xml_node node = FindRow(row);
    if (const pugi::xml_node cell = FindCell(row, column))
        return cell;
    WidenDimension(row, column);
    if (!node)
        node = MakeRow(row);
    Cells &cells = CellsOf(row, node);
    const auto at = FindColumn(cells, column);
    pugi::xml_node cell = MakeChild(node, "c", at == cells.end() ? pugi::xml_node() : at->second);
    SetAttribute(cell, "r", (ColumnName(column) + std::to_string(row)).c_str());
    const std::string style = StyleOfNewCell(node, column);
    if (!style.empty())
        SetAttribute(cell, "s", style.c_str());
    cells.emplace(at, column, cell);
    m_part.Changed(cell);
    return cell;
}

std::string TemplateSheet::StyleOfNewCell(const pugi::xml_node &row, int column)
{
    const std::string_view isCustom = AttributeOf(row, "customFormat").value();
    if (isCustom == "1" || isCustom == "true")
        return AttributeOf(row, "s").value();
    const auto &styles = TheIndex().columnStyles;
    const auto behind = std::upper_bound(styles.begin(), styles.end(), column,
                                         [](int wanted, const auto &style) { return wanted < style.first.firstColumn; });
    return behind != styles.begin() && column <= std::prev(behind)->first.lastColumn ? std::prev(behind)->second : std::string();
}

void TemplateSheet::WidenDimension(int row, int column)
{
    Index &index = TheIndex();
    CellRange &dimension = index.dimension;
    if (!dimension.firstRow || dimension.Contains(row, column))
        return;
    dimension.firstRow = std::min(dimension.firstRow, row);
    dimension.lastRow = std::max(dimension.lastRow, row);
    dimension.firstColumn = std::min(dimension.firstColumn, column);
    dimension.lastColumn = std::max(dimension.lastColumn, column);
    AttributeOf(index.dimensionNode, "ref").set_value(RangeText(dimension).c_str());
    m_part.Changed(index.dimensionNode);
}

} // namespace Velmora
