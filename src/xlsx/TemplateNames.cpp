#include "xlsx/TemplateNames_p.h"

#include "xlsx/CellMemory_p.h"
#include "xlsx/TemplateLists_p.h"

#include <algorithm>

namespace Velmora {

namespace {

using Error = XlsxTemplate::Error;
using Kind = XlsxTemplate::Kind;

/// One full column: what a single operation can reasonably fill.
constexpr qint64 kMostCells = kLastRow;
/// What a value can reasonably hold.
constexpr qint64 kMostCellsRead = 4LL * kLastRow;
constexpr qint64 kMostTextRead = 64LL * 1024 * 1024; ///< in characters: many cells may refer to one long text
constexpr qint64 kMemoryOfValue = 96;                ///< of a cell that is read: a QVariant in a list, and the text's own
constexpr int kLongestFormula = 8192;

qint64 CellCount(const CellRange &range)
{
    return qint64(range.RowCount()) * range.ColumnCount();
}

/// Calls visit(sheet, node, row, column) for each cell that there is in the places, until it returns false; a fault if a sheet cannot be
/// read.
template <typename Visit>
TemplateFault ForEachExistingCell(TemplateContext &context, const std::vector<Place> &places, const Visit &visit)
{
    TemplateFault fault;
    bool goesOn = true;
    for (const Place &place : places) {
        TemplateSheet *sheet = context.workbook.Sheet(place.sheet, fault);
        if (!sheet)
            return fault;
        sheet->ForEachCellIn(place.range, [&](const pugi::xml_node &cell, int row, int column) {
            goesOn = goesOn && visit(place.sheet, cell, row, column);
            return goesOn;
        });
    }
    return {};
}

/// Calls visit(sheet, row, column) for each cell of the places that shows, until it returns a fault.
template <typename Visit>
TemplateFault ForEachShownCell(TemplateContext &context, const std::vector<Place> &places, const Visit &visit)
{
    TemplateFault fault;
    for (const Place &place : places) {
        TemplateSheet *sheet = context.workbook.Sheet(place.sheet, fault);
        if (!sheet)
            return fault;
        const CellRange &range = place.range;
        for (int row = range.firstRow; row <= range.lastRow; ++row) {
            for (int column = range.firstColumn; column <= range.lastColumn; ++column) {
                const CellRange *merge = sheet->MergeAt(row, column);
                const bool isFirst = !merge || (merge->firstRow == row && merge->firstColumn == column);
                if (!isFirst && range.Contains(merge->firstRow, merge->firstColumn))
                    continue;
                if ((fault = visit(place.sheet, row, column)))
                    return fault;
            }
        }
    }
    return {};
}

TemplateFault FaultOfSize(const std::vector<Place> &places)
{
    qint64 cells = 0;
    for (const Place &place : places)
        cells += CellCount(place.range);
    if (cells <= kMostCells)
        return {};
    return {Error::LimitError,
            QCoreApplication::translate("XlsxTemplate", "These are %1 cells; %2 can be filled at once.").arg(cells).arg(kMostCells)};
}

/// True if the place is one cell, be it of several merged ones.
bool IsOneCell(TemplateContext &context, const Place &place)
{
    if (place.range.IsCell())
        return true;
    TemplateFault fault;
    TemplateSheet *sheet = context.workbook.Sheet(place.sheet, fault);
    const CellRange *merge = sheet ? sheet->MergeAt(place.range.firstRow, place.range.firstColumn) : nullptr;
    return merge && *merge == place.range;
}

QVariant ValueAt(TemplateContext &context, int sheet, int row, int column, TemplateFault &fault)
{
    TemplateSheet *parsed = context.workbook.Sheet(sheet, fault);
    if (!parsed)
        return {};
    const QVariant value = context.ValueOf(parsed->FindCell(row, column), fault);
    if (fault)
        fault = context.At(sheet, row, column, fault);
    return value;
}

TemplateFault TooMuchToRead(TemplateContext &context, const Place &place)
{
    return {Error::LimitError,
            QCoreApplication::translate("XlsxTemplate", "%1: This is more than can be read at once.").arg(context.TextOf(place))};
}

QVariant RowsOf(TemplateContext &context, const Place &place, TemplateFault &fault)
{
    const CellRange &range = place.range;
    int lastRow = range.firstRow - 1;
    int lastColumn = range.firstColumn - 1;
    fault = ForEachExistingCell(context, {place}, [&](int, const pugi::xml_node &, int row, int column) {
        lastRow = std::max(lastRow, row);
        lastColumn = std::max(lastColumn, column);
        return true;
    });
    const int columns = lastColumn - range.firstColumn + 1;
    const qint64 cells = qint64(lastRow - range.firstRow + 1) * columns;
    if (!fault && (cells > kMostCellsRead || !context.package.HasMemory(cells * kMemoryOfValue)))
        fault = TooMuchToRead(context, place);
    if (fault)
        return {};
    QVector<QVariantList> rows;
    for (int row = range.firstRow; row <= lastRow; ++row) {
        QVariantList values;
        values.reserve(columns);
        for (int i = 0; i < columns; ++i)
            values.append(QVariant());
        rows.append(values);
    }
    qint64 text = 0;
    ForEachExistingCell(context, {place}, [&](int, const pugi::xml_node &cell, int row, int column) {
        QVariant &value = rows[row - range.firstRow][column - range.firstColumn];
        if (!value.isValid()) // of two cells of one place the first counts
            value = context.ValueOf(cell, fault);
        if (value.userType() == QMetaType::QString)
            text += value.toString().size();
        if (fault)
            fault = context.At(place.sheet, row, column, fault);
        else if (text > kMostTextRead || !context.package.HasMemory(cells * kMemoryOfValue + 2 * text))
            fault = TooMuchToRead(context, place);
        return !fault;
    });
    if (fault)
        return {};
    QVariantList list;
    list.reserve(rows.size());
    for (const QVariantList &row : rows)
        list.append(QVariant(row));
    return list;
}

/// Why one of the sheets that the name leads to cannot be read.
TemplateFault FaultOfSheets(TemplateContext &context, const TemplateName &name)
{
    TemplateFault fault;
    for (const Place &place : name.places) {
        if (!context.workbook.Sheet(place.sheet, fault))
            break;
    }
    return fault;
}

QString HeaderText(const QVariant &value)
{
    return value.toString().trimmed();
}

} // namespace

// --- What there is ---

Kind KindOfName(TemplateContext &context, const TemplateName &name)
{
    if (name.places.empty() || FaultOfSheets(context, name))
        return Kind::Unusable;
    if (name.IsTable())
        return Kind::Range;
    if (HasList(context, name))
        return Kind::List;
    if (name.places.size() > 1)
        return Kind::Places;
    return IsOneCell(context, name.places.front()) ? Kind::Cell : Kind::Range;
}

QString WhyUnusable(TemplateContext &context, const TemplateName &name)
{
    if (!name.places.empty())
        return FaultOfSheets(context, name).text;
    switch (name.kind) {
    case NameMeaning::Kind::Constant:
        return QCoreApplication::translate("XlsxTemplate", "The name stands for a constant, not for a cell.");
    case NameMeaning::Kind::External:
        return QCoreApplication::translate("XlsxTemplate", "The name leads to another workbook.");
    case NameMeaning::Kind::Broken:
        return QCoreApplication::translate("XlsxTemplate", "The name leads nowhere: its cells were deleted (#REF!).");
    case NameMeaning::Kind::Formula:
        return QCoreApplication::translate("XlsxTemplate", "The name stands for a formula, not for a cell.");
    case NameMeaning::Kind::Places:
        break;
    }
    return name.IsTable()
        ? QCoreApplication::translate("XlsxTemplate", "The table has no data rows.")
        : QCoreApplication::translate("XlsxTemplate", "The name leads to a sheet that there is not, or that has no cells.");
}

QString ReferenceOfName(TemplateContext &context, const TemplateName &name)
{
    if (!name.IsTable())
        return QString::fromStdString(OwnText(name.node));
    if (name.places.empty())
        return {};
    const Place &place = name.places.front();
    return QString::fromStdString(QuotedSheetName(context.workbook.SheetName(place.sheet)) + '!' + AbsoluteRangeText(place.range));
}

bool HasFormula(TemplateContext &context, const TemplateName &name, TemplateFault &fault)
{
    bool hasFormula = false;
    fault = ForEachExistingCell(context, name.places, [&hasFormula](int, const pugi::xml_node &cell, int, int) {
        hasFormula = bool(ChildOf(cell, "f"));
        return !hasFormula;
    });
    return hasFormula;
}

QVariant ValueOfName(TemplateContext &context, const TemplateName &name, TemplateFault &fault)
{
    const Place &place = name.places.front();
    if (KindOfName(context, name) == Kind::Range)
        return RowsOf(context, place, fault);
    return ValueAt(context, place.sheet, place.range.firstRow, place.range.firstColumn, fault);
}

QStringList ColumnNamesOf(TemplateContext &context, const TemplateName &name, TemplateFault &fault)
{
    QStringList names;
    if (name.IsTable()) {
        const pugi::xml_node columns = ChildOf(name.table->Root(), "tableColumns");
        for (pugi::xml_node column = ChildOf(columns, "tableColumn"); column; column = NextOfItsName(column))
            names.append(Unescaped(AttributeOf(column, "name").value()));
        return names;
    }
    if (name.places.empty() || name.places.front().range.firstRow == 1)
        return {};
    const Place &place = name.places.front();
    for (int column = place.range.firstColumn; !fault && column <= place.range.lastColumn; ++column)
        names.append(HeaderText(ValueAt(context, place.sheet, place.range.firstRow - 1, column, fault)));
    if (fault)
        return {};
    while (!names.isEmpty() && names.last().isEmpty()) // a whole row has thousands of them
        names.removeLast();
    return names;
}

// --- Filling in ---

TemplateFault SetValueOfName(TemplateContext &context, const TemplateName &name, const QVariant &value)
{
    if (!value.isValid())
        return ClearName(context, name);
    CellContent content;
    TemplateFault fault = ContentOf(value, context.workbook.CountsFrom1904(), content);
    if (fault)
        return {fault.error, QString::fromStdString(name.display) + QLatin1String(": ") + fault.text};
    if (content.shows != TemplateStyles::Shows::Number)
        fault = context.styles.FaultOfReading();
    if (!fault)
        fault = FaultOfSize(name.places);
    const qint64 memory = MemoryOfContent(content);
    PlannedCells planned(context);
    if (!fault) {
        fault = ForEachShownCell(context, name.places, [&](int sheet, int row, int column) {
            const TemplateFault refusal = context.FaultOfChoice(sheet, row, column, value);
            return refusal ? refusal : planned.Put(sheet, row, column, memory);
        });
    }
    if (!fault)
        fault = context.package.TakeMemory(planned.Bytes());
    if (fault)
        return fault;
    return ForEachShownCell(context, name.places,
                            [&](int sheet, int row, int column) { return context.PutContent(sheet, row, column, content); });
}

TemplateFault SetFormulaOfName(TemplateContext &context, const TemplateName &name, const QString &formula)
{
    const QString trimmed = formula.trimmed();
    const QString text = trimmed.startsWith(QLatin1Char('=')) ? trimmed.mid(1).trimmed() : trimmed;
    if (text.isEmpty() || text.size() > kLongestFormula) {
        return {
            Error::ValueError,
            text.size() > kLongestFormula
                ? QCoreApplication::translate("XlsxTemplate", "The formula has %n characters; a cell holds %1.", nullptr, int(text.size()))
                      .arg(kLongestFormula)
                : QCoreApplication::translate("XlsxTemplate", "The formula is empty.")};
    }
    const std::string escaped = Escaped(text);
    const qint64 memory = MemoryOfFormula(escaped);
    PlannedCells planned(context);
    TemplateFault fault = FaultOfSize(name.places);
    if (!fault) {
        fault = ForEachShownCell(context, name.places, [&](int sheet, int row, int column) {
            const TemplateFault refusal = context.FaultOfCell(sheet, row, column);
            return refusal ? refusal : planned.Put(sheet, row, column, memory);
        });
    }
    if (!fault)
        fault = context.package.TakeMemory(planned.Bytes());
    if (fault)
        return fault;
    return ForEachShownCell(context, name.places,
                            [&](int sheet, int row, int column) { return context.PutFormula(sheet, row, column, escaped); });
}

TemplateFault SetValuesOfName(TemplateContext &context, const TemplateName &name, const QVector<QVariantList> &rows,
                              XlsxTemplate::Fitted &fitted)
{
    if (name.places.size() != 1) {
        return {Error::UnusableName,
                QCoreApplication::translate("XlsxTemplate", "The name stands for several places; rows fill one range.")};
    }
    const Place &place = name.places.front();
    fitted.rows = std::min(int(rows.size()), place.range.RowCount());
    fitted.columns = 0;
    for (int row = 0; row < fitted.rows; ++row)
        fitted.columns = std::max(fitted.columns, std::min(int(rows.at(row).size()), place.range.ColumnCount()));

    const auto forEachValue = [&](const auto &visit) {
        TemplateFault fault;
        for (int row = 0; row < fitted.rows; ++row) {
            const QVariantList &values = rows.at(row);
            for (int column = 0; column < std::min(int(values.size()), fitted.columns); ++column) {
                const QVariant &value = values.at(column);
                if (value.userType() == qMetaTypeId<XlsxTemplate::Keep>())
                    continue;
                if ((fault = visit(place.range.firstRow + row, place.range.firstColumn + column, value)))
                    return fault;
            }
        }
        return fault;
    };
    TemplateSheet *sheet = nullptr;
    TemplateFault fault = context.styles.FaultOfReading();
    if (!fault)
        sheet = context.workbook.Sheet(place.sheet, fault);
    if (!sheet)
        return fault;
    const auto isEmptyAndHidden = [sheet](int row, int column, const QVariant &value) {
        const CellRange *merge = value.isValid() ? nullptr : sheet->MergeAt(row, column);
        return merge && (merge->firstRow != row || merge->firstColumn != column);
    };
    PlannedCells planned(context);
    CellContent content;
    fault = forEachValue([&](int row, int column, const QVariant &value) {
        if (isEmptyAndHidden(row, column, value))
            return TemplateFault();
        const TemplateFault refusal = context.FaultOfValue(place.sheet, row, column, value, content);
        return refusal ? refusal : planned.Put(place.sheet, row, column, MemoryOfContent(content));
    });
    if (!fault)
        fault = context.package.TakeMemory(planned.Bytes());
    if (fault)
        return fault;
    return forEachValue([&](int row, int column, const QVariant &value) {
        return isEmptyAndHidden(row, column, value) ? TemplateFault() : context.PutValue(place.sheet, row, column, value);
    });
}

TemplateFault ClearName(TemplateContext &context, const TemplateName &name)
{
    TemplateFault fault;
    std::vector<std::pair<int, std::pair<int, int>>> cells;
    qint64 memory = 0;
    const TemplateFault unread = ForEachExistingCell(context, name.places, [&](int sheet, const pugi::xml_node &cell, int row, int column) {
        if (!cell.first_child())
            return true;
        fault = context.FaultOfGroup(sheet, row, column);
        cells.push_back({sheet, {row, column}});
        memory += MemoryMadeIn(cell);
        return !fault;
    });
    if (unread || fault)
        return unread ? unread : fault;
    context.package.TakeMemory(-memory);
    for (const auto &[sheet, position] : cells) {
        if ((fault = context.PutContent(sheet, position.first, position.second, {})))
            return fault;
    }
    return {};
}

TemplateFault RowsByColumn(TemplateContext &context, const TemplateName &name, const QVector<QVariantHash> &named,
                           QVector<QVariantList> &rows)
{
    TemplateFault unread;
    const QStringList columns = ColumnNamesOf(context, name, unread);
    if (unread)
        return unread;
    QStringList shown = columns;
    shown.removeAll(QString());
    QHash<QString, int> columnOf;
    for (int column = int(columns.size()) - 1; column >= 0; --column)
        columnOf.insert(columns.at(column).toCaseFolded(), column);
    columnOf.remove(QString());
    for (const QVariantHash &values : named) {
        QVariantList row;
        for (int column = 0; column < columns.size(); ++column)
            row.append(QVariant::fromValue(XlsxTemplate::Keep()));
        for (auto value = values.cbegin(); value != values.cend(); ++value) {
            const int column = columnOf.value(value.key().trimmed().toCaseFolded(), -1);
            if (column < 0) {
                return {Error::ValueError,
                        columnOf.isEmpty()
                            ? QCoreApplication::translate("XlsxTemplate", "The columns have no names: there is no row of texts above.")
                            : QCoreApplication::translate("XlsxTemplate", "There is no column %1; there are %2.")
                                  .arg(value.key(), shown.join(QLatin1String(", ")))};
            }
            row[column] = value.value();
        }
        rows.append(row);
    }
    return {};
}

} // namespace Velmora
