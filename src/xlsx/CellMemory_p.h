#pragma once

#include "xlsx/TemplateContext_p.h"

#include <string>

namespace Velmora {

// What the cells that a host makes take in memory: their nodes, their share of an index, the text that they are written as.

qint64 MemoryOfContent(const CellContent &content);
qint64 MemoryOfFormula(const std::string &formula);
/// A copy of an element, with all that is in it.
qint64 MemoryOfElement(const pugi::xml_node &element);
/// A copy of a row, with its cells.
qint64 MemoryOfRow(const pugi::xml_node &row);
/// What of a cell goes when something is put there.
qint64 MemoryOfContentIn(const pugi::xml_node &cell);
/// The same, but only of what a host has put there: what stood in the package is not given back.
qint64 MemoryMadeIn(const pugi::xml_node &cell);

/// Adds up what an operation will make in cells, before it makes anything.
class PlannedCells
{
public:
    explicit PlannedCells(TemplateContext &context)
        : m_context(context)
    {
    }

    /// Something that takes \a content, in place of what is in that cell; a fault once it is all too much. The cells of a row follow each
    /// other.
    TemplateFault Put(int sheet, int row, int column, qint64 content);
    /// The same in a copy of that cell.
    TemplateFault PutInCopy(int sheet, int row, int column, qint64 content);
    void Add(qint64 bytes) { m_bytes += bytes; }
    qint64 Bytes() const { return m_bytes; }

private:
    void AddRow(TemplateSheet &sheet, int row);
    TemplateFault Fault() const { return m_context.package.HasMemory(m_bytes) ? TemplateFault() : m_context.package.TakeMemory(m_bytes); }

    TemplateContext &m_context;
    const TemplateSheet *m_lastSheet = nullptr;
    int m_lastRow = 0;
    qint64 m_bytes = 0;
};

} // namespace Velmora
