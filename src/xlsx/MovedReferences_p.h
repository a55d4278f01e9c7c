#pragma once

#include "xlsx/Formula_p.h"
#include "xlsx/XmlPart_p.h"

#include <string_view>
#include <vector>

namespace Velmora {

// What parts say of rows, when these move. All functions return whether they changed anything.

/// The elements in \a root, itself included, but not what is in a sheetData: from the last to the first, so that an element may be taken
/// out when its turn comes.
std::vector<pugi::xml_node> ElementsIn(const pugi::xml_node &root);

/// The text of an element, or of an attribute, is a formula.
bool MoveFormulaIn(pugi::xml_node element, std::string_view ownSheet, const RowMove &move, Growth growth);
bool MoveFormulaIn(pugi::xml_attribute attribute, std::string_view ownSheet, const RowMove &move, Growth growth);

/// The formulas of a worksheet or a table but those of its cells: of validations, conditional formats, sparklines, links, columns.
bool MoveFormulas(const pugi::xml_node &root, std::string_view ownSheet, const RowMove &move);
/// The ranges that a worksheet or a table names: merged cells, formats, validations, filters, breaks, what is selected. Its cells are
/// none of them. To be called after MoveFormulas().
bool MoveRanges(const pugi::xml_node &root, const RowMove &move);
/// The rows between which the shapes of a drawing lie, and the cells that they show.
bool MoveAnchors(const pugi::xml_node &root, const RowMove &move);
bool MoveShapeLinks(const pugi::xml_node &root, std::string_view ownSheet, const RowMove &move);
/// The same for the old kind of drawing, which holds the frames of comments.
bool MoveOldShapes(const pugi::xml_node &root, std::string_view ownSheet, const RowMove &move);
/// The cells of comments; those whose row goes away go with it.
bool MoveComments(const pugi::xml_node &root, const RowMove &move);
/// The data of a chart: what it shows of them is taken out where they are others.
bool MoveChartData(const pugi::xml_node &root, const RowMove &move);
/// The cells from which a pivot table has its data.
bool MovePivotSource(const pugi::xml_node &root, const RowMove &move);
/// The workbook's names but that with the node \a repeated, which stands for all of the rows.
bool MoveNames(const pugi::xml_node &workbook, const std::vector<std::string> &sheetNames, const pugi::xml_node &repeated,
               const RowMove &move);

} // namespace Velmora
