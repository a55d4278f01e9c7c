#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <pugixml.hpp>

namespace Velmora {

/// A hash with a key of this process, so that no file can hold texts that all meet in one slot.
std::size_t KeyedHash(std::string_view text);

/// Items found by a text that each of them holds: of several with one text, the first that came in. An item converts to bool, a
/// default one to false, and \a Text gives its text. Open addressing over bare items, because a sheet has one for every cell.
template <typename Item, typename Text>
class FirstByText
{
public:
    explicit FirstByText(Text text)
        : m_text(text)
    {
    }

    /// False if there was one.
    bool InsertIfAbsent(const Item &item)
    {
        // At most two thirds full, so that probing stays short.
        if (m_used * 3 >= m_slots.size() * 2)
            Grow();
        Item &slot = m_slots[SlotOf(m_text(item))];
        if (slot)
            return false;
        slot = item;
        ++m_used;
        return true;
    }
    Item Find(const char *text) const { return m_slots.empty() ? Item() : m_slots[SlotOf(text)]; }

private:
    std::size_t SlotOf(std::string_view text) const
    {
        const std::size_t mask = m_slots.size() - 1;
        std::size_t slot = KeyedHash(text) & mask;
        while (m_slots[slot] && m_text(m_slots[slot]) != text)
            slot = (slot + 1) & mask;
        return slot;
    }
    void Grow()
    {
        constexpr std::size_t kFirstSlots = 64;
        std::vector<Item> old(m_slots.empty() ? kFirstSlots : m_slots.size() * 2);
        old.swap(m_slots);
        for (const Item &item : old) {
            if (item)
                m_slots[SlotOf(m_text(item))] = item;
        }
    }

    Text m_text;
    std::vector<Item> m_slots;
    std::size_t m_used = 0;
};

/// Nodes found by the value of one attribute. Nodes without it are passed over.
class NodesByAttribute
{
public:
    explicit NodesByAttribute(const char *attribute)
        : m_attribute(attribute)
        , m_nodes(Value{attribute})
    {
    }

    /// False if the node is passed over, or if there was one.
    bool InsertIfAbsent(const pugi::xml_node &node) { return node.attribute(m_attribute) && m_nodes.InsertIfAbsent(node); }
    pugi::xml_node Find(const QByteArray &value) const { return m_nodes.Find(value.constData()); }

private:
    struct Value
    {
        const char *attribute;
        std::string_view operator()(const pugi::xml_node &node) const { return node.attribute(attribute).value(); }
    };

    const char *m_attribute;
    FirstByText<pugi::xml_node, Value> m_nodes;
};

/// Of a list of numbered or named siblings, those that exceed every one before them: the first sibling above a given key is one
/// of them, whatever the order of the others.
template <typename Key>
class RisingSiblings
{
public:
    bool IsEmpty() const { return m_siblings.empty(); }
    /// For siblings in their order, and for one inserted before FirstAbove() of its key.
    void Insert(const Key &key, const pugi::xml_node &node) { m_siblings.emplace(key, node); }
    void Append(const Key &key, const pugi::xml_node &node)
    {
        if (m_siblings.empty() || m_siblings.rbegin()->first < key)
            m_siblings.emplace(key, node);
    }
    /// Empty if there is none.
    pugi::xml_node FirstAbove(const Key &key) const
    {
        const auto above = m_siblings.upper_bound(key);
        return above == m_siblings.end() ? pugi::xml_node() : above->second;
    }

private:
    std::map<Key, pugi::xml_node> m_siblings;
};

// The documents below know the parts of a package by what is asked of them. Each builds its index at the first question, in one walk
// over the document, and keeps it right as it adds nodes; so the index serves every object that shares the document.
// Questions about nodes have the answer of the first match in document order.

/// A worksheet.
class SheetDocument : public pugi::xml_document
{
public:
    pugi::xml_node FindCell(const QByteArray &position);
    /// A new cell, in a new row if need be. Rows are ordered by number, cells in a row by their whole reference as text.
    pugi::xml_node MakeCell(int row, const QByteArray &position);

    pugi::xml_node FindListValidation(const QByteArray &position);
    /// Empty if the sheet has neither validations nor page margins to put them in front of.
    pugi::xml_node MakeListValidation(const QByteArray &position);

    /// IsOrdinary() of this document, told while its index is built.
    bool IsOrdinary() { return TheIndex().isOrdinary; }

private:
    /// In a sheet as programs write it, the digits at the end of a cell's reference name its row, and a cell is found by looking through
    /// that row. In any other all cells are indexed, which takes a slot for each: no file may choose rows that take long to look through.
    struct Index
    {
        bool isOrdinary = true;
        bool cellsAreLight = true; ///< none has so many attributes that looking through a row takes long
        bool cellsLieInTheirRows = true;
        NodesByAttribute cells{"r"}; ///< empty if they lie in their rows
        NodesByAttribute rows{"r"};
        NodesByAttribute listValidations{"sqref"};
        pugi::xml_node sheetData;
        pugi::xml_node dataValidations;
        pugi::xml_node worksheet;
        pugi::xml_node pageMargins;
        std::unique_ptr<RisingSiblings<int>> risingRows;                          ///< made with the first new row
        std::unordered_map<std::size_t, RisingSiblings<std::string>> risingCells; ///< of the rows that are not looked through
    };

