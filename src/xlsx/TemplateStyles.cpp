#include "xlsx/TemplateStyles_p.h"

#include <algorithm>

namespace Velmora {

namespace {

using Shows = TemplateStyles::Shows;

// Formats that programs show as the user's country writes them.
constexpr unsigned kDateFormat = 14;
constexpr unsigned kTimeFormat = 21;
constexpr unsigned kDateTimeFormat = 22;

/// The formats that every workbook has, and none says.
Shows ShownByBuiltIn(unsigned format)
{
    if (format == kDateTimeFormat)
        return Shows::DateTime;
    if ((format >= 14 && format <= 17) || (format >= 27 && format <= 31) || format == 36 || (format >= 50 && format <= 54) || format == 57
        || format == 58)
        return Shows::Date;
    if ((format >= 18 && format <= 21) || (format >= 32 && format <= 35) || (format >= 45 && format <= 47) || format == 55 || format == 56)
        return Shows::Time;
    return Shows::Number;
}

bool IsOneOf(char c, const char *letters)
{
    return std::strchr(letters, c) && c;
}

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

/// The letters of the first section of a format, each run of one letter once, in lower case; without what it shows as it stands.
std::string LettersOf(const std::string &format)
{
    std::string letters;
    for (std::size_t i = 0; i < format.size() && format[i] != ';'; ++i) {
        const char c = format[i];
        if (c == '"') {
            i = std::min(format.find('"', i + 1), format.size());
        } else if (c == '\\' || c == '_' || c == '*') {
            ++i;
        } else if (c == '[') {
            const std::size_t end = std::min(format.find(']', i), format.size());
            // [h] is hours beyond a day; what else stands in brackets is a colour, a condition or a country.
            const std::string inside = format.substr(i + 1, end - i - 1);
            if (!inside.empty() && inside.find_first_not_of(inside.front()) == std::string::npos && IsOneOf(Lower(inside.front()), "hms"))
                letters += 'h';
            i = end;
        } else if (IsOneOf(Lower(c), "ydhmsgaeb") && (letters.empty() || letters.back() != Lower(c))) {
            letters += Lower(c);
        } else if (c == '/' && i + 1 < format.size() && Lower(format[i + 1]) == 'p') { // AM/PM
            letters += 'h';
        }
    }
    return letters;
}

} // namespace

Shows ShownByFormat(const std::string &format)
{
    std::string start = format.substr(0, 7);
    std::transform(start.begin(), start.end(), start.begin(), Lower);
    if (start == "general")
        return Shows::Number;
    const std::string letters = LettersOf(format);
    bool hasDate = false;
    bool hasTime = false;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        const char c = letters[i];
        if (c == 'y' || c == 'd') {
            hasDate = true;
        } else if (c == 'h' || c == 's') {
            hasTime = true;
        } else if (c == 'm') {
            // Minutes stand beside hours or seconds, else they are months.
            const bool isMinutes = (i > 0 && IsOneOf(letters[i - 1], "hs")) || (i + 1 < letters.size() && IsOneOf(letters[i + 1], "hs"));
            (isMinutes ? hasTime : hasDate) = true;
        }
    }
    if (hasDate)
        return hasTime ? Shows::DateTime : Shows::Date;
    return hasTime ? Shows::Time : Shows::Number;
}

void TemplateStyles::SetWorkbook(XlsxPackage &package, const std::string &workbook)
{
    m_package = &package;
    m_workbook = workbook;
}

void TemplateStyles::Read()
{
    if (m_isRead)
        return;
    m_isRead = true;
    const std::vector<Relationship> &relationships = m_package->RelationshipsOf(m_workbook);
    const auto found = std::find_if(relationships.begin(), relationships.end(),
                                    [](const Relationship &relationship) { return relationship.type == "styles"; });
    if (found == relationships.end())
        return;
    m_part = m_package->Parsed(found->target, m_fault);
    if (!m_part)
        return;
    for (pugi::xml_node node = ChildOf(ChildOf(m_part->Root(), "numFmts"), "numFmt"); node; node = NextOfItsName(node))
        m_numberFormats[AttributeOf(node, "numFmtId").as_uint()] = AttributeOf(node, "formatCode").value();
    for (pugi::xml_node node = ChildOf(ChildOf(m_part->Root(), "cellXfs"), "xf"); node; node = NextOfItsName(node))
        m_cellFormats.push_back(node);
}

