#pragma once

#include "xlsx/TemplateWorkbook_p.h"

#include <map>
#include <string>
#include <vector>

namespace Velmora {

/// A picture in a drawing.
struct FoundPicture
{
    pugi::xml_node node;
    std::string drawing; ///< its part
    int sheet = 0;       ///< the first that shows the drawing
};

/// The pictures of a workbook by their names, found in one walk over its drawings.
class PictureIndex
{
public:
    PictureIndex(XlsxPackage &package, TemplateWorkbook &workbook);

    /// In the order of the sheets and their drawings, each once.
    const std::vector<std::string> &Names() const { return m_names; }
    /// All of that name, whatever its case; none if there is no such name.
    const std::vector<FoundPicture> &Find(const QString &name) const;
    /// How often a drawing mentions a relationship, by its id. To be kept right by who changes that.
    int &Uses(const std::string &drawing, const std::string &id) { return m_uses[drawing][id]; }

private:
    void AddDrawing(XmlPart &drawing, const std::string &part, int sheet);

    std::vector<std::string> m_names;
    std::map<QString, std::vector<FoundPicture>> m_pictures; ///< by folded name
    std::map<std::string, std::map<std::string, int, std::less<>>> m_uses;
    const std::vector<FoundPicture> m_none{};
};

} // namespace Velmora
