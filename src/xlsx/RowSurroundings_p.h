#pragma once

#include "xlsx/Formula_p.h"
#include "xlsx/TemplateContext_p.h"

#include <vector>

namespace Velmora {

/// All parsed parts that a move of rows in a sheet may have to change, or that stand in its way.
struct RowSurroundings
{
    struct Part
    {
        int sheet; ///< that it belongs to
        XmlPart *part;
    };
    int sheet = 0;                                       ///< whose rows move
    std::vector<std::pair<int, TemplateSheet *>> sheets; ///< that one, and those with formulas
    std::vector<Part> tables;
    std::vector<Part> drawings;
    std::vector<Part> oldDrawings;
    std::vector<Part> comments;
    std::vector<Part> controls;
    std::vector<Part> pivotTables;
    std::vector<Part> charts;
    std::vector<Part> pivotSources; ///< of the workbook
};

/// Parses them.
TemplateFault ReadSurroundings(TemplateContext &context, int sheet, RowSurroundings &surroundings);

/// What the move makes in memory; less than nothing if rows go that were made.
qint64 MemoryOfMove(TemplateSheet &sheet, const RowMove &move);

/// What stands in the way of the move: it would have to be moved, stretched or repeated, and cannot be. \a filled are the cells that
/// will be filled in, \a repeated is the part of the table whose rows these are, if they are a table's.
TemplateFault FindObstacle(TemplateContext &context, const RowSurroundings &surroundings, const RowMove &move, const CellRange &filled,
                           const XmlPart *repeated);

/// Moves all that refers to the rows, or lies below them: cells, formulas, whatever is placed by rows. Names are to be
/// read anew.
void MoveSurroundings(TemplateContext &context, const RowSurroundings &surroundings, const RowMove &move,
                      const pugi::xml_node &repeatedName);

} // namespace Velmora
