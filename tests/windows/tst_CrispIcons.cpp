#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/QcButton.h>
#include <Velmora/QcCheckBox.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcGhostButton.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcMenuToolButton.h>
#include <Velmora/QcRadioButton.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcSwitchButton.h>
#include <Velmora/QcToolColorButton.h>
#include <Velmora/QcWindow.h>

#include <QCursor>
#include <QFile>
#include <QPainter>
#include <QStyleOptionButton>
#include <QTemporaryDir>

#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr char kGlyph[] = ":/images/close.svg";
constexpr QRgb kGround = 0xff7f9f5f; // which no icon is painted in

/// An icon of a control: what it asks for, and where in the control it stands.
struct Icon
{
    ImageParams params;
    QRect place;
    enum { AsPixmap, AsImage, AsIcon } drawing = AsPixmap; ///< by which of Qt's calls it was drawn when all ratios were 1
};

struct Specimen
{
    const char *name;
    /// Makes a control that shows its icons over nothing else; \a path is the file of the icon that a host gives.
    std::function<QWidget *(QWidget *parent, const QString &path)> make;
    std::function<QVector<Icon>(QWidget &control)> icons;
};

ImageParams Tinted(const QSize &size, const char *token, const char *path = kGlyph)
{
    ImageParams params;
    params.path = QString::fromLatin1(path);
    params.size = size;
    params.color = ColorParams(token);
    return params;
}

Icon TintedIcon(const QRect &place, const char *token, const char *path = kGlyph)
{
    return {Tinted(place.size(), token, path), place};
}

template <typename Button>
Button *WithIcon(QWidget *parent, const QString &path, const QSize &size = QSize())
{
    auto *button = new Button(parent);
    button->SetIconPath(path);
    if (!size.isEmpty())
        button->setFixedSize(size);
    return button;
}

template <typename Button>
Specimen Indicator(const char *name, const char *image, const QHash<QString, ColorParams> &colors, QStyle::SubElement part,
                   const std::function<void(Button &)> &prepare)
{
    return {name,
            [prepare](QWidget *parent, const QString &) {
                auto *button = new Button(parent);
                button->resize(30, 21);
                prepare(*button);
                return button;
            },
            [image, colors, part](QWidget &control) {
                QStyleOptionButton option;
                option.initFrom(&control);
                Icon icon;
                icon.place = control.style()->subElementRect(part, &option, &control);
                icon.params.path = QString::fromLatin1(image);
                icon.params.size = icon.place.size();
                icon.params.mulColor = colors;
                icon.drawing = Icon::AsImage;
                return QVector<Icon>{icon};
            }};
}

QHash<QString, ColorParams> Colors(const char *red, const char *green, const char *blue = nullptr)
{
    QHash<QString, ColorParams> colors{{QStringLiteral("#FF0000"), ColorParams(red)}, {QStringLiteral("#00FF00"), ColorParams(green)}};
    if (blue)
        colors.insert(QStringLiteral("#0000FF"), ColorParams(blue));
    return colors;
}

Specimen MenuToolButton(const char *name, const QSize &size, const QRect &main, const QRect &arrow)
{
    return {name, [size](QWidget *parent, const QString &path) { return WithIcon<QcMenuToolButton>(parent, path, size); },
            [main, arrow](QWidget &) {
                QVector<Icon> icons{TintedIcon(main, "icon/icon_toolbar"), TintedIcon(arrow, "icon/icon_toolbar")};
                icons[1].params.path = QStringLiteral(":/images/arrow_down_2.svg");
                icons[1].params.size = QSize(12, 32); // of a new button; it is made smaller where it does not fit
                icons[0].drawing = icons[1].drawing = Icon::AsIcon;
                return icons;
            }};
}

