#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include "controls/ButtonLooks.h"

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
        arrow.size = QSize(12, button.height());
        arrow.color = ColorParams(kArrows[look]);
        painter.drawPixmap(QRect(button.width() - 13, 0, 12, std::min(32, button.height())),
                           QcStyleManager::GetInstance()->GetPixmap(arrow));
    }
    return image;
}

} // namespace

class TestQcMenuTextButton : public TestCase
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
        m_button->setText(QStringLiteral("Save"));
        const int advance = QFontMetrics(m_button->font()).horizontalAdvance(QStringLiteral("Save"));
        QCOMPARE(m_button->sizeHint(), QSize(12 + 0 + advance + 8, 24));
        QCOMPARE(m_button->minimumSizeHint(), m_button->sizeHint());
        m_button->setHorizontalMargin(11);
        QCOMPARE(m_button->sizeHint(), QSize(12 + advance + 22, 24));
        m_button->setHorizontalMargin(-3);
        QCOMPARE(m_button->sizeHint(), QSize(12 + advance - 6, 24));
        m_button->setFixedHeight(60);
        QCOMPARE(m_button->sizeHint().height(), 24); // whatever height it has
        m_button->setFont(BroadFont());
        QCOMPARE(m_button->sizeHint().width(), 12 + QFontMetrics(BroadFont()).horizontalAdvance(QStringLiteral("Save")) - 6);
    }

    void the_size_hint_asks_the_variant()
    {
        m_button->hint = QSize(77, 33);
        QCOMPARE(m_button->sizeHint(), QSize(77, 33));
    }

    void a_margin_of_zero_writes_an_empty_line_per_size_computation()
    {
        m_button->setHorizontalMargin(0);
        Log().Expect(QtDebugMsg, QString());
        QCOMPARE(m_button->minimumSizeHint(), QSize(12, 24));
        Log().Expect(QtDebugMsg, QString());
        QCOMPARE(m_button->sizeHint(), QSize(12, 24));
        m_button->setHorizontalMargin(1);
        QCOMPARE(m_button->sizeHint(), QSize(14, 24)); // and no line
    }

    void text_margin_and_height_announce_a_new_size()
    {
        EventCounter layouts(*m_window, QEvent::LayoutRequest);
        EventCounter paints(*m_button, QEvent::Paint);
        const auto announced = [&] {
            DrainEvents();
            return layouts.Take() > 0;
        };
        announced();
        m_button->setText(QStringLiteral("Save"));
        QVERIFY(announced());
        QVERIFY(paints.Take() > 0);
        m_button->setHorizontalMargin(9);
        QVERIFY(announced());
        QCOMPARE(paints.Take(), 0); // which shows nowhere in the button
        m_button->resize(m_button->width(), 40);
        QVERIFY(announced());
        m_button->resize(m_button->width() + 5, 40);
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
        m_button->setText(QStringLiteral("Save"));
        BringTo(*m_button, kLooks[index]);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            QCOMPARE(Render(*m_button), Reference(*m_button, index, table));
            const QImage image = Render(*m_button, Qt::darkGreen); // on which the colours of both tables show
            const QColor background = Painted(table, fill, Qt::darkGreen);
            COMPARE_COLOR(PixelAt(image, QPointF(6, 3)), background);
            QCOMPARE(InkBox(Part(image, ArrowPlace()), background).isNull(), kArrows[index] == nullptr);
        }
        m_button->setFont(BroadFont());
        m_button->setText(QStringLiteral("I"));
        m_button->setFixedHeight(90);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QColor background = Painted(table, fill, Qt::darkGreen);
            COMPARE_COLOR(InkColor(Part(Render(*m_button, Qt::darkGreen), QRectF(10, 10, 90, 70)), background),
                          Painted(table, QString::fromLatin1(kTexts[index]), background));
        }
    }

    void the_arrow_is_told_from_no_arrow()
    {
        const QRectF ink = InkBox(Part(Render(*m_button), ArrowPlace()), Qt::white);
        QVERIFY(!ink.isNull());
        m_button->setCheckable(true);
        m_button->setChecked(true);
        m_button->setEnabled(false);
        m_button->SetBackgroundColorParams(QStyle::State_Selected, QString());
        QVERIFY(InkBox(Render(*m_button), Qt::white, 0).isNull()); // checked and disabled has no entry
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
        m_button->setFixedHeight(height);
        const QImage image = Render(*m_button);
        QCOMPARE(image, Reference(*m_button, kNormalLook));
        const QRectF ink = InkBox(image, Qt::white);
        QVERIFY(ink.left() >= m_button->width() - 13);
        QVERIFY(ink.right() <= m_button->width() - 1); // one pixel stays free
        // The image's arrow reaches from 15/32 to 18/32 of its height, and its line is 1.6 units wide.
        const double drawn = std::min(32, height);
        QVERIFY(ink.top() >= drawn * 13 / 32 - 1);
        QVERIFY(ink.bottom() <= drawn * 20 / 32 + 1);
    }

    void a_text_without_room_is_cut_off_around_its_middle()
    {
        for (const int width : {12, 13, 30}) {
            m_button->setFixedWidth(width);
            m_button->setText(QStringLiteral("A text wider than its button"));
            QCOMPARE(Render(*m_button), Reference(*m_button, kNormalLook));
        }
        m_button->setFixedSize(1, 24);
        Render(*m_button);
    }

    void an_ampersand_is_painted_and_its_letter_still_a_mnemonic()
    {
        for (const QString &text : {QStringLiteral("&Save"), QStringLiteral("R & D"), QStringLiteral("A && B")}) {
            m_button->setText(text);
            QCOMPARE(Render(*m_button), Reference(*m_button, kNormalLook));
            QCOMPARE(m_button->sizeHint().width(), 20 + QFontMetrics(m_button->font()).horizontalAdvance(text));
        }
        m_button->setText(QStringLiteral("&Save"));
        QCOMPARE(m_button->shortcut(), QKeySequence(Qt::ALT + Qt::Key_S));
        m_button->setText(QStringLiteral("Save"));
        m_button->setShortcut(Qt::ALT + Qt::Key_V); // a key without a mark
        QSignalSpy clicks(m_button, &QAbstractButton::clicked);
        QTest::keyClick(m_window->windowHandle(), Qt::Key_V, Qt::AltModifier);
        QTRY_COMPARE(clicks.count(), 1); // which Qt shows for a moment first
    }

    void right_to_left_layouts_change_no_place()
    {
        m_button->setText(QStringLiteral("Save"));
        const QImage image = Render(*m_button);
        m_window->setLayoutDirection(Qt::RightToLeft);
        QVERIFY(m_button->isRightToLeft());
        QCOMPARE(Render(*m_button), image);
    }

    void no_focus_mark_is_painted()
    {
        const QImage image = Render(*m_button);
        m_button->setFocus(Qt::TabFocusReason);
        QVERIFY(m_button->hasFocus());
        QCOMPARE(Render(*m_button), image);
    }

    // --- What a host sets ---

    void an_empty_code_paints_no_background_and_no_border_and_palette_text()
    {
        m_button->SetBackgroundColorParams(kNormal, QString());
        m_button->SetBorderColorParams(kNormal, QString());
        m_button->SetTextColorParams(kNormal, QString());
        QPalette palette = m_button->palette();
        palette.setColor(QPalette::ButtonText, Qt::magenta);
        m_button->setPalette(palette);
        m_button->setFont(BroadFont());
        m_button->setText(QStringLiteral("I"));
        m_button->setFixedHeight(90);
        const QImage image = Render(*m_button);
        COMPARE_COLOR(InkColor(Part(image, QRectF(10, 10, 90, 70)), Qt::white), QColor(Qt::magenta));
        COMPARE_COLOR(PixelAt(image, QPointF(0, 45)), QColor(Qt::white));
        COMPARE_COLOR(PixelAt(image, QPointF(5, 45)), QColor(Qt::white));
    }

    void an_unknown_code_paints_black()
    {
        m_button->SetBackgroundColorParams(kNormal, QStringLiteral("no/such_token"));
        COMPARE_COLOR(PixelAt(Render(*m_button), QPointF(6, 12)), QColor(Qt::black));
    }

    void a_border_lies_on_the_edge_and_keeps_the_radius()
    {
        m_button->SetBorderColorParams(kNormal, QStringLiteral("#000000"));
        for (const int radius : {4, 0, 10}) {
            if (radius != 4)
                m_button->SetBorderRadius(radius);
            QImage expected = Reference(*m_button, kNormalLook);
            QPainter painter(&expected);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(QBrush(Qt::black), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
            painter.drawRoundedRect(QRectF(m_button->rect()), radius, radius);
            painter.end();
            QCOMPARE(Render(*m_button), expected);
        }
    }

    void the_radius_rounds_the_background()
    {
        m_button->SetBackgroundColorParams(kNormal, QStringLiteral("#000000"));
        COMPARE_COLOR(PixelAt(Render(*m_button), QPointF(0, 0)), QColor(Qt::white));
        m_button->SetBorderRadius(0);
        COMPARE_COLOR(PixelAt(Render(*m_button), QPointF(0, 0)), QColor(Qt::black));
    }

    void each_setter_repaints_and_what_it_sets_stays()
    {
        EventCounter paints(*m_button, QEvent::Paint);
        const auto repaints = [&](const std::function<void()> &change) {
            DrainEvents();
            paints.Take();
            change();
            DrainEvents();
            return paints.Take() > 0;
        };
        QVERIFY(repaints([this] { m_button->SetBackgroundColorParams(kNormal, QStringLiteral("#00FF00")); }));
        QVERIFY(repaints([this] { m_button->SetBorderColorParams(kNormal, QStringLiteral("#0000FF")); }));
        QVERIFY(repaints([this] { m_button->SetTextColorParams(kNormal, QStringLiteral("#FF00FF")); }));
        QVERIFY(repaints([this] { m_button->SetBorderRadius(0); }));
        m_button->setFont(BroadFont());
        m_button->setText(QStringLiteral("I"));
        m_button->setFixedHeight(90);
        UseTable(Table::Dark);
        DrainEvents();
        const QImage image = Render(*m_button);
        QColor line(Qt::blue);
        line.setAlphaF(LineCoverage(image));
        COMPARE_COLOR(PixelAt(image, QPointF(0, 45)), Over(line, Qt::green));
        COMPARE_COLOR(PixelAt(image, QPointF(6, 45)), QColor(Qt::green));
        COMPARE_COLOR(InkColor(Part(image, QRectF(10, 10, 90, 70)), Qt::green), QColor(Qt::magenta));
        MoveCursorOver(*m_button); // the other entries are the table's
        COMPARE_COLOR(PixelAt(Render(*m_button), QPointF(6, 45)),
                      Over(TokenOf(Table::Dark, QStringLiteral("bg/bg_transluent_strong_hover"))));
    }

    void a_state_that_is_never_looked_up_is_never_used()
    {
        const QImage image = Render(*m_button);
        m_button->SetBackgroundColorParams(QStyle::State_MouseOver, QStringLiteral("#00FF00"));
        m_button->SetBackgroundColorParams(kNormal | QStyle::State_MouseOver | QStyle::State_Sunken, QStringLiteral("#00FF00"));
        QCOMPARE(Render(*m_button), image);
    }

    // --- With a menu ---

    void an_open_menu_shows_the_active_row()
    {
        QMenu menu;
        menu.addAction(QStringLiteral("First"));
        m_button->setText(QStringLiteral("Save"));
        m_button->setMenu(&menu);
        QCOMPARE(Render(*m_button), Reference(*m_button, kNormalLook)); // no other arrow than its own
        menu.popup(QPoint(400, 400));
        QVERIFY(!m_button->isChecked()); // not checkable, and yet
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            QCOMPARE(Render(*m_button), Reference(*m_button, 7, table));
        }
        menu.close();
        QCOMPARE(Render(*m_button), Reference(*m_button, kNormalLook, Table::Dark));
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
    void SetUp() override
    {
        MoveCursorAway();
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(kWindowPlace);
        m_button = new HostButton(m_window.get());
        m_button->setGeometry(10, 10, 120, 24);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        DrainEvents();
    }

    void TearDown() override
    {
        LetGo(*m_button);
        m_window.reset();
        UseTable(Table::Light);
    }

private:
    /// Where the arrow is, without the rounded corners.
    QRectF ArrowPlace() const { return QRectF(m_button->width() - 13, 5, 12, m_button->height() - 10); }

    std::unique_ptr<QWidget> m_window;
    HostButton *m_button = nullptr;
};

VELMORA_TEST_MAIN(TestQcMenuTextButton)

#include "tst_QcMenuTextButton.moc"
