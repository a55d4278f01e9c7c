#pragma once

#include "xlsx/CellReference_p.h"
#include "xlsx/TemplateSheet_p.h"
#include "xlsx/XlsxPackage_p.h"

#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Velmora {

/// A range of the sheet with that index.
struct Place
{
    int sheet = 0;
    CellRange range;
};

/// A defined name or a table.
struct TemplateName
{
    std::string display; ///< as XlsxTemplate::names() has it: Sheet1!Total for one of a sheet
    std::string name;    ///< as formulas have it
    int localSheet = -1; ///< the sheet that a local name belongs to
    NameMeaning::Kind kind = NameMeaning::Kind::Places;
    bool leadsNowhere = false; ///< to a sheet that is not there, or to one that has no cells
    std::vector<Place> places; ///< of a table: its data rows
    pugi::xml_node node;       ///< the workbook's definedName; of a table: its part's root
    XmlPart *table = nullptr;  ///< of a table

    bool IsTable() const { return table; }
};

/// The workbook part and what it leads to.
class TemplateWorkbook
{
public:
    TemplateFault Load(XlsxPackage &package);

    XmlPart &Part() const { return *m_part; }
    const std::string &PartName() const { return m_partName; }
    bool CountsFrom1904() const { return m_countsFrom1904; }

    int SheetCount() const { return int(m_sheets.size()); }
    const std::string &SheetName(int sheet) const { return m_sheets[std::size_t(sheet)].name; }
    /// Empty if the sheet has none.
    const std::string &SheetPartName(int sheet) const { return m_sheets[std::size_t(sheet)].partName; }
    /// -1 if there is none; found whatever its case.
    int SheetIndex(const std::string &name) const;
    /// The parsed sheet, or null with a fault: damaged, or a sheet without cells, such as a chart.
    TemplateSheet *Sheet(int sheet, TemplateFault &fault);

    /// Defined names in the workbook's order, then tables. Those that programs keep for themselves (_xlnm.) are not in it.
    const std::vector<TemplateName> &Names() const { return m_names; }
    /// By its display name, whatever its case; null if there is none.
    const TemplateName *FindName(const std::string &display) const;
    /// The table of which that cell is the header of a column; null if it is none.
    const TemplateName *TableHeadedBy(int sheet, int row, int column) const;
    /// Reads names and tables anew, after their references were changed.
    void ForgetNames();
    /// The parts that a part leads to by relationships of these types.
    std::vector<std::string> PartsOf(const std::string &part, std::initializer_list<const char *> types) const;
    /// The charts in the drawings of a sheet.
    std::vector<std::string> ChartPartsOf(int sheet) const;

    /// What was opened as a template of an office program (.xltx) becomes an ordinary workbook, which these programs want in any other
    /// file, or a template again. All else stays what it is.
    TemplateFault SetTemplate(bool isTemplate);
    /// Says that all is to be computed when the file is opened, and takes the calculation chain out of the package.
    TemplateFault RequireCalculation();

private:
    struct SheetEntry
    {
        std::string name;
        std::string partName;
        std::string type; ///< worksheet, chartsheet, dialogsheet
        std::unique_ptr<TemplateSheet> parsed;
    };

    bool HasCells(int sheet) const { return m_sheets[std::size_t(sheet)].type == "worksheet"; }
    void ReadSheets();
    void ReadNames();
    void ReadTables();
    bool AddName(TemplateName name);

    XlsxPackage *m_package = nullptr;
    std::string m_partName;
    XmlPart *m_part = nullptr;
    bool m_countsFrom1904 = false;
    bool m_wasTemplate = false;
    std::vector<SheetEntry> m_sheets;
    std::map<std::string, int> m_sheetIndex; ///< by folded name
    std::vector<TemplateName> m_names;
    std::map<int, RangeIndex> m_headers;            ///< of the tables of each sheet; their owners are names
    std::map<std::string, std::size_t> m_nameIndex; ///< by folded display name
};

} // namespace Velmora
