#include "xlsx/TemplateContext_p.h"

#include "xlsx/TemplateLists_p.h"

#include <QDateTime>

#include <algorithm>
#include <tuple>

namespace Velmora {

namespace {

using Error = XlsxTemplate::Error;

/// Where a cell's content goes: behind it may stand what later editions of the format add.
pugi::xml_node MakeContent(const pugi::xml_node &cell, const char *name)
{
    return MakeChild(cell, name, ChildOf(cell, "extLst"));
}

/// What a text of a cell may have, as the file holds it. The format allows 32,767 characters; some programs write more.
constexpr std::size_t kLongestText = 1024 * 1024;

QVariant TextValue(const std::string &text, TemplateFault &fault)
{
    if (text.size() <= kLongestText)
        return Unescaped(text);
    fault = {Error::LimitError,
             QCoreApplication::translate("XlsxTemplate", "A text of %1 bytes is too long to be read.").arg(qint64(text.size()))};
    return {};
}

} // namespace

TemplateFault TemplateContext::Load(const QByteArray &bytes)
{
    if (const TemplateFault fault = package.Open(bytes))
        return fault;
    if (const TemplateFault fault = workbook.Load(package))
        return fault;
    std::string sharedStrings;
    for (const Relationship &relationship : package.RelationshipsOf(workbook.PartName())) {
        if (relationship.type == "sharedStrings" && !relationship.isExternal)
            sharedStrings = relationship.target;
    }
    strings.SetPart(package, sharedStrings);
    styles.SetWorkbook(package, workbook.PartName());
    return {};
}

QString TemplateContext::TextOf(const Place &place) const
{
    return QString::fromStdString(QuotedSheetName(workbook.SheetName(place.sheet)) + '!' + RangeText(place.range));
}

TemplateFault TemplateContext::At(int sheet, int row, int column, const TemplateFault &fault) const
{
    const QString place = TextOf({sheet, {row, row, column, column}});
    return {fault.error, QCoreApplication::translate("XlsxTemplate", "%1: %2", "a cell and what is wrong in it").arg(place, fault.text)};
}

void TemplateContext::ForgetRows(int sheet)
{
    TemplateFault fault;
    if (TemplateSheet *parsed = workbook.Sheet(sheet, fault))
        parsed->ForgetRows();
    m_formulas.erase(sheet);
    ForgetLists(sheet);
    m_pictures.reset(); // some go with their rows
    m_extents.reset();
}

PictureIndex &TemplateContext::Pictures()
{
    if (!m_pictures)
        m_pictures = std::make_unique<PictureIndex>(package, workbook);
    return *m_pictures;
}

const CellExtents *TemplateContext::ExtentsOf(int index)
{
    if (!m_extents || m_sheetOfExtents != index) {
        TemplateFault fault;
        const TemplateSheet *sheet = workbook.Sheet(index, fault);
        m_extents = sheet ? std::make_unique<CellExtents>(*sheet) : nullptr;
        m_sheetOfExtents = index;
    }
    return m_extents.get();
}

CellLists *TemplateContext::ListsOf(int index)
{
    std::unique_ptr<CellLists> &lists = m_lists[index];
    TemplateFault fault;
    TemplateSheet *sheet = lists ? nullptr : workbook.Sheet(index, fault);
    if (sheet)
        lists = std::make_unique<CellLists>(*sheet);
    return lists.get();
}

const ListEntries &TemplateContext::EntriesOf(int sheet, const std::string &source)
{
    if (!m_entries || !m_entries->AreOf(sheet, source))
        m_entries = std::make_unique<ListEntries>(*this, sheet, source);
    return *m_entries;
}

void TemplateContext::ForgetLists(int sheet)
{
    m_lists.erase(sheet);
    m_entries.reset();
}

CellFormulas &TemplateContext::FormulasOf(int index, TemplateSheet &sheet)
{
    std::unique_ptr<CellFormulas> &formulas = m_formulas[index];
    if (!formulas)
        formulas = std::make_unique<CellFormulas>(sheet);
    return *formulas;
}

// --- Reading ---

QVariant TemplateContext::SharedText(unsigned index, TemplateFault &fault)
{
    constexpr std::size_t kLong = 1024;
    if (m_longText.isValid() && m_longTextIndex == index)
        return m_longText;
    const std::string text = strings.TextAt(index, fault);
    const QVariant value = fault ? QVariant() : TextValue(text, fault);
    if (text.size() > kLong) {
        m_longText = value;
        m_longTextIndex = index;
    }
    return value;
}

QVariant TemplateContext::ValueOf(const pugi::xml_node &cell, TemplateFault &fault)
{
    const std::string_view type = AttributeOf(cell, "t").value();
    if (type == "inlineStr") {
        const pugi::xml_node item = ChildOf(cell, "is");
        return item ? TextValue(TextOfStringItem(item), fault) : QVariant();
    }
    const pugi::xml_node content = ChildOf(cell, "v");
    if (!content)
        return {};
    const std::string text = OwnText(content);
    if (type == "s") {
        bool isIndex = false;
        const unsigned index = QByteArray::fromStdString(text).trimmed().toUInt(&isIndex);
        return isIndex ? SharedText(index, fault) : QVariant();
    }
    if (type == "str" || type == "e")
        return TextValue(text, fault);
    if (type == "b")
        return text == "1" || text == "true";
    if (type == "d") {
        const QString iso = QString::fromStdString(text);
        const QDateTime moment = QDateTime::fromString(iso, Qt::ISODateWithMs);
        if (!moment.isValid())
            return {};
        return iso.contains(QLatin1Char('T')) ? QVariant(moment) : QVariant(moment.date());
    }
    const QVariant number = NumberOf(text);
    const pugi::xml_attribute style = AttributeOf(cell, "s");
    if (!number.isValid() || !style)
        return number;
    const TemplateStyles::Shows shows = styles.ShownBy(style.as_uint(), fault);
    return fault ? QVariant() : DateOf(number, shows, workbook.CountsFrom1904());
}

// --- Writing ---

TemplateFault TemplateContext::FaultOfGroup(int sheet, int row, int column)
{
    TemplateFault fault;
    TemplateSheet *parsed = workbook.Sheet(sheet, fault);
    // A table says its headers too, in its own part and in formulas; programs refuse a workbook in which they differ.
    if (const TemplateName *table = workbook.TableHeadedBy(sheet, row, column)) {
        return At(sheet, row, column,
                  {Error::ObstacleError,
                   QCoreApplication::translate("XlsxTemplate", "It is the header of a column of the table %1.")
                       .arg(QString::fromStdString(table->display))});
    }
    const CellRange *group = parsed ? FormulasOf(sheet, *parsed).GroupAt(row, column) : nullptr;
    if (!group)
        return fault;
    return At(sheet, row, column,
              {Error::ObstacleError,
               QCoreApplication::translate("XlsxTemplate", "It is one of several cells of one array formula or data table (%1).")
                   .arg(QString::fromStdString(RangeText(*group)))});
}

TemplateFault TemplateContext::FaultOfCell(int sheet, int row, int column)
{
    TemplateFault fault;
    TemplateSheet *parsed = workbook.Sheet(sheet, fault);
    const CellRange *merge = parsed ? parsed->MergeAt(row, column) : nullptr;
    if (merge && (merge->firstRow != row || merge->firstColumn != column)) {
        return At(sheet, row, column,
                  {Error::ObstacleError,
                   QCoreApplication::translate("XlsxTemplate", "It does not show, as a part of merged cells (%1).")
                       .arg(QString::fromStdString(RangeText(*merge)))});
    }
    return parsed ? FaultOfGroup(sheet, row, column) : fault;
}

TemplateFault TemplateContext::FaultOfValue(int sheet, int row, int column, const QVariant &value, CellContent &content)
{
    if (const TemplateFault fault = ContentOf(value, workbook.CountsFrom1904(), content))
        return At(sheet, row, column, fault);
    return FaultOfChoice(sheet, row, column, value);
}

TemplateFault TemplateContext::FaultOfChoice(int sheet, int row, int column, const QVariant &value)
{
    if (const TemplateFault fault = FaultOfCell(sheet, row, column))
        return fault;
    return takesValuesOutsideLists ? TemplateFault() : FaultOfList(*this, sheet, row, column, value);
}

void TemplateContext::CellChanged(int sheet, int row, int column)
{
    if (!changed.empty() && changed.back().sheet == sheet) {
        CellRange &last = changed.back().range;
        if (last.Contains(row, column))
            return;
        // Most cells are filled in one after the other, down a column or along a row.
        const bool isBelow = last.firstColumn == column && last.lastColumn == column && last.lastRow + 1 == row;
        const bool isBeside = last.firstRow == row && last.lastRow == row && last.lastColumn + 1 == column;
        if (isBelow || isBeside) {
            last.lastRow = row;
            last.lastColumn = column;
            return;
        }
    }
    changed.push_back({sheet, {row, row, column, column}});
    if (changed.size() > m_mostChanged)
        ForgetRepetitions();
}

/// A host may fill in the same cells any number of times.
void TemplateContext::ForgetRepetitions()
{
    const auto key = [](const Place &place) {
        const CellRange &range = place.range;
        return std::tie(place.sheet, range.firstColumn, range.lastColumn, range.firstRow, range.lastRow);
    };
    std::sort(changed.begin(), changed.end(), [key](const Place &a, const Place &b) { return key(a) < key(b); });
    const auto isSame = [key](const Place &a, const Place &b) { return key(a) == key(b); };
    changed.erase(std::unique(changed.begin(), changed.end(), isSame), changed.end());
    m_mostChanged = std::max(m_mostChanged, 2 * changed.size());
}

void TemplateContext::EmptyCell(TemplateSheet &sheet, int index, pugi::xml_node cell, int row, int column)
{
    FormulasOf(index, sheet).RemoveFrom(cell, row, column);
    cell.remove_child(ChildOf(cell, "v"));
    cell.remove_child(ChildOf(cell, "is"));
    // What the value was besides: its type, and what later editions keep for it in other parts.
    for (const char *name : {"t", "cm", "vm"})
        cell.remove_attribute(name);
    sheet.CellChanged(cell);
    if (m_entries && m_entries->AreIn(index, row, column))
        m_entries.reset();
    CellChanged(index, row, column);
}

TemplateFault TemplateContext::PutContent(int index, int row, int column, const CellContent &content)
{
    TemplateFault fault;
    TemplateSheet *sheet = workbook.Sheet(index, fault);
    if (!sheet)
        return fault;
    pugi::xml_node cell = sheet->FindCell(row, column);
    if (!cell && content.kind == CellContent::Kind::Nothing)
        return {};
    if (!cell)
        cell = sheet->MakeCell(row, column);
    if (content.shows != TemplateStyles::Shows::Number) {
        const unsigned style = AttributeOf(cell, "s").as_uint();
        unsigned shown = 0;
        if (const TemplateFault styleFault = styles.StyleShowing(content.shows, style, shown))
            return styleFault;
        if (shown != style)
            SetAttribute(cell, "s", std::to_string(shown).c_str());
    }
    EmptyCell(*sheet, index, cell, row, column);
    switch (content.kind) {
    case CellContent::Kind::Nothing:
        break;
    case CellContent::Kind::Truth:
        SetAttribute(cell, "t", "b");
        SetOwnText(MakeContent(cell, "v"), content.text);
        break;
    case CellContent::Kind::Number:
        SetOwnText(MakeContent(cell, "v"), content.text);
        break;
    case CellContent::Kind::Text: {
        SetAttribute(cell, "t", "inlineStr");
        const pugi::xml_node text = MakeChild(MakeContent(cell, "is"), "t");
        if (content.KeepsItsBlanks())
            SetAttribute(text, "xml:space", "preserve");
        SetOwnText(text, content.text);
        break;
    }
    }
    return {};
}

TemplateFault TemplateContext::PutValue(int sheet, int row, int column, const QVariant &value)
{
    CellContent content;
    if (const TemplateFault fault = ContentOf(value, workbook.CountsFrom1904(), content))
        return At(sheet, row, column, fault);
    return PutContent(sheet, row, column, content);
}

TemplateFault TemplateContext::PutFormula(int index, int row, int column, const std::string &formula)
{
    TemplateFault fault;
    TemplateSheet *sheet = workbook.Sheet(index, fault);
    if (!sheet)
        return fault;
    const pugi::xml_node cell = sheet->MakeCell(row, column);
    EmptyCell(*sheet, index, cell, row, column);
    SetOwnText(MakeContent(cell, "f"), formula);
    return {};
}

} // namespace Velmora
