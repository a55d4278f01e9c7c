#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/SquareIcon.h"
#include "support/TestMain.h"

#include <Velmora/QcLabel.h>
#include <Velmora/QcStyleManager.h>

#include <QFontInfo>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kIconColor = QStringLiteral("brand/brand");
const QString kGlyph = QStringLiteral(":/images/close.svg");

/// A label with an icon, and what to do with a QLabel so that it shows its pixmap in the same place.
struct IconLabel
{
    std::unique_ptr<QcLabel> control;
    ImageParams params;
    void (*prepare)(QLabel &label);

    void Prepare(QLabel &label) const
    {
        label.resize(control->size());
        prepare(label);
    }
};

struct Preparation
{
    const char *name;
    void (*prepare)(QLabel &label);
};

constexpr Preparation kPreparations[] = {
    {"plain", [](QLabel &) {}},
    {"disabled", [](QLabel &label) { label.setEnabled(false); }},
    {"with a margin", [](QLabel &label) { label.setMargin(4); }},
    {"with a frame",
     [](QLabel &label) {
         label.setFrameStyle(QFrame::Box | QFrame::Plain);
         label.setLineWidth(2);
     }},
    {"at the other end",
     [](QLabel &label) {
         label.setAlignment(Qt::AlignRight | Qt::AlignBottom);
         label.setMargin(4);
     }},
    {"right to left",
     [](QLabel &label) {
         label.setLayoutDirection(Qt::RightToLeft);
         label.setMargin(4);
     }},
    {"scaled to its contents", [](QLabel &label) { label.setScaledContents(true); }},
    {"with a sheet",
     [](QLabel &label) { label.setStyleSheet(QStringLiteral("QLabel { background: #ff8; border: 3px solid red; padding: 1px; }")); }},
};

void AddIconLabels()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Preparation &preparation : kPreparations)
        QTest::newRow(preparation.name) << index++;
}

IconLabel MakeIconLabel(int index)
{
    IconLabel label{std::make_unique<QcLabel>(), ImageParams(), kPreparations[index].prepare};
    label.control->resize(31, 21);
    label.prepare(*label.control);
    label.control->SetIconPath(kGlyph);
    label.control->SetIconColorParams(kIconColor);
    label.params.path = kGlyph;
    label.params.size = label.control->size();
    label.params.color = ColorParams(kIconColor);
    return label;
}

/// Qt's label as on a screen of ratio 1. On others that of Qt 6 stretches its pixmap for the screen, also where it is painted to an image.
class LabelOfRatioOne : public QLabel
{
protected:
    int metric(PaintDeviceMetric metric) const override
    {
        if (metric == PdmDevicePixelRatio)
            return 1;
        return metric == PdmDevicePixelRatioScaled ? int(devicePixelRatioFScale()) : QLabel::metric(metric);
    }
};

QPixmap PixmapOf(const QcLabel &label)
{
    return label.pixmap(Qt::ReturnByValue);
}

/// A font whose strokes are some pixels wide, so that ink shows the whole colour.
QFont BroadFont()
{
    QFont font;
    font.setPixelSize(60);
    font.setBold(true);
    return font;
}

/// What \a label has to look like: one elided run in the whole rectangle, in black on white.
QImage Reference(const QcLabel &label)
{
    QImage image = Canvas(label);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(label.font());
    painter.setPen(Qt::black);
    const QString elided = QFontMetrics(label.font()).elidedText(label.text(), Qt::ElideRight, label.width());
    painter.drawText(label.rect(), int(label.alignment()), elided);
    return image;
}

} // namespace