const QVector<Specimen> &Specimens()
{
    static const QVector<Specimen> specimens{
        {"push button, icon only", [](QWidget *parent, const QString &path) { return WithIcon<QcButton>(parent, path, QSize(51, 24)); },
         [](QWidget &) { return QVector<Icon>{TintedIcon(QRect(0, 0, 51, 24), "")}; }},
        {"push button with text",
         [](QWidget *parent, const QString &path) {
             auto *button = WithIcon<QcButton>(parent, path, QSize(91, 24));
             button->setText(QStringLiteral("Save"));
             return button;
         },
         [](QWidget &control) {
             const int textWidth = QFontMetrics(control.font()).horizontalAdvance(QStringLiteral("Save"));
             return QVector<Icon>{TintedIcon(QRect((91 - textWidth - 24) / 2, 0, 24, 24), "")};
         }},
        {"icon button", [](QWidget *parent, const QString &path) { return WithIcon<QcIconButton>(parent, path); },
         [](QWidget &) { return QVector<Icon>{TintedIcon(QRect(0, 0, 24, 24), "icon/icon_secondary")}; }},
        {"switch", [](QWidget *parent, const QString &) { return new QcSwitchButton(parent); },
         [](QWidget &) {
             Icon icon = TintedIcon(QRect(0, 0, 28, 14), "", ":/images/switch/switch_off_nor.svg");
             ColorParams track("base/gray/gray-50");
             track.alpha = 1.0;
             icon.params.mulColor.insert(QStringLiteral("#CCCCCC"), track);
             return QVector<Icon>{icon};
         }},
        {"tool button",
         [](QWidget *parent, const QString &path) {
             auto *button = WithIcon<QcToolButton>(parent, path, QSize(33, 24));
             button->setIconSize(QSize(15, 16));
             return button;
         },
         [](QWidget &) { return QVector<Icon>{TintedIcon(QRect(9, 4, 15, 16), "icon/icon_toolbar")}; }},
        {"tool button in a colour of its own",
         [](QWidget *parent, const QString &path) {
             auto *button = WithIcon<QcToolColorButton>(parent, path, QSize(24, 24));
             button->setIconSize(QSize(16, 16));
             button->setChangeColor(QStringLiteral("tip/danger"), QStringLiteral("tip/info"));
             return button;
         },
         [](QWidget &) { return QVector<Icon>{TintedIcon(QRect(4, 4, 16, 16), "tip/danger")}; }},
        {"combined tool button", [](QWidget *parent, const QString &path) { return WithIcon<QcCombinedToolButton>(parent, path); },
         [](QWidget &) {
             return QVector<Icon>{TintedIcon(QRect(0, 0, 32, 32), "icon/icon_toolbar"),
                                  TintedIcon(QRect(32, 0, 12, 32), "icon/icon_toolbar", ":/images/arrow_down_2.svg")};
         }},
        {"menu text button",
         [](QWidget *parent, const QString &) {
             auto *button = new QcMenuTextButton(parent);
             button->setFixedSize(65, 24);
             return button;
         },
         [](QWidget &) { return QVector<Icon>{TintedIcon(QRect(52, 0, 12, 24), "icon/icon_secondary", ":/images/arrow_down_2.svg")}; }},
        MenuToolButton("menu tool button", QSize(44, 32), QRect(0, 0, 32, 32), QRect(31, 0, 12, 32)),
        MenuToolButton("menu tool button lower than its arrow", QSize(44, 24), QRect(0, 0, 24, 24), QRect(34, 0, 9, 24)),
        Indicator<QcCheckBox>("check box", ":/images/checkbox/checkbox_unchecked.svg", Colors("transparent", "border/border_primary"),
                              QStyle::SE_CheckBoxIndicator, [](QcCheckBox &) {}),
        Indicator<QcCheckBox>("checked box", ":/images/checkbox/checkbox_checked.svg", Colors("brand/brand", "#FFFFFF"),
                              QStyle::SE_CheckBoxIndicator, [](QcCheckBox &box) { box.setChecked(true); }),
        Indicator<QcCheckBox>("partially checked box", ":/images/checkbox/checkbox_half_checked.svg",
                              Colors("transparent", "border/border_secondary_disabled", "brand/brand_disable"),
                              QStyle::SE_CheckBoxIndicator,
                              [](QcCheckBox &box) {
                                  box.setCheckState(Qt::PartiallyChecked);
                                  box.setEnabled(false);
                              }),
        Indicator<QcRadioButton>("radio button", ":/images/radio/radio_uncheck.svg", Colors("transparent", "border/border_primary"),
                                 QStyle::SE_RadioButtonIndicator, [](QcRadioButton &) {}),
        Indicator<QcRadioButton>("checked radio button", ":/images/radio/radio_check.svg",
                                 Colors("transparent", "border/border_primary", "brand/brand"), QStyle::SE_RadioButtonIndicator,
                                 [](QcRadioButton &button) { button.setChecked(true); }),
    };
    return specimens;
}

} // namespace

/// The icons of all rooms on devices of every ratio.
class TestCrispIcons : public TestCase
{
    Q_OBJECT

private:
    void SetUp() override
    {
        QFile blank(m_blank);
        QVERIFY(blank.open(QIODevice::WriteOnly));
        blank.write("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 24 24\"/>");
        QCursor::setPos(450, 450);
        m_ground = std::make_unique<QWidget>();
        m_ground->setAttribute(Qt::WA_DontShowOnScreen);
        m_ground->resize(120, 60);
    }
    void TearDown() override { m_ground.reset(); }

    QWidget *Stand(const Specimen &specimen, const QPoint &place, const QString &path)
    {
        QWidget *control = specimen.make(m_ground.get(), path);
        control->move(place);
        DrainEvents();
        return control;
    }

