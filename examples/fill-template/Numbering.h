#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace FillTemplate {

/// What must change in a package so that the library finds its parts by their numbers: worksheet relationships numbered from rId1
/// in the order of the sheet files; sheets, drawings and relationships of drawings numbered from 1 without gaps, each drawing with
/// its own relationships.
struct Numbering
{
    QMap<QString, QString> renames;         ///< part by part, paths in the package
    QMap<QString, QString> relationshipIds; ///< of the workbook: old to new
    QStringList worksheetIds;               ///< the old ones of those that lead to worksheets

    bool IsInOrder() const { return renames.isEmpty() && relationshipIds.isEmpty(); }
    /// A line for each change, worksheets first.
    QStringList Description() const;
};

/// Of the package unpacked in \a folder. A package that renumbering does not mend is a Failure.
Numbering NumberingOf(const QString &folder);

/// The part that \a target of a relationship of \a sourcePart means: a path in the package.
QString ResolvedTarget(const QString &sourcePart, const QString &target);
/// The part that holds the relationships of \a part.
QString RelationshipsPartOf(const QString &part);

} // namespace FillTemplate
