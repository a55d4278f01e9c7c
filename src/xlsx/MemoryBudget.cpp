#include "xlsx/MemoryBudget_p.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace Velmora {

namespace {

// The nodes of pugixml with their share of an index.
constexpr qint64 kElement = 88;
constexpr qint64 kText = 64;
constexpr qint64 kAttribute = 44;
/// A byte that is written as an entity, the longest of which has six.
constexpr qint64 kEscaped = 6;

/// What may become nodes. It is more than does: no text that looks like a tag is told from one, nor white space from text.
struct Counts
{
    qint64 elements = 0;   ///< and comments, instructions, sections
    qint64 texts = 0;      ///< behind the end of a tag
    qint64 attributes = 0; ///< equals signs
    qint64 escaped = 0;

    qint64 Bytes() const { return elements * kElement + texts * kText + attributes * kAttribute + escaped * kEscaped; }
};

constexpr bool IsEscaped(quint8 c)
{
    return (c == '&') | ((c < ' ') & (c != '\n') & (c != '\t'));
}

constexpr int kBlock = 128;

/// Counts in a block of a fixed size, which a compiler makes a few wide instructions. One more byte is read.
void CountBlock(const char *bytes, Counts &counts)
{
    quint8 elements = 0;
    quint8 texts = 0;
    quint8 attributes = 0;
    quint8 escaped = 0;
    for (int i = 0; i < kBlock; ++i) {
        const quint8 c = quint8(bytes[i]);
        const quint8 next = quint8(bytes[i + 1]);
        elements = quint8(elements + ((c == '<') & (next != '/')));
        texts = quint8(texts + ((c == '>') & (next != '<')));
        attributes = quint8(attributes + (c == '='));
        escaped = quint8(escaped + IsEscaped(c));
    }
    counts.elements += elements;
    counts.texts += texts;
    counts.attributes += attributes;
    counts.escaped += escaped;
}

qint64 Written(std::string_view utf8)
{
    return 2 * qint64(utf8.size()) + kEscaped * std::count_if(utf8.begin(), utf8.end(), [](char c) { return IsEscaped(quint8(c)); });
}

} // namespace

bool MemoryBudget::Take(qint64 bytes)
{
    if (bytes > m_left)
        return false;
    m_left -= bytes;
    return true;
}

bool MemoryBudget::TakePart(const char *xml, qint64 size)
{
    // Twice, because a part in another encoding grows as it becomes UTF-8.
    if (2 * size > m_left)
        return false;
    Counts counts;
    qint64 at = 0;
    for (; at + kBlock < size; at += kBlock) {
        CountBlock(xml + at, counts);
        if (counts.Bytes() > m_left)
            return false;
    }
    // Filled up with what counts for nothing, also behind a last '>'.
    char rest[kBlock + 2];
    std::fill(std::begin(rest), std::end(rest), ' ');
    std::memcpy(rest, xml + at, std::size_t(size - at));
    std::memcpy(rest + (size - at), "</", 2);
    CountBlock(rest, counts);
    return Take(2 * size + counts.Bytes());
}

bool MemoryBudget::TakeText(const char *utf8, qint64 copies)
{
    // No further than it may be long.
    const qint64 most = m_left / (2 * copies + 2);
    const qint64 size = qint64(strnlen(utf8, std::size_t(most) + 1));
    if (size > most)
        return false;
    return Take(2 * size + copies * Written({utf8, std::size_t(size)}));
}

qint64 MemoryBudget::OfText(std::string_view utf8)
{
    return 2 * qint64(utf8.size()) + Written(utf8);
}

} // namespace Velmora