    QImage Empty(qreal ratio) const
    {
        QImage image((QSizeF(m_ground->size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(kGround);
        return image;
    }

    QImage Shown(qreal ratio) { return RenderAt(*m_ground, ratio, kGround); }

    /// What stands beside the icons: the same control with an icon of nothing.
    QImage Surroundings(const Specimen &specimen, const QPoint &place, const QVector<Icon> &icons, qreal ratio)
    {
        const bool isHostsIcon = icons.size() == 1 && icons.first().params.path == QLatin1String(kGlyph);
        if (!isHostsIcon)
            return Empty(ratio);
        const std::unique_ptr<QWidget> control(Stand(specimen, place, m_blank));
        return Shown(ratio);
    }

    /// As it was drawn before there were other ratios than 1.
    static void DrawPlainly(QPainter &painter, const Icon &icon, const QPoint &offset)
    {
        const QRect place = icon.place.translated(offset);
        QcStyleManager &manager = *QcStyleManager::GetInstance();
        if (icon.drawing == Icon::AsIcon) {
            manager.GetIcon(icon.params).paint(&painter, place, Qt::AlignCenter, QIcon::Normal, QIcon::Off);
        } else if (icon.drawing == Icon::AsImage) {
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawImage(place, manager.GetImage(icon.params));
        } else {
            painter.drawPixmap(place, manager.GetPixmap(icon.params));
        }
    }

    static void AddSpecimens()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QPoint>("place");
        for (int i = 0; i < Specimens().size(); ++i) {
            QTest::addRow("%s on whole pixels", Specimens().at(i).name) << i << QPoint(2, 4);
            QTest::addRow("%s between pixels", Specimens().at(i).name) << i << QPoint(3, 5);
        }
    }

private Q_SLOTS:
    void at_ratio_1_every_byte_is_that_of_the_public_calls_data() { AddSpecimens(); }

    void at_ratio_1_every_byte_is_that_of_the_public_calls()
    {
        QFETCH(int, index);
        QFETCH(QPoint, place);
        const Specimen &specimen = Specimens().at(index);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const std::unique_ptr<QWidget> control(Stand(specimen, place, QString::fromLatin1(kGlyph)));
            const QVector<Icon> icons = specimen.icons(*control);
            const QImage shown = Shown(1.0);
            control->hide();
            QImage expected = Surroundings(specimen, place, icons, 1.0);
            QPainter painter(&expected);
            for (const Icon &icon : icons)
                DrawPlainly(painter, icon, place);
            painter.end();
            QCOMPARE(shown, expected);
            QVERIFY(shown != Empty(1.0));
        }
        UseTable(Table::Light);
    }

    void at_other_ratios_an_icon_is_rendered_at_the_pixels_of_the_device_data() { AddSpecimens(); }

    void at_other_ratios_an_icon_is_rendered_at_the_pixels_of_the_device()
    {
        QFETCH(int, index);
        QFETCH(QPoint, place);
        const Specimen &specimen = Specimens().at(index);
        const std::unique_ptr<QWidget> control(Stand(specimen, place, QString::fromLatin1(kGlyph)));
        const QVector<Icon> icons = specimen.icons(*control);
        for (const qreal ratio : {1.5, 2.0, 1.25, 3.0}) {
            const QImage shown = Shown(ratio);
            control->hide();
            QImage expected = Surroundings(specimen, place, icons, ratio);
            QPainter painter(&expected);
            for (const Icon &icon : icons)
                PaintCrisply(painter, icon.place.translated(place), icon.params);
            painter.end();
            control->show();
            QCOMPARE(shown, expected);
        }
    }

    void a_control_that_goes_to_a_screen_of_another_ratio_follows_at_its_next_paint_data() { AddSpecimens(); }

    void a_control_that_goes_to_a_screen_of_another_ratio_follows_at_its_next_paint()
    {
        QFETCH(int, index);
        QFETCH(QPoint, place);
        const std::unique_ptr<QWidget> control(Stand(Specimens().at(index), place, QString::fromLatin1(kGlyph)));
        const QImage first = Shown(1.0);
        const QImage sharp = Shown(2.0);
        QCOMPARE(Shown(1.0), first);
        QCOMPARE(Shown(2.0), sharp);
    }

    void the_buttons_of_windows_and_line_edits_are_as_sharp()
    {
        QcWindow window(nullptr);
        QcLineEditFrame edit;
        edit.setButtonIconPath(QString::fromLatin1(kGlyph));
        DrainEvents();
        const auto check = [](QWidget *button, const char *token) {
            QVERIFY(button);
            for (const qreal ratio : {1.0, 1.5, 2.0}) {
                QImage expected = RenderAt(*button, ratio);
                expected.fill(kGround);
                QPainter painter(&expected);
                PaintCrisply(painter, button->rect(), Tinted(button->size(), token));
                painter.end();
                QCOMPARE(RenderAt(*button, ratio, kGround), expected);
            }
        };
        check(window.findChild<QcIconButton *>(QStringLiteral("m_closeButton")), "icon/icon_secondary");
        check(edit.findChild<QcGhostButton *>(), "text/text_secondary");
    }

private:
    QTemporaryDir m_folder;
    const QString m_blank = m_folder.filePath(QStringLiteral("blank.svg"));
    std::unique_ptr<QWidget> m_ground;
};

VELMORA_TEST_MAIN(TestCrispIcons)
#include "tst_CrispIcons.moc"
