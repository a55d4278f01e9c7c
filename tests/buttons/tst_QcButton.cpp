#include "support/ColorValue.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/SquareIcon.h"
#include "support/TestMain.h"

#include "buttons/ControlTest.h"

#include <Velmora/QcButton.h>

#include <QFontMetrics>
#include <QMetaMethod>
#include <QPainter>
#include <QSignalSpy>

#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QStyle::State kNormal = QStyle::State_Enabled;

/// A button as a host derives it, with a variant's table of its own.
class HostButton : public QcButton
{
public:
    using QcButton::QcButton;

    QSize minimumSizeHint() const override { return hint.isValid() ? hint : QcButton::minimumSizeHint(); }

    std::function<void(HostButton &)> fill;
    QSize hint;
    int fills = 0;
    int filtered = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        ++filtered;
        return QcButton::eventFilter(watched, event);
    }

    void UpdateUiParams() override
    {
        ++fills;
        if (fill)
            fill(*this);
    }
};

/// An opaque colour for each look, and how a button paints in it.
QColor ColorOf(const Look &look)
{
    return QColor::fromHsv(int(&look - kLooks) * 40, 255, 200);
}

void SetBackgrounds(QcButton &button)
{
    for (const Look &look : kLooks)
        button.SetBackgroundColorParams(QStyle::State(look.key), ColorOf(look).name());
}

QFont BroadFont()
{
    QFont font;
    font.setPixelSize(60);
    font.setBold(true);
    return font;
}

/// What a button without colours has to look like, in the colour of the palette's button text.
QImage Reference(const QcButton &button, const std::function<void(QPainter &)> &paint)
{
    QImage image = Canvas(button);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(button.font());
    painter.setPen(button.palette().color(QPalette::ButtonText));
    paint(painter);
    return image;
}

} // namespace

class TestQcButton : public ControlTest<HostButton>
{
    Q_OBJECT

private Q_SLOTS:
    // --- Construction ---

    void a_new_button_has_its_fixed_measures()
    {
        const QcButton button;
        QCOMPARE(button.minimumHeight(), 24);
        QCOMPARE(button.maximumHeight(), 24);
        QCOMPARE(button.minimumWidth(), 0);
        QCOMPARE(button.font().pixelSize(), 12);
        QFont font;
        font.setPixelSize(12);
        QCOMPARE(button.font(), font);
        QCOMPARE(button.styleSheet(), QStringLiteral("Velmora--QcButton { padding: 0px; }"));
        QCOMPARE(button.minimumSizeHint(), QSize(8, 24)); // a margin of 4 on both sides
        QVERIFY(!button.isCheckable());
    }

    void a_plain_button_paints_its_text_in_the_palette_colour_and_nothing_else()
    {
        m_control->setText(QStringLiteral("I"));
        const QImage expected =
            Reference(*m_control, [&](QPainter &p) { p.drawText(m_control->rect(), Qt::AlignCenter, QStringLiteral("I")); });
        QVERIFY(!InkBox(expected, Qt::white).isNull());
        for (const Look &look : kLooks) {
            const auto button = MakeButton();
            button->setText(QStringLiteral("I"));
            BringTo(*button, look);
            // The palette's colour of a disabled button is the style's greyed one.
            const QImage image = Reference(*button, [&](QPainter &p) { p.drawText(button->rect(), Qt::AlignCenter, QStringLiteral("I")); });
            QVERIFY2(Render(*button) == image, look.name);
            LetGo(*button);
        }
    }

    void a_button_without_text_and_icon_paints_nothing() { QVERIFY(InkBox(Render(*m_control), Qt::white, 0).isNull()); }

