#pragma once

#include <QString>

#include <pugixml.hpp>

#include <memory>

namespace FillTemplate {

/// A part that is edited and otherwise stays as it is: comments, processing instructions, white space and declaration are kept.
class XmlPart
{
public:
    /// A part that cannot be read is a Failure.
    explicit XmlPart(const QString &path);

    pugi::xml_document &Document() { return *m_document; }
    pugi::xml_node Root() { return m_document->document_element(); }
    void Save();

private:
    QString m_path;
    std::unique_ptr<pugi::xml_document> m_document;
    pugi::xml_encoding m_encoding = pugi::encoding_utf8;
};

QString Text(const char *utf8);

/// Every element below \a root, \a root included, in document order, without recursion.
template <typename Visit>
void ForEachElement(const pugi::xml_node &root, const Visit &visit)
{
    pugi::xml_node node = root;
    while (node) {
        if (node.type() == pugi::node_element)
            visit(node);
        pugi::xml_node next = node.first_child();
        while (!next && node && node != root) {
            next = node.next_sibling();
            if (!next)
                node = node.parent();
        }
        node = next;
    }
}

} // namespace FillTemplate
