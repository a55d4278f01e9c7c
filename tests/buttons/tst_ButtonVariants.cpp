#include "support/ColorValue.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/SquareIcon.h"
#include "support/TestMain.h"

#include "buttons/ButtonLooks.h"

#include <Velmora/ContextConsumer.h>
#include <Velmora/QcGhostButton.h>
#include <Velmora/QcHighlightButton.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcTertiaryButton.h>
#include <Velmora/QcTextButton.h>
#include <Velmora/QcTextLinkButton.h>

#include <memory>
#include <utility>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// One variant: how to make it, and its tokens, one a look in the order of kLooks; "-" where it has none.
struct Variant
{
    const char *name;
    QcButton *(*make)(QWidget *);
    QStringList background;
    QStringList border;
    QStringList text;
    QStringList icon;
};

template <typename Class>
QcButton *Make(QWidget *parent)
{
    return new Class(parent);
}

QStringList Words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QStringList Eight(const char *token)
{
    QStringList tokens;
    for (int i = 0; i < 8; ++i)
        tokens.append(QString::fromLatin1(token));
    return tokens;
}

const QList<Variant> &Variants()
{
    static const QStringList soft = Words("transparent transparent bg/bg_transluent_strong_hover bg/bg_transluent_strong_press "
                                          "transparent transparent bg/bg_transluent_strong_hover bg/bg_transluent_strong_press");
    static const QStringList onBrand = Words("text/text_disabled text/text_button text/text_button text/text_button "
                                             "text/text_button text/text_button text/text_button text/text_button");
    static const QStringList primaryText = Words("text/text_disabled text/text_primary text/text_primary text/text_primary "
                                                 "text/text_primary text/text_primary text/text_primary text/text_primary");
    static const QStringList secondaryText = Words("text/text_disabled text/text_secondary text/text_secondary text/text_secondary "
                                                   "text/text_secondary text/text_secondary text/text_secondary text/text_secondary");
    static const QStringList brand = Words("brand/brand_disable brand/brand brand/brand_hover brand/brand_press "
                                           "brand/brand brand/brand brand/brand_hover brand/brand_press");
    static const QStringList link = Words("link/link_disable link/link link/link_hover link/link_press "
                                          "link/link link/link link/link_hover link/link_press");
    static const QList<Variant> variants = {
        {"primary", Make<QcPrimaryButton>, brand, Eight("-"), onBrand, onBrand},
        {"secondary", Make<QcSecondaryButton>, Eight("transparent"),
         Words("brand/brand_disable brand/brand brand/brand_hover brand/brand_press "
               "brand/brand brand/brand_hover brand/brand_hover brand/brand_press"),
         brand, brand},
        {"tertiary", Make<QcTertiaryButton>, Eight("transparent"),
         Words("border/border_secondary_disabled border/border_secondary border/border_secondary_hover border/border_secondary_press "
               "border/border_secondary border/border_secondary_hover border/border_secondary_hover border/border_secondary_press"),
         primaryText, primaryText},
        {"ghost", Make<QcGhostButton>, soft, Eight("-"), secondaryText, secondaryText},
        {"highlight", Make<QcHighlightButton>, soft, Eight("-"), primaryText, primaryText},
        {"icon", Make<QcIconButton>,
         Words(
             "transparent transparent bg/bg_transluent_strong_hover bg/bg_transluent_strong_press "
             "bg/bg_transluent_strong_active bg/bg_transluent_strong_active bg/bg_transluent_strong_active bg/bg_transluent_strong_active"),
         Eight("-"), Eight("-"),
         Words("text/text_disabled icon/icon_secondary icon/icon_secondary icon/icon_secondary "
               "icon/icon_primary icon/icon_primary icon/icon_primary icon/icon_primary")},
        {"text", Make<QcTextButton>, Eight("transparent"), Eight("transparent"), link, link},
        {"text link", Make<QcTextLinkButton>, Eight("transparent"), Eight("transparent"), link, link},
    };
    return variants;
}

QString At(const QcButton &button, const Look &look)
{
    return QStringLiteral("%1, %2").arg(QString::fromLatin1(button.metaObject()->className()), QString::fromLatin1(look.name));
}

#define COMPARE_CELL(actual, expected) \
    QVERIFY2(Close((actual), (expected), 3), \
             qPrintable(QStringLiteral("%1: %2 is not %3").arg(At(*button, look), (actual).name(), (expected).name())))

} // namespace

