#include "xlsx/XlsxPackage_p.h"

#include "xlsx/MemoryBudget_p.h"
#include "xlsx/XlsxArchive_p.h"

#include <QUrl>

#include <algorithm>
#include <cstring>
#include <map>
#include <unordered_map>

namespace Velmora {

namespace {

using Error = XlsxTemplate::Error;

constexpr const char *kContentTypes = "[Content_Types].xml";
constexpr const char *kOfficeRelationships = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
constexpr const char *kSignatureType = "application/vnd.openxmlformats-package.digital-signature-origin";
constexpr const char *kPackageRelationships = "http://schemas.openxmlformats.org/package/2006/relationships";

// What a content type is said of.
constexpr bool kOfPart = true;
constexpr bool kOfExtension = false;

/// A package lies in memory twice while it is written, once as it was.
constexpr qint64 kMemoryOfArchiveByte = 3;
/// A relationship of 32 bytes, the shortest that there is, takes about 450.
constexpr qint64 kMemoryOfListByte = 14;

/// Names of parts, extensions and content types are compared without case, as ASCII.
std::string Folded(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
    return text;
}

constexpr const char *kRelationshipsEnding = ".rels";

bool IsRelationshipsPart(const std::string &foldedName)
{
    const std::size_t size = std::strlen(kRelationshipsEnding);
    return foldedName.size() > size && foldedName.compare(foldedName.size() - size, size, kRelationshipsEnding) == 0;
}

std::string RelationshipsPartOf(const std::string &part)
{
    const std::size_t slash = part.rfind('/') + 1; // 0 if there is none
    return part.substr(0, slash) + "_rels/" + part.substr(slash) + kRelationshipsEnding;
}

/// The part that \a target, which may be relative to the folder of \a source, names.
std::string Resolved(const std::string &source, const std::string &target)
{
    const bool isAbsolute = !target.empty() && target.front() == '/';
    const std::string path = isAbsolute ? target : source.substr(0, source.rfind('/') + 1) + target;
    std::vector<std::string> segments;
    std::size_t at = 0;
    while (at <= path.size()) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        const std::string segment = path.substr(at, end - at);
        if (segment == "..") {
            if (!segments.empty())
                segments.pop_back();
        } else if (!segment.empty() && segment != ".") {
            segments.push_back(segment);
        }
        at = end + 1;
    }
    std::string part;
    for (const std::string &segment : segments)
        part += (part.empty() ? "" : "/") + segment;
    return part;
}

/// How a relationships part of \a source names \a part: relative to its folder if it lies in there or beside it, else absolute.
std::string TargetOf(const std::string &source, const std::string &part)
{
    const std::string folder = source.substr(0, source.rfind('/') + 1);
    if (part.compare(0, folder.size(), folder) == 0)
        return part.substr(folder.size());
    const std::size_t above = folder.size() < 2 ? std::string::npos : folder.rfind('/', folder.size() - 2);
    const std::string parent = above == std::string::npos ? std::string() : folder.substr(0, above + 1);
    if (!parent.empty() && part.compare(0, parent.size(), parent) == 0)
        return "../" + part.substr(parent.size());
    return '/' + part;
}

std::string LastSegment(const std::string &address)
{
    return address.substr(address.rfind('/') + 1);
}

QString QText(const std::string &text)
{
    return QString::fromStdString(text);
}

TemplateFault Damaged(const std::string &part)
{
    return {Error::FormatError, QCoreApplication::translate("XlsxTemplate", "A part of the workbook is damaged: %1.").arg(QText(part))};
}

TemplateFault Missing(const std::string &part)
{
    return {Error::FormatError, QCoreApplication::translate("XlsxTemplate", "A part of the workbook is missing: %1.").arg(QText(part))};
}

TemplateFault TooLarge(const std::string &part)
{
    return {Error::LimitError, QCoreApplication::translate("XlsxTemplate", "A part of the workbook is too large: %1.").arg(QText(part))};
}

} // namespace

struct XlsxPackage::Private
{
    struct ListedRelationship
    {
        std::size_t place = 0; ///< among the relationships
        pugi::xml_node node;
    };
    struct Part
    {
        std::string name;
        int entry = -1;         ///< in the archive, if it is there
        bool isSet = false;     ///< its bytes are not those of the archive
        bool hasMemory = false; ///< for what is made of it besides
        QByteArray bytes;       ///< if they are set
        std::unique_ptr<XmlPart> parsed;
        TemplateFault fault; ///< of parsing it, found once
        std::unique_ptr<std::vector<Relationship>> relationships;
        std::map<std::string, ListedRelationship> relationshipIndex; ///< by id

