#pragma once

#include "xlsx/TemplateSheet_p.h"

#include <functional>
#include <string>

namespace Velmora {

/// A cell with a formula, as it reads: that of a shared formula has its own text, too.
struct FormulaCell
{
    pugi::xml_node cell;
    pugi::xml_node formula; ///< the element f
    int row = 0;
    int column = 0;
    CellRange cells; ///< what it fills: more than its own cell for an array formula or a data table
    std::string text;
    std::string shared; ///< the number of a shared formula, or empty
    bool isArray = false;
    bool isDataTable = false;
    bool isLost = false; ///< the shared formula is nowhere, or it is too long, or all together are
};

/// Calls \a visit for each formula of a sheet: those that only name a shared formula come last.
void ForEachFormula(const TemplateSheet &sheet, const std::function<void(FormulaCell &)> &visit);

/// True if the bytes of a part may hold an element f, so that one without need not be parsed.
bool MayHaveFormulas(const QByteArray &bytes);

/// Takes the result out of a cell with a formula, or one that an array formula fills. True if there was one.
bool RemoveResult(pugi::xml_node cell);

} // namespace Velmora
