#include "support/TestMain.h"

#include "inputs/TextEditTest.h"

#include <Velmora/QcLabel.h>
#include <Velmora/QcTextEditLimiter.h>

#include <QProxyStyle>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTranslator>
#include <QVBoxLayout>

#include <limits>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QColor kCanvas(120, 140, 120);

/// Translates the one text of the limiter.
class Translator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char * /*remark*/, int /*number*/) const override
    {
        const bool isOurs = qstrcmp(context, "Velmora::QcTextEditLimiter") == 0 && qstrcmp(text, "PleaseEnterMsg") == 0;
        return isOurs ? QStringLiteral("Bitte eingeben") : QString();
    }
};

/// The colour in the middle of the scroll bar's upper part, where the handle of a long text begins.
QColor HandleColor(QcTextEditLimiter &limiter)
{
    const QScrollBar *bar = limiter.textEdit()->verticalScrollBar();
    return PixelAt(Render(limiter, kCanvas), bar->mapTo(&limiter, QPoint(bar->width() / 2, 10)));
}

/// Counts what it polishes.
class CountingStyle : public QProxyStyle
{
public:
    using QProxyStyle::polish;
    void polish(QWidget * /*widget*/) override { ++polished; }
    int polished = 0;
};

QVariant NeedScroll(const QcTextEditLimiter &limiter)
{
    return limiter.textEdit()->verticalScrollBar()->property("needScroll");
}

} // namespace

class TestQcTextEditLimiter : public TextEditTest<QcTextEditLimiter>
{
    Q_OBJECT

private Q_SLOTS:
    // --- What a new limiter is ---