        bool IsChanged() const { return isSet || (parsed && parsed->IsChanged()); }
    };

    XlsxArchive archive;
    MemoryBudget budget;
    std::unordered_map<std::string, Part> parts; ///< by folded names
    std::vector<int> removed;                    ///< entries of the archive
    std::map<std::string, int> lastNumbers;      ///< in free names and ids, by what they are for
    const std::vector<Relationship> none{};
    std::unique_ptr<std::unordered_map<std::string, int>> targets; ///< how many relationships lead to a part, by folded name
    bool mayLeadAnywhere = false;                                  ///< one of the parts of relationships cannot be read
    std::unique_ptr<std::map<std::pair<bool, std::string>, pugi::xml_node>> types; ///< by whether it is a part's own, and folded name

    Part *Find(const std::string &name)
    {
        const auto found = parts.find(Folded(name));
        return found == parts.end() ? nullptr : &found->second;
    }
    /// Leaves the part as it is if \a isWanted says so.
    TemplateFault Parse(Part &part, bool (*isWanted)(const QByteArray &bytes))
    {
        QByteArray bytes = part.bytes;
        if (!part.isSet) {
            // Before it is inflated: it could not be parsed.
            if (archive.Entries()[std::size_t(part.entry)].size > MemoryBudget::kBytes / 3)
                return TooLarge(part.name);
            if (!archive.Read(part.entry, bytes))
                return Damaged(part.name);
        }
        if (isWanted && !isWanted(bytes))
            return {};
        // Relationships and content types are listed besides.
        const bool isList = IsRelationshipsPart(Folded(part.name)) || part.name == kContentTypes;
        if (!budget.TakePart(bytes.constData(), bytes.size()) || (isList && !budget.Take(kMemoryOfListByte * bytes.size())))
            return TooLarge(part.name);
        auto parsed = std::make_unique<XmlPart>();
        if (!parsed->Parse(bytes))
            return Damaged(part.name);
        part.parsed = std::move(parsed);
        return {};
    }
    void ReadRelationships(const std::string &source, Part &part) const;
    void CountTarget(const Relationship &relationship, int change)
    {
        if (targets && !relationship.isExternal)
            (*targets)[Folded(relationship.target)] += change;
    }
};

void XlsxPackage::Private::ReadRelationships(const std::string &source, Part &part) const
{
    for (pugi::xml_node node = ChildOf(part.parsed->Root(), "Relationship"); node; node = NextOfItsName(node)) {
        Relationship relationship;
        relationship.id = AttributeOf(node, "Id").value();
        relationship.type = LastSegment(AttributeOf(node, "Type").value());
        relationship.isExternal = Folded(AttributeOf(node, "TargetMode").value()) == "external";
        relationship.target = AttributeOf(node, "Target").value();
        if (!relationship.isExternal) {
            const std::string target = relationship.target;
            relationship.target = Resolved(source, target);
            if (!parts.count(Folded(relationship.target))) // escaped, as addresses are
                relationship.target = Resolved(source, QUrl::fromPercentEncoding(QByteArray::fromStdString(target)).toStdString());
        }
        part.relationshipIndex.emplace(relationship.id, ListedRelationship{part.relationships->size(), node});
        part.relationships->push_back(std::move(relationship));
    }
}

XlsxPackage::XlsxPackage()
    : d(std::make_unique<Private>())
{
}

XlsxPackage::~XlsxPackage() = default;

TemplateFault XlsxPackage::Open(const QByteArray &bytes)
{
    if (!d->budget.Take(kMemoryOfArchiveByte * bytes.size()))
        return {Error::LimitError, QCoreApplication::translate("XlsxTemplate", "The file is too large.")};
    if (const TemplateFault fault = d->archive.Open(bytes))
        return fault;
    int index = 0;
    for (const XlsxArchive::Entry &entry : d->archive.Entries()) {
        if (entry.name.back() != '/') {
            Private::Part &part = d->parts[Folded(entry.name)];
            part.name = entry.name;
            part.entry = index;
        }
        ++index;
    }
    if (Has(kContentTypes))
        return {};
    const bool isOpenDocument = Has("mimetype") && Has("content.xml");
    return {Error::FormatError,
            isOpenDocument ? QCoreApplication::translate("XlsxTemplate", "This is an OpenDocument file. Save it as .xlsx.")
                           : QCoreApplication::translate("XlsxTemplate", "This is an archive, but not a workbook (.xlsx).")};
}

