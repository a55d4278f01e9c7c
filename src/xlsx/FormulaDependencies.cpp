#include "xlsx/FormulaDependencies_p.h"

#include <QString>

#include <algorithm>

namespace Velmora {

namespace {

constexpr std::size_t kMostUses = 8000000; // a formula beyond them may use anything
constexpr int kMostSteps = 200;            // for each use; some fifty are usual among 100,000

std::string Folded(std::string_view name)
{
    if (std::all_of(name.begin(), name.end(), [](char c) { return c > 0; })) {
        std::string folded(name);
        std::transform(folded.begin(), folded.end(), folded.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c | 0x20) : c; });
        return folded;
    }
    return QString::fromUtf8(name.data(), int(name.size())).toCaseFolded().toStdString();
}

/// True if the text of a name has a reference that means another cell for each formula that uses the name.
bool DependsOnPlace(std::string_view text)
{
    FormulaReader reader(text);
    FormulaToken token;
    const auto isRelative = [](const ReferenceCorner &corner) {
        return (corner.row > 0 && !corner.isRowFixed) || (corner.column > 0 && !corner.isColumnFixed);
    };
    while (reader.Next(token)) {
        if (token.kind == FormulaToken::Kind::Range && (isRelative(token.first) || isRelative(token.last) || token.prefix.empty()))
            return true;
    }
    return false;
}

} // namespace

FormulaDependencies::FormulaDependencies(const std::vector<std::string> &sheetNames)
    : m_nameNumbers(sheetNames.size() + 1)
    , m_used(sheetNames.size())
{
    for (std::size_t sheet = 0; sheet < sheetNames.size(); ++sheet)
        m_sheetNumbers.emplace(Folded(sheetNames[sheet]), int(sheet));
}

void FormulaDependencies::AddName(std::string_view name, int localSheet, std::string_view text)
{
    const std::size_t scope = localSheet >= 0 && std::size_t(localSheet) < m_used.size() ? std::size_t(localSheet) : m_used.size();
    if (!m_nameNumbers[scope].emplace(Folded(name), int(m_names.size())).second)
        return;
    Node node;
    node.name = int(m_names.size());
    m_names.push_back({int(m_nodes.size()), std::string(text), {}});
    m_nodes.push_back(node);
}

void FormulaDependencies::AddTable(std::string_view name, int sheet, const CellRange &range)
{
    m_tableNumbers.emplace(Folded(name), int(m_tables.size()));
    m_tables.push_back({sheet, range});
}

void FormulaDependencies::AddFormula(int sheet, const CellRange &cells, std::string_view text)
{
    const int node = int(m_nodes.size());
    m_formulas.push_back(node);
    Node added;
    added.sheet = sheet;
    added.cells = cells;
    m_nodes.push_back(added);
    AddUses(node, text);
}

void FormulaDependencies::AddVolatileFormula(int sheet, const CellRange &cells)
{
    AddFormula(sheet, cells, {});
    m_volatile.push_back(m_formulas.back());
}

void FormulaDependencies::AddView(std::string_view text)
{
    const int node = int(m_nodes.size());
    m_formulas.push_back(node);
    m_nodes.emplace_back();
    AddUses(node, text);
}

void FormulaDependencies::AddChange(int sheet, const CellRange &cells)
{
    m_changes.push_back({sheet, cells});
}

void FormulaDependencies::AddUses(int node, std::string_view text)
{
    for (const FormulaUse &use : References(text)) {
        bool isKnown = m_useCount < kMostUses;
        switch (use.kind) {
        case FormulaUse::Kind::Range:
            AddRanges(node, use);
            break;
        case FormulaUse::Kind::Name:
            isKnown = AddName(node, use) && isKnown;
            break;
        case FormulaUse::Kind::Table:
            isKnown = AddTable(node, use) && isKnown;
            break;
        case FormulaUse::Kind::Everything:
            isKnown = false;
            break;
        }
        if (!isKnown) {
            m_volatile.push_back(node);
            return;
        }
    }
}

