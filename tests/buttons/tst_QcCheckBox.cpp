#include "support/TestMain.h"

#include "buttons/IndicatorLooks.h"

#include <Velmora/QcCheckBox.h>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr IndicatorRow kRows[] = {
    {"checked disabled", Qt::Checked, 0, "brand/brand_disable", "#FFFFFF", nullptr},
    {"checked normal", Qt::Checked, 1, "brand/brand", "#FFFFFF", nullptr},
    {"checked hovered", Qt::Checked, 2, "brand/brand_hover", "#FFFFFF", nullptr},
    {"checked pressed", Qt::Checked, 3, "brand/brand_press", "#FFFFFF", nullptr},
    {"unchecked disabled", Qt::Unchecked, 0, "transparent", "border/border_secondary_disabled", nullptr},
    {"unchecked normal", Qt::Unchecked, 1, "transparent", "border/border_primary", nullptr},
    {"unchecked hovered", Qt::Unchecked, 2, "brand/brand_bg", "brand/brand_hover", nullptr},
    {"unchecked pressed", Qt::Unchecked, 3, "brand/brand_bg", "brand/brand_press", nullptr},
    {"half disabled", Qt::PartiallyChecked, 0, "transparent", "border/border_secondary_disabled", "brand/brand_disable"},
    {"half normal", Qt::PartiallyChecked, 1, "transparent", "border/border_primary", "brand/brand"},
    {"half hovered", Qt::PartiallyChecked, 2, "brand/brand_bg", "brand/brand_hover", "brand/brand"},
    {"half pressed", Qt::PartiallyChecked, 3, "brand/brand_bg", "brand/brand_press", "brand/brand"},
};

} // namespace

class TestQcCheckBox : public IndicatorTest<QcCheckBox>
{
    Q_OBJECT

private Q_SLOTS:
    void each_row_shows_its_colours_data() { AddRows(kRows); }

    void each_row_shows_its_colours()
    {
        QFETCH(int, index);
        const IndicatorRow &row = kRows[index];
        m_control->setTristate();
        m_control->setCheckState(row.check);
        CheckRow(row, [&row](const QImage &image, const QColor & /*fill*/, const QColor &line) {
            COMPARE_COLOR(PixelAt(image, row.check == Qt::Checked ? AtImage(6, 8.7) : AtImage(0.4, 7)), line);
        });
    }

    void the_cursor_beside_the_hit_area_hovers_nothing() { CheckHoverByHitArea(); }
    void a_box_held_down_looks_pressed_with_the_cursor_elsewhere() { CheckDownWithTheCursorElsewhere(); }
    void a_press_dragged_off_looks_pressed_until_the_release() { CheckPressDraggedOff(); }
    void a_press_dragged_off_ends_with_the_release_whoever_gets_it() { CheckReleaseElsewhere(); }
    void a_press_dragged_off_ends_with_the_next_if_nobody_heard_of_the_release() { CheckReleaseNobodyHeardOf(); }
    void a_press_cancelled_by_escape_looks_pressed_no_more() { CheckCancelledPress(); }
    void handlers_may_delete_it_or_change_the_table() { CheckHandlersThatDeleteOrReTheme(); }

    void a_click_and_the_space_key_toggle()
    {
        QSignalSpy toggles(m_control, &QAbstractButton::toggled);
        QTest::mouseClick(m_control, Qt::LeftButton, Qt::NoModifier, AtImage(7, 7).toPoint());
        QVERIFY(m_control->isChecked());
        QTest::keyClick(m_control, Qt::Key_Space);
        QVERIFY(!m_control->isChecked());
        QCOMPARE(toggles.count(), 2);
    }

    void the_text_takes_the_tokens_of_the_stylesheet()
    {
        QVERIFY(m_control->testAttribute(Qt::WA_MouseTracking));
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            m_control->setEnabled(true);
            QCOMPARE(m_control->font().pixelSize(), 12);
            QCOMPARE(m_control->font().family(), QStringLiteral("Open Sans"));
            COMPARE_COLOR(m_control->palette().color(QPalette::WindowText), TokenOf(table, QStringLiteral("text/text_primary")));
            m_control->setEnabled(false);
            COMPARE_COLOR(m_control->palette().color(QPalette::WindowText), TokenOf(table, QStringLiteral("text/text_disabled")));
        }
    }

    void a_long_text_is_elided_at_the_widget_s_end_data() { AddDirections(); }

    void a_long_text_is_elided_at_the_widget_s_end()
    {
        QFETCH(Qt::LayoutDirection, direction);
        CheckElision(direction, 40);
        CheckTextReachesTheEnd(direction);
    }

    void assistive_technology_hears_role_name_and_state()
    {
        CheckAccessible(QAccessible::CheckBox);
        m_control->setTristate();
        m_control->setCheckState(Qt::PartiallyChecked);
        QVERIFY(QAccessible::queryAccessibleInterface(m_control)->state().checkStateMixed);
    }
};

VELMORA_TEST_MAIN(TestQcCheckBox)

#include "tst_QcCheckBox.moc"
