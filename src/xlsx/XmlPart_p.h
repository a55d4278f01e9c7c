#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstring>
#include <string_view>
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

/// All text in an element and in what is in it, as it reads.
std::string AllText(const pugi::xml_node &node);
/// The element's own text: several pieces and CDATA too.
std::string OwnText(const pugi::xml_node &node);
/// Puts \a text in place of all that is in \a node. What XML has no room for must be gone from it.
void SetOwnText(pugi::xml_node node, std::string_view text);

/// A parsed part of a package. Written again, it is as it stood but for what it was told has changed: not a blank of the rest differs.
/// (Where ChangedEverywhere() was said, the rest keeps its meaning, and blanks between elements, not its spelling.)
class XmlPart
{
public:
    enum class State { Unchanged, Changed };

    /// False if it is not well-formed, or so large that it would take more than \a bytesLeft, from which it takes what it needs.
    bool Parse(const QByteArray &source, qint64 &bytesLeft);
    pugi::xml_document &Document() { return m_document; }
    /// The element that holds all others.
    pugi::xml_node Root() const { return m_document.document_element(); }

    /// To be told once \a node, with what is in it, is not as it was: after a change in it, also a new child or one less.
    void Changed(const pugi::xml_node &node);
    void ChangedEverywhere() { m_changedEverywhere = true; }
    bool IsChanged() const { return m_changedEverywhere || !m_changed.empty(); }

    /// The part's bytes. \a source is what it was parsed of.
    QByteArray Written(const QByteArray &source) const;

private:
    pugi::xml_document m_document;
    std::vector<pugi::xml_node> m_changed;
    bool m_changedEverywhere = false;
};

} // namespace Velmora
