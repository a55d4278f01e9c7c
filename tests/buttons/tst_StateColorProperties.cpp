#include "ButtonLooks.h"

#include "support/TestMain.h"

#include <Velmora/QcGhostButton.h>
#include <Velmora/QcPrimaryButton.h>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr QPoint kOnGround(6, 4);

/// Counts how often it is asked for its tables.
struct Variant : QcButton
{
    int fills = 0;

private:
    void UpdateUiParams() override { ++fills; }
};

/// What the code of a form does: properties right after the construction, before the first turn of the main loop.
template <typename Button>
std::unique_ptr<Button> Made(const QHash<QByteArray, QString> &properties)
{
    auto button = std::make_unique<Button>();
    for (auto property = properties.cbegin(); property != properties.cend(); ++property)
        button->setProperty(property.key(), *property);
    button->setGeometry(0, 0, 60, 24);
    button->show();
    DrainEvents();
    return button;
}

} // namespace

/// Colours of a push button's states that are told as dynamic properties.
class tst_StateColorProperties : public VelmoraTest::TestCase
{
    Q_OBJECT

private:
    void SetUp() override { MoveCursorAway(); }

private Q_SLOTS:
    void each_state_of_a_new_button_has_the_colour_of_its_property_data()
    {
        QTest::addColumn<int>("look");
        QTest::addColumn<QByteArray>("name");
        const char *const names[] = {"disabled",        "normal",  "hover",        "pressed",
                                     "checkedDisabled", "checked", "checkedHover", "checkedPressed"};
        for (int look = 0; look < int(std::size(names)); ++look)
            QTest::newRow(names[look]) << look << QByteArray(names[look]);
    }

    void each_state_of_a_new_button_has_the_colour_of_its_property()
    {
        QFETCH(int, look);
        QFETCH(QByteArray, name);
        const auto button = Made<QcPrimaryButton>({{name + "BackgroundColorParams", "base/red/red-60"}});
        BringTo(*button, kLooks[look]);
        COMPARE_COLOR(PixelAt(Render(*button), kOnGround), TokenOf(Table::Light, "base/red/red-60"));
        LetGo(*button);
        BringTo(*button, kLooks[look == 1 ? 0 : 1]); // and no other one
        QVERIFY(PixelAt(Render(*button), kOnGround) != TokenOf(Table::Light, "base/red/red-60"));
    }

    void border_and_text_have_properties_too()
    {
        const auto expected = Made<QcGhostButton>({});
        expected->setText("H");
        const QImage before = Render(*expected);
        expected->SetBorderColorParams(QStyle::State_Enabled, "#00ff00");
        const QImage bordered = Render(*expected);
        QVERIFY(bordered != before);
        expected->SetTextColorParams(QStyle::State_Enabled, "#0000ff");

        const auto button = Made<QcGhostButton>({{"normalBorderColorParams", "#00ff00"}});
        button->setText("H");
        QCOMPARE(Render(*button), bordered);
        button->setProperty("normalTextColorParams", "#0000ff");
        DrainEvents();
        QCOMPARE(Render(*button), Render(*expected));
        QVERIFY(Render(*button) != bordered);
    }

    void a_property_that_changes_is_followed_by_its_table()
    {
        const auto button = Made<QcPrimaryButton>({});
        COMPARE_COLOR(PixelAt(Render(*button), kOnGround), TokenOf(Table::Light, "brand/brand"));
        button->setProperty("normalBackgroundColorParams", "base/red/red-60");
        DrainEvents();
        COMPARE_COLOR(PixelAt(Render(*button), kOnGround), TokenOf(Table::Light, "base/red/red-60"));
        UseTable(Table::Dark);
        DrainEvents();
        COMPARE_COLOR(PixelAt(Render(*button), kOnGround), TokenOf(Table::Dark, "base/red/red-60"));
        UseTable(Table::Light);
    }

    void a_property_that_is_taken_away_or_emptied_gives_the_variants_colour_back_data()
    {
        QTest::addColumn<QVariant>("nothing");
        QTest::newRow("taken away") << QVariant();
        QTest::newRow("emptied") << QVariant(QString());
    }

    void a_property_that_is_taken_away_or_emptied_gives_the_variants_colour_back()
    {
        QFETCH(QVariant, nothing);
        const auto button =
            Made<QcPrimaryButton>({{"normalBackgroundColorParams", "base/red/red-60"}, {"normalBorderColorParams", "#00ff00"}});
        button->setProperty("normalBackgroundColorParams", nothing);
        DrainEvents();
        QCOMPARE(Render(*button), Render(*Made<QcPrimaryButton>({{"normalBorderColorParams", "#00ff00"}}))); // the other one stays

        const QImage untouched = Render(*Made<QcButton>({}));
        const auto plain = Made<QcButton>({{"normalBackgroundColorParams", "base/red/red-60"}});
        QVERIFY(Render(*plain) != untouched);
        plain->setProperty("normalBackgroundColorParams", nothing);
        DrainEvents();
        QCOMPARE(Render(*plain), untouched);
    }

    void properties_of_other_names_change_nothing()
    {
        const QImage untouched = Render(*Made<QcPrimaryButton>({}));
        const auto button = Made<QcPrimaryButton>({{"sleepyBackgroundColorParams", "#00ff00"}, {"BackgroundColorParams", "#00ff00"}});
        QCOMPARE(Render(*button), untouched);
    }

    void tables_stay_as_code_fills_them()
    {
        const auto button = Made<Variant>({{"normalBackgroundColorParams", "base/red/red-60"}});
        button->SetBackgroundColorParams(QStyle::State_Enabled, "#0000ff");
        button->SetTextColorParams(QStyle::State_Enabled, "#00ff00");
        button->setText("H");
        COMPARE_COLOR(PixelAt(Render(*button), kOnGround), TokenOf(Table::Light, "base/red/red-60"));
        button->setProperty("normalBackgroundColorParams", QVariant());
        DrainEvents();
        const auto expected = Made<Variant>({});
        expected->SetBackgroundColorParams(QStyle::State_Enabled, "#0000ff");
        expected->SetTextColorParams(QStyle::State_Enabled, "#00ff00");
        expected->setText("H");
        QCOMPARE(Render(*button), Render(*expected));
        QCOMPARE(button->fills, 1);
    }
};

VELMORA_TEST_MAIN(tst_StateColorProperties)

#include "tst_StateColorProperties.moc"
