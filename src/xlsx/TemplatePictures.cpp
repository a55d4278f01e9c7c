#include "xlsx/TemplatePictures_p.h"

#include "xlsx/ImageHeader_p.h"

#include <set>

namespace Velmora {

namespace {

using Error = XlsxTemplate::Error;

/// An image of a drawing: the part and the relationship that leads to it.
struct Image
{
    std::string drawing;
    std::string id;

    bool operator<(const Image &other) const { return std::tie(drawing, id) < std::tie(other.drawing, other.id); }
};

pugi::xml_node BlipOf(const FoundPicture &picture)
{
    return ChildOf(ChildOf(picture.node, "blipFill"), "blip");
}

/// The part that holds the picture's image; a fault if there is none that can be replaced.
TemplateFault FindImage(TemplateContext &context, const FoundPicture &picture, std::string &part)
{
    const auto fault = [](const QString &text) { return TemplateFault{Error::UnusableName, text}; };
    const pugi::xml_node blip = BlipOf(picture);
    const Relationship *embedded = context.package.FindRelationship(picture.drawing, AttributeOf(blip, "embed").value());
    if (*AttributeOf(blip, "link").value() || (embedded && embedded->isExternal))
        return fault(QCoreApplication::translate("XlsxTemplate", "The picture is linked to a file outside the workbook."));
    if (!embedded || !context.package.Has(embedded->target))
        return fault(QCoreApplication::translate("XlsxTemplate", "The picture has no image in the workbook."));
    part = embedded->target;
    return {};
}

/// Takes out what belongs to the former image besides: the same as SVG, or before effects were put on it. \a images get what it leads to.
void TakeOutTwins(pugi::xml_node blip, const std::string &drawing, PictureIndex &index, std::set<Image> &images)
{
    pugi::xml_node extensions = ChildOf(blip, "extLst");
    for (pugi::xml_node extension = ChildOf(extensions, "ext"); extension;) {
        const pugi::xml_node next = NextOfItsName(extension);
        const pugi::xml_node vector = ChildOf(extension, "svgBlip");
        const pugi::xml_node layer = ChildOf(ChildOf(extension, "imgProps"), "imgLayer");
        if (vector || layer) {
            const std::string id = AttributeOf(vector ? vector : layer, "embed").value();
            --index.Uses(drawing, id);
            images.insert({drawing, id});
            extensions.remove_child(extension);
        }
        extension = next;
    }
    if (extensions && !ChildOf(extensions, "ext"))
        blip.remove_child(extensions);
}

/// Takes relationships out that nothing mentions any more, and parts that none leads to.
TemplateFault TakeOutUnused(TemplateContext &context, const std::set<Image> &images)
{
    std::set<std::string> parts;
    for (const Image &image : images) {
        const Relationship *relationship = context.package.FindRelationship(image.drawing, image.id);
        if (!relationship || context.Pictures().Uses(image.drawing, image.id) > 0)
            continue;
        if (!relationship->isExternal)
            parts.insert(relationship->target);
        if (const TemplateFault fault = context.package.RemoveRelationship(image.drawing, image.id))
            return fault;
    }
    for (const std::string &part : parts)
        context.package.RemoveUnused(part);
    return {};
}

TemplateFault FaultOfImage(const QByteArray &image)
{
    if (ReadImageHeader(image))
        return {};
    return {
        Error::ValueError,
        IsSvg(image)
            ? QCoreApplication::translate("XlsxTemplate", "This is an SVG image, which a workbook holds only beside another; use a PNG.")
            : QCoreApplication::translate("XlsxTemplate",
                                          "This is no image of a kind that a workbook holds: PNG, JPEG, GIF, BMP, TIFF, EMF or "
                                          "placeable WMF.")};
}

/// Adds the image as a part; its name.
TemplateFault AddImage(XlsxPackage &package, const QByteArray &image, const ImageHeader &header, std::string &part)
{
    if (const TemplateFault fault = package.SetDefaultContentType(header.extension, header.contentType))
        return fault;
    part = package.FreeName(std::string("xl/media/image.") + header.extension);
    package.SetBytes(part, image);
    return package.SetContentType(part, header.contentType);
}

} // namespace

QStringList PictureNames(TemplateContext &context)
{
    QStringList names;
    for (const std::string &name : context.Pictures().Names())
        names.append(QString::fromStdString(name));
    return names;
}

bool HasPicture(TemplateContext &context, const QString &name)
{
    return !context.Pictures().Find(name).empty();
}

QString WhyPictureIsUnusable(TemplateContext &context, const QString &name)
{
    std::string part;
    for (const FoundPicture &picture : context.Pictures().Find(name)) {
        if (const TemplateFault fault = FindImage(context, picture, part))
            return fault.text;
    }
    return {};
}

QString PictureReference(TemplateContext &context, const QString &name)
{
    std::string references;
    for (const FoundPicture &picture : context.Pictures().Find(name)) {
        pugi::xml_node anchor = picture.node;
        while (anchor && !ChildOf(anchor, "from"))
            anchor = anchor.parent();
        const pugi::xml_node from = ChildOf(anchor, "from");
        const int row = ChildOf(from, "row").text().as_int(-1) + 1;
        const int column = ChildOf(from, "col").text().as_int(-1) + 1;
        if (row < 1 || row > kLastRow || column < 1 || column > kLastColumn)
            continue;
        references += (references.empty() ? "" : ",") + QuotedSheetName(context.workbook.SheetName(picture.sheet)) + '!'
            + AbsoluteRangeText({row, row, column, column});
    }
    return QString::fromStdString(references);
}

QByteArray PictureImage(TemplateContext &context, const QString &name, TemplateFault &fault)
{
    std::string part;
    QByteArray image;
    fault = FindImage(context, context.Pictures().Find(name).front(), part);
    if (!fault)
        fault = context.package.Bytes(part, image);
    return fault ? QByteArray() : image;
}

TemplateFault SetPicture(TemplateContext &context, const QString &name, const QByteArray &image, XlsxTemplate::PictureFit fit)
{
    PictureIndex &index = context.Pictures();
    const std::vector<FoundPicture> &pictures = index.Find(name);
    std::string part;
    for (const FoundPicture &picture : pictures) {
        if (const TemplateFault fault = FindImage(context, picture, part))
            return {fault.error, name + QLatin1String(": ") + fault.text};
    }
    if (const TemplateFault fault = FaultOfImage(image))
        return fault;
    const ImageHeader header = *ReadImageHeader(image);
    if (const TemplateFault fault = AddImage(context.package, image, header, part))
        return fault;

    std::map<std::string, std::string> ids; // of the new image, by drawing
    std::set<Image> former;
    for (const FoundPicture &picture : pictures) {
        std::string &id = ids[picture.drawing];
        if (id.empty()) {
            if (const TemplateFault fault = context.package.AddRelationship(picture.drawing, "image", part, id))
                return fault;
        }
        pugi::xml_node blip = BlipOf(picture);
        pugi::xml_attribute embed = AttributeOf(blip, "embed");
        --index.Uses(picture.drawing, embed.value());
        ++index.Uses(picture.drawing, id);
        former.insert({picture.drawing, embed.value()});
        embed.set_value(id.c_str());
        TakeOutTwins(blip, picture.drawing, index, former);
        TemplateFault fault;
        const bool keepsProportions = fit == XlsxTemplate::PictureFit::Fit;
        const auto extents = [&context, &picture] { return context.ExtentsOf(picture.sheet); };
        FillFrame(picture.node, keepsProportions ? FrameProportion(picture.node, extents) : 0, header.width / header.height);
        context.package.Parsed(picture.drawing, fault)->Changed(blip.parent());
    }
    return TakeOutUnused(context, former);
}

} // namespace Velmora
