#include "xlsx/StaleResults_p.h"

#include "xlsx/CellViews_p.h"
#include "xlsx/FormulaCells_p.h"
#include "xlsx/FormulaDependencies_p.h"

#include <map>

namespace Velmora {

namespace {

struct PlacedFormula
{
    int sheet;
    CellRange cells;
    pugi::xml_node cell;
};

void AddNames(const TemplateWorkbook &workbook, FormulaDependencies &dependencies)
{
    for (const TemplateName &name : workbook.Names()) {
        if (!name.IsTable()) {
            dependencies.AddName(name.name, name.localSheet, OwnText(name.node));
        } else if (!name.places.empty()) {
            const std::optional<CellRange> range = ParseRange(AttributeOf(name.node, "ref").value());
            dependencies.AddTable(name.name, name.places.front().sheet, range.value_or(name.places.front().range));
        }
    }
}

bool HasResult(const pugi::xml_node &cell)
{
    return ChildOf(cell, "v") || ChildOf(cell, "is");
}

/// Where cells have changed, by sheet.
std::map<int, RangeIndex> ChangesOf(const TemplateContext &context)
{
    std::map<int, RangeIndex> changes;
    for (const Place &place : context.changed)
        changes[place.sheet].Add(place.range, 0);
    for (auto &[sheet, ranges] : changes)
        ranges.Build();
    return changes;
}

/// Adds the formulas of all sheets to \a dependencies, and tells where they stand by the numbers that they have there.
TemplateFault AddFormulas(TemplateContext &context, FormulaDependencies &dependencies, std::vector<PlacedFormula> &formulas)
{
    std::map<int, RangeIndex> changes = ChangesOf(context);
    for (int i = 0; i < context.workbook.SheetCount(); ++i) {
        if (!context.package.Has(context.workbook.SheetPartName(i)))
            continue; // listed, but not there
        TemplateFault fault;
        const XmlPart *part = context.package.ParsedIf(context.workbook.SheetPartName(i), MayHaveFormulas, fault);
        if (fault)
            return fault;
        // A formula that was put in since has no result, and is itself among what changed.
        if (!part || !IsElement(part->Root(), "worksheet") || (!part->Source().isNull() && !MayHaveFormulas(part->Source())))
            continue;
        const TemplateSheet *sheet = context.workbook.Sheet(i, fault);
        if (!sheet)
            return fault;
        ForEachFormula(*sheet, [&](const FormulaCell &formula) {
            // It has none to lose, and what uses it uses what changed: so it is with all that were made of a repeated row.
            if (formula.cells.IsCell() && !HasResult(formula.cell) && changes[i].Meets(formula.cells))
                return;
            formulas.push_back({i, formula.cells, formula.cell});
            if (formula.isDataTable || formula.isLost)
                dependencies.AddVolatileFormula(i, formula.cells);
            else
                dependencies.AddFormula(i, formula.cells, formula.text);
        });
    }
    return {};
}

void RemoveResultOf(TemplateSheet &sheet, const pugi::xml_node &cell)
{
    if (RemoveResult(cell))
        sheet.CellChanged(cell);
}

/// Takes the results out of the cells that array formulas fill beside the one in which they stand: these have no formula.
void RemoveResultsIn(TemplateSheet &sheet, RangeIndex &arrays)
{
    arrays.Build();
    sheet.ForEachCell([&](const pugi::xml_node &cell, int row, int column) {
        if (arrays.Meets({row, row, column, column}) && !ChildOf(cell, "f"))
            RemoveResultOf(sheet, cell);
    });
}

} // namespace

TemplateFault RemoveStaleResults(TemplateContext &context)
{
    std::vector<std::string> sheetNames;
    for (int i = 0; i < context.workbook.SheetCount(); ++i)
        sheetNames.push_back(context.workbook.SheetName(i));
    FormulaDependencies dependencies(sheetNames);
    AddNames(context.workbook, dependencies);
    std::vector<PlacedFormula> formulas;
    if (const TemplateFault fault = AddFormulas(context, dependencies, formulas))
        return fault;
    const std::vector<CellView> views = FindCellViews(context);
    for (const CellView &view : views)
        dependencies.AddView(view.cells);
    for (const Place &place : context.changed)
        dependencies.AddChange(place.sheet, place.range);

    std::map<int, RangeIndex> arrays;
    const std::vector<bool> stale = dependencies.Stale();
    TemplateFault none; // these sheets have been read
    for (std::size_t i = 0; i < formulas.size(); ++i) {
        if (!stale[i])
            continue;
        const PlacedFormula &formula = formulas[i];
        RemoveResultOf(*context.workbook.Sheet(formula.sheet, none), formula.cell);
        if (!formula.cells.IsCell())
            arrays[formula.sheet].Add(formula.cells, 0);
    }
    for (auto &[sheet, ranges] : arrays)
        RemoveResultsIn(*context.workbook.Sheet(sheet, none), ranges);
    for (std::size_t i = 0; i < views.size(); ++i) {
        if (stale[formulas.size() + i])
            Renew(context, views[i]);
    }
    return {};
}

} // namespace Velmora
