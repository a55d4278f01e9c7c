#include "xlsx/RowRepetition_p.h"

#include "xlsx/CellMemory_p.h"
#include "xlsx/RowSurroundings_p.h"
#include "xlsx/StaleResults_p.h"

#include <algorithm>

namespace Velmora {

namespace {

using Error = XlsxTemplate::Error;

bool IsKept(const QVariant &value)
{
    return value.userType() == qMetaTypeId<XlsxTemplate::Keep>();
}

/// One call of RepeatRow(): all is asked first, then all is changed.
class Repetition
{
public:
    Repetition(TemplateContext &context, const TemplateName &name, const QVector<QVariantList> &rows)
        : m_context(context)
        , m_name(name)
        , m_rows(rows)
        , m_planned(context)
    {
    }

    TemplateFault Run()
    {
        if (TemplateFault fault = FindRows())
            return fault;
        if (TemplateFault fault = CheckValues())
            return fault;
        RowSurroundings surroundings;
        if (m_move.Shift() != 0) {
            if (TemplateFault fault = FindSurroundings(surroundings))
                return fault;
        }
        if (TemplateFault fault = m_context.package.TakeMemory(m_planned.Bytes()))
            return fault;
        if (m_move.Shift() != 0) {
            if (TemplateFault fault = Move(surroundings)) {
                m_context.package.TakeMemory(-m_planned.Bytes());
                return fault;
            }
        }
        return PutValues();
    }

private:
    TemplateFault FindSurroundings(RowSurroundings &surroundings)
    {
        if (TemplateFault fault = ReadSurroundings(m_context, m_place.sheet, surroundings))
            return fault;
        m_planned.Add(MemoryOfMove(*m_sheet, m_move));
        return FindObstacle(m_context, surroundings, m_move, Filled(), m_name.table);
    }
    TemplateFault Move(const RowSurroundings &surroundings)
    {
        if (m_move.Shift() < 0) {
            // While it can be told what used the rows: a name may have nothing left of them.
            m_context.changed.push_back({m_place.sheet, {m_move.first + m_move.count, m_move.last, 1, kLastColumn}});
            if (TemplateFault fault = RemoveStaleResults(m_context))
                return fault;
        }
        MoveSurroundings(m_context, surroundings, m_move, m_name.IsTable() ? pugi::xml_node() : m_name.node);
        for (const auto &sheet : surroundings.sheets)
            m_context.ForgetRows(sheet.first);
        m_context.workbook.ForgetNames();
        // All that moved is another cell now.
        m_context.changed.push_back({m_place.sheet, {m_move.first, kLastRow, 1, kLastColumn}});
        return {};
    }
    TemplateFault FindRows()
    {
        const QString name = QString::fromStdString(m_name.display);
        const bool isOne = m_name.places.size() == 1 && !m_name.places.front().range.HasWholeColumns();
        if (!isOne) {
            return {Error::UnusableName,
                    QCoreApplication::translate("XlsxTemplate", "%1 is not the name of a row, nor of a table.").arg(name)};
        }
        m_place = m_name.places.front();
        TemplateFault fault;
        m_sheet = m_context.workbook.Sheet(m_place.sheet, fault);
        if (!m_sheet)
            return fault;
        if (m_rows.size() > kLastRow) {
            return {Error::LimitError, QCoreApplication::translate("XlsxTemplate", "A sheet has no more than %1 rows.").arg(kLastRow)};
        }
        // A table has one row at least.
        const int count = std::max(m_name.IsTable() ? 1 : 0, int(m_rows.size()));
        m_move = {m_context.workbook.SheetName(m_place.sheet), m_place.range.firstRow, m_place.range.lastRow, count};
        return {};
    }
    int Width() const
    {
        int width = 0;
        for (const QVariantList &row : m_rows)
            width = std::max(width, int(row.size()));
        return width;
    }
    /// The cells that will be filled in.
    CellRange Filled() const
    {
        CellRange filled = m_place.range;
        filled.lastRow = filled.firstRow + m_move.count - 1;
        filled.lastColumn = std::min(filled.lastColumn, filled.firstColumn + std::max(Width(), 1) - 1);
        return filled;
    }
    /// Whether the rows take their values: those to come are like the last.
    TemplateFault CheckValues()
    {
        TemplateFault fault = m_context.styles.FaultOfReading();
        for (int i = 0; i < m_rows.size() && !fault; ++i) {
            fault = FaultOfRow(m_place.range.firstRow + i, m_rows.at(i));
            if (fault)
                fault.text =
                    QCoreApplication::translate("XlsxTemplate", "Row %1: %2", "a row and what is wrong in it").arg(i + 1).arg(fault.text);
        }
        return fault;
    }
    TemplateFault FaultOfRow(int newRow, const QVariantList &values)
    {
        const int row = std::min(newRow, m_place.range.lastRow); // the one it is, or is a copy of
        if (values.size() > m_place.range.ColumnCount()) {
            return {Error::ValueError,
                    QCoreApplication::translate("XlsxTemplate", "There are %1 values, but %2 has %n columns.", nullptr,
                                                m_place.range.ColumnCount())
                        .arg(QString::number(values.size()), QString::fromStdString(m_name.display))};
        }
        TemplateFault fault;
        for (int i = 0; i < values.size() && !fault; ++i) {
            if (IsKept(values.at(i)))
                continue;
            const int column = m_place.range.firstColumn + i;
            CellContent content;
            if (!values.at(i).isValid()) // cells that others are merged over can be emptied
                fault = m_context.FaultOfGroup(m_place.sheet, row, column);
            else
                fault = m_context.FaultOfValue(m_place.sheet, row, column, values.at(i), content);
            if (fault)
                break;
            fault = row == newRow ? m_planned.Put(m_place.sheet, row, column, MemoryOfContent(content))
                                  : m_planned.PutInCopy(m_place.sheet, row, column, MemoryOfContent(content));
        }
        return fault;
    }
    TemplateFault PutValues()
    {
        for (int i = 0; i < m_rows.size(); ++i) {
            const QVariantList &row = m_rows.at(i);
            for (int column = 0; column < row.size(); ++column) {
                if (IsKept(row.at(column)))
                    continue;
                if (TemplateFault fault =
                        m_context.PutValue(m_place.sheet, m_place.range.firstRow + i, m_place.range.firstColumn + column, row.at(column)))
                    return fault;
            }
        }
        return m_rows.isEmpty() && m_name.IsTable() ? EmptyRow() : TemplateFault();
    }
    /// What is left of a table without entries: its formulas.
    TemplateFault EmptyRow()
    {
        const CellRange &range = m_place.range;
        TemplateFault fault;
        for (int column = range.firstColumn; column <= range.lastColumn && !fault; ++column) {
            if (!ChildOf(m_sheet->FindCell(range.firstRow, column), "f"))
                fault = m_context.PutValue(m_place.sheet, range.firstRow, column, QVariant());
        }
        return fault;
    }

    TemplateContext &m_context;
    const TemplateName m_name; // the workbook's is read anew
    const QVector<QVariantList> &m_rows;
    Place m_place;
    TemplateSheet *m_sheet = nullptr;
    RowMove m_move;
    PlannedCells m_planned;
};

} // namespace

TemplateFault RepeatRow(TemplateContext &context, const TemplateName &name, const QVector<QVariantList> &rows)
{
    return Repetition(context, name, rows).Run();
}

} // namespace Velmora
