#include "support/ColorValue.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/FileAndDesktop.h>

#include <QDir>
#include <QDirIterator>
#include <QDomDocument>
#include <QFile>
#include <QHeaderView>
#include <QPainterPath>
#include <QRawFont>
#include <QRegularExpression>
#include <QScrollArea>
#include <QSet>
#include <QSettings>
#include <QStandardItemModel>
#include <QTreeView>

using namespace Velmora;
using VelmoraTest::DrainEvents;
using VelmoraTest::PixelAt;
using VelmoraTest::Render;
using VelmoraTest::Table;
using VelmoraTest::TokensOf;
using VelmoraTest::UseTable;

namespace {

struct TokenRow
{
    const char *token;
    const char *light;
    const char *dark;
};

/// The look that hosts rely on. In the order of both files.
constexpr TokenRow kTokens[] = {
    {"base/red/red-10", "#FFEBE8", "#FFEBE8"},
    {"base/red/red-20", "#FBCECA", "#FBCECA"},
    {"base/red/red-30", "#F7ADA9", "#F7ADA9"},
    {"base/red/red-40", "#F27D7A", "#F27D7A"},
    {"base/red/red-50", "#EC4E51", "#EC4E51"},
    {"base/red/red-60", "#E6202A", "#E6202A"},
    {"base/red/red-70", "#C01422", "#C01422"},
    {"base/red/red-80", "#990B1B", "#990B1B"},
    {"base/red/red-90", "#730415", "#730415"},
    {"base/red/red-100", "#4D000E", "#4D000E"},
    {"base/green/green-10", "#EFFFE8", "#EFFFE8"},
    {"base/green/green-20", "#CFF7C2", "#CFF7C2"},
    {"base/green/green-30", "#ADEF9A", "#ADEF9A"},
    {"base/green/green-40", "#7CE364", "#7CE364"},
    {"base/green/green-50", "#4CD834", "#4CDB34"},
    {"base/green/green-60", "#1ACC02", "#1ACC02"},
    {"base/green/green-70", "#10AC01", "#10AC01"},
    {"base/green/green-80", "#088C01", "#088C01"},
    {"base/green/green-90", "#026C00", "#026C00"},
    {"base/green/green-100", "#004D01", "#004D01"},
    {"base/neutral/neutral-10", "#FFFFFF, 0.04", "#FFFFFF, 0.04"},
    {"base/neutral/neutral-20", "#FFFFFF, 0.06", "#FFFFFF, 0.06"},
    {"base/neutral/neutral-30", "#FFFFFF, 0.08", "#FFFFFF, 0.08"},
    {"base/neutral/neutral-40", "#FFFFFF, 0.12", "#FFFFFF, 0.12"},
    {"base/neutral/neutral-50", "#FFFFFF, 0.20", "#FFFFFF, 0.20"},
    {"base/neutral/neutral-60", "#FFFFFF, 0.30", "#FFFFFF, 0.30"},
    {"base/neutral/neutral-70", "#FFFFFF, 0.40", "#FFFFFF, 0.40"},
    {"base/neutral/neutral-80", "#FFFFFF, 0.50", "#FFFFFF, 0.50"},
    {"base/neutral/neutral-90", "#FFFFFF, 0.70", "#FFFFFF, 0.70"},
    {"base/neutral/neutral-100", "#FFFFFF, 0.90", "#FFFFFF, 0.90"},
    {"base/neutral/neutral", "#FFFFFF", "#FFFFFF"},
    {"base/neutral/neutral_theme", "#1F1F1F", "#1F1F1F"},
    {"base/neutral/neutral_invert", "#000000", "#000000"},
    {"base/gray/gray-10", "#F5F5F5", "#F5F5F5"},
    {"base/gray/gray-20", "#F0F0F0", "#F0F0F0"},
    {"base/gray/gray-30", "#EBEBEB", "#EBEBEB"},
    {"base/gray/gray-40", "#E0E0E0", "#E0E0E0"},
    {"base/gray/gray-50", "#CCCCCC", "#CCCCCC"},
    {"base/gray/gray-60", "#B3B3B3", "#B3B3B3"},
    {"base/gray/gray-70", "#999999", "#999999"},
    {"base/gray/gray-80", "#808080", "#808080"},
    {"base/gray/gray-90", "#4D4D4D", "#4D4D4D"},
    {"base/gray/gray-100", "#191919", "#191919"},
    {"brand/brand", "#336FFF", "#0670F9"},
    {"brand/brand_hover", "#3A90FF", "#3A90FF"},
    {"brand/brand_press", "#005CD1", "#005CD1"},
    {"brand/brand_disable", "#0670F9, 0.4", "#0670F9, 0.4"},
    {"brand/brand_bg", "#0670F9, 0.2", "#0670F9, 0.36"},
    {"brand/brand_secondary", "#0670F9, 0.2", "#0670F9"},
    {"brand/brand_secondary_hover", "#A9D1FF", "#3A90FF"},
    {"brand/brand_secondary_press", "#79B4FE", "#005CD1"},
    {"brand/brand_secondary_disable", "#E7F5FE", "#0670F9, 0.4"},
    {"brand/brand_secondary_bg", "#0670F9, 0.36", "#0670F9"},
    {"brand/brand_tertiary", "#C4C4C4", "#C4C4C4"},
    {"tip/danger", "#E80E00", "#E80E00"},
    {"tip/warning", "#FF7200", "#FF7200"},
    {"tip/remind", "#FFDC00", "#FFDC00"},
    {"tip/success", "#00B337", "#00B337"},
    {"tip/info", "#0087F2", "#0087F2"},
    {"text/text_caption", "#000000, 0.9", "#FFFFFF"},
    {"text/text_primary", "#000000, 0.8", "#FFFFFF, 0.9"},
    {"text/text_secondary", "#000000, 0.7", "#FFFFFF, 0.7"},
    {"text/text_tertairy", "#000000, 0.5", "#FFFFFF, 0.6"},
    {"text/text_disabled", "#000000, 0.3", "#FFFFFF, 0.33"},
    {"text/text_button", "#FFFFFF, 0.9", "#FFFFFF, 0.9"},
    {"text/text_button_disable", "#FFFFFF, 0.2", "#FFFFFF, 0.33"},
    {"link/link", "#176CFF", "#3F93F1"},
    {"link/link_hover", "#3A90FF", "#3A90FF"},
    {"link/link_press", "#005CD1", "#005CD1"},
    {"link/link_visited", "#C4C4C4", "#C4C4C4"},
    {"link/link_disable", "#0670F9, 0.4", "#0670F9, 0.4"},
    {"icon/icon_caption", "#000000, 0.7", "#C4C4C4"},
    {"icon/icon_primary", "#000000, 0.9", "#FFFFFF"},
    {"icon/icon_secondary", "#000000, 0.6", "#FFFFFF, 0.6"},
    {"icon/icon_tertiary", "#000000, 0.4", "#FFFFFF, 0.4"},
    {"icon/icon_disabled", "#000000, 0.2", "#FFFFFF, 0.1"},
    {"icon/icon_ordinary", "#666666", "#d8d8d8"},
    {"icon/icon_toolbar", "#55648B", "#9EB2CA"},
    {"icon/icon_toolbar_disable", "#55648B, 0.2", "#9EB2CA, 0.3"},
    {"icon/icon_tree", "#8EA8CC", "#C4C4C4"},
    {"icon/icon_tree_disable", "#C4C4C4", "#C4C4C4"},
    {"border/border_primary", "#000000, 0.4", "#d8d8d8, 0.6"},
    {"border/border_primary_hover", "#C4C4C4", "#C4C4C4"},
    {"border/border_primary_press", "#C4C4C4", "#C4C4C4"},
    {"border/border_secondary", "#000000, 0.2", "#FFFFFF, 0.2"},
    {"border/border_secondary_hover", "#000000, 0.3", "#FFFFFF, 0.6"},
    {"border/border_secondary_press", "#000000, 0.4", "#FFFFFF, 0.8"},
    {"border/border_secondary_disabled", "#000000, 0.1", "#FFFFFF, 0.1"},
    {"border/border_tertairy", "#000000, 0.1", "#FFFFFF, 0.1"},
    {"border/border_normal", "#AFAFAF", "#FFFFFF"},
    {"border/border_disable", "#FFFFFF, 0.1", "#FFFFFF, 0.2"},
    {"bg/bg_transluent_subtle_hover", "#EDEDED", "#303030"},
    {"bg/bg_transluent_subtle_press", "#E0E0E0", "#333333"},
    {"bg/bg_transluent_subtle_active", "#E6E6E6", "#3B3B3B"},
    {"bg/bg_transluent_strong_hover", "#ECECED", "#303030"},
    {"bg/bg_transluent_strong_press", "#E5E5E5", "#333333"},
    {"bg/bg_transluent_strong_dis", "#F1F1F1", "#3C3C3C"},
    {"bg/bg_transluent_strong_active", "#E5E5E5", "#4B4B4B"},
    {"bg/bg_float", "#FFFFFF", "#262626"},
    {"bg/bg_box", "#FFFFFF", "#212121"},
    {"bg/bg_bottom", "#EFEFEF", "#121212"},
    {"bg/bg_primary", "#FFFFFF", "#333333"},
    {"bg/bg_primary_hover", "#C4C4C4", "#C4C4C4"},
    {"bg/bg_primary_press", "#C4C4C4", "#C4C4C4"},
    {"bg/bg_primary_disabled", "#C4C4C4", "#C4C4C4"},
    {"bg/bg_secondary", "#F9F9F9", "#262626"},
    {"bg/bg_secondary_hover", "#C4C4C4", "#C4C4C4"},
    {"bg/bg_secondary_press", "#C4C4C4", "#C4C4C4"},
    {"bg/bg_secondary_disable", "#C4C4C4", "#C4C4C4"},
    {"bg/bg_tertiary", "#C4C4C4", "#C4C4C4"},
    {"bg/bg_tertiary_hover", "#C4C4C4", "#C4C4C4"},
    {"bg/bg_tertiary_press", "#C4C4C4", "#C4C4C4"},
    {"bg/bg_tertiary_disable", "#C4C4C4", "#C4C4C4"},
    {"bg/bg_unselected", "#efefef", "#262626"},
    {"others/focus", "#0670F9", "#0670F9"},
    {"overlay/overlay_primary", "#000000, 0.6", "#000000, 0.6"},
    {"overlay/overlay_secondary", "#C4C4C4", "#C4C4C4"},
    {"overlay/overlay_loading", "#C4C4C4", "#C4C4C4"},
    {"table/table_divider", "#000000, 0.07", "#FFFFFF, 0.1"},
    {"mask/mask_primary_deep", "#000000, 0.8", "#000000, 0.8"},
    {"mask/mask_primary_shallow", "#000000, 0.0", "#000000, 0.0"},
    {"mask/mask_secondary_deep", "#FFFFFF, 0.8", "#3B3B3B, 0.8"},
    {"mask/mask_secondary_shallow", "#FFFFFF, 0.0", "#3B3B3B, 0"},
};

constexpr const char *kStyleSheets[] = {
    "ArrowTip.qss",      "CheckBox.qss",       "CombinedToolButton.qss",
    "DockContainer.qss", "DockWidget.qss",     "DoubleSpinBox.qss",
    "Global.qss",        "LineEditFrame.qss",  "LoadingDialog.qss",
    "MaskWindow.qss",    "MenuToolButton.qss", "NoBorderDoubleSpinBox.qss",
    "Notification.qss",  "ProgressDialog.qss", "RadioButton.qss",
    "ScrollBar.qss",     "Selector.qss",       "TextEditFrame.qss",
    "TextEditLimit.qss", "Toast.qss",          "ToolButton.qss",
};

/// Icons that are shown in one colour of the host's choice.
constexpr const char *kOneColorIcons[] = {
    "close.svg",
    "min.svg",
    "max.svg",
    "arrow_down.svg",
    "arrow_up.svg",
    "arrow_right.svg",
    "arrow_down_2.svg",
    "arrow_up_2.svg",
    "select.svg",
    "first_page.svg",
    "pre_page.svg",
    "next_page.svg",
    "last_page.svg",
    "first_page_disabled.svg",
    "pre_page_disabled.svg",
    "next_page_disabled.svg",
    "last_page_disabled.svg",
    "check_radio.svg",
    "dock/tab_close.svg",
    "dock/pre_normal.svg",
    "dock/next_normal.svg",
    "dock/pre_disabled.svg",
    "dock/next_disabled.svg",
};

constexpr const char *kOtherIcons[] = {
    "success.svg",
    "warning.svg",
    "error.svg",
    "information.svg",
    "loading.svg",
    "checkbox/checkbox_checked.svg",
    "checkbox/checkbox_half_checked.svg",
    "checkbox/checkbox_unchecked.svg",
    "radio/radio_check.svg",
    "radio/radio_uncheck.svg",
    "switch/switch_on_nor.svg",
    "switch/switch_on_hov.svg",
    "switch/switch_on_pre.svg",
    "switch/switch_on_dis.svg",
    "switch/switch_off_nor.svg",
    "switch/switch_off_hov.svg",
    "switch/switch_off_pre.svg",
    "switch/switch_off_dis.svg",
    "slider/slider_handle.svg",
    "dock/indicator.svg",
};

constexpr const char *kIndicatorNames[] = {"top",       "bottom",       "left",       "right",      "center",
                                           "outer_top", "outer_bottom", "outer_left", "outer_right"};

QStringList AllIcons()
{
    QStringList names;
    for (const char *name : kOneColorIcons)
        names.append(QString::fromLatin1(name));
    for (const char *name : kOtherIcons)
        names.append(QString::fromLatin1(name));
    for (const char *name : kIndicatorNames) {
        for (const char *state : {"normal", "hover", "disabled"})
            names.append(QStringLiteral("dock/%1_%2.svg").arg(QString::fromLatin1(name), QString::fromLatin1(state)));
    }
    return names;
}

QString IconPath(const QString &name)
{
    return QStringLiteral(":/images/") + name;
}

QByteArray BytesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qWarning("cannot read %s", qPrintable(path));
    return file.readAll();
}

