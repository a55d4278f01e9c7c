#include "TestFiles.h"
#include "support/ColorValue.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <QIcon>
#include <QPainter>

using namespace Velmora;
using VelmoraTest::DrainEvents;
using VelmoraTest::PixelAt;
using VelmoraTest::Table;
using VelmoraTest::TestFiles;
using VelmoraTest::TokenOf;
using VelmoraTest::UseTable;

namespace {

const QColor kRed(255, 0, 0);
const QColor kBlack(0, 0, 0);

QcStyleManager &Manager()
{
    return *QcStyleManager::GetInstance();
}

/// Four fields of ten by ten, side by side, for shapes written with @0 to @3 as their places.
QByteArray Svg(QByteArray shapes)
{
    for (int i = 0; i < 4; ++i)
        shapes.replace("@" + QByteArray::number(i), "x=\"" + QByteArray::number(i * 10) + "\" y=\"0\" width=\"10\" height=\"10\"");
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"40\" height=\"10\" viewBox=\"0 0 40 10\">" + shapes + "</svg>";
}

ImageParams Request(const QString &path, const ColorParams &color = ColorParams(), const QSize &size = QSize(40, 10))
{
    ImageParams params;
    params.path = path;
    params.size = size;
    params.color = color;
    return params;
}

/// The colour in the middle of field number \a field.
QColor Field(const QImage &image, int field)
{
    return image.pixelColor(field * 10 + 5, 5);
}

QColor WithAlpha(QColor color, double alpha)
{
    color.setAlphaF(VelmoraTest::ColorValue(alpha));
    return color;
}

bool IsBlank(const QImage &image)
{
    QImage blank(image.size(), image.format());
    blank.fill(Qt::transparent);
    return image == blank;
}

} // namespace

class tst_ThemedImages : public VelmoraTest::TestCase
{
    Q_OBJECT

private:
    TestFiles m_files;

    void SetUp() override { UseTable(Table::Light); }

    int m_written = 0;

    /// A new file each time: two of one size that are written at the same instant cannot be told apart.
    QString WriteFile(const QByteArray &text) { return m_files.Write(QStringLiteral("icon %1.svg").arg(++m_written), text); }
    QString Write(const QByteArray &shapes) { return WriteFile(Svg(shapes)); }
    QImage Image(const QByteArray &shapes, const ColorParams &color) { return Manager().GetImage(Request(Write(shapes), color)); }
    QImage Image(const QByteArray &shapes, const QHash<QString, ColorParams> &mulColor)
    {
        ImageParams params = Request(Write(shapes));
        params.mulColor = mulColor;
        return Manager().GetImage(params);
    }

private Q_SLOTS:
    // --- One target colour ---

    void all_colours_of_a_file_become_the_one_colour()
    {
        const QImage image =
            Image("<rect @0 fill=\"#000000\"/><rect @1 fill=\"#000000\"/><rect @2 fill=\"#FF0000\"/>", ColorParams("brand/brand"));
        const QColor brand = TokenOf(Table::Light, QStringLiteral("brand/brand"));
        for (int field = 0; field < 3; ++field)
            COMPARE_COLOR(Field(image, field), brand);
        QCOMPARE(Field(image, 3).alpha(), 0);
    }

    void the_colour_follows_the_table()
    {
        const QString path = Write("<rect @0 fill=\"#000000\"/>");
        for (const Table table : {Table::Light, Table::Dark, Table::Light}) {
            UseTable(table);
            COMPARE_COLOR(Field(Manager().GetImage(Request(path, "brand/brand_bg")), 0), TokenOf(table, QStringLiteral("brand/brand_bg")));
        }
    }

    void a_receiver_of_the_change_gets_no_image_of_the_table_before()
    {
        const QString path = Write("<rect @0 fill=\"#000000\"/>");
        Manager().GetPixmap(Request(path, "brand/brand"));
        QColor seen;
        QObject receiver;
        connect(&Manager(), &QcStyleManager::SignalColorChanged, &receiver,
                [&] { seen = Field(Manager().GetPixmap(Request(path, "brand/brand")).toImage(), 0); });
        UseTable(Table::Dark);
        COMPARE_COLOR(seen, TokenOf(Table::Dark, QStringLiteral("brand/brand")));
    }

    void the_substitutions_have_no_effect_beside_a_colour()
    {
        ImageParams params = Request(Write("<rect @0 fill=\"#000000\"/>"), "#00FF00");
        params.mulColor.insert(QStringLiteral("#000000"), "#0000FF");
        params.mulColor.insert(QStringLiteral("#00ff00"), "#0000FF");
        COMPARE_COLOR(Field(Manager().GetImage(params), 0), QColor(0, 255, 0));
    }

