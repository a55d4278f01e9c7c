#pragma once

#include "xlsx/CellReference_p.h"

#include <algorithm>
#include <vector>

namespace Velmora {

/// Ranges of one sheet, of which those that meet another one are found without looking at all of them. What the ranges belong to is a
/// number.
class RangeIndex
{
public:
    void Add(const CellRange &range, int owner) { m_entries.push_back({range, owner}); }
    /// To be called once, before anything is looked for.
    void Build();

    /// Calls visit(owner) for each range that meets \a range and takes it out. Returns the number of steps that it took.
    template <typename Visit>
    int TakeMeeting(const CellRange &range, const Visit &visit)
    {
        int steps = 0;
        if (!m_boxes.empty())
            TakeBelow(1, range, visit, steps);
        return steps;
    }
    /// Calls visit(owner) for each range that meets \a range and leaves it.
    template <typename Visit>
    void ForEachMeeting(const CellRange &range, const Visit &visit) const
    {
        if (!m_boxes.empty())
            VisitBelow(1, range, visit);
    }
    bool Meets(const CellRange &range) const { return !m_boxes.empty() && MeetsBelow(1, range); }

private:
    struct Entry
    {
        CellRange range;
        int owner;
    };
    static CellRange Nothing() { return {kLastRow + 1, 0, kLastColumn + 1, 0}; }
    void Join(std::size_t box);

    template <typename Visit>
    void TakeBelow(std::size_t box, const CellRange &range, const Visit &visit, int &steps)
    {
        ++steps;
        if (!m_boxes[box].Intersects(range))
            return;
        if (box >= m_leafCount) {
            m_boxes[box] = Nothing();
            visit(m_entries[box - m_leafCount].owner);
            return;
        }
        TakeBelow(2 * box, range, visit, steps);
        TakeBelow(2 * box + 1, range, visit, steps);
        Join(box);
    }
    template <typename Visit>
    void VisitBelow(std::size_t box, const CellRange &range, const Visit &visit) const
    {
        if (!m_boxes[box].Intersects(range))
            return;
        if (box >= m_leafCount) {
            visit(m_entries[box - m_leafCount].owner);
            return;
        }
        VisitBelow(2 * box, range, visit);
        VisitBelow(2 * box + 1, range, visit);
    }
    bool MeetsBelow(std::size_t box, const CellRange &range) const
    {
        return m_boxes[box].Intersects(range) && (box >= m_leafCount || MeetsBelow(2 * box, range) || MeetsBelow(2 * box + 1, range));
    }

    std::vector<Entry> m_entries;   // sorted, so that neighbours lie close
    std::vector<CellRange> m_boxes; // a complete binary tree from 1: the boxes around what is left below, the entries last
    std::size_t m_leafCount = 0;
};

} // namespace Velmora
