#include "xlsx/PictureFrame_p.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace Velmora {

namespace {

constexpr double kPixel = 9525; // in EMU, of which 914,400 are an inch
constexpr double kPoint = 12700;
constexpr double kWhole = 100000; // a part of an image is told in thousandths of a percent

struct Size
{
    double width = 0;
    double height = 0;
    explicit operator bool() const { return width > 0 && height > 0; }
};

Size SizeIn(const pugi::xml_node &extent)
{
    return {AttributeOf(extent, "cx").as_double(), AttributeOf(extent, "cy").as_double()};
}

bool IsTrue(const pugi::xml_attribute &attribute)
{
    const std::string_view value = attribute.value();
    return value == "1" || value == "true";
}

/// Widths of columns are told in digits of the workbook's font, seven pixels wide in the fonts that programs begin with.
double WidthOfColumns(double digits)
{
    return std::floor((256 * digits + std::floor(128.0 / 7)) / 256 * 7) * kPixel;
}

/// A place between cells: the number of those in front of it, from 0, and a distance.
struct Mark
{
    int cells = 0;
    double offset = 0;
};

Mark MarkIn(const pugi::xml_node &corner, const char *cells, const char *offset, int most)
{
    return {std::clamp(std::atoi(OwnText(ChildOf(corner, cells)).c_str()), 0, most), std::atof(OwnText(ChildOf(corner, offset)).c_str())};
}

/// Of a frame that reaches from one cell to another.
Size SizeBetween(const pugi::xml_node &anchor, const CellExtents &extents)
{
    const pugi::xml_node from = ChildOf(anchor, "from");
    const pugi::xml_node to = ChildOf(anchor, "to");
    if (!from || !to)
        return {};
    const Mark left = MarkIn(from, "col", "colOff", kLastColumn);
    const Mark right = MarkIn(to, "col", "colOff", kLastColumn);
    const Mark top = MarkIn(from, "row", "rowOff", kLastRow);
    const Mark bottom = MarkIn(to, "row", "rowOff", kLastRow);
    return {right.offset - left.offset + extents.WidthOfFirst(right.cells) - extents.WidthOfFirst(left.cells),
            bottom.offset - top.offset + extents.HeightOfFirst(bottom.cells) - extents.HeightOfFirst(top.cells)};
}

pugi::xml_node TransformOf(const pugi::xml_node &shape, const char *properties)
{
    return ChildOf(ChildOf(shape, properties), "xfrm");
}

/// With the prefix of \a sibling, whose namespace is known where it stands.
pugi::xml_node MakeBehind(const pugi::xml_node &sibling, const char *localName)
{
    const std::string prefix(sibling.name(), LocalName(sibling));
    pugi::xml_node made = sibling.parent().insert_child_after((prefix + localName).c_str(), sibling);
    // Or known in there only.
    const std::string declaration = prefix.empty() ? "xmlns" : "xmlns:" + prefix.substr(0, prefix.size() - 1);
    if (const pugi::xml_attribute declared = sibling.attribute(declaration.c_str()))
        SetAttribute(made, declaration.c_str(), declared.value());
    return made;
}

} // namespace

