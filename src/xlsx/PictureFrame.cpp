#include "xlsx/PictureFrame_p.h"

#include "xlsx/TemplateSheet_p.h"

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

double WidthBetween(const TemplateSheet &sheet, const Mark &from, const Mark &to)
{
    const pugi::xml_node format = ChildOf(sheet.Worksheet(), "sheetFormatPr");
    const pugi::xml_attribute usual = AttributeOf(format, "defaultColWidth");
    const double usualWidth = usual ? WidthOfColumns(usual.as_double()) : 64 * kPixel;
    double width = to.offset - from.offset + usualWidth * (to.cells - from.cells);
    for (pugi::xml_node node = ChildOf(ChildOf(sheet.Worksheet(), "cols"), "col"); node; node = NextOfItsName(node)) {
        const int first = std::max(AttributeOf(node, "min").as_int(), from.cells + 1);
        const int last = std::min(AttributeOf(node, "max").as_int(), to.cells);
        const pugi::xml_attribute own = AttributeOf(node, "width");
        if (first <= last && (own || IsTrue(AttributeOf(node, "hidden"))))
            width += ((IsTrue(AttributeOf(node, "hidden")) ? 0 : WidthOfColumns(own.as_double())) - usualWidth) * (last - first + 1);
    }
    return width;
}

double HeightBetween(TemplateSheet &sheet, const Mark &from, const Mark &to)
{
    const double usualHeight = AttributeOf(ChildOf(sheet.Worksheet(), "sheetFormatPr"), "defaultRowHeight").as_double(15) * kPoint;
    double height = to.offset - from.offset;
    for (int row = from.cells + 1; row <= to.cells; ++row) {
        const pugi::xml_node node = sheet.FindRow(row);
        const pugi::xml_attribute own = AttributeOf(node, "ht");
        if (!IsTrue(AttributeOf(node, "hidden")))
            height += own ? own.as_double() * kPoint : usualHeight;
    }
    return height;
}

/// Of a frame that reaches from one cell to another.
Size SizeBetween(const pugi::xml_node &anchor, TemplateSheet &sheet)
{
    const pugi::xml_node from = ChildOf(anchor, "from");
    const pugi::xml_node to = ChildOf(anchor, "to");
    if (!from || !to)
        return {};
    return {WidthBetween(sheet, MarkIn(from, "col", "colOff", kLastColumn), MarkIn(to, "col", "colOff", kLastColumn)),
            HeightBetween(sheet, MarkIn(from, "row", "rowOff", kLastRow), MarkIn(to, "row", "rowOff", kLastRow))};
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

double FrameProportion(const pugi::xml_node &picture, TemplateSheet *sheet)
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
    else if (!size && !isGrouped && sheet)
        size = SizeBetween(anchor, *sheet);
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
