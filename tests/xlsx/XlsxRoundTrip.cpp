#include "xlsx/XlsxRoundTrip.h"

#include <Velmora/XlsxOperator.h>

#include "xlsx/XlsxFiles.h"

#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace VelmoraTest {

namespace {

using Velmora::XlsxOperator;

void Require(bool condition, const char *what)
{
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

bool IsParsed(const QByteArray &name)
{
    return name == "[Content_Types].xml" || name == "xl/workbook.xml" || name == "xl/_rels/workbook.xml.rels"
        || name == "xl/sharedStrings.xml" || name.startsWith("xl/worksheets/sheet") || name.startsWith("xl/drawings/drawing")
        || name.startsWith("xl/drawings/_rels/drawing");
}

QMap<QByteArray, QByteArray> Unparsed(QMap<QByteArray, QByteArray> files)
{
    for (auto file = files.begin(); file != files.end();)
        file = IsParsed(file.key()) ? files.erase(file) : std::next(file);
    files.remove("xl/media/new.png");
    return files;
}

void SetValues(XlsxOperator &op, const QString &image)
{
    QHash<QString, QVariant> elements;
    op.getElementsNameToValueHash(elements);
    int turn = 0;
    for (auto element = elements.cbegin(); element != elements.cend(); ++element) {
        switch (turn++ % 5) {
        case 0:
            op.setCellsValue(element.key(), turn + 0.5);
            break;
        case 1:
            op.setCellsValue(element.key(), QStringLiteral("1 text"));
            break;
        case 2:
            op.setCellsDropDownInfo(element.key(), {QStringLiteral("A1"), {QStringLiteral("a"), QStringLiteral("b")}});
            break;
        case 3:
            op.setPicturesPictureInfo(element.key(), {image});
            break;
        default:
            break; // goes back as it came
        }
    }
    op.setPicturesPictureInfo(QStringLiteral("logo"), {image});
    op.setCellValue(QStringLiteral("Sheet1"), 7, QStringLiteral("AB"), QStringLiteral("Cell"), QStringLiteral("2 text"));
    op.setCellsDropDownInfo(QStringLiteral("My Sheet"), 2, QStringLiteral("B"), QStringLiteral("New"), {3, {}});
}

} // namespace

void RoundTrip(const QByteArray &archive)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    static const QTemporaryDir dir;
    const QString image = dir.filePath(QStringLiteral("new.png"));
    const QString work = dir.filePath(QStringLiteral("work"));
    const QString output = dir.filePath(QStringLiteral("output.xlsx"));
    WriteFile(image, "image");
    WriteFile(dir.filePath(QStringLiteral("template.xlsx")), archive);

    XlsxOperator op;
    op.setOldXlsxAbsolutePath(dir.filePath(QStringLiteral("template.xlsx")));
    op.setExtractDirAbsolutePath(work);
    op.setNewXlsxAbsolutePath(output);
    if (!op.load())
        return;
    const auto before = Unparsed(FilesBelow(work));
    SetValues(op, image);
    const bool saved = op.save();
    Require(before == Unparsed(FilesBelow(work)), "a part that is not parsed changed");
    if (!saved)
        return; // the package has a directory in a part's place

    XlsxOperator again;
    again.setOldXlsxAbsolutePath(output);
    again.setExtractDirAbsolutePath(work);
    Require(again.load(), "what was saved cannot be loaded");
    Require(before == Unparsed(FilesBelow(work)), "a part that is not parsed changed on its way through the archive");
}

} // namespace VelmoraTest
