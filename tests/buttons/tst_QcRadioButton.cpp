#include "support/TestMain.h"

#include "buttons/IndicatorLooks.h"

#include <Velmora/QcFrame.h>
#include <Velmora/QcRadioButton.h>

#include <QLabel>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr IndicatorRow kRows[] = {
    {"unchecked disabled", Qt::Unchecked, 0, "transparent", "border/border_secondary_disabled", nullptr},
    {"unchecked normal", Qt::Unchecked, 1, "transparent", "border/border_primary", nullptr},
    {"unchecked hovered", Qt::Unchecked, 2, "brand/brand_secondary_hover", "border/border_primary", nullptr},
    {"unchecked pressed", Qt::Unchecked, 3, "brand/brand_secondary_press", "border/border_primary", nullptr},
    {"checked disabled", Qt::Checked, 0, "transparent", "border/border_secondary_disabled", "brand/brand_disable"},
    {"checked normal", Qt::Checked, 1, "transparent", "border/border_primary", "brand/brand"},
    {"checked hovered", Qt::Checked, 2, "brand/brand_secondary_hover", "border/border_primary", "brand/brand"},
    {"checked pressed", Qt::Checked, 3, "brand/brand_secondary_press", "border/border_primary", "brand/brand"},
};

/// True if the left edge of the indicator has a pixel of about that colour: the ring is hardly wider than a pixel, so that a
/// little of what lies beside it shows in each.
bool ShowsColor(const QImage &image, const QColor &color)
{
    for (const double x : {0.1, 0.3, 0.5, 0.72, 0.85, 1.1, 1.3}) {
        if (VelmoraTest::Close(PixelAt(image, AtImage(x, 7)), color, 12))
            return true;
    }
    return false;
}

} // namespace

class TestQcRadioButton : public IndicatorTest<QcRadioButton>
{
    Q_OBJECT

private Q_SLOTS:
    void each_row_shows_its_colours_data() { AddRows(kRows); }

    void each_row_shows_its_colours()
    {
        QFETCH(int, index);
        const IndicatorRow &row = kRows[index];
        m_control->setChecked(row.check == Qt::Checked);
        CheckRow(row, [&row](const QImage &image, const QColor &disc, const QColor &ring) {
            QVERIFY2(ShowsColor(image, ring), qPrintable(ring.name()));
            if (!row.inner)
                COMPARE_COLOR(PixelAt(image, AtImage(7, 7)), disc);
        });
    }

    void the_cursor_beside_the_hit_area_hovers_nothing() { CheckHoverByHitArea(); }
    void a_button_held_down_looks_pressed_with_the_cursor_elsewhere() { CheckDownWithTheCursorElsewhere(); }
    void a_press_dragged_off_looks_pressed_until_the_release() { CheckPressDraggedOff(); }
    void a_press_dragged_off_ends_with_the_release_whoever_gets_it() { CheckReleaseElsewhere(); }
    void a_press_dragged_off_ends_with_the_next_if_nobody_heard_of_the_release() { CheckReleaseNobodyHeardOf(); }
    void a_press_cancelled_by_escape_looks_pressed_no_more() { CheckCancelledPress(); }
    void handlers_may_delete_it_or_change_the_table() { CheckHandlersThatDeleteOrReTheme(); }