QStringList FilesBelow(const QString &folder)
{
    QStringList names;
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        names.append(files.next().mid(folder.size()));
    names.sort();
    return names;
}

QColor ColorOfText(const QString &text)
{
    const QStringList parts = text.split(QStringLiteral(", "));
    QColor color(parts.first());
    if (parts.size() == 2)
        color.setAlphaF(VelmoraTest::ColorValue(parts.last().toDouble()));
    return color;
}

QColor ColorOfText(const char *text)
{
    return ColorOfText(QString::fromLatin1(text));
}

/// Calls \a visit for \a element and every element in it.
template <typename Visit>
void ForEachElement(const QDomElement &element, const Visit &visit)
{
    visit(element);
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        ForEachElement(child, visit);
}

QDomDocument DocumentOf(const QString &icon)
{
    QDomDocument document;
    if (!document.setContent(BytesOf(IconPath(icon))))
        qWarning("does not parse: %s", qPrintable(icon));
    return document;
}

/// The colours of all fills and strokes that can be seen.
QSet<QString> VisibleColors(const QString &icon)
{
    QSet<QString> colors;
    const QDomDocument document = DocumentOf(icon);
    ForEachElement(document.documentElement(), [&colors](const QDomElement &element) {
        for (const QString &name : {QStringLiteral("fill"), QStringLiteral("stroke")}) {
            const QString color = element.attribute(name, QStringLiteral("none"));
            if (color != QLatin1String("none")
                && element.attribute(name + QStringLiteral("-opacity"), QStringLiteral("1")).toDouble() > 0.0)
                colors.insert(color);
        }
    });
    return colors;
}

