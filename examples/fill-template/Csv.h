#pragma once

#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVector>

namespace FillTemplate {

struct CsvTable
{
    QStringList firstLine;      ///< its cells as they are written
    QVector<QVariantList> rows; ///< the first line, too
};

/// Reads comma-separated values (RFC 4180) of UTF-8, with any line ends. Lines without a cell are passed over.
///
/// A cell in quotes is a text. Of the others one that is empty is an invalid QVariant, and one is a number, a truth value or a date if it
/// is written like 12, -0.5, 1e6, TRUE, false, 2026-11-22; so 007 and +49 30 stay texts.
///
/// What is wrong is a Failure that begins with \a path.
CsvTable ReadCsv(const QByteArray &content, const QString &path);

} // namespace FillTemplate
