#include "xlsx/MovedReferences_p.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <unordered_map>

namespace Velmora {

namespace {

bool IsOneOf(std::string_view text, std::initializer_list<const char *> others)
{
    return std::any_of(others.begin(), others.end(), [text](const char *other) { return text == other; });
}

/// The number of a row, counted from 0, that an element holds.
int RowIn(const pugi::xml_node &element)
{
    return int(std::clamp(std::strtol(OwnText(element).c_str(), nullptr, 10), 0L, long(kLastRow) - 1));
}

bool SetText(pugi::xml_attribute attribute, const std::string &text)
{
    if (text == attribute.value())
        return false;
    attribute.set_value(text.c_str());
    return true;
}

/// The rows of what formulas in a worksheet belong to: formats, validations, sparklines.
class OwnerRows
{
public:
    /// 0 if the element belongs to none.
    int RowOf(pugi::xml_node element)
    {
        int row = 0;
        for (int i = 0; i < 4 && element && row == 0; ++i, element = element.parent()) {
            const auto [found, isNew] = m_rows.try_emplace(element.hash_value(), 0); // an owner of many is read once
            if (isNew)
                found->second = OwnRowOf(element);
            row = found->second;
        }
        return row;
    }

private:
    static int OwnRowOf(const pugi::xml_node &element)
    {
        std::string ranges = AttributeOf(element, "sqref").value();
        if (ranges.empty())
            ranges = OwnText(ChildOf(element, "sqref"));
        const auto read = ParseRanges(ranges);
        return read && !read->empty() ? read->front().firstRow : 0;
    }