QImage IconImage(const QString &icon, const ColorParams &color, int size)
{
    ImageParams params;
    params.path = IconPath(icon);
    params.size = QSize(size, size);
    params.color = color;
    return QcStyleManager::GetInstance()->GetImage(params);
}

/// How many pixels have any ink; a pixel of another colour than \a color counts as a fault.
int InkOf(const QImage &image, const QColor &color, int *faults)
{
    int ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() == 0)
                continue;
            ++ink;
            if (pixel.rgb() != color.rgb())
                ++*faults;
        }
    }
    return ink;
}

int Os2Weight(const QRawFont &font)
{
    const QByteArray table = font.fontTable("OS/2"); // usWeightClass: two bytes at offset 4
    return table.size() < 6 ? -1 : (uchar(table.at(4)) << 8) + uchar(table.at(5));
}

#ifdef VELMORA_OPEN_SANS_REGULAR
/// The black of a text of all letters at 40 pixels.
qint64 InkOf(const QRawFont &font)
{
    qint64 ink = 0;
    const auto glyphs = font.glyphIndexesForString(QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"));
    for (const quint32 glyph : glyphs) {
        const QImage map = font.alphaMapForGlyph(glyph, QRawFont::PixelAntialiasing); // one byte a pixel
        for (int y = 0; y < map.height(); ++y) {
            for (int x = 0; x < map.width(); ++x)
                ink += map.constScanLine(y)[x];
        }
    }
    return ink;
}
#endif

} // namespace

