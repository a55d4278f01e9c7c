#include "support/EventCounter.h"
#include "support/TestMain.h"

#include "controls/IndicatorLooks.h"

#include <Velmora/QcCheckBox.h>

#include <QAccessible>
#include <QSignalSpy>

#include <memory>

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

class TestQcCheckBox : public TestCase
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
        m_box->setTristate();
        m_box->setCheckState(row.check);
        BringIndicatorTo(*m_box, kLooks[row.look]);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QImage image = Render(*m_box);
            const QColor fill = Painted(table, row.fill, Qt::white);
            COMPARE_COLOR(PixelAt(image, AtImage(2.5, 7)), fill);
            const QPointF line = row.check == Qt::Checked ? AtImage(6, 8.7) : AtImage(0.4, 7);
            COMPARE_COLOR(PixelAt(image, line), Painted(table, row.line, fill));
            if (row.inner)
                COMPARE_COLOR(PixelAt(image, AtImage(7, 7)), Painted(table, row.inner, fill));
        }
    }

    void the_cursor_beside_the_hit_area_hovers_nothing()
    {
        EventCounter paints(*m_box, QEvent::Paint);
        const QImage normal = Render(*m_box);
        MoveCursorToIndicator(*m_box);
        const QImage hovered = Render(*m_box);
        QVERIFY(hovered != normal);
        paints.Take();
        QCursor::setPos(m_box->mapToGlobal(QPoint(115, 30)));
        DrainEvents();
        QVERIFY(paints.Take() > 0); // a move within the widget is enough
        QVERIFY(m_box->underMouse());
        QCOMPARE(Render(*m_box), normal);
    }

    void entering_and_leaving_repaint()
    {
        EventCounter paints(*m_box, QEvent::Paint);
        MoveCursorToIndicator(*m_box);
        QVERIFY(paints.Take() > 0);
        MoveCursorAway();
        QVERIFY(paints.Take() > 0);
    }

    void a_box_held_down_looks_pressed_with_the_cursor_elsewhere()
    {
        m_box->setDown(true);
        MoveCursorToIndicator(*m_box);
        const QImage pressed = Render(*m_box);
        MoveCursorAway();
        QCOMPARE(Render(*m_box), pressed);
    }

    void a_click_and_the_space_key_toggle()
    {
        QSignalSpy toggles(m_box, &QAbstractButton::toggled);
        QTest::mouseClick(m_box, Qt::LeftButton, Qt::NoModifier, AtImage(7, 7).toPoint());
        QVERIFY(m_box->isChecked());
        QTest::keyClick(m_box, Qt::Key_Space);
        QVERIFY(!m_box->isChecked());
        QCOMPARE(toggles.count(), 2);
    }

    void the_text_takes_the_tokens_of_the_stylesheet()
    {
        QVERIFY(m_box->testAttribute(Qt::WA_MouseTracking));
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            m_box->setEnabled(true);
            QCOMPARE(m_box->font().pixelSize(), 12);
            QCOMPARE(m_box->font().family(), QStringLiteral("Open Sans"));
            COMPARE_COLOR(m_box->palette().color(QPalette::WindowText), TokenOf(table, QStringLiteral("text/text_primary")));
            m_box->setEnabled(false);
            COMPARE_COLOR(m_box->palette().color(QPalette::WindowText), TokenOf(table, QStringLiteral("text/text_disabled")));
        }
    }

    void a_long_text_is_elided_at_the_widget_s_end_data()
    {
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::newRow("left to right") << Qt::LeftToRight;
        QTest::newRow("right to left") << Qt::RightToLeft;
    }

    void a_long_text_is_elided_at_the_widget_s_end()
    {
        QFETCH(Qt::LayoutDirection, direction);
        m_box->setLayoutDirection(direction);
        const QImage empty = Render(*m_box);
        m_box->setText(QString(100, QLatin1Char('i')));
        m_box->setGeometry(kIndicatorButton); // a text may not widen it
        const QImage image = Render(*m_box);
        const QRectF indicator(direction == Qt::LeftToRight ? 0 : 64, 2, 56, 56);
        QCOMPARE(Part(image, indicator), Part(empty, indicator)); // no letter lies over it
        const QRectF text(direction == Qt::LeftToRight ? 57 : 0, 0, 63, 60);
        const QRectF ink = InkBox(Part(image, text), Qt::white);
        QVERIFY(!ink.isNull());
        QVERIFY2(ink.width() > 40, qPrintable(QString::number(ink.width())));
    }

    void assistive_technology_hears_role_name_and_state()
    {
        m_box->setText(QStringLiteral("&Wrap lines"));
        m_box->setTristate();
        QAccessibleInterface *box = QAccessible::queryAccessibleInterface(m_box);
        QVERIFY(box);
        QCOMPARE(box->role(), QAccessible::CheckBox);
        QCOMPARE(box->text(QAccessible::Name), QStringLiteral("Wrap lines"));
        QVERIFY(box->state().checkable);
        QVERIFY(!box->state().checked);
        m_box->setCheckState(Qt::PartiallyChecked);
        QVERIFY(box->state().checkStateMixed);
        m_box->setCheckState(Qt::Checked);
        QVERIFY(box->state().checked);
    }

protected:
    void SetUp() override
    {
        MoveCursorAway();
        m_window = std::make_unique<QWidget>();
        m_window->setStyleSheet(QString::fromLatin1(kLargeIndicators));
        m_window->setGeometry(kWindowPlace);
        m_box = new QcCheckBox(m_window.get());
        m_box->setGeometry(kIndicatorButton);
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
    QcCheckBox *m_box = nullptr;
};

VELMORA_TEST_MAIN(TestQcCheckBox)

#include "tst_QcCheckBox.moc"