    std::unordered_map<std::size_t, int> m_rows;
};

void TakeOut(pugi::xml_node element)
{
    element.parent().remove_child(element);
}

/// Blank-separated ranges after the move; empty if all of them are gone, and as they were if they cannot be read.
std::string MovedAreas(const std::string &text, const RowMove &move)
{
    const auto ranges = ParseRanges(text);
    if (!ranges)
        return text;
    std::vector<CellRange> moved;
    for (const CellRange &range : *ranges) {
        if (const auto area = move.Moved(range))
            moved.push_back(*area);
    }
    return *ranges == moved ? text : RangesText(moved);
}

/// Counts what is left in an element that says how much it holds, and takes an empty one out.
void Recount(pugi::xml_node container, const char *item)
{
    int count = 0;
    for (pugi::xml_node child = ChildOf(container, item); child; child = NextOfItsName(child))
        ++count;
    if (count == 0) {
        TakeOut(container);
        return;
    }
    for (const char *name : {"count", "manualBreakCount"}) {
        const pugi::xml_attribute attribute = AttributeOf(container, name);
        if (attribute && (std::string_view(name) == "count" || attribute.as_int() > count))
            SetText(attribute, std::to_string(count));
    }
}

/// To be called once all that is in \a element has been moved.
void TidyUp(pugi::xml_node element, bool isChanged)
{
    static constexpr const char *items[][2] = {
        {"dataValidations", "dataValidation"},
        {"conditionalFormattings", "conditionalFormatting"},
        {"hyperlinks", "hyperlink"},
        {"ignoredErrors", "ignoredError"},
        {"protectedRanges", "protectedRange"},
        {"cellWatches", "cellWatch"},
        {"rowBreaks", "brk"},
        {"sparklines", "sparkline"},
        {"sparklineGroup", "sparklines"},
        {"sparklineGroups", "sparklineGroup"},
    };
    for (const auto &[container, item] : items) {
        if (IsElement(element, container)) {
            Recount(element, item);
            return;
        }
    }
    if (isChanged && (IsElement(element, "ext") || IsElement(element, "extLst")) && !element.first_child())
        TakeOut(element);
}

bool MoveCellAttribute(pugi::xml_attribute attribute, const RowMove &move)
{
    const auto range = ParseRange(attribute.value());
    if (!range)
        return false;
    CellRange moved = *range;
    const int row = move.Moved(range->firstRow);
    moved.firstRow = moved.lastRow = std::clamp(row ? row : move.first, 1, kLastRow);
    return SetText(attribute, RangeText(moved));
}

/// An element that is there for one range only goes with it.
bool MoveRangeElement(pugi::xml_node element, const RowMove &move)
{
    const pugi::xml_attribute attribute = AttributeOf(element, "ref");
    const auto range = ParseRange(attribute.value());
    if (!range)
        return false;
    const auto moved = move.Moved(*range);
    if (moved)
        return moved != range && SetText(attribute, RangeText(*moved));
    TakeOut(element);
    return true;
}

bool MoveBreak(pugi::xml_node element, const RowMove &move)
{
    if (!IsElement(element.parent(), "rowBreaks"))
        return false;
    const pugi::xml_attribute attribute = AttributeOf(element, "id");
    const int row = attribute.as_int(); // the last one above the break
    const int moved = row >= move.last ? row + move.Shift() : row;
    if (moved > 0 && (row < move.first || row >= move.last || row < move.first + move.count))
        return SetText(attribute, std::to_string(moved));
    TakeOut(element);
    return true;
}

/// The number of a row in an anchor, counted from 0.
bool MoveAnchorRow(pugi::xml_node end, const RowMove &move)
{
    pugi::xml_node row = ChildOf(end, "row");
    if (!row)
        return false;
    const int number = RowIn(row) + 1;
    const int moved = move.Moved(number);
    if (moved == number)
        return false;
    if (moved == 0) {
        if (pugi::xml_node offset = ChildOf(end, "rowOff"))
            SetOwnText(offset, "0");
    }
    SetOwnText(row, std::to_string(std::clamp(moved ? moved : move.first + move.count, 1, kLastRow) - 1));
    return true;
}

/// A sparkline for each copy of the row in which one lies.
void RepeatSparkline(pugi::xml_node sparkline, const RowMove &move)
{
    const auto cell = ParseRange(OwnText(ChildOf(sparkline, "sqref")));
    if (!cell || cell->firstRow != move.last || cell->lastRow != move.last)
        return;
    const std::string data = OwnText(ChildOf(sparkline, "f"));
    pugi::xml_node last = sparkline;
    for (int i = 1; i <= move.Shift(); ++i) {
        last = last.parent().insert_copy_after(sparkline, last);
        SetOwnText(ChildOf(last, "f"), Translated(data, i, 0));
        SetOwnText(ChildOf(last, "sqref"), RangeText({cell->firstRow + i, cell->lastRow + i, cell->firstColumn, cell->lastColumn}));
    }
}

/// Merged cells of the row that is repeated are merged in each of its copies; what is merged over it grows with it.
bool MoveMerges(pugi::xml_node merges, const RowMove &move)
{
    bool isChanged = false;
    std::vector<CellRange> repeated;
    for (pugi::xml_node merge = ChildOf(merges, "mergeCell"); merge;) {
        const pugi::xml_node next = NextOfItsName(merge);
        if (const auto range = ParseRange(AttributeOf(merge, "ref").value())) {
            const bool isRepeated = range->firstRow == move.last && range->lastRow == move.last && move.Shift() > 0;
            const auto moved = move.Moved(*range, !isRepeated);
            if (isRepeated)
                repeated.push_back(*range);
            if (moved && !moved->IsCell())
                SetText(AttributeOf(merge, "ref"), RangeText(*moved));
            else
                TakeOut(merge);
            isChanged = isChanged || isRepeated || moved != range;
        }
        merge = next;
    }
    for (const CellRange &range : repeated) {
        for (int i = 1; i <= move.Shift(); ++i) {
            const CellRange copy{range.firstRow + i, range.lastRow + i, range.firstColumn, range.lastColumn};
            SetAttribute(MakeChild(merges, "mergeCell"), "ref", RangeText(copy).c_str());
        }
    }
    if (isChanged)
        Recount(merges, "mergeCell");
    return isChanged;
}

/// What names its cells in an element of its own: a later edition's validation or format, a sparkline.
bool MoveAreasOf(pugi::xml_node owner, const RowMove &move)
{
    const pugi::xml_node areas = ChildOf(owner, "sqref");
    const std::string text = OwnText(areas);
    std::string moved = MovedAreas(text, move);
    const bool isSparkline = IsElement(owner, "sparkline");
    if (const auto cell = ParseRange(text); isSparkline && cell) {
        const auto movedCell = move.Moved(*cell, false);
        moved = movedCell ? RangeText(*movedCell) : std::string();
    }
    if (moved.empty()) {
        TakeOut(owner);
        return true;
    }
    if (moved != text)
        SetOwnText(areas, moved);
    if (isSparkline)
        RepeatSparkline(owner, move);
    return moved != text || isSparkline;
}

bool MoveAreasAttribute(pugi::xml_node element, const RowMove &move)
{
    const pugi::xml_attribute attribute = AttributeOf(element, "sqref");
    const std::string moved = MovedAreas(attribute.value(), move);
    if (!moved.empty())
        return SetText(attribute, moved);
    if (IsElement(element, "selection"))
        return SetText(attribute, AttributeOf(element, "activeCell").value());
    TakeOut(element);
    return true;
}

} // namespace

std::vector<pugi::xml_node> ElementsIn(const pugi::xml_node &root)
{
    std::vector<pugi::xml_node> elements;
    pugi::xml_node at = root;
    while (at) {
        if (at.type() == pugi::node_element)
            elements.push_back(at);
        if (at.first_child() && !IsElement(at, "sheetData")) {
            at = at.first_child();
            continue;
        }
        while (at != root && !at.next_sibling())
            at = at.parent();
        at = at == root ? pugi::xml_node() : at.next_sibling();
    }
    std::reverse(elements.begin(), elements.end());
    return elements;
}

bool MoveFormulaIn(pugi::xml_node element, std::string_view ownSheet, const RowMove &move, Growth growth)
{
    const std::optional<std::string> moved = MovedByRows(OwnText(element), ownSheet, move, growth);
    if (moved)
        SetOwnText(element, *moved);
    return moved.has_value();
}

bool MoveFormulaIn(pugi::xml_attribute attribute, std::string_view ownSheet, const RowMove &move, Growth growth)
{
    const std::optional<std::string> moved = attribute ? MovedByRows(attribute.value(), ownSheet, move, growth) : std::nullopt;
    return moved && SetText(attribute, *moved);
}

bool MoveFormulas(const pugi::xml_node &root, std::string_view ownSheet, const RowMove &move)
{
    bool isChanged = false;
    const bool isMoved = IsSameName(ownSheet, move.sheet);
    OwnerRows owners;
    for (const pugi::xml_node &element : ElementsIn(root)) {
        const std::string_view name = LocalName(element);
        if (IsOneOf(name, {"formula", "formula1", "formula2", "f", "calculatedColumnFormula", "totalsRowFormula"})) {
            const int row = isMoved ? owners.RowOf(element) : 0;
            const bool isInRows = row >= move.first && row <= move.last;
            const Growth outside = IsElement(element.parent(), "sparkline") ? Growth::All : Growth::Ranges;
            isChanged = MoveFormulaIn(element, ownSheet, move, isInRows ? Growth::Fixed : outside) || isChanged;
        } else if (name == "cfvo") {
            isChanged = MoveFormulaIn(AttributeOf(element, "val"), ownSheet, move, Growth::Ranges) || isChanged;
        } else if (name == "hyperlink") {
            isChanged = MoveFormulaIn(AttributeOf(element, "location"), ownSheet, move, Growth::None) || isChanged;
        } else if (IsOneOf(name, {"controlPr", "objectPr", "oleObject"})) {
            for (const char *attribute : {"linkedCell", "listFillRange", "link"})
                isChanged = MoveFormulaIn(AttributeOf(element, attribute), ownSheet, move, Growth::Ranges) || isChanged;
        }
    }
    return isChanged;
}

bool MoveRanges(const pugi::xml_node &root, const RowMove &move)
{
    bool isChanged = false;
    for (pugi::xml_node element : ElementsIn(root)) {
        const std::string_view name = LocalName(element);
        bool isMoved = false;
        for (const char *attribute : {"activeCell", "topLeftCell"})
            isMoved = MoveCellAttribute(AttributeOf(element, attribute), move) || isMoved;
        if (IsOneOf(name, {"cellWatch", "inputCells"}))
            isMoved = MoveCellAttribute(AttributeOf(element, "r"), move);
        else if (ChildOf(element, "sqref"))
            isMoved = MoveAreasOf(element, move);
        else if (AttributeOf(element, "sqref"))
            isMoved = MoveAreasAttribute(element, move) || isMoved;
        else if (name == "mergeCells")
            isMoved = MoveMerges(element, move);
        else if (IsOneOf(name, {"hyperlink", "autoFilter", "sortState", "sortCondition", "dimension", "table"}))
            isMoved = MoveRangeElement(element, move);
        else if (name == "brk")
            isMoved = MoveBreak(element, move);
        else if (IsOneOf(name, {"from", "to"}) && AttributeOf(element.parent(), "moveWithCells").as_bool()) // of a control
            isMoved = MoveAnchorRow(element, move);
        else
            TidyUp(element, isChanged);
        isChanged = isChanged || isMoved;
    }
    return isChanged;
}

bool MoveAnchors(const pugi::xml_node &root, const RowMove &move)
{
    bool isChanged = false;
    for (const pugi::xml_node &element : ElementsIn(root)) {
        if (!IsElement(element, "twoCellAnchor") && !IsElement(element, "oneCellAnchor"))
            continue;
        const std::string_view edits = AttributeOf(element, "editAs").value();
        if (edits == "absolute")
            continue;
        pugi::xml_node from = ChildOf(element, "from");
        pugi::xml_node to = ChildOf(element, "to");
        const int before = RowIn(ChildOf(from, "row"));
        isChanged = MoveAnchorRow(from, move) || isChanged;
        const pugi::xml_node end = ChildOf(to, "row");
        if (edits != "oneCell") {
            isChanged = MoveAnchorRow(to, move) || isChanged;
        } else if (end) { // keeps its size
            const int shift = RowIn(ChildOf(from, "row")) - before;
            SetOwnText(end, std::to_string(RowIn(end) + shift));
        }
    }
    return isChanged;
}

bool MoveShapeLinks(const pugi::xml_node &root, std::string_view ownSheet, const RowMove &move)
{
    bool isChanged = false;
    for (const pugi::xml_node &element : ElementsIn(root)) {
        for (const char *attribute : {"textlink", "fmlaLink", "fmlaRange", "fmlaGroup", "fmlaTxbx"})
            isChanged = MoveFormulaIn(AttributeOf(element, attribute), ownSheet, move, Growth::Ranges) || isChanged;
    }
    return isChanged;
}

namespace {

/// Column, offset, row and offset of two corners, separated by commas.
bool MoveOldAnchor(pugi::xml_node anchor, const RowMove &move)
{
    std::vector<long> numbers;
    const std::string text = OwnText(anchor);
    for (std::size_t at = 0; at <= text.size(); at = std::min(text.find(',', at), text.size()) + 1)
        numbers.push_back(std::strtol(text.c_str() + at, nullptr, 10));
    if (numbers.size() != 8)
        return false;
    std::string moved;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        long number = numbers[i];
        if (i == 2 || i == 6) {
            const int row = move.Moved(int(std::clamp(number, 0L, long(kLastRow) - 1)) + 1);
            number = std::clamp(row ? row : move.first + move.count, 1, kLastRow) - 1;
        }
        moved += (i ? ", " : "") + std::to_string(number);
    }
    SetOwnText(anchor, moved);
    return true;
}

void MoveRowOfNote(const pugi::xml_node &data, const RowMove &move)
{
    const pugi::xml_node row = ChildOf(data, "Row");
    if (row)
        SetOwnText(row, std::to_string(std::max(move.Moved(RowIn(row) + 1), 1) - 1));
    if (const pugi::xml_node anchor = ChildOf(data, "Anchor"))
        MoveOldAnchor(anchor, move);
}

/// The frame of a comment in a row that goes away.
bool IsFrameOfRemovedNote(const pugi::xml_node &shape, const RowMove &move)
{
    const pugi::xml_node data = ChildOf(shape, "ClientData");
    const pugi::xml_node row = ChildOf(data, "Row");
    return row && std::string_view(AttributeOf(data, "ObjectType").value()) == "Note" && move.Moved(RowIn(row) + 1) == 0;
}

} // namespace

