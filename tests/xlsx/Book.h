#pragma once

#include <Velmora/XlsxTemplate.h>

#include "xlsx/Archive.h"
#include "xlsx/Template.h"

#include <QTest>

namespace VelmoraTest {

/// The text between the first \a begin and the next \a end, both left out; "none" if there is none.
inline QByteArray Between(const QByteArray &text, const QByteArray &begin, const QByteArray &end)
{
    const auto from = text.indexOf(begin);
    const auto to = from < 0 ? -1 : text.indexOf(end, from + begin.size());
    return to < 0 ? QByteArrayLiteral("none") : text.mid(from + begin.size(), to - from - begin.size());
}

/// What is in sheetData of a part.
inline QByteArray SheetDataOf(const QByteArray &sheet)
{
    return Between(sheet, "<sheetData>", "</sheetData>");
}

/// A further part of a template.
inline void AddPart(Template &book, const QByteArray &name, const QByteArray &contentType, const QByteArray &content)
{
    book.parts[name] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + content;
    book.parts["[Content_Types].xml"].replace("</Types>",
                                              "<Override PartName=\"/" + name + "\" ContentType=\"" + contentType + "\"/></Types>");
}

inline void Relate(Template &book, const QByteArray &relsPart, const QByteArray &relationship)
{
    if (!book.parts.contains(relsPart))
        book.parts[relsPart] = Relationships(QByteArray());
    book.parts[relsPart].replace("</Relationships>", relationship + "</Relationships>");
}

/// A part that belongs to the first sheet.
inline void AddPartOfSheet(Template &book, const QByteArray &name, const QByteArray &type, const QByteArray &content)
{
    AddPart(book, name, "application/" + type + "+xml", content);
    Relate(book, "xl/worksheets/_rels/sheet1.xml.rels", Relationship("rId" + QByteArray::number(qHash(name) % 100000), type, "/" + name));
}

/// The parts of what \a workbook saves; fails the test if it cannot.
inline QMap<QByteArray, QByteArray> SavedParts(Velmora::XlsxTemplate &workbook)
{
    const QByteArray saved = workbook.save();
    return saved.isEmpty() ? QMap<QByteArray, QByteArray>{{"error", workbook.errorString().toUtf8()}} : ReadArchive(saved);
}

#define VERIFY_DONE(workbook, call) QVERIFY2((workbook).call, qPrintable((workbook).errorString()))

} // namespace VelmoraTest
