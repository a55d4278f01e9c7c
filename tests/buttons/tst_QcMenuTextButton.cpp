#include "support/ColorValue.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include "buttons/ControlTest.h"

#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcStyleManager.h>

#include <QDialog>
#include <QFontMetrics>
#include <QMenu>
#include <QPainter>
#include <QSignalSpy>
#include <QWindow>

#include <algorithm>
#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QStyle::State kNormal = QStyle::State_Enabled;
constexpr int kNormalLook = 1;

/// Texts and arrows of the state tables, in the order of kLooks; the backgrounds are those of tool buttons. A null is an entry that
/// is missing.
constexpr const char *kTexts[] = {
    "text/text_disabled", "text/text_primary", "text/text_primary", "text/text_primary",
    "text/text_primary",  "text/text_primary", "text/text_primary", "text/text_primary",
};
constexpr const char *kArrows[] = {
    "text/text_disabled", "icon/icon_secondary", "icon/icon_secondary", "icon/icon_secondary", nullptr,
    "icon/icon_primary",  "icon/icon_primary",   "icon/icon_primary",
};

class HostButton : public QcMenuTextButton
{
public:
    using QcMenuTextButton::QcMenuTextButton;

    QSize minimumSizeHint() const override { return hint.isValid() ? hint : QcMenuTextButton::minimumSizeHint(); }

    QSize hint;
};

QFont BroadFont()
{
    QFont font;
    font.setPixelSize(60);
    font.setBold(true);
    return font;
}

/// What a button has to look like in the look with that place in kLooks.
QImage Reference(const QcMenuTextButton &button, int look, Table table = Table::Light)
{
    QImage image = Canvas(button);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Painted(table, QString::fromLatin1(kToolBackgrounds[look]), Qt::white));
    painter.drawRoundedRect(button.rect(), 4, 4);
    painter.setPen(TokenOf(table, QString::fromLatin1(kTexts[look])));
    painter.setFont(button.font());
    painter.drawText(QRect(0, 0, button.width() - 12, button.height()), Qt::AlignCenter, button.text());
    if (kArrows[look]) {
        ImageParams arrow;
        arrow.path = QStringLiteral(":/images/arrow_down_2.svg");
        arrow.color = ColorParams(kArrows[look]);
        const QRect place(button.width() - 13, 0, 12, std::min(32, button.height()));
        if (button.height() == place.height()) {
            PaintCrisply(painter, place, arrow);
        } else { // made for the whole height and squeezed
            arrow.size = (QSizeF(12, button.height()) * button.devicePixelRatioF()).toSize();
            painter.drawPixmap(place, QcStyleManager::GetInstance()->GetPixmap(arrow));
        }
    }
    return image;
}

} // namespace

class TestQcMenuTextButton : public ControlTest<HostButton>
{
    Q_OBJECT

private Q_SLOTS:
    // --- Construction and size ---

    void a_new_button_has_its_measures()
    {
        const QcMenuTextButton button;
        QCOMPARE(button.minimumHeight(), 24);
        QCOMPARE(button.maximumHeight(), QWIDGETSIZE_MAX);
        QFont font;
        font.setPixelSize(12);
        QCOMPARE(button.font(), font);
        QCOMPARE(button.styleSheet(), QStringLiteral("Velmora--QcMenuTextButton { padding: 0px; }"));
        QVERIFY(!button.isCheckable());
        QVERIFY(!button.menu());
        QCOMPARE(button.sizeHint(), QSize(12 + 8, 24)); // arrow and margins
    }

    void the_size_hint_counts_arrow_text_and_margins()
    {
        m_control->setText(QStringLiteral("Save"));
        const int advance = QFontMetrics(m_control->font()).horizontalAdvance(QStringLiteral("Save"));
        QCOMPARE(m_control->sizeHint(), QSize(12 + 0 + advance + 8, 24));
        QCOMPARE(m_control->minimumSizeHint(), m_control->sizeHint());
        m_control->setHorizontalMargin(11);
        QCOMPARE(m_control->sizeHint(), QSize(12 + advance + 22, 24));
        m_control->setHorizontalMargin(-3);
        QCOMPARE(m_control->sizeHint(), QSize(12 + advance - 6, 24));
        m_control->setFixedHeight(60);
        QCOMPARE(m_control->sizeHint().height(), 24); // whatever height it has
        m_control->setFont(BroadFont());
        QCOMPARE(m_control->sizeHint().width(), 12 + QFontMetrics(BroadFont()).horizontalAdvance(QStringLiteral("Save")) - 6);
    }

