#include "support/EventCounter.h"
#include "support/TestMain.h"

#include "controls/IndicatorLooks.h"

#include <Velmora/QcRadioButton.h>

#include <QAccessible>
#include <QLabel>
#include <QSignalSpy>

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

class TestQcRadioButton : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void each_row_shows_its_colours_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(std::size(kRows)); ++i)
            QTest::newRow(kRows[i].name) << i;
    }

    void each_row_shows_its_colours()
    {
        QFETCH(int, index);
        const IndicatorRow &row = kRows[index];
        m_radio->setChecked(row.check == Qt::Checked);
        BringIndicatorTo(*m_radio, kLooks[row.look]);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QImage image = Render(*m_radio);
            const QColor disc = Painted(table, row.fill, Qt::white);
            COMPARE_COLOR(PixelAt(image, AtImage(2.5, 7)), disc);
            const QColor ring = Painted(table, row.line, disc);
            QVERIFY2(ShowsColor(image, ring), qPrintable(ring.name()));
            COMPARE_COLOR(PixelAt(image, AtImage(7, 7)), row.inner ? Painted(table, row.inner, disc) : disc);
        }
    }

    void the_cursor_beside_the_hit_area_hovers_nothing()
    {
        m_window->setStyleSheet(QString()); // whose style takes hits on the whole widget
        DrainEvents();
        const QImage normal = Render(*m_radio);
        EventCounter paints(*m_radio, QEvent::Paint);
        QCursor::setPos(m_radio->mapToGlobal(QPoint(7, 30)));
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        QVERIFY(Render(*m_radio) != normal);
        paints.Take();
        QCursor::setPos(m_radio->mapToGlobal(QPoint(115, 30)));
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        QVERIFY(m_radio->underMouse());
        QCOMPARE(Render(*m_radio), normal);
        MoveCursorAway();
        QVERIFY(paints.Take() > 0);
    }

    void a_button_held_down_looks_pressed_with_the_cursor_elsewhere()
    {
        m_radio->setDown(true);
        MoveCursorToIndicator(*m_radio);
        const QImage pressed = Render(*m_radio);
        MoveCursorAway();
        QCOMPARE(Render(*m_radio), pressed);
    }

    void a_disabled_label_looks_like_an_enabled_one()
    {
        m_radio->setText(QStringLiteral("Text"));
        const QRectF label(57, 0, 63, 60);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            m_radio->setEnabled(true);
            const QImage enabled = Part(Render(*m_radio, QColor(128, 128, 128)), label);
            QVERIFY(!InkBox(enabled, QColor(128, 128, 128)).isNull());
            m_radio->setEnabled(false);
            QCOMPARE(Part(Render(*m_radio, QColor(128, 128, 128)), label), enabled);
        }
    }

    void no_stylesheet_is_registered()
    {
        QVERIFY(m_radio->styleSheet().isEmpty());
        QVERIFY(m_radio->testAttribute(Qt::WA_MouseTracking));
    }

    void a_long_text_is_elided_and_clear_of_the_indicator_data()
    {
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::newRow("left to right") << Qt::LeftToRight;
        QTest::newRow("right to left") << Qt::RightToLeft;
    }

    void a_long_text_is_elided_and_clear_of_the_indicator()
    {
        QFETCH(Qt::LayoutDirection, direction);
        m_radio->setLayoutDirection(direction);
        const QImage empty = Render(*m_radio);
        m_radio->setText(QString(100, QLatin1Char('i')));
        const QImage image = Render(*m_radio);
        const QRectF indicator(direction == Qt::LeftToRight ? 0 : 64, 2, 56, 56);
        QCOMPARE(Part(image, indicator), Part(empty, indicator));
        QVERIFY(InkBox(Part(image, QRectF(direction == Qt::LeftToRight ? 57 : 0, 0, 63, 60)), Qt::white).width() > 25);
    }

    void a_release_on_the_trigger_selects_and_goes_no_further()
    {
        QLabel trigger(m_window.get());
        trigger.setGeometry(10, 100, 40, 40);
        trigger.show();
        m_radio->setTriggerWidget(&trigger);
        EventCounter reached(*m_window, QEvent::MouseButtonRelease); // a label lets its parent have what it ignores
        QSignalSpy clicks(m_radio, &QAbstractButton::clicked);
        QTest::mousePress(&trigger, Qt::LeftButton);
        QVERIFY(!m_radio->isChecked());
        QTest::mouseRelease(&trigger, Qt::LeftButton);
        QVERIFY(m_radio->isChecked());
        QCOMPARE(clicks.count(), 1);
        QCOMPARE(reached.Take(), 0);
        QTest::mouseRelease(&trigger, Qt::RightButton, Qt::NoModifier, QPoint(1, 1)); // without a press, with any mouse button
        QCOMPARE(clicks.count(), 2);
        m_radio->setTriggerWidget(nullptr);
        QTest::mouseClick(&trigger, Qt::LeftButton);
        QCOMPARE(clicks.count(), 2);
        QVERIFY(reached.Take() > 0);
    }

    void another_trigger_takes_the_place_of_the_first()
    {
        QWidget first(m_window.get());
        QWidget second(m_window.get());
        QSignalSpy clicks(m_radio, &QAbstractButton::clicked);
        m_radio->setTriggerWidget(&first);
        m_radio->setTriggerWidget(&second);
        QTest::mouseClick(&first, Qt::LeftButton);
        QCOMPARE(clicks.count(), 0);
        QTest::mouseClick(&second, Qt::LeftButton);
        QCOMPARE(clicks.count(), 1);
    }

    void either_of_button_and_trigger_may_die_first()
    {
        auto trigger = std::make_unique<QWidget>(m_window.get());
        m_radio->setTriggerWidget(trigger.get());
        trigger.reset();
        m_radio->setTriggerWidget(nullptr);
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

    void arrows_move_the_choice()
    {
        auto *other = new QcRadioButton(m_window.get());
        other->setGeometry(10, 80, 120, 60);
        other->show();
        m_radio->setChecked(true);
        m_radio->setFocus();
        QTest::keyClick(m_radio, Qt::Key_Down);
        QVERIFY(other->isChecked());
        QVERIFY(!m_radio->isChecked());
    }

    void assistive_technology_hears_role_name_and_state()
    {
        m_radio->setText(QStringLiteral("&Left"));
        QAccessibleInterface *radio = QAccessible::queryAccessibleInterface(m_radio);
        QVERIFY(radio);
        QCOMPARE(radio->role(), QAccessible::RadioButton);
        QCOMPARE(radio->text(QAccessible::Name), QStringLiteral("Left"));
        QVERIFY(!radio->state().checked);
        m_radio->setChecked(true);
        QVERIFY(radio->state().checked);
    }

protected:
    void SetUp() override
    {
        MoveCursorAway();
        m_window = std::make_unique<QWidget>();
        m_window->setStyleSheet(QString::fromLatin1(kLargeIndicators));
        m_window->setGeometry(kWindowPlace);
        m_radio = new QcRadioButton(m_window.get());
        m_radio->setGeometry(kIndicatorButton);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        DrainEvents();
    }

    void TearDown() override
    {
        m_window.reset();
        UseTable(Table::Light);
    }

private:
    std::unique_ptr<QWidget> m_window;
    QcRadioButton *m_radio = nullptr;
};

VELMORA_TEST_MAIN(TestQcRadioButton)

#include "tst_QcRadioButton.moc"
