#include "xlsx/CellViews_p.h"

#include "xlsx/MovedReferences_p.h"

#include <QDateTime>

#include <algorithm>
#include <set>

namespace Velmora {

namespace {

constexpr const char *kCopies[] = {"numCache", "strCache", "multiLvlStrCache", "dlblRangeCache", "lvl"};
constexpr std::string_view kOwnWorkbook = "[0]!";

bool MayHaveCopies(const QByteArray &chart)
{
    const bool isInOtherEncoding = chart.left(4).contains('\0') || chart.startsWith("\xff\xfe") || chart.startsWith("\xfe\xff");
    return isInOtherEncoding || chart.contains("Cache") || chart.contains("lvl");
}

pugi::xml_node CopyIn(const pugi::xml_node &reference)
{
    for (const char *name : kCopies) {
        if (const pugi::xml_node copy = ChildOf(reference, name))
            return copy;
    }
    return {};
}

constexpr qint64 kMemoryOfView = 256;

void AddChart(TemplateContext &context, const std::string &name, XmlPart &chart, std::vector<CellView> &views)
{
    const std::vector<pugi::xml_node> elements = ElementsIn(chart.Root());
    const auto count =
        std::count_if(elements.begin(), elements.end(), [](const pugi::xml_node &element) { return IsElement(element, "f"); });
    if (!context.package.TakeMemoryOf(name, kMemoryOfView * count))
        return;
    for (const pugi::xml_node &element : elements) {
        if (!IsElement(element, "f") || !CopyIn(element.parent()))
            continue;
        std::string cells = OwnText(element);
        if (cells.compare(0, kOwnWorkbook.size(), kOwnWorkbook) == 0)
            cells.erase(0, kOwnWorkbook.size());
        views.push_back({&chart, element.parent(), std::move(cells)});
    }
}

void AddPivotData(XmlPart &definition, std::vector<CellView> &views)
{
    const pugi::xml_node source = ChildOf(ChildOf(definition.Root(), "cacheSource"), "worksheetSource");
    if (!source || AttributeOf(source, "id")) // of another workbook
        return;
    const std::string sheet = AttributeOf(source, "sheet").value();
    const std::string prefix = sheet.empty() ? std::string() : QuotedSheetName(sheet) + '!';
    const pugi::xml_attribute name = AttributeOf(source, "name");
    views.push_back({&definition, definition.Root(), prefix + (name ? name : AttributeOf(source, "ref")).value()});
}

bool IsOfTitle(const pugi::xml_node &reference)
{
    return IsElement(reference, "strRef") && IsElement(reference.parent(), "tx") && IsElement(reference.parent().parent(), "title");
}

/// What a cell shows, if that can be told without computing it, or knowing its format.
std::optional<std::string> ShownText(TemplateContext &context, const std::string &reference)
{
    const std::optional<SheetRange> place = ParseSheetRange(reference);
    const int index = place && place->range.IsCell() ? context.workbook.SheetIndex(place->sheet) : -1;
    TemplateFault fault;
    TemplateSheet *sheet = index < 0 ? nullptr : context.workbook.Sheet(index, fault);
    const pugi::xml_node cell = sheet ? sheet->FindCell(place->range.firstRow, place->range.firstColumn) : pugi::xml_node();
    if (!cell || ChildOf(cell, "f"))
        return std::nullopt;
    const QVariant value = context.ValueOf(cell, fault);
    switch (value.userType()) {
    case QMetaType::QString:
    case QMetaType::LongLong:
        return Escaped(value.toString());
    case QMetaType::Double:
        return NumberText(value.toDouble());
    default:
        return std::nullopt;
    }
}

/// False if it is not known.
bool RenewTitle(TemplateContext &context, const CellView &view, const pugi::xml_node &copy)
{
    const pugi::xml_node text = ChildOf(ChildOf(copy, "pt"), "v");
    const std::optional<std::string> shown = text ? ShownText(context, view.cells) : std::nullopt;
    if (!shown)
        return false;
    if (OwnText(text) != *shown) {
        SetOwnText(text, *shown);
        view.part->Changed(text);
    }
    return true;
}

} // namespace

std::vector<CellView> FindCellViews(TemplateContext &context)
{
    std::vector<CellView> views;
    std::set<std::string> seen; // two sheets may show one drawing
    TemplateFault fault;
    for (int sheet = 0; sheet < context.workbook.SheetCount(); ++sheet) {
        for (const std::string &name : context.workbook.ChartPartsOf(sheet)) {
            XmlPart *chart = seen.insert(name).second ? context.package.ParsedIf(name, MayHaveCopies, fault) : nullptr;
            if (chart)
                AddChart(context, name, *chart, views);
        }
    }
    for (const std::string &name : context.workbook.PartsOf(context.workbook.PartName(), {"pivotCacheDefinition"})) {
        if (XmlPart *definition = context.package.Parsed(name, fault))
            AddPivotData(*definition, views);
    }
    return views;
}

void Renew(TemplateContext &context, const CellView &view)
{
    if (IsElement(view.node, "pivotCacheDefinition")) {
        if (!AttributeOf(view.node, "refreshOnLoad").as_bool()) {
            SetAttribute(view.node, "refreshOnLoad", "1");
            view.part->ChangedEverywhere();
        }
        return;
    }
    pugi::xml_node copy = CopyIn(view.node);
    if (copy && IsOfTitle(view.node) && RenewTitle(context, view, copy))
        return;
    for (; copy; copy = CopyIn(view.node)) // an element for each level, too
        view.part->Remove(copy);
}

} // namespace Velmora