class TestQcLabel : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void styles_have_their_font_and_colour_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("token");
        QTest::addColumn<int>("weight");
        QTest::addColumn<int>("pixelSize");
        QTest::addColumn<QString>("family");
        const QString roboto = QStringLiteral("Roboto");
        const QString openSans = QStringLiteral("Open Sans Medium");
        QTest::newRow("0") << 0 << QStringLiteral("text/text_primary") << int(QFont::Bold) << 28 << roboto;
        QTest::newRow("1") << 1 << QStringLiteral("text/text_primary") << int(QFont::Bold) << 20 << roboto;
        QTest::newRow("2") << 2 << QStringLiteral("text/text_primary") << int(QFont::Normal) << 16 << openSans;
        QTest::newRow("3") << 3 << QStringLiteral("text/text_secondary") << int(QFont::Normal) << 16 << openSans;
        QTest::newRow("4") << 4 << QStringLiteral("text/text_caption") << int(QFont::Bold) << 14 << roboto;
        QTest::newRow("5") << 5 << QStringLiteral("text/text_caption") << int(QFont::Bold) << 12 << roboto;
        QTest::newRow("6") << 6 << QStringLiteral("text/text_primary") << int(QFont::Normal) << 12 << openSans;
        QTest::newRow("7") << 7 << QStringLiteral("text/text_secondary") << int(QFont::Normal) << 12 << openSans;
        QTest::newRow("8") << 8 << QStringLiteral("text/text_tertairy") << int(QFont::Normal) << 10 << openSans;
    }

    void styles_have_their_font_and_colour()
    {
        QFETCH(int, type);
        QFETCH(QString, token);
        QFETCH(int, weight);
        QFETCH(int, pixelSize);
        QFETCH(QString, family);
        QcLabel label;
        label.setType(QcLabel::LabelType(type));
        QCOMPARE(int(label.font().weight()), weight);
        QCOMPARE(label.font().pixelSize(), pixelSize);
        QCOMPARE(label.font().families(), (QStringList{family, QStringLiteral("Microsoft YaHei UI")}));

        label.setText(QStringLiteral("I"));
        label.setFont(BroadFont());
        label.resize(100, 80);
        for (const Table table : {Table::Dark, Table::Light}) {
            UseTable(table);
            const QColor canvas = table == Table::Light ? Qt::white : Qt::black;
            label.setEnabled(true);
            COMPARE_COLOR(InkColor(Render(label, canvas), canvas), Over(TokenOf(table, token), canvas));
            label.setEnabled(false);
            COMPARE_COLOR(InkColor(Render(label, canvas), canvas), Over(TokenOf(table, QStringLiteral("text/text_disabled")), canvas));
        }
    }

    void the_built_in_fonts_are_used()
    {
        QcLabel heading;
        heading.setType(QcLabel::Headline);
        QCOMPARE(QFontInfo(heading.font()).family(), QStringLiteral("Roboto"));
        QcLabel body;
        body.setType(QcLabel::Body);
        QVERIFY2(QFontInfo(body.font()).family().startsWith(QLatin1String("Open Sans")), qPrintable(QFontInfo(body.font()).family()));
    }

    void a_new_label_applies_no_style()
    {
        QcLabel label;
        QCOMPARE(label.font(), QLabel().font());
        label.setText(QStringLiteral("I"));
        label.setFont(BroadFont());
        label.resize(100, 80);
        // No token is no colour, which a painter draws in black, in either table.
        UseTable(Table::Dark);
        COMPARE_COLOR(InkColor(Render(label), Qt::white), QColor(Qt::black));
    }

    void an_unknown_type_keeps_the_colour_and_drops_the_font()
    {
        QcLabel label;
        label.setType(QcLabel::Hint);
        label.setType(QcLabel::LabelType(9));
        QCOMPARE(label.font(), QLabel().font());
        label.setType(QcLabel::Headline);
        label.setType(QcLabel::LabelType(1000));
        QCOMPARE(label.font(), QLabel().font());
        label.setType(QcLabel::LabelType(-1));
        QCOMPARE(label.font(), QLabel().font());

        label.setType(QcLabel::Hint);
        label.setType(QcLabel::LabelType(9));
        label.setFont(BroadFont());
        label.setText(QStringLiteral("I"));
        label.resize(100, 80);
        COMPARE_COLOR(InkColor(Render(label), Qt::white), Over(TokenOf(Table::Light, QStringLiteral("text/text_tertairy"))));
    }

    void text_is_one_elided_run_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("alignment");
        const int plain = Qt::AlignLeft | Qt::AlignVCenter;
        QTest::newRow("fits") << 300 << plain;
        QTest::newRow("elided") << 80 << plain;
        QTest::newRow("room for the dots only") << 14 << plain;
        QTest::newRow("no room") << 3 << plain;
        QTest::newRow("right") << 300 << int(Qt::AlignRight | Qt::AlignBottom);
        QTest::newRow("centre") << 300 << int(Qt::AlignCenter);
        QTest::newRow("top") << 300 << int(Qt::AlignLeft | Qt::AlignTop);
        QTest::newRow("elided to the right") << 80 << int(Qt::AlignRight | Qt::AlignTop);
    }

    void text_is_one_elided_run()
    {
        QFETCH(int, width);
        QFETCH(int, alignment);
        const QString text = QStringLiteral("A label's text of some length");
        QcLabel label;
        label.setType(QcLabel::Caption);
        const QFont font = label.font();
        QVERIFY(QFontMetrics(font).elidedText(text, Qt::ElideRight, width) == text || width < 200);
        QcLabel colourless; // its ink is black
        colourless.setFont(font);
        colourless.setText(text);
        colourless.setAlignment(Qt::Alignment(alignment));
        colourless.resize(width, 40);
        QCOMPARE(Render(colourless), Reference(colourless));
    }

    void alignment_moves_the_ink()
    {
        QcLabel label;
        label.setText(QStringLiteral("I"));
        label.resize(200, 100);
        const auto inkAt = [&label](Qt::Alignment alignment) {
            label.setAlignment(alignment);
            return InkBox(Render(label), Qt::white);
        };
        QVERIFY(inkAt(Qt::AlignLeft | Qt::AlignTop).right() < 20);
        QVERIFY(inkAt(Qt::AlignLeft | Qt::AlignTop).bottom() < 30);
        QVERIFY(inkAt(Qt::AlignRight | Qt::AlignBottom).left() > 180);
        // In a layout from right to left a text begins at the right.
        label.setLayoutDirection(Qt::RightToLeft);
        QVERIFY(inkAt(Qt::AlignLeading | Qt::AlignTop).left() > 180);
        QVERIFY(inkAt(Qt::AlignTrailing | Qt::AlignTop).right() < 20);
        QVERIFY(inkAt(Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignTop).right() < 20);
        QVERIFY(inkAt(Qt::AlignRight | Qt::AlignBottom).top() > 70);
        QVERIFY(std::abs(inkAt(Qt::AlignCenter).center().x() - 100) < 5);
    }

    void frame_margin_indent_wrap_and_markup_play_no_part_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << QStringLiteral("Some words that would wrap");
        QTest::newRow("markup") << QStringLiteral("<b>bold</b>");
        QTest::newRow("mnemonic") << QStringLiteral("&Name");
    }

    void frame_margin_indent_wrap_and_markup_play_no_part()
    {
        QFETCH(QString, text);
        QcLabel label;
        label.setText(text);
        label.setFrameStyle(QFrame::Box | QFrame::Plain);
        label.setLineWidth(3);
        label.setMargin(9);
        label.setIndent(15);
        label.setWordWrap(true);
        label.setTextFormat(Qt::RichText);
        label.resize(90, 50);
        QCOMPARE(Render(label), Reference(label));
    }

    void a_text_is_whole_at_its_size_hint_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("one letter") << QStringLiteral("W");
        QTest::newRow("words") << QStringLiteral("Some words, and more");
        QTest::newRow("thin letters") << QStringLiteral("illicit Till");
        QTest::newRow("mnemonic") << QStringLiteral("&Class name:");
        QTest::newRow("markup") << QStringLiteral("<b>x</b>");
        QTest::newRow("entity") << QStringLiteral("a &amp; b &lt; c");
        QTest::newRow("two lines") << QStringLiteral("One line\nanother line");
        QTest::newRow("an empty line") << QStringLiteral("One line\n\nanother line\n");
        QTest::newRow("line separator") << QStringLiteral("One line") + QChar(QChar::LineSeparator) + QStringLiteral("another");
        QTest::newRow("tab") << QStringLiteral("One\ttwo");
        QTest::newRow("blanks") << QStringLiteral("  One  ");
        QTest::newRow("right to left") << QStringLiteral("\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD");
    }

    void a_text_is_whole_at_its_size_hint()
    {
        QFETCH(QString, text);
        for (const QcLabel::LabelType type : {QcLabel::Display, QcLabel::Caption, QcLabel::Body, QcLabel::Hint}) {
            QLineEdit buddy;
            QcLabel label;
            label.setBuddy(&buddy);
            label.setType(type);
            label.setText(text);
            label.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignTop);
            const QSize hint = label.sizeHint();
            QCOMPARE(label.minimumSizeHint(), hint);
            label.resize(1000, 200);
            const QRectF whole = InkBox(Render(label), Qt::white);
            label.resize(hint);
            QCOMPARE(InkBox(Render(label), Qt::white), whole);
            // And no larger than that takes, to the pixel that rounding may add.
            QVERIFY(QFontMetrics(label.font()).elidedText(text, Qt::ElideRight, hint.width() - 2) != text || text.size() == 1);
            QCOMPARE(hint.height(), QFontMetrics(label.font()).size(0, text).height());
        }
    }

    void a_layout_shows_the_whole_text()
    {
        QWidget window;
        QHBoxLayout row(&window);
        QcLabel label;
        QLineEdit edit;
        label.setText(QStringLiteral("&Class <b>name</b>:"));
        label.setBuddy(&edit);
        row.addWidget(&label);
        row.addWidget(&edit);
        window.resize(10, 10);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(label.fontMetrics().elidedText(label.text(), Qt::ElideRight, label.width()), label.text());
    }

    void the_size_hint_is_that_of_plain_qt_for_plain_text()
    {
        for (const char *text : {"Some words", "illicit Till", "W"}) {
            QcLabel label;
            label.setText(QLatin1String(text));
            const QSize plain = QLabel(label.text()).sizeHint();
            QVERIFY(qAbs(label.sizeHint().width() - plain.width()) <= 1);
            QCOMPARE(label.sizeHint().height(), plain.height());
        }
    }

    void frame_margin_indent_and_wrap_play_no_part_in_the_size()
    {
        QcLabel label;
        label.setText(QStringLiteral("Some words that would wrap"));
        const QSize plain = label.sizeHint();
        label.setFrameStyle(QFrame::Box | QFrame::Plain);
        label.setLineWidth(3);
        label.setMargin(9);
        label.setIndent(15);
        label.setWordWrap(true);
        label.setTextFormat(Qt::RichText);
        QCOMPARE(label.sizeHint(), plain);
        QCOMPARE(label.minimumSizeHint(), plain);
        QCOMPARE(label.heightForWidth(20), plain.height());
        label.setMinimumSize(300, 40);
        QCOMPARE(label.sizeHint(), QSize(300, 40));
    }

    void a_picture_of_the_host_has_the_size_that_plain_qt_gives_it()
    {
        QPixmap picture(70, 50);
        picture.fill(Qt::red);
        for (const int margin : {0, 9}) {
            QcLabel label;
            QLabel plain;
            for (QLabel *each : {static_cast<QLabel *>(&label), &plain}) {
                each->setText(QStringLiteral("A text that goes with the picture"));
                each->setMargin(margin);
                each->setPixmap(picture);
            }
            QCOMPARE(label.sizeHint(), plain.sizeHint());
            QCOMPARE(label.minimumSizeHint(), plain.minimumSizeHint());
            label.resize(label.sizeHint());
            plain.resize(plain.sizeHint());
            QCOMPARE(Render(label), Render(plain));
        }
        QCOMPARE(QcLabel().sizeHint(), QLabel().sizeHint());
    }

    void an_icon_needs_its_colour()
    {
        QcLabel label;
        label.resize(32, 20);
        label.SetIconPath(m_icon.Path());
        QVERIFY(PixmapOf(label).isNull());
        label.SetIconColorParams(kIconColor);
        QCOMPARE(PixmapOf(label).size(), QSize(32, 20));
        const QImage image = Render(label);
        COMPARE_COLOR(PixelAt(image, QPointF(16, 10)), Over(TokenOf(Table::Light, kIconColor)));
        QCOMPARE(InkBox(image, Qt::white), QRectF(0, 0, 32, 20)); // it fills the label
    }

    void an_icon_needs_its_path()
    {
        QcLabel label;
        label.resize(32, 20);
        label.SetIconColorParams(kIconColor);
        QVERIFY(PixmapOf(label).isNull());
        label.SetIconPath(m_icon.Path());
        QCOMPARE(PixmapOf(label).size(), QSize(32, 20));
    }

    void taking_path_or_colour_away_leaves_the_icon()
    {
        QcLabel label;
        label.resize(32, 20);
        label.SetIconPath(m_icon.Path());
        label.SetIconColorParams(kIconColor);
        label.SetIconPath(QString());
        QVERIFY(!PixmapOf(label).isNull());
        label.SetIconPath(m_icon.Path());
        label.SetIconColorParams(QString());
        QVERIFY(!PixmapOf(label).isNull());
    }

    void a_missing_icon_shows_nothing()
    {
        QcLabel label;
        label.resize(32, 20);
        label.SetIconColorParams(kIconColor);
        label.SetIconPath(QStringLiteral(":/images/none.svg"));
        QVERIFY(PixmapOf(label).isNull());
        QVERIFY(InkBox(Render(label), Qt::white).isNull());
    }

    void each_resize_brings_a_pixmap_of_the_new_size()
    {
        QcLabel label;
        label.resize(32, 20);
        label.SetIconPath(m_icon.Path());
        label.SetIconColorParams(kIconColor);
        label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&label));
        for (const QSize &size : {QSize(120, 40), QSize(121, 40), QSize(121, 77)}) {
            label.resize(size);
            DrainEvents();
            QCOMPARE(PixmapOf(label).size(), size);
        }
    }

    void with_text_and_icon_only_the_text_shows_and_the_icon_follows_it()
    {
        QcLabel label;
        label.resize(200, 30);
        label.setText(QStringLiteral("I"));
        label.SetIconPath(m_icon.Path());
        label.SetIconColorParams(kIconColor);
        QCOMPARE(label.text(), QStringLiteral("I"));
        label.resize(210, 30);
        UseTable(Table::Dark);
        UseTable(Table::Light);
        QCOMPARE(label.text(), QStringLiteral("I"));
        QCOMPARE(Render(label), Reference(label));

        label.setText(QString());
        QCOMPARE(PixmapOf(label).size(), QSize(210, 30));
        COMPARE_COLOR(PixelAt(Render(label), QPointF(100, 15)), Over(TokenOf(Table::Light, kIconColor)));
        label.setText(QStringLiteral("I"));
        QCOMPARE(Render(label), Reference(label));
        label.clear();
        COMPARE_COLOR(PixelAt(Render(label), QPointF(100, 15)), Over(TokenOf(Table::Light, kIconColor)));

        QLabel &base = label;
        base.setText(QStringLiteral("I"));
        QCOMPARE(Render(label), Reference(label));
        base.setText(QString());
        COMPARE_COLOR(PixelAt(Render(label), QPointF(100, 15)), Over(TokenOf(Table::Light, kIconColor)));
    }

    void at_ratio_1_every_byte_of_an_icon_is_that_of_qt_s_label_data() { AddIconLabels(); }

    void at_ratio_1_every_byte_of_an_icon_is_that_of_qt_s_label()
    {
        QFETCH(int, index);
        const IconLabel label = MakeIconLabel(index);
        LabelOfRatioOne plain;
        label.Prepare(plain);
        plain.setScaledContents(false); // by which the picture, of just their size, would be scaled for the screen and back
        plain.setPixmap(QcStyleManager::GetInstance()->GetPixmap(label.params));
        QVERIFY(InkBox(RenderAt(*label.control, 1.0), Qt::white).isValid());
        QCOMPARE(RenderAt(*label.control, 1.0), RenderAt(plain, 1.0));
    }

    void at_other_ratios_an_icon_is_rendered_at_the_pixels_of_the_device_data() { AddIconLabels(); }

    void at_other_ratios_an_icon_is_rendered_at_the_pixels_of_the_device()
    {
        QFETCH(int, index);
        const IconLabel label = MakeIconLabel(index);
        QLabel empty; // with what lies around the icon
        label.Prepare(empty);
        for (const qreal ratio : {1.5, 2.0, 3.0, 1.0}) {
            QImage expected = RenderAt(empty, ratio);
            const int margin = empty.margin();
            const QRect contents = empty.contentsRect().adjusted(margin, margin, -margin, -margin);
            const QRect place = QStyle::alignedRect(empty.layoutDirection(), empty.alignment(), label.params.size, contents);
            ImageParams params = label.params;
            params.size = (QSizeF(params.size) * ratio).toSize();
            QPixmap icon = QcStyleManager::GetInstance()->GetPixmap(params);
            if (!empty.isEnabled()) {
                QStyleOption option;
                option.initFrom(&empty);
                icon = empty.style()->generatedIconPixmap(QIcon::Disabled, icon, &option);
            }
            QPainter painter(&expected);
            painter.setClipRect(contents);
            LayOnPixels(painter, place.topLeft(), icon);
            painter.end();
            QCOMPARE(RenderAt(*label.control, ratio), expected);
        }
    }

    void an_icon_between_pixels_is_as_sharp_as_on_them()
    {
        QWidget ground;
        ground.resize(60, 40);
        QcLabel label(&ground);
        label.setGeometry(3, 5, 24, 16);
        label.SetIconPath(kGlyph);
        label.SetIconColorParams(kIconColor);
        QImage expected = RenderAt(ground, 1.5);
        expected.fill(Qt::white);
        QPainter painter(&expected);
        ImageParams params;
        params.path = kGlyph;
        params.color = ColorParams(kIconColor);
        PaintCrisply(painter, label.geometry(), params);
        painter.end();
        QCOMPARE(RenderAt(ground, 1.5), expected);
    }

    void a_picture_of_the_host_in_place_of_the_icon_is_shown_as_it_is()
    {
        QcLabel label;
        label.resize(32, 20);
        label.SetIconPath(m_icon.Path());
        label.SetIconColorParams(kIconColor);
        Render(label);
        QPixmap green(32, 20);
        green.fill(Qt::green);
        label.setPixmap(green);
        COMPARE_COLOR(PixelAt(RenderAt(label, 2.0), QPointF(16, 10)), QColor(Qt::green));
    }

    void an_icon_left_behind_by_its_path_or_colour_stays_on_every_screen_data()
    {
        QTest::addColumn<bool>("byPath");
        QTest::newRow("path") << true;
        QTest::newRow("colour") << false;
    }

    void an_icon_left_behind_by_its_path_or_colour_stays_on_every_screen()
    {
        QcLabel label;
        label.resize(32, 20);
        label.SetIconPath(m_icon.Path());
        label.SetIconColorParams(kIconColor);
        QFETCH(bool, byPath);
        if (byPath)
            label.SetIconPath(QString());
        else
            label.SetIconColorParams(QString());
        for (const qreal ratio : {1.0, 1.5, 2.0})
            COMPARE_COLOR(PixelAt(RenderAt(label, ratio), QPointF(16, 10)), Over(TokenOf(Table::Light, kIconColor)));
    }

    void a_text_set_over_an_icon_replaces_it()
    {
        QcLabel label;
        label.resize(200, 30);
        label.SetIconPath(m_icon.Path());
        label.SetIconColorParams(kIconColor);
        QVERIFY(!PixmapOf(label).isNull());
        label.setText(QStringLiteral("I"));
        QCOMPARE(Render(label), Reference(label));
    }

    void a_text_announces_the_new_size()
    {
        QWidget window;
        auto *label = new QcLabel(&window);
        window.resize(300, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        DrainEvents();
        EventCounter requests(window, QEvent::LayoutRequest);
        const int before = label->sizeHint().width();
        label->setText(QStringLiteral("A longer text"));
        DrainEvents();
        QVERIFY(requests.Take() > 0);
        QVERIFY(label->sizeHint().width() > before);
    }

    void a_new_type_repaints()
    {
        QcLabel label;
        label.setText(QStringLiteral("I"));
        label.setType(QcLabel::Body);
        label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&label));
        DrainEvents();
        EventCounter paints(label, QEvent::Paint);
        label.setType(QcLabel::BodySecondary); // the same font, another colour
        DrainEvents();
        QCOMPARE(paints.Take(), 1);
    }

    void a_theme_change_repaints_text_and_recolours_icons()
    {
        QWidget window;
        window.resize(300, 100);
        auto *text = new QcLabel(&window);
        text->setType(QcLabel::Body);
        text->setText(QStringLiteral("Text"));
        auto *icon = new QcLabel(&window);
        icon->setGeometry(100, 0, 30, 30);
        icon->SetIconPath(m_icon.Path());
        icon->SetIconColorParams(kIconColor);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        DrainEvents();
        EventCounter textPaints(*text, QEvent::Paint);
        EventCounter iconPaints(*icon, QEvent::Paint);
        UseTable(Table::Dark);
        QCOMPARE(textPaints.Take(), 1);
        QCOMPARE(iconPaints.Take(), 1);
        COMPARE_COLOR(PixmapOf(*icon).toImage().pixelColor(15, 15), TokenOf(Table::Dark, kIconColor));
    }

    void a_hidden_label_catches_up_when_it_is_shown()
    {
        QcLabel label;
        label.resize(30, 30);
        label.SetIconPath(m_icon.Path());
        label.SetIconColorParams(kIconColor);
        DrainEvents();
        UseTable(Table::Dark);
        COMPARE_COLOR(PixmapOf(label).toImage().pixelColor(15, 15), TokenOf(Table::Light, kIconColor));
        label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&label));
        DrainEvents();
        COMPARE_COLOR(PixmapOf(label).toImage().pixelColor(15, 15), TokenOf(Table::Dark, kIconColor));
    }

protected:
    void TearDown() override { UseTable(Table::Light); }

private:
    const VelmoraTest::SquareIcon m_icon{QStringLiteral("#000000")};
};

VELMORA_TEST_MAIN(TestQcLabel)

#include "tst_QcLabel.moc"
