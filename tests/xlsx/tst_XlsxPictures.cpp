#include "xlsx/XlsxTestCase.h"

#include <QRegularExpression>

using namespace Velmora;
using namespace VelmoraTest;

using PictureInfo = XlsxOperator::PictureInfo;

namespace {

const QString kLogo = QStringLiteral("logo");
const QByteArray kDrawing1 = QByteArrayLiteral("xl/drawings/drawing1.xml");
const QByteArray kRels1 = QByteArrayLiteral("xl/drawings/_rels/drawing1.xml.rels");
const QByteArray kImage1 = Relationship("rId1", "image", "../media/image1.png");
const QByteArray kImage2 = Relationship("rId2", "image", "../media/image2.png");

Template WithPictures()
{
    Template source;
    source.Drawing(1, {{"logo", "rId1"}, {"stamp", "rId2"}, {"logo", "rId2"}}, kImage1 + kImage2);
    source.parts["xl/media/image1.png"] = "first";
    source.parts["xl/media/image2.png"] = "second";
    return source;
}

QList<QByteArray> Embedded(const QByteArray &drawing)
{
    QList<QByteArray> ids;
    for (auto at = drawing.indexOf("r:embed=\""); at >= 0; at = drawing.indexOf("r:embed=\"", at + 1))
        ids.append(drawing.mid(at + 9, drawing.indexOf('"', at + 9) - at - 9));
    return ids;
}

} // namespace

class tst_XlsxPictures : public XlsxTestCase
{
    Q_OBJECT

    QString Image(const QString &name, const QByteArray &content) const
    {
        WriteFile(Path(name), content);
        return Path(name);
    }
    static QString FilePathOf(XlsxOperator &op, const QString &name)
    {
        PictureInfo info{QStringLiteral("as it was")};
        op.getPicturePictureInfo(name, info);
        return info.filePath;
    }

private Q_SLOTS:
    void a_picture_reads_as_the_target_of_its_first_occurrence()
    {
        XlsxOperator op;
        QVERIFY(Load(op, WithPictures()));
        QCOMPARE(FilePathOf(op, kLogo), QStringLiteral("../media/image1.png"));
        QCOMPARE(FilePathOf(op, QStringLiteral("stamp")), QStringLiteral("../media/image2.png"));
        QCOMPARE(FilePathOf(op, QStringLiteral("unknown")), QStringLiteral("as it was"));
        QHash<QString, QVariant> elements;
        op.getElementsNameToValueHash(elements);
        QCOMPARE(elements.size(), 3);
    }

    void a_picture_without_its_relationship_reads_invalid_data()
    {
        QTest::addColumn<QByteArray>("id");
        QTest::addColumn<QByteArray>("relationships");
        QTest::newRow("another id") << QByteArray("rId9") << kImage1;
        QTest::newRow("no id") << QByteArray() << kImage1;
        QTest::newRow("no relationships") << QByteArray("rId1") << QByteArray();
    }
    void a_picture_without_its_relationship_reads_invalid()
    {
        QFETCH(QByteArray, id);
        QFETCH(QByteArray, relationships);
        XlsxOperator op;
        QVERIFY(Load(op, Template().Drawing(1, {{"logo", id}}, relationships)));
        QVERIFY(!op.getCellValue(kLogo).isValid());
        QVERIFY(op.save());
    }

    void drawings_without_their_relationships_part_read_invalid_and_stay()
    {
        Template source = WithPictures();
        source.parts.remove(kRels1);
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QVERIFY(!op.getCellValue(kLogo).isValid());
        QVERIFY(op.save());
        QCOMPARE(Embedded(Output().value(kDrawing1)), (QList<QByteArray>{"rId1", "rId2", "rId2"}));
    }

    void an_untouched_picture_stays_untouched()
    {
        const Template source = WithPictures();
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QVERIFY(op.save());
        QVERIFY(op.save());
        for (const QByteArray &part : {kDrawing1, kRels1}) {
            const QByteArray content = source.parts.value(part);
            QCOMPARE(Output().value(part), "<?xml version=\"1.0\"?>" + content.mid(content.indexOf("?>\n") + 3));
        }
        QCOMPARE(Output().value("xl/media/image1.png"), QByteArray("first"));
        QCOMPARE(PackageFaults(Output()), QStringList());
    }

