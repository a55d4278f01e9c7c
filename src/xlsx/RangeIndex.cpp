#include "xlsx/RangeIndex_p.h"

#include <tuple>

namespace Velmora {

void RangeIndex::Build()
{
    if (m_entries.empty())
        return;
    std::sort(m_entries.begin(), m_entries.end(), [](const Entry &one, const Entry &other) {
        const auto key = [](const CellRange &range) {
            return std::tie(range.firstColumn, range.lastColumn, range.firstRow, range.lastRow);
        };
        return key(one.range) < key(other.range);
    });
    m_leafCount = 1;
    while (m_leafCount < m_entries.size())
        m_leafCount *= 2;
    m_boxes.assign(2 * m_leafCount, Nothing());
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        m_boxes[m_leafCount + i] = m_entries[i].range;
    for (std::size_t box = m_leafCount - 1; box > 0; --box)
        Join(box);
}

void RangeIndex::Join(std::size_t box)
{
    const CellRange &one = m_boxes[2 * box];
    const CellRange &other = m_boxes[2 * box + 1];
    m_boxes[box] = {std::min(one.firstRow, other.firstRow), std::max(one.lastRow, other.lastRow),
                    std::min(one.firstColumn, other.firstColumn), std::max(one.lastColumn, other.lastColumn)};
}

} // namespace Velmora
