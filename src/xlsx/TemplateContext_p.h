#pragma once

#include "xlsx/SharedStrings_p.h"
#include "xlsx/TemplateStyles_p.h"
#include "xlsx/TemplateWorkbook_p.h"

#include <vector>

namespace Velmora {

/// A loaded template: what its operations share.
struct TemplateContext
{
    XlsxPackage package;
    TemplateWorkbook workbook;
    SharedStrings strings;
    TemplateStyles styles;
    bool takesValuesOutsideLists = false;
    /// What was changed since the results of formulas were last looked through.
    std::vector<Place> changed;

    /// "Sheet1!B3" of a cell or range, for messages.
    QString TextOf(const Place &place) const;
};

/// Puts \a value into a cell; the caller has found that it may. CellFault() tells.
TemplateFault PutValue(TemplateContext &context, TemplateSheet &sheet, int row, int column, const QVariant &value);
/// Why that cell cannot take \a value: the value itself, its list, an array formula, a merged cell.
TemplateFault CellFault(TemplateContext &context, int sheet, int row, int column, const QVariant &value);
/// What a cell holds; invalid if there is no such cell.
QVariant CellValue(TemplateContext &context, const pugi::xml_node &cell);

} // namespace Velmora