Q_DECLARE_METATYPE(VelmoraTest::Table)

class tst_Assets : public VelmoraTest::TestCase
{
    Q_OBJECT

private:
    void SetUp() override { UseTable(Table::Light); }

    static void AddTables()
    {
        QTest::addColumn<Table>("table");
        QTest::newRow("light") << Table::Light;
        QTest::newRow("dark") << Table::Dark;
    }

    static void AddIcons(const QStringList &icons)
    {
        QTest::addColumn<QString>("icon");
        for (const QString &icon : icons)
            QTest::newRow(qPrintable(icon)) << icon;
    }

    static void AddStyleSheets()
    {
        QTest::addColumn<QString>("path");
        for (const char *name : kStyleSheets)
            QTest::newRow(name) << QStringLiteral(":/qss/") + QString::fromLatin1(name);
    }

private Q_SLOTS:
    // --- Colour tables ---

    void both_tables_hold_the_same_tokens_in_the_same_order()
    {
        QStringList names;
        for (const TokenRow &row : kTokens)
            names.append(QString::fromLatin1(row.token));
        QCOMPARE(names.size(), 123);
        QCOMPARE(TokensOf(Table::Light), names);
        QCOMPARE(TokensOf(Table::Dark), names);
        QSet<QString> families;
        for (const QString &name : qAsConst(names))
            families.insert(name.section(QLatin1Char('/'), 0, 0));
        QCOMPARE(families.size(), 12);
    }