bool XlsxPackage::Has(const std::string &part) const
{
    return d->Find(part);
}

TemplateFault XlsxPackage::Bytes(const std::string &name, QByteArray &bytes) const
{
    const Private::Part *part = d->Find(name);
    if (!part)
        return Missing(name);
    if (part->parsed)
        bytes = part->parsed->Written();
    else if (part->isSet)
        bytes = part->bytes;
    else if (!HasMemory(d->archive.Entries()[std::size_t(part->entry)].size))
        return TooLarge(name);
    else if (!d->archive.Read(part->entry, bytes))
        return Damaged(name);
    return {};
}

XmlPart *XlsxPackage::Parsed(const std::string &name, TemplateFault &fault)
{
    return ParsedIf(name, nullptr, fault);
}

XmlPart *XlsxPackage::ParsedIf(const std::string &name, bool (*isWanted)(const QByteArray &bytes), TemplateFault &fault)
{
    Private::Part *part = d->Find(name);
    if (!part) {
        fault = Missing(name);
        return nullptr;
    }
    if (!part->parsed && !part->fault)
        part->fault = d->Parse(*part, isWanted);
    if (part->fault)
        fault = part->fault;
    return part->parsed.get();
}

bool XlsxPackage::TakeMemoryOf(const std::string &name, qint64 bytes)
{
    Private::Part *part = d->Find(name);
    if (!part || part->hasMemory)
        return part;
    part->hasMemory = d->budget.Take(bytes);
    return part->hasMemory;
}

TemplateFault XlsxPackage::TakeMemory(qint64 bytes)
{
    if (d->budget.Take(bytes))
        return {};
    return {Error::LimitError,
            QCoreApplication::translate("XlsxTemplate", "This is more than a template has memory for, which is %1 MiB.")
                .arg(MemoryBudget::kBytes / (1024 * 1024))};
}

bool XlsxPackage::HasMemory(qint64 bytes) const
{
    return d->budget.Has(bytes);
}

void XlsxPackage::SetBytes(const std::string &name, const QByteArray &bytes)
{
    Private::Part &part = d->parts[Folded(name)];
    if (part.name.empty())
        part.name = name;
    d->budget.GiveBack(MemoryOfBytes(part.bytes.size() - bytes.size()));
    part.isSet = true;
    part.bytes = bytes;
    part.parsed.reset();
    part.relationships.reset();
    part.relationshipIndex.clear();
    part.fault = {};
    if (IsRelationshipsPart(Folded(name)))
        d->targets.reset();
}

void XlsxPackage::Remove(const std::string &name)
{
    if (Folded(name) == Folded(kContentTypes) || IsRelationshipsPart(Folded(name))) // is no part, whatever leads there
        return;
    const auto removeOne = [this](const std::string &one) {
        const auto found = d->parts.find(Folded(one));
        if (found == d->parts.end())
            return;
        if (found->second.entry >= 0)
            d->removed.push_back(found->second.entry);
        d->budget.GiveBack(MemoryOfBytes(found->second.bytes.size()));
        d->parts.erase(found);
    };
    if (d->targets) {
        for (const Relationship &relationship : RelationshipsOf(name))
            d->CountTarget(relationship, -1);
    }
    removeOne(name);
    removeOne(RelationshipsPartOf(name));
    TemplateFault fault;
    XmlPart *types = Parsed(kContentTypes, fault);
    const pugi::xml_node type = types ? FindType(kOfPart, '/' + name) : pugi::xml_node();
    if (!type)
        return;
    d->types->erase({kOfPart, Folded('/' + name)});
    types->Remove(type);
}

void XlsxPackage::RemoveUnused(const std::string &name)
{
    std::vector<std::string> open{name};
    while (!open.empty()) {
        const std::string part = open.back();
        open.pop_back();
        if (!Has(part) || IsTarget(part))
            continue;
        for (const Relationship &relationship : RelationshipsOf(part)) {
            if (!relationship.isExternal)
                open.push_back(relationship.target);
        }
        Remove(part);
    }
}

