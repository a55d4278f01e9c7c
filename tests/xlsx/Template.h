#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

namespace VelmoraTest {

/// A template by its parts, name to content. A fresh one has one worksheet, no shared strings, no names and no drawings.
class Template
{
public:
    Template();

    QMap<QByteArray, QByteArray> parts;

    /// Adds or replaces worksheet \a number, counted from 1, and lists it under \a name if it is new.
    Template &Sheet(int number, const QByteArray &sheetData, const QByteArray &afterSheetData = "<pageMargins left=\"0.7\"/>",
                    const QByteArray &name = QByteArray());
    /// Adds a defined name.
    Template &Name(const QByteArray &name, const QByteArray &text);
    /// The table of shared strings, each \a items element as it stands.
    Template &Strings(const QList<QByteArray> &items);
    /// Drawing \a number with pictures, and its relationships. A picture is a name and a relationship id.
    Template &Drawing(int number, const QList<QPair<QByteArray, QByteArray>> &pictures, const QByteArray &relationships);

    QByteArray Archive() const;

private:
    void Rebuild();

    QMap<int, QByteArray> m_sheetNames;
    QList<QPair<QByteArray, QByteArray>> m_names;
    QList<int> m_drawings;
    bool m_hasStrings = false;
};

/// One relationship of a part.
QByteArray Relationship(const QByteArray &id, const QByteArray &typeEnd, const QByteArray &target);
/// The parts of a relationships document around \a relationships.
QByteArray Relationships(const QByteArray &relationships);

/// What breaks a rule in the package of these parts: every part is XML with a content type, every relationship resolves, every
/// string index exists, rows are ordered by number and cells of a row by their reference as text. Empty if nothing does.
QStringList PackageFaults(const QMap<QByteArray, QByteArray> &parts);

} // namespace VelmoraTest
