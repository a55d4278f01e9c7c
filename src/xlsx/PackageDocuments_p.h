#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <map>
#include <optional>
#include <vector>

#include <pugixml.hpp>

namespace Velmora {

/// Nodes found by the value of one attribute: of several nodes with one value, the first that came in.
/// Open addressing over bare node pointers, because a sheet has a node for every cell.
class NodesByAttribute
{
public:
    explicit NodesByAttribute(const char *attribute)
        : m_attribute(attribute)
    {
    }

    /// Nodes without the attribute are passed over.
    void InsertIfAbsent(const pugi::xml_node &node);
    pugi::xml_node Find(const char *value) const;

private:
    std::size_t SlotOf(const char *value) const;
    void Grow();

    const char *m_attribute;
    std::vector<pugi::xml_node> m_slots;
    std::size_t m_used = 0;
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

private:
    struct Index
    {
        NodesByAttribute cells{"r"};
        NodesByAttribute rows{"r"};
        NodesByAttribute listValidations{"sqref"};
        pugi::xml_node sheetData;
        pugi::xml_node dataValidations;
        pugi::xml_node worksheet;
        /// The rows whose number exceeds that of every row before them: the first row above a given number is one of them.
        std::map<int, pugi::xml_node> risingRows;
    };

    Index &TheIndex();
    pugi::xml_node MakeRow(int row);

    std::optional<Index> m_index;
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
    struct Index
    {
        std::vector<pugi::xml_node> items;
        QHash<QByteArray, int> firstOfText;
        pugi::xml_node table;
    };

    Index &TheIndex();

    std::optional<Index> m_index;
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

    std::optional<Index> m_index;
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
        qint64 highestNumber = 0;
    };

    Index &TheIndex();

    std::optional<Index> m_index;
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
        QHash<QByteArray, std::vector<pugi::xml_node>> byName;
    };

    Index &TheIndex();

    std::optional<Index> m_index;
};

/// The number in a relationship id such as rId7; 0 for any other form and for one beyond 32 bits.
int RelationshipNumber(const char *id);

/// A text of a document, which pugixml holds as UTF-8.
QString TextOf(const char *utf8);

/// Calls \a visit for each element of \a document in document order, without recursion.
template <typename Visit>
void ForEachElement(const pugi::xml_document &document, const Visit &visit)
{
    pugi::xml_node node = document.first_child();
    while (node) {
        if (node.type() == pugi::node_element)
            visit(node);
        pugi::xml_node next = node.first_child();
        while (!next && node && node.type() != pugi::node_document) {
            next = node.next_sibling();
            if (!next)
                node = node.parent();
        }
        node = next;
    }
}

} // namespace Velmora
