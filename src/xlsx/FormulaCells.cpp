#include "xlsx/FormulaCells_p.h"

#include "xlsx/Formula_p.h"

#include <algorithm>
#include <cstring>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Velmora {

namespace {

constexpr std::size_t kMostSharedBytes = std::size_t(64) * 1024;            // programs write up to 8,192 characters
constexpr std::size_t kMostTranslatedBytes = std::size_t(64) * 1024 * 1024; // of all cells of a sheet with shared formulas

struct SharedFormula
{
    int row;
    int column;
    std::string text;
};

FormulaCell ReadFormula(const pugi::xml_node &cell, const pugi::xml_node &formula, int row, int column)
{
    const std::string_view type = AttributeOf(formula, "t").value();
    FormulaCell read;
    read.cell = cell;
    read.formula = formula;
    read.row = row;
    read.column = column;
    read.cells = {row, row, column, column};
    read.isArray = type == "array";
    read.isDataTable = type == "dataTable";
    if (read.isArray || read.isDataTable)
        read.cells = ParseRange(AttributeOf(formula, "ref").value()).value_or(read.cells);
    if (type == "shared")
        read.shared = AttributeOf(formula, "si").value();
    read.text = OwnText(formula);
    return read;
}

} // namespace

void ForEachFormula(const TemplateSheet &sheet, const std::function<void(FormulaCell &)> &visit)
{
    std::unordered_map<std::string, SharedFormula> shared;
    std::vector<FormulaCell> sharing;
    sheet.ForEachCell([&](const pugi::xml_node &cell, int row, int column) {
        const pugi::xml_node formula = ChildOf(cell, "f");
        if (!formula)
            return;
        FormulaCell read = ReadFormula(cell, formula, row, column);
        if (!read.shared.empty() && read.text.empty()) {
            sharing.push_back(std::move(read));
            return;
        }
        if (!read.shared.empty())
            shared.insert({read.shared, {row, column, read.text}});
        visit(read);
    });
    std::size_t bytesLeft = kMostTranslatedBytes;
    for (FormulaCell &cell : sharing) {
        const auto found = shared.find(cell.shared);
        cell.isLost = found == shared.end() || found->second.text.size() > std::min(kMostSharedBytes, bytesLeft);
        if (!cell.isLost) {
            const SharedFormula &formula = found->second;
            bytesLeft -= formula.text.size();
            cell.text = Translated(formula.text, cell.row - formula.row, cell.column - formula.column);
        }
        visit(cell);
    }
}

bool MayHaveFormulas(const QByteArray &bytes)
{
    const QByteArray begin = bytes.left(4);
    if (begin.contains('\0') || begin.startsWith("\xff\xfe") || begin.startsWith("\xfe\xff"))
        return true; // in another encoding
    for (auto at = bytes.indexOf('f', 1); at > 0 && at + 1 < bytes.size(); at = bytes.indexOf('f', at + 1)) {
        if ((bytes[at - 1] == '<' || bytes[at - 1] == ':') && std::strchr("> /\t\r\n", bytes[at + 1]))
            return true;
    }
    return false;
}

bool RemoveResult(pugi::xml_node cell)
{
    bool hasResult = false;
    for (const char *name : {"v", "is"}) {
        while (const pugi::xml_node result = ChildOf(cell, name)) {
            cell.remove_child(result);
            hasResult = true;
        }
    }
    if (hasResult)
        cell.remove_attribute(AttributeOf(cell, "t"));
    return hasResult;
}

} // namespace Velmora
