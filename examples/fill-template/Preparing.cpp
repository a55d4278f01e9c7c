#include "Preparing.h"

#include "Failure.h"
#include "Log.h"
#include "Numbering.h"
#include "OpenedTemplate.h"
#include "OutputFile.h"
#include "Package.h"
#include "Xml.h"

#include <Velmora/XlsxZip.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <cstring>

namespace FillTemplate {

namespace {

const QString kRelationshipsSuffix = QStringLiteral(".rels");
constexpr const char *kRelationshipsNamespaceEnd = "/officeDocument/relationships";
constexpr const char *kTransitionalNamespace = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

QString FileNameOf(const QString &part)
{
    return part.mid(part.lastIndexOf(QLatin1Char('/')) + 1);
}

/// The part whose relationships lie in \a part.
QString SourceOf(const QString &part)
{
    QString source = part.chopped(kRelationshipsSuffix.size());
    return source.remove(source.lastIndexOf(QLatin1String("_rels/")), 6);
}

/// Turns all targets that are renamed; of the workbook's relationships, also the ids.
void RenumberRelationships(const QString &folder, const Numbering &numbering)
{
    QDirIterator entry(folder, {QLatin1Char('*') + kRelationshipsSuffix}, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (entry.hasNext()) {
        const QString part = entry.next().mid(folder.size() + 1);
        if (!part.contains(QLatin1String("_rels/")))
            continue;
        const bool isWorkbook = part == QLatin1String("xl/_rels/workbook.xml.rels");
        XmlPart relationships(entry.filePath());
        bool isChanged = false;
        for (pugi::xml_node &relationship : relationships.Root().children("Relationship")) {
            pugi::xml_attribute target = relationship.attribute("Target");
            pugi::xml_attribute id = relationship.attribute("Id");
            const QString old = Text(target.value());
            const QString renamed = numbering.renames.value(ResolvedTarget(SourceOf(part), old));
            if (std::strcmp(relationship.attribute("TargetMode").value(), "External") != 0 && !renamed.isEmpty()) {
                // Parts keep their folder, so how the target leads there stays as it is.
                target.set_value((old.left(old.lastIndexOf(QLatin1Char('/')) + 1) + FileNameOf(renamed)).toUtf8().constData());
                isChanged = true;
            }
            const QString newId = isWorkbook ? numbering.relationshipIds.value(Text(id.value())) : QString();
            if (!newId.isEmpty()) {
                id.set_value(newId.toUtf8().constData());
                isChanged = true;
            }
        }
        if (isChanged)
            relationships.Save();
    }
}

void RenameInContentTypes(const QString &folder, const Numbering &numbering)
{
    XmlPart types(folder + QLatin1String("/[Content_Types].xml"));
    bool isChanged = false;
    for (pugi::xml_node &type : types.Root().children("Override")) {
        pugi::xml_attribute name = type.attribute("PartName");
        const QString renamed = numbering.renames.value(Text(name.value()).mid(1));
        if (renamed.isEmpty())
            continue;
        name.set_value(('/' + renamed.toUtf8()).constData());
        isChanged = true;
    }
    if (isChanged)
        types.Save();
}

/// Turns every reference by relationship id in the workbook: those of sheets, and those of caches and links beside them.
void RenumberWorkbook(const QString &folder, const Numbering &numbering)
{
    if (numbering.relationshipIds.isEmpty())
        return;
    XmlPart workbook(folder + QLatin1String("/xl/workbook.xml"));
    QSet<QByteArray> names;
    ForEachElement(workbook.Root(), [&names](const pugi::xml_node &node) {
        for (const pugi::xml_attribute &attribute : node.attributes()) {
            const QByteArray name = attribute.name();
            const QByteArray value = attribute.value();
            if (name.startsWith("xmlns:") && (value == kTransitionalNamespace || value.endsWith(kRelationshipsNamespaceEnd)))
                names.insert(name.mid(6) + ":id");
        }
    });
    ForEachElement(workbook.Root(), [&](const pugi::xml_node &node) {
        for (pugi::xml_attribute attribute : node.attributes()) {
            const QString newId = numbering.relationshipIds.value(Text(attribute.value()));
            if (!newId.isEmpty() && names.contains(attribute.name()))
                attribute.set_value(newId.toUtf8().constData());
        }
    });
    workbook.Save();
}

void RenameParts(const QString &folder, const Numbering &numbering)
{
    const auto rename = [&folder](const QString &from, const QString &to) {
        if (!QFile::rename(folder + QLatin1Char('/') + from, folder + QLatin1Char('/') + to))
            throw Failure{OutputFailed, QStringLiteral("%1 cannot be renamed to %2").arg(from, to)};
    };
    // By way of names that no part has, because two parts may change places.
    const auto between = [](const QString &part) { return part + QLatin1String(".renumbered"); };
    for (auto part = numbering.renames.cbegin(); part != numbering.renames.cend(); ++part)
        rename(part.key(), between(part.key()));
    for (auto part = numbering.renames.cbegin(); part != numbering.renames.cend(); ++part)
        rename(between(part.key()), part.value());
}

/// Unpacks \a archivePath into \a folder, whole.
void Unpack(const QString &archivePath, const QString &folder)
{
    if (!Velmora::XlsxZip::extractFromXlsxFile(archivePath, folder))
        throw Failure{LoadFailed, QStringLiteral("%1 cannot be unpacked").arg(archivePath)};
    RequireSameFiles(folder, archivePath);
}

void CopyFile(const QString &from, const QString &to)
{
    QFile source(from);
    const QString fault = source.open(QIODevice::ReadOnly) ? WriteFault(to, source.readAll()) : source.errorString();
    if (!fault.isEmpty())
        throw Failure{OutputFailed, QStringLiteral("%1 cannot be copied: %2").arg(from, fault)};
}

} // namespace

void Prepare(const Arguments &arguments)
{
    RequireReadable(arguments.templatePath);
    QTemporaryDir dir;
    if (!dir.isValid())
        throw Failure{OutputFailed, QStringLiteral("no working directory: %1").arg(dir.errorString())};
    const QString folder = QDir(dir.path()).absoluteFilePath(QStringLiteral("package"));
    const QString check = QDir(dir.path()).absoluteFilePath(QStringLiteral("check"));
    Unpack(arguments.templatePath, folder);
    const Numbering numbering = NumberingOf(folder);

    OutputFile output(arguments.outputPath);
    if (numbering.IsInOrder()) {
        CopyFile(arguments.templatePath, output.WorkPath());
    } else {
        RenumberRelationships(folder, numbering);
        RenameInContentTypes(folder, numbering);
        RenumberWorkbook(folder, numbering);
        RenameParts(folder, numbering);
        if (!Velmora::XlsxZip::compressToXlsxFile(folder, output.WorkPath()))
            throw Failure{OutputFailed, QStringLiteral("%1 cannot be written").arg(arguments.outputPath)};
    }
    // Read back: what is in the archive is what was prepared, and is in order now.
    try {
        RequireSameFiles(folder, output.WorkPath());
        Unpack(output.WorkPath(), check);
        if (!NumberingOf(check).IsInOrder())
            throw Failure{OutputFailed, QStringLiteral("its parts are still not in order")};
    } catch (const Failure &failure) {
        throw NotReadBack(arguments.outputPath, failure);
    }
    output.Commit();

    if (numbering.IsInOrder())
        Print(QStringLiteral("nothing to do: %1 is a copy\n").arg(OneLine(arguments.outputPath)));
    for (const QString &line : numbering.Description())
        Print(OneLine(line) + QLatin1Char('\n'));
    Print(QStringLiteral("only XlsxOperator needs this: list and fill take any workbook\n"));
}

} // namespace FillTemplate