    Index &TheIndex();
    void IndexAllCells();
    RisingSiblings<int> &RisingRows();
    pugi::xml_node MakeRow(int row);
    RisingSiblings<std::string> &RisingCells(const pugi::xml_node &row);
    pugi::xml_node MakeCellInRow(pugi::xml_node row, const char *position);

    std::unique_ptr<Index> m_index;
};

/// The shared strings.
class SharedStringsDocument : public pugi::xml_document
{
public:
    /// The direct text of the string at \a index, or a null pointer beyond the table.
    const char *TextAt(int index);
    /// The index of the first string of that text, which is added if there is none.
    int IndexOf(const QByteArray &text);

private:
    struct Item
    {
        const char *text = nullptr; ///< the document's own
        int index = -1;
        explicit operator bool() const { return text; }
    };
    struct TextOfItem
    {
        std::string_view operator()(const Item &item) const { return item.text; }
    };
    struct Index
    {
        std::vector<const char *> texts;
        FirstByText<Item, TextOfItem> firstOfText{TextOfItem()};
        pugi::xml_node table;
    };

    Index &TheIndex();

    std::unique_ptr<Index> m_index;
};

/// The workbook.
class WorkbookDocument : public pugi::xml_document
{
public:
    pugi::xml_node FindSheet(const QByteArray &name);
    pugi::xml_node FindDefinedName(const QByteArray &name);
    /// A new defined name of that text, behind the others.
    void AppendDefinedName(const QByteArray &name, const QByteArray &text);
    /// All defined names, in document order.
    const std::vector<pugi::xml_node> &DefinedNames();

private:
    struct Index
    {
        NodesByAttribute sheets{"name"};
        NodesByAttribute definedNames{"name"};
        std::vector<pugi::xml_node> allDefinedNames;
    };

    Index &TheIndex();

    std::unique_ptr<Index> m_index;
};

/// A relationships part.
class RelationshipsDocument : public pugi::xml_document
{
public:
    pugi::xml_node FindById(const QByteArray &id);
    pugi::xml_node FindByTarget(const QByteArray &target);
    /// True if the part has any relationship to number the next one after.
    bool HasRelationships();
    /// A new relationship with the next free number. Empty if the part has no root to hold it.
    pugi::xml_node Append(const char *type, const QByteArray &target);

private:
    struct Index
    {
        NodesByAttribute ids{"Id"};
        NodesByAttribute targets{"Target"};
        pugi::xml_node root;
        bool hasRelationships = false;
        qint64 highestNumber = 0;
    };

    Index &TheIndex();

    std::unique_ptr<Index> m_index;
};

/// A drawing.
class DrawingDocument : public pugi::xml_document
{
public:
    /// All pictures, in document order.
    const std::vector<pugi::xml_node> &Pictures();
    /// The pictures of that name, in document order.
    std::vector<pugi::xml_node> PicturesNamed(const QByteArray &name);

    static QByteArray NameOf(const pugi::xml_node &picture);
    /// The element that refers to the picture's image; empty if there is none.
    static pugi::xml_node ImageOf(const pugi::xml_node &picture);

private:
    struct Index
    {
        std::vector<pugi::xml_node> pictures;
        std::map<QByteArray, std::vector<pugi::xml_node>> byName;
    };

    Index &TheIndex();

    std::unique_ptr<Index> m_index;
};

/// The number in a relationship id such as rId7; 0 for any other form and for one beyond 32 bits.
int RelationshipNumber(const char *id);

/// A text of a document, which pugixml holds as UTF-8.
QString TextOf(const char *utf8);

/// True if no element has so many attributes or children that looking one of them up costs more than it may: more than 1,000
/// attributes, or as many children of a cell or a validation; in a sheet, nor a reference of more than 1,000 bytes. No program
/// writes such parts.
bool IsOrdinary(const pugi::xml_document &document);
bool IsOrdinary(SheetDocument &document);

/// Calls \a visit for each element of \a document in document order, without recursion.
template <typename Visit>
void ForEachElement(const pugi::xml_document &document, const Visit &visit)
{
    pugi::xml_node node = document.first_child();
    while (node) {
        if (node.type() == pugi::node_element) {
            visit(node);
            if (const pugi::xml_node child = node.first_child()) {
                node = child;
                continue;
            }
        }
        pugi::xml_node next = node.next_sibling();
        while (!next) {
            node = node.parent();
            if (node.type() == pugi::node_document)
                return;
            next = node.next_sibling();
        }
        node = next;
    }
}

} // namespace Velmora
