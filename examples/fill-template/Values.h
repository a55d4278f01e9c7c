#pragma once

#include <QStringList>
#include <QVariant>
#include <QVector>

namespace FillTemplate {

/// What one element is to become.
struct Value
{
    QString name;
    bool hasContent = false;
    QVariant content;       ///< of all cells; invalid empties them
    bool isFormula = false; ///< the content is the text of a formula
    QStringList options;    ///< not empty: the entries of the cell's list
    QString picture;        ///< not empty: the path of an image file
    bool stretches = false; ///< the picture fills its frame

    enum class Rows { None, Fill, Repeat };
    Rows kind = Rows::None;     ///< whether there are rows: those that fill a range, or those that a row is repeated for
    QVector<QVariantList> rows; ///< a cell that is to stay is an XlsxTemplate::Keep
    QStringList columns;        ///< not empty: what they are called, in the order of the rows
    QStringList firstLine;      ///< of a file: what may be the columns' names
};

/// Columns are told apart by this.
QString FoldedColumn(const QString &name);

/// Reads the JSON object in \a path, or on the standard input if that is "-": in the document's order, of the names in which \a filter
/// matches. Files are looked for in the object's folder, or the current one. What is wrong is a Failure.
QVector<Value> ReadValues(const QString &path, const QString &filter);

} // namespace FillTemplate