TemplateFault XlsxPackage::RemoveSignatures()
{
    const std::vector<Relationship> relationships = RelationshipsOf({});
    for (const Relationship &relationship : relationships) {
        if (relationship.type != "origin" || ContentType(relationship.target) != kSignatureType)
            continue;
        if (const TemplateFault fault = RemoveRelationship({}, relationship.id))
            return fault;
        RemoveUnused(relationship.target);
    }
    return {};
}

bool XlsxPackage::IsChanged() const
{
    return !d->removed.empty() || std::any_of(d->parts.begin(), d->parts.end(), [](const auto &part) { return part.second.IsChanged(); });
}

std::string XlsxPackage::FreeName(const std::string &part) const
{
    const std::size_t dot = std::min(part.rfind('.'), part.size());
    for (int &number = d->lastNumbers[part];;) { // not from one for each of many
        std::string name = part.substr(0, dot) + std::to_string(++number) + part.substr(dot);
        if (!Has(name))
            return name;
    }
}

// --- Content types ---

namespace {

std::string ExtensionOf(const std::string &part)
{
    const std::string name = LastSegment(part);
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : Folded(name.substr(dot + 1));
}

} // namespace

pugi::xml_node XlsxPackage::FindType(bool isOfPart, const std::string &name)
{
    if (!d->types) {
        TemplateFault fault;
        const XmlPart *types = Parsed(kContentTypes, fault);
        if (!types)
            return {};
        d->types = std::make_unique<std::map<std::pair<bool, std::string>, pugi::xml_node>>();
        for (pugi::xml_node node = types->Root().first_child(); node; node = node.next_sibling()) {
            if (IsElement(node, "Override"))
                d->types->emplace(std::pair(kOfPart, Folded(AttributeOf(node, "PartName").value())), node);
            else if (IsElement(node, "Default"))
                d->types->emplace(std::pair(kOfExtension, Folded(AttributeOf(node, "Extension").value())), node);
        }
    }
    const auto found = d->types->find({isOfPart, Folded(name)});
    return found == d->types->end() ? pugi::xml_node() : found->second;
}

/// To be called after it was not found.
void XlsxPackage::AddType(bool isOfPart, const std::string &name, const char *type)
{
    TemplateFault fault;
    XmlPart *types = Parsed(kContentTypes, fault);
    pugi::xml_node node = MakeChild(types->Root(), isOfPart ? "Override" : "Default");
    SetAttribute(node, isOfPart ? "PartName" : "Extension", name.c_str());
    SetAttribute(node, "ContentType", type);
    types->Changed(node);
    d->types->emplace(std::pair(isOfPart, Folded(name)), node);
}

std::string XlsxPackage::ContentType(const std::string &part)
{
    pugi::xml_node node = FindType(kOfPart, '/' + part);
    if (!node)
        node = FindType(kOfExtension, ExtensionOf(part));
    return Folded(AttributeOf(node, "ContentType").value());
}

TemplateFault XlsxPackage::SetContentType(const std::string &part, const char *type)
{
    TemplateFault fault;
    XmlPart *types = Parsed(kContentTypes, fault);
    if (!types || ContentType(part) == Folded(type))
        return fault;
    if (const pugi::xml_node node = FindType(kOfPart, '/' + part)) {
        AttributeOf(node, "ContentType").set_value(type);
        types->Changed(node);
    } else {
        AddType(kOfPart, '/' + part, type);
    }
    return {};
}

TemplateFault XlsxPackage::SetDefaultContentType(const char *extension, const char *type)
{
    TemplateFault fault;
    if (Parsed(kContentTypes, fault) && !FindType(kOfExtension, extension))
        AddType(kOfExtension, extension, type);
    return fault;
}

// --- Relationships ---

const std::vector<Relationship> &XlsxPackage::RelationshipsOf(const std::string &name)
{
    Private::Part *part = d->Find(RelationshipsPartOf(name));
    if (!part)
        return d->none;
    if (!part->relationships) {
        TemplateFault fault;
        part->relationships = std::make_unique<std::vector<Relationship>>();
        if (Parsed(part->name, fault))
            d->ReadRelationships(name, *part);
    }
    return *part->relationships;
}

