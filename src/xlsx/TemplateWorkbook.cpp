#include "xlsx/TemplateWorkbook_p.h"

#include <algorithm>
#include <set>

namespace Velmora {

namespace {

using Error = XlsxTemplate::Error;

QString QText(const std::string &text)
{
    return QString::fromStdString(text);
}

std::string Folded(const std::string &text)
{
    return QText(text).toCaseFolded().toStdString();
}

/// Of templates of office programs, and of workbooks: plain, and with macros.
constexpr const char *kTypes[][2] = {
    {"application/vnd.openxmlformats-officedocument.spreadsheetml.template.main+xml",
     "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"},
    {"application/vnd.ms-excel.template.macroEnabled.main+xml", "application/vnd.ms-excel.sheet.macroEnabled.main+xml"},
};

bool IsSameType(const std::string &type, const char *other)
{
    return qstricmp(type.c_str(), other) == 0;
}

bool IsTrue(const pugi::xml_attribute &attribute)
{
    const std::string_view value = attribute.value();
    return value == "1" || value == "true" || value == "on";
}

TemplateFault FaultOfType(const std::string &contentType)
{
    const auto fault = [](const QString &text) { return TemplateFault{Error::FormatError, text}; };
    if (contentType.find("sheet.binary") != std::string::npos)
        return fault(QCoreApplication::translate("XlsxTemplate", "This is a binary workbook (.xlsb). Save it as .xlsx."));
    if (contentType.find("wordprocessingml") != std::string::npos || contentType.find("presentationml") != std::string::npos)
        return fault(QCoreApplication::translate("XlsxTemplate", "This is another kind of document, not a workbook (.xlsx)."));
    return {};
}

/// The elements of a workbook in front of which the settings of its calculation stand.
bool StandsBehindCalculation(const pugi::xml_node &node)
{
    static const char *const kBefore[] = {"fileVersion",  "fileSharing",      "workbookPr",     "workbookProtection",
                                          "bookViews",    "sheets",           "functionGroups", "externalReferences",
                                          "definedNames", "AlternateContent", "absPath",        "revisionPtr"};
    return node.type() == pugi::node_element
        && std::none_of(std::begin(kBefore), std::end(kBefore), [&node](const char *name) { return IsElement(node, name); });
}

/// What is made of the sheets and names that a workbook lists.
qint64 MemoryOfLists(const pugi::xml_node &workbook)
{
    constexpr qint64 kSheet = 512;
    constexpr qint64 kName = 640;
    constexpr qint64 kTextByte = 16; // of the places that a name stands for
    qint64 bytes = 0;
    for (pugi::xml_node node = ChildOf(ChildOf(workbook, "sheets"), "sheet"); node; node = NextOfItsName(node))
        bytes += kSheet;
    for (pugi::xml_node node = ChildOf(ChildOf(workbook, "definedNames"), "definedName"); node; node = NextOfItsName(node))
        bytes += kName + kTextByte * qint64(OwnText(node).size());
    return bytes;
}

} // namespace

TemplateFault TemplateWorkbook::Load(XlsxPackage &package)
{
    m_package = &package;
    const std::vector<Relationship> &relationships = package.RelationshipsOf({});
    const auto office = std::find_if(relationships.begin(), relationships.end(), [](const Relationship &relationship) {
        return relationship.type == "officeDocument" && !relationship.isExternal;
    });
    if (office == relationships.end())
        return {Error::FormatError, QCoreApplication::translate("XlsxTemplate", "This is an archive, but not a workbook (.xlsx).")};
    m_partName = office->target;
    const std::string contentType = package.ContentType(m_partName);
    if (const TemplateFault fault = FaultOfType(contentType))
        return fault;
    m_wasTemplate = std::any_of(std::begin(kTypes), std::end(kTypes), [&](const auto &types) { return IsSameType(contentType, types[0]); });
    TemplateFault fault;
    m_part = package.Parsed(m_partName, fault);
    if (!m_part)
        return fault;
    if (!IsElement(m_part->Root(), "workbook"))
        return {Error::FormatError,
                QCoreApplication::translate("XlsxTemplate", "This is another kind of document, not a workbook (.xlsx).")};
    if (!package.TakeMemoryOf(m_partName, MemoryOfLists(m_part->Root())))
        return {Error::LimitError,
                QCoreApplication::translate("XlsxTemplate", "A part of the workbook is too large: %1.").arg(QText(m_partName))};
    m_countsFrom1904 = IsTrue(AttributeOf(ChildOf(m_part->Root(), "workbookPr"), "date1904"));
    ReadSheets();
    ForgetNames();
    return {};
}

void TemplateWorkbook::ReadSheets()
{
    for (pugi::xml_node node = ChildOf(ChildOf(m_part->Root(), "sheets"), "sheet"); node; node = NextOfItsName(node)) {
        SheetEntry entry;
        entry.name = AttributeOf(node, "name").value();
        if (const Relationship *relationship = m_package->FindRelationship(m_partName, AttributeOf(node, "id").value())) {
            entry.partName = relationship->isExternal ? std::string() : relationship->target;
            entry.type = relationship->type;
        }
        m_sheets.push_back(std::move(entry));
    }
}

int TemplateWorkbook::SheetIndex(const std::string &name) const
{
    const auto found = m_sheetIndex.find(Folded(name));
    return found == m_sheetIndex.end() ? -1 : found->second;
}

TemplateSheet *TemplateWorkbook::Sheet(int sheet, TemplateFault &fault)
{
    SheetEntry &entry = m_sheets[std::size_t(sheet)];
    if (entry.parsed)
        return entry.parsed.get();
    if (!HasCells(sheet)) {
        fault = {Error::UnusableName, QCoreApplication::translate("XlsxTemplate", "The sheet %1 has no cells.").arg(QText(entry.name))};
        return nullptr;
    }
    XmlPart *part = m_package->Parsed(entry.partName, fault);
    if (!part)
        return nullptr;
    auto parsed = std::make_unique<TemplateSheet>(entry.name, entry.partName, *part);
    if (!parsed->SheetData()) {
        fault = {Error::FormatError,
                 QCoreApplication::translate("XlsxTemplate", "A part of the workbook is damaged: %1.").arg(QText(entry.partName))};
        return nullptr;
    }
    entry.parsed = std::move(parsed);
    return entry.parsed.get();
}

// --- Names ---

void TemplateWorkbook::ForgetNames()
{
    m_sheetIndex.clear();
    for (int sheet = 0; sheet < SheetCount(); ++sheet)
        m_sheetIndex.emplace(Folded(SheetName(sheet)), sheet);
    m_names.clear();
    m_nameIndex.clear();
    m_headers.clear();
    ReadNames();
    ReadTables();
}

void TemplateWorkbook::ReadNames()
{
    for (pugi::xml_node node = ChildOf(ChildOf(m_part->Root(), "definedNames"), "definedName"); node; node = NextOfItsName(node)) {
        TemplateName name;
        name.name = AttributeOf(node, "name").value();
        name.node = node;
        if (name.name.empty() || Folded(name.name).compare(0, 6, "_xlnm.") == 0)
            continue;
        name.display = name.name;
        if (const pugi::xml_attribute local = AttributeOf(node, "localSheetId")) {
            name.localSheet = local.as_int(-1);
            if (name.localSheet < 0 || name.localSheet >= SheetCount())
                continue;
            name.display = QuotedSheetName(SheetName(name.localSheet)) + '!' + name.name;
        }
        const NameMeaning meaning = MeaningOfName(OwnText(node));
        name.kind = meaning.kind;
        for (const SheetRange &place : meaning.places) {
            const int only = SheetCount() == 1 ? 0 : name.localSheet;
            const int sheet = place.sheet.empty() ? only : SheetIndex(place.sheet);
            name.leadsNowhere = name.leadsNowhere || sheet < 0 || !HasCells(sheet);
            name.places.push_back({sheet, place.range});
        }
        if (name.leadsNowhere)
            name.places.clear();
        AddName(std::move(name));
    }
}

std::vector<std::string> TemplateWorkbook::PartsOf(const std::string &part, std::initializer_list<const char *> types) const
{
    std::vector<std::string> parts;
    for (const Relationship &relationship : m_package->RelationshipsOf(part)) {
        const auto isOfType = [&relationship](const char *type) { return relationship.type == type; };
        if (!relationship.isExternal && std::any_of(types.begin(), types.end(), isOfType) && m_package->Has(relationship.target))
            parts.push_back(relationship.target);
    }
    return parts;
}

std::vector<std::string> TemplateWorkbook::ChartPartsOf(int sheet) const
{
    std::vector<std::string> charts;
    for (const std::string &drawing : PartsOf(SheetPartName(sheet), {"drawing"})) {
        const std::vector<std::string> parts = PartsOf(drawing, {"chart", "chartEx"});
        charts.insert(charts.end(), parts.begin(), parts.end());
    }
    return charts;
}

void TemplateWorkbook::ReadTables()
{
    std::set<std::string> seen;
    for (int sheet = 0; sheet < SheetCount(); ++sheet) {
        if (!seen.insert(SheetPartName(sheet)).second)
            continue;
        for (const std::string &part : PartsOf(SheetPartName(sheet), {"table"})) {
            TemplateFault fault;
            XmlPart *table = m_package->Parsed(part, fault);
            const auto range = table ? ParseRange(AttributeOf(table->Root(), "ref").value()) : std::nullopt;
            if (!range)
                continue;
            CellRange rows = *range;
            rows.firstRow += std::clamp(AttributeOf(table->Root(), "headerRowCount").as_int(1), 0, kLastRow);
            rows.lastRow -= std::clamp(AttributeOf(table->Root(), "totalsRowCount").as_int(0), 0, kLastRow);
            TemplateName name;
            name.name = name.display = AttributeOf(table->Root(), "displayName").value();
            name.node = table->Root();
            name.table = table;
            if (rows.firstRow >= 1 && rows.firstRow <= rows.lastRow && rows.lastRow <= range->lastRow)
                name.places.push_back({sheet, rows});
            else
                name.leadsNowhere = true;
            if (name.name.empty() || !AddName(std::move(name)))
                continue;
            if (rows.firstRow > range->firstRow) {
                const CellRange header{range->firstRow, range->firstRow, range->firstColumn, range->lastColumn};
                m_headers[sheet].Add(header, int(m_names.size()) - 1);
            }
        }
    }
    for (auto &[sheet, headers] : m_headers)
        headers.Build();
}

const TemplateName *TemplateWorkbook::TableHeadedBy(int sheet, int row, int column) const
{
    const auto headers = m_headers.find(sheet);
    const TemplateName *table = nullptr;
    if (headers != m_headers.end()) {
        headers->second.ForEachMeeting({row, row, column, column}, [&](int owner) { table = &m_names[std::size_t(owner)]; });
    }
    return table;
}

bool TemplateWorkbook::AddName(TemplateName name)
{
    const bool isNew = m_nameIndex.emplace(Folded(name.display), m_names.size()).second;
    if (isNew)
        m_names.push_back(std::move(name));
    return isNew;
}

const TemplateName *TemplateWorkbook::FindName(const std::string &display) const
{
    const auto found = m_nameIndex.find(Folded(display));
    return found == m_nameIndex.end() ? nullptr : &m_names[found->second];
}

TemplateFault TemplateWorkbook::SetTemplate(bool isTemplate)
{
    const std::string now = m_wasTemplate ? m_package->ContentType(m_partName) : std::string();
    for (const auto &[ofTemplate, ofWorkbook] : kTypes) {
        if (IsSameType(now, isTemplate ? ofWorkbook : ofTemplate))
            return m_package->SetContentType(m_partName, isTemplate ? ofTemplate : ofWorkbook);
    }
    return {};
}

// --- Calculation ---

TemplateFault TemplateWorkbook::RequireCalculation()
{
    pugi::xml_node settings = ChildOf(m_part->Root(), "calcPr");
    if (!IsTrue(AttributeOf(settings, "fullCalcOnLoad"))) {
        if (!settings) {
            pugi::xml_node before = m_part->Root().first_child();
            while (before && !StandsBehindCalculation(before))
                before = before.next_sibling();
            settings = MakeChild(m_part->Root(), "calcPr", before);
        }
        SetAttribute(settings, "fullCalcOnLoad", "1");
        m_part->Changed(settings);
    }
    // It lists the cells with formulas, and is made anew by who opens the workbook.
    const std::vector<Relationship> relationships = m_package->RelationshipsOf(m_partName);
    for (const Relationship &relationship : relationships) {
        if (relationship.type != "calcChain" || relationship.isExternal)
            continue;
        if (const TemplateFault fault = m_package->RemoveRelationship(m_partName, relationship.id))
            return fault;
        m_package->RemoveUnused(relationship.target);
    }
    return {};
}

} // namespace Velmora
