#pragma once

#include "xlsx/XlsxPackage_p.h"

#include <map>
#include <string>
#include <vector>

namespace Velmora {

/// What cells look like, as far as dates go.
class TemplateStyles
{
public:
    enum class Shows { Number, Date, Time, DateTime };

    /// \a workbook is the workbook's part, which leads to that of the styles, and gets one if it must.
    void SetWorkbook(XlsxPackage &package, const std::string &workbook);

    /// Why styles cannot be made.
    TemplateFault FaultOfReading();
    /// What the number format of that style shows of a number; a fault if the styles cannot be read.
    Shows ShownBy(unsigned style, TemplateFault &fault);
    /// A style like \a style that shows that. Nothing changes if it does.
    TemplateFault StyleShowing(Shows what, unsigned style, unsigned &result);

private:
    void Read();
    TemplateFault MakePart();
    unsigned FormatOf(unsigned style) const;

    XlsxPackage *m_package = nullptr;
    std::string m_workbook;
    XmlPart *m_part = nullptr; ///< null if the workbook has none
    bool m_isRead = false;
    TemplateFault m_fault;
    std::vector<pugi::xml_node> m_cellFormats;
    std::map<unsigned, std::string> m_numberFormats;
    std::map<std::pair<Shows, unsigned>, unsigned> m_made;
    std::map<unsigned, Shows> m_shown;
};

/// What a number format shows: dates and times by its letters outside quotes, brackets and escapes.
TemplateStyles::Shows ShownByFormat(const std::string &format);

} // namespace Velmora
