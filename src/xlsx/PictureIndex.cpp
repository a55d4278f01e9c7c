#include "xlsx/PictureIndex_p.h"

#include <set>

namespace Velmora {

PictureIndex::PictureIndex(XlsxPackage &package, TemplateWorkbook &workbook)
{
    std::set<std::string> done;
    for (int sheet = 0; sheet < workbook.SheetCount(); ++sheet) {
        for (const Relationship &relationship : package.RelationshipsOf(workbook.SheetPartName(sheet))) {
            TemplateFault fault;
            const bool isNew = relationship.type == "drawing" && !relationship.isExternal && done.insert(relationship.target).second;
            if (XmlPart *drawing = isNew ? package.Parsed(relationship.target, fault) : nullptr)
                AddDrawing(*drawing, relationship.target, sheet);
        }
    }
}

void PictureIndex::AddDrawing(XmlPart &drawing, const std::string &part, int sheet)
{
    // Pictures lie in groups, too, and in what is there for one edition of the format or the other.
    pugi::xml_node node = drawing.Root();
    while (node) {
        for (const pugi::xml_attribute &attribute : node.attributes()) {
            if (std::strchr(attribute.name(), ':')) // ids have the prefix of relationships
                ++m_uses[{part, attribute.value()}];
        }
        if (IsElement(node, "pic")) {
            const std::string name = AttributeOf(ChildOf(ChildOf(node, "nvPicPr"), "cNvPr"), "name").value();
            if (!name.empty()) {
                std::vector<FoundPicture> &named = m_pictures[QString::fromStdString(name).toCaseFolded()];
                if (named.empty())
                    m_names.push_back(name);
                named.push_back({node, part, sheet});
            }
        }
        if (node.first_child()) {
            node = node.first_child();
            continue;
        }
        while (node && !node.next_sibling())
            node = node.parent();
        node = node.next_sibling();
    }
}

const std::vector<FoundPicture> &PictureIndex::Find(const QString &name) const
{
    const auto found = m_pictures.find(name.toCaseFolded());
    return found == m_pictures.end() ? m_none : found->second;
}

} // namespace Velmora