TemplateFault TemplateStyles::FaultOfReading()
{
    Read();
    if (m_part && !ChildOf(m_part->Root(), "cellXfs"))
        return {XlsxTemplate::Error::FormatError, QCoreApplication::translate("XlsxTemplate", "The workbook's styles are damaged.")};
    TemplateFault fault = m_fault;
    if (!m_part && !fault) // one would be made, and has a type
        m_package->Parsed("[Content_Types].xml", fault);
    return fault;
}

unsigned TemplateStyles::FormatOf(unsigned style) const
{
    return style < m_cellFormats.size() ? AttributeOf(m_cellFormats[style], "numFmtId").as_uint() : 0;
}

Shows TemplateStyles::ShownBy(unsigned style, TemplateFault &fault)
{
    Read();
    if (m_fault)
        fault = m_fault;
    const auto known = m_shown.find(style);
    if (known != m_shown.end())
        return known->second;
    const unsigned format = FormatOf(style);
    const auto custom = m_numberFormats.find(format);
    const Shows shows = custom == m_numberFormats.end() ? ShownByBuiltIn(format) : ShownByFormat(custom->second);
    m_shown.emplace(style, shows);
    return shows;
}

TemplateFault TemplateStyles::MakePart()
{
    const std::string name = m_package->Has("xl/styles.xml") ? m_package->FreeName("xl/styles.xml") : "xl/styles.xml";
    // First what may fail, so that nothing is changed then.
    if (const TemplateFault fault =
            m_package->SetContentType(name, "application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml"))
        return fault;
    m_package->SetBytes(name,
                        QByteArrayLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                                          "<styleSheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">"
                                          "<fonts count=\"1\"><font/></fonts>"
                                          "<fills count=\"2\"><fill><patternFill patternType=\"none\"/></fill>"
                                          "<fill><patternFill patternType=\"gray125\"/></fill></fills>"
                                          "<borders count=\"1\"><border/></borders><cellStyleXfs count=\"1\"><xf/></cellStyleXfs>"
                                          "<cellXfs count=\"1\"><xf/></cellXfs></styleSheet>"));
    std::string id;
    if (const TemplateFault fault = m_package->AddRelationship(m_workbook, "styles", name, id))
        return fault;
    m_isRead = false;
    Read();
    return m_fault;
}

TemplateFault TemplateStyles::StyleShowing(Shows what, unsigned style, unsigned &result)
{
    result = style;
    TemplateFault unread;
    if (ShownBy(style, unread) != Shows::Number)
        return {};
    if (const TemplateFault fault = FaultOfReading())
        return fault;
    const auto made = m_made.find({what, style});
    if (made != m_made.end()) {
        result = made->second;
        return {};
    }
    if (!m_part) {
        if (const TemplateFault fault = MakePart())
            return fault;
    }
    const pugi::xml_node formats = ChildOf(m_part->Root(), "cellXfs");
    pugi::xml_node format = style < m_cellFormats.size() ? CopyInFrontOf(m_cellFormats[style], formats) : MakeChild(formats, "xf");
    const unsigned number = what == Shows::Date ? kDateFormat : what == Shows::Time ? kTimeFormat : kDateTimeFormat;
    SetAttribute(format, "numFmtId", std::to_string(number).c_str());
    SetAttribute(format, "applyNumberFormat", "1");
    m_cellFormats.push_back(format);
    SetAttribute(formats, "count", std::to_string(m_cellFormats.size()).c_str());
    m_part->Changed(formats);
    result = unsigned(m_cellFormats.size() - 1);
    m_made[{what, style}] = result;
    return {};
}

} // namespace Velmora
