#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace FillTemplate {

/// What one element is to become.
struct Value
{
    QVariant content;       ///< qlonglong, a QString, or invalid: the cell's content stays as it is
    bool isFormula = false; ///< the text is a formula
    QStringList options;    ///< not empty: the entries of the cell's list
    QString picture;        ///< not empty: the path of an image file
};

/// Reads the JSON object in \a path: name by name, of the names in which \a filter matches. A missing file, another document or a
/// value that would not be what it says once it is in a workbook is a Failure.
QMap<QString, Value> ReadValues(const QString &path, const QString &filter);

} // namespace FillTemplate
