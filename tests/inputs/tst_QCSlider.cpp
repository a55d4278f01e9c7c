#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include "buttons/ControlTest.h"

#include <Velmora/ImageParams.h>
#include <Velmora/QCSlider.h>
#include <Velmora/QcFrame.h>

#include <QAccessible>
#include <QPainter>
#include <QPointer>
#include <QSignalSpy>
#include <QStyleFactory>
#include <QStyleOptionSlider>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <limits>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// What a slider shows in one state.
struct SliderLook
{
    const char *groove;
    const char *active;
    int handle;
    const char *disc;
    const char *ring;
};

constexpr SliderLook kDisabled = {"border/border_secondary_disabled", "brand/brand_disable", 10, "brand/brand_disable",
                                  "border/border_disable"};
constexpr SliderLook kNormal = {"border/border_secondary", "brand/brand", 10, "brand/brand", "border/border_normal"};
constexpr SliderLook kHovered = {"border/border_secondary", "brand/brand", 12, "brand/brand_hover", "border/border_normal"};
constexpr SliderLook kPressed = {"border/border_secondary", "brand/brand", 12, "brand/brand_press", "border/border_normal"};

/// Horizontal; a vertical one is turned. The groove is 100 long.
constexpr QSize kSize(110, 24);

/// Where the style puts the handle of \a slider.
QRect HandlePlace(const QSlider &slider)
{
    struct Opened : QSlider
    {
        static void Init(const QSlider &slider, QStyleOptionSlider *option) { (slider.*(&Opened::initStyleOption))(option); }
    };
    QStyleOptionSlider option;
    Opened::Init(slider, &option);
    return slider.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider);
}

ImageParams HandleImage(const SliderLook &look)
{
    ImageParams image;
    image.path = QStringLiteral(":/images/slider/slider_handle.svg");
    image.size = QSize(look.handle, look.handle);
    image.mulColor.insert(QStringLiteral("#005CD1"), ColorParams(look.disc));
    image.mulColor.insert(QStringLiteral("#FFFFFF"), ColorParams(look.ring));
    return image;
}

/// \a canvas with a slider on it, its bars at \a groove and \a active, its handle's corner at \a handle.
QImage Painted(QImage canvas, Table table, const SliderLook &look, const QRect &groove, const QRect &active, const QPoint &handle)
{
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(TokenOf(table, QLatin1String(look.groove)));
    painter.drawRoundedRect(groove, 2, 2);
    painter.setBrush(TokenOf(table, QLatin1String(look.active)));
    painter.drawRoundedRect(active, 2, 2);
    PaintCrisply(painter, QRect(handle, QSize(look.handle, look.handle)), HandleImage(look));
    painter.end();
    return canvas;
}

} // namespace

class TestQCSlider : public ControlTest<QCSlider>
{
    Q_OBJECT

private:
    /// What a horizontal slider at 40 of 100 shows.
    QImage Expected(Table table, const SliderLook &look) const
    {
        const QPoint handle(HandlePlace(*m_control).x(), 12 - look.handle / 2);
        return Painted(Canvas(*m_control), table, look, QRect(5, 10, 100, 4), QRect(5, 10, 40, 4), handle);
    }

    /// Moves the mouse with the left button held; QTest moves it without.
    void Drag(const QPoint &place)
    {
        QMouseEvent move(QEvent::MouseMove, place, m_control->mapToGlobal(place), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_control, &move);
    }

    QColor Groove() const { return Over(TokenOf(Table::Light, QLatin1String(kNormal.groove))); }
    QColor Active() const { return Over(TokenOf(Table::Light, QLatin1String(kNormal.active))); }

    /// What a horizontal slider filled over \a active shows.
    QImage Filled(const QRect &active) const
    {
        return Painted(Canvas(*m_control), Table::Light, kNormal, QRect(5, 10, 100, 4), active, QPoint(HandlePlace(*m_control).x(), 7));
    }