    void the_corner_radius_is_four_at_first()
    {
        m_control->SetBackgroundColorParams(kNormal, QStringLiteral("#000000"));
        const auto rounded = [this](int radius) {
            return Reference(*m_control, [&](QPainter &p) {
                p.setPen(Qt::NoPen);
                p.setBrush(Qt::black);
                p.drawRoundedRect(m_control->rect(), radius, radius, Qt::AbsoluteSize);
            });
        };
        QCOMPARE(Render(*m_control), rounded(4));
        m_control->SetBorderRadius(9);
        QCOMPARE(Render(*m_control), rounded(9));
        m_control->SetBorderRadius(0);
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(0, 0)), QColor(Qt::black));
    }

    // --- The variant's table ---

    void the_table_is_filled_once_on_the_first_turn()
    {
        HostButton button;
        button.fill = [](HostButton &self) { self.SetBackgroundColorParams(kNormal, QStringLiteral("#00FF00")); };
        button.resize(60, 24);
        button.SetBackgroundColorParams(kNormal, QStringLiteral("#FF0000"));
        button.SetTextColorParams(kNormal, QStringLiteral("#0000FF"));
        button.setText(QStringLiteral("I"));
        QCOMPARE(button.fills, 0);
        COMPARE_COLOR(PixelAt(Render(button), QPointF(5, 12)), QColor(Qt::red));
        DrainEvents();
        QCOMPARE(button.fills, 1);
        COMPARE_COLOR(PixelAt(Render(button), QPointF(5, 12)), QColor(Qt::green)); // what the host set before is overwritten
        button.setFont(BroadFont());
        button.setFixedHeight(80);
        COMPARE_COLOR(InkColor(Part(Render(button), QRectF(10, 10, 40, 60)), QColor(Qt::green)),
                      QColor(Qt::blue)); // a key the table leaves alone stays
        button.SetBackgroundColorParams(kNormal, QStringLiteral("#FF00FF"));
        UseTable(Table::Dark);
        UseTable(Table::Light);
        QCOMPARE(button.fills, 1);
        COMPARE_COLOR(PixelAt(Render(button), QPointF(5, 12)), QColor(Qt::magenta)); // and so does what the host sets later
    }

    void a_button_that_dies_at_once_is_never_filled()
    {
        bool filled = false;
        {
            HostButton button;
            button.fill = [&filled](HostButton &) { filled = true; };
        }
        DrainEvents();
        QVERIFY(!filled);
    }

    // --- Size ---

    void the_width_is_counted_from_text_icon_and_margins()
    {
        const QString text = QStringLiteral("Some text");
        const int advance = QFontMetrics(m_control->font()).horizontalAdvance(text);
        QCOMPARE(m_control->minimumSizeHint(), QSize(8, 24));
        m_control->setText(text);
        QCOMPARE(m_control->minimumSizeHint(), QSize(advance + 8, 24));
        m_control->SetIconPath(m_icon.Path());
        QCOMPARE(m_control->minimumSizeHint(), QSize(advance + 8 + 24, 24)); // no spacing
        m_control->setHorizontalMargin(11);
        QCOMPARE(m_control->minimumSizeHint(), QSize(advance + 22 + 24, 24));
        m_control->setHorizontalMargin(0);
        QCOMPARE(m_control->minimumSizeHint(), QSize(advance + 24, 24));
        m_control->setFixedHeight(50);
        QCOMPARE(m_control->minimumSizeHint(), QSize(advance + 50, 24)); // the height is a constant
        m_control->setText(QString());
        QCOMPARE(m_control->minimumSizeHint(), QSize(50, 24));
        m_control->SetIconPath(QString());
        QCOMPARE(m_control->minimumSizeHint(), QSize(0, 24));
    }

    void another_text_or_font_is_measured_anew()
    {
        m_control->SetIconPath(m_icon.Path());
        m_control->setHorizontalMargin(0);
        QFont broad = BroadFont();
        for (const QString &text : {QStringLiteral("Some text"), QStringLiteral("Same size"), QString()}) {
            m_control->setText(text);
            for (int letterSpacing = 0; letterSpacing < 2; ++letterSpacing) {
                broad.setLetterSpacing(QFont::AbsoluteSpacing, letterSpacing);
                m_control->setFont(broad);
                Render(*m_control); // which measures too
                QCOMPARE(m_control->minimumSizeHint().width(), QFontMetrics(broad).horizontalAdvance(text) + 24);
            }
        }
    }

    void an_icon_of_any_state_counts_in_the_width()
    {
        ImageParams params;
        params.color = ColorParams("brand/brand");
        m_control->SetIconParam(kNormal, params);
        QCOMPARE(m_control->minimumSizeHint().width(), 8); // a colour is no icon
        params.path = QStringLiteral(":/images/none.svg");
        m_control->SetIconParam(QStyle::State(0x8005), params);
        QCOMPARE(m_control->minimumSizeHint().width(), 8 + 24); // the file need not exist
    }

    void the_size_hint_is_the_minimum_of_the_derived_class()
    {
        m_control->setText(QStringLiteral("Text"));
        QCOMPARE(m_control->sizeHint(), m_control->minimumSizeHint());
        m_control->hint = QSize(77, 33);
        QCOMPARE(m_control->sizeHint(), QSize(77, 33));
    }

    void a_mnemonic_mark_is_shown_and_counted()
    {
        m_control->setText(QStringLiteral("&Save"));
        QCOMPARE(m_control->minimumSizeHint().width(), QFontMetrics(m_control->font()).horizontalAdvance(QStringLiteral("&Save")) + 8);
        QCOMPARE(Render(*m_control),
                 Reference(*m_control, [&](QPainter &p) { p.drawText(m_control->rect(), Qt::AlignCenter, QStringLiteral("&Save")); }));
        QCOMPARE(m_control->shortcut(), QKeySequence(QStringLiteral("Alt+S")));
    }

    // --- What repaints, what announces a size ---

    void setters_repaint_and_announce_the_size_data()
    {
        QTest::addColumn<int>("setter");
        QTest::addColumn<bool>("repaints");
        QTest::addColumn<bool>("announces");
        QTest::newRow("background") << 0 << true << false;
        QTest::newRow("border") << 1 << true << false;
        QTest::newRow("text colour") << 2 << true << false;
        QTest::newRow("icon of a state") << 3 << true << true;
        QTest::newRow("icon") << 4 << true << true;
        QTest::newRow("radius") << 5 << true << false;
        QTest::newRow("margin") << 6 << false << true;
        QTest::newRow("text") << 7 << true << true;
    }

    void setters_repaint_and_announce_the_size()
    {
        QFETCH(int, setter);
        QFETCH(bool, repaints);
        QFETCH(bool, announces);
        const std::function<void()> setters[] = {
            [this] { m_control->SetBackgroundColorParams(kNormal, QString()); },
            [this] { m_control->SetBorderColorParams(kNormal, QString()); },
            [this] { m_control->SetTextColorParams(kNormal, QString()); },
            [this] { m_control->SetIconParam(kNormal, ImageParams()); },
            [this] { m_control->SetIconPath(QString()); },
            [this] { m_control->SetBorderRadius(4); },
            [this] { m_control->setHorizontalMargin(20); },
            [this] { m_control->setText(QStringLiteral("Text")); },
        };
        EventCounter paints(*m_control, QEvent::Paint);
        EventCounter requests(*m_window, QEvent::LayoutRequest);
        setters[setter]();
        DrainEvents();
        QCOMPARE(paints.Take(), repaints ? 1 : 0);
        QCOMPARE(requests.Take() > 0, announces);
    }

    void another_height_announces_the_size_and_another_width_does_not()
    {
        EventCounter requests(*m_window, QEvent::LayoutRequest);
        m_control->resize(m_control->width() + 20, 24);
        DrainEvents();
        QCOMPARE(requests.Take(), 0);
        m_control->setMaximumHeight(100);
        DrainEvents();
        requests.Take();
        m_control->resize(m_control->width(), 60);
        DrainEvents();
        QVERIFY(requests.Take() > 0);
    }

    void a_theme_change_repaints_once()
    {
        EventCounter paints(*m_control, QEvent::Paint);
        m_control->SetBackgroundColorParams(kNormal, QStringLiteral("brand/brand"));
        DrainEvents();
        paints.Take();
        UseTable(Table::Dark);
        QCOMPARE(paints.Take(), 1);
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(10, 12)), Over(TokenOf(Table::Dark, QStringLiteral("brand/brand"))));
    }

    // --- States ---

    void each_look_takes_its_own_entries_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < 8; ++i)
            QTest::newRow(kLooks[i].name) << i;
    }

    void each_look_takes_its_own_entries()
    {
        QFETCH(int, index);
        const Look &look = kLooks[index];
        SetBackgrounds(*m_control);
        BringTo(*m_control, look);
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(10, 12)), ColorOf(look));

        // Without its entry it takes none of another state.
        m_control->SetBackgroundColorParams(QStyle::State(look.key), QString());
        QVERIFY(InkBox(Render(*m_control), Qt::white, 0).isNull());
    }

    void border_text_and_icon_take_the_same_key_data() { each_look_takes_its_own_entries_data(); }

    void border_text_and_icon_take_the_same_key()
    {
        QFETCH(int, index);
        const Look &look = kLooks[index];
        for (const Look &each : kLooks) {
            m_control->SetBorderColorParams(QStyle::State(each.key), ColorOf(each).name());
            m_control->SetTextColorParams(QStyle::State(each.key), ColorOf(each).name());
            ImageParams icon;
            icon.color = ColorParams(ColorOf(each).name());
            m_control->SetIconParam(QStyle::State(each.key), icon);
        }
        m_control->setFixedSize(90, 80);
        m_control->setFont(BroadFont());
        m_control->setText(QStringLiteral("I"));
        BringTo(*m_control, look);
        const QImage withText = Render(*m_control);
        QColor line = ColorOf(look);
        line.setAlphaF(ColorValue(LineCoverage(withText))); // half of it lies outside
        COMPARE_COLOR(PixelAt(withText, QPointF(0, 40)), Over(line));
        COMPARE_COLOR(PixelAt(withText, QPointF(1, 40)), QColor(Qt::white));
        COMPARE_COLOR(InkColor(Part(withText, QRectF(10, 10, 70, 60)), Qt::white), ColorOf(look));
        m_control->setText(QString());
        m_control->SetIconPath(m_icon.Path());
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(45, 40)), ColorOf(look));
    }

    void pressed_comes_before_hover_and_disabled_before_both()
    {
        SetBackgrounds(*m_control);
        MoveCursorOver(*m_control);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[2]));
        QTest::mousePress(m_control, Qt::LeftButton);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[3]));
        m_control->setEnabled(false);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[0]));
        m_control->setEnabled(true);
        LetGo(*m_control);
    }

    void hover_and_press_come_and_go()
    {
        SetBackgrounds(*m_control);
        EventCounter paints(*m_control, QEvent::Paint);
        DrainEvents();
        paints.Take();
        MoveCursorOver(*m_control);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[2]));
        QVERIFY(paints.Take() > 0);
        for (const Qt::MouseButton mouse : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            QTest::mousePress(m_control, mouse);
            COMPARE_COLOR(Fill(), ColorOf(kLooks[3])); // whichever button it is
            DrainEvents();
            QVERIFY(paints.Take() > 0);
            QTest::mouseRelease(m_control, mouse);
            COMPARE_COLOR(Fill(), ColorOf(kLooks[2]));
            DrainEvents();
            QVERIFY(paints.Take() > 0);
        }
        MoveCursorAway();
        COMPARE_COLOR(Fill(), ColorOf(kLooks[1]));
        QVERIFY(paints.Take() > 0);
    }

    void moving_off_a_pressed_button_ends_the_sunken_look_at_once()
    {
        SetBackgrounds(*m_control);
        MoveCursorOver(*m_control);
        QTest::mousePress(m_control, Qt::LeftButton);
        QCursor::setPos(450, 450);
        QEvent leave(QEvent::Leave); // a held button grabs the mouse, so the window system's own comes with the release
        QCoreApplication::sendEvent(m_control, &leave);
        QVERIFY(m_control->isDown());
        COMPARE_COLOR(Fill(), ColorOf(kLooks[1]));
        LetGo(*m_control);
    }

    void a_leave_with_the_cursor_still_inside_keeps_the_hover()
    {
        SetBackgrounds(*m_control);
        MoveCursorOver(*m_control);
        EventCounter paints(*m_control, QEvent::Paint);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(m_control, &leave);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[2]));
        paints.Take();
        DrainEvents();
        QCOMPARE(paints.Take(), 1);
    }

    void a_stale_hover_clears_on_a_press_elsewhere()
    {
        MakeStale(QEvent::Enter);
        EventCounter paints(*m_control, QEvent::Paint);
        QTest::mouseClick(m_elsewhere, Qt::LeftButton);
        DrainEvents();
        QCOMPARE(paints.Take(), 0); // the next paint shows it
        COMPARE_COLOR(Fill(), ColorOf(kLooks[1]));
    }

    void a_stale_sunken_look_clears_on_a_press_elsewhere()
    {
        SetBackgrounds(*m_control);
        QTest::mousePress(m_control, Qt::LeftButton);
        MoveCursorAway();
        QTest::mouseClick(m_elsewhere, Qt::LeftButton);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[1]));
        LetGo(*m_control);
    }

    void a_stale_hover_clears_when_the_application_goes_to_the_background()
    {
        MakeStale(QEvent::Enter);
        EventCounter paints(*m_control, QEvent::Paint);
        QEvent deactivate(QEvent::ApplicationDeactivate);
        QCoreApplication::sendEvent(qApp, &deactivate);
        DrainEvents();
        QCOMPARE(paints.Take(), 0);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[1]));
    }

    void a_press_elsewhere_costs_only_a_button_that_is_hovered_or_pressed()
    {
        const auto calls = [this] {
            m_control->filtered = 0;
            QTest::mouseClick(m_elsewhere, Qt::LeftButton);
            return m_control->filtered;
        };
        QCOMPARE(calls(), 0);
        MoveCursorOver(*m_control);
        QVERIFY(calls() > 0);
        MoveCursorAway();
        QCOMPARE(calls(), 0);
        QTest::mousePress(m_control, Qt::LeftButton); // by touch: no hover comes first
        QVERIFY(calls() > 0);
        QCOMPARE(calls(), 0); // which ended the stale press
        LetGo(*m_control);
    }

    void a_press_elsewhere_leaves_the_hover_under_the_cursor()
    {
        SetBackgrounds(*m_control);
        MoveCursorOver(*m_control);
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), QCursor::pos(), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_elsewhere, &press);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[2]));
        QEvent deactivate(QEvent::ApplicationDeactivate);
        QCoreApplication::sendEvent(qApp, &deactivate);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[2]));
    }

    void other_events_leave_a_stale_hover()
    {
        MakeStale(QEvent::Enter);
        QEvent activate(QEvent::ApplicationActivate);
        QCoreApplication::sendEvent(qApp, &activate);
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(1, 1), QCursor::pos(), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_elsewhere, &release);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[2]));
    }

    void no_press_is_swallowed()
    {
        QSignalSpy clicks(m_elsewhere, &QAbstractButton::clicked);
        QTest::mouseClick(m_elsewhere, Qt::LeftButton);
        QCOMPARE(clicks.count(), 1);
        QSignalSpy own(m_control, &QAbstractButton::clicked);
        QTest::mouseClick(m_control, Qt::LeftButton);
        QTest::mouseClick(m_control, Qt::RightButton);
        QCOMPARE(own.count(), 1);
    }

    void a_disabled_button_shows_the_forbidden_cursor()
    {
        SetBackgrounds(*m_control);
        EventCounter paints(*m_control, QEvent::Paint);
        QVERIFY(!m_control->testAttribute(Qt::WA_SetCursor));
        m_control->setEnabled(false);
        QCOMPARE(m_control->cursor().shape(), Qt::ForbiddenCursor);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[0]));
        m_control->setEnabled(true);
        QVERIFY(!m_control->testAttribute(Qt::WA_SetCursor));
        COMPARE_COLOR(Fill(), ColorOf(kLooks[1]));
        m_window->setEnabled(false); // with its window as well
        QCOMPARE(m_control->cursor().shape(), Qt::ForbiddenCursor);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[0]));
        m_window->setEnabled(true);
        QVERIFY(!m_control->testAttribute(Qt::WA_SetCursor));
        paints.Take();
        DrainEvents();
        QVERIFY(paints.Take() > 0);
    }

    void a_button_made_in_a_disabled_window_is_disabled()
    {
        m_window->setEnabled(false);
        const auto button = MakeButton();
        SetBackgrounds(*button);
        COMPARE_COLOR(PixelAt(Render(*button), QPointF(10, 12)), ColorOf(kLooks[0]));
        QCOMPARE(button->cursor().shape(), Qt::ForbiddenCursor);
        m_window->setEnabled(true);
        COMPARE_COLOR(PixelAt(Render(*button), QPointF(10, 12)), ColorOf(kLooks[1]));
    }

    void a_button_toggled_while_disabled_looks_checked_and_disabled()
    {
        SetBackgrounds(*m_control);
        m_control->setCheckable(true);
        m_control->setEnabled(false);
        m_control->setChecked(true);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[4]));
        EventCounter paints(*m_control, QEvent::Paint);
        m_control->setChecked(false);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[0]));
        m_control->setChecked(true);
        m_control->setEnabled(true);
        COMPARE_COLOR(Fill(), ColorOf(kLooks[5]));
        paints.Take();
        DrainEvents();
        QVERIFY(paints.Take() > 0);
    }

    void a_key_press_clicks_and_leaves_the_look()
    {
        SetBackgrounds(*m_control);
        QSignalSpy clicks(m_control, &QAbstractButton::clicked);
        m_control->setFocus();
        QTest::keyPress(m_control, Qt::Key_Space);
        QVERIFY(m_control->isDown());
        COMPARE_COLOR(Fill(), ColorOf(kLooks[1])); // the look is the button's own, not the style's
        QTest::keyRelease(m_control, Qt::Key_Space);
        QCOMPARE(clicks.count(), 1);
    }

    // --- Geometry of the content ---

    void icon_and_text_stand_centred_together_and_touch_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("text");
        for (const int width : {200, 201, 202, 203})
            QTest::newRow(qPrintable(QString::number(width))) << QSize(width, 24) << QStringLiteral("Text");
        QTest::newRow("tall") << QSize(200, 61) << QStringLiteral("Text");
        QTest::newRow("narrow") << QSize(60, 24) << QStringLiteral("A text wider than its button");
        QTest::newRow("narrow, odd") << QSize(61, 24) << QStringLiteral("A text wider than its button");
    }

    void icon_and_text_stand_centred_together_and_touch()
    {
        QFETCH(QSize, size);
        QFETCH(QString, text);
        m_control->setFixedSize(size);
        m_control->setText(text);
        m_control->SetIconPath(m_icon.Path());
        const int side = size.height();
        const int textWidth = QFontMetrics(m_control->font()).horizontalAdvance(text);
        const int x = (size.width() - (textWidth + side)) / 2; // towards zero
        QPixmap red((QSizeF(side, side) * m_control->devicePixelRatioF()).toSize());
        red.fill(Qt::red);
        QCOMPARE(Render(*m_control), Reference(*m_control, [&](QPainter &p) {
                     LayOnPixels(p, QPoint(x, 0), red);
                     p.drawText(QRect(x + side, 0, textWidth, size.height()), Qt::AlignVCenter, text);
                 }));
    }

    void an_icon_alone_fills_the_button()
    {
        m_control->setFixedSize(70, 30);
        m_control->SetIconPath(m_icon.Path());
        const QImage image = Render(*m_control);
        QCOMPARE(InkBox(image, Qt::white), QRectF(0, 0, 70, 30));
        COMPARE_COLOR(PixelAt(image, QPointF(1, 1)), QColor(Qt::red)); // without a record it stays as the file draws it
        COMPARE_COLOR(PixelAt(image, QPointF(68, 28)), QColor(Qt::red));
    }

    void a_text_alone_is_centred()
    {
        for (const QSize &size : {QSize(120, 24), QSize(121, 43)}) {
            m_control->setFixedSize(size);
            m_control->setText(QStringLiteral("Text"));
            QCOMPARE(Render(*m_control),
                     Reference(*m_control, [&](QPainter &p) { p.drawText(m_control->rect(), Qt::AlignCenter, QStringLiteral("Text")); }));
        }
    }

    void a_missing_icon_leaves_the_text_alone()
    {
        m_control->setFixedSize(120, 24);
        m_control->setText(QStringLiteral("Text"));
        m_control->SetIconPath(QStringLiteral(":/images/none.svg"));
        QCOMPARE(Render(*m_control),
                 Reference(*m_control, [&](QPainter &p) { p.drawText(m_control->rect(), Qt::AlignCenter, QStringLiteral("Text")); }));
        m_control->setText(QString());
        QVERIFY(InkBox(Render(*m_control), Qt::white, 0).isNull());
    }

    void the_record_s_path_comes_first_and_its_size_plays_no_part()
    {
        ImageParams params;
        params.path = m_icon.Path();
        params.size = QSize(3, 3);
        params.mulColor.insert(QStringLiteral("#FF0000"), ColorParams("#0000FF"));
        m_control->setFixedSize(70, 30);
        m_control->SetIconPath(QStringLiteral(":/images/none.svg"));
        m_control->SetIconParam(kNormal, params);
        const QImage image = Render(*m_control);
        QCOMPARE(InkBox(image, Qt::white), QRectF(0, 0, 70, 30));
        COMPARE_COLOR(PixelAt(image, QPointF(35, 15)), QColor(Qt::blue));

        // A record without a path lends its colours to the common icon.
        params.path.clear();
        m_control->SetIconParam(kNormal, params);
        QVERIFY(InkBox(Render(*m_control), Qt::white).isNull());
        m_control->SetIconPath(m_icon.Path());
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(35, 15)), QColor(Qt::blue));
    }

    void the_border_is_half_clipped_and_keeps_the_radius()
    {
        m_control->SetBorderColorParams(kNormal, QStringLiteral("#000000"));
        for (const int radius : {4, 0, 10}) {
            m_control->SetBorderRadius(radius);
            QCOMPARE(Render(*m_control), Reference(*m_control, [&](QPainter &p) {
                         p.setBrush(Qt::NoBrush);
                         p.setPen(QPen(QBrush(Qt::black), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
                         p.drawRoundedRect(QRectF(m_control->rect()), radius, radius);
                     }));
        }
    }

    void an_unknown_code_paints_black()
    {
        m_control->SetBackgroundColorParams(kNormal, QStringLiteral("no/such_token"));
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(10, 12)), QColor(Qt::black));
    }

    void no_focus_mark_is_painted()
    {
        SetBackgrounds(*m_control);
        m_control->setText(QStringLiteral("Text"));
        const QImage before = Render(*m_control);
        m_control->setFocus(Qt::TabFocusReason);
        QVERIFY(m_control->hasFocus());
        QCOMPARE(Render(*m_control), before);
    }

    void the_slot_is_private_and_the_class_known_by_name()
    {
        const QMetaObject &meta = QcButton::staticMetaObject;
        QCOMPARE(meta.className(), "Velmora::QcButton");
        const QMetaMethod slot = meta.method(meta.indexOfSlot("OnToggled(bool)"));
        QCOMPARE(slot.access(), QMetaMethod::Private);
    }