    void the_targets_alpha_replaces_the_shapes_opacity()
    {
        const QImage image =
            Image("<rect @0 fill=\"#000000\"/><rect @1 fill=\"#000000\" fill-opacity=\"0.5\"/>", ColorParams("#0670F9,0.4"));
        COMPARE_COLOR(Field(image, 0), WithAlpha(QColor(0x06, 0x70, 0xF9), 0.4));
        COMPARE_COLOR(Field(image, 1), WithAlpha(QColor(0x06, 0x70, 0xF9), 0.4));
    }

    void a_shape_that_is_fully_transparent_keeps_its_fill_and_opacity()
    {
        QVERIFY(IsBlank(Image("<rect @0 fill=\"#000000\" fill-opacity=\"0\"/>"
                              "<rect @1 fill=\"none\" stroke=\"#000000\" stroke-width=\"9\" stroke-opacity=\"0\"/>",
                              ColorParams("#00FF00"))));
    }

    void fill_and_stroke_are_told_apart()
    {
        // A stroke that covers the whole field, over and under a fill.
        const QImage image =
            Image("<rect @0 fill=\"#000000\" fill-opacity=\"0\" stroke=\"#000000\" stroke-width=\"20\"/>", ColorParams("#00FF00"));
        COMPARE_COLOR(Field(image, 0), QColor(0, 255, 0));
        const QImage other =
            Image("<rect @0 fill=\"#000000\" stroke=\"#000000\" stroke-opacity=\"0\" stroke-width=\"20\"/>", ColorParams("#00FF00"));
        COMPARE_COLOR(Field(other, 0), QColor(0, 255, 0));
        QCOMPARE(other.pixelColor(15, 5).alpha(), 0); // where only the stroke would reach
        QCOMPARE(image.pixelColor(15, 5), QColor(0, 255, 0));
    }

    void a_shape_without_a_fill_stays_black()
    {
        const QImage image = Image("<rect @0/><rect @1 fill=\"#FF0000\"/>", ColorParams("#00FF00"));
        COMPARE_COLOR(Field(image, 0), kBlack);
        COMPARE_COLOR(Field(image, 1), QColor(0, 255, 0));
    }

    void colours_in_styles_are_not_touched()
    {
        const QImage image = Image("<rect @0 style=\"fill:#FF0000\"/><rect @1 fill=\"#FF0000\"/>", ColorParams("#00FF00"));
        COMPARE_COLOR(Field(image, 0), kRed);
        COMPARE_COLOR(Field(image, 1), QColor(0, 255, 0));
    }

    void an_unknown_colour_gives_opaque_black()
    {
        COMPARE_COLOR(Field(Image("<rect @0 fill=\"#FF0000\" fill-opacity=\"0.5\"/>", ColorParams("no/such")), 0), kBlack);
    }

    void without_any_colour_the_file_shows_as_drawn()
    {
        const QImage image = Image("<rect @0 fill=\"#FF0000\"/><rect @1 fill=\"#0000FF\" fill-opacity=\"0.5\"/>", ColorParams());
        COMPARE_COLOR(Field(image, 0), kRed);
        COMPARE_COLOR(Field(image, 1), WithAlpha(QColor(0, 0, 255), 0.5));
    }

    // --- Substitutions ---

    void only_listed_colours_are_substituted()
    {
        const QImage image = Image("<rect @0 fill=\"#000000\"/><rect @1 fill=\"#FF0000\"/>",
                                   QHash<QString, ColorParams>{{QStringLiteral("#000000"), "tip/success"}});
        COMPARE_COLOR(Field(image, 0), TokenOf(Table::Light, QStringLiteral("tip/success")));
        COMPARE_COLOR(Field(image, 1), kRed);
    }

    void a_key_in_lower_case_does_not_take_a_fill_in_upper_case()
    {
        const QImage image = Image("<rect @0 fill=\"#FF0000\"/><rect @1 fill=\"#ff0000\"/>",
                                   QHash<QString, ColorParams>{{QStringLiteral("#ff0000"), "#00FF00"}});
        COMPARE_COLOR(Field(image, 0), kRed);
        COMPARE_COLOR(Field(image, 1), QColor(0, 255, 0));
    }

