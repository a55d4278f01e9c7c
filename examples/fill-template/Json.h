#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QStringList>
#include <QVariantList>

namespace FillTemplate {

/// An object as it stands in the document. Objects in a row that have the same keys share them, so that many rows take little memory.
struct JsonObject
{
    QStringList keys; ///< each once, in the document's order
    QVariantList values;

    /// -1 if there is no such key.
    int IndexOf(const QString &key) const { return int(keys.indexOf(key)); }
};

/// Reads a JSON document (RFC 8259) of UTF-8: null is an invalid QVariant, then there are bool, QString, QVariantList and JsonObject.
/// A number is a qlonglong or qulonglong if it is written as an integer and fits, else a double, and one that no double can be is
/// refused: QJsonDocument reads all as double, which has no room for the last digits of a large integer.
/// What is wrong is a Failure that begins with \a path and tells line and column.
QVariant ReadJson(const QByteArray &document, const QString &path);

/// The value of what is written as a JSON number, or an invalid QVariant for anything else.
QVariant NumberOf(const QByteArray &text);

} // namespace FillTemplate

Q_DECLARE_METATYPE(FillTemplate::JsonObject)