    void a_package_never_chooses_a_file_of_the_host()
    {
        // An absolute target that exists on this machine comes back with the value, and must not lead to it.
        const QString secret = Image(QStringLiteral("secret"), "secret");
        Template source;
        source.Drawing(1, {{"logo", "rId1"}}, Relationship("rId1", "image", secret.toUtf8()));
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QCOMPARE(FilePathOf(op, kLogo), secret);
        QVERIFY(op.save());
        QVERIFY(!Output().contains("xl/media/secret"));
        QVERIFY(Output().value(kRels1).contains(secret.toUtf8()));
    }

    void a_new_image_is_copied_and_linked_in_every_picture_of_the_name()
    {
        XlsxOperator op;
        QVERIFY(Load(op, WithPictures()));
        op.setPicturesPictureInfo(kLogo, {Image(QStringLiteral("new \u00e4.png"), "new")});
        QVERIFY(op.save());
        QVERIFY(op.save());
        QCOMPARE(Output().value("xl/media/new \xc3\xa4.png"), QByteArray("new"));
        QCOMPARE(Output().value("xl/media/image1.png"), QByteArray("first"));
        QCOMPARE(Embedded(Output().value(kDrawing1)), (QList<QByteArray>{"rId3", "rId2", "rId3"}));
        QCOMPARE(OutputBetween(kRels1, "relationships\">", "</Relationships>"),
                 kImage1 + kImage2
                     + "<Relationship Id=\"rId3\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/image\" "
                       "Target=\"../media/new \xc3\xa4.png\"/>");
        QCOMPARE(PackageFaults(Output()), QStringList());
    }

    void each_drawing_gets_its_own_relationship_and_two_names_share_it()
    {
        Template source = WithPictures();
        source.Drawing(2, {{"logo", "rId1"}, {"other", "rId1"}}, kImage1);
        XlsxOperator op;
        QVERIFY(Load(op, source));
        const QString image = Image(QStringLiteral("new.png"), "new");
        op.setPicturesPictureInfo(kLogo, {image});
        op.setPicturesPictureInfo(QStringLiteral("stamp"), {image});
        QVERIFY(op.save());
        QCOMPARE(Embedded(Output().value(kDrawing1)), (QList<QByteArray>{"rId3", "rId3", "rId3"}));
        QCOMPARE(Embedded(Output().value("xl/drawings/drawing2.xml")), (QList<QByteArray>{"rId2", "rId1"}));
        QCOMPARE(Output().value(kRels1).count("new.png"), 1);
        QCOMPARE(Output().value("xl/drawings/_rels/drawing2.xml.rels").count("new.png"), 1);
        QCOMPARE(PackageFaults(Output()), QStringList());
    }

    void an_image_of_an_existing_name_replaces_the_file_and_its_relationship_serves()
    {
        XlsxOperator op;
        QVERIFY(Load(op, WithPictures()));
        op.setPicturesPictureInfo(kLogo, {Image(QStringLiteral("image2.png"), "new")});
        QVERIFY(op.save());
        QCOMPARE(Output().value("xl/media/image2.png"), QByteArray("new"));
        QCOMPARE(Embedded(Output().value(kDrawing1)), (QList<QByteArray>{"rId2", "rId2", "rId2"}));
        QVERIFY(!Output().value(kRels1).contains("rId3"));
    }

    void the_next_image_finds_the_next_number()
    {
        XlsxOperator op;
        QVERIFY(Load(op, WithPictures()));
        for (const char *name : {"a.png", "b.png", "a.png"}) {
            op.setPicturesPictureInfo(kLogo, {Image(QLatin1String(name), name)});
            QVERIFY(op.save());
        }
        QCOMPARE(Embedded(Output().value(kDrawing1)), (QList<QByteArray>{"rId3", "rId2", "rId3"}));
        QVERIFY(Output().value(kRels1).contains("rId4"));
        QVERIFY(!Output().value(kRels1).contains("rId5"));
    }

    void what_does_not_exist_changes_nothing()
    {
        XlsxOperator op;
        QVERIFY(Load(op, WithPictures()));
        op.setPicturesPictureInfo(kLogo, {Path(QStringLiteral("missing.png"))});
        op.setPicturesPictureInfo(QStringLiteral("stamp"), {QString()});
        QVERIFY(op.save());
        QCOMPARE(Embedded(Output().value(kDrawing1)), (QList<QByteArray>{"rId1", "rId2", "rId2"}));
        QVERIFY(!Output().value(kRels1).contains("rId3"));
    }

    void another_kind_of_value_changes_nothing()
    {
        XlsxOperator op;
        QVERIFY(Load(op, WithPictures()));
        op.setCellsValue(kLogo, Image(QStringLiteral("new.png"), "new"));
        QVERIFY(op.save());
        QCOMPARE(Embedded(Output().value(kDrawing1)), (QList<QByteArray>{"rId1", "rId2", "rId2"}));
    }