CellExtents::CellExtents(const TemplateSheet &sheet)
    : m_widths(kLastColumn + 1)
{
    const pugi::xml_node format = ChildOf(sheet.Worksheet(), "sheetFormatPr");
    const pugi::xml_attribute usual = AttributeOf(format, "defaultColWidth");
    const double usualWidth = usual ? WidthOfColumns(usual.as_double()) : 64 * kPixel;
    // First what changes from one column to the next, then the widths, then their sums.
    std::vector<double> changes(kLastColumn + 2);
    for (pugi::xml_node node = ChildOf(ChildOf(sheet.Worksheet(), "cols"), "col"); node; node = NextOfItsName(node)) {
        const int first = std::max(AttributeOf(node, "min").as_int(), 1);
        const int last = std::min(AttributeOf(node, "max").as_int(), kLastColumn);
        const pugi::xml_attribute own = AttributeOf(node, "width");
        const bool isHidden = IsTrue(AttributeOf(node, "hidden"));
        if (first > last || (!own && !isHidden))
            continue;
        const double change = (isHidden ? 0 : WidthOfColumns(own.as_double())) - usualWidth;
        changes[std::size_t(first)] += change;
        changes[std::size_t(last) + 1] -= change;
    }
    double width = usualWidth;
    for (std::size_t column = 1; column <= kLastColumn; ++column) {
        width += changes[column];
        m_widths[column] = m_widths[column - 1] + width;
    }
    m_usualHeight = AttributeOf(format, "defaultRowHeight").as_double(15) * kPoint;
    double change = 0;
    sheet.ForEachRow([&](const pugi::xml_node &row, int number) {
        const pugi::xml_attribute own = AttributeOf(row, "ht");
        const bool isHidden = IsTrue(AttributeOf(row, "hidden"));
        if ((!own && !isHidden) || (!m_changes.empty() && m_changes.back().first >= number))
            return;
        change += (isHidden ? 0 : own.as_double() * kPoint) - m_usualHeight;
        m_changes.emplace_back(number, change);
    });
}

double CellExtents::WidthOfFirst(int columns) const
{
    return m_widths[std::size_t(columns)];
}

double CellExtents::HeightOfFirst(int rows) const
{
    const auto behind =
        std::upper_bound(m_changes.begin(), m_changes.end(), rows, [](int row, const auto &change) { return row < change.first; });
    return m_usualHeight * rows + (behind == m_changes.begin() ? 0 : std::prev(behind)->second);
}

double FrameProportion(const pugi::xml_node &picture, const std::function<const CellExtents *()> &extents)
{
    Size size = SizeIn(ChildOf(TransformOf(picture, "spPr"), "ext"));
    pugi::xml_node anchor = picture.parent();
    // A group shows what is in it at another scale.
    for (; IsElement(anchor, "grpSp"); anchor = anchor.parent()) {
        const pugi::xml_node transform = TransformOf(anchor, "grpSpPr");
        const Size outside = SizeIn(ChildOf(transform, "ext"));
        const Size inside = SizeIn(ChildOf(transform, "chExt"));
        if (outside && inside)
            size = {size.width * outside.width / inside.width, size.height * outside.height / inside.height};
    }
    while (anchor && !ChildOf(anchor, "from") && !IsElement(anchor, "absoluteAnchor"))
        anchor = anchor.parent();
    const bool isGrouped = IsElement(picture.parent(), "grpSp");
    // What the anchor says counts; between two cells it is what the program found that wrote both.
    const Size ofAnchor = isGrouped ? Size() : SizeIn(ChildOf(anchor, "ext"));
    if (ofAnchor)
        size = ofAnchor;
    else if (const CellExtents *cells = !size && !isGrouped ? extents() : nullptr)
        size = SizeBetween(anchor, *cells);
    return size ? size.width / size.height : 0;
}

void FillFrame(const pugi::xml_node &picture, double frame, double image)
{
    pugi::xml_node fill = ChildOf(picture, "blipFill");
    for (const char *name : {"srcRect", "tile", "stretch"}) // the part that was shown was one of the former image
        fill.remove_child(ChildOf(fill, name));
    pugi::xml_node last = ChildOf(fill, "blip");
    if (frame > 0 && image > 0 && std::abs(frame / image - 1) > 0.0001) {
        last = MakeBehind(last, "srcRect");
        // A part that begins in front of the image and ends behind it: what is free on each side, as a part of the image.
        const bool isWide = frame > image;
        const double free = (isWide ? frame / image - 1 : image / frame - 1) / 2;
        const std::string text = std::to_string(-std::lround(std::min(free, 100.0) * kWhole));
        for (const char *side : {isWide ? "l" : "t", isWide ? "r" : "b"})
            SetAttribute(last, side, text.c_str());
    }
    const pugi::xml_node stretch = MakeBehind(last, "stretch");
    MakeChild(stretch, "fillRect");
}

} // namespace Velmora