    QImage FilledNowhere() const { return Filled(QRect()); }

protected:
    void Prepare() override
    {
        m_control->setGeometry(QRect(QPoint(10, 10), kSize));
        m_control->setRange(0, 100);
        m_control->setValue(40);
    }

private Q_SLOTS:
    void a_new_slider_is_one_of_qt()
    {
        QCSlider slider;
        QSlider plain(Qt::Horizontal);
        QCOMPARE(slider.orientation(), Qt::Horizontal);
        QCOMPARE(QCSlider(Qt::Vertical).orientation(), Qt::Vertical);
        QCOMPARE(slider.sizeHint(), plain.sizeHint());
        QCOMPARE(slider.focusPolicy(), plain.focusPolicy());
        QCOMPARE(slider.maximum(), plain.maximum());
        QVERIFY(slider.styleSheet().isEmpty());
    }

    // --- Looks ---

    void each_state_has_its_colours_and_its_handle()
    {
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            QCOMPARE(Render(*m_control), Expected(table, kNormal));
            MoveCursorOver(*m_control);
            QCOMPARE(Render(*m_control), Expected(table, kHovered));
            QTest::mousePress(m_control, Qt::RightButton); // any button, which moves nothing
            QCOMPARE(Render(*m_control), Expected(table, kPressed));
            m_control->setEnabled(false);
            QCOMPARE(Render(*m_control), Expected(table, kDisabled));
            m_control->setEnabled(true);
            QCOMPARE(Render(*m_control), Expected(table, kPressed));
            QTest::mouseRelease(m_control, Qt::RightButton);
            QCOMPARE(Render(*m_control), Expected(table, kHovered));
            MoveCursorAway();
            QCOMPARE(Render(*m_control), Expected(table, kNormal));
        }
    }

    void the_bars_are_where_they_belong()
    {
        const QImage image = Render(*m_control);
        COMPARE_COLOR(PixelAt(image, QPointF(20.5, 12.5)), Active());
        COMPARE_COLOR(PixelAt(image, QPointF(90.5, 12.5)), Groove());
        const QRectF ink = InkBox(Part(image, QRectF(60, 0, 50, 24)), Qt::white);
        QVERIFY(qAbs(ink.right() + 60 - 105) < 0.7); // a pixel at scale 1.5
        QVERIFY(qAbs(ink.top() - 10) < 0.7);
        QVERIFY(qAbs(ink.bottom() - 14) < 0.7);
    }

    void a_vertical_slider_is_filled_from_the_bottom()
    {
        QCSlider slider(Qt::Vertical);
        slider.resize(kSize.transposed());
        slider.setRange(0, 100);
        slider.setValue(40);
        const QPoint handle(7, HandlePlace(slider).y());
        QCOMPARE(Render(slider), Painted(Canvas(slider), Table::Light, kNormal, QRect(10, 5, 4, 100), QRect(10, 64, 4, 41), handle));
    }

    void the_handle_is_as_sharp_as_the_screen()
    {
        const QPoint handle(HandlePlace(*m_control).x(), 7);
        QImage canvas(kSize * 2, QImage::Format_ARGB32_Premultiplied);
        canvas.setDevicePixelRatio(2);
        canvas.fill(Qt::white);
        const QImage expected = Painted(canvas, Table::Light, kNormal, QRect(5, 10, 100, 4), QRect(5, 10, 40, 4), handle);
        QCOMPARE(RenderAt(*m_control, 2), expected.convertToFormat(RenderAt(*m_control, 2).format()));
    }

    void the_fill_follows_the_value()
    {
        m_control->setValue(0);
        QCOMPARE(Render(*m_control), FilledNowhere());
        m_control->setValue(100);
        QCOMPARE(Render(*m_control), Filled(QRect(5, 10, 100, 4)));
        m_control->setRange(-100, 100);
        m_control->setValue(0);
        QCOMPARE(Render(*m_control), Filled(QRect(5, 10, 50, 4)));
        m_control->setRange(0, 3);
        m_control->setValue(2);
        QCOMPARE(Render(*m_control), Filled(QRect(5, 10, 66, 4))); // whole pixels, cut
    }

    void a_range_of_one_value_is_filled_nowhere()
    {
        m_control->setRange(5, 5);
        QCOMPARE(Render(*m_control), FilledNowhere());
        m_control->setOrientation(Qt::Vertical);
        m_control->resize(kSize.transposed());
        const QPoint handle(7, HandlePlace(*m_control).y());
        // An upright bar is always one pixel high.
        QCOMPARE(Render(*m_control),
                 Painted(Canvas(*m_control), Table::Light, kNormal, QRect(10, 5, 4, 100), QRect(10, 104, 4, 1), handle));
    }

    void a_range_wider_than_an_int_is_painted_as_any_other_data()
    {
        QTest::addColumn<int>("least");
        QTest::addColumn<int>("most");
        QTest::newRow("all ints") << std::numeric_limits<int>::min() << std::numeric_limits<int>::max();
        QTest::newRow("up to 0") << std::numeric_limits<int>::min() << 0; // which Qt would divide by zero for
        QTest::newRow("from -1 on") << -1 << std::numeric_limits<int>::max();
    }

    void a_range_wider_than_an_int_is_painted_as_any_other()
    {
        QFETCH(int, least);
        QFETCH(int, most);
        QVector<QImage> expected;
        constexpr int kMost = std::numeric_limits<int>::max();
        m_control->setRange(0, kMost);
        for (const int value : {0, kMost / 2 + 1, kMost}) {
            m_control->setValue(value);
            expected << Render(*m_control);
        }
        m_control->setRange(least, most);
        int i = 0;
        for (const int value : {least, int((qint64(least) + most + 1) / 2), most}) {
            m_control->setValue(value);
            QCOMPARE(Render(*m_control), expected.at(i++));
        }
    }

    void an_inverted_slider_is_filled_from_the_left_all_the_same()
    {
        const QRect place = HandlePlace(*m_control);
        m_control->setInvertedAppearance(true);
        QVERIFY(HandlePlace(*m_control) != place);
        const QImage image = Render(*m_control);
        COMPARE_COLOR(PixelAt(image, QPointF(20.5, 12.5)), Active());
        COMPARE_COLOR(PixelAt(image, QPointF(90.5, 12.5)), Groove());
    }

    void a_right_to_left_slider_is_mirrored()
    {
        for (const int value : {0, 40, 100}) {
            m_control->setValue(value);
            m_control->setLayoutDirection(Qt::LeftToRight);
            const int fromLeft = HandlePlace(*m_control).x();
            m_control->setLayoutDirection(Qt::RightToLeft);
            QCOMPARE(Render(*m_control),
                     Painted(Canvas(*m_control), Table::Light, kNormal, QRect(5, 10, 100, 4), QRect(105 - value, 10, value, 4),
                             QPoint(110 - 10 - fromLeft, 7)));
        }
    }

    void a_vertical_slider_has_no_reading_direction()
    {
        QCSlider slider(Qt::Vertical);
        slider.resize(kSize.transposed());
        slider.setValue(40);
        const QImage before = Render(slider);
        slider.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(Render(slider), before);
    }

    void a_slider_smaller_than_its_margins_paints_no_bar()
    {
        for (const QSize &size : {QSize(0, 0), QSize(1, 1), QSize(6, 24), QSize(10, 24)}) {
            m_control->setFixedSize(size);
            for (const Qt::Orientation orientation : {Qt::Vertical, Qt::Horizontal}) {
                m_control->setOrientation(orientation);
                Render(*m_window);
            }
        }
        m_control->setFixedSize(4, 24);
        m_control->setEnabled(false); // a handle that is seen through
        const QPoint handle(HandlePlace(*m_control).x(), 7);
        QCOMPARE(Render(*m_control), Painted(Canvas(*m_control), Table::Light, kDisabled, QRect(), QRect(), handle));
    }

    void the_handle_is_where_the_style_says()
    {
        const std::unique_ptr<QStyle> windows(QStyleFactory::create(QStringLiteral("Windows")));
        m_control->setStyle(windows.get());
        const QPoint handle(HandlePlace(*m_control).x(), 7);
        QCOMPARE(Render(*m_control), Painted(Canvas(*m_control), Table::Light, kNormal, QRect(5, 10, 100, 4), QRect(5, 10, 40, 4), handle));
        delete m_control;
        m_control = nullptr;
    }

    // --- States ---

    void a_slider_made_disabled_looks_enabled_until_that_changes()
    {
        m_window->setEnabled(false);
        auto *slider = new QCSlider(m_window.get());
        slider->setGeometry(10, 50, kSize.width(), kSize.height());
        slider->setRange(0, 100);
        slider->setValue(40);
        QVERIFY(!slider->isEnabled());
        QCOMPARE(Render(*slider), Expected(Table::Light, kNormal));
        slider->show();
        m_window->setEnabled(true);
        m_window->setEnabled(false);
        QCOMPARE(Render(*slider), Expected(Table::Light, kDisabled));
    }

    void a_press_shows_wherever_the_mouse_is_dragged()
    {
        const QPoint handle = HandlePlace(*m_control).center();
        MoveCursorOver(*m_control);
        QTest::mousePress(m_control, Qt::LeftButton, Qt::NoModifier, handle);
        Drag(QPoint(handle.x(), 180));
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(m_control, &leave);
        m_control->setValue(40);
        QCOMPARE(Render(*m_control), Expected(Table::Light, kPressed));
        QTest::mouseRelease(m_control, Qt::LeftButton, Qt::NoModifier, QPoint(handle.x(), 180));
        m_control->setValue(40);
        QCOMPARE(Render(*m_control), Expected(Table::Light, kNormal));
    }

    void enabling_brings_back_what_the_mouse_does()
    {
        MoveCursorOver(*m_control);
        m_control->setEnabled(false);
        QCOMPARE(Render(*m_control), Expected(Table::Light, kDisabled));
        m_control->setEnabled(true);
        QCOMPARE(Render(*m_control), Expected(Table::Light, kHovered));
        m_control->setEnabled(false);
        MoveCursorAway();
        m_control->setEnabled(true);
        QCOMPARE(Render(*m_control), Expected(Table::Light, kNormal));
    }

    void a_slider_hidden_while_held_comes_back_at_rest()
    {
        MoveCursorOver(*m_control);
        QTest::mousePress(m_control, Qt::RightButton);
        m_control->hide();
        MoveCursorAway();
        m_control->show();
        DrainEvents();
        QCOMPARE(Render(*m_control), Expected(Table::Light, kNormal));
    }

    void every_change_that_shows_is_painted()
    {
        EventCounter paints(*m_control, QEvent::Paint);
        const auto isPainted = [&paints] {
            DrainEvents();
            return paints.Take() > 0;
        };
        isPainted();
        MoveCursorOver(*m_control);
        QVERIFY(isPainted());
        QTest::mousePress(m_control, Qt::RightButton);
        QVERIFY(isPainted());
        QTest::mouseRelease(m_control, Qt::RightButton);
        QVERIFY(isPainted());
        MoveCursorAway();
        QVERIFY(isPainted());
        m_control->setEnabled(false);
        QVERIFY(isPainted());
        m_control->setValue(41);
        QVERIFY(isPainted());
        QVERIFY(!isPainted()); // idle
    }

    void a_change_of_the_table_shows_with_what_lies_behind()
    {
        EventCounter paints(*m_control, QEvent::Paint);
        m_window->setAutoFillBackground(true);
        DrainEvents();
        paints.Take();
        UseTable(Table::Dark);
        DrainEvents();
        QCOMPARE(paints.Take(), 0);
        QCOMPARE(Render(*m_control), Expected(Table::Dark, kNormal));

        QcFrame frame(m_window.get());
        frame.resize(200, 100);
        frame.show();
        auto *inside = new QCSlider(&frame);
        inside->show();
        DrainEvents();
        EventCounter insidePaints(*inside, QEvent::Paint);
        UseTable(Table::Light);
        DrainEvents();
        QCOMPARE(insidePaints.Take(), 1);
    }

    // --- Wheel, keys, mouse ---

    void wheel_and_keys_move_it_as_they_move_a_slider_of_qt_data()
    {
        QTest::addColumn<bool>("isRightToLeft");
        QTest::addColumn<bool>("isVertical");
        QTest::newRow("left to right") << false << false;
        QTest::newRow("right to left") << true << false;
        QTest::newRow("vertical") << false << true;
    }

    void wheel_and_keys_move_it_as_they_move_a_slider_of_qt()
    {
        QFETCH(bool, isRightToLeft);
        QFETCH(bool, isVertical);
        QSlider plain(m_window.get());
        for (QSlider *slider : {static_cast<QSlider *>(m_control), &plain}) {
            slider->setOrientation(isVertical ? Qt::Vertical : Qt::Horizontal);
            slider->setLayoutDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
            slider->setRange(0, 100);
            slider->setValue(40);
        }
        QSet<int> values;
        for (const Qt::Key key :
             {Qt::Key_Right, Qt::Key_Up, Qt::Key_Left, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_End, Qt::Key_Home}) {
            for (QSlider *slider : {static_cast<QSlider *>(m_control), &plain})
                QTest::keyClick(slider, key);
            QCOMPARE(m_control->value(), plain.value());
            values.insert(m_control->value());
        }
        QVERIFY(values.size() > 3); // they do move it
        for (QSlider *slider : {static_cast<QSlider *>(m_control), &plain}) {
            slider->setValue(40);
            QWheelEvent event(QPointF(5, 5), slider->mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(slider, &event);
        }
        QCOMPARE(m_control->value(), plain.value());
        QVERIFY(m_control->value() != 40);
    }

    void a_drag_of_the_handle_moves_it()
    {
        const QPoint handle = HandlePlace(*m_control).center();
        QSignalSpy moves(m_control, &QSlider::sliderMoved);
        QTest::mousePress(m_control, Qt::LeftButton, Qt::NoModifier, handle);
        Drag(handle + QPoint(19, 0)); // a fifth of the way
        QTest::mouseRelease(m_control, Qt::LeftButton, Qt::NoModifier, handle + QPoint(19, 0));
        QCOMPARE(m_control->value(), 60);
        QVERIFY(moves.count() > 0);
    }

    void a_handler_may_delete_the_slider_later()
    {
        QPointer<QCSlider> slider = m_control;
        connect(m_control, &QSlider::valueChanged, m_control, &QObject::deleteLater);
        QTest::mouseClick(m_control, Qt::LeftButton, Qt::NoModifier, QPoint(100, 12)); // a page step
        DrainEvents();
        QVERIFY(!slider);
        m_control = nullptr;
    }

    // --- Assistive technology ---

    void assistive_technology_reads_and_sets_the_value()
    {
        m_control->setAccessibleName(QStringLiteral("Volume"));
        m_control->setSingleStep(5);
        QAccessibleInterface *described = QAccessible::queryAccessibleInterface(m_control);
        QVERIFY(described);
        QCOMPARE(described->role(), QAccessible::Slider);
        QCOMPARE(described->text(QAccessible::Name), QStringLiteral("Volume"));
        QVERIFY(described->state().focusable);
        QAccessibleValueInterface *value = described->valueInterface();
        QVERIFY(value);
        QCOMPARE(value->currentValue().toInt(), 40);
        QCOMPARE(value->minimumValue().toInt(), 0);
        QCOMPARE(value->maximumValue().toInt(), 100);
        QCOMPARE(value->minimumStepSize().toInt(), 5);
        value->setCurrentValue(55);
        QCOMPARE(m_control->value(), 55);
    }
};

VELMORA_TEST_MAIN(TestQCSlider)

#include "tst_QCSlider.moc"