protected:
    void Prepare() override
    {
        m_elsewhere = new QPushButton(m_window.get());
        m_elsewhere->setGeometry(10, 150, 40, 20);
        m_elsewhere->setFocus(); // a press there must not take it from the button
        m_control->setGeometry(10, 10, 120, 24);
    }

private:
    std::unique_ptr<HostButton> MakeButton() const
    {
        auto button = std::make_unique<HostButton>(m_window.get());
        button->setGeometry(10, 50, 120, 24);
        button->show();
        DrainEvents();
        return button;
    }

    /// The background's colour now.
    QColor Fill() { return PixelAt(Render(*m_control), QPointF(10, 12)); }

    /// Leaves the button hovered though the cursor is elsewhere, as when a popup swallowed the leave event.
    void MakeStale(QEvent::Type type)
    {
        SetBackgrounds(*m_control);
        QEvent event(type);
        QCoreApplication::sendEvent(m_control, &event);
        DrainEvents();
        COMPARE_COLOR(Fill(), ColorOf(kLooks[2]));
    }

    const VelmoraTest::SquareIcon m_icon{QStringLiteral("#FF0000")};
    QPushButton *m_elsewhere = nullptr;
};

VELMORA_TEST_MAIN(TestQcButton)

#include "tst_QcButton.moc"