class TestButtonVariants : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void each_cell_of_the_tables_is_painted_data()
    {
        QTest::addColumn<int>("variant");
        QTest::addColumn<int>("look");
        for (int variant = 0; variant < Variants().size(); ++variant) {
            for (int look = 0; look < 8; ++look)
                QTest::addRow("%s, %s", Variants().at(variant).name, kLooks[look].name) << variant << look;
        }
    }

    void each_cell_of_the_tables_is_painted()
    {
        QFETCH(int, variant);
        QFETCH(int, look);
        const Variant &expected = Variants().at(variant);
        CheckLook(expected, kLooks[look], look);
    }

    void measures_data()
    {
        QTest::addColumn<int>("variant");
        QTest::addColumn<bool>("isSquare");
        for (int variant = 0; variant < Variants().size(); ++variant)
            QTest::newRow(Variants().at(variant).name) << variant << (variant == 5);
    }

    void measures()
    {
        QFETCH(int, variant);
        QFETCH(bool, isSquare);
        const std::unique_ptr<QcButton> button(Variants().at(variant).make(nullptr));
        QCOMPARE(button->minimumHeight(), 24);
        QCOMPARE(button->maximumHeight(), 24);
        QCOMPARE(button->minimumWidth(), isSquare ? 24 : 0);
        QCOMPARE(button->maximumWidth(), isSquare ? 24 : QWIDGETSIZE_MAX);
        QCOMPARE(button->font().pixelSize(), 12);
        button->setMaximumHeight(60); // a host that allows more can make it taller
        button->resize(button->width(), 60);
        QCOMPARE(button->height(), 60);
    }

    void only_primary_and_secondary_are_context_consumers()
    {
        for (const Variant &variant : Variants()) {
            const std::unique_ptr<QcButton> button(variant.make(nullptr));
            const bool isConsumer = dynamic_cast<ContextConsumer *>(button.get()) != nullptr;
            QVERIFY2(isConsumer == (qobject_cast<QcPrimaryButton *>(button.get()) || qobject_cast<QcSecondaryButton *>(button.get())),
                     variant.name);
        }
    }

    void the_tables_are_empty_before_the_first_turn()
    {
        for (const Variant &variant : Variants()) {
            const std::unique_ptr<QcButton> button(variant.make(nullptr));
            button->resize(24, 24);
            QVERIFY2(InkBox(Render(*button), Qt::white, 0).isNull(), variant.name);
        }
    }

    void the_first_turn_repaints_and_announces_the_size_data() { measures_data(); }

    void the_first_turn_repaints_and_announces_the_size()
    {
        QFETCH(int, variant);
        QFETCH(bool, isSquare);
        QcButton *button = Variants().at(variant).make(m_window.get());
        ShowBeforeTasks(*button);
        EventCounter paints(*button, QEvent::Paint);
        EventCounter requests(*m_window, QEvent::LayoutRequest);
        DrainEvents();
        QCOMPARE(paints.Take(), 1);
        QCOMPARE(requests.Take() > 0, !isSquare); // whose size is fixed
    }

    void what_the_host_sets_before_the_first_turn_is_overwritten_where_the_variant_sets_it()
    {
        auto *button = new QcPrimaryButton(m_window.get());
        button->setGeometry(10, 10, 100, 24);
        button->SetBackgroundColorParams(QStyle::State_Enabled, QStringLiteral("#FF0000"));
        button->SetBorderColorParams(QStyle::State_Enabled, QStringLiteral("#FF0000"));
        DrainEvents();
        const QImage image = Render(*button);
        COMPARE_COLOR(PixelAt(image, QPointF(10, 12)), TokenOf(Table::Light, QStringLiteral("brand/brand")));
        QVERIFY(!Close(PixelAt(image, QPointF(0, 12)), PixelAt(image, QPointF(10, 12)), 20)); // it has no borders of its own
    }

    void what_a_host_sets_later_changes_no_other_button_of_the_variant_data() { measures_data(); }

    void what_a_host_sets_later_changes_no_other_button_of_the_variant()
    {
        QFETCH(int, variant);
        const auto make = [&] {
            std::unique_ptr<QcButton> button(Variants().at(variant).make(m_window.get()));
            button->setFixedSize(100, 80);
            button->setText(QStringLiteral("I"));
            button->SetIconPath(m_icon.Path());
            button->show();
            DrainEvents();
            return button;
        };
        const auto first = make();
        const auto second = make();
        const QImage before = Render(*second);
        ImageParams icon;
        icon.color = ColorParams("#00FF00");
        first->SetBackgroundColorParams(QStyle::State_Enabled, QStringLiteral("#FF0000"));
        first->SetBorderColorParams(QStyle::State_Enabled, QStringLiteral("#FF0000"));
        first->SetTextColorParams(QStyle::State_Enabled, QStringLiteral("#0000FF"));
        first->SetIconParam(QStyle::State_Enabled, icon);
        QVERIFY(Render(*first) != before);
        QCOMPARE(Render(*second), before);
        QCOMPARE(Render(*make()), before);
    }

    void a_text_link_is_underlined_from_the_first_turn_on()
    {
        QcTextLinkButton link(m_window.get());
        QcTextButton plain(m_window.get());
        QFont font;
        font.setPixelSize(17);
        link.setFont(font);
        QVERIFY(!link.font().underline());
        DrainEvents();
        QVERIFY(link.font().underline());
        QCOMPARE(link.font().pixelSize(), 17); // the rest of the font stays
        QVERIFY(!plain.font().underline());
        link.setGeometry(10, 10, 100, 24);
        link.show();
        link.setText(QStringLiteral("    ")); // blanks alone show the line
        for (const Look &look : kLooks) {
            BringTo(link, look);
            QVERIFY2(!InkBox(Render(link), Qt::white).isNull(), look.name);
            Release(link);
        }
    }

    void an_icon_button_draws_its_icon_across_the_whole_square()
    {
        QcIconButton button(m_window.get());
        button.SetIconPath(m_icon.Path());
        DrainEvents();
        QCOMPARE(button.size(), QSize(24, 24));
        QCOMPARE(InkBox(Render(button), Qt::white), QRectF(0, 0, 24, 24));
    }