    void the_size_hint_asks_the_variant()
    {
        m_control->hint = QSize(77, 33);
        QCOMPARE(m_control->sizeHint(), QSize(77, 33));
    }

    void a_margin_of_zero_writes_an_empty_line_per_size_computation()
    {
        m_control->setHorizontalMargin(0);
        Log().Expect(QtDebugMsg, QString());
        QCOMPARE(m_control->minimumSizeHint(), QSize(12, 24));
        Log().Expect(QtDebugMsg, QString());
        QCOMPARE(m_control->sizeHint(), QSize(12, 24));
        m_control->setHorizontalMargin(1);
        QCOMPARE(m_control->sizeHint(), QSize(14, 24)); // and no line
    }

    void text_margin_and_height_announce_a_new_size()
    {
        EventCounter layouts(*m_window, QEvent::LayoutRequest);
        EventCounter paints(*m_control, QEvent::Paint);
        const auto announced = [&] {
            DrainEvents();
            return layouts.Take() > 0;
        };
        announced();
        m_control->setText(QStringLiteral("Save"));
        QVERIFY(announced());
        QVERIFY(paints.Take() > 0);
        m_control->setHorizontalMargin(9);
        QVERIFY(announced());
        QCOMPARE(paints.Take(), 0); // which shows nowhere in the button
        m_control->resize(m_control->width(), 40);
        QVERIFY(announced());
        m_control->resize(m_control->width() + 5, 40);
        QVERIFY(!announced());
    }

    // --- Looks ---