    void every_token_has_its_colour_data() { AddTables(); }

    void every_token_has_its_colour()
    {
        QFETCH(Table, table);
        UseTable(table);
        for (const TokenRow &row : kTokens) {
            const QColor expected = ColorOfText(table == Table::Light ? row.light : row.dark);
            QVERIFY(expected.isValid());
            QVERIFY2(QcStyleManager::GetInstance()->GetColor(row.token) == expected, row.token);
        }
    }

    void the_light_table_has_no_mark_and_dos_line_ends()
    {
        const QByteArray text = BytesOf(QStringLiteral(":/colors/blue_light.ini"));
        QVERIFY(!text.startsWith("\xEF\xBB\xBF"));
        QCOMPARE(text.count('\n'), text.count("\r\n"));
        QVERIFY(text.count('\n') >= 123);
    }

    void the_dark_table_has_a_mark() { QVERIFY(BytesOf(QStringLiteral(":/colors/blue_dark.ini")).startsWith("\xEF\xBB\xBF")); }

    void there_are_four_tables()
    {
        QCOMPARE(FilesBelow(QStringLiteral(":/colors/")),
                 QStringList({QStringLiteral("blue_dark.ini"), QStringLiteral("blue_light.ini"), QStringLiteral("contrast_dark.ini"),
                              QStringLiteral("contrast_light.ini")}));
    }

    void the_tables_of_high_contrast_have_every_token_of_the_others()
    {
        const QSettings light(QStringLiteral(":/colors/blue_light.ini"), QSettings::IniFormat);
        for (const char *path : {":/colors/contrast_light.ini", ":/colors/contrast_dark.ini"}) {
            QCOMPARE(QSettings(QLatin1String(path), QSettings::IniFormat).allKeys(), light.allKeys());
            QcStyleManager::GetInstance()->SetColorFilePath(QLatin1String(path));
            for (const QString &token : TokensOf(Table::Light))
                QVERIFY2(QcStyleManager::GetInstance()->GetColor(token).isValid(), qPrintable(token));
        }
    }

    // --- Stylesheets ---

    void there_are_21_stylesheets()
    {
        QStringList names;
        for (const char *name : kStyleSheets)
            names.append(QString::fromLatin1(name));
        QCOMPARE(names.size(), 21);
        QCOMPARE(FilesBelow(QStringLiteral(":/qss/")), names);
    }

    void a_stylesheet_names_only_tokens_of_the_tables_data() { AddStyleSheets(); }

