#pragma once

#include "xlsx/Formula_p.h"
#include "xlsx/TemplateSheet_p.h"

namespace Velmora {

/// Moves the references in the formulas of a sheet's cells. In the sheet whose rows move, shared formulas become formulas of their own.
void MoveCellFormulas(TemplateSheet &sheet, const RowMove &move);

/// Puts copies of the last of the rows behind it, or takes out those that go, and gives the rows below their new numbers. Formulas have
/// been moved.
void RepeatCells(TemplateSheet &sheet, const RowMove &move);

} // namespace Velmora
