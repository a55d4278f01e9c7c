#include "xlsx/PictureIndex_p.h"

#include <set>

namespace Velmora {

namespace {

constexpr qint64 kMemoryOfPicture = 512;

/// Calls visit(node) for each element. Pictures lie in groups, too, and in what is there for one edition of the format or the other.
template <typename Visit>
void ForEachElement(const XmlPart &part, const Visit &visit)
{
    pugi::xml_node node = part.Root();
    while (node) {
        if (node.type() == pugi::node_element)
            visit(node);
        if (node.first_child()) {
            node = node.first_child();
            continue;
        }
        while (node && !node.next_sibling())
            node = node.parent();
        node = node.next_sibling();
    }
}

qint64 CountPictures(const XmlPart &drawing)
{
    qint64 count = 0;
    ForEachElement(drawing, [&count](const pugi::xml_node &node) { count += IsElement(node, "pic"); });
    return count;
}

} // namespace

PictureIndex::PictureIndex(XlsxPackage &package, TemplateWorkbook &workbook)
{
    std::set<std::string> done;
    for (int sheet = 0; sheet < workbook.SheetCount(); ++sheet) {
        for (const Relationship &relationship : package.RelationshipsOf(workbook.SheetPartName(sheet))) {
            TemplateFault fault;
            const bool isNew = relationship.type == "drawing" && !relationship.isExternal && done.insert(relationship.target).second;
            XmlPart *drawing = isNew ? package.Parsed(relationship.target, fault) : nullptr;
            if (!drawing || !package.TakeMemoryOf(relationship.target, kMemoryOfPicture * CountPictures(*drawing)))
                continue;
            for (const Relationship &listed : package.RelationshipsOf(relationship.target))
                m_uses[relationship.target][listed.id] = 0;
            AddDrawing(*drawing, relationship.target, sheet);
        }
    }
}

void PictureIndex::AddDrawing(XmlPart &drawing, const std::string &part, int sheet)
{
    std::map<std::string, int, std::less<>> &uses = m_uses[part];
    ForEachElement(drawing, [&](const pugi::xml_node &node) {
        for (const pugi::xml_attribute &attribute : node.attributes()) {
            const auto use = uses.find(std::string_view(attribute.value()));
            if (use != uses.end())
                ++use->second;
        }
        const std::string name =
            IsElement(node, "pic") ? AttributeOf(ChildOf(ChildOf(node, "nvPicPr"), "cNvPr"), "name").value() : std::string();
        if (name.empty())
            return;
        std::vector<FoundPicture> &named = m_pictures[QString::fromStdString(name).toCaseFolded()];
        if (named.empty())
            m_names.push_back(name);
        named.push_back({node, part, sheet});
    });
}

const std::vector<FoundPicture> &PictureIndex::Find(const QString &name) const
{
    const auto found = m_pictures.find(name.toCaseFolded());
    return found == m_pictures.end() ? m_none : found->second;
}

} // namespace Velmora
