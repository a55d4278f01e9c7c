#pragma once

#include "xlsx/TemplateFault_p.h"
#include "xlsx/XmlPart_p.h"

#include <QByteArray>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Velmora {

/// A relationship of a part. The target is a part's name (xl/worksheets/sheet1.xml), or an address if it is external.
struct Relationship
{
    std::string id;
    std::string type; ///< the last segment of its address: "worksheet", "image", whichever edition of the format
    std::string target;
    bool isExternal = false;
};

/// The parts of a workbook by their names, which have no leading slash and are found whatever their case. Parts are inflated when asked
/// for, and parsed once.
class XlsxPackage
{
public:
    XlsxPackage();
    ~XlsxPackage();

    TemplateFault Open(const QByteArray &bytes);

    bool Has(const std::string &part) const;
    /// A part's bytes as they were opened or last set; a fault if it is missing, damaged or too large.
    TemplateFault Bytes(const std::string &part, QByteArray &bytes) const;
    /// Takes memory for what is made of a part besides parsing it, once for each part. False if there is too little of it.
    bool TakeMemoryOf(const std::string &part, qint64 bytes);
    /// Takes memory for what a host puts in; a fault, and nothing taken, if there is too little of it. Less than nothing gives it back.
    TemplateFault TakeMemory(qint64 bytes);
    bool HasMemory(qint64 bytes) const;
    /// The parsed part, or null with a fault. The pointer is good for the package's life, or until the part is removed.
    XmlPart *Parsed(const std::string &part, TemplateFault &fault);
    /// The same, but one that is not parsed yet only if \a isWanted says so of its bytes; else null without a fault.
    XmlPart *ParsedIf(const std::string &part, bool (*isWanted)(const QByteArray &bytes), TemplateFault &fault);
    /// A new part, or new bytes for one that is not parsed. They take MemoryOfBytes(), for which there should be room.
    void SetBytes(const std::string &part, const QByteArray &bytes);
    /// Takes a part out, with its relationships and its content type. Relationships to it are the caller's.
    void Remove(const std::string &part);
    /// Takes a part out that no relationship leads to any more, and what only it led to.
    void RemoveUnused(const std::string &part);
    /// Takes out what says who signed the package, which a change makes untrue.
    TemplateFault RemoveSignatures();
    /// True if it would not be written as it was opened.
    bool IsChanged() const;
    /// A name like \a part, of which no part has it yet: xl/media/image.png gives xl/media/image1.png.
    std::string FreeName(const std::string &part) const;
    /// What it takes to hold bytes, and to pack them.
    static qint64 MemoryOfBytes(qint64 bytes) { return 3 * bytes; }

    /// In lower case; empty if it has none.
    std::string ContentType(const std::string &part);
    /// Says what kind of content \a part has, unless that is known by its extension.
    TemplateFault SetContentType(const std::string &part, const char *type);
    /// Says it for all parts of an extension, unless something is said of it.
    TemplateFault SetDefaultContentType(const char *extension, const char *type);

    /// The relationships of a part; of the package for an empty name. None if the relationships part is missing or damaged.
    const std::vector<Relationship> &RelationshipsOf(const std::string &part);
    const Relationship *FindRelationship(const std::string &part, const std::string &id);
    /// A new one, of the type whose last segment is \a type; its id.
    TemplateFault AddRelationship(const std::string &part, const char *type, const std::string &target, std::string &id);
    TemplateFault RemoveRelationship(const std::string &part, const std::string &id);
    /// True if a relationship of any part leads to \a part, or might, in a part of relationships that cannot be read.
    bool IsTarget(const std::string &part);

    /// The package's bytes. Parts that did not change are copied as they are, compressed.
    TemplateFault Write(QByteArray &bytes);

private:
    pugi::xml_node FindType(bool isOfPart, const std::string &name);
    void AddType(bool isOfPart, const std::string &name, const char *type);
    void CountTargets();

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace Velmora