    void each_look_paints_its_row_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < 8; ++i)
            QTest::newRow(kLooks[i].name) << i;
    }

    void each_look_paints_its_row()
    {
        QFETCH(int, index);
        const QString fill = QString::fromLatin1(kToolBackgrounds[index]);
        m_control->setText(QStringLiteral("Save"));
        BringTo(*m_control, kLooks[index]);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            QCOMPARE(Render(*m_control), Reference(*m_control, index, table));
            const QImage image = Render(*m_control, Qt::darkGreen); // on which the colours of both tables show
            const QColor background = Painted(table, fill, Qt::darkGreen);
            COMPARE_COLOR(PixelAt(image, QPointF(6, 3)), background);
            QCOMPARE(InkBox(Part(image, ArrowPlace()), background).isNull(), kArrows[index] == nullptr);
        }
        m_control->setFont(BroadFont());
        m_control->setText(QStringLiteral("I"));
        m_control->setFixedHeight(90);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QColor background = Painted(table, fill, Qt::darkGreen);
            COMPARE_COLOR(InkColor(Part(Render(*m_control, Qt::darkGreen), QRectF(10, 10, 90, 70)), background),
                          Painted(table, QString::fromLatin1(kTexts[index]), background));
        }
    }

    void the_arrow_is_told_from_no_arrow()
    {
        const QRectF ink = InkBox(Part(Render(*m_control), ArrowPlace()), Qt::white);
        QVERIFY(!ink.isNull());
        m_control->setCheckable(true);
        m_control->setChecked(true);
        m_control->setEnabled(false);
        m_control->SetBackgroundColorParams(QStyle::State_Selected, QString());
        QVERIFY(InkBox(Render(*m_control), Qt::white, 0).isNull()); // checked and disabled has no entry
    }

    void the_arrow_keeps_to_the_top_of_a_tall_button_data()
    {
        QTest::addColumn<int>("height");
        for (const int height : {24, 31, 32, 33, 48, 90})
            QTest::newRow(qPrintable(QString::number(height))) << height;
    }

    void the_arrow_keeps_to_the_top_of_a_tall_button()
    {
        QFETCH(int, height);
        m_control->setFixedHeight(height);
        const QImage image = Render(*m_control);
        QCOMPARE(image, Reference(*m_control, kNormalLook));
        const QRectF ink = InkBox(image, Qt::white);
        QVERIFY(ink.left() >= m_control->width() - 13);
        QVERIFY(ink.right() <= m_control->width() - 1); // one pixel stays free
        // The image's arrow reaches from 15/32 to 18/32 of its height, and its line is 1.6 units wide.
        const double drawn = std::min(32, height);
        QVERIFY(ink.top() >= drawn * 13 / 32 - 1);
        QVERIFY(ink.bottom() <= drawn * 20 / 32 + 1);
    }

    void a_text_without_room_is_cut_off_around_its_middle()
    {
        for (const int width : {12, 13, 30}) {
            m_control->setFixedWidth(width);
            m_control->setText(QStringLiteral("A text wider than its button"));
            QCOMPARE(Render(*m_control), Reference(*m_control, kNormalLook));
        }
        m_control->setFixedSize(1, 24);
        Render(*m_control);
    }

    void an_ampersand_is_painted_and_its_letter_still_a_mnemonic()
    {
        for (const QString &text : {QStringLiteral("&Save"), QStringLiteral("R & D"), QStringLiteral("A && B")}) {
            m_control->setText(text);
            QCOMPARE(Render(*m_control), Reference(*m_control, kNormalLook));
            QCOMPARE(m_control->sizeHint().width(), 20 + QFontMetrics(m_control->font()).horizontalAdvance(text));
        }
        m_control->setText(QStringLiteral("&Save"));
        QCOMPARE(m_control->shortcut(), QKeySequence(Qt::ALT | Qt::Key_S));
        m_control->setText(QStringLiteral("Save"));
        m_control->setShortcut(Qt::ALT | Qt::Key_V); // a key without a mark
        QSignalSpy clicks(m_control, &QAbstractButton::clicked);
        QTest::keyClick(m_window->windowHandle(), Qt::Key_V, Qt::AltModifier);
        QTRY_COMPARE(clicks.count(), 1); // which Qt shows for a moment first
    }

    void right_to_left_layouts_change_no_place()
    {
        m_control->setText(QStringLiteral("Save"));
        const QImage image = Render(*m_control);
        m_window->setLayoutDirection(Qt::RightToLeft);
        QVERIFY(m_control->isRightToLeft());
        QCOMPARE(Render(*m_control), image);
    }

    void no_focus_mark_is_painted()
    {
        const QImage image = Render(*m_control);
        m_control->setFocus(Qt::TabFocusReason);
        QVERIFY(m_control->hasFocus());
        QCOMPARE(Render(*m_control), image);
    }

    // --- What a host sets ---

    void an_empty_code_paints_no_background_and_no_border_and_palette_text()
    {
        m_control->SetBackgroundColorParams(kNormal, QString());
        m_control->SetBorderColorParams(kNormal, QString());
        m_control->SetTextColorParams(kNormal, QString());
        QPalette palette = m_control->palette();
        palette.setColor(QPalette::ButtonText, Qt::magenta);
        m_control->setPalette(palette);
        m_control->setFont(BroadFont());
        m_control->setText(QStringLiteral("I"));
        m_control->setFixedHeight(90);
        const QImage image = Render(*m_control);
        COMPARE_COLOR(InkColor(Part(image, QRectF(10, 10, 90, 70)), Qt::white), QColor(Qt::magenta));
        COMPARE_COLOR(PixelAt(image, QPointF(0, 45)), QColor(Qt::white));
        COMPARE_COLOR(PixelAt(image, QPointF(5, 45)), QColor(Qt::white));
    }

    void an_unknown_code_paints_black()
    {
        m_control->SetBackgroundColorParams(kNormal, QStringLiteral("no/such_token"));
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(6, 12)), QColor(Qt::black));
    }

    void a_border_lies_on_the_edge_and_keeps_the_radius()
    {
        m_control->SetBorderColorParams(kNormal, QStringLiteral("#000000"));
        for (const int radius : {4, 0, 10}) {
            if (radius != 4)
                m_control->SetBorderRadius(radius);
            QImage expected = Reference(*m_control, kNormalLook);
            QPainter painter(&expected);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(QBrush(Qt::black), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
            painter.drawRoundedRect(QRectF(m_control->rect()), radius, radius);
            painter.end();
            QCOMPARE(Render(*m_control), expected);
        }
    }

    void the_radius_rounds_the_background()
    {
        m_control->SetBackgroundColorParams(kNormal, QStringLiteral("#000000"));
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(0, 0)), QColor(Qt::white));
        m_control->SetBorderRadius(0);
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(0, 0)), QColor(Qt::black));
    }

    void each_setter_repaints_and_what_it_sets_stays()
    {
        EventCounter paints(*m_control, QEvent::Paint);
        const auto repaints = [&](const std::function<void()> &change) {
            DrainEvents();
            paints.Take();
            change();
            DrainEvents();
            return paints.Take() == 1;
        };
        QVERIFY(repaints([this] { m_control->SetBackgroundColorParams(kNormal, QStringLiteral("#00FF00")); }));
        QVERIFY(repaints([this] { m_control->SetBorderColorParams(kNormal, QStringLiteral("#0000FF")); }));
        QVERIFY(repaints([this] { m_control->SetTextColorParams(kNormal, QStringLiteral("#FF00FF")); }));
        QVERIFY(repaints([this] { m_control->SetBorderRadius(0); }));
        m_control->setFont(BroadFont());
        m_control->setText(QStringLiteral("I"));
        m_control->setFixedHeight(90);
        UseTable(Table::Dark);
        DrainEvents();
        const QImage image = Render(*m_control);
        QColor line(Qt::blue);
        line.setAlphaF(ColorValue(LineCoverage(image)));
        COMPARE_COLOR(PixelAt(image, QPointF(0, 45)), Over(line, Qt::green));
        COMPARE_COLOR(PixelAt(image, QPointF(6, 45)), QColor(Qt::green));
        COMPARE_COLOR(InkColor(Part(image, QRectF(10, 10, 90, 70)), Qt::green), QColor(Qt::magenta));
        MoveCursorOver(*m_control); // the other entries are the table's
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(6, 45)),
                      Over(TokenOf(Table::Dark, QStringLiteral("bg/bg_transluent_strong_hover"))));
    }

    void a_state_that_is_never_looked_up_is_never_used()
    {
        const QImage image = Render(*m_control);
        m_control->SetBackgroundColorParams(QStyle::State_MouseOver, QStringLiteral("#00FF00"));
        m_control->SetBackgroundColorParams(kNormal | QStyle::State_MouseOver | QStyle::State_Sunken, QStringLiteral("#00FF00"));
        QCOMPARE(Render(*m_control), image);
    }

    // --- With a menu ---

    void an_open_menu_shows_the_active_row()
    {
        QMenu menu;
        menu.addAction(QStringLiteral("First"));
        m_control->setText(QStringLiteral("Save"));
        m_control->setMenu(&menu);
        QCOMPARE(Render(*m_control), Reference(*m_control, kNormalLook)); // no other arrow than its own
        menu.popup(QPoint(400, 400));
        QVERIFY(!m_control->isChecked()); // not checkable, and yet
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            QCOMPARE(Render(*m_control), Reference(*m_control, 7, table));
        }
        menu.close();
        QCOMPARE(Render(*m_control), Reference(*m_control, kNormalLook, Table::Dark));
    }

    void enter_opens_the_menu_in_a_dialog()
    {
        QDialog dialog;
        QcMenuTextButton button(&dialog);
        QMenu menu;
        menu.addAction(QStringLiteral("First"));
        button.setMenu(&menu);
        dialog.setGeometry(kWindowPlace);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        button.setFocus();
        QSignalSpy opened(&menu, &QMenu::aboutToShow);
        connect(&menu, &QMenu::aboutToShow, &menu, &QMenu::close, Qt::QueuedConnection);
        QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
        QCOMPARE(opened.count(), 1);
        QTRY_VERIFY(!menu.isVisible());
        QVERIFY(dialog.isVisible());
    }

protected:
    void Prepare() override { m_control->setGeometry(10, 10, 120, 24); }

private:
    /// Where the arrow is, without the rounded corners.
    QRectF ArrowPlace() const { return QRectF(m_control->width() - 13, 5, 12, m_control->height() - 10); }
};

VELMORA_TEST_MAIN(TestQcMenuTextButton)

#include "tst_QcMenuTextButton.moc"