const Relationship *XlsxPackage::FindRelationship(const std::string &part, const std::string &id)
{
    const std::vector<Relationship> &all = RelationshipsOf(part);
    if (all.empty())
        return nullptr;
    const auto &index = d->Find(RelationshipsPartOf(part))->relationshipIndex;
    const auto found = index.find(id);
    return found == index.end() ? nullptr : &all[found->second.place];
}

TemplateFault XlsxPackage::AddRelationship(const std::string &name, const char *type, const std::string &target, std::string &id)
{
    const std::string partName = RelationshipsPartOf(name);
    if (!Has(partName)) {
        if (const TemplateFault fault = SetDefaultContentType("rels", "application/vnd.openxmlformats-package.relationships+xml"))
            return fault;
        SetBytes(partName,
                 QByteArrayLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<Relationships xmlns=\"")
                     + kPackageRelationships + "\"/>");
    }
    TemplateFault fault;
    XmlPart *part = Parsed(partName, fault);
    if (!part)
        return fault;
    int &number = d->lastNumbers[partName]; // not from one for each of many
    number = std::max(number, int(RelationshipsOf(name).size()));
    do
        id = "rId" + std::to_string(++number);
    while (FindRelationship(name, id));
    pugi::xml_node node = MakeChild(part->Root(), "Relationship");
    SetAttribute(node, "Id", id.c_str());
    SetAttribute(node, "Type", (std::string(kOfficeRelationships) + type).c_str());
    SetAttribute(node, "Target", TargetOf(name, target).c_str());
    part->Changed(node);
    Private::Part &found = *d->Find(partName);
    found.relationshipIndex.emplace(id, Private::ListedRelationship{found.relationships->size(), node});
    found.relationships->push_back({id, type, target, false});
    d->CountTarget(found.relationships->back(), 1);
    return {};
}

TemplateFault XlsxPackage::RemoveRelationship(const std::string &name, const std::string &id)
{
    TemplateFault fault;
    XmlPart *part = Parsed(RelationshipsPartOf(name), fault);
    if (!part || !FindRelationship(name, id))
        return fault;
    Private::Part &found = *d->Find(RelationshipsPartOf(name));
    const auto listed = found.relationshipIndex.find(id);
    const auto [place, node] = listed->second;
    std::vector<Relationship> &relationships = *found.relationships;
    part->Remove(node);
    d->CountTarget(relationships[place], -1);
    found.relationshipIndex.erase(listed);
    // Their order says nothing, so the last takes its place.
    const auto last = found.relationshipIndex.find(relationships.back().id);
    if (last != found.relationshipIndex.end() && last->second.place == relationships.size() - 1)
        last->second.place = place;
    std::swap(relationships[place], relationships.back());
    relationships.pop_back();
    return {};
}

bool XlsxPackage::IsTarget(const std::string &name)
{
    if (!d->targets)
        CountTargets();
    const auto found = d->targets->find(Folded(name));
    return d->mayLeadAnywhere || (found != d->targets->end() && found->second > 0);
}

void XlsxPackage::CountTargets()
{
    std::vector<std::string> sources;
    d->mayLeadAnywhere = false;
    for (auto &[key, part] : d->parts) {
        const std::size_t folder = key.rfind("_rels/");
        if (folder == std::string::npos || !IsRelationshipsPart(key))
            continue;
        TemplateFault fault;
        d->mayLeadAnywhere = !Parsed(part.name, fault) || d->mayLeadAnywhere;
        const std::size_t ending = key.size() - std::strlen(kRelationshipsEnding);
        sources.push_back(part.name.substr(0, folder) + part.name.substr(folder + 6, ending - folder - 6));
    }
    d->targets = std::make_unique<std::unordered_map<std::string, int>>();
    for (const std::string &source : sources) {
        for (const Relationship &relationship : RelationshipsOf(source))
            d->CountTarget(relationship, 1);
    }
}

TemplateFault XlsxPackage::Write(QByteArray &bytes)
{
    XlsxArchive::Changes changes;
    changes.removed = d->removed;
    for (auto &[key, part] : d->parts) {
        if (!part.IsChanged())
            continue;
        const QByteArray content = part.parsed ? part.parsed->Written() : part.bytes;
        if (part.entry >= 0)
            changes.replaced[part.entry] = content;
        else
            changes.added[part.name] = content;
    }
    return d->archive.Written(changes, bytes);
}

} // namespace Velmora
