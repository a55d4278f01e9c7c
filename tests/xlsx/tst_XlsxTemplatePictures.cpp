#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/Book.h"
#include "xlsx/CpuClock.h"
#include "xlsx/XlsxFiles.h"

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QTemporaryDir>

#include <algorithm>
#include <ctime>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

using Fit = XlsxTemplate::PictureFit;

const QByteArray kDrawing = QByteArrayLiteral("xl/drawings/drawing1.xml");
const QByteArray kRels = QByteArrayLiteral("xl/drawings/_rels/drawing1.xml.rels");
const QByteArray kTypes = QByteArrayLiteral("[Content_Types].xml");
const QString kLogo = QStringLiteral("Logo");
/// Anchors of a frame of 4 by 3 and of one that says nothing.
const QByteArray kOneCell = QByteArrayLiteral("<xdr:from><xdr:col>1</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>1</xdr:row>"
                                              "<xdr:rowOff>0</xdr:rowOff></xdr:from><xdr:ext cx=\"400\" cy=\"300\"/>");

QByteArray Image(int width, int height, const char *format = "PNG")
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(QColor(width % 256, height % 256, 0));
    QByteArray bytes;
    QBuffer device(&bytes);
    device.open(QIODevice::WriteOnly);
    image.save(&device, format);
    return bytes;
}

const QByteArray &Old()
{
    static const QByteArray image = Image(16, 12);
    return image;
}

QByteArray Picture(const QByteArray &name, const QByteArray &blip, const QByteArray &properties = QByteArray())
{
    return "<xdr:pic><xdr:nvPicPr><xdr:cNvPr id=\"2\" name=\"" + name + "\"/><xdr:cNvPicPr/></xdr:nvPicPr><xdr:blipFill>" + blip
        + "<a:stretch><a:fillRect/></a:stretch></xdr:blipFill><xdr:spPr>" + properties + "</xdr:spPr></xdr:pic>";
}

QByteArray Blip(const QByteArray &id)
{
    return "<a:blip r:embed=\"" + id + "\"/>";
}

QByteArray Anchored(const QByteArray &picture)
{
    return "<xdr:oneCellAnchor>" + kOneCell + picture + "<xdr:clientData/></xdr:oneCellAnchor>";
}

/// A workbook whose sheet has a drawing with these anchors, and these relationships.
Template Book(const QByteArray &anchors, const QByteArray &relationships = Relationship("rId1", "image", "../media/image1.png"))
{
    Template source;
    source.Sheet(1, "<row r=\"1\"/>", "<pageMargins left=\"0.7\"/><drawing r:id=\"rId1\"/>");
    source.Drawing(1, {}, relationships);
    source.parts[kDrawing].replace("</xdr:wsDr>", anchors + "</xdr:wsDr>");
    source.parts["xl/worksheets/_rels/sheet1.xml.rels"] = Relationships(Relationship("rId1", "drawing", "../drawings/drawing1.xml"));
    source.parts["xl/media/image1.png"] = Old();
    source.parts[kTypes].replace("<Default Extension=\"xml\"",
                                 "<Default Extension=\"PNG\" ContentType=\"image/png\"/><Default Extension=\"xml\"");
    return source;
}

Template OnePicture()
{
    return Book(Anchored(Picture("Logo", Blip("rId1"))));
}

/// The parts once the picture was set.
QMap<QByteArray, QByteArray> Set(const Template &source, const QByteArray &image, Fit fit = Fit::Stretch)
{
    XlsxTemplate workbook;
    if (!workbook.load(source.Archive()) || !workbook.setPicture(kLogo, image, fit))
        return {{"error", workbook.errorString().toUtf8()}};
    return SavedParts(workbook);
}

/// What the picture is filled with, behind its blip.
QByteArray Fill(const Template &source, const QByteArray &image, Fit fit = Fit::Fit)
{
    const auto parts = Set(source, image, fit);
    return Between(parts.value(kDrawing), "<a:blip r:embed=\"rId2\"/>", "</xdr:blipFill>") + parts.value("error");
}