bool MoveOldShapes(const pugi::xml_node &root, std::string_view ownSheet, const RowMove &move)
{
    bool isChanged = false;
    const bool isMoved = IsSameName(ownSheet, move.sheet);
    for (pugi::xml_node element : ElementsIn(root)) {
        const std::string_view name = LocalName(element);
        if (IsOneOf(name, {"FmlaLink", "FmlaRange", "FmlaGroup", "FmlaTxbx", "FmlaPict"})) {
            isChanged = MoveFormulaIn(element, ownSheet, move, Growth::Ranges) || isChanged;
        } else if (isMoved && ChildOf(element, "ClientData")) {
            isChanged = true;
            if (IsFrameOfRemovedNote(element, move))
                TakeOut(element);
            else
                MoveRowOfNote(ChildOf(element, "ClientData"), move);
        }
    }
    return isChanged;
}

bool MoveComments(const pugi::xml_node &root, const RowMove &move)
{
    bool isChanged = false;
    for (const pugi::xml_node &element : ElementsIn(root)) {
        if (!IsOneOf(LocalName(element), {"comment", "threadedComment"}))
            continue;
        const pugi::xml_attribute attribute = AttributeOf(element, "ref");
        const auto range = ParseRange(attribute.value());
        if (range && move.Moved(range->firstRow) == 0)
            TakeOut(element);
        else if (!MoveCellAttribute(attribute, move))
            continue;
        isChanged = true;
    }
    return isChanged;
}

