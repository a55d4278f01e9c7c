#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include "buttons/ButtonLooks.h"

#include <Velmora/QcScrollBar.h>

#include <QAccessible>
#include <QEnterEvent>
#include <QLabel>
#include <QListView>
#include <QPointer>
#include <QScrollArea>
#include <QSignalSpy>
#include <QStringListModel>
#include <QWheelEvent>

#include <private/qstylesheetstyle_p.h>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr const char *kHoverProperty = "objectPropertyHover";

/// Tells how many receivers a signal of it has.
template <typename Bar>
class Counted : public Bar
{
public:
    using Bar::Bar;
    int Receivers(const char *signal) const { return this->receivers(signal); }
};

/// Counts the events that it filters.
class Filtering : public QcScrollBar
{
public:
    using QcScrollBar::QcScrollBar;
    int filtered = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        ++filtered;
        return QcScrollBar::eventFilter(watched, event);
    }
};

/// Turns the wheel one notch towards the user over \a widget.
void Wheel(QWidget &widget)
{
    const QPointF middle = widget.rect().center();
    QWheelEvent event(middle, widget.mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

bool IsHandleShown(const QcScrollBar &bar)
{
    return bar.property(kHoverProperty).toBool();
}

// Without the check of the type: Qt does not export what it would need.
__attribute__((no_sanitize("undefined"))) QStyle *BaseStyleOf(const QcScrollBar &bar)
{
    return static_cast<QStyleSheetStyle *>(bar.style())->base;
}

QcScrollBar::DisplayMode ModeOf(int value)
{
    return static_cast<QcScrollBar::DisplayMode>(value);
}

} // namespace

class TestQcScrollBar : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // --- What a new bar is ---

    void a_new_bar_is_hidden_and_stands_at_the_edge_of_its_parent()
    {
        QcScrollBar horizontal(Qt::Horizontal, m_area);
        QVERIFY(m_bar->isHidden() && horizontal.isHidden());
        QCOMPARE(m_bar->orientation(), Qt::Vertical);
        QCOMPARE(m_bar->geometry(), QRect(200 - 2 - 10, 2, 10, 150 - 4));
        QCOMPARE(horizontal.geometry(), QRect(2, 150 - 2 - 10, 200 - 4, 10));
        QCOMPARE(m_bar->getDisplayModeM(), QcScrollBar::DisplayOnHover);
        QCOMPARE(m_bar->property(kHoverProperty), QVariant(false));
        QCOMPARE(int(QcScrollBar::DisplayOnHover), 0);
        QCOMPARE(int(QcScrollBar::DisplayAlways), 1);
    }

    void two_bars_of_one_area_overlap_in_its_corner()
    {
        const QcScrollBar horizontal(Qt::Horizontal, m_area);
        QCOMPARE(m_bar->geometry() & horizontal.geometry(), QRect(188, 138, 10, 10));
    }

    void it_stands_at_the_right_edge_also_right_to_left()
    {
        m_area->setLayoutDirection(Qt::RightToLeft);
        DrainEvents();
        QCOMPARE(m_bar->geometry(), QRect(188, 2, 10, 146));
    }

    void it_follows_the_size_of_its_parent()
    {
        m_area->resize(120, 80);
        QCOMPARE(m_bar->geometry(), QRect(108, 2, 10, 76));
    }

    void a_parent_too_small_for_the_margins_leaves_the_length()
    {
        QcScrollBar horizontal(Qt::Horizontal, m_area);
        m_area->resize(4, 4);
        QCOMPARE(m_bar->size(), QSize(10, 146));
        QCOMPARE(horizontal.size(), QSize(196, 10));
        m_area->resize(5, 5);
        QCOMPARE(m_bar->size(), QSize(10, 1));
        QCOMPARE(horizontal.size(), QSize(1, 10));
    }

    void all_bars_share_one_style()
    {
        const QcScrollBar other(Qt::Horizontal, m_area);
        QVERIFY(m_bar->style()->inherits("QStyleSheetStyle") && other.style()->inherits("QStyleSheetStyle"));
        QVERIFY(BaseStyleOf(*m_bar)->inherits("QFusionStyle"));
        QCOMPARE(BaseStyleOf(other), BaseStyleOf(*m_bar));
    }

    // --- Mirroring ---

    void nothing_is_copied_when_the_original_is_set()
    {
        m_original->setRange(0, 500);
        m_original->setValue(50);
        m_original->setPageStep(70);
        m_bar->SetOriginalScrollBar(m_original.get());
        QCOMPARE(m_bar->maximum(), 99);
        QCOMPARE(m_bar->value(), 0);
        QCOMPARE(m_bar->pageStep(), 10);
        QVERIFY(m_bar->isHidden());
    }

    void the_first_range_brings_range_value_and_steps()
    {
        m_original->setRange(0, 500);
        m_original->setValue(450);
        m_original->setPageStep(70);
        m_original->setSingleStep(20);
        m_bar->SetOriginalScrollBar(m_original.get());
        m_original->setRange(-5, 1000);
        QCOMPARE(m_bar->minimum(), -5);
        QCOMPARE(m_bar->maximum(), 1000);
        QCOMPARE(m_bar->value(), 450);
        QCOMPARE(m_bar->pageStep(), 70);
        QCOMPARE(m_bar->singleStep(), 20);
        QVERIFY(m_bar->isVisible());
    }

    void a_value_beyond_a_range_not_yet_mirrored_stays_the_originals()
    {
        m_original->setRange(0, 1000);
        m_bar->SetOriginalScrollBar(m_original.get());
        m_original->setValue(500);
        QCOMPARE(m_original->value(), 500);
        QCOMPARE(m_bar->value(), 99); // all that it can show for now
        m_original->setRange(0, 2000);
        QCOMPARE(m_original->value(), 500);
        QCOMPARE(m_bar->value(), 500);
        m_bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        QCOMPARE(m_original->value(), 501);
    }

    void steps_follow_with_each_value_and_when_the_bar_shows()
    {
        Fill();
        m_original->setPageStep(33);
        m_original->setSingleStep(4);
        m_original->setValue(1);
        QCOMPARE(m_bar->pageStep(), 33);
        QCOMPARE(m_bar->singleStep(), 4);
        m_original->setPageStep(44);
        m_original->setSingleStep(5);
        m_bar->hide();
        m_bar->show();
        QCOMPARE(m_bar->pageStep(), 44);
        QCOMPARE(m_bar->singleStep(), 5);
    }

    void only_a_maximum_above_0_shows_the_bar()
    {
        m_bar->SetOriginalScrollBar(m_original.get());
        m_original->setRange(-5, 3);
        QVERIFY(m_bar->isVisible());
        m_original->setRange(-5, 0);
        QVERIFY(m_bar->isHidden());
        m_original->setRange(0, 1);
        QVERIFY(m_bar->isVisible());
        m_original->setRange(0, 0);
        QVERIFY(m_bar->isHidden());
    }

    void a_drag_of_the_handle_scrolls_the_original_and_comes_to_rest()
    {
        Fill();
        QSignalSpy originals(m_original.get(), &QScrollBar::valueChanged);
        QSignalSpy own(m_bar, &QScrollBar::valueChanged);
        QTest::mousePress(m_bar, Qt::LeftButton, Qt::NoModifier, QPoint(8, 5));
        QMouseEvent move(QEvent::MouseMove, QPoint(8, 45), m_bar->mapToGlobal(QPoint(8, 45)), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_bar, &move);
        QVERIFY(m_bar->value() > 0);
        QCOMPARE(m_original->value(), m_bar->value());
        QCOMPARE(originals.count(), 1);
        QCOMPARE(own.count(), 1);
        QTest::mouseRelease(m_bar, Qt::LeftButton, Qt::NoModifier, QPoint(8, 45));
        QCOMPARE(originals.count(), 1);
    }

    void a_value_set_by_the_host_reaches_the_original()
    {
        Fill();
        m_bar->setValue(120);
        QCOMPARE(m_original->value(), 120);
        QMetaObject::invokeMethod(m_bar, "OnCurrentScrollBarValueChanged", Q_ARG(int, 130));
        QCOMPARE(m_original->value(), 130);
        QCOMPARE(m_bar->value(), 130);
    }

    void a_value_set_by_the_host_while_the_bar_follows_reaches_the_original_data()
    {
        QTest::addColumn<bool>("isRange");
        QTest::newRow("a value is followed") << false;
        QTest::newRow("a range is followed") << true;
    }

    void a_value_set_by_the_host_while_the_bar_follows_reaches_the_original()
    {
        QFETCH(bool, isRange);
        Fill();
        m_original->setValue(isRange ? 290 : 0);
        connect(m_bar, &QScrollBar::valueChanged, this, [this](int value) { m_bar->setValue(value / 10 * 10); }); // snaps
        if (isRange)
            m_original->setRange(0, 137);
        else
            m_original->setValue(137);
        QCOMPARE(m_bar->value(), 130);
        QCOMPARE(m_original->value(), 130);
        m_original->setValue(42);
        QCOMPARE(m_bar->value(), 40);
        QCOMPARE(m_original->value(), 40);
    }

    void the_user_may_scroll_on_in_a_handler_of_the_host()
    {
        Fill();
        QVector<int> scrolled = {70, 37};
        connect(m_bar, &QScrollBar::valueChanged, this, [&] {
            while (!scrolled.isEmpty())
                m_bar->setValue(scrolled.takeFirst()); // as in an event loop of its own
        });
        m_original->setValue(37);
        QCOMPARE(m_bar->value(), 37);
        QCOMPARE(m_original->value(), 37); // also back to where it began
    }

    void the_same_original_again_connects_once()
    {
        Counted<QScrollBar> original;
        Counted<QcScrollBar> bar(Qt::Vertical, m_area);
        const int before = bar.Receivers(SIGNAL(valueChanged(int)));
        const int originals = original.Receivers(SIGNAL(valueChanged(int)));
        bar.SetOriginalScrollBar(nullptr);
        QCOMPARE(bar.Receivers(SIGNAL(valueChanged(int))), before);
        for (int i = 0; i < 2; ++i) {
            bar.SetOriginalScrollBar(&original);
            QCOMPARE(bar.Receivers(SIGNAL(valueChanged(int))), before + 1);
            QCOMPARE(original.Receivers(SIGNAL(valueChanged(int))), originals + 1);
            QCOMPARE(original.Receivers(SIGNAL(rangeChanged(int, int))), 1);
        }
        bar.SetOriginalScrollBar(nullptr);
        QCOMPARE(original.Receivers(SIGNAL(rangeChanged(int, int))), 1);
    }

    void another_original_takes_over()
    {
        Counted<QcScrollBar> bar(Qt::Vertical, m_area);
        bar.SetOriginalScrollBar(m_original.get());
        m_original->setRange(0, 300);
        const int receivers = bar.Receivers(SIGNAL(valueChanged(int)));
        QScrollBar other;
        bar.SetOriginalScrollBar(&other);
        QCOMPARE(bar.Receivers(SIGNAL(valueChanged(int))), receivers);
        m_original->setRange(0, 77);
        m_original->setValue(7);
        QCOMPARE(bar.maximum(), 300);
        QCOMPARE(bar.value(), 0);
        other.setRange(0, 800);
        QCOMPARE(bar.maximum(), 800);
        bar.setValue(600);
        QCOMPARE(other.value(), 600);
        QCOMPARE(m_original->value(), 7);
    }

    void the_wheel_goes_as_far_over_the_bar_as_over_the_area()
    {
        QScrollArea area(m_window.get());
        auto *content = new QLabel;
        content->setFixedSize(50, 2000);
        area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        QcScrollBar bar(Qt::Vertical, &area);
        bar.SetOriginalScrollBar(area.verticalScrollBar());
        area.setWidget(content);
        area.resize(100, 100);
        area.show();
        DrainEvents();
        QVERIFY(bar.isVisible());
        Wheel(*area.viewport());
        const int distance = area.verticalScrollBar()->value();
        QVERIFY(distance > 3);
        Wheel(bar);
        QCOMPARE(area.verticalScrollBar()->value(), 2 * distance);
    }

    // --- The handle ---

    void the_handle_shows_while_the_mouse_is_over_the_parent_and_widens_below_it()
    {
        Fill();
        const QColor ground(40, 60, 90);
        QPalette palette;
        palette.setColor(QPalette::Window, ground);
        m_area->setPalette(palette);
        m_area->setAutoFillBackground(true);
        const int left = m_bar->x();
        // From left to right: outside of the wide handle, in it, in the thin one as well.
        const auto look = [&] {
            const QImage image = Render(*m_area);
            return QVector<QColor>{PixelAt(image, QPointF(left + 1, 12)), PixelAt(image, QPointF(left + 4, 12)),
                                   PixelAt(image, QPointF(left + 8, 12))};
        };
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QColor handle = Over(TokenOf(table, QStringLiteral("base/neutral/neutral-50")), ground);
            MoveCursorAway();
            QVERIFY(!IsHandleShown(*m_bar));
            for (const QColor &color : look())
                COMPARE_COLOR(color, ground);

            MoveCursorTo(QPoint(50, 100));
            QVERIFY(IsHandleShown(*m_bar));
            QVector<QColor> colors = look();
            COMPARE_COLOR(colors[0], ground);
            COMPARE_COLOR(colors[1], ground);
            COMPARE_COLOR(colors[2], handle);

            MoveCursorTo(QPoint(left + 8, 12));
            QVERIFY(IsHandleShown(*m_bar));
            colors = look();
            COMPARE_COLOR(colors[0], ground);
            COMPARE_COLOR(colors[1], handle);
            COMPARE_COLOR(colors[2], handle);
        }
    }

    void the_handle_of_a_bar_below_is_thin_and_widens_as_well()
    {
        delete m_bar;
        m_bar = new QcScrollBar(Qt::Horizontal, m_area);
        m_area->resize(200, 120); // where the test's platform finds the cursor at each scale
        Fill();
        const QColor ground(40, 60, 90);
        const QColor handle = Over(TokenOf(Table::Light, QStringLiteral("base/neutral/neutral-50")), ground);
        QPalette palette;
        palette.setColor(QPalette::Window, ground);
        m_area->setPalette(palette);
        m_area->setAutoFillBackground(true);
        const int top = m_bar->y();
        const auto look = [&] {
            const QImage image = Render(*m_area);
            return QVector<QColor>{PixelAt(image, QPointF(12, top + 1)), PixelAt(image, QPointF(12, top + 4)),
                                   PixelAt(image, QPointF(12, top + 8))};
        };
        MoveCursorTo(QPoint(50, 100));
        QVector<QColor> colors = look();
        COMPARE_COLOR(colors[0], ground);
        COMPARE_COLOR(colors[1], ground);
        COMPARE_COLOR(colors[2], handle);
        MoveCursorTo(QPoint(12, top + 8));
        colors = look();
        COMPARE_COLOR(colors[0], ground);
        COMPARE_COLOR(colors[1], handle);
        COMPARE_COLOR(colors[2], handle);
    }

    void a_mode_of_always_shows_the_handle_from_the_next_event_on()
    {
        Fill();
        m_bar->setDisplayModeM(QcScrollBar::DisplayAlways);
        QCOMPARE(m_bar->getDisplayModeM(), QcScrollBar::DisplayAlways);
        DrainEvents();
        QVERIFY(!IsHandleShown(*m_bar));
        m_original->setRange(0, 301);
        QVERIFY(IsHandleShown(*m_bar));
        m_bar->setDisplayModeM(QcScrollBar::DisplayOnHover);
        QVERIFY(IsHandleShown(*m_bar));
        MoveCursorTo(QPoint(50, 100));
        MoveCursorAway();
        QVERIFY(!IsHandleShown(*m_bar));
    }

    void an_unknown_mode_is_stored_and_means_on_hover()
    {
        Fill();
        m_bar->setDisplayModeM(ModeOf(7));
        QCOMPARE(int(m_bar->getDisplayModeM()), 7);
        m_original->setRange(0, 301);
        QVERIFY(!IsHandleShown(*m_bar));
    }

    void the_handle_repaints_only_when_it_comes_or_goes()
    {
        Fill();
        DrainEvents();
        EventCounter paints(*m_bar, QEvent::Paint);
        MoveCursorTo(QPoint(50, 100));
        QCOMPARE(paints.Take(), 1);
        MoveCursorTo(QPoint(60, 100));
        QCOMPARE(paints.Take(), 0);
        MoveCursorAway();
        QCOMPARE(paints.Take(), 1);
    }

    // --- Places ---

    void a_viewport_set_later_does_not_cover_the_bar()
    {
        QScrollArea area(m_window.get());
        area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        QcScrollBar bar(Qt::Vertical, &area);
        bar.SetOriginalScrollBar(area.verticalScrollBar());
        area.setViewport(new QWidget);
        auto *content = new QLabel;
        content->setFixedSize(50, 2000);
        area.setWidget(content);
        area.resize(100, 100);
        area.show();
        DrainEvents();
        QCOMPARE(area.childAt(bar.geometry().center()), &bar);
        area.setViewport(new QWidget);
        area.verticalScrollBar()->setRange(0, 100);
        QCOMPARE(area.childAt(bar.geometry().center()), &bar);
        bar.hide();
        area.setViewport(new QWidget);
        bar.show();
        QCOMPARE(area.childAt(bar.geometry().center()), &bar);
    }

    void a_bar_on_a_viewport_stays_where_it_is_while_that_scrolls()
    {
        QStringList rows;
        for (int i = 0; i < 100; ++i)
            rows << QString::number(i);
        QStringListModel model(rows);
        QListView view(m_window.get());
        view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        QcScrollBar bar(Qt::Vertical, view.viewport());
        bar.SetOriginalScrollBar(view.verticalScrollBar());
        view.setModel(&model);
        view.resize(150, 100);
        view.show();
        DrainEvents();
        QVERIFY(bar.isVisible());
        const QRect place = bar.geometry();
        view.verticalScrollBar()->setValue(40);
        QCOMPARE(bar.geometry(), place);
    }

    void a_new_parent_is_followed_in_place_of_the_old_one()
    {
        Fill();
        QWidget other(m_window.get());
        other.setGeometry(110, 0, 80, 60);
        other.show();
        m_bar->setParent(&other);
        QCOMPARE(m_bar->geometry(), QRect(68, 2, 10, 56));
        m_area->resize(100, 100);
        QCOMPARE(m_bar->geometry(), QRect(68, 2, 10, 56));
        other.resize(80, 90);
        QCOMPARE(m_bar->geometry(), QRect(68, 2, 10, 86));
        m_bar->show();
        MoveCursorOver(*m_area);
        QVERIFY(!IsHandleShown(*m_bar));
        MoveCursorOver(other);
        QVERIFY(IsHandleShown(*m_bar));
        m_bar->setParent(m_area);
        QVERIFY(!IsHandleShown(*m_bar));
        QCOMPARE(m_bar->geometry(), QRect(88, 2, 10, 96));
    }

    void a_former_parent_is_watched_no_longer()
    {
        QWidget other;
        Filtering bar(Qt::Vertical, m_area);
        bar.setParent(&other);
        bar.filtered = 0;
        m_area->resize(100, 100);
        QCOMPARE(bar.filtered, 0);
        other.setWindowTitle(QStringLiteral("watched"));
        QVERIFY(bar.filtered > 0);
        bar.setParent(m_area);
        bar.filtered = 0;
        other.setWindowTitle(QStringLiteral("left"));
        QCOMPARE(bar.filtered, 0);
    }

    void the_mouse_over_anything_but_the_parent_says_nothing()
    {
        Fill();
        QWidget other;
        other.installEventFilter(m_bar);
        m_bar->setDisplayModeM(QcScrollBar::DisplayAlways);
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        QCoreApplication::sendEvent(&other, &enter);
        QVERIFY(!IsHandleShown(*m_bar));
        QCoreApplication::sendEvent(m_area, &enter);
        QVERIFY(IsHandleShown(*m_bar));
    }

    // --- Hostile hosts ---

    void an_original_that_dies_leaves_the_bar_as_it_is()
    {
        Fill();
        m_original.reset();
        m_bar->setValue(50);
        m_bar->hide();
        m_bar->show();
        QCOMPARE(m_bar->value(), 50);
        QCOMPARE(m_bar->pageStep(), 40);
        QMetaObject::invokeMethod(m_bar, "OnCurrentScrollBarValueChanged", Q_ARG(int, 3));
        QMetaObject::invokeMethod(m_bar, "OnOriginalScrollBarRangeChanged", Q_ARG(int, 0), Q_ARG(int, 9));
        QCOMPARE(m_bar->maximum(), 9);
        QCOMPARE(m_bar->pageStep(), 0);
        QScrollBar next;
        m_bar->SetOriginalScrollBar(&next);
        next.setRange(0, 50);
        m_bar->setValue(20);
        QCOMPARE(next.value(), 20);
    }

    void a_bar_that_is_its_own_original_scrolls()
    {
        m_bar->SetOriginalScrollBar(m_bar);
        m_bar->setRange(0, 500);
        QVERIFY(m_bar->isVisible());
        m_bar->setValue(70);
        QCOMPARE(m_bar->value(), 70);
        m_bar->setRange(0, 0);
        QVERIFY(m_bar->isHidden());
    }

    void a_bar_without_a_parent_mirrors_as_a_window()
    {
        QcScrollBar bar(Qt::Vertical, nullptr);
        QCOMPARE(bar.width(), 10);
        bar.SetOriginalScrollBar(m_original.get());
        m_original->setRange(0, 300);
        m_original->setValue(30);
        QCOMPARE(bar.value(), 30);
        QVERIFY(bar.isVisible() && bar.isWindow());
    }

    void a_bar_may_get_its_parent_late_and_lose_it_again()
    {
        QcScrollBar bar(Qt::Vertical, nullptr);
        bar.setParent(m_area);
        QCOMPARE(bar.geometry(), QRect(188, 2, 10, 146));
        bar.setParent(nullptr);
        m_area->resize(100, 100);
        QCOMPARE(bar.height(), 146);
    }

    void a_parent_that_dies_takes_the_bar_along()
    {
        Fill();
        const QPointer<QcScrollBar> bar(m_bar);
        delete m_area;
        QVERIFY(!bar);
        m_original->setRange(0, 400);
        m_original->setValue(50);
        QCOMPARE(m_original->value(), 50);
    }

    void a_range_that_shrinks_during_a_drag_moves_the_original_no_further_than_that()
    {
        Fill();
        QTest::mousePress(m_bar, Qt::LeftButton, Qt::NoModifier, QPoint(8, 5));
        QMouseEvent move(QEvent::MouseMove, QPoint(8, 90), m_bar->mapToGlobal(QPoint(8, 90)), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_bar, &move);
        QVERIFY(m_original->value() > 20);
        m_original->setRange(0, 20);
        QCOMPARE(m_original->value(), 20);
        QCOMPARE(m_bar->value(), 20);
        m_original->setRange(0, 300);
        QCOMPARE(m_original->value(), 20);
        m_original->setRange(0, 0);
        QTest::mouseRelease(m_bar, Qt::LeftButton, Qt::NoModifier, QPoint(8, 90));
        QCOMPARE(m_bar->value(), 0);
    }

    void two_bars_on_one_original_agree()
    {
        Fill();
        QcScrollBar other(Qt::Vertical, m_area);
        other.SetOriginalScrollBar(m_original.get());
        m_original->setRange(0, 400);
        other.setValue(200);
        QCOMPARE(m_bar->value(), 200);
        m_bar->setValue(100);
        QCOMPARE(other.value(), 100);
        QCOMPARE(m_original->value(), 100);
    }

    void a_handler_may_delete_the_bar_while_it_follows_the_original()
    {
        Fill();
        m_original->setValue(250);
        connect(m_bar, &QScrollBar::valueChanged, this, [this] { delete m_bar; });
        const QPointer<QcScrollBar> bar(m_bar);
        m_original->setRange(0, 200); // which takes the value along
        QVERIFY(!bar);
        QCOMPARE(m_original->value(), 200);
    }

    void a_handler_may_delete_the_bar_as_it_follows_a_value()
    {
        Fill();
        connect(m_bar, &QScrollBar::valueChanged, this, [this] { delete m_bar; });
        const QPointer<QcScrollBar> bar(m_bar);
        m_original->setValue(200);
        QVERIFY(!bar);
    }

    // --- Assistive technology ---

    void a_screen_reader_sees_a_scroll_bar_and_its_value()
    {
        Fill();
        m_original->setValue(30);
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(m_bar);
        QVERIFY(accessible);
        QCOMPARE(accessible->role(), QAccessible::ScrollBar);
        QVERIFY(accessible->valueInterface());
        QCOMPARE(accessible->valueInterface()->currentValue().toInt(), 30);
        QCOMPARE(accessible->valueInterface()->maximumValue().toInt(), 300);
        accessible->valueInterface()->setCurrentValue(60);
        QCOMPARE(m_original->value(), 60);
    }

private:
    void SetUp() override
    {
        MoveCursorAway();
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(kWindowPlace);
        m_area = new QWidget(m_window.get());
        m_area->resize(200, 150);
        m_bar = new QcScrollBar(Qt::Vertical, m_area);
        m_original = std::make_unique<QScrollBar>();
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        DrainEvents();
    }

    void TearDown() override
    {
        m_window.reset();
        m_original.reset();
        UseTable(Table::Light);
    }

    /// As an area that is filled after its bar was set up.
    void Fill()
    {
        m_bar->SetOriginalScrollBar(m_original.get());
        m_original->setPageStep(40);
        m_original->setRange(0, 300);
        DrainEvents();
    }

    void MoveCursorTo(const QPoint &place)
    {
        QCursor::setPos(m_area->mapToGlobal(place));
        DrainEvents();
    }

    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<QScrollBar> m_original;
    QWidget *m_area = nullptr;
    QcScrollBar *m_bar = nullptr;
};

VELMORA_TEST_MAIN(TestQcScrollBar)

#include "tst_QcScrollBar.moc"