    void a_new_limiter_holds_an_edit_and_a_counter_above_it()
    {
        QcTextEditLimiter limiter(nullptr);
        const QTextEdit *edit = limiter.textEdit();
        QCOMPARE(edit->objectName(), QStringLiteral("limitedTextEdit"));
        QVERIFY(!edit->acceptRichText());
        QCOMPARE(edit->wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
        QCOMPARE(edit->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
        QCOMPARE(edit->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(edit->placeholderText(), QStringLiteral("PleaseEnterMsg"));
        QVERIFY(limiter.testAttribute(Qt::WA_StyledBackground));
        const auto *layout = qobject_cast<QVBoxLayout *>(limiter.layout());
        QVERIFY(layout);
        QCOMPARE(layout->contentsMargins(), QMargins(4, 4, 2, 20));
        QCOMPARE(layout->spacing(), 0);
        QCOMPARE(layout->count(), 1);
        QCOMPARE(layout->itemAt(0)->widget(), edit);
        const QcLabel *counter = limiter.counterLabel();
        QCOMPARE(counter->text(), QStringLiteral("0"));
        QCOMPARE(counter->alignment(), Qt::AlignRight | Qt::AlignBottom);
        QVERIFY(counter->testAttribute(Qt::WA_TransparentForMouseEvents));
        QCOMPARE(counter->parentWidget(), &limiter);
        QVERIFY(limiter.children().lastIndexOf(limiter.counterLabel()) > limiter.children().indexOf(limiter.textEdit()));
        QCOMPARE(NeedScroll(limiter), QVariant(false));
        DrainEvents();
    }

    // --- Look ---

    void each_state_has_its_border_and_ground_data()
    {
        QTest::addColumn<bool>("isHovered");
        QTest::addColumn<bool>("isEnabled");
        QTest::addColumn<QString>("border");
        QTest::addColumn<QString>("ground");
        QTest::newRow("rest") << false << true << "border/border_secondary" << QString();
        QTest::newRow("hover") << true << true << "brand/brand" << QString();
        QTest::newRow("disabled") << false << false << "border/border_primary"
                                  << "base/neutral/neutral-30";
    }

    void each_state_has_its_border_and_ground()
    {
        QFETCH(bool, isHovered);
        QFETCH(bool, isEnabled);
        QFETCH(QString, border);
        QFETCH(QString, ground);
        m_control->setEnabled(isEnabled);
        if (isHovered)
            MoveCursorOver(*m_control);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QColor below = ground.isEmpty() ? kCanvas : Over(TokenOf(table, ground), kCanvas);
            const QImage image = Render(*m_control, kCanvas);
            COMPARE_COLOR(PixelAt(image, QPointF(20, 90)), below); // in the counter's strip
            // Qt lets the ground reach under a part of the border.
            const QColor line = PixelAt(image, QPointF(100, 0.2));
            QVERIFY2(IsBetween(line, Over(TokenOf(table, border), below), Over(TokenOf(table, border), kCanvas)), qPrintable(line.name()));
        }
    }

    void text_counter_and_disabled_text_have_their_tokens()
    {
        m_control->setMaxNum(100);
        m_control->setText(kBlocks);
        QCOMPARE(m_control->textEdit()->font().pixelSize(), 12);
        QCOMPARE(m_control->counterLabel()->font().pixelSize(), 12);
        for (const bool isEnabled : {true, false}) {
            m_control->setEnabled(isEnabled);
            for (const Table table : {Table::Light, Table::Dark}) {
                UseTable(table);
                const QString token = isEnabled ? QStringLiteral("text/text_primary") : QStringLiteral("text/text_tertairy");
                COMPARE_COLOR(MainInk(Render(*m_control->textEdit(), Qt::red), Qt::red), Over(TokenOf(table, token), Qt::red));
            }
        }
        UseTable(Table::Light);
        m_control->setEnabled(true);
        m_control->counterLabel()->setText(kBlocks);
        m_control->counterLabel()->adjustSize();
        COMPARE_COLOR(MainInk(Render(*m_control->counterLabel(), Qt::red), Qt::red),
                      Over(TokenOf(Table::Light, QStringLiteral("text/text_secondary")), Qt::red));
    }

    void the_placeholder_has_the_colour_of_text_data()
    {
        QTest::addColumn<bool>("isEnabled");
        QTest::newRow("enabled") << true;
        QTest::newRow("disabled") << false;
    }

    void the_placeholder_has_the_colour_of_text()
    {
        QFETCH(bool, isEnabled);
        m_control->setPlaceholderText(kBlocks);
        m_control->setEnabled(isEnabled);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QColor text = TokenOf(table, isEnabled ? QStringLiteral("text/text_primary") : QStringLiteral("text/text_tertairy"));
            COMPARE_COLOR(MainInk(Render(*m_control->textEdit(), Qt::red), Qt::red), Over(text, Qt::red));
        }
    }

    // --- Limit ---

    void the_counter_tells_what_is_left_while_typing()
    {
        m_control->setMaxNum(3);
        QCOMPARE(m_control->counterLabel()->text(), QStringLiteral("3"));
        for (const char *left : {"2", "1", "0", "0"}) {
            QTest::keyClicks(Edit(), QStringLiteral("x"));
            QCOMPARE(m_control->counterLabel()->text(), QLatin1String(left));
        }
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("xxx"));
        QVERIFY(Edit()->textCursor().atEnd());
    }

