#pragma once

#include "xlsx/CellFormulas_p.h"
#include "xlsx/CellLists_p.h"
#include "xlsx/CellValue_p.h"
#include "xlsx/ListEntries_p.h"
#include "xlsx/PictureFrame_p.h"
#include "xlsx/PictureIndex_p.h"
#include "xlsx/SharedStrings_p.h"
#include "xlsx/TemplateStyles_p.h"
#include "xlsx/TemplateWorkbook_p.h"

#include <QVariant>

#include <map>
#include <vector>

namespace Velmora {

/// A loaded template: what its operations share, and what they do to single cells.
class TemplateContext
{
public:
    XlsxPackage package;
    TemplateWorkbook workbook;
    SharedStrings strings;
    TemplateStyles styles;
    bool takesValuesOutsideLists = false;
    /// What was changed since the results of formulas were last looked through. PutContent() and PutFormula() tell by themselves.
    std::vector<Place> changed;

    TemplateFault Load(const QByteArray &bytes);

    /// "Sheet1!B3" of a cell or range, for messages.
    QString TextOf(const Place &place) const;
    /// \a fault with its place in front.
    TemplateFault At(int sheet, int row, int column, const TemplateFault &fault) const;

    /// What a cell holds; invalid if there is no such cell, or with a fault if that cannot be told.
    QVariant ValueOf(const pugi::xml_node &cell, TemplateFault &fault);

    /// The lists of a sheet; null if it cannot be read.
    CellLists *ListsOf(int sheet);
    /// What the list of a cell in that sheet takes from \a source. Good until the next change.
    const ListEntries &EntriesOf(int sheet, const std::string &source);
    /// To be told after cells have lost results.
    void ForgetEntries() { m_entries.reset(); }
    /// To be told after a list was changed.
    void ForgetLists(int sheet);

    PictureIndex &Pictures();
    /// Of a sheet; null if it cannot be read. Good until another sheet's are asked for.
    const CellExtents *ExtentsOf(int sheet);

    // Each change is asked for first and done then, so that nothing is changed if one of many cannot be.

    /// Why that cell cannot be changed even to be emptied: it is the header of a table's column, or one of several of an
    /// array formula or a data table.
    TemplateFault FaultOfGroup(int sheet, int row, int column);
    /// Why nothing can be put there: FaultOfGroup(), or another cell is merged over it.
    TemplateFault FaultOfCell(int sheet, int row, int column);
    /// Why that cell cannot take \a value, which is one for a cell: FaultOfCell(), or its list.
    TemplateFault FaultOfChoice(int sheet, int row, int column, const QVariant &value);
    /// Why that cell cannot take \a value, which would be \a content there: also because of the value, or its list.
    TemplateFault FaultOfValue(int sheet, int row, int column, const QVariant &value, CellContent &content);
    /// Puts what ContentOf() made of a value into a cell. Nothing is made where there is nothing to take out.
    TemplateFault PutContent(int sheet, int row, int column, const CellContent &content);
    TemplateFault PutValue(int sheet, int row, int column, const QVariant &value);
    /// Without an equals sign.
    TemplateFault PutFormula(int sheet, int row, int column, const std::string &formula);

    /// To be told after rows or cells of a sheet were put in, taken out or renumbered by hand.
    void ForgetRows(int sheet);

private:
    QVariant SharedText(unsigned index, TemplateFault &fault);
    void EmptyCell(TemplateSheet &sheet, int index, pugi::xml_node cell, int row, int column);
    void CellChanged(int sheet, int row, int column);
    void ForgetRepetitions();
    CellFormulas &FormulasOf(int index, TemplateSheet &sheet);

    std::map<int, std::unique_ptr<CellFormulas>> m_formulas; ///< by sheet
    std::map<int, std::unique_ptr<CellLists>> m_lists;       ///< by sheet
    std::unique_ptr<PictureIndex> m_pictures;
    std::unique_ptr<CellExtents> m_extents;
    int m_sheetOfExtents = -1;
    std::unique_ptr<ListEntries> m_entries; ///< those asked for last
    QVariant m_longText;                    ///< the long one that was read last: many cells may share it
    unsigned m_longTextIndex = 0;
    std::size_t m_mostChanged = 1024; ///< before changed is looked through for what is in it more than once
};

} // namespace Velmora
