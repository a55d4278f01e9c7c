#pragma once

#include "xlsx/FormulaDependencies_p.h"
#include "xlsx/TemplateContext_p.h"

#include <string>
#include <vector>

namespace Velmora {

/// What shows cells beside formulas, and keeps a copy of what they held: a series or title of a chart, the data of a pivot table.
struct CellView
{
    XmlPart *part;
    pugi::xml_node node; ///< the reference to the cells, with the copy; of a pivot table's data: all of them
    std::string cells;   ///< as a formula names them
};

/// Those of the workbook. What cannot be read is left out.
std::vector<CellView> FindCellViews(TemplateContext &context);

/// Takes the copy out, since office programs make it anew from the cells. That of a title becomes what its cell holds, because not all of
/// them look at the cell. Pivot tables are to be made anew when the file is opened.
void Renew(TemplateContext &context, const CellView &view);

} // namespace Velmora
