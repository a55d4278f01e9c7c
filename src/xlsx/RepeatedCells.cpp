#include "xlsx/RepeatedCells_p.h"

#include "xlsx/FormulaCells_p.h"

#include <cstring>
#include <set>
#include <utility>

namespace Velmora {

namespace {

/// A formula, and what it becomes.
struct MovedFormula
{
    FormulaCell cell;
    std::optional<std::string> moved;
};

/// True if the result may be another one though all that the formula names only moved.
bool KnowsItsRow(const std::string &text)
{
    return text.find("ROW") != std::string::npos || text.find("row") != std::string::npos;
}

/// The cells of a data table, or of any formula in several cells, and the cells that a data table puts its values into.
void MoveReferenceAttributes(pugi::xml_node formula, const TemplateSheet &sheet, const RowMove &move)
{
    for (const auto &[name, deleted] : {std::pair{"ref", ""}, std::pair{"r1", "del1"}, std::pair{"r2", "del2"}}) {
        pugi::xml_attribute attribute = AttributeOf(formula, name);
        const auto moved = attribute ? MovedByRows(attribute.value(), sheet.Name(), move, Growth::None) : std::nullopt;
        if (!moved)
            continue;
        if (*moved != "#REF!")
            attribute.set_value(moved->c_str());
        else if (!AttributeOf(formula, deleted))
            formula.append_attribute(deleted).set_value(1); // a reference to nothing is none there
    }
}

/// Writes the formula of a cell anew, by itself.
void Write(MovedFormula &formula)
{
    pugi::xml_node element = formula.cell.formula;
    SetOwnText(element, formula.moved ? *formula.moved : formula.cell.text);
    if (formula.cell.shared.empty())
        return;
    for (const char *name : {"t", "si", "ref"})
        element.remove_attribute(AttributeOf(element, name));
}

/// The cells of a row that stands for others: what differs between these.
struct CellPattern
{
    std::string column;
    std::string formula;
    std::optional<CellRange> array;
};

std::vector<CellPattern> ReadPattern(const pugi::xml_node &row)
{
    std::vector<CellPattern> pattern;
    TemplateSheet::ForEachCellOf(row, [&pattern](const pugi::xml_node &cell, int column) {
        CellPattern read;
        read.column = ColumnName(column);
        if (const pugi::xml_node formula = ChildOf(cell, "f")) {
            RemoveResult(cell);
            read.formula = OwnText(formula);
            read.array = ParseRange(AttributeOf(formula, "ref").value());
        }
        pattern.push_back(std::move(read));
    });
    return pattern;
}

void SetRow(pugi::xml_node row, int number)
{
    SetAttribute(row, "r", std::to_string(number).c_str());
    const std::string digits = std::to_string(number);
    for (pugi::xml_node cell = ChildOf(row, "c"); cell; cell = NextOfItsName(cell)) {
        pugi::xml_attribute attribute = AttributeOf(cell, "r");
        const std::string_view before = attribute.value();
        if (!before.empty())
            attribute.set_value((std::string(before.substr(0, before.find_first_of("0123456789"))) + digits).c_str());
    }
}

/// Makes a fresh copy of the row into the one that stands \a distance further down.
void FillCopy(pugi::xml_node row, const std::vector<CellPattern> &pattern, int number, int distance)
{
    SetAttribute(row, "r", std::to_string(number).c_str());
    const std::string digits = std::to_string(number);
    auto cells = pattern.begin();
    for (pugi::xml_node cell = ChildOf(row, "c"); cell; cell = NextOfItsName(cell), ++cells) {
        SetAttribute(cell, "r", (cells->column + digits).c_str());
        if (cells->formula.empty())
            continue;
        pugi::xml_node formula = ChildOf(cell, "f");
        SetOwnText(formula, Translated(cells->formula, distance, 0));
        if (cells->array) {
            const CellRange &array = *cells->array;
            SetAttribute(formula, "ref",
                         RangeText({array.firstRow + distance, array.lastRow + distance, array.firstColumn, array.lastColumn}).c_str());
        }
    }
}

} // namespace

void MoveCellFormulas(TemplateSheet &sheet, const RowMove &move)
{
    const bool isMoved = IsSameName(sheet.Name(), move.sheet);
    std::vector<MovedFormula> formulas;
    std::set<std::string> unshared; // one that no longer shares leaves the others none
    ForEachFormula(sheet, [&](FormulaCell &cell) {
        const bool isInRows = isMoved && cell.row >= move.first && cell.row <= move.last;
        MovedFormula formula;
        formula.moved = MovedByRows(cell.text, sheet.Name(), move, isInRows ? Growth::Fixed : Growth::Ranges);
        if (!cell.shared.empty() && !cell.isLost && (isMoved || formula.moved))
            unshared.insert(cell.shared);
        const bool isToBeSeen = isMoved || formula.moved || !cell.shared.empty();
        formula.cell = std::move(cell);
        if (isToBeSeen)
            formulas.push_back(std::move(formula));
    });
    for (MovedFormula &formula : formulas) {
        const FormulaCell &cell = formula.cell;
        const bool isUnshared = !cell.isLost && unshared.count(cell.shared) > 0;
        if (!cell.isLost && (formula.moved || isUnshared))
            Write(formula);
        if (isMoved)
            MoveReferenceAttributes(cell.formula, sheet, move);
        const bool isStale = formula.moved || (isMoved && cell.row >= move.first && KnowsItsRow(cell.text));
        const bool isChanged = (isStale && RemoveResult(cell.cell)) || formula.moved || isUnshared;
        if (isChanged)
            sheet.CellChanged(cell.cell);
    }
}

void RepeatCells(TemplateSheet &sheet, const RowMove &move)
{
    std::vector<std::pair<pugi::xml_node, int>> rows;
    sheet.ForEachRow([&](const pugi::xml_node &row, int number) {
        if (number >= move.first)
            rows.emplace_back(row, number);
    });
    pugi::xml_node data = sheet.SheetData();
    pugi::xml_node repeated;
    for (const auto &[row, number] : rows) {
        const int moved = move.Moved(number);
        if (number == move.last && move.Shift() > 0)
            repeated = repeated ? repeated : row;
        else if (moved == 0 || moved > kLastRow)
            data.remove_child(row);
        else if (number > move.last)
            SetRow(row, moved);
    }
    if (repeated) {
        const std::vector<CellPattern> pattern = ReadPattern(repeated);
        SetRow(repeated, move.last);
        pugi::xml_node last = repeated;
        for (int distance = 1; distance <= move.Shift(); ++distance) {
            last = data.insert_copy_after(repeated, last);
            FillCopy(last, pattern, move.last + distance, distance);
        }
    }
    sheet.ForgetRows();
}

} // namespace Velmora
