#pragma once

#include <QtGlobal>

namespace Velmora {

/// What may be made of a package in memory, parsed parts and all that grows from them, so that no author of one chooses how much a
/// process takes: it stays below 1 GiB.
class MemoryBudget
{
public:
    static constexpr qint64 kBytes = 800LL * 1024 * 1024;

    /// False, and nothing taken, if that is more than is left.
    bool Take(qint64 bytes);
    /// Takes what pugixml and an index make of the part, and what it takes to write it again. One pass over its bytes, to be made
    /// before it is parsed.
    bool TakePart(const char *xml, qint64 size);
    /// Takes a text of a part that becomes a value, and \a copies of it in the part when that is written.
    bool TakeText(const char *utf8, qint64 copies);

private:
    qint64 m_left = kBytes;
};

} // namespace Velmora