    void several_substitutions_work_in_one_request()
    {
        const QImage image = Image("<rect @0 fill=\"#FF0000\"/><rect @1 fill=\"#00FF00\"/><rect @2 fill=\"#0000FF\"/><rect @3 "
                                   "fill=\"#0000FF\" fill-opacity=\"0\"/>",
                                   QHash<QString, ColorParams>{{QStringLiteral("#FF0000"), "#111111"},
                                                               {QStringLiteral("#00FF00"), "#222222,0.5"},
                                                               {QStringLiteral("#0000FF"), "transparent"}});
        COMPARE_COLOR(Field(image, 0), QColor(0x11, 0x11, 0x11));
        COMPARE_COLOR(Field(image, 1), WithAlpha(QColor(0x22, 0x22, 0x22), 0.5));
        QCOMPARE(Field(image, 2).alpha(), 0);
        QCOMPARE(Field(image, 3).alpha(), 0);
    }

    // --- Size, aspect, ratio ---

    void the_image_has_exactly_the_size_and_ratio_one()
    {
        const QString path = Write("<rect @0 fill=\"#000000\"/>");
        const QImage image = Manager().GetImage(Request(path, "#00FF00", QSize(33, 7)));
        QCOMPARE(image.size(), QSize(33, 7));
        QCOMPARE(image.devicePixelRatio(), 1.0);
        QCOMPARE(image.format(), QImage::Format_ARGB32);
        const QPixmap pixmap = Manager().GetPixmap(Request(path, "#00FF00", QSize(33, 7)));
        QCOMPARE(pixmap.size(), QSize(33, 7));
        QCOMPARE(pixmap.devicePixelRatio(), 1.0);
    }

    void the_picture_is_stretched_to_the_size()
    {
        const QString path = Write("<rect @0 fill=\"#000000\"/><rect @3 fill=\"#000000\"/>");
        const QImage image = Manager().GetImage(Request(path, "#00FF00", QSize(40, 80)));
        for (const int y : {2, 40, 77}) {
            COMPARE_COLOR(image.pixelColor(5, y), QColor(0, 255, 0));
            QCOMPARE(image.pixelColor(20, y).alpha(), 0);
            COMPARE_COLOR(image.pixelColor(35, y), QColor(0, 255, 0));
        }
    }

    void an_empty_size_or_a_missing_file_gives_null_in_silence()
    {
        const QString path = Write("<rect @0 fill=\"#000000\"/>");
        QVERIFY(ImageParams().size.isEmpty());
        QVERIFY(!Manager().GetImage(Request(path)).isNull());
        for (const QSize &size : {QSize(), QSize(0, 0), QSize(16, 0), QSize(0, 16), QSize(-1, 16), QSize(16, -4)}) {
            QVERIFY(Manager().GetImage(Request(path, "#00FF00", size)).isNull());
            QVERIFY(Manager().GetPixmap(Request(path, "#00FF00", size)).isNull());
        }
        for (const QString &missing : {QString(), m_files.Path(QStringLiteral("missing.svg")), m_files.Path(QStringLiteral("missing.png")),
                                       QStringLiteral(":/images/missing.svg")}) {
            QVERIFY(Manager().GetImage(Request(missing, "#00FF00")).isNull());
            QVERIFY(Manager().GetPixmap(Request(missing, "#00FF00")).isNull());
        }
    }

    void a_size_beyond_all_memory_gives_null()
    {
        const QString path = Write("<rect @0 fill=\"#000000\"/>");
        QVERIFY(Manager().GetImage(Request(path, "#00FF00", QSize(INT_MAX, INT_MAX))).isNull());
        QVERIFY(Manager().GetPixmap(Request(path, "#00FF00", QSize(INT_MAX, INT_MAX))).isNull());
    }

    // --- Icons ---