    void a_disabled_label_looks_like_an_enabled_one()
    {
        m_control->setText(QStringLiteral("Text"));
        const QRectF label(57, 0, 63, 60);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            m_control->setEnabled(true);
            const QImage enabled = Part(Render(*m_control, QColor(128, 128, 128)), label);
            QVERIFY(!InkBox(enabled, QColor(128, 128, 128)).isNull());
            m_control->setEnabled(false);
            QCOMPARE(Part(Render(*m_control, QColor(128, 128, 128)), label), enabled);
        }
    }

    void the_label_is_12_pixels_high_in_the_colour_that_stands_out_from_the_surface()
    {
        m_control->setText(QStringLiteral("I"));
        const QRectF label(57, 0, 63, 60);
        const QImage small = Part(Render(*m_control), label);
        QFont font;
        font.setPixelSize(24);
        m_control->setFont(font);
        QCOMPARE(Part(Render(*m_control), label), small);
        const int light = InkColor(small, Qt::white).value();
        QVERIFY2(light < 128, qPrintable(QString::number(light)));
        UseTable(Table::Dark);
        const int dark = InkColor(Part(Render(*m_control, Qt::black), label), Qt::black).value();
        QVERIFY2(dark > 128, qPrintable(QString::number(dark)));
    }

    void a_new_table_shows_with_the_next_paint_for_which_a_surface_of_the_kit_asks()
    {
        m_control->setText(QStringLiteral("Text"));
        auto *surface = new QcFrame(m_window.get());
        auto *above = new QcRadioButton(surface);
        surface->setGeometry(10, 100, 140, 80);
        surface->show();
        DrainEvents();
        EventCounter alone(*m_control, QEvent::Paint);
        EventCounter onSurface(*above, QEvent::Paint);
        const QImage light = Render(*m_control);
        alone.Take();
        UseTable(Table::Dark);
        QCOMPARE(alone.Take(), 0);
        QVERIFY(onSurface.Take() > 0);
        QVERIFY(Render(*m_control) != light);
    }

    void no_stylesheet_is_registered()
    {
        QVERIFY(m_control->styleSheet().isEmpty());
        QVERIFY(m_control->testAttribute(Qt::WA_MouseTracking));
    }

    void a_long_text_is_elided_and_clear_of_the_indicator_data() { AddDirections(); }

    void a_long_text_is_elided_and_clear_of_the_indicator()
    {
        QFETCH(Qt::LayoutDirection, direction);
        CheckElision(direction, 25);
        CheckTextReachesTheEnd(direction);
    }

    void a_release_on_the_trigger_selects_and_goes_no_further()
    {
        QLabel trigger(m_window.get());
        trigger.setGeometry(10, 100, 40, 40);
        trigger.show();
        m_control->setTriggerWidget(&trigger);
        EventCounter reached(*m_window, QEvent::MouseButtonRelease); // a label lets its parent have what it ignores
        QSignalSpy clicks(m_control, &QAbstractButton::clicked);
        QTest::mousePress(&trigger, Qt::LeftButton);
        QVERIFY(!m_control->isChecked());
        QTest::mouseRelease(&trigger, Qt::LeftButton);
        QVERIFY(m_control->isChecked());
        QCOMPARE(clicks.count(), 1);
        QCOMPARE(reached.Take(), 0);
        QTest::mouseRelease(&trigger, Qt::RightButton, Qt::NoModifier, QPoint(1, 1)); // without a press, with any mouse button
        QCOMPARE(clicks.count(), 2);
        m_control->setTriggerWidget(nullptr);
        QTest::mouseClick(&trigger, Qt::LeftButton);
        QCOMPARE(clicks.count(), 2);
        QVERIFY(reached.Take() > 0);
    }

    void another_trigger_takes_the_place_of_the_first()
    {
        QWidget first(m_window.get());
        QWidget second(m_window.get());
        QSignalSpy clicks(m_control, &QAbstractButton::clicked);
        m_control->setTriggerWidget(&first);
        m_control->setTriggerWidget(&second);
        QTest::mouseClick(&first, Qt::LeftButton);
        QCOMPARE(clicks.count(), 0);
        QTest::mouseClick(&second, Qt::LeftButton);
        QCOMPARE(clicks.count(), 1);
    }

    void either_of_button_and_trigger_may_die_first()
    {
        auto trigger = std::make_unique<QWidget>(m_window.get());
        m_control->setTriggerWidget(trigger.get());
        trigger.reset();
        m_control->setTriggerWidget(nullptr);
        QWidget survivor(m_window.get());
        auto radio = std::make_unique<QcRadioButton>(m_window.get());
        radio->setTriggerWidget(&survivor);
        radio.reset();
        EventCounter reached(*m_window, QEvent::MouseButtonRelease);
        QTest::mouseClick(&survivor, Qt::LeftButton);
        QVERIFY(reached.Take() > 0);
    }

    void a_receiver_of_the_click_may_delete_the_button()
    {
        QWidget trigger(m_window.get());
        auto *radio = new QcRadioButton(m_window.get());
        radio->setTriggerWidget(&trigger);
        bool gone = false;
        connect(radio, &QObject::destroyed, this, [&gone] { gone = true; });
        connect(radio, &QAbstractButton::clicked, radio, [radio] { delete radio; });
        QTest::mouseClick(&trigger, Qt::LeftButton);
        QVERIFY(gone);
    }

    void a_receiver_of_the_click_may_delete_the_trigger()
    {
        auto *trigger = new QWidget(m_window.get());
        m_control->setTriggerWidget(trigger);
        connect(m_control, &QAbstractButton::clicked, trigger, [trigger] { delete trigger; });
        QTest::mouseRelease(trigger, Qt::LeftButton);
        QVERIFY(m_control->isChecked());
    }

    void arrows_move_the_choice()
    {
        auto *other = new QcRadioButton(m_window.get());
        other->setGeometry(10, 80, 120, 60);
        other->show();
        m_control->setChecked(true);
        m_control->setFocus();
        QTest::keyClick(m_control, Qt::Key_Down);
        QVERIFY(other->isChecked());
        QVERIFY(!m_control->isChecked());
    }

    void assistive_technology_hears_role_name_and_state() { CheckAccessible(QAccessible::RadioButton); }
};

VELMORA_TEST_MAIN(TestQcRadioButton)

#include "tst_QcRadioButton.moc"