void FormulaDependencies::AddRanges(int node, const FormulaUse &use)
{
    int first = use.sheet.first.empty() ? m_nodes[std::size_t(node)].sheet : SheetIndex(use.sheet.first);
    int last = use.sheet.last.empty() ? first : SheetIndex(use.sheet.last);
    if (first > last)
        std::swap(first, last);
    for (int sheet = first; sheet >= 0 && sheet <= last; ++sheet)
        AddRange(node, sheet, use.range);
}

/// A name that is nowhere is a variable, or an error whatever changes.
bool FormulaDependencies::AddName(int node, const FormulaUse &use)
{
    const std::string key = Folded(use.name);
    const int own = use.sheet.first.empty() ? m_nodes[std::size_t(node)].sheet : SheetIndex(use.sheet.first);
    const Numbers &local = m_nameNumbers[own >= 0 ? std::size_t(own) : m_used.size()];
    const Numbers &global = m_nameNumbers.back();
    auto found = local.find(key);
    if (found == local.end()) {
        found = global.find(key);
        if (found == global.end())
            // Formulas may name a table without its brackets.
            return m_tableNumbers.find(key) == m_tableNumbers.end() || AddTable(node, use);
    }
    Name &name = m_names[std::size_t(found->second)];
    name.users.push_back(node);
    ++m_useCount;
    return true;
}

bool FormulaDependencies::AddTable(int node, const FormulaUse &use)
{
    const auto found = m_tableNumbers.find(Folded(use.name));
    if (!use.name.empty() && found == m_tableNumbers.end())
        return true; // an error whatever changes
    if (use.name.empty()) {
        const Node &own = m_nodes[std::size_t(node)];
        const auto holds = [&own](const Cells &table) { return table.sheet == own.sheet && table.range.Intersects(own.cells); };
        const auto table = m_tables.size() <= 1000 ? std::find_if(m_tables.begin(), m_tables.end(), holds) : m_tables.end();
        if (table == m_tables.end())
            return false;
        AddRange(node, table->sheet, table->range);
        return true;
    }
    const Cells &table = m_tables[std::size_t(found->second)];
    AddRange(node, table.sheet, table.range);
    return true;
}

void FormulaDependencies::AddRange(int node, int sheet, const CellRange &range)
{
    m_used[std::size_t(sheet)].Add(range, node);
    ++m_useCount;
}

int FormulaDependencies::SheetIndex(const std::string &name) const
{
    const auto found = m_sheetNumbers.find(Folded(name));
    return found == m_sheetNumbers.end() ? -1 : found->second;
}

void FormulaDependencies::SetStale(int node)
{
    std::vector<int> open{node};
    while (!open.empty()) {
        Node &reached = m_nodes[std::size_t(open.back())];
        open.pop_back();
        if (reached.isStale)
            continue;
        reached.isStale = true;
        if (reached.name < 0) {
            if (reached.sheet >= 0)
                m_changes.push_back({reached.sheet, reached.cells});
        } else {
            const std::vector<int> &users = m_names[std::size_t(reached.name)].users;
            open.insert(open.end(), users.begin(), users.end());
        }
    }
}

/// False if it takes too long.
bool FormulaDependencies::Follow()
{
    qint64 stepsLeft = kMostSteps * qint64(m_useCount + m_changes.size() + 1000);
    while (!m_changes.empty() && stepsLeft > 0) {
        const Cells change = m_changes.back();
        m_changes.pop_back();
        stepsLeft -= m_used[std::size_t(change.sheet)].TakeMeeting(change.range, [this](int node) { SetStale(node); });
    }
    return m_changes.empty();
}

std::vector<bool> FormulaDependencies::Stale()
{
    std::vector<bool> stale(m_formulas.size(), false);
    if (m_changes.empty())
        return stale;
    for (const Name &name : m_names) {
        if (DependsOnPlace(name.text))
            m_volatile.push_back(name.node);
        else
            AddUses(name.node, name.text);
    }
    for (RangeIndex &used : m_used)
        used.Build();
    for (const int node : m_volatile)
        SetStale(node);
    const bool isFollowed = Follow();
    for (std::size_t formula = 0; formula < stale.size(); ++formula)
        stale[formula] = !isFollowed || m_nodes[std::size_t(m_formulas[formula])].isStale;
    return stale;
}

} // namespace Velmora
