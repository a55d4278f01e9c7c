#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <pugixml.hpp>

namespace Velmora {

// Elements are found by their local names, because a document may have any prefix for its namespace, or none.

/// The name behind the prefix.
const char *LocalName(const pugi::xml_node &node);
inline bool IsElement(const pugi::xml_node &node, const char *localName)
{
    return node.type() == pugi::node_element && std::strcmp(LocalName(node), localName) == 0;
}
/// The first child of that name, or an empty node.
pugi::xml_node ChildOf(const pugi::xml_node &parent, const char *localName);
/// The next sibling that has the name of \a node, or an empty node.
pugi::xml_node NextOfItsName(const pugi::xml_node &node);
/// Makes a child with the prefix of \a parent, in front of \a before, or last if that is empty.
pugi::xml_node MakeChild(pugi::xml_node parent, const char *localName, const pugi::xml_node &before = {});
/// An attribute by its local name: of two, the one without a prefix.
pugi::xml_attribute AttributeOf(const pugi::xml_node &node, const char *localName);
void SetAttribute(pugi::xml_node node, const char *name, const char *value);

/// A copy of \a node in \a parent, in front of \a before, or last if that is empty. It has texts of its own, whereas pugixml's would have
/// the place in the source of \a node forgotten. For small elements.
pugi::xml_node CopyInFrontOf(const pugi::xml_node &node, pugi::xml_node parent, const pugi::xml_node &before = {});

/// All text in an element and in what is in it, as it reads.
std::string AllText(const pugi::xml_node &node);
/// The element's own text: several pieces and CDATA too.
std::string OwnText(const pugi::xml_node &node);
/// Puts \a text in place of all that is in \a node. What XML has no room for must be gone from it.
void SetOwnText(pugi::xml_node node, std::string_view text);

/// A parsed part of a package. Written again, all but what it was told has changed stands byte for byte as it stood. (Where
/// ChangedEverywhere() was said, the rest keeps its meaning, and the blanks between elements, not its spelling.)
class XmlPart
{
public:
    XmlPart() = default;
    XmlPart(const XmlPart &) = delete;
    XmlPart &operator=(const XmlPart &) = delete;

    /// False if it is not well-formed, or so odd that no program wrote it: deeper than 256 elements, an element of more than 1,000
    /// attributes, a cell of more than 1,000 elements.
    bool Parse(const QByteArray &source);
    /// What it was parsed of; null once much has changed.
    const QByteArray &Source() const { return m_source; }
    pugi::xml_document &Document() { return m_document; }
    /// The element that holds all others.
    pugi::xml_node Root() const { return m_document.document_element(); }

    /// To be told after \a node, or what is in it, changed, and of a new element. Of a new one the element around it is not said.
    void Changed(const pugi::xml_node &node);
    /// Takes an element out of the document.
    void Remove(pugi::xml_node node);
    /// To be told when much changes, and before elements are moved, or copied by pugixml.
    void ChangedEverywhere();
    bool IsChanged() const { return m_changedEverywhere || !m_changed.empty() || !m_removed.empty(); }

    QByteArray Written() const;

private:
    struct Edit
    {
        std::size_t begin = 0; ///< of what it takes the place of, in the source
        std::size_t end = 0;
        pugi::xml_node node{};    ///< what is written there; nothing if it is empty
        bool isRun = false;       ///< with the new elements that follow it
        bool opensParent = false; ///< the element around it was empty, in one tag
    };

    void IndexChanges();
    void ForgetChangesIn(const pugi::xml_node &removed);
    bool IsInSource(const pugi::xml_node &node) const;
    std::size_t BeginOf(const pugi::xml_node &node) const;
    Edit Insertion(const pugi::xml_node &first) const;
    std::vector<Edit> Edits() const;
    void ForgetRepetitions();
    QByteArray WrittenAnew() const;

    QByteArray m_source;
    pugi::xml_document m_document;
    std::vector<pugi::xml_node> m_changed;
    std::unordered_map<std::size_t, std::size_t> m_changeIndex; ///< places in m_changed by the nodes' hashes, from the first removal on
    bool m_isIndexed = false;
    std::size_t m_mostChanged = 1024; ///< before they are looked through for those that are told more than once
    std::vector<Edit> m_removed;
    bool m_keepsPlaces = false; ///< a node's offset in the source is known
    bool m_changedEverywhere = false;
};

} // namespace Velmora