protected:
    void SetUp() override
    {
        MoveCursorAway();
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(kWindowPlace);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void TearDown() override
    {
        m_window.reset();
        UseTable(Table::Light);
    }

private:
    void CheckLook(const Variant &expected, const Look &look, int index)
    {
        QcButton *button = expected.make(m_window.get());
        button->setFixedSize(100, 80);
        button->move(10, 10);
        QFont font; // whose strokes cover whole pixels
        font.setPixelSize(60);
        font.setBold(true);
        button->setFont(font);
        button->setText(QStringLiteral("I"));
        button->show();
        DrainEvents();
        BringTo(*button, look);

        for (const Table table : {Table::Dark, Table::Light}) {
            UseTable(table);
            const QColor canvas = table == Table::Light ? Qt::white : Qt::black;
            const QColor fill = Painted(table, expected.background.at(index), canvas);
            const QImage image = Render(*button, canvas);
            COMPARE_CELL(PixelAt(image, QPointF(10, 40)), fill);

            // The line is a pixel wide, its outer half clipped.
            const QString borderToken = expected.border.at(index);
            QColor edge = fill;
            if (borderToken.contains(QLatin1Char('/'))) {
                QColor border = TokenOf(table, borderToken);
                border.setAlphaF(ColorValue(border.alphaF() * LineCoverage(image)));
                edge = Over(border, fill);
            }
            COMPARE_CELL(PixelAt(image, QPointF(0, 40)), edge);

            const QString textToken = expected.text.at(index);
            const QColor ink =
                textToken == QLatin1String("-") ? button->palette().color(QPalette::ButtonText) : Painted(table, textToken, fill);
            COMPARE_CELL(InkColor(Part(image, QRectF(20, 10, 60, 60)), fill), ink);

            button->setText(QString());
            button->SetIconPath(m_icon.Path());
            COMPARE_CELL(PixelAt(Render(*button, canvas), QPointF(50, 40)), Painted(table, expected.icon.at(index), fill));
            button->SetIconPath(QString());
            button->setText(QStringLiteral("I"));
        }
        Release(*button);
    }

    static void Release(QcButton &button)
    {
        if (button.isDown())
            QTest::mouseRelease(&button, Qt::LeftButton, Qt::NoModifier, QPoint(-1, -1));
        MoveCursorAway();
    }

    const VelmoraTest::SquareIcon m_icon{QStringLiteral("#123456")};
    std::unique_ptr<QWidget> m_window;
};

VELMORA_TEST_MAIN(TestButtonVariants)

#include "tst_ButtonVariants.moc"