    void a_stylesheet_names_only_tokens_of_the_tables()
    {
        QFETCH(QString, path);
        static const QRegularExpression code(QStringLiteral("\\$\\{([^,}]*)"));
        const QString text = QString::fromUtf8(BytesOf(path));
        for (auto match = code.globalMatch(text); match.hasNext();) {
            const QString token = match.next().captured(1).trimmed();
            if (token.startsWith(QLatin1Char('#')) && QColor(token).isValid())
                continue; // a literal
            QVERIFY2(TokensOf(Table::Light).contains(token) && TokensOf(Table::Dark).contains(token), qPrintable(token));
        }
        QVERIFY(!text.contains(QStringLiteral("Velmora::"))); // a namespaced class is written with two dashes
    }

    void a_stylesheet_resolves_and_qt_understands_it_data() { AddStyleSheets(); }

    void a_stylesheet_resolves_and_qt_understands_it()
    {
        QFETCH(QString, path);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            QWidget widget;
            QcStyleManager::GetInstance()->RegisterQss(&widget, path);
            QVERIFY(!widget.styleSheet().contains(QLatin1Char('$')));
            widget.show(); // Qt parses it now, and would complain
            DrainEvents();
        }
    }

    void a_faulty_stylesheet_would_have_been_told()
    {
        QWidget widget;
        ExpectWarning(QStringLiteral("Could not parse stylesheet of object QWidget(0x%1)").arg(quintptr(&widget), 0, 16));
        widget.setStyleSheet(QStringLiteral("QWidget { color: "));
        widget.show();
        DrainEvents();
    }

    void two_stylesheets_are_empty_and_load_in_silence()
    {
        QStringList empty;
        for (const char *name : kStyleSheets) {
            if (BytesOf(QStringLiteral(":/qss/") + QString::fromLatin1(name)).isEmpty())
                empty.append(QString::fromLatin1(name));
        }
        QCOMPARE(empty, QStringList({QStringLiteral("DockContainer.qss"), QStringLiteral("MaskWindow.qss")}));
        for (const QString &name : qAsConst(empty))
            QCOMPARE(GetFileContent(QStringLiteral(":/qss/") + name), QString());
    }

    void the_global_stylesheet_has_no_colour_code() { QVERIFY(!BytesOf(QStringLiteral(":/qss/Global.qss")).contains('$')); }

    void frames_have_no_border()
    {
        QFrame frame;
        frame.setFrameShape(QFrame::Box);
        frame.setLineWidth(4);
        frame.resize(40, 40);
        frame.show();
        DrainEvents();
        const QImage image = Render(frame, Qt::red);
        COMPARE_COLOR(PixelAt(image, QPointF(1, 20)), PixelAt(image, QPointF(20, 20)));
        COMPARE_COLOR(PixelAt(image, QPointF(20, 38)), PixelAt(image, QPointF(20, 20)));
    }

    void trees_and_their_headers_show_what_lies_behind()
    {
        QWidget window;
        QTreeView tree(&window);
        QStandardItemModel model(0, 1);
        model.setHorizontalHeaderLabels({QString()});
        tree.setModel(&model);
        tree.header()->setStretchLastSection(false);
        tree.setGeometry(0, 0, 200, 100);
        window.resize(200, 100);
        window.show();
        DrainEvents();
        const QImage image = Render(window, Qt::red);
        COMPARE_COLOR(PixelAt(image, QPointF(100, 80)), QColor(Qt::red)); // background
        COMPARE_COLOR(PixelAt(image, QPointF(0, 50)), QColor(Qt::red));   // border
        QVERIFY(tree.header()->height() > 4);
        COMPARE_COLOR(PixelAt(image, QPointF(150, tree.header()->height() / 2.0)), QColor(Qt::red));
    }

    void the_content_of_scroll_areas_shows_its_viewport()
    {
        QWidget window;
        QScrollArea area(&window);
        auto *content = new QWidget;
        content->setObjectName(QStringLiteral("content"));
        content->setAutoFillBackground(true);
        QPalette own = content->palette();
        own.setColor(QPalette::Window, Qt::blue);
        content->setPalette(own);
        content->resize(150, 60);
        area.setWidget(content);
        area.setGeometry(0, 0, 200, 100);
        window.resize(200, 100);
        window.show();
        DrainEvents();
        const QImage image = Render(window, Qt::red);
        COMPARE_COLOR(PixelAt(image, QPointF(50, 30)), PixelAt(image, QPointF(50, 80))); // as where no content lies
    }

    // --- Images ---

    void there_are_70_icons()
    {
        QStringList names = AllIcons();
        names.sort();
        QCOMPARE(names.size(), 70);
        QCOMPARE(FilesBelow(QStringLiteral(":/images/")), names);
    }

    void an_icon_is_drawn_with_attributes_only_data() { AddIcons(AllIcons()); }

    void an_icon_is_drawn_with_attributes_only()
    {
        QFETCH(QString, icon);
        static const QRegularExpression colorText(QStringLiteral("^(none|#[0-9A-F]{6})$"));
        const QDomDocument document = DocumentOf(icon);
        QCOMPARE(document.documentElement().tagName(), QStringLiteral("svg"));
        QVERIFY(document.documentElement().hasAttribute(QStringLiteral("viewBox")));
        ForEachElement(document.documentElement(), [](const QDomElement &element) {
            QVERIFY(element.tagName() != QLatin1String("style"));
            QVERIFY(!element.hasAttribute(QStringLiteral("style")));
            QVERIFY(!element.hasAttribute(QStringLiteral("class")));
            for (const char *name : {"fill", "stroke"}) {
                const QString color = element.attribute(QString::fromLatin1(name), QStringLiteral("none"));
                // Keys of substitutions are compared exactly: one spelling for all.
                QVERIFY2(colorText.match(color).hasMatch(), qPrintable(color));
            }
        });
    }

    void an_icon_in_one_colour_has_no_other_data() { AddIcons(AllIcons()); }

    void an_icon_in_one_colour_has_no_other()
    {
        QFETCH(QString, icon);
        for (const int size : {16, 24, 48}) {
            int faults = 0;
            QVERIFY(InkOf(IconImage(icon, "#FF00FF", size), QColor(255, 0, 255), &faults) > 0);
            QCOMPARE(faults, 0);
        }
    }

    void an_icon_meant_for_one_colour_is_drawn_in_black_data()
    {
        QStringList names;
        for (const char *name : kOneColorIcons)
            names.append(QString::fromLatin1(name));
        AddIcons(names);
    }

    void an_icon_meant_for_one_colour_is_drawn_in_black()
    {
        QFETCH(QString, icon);
        QCOMPARE(VisibleColors(icon), QSet<QString>({QStringLiteral("#000000")}));
        int faults = 0;
        QVERIFY(InkOf(IconImage(icon, ColorParams(), 24), QColor(0, 0, 0), &faults) > 0);
        QCOMPARE(faults, 0);
    }

    void indicators_of_check_boxes_and_radio_buttons_have_the_placeholder_colours()
    {
        const QSet<QString> placeholders{QStringLiteral("#FF0000"), QStringLiteral("#00FF00"), QStringLiteral("#0000FF")};
        int files = 0;
        for (const QString &icon : AllIcons()) {
            if (!icon.startsWith(QLatin1String("checkbox/")) && !icon.startsWith(QLatin1String("radio/")))
                continue;
            ++files;
            const QSet<QString> colors = VisibleColors(icon);
            QVERIFY2(!colors.isEmpty() && placeholders.contains(colors), qPrintable(icon));
        }
        QCOMPARE(files, 5);
    }

    void the_slider_handle_has_its_two_colours()
    {
        QCOMPARE(VisibleColors(QStringLiteral("slider/slider_handle.svg")),
                 QSet<QString>({QStringLiteral("#005CD1"), QStringLiteral("#FFFFFF")}));
    }

    void notices_have_their_colours()
    {
        const QHash<QString, QString> colors{{QStringLiteral("success.svg"), QStringLiteral("#02BF0F")},
                                             {QStringLiteral("warning.svg"), QStringLiteral("#FF952C")},
                                             {QStringLiteral("error.svg"), QStringLiteral("#E81123")},
                                             {QStringLiteral("information.svg"), QStringLiteral("#2196F3")}};
        for (auto notice = colors.cbegin(); notice != colors.cend(); ++notice)
            QVERIFY2(VisibleColors(notice.key()).contains(notice.value()), qPrintable(notice.key()));
    }

    void construction_shapes_are_there_and_never_seen()
    {
        int files = 0;
        for (const QString &icon : AllIcons()) {
            bool hasConstruction = false;
            const QDomDocument document = DocumentOf(icon);
            ForEachElement(document.documentElement(), [&](const QDomElement &element) {
                for (const char *name : {"fill", "stroke"}) {
                    const QString attribute = QString::fromLatin1(name);
                    hasConstruction |=
                        element.hasAttribute(attribute) && element.attribute(attribute + QStringLiteral("-opacity")) == QLatin1String("0");
                }
            });
            files += hasConstruction;
        }
        QVERIFY(files > 35); // many of the 70; a colour that reached them would fill the icon's square
        for (const QString &icon :
             {QStringLiteral("close.svg"), QStringLiteral("checkbox/checkbox_checked.svg"), QStringLiteral("radio/radio_check.svg")})
            QCOMPARE(IconImage(icon, "#FF00FF", 48).pixelColor(0, 0).alpha(), 0);
    }

    // --- Fonts ---

    void the_bundle_has_two_fonts()
    {
        QCOMPARE(FilesBelow(QStringLiteral(":/fonts/")),
                 QStringList({QStringLiteral("OpenSans-Medium.ttf"), QStringLiteral("Roboto-Bold.ttf")}));
        const QRawFont roboto(BytesOf(QStringLiteral(":/fonts/Roboto-Bold.ttf")), 40);
        QVERIFY(roboto.isValid());
        QCOMPARE(roboto.familyName(), QStringLiteral("Roboto"));
        QCOMPARE(Os2Weight(roboto), 700);
        const QRawFont medium(BytesOf(QStringLiteral(":/fonts/OpenSans-Medium.ttf")), 40);
        QVERIFY(medium.isValid());
        QVERIFY(medium.familyName().startsWith(QLatin1String("Open Sans")));
        QCOMPARE(Os2Weight(medium), 500);
        for (const QRawFont &font : {roboto, medium})
            QVERIFY(font.supportsCharacter(QLatin1Char('A')) && font.supportsCharacter(QChar(0x00E9)));
    }

    void a_control_finds_them_by_family()
    {
        QFont bold(QStringLiteral("Roboto"));
        bold.setBold(true);
        QCOMPARE(Os2Weight(QRawFont::fromFont(bold)), 700);
        QCOMPARE(QFontInfo(bold).family(), QStringLiteral("Roboto"));
        QFont medium(QStringLiteral("Open Sans"));
        medium.setWeight(QFont::Medium);
        QCOMPARE(Os2Weight(QRawFont::fromFont(medium)), 500);
        QCOMPARE(Os2Weight(QRawFont::fromFont(QFont(QStringLiteral("Open Sans Medium")))), 500);
    }