    void other_kinds_of_image_are_linked_without_a_content_type()
    {
        XlsxOperator op;
        QVERIFY(Load(op, WithPictures()));
        op.setPicturesPictureInfo(kLogo, {Image(QStringLiteral("new.gif"), "gif")});
        QVERIFY(op.save());
        QCOMPARE(Output().value("xl/media/new.gif"), QByteArray("gif"));
        QCOMPARE(PackageFaults(Output()), QStringList(QStringLiteral("a part without a content type: xl/media/new.gif")));
    }

    void a_source_in_the_media_folder_is_removed_and_reported()
    {
        XlsxOperator op;
        QVERIFY(Load(op, WithPictures()));
        const QString inside = WorkPath() + QStringLiteral("/xl/media/image2.png");
        op.setPicturesPictureInfo(kLogo, {inside});
        ExpectWarning(QStringLiteral("XlsxOperator::copyAndRenameFile: Source file does not exist. \"%1\"").arg(inside));
        QVERIFY(op.save());
        QVERIFY(!Output().contains("xl/media/image2.png"));
        QCOMPARE(Embedded(Output().value(kDrawing1)), (QList<QByteArray>{"rId2", "rId2", "rId2"}));
    }

    void a_missing_media_folder_is_reported_and_the_link_made()
    {
        Template source = WithPictures();
        source.parts.remove("xl/media/image1.png");
        source.parts.remove("xl/media/image2.png");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        const QString image = Image(QStringLiteral("new.png"), "new");
        op.setPicturesPictureInfo(kLogo, {image});
        Log().ExpectMatch(
            QtWarningMsg,
            QStringLiteral("XlsxOperator::copyAndRenameFile: Failed to copy file: \".+\"   \"%1\"   \"%2\"")
                .arg(QRegularExpression::escape(image), QRegularExpression::escape(WorkPath() + QStringLiteral("/xl/media/new.png"))));
        QVERIFY(op.save());
        QVERIFY(!QFileInfo::exists(WorkPath() + QStringLiteral("/xl/media")));
        QCOMPARE(Embedded(Output().value(kDrawing1)), (QList<QByteArray>{"rId3", "rId2", "rId3"}));
    }

    void relationships_without_any_get_none()
    {
        Template source;
        source.Drawing(1, {{"logo", "rId1"}}, QByteArray());
        source.parts["xl/media/image1.png"] = "first";
        XlsxOperator op;
        QVERIFY(Load(op, source));
        op.setPicturesPictureInfo(kLogo, {Image(QStringLiteral("new.png"), "new")});
        QVERIFY(op.save());
        QVERIFY(!Output().value(kRels1).contains("<Relationship "));
        QCOMPARE(Output().value("xl/media/new.png"), QByteArray("new"));
    }

    void only_the_usual_prefixes_are_pictures()
    {
        Template source = WithPictures();
        source.parts[kDrawing1].replace("xdr:", "x:");
        XlsxOperator op;
        QVERIFY(Load(op, source));
        QHash<QString, QVariant> elements;
        op.getElementsNameToValueHash(elements);
        QVERIFY(elements.isEmpty());
    }

    void drawings_pair_with_their_relationships_by_their_place()
    {
        Template source;
        for (int i = 1; i <= 11; ++i)
            source.Drawing(i, {{"p" + QByteArray::number(i), "rId1"}},
                           Relationship("rId1", "image", "../media/" + QByteArray::number(i) + ".png"));
        XlsxOperator op;
        QVERIFY(Load(op, source));
        for (int i = 1; i <= 11; ++i)
            QCOMPARE(FilePathOf(op, QStringLiteral("p%1").arg(i)), QStringLiteral("../media/%1.png").arg(i));
    }

    void many_pictures_of_one_name_are_one_copy()
    {
        QList<QPair<QByteArray, QByteArray>> pictures;
        for (int i = 0; i < 20000; ++i)
            pictures.append(qMakePair(QByteArray("logo"), QByteArray("rId1")));
        Template source;
        source.Drawing(1, pictures, kImage1);
        source.parts["xl/media/image1.png"] = "first";
        XlsxOperator op;
        QVERIFY(Load(op, source));
        op.setPicturesPictureInfo(kLogo, {Image(QStringLiteral("new.png"), QByteArray(1000000, 'x'))});
        QVERIFY(op.save());
        QCOMPARE(Embedded(Output().value(kDrawing1)).count("rId2"), 20000);
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxPictures)
#include "tst_XlsxPictures.moc"
