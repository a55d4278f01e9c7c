#pragma once

#include <QtGlobal>

#include <string_view>

namespace Velmora {

/// What may be made of a package in memory, parsed parts and all that grows from them or is put into them, so that neither an author of
/// one nor what it is filled with chooses how much a process takes: it stays below 1 GiB.
class MemoryBudget
{
public:
    static constexpr qint64 kBytes = 800LL * 1024 * 1024;

    /// False, and nothing taken, if that is more than is left.
    bool Take(qint64 bytes);
    bool Has(qint64 bytes) const { return bytes <= m_left; }
    /// What is no longer there; less than nothing for what was made without being asked for.
    void GiveBack(qint64 bytes) { m_left += bytes; }
    /// Takes what pugixml and an index make of the part, and what it takes to write it again. One pass over its bytes, to be made
    /// before it is parsed.
    bool TakePart(const char *xml, qint64 size);
    /// Takes a text of a part that becomes a value, and \a copies of it in the part when that is written.
    bool TakeText(const char *utf8, qint64 copies);
    /// What a text takes that is put into a part, until it is written and packed.
    static qint64 OfText(std::string_view utf8);

private:
    qint64 m_left = kBytes;
};

} // namespace Velmora