    void typing_into_the_middle_of_a_full_field_drops_its_end()
    {
        m_control->setMaxNum(3);
        m_control->setText(QStringLiteral("abc"));
        Edit()->moveCursor(QTextCursor::Start);
        QTest::keyClicks(Edit(), QStringLiteral("x"));
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("xab"));
        QVERIFY(Edit()->textCursor().atEnd());
    }

    void a_maximum_of_0_or_less_accepts_nothing_data()
    {
        QTest::addColumn<int>("max");
        QTest::newRow("never set") << 1;
        QTest::newRow("0") << 0;
        QTest::newRow("-1") << -1;
        QTest::newRow("least") << std::numeric_limits<int>::min();
    }

    void a_maximum_of_0_or_less_accepts_nothing()
    {
        QFETCH(int, max);
        if (max <= 0)
            m_control->setMaxNum(max);
        m_control->setText(QStringLiteral("dropped"));
        QCOMPARE(Edit()->toPlainText(), QString());
        QTest::keyClicks(Edit(), QStringLiteral("typed"));
        QCOMPARE(Edit()->toPlainText(), QString());
        QCOMPARE(m_control->counterLabel()->text(), QStringLiteral("0"));
    }

    void a_lowered_maximum_cuts_at_the_next_change()
    {
        m_control->setMaxNum(10);
        m_control->setText(QStringLiteral("abcdef"));
        m_control->setMaxNum(2);
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("abcdef"));
        QCOMPARE(m_control->counterLabel()->text(), QStringLiteral("0"));
        QTest::keyClicks(Edit(), QStringLiteral("x"));
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("xa"));
    }

    void a_set_text_is_read_as_html_and_a_cut_one_is_plain()
    {
        m_control->setMaxNum(100);
        m_control->setText(QStringLiteral("<b>bold</b>"));
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("bold"));
        m_control->setMaxNum(10);
        Paste(*Edit(), QStringLiteral("<b>bold</b> and more"));
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("<b>bold</b"));
    }

    void the_host_s_placeholder_and_the_translated_one_show()
    {
        Translator translator;
        QCoreApplication::installTranslator(&translator);
        DrainEvents();
        QCOMPARE(Edit()->placeholderText(), QStringLiteral("Bitte eingeben"));
        m_control->setPlaceholderText(QStringLiteral("Remarks"));
        QCoreApplication::removeTranslator(&translator);
        DrainEvents();
        QCOMPARE(Edit()->placeholderText(), QStringLiteral("Remarks"));
    }

    // --- Counter ---

    void the_counter_keeps_8_from_the_right_and_4_from_the_bottom()
    {
        m_control->setMaxNum(12345);
        const QcLabel *counter = m_control->counterLabel();
        for (const QSize &size : {QSize(200, 100), QSize(150, 60), QSize(280, 190)}) {
            m_control->resize(size);
            QCOMPARE(counter->geometry().right() + 1, size.width() - 8);
            QCOMPARE(counter->geometry().bottom() + 1, size.height() - 4);
        }
        m_control->setMaxNum(1);
        QCOMPARE(counter->size(), counter->sizeHint());
        QCOMPARE(counter->geometry().right() + 1, m_control->width() - 8);
        m_control->setMinimumSize(0, 0);
        m_control->layout()->setSizeConstraint(QLayout::SetNoConstraint);
        m_control->resize(5, 5);
        QCOMPARE(counter->pos(), QPoint(0, 0));
    }

    // --- Scroll bar ---

    void the_handle_shows_only_with_the_mouse_over_a_field_that_overflows()
    {
        m_control->setMaxNum(1000);
        m_control->setText(QStringLiteral("short"));
        MoveCursorOver(*m_control);
        QCOMPARE(NeedScroll(*m_control), QVariant(false));
        MoveCursorAway();
        {
            const QSignalBlocker quiet(Edit()); // so that only the mouse matters
            Edit()->setPlainText(QStringLiteral("line\n").repeated(30));
            Edit()->moveCursor(QTextCursor::Start);
        }
        DrainEvents();
        QCOMPARE(NeedScroll(*m_control), QVariant(false));
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            COMPARE_COLOR(HandleColor(*m_control), kCanvas);
            MoveCursorOver(*m_control);
            QCOMPARE(NeedScroll(*m_control), QVariant(true));
            COMPARE_COLOR(HandleColor(*m_control), Over(TokenOf(table, QStringLiteral("base/neutral/neutral-60")), kCanvas));
            QCOMPARE(Edit()->verticalScrollBar()->width(), 12);
            MoveCursorAway();
            QCOMPARE(NeedScroll(*m_control), QVariant(false));
            COMPARE_COLOR(HandleColor(*m_control), kCanvas);
            QCOMPARE(Edit()->verticalScrollBar()->width(), 12);
        }
    }

    void the_handle_widens_below_the_mouse_and_darkens_while_held()
    {
        m_control->resize(150, 100); // where the test's platform finds the cursor at each scale
        m_control->setMaxNum(1000);
        m_control->setText(QStringLiteral("line\n").repeated(30));
        Edit()->moveCursor(QTextCursor::Start);
        QScrollBar *bar = Edit()->verticalScrollBar();
        // From left to right: outside of the handle, in the wide one, in the thin one as well.
        const auto look = [&] {
            const QImage image = Render(*m_control, kCanvas);
            QVector<QColor> colors;
            for (const int x : {1, 3, 6})
                colors << PixelAt(image, bar->mapTo(m_control, QPoint(x, 10)));
            return colors;
        };
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const auto over = [table](const char *code, const QColor &ground) { return Over(TokenOf(table, QLatin1String(code)), ground); };
            const QColor track = over("bg/bg_transluent_strong_press", kCanvas);
            MoveCursorOver(*m_control);
            const QVector<QColor> rest = look();
            COMPARE_COLOR(rest[0], kCanvas);
            COMPARE_COLOR(rest[1], kCanvas);
            COMPARE_COLOR(rest[2], over("base/neutral/neutral-60", kCanvas));
            QCursor::setPos(bar->mapToGlobal(QPoint(6, 10)));
            DrainEvents();
            const QVector<QColor> hovered = look();
            COMPARE_COLOR(hovered[0], track);
            COMPARE_COLOR(hovered[1], hovered[2]);
            COMPARE_COLOR(hovered[2], over("base/neutral/neutral-70", track));
            QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, QPoint(6, 10));
            const QVector<QColor> held = look();
            COMPARE_COLOR(held[0], track);
            COMPARE_COLOR(held[1], held[2]);
            COMPARE_COLOR(held[2], over("base/neutral/neutral-90", track));
            QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, QPoint(6, 10));
        }
    }

    void typing_shows_the_handle_until_the_next_leave()
    {
        m_control->setMaxNum(1000);
        for (int i = 0; i < 9; ++i)
            QTest::keyClick(Edit(), Qt::Key_Return);
        QCOMPARE(NeedScroll(*m_control), QVariant(true));
        MoveCursorOver(*m_control);
        MoveCursorAway();
        QCOMPARE(NeedScroll(*m_control), QVariant(false));
    }

    void a_key_polishes_the_bar_only_where_the_text_begins_to_overflow()
    {
        Edit()->verticalScrollBar()->setStyle(&m_style);
        m_control->setMaxNum(1000);
        QTest::keyClicks(Edit(), QStringLiteral("a"));
        m_style.polished = 0;
        QTest::keyClicks(Edit(), QStringLiteral("b"));
        QCOMPARE(m_style.polished, 0);
        for (int i = 0; i < 9; ++i)
            QTest::keyClick(Edit(), Qt::Key_Return);
        QCOMPARE(m_style.polished, 1);
    }

    // --- Keyboard ---

    void a_press_beside_the_edit_starts_typing()
    {
        QList<Qt::FocusReason> reasons;
        struct Listener : QObject
        {
            QList<Qt::FocusReason> &reasons;
            explicit Listener(QList<Qt::FocusReason> &list)
                : reasons(list)
            {
            }
            bool eventFilter(QObject *, QEvent *event) override
            {
                if (event->type() == QEvent::FocusIn)
                    reasons << static_cast<QFocusEvent *>(event)->reason();
                return false;
            }
        } listener(reasons);
        Edit()->installEventFilter(&listener);
        m_control->setMaxNum(5);
        ClickAt(m_control->mapTo(m_window.get(), QPoint(50, 95))); // the strip
        QVERIFY(Edit()->hasFocus());
        m_first->setFocus();
        ClickAt(*m_control->counterLabel());
        QVERIFY(Edit()->hasFocus());
        QCOMPARE(reasons, QList<Qt::FocusReason>({Qt::OtherFocusReason, Qt::OtherFocusReason}));
        ClickAt(*m_control->counterLabel());
        QCOMPARE(reasons.size(), 2);
    }

    void the_frame_hands_the_keyboard_to_the_edit()
    {
        m_control->setFocus();
        QVERIFY(Edit()->hasFocus());
        QCOMPARE(m_control->focusPolicy(), Qt::NoFocus);
        m_control->setFocusPolicy(Qt::NoFocus); // goes through to the edit
        QCOMPARE(Edit()->focusPolicy(), Qt::NoFocus);
    }

    void losing_the_keyboard_is_told_with_the_text()
    {
        m_control->setMaxNum(5);
        Edit()->setFocus();
        QTest::keyClicks(Edit(), QStringLiteral("typed"));
        QSignalSpy losses(m_control, &QcTextEditLimiter::SignalFousOut);
        m_first->setFocus();
        QCOMPARE(losses.count(), 1);
        QCOMPARE(losses.at(0).at(0).toString(), QStringLiteral("typed"));
    }

private:
    QTextEdit *Edit() const { return m_control->textEdit(); }

    CountingStyle m_style; // outlives the control
};

VELMORA_TEST_MAIN(TestQcTextEditLimiter)

#include "tst_QcTextEditLimiter.moc"