#ifdef VELMORA_OPEN_SANS_REGULAR
    void the_medium_cut_lies_between_regular_and_semibold()
    {
        const QRawFont regular(QStringLiteral(VELMORA_OPEN_SANS_REGULAR), 40);
        const QRawFont semibold(QStringLiteral(VELMORA_OPEN_SANS_SEMIBOLD), 40);
        const QRawFont medium(BytesOf(QStringLiteral(":/fonts/OpenSans-Medium.ttf")), 40);
        QVERIFY(regular.isValid() && semibold.isValid());
        QVERIFY(InkOf(regular) > 0);
        QVERIFY(double(InkOf(medium)) > 1.02 * double(InkOf(regular)));
        QVERIFY(1.02 * double(InkOf(medium)) < double(InkOf(semibold)));
        const QVector<QPointF> narrow = regular.advancesForGlyphIndexes(regular.glyphIndexesForString(QStringLiteral("mnHg")));
        const QVector<QPointF> wide = semibold.advancesForGlyphIndexes(semibold.glyphIndexesForString(QStringLiteral("mnHg")));
        const QVector<QPointF> between = medium.advancesForGlyphIndexes(medium.glyphIndexesForString(QStringLiteral("mnHg")));
        for (int i = 0; i < between.size(); ++i)
            QVERIFY(qAbs(between.at(i).x() - (narrow.at(i).x() + wide.at(i).x()) / 2) <= 1.0);
    }
#endif
};

VELMORA_TEST_MAIN(tst_Assets)
#include "tst_Assets.moc"
