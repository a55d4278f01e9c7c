#pragma once

#include "xlsx/TemplateWorkbook_p.h"

#include <QSet>
#include <QStringList>
#include <QVariant>

#include <string>

namespace Velmora {

class TemplateContext;

/// What a cell with a list may hold.
class ListEntries
{
public:
    /// \a source is what the list of a cell in that sheet takes its entries from.
    ListEntries(TemplateContext &context, int sheet, const std::string &source);

    /// False if they cannot be told: those of a formula, or of another workbook, or none yet, of empty cells.
    bool AreKnown() const { return m_areKnown; }
    const QStringList &Texts() const { return m_texts; }
    /// Typed entries are compared as they stand, those in cells whatever their case, as spreadsheet programs do it.
    bool Have(const QVariant &value) const;

    /// Why the cells that they stand in cannot be read.
    const TemplateFault &Fault() const { return m_fault; }
    /// True if that cell is one of them, whether or not it holds one.
    bool AreIn(int sheet, int row, int column) const;

    bool AreOf(int sheet, const std::string &source) const { return m_sheet == sheet && m_source == source; }

private:
    void Split(const std::string &typed);
    bool ReadCells(TemplateContext &context, const std::string &source, int depth);
    bool ReadColumn(TemplateContext &context, const std::string &source);
    bool ReadPlaces(TemplateContext &context, const std::vector<Place> &places);

    int m_sheet;
    std::string m_source;
    bool m_areKnown = false;
    bool m_areTyped = false;
    TemplateFault m_fault;
    std::vector<Place> m_places; ///< where they stand
    QStringList m_texts;
    QSet<QString> m_keys;
};

} // namespace Velmora