const QByteArray kWhole = QByteArrayLiteral("<a:stretch><a:fillRect/></a:stretch>");

} // namespace

/// Pictures in sheets, and the images that are put in their place.
class tst_XlsxTemplatePictures : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pictures_are_named_and_their_images_read()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(OnePicture().Name("Cell", "Sheet1!$A$1").Archive()));
        QCOMPARE(workbook.names(), (QStringList{QStringLiteral("Cell"), kLogo}));
        QCOMPARE(workbook.kindOf(kLogo), XlsxTemplate::Kind::Picture);
        QCOMPARE(workbook.kindOf(QStringLiteral("LOGO")), XlsxTemplate::Kind::Picture);
        QCOMPARE(workbook.unusableReason(kLogo), QString());
        QCOMPARE(workbook.value(kLogo), QVariant(Old()));
        QVERIFY(!workbook.setValue(kLogo, 1));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::UnusableName);
        QVERIFY(!workbook.setPicture(QStringLiteral("Cell"), Old()));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::UnusableName);
        QVERIFY(!workbook.setPicture(QStringLiteral("None"), Old()));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::UnknownName);
    }

    void a_new_image_takes_the_place_of_the_old_one()
    {
        const auto before = OnePicture().parts;
        const QByteArray image = Image(8, 6);
        auto after = Set(OnePicture(), image);
        QCOMPARE(after.value(kRels), Relationships(Relationship("rId2", "image", "../media/image2.png")));
        QCOMPARE(after.take("xl/media/image2.png"), image);
        QCOMPARE(after.value(kDrawing), QByteArray(before.value(kDrawing)).replace("rId1", "rId2"));
        // The old image is gone, and nothing else differs.
        auto rest = before;
        for (const QByteArray &part : {kRels, kDrawing}) {
            rest.remove(part);
            after.remove(part);
        }
        rest.remove("xl/media/image1.png");
        QCOMPARE(after, rest);
    }

    void what_is_set_reads_back_and_may_be_set_again()
    {
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(OnePicture().Archive()));
        for (const QByteArray &image : {Image(8, 6), Image(6, 8, "JPEG"), Image(7, 7)}) {
            VERIFY_DONE(workbook, setPicture(kLogo, image));
            QCOMPARE(workbook.value(kLogo), QVariant(image));
            XlsxTemplate again;
            VERIFY_DONE(again, load(workbook.save()));
            QCOMPARE(again.value(kLogo), QVariant(image));
        }
        // None of the former ones is left.
        const QList<QByteArray> names = SavedParts(workbook).keys();
        QCOMPARE(std::count_if(names.begin(), names.end(), [](const QByteArray &name) { return name.startsWith("xl/media/"); }), 1);
    }

    void an_image_comes_from_a_file_of_any_name()
    {
        const QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("no extension"));
        WriteFile(file, Image(8, 6, "JPEG"));
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(OnePicture().Archive()));
        VERIFY_DONE(workbook, setPicture(kLogo, file));
        const auto parts = SavedParts(workbook);
        QCOMPARE(parts.value("xl/media/image1.jpeg"), FileContent(file));
        QVERIFY(parts.value(kTypes).contains("<Default Extension=\"jpeg\" ContentType=\"image/jpeg\"/>"));

        QVERIFY(!workbook.setPicture(kLogo, dir.filePath(QStringLiteral("missing.png"))));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::FileError);
        QVERIFY(workbook.errorString().contains(QStringLiteral("missing.png")));
        QCOMPARE(SavedParts(workbook), parts);
    }

    void the_content_type_is_said_where_the_package_says_another()
    {
        Template source = OnePicture();
        source.parts[kTypes].replace("image/png", "image/x-other");
        QVERIFY(Set(source, Image(8, 6)).value(kTypes).contains("<Override PartName=\"/xl/media/image2.png\" ContentType=\"image/png\"/>"));
    }

    void what_is_no_image_is_refused_data()
    {
        QTest::addColumn<QByteArray>("image");
        QTest::addColumn<QString>("text");
        QTest::newRow("nothing") << QByteArray() << QStringLiteral("PNG, JPEG");
        QTest::newRow("text") << QByteArray("logo.png") << QStringLiteral("PNG, JPEG");
        QTest::newRow("SVG") << QByteArray("<?xml version=\"1.0\"?>\n<svg viewBox=\"0 0 4 3\"/>") << QStringLiteral("use a PNG");
    }
    void what_is_no_image_is_refused()
    {
        QFETCH(QByteArray, image);
        QFETCH(QString, text);
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(OnePicture().Archive()));
        QVERIFY(!workbook.setPicture(kLogo, image));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::ValueError);
        QVERIFY2(workbook.errorString().contains(text), qPrintable(workbook.errorString()));
        QCOMPARE(SavedParts(workbook), OnePicture().parts);
    }

    void pictures_without_an_image_of_their_own_are_refused_data()
    {
        QTest::addColumn<QByteArray>("blip");
        QTest::addColumn<QByteArray>("relationship");
        QTest::addColumn<QString>("text");
        const QByteArray external =
            QByteArray(Relationship("rId1", "image", "file:///logo.png")).replace("/>", " TargetMode=\"External\"/>");
        const QByteArray inside = Relationship("rId1", "image", "../media/image1.png");
        QTest::newRow("linked") << QByteArray("<a:blip r:link=\"rId1\"/>") << external << QStringLiteral("linked to a file");
        QTest::newRow("linked, with a copy") << QByteArray("<a:blip r:embed=\"rId1\" r:link=\"rId9\"/>") << inside
                                             << QStringLiteral("linked to a file");
        QTest::newRow("embedded outside") << Blip("rId1") << external << QStringLiteral("linked to a file");
        QTest::newRow("empty") << Blip("") << inside << QStringLiteral("no image");
        QTest::newRow("none") << QByteArray() << inside << QStringLiteral("no image");
        QTest::newRow("no relationship") << Blip("rId7") << inside << QStringLiteral("no image");
        QTest::newRow("no part") << Blip("rId1") << Relationship("rId1", "image", "../media/gone.png") << QStringLiteral("no image");
    }
    void pictures_without_an_image_of_their_own_are_refused()
    {
        QFETCH(QByteArray, blip);
        QFETCH(QByteArray, relationship);
        QFETCH(QString, text);
        const Template source = Book(Anchored(Picture("Logo", blip)), relationship);
        XlsxTemplate workbook;
        VERIFY_DONE(workbook, load(source.Archive()));
        QCOMPARE(workbook.kindOf(kLogo), XlsxTemplate::Kind::Unusable);
        QVERIFY2(workbook.unusableReason(kLogo).contains(text), qPrintable(workbook.unusableReason(kLogo)));
        QCOMPARE(workbook.value(kLogo), QVariant(QByteArray()));
        QVERIFY(!workbook.setPicture(kLogo, Old()));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::UnusableName);
        QVERIFY2(workbook.errorString().contains(text), qPrintable(workbook.errorString()));
        QCOMPARE(SavedParts(workbook), source.parts);
    }

    void one_name_of_several_pictures_sets_all_of_them()
    {
        // Twice in one drawing, once in a group, once in the drawing of another sheet; of another case.
        const QByteArray group = "<xdr:twoCellAnchor><xdr:from/><xdr:to/><xdr:grpSp><xdr:grpSpPr/>" + Picture("LOGO", Blip("rId1"))
            + "</xdr:grpSp><xdr:clientData/></xdr:twoCellAnchor>";
        Template source = Book(Anchored(Picture("Logo", Blip("rId1"))) + Anchored(Picture("Other", Blip("rId1"))) + group);
        source.Sheet(2, "", "<drawing r:id=\"rId9\"/>");
        source.Drawing(2, {{"Logo", "rId5"}}, Relationship("rId5", "image", "/xl/media/image1.png"));
        source.parts["xl/worksheets/_rels/sheet2.xml.rels"] = Relationships(Relationship("rId9", "drawing", "/xl/drawings/drawing2.xml"));
        const auto parts = Set(source, Image(8, 6));
        QCOMPARE(parts.value(kDrawing).count("r:embed=\"rId2\""), 2);
        QCOMPARE(parts.value(kDrawing).count("r:embed=\"rId1\""), 1);
        QCOMPARE(parts.value("xl/drawings/drawing2.xml").count("r:embed=\"rId2\""), 1);
        // The old image is still shown by another picture.
        QCOMPARE(
            parts.value(kRels),
            Relationships(Relationship("rId1", "image", "../media/image1.png") + Relationship("rId2", "image", "../media/image2.png")));
        QCOMPARE(parts.value("xl/drawings/_rels/drawing2.xml.rels"), Relationships(Relationship("rId2", "image", "../media/image2.png")));
        QCOMPARE(parts.value("xl/media/image1.png"), Old());
        QCOMPARE(parts.value("xl/media/image2.png"), Image(8, 6));
        QCOMPARE(PackageFaults(parts), QStringList());
    }

    void an_image_that_another_part_shows_stays()
    {
        Template source = OnePicture();
        source.parts["xl/worksheets/_rels/sheet1.xml.rels"].replace(
            "</Relationships>", Relationship("rId2", "image", "../Media/Image1.png") + "</Relationships>");
        const auto parts = Set(source, Image(8, 6));
        QVERIFY(!parts.value(kRels).contains("image1.png"));
        QCOMPARE(parts.value("xl/media/image1.png"), Old());
    }

    void an_svg_twin_goes_with_the_old_image()
    {
        const QByteArray keeps = "<a:ext uri=\"{28A0092B-C50C-407E-A947-70E740481C1C}\"><a14:useLocalDpi val=\"0\"/></a:ext>";
        const QByteArray twin = "<a:ext uri=\"{96DAC541-7B7A-43D3-8B79-37D633B846F1}\"><asvg:svgBlip r:embed=\"rId2\"/></a:ext>";
        const QByteArray layer =
            "<a:ext uri=\"{BEBA8EAE-BF5A-486C-A8C5-ECC9F3942E4B}\"><a14:imgProps><a14:imgLayer r:embed=\"rId3\"/></a14:imgProps></a:ext>";
        const auto blip = [](const QByteArray &extensions) {
            return "<a:blip xmlns:a14=\"urn:a14\" xmlns:asvg=\"urn:asvg\" r:embed=\"rId1\"><a:lum/><a:extLst>" + extensions
                + "</a:extLst></a:blip>";
        };
        const QByteArray relationships = Relationship("rId1", "image", "../media/image1.png")
            + Relationship("rId2", "image", "../media/image2.svg") + Relationship("rId3", "hdphoto", "../media/hdphoto1.wdp");
        Template source = Book(Anchored(Picture("Logo", blip(keeps + twin + layer))), relationships);
        source.parts["xl/media/image2.svg"] = "<svg/>";
        source.parts["xl/media/hdphoto1.wdp"] = "layer";
        source.parts[kTypes].replace("</Types>",
                                     "<Default Extension=\"svg\" ContentType=\"image/svg+xml\"/><Default Extension=\"wdp\" "
                                     "ContentType=\"image/vnd.ms-photo\"/></Types>");
        auto parts = Set(source, Image(8, 6));
        QCOMPARE(parts.value(kRels), Relationships(Relationship("rId4", "image", "../media/image2.png")));
        QVERIFY(!parts.contains("xl/media/image2.svg"));
        QVERIFY(!parts.contains("xl/media/hdphoto1.wdp"));
        QCOMPARE(Between(parts.value(kDrawing), "<a:lum/>", "</a:blip>"), "<a:extLst>" + keeps + "</a:extLst>");

        source.parts[kDrawing].replace(keeps, "").replace(layer, "");
        parts = Set(source, Image(8, 6));
        QVERIFY(parts.value(kDrawing).contains("<a:lum/></a:blip>"));
    }

    void an_image_fits_into_its_frame_data()
    {
        QTest::addColumn<QByteArray>("image");
        QTest::addColumn<QByteArray>("fill");
        // The frame is 4 by 3.
        QTest::newRow("of its proportions") << Image(40, 30) << kWhole;
        QTest::newRow("wider") << Image(80, 30) << "<a:srcRect t=\"-50000\" b=\"-50000\"/>" + kWhole;
        QTest::newRow("higher") << Image(30, 45) << "<a:srcRect l=\"-50000\" r=\"-50000\"/>" + kWhole;
        QTest::newRow("square") << Image(9, 9) << "<a:srcRect l=\"-16667\" r=\"-16667\"/>" + kWhole;
    }
    void an_image_fits_into_its_frame()
    {
        QFETCH(QByteArray, image);
        QFETCH(QByteArray, fill);
        QCOMPARE(Fill(OnePicture(), image), fill);
        QCOMPARE(Fill(OnePicture(), image, Fit::Stretch), kWhole);
    }

    void frames_of_all_kinds_are_measured_data()
    {
        QTest::addColumn<QByteArray>("anchor");
        QTest::addColumn<QByteArray>("side"); // of an image as high as wide
        const QByteArray picture = Picture("Logo", Blip("rId1"));
        const auto sized = [](int width, int height) {
            return Picture("Logo", Blip("rId1"),
                           "<a:xfrm><a:off x=\"1\" y=\"1\"/><a:ext cx=\"" + QByteArray::number(width) + "\" cy=\""
                               + QByteArray::number(height) + "\"/></a:xfrm>");
        };
        const auto corners = [](int column, int row) {
            return "<xdr:from><xdr:col>0</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>0</xdr:row><xdr:rowOff>0</xdr:rowOff></"
                   "xdr:from><xdr:to>"
                   "<xdr:col>"
                + QByteArray::number(column) + "</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>" + QByteArray::number(row)
                + "</xdr:row><xdr:rowOff>0</xdr:rowOff></xdr:to>";
        };
        const auto wide = [](int thousandths) { return "l=\"" + QByteArray::number(-thousandths) + "\""; };
        const auto high = [](int thousandths) { return "t=\"" + QByteArray::number(-thousandths) + "\""; };
        QTest::newRow("absolute") << "<xdr:absoluteAnchor><xdr:pos x=\"0\" y=\"0\"/><xdr:ext cx=\"300\" cy=\"100\"/>" + picture
                + "</xdr:absoluteAnchor>"
                                  << wide(100000);
        QTest::newRow("one cell, whatever the picture says")
            << "<xdr:oneCellAnchor>" + kOneCell + sized(100, 900) + "</xdr:oneCellAnchor>" << wide(16667);
        QTest::newRow("two cells, as the picture says")
            << "<xdr:twoCellAnchor>" + corners(1, 1) + sized(100, 200) + "</xdr:twoCellAnchor>" << high(50000);
        // Columns of 64 pixels; rows of 15 points, 20 pixels, but one of 60 points.
        QTest::newRow("two cells that say nothing else")
            << "<xdr:twoCellAnchor>" + corners(5, 2) + picture + "</xdr:twoCellAnchor>" << wide(110000);
        QTest::newRow("in a group that shows it wider") << "<xdr:twoCellAnchor>" + corners(1, 1)
                + "<xdr:grpSp><xdr:grpSpPr><a:xfrm><a:ext cx=\"400\" cy=\"100\"/><a:chExt cx=\"200\" cy=\"100\"/></a:xfrm></xdr:grpSpPr>"
                + sized(100, 100)
                + "</xdr:grpSp></xdr:twoCellAnchor>" << wide(50000);
        QTest::newRow("in a group that says nothing")
            << "<xdr:oneCellAnchor>" + kOneCell + "<xdr:grpSp>" + picture + "</xdr:grpSp></xdr:oneCellAnchor>" << QByteArray("none");
        QTest::newRow("for editions of the format") << "<mc:AlternateContent xmlns:mc=\"urn:mc\"><mc:Choice><xdr:oneCellAnchor>" + kOneCell
                + picture + "</xdr:oneCellAnchor></mc:Choice></mc:AlternateContent>"
                                                    << wide(16667);
        QTest::newRow("of no height") << "<xdr:oneCellAnchor><xdr:from/><xdr:ext cx=\"300\" cy=\"0\"/>" + picture + "</xdr:oneCellAnchor>"
                                      << QByteArray("none");
    }
    void frames_of_all_kinds_are_measured()
    {
        QFETCH(QByteArray, anchor);
        QFETCH(QByteArray, side);
        Template source = Book(anchor);
        source.parts["xl/worksheets/sheet1.xml"].replace("<row r=\"1\"/>", "<row r=\"1\" ht=\"60\"/>");
        QCOMPARE(Between(Set(source, Image(50, 50), Fit::Fit).value(kDrawing), "<a:srcRect ", " "), side);
    }

    void columns_of_own_widths_and_hidden_ones_count()
    {
        const QByteArray corners =
            "<xdr:from><xdr:col>0</xdr:col><xdr:colOff>9525</xdr:colOff><xdr:row>0</xdr:row><xdr:rowOff>0</xdr:rowOff>"
            "</xdr:from><xdr:to><xdr:col>3</xdr:col><xdr:colOff>9525</xdr:colOff><xdr:row>4</xdr:row>"
            "<xdr:rowOff>0</xdr:rowOff></xdr:to>";
        Template source = Book("<xdr:twoCellAnchor>" + corners + Picture("Logo", Blip("rId1")) + "</xdr:twoCellAnchor>");
        // 145 pixels and none by twice 30 points, 80 pixels, and two hidden rows.
        source.parts["xl/worksheets/sheet1.xml"]
            .replace("<sheetData>",
                     "<sheetFormatPr defaultColWidth=\"0\" defaultRowHeight=\"30\"/><cols><col min=\"1\" max=\"1\" "
                     "width=\"20.7109375\"/><col min=\"2\" max=\"9\" width=\"50\" hidden=\"1\"/></cols><sheetData>")
            .replace("<row r=\"1\"/>", "<row r=\"2\" hidden=\"1\" ht=\"99\"/><row r=\"3\" hidden=\"true\"/>");
        QCOMPARE(Fill(source, Image(80, 80)), "<a:srcRect l=\"-40625\" r=\"-40625\"/>" + kWhole);
    }

    void the_crop_of_the_old_image_is_not_that_of_the_new_one()
    {
        Template source = OnePicture();
        source.parts[kDrawing].replace("<a:stretch><a:fillRect/></a:stretch>",
                                       "<a:srcRect l=\"10000\" b=\"5000\"/><a:stretch><a:fillRect t=\"5000\"/></a:stretch>");
        QCOMPARE(Fill(source, Image(40, 30)), kWhole);
        source = OnePicture();
        source.parts[kDrawing].replace("<a:stretch><a:fillRect/></a:stretch>", "<a:tile sx=\"50000\"/>");
        QCOMPARE(Fill(source, Image(40, 30)), kWhole);
    }

    void other_prefixes_and_none_are_understood()
    {
        Template source = OnePicture();
        source.parts[kDrawing].replace("xdr:", "d:").replace("a:", "m:").replace("r:embed", "rel:embed");
        source.parts[kDrawing].replace("xmlns:xdr=", "xmlns:d=").replace("xmlns:a=", "xmlns:m=").replace("xmlns:r=", "xmlns:rel=");
        QByteArray fill = Between(Set(source, Image(80, 30), Fit::Fit).value(kDrawing), "<d:blipFill>", "</d:blipFill>");
        QCOMPARE(fill,
                 QByteArray("<m:blip rel:embed=\"rId2\"/><m:srcRect t=\"-50000\" b=\"-50000\"/><m:stretch><m:fillRect/></m:stretch>"));

        // As openpyxl writes it: no prefix for the drawing, that of the image said where it is used.
        source = OnePicture();
        source.parts[kDrawing].replace("xdr:", "").replace("xmlns:xdr=", "xmlns=").replace("xmlns:a=", "xmlns:unused=");
        source.parts[kDrawing].replace("<a:blip ", "<a:blip xmlns:a=\"urn:a\" ").replace("<a:stretch>", "<a:stretch xmlns:a=\"urn:a\">");
        fill = Between(Set(source, Image(80, 30), Fit::Fit).value(kDrawing), "<blipFill>", "</blipFill>");
        QCOMPARE(fill,
                 QByteArray("<a:blip xmlns:a=\"urn:a\" r:embed=\"rId2\"/><a:srcRect xmlns:a=\"urn:a\" t=\"-50000\" b=\"-50000\"/>"
                            "<a:stretch xmlns:a=\"urn:a\"><a:fillRect/></a:stretch>"));
    }

    void many_pictures_over_all_rows_are_measured_at_once()
    {
        const QByteArray toTheEnd = "<xdr:twoCellAnchor><xdr:from><xdr:col>0</xdr:col><xdr:row>0</xdr:row></xdr:from><xdr:to>"
                                    "<xdr:col>16383</xdr:col><xdr:row>1048575</xdr:row></xdr:to>"
            + Picture("Logo", Blip("rId1")) + "</xdr:twoCellAnchor>";
        QByteArray rows;
        for (int row = 1; row <= 20000; ++row)
            rows += "<row r=\"" + QByteArray::number(row) + "\" ht=\"5\"/>";
        Template book = Book(toTheEnd.repeated(500));
        book.parts["xl/worksheets/sheet1.xml"].replace("<row r=\"1\"/>", rows);
        QVERIFY(book.parts.value("xl/worksheets/sheet1.xml").contains("\"20000\""));
        const CpuClock clock;
        const QByteArray fill = Between(Set(book, Image(7, 7), Fit::Fit).value(kDrawing), "<a:srcRect", "/>");
        QVERIFY2(clock.IsWithin(1000), qPrintable(QString::number(clock.Milliseconds())));
        // 16,383 columns of 64 pixels; 20,000 rows of 5 points and 1,028,575 of 15, of which 3 are 4 pixels.
        const double frame = 16383 * 64 / (20000 * 5 * 4 / 3.0 + 1028575 * 20.0);
        const QByteArray free = QByteArray::number(-qRound((1 / frame - 1) / 2 * 100000));
        QCOMPARE(fill, " t=\"" + free + "\" b=\"" + free + '"');
    }

    void many_pictures_are_set_in_time_that_grows_with_their_number()
    {
        const auto seconds = [](int count) {
            QByteArray anchors;
            QByteArray relationships;
            Template source;
            for (int i = 1; i <= count; ++i) {
                const QByteArray number = QByteArray::number(i);
                anchors += Anchored(Picture("P" + number, Blip("rId" + number)));
                relationships += Relationship("rId" + number, "image", "../media/image" + number + ".png");
            }
            source = Book(anchors, relationships);
            for (int i = 1; i <= count; ++i)
                source.parts["xl/media/image" + QByteArray::number(i) + ".png"] = Old();
            XlsxTemplate workbook;
            if (!workbook.load(source.Archive()))
                return -1.0;
            const std::clock_t before = std::clock();
            for (int i = 1; i <= count; ++i)
                workbook.setPicture(QStringLiteral("P%1").arg(i), Old());
            return workbook.save().isEmpty() ? -1.0 : double(std::clock() - before) / CLOCKS_PER_SEC;
        };
        const double few = seconds(500);
        const double many = seconds(2000);
        QVERIFY2(few >= 0 && many >= 0 && many < 6 * few + 0.1, qPrintable(QStringLiteral("%1 s, %2 s").arg(few).arg(many)));
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxTemplatePictures)
#include "tst_XlsxTemplatePictures.moc"