bool MoveChartData(const pugi::xml_node &root, const RowMove &move)
{
    bool isChanged = false;
    for (const pugi::xml_node &element : ElementsIn(root)) {
        if (!IsElement(element, "f") && !IsElement(element, "sqref"))
            continue;
        pugi::xml_node reference = element.parent();
        const bool isTitle = IsElement(reference.parent(), "tx");
        if (!MoveFormulaIn(element, {}, move, isTitle ? Growth::None : Growth::All))
            continue;
        isChanged = true;
        if (isTitle || ChildOf(reference, "f") != element)
            continue;
        for (const char *cache : {"numCache", "strCache", "multiLvlStrCache", "lvl"})
            reference.remove_child(ChildOf(reference, cache));
    }
    return isChanged;
}

bool MovePivotSource(const pugi::xml_node &root, const RowMove &move)
{
    const pugi::xml_node source = ChildOf(ChildOf(root, "cacheSource"), "worksheetSource");
    const pugi::xml_attribute attribute = AttributeOf(source, "ref");
    const auto range = ParseRange(attribute.value());
    if (!range || AttributeOf(source, "id") || !IsSameName(AttributeOf(source, "sheet").value(), move.sheet))
        return false;
    const auto moved = move.Moved(*range);
    if (!moved || moved == range)
        return false;
    SetText(attribute, RangeText(*moved));
    SetAttribute(root, "refreshOnLoad", "1");
    return true;
}

bool MoveNames(const pugi::xml_node &workbook, const std::vector<std::string> &sheetNames, const pugi::xml_node &repeated,
               const RowMove &move)
{
    bool isChanged = false;
    const pugi::xml_node names = ChildOf(workbook, "definedNames");
    for (pugi::xml_node name = ChildOf(names, "definedName"), next; name; name = next) {
        next = NextOfItsName(name);
        const std::string_view key = AttributeOf(name, "name").value();
        const unsigned local = AttributeOf(name, "localSheetId").as_uint(unsigned(sheetNames.size()));
        const std::string_view ownSheet = local < sheetNames.size() ? std::string_view(sheetNames[local]) : std::string_view();
        Growth growth = key == "_xlnm.Print_Titles" ? Growth::None : Growth::Ranges;
        if (name == repeated)
            growth = Growth::All;
        if (!MoveFormulaIn(name, ownSheet, move, growth))
            continue;
        isChanged = true;
        // What programs keep for themselves, they take out with the last of its cells.
        if (key.substr(0, 6) == "_xlnm." && MeaningOfName(OwnText(name)).kind == NameMeaning::Kind::Broken)
            TakeOut(name);
    }
    return isChanged;
}

} // namespace Velmora
