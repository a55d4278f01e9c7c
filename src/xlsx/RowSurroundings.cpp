#include "xlsx/RowSurroundings_p.h"

#include "xlsx/CellMemory_p.h"
#include "xlsx/FormulaCells_p.h"
#include "xlsx/MovedReferences_p.h"
#include "xlsx/RepeatedCells_p.h"

#include <algorithm>

namespace Velmora {

namespace {

using Error = XlsxTemplate::Error;
using Part = RowSurroundings::Part;

/// A part that names no cell need not be parsed.
bool MayReferToCells(const QByteArray &bytes)
{
    return MayHaveFormulas(bytes) || bytes.contains("ormula") || bytes.contains("location=") || bytes.contains("linkedCell");
}

TemplateFault ReadParts(TemplateContext &context, const std::vector<std::string> &names, int sheet, std::vector<Part> &parts)
{
    for (const std::string &name : names) {
        TemplateFault fault;
        XmlPart *read = context.package.Parsed(name, fault);
        if (!read)
            return fault;
        parts.push_back({sheet, read});
    }
    return {};
}

TemplateFault ReadPartsOfSheet(TemplateContext &context, int sheet, RowSurroundings &surroundings)
{
    const std::string &part = context.workbook.SheetPartName(sheet);
    const auto read = [&](std::initializer_list<const char *> types, std::vector<Part> &parts) {
        return ReadParts(context, context.workbook.PartsOf(part, types), sheet, parts);
    };
    if (TemplateFault fault = read({"table"}, surroundings.tables))
        return fault;
    if (TemplateFault fault = read({"drawing"}, surroundings.drawings))
        return fault;
    if (TemplateFault fault = read({"ctrlProp"}, surroundings.controls))
        return fault;
    if (TemplateFault fault = ReadParts(context, context.workbook.ChartPartsOf(sheet), sheet, surroundings.charts))
        return fault;
    if (sheet != surroundings.sheet)
        return {};
    if (TemplateFault fault = read({"vmlDrawing"}, surroundings.oldDrawings))
        return fault;
    if (TemplateFault fault = read({"comments", "threadedComment"}, surroundings.comments))
        return fault;
    return read({"pivotTable"}, surroundings.pivotTables);
}

TemplateFault Obstacle(const QString &text)
{
    return {Error::ObstacleError, text};
}

/// The first of the rows that go away, or the one that is repeated; they end with the last of all.
int FirstConcerned(const RowMove &move)
{
    return move.Shift() > 0 ? move.last : move.first + move.count;
}

bool IsConcerned(const CellRange &range, const RowMove &move)
{
    return range.firstRow <= move.last && range.lastRow >= FirstConcerned(move);
}

constexpr qint64 kMerge = 256;

/// What is made anew with each copy of a row.
qint64 MemoryRepeatedWith(int row, TemplateSheet &sheet)
{
    qint64 bytes = MemoryOfRow(sheet.FindRow(row));
    for (const CellRange &merge : sheet.MergedCells())
        bytes += merge.firstRow == row && merge.lastRow == row ? kMerge : 0;
    for (const pugi::xml_node &element : ElementsIn(sheet.Worksheet()))
        bytes += IsElement(element, "sparkline") ? MemoryOfElement(element) : 0;
    return bytes;
}

/// What goes with rows that were made as copies of others.
qint64 MemoryOfMadeRows(int firstRow, int lastRow, TemplateSheet &sheet)
{
    qint64 bytes = 0;
    for (int row = firstRow; row <= lastRow; ++row) {
        const pugi::xml_node node = sheet.FindRow(row);
        bytes += node && node.offset_debug() < 0 ? MemoryOfRow(node) : 0;
    }
    for (const CellRange &merge : sheet.MergedCells())
        bytes += merge.firstRow > firstRow && merge.firstRow == merge.lastRow && merge.lastRow <= lastRow ? kMerge : 0;
    return bytes;
}

TemplateFault ObstacleOfSize(TemplateContext &context, TemplateSheet &sheet, const RowMove &move)
{
    if (move.Shift() > 0 && !context.package.HasMemory(MemoryOfMove(sheet, move))) {
        return {Error::LimitError,
                QCoreApplication::translate("XlsxTemplate", "Row %1 of %2 is too large to be repeated %n times.", nullptr, move.Shift())
                    .arg(QString::number(move.last), QString::fromStdString(sheet.Name()))};
    }
    int lastRow = move.last;
    sheet.ForEachRow([&lastRow](const pugi::xml_node &row, int number) {
        if (number > lastRow && ChildOf(row, "c"))
            lastRow = number;
    });
    if (qint64(lastRow) + move.Shift() <= kLastRow)
        return {};
    return Obstacle(QCoreApplication::translate("XlsxTemplate",
                                                "%1 has no room for %n rows: it ends with row %2, and row %3 would have to move down.",
                                                nullptr, move.count)
                        .arg(QString::fromStdString(sheet.Name()), QString::number(kLastRow), QString::number(lastRow)));
}

TemplateFault ObstacleOfMerges(TemplateContext &context, int index, TemplateSheet &sheet, const RowMove &move, const CellRange &filled)
{
    for (const CellRange &merge : sheet.MergedCells()) {
        const CellRange columns{1, kLastRow, filled.firstColumn, filled.lastColumn};
        if (move.Shift() > 0 && merge.RowCount() > 1 && IsConcerned(merge, move) && merge.Intersects(columns)) {
            return Obstacle(
                QCoreApplication::translate("XlsxTemplate", "The merged cells %1 reach over more than the row that is to be repeated.")
                    .arg(context.TextOf({index, merge})));
        }
    }
    return {};
}

QString WhyFormulaIsFixed(const FormulaCell &formula, bool isMoved, const RowMove &move)
{
    if (formula.isLost)
        return QCoreApplication::translate("XlsxTemplate",
                                           "The formula in %1 is shared with another cell, and missing there, or too long.");
    if (!isMoved || !IsConcerned(formula.cells, move))
        return {};
    if (formula.isDataTable)
        return QCoreApplication::translate("XlsxTemplate", "The data table %1 reaches over the row that is to be repeated.");
    if (formula.isArray && formula.cells.RowCount() > 1)
        return QCoreApplication::translate("XlsxTemplate", "The array formula in %1 reaches over the row that is to be repeated.");
    return {};
}

TemplateFault ObstacleOfFormulas(TemplateContext &context, const RowSurroundings &surroundings, const RowMove &move)
{
    TemplateFault fault;
    for (const auto &entry : surroundings.sheets) {
        const int index = entry.first;
        qint64 shared = 0;
        ForEachFormula(*entry.second, [&](const FormulaCell &formula) {
            const QString reason = fault ? QString() : WhyFormulaIsFixed(formula, index == surroundings.sheet, move);
            if (!reason.isEmpty())
                fault = Obstacle(reason.arg(context.TextOf({index, formula.cells})));
            shared += formula.shared.empty() ? 0 : MemoryOfFormula(formula.text);
        });
        // Each cell gets its own, if they must change, and that only once.
        if (!fault && !context.package.TakeMemoryOf(entry.second->PartName(), shared))
            fault = context.package.TakeMemory(shared);
    }
    return fault;
}

TemplateFault ObstacleOfTables(TemplateContext &context, const RowSurroundings &surroundings, const RowMove &move, const CellRange &filled,
                               const XmlPart *repeated)
{
    for (const Part &table : surroundings.tables) {
        const pugi::xml_node root = table.part->Root();
        const auto range = ParseRange(AttributeOf(root, "ref").value());
        if (table.sheet != surroundings.sheet || table.part == repeated || !range || !IsConcerned(*range, move))
            continue;
        const int firstData = range->firstRow + std::clamp(AttributeOf(root, "headerRowCount").as_int(1), 0, 1);
        const int lastData = range->lastRow - std::clamp(AttributeOf(root, "totalsRowCount").as_int(0), 0, 1);
        const int left = lastData - firstData + 1 + move.Shift();
        const bool holdsRows = range->firstColumn <= filled.firstColumn && range->lastColumn >= filled.lastColumn && firstData <= move.first
            && lastData >= move.last;
        if (!holdsRows || left < 1) {
            return Obstacle(
                QCoreApplication::translate("XlsxTemplate", "The table %1 (%2) stands across the row that is to be repeated.")
                    .arg(QString::fromUtf8(AttributeOf(root, "displayName").value()), context.TextOf({surroundings.sheet, *range})));
        }
    }
    return {};
}

TemplateFault ObstacleOfPivotTables(TemplateContext &context, const RowSurroundings &surroundings, const RowMove &move)
{
    for (const Part &pivotTable : surroundings.pivotTables) {
        const pugi::xml_node root = pivotTable.part->Root();
        const auto range = ParseRange(AttributeOf(ChildOf(root, "location"), "ref").value());
        if (range && range->lastRow >= FirstConcerned(move)) {
            return Obstacle(
                QCoreApplication::translate("XlsxTemplate", "The pivot table %1 (%2) would have to move with the rows, and cannot.")
                    .arg(QString::fromUtf8(AttributeOf(root, "name").value()), context.TextOf({surroundings.sheet, *range})));
        }
    }
    return {};
}

/// What a sheet and its parts say of the rows, beside the formulas in cells.
void MoveSheet(int index, TemplateSheet &sheet, const RowSurroundings &surroundings, const RowMove &move)
{
    if (index == surroundings.sheet)
        sheet.Part().ChangedEverywhere();
    MoveCellFormulas(sheet, move);
    bool isChanged = MoveFormulas(sheet.Worksheet(), sheet.Name(), move);
    if (index == surroundings.sheet) {
        isChanged = MoveRanges(sheet.Worksheet(), move) || isChanged;
        RepeatCells(sheet, move);
    }
    if (isChanged)
        sheet.Part().ChangedEverywhere();
}

template <typename Move>
void MoveParts(const std::vector<Part> &parts, const Move &move)
{
    for (const Part &part : parts) {
        if (move(part.part->Root(), part.sheet))
            part.part->ChangedEverywhere();
    }
}

} // namespace

TemplateFault ReadSurroundings(TemplateContext &context, int sheet, RowSurroundings &surroundings)
{
    surroundings.sheet = sheet;
    for (int i = 0; i < context.workbook.SheetCount(); ++i) {
        if (!context.package.Has(context.workbook.SheetPartName(i)))
            continue; // listed, but not there
        TemplateFault fault;
        const XmlPart *part = context.package.ParsedIf(context.workbook.SheetPartName(i), MayReferToCells, fault);
        if (fault)
            return fault;
        if (i == sheet || (part && IsElement(part->Root(), "worksheet"))) { // a chart may be a sheet, too
            TemplateSheet *parsed = context.workbook.Sheet(i, fault);
            if (!parsed)
                return fault;
            surroundings.sheets.push_back({i, parsed});
        }
        if ((fault = ReadPartsOfSheet(context, i, surroundings)))
            return fault;
    }
    return ReadParts(context, context.workbook.PartsOf(context.workbook.PartName(), {"pivotCacheDefinition"}), sheet,
                     surroundings.pivotSources);
}

qint64 MemoryOfMove(TemplateSheet &sheet, const RowMove &move)
{
    if (move.Shift() > 0)
        return move.Shift() * MemoryRepeatedWith(move.last, sheet);
    return -MemoryOfMadeRows(FirstConcerned(move), move.last, sheet);
}

TemplateFault FindObstacle(TemplateContext &context, const RowSurroundings &surroundings, const RowMove &move, const CellRange &filled,
                           const XmlPart *repeated)
{
    TemplateFault fault;
    TemplateSheet &sheet = *context.workbook.Sheet(surroundings.sheet, fault);
    if ((fault = ObstacleOfSize(context, sheet, move)))
        return fault;
    if ((fault = ObstacleOfMerges(context, surroundings.sheet, sheet, move, filled)))
        return fault;
    if ((fault = ObstacleOfFormulas(context, surroundings, move)))
        return fault;
    if ((fault = ObstacleOfTables(context, surroundings, move, filled, repeated)))
        return fault;
    return ObstacleOfPivotTables(context, surroundings, move);
}

void MoveSurroundings(TemplateContext &context, const RowSurroundings &surroundings, const RowMove &move,
                      const pugi::xml_node &repeatedName)
{
    std::vector<std::string> sheetNames;
    for (int i = 0; i < context.workbook.SheetCount(); ++i)
        sheetNames.push_back(context.workbook.SheetName(i));
    XmlPart &workbook = context.workbook.Part();
    if (MoveNames(workbook.Root(), sheetNames, repeatedName, move))
        workbook.Changed(ChildOf(workbook.Root(), "definedNames"));

    for (const auto &[index, sheet] : surroundings.sheets)
        MoveSheet(index, *sheet, surroundings, move);
    const auto nameOf = [&sheetNames](int sheet) -> const std::string & { return sheetNames[std::size_t(sheet)]; };
    const auto isMoved = [&surroundings](int sheet) { return sheet == surroundings.sheet; };
    MoveParts(surroundings.tables, [&](const pugi::xml_node &root, int sheet) {
        const bool isChanged = MoveFormulas(root, nameOf(sheet), move);
        return (isMoved(sheet) && MoveRanges(root, move)) || isChanged;
    });
    MoveParts(surroundings.drawings, [&](const pugi::xml_node &root, int sheet) {
        const bool isChanged = MoveShapeLinks(root, nameOf(sheet), move);
        return (isMoved(sheet) && MoveAnchors(root, move)) || isChanged;
    });
    MoveParts(surroundings.oldDrawings, [&](const pugi::xml_node &root, int sheet) { return MoveOldShapes(root, nameOf(sheet), move); });
    MoveParts(surroundings.controls, [&](const pugi::xml_node &root, int sheet) { return MoveShapeLinks(root, nameOf(sheet), move); });
    MoveParts(surroundings.comments, [&](const pugi::xml_node &root, int) { return MoveComments(root, move); });
    MoveParts(surroundings.charts, [&](const pugi::xml_node &root, int) { return MoveChartData(root, move); });
    MoveParts(surroundings.pivotSources, [&](const pugi::xml_node &root, int) { return MovePivotSource(root, move); });
}

} // namespace Velmora
