#include "xlsx/CellLists_p.h"

#include "xlsx/Formula_p.h"
#include "xlsx/TemplateSheet_p.h"

#include <algorithm>

namespace Velmora {

namespace {

/// What stands in front of the validations of a sheet.
bool StandsBeforeValidations(const pugi::xml_node &node)
{
    static constexpr const char *names[] = {"sheetPr",
                                            "dimension",
                                            "sheetViews",
                                            "sheetFormatPr",
                                            "cols",
                                            "sheetData",
                                            "sheetCalcPr",
                                            "sheetProtection",
                                            "protectedRanges",
                                            "scenarios",
                                            "autoFilter",
                                            "sortState",
                                            "dataConsolidate",
                                            "customSheetViews",
                                            "mergeCells",
                                            "phoneticPr",
                                            "conditionalFormatting"};
    return std::any_of(std::begin(names), std::end(names), [&node](const char *name) { return IsElement(node, name); });
}

qint64 Area(const CellRange &range)
{
    return qint64(range.RowCount()) * range.ColumnCount();
}

CellRange Common(const CellRange &one, const CellRange &other)
{
    return {std::max(one.firstRow, other.firstRow), std::min(one.lastRow, other.lastRow), std::max(one.firstColumn, other.firstColumn),
            std::min(one.lastColumn, other.lastColumn)};
}

/// What is left of the ranges without \a cut.
std::vector<CellRange> Without(const std::vector<CellRange> &ranges, const CellRange &cut)
{
    std::vector<CellRange> left;
    for (const CellRange &range : ranges) {
        if (!range.Intersects(cut)) {
            left.push_back(range);
            continue;
        }
        const CellRange common = Common(range, cut);
        if (range.firstRow < common.firstRow)
            left.push_back({range.firstRow, common.firstRow - 1, range.firstColumn, range.lastColumn});
        if (range.firstColumn < common.firstColumn)
            left.push_back({common.firstRow, common.lastRow, range.firstColumn, common.firstColumn - 1});
        if (common.lastColumn < range.lastColumn)
            left.push_back({common.firstRow, common.lastRow, common.lastColumn + 1, range.lastColumn});
        if (common.lastRow < range.lastRow)
            left.push_back({common.lastRow + 1, range.lastRow, range.firstColumn, range.lastColumn});
    }
    return left;
}

/// The element of a validation that holds the source of its list.
pugi::xml_node SourceNode(const pugi::xml_node &validation)
{
    const pugi::xml_node formula = ChildOf(validation, "formula1");
    const pugi::xml_node inside = ChildOf(formula, "f"); // in extensions
    return inside ? inside : formula;
}

bool IsTrue(const pugi::xml_attribute &attribute)
{
    const std::string_view value = attribute.value();
    return value == "1" || value == "true";
}

} // namespace

CellLists::CellLists(TemplateSheet &sheet)
    : m_sheet(sheet)
{
    const pugi::xml_node worksheet = sheet.Worksheet();
    Add(ChildOf(worksheet, "dataValidations"), false);
    const pugi::xml_node extensions = ChildOf(worksheet, "extLst");
    for (pugi::xml_node extension = ChildOf(extensions, "ext"); extension; extension = NextOfItsName(extension))
        Add(ChildOf(extension, "dataValidations"), true);
    for (std::size_t i = 0; i < m_validations.size(); ++i) {
        for (const CellRange &range : m_validations[i].ranges)
            m_index.Add(range, int(i));
    }
    m_index.Build();
}

void CellLists::Add(const pugi::xml_node &container, bool isExtension)
{
    for (pugi::xml_node node = ChildOf(container, "dataValidation"); node; node = NextOfItsName(node)) {
        const std::string places = isExtension ? OwnText(ChildOf(node, "sqref")) : AttributeOf(node, "sqref").value();
        if (auto ranges = ParseRanges(places)) {
            const bool isList = std::string_view(AttributeOf(node, "type").value()) == "list";
            m_validations.push_back({node, isList, isExtension, std::move(*ranges)});
        }
    }
}

const CellLists::Validation *CellLists::ListAt(int row, int column) const
{
    int first = int(m_validations.size());
    m_index.ForEachMeeting({row, row, column, column}, [&](int index) {
        if (m_validations[std::size_t(index)].isList)
            first = std::min(first, index);
    });
    return first < int(m_validations.size()) ? &m_validations[std::size_t(first)] : nullptr;
}

std::string CellLists::SourceAt(int row, int column) const
{
    const Validation *list = ListAt(row, column);
    if (!list)
        return {};
    std::string source = OwnText(SourceNode(list->node));
    source.erase(0, source.find_first_not_of(" \t\r\n="));
    // It reads as it stands in the first cell of all, and moves along with the others.
    const CellRange &first = list->ranges.front();
    return Translated(source, row - first.firstRow, column - first.firstColumn);
}

bool CellLists::TakesNothingAt(int row, int column) const
{
    const Validation *list = ListAt(row, column);
    return list && IsTrue(AttributeOf(list->node, "allowBlank"));
}

bool CellLists::Covers(const CellRange &range) const
{
    const Validation *list = ListAt(range.firstRow, range.firstColumn);
    if (!list)
        return false;
    qint64 covered = 0; // the ranges of one validation do not overlap
    for (const CellRange &one : list->ranges)
        covered += one.Intersects(range) ? Area(Common(one, range)) : 0;
    return covered >= Area(range);
}

void CellLists::SetRanges(const Validation &validation, const std::vector<CellRange> &ranges)
{
    if (validation.isExtension)
        SetOwnText(ChildOf(validation.node, "sqref"), RangesText(ranges));
    else
        AttributeOf(validation.node, "sqref").set_value(RangesText(ranges).c_str());
    m_sheet.Part().Changed(validation.node);
}

void CellLists::TakeOut(const Validation &validation)
{
    XmlPart &part = m_sheet.Part();
    pugi::xml_node container = validation.node.parent();
    part.Remove(validation.node);
    int count = 0;
    for (pugi::xml_node node = ChildOf(container, "dataValidation"); node; node = NextOfItsName(node))
        ++count;
    if (count > 0) {
        AttributeOf(container, "count").set_value(count);
        part.Changed(container);
        return;
    }
    // An empty one is taken for damage, and so is an extension without contents.
    for (pugi::xml_node parent = container.parent(); container != m_sheet.Worksheet(); container = parent, parent = parent.parent()) {
        if (container.find_child([](const pugi::xml_node &child) { return child.type() == pugi::node_element; }))
            break;
        part.Remove(container);
    }
}

void CellLists::Make(const Validation *model, const std::vector<CellRange> &ranges, const std::string &source)
{
    const pugi::xml_node worksheet = m_sheet.Worksheet();
    pugi::xml_node container = ChildOf(worksheet, "dataValidations");
    const bool isFirst = !container;
    if (isFirst) {
        pugi::xml_node before;
        for (const pugi::xml_node &node : worksheet.children()) {
            if (StandsBeforeValidations(node))
                before = pugi::xml_node();
            else if (!before && node.type() == pugi::node_element)
                before = node;
        }
        container = MakeChild(worksheet, "dataValidations", before);
    }
    pugi::xml_node made = MakeChild(container, "dataValidation");
    SetAttribute(made, "type", "list");
    if (model) {
        for (const pugi::xml_attribute &attribute : model->node.attributes()) {
            const std::string_view name = attribute.name();
            // Not its number, which belongs to one, nor what is said of other kinds.
            if (name.find(':') == std::string_view::npos && name != "operator" && name != "sqref")
                SetAttribute(made, attribute.name(), attribute.value());
        }
    } else {
        for (const char *name : {"allowBlank", "showInputMessage", "showErrorMessage"})
            SetAttribute(made, name, "1");
    }
    SetAttribute(made, "sqref", RangesText(ranges).c_str());
    SetOwnText(MakeChild(made, "formula1"), source);
    int count = 0;
    for (pugi::xml_node node = ChildOf(container, "dataValidation"); node; node = NextOfItsName(node))
        ++count;
    SetAttribute(container, "count", std::to_string(count).c_str());
    m_sheet.Part().Changed(container);
}

void CellLists::SetSource(const std::vector<CellRange> &ranges, const std::string &source)
{
    const Validation *model = ListAt(ranges.front().firstRow, ranges.front().firstColumn);
    const Validation *kept = nullptr; // the one that becomes the list of these cells
    std::vector<const Validation *> emptied;
    for (const Validation &validation : m_validations) {
        std::vector<CellRange> left = validation.ranges;
        for (const CellRange &range : ranges)
            left = Without(left, range);
        if (left == validation.ranges)
            continue;
        if (!left.empty())
            SetRanges(validation, left);
        else if (&validation == model)
            kept = &validation;
        else
            emptied.push_back(&validation);
    }
    if (kept) {
        SetOwnText(SourceNode(kept->node), source);
        SetRanges(*kept, ranges);
    } else {
        Make(model, ranges, source);
    }
    for (const Validation *validation : emptied)
        TakeOut(*validation);
}

} // namespace Velmora