    void an_icon_has_the_pixmap_in_all_four_modes()
    {
        const ImageParams params = Request(Write("<rect @0 fill=\"#000000\"/>"), "#00FF00");
        const QIcon icon = Manager().GetIcon(params);
        const QImage expected = Manager().GetPixmap(params).toImage();
        QCOMPARE(icon.availableSizes(), QList<QSize>({QSize(40, 10)}));
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Active, QIcon::Selected, QIcon::Disabled}) {
            QCOMPARE(icon.availableSizes(mode, QIcon::Off), QList<QSize>({QSize(40, 10)}));
            QVERIFY(icon.availableSizes(mode, QIcon::On).isEmpty());
            // Not greyed when disabled.
            QCOMPARE(icon.pixmap(QSize(40, 10), mode, QIcon::Off).toImage().convertToFormat(QImage::Format_ARGB32),
                     expected.convertToFormat(QImage::Format_ARGB32));
        }
    }

    void the_icon_of_a_missing_file_has_no_picture()
    {
        const QIcon icon = Manager().GetIcon(Request(QStringLiteral(":/images/missing.svg"), "#00FF00"));
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Active, QIcon::Selected, QIcon::Disabled})
            QVERIFY(icon.pixmap(QSize(16, 16), mode).isNull());
    }

    // --- Raster files, and what counts as one ---

    void a_raster_file_comes_as_it_is()
    {
        QImage drawn(7, 5, QImage::Format_ARGB32);
        drawn.fill(QColor(255, 0, 0, 128));
        const QString path = m_files.Path(QStringLiteral("icon.png"));
        QVERIFY(drawn.save(path));
        ImageParams params = Request(path, "#00FF00", QSize(40, 10));
        params.mulColor.insert(QStringLiteral("#FF0000"), "#00FF00");
        QCOMPARE(Manager().GetImage(params), drawn);
        QCOMPARE(Manager().GetPixmap(params).size(), QSize(7, 5));
        params.size = QSize();
        QVERIFY(Manager().GetImage(params).isNull());
    }

    void only_the_lower_case_suffix_counts_as_svg_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"icon.SVG", "icon.Svg", "icon.svg.bak", "icon.svg.", "svg", "icon"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void only_the_lower_case_suffix_counts_as_svg()
    {
        QFETCH(QString, name);
        const QString path = m_files.Write(name, Svg("<rect @0 fill=\"#FF0000\"/>"));
        // As Qt reads it as a raster image: by its own plug-in in its own size, or not at all; never recoloured.
        QCOMPARE(Manager().GetImage(Request(path, "#00FF00", QSize(80, 20))), QImage(path));
    }

    void a_folder_named_like_an_image_gives_what_reading_it_gives()
    {
        QVERIFY(QDir(m_files.Path(QString())).mkpath(QStringLiteral("folder.svg")));
        QVERIFY(QDir(m_files.Path(QString())).mkpath(QStringLiteral("folder.png")));
        const QString path = m_files.Path(QStringLiteral("folder.svg"));
        ExpectWarning(QStringLiteral("GetFileContent: file open failed: \"%1\"").arg(path));
        const QImage image = Manager().GetImage(Request(path, "#00FF00"));
        QCOMPARE(image.size(), QSize(40, 10));
        QVERIFY(IsBlank(image));
        QVERIFY(Manager().GetImage(Request(m_files.Path(QStringLiteral("folder.png")), "#00FF00")).isNull());
    }

    void a_file_without_permission_gives_an_empty_picture()
    {
        const QString path = m_files.Write(QStringLiteral("secret.svg"), Svg("<rect @0 fill=\"#FF0000\"/>"));
        const VelmoraTest::LockedFile locked(path);
        ExpectWarning(QStringLiteral("GetFileContent: file open failed: \"%1\"").arg(path));
        QVERIFY(IsBlank(Manager().GetImage(Request(path, "#00FF00"))));
    }

    // --- Bad input ---

    void a_bad_document_ends_in_an_empty_picture_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("warnings");
        const QByteArray good = Svg("<rect @0 fill=\"#FF0000\"/><rect @1 fill=\"#00FF00\"/>");
        QTest::newRow("empty") << QByteArray() << 0;
        QTest::newRow("no XML") << QByteArray("GIF89a and no more") << 0;
        QTest::newRow("no XML with colours") << QByteArray("#FF0000 #FF0000 #00FF00") << 3;
        QTest::newRow("cut off in a tag") << good.left(good.indexOf("#00FF00") + 8) << 2;
        QTest::newRow("cut off before the end") << good.left(good.size() - 6) << 2;
        QTest::newRow("binary") << QByteArray("\x89PNG\r\n\x1A\n\xFF\xFE<svg #FF0000") << 1;
        QTest::newRow("zero bytes") << QByteArray(4096, '\0') << 0;
        QTest::newRow("another language") << QByteArray("<html><body bgcolor=\"#FF0000\"/></html>") << 0;

        QByteArray laughs = "<!DOCTYPE svg [<!ENTITY l0 \"ha\">";
        for (int i = 1; i < 12; ++i) {
            const QByteArray reference = "&l" + QByteArray::number(i - 1) + ";";
            laughs += "<!ENTITY l" + QByteArray::number(i) + " \"" + reference.repeated(10) + "\">";
        }
        QTest::newRow("a billion laughs") << laughs + "]>" + Svg("<text fill=\"#FF0000\">&l11;</text>") << 1;
        QTest::newRow("an entity of itself") << "<!DOCTYPE svg [<!ENTITY l \"&l;\">]>" + Svg("<text fill=\"#FF0000\">&l;</text>") << 1;
        QTest::newRow("an entity from elsewhere")
            << "<!DOCTYPE svg [<!ENTITY l SYSTEM \"file:///etc/passwd\">]>" + Svg("<text fill=\"#FF0000\">&l;</text>") << 0;

        constexpr int kLevels = 100000;
        const QByteArray opening = QByteArray("<g>").repeated(kLevels);
        const QByteArray closing = QByteArray("</g>").repeated(kLevels);
        const QByteArray deep = Svg(opening + "<rect @0 fill=\"#FF0000\"/>" + closing);
        QTest::newRow("nested deep") << deep << 1;
        QTest::newRow("nested deep, never closed") << Svg(opening + "<rect @0 fill=\"#FF0000\"/>") << 1;
        QTest::newRow("nested deep behind a quote") << "<!DOCTYPE svg [<!ENTITY x \"<a q='\">]>" + deep << 1;
        QTest::newRow("nested deep behind a comment mark") << "<!DOCTYPE svg [<!ENTITY x \"<!--\">]>" + deep << 1;
        QTest::newRow("nested deep by entities") << "<!DOCTYPE svg [<!ENTITY x \"" + QByteArray("<g>").repeated(100) + "\">]>"
                + Svg("<rect @0 fill=\"#FF0000\"/>" + QByteArray("&x;").repeated(1000))
                                                 << 1;
    }

    void a_bad_document_ends_in_an_empty_picture()
    {
        QFETCH(QByteArray, text);
        QFETCH(int, warnings);
        const QString path = WriteFile(text);
        const QString warning = QStringLiteral("QcStyleManager::GetAdjustedSvgData: Failed to parse XML content. \"%1\"").arg(path);

        for (int i = 0; i < warnings; ++i)
            ExpectWarning(warning);
        const QImage image = Manager().GetImage(Request(path, "#0000FF"));
        QCOMPARE(image.size(), QSize(40, 10));
        QVERIFY(IsBlank(image));

        ImageParams params = Request(path);
        QVERIFY(IsBlank(Manager().GetImage(params))); // nothing to substitute, nothing to parse
        params.mulColor = {{QStringLiteral("#FF0000"), "#0000FF"}, {QStringLiteral("#123456"), "#0000FF"}};
        const bool parses =
            QTest::currentDataTag() == QByteArray("another language") || QTest::currentDataTag() == QByteArray("an entity from elsewhere");
        for (int i = 0; i < (parses ? 0 : 2); ++i)
            ExpectWarning(warning);
        QVERIFY(IsBlank(Manager().GetImage(params)));
    }

    void a_document_that_uses_itself_ends()
    {
        const QByteArray head =
            "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" viewBox=\"0 0 40 10\">";
        const QString itself =
            m_files.Write(QStringLiteral("itself.svg"),
                          head + "<g id=\"a\"><rect width=\"10\" height=\"10\" fill=\"#FF0000\"/><use xlink:href=\"#a\"/></g></svg>");
        ExpectWarning(QStringLiteral("link #a is recursive!"));
        COMPARE_COLOR(Field(Manager().GetImage(Request(itself, "#00FF00")), 0), QColor(0, 255, 0));
        const QString mutual =
            m_files.Write(QStringLiteral("mutual.svg"),
                          head
                              + "<g id=\"a\"><rect width=\"10\" height=\"10\" fill=\"#FF0000\"/><use xlink:href=\"#b\"/></g>"
                                "<g id=\"b\"><use xlink:href=\"#a\"/></g></svg>");
        COMPARE_COLOR(Field(Manager().GetImage(Request(mutual, "#00FF00")), 0), QColor(0, 255, 0));
    }

    void a_huge_document_renders()
    {
#ifdef __SANITIZE_ADDRESS__ // which follows the stack of each of the millions of allocations
        constexpr int size = 500 * 1000;
#else
        constexpr int size = 10 * 1000 * 1000;
#endif
        const QByteArray shape = "<rect x=\"0\" y=\"0\" width=\"10\" height=\"10\" fill=\"#FF0000\"/>";
        const QString path = m_files.Write(QStringLiteral("huge.svg"), Svg(shape.repeated(size / shape.size() + 1)));
        COMPARE_COLOR(Field(Manager().GetImage(Request(path, "#00FF00")), 0), QColor(0, 255, 0));
    }
};

VELMORA_TEST_MAIN(tst_ThemedImages)
#include "tst_ThemedImages.moc"
