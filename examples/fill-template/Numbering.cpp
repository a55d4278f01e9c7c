#include "Numbering.h"

#include "Failure.h"
#include "Xml.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace FillTemplate {

namespace {

const QString kWorkbookPart = QStringLiteral("xl/workbook.xml");

Failure Unfit(const QString &reason)
{
    return {CannotPrepare, QStringLiteral("the template cannot be prepared: ") + reason};
}

/// The library's order: shorter names first, so that sheet2 comes before sheet10.
bool IsBefore(const QString &a, const QString &b)
{
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

/// What the library takes for numbered parts: the entries of \a dir whose names begin with \a prefix.
QStringList NumberedParts(const QString &folder, const QString &dir, const QString &prefix, const QString &suffix)
{
    QStringList names;
    const QFileInfoList entries =
        QDir(folder + QLatin1Char('/') + dir).entryInfoList(QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot, QDir::NoSort);
    for (const QFileInfo &entry : entries) {
        if (!entry.fileName().startsWith(prefix))
            continue;
        if (!entry.isFile() || !entry.fileName().endsWith(suffix))
            throw Unfit(QStringLiteral("%1/%2 is not of its kind").arg(dir, entry.fileName()));
        names.append(entry.fileName());
    }
    std::sort(names.begin(), names.end(), IsBefore);
    return names;
}

bool EndsWith(const pugi::xml_attribute &attribute, const char *end)
{
    return QByteArray(attribute.value()).endsWith(end);
}

/// Gives \a names in \a dir, with the relationships that they have, the numbers from 1 in their order.
void NumberParts(Numbering &numbering, const QString &folder, const QString &dir, const QString &kind, const QStringList &names)
{
    for (int i = 0; i < names.size(); ++i) {
        const QString part = dir + QLatin1Char('/') + names.at(i);
        const QString numbered = QStringLiteral("%1/%2%3.xml").arg(dir, kind).arg(i + 1);
        if (part == numbered)
            continue;
        numbering.renames.insert(part, numbered);
        if (QFileInfo::exists(folder + QLatin1Char('/') + RelationshipsPartOf(part)))
            numbering.renames.insert(RelationshipsPartOf(part), RelationshipsPartOf(numbered));
    }
}

void NumberDrawings(Numbering &numbering, const QString &folder)
{
    const QString dir = QStringLiteral("xl/drawings");
    const QStringList drawings = NumberedParts(folder, dir, QStringLiteral("drawing"), QStringLiteral(".xml"));
    const QStringList relationships =
        NumberedParts(folder, dir + QLatin1String("/_rels"), QStringLiteral("drawing"), QStringLiteral(".rels"));
    // The n-th relationships belong to the n-th drawing, so drawings without any go last.
    QStringList ordered;
    for (const QString &name : relationships) {
        const QString drawing = name.chopped(5);
        if (!drawings.contains(drawing))
            throw Unfit(QStringLiteral("%1/_rels/%2 belongs to no drawing").arg(dir, name));
        ordered.append(drawing);
    }
    for (const QString &name : drawings) {
        if (!ordered.contains(name))
            ordered.append(name);
    }
    NumberParts(numbering, folder, dir, QStringLiteral("drawing"), ordered);
}

void NumberSheets(Numbering &numbering, const QString &folder)
{
    const QString dir = QStringLiteral("xl/worksheets");
    QStringList files = NumberedParts(folder, dir, QStringLiteral("sheet"), QStringLiteral(".xml"));

    XmlPart workbookRels(folder + QLatin1Char('/') + RelationshipsPartOf(kWorkbookPart));
    QMap<QString, QString> idOfFile;
    QStringList otherIds;
    for (const pugi::xml_node &relationship : workbookRels.Root().children("Relationship")) {
        const QString id = Text(relationship.attribute("Id").value());
        if (!EndsWith(relationship.attribute("Type"), "/worksheet")) {
            otherIds.append(id);
            continue;
        }
        const QString part = ResolvedTarget(kWorkbookPart, Text(relationship.attribute("Target").value()));
        const QString file = part.mid(dir.size() + 1);
        if (!part.startsWith(dir + QLatin1Char('/')) || !QFileInfo(folder + QLatin1Char('/') + part).isFile() || idOfFile.contains(file))
            throw Unfit(QStringLiteral("relationship %1 of the workbook leads to no worksheet of its own in %2").arg(id, dir));
        idOfFile.insert(file, id);
        if (!files.contains(file))
            files.append(file);
    }
    std::sort(files.begin(), files.end(), IsBefore);
    NumberParts(numbering, folder, dir, QStringLiteral("sheet"), files);

    QSet<QString> taken = QSet<QString>(otherIds.cbegin(), otherIds.cend());
    QSet<QString> wanted;
    for (int i = 0; i < files.size(); ++i) {
        const QString id = idOfFile.value(files.at(i));
        const QString newId = QStringLiteral("rId%1").arg(i + 1);
        if (id.isEmpty())
            continue;
        wanted.insert(newId);
        if (id != newId) {
            numbering.relationshipIds.insert(id, newId);
            numbering.worksheetIds.append(id);
        }
    }
    int next = 1;
    for (const QString &id : qAsConst(otherIds)) {
        if (!wanted.contains(id))
            continue;
        QString newId;
        do {
            newId = QStringLiteral("rId%1").arg(next++);
        } while (wanted.contains(newId) || taken.contains(newId));
        numbering.relationshipIds.insert(id, newId);
    }
}

void RequirePrefixes(const QString &folder)
{
    XmlPart workbook(folder + QLatin1Char('/') + kWorkbookPart);
    for (const pugi::xml_node &sheet : workbook.Root().child("sheets").children("sheet")) {
        if (!sheet.attribute("r:id"))
            throw Unfit(QStringLiteral("%1 refers to its sheets otherwise than by r:id").arg(kWorkbookPart));
    }
}

} // namespace

QStringList Numbering::Description() const
{
    QStringList lines;
    for (const QString &id : worksheetIds)
        lines.append(QStringLiteral("worksheet relationship %1 becomes %2").arg(id, relationshipIds.value(id)));
    for (auto id = relationshipIds.cbegin(); id != relationshipIds.cend(); ++id) {
        if (!worksheetIds.contains(id.key()))
            lines.append(QStringLiteral("relationship %1 of the workbook becomes %2").arg(id.key(), id.value()));
    }
    for (auto part = renames.cbegin(); part != renames.cend(); ++part)
        lines.append(QStringLiteral("%1 becomes %2").arg(part.key(), part.value()));
    return lines;
}

Numbering NumberingOf(const QString &folder)
{
    RequirePrefixes(folder);
    Numbering numbering;
    NumberSheets(numbering, folder);
    NumberDrawings(numbering, folder);
    return numbering;
}

QString ResolvedTarget(const QString &sourcePart, const QString &target)
{
    const QString folder = sourcePart.left(sourcePart.lastIndexOf(QLatin1Char('/')) + 1);
    return QDir::cleanPath(target.startsWith(QLatin1Char('/')) ? target.mid(1) : folder + target);
}

QString RelationshipsPartOf(const QString &part)
{
    const int slash = int(part.lastIndexOf(QLatin1Char('/')));
    return part.left(slash + 1) + QLatin1String("_rels/") + part.mid(slash + 1) + QLatin1String(".rels");
}

} // namespace FillTemplate
