#include "xlsx/TemplateLists_p.h"

#include <algorithm>

namespace Velmora {

namespace {

using Error = XlsxTemplate::Error;

/// What spreadsheet programs read of a list that is typed in.
constexpr int kLongestList = 255;
/// Of a list in a message.
constexpr int kMostShown = 100;

TemplateFault FaultOfOptions(const QStringList &options)
{
    if (options.isEmpty())
        return {Error::ValueError, QCoreApplication::translate("XlsxTemplate", "The list has no entries.")};
    for (const QString &option : options) {
        const bool hasControls =
            std::any_of(option.cbegin(), option.cend(), [](QChar c) { return c < QLatin1Char(' ') || c >= QChar(0xfffe); });
        if (option.contains(QLatin1Char(',')))
            return {Error::ValueError,
                    QCoreApplication::translate("XlsxTemplate", "An entry of a list must not have a comma: %1").arg(option)};
        if (option.isEmpty() || option != option.trimmed() || hasControls)
            return {Error::ValueError,
                    QCoreApplication::translate(
                        "XlsxTemplate",
                        "An entry of a list must not be empty, begin or end with a blank, or have line ends or control characters: \"%1\"")
                        .arg(option)};
    }
    return {};
}

std::string SourceOf(const QStringList &options)
{
    return '"' + options.join(QLatin1Char(',')).replace(QLatin1Char('"'), QLatin1String("\"\"")).toStdString() + '"';
}

} // namespace

bool HasList(TemplateContext &context, const TemplateName &name)
{
    return !name.places.empty() && std::all_of(name.places.begin(), name.places.end(), [&context](const Place &place) {
        const CellLists *lists = context.ListsOf(place.sheet);
        return lists && lists->Covers(place.range);
    });
}

QStringList OptionsOf(TemplateContext &context, const TemplateName &name, TemplateFault &fault)
{
    const Place &place = name.places.front();
    context.workbook.Sheet(place.sheet, fault);
    const CellLists *lists = fault ? nullptr : context.ListsOf(place.sheet);
    const std::string source = lists ? lists->SourceAt(place.range.firstRow, place.range.firstColumn) : std::string();
    if (source.empty())
        return {};
    const ListEntries &entries = context.EntriesOf(place.sheet, source);
    fault = entries.Fault();
    return entries.Texts();
}

TemplateFault SetOptions(TemplateContext &context, const TemplateName &name, const QStringList &options)
{
    TemplateFault fault = FaultOfOptions(options);
    const std::string source = SourceOf(options);
    const int length = int(QString::fromStdString(source).size() - 2);
    if (!fault && length > kLongestList) {
        fault = {Error::LimitError,
                 QCoreApplication::translate(
                     "XlsxTemplate", "The entries of the list have %n characters with their commas; a list holds %1.", nullptr, length)
                     .arg(kLongestList)};
    }
    std::map<int, std::vector<CellRange>> rangesOf;
    for (const Place &place : name.places) {
        if (!fault)
            context.workbook.Sheet(place.sheet, fault);
        rangesOf[place.sheet].push_back(place.range);
    }
    if (fault)
        return fault;
    for (const auto &[sheet, ranges] : rangesOf) {
        context.ListsOf(sheet)->SetSource(ranges, source);
        context.ForgetLists(sheet);
    }
    return {};
}

TemplateFault FaultOfList(TemplateContext &context, int sheet, int row, int column, const QVariant &value)
{
    const CellLists *lists = context.ListsOf(sheet);
    const std::string source = lists ? lists->SourceAt(row, column) : std::string();
    if (source.empty())
        return {};
    CellContent content;
    if (!ContentOf(value, context.workbook.CountsFrom1904(), content) && content.kind == CellContent::Kind::Nothing)
        return {}; // a list has no say in whether a cell is emptied
    if (lists->TakesNothingAt(row, column) && value.toString().isEmpty())
        return {};
    const ListEntries &entries = context.EntriesOf(sheet, source);
    if (!entries.AreKnown() || entries.Have(value))
        return {};
    QString shown = entries.Texts().join(QLatin1String(", "));
    if (shown.size() > kMostShown)
        shown = shown.left(kMostShown) + QChar(0x2026);
    return context.At(sheet, row, column,
                      {Error::ValueError,
                       QCoreApplication::translate("XlsxTemplate", "%1 is not in the list of the cell: %2").arg(value.toString(), shown)});
}

} // namespace Velmora
